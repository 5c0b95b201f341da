#include "console/listener/listener_form.h"

#include <QActionGroup>
#include <QContextMenuEvent>
#include <QDialog>
#include <QFontDialog>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QSplitter>
#include <QVBoxLayout>

#include "console/connection/console_fields_form.h"
#include "ui/editable_grid_view.h"
#include "ui/icons.h"
#include "ui/named.h"
#include "ui/timed_memo.h"
#include "ui/transparent_button.h"

namespace kelvane {

namespace {

constexpr int RefreshInterval = 125;  // ms: lines come faster than anybody reads
const QString TextFilter = QStringLiteral("TXT File(*.txt)|*.txt");

}  // namespace

ListenerForm::ListenerForm(AdvanceConsole& console, QWidget* parent)
    : QWidget(parent),
      m_console(console),
      m_listener(console.listener),
      m_refresh(console.site.clock, TickKind::RealTime, RefreshInterval, [this] {
          m_refresh.setEnabled(false);
          showLines();
      }) {
    auto* column = new QVBoxLayout(this);
    column->addWidget(buildTools());
    column->addWidget(buildCutting());
    auto* splitter = named<QSplitter>("ListenerSplitter", this);
    RxMemo = named<TimedMemo>("RxMemo", splitter);
    RxMemo->setTabChangesFocus(true);
    RxMemo->setAccessibleName(QStringLiteral("What was heard"));
    RxExplainMemo = named<QPlainTextEdit>("RxExplainMemo", splitter);
    RxExplainMemo->setTabChangesFocus(true);
    RxExplainMemo->setReadOnly(true);
    RxExplainMemo->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    RxExplainMemo->setPlaceholderText(QStringLiteral("What the line under the caret says"));
    RxExplainMemo->setAccessibleName(QStringLiteral("Explanation of the line under the caret"));
    splitter->addWidget(RxMemo);
    splitter->addWidget(RxExplainMemo);
    splitter->setStretchFactor(0, 3);
    splitter->setStretchFactor(1, 1);
    column->addWidget(splitter, 1);
    RxNoticeLabel = plainLabel("RxNoticeLabel", {}, this);
    column->addWidget(RxNoticeLabel);
    buildFindDialog();
    connect(&m_listener, &PortListener::stateChanged, this, &ListenerForm::showState);
    connect(&m_listener, &PortListener::linesAdded, this, [this] { m_refresh.setEnabled(true); });
    connect(&m_listener, &PortListener::cleared, this, [this] {
        RxMemo->clearLines();
        m_shownLines = 0;
        showLines();
    });
    connect(RxMemo, &QPlainTextEdit::cursorPositionChanged, this, &ListenerForm::explain);
    showState();
}

QWidget* ListenerForm::buildTools() {
    auto* bar = new QWidget(this);
    RUNmonitorTransparentButton =
        framedButton("RUNmonitorTransparentButton", Icon::Run, QStringLiteral("RUN"), bar,
                     QStringLiteral("Listen to the port (F5)"));
    STOPmonitorTransparentButton =
        framedButton("STOPmonitorTransparentButton", Icon::Stop, QStringLiteral("STOP"), bar,
                     QStringLiteral("Stop listening and close the port (Shift+F5)"));
    MprotocolTransparentButton = framedButton("MprotocolTransparentButton", Icon::ComSetup,
                                              QStringLiteral("Set the com port settings"), bar,
                                              QStringLiteral("Port, baud rate and protocol"));
    SearchTransparentButton = framedButton("SearchTransparentButton", Icon::Find, QStringLiteral("Search"),
                                           bar, QStringLiteral("Find a text from the start"));
    auto* font = framedButton("FontTransparentButton", Icon::Edit, QStringLiteral("Font"), bar,
                              QStringLiteral("Font of the lines"));
    auto* keep = framedButton("RxSaveTransparentButton", Icon::Save, QStringLiteral("Save"), bar,
                              QStringLiteral("Save the lines to a text file, without their times"));
    auto* clear = framedButton("RxClearTransparentButton", Icon::Clear, QStringLiteral("Clear"), bar,
                               QStringLiteral("Remove all lines"));
    // Kept: nobody can press it.
    auto* Button1 = named<QPushButton>("Button1", QStringLiteral("Step1"), bar);
    Button1->hide();
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(0, 0, 0, 0);
    for (QWidget* widget : std::initializer_list<QWidget*>{
             RUNmonitorTransparentButton, STOPmonitorTransparentButton, MprotocolTransparentButton,
             SearchTransparentButton, font, keep, clear})
        row->addWidget(widget);
    row->addStretch();
    connect(RUNmonitorTransparentButton, &QToolButton::clicked, &m_listener,
            &PortListener::RUNmonitorTransparentButtonClick);
    connect(STOPmonitorTransparentButton, &QToolButton::clicked, &m_listener,
            &PortListener::STOPmonitorTransparentButtonClick);
    addRunKeys(RUNmonitorTransparentButton, STOPmonitorTransparentButton, this);
    connect(MprotocolTransparentButton, &QToolButton::clicked, this, &ListenerForm::comSetupWanted);
    connect(SearchTransparentButton, &QToolButton::clicked, this, &ListenerForm::search);
    connect(font, &QToolButton::clicked, this, &ListenerForm::chooseFont);
    connect(keep, &QToolButton::clicked, this, &ListenerForm::save);
    connect(clear, &QToolButton::clicked, &m_listener, &PortListener::ClearClick);
    connect(Button1, &QPushButton::clicked, &m_listener, &PortListener::Button1Click);
    return bar;
}

QWidget* ListenerForm::buildCutting() {
    auto* group = named<QGroupBox>("CuttingGroupBox", QStringLiteral("A line ends"), this);
    AutoBreakChRadioButton =
        named<QRadioButton>("AutoBreakChRadioButton", QStringLiteral("&before the bytes"), group);
    BreakAdvStringGrid = named<EditableGridView>("BreakAdvStringGrid", group);
    BreakAdvStringGrid->setAccessibleName(QStringLiteral("Break bytes"));
    BreakAdvStringGrid->setGrid(&m_listener.BreakAdvStringGrid);
    BreakAdvStringGrid->horizontalHeader()->hide();
    BreakAdvStringGrid->setColumnCharacters({5, 5, 5, 5});
    BreakAdvStringGrid->setToolTip(
        QStringLiteral("Two hexadecimal characters each; how many by a right click"));
    BreakAdvStringGrid->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    BreakAdvStringGrid->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    // A third key takes the place of the two before it.
    BreakAdvStringGrid->tidy = [](int, const QString& text) {
        return (text.size() > 2 ? text.mid(2) : text).toUpper();
    };
    LengthLimitRadioButton =
        named<QRadioButton>("LengthLimitRadioButton", QStringLiteral("&after so many bytes"), group);
    WordCntLabeledEdit = keyedEdit("WordCntLabeledEdit", QStringLiteral("[0-9]*"), group);
    WordCntLabeledEdit->setMaximumWidth(fontMetrics().averageCharWidth() * 9);
    WordCntLabeledEdit->setText(m_listener.WordCntLabeledEdit);
    auto* row = new QHBoxLayout(group);
    row->addWidget(AutoBreakChRadioButton);
    row->addWidget(BreakAdvStringGrid);
    row->addSpacing(2 * fontMetrics().height());
    row->addWidget(LengthLimitRadioButton);
    row->addWidget(captionFor(WordCntLabeledEdit, "WordCntLabel", QStringLiteral("Count"), group));
    row->addWidget(WordCntLabeledEdit);
    row->addStretch();
    addLengthMenu();
    connect(AutoBreakChRadioButton, &QRadioButton::clicked, this,
            [this] { m_listener.AutoBreakChRadioButtonChecked = true; });
    connect(LengthLimitRadioButton, &QRadioButton::clicked, this,
            [this] { m_listener.AutoBreakChRadioButtonChecked = false; });
    connect(WordCntLabeledEdit, &QLineEdit::textEdited, this, [this](const QString& text) {
        m_listener.WordCntLabeledEdit = text;
        m_listener.AutoBreakChRadioButtonChecked = false;
        showState();
    });
    return group;
}

void ListenerForm::addLengthMenu() {
    auto* menu = named<QMenu>("BreakPopupMenu", BreakAdvStringGrid);
    m_lengths = new QActionGroup(this);
    for (int count = 1; count <= PortListener::MaxBreakLength; ++count) {
        QAction* action = menu->addAction(
            QStringLiteral("%1 byte%2").arg(count).arg(count > 1 ? QStringLiteral("s") : QString()));
        action->setObjectName(QStringLiteral("BreakLength%1").arg(count));
        action->setCheckable(true);
        action->setActionGroup(m_lengths);
        connect(action, &QAction::triggered, this, [this, count] { m_listener.setBreakLength(count); });
    }
    connect(BreakAdvStringGrid, &StringGridView::cellMenuRequested, menu,
            [menu](int, int, const QPoint& pos) { menu->popup(pos); });
}

void ListenerForm::showState() {
    const bool free = !m_listener.running();
    takeTurns(RUNmonitorTransparentButton, STOPmonitorTransparentButton, free);
    for (QWidget* widget : std::initializer_list<QWidget*>{
             AutoBreakChRadioButton, LengthLimitRadioButton, BreakAdvStringGrid, WordCntLabeledEdit,
             SearchTransparentButton, MprotocolTransparentButton})
        widget->setEnabled(free);
    (m_listener.AutoBreakChRadioButtonChecked ? AutoBreakChRadioButton : LengthLimitRadioButton)
        ->setChecked(true);
    m_lengths->actions().at(m_listener.breakLength() - 1)->setChecked(true);
    fitBreakGrid();
}

void ListenerForm::fitBreakGrid() {
    const QHeaderView* rows = BreakAdvStringGrid->verticalHeader();
    BreakAdvStringGrid->setFixedHeight(rows->defaultSectionSize() + 2 * BreakAdvStringGrid->frameWidth());
    BreakAdvStringGrid->setFixedWidth(BreakAdvStringGrid->horizontalHeader()->length() +
                                      2 * BreakAdvStringGrid->frameWidth());
}

void ListenerForm::showLines() {
    const auto& lines = m_listener.lines();
    const qint64 first = std::max(m_shownLines, m_listener.goneLines());
    QList<TimedMemo::Line> added;
    for (qint64 number = first; number < m_listener.addedLines(); ++number) {
        const ListenerLine& line = lines[static_cast<size_t>(number - m_listener.goneLines())];
        added.append({line.text, line.at});
    }
    m_shownLines = m_listener.addedLines();
    RxMemo->appendLines(added);
    RxMemo->keepNewest(static_cast<int>(lines.size()));
    const qint64 gone = m_listener.goneLines();
    QStringList notices;
    if (gone > 0) notices += QStringLiteral("The oldest %1 lines were removed.").arg(gone);
    if (!m_listener.notice().isEmpty()) notices += m_listener.notice();
    RxNoticeLabel->setText(notices.join(QLatin1Char(' ')));
}

void ListenerForm::explain() {
    const TimedMemo::Line line = RxMemo->lineAtCaret();
    const TimedMemo::Line before = RxMemo->lineAtCaret(1);
    const HeardLine heard{line.text, before.text, before.at.msecsTo(line.at)};
    RxExplainMemo->setPlainText(line.text.isEmpty() ? QString() : m_console.explainLine(heard));
}

// ---- Search, save, font ----

void ListenerForm::buildFindDialog() {
    FindDialog1 = named<QDialog>("FindDialog1", this);
    FindDialog1->setWindowTitle(QStringLiteral("Find"));
    FindEdit = named<QLineEdit>("FindEdit", FindDialog1);
    auto* next =
        named<QPushButton>("FindNextButton", icon(Icon::Find), QStringLiteral("Find &next"), FindDialog1);
    next->setDefault(true);
    auto* row = new QHBoxLayout(FindDialog1);
    row->addWidget(captionFor(FindEdit, "FindLabel", QStringLiteral("&Text"), FindDialog1));
    row->addWidget(FindEdit, 1);
    row->addWidget(next);
    connect(next, &QPushButton::clicked, this, &ListenerForm::findNext);
}

void ListenerForm::search() {
    RxMemo->moveCursor(QTextCursor::Start);
    FindDialog1->show();
    FindDialog1->raise();
    FindDialog1->activateWindow();
    FindEdit->setFocus();
    FindEdit->selectAll();
}

void ListenerForm::findNext() {
    if (FindEdit->text().isEmpty() || RxMemo->find(FindEdit->text(), QTextDocument::FindCaseSensitively))
        return;
    m_console.site.voice.person.tell(m_console.site.voice.text(Message::StringNotFound),
                                     QStringLiteral("Cofirm"));
    RxMemo->moveCursor(QTextCursor::Start);
}

void ListenerForm::save() {
    askToSave(m_console.site.voice.person, TextFilter, m_listener.text().toLatin1());
}

void ListenerForm::chooseFont() {
    auto* dialog = new QFontDialog(RxMemo->font(), this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &QFontDialog::fontSelected, RxMemo, &QWidget::setFont);
    dialog->open();
}

}  // namespace kelvane
