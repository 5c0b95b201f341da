// TAboutForm: which program this is and who made it, its versions and folders to copy into a letter. A double
// click on the thanks asks for the password window.
#pragma once

#include <QDialog>

namespace kelvane {

class TAboutForm : public QDialog {
    Q_OBJECT
   public:
    // folder is where the program writes.
    explicit TAboutForm(int BrandVariant, const QString& folder = {}, QWidget* parent = nullptr);

   Q_SIGNALS:
    void thanksDoubleClicked();

   protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace kelvane
