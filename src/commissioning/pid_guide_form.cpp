#include "commissioning/pid_guide_form.h"

#include <QBoxLayout>
#include <QPlainTextEdit>
#include <QStackedWidget>

#include "commissioning/step_response.h"
#include "ui/curve_plot.h"
#include "ui/lamp.h"
#include "ui/named.h"

namespace kelvane {

namespace {

const QColor HeadingBlue(0x1a, 0x7f, 0xc1);

struct GuideCase {
    const char* caption;
    const char* advice;
};
// The misspelling stands as it is.
constexpr GuideCase Cases[] = {{QT_TRANSLATE_NOOP("kelvane::PidGuide", "Overshoot"),
                                "Decrease Integral time(I) and increase Differential time(D)"},
                               {QT_TRANSLATE_NOOP("kelvane::PidGuide", "Rise time too large"),
                                "If the system overshoot is allowable, you can decrease Integral time(I) and "
                                "increase Differentail time(D) to "
                                "speed up your rise time."},
                               {QT_TRANSLATE_NOOP("kelvane::PidGuide", "Settle time too large"),
                                "If the settle time is too large and it is larger than Integral time(I). You "
                                "can decrease the Integral time(I) "
                                "to reduce settle time."},
                               {QT_TRANSLATE_NOOP("kelvane::PidGuide", "Undamped, Marginal stable"),
                                "If the system is undamped and the period is near the Differential time(D), "
                                "you can reduce the Differential "
                                "time(D) to modify the situation.\n\nIf the differential time is zero, you "
                                "can reduce Proportional gain(P) or "
                                "increase the Primary Delay Filter Time(10-06)."}};

}  // namespace

void setUpHeading(AbLED& heading) {
    heading.setChecked(true);
    heading.setColor(HeadingBlue);
    QFont bold = heading.font();
    bold.setBold(true);
    heading.setFont(bold);
}

namespace {

QWidget* captionedPlot(const QString& caption, const QList<QPointF>& curve) {
    auto* box = new QWidget;
    auto* plot = new CurvePlot;
    plot->setCurve(curve, GuideTime, GuideTop, 1);
    plot->setAccessibleName(caption);
    auto* grid = new QGridLayout(box);
    grid->setContentsMargins(0, 0, 0, 0);
    auto* title = new QLabel(caption);
    QFont bold = title->font();
    bold.setBold(true);
    title->setFont(bold);
    grid->addWidget(title, 0, 1, Qt::AlignHCenter);
    grid->addWidget(new QLabel(PidGuide::tr("Speed")), 1, 0, Qt::AlignTop);
    grid->addWidget(plot, 1, 1);
    grid->addWidget(new QLabel(PidGuide::tr("Time")), 2, 1, Qt::AlignRight);
    grid->setRowStretch(1, 1);
    return box;
}

}  // namespace

PidGuide::PidGuide(QWidget* parent)
    : QWidget(parent), PageControl1(named<QStackedWidget>("PageControl1", this)) {
    auto* lamps = new QVBoxLayout;
    auto* title = named<AbLED>("TroubleAbLED", tr("Troubleshooting"), this);
    setUpHeading(*title);
    lamps->addWidget(title);
    for (int number = 1; number <= 4; ++number) {
        auto* lamp = named<AbLED>(qPrintable(QStringLiteral("Case%1AbLED").arg(number)),
                                  tr(Cases[number - 1].caption), this);
        lamp->setClickable(true);
        lamp->setAutoExclusive(true);
        connect(lamp, &AbLED::clicked, this, [this, number] { showCase(number); });
        m_lamps[size_t(number - 1)] = lamp;
        lamps->addWidget(lamp);
        PageControl1->addWidget(page(number));
    }
    lamps->addStretch();
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addLayout(lamps);
    row->addWidget(PageControl1, 1);
    showCase(1);
}

QWidget* PidGuide::page(int number) {
    const auto index = size_t(number - 1);
    auto* sheet = named<QWidget>(qPrintable(QStringLiteral("TabSheet%1").arg(number)));
    auto* memo = named<QPlainTextEdit>(qPrintable(QStringLiteral("Case%1Memo").arg(number)),
                                       QString::fromLatin1(Cases[index].advice));
    memo->setReadOnly(true);
    memo->setTabChangesFocus(true);
    memo->setAccessibleName(tr(Cases[index].caption));
    memo->setMinimumHeight(fontMetrics().height() * 5);
    const GuideCurves curves = guideCurves()[index];
    auto* row = new QHBoxLayout(sheet);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(captionedPlot(tr("Before"), curves.before), 2);
    row->addWidget(captionedPlot(tr("After"), curves.after), 2);
    row->addWidget(memo, 3);
    return sheet;
}

void PidGuide::showCase(int number) {
    for (size_t i = 0; i < m_lamps.size(); ++i) m_lamps[i]->setChecked(int(i) == number - 1);
    PageControl1->setCurrentIndex(number - 1);
}

}  // namespace kelvane
