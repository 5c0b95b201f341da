#include "shell/caption_editor.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QApplication>
#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QStackedWidget>
#include <QTabBar>
#include <QTabWidget>

#include "localisation/language_sections.h"
#include "shell/captions.h"

namespace kelvane {

namespace {

// A lamp that is no choice does not react to a click.
bool reactsAsButton(const QWidget& control) {
    const QVariant clickable = control.property("clickable");
    return qobject_cast<const QAbstractButton*>(&control) && (!clickable.isValid() || clickable.toBool());
}

bool isOffered(const KeyTarget& target) {
    return target.kind == TargetKind::Control || target.kind == TargetKind::MemoLine;
}

bool isRightClick(const QEvent& event) {
    switch (event.type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
        case QEvent::MouseButtonRelease:
            return static_cast<const QMouseEvent&>(event).button() == Qt::RightButton;
        default: return false;
    }
}

}  // namespace

void CaptionEditor::enable(const QList<QWidget*>& windows) {
    if (!EditClickCount.isEmpty()) return;
    for (const FormSectionRow& section : formSections()) {
        const QWidget* window = windowNamed(windows, section.window);
        if (!window) continue;
        for (const KeyGroup& group : {section.Button, section.Label})
            for (const KeyTarget& target : group.targets) {
                const auto* control = window->findChild<QWidget*>(QLatin1String(target.control));
                if (control && isOffered(target) && !control->inherits("QMenu"))
                    EditClickCount.insert(control, 0);
            }
    }
    QApplication::instance()->installEventFilter(this);
}

// Before the control sees it; a control that is switched off would not at all. No menu comes up beside the
// editor, whichever part of the click would open it.
bool CaptionEditor::eventFilter(QObject* watched, QEvent* event) {
    const bool menu = event->type() == QEvent::ContextMenu;
    if (!menu && !isRightClick(*event)) return false;
    auto* widget = qobject_cast<QWidget*>(watched);
    if (!widget) return false;
    const QPoint at = menu ? static_cast<QContextMenuEvent*>(event)->pos()
                           : static_cast<QMouseEvent*>(event)->position().toPoint();
    QWidget* control = controlUnder(*widget, at);
    if (!control) return false;
    if (event->type() == QEvent::MouseButtonRelease) rightClicked(*control);
    return true;
}

// A click on the page of a memo counts for the memo, one on a tab for its page; one that comes up from a
// control inside, or on the ground of a page, for nothing.
QWidget* CaptionEditor::controlUnder(QWidget& widget, const QPoint& at) const {
    if (!widget.rect().contains(at) || widget.childAt(at)) return nullptr;
    QWidget* control = &widget;
    QWidget* around = widget.parentWidget();
    if (qobject_cast<QStackedWidget*>(around)) return nullptr;
    if (const auto* area = qobject_cast<QAbstractScrollArea*>(around); area && area->viewport() == &widget)
        control = around;
    if (const auto* bar = qobject_cast<QTabBar*>(&widget)) {
        const auto* tabs = qobject_cast<QTabWidget*>(around);
        control = tabs && bar->tabAt(at) >= 0 ? tabs->widget(bar->tabAt(at)) : nullptr;
    }
    return control && EditClickCount.contains(control) ? control : nullptr;
}

void CaptionEditor::rightClicked(QWidget& control) {
    // Kept: what reacts to clicks as a button opens the editor at every second one only.
    int& clicks = EditClickCount[&control];
    if (reactsAsButton(control) && ++clicks < 2) return;
    clicks = 0;
    m_ask(captionOf(control), [edited = QPointer(&control)](const QString& text) {
        if (edited) setCaption(*edited, text);
    });
}

}  // namespace kelvane
