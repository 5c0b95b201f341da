// TMotorSelForm: which of the drive's two motors the tuning window works on.
#pragma once

#include <QDialog>
#include <functional>
#include <optional>

namespace kelvane {

class MarkPanel;

class TMotorSelForm : public QDialog {
    Q_OBJECT
   public:
    explicit TMotorSelForm(QWidget* parent = nullptr);

    // Shows it with the mark on a motor, 1 or 2; then is called when it has closed, with nothing unless by
    // OK.
    void ask(int marked, std::function<void(std::optional<int>)> then);

   protected:
    void changeEvent(QEvent* event) override;  // no language file has its title

   private:
    MarkPanel* panel(int motor);
    void mark(int motor);

    MarkPanel* Motor1Panel;
    MarkPanel* Motor2Panel;
    std::function<void(std::optional<int>)> m_then;
};

}  // namespace kelvane
