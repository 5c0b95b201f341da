// An operator that answers from a list: every box must be the next one expected.
#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <functional>

#include "base/operator.h"

namespace kelvane::test {

class ScriptedOperator final : public Operator {
public:
    struct Box {
        QString text;
        QString title;
        BoxAnswer answer = BoxAnswer::Ok;
    };
    ~ScriptedOperator() override {
        EXPECT_TRUE(boxes.empty()) << "a box never came: " << boxes.front().text.toStdString();
    }

    BoxAnswer box(const QString& text, const QString& title, BoxIcon, BoxButtons) override {
        if (boxes.empty()) {
            ADD_FAILURE() << "unexpected box: " << text.toStdString();
            return BoxAnswer::Cancel;
        }
        const Box expected = boxes.front();
        boxes.pop_front();
        EXPECT_EQ(text, expected.text);
        EXPECT_EQ(title, expected.title);
        return expected.answer;
    }
    std::optional<QString> openFile(const QString&) override { return {}; }
    std::optional<QString> saveFile(const QString&, const QString&) override { return {}; }
    LinkAnswer linkFailure(const QString&, bool) override { return LinkAnswer::Abort; }
    void editValue(ValueEdit& edit) override {
        if (onEdit) onEdit(edit);
    }

    std::deque<Box> boxes;
    std::function<void(ValueEdit&)> onEdit;
};

}  // namespace kelvane::test
