#include "console/flasher/flasher_form.h"

#include <QPlainTextEdit>
#include <QProgressBar>
#include <QVBoxLayout>

#include "ui/icons.h"
#include "ui/named.h"
#include "ui/transparent_button.h"

namespace kelvane {

FlasherForm::FlasherForm(AdvanceConsole& console, QWidget* parent) : QWidget(parent), m_console(console) {
    const auto button = [this](const char* name, Icon which, const QString& text) {
        return framedButton(name, which, text, this);
    };
    LoadFileTransparentButton = button("LoadFileTransparentButton", Icon::Open, QStringLiteral("Load"));
    SendFileTransparentButton = button("SendFileTransparentButton", Icon::Start, QStringLiteral("Send"));
    STOPflashTransparentButton = button("STOPflashTransparentButton", Icon::Stop, QStringLiteral("STOP"));
    FtimeoutTransparentButton = button("FtimeoutTransparentButton", Icon::Option, {});
    FprotocolTransparentButton =
        button("FprotocolTransparentButton", Icon::ComSetup, QStringLiteral("Set the com port settings"));
    auto* row = new QHBoxLayout;
    for (QWidget* widget : std::initializer_list<QWidget*>{
             LoadFileTransparentButton, SendFileTransparentButton, STOPflashTransparentButton,
             FtimeoutTransparentButton, FprotocolTransparentButton})
        row->addWidget(widget);
    row->addStretch();
    const auto memo = [this](const char* name, const QString& what) {
        auto* made = named<QPlainTextEdit>(name, this);
        made->setTabChangesFocus(true);
        made->setReadOnly(true);
        made->setAccessibleName(what);
        return made;
    };
    FileMemo = memo("FileMemo", QStringLiteral("Lines of the file"));
    FmonitorMemo = memo("FmonitorMemo", QStringLiteral("Lines that were sent"));
    Gauge1 = named<QProgressBar>("Gauge1", this);
    auto* column = new QVBoxLayout(this);
    column->addLayout(row);
    column->addWidget(FileMemo, 1);
    column->addWidget(Gauge1);
    column->addWidget(FmonitorMemo, 1);
    connect(LoadFileTransparentButton, &QToolButton::clicked, &m_console.flasher, &Flasher::LoadClick);
    connect(SendFileTransparentButton, &QToolButton::clicked, &m_console.flasher,
            &Flasher::SendFileTransparentButtonClick);
    connect(STOPflashTransparentButton, &QToolButton::clicked, &m_console.flasher, &Flasher::stop);
    connect(FprotocolTransparentButton, &QToolButton::clicked, this, &FlasherForm::comSetupWanted);
    connect(FtimeoutTransparentButton, &QToolButton::clicked, this,
            [this] { Q_EMIT timeOutWanted(TimeOutTag::First); });
    connect(&m_console.flasher, &Flasher::changed, this, &FlasherForm::showState);
    connect(&m_console, &AdvanceConsole::changed, this, &FlasherForm::showState);
    showState();
}

void FlasherForm::showState() {
    const bool free = !m_console.flasher.running();
    for (QWidget* widget :
         std::initializer_list<QWidget*>{LoadFileTransparentButton, SendFileTransparentButton,
                                         FprotocolTransparentButton, FtimeoutTransparentButton})
        widget->setEnabled(free);
    STOPflashTransparentButton->setEnabled(!free);
    FtimeoutTransparentButton->setText(m_console.TimeOutCaption);
    if (m_console.page != ConsolePage::Flasher) return;
    showFile();
    Gauge1->setRange(0, std::max(1, static_cast<int>(m_console.flasher.FlashLineCount())));
    Gauge1->setValue(m_console.flasher.gauge);
    showSent();
}

void FlasherForm::showSent() {
    const QString& sent = m_console.record().FmonitorMemo;
    QTextCursor cursor(FmonitorMemo->document());
    cursor.movePosition(QTextCursor::End);
    cursor.insertText(sent.mid(m_sentShown));
    m_sentShown = sent.size();
}

void FlasherForm::showFile() {
    if (m_shown == m_console.flasher.FlashLines) return;
    m_shown = m_console.flasher.FlashLines;
    FileMemo->setPlainText(m_shown.join(QLatin1Char('\n')));
}

}  // namespace kelvane
