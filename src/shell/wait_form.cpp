#include "shell/wait_form.h"

namespace kelvane {

WaitForm::WaitForm(const QString& title, QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint) {
    setWindowTitle(title);
    setModal(true);
}

}  // namespace kelvane
