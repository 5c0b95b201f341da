#include "console/panel/drive_panel_form.h"

#include <QColorDialog>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

#include "console/connection/console_fields_form.h"
#include "console/panel/series_tables.h"
#include "ui/editable_grid_view.h"
#include "ui/icons.h"
#include "ui/named.h"
#include "ui/strip_chart.h"
#include "ui/up_down.h"

namespace kelvane {

namespace {

struct ButtonRow {
    const char* name;
    const char* text;
    const char* hint;
    DriveButton button;
};
constexpr std::array<ButtonRow, 6> Buttons{{
    {"RUNButton", "RUN", "Start the motor", DriveButton::Run},
    {"STOPButton", "STOP", "Stop the motor (F12)", DriveButton::Stop},
    {"DIRButton", "FWD/REV", "Turn the motor the other way", DriveButton::Dir},
    {"JOGButton", "JOG", "Jog the motor", DriveButton::Jog},
    {"RESETButton", "RESET", "Reset a fault of the drive", DriveButton::Reset},
    {"EFButton", "EF", "Give the drive an external fault", DriveButton::Ef},
}};

struct LampRow {
    const char* name;
    const char* text;
    StateLed StateLeds::*led;
};
constexpr std::array<LampRow, 7> Lamps{{
    {"RUNAbLED", "RUN", &StateLeds::RUN},
    {"STOPAbLED", "STOP", &StateLeds::STOP},
    {"JOGAbLED", "JOG", &StateLeds::JOG},
    {"FWDAbLED", "FWD", &StateLeds::FWD},
    {"REVAbLED", "REV", &StateLeds::REV},
    {"EXTAbLED", "EXT", &StateLeds::EXT},
    {"PUAbLED", "PU", &StateLeds::PU},
}};

void showText(QLineEdit* edit, const QString& text) {
    if (edit->text() != text) edit->setText(text);
}

}  // namespace

DrivePanelPage::DrivePanelPage(AdvanceConsole& console, QWidget* parent)
    : QWidget(parent), m_console(console), m_panel(console.panel), m_flasher(console.site.clock) {
    auto* column = new QVBoxLayout(this);
    column->addWidget(buildHead());
    AdvStringGrid1 = named<EditableGridView>("AdvStringGrid1", this);
    AdvStringGrid1->setAccessibleName(QStringLiteral("Registers"));
    AdvStringGrid1->setGrid(&m_panel.AdvStringGrid1);
    AdvStringGrid1->setColumnCharacters({2, 9, 30, 12, 7, 9});
    AdvStringGrid1->setStretchColumn(DrivePanel::NameColumn);
    AdvStringGrid1->setRightAligned({DrivePanel::DataColumn, DrivePanel::DecimalColumn});
    column->addWidget(AdvStringGrid1, 1);
    column->addWidget(buildLamps());
    column->addWidget(buildButtons());
    connectGrid();
    connect(&m_panel, &DrivePanel::tableChanged, this, &DrivePanelPage::showState);
    connect(&m_panel, &DrivePanel::ledsChanged, this, &DrivePanelPage::showLamps);
    showState();
    showLamps();
}

QWidget* DrivePanelPage::buildHead() {
    auto* head = new QWidget(this);
    SelDriveComboBox = named<QComboBox>("SelDriveComboBox", head);
    SelDriveComboBox->addItems(seriesItems(m_console.site.link.BrandVariant()));
    DefCmdLabeledEdit = named<QLineEdit>("DefCmdLabeledEdit", head);
    raiseAsTyped(DefCmdLabeledEdit);
    DefCmdLabeledEdit->setMinimumWidth(fontMetrics().averageCharWidth() * 18);
    monitorIDLabeledEdit = named<QLineEdit>("monitorIDLabeledEdit", head);
    monitorIDLabeledEdit->setMaximumWidth(fontMetrics().averageCharWidth() * 8);
    auto* upDown = named<UpDown>("MonitorUpDown", 0, 255, head);
    MonitorUpDown = upDown;

    auto* row = new QGridLayout(head);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(captionFor(SelDriveComboBox, "SelDriveLabel", QStringLiteral("Dri&ve series"), head), 0,
                   0);
    row->addWidget(SelDriveComboBox, 1, 0);
    row->addWidget(captionFor(DefCmdLabeledEdit, "DefCmdLabel", QStringLiteral("Default &command"), head), 0,
                   1);
    row->addWidget(DefCmdLabeledEdit, 1, 1);
    row->addWidget(captionFor(monitorIDLabeledEdit, "monitorIDLabel", QStringLiteral("ID"), head), 0, 2);
    row->addWidget(monitorIDLabeledEdit, 1, 2);
    row->addWidget(upDown, 1, 3);
    row->setColumnStretch(4, 1);

    connect(SelDriveComboBox, &QComboBox::activated, this, [this](int item) { m_panel.selectSeries(item); });
    connect(DefCmdLabeledEdit, &QLineEdit::textEdited, this,
            [this](const QString& text) { m_panel.typeCommand(text); });
    connect(monitorIDLabeledEdit, &QLineEdit::returnPressed, this, [this] { takeId(); });
    connect(monitorIDLabeledEdit, &QLineEdit::editingFinished, this, [this] {
        if (monitorIDLabeledEdit->text() != m_panel.monitorIDLabeledEdit) takeId();
    });
    connect(upDown, &UpDown::stepped, this, [this](int position) { m_panel.stepId(position); });
    return head;
}

// The box over a bad number takes the focus away, which ends the editing once more.
void DrivePanelPage::takeId() {
    if (std::exchange(m_takingId, true)) return;
    m_panel.typeId(monitorIDLabeledEdit->text());
    m_takingId = false;
}

QWidget* DrivePanelPage::buildLamps() {
    auto* group = new QWidget(this);
    auto* row = new QHBoxLayout(group);
    row->setContentsMargins(0, 0, 0, 0);
    for (size_t i = 0; i < Lamps.size(); ++i) {
        m_lamps[i] = named<AbLED>(Lamps[i].name, QString::fromLatin1(Lamps[i].text), group);
        m_lamps[i]->setCheckable(true);
        m_flasher.watch(m_lamps[i]);
        row->addWidget(m_lamps[i]);
    }
    row->addStretch();
    return group;
}

QWidget* DrivePanelPage::buildButtons() {
    auto* group =
        named<QGroupBox>("ControlGroupBox", QStringLiteral("Control: each button acts at once"), this);
    auto* row = new QHBoxLayout(group);
    for (const ButtonRow& at : Buttons) {
        auto* button = named<QPushButton>(at.name, QString::fromLatin1(at.text), group);
        button->setToolTip(QString::fromLatin1(at.hint));
        button->setAutoDefault(false);
        button->setMinimumWidth(fontMetrics().horizontalAdvance(button->text()) + fontMetrics().height());
        if (at.button == DriveButton::Stop) {
            QFont bold = button->font();
            bold.setBold(true);
            button->setFont(bold);
        }
        connect(button, &QPushButton::clicked, this, [this, which = at.button] { m_panel.press(which); });
        row->addWidget(button);
    }
    return group;
}

void DrivePanelPage::connectGrid() {
    AdvStringGrid1->installEventFilter(this);
    AdvStringGrid1->horizontalHeader()->setSectionsClickable(true);
    AdvStringGrid1->horizontalHeader()->setToolTip(FormatHint);
    connect(AdvStringGrid1->horizontalHeader(), &QHeaderView::sectionClicked, this, [this](int section) {
        if (section == DrivePanel::DataColumn) m_panel.toggleFormat();
    });
    connect(&m_panel.AdvStringGrid1, &StringGrid::cellTyped, this, [this] { m_panel.rebuildChannels(); });
    connect(AdvStringGrid1, &EditableGridView::left, this, [this] { m_panel.fillEmptyDecimals(); });
}

// Enter rebuilds the boxes of the chart, also where no cell was opened.
bool DrivePanelPage::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress && m_panel.mayEdit()) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) m_panel.rebuildChannels();
    }
    return QWidget::eventFilter(watched, event);
}

int DrivePanelPage::currentRow() const { return AdvStringGrid1->currentCell().row; }

void DrivePanelPage::showState() {
    const bool free = !m_panel.running();
    SelDriveComboBox->setCurrentIndex(m_panel.SelDriveComboBoxItemIndex);
    SelDriveComboBox->setEnabled(free);
    showText(DefCmdLabeledEdit, m_panel.DefCmdLabeledEdit);
    // Half a command must not go out with the next read.
    DefCmdLabeledEdit->setEnabled(m_panel.mayEdit());
    showText(monitorIDLabeledEdit, m_panel.monitorIDLabeledEdit);
    monitorIDLabeledEdit->setEnabled(free);
    static_cast<UpDown*>(MonitorUpDown)->setPosition(m_panel.MonitorUpDown);
    MonitorUpDown->setEnabled(free);
}

void DrivePanelPage::showLamps() {
    for (size_t i = 0; i < Lamps.size(); ++i) {
        const StateLed& led = m_panel.leds.*Lamps[i].led;
        m_lamps[i]->setChecked(led.on);
        m_lamps[i]->setFlashing(led.flashing);
    }
}

// ---- Chart ----

ChartPage::ChartPage(AdvanceConsole& console, QWidget* parent) : QWidget(parent), m_panel(console.panel) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    Chart1 = named<StripChart>("Chart1", this);
    column->addWidget(Chart1, 1);
    auto* grid = new QGridLayout;
    for (int channel = 0; channel < DrivePanel::Channels; ++channel) buildChannel(channel, grid);
    PointLabeledEdit = keyedEdit("PointLabeledEdit", QStringLiteral("[0-9]*"), this);
    PointLabeledEdit->setText(m_panel.PointLabeledEdit);
    PointLabeledEdit->setMaximumWidth(fontMetrics().averageCharWidth() * 10);
    connect(PointLabeledEdit, &QLineEdit::textChanged, this,
            [this](const QString& text) { m_panel.PointLabeledEdit = text; });
    auto* clear = named<QPushButton>("ChartClearButton", icon(Icon::Clear), QStringLiteral("Clear"), this);
    connect(clear, &QPushButton::clicked, this, [this] { m_panel.clearChart(); });
    auto* foot = new QHBoxLayout;
    foot->addWidget(captionFor(PointLabeledEdit, "PointLabel", QStringLiteral("&Point of frame"), this));
    foot->addWidget(PointLabeledEdit);
    foot->addStretch();
    foot->addWidget(clear);
    column->addLayout(grid);
    column->addLayout(foot);
    connect(&m_panel, &DrivePanel::channelsChanged, this, &ChartPage::showChannels);
    connect(&m_panel, &DrivePanel::chartChanged, this, &ChartPage::showChart);
    connect(&m_panel, &DrivePanel::tableChanged, this, &ChartPage::showState);
    showChannels();
    showChart();
}

void ChartPage::buildChannel(int channel, QGridLayout* grid) {
    const auto at = static_cast<size_t>(channel);
    const QString number = QString::number(channel + 1);
    m_panels[at] = new QToolButton(this);
    m_panels[at]->setObjectName(QStringLiteral("Ch%1Panel").arg(number));
    m_panels[at]->setToolTip(QStringLiteral("Choose the colour of this channel"));
    m_panels[at]->setAccessibleName(QStringLiteral("Colour of channel %1").arg(number));
    m_boxes[at] = new QComboBox(this);
    m_boxes[at]->setObjectName(QStringLiteral("Ch%1ComboBox").arg(number));
    m_boxes[at]->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_boxes[at]->setMinimumContentsLength(10);
    auto* label = new QLabel(QStringLiteral("Ch &%1").arg(number), this);
    label->setBuddy(m_boxes[at]);
    grid->addWidget(m_panels[at], channel, 0);
    grid->addWidget(label, channel, 1);
    grid->addWidget(m_boxes[at], channel, 2);
    grid->setColumnStretch(2, 1);
    showColour(channel);
    connect(m_panels[at], &QToolButton::clicked, this, [this, channel] { chooseColour(channel); });
    connect(m_boxes[at], &QComboBox::activated, this,
            [this, at](int item) { m_panel.ChComboBoxItemIndex[at] = item; });
}

void ChartPage::showColour(int channel) {
    QPixmap swatch(20, 14);
    swatch.fill(Chart1->line(channel).color());
    m_panels[static_cast<size_t>(channel)]->setIcon(QIcon(swatch));
    m_panels[static_cast<size_t>(channel)]->setProperty("color", Chart1->line(channel).color());
}

void ChartPage::chooseColour(int channel) {
    auto* dialog = new QColorDialog(Chart1->line(channel).color(), this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &QColorDialog::colorSelected, this, [this, channel](const QColor& color) {
        Chart1->setLineColor(channel, color);
        showColour(channel);
    });
    dialog->open();
}

void ChartPage::showChannels() {
    for (size_t at = 0; at < m_boxes.size(); ++at) {
        m_boxes[at]->clear();
        m_boxes[at]->addItems(m_panel.channelItems);
        m_boxes[at]->setCurrentIndex(m_panel.ChComboBoxItemIndex[at]);
    }
}

void ChartPage::showChart() {
    Chart1->setBottomAxis(m_panel.axisMinimum, m_panel.axisMaximum);
    for (int channel = 0; channel < DrivePanel::Channels; ++channel) {
        const ChartSeries& series = m_panel.Series[static_cast<size_t>(channel)];
        // One value more than the frame, so that a line comes in from its edge.
        const qint64 first = std::max(series.firstX, m_panel.axisMinimum - 1);
        const auto skipped = static_cast<std::ptrdiff_t>(
            std::min<qint64>(first - series.firstX, static_cast<qint64>(series.values.size())));
        const QList<double> seen(series.values.begin() + skipped, series.values.end());
        Chart1->setLine(channel, series.shown, static_cast<int>(series.values.size()), first, seen);
    }
}

void ChartPage::showState() {
    for (QComboBox* box : m_boxes) box->setEnabled(!m_panel.running());
}

}  // namespace kelvane
