#include "shell/change_language.h"

#include <QAction>
#include <QWidget>

#include "localisation/language_sections.h"
#include "shell/captions.h"
#include "ui/named.h"
#include "ui/string_grid_view.h"

namespace kelvane {

namespace {

void setGroupTexts(const QObject& window, const KeyGroup& keys, const TextGroup& texts) {
    for (int number = 1; number <= keys.count() && number <= texts.filled; ++number) {
        const KeyTarget& target = keys.targets[static_cast<size_t>(number - 1)];
        auto* control = window.findChild<QObject*>(QString::fromLatin1(target.control));
        if (control && (target.kind == TargetKind::Control || target.kind == TargetKind::MemoLine))
            setCaption(*control, shownText(target, texts.at(number)));
        if (auto* view = qobject_cast<StringGridView*>(control); view && target.kind == TargetKind::GridRow)
            view->grid()->setCell(0, target.row, texts.at(number));
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
        if (button && item) item->setText(captionOf(*button));
    }
}

void copyLabels(const QList<QWidget*>& windows) {
    const QWidget* mainWindow = windowNamed(windows, "TMainForm");
    for (const CopiedLabel& label : copiedLabels()) {
        const QWidget* window = windowNamed(windows, label.window);
        if (!mainWindow || !window) continue;
        const auto* from = mainWindow->findChild<QWidget*>(QString::fromLatin1(label.control));
        auto* to = window->findChild<QWidget*>(QString::fromLatin1(label.copy));
        if (from && to) setCaption(*to, captionOf(*from));
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
