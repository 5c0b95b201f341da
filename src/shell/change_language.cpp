#include "shell/change_language.h"

#include <QAction>
#include <QGroupBox>
#include <QLabel>
#include <QMenu>
#include <QTabWidget>
#include <QWidget>

#include "localisation/language_sections.h"
#include "ui/named.h"

namespace kelvane {

namespace {

QWidget* windowNamed(const QList<QWidget*>& windows, const char* name) {
    for (QWidget* window : windows)
        if (window->objectName() == QLatin1String(name)) return window;
    return nullptr;
}

// A page of a tab widget shows its caption on its tab.
bool setTabText(QWidget* page, const QString& text) {
    for (QWidget* above = page->parentWidget(); above; above = above->parentWidget()) {
        auto* tabs = qobject_cast<QTabWidget*>(above);
        if (!tabs || tabs->indexOf(page) < 0) continue;
        tabs->setTabText(tabs->indexOf(page), text);
        return true;
    }
    return false;
}

void setText(QObject* control, const QString& text) {
    if (auto* menu = qobject_cast<QMenu*>(control)) {
        menu->setTitle(text);
    } else if (auto* box = qobject_cast<QGroupBox*>(control)) {
        box->setTitle(text);
    } else if (control->metaObject()->indexOfProperty("text") >= 0) {
        control->setProperty("text", text);
    } else if (auto* page = qobject_cast<QWidget*>(control)) {
        if (!setTabText(page, text)) page->setWindowTitle(text);
    }
}

void setGroupTexts(const QObject& window, const KeyGroup& keys, const TextGroup& texts) {
    for (int number = 1; number <= keys.count() && number <= texts.filled; ++number) {
        const KeyTarget& target = keys.targets[static_cast<size_t>(number - 1)];
        auto* control = window.findChild<QObject*>(QString::fromLatin1(target.control));
        if (control && target.kind == TargetKind::Control)
            setText(control, shownText(target, texts.at(number)));
        if (control && target.kind == TargetKind::MemoLine)
            control->setProperty("plainText", texts.at(number));
    }
}

void setGroupHints(const QObject& window, const KeyGroup& keys, const TextGroup& texts) {
    for (int number = 1; number <= keys.count() && number <= texts.filled; ++number) {
        const KeyTarget& target = keys.targets[static_cast<size_t>(number - 1)];
        if (auto* control = window.findChild<QWidget*>(QString::fromLatin1(target.control)))
            control->setToolTip(plainHint(texts.at(number)));
    }
}

void mirrorMenuItems(const QObject& mainWindow) {
    for (const MirroredMenu& mirror : mirroredMenus()) {
        const auto* button = mainWindow.findChild<QWidget*>(QString::fromLatin1(mirror.button));
        auto* item = mainWindow.findChild<QAction*>(QString::fromLatin1(mirror.menuItem));
        if (button && item) item->setText(button->property("text").toString());
    }
}

void copyLabels(const QList<QWidget*>& windows) {
    const QWidget* mainWindow = windowNamed(windows, "TMainForm");
    for (const CopiedLabel& label : copiedLabels()) {
        const QWidget* window = windowNamed(windows, label.window);
        if (!mainWindow || !window) continue;
        const auto* from = mainWindow->findChild<QWidget*>(QString::fromLatin1(label.control));
        auto* to = window->findChild<QWidget*>(QString::fromLatin1(label.copy));
        if (from && to) setText(to, from->property("text").toString());
    }
}

}  // namespace

void ChangeLanguage(const LangTable& table, const QList<QWidget*>& windows) {
    for (const FormSectionRow& section : formSections()) {
        QWidget* window = windowNamed(windows, section.window);
        if (!window) continue;
        const FormTexts& texts = table.form(section.section);
        const FormTexts& title = table.form(titleSection(section.section));
        if (title.captionFilled) window->setWindowTitle(title.Caption);
        setGroupTexts(*window, section.Button, texts.Button);
        setGroupHints(*window, section.Hint, texts.Hint);
        setGroupTexts(*window, section.Label, texts.Label);
        if (section.section == FormSection::Main && texts.Button.filled > 0) mirrorMenuItems(*window);
    }
    copyLabels(windows);
}

}  // namespace kelvane
