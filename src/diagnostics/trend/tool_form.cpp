#include "diagnostics/trend/tool_form.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>

#include "ui/icons.h"
#include "ui/lamp.h"
#include "ui/named.h"
#include "ui/tab_order.h"
#include "ui/transparent_button.h"

namespace kelvane {

namespace {

constexpr int WidestPen = 5;

QByteArray numbered(const char* before, int number, const char* behind = "") {
    return QByteArray(before) + QByteArray::number(number) + behind;
}

}  // namespace

TToolForm::TToolForm(TrendSession& session, QWidget* parent)
    : QDialog(parent), m_session(session), ChLeftEdit(named<QLineEdit>("ChLeftEdit", this)) {
    setObjectName(QStringLiteral("TToolForm"));
    setWindowTitle(QStringLiteral("Tool"));
    auto* column = new QVBoxLayout(this);
    column->addWidget(plainLabel("Label1", QStringLiteral("Please Adjust the Settings of the Scope"), this));
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(fontMetrics().averageCharWidth() * 3);
    grid->addWidget(new QLabel(tr("Left scale"), this), 0, 0);
    grid->addWidget(new QLabel(tr("Pen width"), this), 0, 1);
    for (int c = 1; c <= TrendSession::Channels; ++c) addChannel(grid, c);
    column->addLayout(grid);
    auto* top = new QHBoxLayout;
    top->addWidget(captionFor(ChLeftEdit, "Label2", tr("&Top of the left scale"), this));
    top->addWidget(ChLeftEdit);
    column->addLayout(top);
    column->addStretch();
    auto* foot = new QHBoxLayout;
    foot->addStretch();
    auto* ok = framedButton("OKTransparentButton", Icon::Accept, tr("OK"), this);
    auto* cancel = framedButton("CancelTransparentButton", Icon::Cancel, tr("Cancel"), this);
    foot->addWidget(ok);
    foot->addWidget(cancel);
    column->addLayout(foot);
    tabThrough({ChComboBox[TrendSession::Channels], ChLeftEdit, ok, cancel});
    connect(ok, &TransparentButton::clicked, this, &TToolForm::OKTransparentButtonClick);
    connect(cancel, &TransparentButton::clicked, this, &QDialog::reject);
    connect(ChLeftEdit, &QLineEdit::returnPressed, ok, &TransparentButton::click);
}

void TToolForm::addChannel(QGridLayout* grid, int channel) {
    const auto c = static_cast<size_t>(channel);
    LeftAbLED[c] =
        named<AbLED>(numbered("LeftAbLED", channel).constData(), QStringLiteral("Ch%1").arg(channel), this);
    LeftAbLED[c]->setClickable(true);
    LeftAbLED[c]->setCheckable(true);
    connect(LeftAbLED[c], &AbLED::clicked, this, [this, channel] { choose(channel); });
    ChComboBox[c] = named<QComboBox>(numbered("Ch", channel, "ComboBox").constData(), this);
    ChComboBox[c]->setAccessibleName(tr("Pen width of channel %1").arg(channel));
    for (int width = 1; width <= WidestPen; ++width) ChComboBox[c]->addItem(QString::number(width));
    grid->addWidget(LeftAbLED[c], channel, 0);
    grid->addWidget(ChComboBox[c], channel, 1);
}

void TToolForm::prepare() {
    choose(m_session.LeftScaleCh);
    for (int c = 1; c <= TrendSession::Channels; ++c)
        ChComboBox[static_cast<size_t>(c)]->setCurrentIndex(m_session.AbTrend1.Channel(c).penWidth - 1);
}

void TToolForm::choose(int channel) {
    OptionLeftChannel = static_cast<quint8>(channel);
    for (int c = 1; c <= TrendSession::Channels; ++c)
        LeftAbLED[static_cast<size_t>(c)]->setChecked(c == channel);
    ChLeftEdit->setText(m_session.ChLeftEdit(channel));
    ChLeftEdit->selectAll();
}

void TToolForm::OKTransparentButtonClick() {
    std::array<int, TrendSession::Channels + 1> widths{};
    for (size_t c = 1; c < widths.size(); ++c) widths[c] = ChComboBox[c]->currentIndex() + 1;
    m_session.OKTransparentButtonClick(OptionLeftChannel, ChLeftEdit->text(), widths);
    accept();
}

}  // namespace kelvane
