#include "shell/connect_form.h"

#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>
#include <algorithm>
#include <vector>

#include "ui/icons.h"
#include "ui/named.h"
#include "ui/scanner.h"
#include "ui/transparent_button.h"

namespace kelvane {

namespace {

constexpr int StepMs = 100;
constexpr int Parked = -1;
constexpr int LastCell = 10;

// The combinations in the order in which they are tried.
const std::vector<quint8>& walk() {
    static const std::vector<quint8> codes = [] {
        std::vector<quint8> all;
        for (quint8 code = 0; code <= LastDetectCode; code = nextDetectCode(code)) all.push_back(code);
        return all;
    }();
    return codes;
}

}  // namespace

TConnectForm::TConnectForm(ComSetup& setup, TickClock& clock, QWidget* parent)
    : QDialog(parent),
      Timer1(clock, TickKind::RealTime, StepMs, [this] { Timer1Timer(); }),
      m_setup(setup),
      VrScanner1(new VrScanner(this)),
      m_baud(new QLabel(this)),
      m_protocol(new QLabel(this)),
      m_progress(named<QProgressBar>("TriedProgressBar", this)) {
    setObjectName(QStringLiteral("TConnectForm"));
    setWindowTitle(QStringLiteral("Connecting to AC Drive"));
    setModal(true);
    VrScanner1->setObjectName(QStringLiteral("VrScanner1"));
    VrScanner1->setAccessibleName(QStringLiteral("Search for the line settings"));
    m_baud->setObjectName(QStringLiteral("Label1"));
    m_protocol->setObjectName(QStringLiteral("Label2"));
    auto* column = new QVBoxLayout(this);
    const int room = fontMetrics().height();
    column->setContentsMargins(2 * room, room, 2 * room, room);
    column->setSpacing(room / 2);
    column->addWidget(VrScanner1);
    for (QLabel* label : {m_baud, m_protocol}) {
        label->setTextFormat(Qt::PlainText);
        label->setAlignment(Qt::AlignHCenter);
        column->addWidget(label);
    }
    // Room for the widest line, so that the window keeps its size during the walk.
    m_protocol->setMinimumWidth(
        fontMetrics().horizontalAdvance(QStringLiteral("Modbus ASCII mode, protocol < 8, N, 2 >")) + room);
    m_progress->setTextVisible(false);
    m_progress->setAccessibleName(tr("Combinations tried"));
    column->addWidget(m_progress);
    auto* stop = framedButton("StopTransparentButton", Icon::Cancel, tr("Stop"), this);
    column->addWidget(stop, 0, Qt::AlignHCenter);
    connect(stop, &QAbstractButton::clicked, this, &QDialog::reject);
    connect(&m_setup, &ComSetup::changed, this, &TConnectForm::showRecord);
}

void TConnectForm::showRecord() {
    const auto tried = std::find(walk().begin(), walk().end(), m_setup.DetectCode);
    m_progress->setRange(0, static_cast<int>(walk().size()));
    m_progress->setValue(static_cast<int>(tried - walk().begin()));
    m_baud->setText(m_setup.shown.connectBaud);
    m_protocol->setText(m_setup.shown.connectProtocol);
    if (m_setup.shown.TConnectFormShown == isVisible()) return;
    Timer1.setEnabled(m_setup.shown.TConnectFormShown);
    if (!m_setup.shown.TConnectFormShown) park();
    setVisible(m_setup.shown.TConnectFormShown);
}

void TConnectForm::Timer1Timer() {
    const int next = VrScanner1->position() + 1;
    VrScanner1->setPosition(next == LastCell ? 0 : next);
}

void TConnectForm::park() {
    Timer1.setEnabled(false);
    VrScanner1->setPosition(Parked);
}

void TConnectForm::done(int result) {
    park();
    QDialog::done(result);
    m_setup.closeConnectForm();
}

}  // namespace kelvane
