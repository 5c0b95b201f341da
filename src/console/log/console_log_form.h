// The console's log on the screen, newest line on top, with the explanation of the line under the caret.
#pragma once

#include <QWidget>

#include "console/advance_console.h"

class QCheckBox;
class QPlainTextEdit;
class QVBoxLayout;

namespace kelvane {

class ConsoleLogView : public QWidget {
    Q_OBJECT
   public:
    explicit ConsoleLogView(AdvanceConsole& console, QWidget* parent = nullptr);

   private:
    void buildBar(QVBoxLayout* column);
    void onLineAdded();
    void onFrontChanged();
    void onOldestGone();
    void putOnTop(const ConsoleLine& line);
    void rewriteTop(const ConsoleLine& line);
    bool caretOnTop() const;
    void rebuild();
    void explain();
    void save();
    const ConsoleLine* lineAtCaret() const;

    AdvanceConsole& m_console;
    TickTimer m_explainSoon;
    qint64 m_explainedUs = 0;
    QCheckBox* ErrorsOnlyCheckBox;
    QPlainTextEdit* MsgRichEdit;
    QPlainTextEdit* ExplainMemo;
};

}  // namespace kelvane
