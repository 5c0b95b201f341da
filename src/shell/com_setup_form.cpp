#include "shell/com_setup_form.h"

#include <QComboBox>
#include <QEvent>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

#include "ui/icons.h"
#include "ui/lamp.h"

namespace kelvane {

namespace {

const QColor FailRed(208, 0, 0);

void addField(QFormLayout* form, const QString& caption, QComboBox* box) {
    auto* label = new QLabel(caption);
    label->setBuddy(box);
    form->addRow(label, box);
}

// A value of a project file that is not among the items is shown all the same.
void showText(QComboBox* box, const QString& text) {
    if (box->findText(text) < 0) box->addItem(text);
    box->setCurrentText(text);
}

}  // namespace

TComSetupForm::TComSetupForm(ComSetup& setup, const PortDirectory& ports, QWidget* parent)
    : QDialog(parent), m_setup(setup), m_ports(ports) {
    setObjectName(QStringLiteral("TComSetupForm"));
    setWindowTitle(QStringLiteral("Communication Setup"));
    setModal(true);
    auto* GroupBox1 = new QGroupBox(QStringLiteral("COM Port"), this);
    GroupBox1->setObjectName(QStringLiteral("GroupBox1"));
    buildPort(GroupBox1);
    auto* GroupBox2 = new QGroupBox(QStringLiteral("Protocol"), this);
    GroupBox2->setObjectName(QStringLiteral("GroupBox2"));
    buildProtocol(GroupBox2);

    auto* steps = new QGridLayout(this);
    steps->setColumnStretch(1, 1);
    steps->setVerticalSpacing(fontMetrics().height() / 2);
    steps->addWidget(addText("Label2", QStringLiteral("1.")), 0, 0);
    steps->addWidget(addText("Des1Label", QStringLiteral("Select the COM port and the settings of the drive, "
                                                         "or let the tool find them.")),
                     0, 1);
    steps->addWidget(GroupBox1, 1, 1);
    steps->addWidget(GroupBox2, 2, 1);
    buildTest(steps);
    connectHand();
    connect(&m_setup, &ComSetup::changed, this, &TComSetupForm::showRecord);
    connect(&m_setup, &ComSetup::closeWanted, this, &QDialog::accept);
    showRecord();
    describePort();
}

QLabel* TComSetupForm::addText(const char* name, const QString& text) {
    auto* label = new QLabel(text, this);
    label->setObjectName(QLatin1String(name));
    label->setTextFormat(Qt::PlainText);
    return label;
}

QComboBox* TComSetupForm::addBox(const char* name, const QStringList& items, BoxHandler handler) {
    auto* box = new QComboBox(this);
    box->setObjectName(QLatin1String(name));
    box->addItems(items);
    connect(box, &QComboBox::textActivated, this,
            [this, handler](const QString& text) { (m_setup.*handler)(text); });
    return box;
}

void TComSetupForm::buildPort(QGroupBox* group) {
    ComPortComboBox = addBox("ComPortComboBox", ComSetup::comPortItems(), &ComSetup::ComPortComboBoxChange);
    connect(ComPortComboBox, &QComboBox::textActivated, this, &TComSetupForm::describePort);
    PortInfoLabel = addText("PortInfoLabel", {});
    PortInfoLabel->setWordWrap(true);
    auto* number = new QLabel(QStringLiteral("&Number"), group);
    number->setBuddy(ComPortComboBox);
    auto* row = new QHBoxLayout(group);
    row->addWidget(number);
    row->addWidget(ComPortComboBox);
    row->addWidget(PortInfoLabel, 1);
}

void TComSetupForm::buildProtocol(QGroupBox* group) {
    ManualRadioButton = new QRadioButton(QStringLiteral("Manual"), group);
    ManualRadioButton->setObjectName(QStringLiteral("ManualRadioButton"));
    AutoDetectRadioButton = new QRadioButton(QStringLiteral("Auto-Detect"), group);
    AutoDetectRadioButton->setObjectName(QStringLiteral("AutoDetectRadioButton"));
    ModeComboBox = addBox("ModeComboBox", ComSetup::modeItems(), &ComSetup::ModeComboBoxChange);
    BaudComboBox = addBox("BaudComboBox", ComSetup::baudItems(), &ComSetup::BaudComboBoxChange);
    DataBitsComboBox =
        addBox("DataBitsComboBox", ComSetup::dataBitsItems(), &ComSetup::DataBitsComboBoxChange);
    ParityComboBox = addBox("ParityComboBox", ComSetup::parityItems(), &ComSetup::ParityComboBoxChange);
    StopBitsComboBox =
        addBox("StopBitsComboBox", ComSetup::stopBitsItems(), &ComSetup::StopBitsComboBoxChange);

    auto* columns = new QHBoxLayout(group);
    const int room = 2 * fontMetrics().height();
    auto* choice = new QVBoxLayout;
    choice->addWidget(ManualRadioButton);
    choice->addWidget(AutoDetectRadioButton);
    choice->addStretch();
    columns->addLayout(choice);
    columns->addSpacing(room);
    auto* left = new QFormLayout;
    addField(left, QStringLiteral("&Mode"), ModeComboBox);
    addField(left, QStringLiteral("&Baud rate"), BaudComboBox);
    columns->addLayout(left);
    columns->addSpacing(room);
    auto* right = new QFormLayout;
    addField(right, QStringLiteral("&Data bits"), DataBitsComboBox);
    addField(right, QStringLiteral("&Parity"), ParityComboBox);
    addField(right, QStringLiteral("&Stop bits"), StopBitsComboBox);
    columns->addLayout(right);
    columns->addStretch();
}

void TComSetupForm::buildTest(QGridLayout* steps) {
    TestButton = new QPushButton(icon(Icon::Test), QStringLiteral("Test"), this);
    TestButton->setObjectName(QStringLiteral("TestButton"));
    TestButton->setToolTip(QStringLiteral("Test the connection with these settings"));
    SuccessAbLED = new AbLED(QStringLiteral("Success"), this);
    SuccessAbLED->setObjectName(QStringLiteral("SuccessAbLED"));
    FailAbLED = new AbLED(QStringLiteral("Fail"), this);
    FailAbLED->setObjectName(QStringLiteral("FailAbLED"));
    FailAbLED->setColor(FailRed);
    PortErrorLabel = addText("PortErrorLabel", {});
    PortErrorLabel->setWordWrap(true);
    PortErrorLabel->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    PortErrorLabel->setFocusPolicy(Qt::ClickFocus);
    PortErrorLabel->hide();
    OKBitBtn = new QPushButton(icon(Icon::Accept), QStringLiteral("Accept"), this);
    OKBitBtn->setObjectName(QStringLiteral("OKBitBtn"));
    OKBitBtn->setToolTip(QStringLiteral("Take these settings for the connection to the drive"));

    QLabel* Label3 = addText("Label3", QStringLiteral("2."));
    Label3->installEventFilter(this);
    steps->addWidget(Label3, 3, 0);
    steps->addWidget(addText("Des2Label", QStringLiteral("Test the connection to the drive.")), 3, 1);
    auto* test = new QHBoxLayout;
    test->addWidget(TestButton);
    test->addSpacing(fontMetrics().height());
    test->addWidget(SuccessAbLED);
    test->addWidget(FailAbLED);
    test->addStretch();
    steps->addLayout(test, 4, 1);
    steps->addWidget(PortErrorLabel, 5, 1);
    steps->addWidget(addText("Label4", QStringLiteral("3.")), 6, 0);
    steps->addWidget(addText("Des3Label", QStringLiteral("Accept the settings.")), 6, 1);
    steps->addWidget(OKBitBtn, 7, 1, Qt::AlignLeft);
    steps->setRowStretch(8, 1);
    TestButton->setDefault(true);
}

void TComSetupForm::connectHand() {
    connect(ManualRadioButton, &QRadioButton::clicked, &m_setup, &ComSetup::ManualRadioButtonClick);
    connect(AutoDetectRadioButton, &QRadioButton::clicked, &m_setup, &ComSetup::AutoDetectRadioButtonClick);
    connect(TestButton, &QPushButton::clicked, &m_setup, &ComSetup::TestButtonClick);
    connect(OKBitBtn, &QPushButton::clicked, &m_setup, &ComSetup::OKBitBtnClick);
}

void TComSetupForm::showRecord() {
    const ComSetup::Shown& shown = m_setup.shown;
    showBoxes();
    (shown.ManualRadioButtonChecked ? ManualRadioButton : AutoDetectRadioButton)->setChecked(true);
    OKBitBtn->setEnabled(shown.OKBitBtnEnabled);
    const bool succeeded = shown.SuccessAbLEDLit && !SuccessAbLED->isChecked();
    SuccessAbLED->setChecked(shown.SuccessAbLEDLit);
    FailAbLED->setChecked(shown.FailAbLEDLit);
    if (succeeded) OKBitBtn->setFocus();
    (shown.SuccessAbLEDLit ? OKBitBtn : TestButton)->setDefault(true);
    const QString why = shown.FailAbLEDLit ? advice() : QString();
    if (why == PortErrorLabel->text()) return;
    PortErrorLabel->setText(why);
    PortErrorLabel->setVisible(!why.isEmpty());
    fitToText();
}

// What helps after a failed test: the port's own reason, or what a silent line usually wants.
QString TComSetupForm::advice() const {
    const QString why = m_setup.port().openError();
    if (!why.isEmpty()) return why;
    const QString look = tr("No answer came. Look at the cable and at the power of the drive.");
    return look % QLatin1Char(' ') %
           (m_setup.shown.ManualRadioButtonChecked
                ? tr("Set mode, baud rate and the protocol as the drive has them, or choose Auto-Detect.")
                : tr("Every combination of settings was tried. Does another program hold the line?"));
}

void TComSetupForm::showBoxes() {
    const ComSetup::Shown& shown = m_setup.shown;
    showText(ComPortComboBox, shown.ComPortComboBox);
    showText(ModeComboBox, shown.ModeComboBox);
    showText(BaudComboBox, shown.BaudComboBox);
    showText(DataBitsComboBox, shown.DataBitsComboBox);
    showText(ParityComboBox, shown.ParityComboBox);
    showText(StopBitsComboBox, shown.StopBitsComboBox);
    for (QComboBox* box : {ModeComboBox, BaudComboBox, ParityComboBox, StopBitsComboBox})
        box->setEnabled(shown.ManualRadioButtonChecked);
    DataBitsComboBox->setEnabled(shown.ManualRadioButtonChecked && shown.dataBitsEnabled);
}

// Asks the system what is plugged in, so it runs when a person looks or chooses, not on every change.
void TComSetupForm::describePort() {
    const int number = m_setup.shown.ComPortComboBox.toInt();
    PortInfoLabel->setText(PortDirectory::describe(m_ports.target(number)).text());
    ComPortComboBox->setAccessibleDescription(PortInfoLabel->text());
}

// A wrapped line does not ask for its height by itself; a person's larger window stays as it is.
void TComSetupForm::fitToText() {
    layout()->activate();
    const int needed = layout()->totalHeightForWidth(width());
    if (needed > height()) resize(width(), needed);
}

void TComSetupForm::showEvent(QShowEvent* event) {
    showRecord();
    describePort();
    QDialog::showEvent(event);
}

void TComSetupForm::done(int result) {
    // First: whoever waits for the dialog may open the link port, and the two are never open together.
    m_setup.FormClose();
    QDialog::done(result);
}

bool TComSetupForm::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonDblClick) Q_EMIT inputFormWanted();
    return QDialog::eventFilter(watched, event);
}

}  // namespace kelvane
