#include "console/log/console_log_form.h"

#include <QCheckBox>
#include <QClipboard>
#include <QGuiApplication>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QSplitter>
#include <QTextBlock>
#include <QVBoxLayout>

#include "ui/icons.h"
#include "ui/named.h"
#include "ui/readable_colours.h"
#include "ui/transparent_button.h"

namespace kelvane {

namespace {

constexpr int ExplainAfter = 100;  // ms: a poll goes by faster than anybody reads
const QString TextFilter = QStringLiteral("TXT File(*.txt)|*.txt");

QTextCharFormat formatOf(const ConsoleLine& line, const QPalette& palette) {
    QTextCharFormat format;
    if (!line.failed()) return format;
    const QColor told = QColor::fromRgb(line.colour);
    format.setForeground(told);
    // The two given colours are dark; on a dark ground they get a light one of their own.
    if (contrast(told, palette.color(QPalette::Base)) < 4.5)
        format.setBackground(readablePair(told, std::nullopt, palette).background);
    return format;
}

}  // namespace

ConsoleLogView::ConsoleLogView(AdvanceConsole& console, QWidget* parent)
    : QWidget(parent),
      m_console(console),
      m_explainSoon(console.site.clock, TickKind::RealTime, ExplainAfter, [this] {
          m_explainSoon.setEnabled(false);
          explain();
      }) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    buildBar(column);
    auto* splitter = named<QSplitter>("LogSplitter", this);
    MsgRichEdit = named<QPlainTextEdit>("MsgRichEdit", splitter);
    MsgRichEdit->setTabChangesFocus(true);
    MsgRichEdit->setReadOnly(true);
    MsgRichEdit->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    MsgRichEdit->setLineWrapMode(QPlainTextEdit::NoWrap);
    MsgRichEdit->setUndoRedoEnabled(false);
    MsgRichEdit->setAccessibleName(QStringLiteral("History of exchanges, newest first"));
    ExplainMemo = named<QPlainTextEdit>("ExplainMemo", splitter);
    ExplainMemo->setTabChangesFocus(true);
    ExplainMemo->setReadOnly(true);
    ExplainMemo->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    ExplainMemo->setPlaceholderText(QStringLiteral("What the line under the caret says"));
    ExplainMemo->setAccessibleName(QStringLiteral("Explanation of the line under the caret"));
    for (QPlainTextEdit* memo : {MsgRichEdit, ExplainMemo}) {
        memo->setMinimumHeight(fontMetrics().height() * 3);
        splitter->addWidget(memo);
    }
    splitter->setStretchFactor(0, 3);
    splitter->setStretchFactor(1, 2);
    column->addWidget(splitter, 1);
    connect(&m_console.log, &ConsoleLog::lineAdded, this, &ConsoleLogView::onLineAdded);
    connect(&m_console.log, &ConsoleLog::frontChanged, this, &ConsoleLogView::onFrontChanged);
    connect(&m_console.log, &ConsoleLog::oldestGone, this, &ConsoleLogView::onOldestGone);
    connect(&m_console.log, &ConsoleLog::cleared, this, &ConsoleLogView::rebuild);
    connect(MsgRichEdit, &QPlainTextEdit::cursorPositionChanged, this,
            [this] { m_explainSoon.setEnabled(true); });
}

void ConsoleLogView::buildBar(QVBoxLayout* column) {
    auto* row = new QHBoxLayout;
    ErrorsOnlyCheckBox = named<QCheckBox>("ErrorsOnlyCheckBox", QStringLiteral("Failures o&nly"), this);
    ErrorsOnlyCheckBox->setToolTip(QStringLiteral("Show only exchanges that failed or were not answered"));
    const auto button = [this](const char* name, Icon which, const QString& text, const QString& hint) {
        return framedButton(name, which, text, this, hint);
    };
    auto* copy = button("LogCopyTransparentButton", Icon::Copy, QStringLiteral("Copy"),
                        QStringLiteral("Copy the selected text of the history, or all of it"));
    auto* keep = button("LogSaveTransparentButton", Icon::Save, QStringLiteral("Save"),
                        QStringLiteral("Save the history to a text file"));
    auto* ClearTransparentButton = button("ClearTransparentButton", Icon::Clear, QStringLiteral("Clear"),
                                          QStringLiteral("Empty the history and the counters"));
    row->addWidget(plainLabel("HistoryLabel", QStringLiteral("History"), this));
    row->addWidget(ErrorsOnlyCheckBox);
    row->addStretch();
    for (QWidget* widget : std::initializer_list<QWidget*>{copy, keep, ClearTransparentButton})
        row->addWidget(widget);
    column->addLayout(row);
    connect(ErrorsOnlyCheckBox, &QCheckBox::toggled, this, &ConsoleLogView::rebuild);
    connect(ClearTransparentButton, &QToolButton::clicked, &m_console.log,
            &ConsoleLog::ClearTransparentButtonClick);
    connect(keep, &QToolButton::clicked, this, &ConsoleLogView::save);
    connect(copy, &QToolButton::clicked, this, [this] {
        if (MsgRichEdit->textCursor().hasSelection()) return MsgRichEdit->copy();
        QGuiApplication::clipboard()->setText(m_console.log.text(ErrorsOnlyCheckBox->isChecked()));
    });
}

// ---- Lines ----

void ConsoleLogView::putOnTop(const ConsoleLine& line) {
    QScrollBar* bar = MsgRichEdit->verticalScrollBar();
    const int seen = bar->value();
    const bool first = MsgRichEdit->document()->isEmpty();
    const bool atTop = caretOnTop();
    QTextCursor cursor(MsgRichEdit->document());
    cursor.beginEditBlock();
    cursor.movePosition(QTextCursor::Start);
    if (!first) {
        cursor.insertBlock();
        cursor.movePosition(QTextCursor::Start);
    }
    cursor.insertText(line.text, formatOf(line, palette()));
    cursor.endEditBlock();
    // Who reads further down keeps the line in place; a caret on the newest line stays on the newest.
    if (seen > 0) {
        bar->setValue(seen + 1);
    } else if (atTop) {
        MsgRichEdit->moveCursor(QTextCursor::Start);
    }
}

bool ConsoleLogView::caretOnTop() const {
    const QTextCursor caret = MsgRichEdit->textCursor();
    return caret.blockNumber() == 0 && !caret.hasSelection();
}

void ConsoleLogView::rewriteTop(const ConsoleLine& line) {
    const bool atTop = caretOnTop() && MsgRichEdit->verticalScrollBar()->value() == 0;
    QTextCursor cursor(MsgRichEdit->document());
    cursor.movePosition(QTextCursor::Start);
    cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
    cursor.insertText(line.text, formatOf(line, palette()));
    if (atTop) MsgRichEdit->moveCursor(QTextCursor::Start);
}

void ConsoleLogView::onLineAdded() {
    if (!ErrorsOnlyCheckBox->isChecked()) putOnTop(m_console.log.lines().front());
}

void ConsoleLogView::onFrontChanged() {
    const ConsoleLine& front = m_console.log.lines().front();
    if (!ErrorsOnlyCheckBox->isChecked()) {
        rewriteTop(front);
    } else if (front.failed()) {
        putOnTop(front);
    }
    if (MsgRichEdit->textCursor().blockNumber() != 0) return;
    const bool due = m_console.site.clock.nowUs() - m_explainedUs >= qint64(ExplainAfter) * 1000;
    due ? explain() : m_explainSoon.setEnabled(true);
}

void ConsoleLogView::onOldestGone() {
    if (MsgRichEdit->blockCount() <= ConsoleLog::Room) return;
    QTextCursor cursor(MsgRichEdit->document());
    cursor.movePosition(QTextCursor::End);
    cursor.movePosition(QTextCursor::StartOfBlock, QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
    cursor.deletePreviousChar();
}

void ConsoleLogView::rebuild() {
    MsgRichEdit->clear();
    const auto& lines = m_console.log.lines();
    for (auto line = lines.rbegin(); line != lines.rend(); ++line)
        if (!ErrorsOnlyCheckBox->isChecked() || line->failed()) putOnTop(*line);
    explain();
}

const ConsoleLine* ConsoleLogView::lineAtCaret() const {
    int left = MsgRichEdit->textCursor().blockNumber();
    for (const ConsoleLine& line : m_console.log.lines()) {
        if (ErrorsOnlyCheckBox->isChecked() && !line.failed()) continue;
        if (left-- == 0) return &line;
    }
    return nullptr;
}

void ConsoleLogView::explain() {
    const ConsoleLine* line = lineAtCaret();
    // Of half an exchange there is little to say, and a poll would make it flicker.
    if (line && m_console.log.frontIsOpen() && line == &m_console.log.lines().front()) return;
    m_explainedUs = m_console.site.clock.nowUs();
    const QString text = line ? m_console.explain(*line) : QString();
    if (ExplainMemo->toPlainText() == text) return;
    const int seen = ExplainMemo->verticalScrollBar()->value();
    ExplainMemo->setPlainText(text);
    ExplainMemo->verticalScrollBar()->setValue(seen);  // so that a poll can be read to its end
}

void ConsoleLogView::save() {
    askToSave(m_console.site.voice.person, TextFilter,
              m_console.log.text(ErrorsOnlyCheckBox->isChecked()).toUtf8());
}

}  // namespace kelvane
