#include "diagnostics/monitor/monitor_form.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QGroupBox>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QScreen>
#include <QScrollArea>
#include <QShortcut>
#include <QStackedWidget>

#include "link/number_text.h"
#include "ui/display_label.h"
#include "ui/icons.h"
#include "ui/item_box.h"
#include "ui/meters.h"
#include "ui/named.h"
#include "ui/power_button.h"
#include "ui/tab_order.h"
#include "ui/title_width.h"
#include "ui/transparent_button.h"
#include "ui/trend_plot.h"

namespace kelvane {

namespace {

constexpr QSize UsualSize(165, 46);  // characters, lines
constexpr int ShortestBox = 10;      // characters of an item box that are always seen

struct IdentityRow {
    const char* caption;
    const char* value;
    const char* text;
    QString DriveLabelsRecord::*label;
};
const IdentityRow Identity[] = {
    {"DispDriveVrLabel", "DriveVrLabel", "Drive:", &DriveLabelsRecord::DriveVrLabel},
    {"DispVersionVrLabel", "VersionVrLabel", "Version:", &DriveLabelsRecord::VersionVrLabel},
    {"DispHPVrLabel", "HPVrLabel", "kW ( Hp ):", &DriveLabelsRecord::HPVrLabel},
    {"DispRatedVoltageVrLabel", "RatedVoltageVrLabel",
     "Rated Voltage:", &DriveLabelsRecord::RatedVoltageVrLabel},
    {"DispRatedCurrentVrLabel", "RatedCurrentVrLabel",
     "Rated Current:", &DriveLabelsRecord::RatedCurrentVrLabel}};

void showScale(ScaleMeter& meter, const ScaleState& state) {
    meter.decimalSep = DecimalSep;
    meter.setValueTo(state.ValueTo);
    meter.setDigitalTo(state.DigitalTo);
    meter.setValueUnit(state.ValueUnit);
    meter.setValueFormat(state.ValueFormat);
    meter.setDigit(state.Digit);
}

void showDial(DialMeter& dial, const DialState& state) {
    dial.decimalSep = DecimalSep;
    dial.setMaxValue(state.MaxValue);
    dial.setPosition(state.Position);
    dial.setDecimals(state.Decimals);
    dial.setText(state.caption);
}

}  // namespace

TMonitorForm::TMonitorForm(MonitorSession& monitor, RequestScheduler& link, QWidget* parent)
    : QDialog(parent), m_monitor(monitor), m_link(link) {
    setObjectName(QStringLiteral("TMonitorForm"));
    setWindowTitle(tr("Monitor"));
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    auto* column = new QVBoxLayout(this);
    column->addLayout(buildButtons());
    auto* meters = new QHBoxLayout;
    meters->addWidget(buildBigDial(), 4);
    meters->addWidget(buildMeter(1, m_monitor.Meter1, m_first), 3);
    meters->addWidget(buildMeter(2, m_monitor.Meter2, m_second), 3);
    auto* content = new QWidget;
    auto* parts = new QVBoxLayout(content);
    parts->setContentsMargins(0, 0, 0, 0);
    parts->addLayout(buildIdentity());
    parts->addLayout(meters, 5);
    parts->addWidget(buildTrend(), 4);
    // On a small screen the meters are scrolled; Start and Exit are always there.
    auto* area = named<QScrollArea>("MonitorScrollArea", this);
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setWidget(content);
    column->addWidget(area, 1);
    listen();
    const QSize usual(fontMetrics().averageCharWidth() * UsualSize.width(),
                      fontMetrics().height() * UsualSize.height());
    resize(usual.boundedTo(screen()->availableSize()));
    showSession();
    showValues();
    showIdentity();
}

TransparentButton* TMonitorForm::button(const char* name, int iconNumber, const QString& text,
                                        const QString& hint) {
    auto* made = named<TransparentButton>(name, icon(static_cast<Icon>(iconNumber)), text, this);
    made->setToolTip(hint);
    return made;
}

QLayout* TMonitorForm::buildButtons() {
    StartVrPowerButton = named<VrPowerButton>("StartVrPowerButton", tr("Start"), this);
    StartVrPowerButton->setToolTip(tr("Start or stop the meters and the trend"));
    KeypadTransparentButton =
        button("KeypadTransparentButton", int(Icon::Keypad), tr("Keypad"), tr("Open the keypad"));
    auto* exit = button("ExitTransparentButton", int(Icon::Exit), tr("Exit"), tr("Close this window"));
    connect(StartVrPowerButton, &QAbstractButton::clicked, &m_monitor,
            &MonitorSession::StartVrPowerButtonClick);
    connect(KeypadTransparentButton, &QToolButton::clicked, this, &TMonitorForm::keypadWanted);
    // The keys of the trend window.
    connect(new QShortcut(QKeySequence(Qt::Key_F5), this), &QShortcut::activated, StartVrPowerButton,
            &QAbstractButton::click);
    connect(new QShortcut(QKeySequence(Qt::Key_F8), this), &QShortcut::activated, KeypadTransparentButton,
            &QAbstractButton::click);
    connect(exit, &QToolButton::clicked, this, &QDialog::reject);
    auto* row = new QHBoxLayout;
    row->addWidget(StartVrPowerButton);
    row->addWidget(KeypadTransparentButton);
    row->addStretch();
    row->addWidget(exit);
    return row;
}

QLayout* TMonitorForm::buildIdentity() {
    auto* row = new QHBoxLayout;
    size_t place = 0;
    for (const IdentityRow& identity : Identity) {
        auto* value = named<VrLabel>(identity.value, this);
        value->setCharacters(8);
        m_identity[place++] = value;
        row->addWidget(captionFor(value, identity.caption, QLatin1String(identity.text), this));
        row->addWidget(value, 1);
    }
    return row;
}

QComboBox* TMonitorForm::itemBox(const char* name, const QString& what) {
    auto* box = named<ItemBox>(name, this);
    box->setAccessibleName(what);
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setMinimumContentsLength(ShortestBox);
    return box;
}

QWidget* TMonitorForm::buildBigDial() {
    auto* box = new QGroupBox(this);
    VrMeter = named<DialMeter>("VrMeter", box);
    VrMeterComboBox = itemBox("VrMeterComboBox", tr("Item of the large dial"));
    auto* top = button("MeterTransparentButton", int(Icon::Option), tr("Max"),
                       tr("Set the maximum value of the dial"));
    top->setLayout(TransparentButton::Layout::IconLeft);
    auto* row = new QHBoxLayout;
    row->addWidget(VrMeterComboBox, 1);
    row->addWidget(top);
    auto* column = new QVBoxLayout(box);
    column->addLayout(row);
    column->addWidget(VrMeter, 1);
    connect(VrMeterComboBox, &QComboBox::activated, &m_monitor, &MonitorSession::VrMeterComboBoxCloseUp);
    connect(top, &QToolButton::clicked, this, [this] { askMaximum(&MonitorSession::setMeterMaximum); });
    return box;
}

QWidget* TMonitorForm::buildMeter(int number, ExchangeableMeter& meter, MeterPart& part) {
    const bool first = number == 1;
    auto* box = new QGroupBox(this);
    part.meter = &meter;
    part.box = itemBox(first ? "ComboBox1st" : "ComboBox2nd",
                       first ? tr("Item of the first meter") : tr("Item of the second meter"));
    part.pages = named<QStackedWidget>(first ? "PageControl1" : "PageControl2", box);
    part.dial = named<DialMeter>(first ? "VrAngularMeter1st" : "VrAngularMeter2nd");
    part.thermometer =
        named<ScaleMeter>(first ? "AbThermometer1st" : "AbThermometer2nd", ScaleMeter::Shape::Thermometer);
    part.bar = named<ScaleMeter>(first ? "AbHMeter1st" : "AbHMeter2nd", ScaleMeter::Shape::Bar);
    part.value = named<VrLabel>(first ? "Meter1stValueLabel" : "Meter2ndValueLabel", box);
    part.value->setAlignment(Qt::AlignCenter);
    part.value->setAccessibleName(first ? tr("Value of the first meter") : tr("Value of the second meter"));
    auto* kind = button(first ? "Select1stBitBtn" : "Select2ndBitBtn", int(Icon::Monitor), tr("Type"),
                        tr("Choose kind and maximum of the meter"));
    kind->setLayout(TransparentButton::Layout::IconLeft);
    const char* pages[] = {first ? "TabSheet1" : "TabSheet4", first ? "TabSheet2" : "TabSheet5",
                           first ? "TabSheet3" : "TabSheet6"};
    int place = 0;
    for (QWidget* widget : {static_cast<QWidget*>(part.dial), static_cast<QWidget*>(part.thermometer),
                            static_cast<QWidget*>(part.bar)}) {
        auto* page = named<QWidget>(pages[place++]);
        auto* room = new QVBoxLayout(page);
        room->setContentsMargins(0, 0, 0, 0);
        room->addWidget(widget);
        part.pages->addWidget(page);
        widget->setToolTip(tr("Double click to choose kind and maximum"));
    }
    auto* row = new QHBoxLayout;
    row->addWidget(part.box, 1);
    row->addWidget(kind);
    auto* column = new QVBoxLayout(box);
    column->addLayout(row);
    column->addWidget(part.pages, 1);
    column->addWidget(part.value);
    connect(part.box, &QComboBox::activated, this,
            [this, &meter](int index) { m_monitor.ComboBoxCloseUp(meter, index); });
    const auto select = [this, &meter] { selectMeterType(meter); };
    connect(kind, &QToolButton::clicked, this, select);
    connect(part.dial, &DialMeter::doubleClicked, this, select);
    connect(part.thermometer, &ScaleMeter::doubleClicked, this, select);
    connect(part.bar, &ScaleMeter::doubleClicked, this, select);
    return box;
}

QWidget* TMonitorForm::buildTrend() {
    auto* box = new QGroupBox(this);
    AbTrend1 = named<TrendPlot>("AbTrend1", m_monitor.AbTrend1.data, box);
    AbTrend1->setAccessibleName(tr("Trend"));
    AbTrend1->look.decimalSep = DecimalSep;
    Ch1ComboBox = itemBox("Ch1ComboBox", tr("Item of the trend"));
    Ch1ComboBox->setMinimumContentsLength(2 * ShortestBox);
    Ch1LabeledEdit = named<QLineEdit>("Ch1LabeledEdit", box);
    Ch1LabeledEdit->setReadOnly(true);
    Ch1LabeledEdit->setFocusPolicy(Qt::NoFocus);
    Ch1LabeledEdit->setMaximumWidth(fontMetrics().averageCharWidth() * 14);
    Ch1LabeledEdit->setAccessibleName(tr("Value under the cursor"));
    Label1 = plainLabel("Label1", {}, box);
    auto* option = button("OptionTransparentButton", int(Icon::Option), tr("Option"),
                          tr("Set the maximum value of the trend"));
    auto* clear = button("ClearTransparentButton", int(Icon::Clear), tr("Clear"), tr("Clear the trend"));
    CussorTransparentButton = button("CussorTransparentButton", int(Icon::Cursor), tr("Cursor"),
                                     tr("Let the cursor follow the records"));
    CussorTransparentButton->setCheckable(true);
    auto* row = new QHBoxLayout;
    for (TransparentButton* made : {option, clear, CussorTransparentButton}) {
        made->setLayout(TransparentButton::Layout::IconLeft);
        row->addWidget(made);
    }
    row->addStretch();
    row->addWidget(Label1);
    row->addWidget(Ch1LabeledEdit);
    row->addWidget(Ch1ComboBox);
    tabThrough({option, clear, CussorTransparentButton, Ch1ComboBox, AbTrend1});
    auto* column = new QVBoxLayout(box);
    column->addLayout(row);
    column->addWidget(AbTrend1, 1);
    connect(option, &QToolButton::clicked, this, [this] { askMaximum(&MonitorSession::setTrendMaximum); });
    connect(clear, &QToolButton::clicked, &m_monitor, &MonitorSession::ClearTransparentButtonClick);
    connect(CussorTransparentButton, &QToolButton::clicked, &m_monitor,
            &MonitorSession::CussorTransparentButtonClick);
    connect(Ch1ComboBox, &QComboBox::activated, &m_monitor, &MonitorSession::Ch1ComboBoxCloseUp);
    connect(AbTrend1, &TrendPlot::OnNewCursorPos, &m_monitor, &MonitorSession::AbTrend1NewCursorPos);
    return box;
}

void TMonitorForm::listen() {
    connect(&m_monitor, &MonitorSession::changed, this, &TMonitorForm::showSession);
    connect(&m_monitor, &MonitorSession::valuesChanged, this, &TMonitorForm::showValues);
    connect(&m_monitor, &MonitorSession::cursorTexts, this, [this] {
        Ch1LabeledEdit->setText(m_monitor.Ch1LabeledEdit);
        Label1->setText(m_monitor.Label1);
    });
    connect(&m_monitor.AbTrend1, &TrendRecorder::startedOrStopped, this,
            [this] { AbTrend1->setFlow(m_monitor.AbTrend1.recording()); });
    connect(&m_monitor.AbTrend1, &TrendRecorder::OnInterval, this, [this] { AbTrend1->recordsGrew(); });
    connect(&m_monitor.AbTrend1, &TrendRecorder::recordsReplaced, this,
            [this] { AbTrend1->recordsReplaced(); });
    connect(&m_link, &RequestScheduler::changed, this, &TMonitorForm::showIdentity);
    connect(&m_link, &RequestScheduler::statusDecoded, this,
            [this] { KeypadTransparentButton->setEnabled(true); });
    connect(&m_link, &RequestScheduler::initialRun, this,
            [this] { KeypadTransparentButton->setEnabled(false); });
}

// ---- Questions ----

void TMonitorForm::selectMeterType(ExchangeableMeter& meter) {
    if (!m_link.owner().is(OwnerMonitor)) return;
    m_monitor.openMeterType(meter);
    Q_EMIT meterTypeWanted([this, &meter] { m_monitor.takeMeterType(meter); });
}

void TMonitorForm::askMaximum(void (MonitorSession::*take)(const QString& text)) {
    auto* dialog = new QInputDialog(this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowTitle(QStringLiteral("Adjust the Max Value of Meter"));
    dialog->setLabelText(QStringLiteral("Please Input the Value"));
    dialog->findChild<QLabel*>()->setMinimumWidth(titleWidth(*dialog));  // its layout sets its own
    connect(dialog, &QInputDialog::textValueSelected, this,
            [this, take](const QString& text) { (m_monitor.*take)(text); });
    dialog->open();
}

// ---- What the session shows ----

void TMonitorForm::showItems(QComboBox& box, int index) {
    QStringList shown;
    for (int i = 0; i < box.count(); ++i) shown += box.itemText(i);
    if (shown != m_monitor.items) {
        box.clear();
        box.addItems(m_monitor.items);
    }
    box.setCurrentIndex(index < box.count() ? index : -1);
}

void TMonitorForm::showSession() {
    StartVrPowerButton->setChecked(m_monitor.StartVrPowerButtonOn);
    CussorTransparentButton->setChecked(m_monitor.opCursorOnRec);
    showItems(*m_first.box, m_monitor.Meter1.ComboBox);
    showItems(*m_second.box, m_monitor.Meter2.ComboBox);
    showItems(*VrMeterComboBox, m_monitor.VrMeterComboBox);
    showItems(*Ch1ComboBox, m_monitor.Ch1ComboBox);
    for (const MeterPart* part : {&m_first, &m_second})
        part->pages->setCurrentIndex(static_cast<int>(part->meter->page) - 1);
    AbTrend1->setCursorOnRec(m_monitor.opCursorOnRec);
    AbTrend1->lookChanged();
    showValues();
}

void TMonitorForm::showValues() {
    showDial(*VrMeter, m_monitor.VrMeter);
    showMeter(m_first);
    showMeter(m_second);
}

void TMonitorForm::showMeter(const MeterPart& part) {
    showDial(*part.dial, part.meter->VrAngularMeter);
    showScale(*part.thermometer, part.meter->AbThermometer);
    showScale(*part.bar, part.meter->AbHMeter);
    if (part.value->text() != part.meter->ValueLabel) part.value->setText(part.meter->ValueLabel);
}

void TMonitorForm::showIdentity() {
    for (size_t i = 0; i < m_identity.size(); ++i) m_identity[i]->setText(m_link.Labels.*(Identity[i].label));
}

void TMonitorForm::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (event->spontaneous()) return;
    KeypadTransparentButton->setEnabled(m_link.Lamp.onLine());
    StartVrPowerButton->setFocus();
}

// ---- Closing ----

void TMonitorForm::done(int result) {
    m_monitor.FormClose();
    QDialog::done(result);
}

// Also when it goes by another way than its own closing.
void TMonitorForm::hideEvent(QHideEvent* event) {
    if (!event->spontaneous()) m_monitor.FormClose();
    QDialog::hideEvent(event);
}

}  // namespace kelvane
