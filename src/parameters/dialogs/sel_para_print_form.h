// TSelParaPrintForm, which of the open tables is saved or printed; whoever asks gives the title.
#pragma once

#include <QString>
#include <QStringList>
#include <optional>

#include "parameters/dialogs/sel_form.h"

namespace kelvane {

class TSelParaPrintForm : public SelForm {
    Q_OBJECT
   public:
    explicit TSelParaPrintForm(QWidget* parent = nullptr);

    // tables are captions of tabs; selected is the one to begin with. The chosen caption comes back, or
    // nothing unless OK was pressed.
    void ask(const QString& title, const QStringList& tables, int selected,
             std::function<void(std::optional<QString>)> then);

   private:
    QComboBox* ParameterComboBox;
};

}  // namespace kelvane
