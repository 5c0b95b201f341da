#include "ui/accessible_kit.h"

#include <QAccessible>
#include <QAccessibleWidget>

#include "ui/display_label.h"
#include "ui/lamp.h"
#include "ui/led_text.h"
#include "ui/meters.h"
#include "ui/mnemonic.h"
#include "ui/power_button.h"
#include "ui/scanner.h"
#include "ui/seven_segment_label.h"

namespace kelvane {
namespace {

QString nameOr(const QWidget& widget, const QString& caption) {
    return widget.accessibleName().isEmpty() ? caption : widget.accessibleName();
}

QAccessible::Role roleOf(const AbLED& lamp) {
    if (!lamp.clickable()) return QAccessible::Indicator;
    return lamp.autoExclusive() ? QAccessible::RadioButton : QAccessible::CheckBox;
}

class ButtonSpeech : public QAccessibleWidget {
   public:
    ButtonSpeech(QAbstractButton* button, QAccessible::Role role) : QAccessibleWidget(button, role) {}

    // Asked anew: a lamp may become a choice after a screen reader has met it.
    QAccessible::Role role() const override {
        const auto* lamp = qobject_cast<const AbLED*>(object());
        return lamp ? roleOf(*lamp) : QAccessibleWidget::role();
    }
    QString text(QAccessible::Text kind) const override {
        if (kind == QAccessible::Name) return nameOr(*button(), withoutMnemonic(button()->text()));
        if (kind == QAccessible::Value) return stateInWords();
        return QAccessibleWidget::text(kind);
    }
    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.checkable = true;
        state.checked = button()->isChecked();
        return state;
    }
    QStringList actionNames() const override {
        QStringList names = QAccessibleWidget::actionNames();
        if (button()->focusPolicy() != Qt::NoFocus && button()->isEnabled()) names.prepend(pressAction());
        return names;
    }
    void doAction(const QString& action) override {
        if (action == pressAction()) return button()->click();
        QAccessibleWidget::doAction(action);
    }

   private:
    QAbstractButton* button() const { return qobject_cast<QAbstractButton*>(object()); }
    QString stateInWords() const {
        const auto* lamp = qobject_cast<const AbLED*>(object());
        if (lamp && lamp->isChecked() && lamp->flashing()) return QStringLiteral("flashing");
        return button()->isChecked() ? QStringLiteral("on") : QStringLiteral("off");
    }
};

class BarSpeech : public QAccessibleWidget {
   public:
    explicit BarSpeech(VrIndicator* bar) : QAccessibleWidget(bar, QAccessible::ProgressBar) {}

    QString text(QAccessible::Text kind) const override {
        if (kind != QAccessible::Value) return QAccessibleWidget::text(kind);
        const int position = qobject_cast<VrIndicator*>(object())->position();
        return position < 0 ? QStringLiteral("idle") : QString::number(position);
    }
};

// A display label: its caption names it, and its text is said once, empty or not.
class DisplaySpeech : public QAccessibleWidget {
   public:
    explicit DisplaySpeech(VrLabel* label) : QAccessibleWidget(label, QAccessible::StaticText) {}

    QString text(QAccessible::Text kind) const override {
        const auto* label = qobject_cast<const VrLabel*>(object());
        if (kind == QAccessible::Name)
            return nameOr(*label, label->text().isEmpty() ? QStringLiteral("empty") : label->text());
        return QAccessibleWidget::text(kind);
    }
};

class MeterSpeech : public QAccessibleWidget {
   public:
    explicit MeterSpeech(QWidget* meter) : QAccessibleWidget(meter, QAccessible::Dial) {}

    QString text(QAccessible::Text kind) const override {
        if (kind != QAccessible::Value) return QAccessibleWidget::text(kind);
        if (const auto* dial = qobject_cast<const DialMeter*>(object()))
            return dial->valueText() + QLatin1Char(' ') + dial->text();
        const auto* scale = qobject_cast<const ScaleMeter*>(object());
        return QString::number(scale->value()) + QLatin1Char(' ') + scale->ValueUnit();
    }
};

class LedSpeech : public QAccessibleWidget {
   public:
    explicit LedSpeech(LedText* led) : QAccessibleWidget(led, QAccessible::Indicator) {}

    QString text(QAccessible::Text kind) const override {
        const auto& led = static_cast<const LedText&>(*object());
        if (kind == QAccessible::Name) return nameOr(led, led.text());
        if (kind != QAccessible::Value) return QAccessibleWidget::text(kind);
        if (led.flashing()) return QStringLiteral("flashing");
        return led.lit() ? QStringLiteral("on") : QStringLiteral("off");
    }
};

class SegmentSpeech : public QAccessibleWidget {
   public:
    explicit SegmentSpeech(SevenSegmentLabel* display)
        : QAccessibleWidget(display, QAccessible::StaticText) {}

    QString text(QAccessible::Text kind) const override {
        if (kind != QAccessible::Value) return QAccessibleWidget::text(kind);
        return static_cast<const SevenSegmentLabel&>(*object()).text();
    }
};

// Qt asks once for each class of the widget's ancestry, the most derived first.
QAccessibleInterface* speechFor(const QString& className, QObject* object) {
    if (!className.startsWith(QLatin1String("kelvane::"))) return nullptr;
    if (auto* lamp = qobject_cast<AbLED*>(object)) return new ButtonSpeech(lamp, roleOf(*lamp));
    if (auto* label = qobject_cast<VrLabel*>(object)) return new DisplaySpeech(label);
    if (auto* power = qobject_cast<VrPowerButton*>(object))
        return new ButtonSpeech(power, QAccessible::CheckBox);
    if (auto* led = qobject_cast<LedText*>(object)) return new LedSpeech(led);
    if (auto* display = qobject_cast<SevenSegmentLabel*>(object)) return new SegmentSpeech(display);
    if (auto* bar = qobject_cast<VrIndicator*>(object)) return new BarSpeech(bar);
    if (qobject_cast<DialMeter*>(object) || qobject_cast<ScaleMeter*>(object))
        return new MeterSpeech(qobject_cast<QWidget*>(object));
    return nullptr;
}

}  // namespace

void installAccessibleKit() {
    static const bool installed = [] {
        QAccessible::installFactory(speechFor);
        return true;
    }();
    Q_UNUSED(installed);
}

}  // namespace kelvane
