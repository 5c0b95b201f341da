// TQSsourceForm, where Quick Setup takes its values from: two lamps of which one is lit, and OK. Closing it
// any other way gives no source.
#pragma once

#include <QDialog>

#include "quicksetup/quick_setup_flow.h"

namespace kelvane {

class AbLED;
class TransparentButton;

class TQSsourceForm : public QDialog {
    Q_OBJECT
   public:
    explicit TQSsourceForm(QWidget* parent = nullptr);

   Q_SIGNALS:
    void chosen(kelvane::SettingsSource source);
    void cancelled();

   protected:
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;  // Enter is OK; the arrows go from lamp to lamp

   private:
    AbLED* addLamp(const char* name, const QString& caption);

    AbLED* DriveAbLED;
    AbLED* FileAbLED;
    TransparentButton* OKTransparentButton;
};

}  // namespace kelvane
