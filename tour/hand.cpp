#include "tour/hand.h"

#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>

#include "ui/string_grid_view.h"

namespace kelvane::tour {

namespace {

constexpr int LookEveryMs = 15;

}  // namespace

void Hand::mustReach(const QWidget& target) {
    const QString name = target.window()->objectName() + QLatin1Char('.') + target.objectName();
    if (!target.isVisible()) m_script.fail(QStringLiteral("%1 is not visible").arg(name));
    if (!target.isEnabled()) m_script.fail(QStringLiteral("%1 is not enabled").arg(name));
    const QWidget* front = QApplication::activeModalWidget();
    if (front && front != target.window() && !QApplication::activePopupWidget())
        m_script.fail(QStringLiteral("%1 is behind \"%2\"").arg(name, front->windowTitle()));
}

// The window manager's part, where there is none: the window that a person works in is the active one.
void Hand::mustBeActive(const QWidget& target) {
    mustReach(target);
    if (target.isActiveWindow()) return;
    target.window()->activateWindow();
    waitFor(target.window()->objectName() + QStringLiteral(" to become active"),
            [&] { return target.isActiveWindow(); });
}

// Near the left edge, where buttons, lamps and check marks take a click.
void Hand::click(QWidget& target) {
    mustReach(target);
    const int in = target.height() / 2;
    QTest::mouseClick(&target, Qt::LeftButton, {}, QPoint(std::min(in, target.width() / 2), in));
}

void Hand::choose(QWidget& window, const QStringList& menus, const char* item, const QString& picture) {
    QMenuBar* bar = static_cast<QMainWindow&>(window).menuBar();
    mustReach(*bar);
    QWidget* from = bar;
    QRect place = bar->actionGeometry(find<QMenu>(window, qPrintable(menus.front())).menuAction());
    QMenu* menu = nullptr;
    for (const QString& name : menus) {
        if (menu) place = menu->actionGeometry(find<QMenu>(window, qPrintable(name)).menuAction());
        QTest::mouseMove(from, place.center());
        QTest::mouseClick(from, Qt::LeftButton, {}, place.center());
        menu = &find<QMenu>(window, qPrintable(name));
        waitForWindow(*menu, true);
        from = menu;
    }
    auto& action = find<QAction>(window, item);
    if (!picture.isEmpty()) m_script.keepPicture(window, picture);
    if (!action.isEnabled())
        m_script.fail(QStringLiteral("the menu item %1 is not enabled").arg(action.text()));
    place = menu->actionGeometry(&action);
    QTest::mouseMove(menu, place.center());
    QTest::mouseClick(menu, Qt::LeftButton, {}, place.center());
}

void Hand::chooseText(QWidget& window, const char* comboBox, const QString& text) {
    auto& box = find<QComboBox>(window, comboBox);
    mustReach(box);
    const int wanted = box.findText(text);
    if (wanted < 0) m_script.fail(QStringLiteral("%1 does not offer %2").arg(box.objectName(), text));
    box.setFocus();
    for (int i = 0; i < box.count() && box.currentIndex() != wanted; ++i)
        QTest::keyClick(&box, box.currentIndex() < wanted ? Qt::Key_Down : Qt::Key_Up);
    if (box.currentText() != text)
        m_script.fail(QStringLiteral("%1 did not take %2").arg(box.objectName(), text));
}

void Hand::clickItem(QTreeWidgetItem& item) {
    QTreeWidget& tree = *item.treeWidget();
    mustReach(tree);
    tree.scrollToItem(&item);
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, tree.visualItemRect(&item).center());
}

void Hand::doubleClickCell(StringGridView& view, int column, int row) {
    mustReach(view);
    view.setCurrentCell(column, row);
    const QPoint place = view.visualRect(view.currentIndex()).center();
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, place);
}

void Hand::keys(QWidget& target, const QString& text) {
    mustBeActive(target);
    QTest::keyClicks(&target, text);
}

void Hand::key(QWidget& target, Qt::Key key, Qt::KeyboardModifiers modifiers) {
    mustBeActive(target);
    QTest::keyClick(&target, key, modifiers);
}

void Hand::waitFor(const QString& what, const std::function<bool()>& done, int ms) {
    if (done()) return;
    QElapsedTimer waited;
    waited.start();
    QEventLoop loop;
    QTimer timer;
    timer.callOnTimeout(&loop, [&] {
        if (done() || waited.elapsed() > ms) loop.quit();
    });
    timer.start(LookEveryMs);
    loop.exec();
    if (!done()) m_script.fail(QStringLiteral("waited %1 s for: %2").arg(ms / 1000).arg(what));
}

void Hand::waitForWindow(const QWidget& window, bool shown, int ms) {
    const QString object = window.objectName();
    const QString name = (object.isEmpty() ? QString::fromLatin1(window.metaObject()->className()) : object) +
                         (shown ? QStringLiteral(" to open") : QStringLiteral(" to close"));
    waitFor(
        name, [&window, shown] { return window.isVisible() == shown; }, ms);
}

void Hand::waitForAnswers(int ms) {
    waitFor(
        m_answers.allCame() ? QString() : m_answers.missing(), [this] { return m_answers.allCame(); }, ms);
    pause(LookEveryMs);  // no hand is faster than what a window still does behind its box
}

void Hand::pause(int ms) {
    QElapsedTimer waited;
    waited.start();
    waitFor(
        QStringLiteral("a pause"), [&] { return waited.elapsed() >= ms; }, ms + 1000);
}

}  // namespace kelvane::tour
