// TAboutForm: which program this is and who made it. A double click on the thanks asks for the password
// window.
#pragma once

#include <QDialog>

namespace kelvane {

class TAboutForm : public QDialog {
    Q_OBJECT
   public:
    explicit TAboutForm(int BrandVariant, QWidget* parent = nullptr);

   Q_SIGNALS:
    void thanksDoubleClicked();

   protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace kelvane
