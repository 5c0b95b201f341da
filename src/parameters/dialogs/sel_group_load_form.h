// TSelGroupLoadForm, the groups that a read takes. Every read fills its list and checks all of it; no window
// shows it, but it would choose the groups if one did.
#pragma once

#include <optional>
#include <vector>

#include "parameters/dialogs/sel_form.h"
#include "parameters/exchange/parameter_reader.h"

class QListWidget;

namespace kelvane {

class TSelGroupLoadForm : public SelForm {
    Q_OBJECT
   public:
    explicit TSelGroupLoadForm(ParameterReader& reader, QWidget* parent = nullptr);

    // OK puts the checks into the reader's list and gives it back; anything else leaves that list alone.
    void ask(std::function<void(std::optional<std::vector<GroupCheck>>)> then);

   private:
    void showGroups();
    void checkAll(bool checked);

    ParameterReader& m_reader;
    QListWidget* GrpNameCheckListBox;
};

}  // namespace kelvane
