// What holds for every window of the table, in every language: its name and title, a keyboard that gets
// everywhere in the order of the eye, letters that lead to one control, names for a screen reader, and texts
// that have their room. The windows of one tool, on line, are shown one after the other; the program runs at
// 100, 150 and 200 %.
#include <gtest/gtest.h>

#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QSet>
#include <QStyle>
#include <QTest>

#include "bench/decimal_sep.h"
#include "shell/shell_bench.h"
#include "shell/text_room.h"

namespace kelvane {
namespace {

const QString Shipped = QStringLiteral(KELVANE_SOURCE_DIR "/Language file");

class Census : public testing::Test {
   protected:
    static void SetUpTestSuite() {
        bench = std::make_unique<ShellBench>();
        QFile::link(Shipped, bench->dir.filePath("share/kelvane/Language file"));
        bench->goOnLine(Family::Yarrow);
    }
    static void TearDownTestSuite() { bench.reset(); }
    static void speak(quint8 language) {
        ASSERT_TRUE(LoadLanguage(Shipped + '/' + languageFileName(language), bench->language).ok());
        bench->windows->showLanguage();
    }
    // Each window in its turn, with what its first show did done.
    template <class Look>
    static void eachWindow(Look look) {
        for (QWidget* window : bench->windows->all()) {
            const testing::ScopedTrace trace(__FILE__, __LINE__, window->objectName().toStdString());
            window->show();
            for (int layouts = 0; layouts < 2; ++layouts) QApplication::processEvents();
            look(*window);
            if (window != bench->mainForm.get()) window->hide();
        }
    }
    static std::unique_ptr<ShellBench> bench;
};
std::unique_ptr<ShellBench> Census::bench;

std::string lines(const QStringList& list) { return list.join('\n').toStdString(); }

bool takesTab(const QWidget& control, const QWidget& window) {
    return control.focusPolicy() & Qt::TabFocus && control.isVisibleTo(&window) && control.isEnabled() &&
           control.window() == &window && !control.focusProxy();
}

// Of buttons of which one is chosen, Tab reaches one and the arrows the others.
bool sharesItsPlace(const QWidget& control) {
    const auto* button = qobject_cast<const QAbstractButton*>(&control);
    return button && (button->autoExclusive() || button->group());
}

TEST_F(Census, EveryWindowHasItsNameItsTitleAndNamesThatStandOnce) {
    for (const QWidget* window : bench->windows->all()) {
        EXPECT_EQ(window->parentWidget(), nullptr);
        QSet<QString> seen;
        for (const QObject* object : window->findChildren<QObject*>()) {
            const QString name = object->objectName();
            if (name.isEmpty() || name.startsWith("qt_") || name.startsWith("_q_") ||
                name.startsWith("_layout"))
                continue;
            EXPECT_FALSE(seen.contains(name) && object->parent() == window) << name.toStdString();
            seen.insert(name);
        }
    }
}

TEST_F(Census, EveryWindowIsWalkedWholeByTab) {
    eachWindow([](QWidget& window) {
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        QSet<const QWidget*> wanted;
        for (const QWidget* control : window.findChildren<QWidget*>())
            if (takesTab(*control, window) && !sharesItsPlace(*control)) wanted.insert(control);
        QSet<const QWidget*> reached;
        for (int step = 0; step < 400 && !reached.contains(wanted); ++step) {
            QWidget* at = QApplication::focusWidget();
            if (at) reached.insert(at);
            QTest::keyClick(at ? at : &window, Qt::Key_Tab);
        }
        for (const QWidget* control : wanted - reached)
            if (takesTab(*control, window))  // Quick Setup goes on to its last step, which has no next
                ADD_FAILURE() << "not reached: " << nameOf(*control).toStdString();
    });
}

// From one control to its neighbour Tab goes to the right or down; up only into a new column.
TEST_F(Census, TabFollowsTheEye) {
    eachWindow([](QWidget& window) {
        onEveryPage(window, [&] {
            const QWidget* last = nullptr;
            for (const QWidget* at = window.nextInFocusChain(); at != &window; at = at->nextInFocusChain()) {
                if (!takesTab(*at, window) || !at->isVisible()) continue;
                if (last && last->parentWidget() == at->parentWidget()) {
                    const QRect from = last->geometry(), to = at->geometry();
                    const bool sameRow = from.top() < to.bottom() && to.top() < from.bottom();
                    EXPECT_TRUE(sameRow ? to.left() > from.left()
                                        : to.top() > from.top() || to.left() > from.right())
                        << nameOf(*last).toStdString() << " then " << nameOf(*at).toStdString();
                }
                last = at;
            }
        });
    });
}

// A screen reader says what a control is for by its label, its text or its name; for a field it is a label.
TEST_F(Census, EveryControlIsNamedAndEveryFieldHasItsLabel) {
    eachWindow([](QWidget& window) {
        QSet<const QWidget*> labelled;
        for (const QLabel* label : window.findChildren<QLabel*>())
            if (label->buddy()) labelled.insert(label->buddy());
        onEveryPage(window, [&] {
            for (const QWidget* control : window.findChildren<QWidget*>()) {
                if (!takesTab(*control, window) || labelled.contains(control)) continue;
                const bool isPart = control->objectName().startsWith("qt_") || control->inherits("QTabBar") ||
                                    control->inherits("QHeaderView") || control->inherits("QMenuBar") ||
                                    control->inherits("QScrollArea") ||
                                    qobject_cast<QComboBox*>(control->parentWidget());
                const bool named =
                    !control->accessibleName().isEmpty() || !control->property("text").toString().isEmpty() ||
                    !control->property("title").toString().isEmpty() || !control->toolTip().isEmpty();
                EXPECT_TRUE(named || isPart) << nameOf(*control).toStdString();
                const bool isField = control->inherits("QLineEdit") || control->inherits("QAbstractSpinBox");
                EXPECT_TRUE(!isField || isPart) << "no label: " << nameOf(*control).toStdString();
            }
        });
    });
}

class InLanguage : public Census, public testing::WithParamInterface<quint8> {};

// Alt and a letter leads to one control, and a letter in a menu to one item.
void eachLetterLeadsToOne(const QWidget& window) {
    QHash<QString, QHash<QString, QString>> seen;
    const auto take = [&](const QString& place, const QString& text) {
        const QString letter = QKeySequence::mnemonic(text).toString();
        if (letter.isEmpty()) return;
        EXPECT_FALSE(seen[place].contains(letter))
            << place.toStdString() << ": " << text.toStdString() << ", " << seen[place][letter].toStdString();
        seen[place].insert(letter, text);
    };
    for (const QWidget* control : window.findChildren<QWidget*>()) {
        if (const auto* menu = qobject_cast<const QMenu*>(control)) {
            for (const QAction* item : menu->actions())
                if (item->isVisible()) take("menu " + menu->objectName() + menu->title(), item->text());
        } else if (const auto* bar = qobject_cast<const QMenuBar*>(control)) {
            for (const QAction* item : bar->actions()) take("window", item->text());
        } else if (isInSight(*control, window)) {
            const auto* label = qobject_cast<const QLabel*>(control);
            if (label ? label->buddy() != nullptr : control->inherits("QAbstractButton"))
                take("window", control->property("text").toString());
            if (control->inherits("QGroupBox")) take("window", control->property("title").toString());
        }
    }
}

// 1366 x 768 at 150 % and 1920 x 1080 at 200 % leave the smaller one; what is larger could not be reached
// with the mouse.
void fitsASmallScreen(const QWidget& window) {
    const QSize least = window.minimumSizeHint().expandedTo(window.minimumSize());
    EXPECT_LE(least.width(), 910);
    EXPECT_LE(least.height(), 500);
}

TEST_P(InLanguage, TextsHaveTheirRoomAndLettersOneControl) {
    speak(GetParam());
    eachWindow([](QWidget& window) {
        fitsASmallScreen(window);
        onEveryPage(window, [&] {
            const QStringList cut = cutTexts(window);
            EXPECT_TRUE(cut.isEmpty()) << lines(cut);
            eachLetterLeadsToOne(window);
        });
    });
}

// Of a country with a decimal comma.
class OnADarkDesktop : public InLanguage {
   protected:
    static void SetUpTestSuite() {
        QApplication::setPalette(QPalette(QColor(0x2b, 0x2b, 0x2b), QColor(0x23, 0x23, 0x23)));
        InLanguage::SetUpTestSuite();
    }
    static void TearDownTestSuite() {
        InLanguage::TearDownTestSuite();
        QApplication::setPalette(QApplication::style()->standardPalette());
    }
    const UsingDecimalSep comma{","};
};

TEST_P(OnADarkDesktop, TextsHaveTheirRoomAndCanBeRead) {
    speak(GetParam());
    eachWindow([](QWidget& window) {
        onEveryPage(window, [&] {
            const QStringList wrong = cutTexts(window) + paleTexts(window);
            EXPECT_TRUE(wrong.isEmpty()) << lines(wrong);
        });
    });
}

const auto Languages = testing::Values<quint8>(4, 1, 2, 3, 9);
std::string codeOf(const testing::TestParamInfo<quint8>& language) {
    return languageCode(language.param).toStdString();
}
INSTANTIATE_TEST_SUITE_P(Shipped, InLanguage, Languages, codeOf);
INSTANTIATE_TEST_SUITE_P(Shipped, OnADarkDesktop, Languages, codeOf);

}  // namespace
}  // namespace kelvane
