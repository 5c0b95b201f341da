// Layout of the Trend window.
#include <QAction>
#include <QComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenuBar>
#include <QScrollArea>
#include <QScrollBar>
#include <QSplitter>
#include <QTabWidget>
#include <QVBoxLayout>

#include "base/trend_time.h"
#include "diagnostics/trend/scope_form.h"
#include "diagnostics/trend/trend_text.h"
#include "link/number_text.h"
#include "ui/display_label.h"
#include "ui/icons.h"
#include "ui/item_box.h"
#include "ui/lamp.h"
#include "ui/named.h"
#include "ui/power_button.h"
#include "ui/string_grid_view.h"
#include "ui/transparent_button.h"
#include "ui/trend_overview.h"

namespace kelvane {

namespace {

constexpr int LowerPlotHeight = 121;
constexpr int RowsOfChannels = 4;
constexpr int PageMargin = 6;
constexpr QSize LeastUsual(1060, 900);
constexpr Rgb ItemBlue = 0x0000FF;
constexpr Rgb UnitFuchsia = 0xFF00FF;
constexpr Rgb White = 0xFFFFFF;

QByteArray channelName(int channel, const char* rest) {
    return QByteArray("Ch") + QByteArray::number(channel) + rest;
}

QHBoxLayout* tightRow() {
    auto* row = new QHBoxLayout;
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(4);
    return row;
}

}  // namespace

TransparentButton* TScopeForm::addButton(QHBoxLayout* row, const char* name, int which, const QString& text) {
    auto* button = named<TransparentButton>(name, icon(static_cast<Icon>(which)), text, centralWidget());
    row->addWidget(button);
    return button;
}

QWidget* TScopeForm::buildButtons() {
    auto* panel = new QWidget(this);
    auto* row = tightRow();
    panel->setLayout(row);
    StartVrPowerButton = named<VrPowerButton>("StartVrPowerButton", tr("Start"), panel);
    row->addWidget(StartVrPowerButton);
    connect(StartVrPowerButton, &VrPowerButton::clicked, &m_session, &TrendSession::StartVrPowerButtonClick);
    const auto add = [&](const char* name, Icon which, const QString& text, auto clicked) {
        TransparentButton* button = addButton(row, name, static_cast<int>(which), text);
        connect(button, &TransparentButton::clicked, this, clicked);
        return button;
    };
    add("SaveScopeDataTransparentButton", Icon::Save, tr("Save"),
        [this] { m_session.SaveScopeDataTransparentButtonClick(); });
    add("LoadScopeDataTransparentButton", Icon::Open, tr("Load"),
        [this] { m_session.LoadScopeDataTransparentButtonClick(); });
    add("SavePICTransparentButton", Icon::Picture, tr("Picture"), [this] { savePicture(); });
    add("PrintTransparentButton", Icon::Print, tr("Print"), [this] { Q_EMIT printWanted(); });
    row->addSpacing(12);
    add("ClearTransparentButton", Icon::Clear, tr("Clear"),
        [this] { m_session.ClearTransparentButtonClick(); });
    add("OptionTransparentButton", Icon::Option, tr("Option"), [this] { Q_EMIT toolWanted(); });
    CursorTransparentButton = add("CursorTransparentButton", Icon::Cursor, tr("Cursor"),
                                  [this] { m_session.CursorTransparentButtonClick(); });
    CursorTransparentButton->setCheckable(true);
    row->addStretch();
    DriveVrLabel = named<VrLabel>("DriveVrLabel", panel);
    DriveVrLabel->setCharacters(10);
    DriveVrLabel->setAccessibleName(tr("Drive"));
    row->addWidget(DriveVrLabel);
    row->addSpacing(12);
    KeypadTransparentButton =
        add("KeypadTransparentButton", Icon::Keypad, tr("Keypad"), [this] { Q_EMIT keypadWanted(); });
    add("ExitTransparentButton", Icon::Exit, tr("Exit"), [this] { close(); });
    return panel;
}

QWidget* TScopeForm::buildAxisButtons() {
    auto* panel = new QWidget(this);
    auto* column = new QVBoxLayout(panel);
    column->setContentsMargins(0, 0, 0, 0);
    const auto add = [&](const char* name, Icon which, const QString& text) {
        auto* button = framedButton(name, which, text, panel);
        column->addWidget(button);
        return button;
    };
    TransparentButton* up = add("UpTransparentButton", Icon::Up, tr("Up"));
    TransparentButton* zoomIn = add("ZoomInTransparentButton", Icon::ZoomIn, tr("Zoom In"));
    TransparentButton* reset = add("ResetTransparentButton", Icon::Reset, tr("Reset"));
    TransparentButton* zoomOut = add("ZoomOutTransparentButton", Icon::ZoomOut, tr("Zoom Out"));
    TransparentButton* down = add("DownTransparentButton", Icon::Down, tr("Down"));
    column->addStretch();
    up->installEventFilter(this);
    down->installEventFilter(this);
    connect(zoomIn, &TransparentButton::clicked, this, [this] { AbTrend1->ZoomYIn(); });
    connect(reset, &TransparentButton::clicked, this, [this] { AbTrend1->SetYDefault(); });
    connect(zoomOut, &TransparentButton::clicked, this, [this] { AbTrend1->ZoomYOut(); });
    // Kept: a click on Down moves besides the hold, one on Up does not.
    connect(down, &TransparentButton::clicked, this, [this] { AbTrend1->MoveY(-10); });
    return panel;
}

QWidget* TScopeForm::buildPlots() {
    auto* panel = new QWidget(this);
    auto* row = new QHBoxLayout(panel);
    row->setContentsMargins(0, 0, 0, 0);
    auto* column = new QVBoxLayout;
    column->setSpacing(2);
    AbTrend1 = named<TrendPlot>("AbTrend1", m_session.AbTrend1.data, panel);
    AbTrend1->setAccessibleName(tr("Trend of the eight channels"));
    AbTrend1->look.decimalSep = DecimalSep;
    AbTrend1->lookChanged();
    AbTrend2 = named<TrendPlot>("AbTrend2", m_session.AbTrend2.data, panel);
    AbTrend2->setAccessibleName(tr("Trend of the four logic lines"));
    AbTrend2->look.GridYSteps = 4;
    nameBands();
    AbTrend2->setFixedHeight(LowerPlotHeight);
    TrendScrollBar = named<QScrollBar>("TrendScrollBar", Qt::Horizontal, panel);
    TrendScrollBar->setAccessibleName(tr("Position in the record"));
    TrendScrollBar->setFocusPolicy(Qt::StrongFocus);
    m_overview = new TrendOverview(m_session.AbTrend1.data, *AbTrend1, panel);
    column->addWidget(AbTrend1, 1);
    column->addWidget(AbTrend2);
    column->addWidget(m_overview);
    column->addWidget(TrendScrollBar);
    row->addLayout(column, 1);
    row->addWidget(buildAxisButtons());
    return panel;
}

QWidget* TScopeForm::buildPages() {
    Image1 = named<QLabel>("Image1", this);  // holds the picture of the screen, unseen
    Image1->hide();
    PageControl1 = named<QTabWidget>("PageControl1", this);
    PageControl1->addTab(buildChannelPage(), {});
    StatusTabSheet = buildStatusPage();
    PageControl1->addTab(StatusTabSheet, {});
    PageControl1->addTab(buildMeasurePage(), {});
    showHeads();
    return PageControl1;
}

// What is no control's text: tabs, heads of columns, bands of the lower plot.
void TScopeForm::showHeads() {
    AbTrend2->look.bands = QStringList{tr("RUN cmd"), tr("RUN status"), tr("FWD cmd"), tr("FWD status")};
    AbTrend2->lookChanged();
    const QString tabs[] = {tr("Channels"), tr("Status"), tr("Measure")};
    for (int page = 0; page < 3; ++page) PageControl1->setTabText(page, tabs[page]);
    const QString item = tr("Item"), value = tr("Value"), unit = tr("Unit");
    m_session.InfoAdvStringGrid.setHeaders({item, value, unit, {}, item, value, unit, {}});
    m_measureGrid.setHeaders({tr("Channel"), unit, tr("At A"), tr("At B"), tr("B - A"), tr("Minimum"),
                              tr("Maximum"), tr("Mean"), tr("RMS")});
}

// The pages are as high as the channels need and the rest is the plots', until a hand moves the border.
QWidget* TScopeForm::buildParts() {
    auto* parts = named<QSplitter>("ScopeSplitter", Qt::Vertical, this);
    parts->addWidget(buildPlots());
    parts->addWidget(buildPages());
    parts->setStretchFactor(0, 1);
    parts->setCollapsible(0, false);
    const int pages = PageControl1->tabBar()->sizeHint().height() +
                      PageControl1->widget(0)->sizeHint().height() + 2 * PageMargin;
    parts->setSizes({LeastUsual.height() - pages, pages});
    return parts;
}

// Wide enough for the channels, where the screen is.
QSize TScopeForm::usualSize() const {
    const auto* channels = static_cast<const QScrollArea*>(PageControl1->widget(0))->widget();
    return LeastUsual.expandedTo({channels->sizeHint().width() + 6 * PageMargin, 0});
}

// A page that is scrolled where the window is too small for it.
QWidget* TScopeForm::scrolled(const char* name, QLayout* row) {
    auto* page = named<QScrollArea>(name);
    auto* content = new QWidget;
    row->setContentsMargins(6, 4, 6, 4);
    content->setLayout(row);
    page->setFrameShape(QFrame::NoFrame);
    page->setWidgetResizable(true);
    page->setWidget(content);
    content->setAutoFillBackground(false);
    page->viewport()->setAutoFillBackground(false);
    return page;
}

// ---- Channels ----

QWidget* TScopeForm::buildChannelPage() {
    auto* row = new QHBoxLayout;
    row->addWidget(buildChannelSelection(), 3);
    row->addWidget(buildChannelStatus(), 2);
    return scrolled("ChannelTabSheet", row);
}

QWidget* TScopeForm::addColourPanel(const QString& name, int channel, bool logic) {
    auto* panel = new QFrame(this);
    panel->setObjectName(name);
    panel->setFrameShape(QFrame::StyledPanel);
    panel->setAutoFillBackground(true);
    panel->setFixedSize(22, 18);
    panel->setFocusPolicy(Qt::StrongFocus);
    panel->setCursor(Qt::PointingHandCursor);
    const QString of = logic ? tr("Colour of logic line %1") : tr("Colour of channel %1");
    panel->setAccessibleName(of.arg(channel));
    panel->setToolTip(of.arg(channel));
    panel->installEventFilter(this);
    return panel;
}

QWidget* TScopeForm::buildChannelSelection() {
    auto* box = named<QGroupBox>("ChSelGroupBox", tr(" Channel Selection "), this);
    auto* grid = new QGridLayout(box);
    grid->setVerticalSpacing(2);
    for (int c = 1; c <= TrendSession::Channels; ++c) {
        const auto i = static_cast<size_t>(c);
        const int row = (c - 1) % RowsOfChannels;
        const int column = (c - 1) / RowsOfChannels * 3;
        ChPanel[i] = addColourPanel(QStringLiteral("Ch%1Panel").arg(c), c, false);
        ChVrPowerButton[i] = named<VrPowerButton>(channelName(c, "VrPowerButton").constData(),
                                                  QStringLiteral("Ch%1").arg(c), box);
        ChVrPowerButton[i]->setToolTip(tr("Show channel %1; it is recorded in any case").arg(c));
        ChComboBox[i] = named<ItemBox>(channelName(c, "ComboBox").constData(), box);
        ChComboBox[i]->setAccessibleName(tr("Item of channel %1").arg(c));
        ChComboBox[i]->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        ChComboBox[i]->setMinimumContentsLength(18);
        grid->addWidget(ChPanel[i], row, column);
        grid->addWidget(ChVrPowerButton[i], row, column + 1);
        grid->addWidget(ChComboBox[i], row, column + 2);
        connect(ChVrPowerButton[i], &VrPowerButton::clicked, this,
                [this, c](bool on) { m_session.ChVrPowerButtonClick(c, on); });
        connect(ChComboBox[i], &QComboBox::activated, this,
                [this, c](int entry) { m_session.ChComboBoxCloseUp(c, entry); });
    }
    grid->setColumnStretch(2, 1);
    grid->setColumnStretch(5, 1);
    grid->setRowStretch(RowsOfChannels, 1);
    return box;
}

void TScopeForm::addLogicRow(QGridLayout* grid, int row, int line) {
    static const std::array<const char*, 5> Names{"", "RUNCmdLabel", "RUNStaLabel", "FWDCmdLabel",
                                                  "FWDStaLabel"};
    const std::array<QString, 5> captions{QString(), tr("RUN cmd"), tr("RUN status"), tr("FWD cmd"),
                                          tr("FWD status")};
    const auto i = static_cast<size_t>(line);
    LPanel[i] = addColourPanel(QStringLiteral("L%1Panel").arg(line), line, true);
    LogicLabel[i] = named<VrLabel>(Names[i], this);
    static_cast<VrLabel*>(LogicLabel[i])->setCharacters(2);
    LogicLabel[i]->setAccessibleName(captions[i]);
    grid->addWidget(LPanel[i], row, 4);
    grid->addWidget(new QLabel(captions[i], this), row, 5);
    grid->addWidget(LogicLabel[i], row, 6);
}

QWidget* TScopeForm::buildChannelStatus() {
    auto* box = named<QGroupBox>("ChStaGroupBox", tr("Channel Status"), this);
    auto* grid = new QGridLayout(box);
    grid->setVerticalSpacing(2);
    grid->addWidget(plainLabel("ChValueVrLabel", tr("Channel Value"), box), 0, 0, 1, 4);
    for (int c = 1; c <= TrendSession::Channels; ++c) {
        const auto i = static_cast<size_t>(c);
        ChLabeledEdit[i] = named<QLineEdit>(channelName(c, "LabeledEdit").constData(), box);
        ChLabeledEdit[i]->setReadOnly(true);
        ChLabeledEdit[i]->setFixedWidth(fontMetrics().averageCharWidth() * 10);
        auto* caption = new QLabel(QStringLiteral("Ch%1").arg(c), box);
        caption->setBuddy(ChLabeledEdit[i]);
        const int row = 1 + (c - 1) % RowsOfChannels;
        const int column = (c - 1) / RowsOfChannels * 2;
        grid->addWidget(caption, row, column);
        grid->addWidget(ChLabeledEdit[i], row, column + 1);
    }
    grid->addWidget(plainLabel("LogicStaVrLabel", tr("Logic Status"), box), 0, 4, 1, 3);
    for (int line = 1; line <= TrendSession::LogicLines; ++line) addLogicRow(grid, line, line);
    grid->addWidget(plainLabel("RecordVrLabel", tr("Record"), box), 0, 7, 1, 2);
    RecNoLabel = plainLabel("RecNoLabel", NoRecordText, box);
    RecTimeLabel = plainLabel("RecTimeLabel", NoRecordText, box);
    TotalRecordsLabel = plainLabel("TotalRecordsLabel", QStringLiteral("0"), box);
    // Of a fixed size and on a ground of their own, so that a number that changes ten times a second moves
    // nothing and has nothing behind it painted.
    const QString longest = trendTimeText(trendTime(QDateTime({2028, 9, 28}, {20, 58, 58})));
    for (QLabel* label : {RecNoLabel, RecTimeLabel, TotalRecordsLabel}) {
        label->setFixedSize(fontMetrics().horizontalAdvance(longest) + 8, fontMetrics().height() + 2);
        label->setAutoFillBackground(true);
        label->setBackgroundRole(QPalette::Base);
    }
    int row = 1;
    for (const auto& [text, label] :
         {std::pair{tr("No."), RecNoLabel}, {tr("Time"), RecTimeLabel}, {tr("Total"), TotalRecordsLabel}}) {
        grid->addWidget(new QLabel(text, box), row, 7);
        grid->addWidget(label, row++, 8);
    }
    for (const int spacer : {4, 7}) grid->setColumnMinimumWidth(spacer, 10);
    grid->setColumnStretch(9, 1);
    grid->setRowStretch(RowsOfChannels + 1, 1);
    return box;
}

// ---- Status ----

QWidget* TScopeForm::buildStatusPage() {
    auto* row = new QHBoxLayout;
    auto* grid = named<StringGridView>("InfoAdvStringGrid", this);
    m_session.InfoAdvStringGrid.cellColours = [](int column, int row_of) -> CellColours {
        if (row_of == 0) return {};
        if (column == 0 || column == 4) return {.text = ItemBlue, .background = White};
        if (column == 2 || column == 6) return {.text = UnitFuchsia, .background = White};
        return {};
    };
    m_session.InfoAdvStringGrid.setColumnHidden(7, true);
    grid->setGrid(&m_session.InfoAdvStringGrid);
    grid->setColumnCharacters({46, 9, 8, 1, 41, 9, 8});
    grid->setRightAligned({1, 5});
    grid->setKeysAct(false);
    grid->setAccessibleName(tr("Values of the drive"));
    row->addWidget(grid, 3);
    auto* side = new QVBoxLayout;
    side->addWidget(buildLampBox());
    side->addWidget(buildFaultBox());
    side->addStretch();
    row->addLayout(side, 1);
    return scrolled("StatusTabSheet", row);
}

QWidget* TScopeForm::buildLampBox() {
    auto* box = named<QGroupBox>("StatusGroupBox", tr(" Status "), this);
    auto* row = new QHBoxLayout(box);
    const auto add = [&](const char* name, const QString& text) {
        auto* lamp = named<AbLED>(name, text, box);
        m_flasher->watch(lamp);
        row->addWidget(lamp);
        return lamp;
    };
    m_leds.RUN = add("RUNAbLED", tr("RUN"));
    m_leds.STOP = add("STOPAbLED", tr("STOP"));
    m_leds.JOG = add("JOGAbLED", tr("JOG"));
    m_leds.FWD = add("FWDAbLED", tr("FWD"));
    m_leds.REV = add("REVAbLED", tr("REV"));
    return box;
}

QWidget* TScopeForm::buildFaultBox() {
    auto* box = named<QGroupBox>("FaultGroupBox", tr(" Fault "), this);
    auto* grid = new QGridLayout(box);
    ErrCodeAbLED = named<AbLED>("ErrCodeAbLED", tr("Error Code"), box);
    ErrCodeAbLED->setColor(QColor(208, 0, 0));
    ErrCodeLabel = plainLabel("ErrCodeLabel", QStringLiteral("0"), box);
    ErrDescriptLabel = plainLabel("ErrDescriptLabel", QStringLiteral("No errors occurred"), box);
    ErrDescriptLabel->setProperty("content", true);  // the drive's words, in no other language
    auto* history = framedButton("ErrHistoryTransparentButton", Icon::Fault, tr("Fault history"), box);
    connect(history, &TransparentButton::clicked, this, &TScopeForm::errHistoryWanted);
    grid->addWidget(ErrCodeAbLED, 0, 0);
    grid->addWidget(ErrCodeLabel, 0, 1);
    grid->addWidget(ErrDescriptLabel, 1, 0, 1, 3);
    grid->addWidget(history, 0, 2, Qt::AlignRight);
    grid->setColumnStretch(1, 1);
    showFault(false, QStringLiteral("0"), QStringLiteral("No errors occurred"));
    return box;
}

// ---- Measure ----

QWidget* TScopeForm::buildMeasurePage() {
    auto* page = named<QWidget>("MeasureTabSheet");
    auto* column = new QVBoxLayout(page);
    column->setContentsMargins(6, 4, 6, 4);
    m_measureHead = plainLabel("MeasureLabel", {}, page);
    m_measureHead->setWordWrap(true);
    m_measureHead->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_measureView = named<StringGridView>("MeasureStringGrid", page);
    m_measureView->setGrid(&m_measureGrid);
    m_measureView->setColumnCharacters({46, 8, 10, 10, 10, 10, 10, 10, 10});
    m_measureView->setRightAligned({2, 3, 4, 5, 6, 7, 8});
    m_measureView->setAccessibleName(tr("Values between the measuring cursors"));
    m_measureView->setMinimumHeight(fontMetrics().height() * 3);
    column->addWidget(m_measureHead);
    column->addWidget(m_measureView, 1);
    showMeasure();
    return page;
}

// ---- Menus ----

void TScopeForm::buildMenus() {
    buildFileMenu();
    buildViewMenu();
    QMenu* tools = menuBar()->addMenu(tr("&Tools"));
    KeyPad = tools->addAction(icon(Icon::Keypad), tr("&Keypad"), QKeySequence(Qt::Key_F8), this,
                              &TScopeForm::keypadWanted);
    KeyPad->setObjectName(QStringLiteral("KeyPad"));
    QAction* option = tools->addAction(icon(Icon::Option), tr("&Option..."), this, &TScopeForm::toolWanted);
    option->setObjectName(QStringLiteral("Option1"));
    QAction* start = tools->addAction(icon(Icon::Start), tr("&Start or stop"), QKeySequence(Qt::Key_F5),
                                      StartVrPowerButton, &VrPowerButton::click);
    start->setObjectName(QStringLiteral("StartItem"));
    QAction* clear = tools->addAction(icon(Icon::Clear), tr("&Clear records"), &m_session,
                                      &TrendSession::ClearTransparentButtonClick);
    clear->setObjectName(QStringLiteral("Clearscopedata1"));
    m_raiseFault =
        tools->addAction(icon(Icon::Fault), tr("Raise a &Fault"), this, &TScopeForm::practiceFaultWanted);
    m_raiseFault->setObjectName(QStringLiteral("RaiseFaultItem"));
    m_raiseFault->setVisible(false);
}

void TScopeForm::buildFileMenu() {
    QMenu* file = menuBar()->addMenu(tr("&File"));
    const auto add = [&](const char* name, Icon which, const QString& text, const QKeySequence& keys,
                         auto triggered) {
        QAction* action = file->addAction(icon(which), text, this, triggered);
        action->setShortcut(keys);
        action->setObjectName(QLatin1String(name));
    };
    add("SaveScopeToFile", Icon::Save, tr("&Save scope data..."), QKeySequence::Save,
        [this] { m_session.SaveScopeDataTransparentButtonClick(); });
    add("LoadFileToScope", Icon::Open, tr("&Load scope data..."), QKeySequence::Open,
        [this] { m_session.LoadScopeDataTransparentButtonClick(); });
    file->addSeparator();
    QMenu* table = file->addMenu(icon(Icon::File), tr("Table (.&csv)"));
    table->addAction(tr("&All records..."), this, [this] { exportTable(0, AbTrend1->TotalRecords() - 1); });
    table->addAction(tr("What is &shown..."), this,
                     [this] { exportTable(AbTrend1->FirstDisplayedRec(), AbTrend1->LastDisplayedRec()); });
    table->addAction(tr("&Between the measuring cursors..."), this, [this] {
        const auto a = AbTrend1->cursorA(), b = AbTrend1->cursorB();
        if (a && b)
            exportTable(std::min(*a, *b), std::max(*a, *b));
        else
            say(tr("Put both measuring cursors first (keys A and B)."));
    });
    add("SaveBMP", Icon::Picture, tr("Picture of the scree&n..."), {}, [this] { savePicture(); });
    add("SavePlotItem", Icon::Picture, tr("Picture of the &plot..."), {}, [this] { savePlot(); });
    add("CopyPlotItem", Icon::Copy, tr("C&opy the plot"), QKeySequence::Copy, [this] { copyPlot(); });
    file->addSeparator();
    add("Print", Icon::Print, tr("P&rint..."), QKeySequence::Print, [this] { Q_EMIT printWanted(); });
    add("Exit1", Icon::Exit, tr("E&xit"), QKeySequence(Qt::CTRL | Qt::Key_W), [this] { close(); });
}

void TScopeForm::buildViewMenu() {
    QMenu* view = menuBar()->addMenu(tr("&View"));
    view->addAction(icon(Icon::Zoom), tr("&Fit the whole run\tF"), AbTrend1, &TrendPlot::fit);
    view->addAction(tr("Go to the &end\tEnd"), AbTrend1, &TrendPlot::showEnd);
    view->addAction(tr("One record a &pixel"), this,
                    [this] { TrendScrollBarChange(TrendScrollBar->value()); });
    view->addSeparator();
    view->addAction(tr("&Remove the measuring cursors"), this, [this] { AbTrend1->setMeasure({}, {}); });
    view->addAction(tr("Remove all &markers"), this, [this] {
        while (!m_session.markers.isEmpty()) m_session.removeMarker(0);
    });
}

}  // namespace kelvane
