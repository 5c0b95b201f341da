#include "shell/captions.h"

#include <QTextDocumentFragment>
#include <QWidget>

#include "commissioning/tune_texts.h"
#include "ui/string_grid_view.h"

namespace kelvane {

namespace {

// The property that holds the caption; null: the control has none.
const char* captionProperty(const QObject& control) {
    if (control.inherits("QMenu") || control.inherits("QGroupBox")) return "title";
    if (control.inherits("QPlainTextEdit")) return "plainText";
    return control.metaObject()->indexOfProperty("text") >= 0 ? "text" : nullptr;
}

template <class T>
T* controlOf(const QList<QWidget*>& windows, const FormSectionRow& form, const KeyTarget& target) {
    const QWidget* window = windowNamed(windows, form.window);
    return window ? window->findChild<T*>(QLatin1String(target.control)) : nullptr;
}

}  // namespace

QWidget* windowNamed(const QList<QWidget*>& windows, const char* name) {
    for (QWidget* window : windows)
        if (window->objectName() == QLatin1String(name)) return window;
    return nullptr;
}

QString captionOf(const QObject& control) {
    const char* property = captionProperty(control);
    return property ? control.property(property).toString() : QString();
}

void setCaption(QObject& control, const QString& text) {
    if (const char* property = captionProperty(control)) control.setProperty(property, text);
}

QString WindowTexts::caption(const FormSectionRow& form) const {
    const QWidget* window = windowNamed(m_windows, form.window);
    return window ? window->windowTitle() : QString();
}

QString WindowTexts::text(const FormSectionRow& form, const KeyTarget& target) const {
    if (target.kind == TargetKind::TuneText) return tuneText(m_table, target.row);
    if (target.kind == TargetKind::GridRow) {
        const auto* view = controlOf<StringGridView>(m_windows, form, target);
        return view ? view->grid()->cell(0, target.row) : QString();
    }
    const auto* control = controlOf<QObject>(m_windows, form, target);
    return control ? captionOf(*control) : QString();
}

QString WindowTexts::hint(const FormSectionRow& form, const KeyTarget& target) const {
    const auto* control = controlOf<QWidget>(m_windows, form, target);
    if (!control) return {};
    const QString hint = control->toolTip();
    return Qt::mightBeRichText(hint) ? QTextDocumentFragment::fromHtml(hint).toPlainText() : hint;
}

}  // namespace kelvane
