#include "diagnostics/trend/scope_form.h"

#include <QBoxLayout>
#include <QColorDialog>
#include <QComboBox>
#include <QEvent>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QTabWidget>

#include "diagnostics/trend/trend_measure.h"
#include "diagnostics/trend/trend_text.h"
#include "link/number_text.h"
#include "ui/display_label.h"
#include "ui/in_language.h"
#include "ui/lamp.h"
#include "ui/notice_bar.h"
#include "ui/power_button.h"
#include "ui/string_grid_view.h"
#include "ui/transparent_button.h"
#include "ui/trend_overview.h"

namespace kelvane {

namespace {

constexpr int HoldTick = 10;    // ms
constexpr int TicksOfStep = 5;  // of the hold between two steps
constexpr int HoldPixels = 5;
constexpr int SpareRecords = 100;  // of the scroll bar behind the last record
constexpr int OverviewEvery = 10;  // records
const QColor FaultRed(255, 0, 0);
const QColor NoFaultGreen(0, 128, 0);

QString number(double value, int places) {
    return QString::number(value, 'f', places).replace(QLatin1Char('.'), DecimalSep);
}

void setLamp(AbLED* lamp, const StateLed& led) {
    lamp->setChecked(led.on);
    lamp->setFlashing(led.flashing);
}

// The colour as it is, on a ground on which it can be read, as the table beside it.
void setLabelColour(QLabel* label, const QColor& colour) {
    QPalette palette = label->palette();
    if (palette.color(QPalette::WindowText) == colour) return;
    palette.setColor(QPalette::WindowText, colour);
    palette.setColor(QPalette::Window, Qt::white);
    label->setPalette(palette);
    label->setAutoFillBackground(true);
    label->setMargin(2);
}

}  // namespace

TScopeForm::TScopeForm(TrendSession& session, const ScopeFormSite& site, QWidget* parent)
    : QMainWindow(parent),
      m_session(session),
      m_site(site),
      ButtonTimer(site.clock, TickKind::RealTime, HoldTick, [this] { ButtonTimerTimer(); }) {
    setObjectName(QStringLiteral("TScopeForm"));
    setWindowTitle(QStringLiteral("Trend and Monitor"));
    m_flasher = new LampFlasher(site.clock, this);
    auto* centre = new QWidget(this);
    auto* column = new QVBoxLayout(centre);
    column->setContentsMargins(6, 2, 6, 4);
    column->setSpacing(4);
    m_notice = new NoticeBar(centre);
    m_foot = new QLabel(centre);
    m_foot->setTextFormat(Qt::PlainText);
    column->addWidget(buildButtons());
    column->addWidget(m_notice);
    column->addWidget(buildParts(), 1);
    column->addWidget(m_foot);
    setCentralWidget(centre);
    buildMenus();
    takeColours();
    connectPlots();
    connectSession();
    showItems();
    showSession();
    resize(usualSize());
}

TScopeForm::~TScopeForm() = default;

// ---- Showing ----

void TScopeForm::connectSession() {
    connect(&m_session, &TrendSession::changed, this, &TScopeForm::showSession);
    connect(&m_session, &TrendSession::cursorTexts, this, &TScopeForm::showCursorTexts);
    connect(&m_session, &TrendSession::statusShown, this, &TScopeForm::showState);
    connect(&m_session, &TrendSession::offersChanged, this, &TScopeForm::showOffers);
    connect(&m_session, &TrendSession::loaded, this, &TScopeForm::showLoaded);
    connect(&m_session, &TrendSession::scalesChanged, this, [this] {
        AbTrend1->SetLeftScaleCh(m_session.LeftScaleCh);
        takeColours();
        followMarkers();
        AbTrend1->lookChanged();
        // A run refreshes the overview by itself, and on a ramp its scales change with every record.
        if (!m_session.AbTrend1.recording()) m_overview->refresh();
        showMeasure();
    });
    TrendRecorder& recorder = m_session.AbTrend1;
    // Behind the session's own step, so that the logic record is there as well.
    connect(&recorder, &TrendRecorder::OnRecNoChanged, this, &TScopeForm::showTotal);
    connect(&recorder, &TrendRecorder::OnInterval, this, &TScopeForm::recordTaken);
    connect(&recorder, &TrendRecorder::recordsReplaced, this, [this] {
        AbTrend1->recordsReplaced();
        m_overview->refresh();
    });
    connect(&m_session.AbTrend2, &TrendRecorder::recordsReplaced, AbTrend2,
            [this] { AbTrend2->recordsReplaced(); });
    connect(&recorder, &TrendRecorder::startedOrStopped, this, [this] {
        AbTrend1->setFlow(m_session.AbTrend1.recording());
        if (m_session.AbTrend1.recording()) showOffers();
        m_overview->refresh();
        syncScrollBar();
    });
}

void TScopeForm::connectPlots() {
    connect(AbTrend1, &TrendPlot::mouseMoved, this, [this](int x, int y) {
        constexpr int LowerReach = 100;  // the lower plot is not as high
        constexpr int LowerMiddle = 50;
        AbTrend2->SetCursorLine(x, y > LowerReach ? LowerMiddle : y);
    });
    connect(AbTrend1, &TrendPlot::OnNewCursorPos, &m_session, &TrendSession::AbTrend1NewCursorPos);
    connect(AbTrend2, &TrendPlot::OnNewCursorPos, &m_session, &TrendSession::AbTrend2NewCursorPos);
    connect(AbTrend1, &TrendPlot::viewChanged, this, [this] {
        AbTrend2->showSame(*AbTrend1);
        syncScrollBar();
    });
    connect(AbTrend1, &TrendPlot::measureChanged, this, &TScopeForm::showMeasure);
    connect(AbTrend1, &TrendPlot::markerWanted, this, &TScopeForm::nameMarker);
    connect(TrendScrollBar, &QScrollBar::valueChanged, this, &TScopeForm::TrendScrollBarChange);
}

void TScopeForm::recordTaken() {
    AbTrend1->recordsGrew();
    AbTrend2->recordsGrew(AbTrend1);
    if (--m_untilOverview > 0) return;
    m_untilOverview = OverviewEvery;
    m_overview->refresh();
}

void TScopeForm::showTotal() {
    TotalRecordsLabel->setText(QString::number(m_session.AbTrend1.TotalRecords()));
    // A bar that cannot be moved need not be painted ten times a second.
    if (m_session.AbTrend1.recording()) return;
    const QSignalBlocker quiet(TrendScrollBar);
    TrendScrollBar->setMaximum(static_cast<int>(m_session.AbTrend1.TotalRecords()) + SpareRecords);
}

void TScopeForm::showItems() {
    if (m_shownItems == m_session.items) return;
    m_shownItems = m_session.items;
    for (int c = 1; c <= TrendSession::Channels; ++c) {
        QComboBox* box = ChComboBox[static_cast<size_t>(c)];
        box->clear();
        box->addItems(m_shownItems);
    }
}

void TScopeForm::showSession() {
    showItems();
    StartVrPowerButton->setChecked(m_session.StartVrPowerButtonOn);
    TrendScrollBar->setEnabled(m_session.TrendScrollBarEnabled);
    PageControl1->setTabVisible(PageControl1->indexOf(StatusTabSheet), m_session.StatusTabSheetShown);
    KeypadTransparentButton->setEnabled(m_session.KeypadTransparentButtonEnabled);
    KeyPad->setEnabled(m_session.KeypadTransparentButtonEnabled);
    CursorTransparentButton->setChecked(m_session.opCursorOnRec);
    AbTrend1->setCursorOnRec(m_session.opCursorOnRec);
    for (size_t c = 1; c <= TrendSession::Channels; ++c) {
        ChVrPowerButton[c]->setChecked(m_session.ChVrPowerButton[c]);
        const int entry = m_session.ChComboBox[c];
        ChComboBox[c]->setCurrentIndex(entry < ChComboBox[c]->count() ? entry : -1);
    }
    m_foot->setText(inLanguage(m_session.notice));
    showTotal();
    showCursorTexts();
}

void TScopeForm::showCursorTexts() {
    for (size_t c = 1; c <= TrendSession::Channels; ++c)
        ChLabeledEdit[c]->setText(m_session.ChLabeledEdit[c]);
    for (size_t line = 1; line <= TrendSession::LogicLines; ++line)
        LogicLabel[line]->setText(m_session.LogicLabel[line]);
    RecNoLabel->setText(m_session.RecNoLabel);
    RecTimeLabel->setText(m_session.RecTimeLabel);
}

void TScopeForm::showState() {
    const StateLeds leds = codedStateLeds(m_session.stateWord());
    if (leds == m_shownLeds) return;
    m_shownLeds = leds;
    setLamp(m_leds.RUN, leds.RUN);
    setLamp(m_leds.STOP, leds.STOP);
    setLamp(m_leds.JOG, leds.JOG);
    setLamp(m_leds.FWD, leds.FWD);
    setLamp(m_leds.REV, leds.REV);
}

void TScopeForm::showFault(bool standing, const QString& code, const QString& description) {
    ErrCodeAbLED->setChecked(standing);
    ErrCodeLabel->setText(code);
    ErrDescriptLabel->setText(description);
    for (QLabel* label : {ErrCodeLabel, ErrDescriptLabel})
        setLabelColour(label, standing ? FaultRed : NoFaultGreen);
}

void TScopeForm::nameBands() {
    AbTrend2->look.bands = QStringList{tr("RUN cmd"), tr("RUN status"), tr("FWD cmd"), tr("FWD status")};
    AbTrend2->lookChanged();
    m_measureGrid.setHeaders({tr("Channel"), tr("Unit"), tr("At A"), tr("At B"), tr("B - A"), tr("Minimum"),
                              tr("Maximum"), tr("Mean"), tr("RMS")});
}

void TScopeForm::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() != QEvent::LanguageChange) return;
    showHeads();
    nameBands();
}

void TScopeForm::setDriveLabel(const QString& text) { DriveVrLabel->setText(text); }

void TScopeForm::offerPracticeFault(bool offered) { m_raiseFault->setVisible(offered); }

// Everything, or the last screenful once a run has set the trend to flow.
void TScopeForm::showLoaded() {
    const qint64 total = m_session.AbTrend1.TotalRecords();
    if (m_session.AbTrend1.Flow()) {
        AbTrend1->showLastScreen();
    } else {
        AbTrend1->PaintRecords(0, total);
    }
    followMarkers();
}

void TScopeForm::takeColours() {
    for (int c = 1; c <= TrendSession::Channels; ++c) {
        QPalette palette = ChPanel[static_cast<size_t>(c)]->palette();
        palette.setColor(QPalette::Window, QColor::fromRgb(m_session.AbTrend1.Channel(c).color));
        ChPanel[static_cast<size_t>(c)]->setPalette(palette);
    }
    for (int line = 1; line <= TrendSession::LogicLines; ++line) {
        QPalette palette = LPanel[static_cast<size_t>(line)]->palette();
        palette.setColor(QPalette::Window, QColor::fromRgb(m_session.AbTrend2.Channel(line).color));
        LPanel[static_cast<size_t>(line)]->setPalette(palette);
    }
}

void TScopeForm::followMarkers() {
    QList<TrendPlot::Marker> shown;
    for (const TrendMarker& marker : m_session.markers) shown.append({marker.record, marker.name});
    AbTrend1->setMarkers(shown);
}

// What can be had again or taken over, one offer at a time.
void TScopeForm::showOffers() {
    if (m_session.offeredInfo) {
        const QString from = m_session.offeredInfo->drive.isEmpty()
                                 ? QString()
                                 : tr(" (%1)").arg(m_session.offeredInfo->drive);
        m_notice->offer(tr("Items, scales and colours were saved with this recording%1.").arg(from),
                        {{tr("Use them"), [this] { m_session.takeOfferedInfo(); }},
                         {tr("Keep mine"), [this] { m_session.declineOfferedInfo(); }}});
        return;
    }
    const QList<TrendJournal::Run> runs = m_session.offeredRuns();
    // Opening one would end a recording.
    if (runs.isEmpty() || m_session.AbTrend1.recording()) return m_notice->withdraw();
    const TrendJournal::Run& run = runs.first();
    m_notice->offer(tr("A recording of %1 with %2 records was not saved.")
                        .arg(QLocale::system().toString(run.start, QLocale::ShortFormat))
                        .arg(run.records),
                    {{tr("Open it"), [this, run] { m_session.openRun(run); }},
                     {tr("Discard it"), [this, run] { m_session.removeRun(run); }},
                     {tr("Later"), [this] { m_notice->withdraw(); }}});
}

void TScopeForm::showMeasure() {
    const auto a = AbTrend1->cursorA();
    const auto b = AbTrend1->cursorB();
    if (!a || !b) {
        m_measureHead->setText(
            tr("Put two measuring cursors: keys A and B at the cursor, or Ctrl and Shift with a "
               "click. They can be dragged. A double click or M sets a marker."));
        m_measureGrid.setRowCount(1);
        return;
    }
    const TrendMeasure measure = measureTrend(m_session.AbTrend1.data, *a, *b);
    m_measureHead->setText(tr("A: record %1   B: record %2   B - A: %3 s   %4 samples, %5 breaks")
                               .arg(*a)
                               .arg(*b)
                               .arg(number(measure.seconds, 3))
                               .arg(measure.samples)
                               .arg(measure.breaks));
    int row = 0;
    for (size_t c = 0; c < TrendSession::Channels; ++c) {
        const TrendChannel& channel = m_session.AbTrend1.data.channels[c];
        if (!channel.visible) continue;
        const ChannelMeasure& of = measure.channels[c];
        const int places = placesOfFormat(channel.ValueFormat);
        m_measureGrid.setCell(0, ++row, channel.Caption);
        m_measureGrid.setCell(1, row, channel.ValueUnit);
        int column = 2;
        for (const double value : {of.atFirst, of.atSecond, of.delta(), of.minimum, of.maximum})
            m_measureGrid.setCell(column++, row, number(value, places));
        for (const double value : {of.mean, of.rms})
            m_measureGrid.setCell(column++, row, number(value, places + 1));
    }
    m_measureGrid.setRowCount(row + 1);
}

// Kept with the session's own notices, so that the newest one stands.
void TScopeForm::say(const QString& text) {
    m_session.notice = text;
    m_foot->setText(text);
}

// ---- Hand ----

void TScopeForm::TrendScrollBarChange(int position) {
    showTotal();  // its maximum follows the records
    const int half = (AbTrend1->width() - TrendView::KeptWidth) / 2;
    if (position < half) {
        AbTrend1->PaintRecords(0, 2 * half);
    } else {
        AbTrend1->PaintRecords(position - half, position + half);
    }
}

// The bar stands where the plot is, however it came there.
void TScopeForm::syncScrollBar() {
    const QSignalBlocker quiet(TrendScrollBar);
    const qint64 half = (AbTrend1->width() - TrendView::KeptWidth) / 2;
    TrendScrollBar->setPageStep(static_cast<int>(std::max<qint64>(half, 1)));
    TrendScrollBar->setMaximum(static_cast<int>(m_session.AbTrend1.TotalRecords()) + SpareRecords);
    const qint64 from = AbTrend1->FirstDisplayedRec();
    TrendScrollBar->setValue(from == 0 ? 0 : static_cast<int>(from + half));
}

void TScopeForm::holdButton(bool up) {
    ButtonTicks = 0;
    ButtonUp = up;
    ButtonTimer.setEnabled(true);
}

void TScopeForm::ButtonTimerTimer() {
    if (++ButtonTicks < TicksOfStep) return;
    ButtonTicks = 0;
    AbTrend1->MoveY(ButtonUp ? HoldPixels : -HoldPixels);
}

// A press and a hold of Up and Down; a click on a colour panel.
bool TScopeForm::eventFilter(QObject* watched, QEvent* event) {
    const QString name = watched->objectName();
    const bool up = name == QLatin1String("UpTransparentButton");
    if (up || name == QLatin1String("DownTransparentButton")) {
        if (event->type() == QEvent::MouseButtonPress) holdButton(up);
        if (event->type() == QEvent::MouseButtonRelease || event->type() == QEvent::Hide ||
            event->type() == QEvent::WindowBlocked)
            ButtonTimer.setEnabled(false);
        return false;
    }
    const bool clicked =
        event->type() == QEvent::MouseButtonRelease ||
        (event->type() == QEvent::KeyPress && (static_cast<QKeyEvent*>(event)->key() == Qt::Key_Space ||
                                               static_cast<QKeyEvent*>(event)->key() == Qt::Key_Return));
    if (!clicked) return false;
    for (int c = 1; c <= TrendSession::Channels; ++c)
        if (watched == ChPanel[static_cast<size_t>(c)])
            chooseColour(ChPanel[static_cast<size_t>(c)], c, false);
    for (int line = 1; line <= TrendSession::LogicLines; ++line)
        if (watched == LPanel[static_cast<size_t>(line)])
            chooseColour(LPanel[static_cast<size_t>(line)], line, true);
    return false;
}

void TScopeForm::chooseColour(QWidget* panel, int channel, bool logic) {
    auto* dialog = new QColorDialog(panel->palette().color(QPalette::Window), this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &QColorDialog::colorSelected, this, [this, channel, logic](const QColor& colour) {
        TrendRecorder& trend = logic ? m_session.AbTrend2 : m_session.AbTrend1;
        trend.Channel(channel).color = colour.rgb() & 0xFFFFFF;
        takeColours();
        (logic ? AbTrend2 : AbTrend1)->lookChanged();
        m_overview->refresh();
    });
    dialog->open();
}

void TScopeForm::nameMarker(qint64 record) {
    auto* dialog = new QInputDialog(this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowTitle(tr("Marker"));
    dialog->setLabelText(tr("Name of the marker at record %1:").arg(record));
    connect(dialog, &QInputDialog::textValueSelected, this,
            [this, record](const QString& name) { m_session.addMarker(record, name.simplified()); });
    dialog->open();
}

void TScopeForm::showEvent(QShowEvent* event) {
    m_session.opened();
    showSession();
    showOffers();
    QMainWindow::showEvent(event);
}

void TScopeForm::hideEvent(QHideEvent* event) {
    // By whatever way it went; a minimised window goes on.
    if (!event->spontaneous()) {
        ButtonTimer.setEnabled(false);
        AbTrend1->setMeasure({}, {});
        m_session.FormClose();
    }
    QMainWindow::hideEvent(event);
}

}  // namespace kelvane
