#include "diagnostics/monitor/meter_type_form.h"

#include <QBoxLayout>
#include <QLineEdit>
#include <utility>

#include "link/number_text.h"
#include "ui/icons.h"
#include "ui/mark_panel.h"
#include "ui/meters.h"
#include "ui/named.h"
#include "ui/tab_order.h"
#include "ui/transparent_button.h"

namespace kelvane {

TMeterTypeForm::TMeterTypeForm(MeterTypeChoice& choice, QWidget* parent)
    : QDialog(parent),
      m_choice(choice),
      VrAngularMeter(named<DialMeter>("VrAngularMeter")),
      AbThermometer(named<ScaleMeter>("AbThermometer", ScaleMeter::Shape::Thermometer)),
      AbHMeter(named<ScaleMeter>("AbHMeter", ScaleMeter::Shape::Bar)),
      LabeledEdit1(named<QLineEdit>("LabeledEdit1", this)) {
    setObjectName(QStringLiteral("TMeterTypeForm"));
    setWindowTitle(tr("Meter Type"));
    setWindowModality(Qt::ApplicationModal);
    auto* ok = framedButton("OKTransparentButton", Icon::Accept, tr("OK"), this);
    auto* cancel = framedButton("CancelTransparentButton", Icon::Cancel, tr("Cancel"), this);
    auto* foot = new QHBoxLayout;
    foot->addWidget(captionFor(LabeledEdit1, "MaxValueLabel", tr("&Max value"), this));
    foot->addWidget(LabeledEdit1);
    foot->addStretch();
    foot->addWidget(ok);
    foot->addWidget(cancel);
    auto* column = new QVBoxLayout(this);
    column->addLayout(buildSamples(), 1);
    tabThroughFromStart(*this, {m_panels[0], m_panels[1], m_panels[2], LabeledEdit1, ok, cancel});
    column->addLayout(foot);
    connect(LabeledEdit1, &QLineEdit::textChanged, this, [this](const QString& text) {
        m_choice.setMaxValue(text);
        showSamples();
    });
    connect(LabeledEdit1, &QLineEdit::returnPressed, this, &QDialog::accept);
    connect(ok, &QToolButton::clicked, this, &QDialog::accept);
    connect(cancel, &QToolButton::clicked, this, &QDialog::reject);
    // Kept: there is no cancel in effect.
    connect(this, &QDialog::finished, this, [this] {
        if (const auto then = std::exchange(m_then, {})) then();
    });
}

QLayout* TMeterTypeForm::buildSamples() {
    auto* bar = named<QWidget>("Panel6");
    auto* room = new QVBoxLayout(bar);
    room->setContentsMargins(0, 0, 0, 0);
    room->addWidget(AbHMeter);
    auto* row = new QHBoxLayout;
    row->addWidget(panel(1, "M1Panel", VrAngularMeter, tr("Dial")));
    row->addWidget(panel(2, "M2Panel", AbThermometer, tr("Thermometer")));
    row->addWidget(panel(3, "M3Panel", bar, tr("Bar")));
    return row;
}

MarkPanel* TMeterTypeForm::panel(int kind, const char* name, QWidget* sample, const QString& caption) {
    auto* made = named<MarkPanel>(name, this);
    made->setFocusPolicy(Qt::StrongFocus);
    made->setAccessibleName(caption);
    auto* column = new QVBoxLayout(made);
    column->addWidget(sample, 1);
    column->addWidget(plainLabel(qPrintable(QStringLiteral("Sample%1Label").arg(kind)), caption, made), 0,
                      Qt::AlignHCenter);
    connect(made, &MarkPanel::clicked, this, [this, kind] { choose(kind); });
    m_panels[size_t(kind - 1)] = made;
    return made;
}

void TMeterTypeForm::choose(int kind) {
    m_choice.MeterType = static_cast<quint8>(kind);
    showSamples();
}

void TMeterTypeForm::showSamples() {
    for (size_t i = 0; i < m_panels.size(); ++i) m_panels[i]->setMarked(int(i) + 1 == m_choice.MeterType);
    VrAngularMeter->decimalSep = AbThermometer->decimalSep = AbHMeter->decimalSep = DecimalSep;
    VrAngularMeter->setMaxValue(m_choice.VrAngularMeter);
    AbThermometer->setValueTo(m_choice.AbThermometer);
    AbHMeter->setValueTo(m_choice.AbHMeter);
}

void TMeterTypeForm::ask(std::function<void()> then) {
    m_then = std::move(then);
    const double tops[] = {m_choice.VrAngularMeter, m_choice.AbThermometer, m_choice.AbHMeter};
    LabeledEdit1->clear();
    LabeledEdit1->setPlaceholderText(
        QString::number(tops[(m_choice.MeterType + 2) % 3]).replace(QLatin1Char('.'), DecimalSep));
    showSamples();
    LabeledEdit1->setFocus();
    show();
}

}  // namespace kelvane
