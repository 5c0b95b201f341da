#include "commissioning/pid_form.h"

#include <QBoxLayout>
#include <QScreen>
#include <QShowEvent>
#include <QSplitter>

#include "commissioning/grid_looks_form.h"
#include "commissioning/pid_guide_form.h"
#include "ui/icons.h"
#include "ui/named.h"
#include "ui/transparent_button.h"

namespace kelvane {

namespace {

constexpr int DiagramCharacters = 80;
constexpr int UsualLines = 42;
constexpr const char* LampNames[] = {"RUNAbLED", "STOPAbLED", "JOGAbLED", "FWDAbLED", "REVAbLED"};
constexpr const char* LampTexts[] = {"RUN", "STOP", "JOG", "FWD", "REV"};
const QColor StopRed(0xC8, 0x20, 0x20);

}  // namespace

TPIDForm::TPIDForm(PidControl& pid, TickClock& clock, QWidget* parent)
    : QDialog(parent),
      m_pid(pid),
      ParaAdvStringGrid(named<StringGridView>("ParaAdvStringGrid", this)),
      m_flasher(clock),
      m_guide(new PidGuide(this)),
      m_status(plainLabel("StatusLabel", {}, this)) {
    setObjectName(QStringLiteral("TPIDForm"));
    setWindowTitle(tr("PID Control"));
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    setUpParameterGrid(*ParaAdvStringGrid, m_pid.rows, tr("PID parameters"));
    m_status->setWordWrap(true);
    auto* splitter = new QSplitter(Qt::Horizontal, this);
    splitter->addWidget(ParaAdvStringGrid);
    splitter->addWidget(buildDiagrams());
    splitter->setChildrenCollapsible(false);
    auto* column = new QVBoxLayout(this);
    column->addLayout(buildButtons());
    column->addLayout(buildLamps());
    column->addWidget(splitter, 3);
    column->addWidget(m_guide, 2);
    column->addWidget(m_status);
    connect(ParaAdvStringGrid, &StringGridView::dblClickCell, this, [this](int, int row) { editRow(row); });
    connect(&m_pid, &PidControl::changed, this, &TPIDForm::showEngine);
    const int edge = column->contentsMargins().left() + column->contentsMargins().right();
    const int diagram = fontMetrics().averageCharWidth() * DiagramCharacters;
    splitter->setSizes({ParaAdvStringGrid->wholeWidth(), diagram});
    const QSize usual(ParaAdvStringGrid->wholeWidth() + splitter->handleWidth() + diagram + edge,
                      fontMetrics().height() * UsualLines);
    resize(usual.boundedTo(screen()->availableSize()));
    showEngine();
}

TransparentButton* TPIDForm::button(const char* name, int iconNumber, const QString& text,
                                    const QString& hint, void (PidControl::*click)()) {
    auto* made = named<TransparentButton>(name, icon(static_cast<Icon>(iconNumber)), text, this);
    made->setToolTip(hint);
    connect(made, &QToolButton::clicked, &m_pid, click);
    return made;
}

QLayout* TPIDForm::buildButtons() {
    auto* row = new QHBoxLayout;
    row->addWidget(button("RUNTransparentButton", int(Icon::Run), tr("RUN"), tr("Run the drive"),
                          &PidControl::RUNTransparentButtonClick));
    row->addWidget(button("STOPTransparentButton", int(Icon::Stop), tr("STOP"), tr("Stop the drive (F12)"),
                          &PidControl::STOPTransparentButtonClick));
    row->addStretch();
    row->addWidget(button("ReadTransparentButton", int(Icon::ReadDrive), tr("Read"),
                          tr("Read the PID parameters from the drive"),
                          &PidControl::ReadTransparentButtonClick));
    row->addWidget(button("WriteTransparentButton", int(Icon::WriteAll), tr("Write"),
                          tr("Write the PID parameters to the drive"),
                          &PidControl::WriteTransparentButtonClick));
    auto* exit = named<TransparentButton>("ExitTransparentButton", icon(Icon::Exit), tr("Exit"), this);
    exit->setToolTip(tr("Close this window"));
    connect(exit, &QToolButton::clicked, this, &QDialog::reject);
    row->addWidget(exit);
    return row;
}

QLayout* TPIDForm::buildLamps() {
    auto* box = new QWidget(this);  // a room of their own: exclusive lamps stand elsewhere
    auto* row = new QHBoxLayout(box);
    row->setContentsMargins(0, 0, 0, 0);
    for (size_t i = 0; i < m_lamps.size(); ++i) {
        m_lamps[i] = named<AbLED>(LampNames[i], QLatin1String(LampTexts[i]), box);
        m_flasher.watch(m_lamps[i]);
        row->addWidget(m_lamps[i]);
    }
    m_lamps[1]->setColor(StopRed);
    row->addStretch();
    auto* layout = new QHBoxLayout;
    layout->addWidget(box);
    return layout;
}

QWidget* TPIDForm::buildDiagrams() {
    auto* box = new QWidget(this);
    auto* column = new QVBoxLayout(box);
    column->setContentsMargins(0, 0, 0, 0);
    auto* title = named<AbLED>("PIDAbLED", tr("PID Block Diagram"), box);
    setUpHeading(*title);
    column->addWidget(title);
    size_t place = 0;
    for (const PidFamily& family : pidFamilies()) {
        auto* picture = named<PictureBox>(family.diagram, box);
        picture->showPidDiagram(static_cast<quint8>(family.family));
        picture->setMinimumWidth(fontMetrics().averageCharWidth() * DiagramCharacters * 2 / 3);
        column->addWidget(picture, 1);
        m_diagrams.at(place++) = picture;
    }
    return box;
}

// ---- What the engine shows ----

void TPIDForm::showEngine() {
    const StateLeds& leds = m_pid.leds;
    const std::array<StateLed, 5> states{leds.RUN, leds.STOP, leds.JOG, leds.FWD, leds.REV};
    for (size_t i = 0; i < states.size(); ++i) {
        m_lamps[i]->setChecked(states[i].on);
        m_lamps[i]->setFlashing(states[i].flashing);
    }
    const QLatin1String diagram(m_pid.family().diagram);
    for (PictureBox* picture : m_diagrams) picture->setVisible(picture->objectName() == diagram);
    m_status->setText(statusText());
}

// A window that stands says why, and what still stops the motor.
QString TPIDForm::statusText() const {
    const bool onLine = m_pid.line.site.link.Lamp.onLine();
    if (m_pid.line.standing != CommissioningLink::Standing::No)
        return m_pid.line.standingText() % QLatin1Char(' ') %
               (onLine ? tr("RUN and STOP have no effect here until Read has been pressed. To stop the "
                            "drive, press STOP and close this window, or use the keypad.")
                       : tr("Nothing is sent any more. To stop the drive, close this window, go on line "
                            "again and use the keypad."));
    if (m_pid.RdTimer.running()) return tr("Reading the parameters ...");
    if (m_pid.WrTimer.running()) return tr("Writing the parameters ...");
    if (m_pid.MonitorTimer.running()) return tr("Watching the state of the drive. F12 stops it.");
    return tr("Off Line. Nothing is sent.");
}

void TPIDForm::editRow(int row) {
    m_pid.ParaAdvStringGridDblClickCell(row);
    selectRows();
}

// All rows, so that no single cell seems chosen.
void TPIDForm::selectRows() { ParaAdvStringGrid->selectAll(); }

void TPIDForm::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (event->spontaneous()) return;
    m_guide->showCase(1);
    showEngine();
    selectRows();
    ParaAdvStringGrid->setFocus();
}

void TPIDForm::done(int result) {
    m_pid.FormClose();
    QDialog::done(result);
}

// Also when it goes by another way than its own closing.
void TPIDForm::hideEvent(QHideEvent* event) {
    if (!event->spontaneous()) m_pid.FormClose();
    QDialog::hideEvent(event);
}

}  // namespace kelvane
