// TSessionReportForm: asks for notes and writes the session report as PDF. Opened from the menu Options and
// by Ctrl+R in any window.
#pragma once

#include <QDialog>
#include <QImage>
#include <functional>

class QPlainTextEdit;

namespace kelvane {

class Tool;

class TSessionReportForm : public QDialog {
    Q_OBJECT
   public:
    // trend gives the picture of the recording; a null one when nothing was recorded.
    TSessionReportForm(Tool& tool, std::function<QImage()> trend, QWidget* parent = nullptr);

   private:
    void save();

    Tool& m_tool;
    std::function<QImage()> m_trend;
    QPlainTextEdit* NotesMemo;
};

}  // namespace kelvane
