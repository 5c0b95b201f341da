// A person at the screen who does anything: at each step a window that can be reached now, and in it a
// control that is seen and enabled, or a key, or the close box. Works with mouse and keys, so a control
// behind another or in a window behind a modal one is out of reach, as it is for everybody. The same seed
// walks the same way.
#pragma once

#include <QMap>
#include <QObject>
#include <QPointer>
#include <QStringList>
#include <functional>
#include <random>

class QAction;
class QAbstractItemView;
class QComboBox;
class QLineEdit;
class QMenu;
class QTabBar;

namespace kelvane::walk {

class Walker : public QObject {
   public:
    Walker(QWidget& home, uint32_t seed) : m_home(home), m_random(seed) {}

    // What a person likes better or less than the rest, by object name or caption; 1 is usual, 0 never.
    QMap<QString, double> likes;
    QStringList stays;  // controls of the home window that are left alone
    // Time goes on by this much before each step.
    std::function<void(int ms)> advance;
    QStringList log;            // the last steps
    QMap<QString, int> visits;  // by window

    // One step; homeward a person looks for ways out first.
    void step(bool homeward);
    // The home window is in front and can be used.
    bool isHome() const;
    // What is on the screen, in words.
    QString screen() const;
    int roll(int sides) { return int(m_random() % uint32_t(sides)); }
    bool chance(double percent) { return roll(100000) < int(percent * 1000); }

   private:
    struct Deed {
        QString what;
        double weight;
        std::function<void()> act;
    };
    QList<QWidget*> reachable() const;
    void addButtons(QWidget& window, bool homeward);
    void addMenus(QWidget& window);
    void addViews(QWidget& window);
    void addInputs(QWidget& window);
    void addPlaces(QWidget& window);
    void addKeys(QWidget& window);
    void addLeaving(QWidget& window, bool homeward);
    void addPopup(QMenu& menu);
    void answerFileDialog(QWidget& dialog);
    void add(const QString& what, double weight, std::function<void()> act);
    double likingOf(const QString& name, const QString& caption) const;
    bool seen(const QWidget& widget) const;

    QWidget& m_home;
    std::mt19937 m_random;
    QList<Deed> m_deeds;
    QPointer<QWidget> m_held;  // by the mouse, until the next step
};

}  // namespace kelvane::walk
