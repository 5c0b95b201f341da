#include "commissioning/auto_tuning_form.h"

#include <QBoxLayout>
#include <QCloseEvent>
#include <QComboBox>
#include <QGroupBox>
#include <QScreen>
#include <algorithm>

#include "commissioning/grid_looks_form.h"
#include "commissioning/pid_guide_form.h"
#include "ui/icons.h"
#include "ui/lamp.h"
#include "ui/meters.h"
#include "ui/named.h"
#include "ui/transparent_button.h"

namespace kelvane {

namespace {

constexpr QSize UsualSize(126, 47);  // characters, lines
constexpr int UsualSpeed = 3000;     // top of the meter until a motor turns faster
constexpr int SpeedSweep = 120;
constexpr QSize MotorPicture(40, 40);
// Texts of the window where no language file says otherwise.
constexpr const char* AdviceNames[] = {"AbLED1", "AbLED2", "AbLED3", "Label4", "AbLED5"};
constexpr const char* Advice[] = {"Before Auto Tuning", "Make sure motor wiring is correct.",
                                  "Make sure the motor has no-load before executing auto-tuning",
                                  "and the shaft is not connected to any belt or gear motor.",
                                  "Fill in Parameters as below with correct values:"};

}  // namespace

TAutoTuningForm::TAutoTuningForm(AutoTuning& tuning, const LangTable& lang, QWidget* parent)
    : QDialog(parent),
      m_tuning(tuning),
      m_lang(lang),
      ParaAdvStringGrid(named<StringGridView>("ParaAdvStringGrid", this)),
      TuneParaComboBox(named<QComboBox>("TuneParaComboBox", this)),
      TuneDesLabel(plainLabel("TuneDesLabel", {}, this)),
      SpeedAb120Meter(named<DialMeter>("SpeedAb120Meter", this, SpeedSweep)),
      Motor1Image(named<QLabel>("Motor1Image", this)),
      Motor2Image(named<QLabel>("Motor2Image", this)),
      TuneTransparentButton(button("TuneTransparentButton", int(Icon::AutoTuning), tr("Tune"),
                                   tr("Start the chosen auto tuning"))),
      MotorSelTransparentButton(button("MotorSelTransparentButton", int(Icon::Motor), tr("Motor"),
                                       tr("Select motor 1 or motor 2"))),
      ReadTransparentButton(button("ReadTransparentButton", int(Icon::ReadDrive), tr("Read"),
                                   tr("Read the motor parameters from the drive"))),
      WriteTransparentButton(button("WriteTransparentButton", int(Icon::WriteAll), tr("Write"),
                                    tr("Write the motor parameters to the drive"))),
      ExitTransparentButton(
          button("ExitTransparentButton", int(Icon::Exit), tr("Exit"), tr("Close this window"))),
      m_status(plainLabel("StatusLabel", {}, this)) {
    setObjectName(QStringLiteral("TAutoTuningForm"));
    setWindowTitle(tr("Auto Tuning"));
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    setUpParameterGrid(*ParaAdvStringGrid, m_tuning.rows, tr("Motor parameters"));
    m_status->setWordWrap(true);
    auto* column = new QVBoxLayout(this);
    column->addLayout(buildButtons());
    column->addLayout(buildAdvice());
    column->addWidget(ParaAdvStringGrid, 1);
    column->addWidget(buildTest());
    column->addWidget(m_status);
    connect(ParaAdvStringGrid, &StringGridView::dblClickCell, this, [this](int, int row) { editRow(row); });
    connect(TuneParaComboBox, &QComboBox::activated, this, &TAutoTuningForm::choose);
    connect(TuneTransparentButton, &QToolButton::clicked, &m_tuning, &AutoTuning::TuneTransparentButtonClick);
    connect(ReadTransparentButton, &QToolButton::clicked, &m_tuning, &AutoTuning::ReadTransparentButtonClick);
    connect(WriteTransparentButton, &QToolButton::clicked, &m_tuning,
            &AutoTuning::WriteTransparentButtonClick);
    connect(ExitTransparentButton, &QToolButton::clicked, this, &QDialog::reject);
    connect(MotorSelTransparentButton, &QToolButton::clicked, this,
            [this] { Q_EMIT motorSelFormWanted(m_tuning.firstMotor() ? 1 : 2); });
    connect(&m_tuning, &AutoTuning::changed, this, &TAutoTuningForm::showEngine);
    connect(&m_tuning, &AutoTuning::motorChanged, this, &TAutoTuningForm::showEngine);
    connect(&m_tuning, &AutoTuning::speedRead, this, [this](int digit) {
        SpeedAb120Meter->setMaxValue(std::max(SpeedAb120Meter->MaxValue(), double(digit)));
        SpeedAb120Meter->setPosition(digit);
    });
    const QSize usual(fontMetrics().averageCharWidth() * UsualSize.width(),
                      fontMetrics().height() * UsualSize.height());
    resize(usual.boundedTo(screen()->availableSize()));
    fillEntries();
    showEngine();
}

TransparentButton* TAutoTuningForm::button(const char* name, int iconNumber, const QString& text,
                                           const QString& hint) {
    auto* made = named<TransparentButton>(name, icon(static_cast<Icon>(iconNumber)), text, this);
    made->setToolTip(hint);
    return made;
}

QLayout* TAutoTuningForm::buildButtons() {
    auto* row = new QHBoxLayout;
    row->addWidget(MotorSelTransparentButton);
    const Icon motors[] = {Icon::Motor1, Icon::Motor2};
    int number = 0;
    for (QLabel* image : {Motor1Image, Motor2Image}) {
        image->setPixmap(icon(motors[number]).pixmap(MotorPicture));
        image->setAccessibleName(tr("Motor %1").arg(++number));
        image->setToolTip(image->accessibleName());
        row->addWidget(image);
    }
    row->addStretch();
    for (TransparentButton* made : {ReadTransparentButton, WriteTransparentButton, ExitTransparentButton})
        row->addWidget(made);
    return row;
}

// A heading, then what must hold, lamp by lamp; one of them goes on in a second line.
QLayout* TAutoTuningForm::buildAdvice() {
    auto* column = new QVBoxLayout;
    for (size_t i = 0; i < std::size(Advice); ++i) {
        if (QLatin1String(AdviceNames[i]) == QLatin1String("Label4")) {
            QLabel* label = plainLabel(AdviceNames[i], QLatin1String(Advice[i]), this);
            label->setIndent(fontMetrics().height() + fontMetrics().averageCharWidth());
            column->addWidget(label);
            continue;
        }
        auto* lamp = named<AbLED>(AdviceNames[i], QLatin1String(Advice[i]), this);
        lamp->setChecked(true);
        if (i == 0) setUpHeading(*lamp);
        column->addWidget(lamp);
    }
    return column;
}

QWidget* TAutoTuningForm::buildTest() {
    auto* box = new QGroupBox(tr("Auto Tuning"), this);
    TuneDesLabel->setWordWrap(true);
    TuneDesLabel->setMinimumHeight(fontMetrics().height() * 3);
    TuneDesLabel->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    TuneParaComboBox->setAccessibleName(tr("Test"));
    SpeedAb120Meter->setMaxValue(UsualSpeed);
    SpeedAb120Meter->setText(tr("rpm"));
    SpeedAb120Meter->setAccessibleName(tr("Speed"));
    SpeedAb120Meter->setFixedSize(fontMetrics().height() * 15, fontMetrics().height() * 8);
    auto* left = new QVBoxLayout;
    auto* choice = new QHBoxLayout;
    choice->addWidget(TuneParaComboBox, 1);
    choice->addWidget(TuneTransparentButton);
    left->addLayout(choice);
    left->addWidget(TuneDesLabel);
    left->addStretch();
    auto* row = new QHBoxLayout(box);
    row->addLayout(left, 1);
    row->addWidget(SpeedAb120Meter);
    return box;
}

// ---- What the engine shows ----

void TAutoTuningForm::fillEntries() {
    const TuneFamily* family = m_tuning.family();
    m_texts = tuneTexts(m_lang, family && family->hasTwoMotors());
    TuneParaComboBox->clear();
    TuneParaComboBox->addItems(m_texts.entries);
    TuneParaComboBox->setCurrentIndex(0);
    TuneDesLabel->clear();
}

void TAutoTuningForm::choose(int index) {
    TuneDesLabel->setText(m_texts.descriptions.value(index));
    m_tuning.TuneParaComboBoxChange(index);
}

void TAutoTuningForm::showEngine() {
    const AutoTuning::Enabled& enabled = m_tuning.enabled;
    for (TransparentButton* made :
         {MotorSelTransparentButton, ReadTransparentButton, WriteTransparentButton, ExitTransparentButton})
        made->setEnabled(enabled.buttons);
    TuneTransparentButton->setEnabled(enabled.TuneTransparentButtonEnabled);
    ParaAdvStringGrid->setEnabled(enabled.entry);
    TuneParaComboBox->setEnabled(enabled.entry);
    const bool twoMotors = m_tuning.family() && m_tuning.family()->hasTwoMotors();
    MotorSelTransparentButton->setVisible(twoMotors);
    Motor1Image->setVisible(twoMotors && m_tuning.firstMotor());
    Motor2Image->setVisible(twoMotors && m_tuning.motorKnown() && !m_tuning.firstMotor());
    m_status->setText(statusText());
}

QString TAutoTuningForm::stoppedText() const {
    QString text = tr("STOP was sent. The run goes no further.");
    if (m_tuning.stopped == AutoTuning::Stopped::BeforeRun)
        text +=
            QLatin1Char(' ') % tr("Its tuning command is set: the next RUN from anywhere starts the tuning.");
    return text;
}

QString TAutoTuningForm::statusText() const {
    const bool tunes = m_tuning.sequence.running();
    if (m_tuning.stopped != AutoTuning::Stopped::No)
        return QString(stoppedText() % QLatin1Char(' ') % m_tuning.line.standingText()).trimmed();
    if (m_tuning.line.standing != CommissioningLink::Standing::No) {
        const QString after =
            tunes ? tr("The run has got no further, and the drive may go on tuning. Close this "
                       "window and use the keypad to stop the drive.")
                  : tr("Close this window, or read again.");
        return m_tuning.line.standingText() % QLatin1Char(' ') % after;
    }
    if (!m_tuning.line.site.link.Lamp.onLine())
        return tr("Off Line. A drive that was tuning goes on by itself.");
    if (tunes && m_tuning.sequence.TuneStep < 6)  // from there on the result speaks
        return tr("Tuning. The drive ends it by itself; nothing here limits its time.") % QLatin1Char(' ') %
               tr("F12 stops the drive.");
    if (m_tuning.RdTimer.running()) return tr("Reading the motor parameters ...");
    if (m_tuning.WrTimer.running()) return tr("Writing the motor parameters ...");
    return {};
}

void TAutoTuningForm::editRow(int row) {
    m_tuning.ParaAdvStringGridDblClickCell(row);
    ParaAdvStringGrid->selectAll();
}

void TAutoTuningForm::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (event->spontaneous()) return;
    fillEntries();
    SpeedAb120Meter->setPosition(0);
    showEngine();
    ParaAdvStringGrid->selectAll();
    ParaAdvStringGrid->setFocus();
}

// ---- Closing ----

void TAutoTuningForm::done(int result) {
    if (!m_tuning.mayClose()) return;
    m_tuning.FormClose();
    QDialog::done(result);
}

void TAutoTuningForm::closeEvent(QCloseEvent* event) {
    event->ignore();
    reject();
}

// Also when it goes by another way than its own closing.
void TAutoTuningForm::hideEvent(QHideEvent* event) {
    if (!event->spontaneous()) m_tuning.FormClose();
    QDialog::hideEvent(event);
}

}  // namespace kelvane
