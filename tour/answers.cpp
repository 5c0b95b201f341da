#include "tour/answers.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QTest>
#include <QWindow>

namespace kelvane::tour {

namespace {

constexpr int LookEveryMs = 20;

bool waitsForAnswer(const QWidget& window) {
    return qobject_cast<const QMessageBox*>(&window) || qobject_cast<const QFileDialog*>(&window) ||
           window.objectName() == QLatin1String("TInputValueForm") ||
           window.objectName() == QLatin1String("TMessageForm");
}

// A window system lays a window out some time after it was asked to show it; clicks before that miss.
bool onScreen(const QWidget& window) {
    return window.isVisible() && window.windowHandle() && window.windowHandle()->isExposed();
}

QString described(const QWidget& window) {
    QString text = window.objectName();
    if (auto* box = qobject_cast<const QMessageBox*>(&window)) text = QStringLiteral("box: ") + box->text();
    if (qobject_cast<const QFileDialog*>(&window)) text = QStringLiteral("file dialog");
    return QStringLiteral("\"%1\" (%2)").arg(window.windowTitle(), text);
}

}  // namespace

Answers::Answers(Script& script) : m_script(script) {
    m_timer.callOnTimeout(this, &Answers::look);
    m_timer.start(LookEveryMs);
}

void Answers::expectBox(const QString& text, QMessageBox::StandardButton button, const QString& picture) {
    m_expected.push_back(
        {QStringLiteral("box \"%1\"").arg(text), picture,
         [text](QWidget& window) {
             auto* box = qobject_cast<QMessageBox*>(&window);
             return box && box->text().contains(text);
         },
         [this, button](QWidget& window) { press(static_cast<QMessageBox&>(window), button); }});
}

void Answers::expectFile(const QString& path, const QString& picture) {
    m_expected.push_back(
        {QStringLiteral("file dialog for %1").arg(path), picture,
         [](QWidget& window) { return qobject_cast<QFileDialog*>(&window) != nullptr; },
         [this, path](QWidget& window) { typePath(static_cast<QFileDialog&>(window), path); }});
}

void Answers::expectWindow(const QString& objectName, const std::function<void(QWidget&)>& hand) {
    m_expected.push_back({QStringLiteral("window %1").arg(objectName),
                          {},
                          [objectName](QWidget& window) { return window.objectName() == objectName; },
                          hand});
}

QString Answers::missing() const {
    return m_expected.empty() ? QStringLiteral("an answer that did not end") : m_expected.front().what;
}

void Answers::look() {
    m_seen.removeIf([](const QPointer<QWidget>& seen) { return !seen || !seen->isVisible(); });
    QWidget* window = QApplication::activeModalWidget();
    if (!window || !onScreen(*window) || m_seen.contains(window) || !waitsForAnswer(*window)) return;
    m_seen.append(window);
    // Not from within the timer's own call: an answer may open the next box, and the timer has to see that.
    QMetaObject::invokeMethod(
        this,
        [this, shown = QPointer<QWidget>(window)] {
            if (shown) answer(shown);
        },
        Qt::QueuedConnection);
}

void Answers::answer(QWidget* window) {
    if (m_expected.empty() || !m_expected.front().isIt(*window))
        m_script.fail(QStringLiteral("nobody expected %1").arg(described(*window)));
    const Expected expected = m_expected.front();
    m_expected.pop_front();
    ++m_answering;
    if (!expected.picture.isEmpty()) m_script.keepPicture(*window, expected.picture);
    const QPointer<QWidget> guard(window);
    expected.answer(*window);
    --m_answering;
    if (guard && !guard->isVisible()) m_seen.removeAll(guard);
}

void Answers::press(QMessageBox& box, QMessageBox::StandardButton button) {
    QAbstractButton* found = box.button(button);
    if (!found) m_script.fail(QStringLiteral("the wanted button is not in %1").arg(described(box)));
    QTest::mouseClick(found, Qt::LeftButton);
}

void Answers::typePath(QFileDialog& dialog, const QString& path) {
    auto* edit = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    auto* buttons = dialog.findChild<QDialogButtonBox*>();
    if (!edit || !buttons) m_script.fail(QStringLiteral("a file dialog without a line for the name"));
    edit->selectAll();
    edit->insert(path);
    for (QAbstractButton* button : buttons->buttons())
        if (buttons->buttonRole(button) == QDialogButtonBox::AcceptRole) {
            QTest::mouseClick(button, Qt::LeftButton);
            return;
        }
    m_script.fail(QStringLiteral("a file dialog without a button to accept"));
}

}  // namespace kelvane::tour
