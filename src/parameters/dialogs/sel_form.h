// Base of the small windows that ask for a choice before some work: their OK and Cancel, lamps of which one
// is lit, and the answer, which is given once and only after the window has gone.
#pragma once

#include <QDialog>
#include <functional>

class QComboBox;
class QVBoxLayout;

namespace kelvane {

class AbLED;
class TransparentButton;

class SelForm : public QDialog {
    Q_OBJECT
   protected:
    SelForm(const char* name, const QString& caption, QWidget* parent);

    // Room above the buttons.
    QVBoxLayout* content() const { return m_content; }
    // A lamp that a click lights, putting out the others of the window.
    AbLED* addLed(const char* name, const QString& caption);
    QComboBox* addBox(const char* name, const QString& caption);
    void inTabOrder(QWidget* field);  // behind those before it
    // Shows the window; then() learns whether it was closed by OK. A question that still stood is cancelled.
    void begin(std::function<void(bool byOk)> then);
    void keyPressEvent(QKeyEvent* event) override;  // Enter is OK

    TransparentButton* OKTransparentButton;
    TransparentButton* CancelTransparentButton;

   private:
    void answer(bool byOk);
    QVBoxLayout* m_content;
    QList<QWidget*> m_fields;
    std::function<void(bool)> m_then;
};

}  // namespace kelvane
