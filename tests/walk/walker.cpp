#include "walk/walker.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QTabBar>
#include <QTest>
#include <QWindow>
#include <algorithm>
#include <utility>

#include "ui/lamp.h"

namespace kelvane::walk {

namespace {

constexpr qsizetype StepsRemembered = 60;

QString nameOf(const QWidget& widget) {
    const QString name = widget.objectName();
    return name.isEmpty() ? QString::fromLatin1(widget.metaObject()->className()) : name;
}

QString captionOf(const QString& text) { return QString(text).remove(QLatin1Char('&')); }

QList<QAction*> leaves(const QList<QAction*>& actions) {
    QList<QAction*> found;
    for (QAction* action : actions) {
        if (!action->isVisible() || !action->isEnabled() || action->isSeparator()) continue;
        if (action->menu())
            found += leaves(action->menu()->actions());
        else
            found += action;
    }
    return found;
}

}  // namespace

bool Walker::seen(const QWidget& widget) const {
    if (!widget.isVisible() || !widget.isEnabled() || widget.visibleRegion().isEmpty()) return false;
    const QWidget* top = widget.window();
    const QWidget* there = top->childAt(widget.mapTo(top, widget.rect().center()));
    return there == &widget || (there && widget.isAncestorOf(there));
}

// In an order of their own: that of the toolkit is another one in every run.
QList<QWidget*> Walker::reachable() const {
    if (QWidget* popup = QApplication::activePopupWidget()) return {popup};
    const QWidget* modal = QApplication::activeModalWidget();
    QList<QWidget*> windows;
    for (QWidget* top : QApplication::topLevelWidgets()) {
        if (!top->isVisible() || top->windowFlags() & Qt::ToolTip & ~Qt::Window) continue;
        const bool over = modal && modal->windowHandle() && top->windowHandle() &&
                          modal->windowHandle()->isAncestorOf(top->windowHandle());
        if (!modal || top == modal || over) windows += top;
    }
    std::sort(windows.begin(), windows.end(),
              [](const QWidget* a, const QWidget* b) { return nameOf(*a) < nameOf(*b); });
    return windows;
}

bool Walker::isHome() const {
    return !QApplication::activePopupWidget() && !QApplication::activeModalWidget() && m_home.isVisible() &&
           m_home.isEnabled();
}

QString Walker::screen() const {
    QStringList words;
    for (QWidget* top : QApplication::topLevelWidgets()) {
        if (!top->isVisible()) continue;
        QStringList buttons;
        for (const auto* button : top->findChildren<QAbstractButton*>())
            if (button->isVisible())
                buttons += nameOf(*button) + (button->isEnabled() ? QString() : QStringLiteral(" (grey)"));
        const auto* box = qobject_cast<QMessageBox*>(top);
        words += QStringLiteral("%1%2 \"%3\": %4")
                     .arg(top == QApplication::activeModalWidget() ? QStringLiteral("in front: ") : QString(),
                          nameOf(*top), box ? box->text() : top->windowTitle(),
                          buttons.join(QStringLiteral(", ")));
    }
    return words.join(QLatin1Char('\n'));
}

void Walker::add(const QString& what, double weight, std::function<void()> act) {
    if (weight > 0) m_deeds += {what, weight, std::move(act)};
}

double Walker::likingOf(const QString& name, const QString& caption) const {
    const auto byName = likes.constFind(name);
    if (byName != likes.cend()) return *byName;
    return likes.value(captionOf(caption), 1);
}

// ---- What can be done in a window ----

void Walker::addButtons(QWidget& window, bool homeward) {
    for (auto* button : window.findChildren<QAbstractButton*>()) {
        if (button->window() != &window || !seen(*button)) continue;
        if (&window == &m_home && stays.contains(nameOf(*button))) continue;
        const auto* lamp = qobject_cast<AbLED*>(button);
        if (lamp && !lamp->clickable()) continue;
        static const QStringList out{"Close", "Cancel",  "Abort",        "Ignore", "No",    "OK",    "Yes",
                                     "Exit",  "Discard", "Stop waiting", "Stop",   "Leave", "Accept"};
        const QString caption = captionOf(button->text()).section(QLatin1Char('\n'), 0, 0);
        const bool leads = homeward && (out.contains(caption) || nameOf(*button).contains("Cancel") ||
                                        nameOf(*button).contains("Close"));
        add(nameOf(*button) + QStringLiteral(" \"") + caption + QLatin1Char('"'),
            likingOf(nameOf(*button), caption) * (leads ? 8 : 1),
            [button] { QTest::mouseClick(button, Qt::LeftButton); });
        add(QStringLiteral("hold ") + nameOf(*button), 0.1 * likingOf(nameOf(*button), caption),
            [this, button] {
                m_held = button;
                QTest::mousePress(button, Qt::LeftButton);
            });
    }
}

void Walker::addMenus(QWidget& window) {
    auto* main = qobject_cast<QMainWindow*>(&window);
    QMenuBar* bar = main ? qobject_cast<QMenuBar*>(main->menuWidget()) : window.findChild<QMenuBar*>();
    if (!bar || bar->window() != &window || !bar->isVisible()) return;
    for (QAction* action : leaves(bar->actions())) {
        if (&window == &m_home && stays.contains(action->objectName())) continue;
        add(QStringLiteral("menu ") + action->objectName() + QStringLiteral(" \"") + action->text() +
                QLatin1Char('"'),
            likingOf(action->objectName(), action->text()) * 0.6, [action] { action->trigger(); });
    }
}

void Walker::addPopup(QMenu& menu) {
    add(QStringLiteral("Escape in a menu"), 1, [&menu] { QTest::keyClick(&menu, Qt::Key_Escape); });
    for (QAction* action : menu.actions()) {
        if (!action->isVisible() || !action->isEnabled() || action->isSeparator()) continue;
        if (stays.contains(action->objectName())) continue;
        add(QStringLiteral("item ") + action->text(), likingOf(action->objectName(), action->text()),
            [&menu, action] {
                QTest::mouseClick(&menu, Qt::LeftButton, Qt::NoModifier,
                                  menu.actionGeometry(action).center());
            });
    }
}

void Walker::addViews(QWidget& window) {
    for (auto* view : window.findChildren<QAbstractItemView*>()) {
        if (view->window() != &window || !seen(*view)) continue;
        const QSize size = view->viewport()->size();
        const QPoint at(roll(std::max(1, size.width())), roll(std::max(1, size.height())));
        const QString place = QStringLiteral(" at %1, %2").arg(at.x()).arg(at.y());
        const double liking = likingOf(nameOf(*view), {});
        const QPointer<QWidget> viewport(view->viewport());
        add(nameOf(*view) + place, 2 * liking,
            [=] { QTest::mouseClick(viewport, Qt::LeftButton, Qt::NoModifier, at); });
        add(QStringLiteral("double click in ") + nameOf(*view) + place, liking, [=] {
            QTest::mouseClick(viewport, Qt::LeftButton, Qt::NoModifier, at);
            if (viewport) QTest::mouseDClick(viewport, Qt::LeftButton, Qt::NoModifier, at);
        });
        const QPointer<QWidget> guard(view);
        static constexpr Qt::Key keys[] = {Qt::Key_Space, Qt::Key_Return, Qt::Key_Down, Qt::Key_End,
                                           Qt::Key_Home};
        const Qt::Key key = keys[roll(int(std::size(keys)))];
        add(QStringLiteral("key %1 in ").arg(key) + nameOf(*view), liking,
            [=] { QTest::keyClick(guard, key); });
        add(QStringLiteral("context menu of ") + nameOf(*view), 0.3 * liking, [=] {
            QContextMenuEvent event(QContextMenuEvent::Mouse, at, viewport->mapToGlobal(at));
            QApplication::sendEvent(viewport, &event);
        });
    }
}

void Walker::addInputs(QWidget& window) {
    for (auto* edit : window.findChildren<QLineEdit*>()) {
        if (edit->window() != &window || !seen(*edit) || edit->isReadOnly()) continue;
        const QString typed = QString::number(roll(4) ? roll(100) : roll(100000));
        add(QStringLiteral("type %1 in ").arg(typed) + nameOf(*edit), likingOf(nameOf(*edit), {}), [=] {
            edit->selectAll();
            QTest::keyClicks(edit, typed);
        });
        add(QStringLiteral("Return in ") + nameOf(*edit), likingOf(nameOf(*edit), {}),
            [=] { QTest::keyClick(edit, Qt::Key_Return); });
    }
    for (auto* box : window.findChildren<QComboBox*>()) {
        if (box->window() != &window || !seen(*box)) continue;
        const Qt::Key key = roll(2) ? Qt::Key_Down : Qt::Key_Up;
        add(QStringLiteral("step ") + nameOf(*box), likingOf(nameOf(*box), {}),
            [=] { QTest::keyClick(box, key); });
    }
    for (auto* bar : window.findChildren<QTabBar*>()) {
        if (bar->window() != &window || !seen(*bar) || bar->count() == 0) continue;
        const int tab = roll(bar->count());
        if (!bar->isTabVisible(tab) || !bar->isTabEnabled(tab)) continue;
        add(QStringLiteral("tab ") + bar->tabText(tab), likingOf(nameOf(*bar), bar->tabText(tab)),
            [=] { QTest::mouseClick(bar, Qt::LeftButton, Qt::NoModifier, bar->tabRect(tab).center()); });
    }
}

// Whatever lies at a place, drawings and meters too.
void Walker::addPlaces(QWidget& window) {
    const QPoint at(roll(window.width()), roll(window.height()));
    const int wheel = roll(2) ? 120 : -120;
    const QPointer<QWidget> hit = window.childAt(at);
    for (const QWidget* part = hit; part; part = part->parentWidget())
        if (likingOf(nameOf(*part), {}) == 0 || stays.contains(nameOf(*part))) return;
    if (!hit || !hit->isEnabled()) return;
    const QPoint inside = hit->mapFrom(&window, at);
    const QString place = nameOf(*hit) + QStringLiteral(" at %1, %2").arg(at.x()).arg(at.y());
    add(QStringLiteral("place ") + place, 2,
        [=] { QTest::mouseClick(hit, Qt::LeftButton, Qt::NoModifier, inside); });
    add(QStringLiteral("double click on place ") + place, 1, [=] {
        QTest::mouseClick(hit, Qt::LeftButton, Qt::NoModifier, inside);
        if (hit) QTest::mouseDClick(hit, Qt::LeftButton, Qt::NoModifier, inside);
    });
    add(QStringLiteral("wheel over ") + place, 0.5, [=] {
        QWheelEvent event(inside, hit->mapToGlobal(inside), {}, {0, wheel}, Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(hit, &event);
    });
}

void Walker::addKeys(QWidget& window) {
    QWidget* focus = window.focusWidget();
    if (!focus || !focus->isVisible() || likingOf(nameOf(*focus), {}) == 0) return;
    static constexpr Qt::Key keys[] = {
        Qt::Key_Tab,  Qt::Key_Backtab, Qt::Key_Space, Qt::Key_Return, Qt::Key_Up,  Qt::Key_Down, Qt::Key_Left,
        Qt::Key_Home, Qt::Key_Delete,  Qt::Key_A,     Qt::Key_7,      Qt::Key_F12, Qt::Key_F8,   Qt::Key_F5};
    const Qt::Key key = keys[roll(int(std::size(keys)))];
    add(QStringLiteral("key %1 to ").arg(key) + nameOf(*focus), 1, [=] { QTest::keyClick(focus, key); });
}

void Walker::addLeaving(QWidget& window, bool homeward) {
    if (&window == &m_home) return;
    const double weight = homeward ? 8 : 0.5;
    add(QStringLiteral("close box of ") + nameOf(window), weight, [&window] { window.close(); });
    add(QStringLiteral("Escape in ") + nameOf(window), weight / 2, [&window] {
        QWidget* focus = window.focusWidget();
        QTest::keyClick(focus && focus->isVisible() ? focus : &window, Qt::Key_Escape);
    });
}

void Walker::answerFileDialog(QWidget& dialog) {
    add(QStringLiteral("leave the file dialog"), 1, [&dialog] { QTest::keyClick(&dialog, Qt::Key_Escape); });
    auto* name = dialog.findChild<QLineEdit*>();
    const QString file = QStringLiteral("file%1").arg(roll(4));
    if (!name) return;
    add(QStringLiteral("choose ") + file, 1, [=] {
        name->setText(file);
        QTest::keyClick(name, Qt::Key_Return);
    });
}

// ---- A step ----

void Walker::step(bool homeward) {
    if (advance) advance(chance(50) ? 100 + roll(1900) : roll(60));
    if (m_held) QTest::mouseRelease(std::exchange(m_held, nullptr), Qt::LeftButton);
    const QList<QWidget*> windows = reachable();
    if (windows.isEmpty()) return;
    QWidget& window = *windows[roll(int(windows.size()))];
    ++visits[nameOf(window)];
    m_deeds.clear();
    if (auto* menu = qobject_cast<QMenu*>(&window)) {
        addPopup(*menu);
    } else if (qobject_cast<QFileDialog*>(&window)) {
        answerFileDialog(window);
    } else if (window.inherits("QPrintDialog") || window.inherits("QComboBoxPrivateContainer")) {
        addKeys(window);
        addLeaving(window, true);
    } else {
        addButtons(window, homeward);
        addMenus(window);
        addViews(window);
        addInputs(window);
        addPlaces(window);
        addKeys(window);
        addLeaving(window, homeward);
    }
    double sum = 0;
    for (const Deed& deed : m_deeds) sum += deed.weight;
    if (sum <= 0) return;
    double at = sum * roll(100000) / 100000;
    qsizetype chosen = 0;
    while (chosen + 1 < m_deeds.size() && at >= m_deeds[chosen].weight) at -= m_deeds[chosen++].weight;
    const Deed deed = m_deeds[chosen];
    log += nameOf(window) + QStringLiteral(": ") + deed.what;
    if (log.size() > StepsRemembered) log.removeFirst();
    if (qEnvironmentVariableIsSet("KELVANE_WALK_TRACE")) fprintf(stderr, "%s\n", qPrintable(log.last()));
    deed.act();
}

}  // namespace kelvane::walk
