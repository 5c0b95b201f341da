// TEditForm: a new caption for the control that was clicked on in the edit mode of languages. Only Enter
// takes it; whatever else closes the window empties the edit, and an empty one changes nothing.
#pragma once

#include <QDialog>
#include <functional>

class QLineEdit;

namespace kelvane {

class TEditForm : public QDialog {
    Q_OBJECT
   public:
    explicit TEditForm(QWidget* parent = nullptr);

    // What to do with the next text; caption is the one that it replaces, shown behind the empty edit.
    void ask(const QString& caption, std::function<void(const QString&)> replace);

   protected:
    void done(int result) override;

   private:
    QLineEdit* UpdateEdit;
    std::function<void(const QString&)> m_replace;
};

}  // namespace kelvane
