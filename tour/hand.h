// The hand of the tour: finds controls by their object names and works them with mouse and keys. Like a
// person's it reaches only what is visible, enabled and not behind another window; anything else fails the
// step.
#pragma once

#include <QMessageBox>
#include <functional>

#include "tour/answers.h"
#include "tour/script.h"

class QAction;
class QTreeWidgetItem;

namespace kelvane {
class StringGridView;
}

namespace kelvane::tour {

class Hand {
   public:
    Hand(Script& script, Answers& answers) : m_script(script), m_answers(answers) {}

    template <class T>
    T& find(const QWidget& window, const char* name) {
        T* found = window.findChild<T*>(QString::fromLatin1(name));
        if (!found)
            m_script.fail(QStringLiteral("%1 has no %2").arg(window.objectName(), QLatin1String(name)));
        return *found;
    }
    QString text(const QWidget& window, const char* name) {
        return find<QWidget>(window, name).property("text").toString();
    }

    void click(QWidget& target);
    void click(const QWidget& window, const char* name) { click(find<QWidget>(window, name)); }
    // Menus from the menu bar on, then the item; picture is kept while they are open.
    void choose(QWidget& window, const QStringList& menus, const char* item, const QString& picture = {});
    // With the arrow keys.
    void chooseText(QWidget& window, const char* comboBox, const QString& text);
    void clickItem(QTreeWidgetItem& item);
    void doubleClickCell(StringGridView& view, int column, int row);
    void keys(QWidget& target, const QString& text);
    void key(QWidget& target, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

    void waitFor(const QString& what, const std::function<bool()>& done, int ms = 10000);
    void waitForWindow(const QWidget& window, bool shown, int ms = 10000);
    // Until every expected box was answered.
    void waitForAnswers(int ms = 10000);
    void pause(int ms);

   private:
    void mustReach(const QWidget& target);
    void mustBeActive(const QWidget& target);
    Script& m_script;
    Answers& m_answers;
};

}  // namespace kelvane::tour
