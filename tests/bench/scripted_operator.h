// An operator who answers from a script: a queue of expected questions with their answers, and something to
// do while the box is open. A question that is not expected fails the test, and so does one that never came.
#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <functional>

#include "base/operator.h"

namespace kelvane {

class ScriptedOperator final : public Operator {
   public:
    ~ScriptedOperator() override {
        for (const Step& step : m_steps)
            ADD_FAILURE() << "never asked: " << step.text.toStdString() << " [" << step.title.toStdString()
                          << "]";
    }

    // Expects a box (or, by kind, another question) and gives the answer.
    void expectBox(const QString& text, const QString& title, BoxAnswer answer = BoxAnswer::Ok,
                   std::function<void()> meanwhile = {}) {
        m_steps.push_back(
            {Kind::Box, text, title, answer, LinkAnswer::Abort, {}, false, std::move(meanwhile), {}});
    }
    void expectLinkFailure(const QString& text, bool ignoreShown, LinkAnswer answer,
                           std::function<void()> meanwhile = {}) {
        m_steps.push_back(
            {Kind::LinkFailure, text, {}, BoxAnswer::Ok, answer, {}, ignoreShown, std::move(meanwhile), {}});
    }
    void expectOpen(const QString& filter, std::optional<QString> path) {
        m_steps.push_back(
            {Kind::Open, filter, {}, BoxAnswer::Ok, LinkAnswer::Abort, std::move(path), false, {}, {}});
    }
    void expectSave(const QString& filter, const QString& suffix, std::optional<QString> path) {
        m_steps.push_back(
            {Kind::Save, filter, suffix, BoxAnswer::Ok, LinkAnswer::Abort, std::move(path), false, {}, {}});
    }
    void expectEdit(std::function<void(ValueEdit&)> edit) {
        m_steps.push_back(
            {Kind::Edit, {}, {}, BoxAnswer::Ok, LinkAnswer::Abort, {}, false, {}, std::move(edit)});
    }
    bool allAsked() const { return m_steps.empty(); }
    // Icon and buttons of the last box.
    BoxIcon lastIcon = BoxIcon::None;
    BoxButtons lastButtons = BoxButtons::Ok;

    BoxAnswer box(const QString& text, const QString& title, BoxIcon icon, BoxButtons buttons) override {
        lastIcon = icon;
        lastButtons = buttons;
        const Step step = next(Kind::Box, text);
        EXPECT_EQ(step.title.toStdString(), title.toStdString()) << text.toStdString();
        return step.answer;
    }
    std::optional<QString> openFile(const QString& filter) override { return next(Kind::Open, filter).path; }
    std::optional<QString> saveFile(const QString& filter, const QString& suffix) override {
        const Step step = next(Kind::Save, filter);
        EXPECT_EQ(step.title.toStdString(), suffix.toStdString());
        return step.path;
    }
    LinkAnswer linkFailure(const QString& ErrNameVrLabel, bool ignoreShown) override {
        const Step step = next(Kind::LinkFailure, ErrNameVrLabel);
        EXPECT_EQ(step.ignoreShown, ignoreShown);
        return step.linkAnswer;
    }
    void editValue(ValueEdit& edit) override {
        const Step step = next(Kind::Edit, {});
        if (step.edit) step.edit(edit);
    }

   private:
    enum class Kind { Box, LinkFailure, Open, Save, Edit };
    struct Step {
        Kind kind;
        QString text;
        QString title;
        BoxAnswer answer;
        LinkAnswer linkAnswer;
        std::optional<QString> path;
        bool ignoreShown;
        std::function<void()> meanwhile;
        std::function<void(ValueEdit&)> edit;
    };
    Step next(Kind kind, const QString& text) {
        if (m_steps.empty()) {
            ADD_FAILURE() << "asked without being expected: " << text.toStdString();
            return {kind, {}, {}, BoxAnswer::Cancel, LinkAnswer::Abort, {}, false, {}, {}};
        }
        const Step step = m_steps.front();
        m_steps.pop_front();
        EXPECT_EQ(static_cast<int>(step.kind), static_cast<int>(kind)) << text.toStdString();
        EXPECT_EQ(step.text.toStdString(), text.toStdString());
        if (step.meanwhile) step.meanwhile();
        return step;
    }
    std::deque<Step> m_steps;
};

}  // namespace kelvane
