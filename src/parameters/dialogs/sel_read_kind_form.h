// TSelReadKindForm, one of the plant's windows without anything in it: it is created with the others and
// never shown.
#pragma once

#include <QDialog>

namespace kelvane {

class TSelReadKindForm : public QDialog {
    Q_OBJECT
   public:
    explicit TSelReadKindForm(QWidget* parent = nullptr) : QDialog(parent) {
        setObjectName(QStringLiteral("TSelReadKindForm"));
    }
};

}  // namespace kelvane
