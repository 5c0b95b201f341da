#include "shell/help_windows.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMessageBox>
#include <QShortcut>

#include "diagnostics/trend/scope_form.h"
#include "manual/help_form.h"
#include "shell/session_report_form.h"
#include "shell/windows.h"
#include "ui/trend_plot.h"

namespace kelvane {

namespace {

// Listens to the whole application, as the stop key does: windows, boxes and open lists alike.
class HelpKey : public QObject {
   public:
    HelpKey(Windows& windows, THelpForm& form) : QObject(&form), m_windows(windows), m_form(form) {
        QApplication::instance()->installEventFilter(this);
    }

    void open(QWidget* from) {
        const Tool& tool = m_windows.tool;
        m_form.setLanguage(ManualText::codeOf(tool.site.language.LanguageIndex),
                           tool.site.folder.findData(QStringLiteral("user manual/pictures")));
        // Shown anew it comes over the window in front, and so can be used over one that is modal.
        if (from != &m_form) m_form.hide();
        if (const auto* box = qobject_cast<QMessageBox*>(from))
            m_form.openAtMessage(box->text());
        else if (from != &m_form)
            m_form.openAt(chapterWindow(from));
        m_form.show();
        m_form.raise();
        m_form.activateWindow();
    }

   protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        const bool press = event->type() == QEvent::KeyPress;
        if (!press && event->type() != QEvent::ShortcutOverride) return false;
        const auto& key = static_cast<const QKeyEvent&>(*event);
        if (key.key() != Qt::Key_F1 || key.modifiers() != Qt::NoModifier) return false;
        event->accept();
        const auto* widget = qobject_cast<QWidget*>(watched);
        if (press && !key.isAutoRepeat()) open(widget ? widget->window() : QApplication::activeWindow());
        return true;
    }

   private:
    // A file dialog belongs to the window that asks for the file.
    static QString chapterWindow(QWidget* from) {
        while (from && !windowRow(from->objectName()) && from->parentWidget())
            from = from->parentWidget()->window();
        return from ? from->objectName() : QString();
    }

    Windows& m_windows;
    THelpForm& m_form;
};

}  // namespace

std::unique_ptr<QWidget> makeHelp(Windows&) { return std::make_unique<THelpForm>(); }

void wireHelp(Windows& windows, QWidget& form) {
    auto* key = new HelpKey(windows, static_cast<THelpForm&>(form));
    QObject::connect(&windows.mainForm, &TMainForm::helpWanted, key,
                     [key, &windows] { key->open(&windows.mainForm); });
}

namespace {

// The picture of the last run. Its records go when the trend window closes, so it is taken before that.
class LastRun : public QObject {
   public:
    LastRun(const TrendSession& trend, TScopeForm& scope) : m_trend(trend), m_scope(scope) {
        scope.installEventFilter(this);
    }

    QImage picture() const {
        if (m_trend.AbTrend1.TotalRecords() == 0) return m_kept;
        return m_scope.AbTrend1->grab().toImage();
    }

   protected:
    // A window that is still open when the program ends hides while it goes, and is none of ours any more.
    bool eventFilter(QObject* watched, QEvent* event) override {
        const bool hides = event->type() == QEvent::Hide && !event->spontaneous();
        if (hides && qobject_cast<TScopeForm*>(watched)) m_kept = picture();
        return false;
    }

   private:
    const TrendSession& m_trend;
    TScopeForm& m_scope;
    QImage m_kept;
};

}  // namespace

std::unique_ptr<QWidget> makeSessionReport(Windows& windows) {
    return std::make_unique<TSessionReportForm>(
        windows.tool, [run = std::make_shared<LastRun>(windows.tool.trend, windows.form<TScopeForm>())] {
            return run->picture();
        });
}

// In every window that a person works in: the tables of a session go when their window closes.
void wireSessionReport(Windows& windows, QWidget& form) {
    const auto open = [&windows, &form] { windows.showModal(form); };
    QObject::connect(&windows.mainForm, &TMainForm::reportWanted, &form, open);
    for (const char* name : {"TParameterForm", "TScopeForm"}) {
        QWidget* window = windows.formOf(*windowRow(QLatin1String(name)));
        auto* key = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_R), window);
        QObject::connect(key, &QShortcut::activated, &form, open);
    }
}

}  // namespace kelvane
