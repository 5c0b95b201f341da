#include "shell/shell_operator.h"

#include <QAbstractButton>
#include <QApplication>
#include <QEventLoop>
#include <QFileInfo>
#include <QGridLayout>
#include <QHeaderView>
#include <QTableWidget>
#include <algorithm>
#include <utility>

#include "shell/message_form.h"
#include "ui/file_kinds.h"
#include "ui/in_language.h"
#include "ui/named.h"
#include "ui/title_width.h"

namespace kelvane {

namespace {

constexpr int WidestPanel = 940;
constexpr int WidestPanelColumn = 44;  // characters
constexpr int LinePadding = 6;
constexpr int ScrollBarWidth = 30;
constexpr int MostPanelLines = 12;  // before it scrolls

QWidget* windowInFront() {
    if (QWidget* modal = QApplication::activeModalWidget()) return modal;
    return QApplication::activeWindow();
}

// Not every window manager gives the keyboard back to the window that asked.
void goBackTo(QWidget* window) {
    if (window && window->isVisible()) window->activateWindow();
}

// A box takes its width from its text and would cut a longer title.
void makeRoomForTitle(QMessageBox& message) {
    auto* grid = qobject_cast<QGridLayout*>(message.layout());
    if (!grid) return;
    grid->addItem(new QSpacerItem(titleWidth(message), 0), grid->rowCount(), 0, 1, grid->columnCount());
}

QMessageBox::Icon iconOf(BoxIcon icon) {
    switch (icon) {
        case BoxIcon::None: return QMessageBox::NoIcon;
        case BoxIcon::Information: return QMessageBox::Information;
        case BoxIcon::Question: return QMessageBox::Question;
        case BoxIcon::Exclamation: return QMessageBox::Warning;
        case BoxIcon::Stop: return QMessageBox::Critical;
    }
    return QMessageBox::NoIcon;
}

QMessageBox::StandardButtons buttonsOf(BoxButtons buttons) {
    switch (buttons) {
        case BoxButtons::Ok: return QMessageBox::Ok;
        case BoxButtons::OkCancel: return QMessageBox::Ok | QMessageBox::Cancel;
        case BoxButtons::YesNo: return QMessageBox::Yes | QMessageBox::No;
        case BoxButtons::YesNoOrLeave: return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
        case BoxButtons::RetryCancel: return QMessageBox::Retry | QMessageBox::Cancel;
    }
    return QMessageBox::Ok;
}

// A closed box counts as its harmless answer.
BoxAnswer answerOf(int pressed, BoxButtons buttons) {
    switch (pressed) {
        case QMessageBox::Ok: return BoxAnswer::Ok;
        case QMessageBox::Yes: return BoxAnswer::Yes;
        case QMessageBox::No: return BoxAnswer::No;
        case QMessageBox::Retry: return BoxAnswer::Retry;
        default: break;
    }
    if (buttons == BoxButtons::Ok) return BoxAnswer::Ok;
    return buttons == BoxButtons::YesNo ? BoxAnswer::No : BoxAnswer::Cancel;
}

QWidget* makePanel(const BoxPanel& panel) {
    const auto lines = static_cast<int>(panel.rows.size());
    if (lines < 1) return plainLabel("PanelLabel", panel.withoutRows);
    const auto columns = static_cast<int>(panel.header.size());
    auto* table = named<QTableWidget>("PanelTableWidget", lines, columns);
    table->setHorizontalHeaderLabels(panel.header);
    table->verticalHeader()->hide();
    table->verticalHeader()->setDefaultSectionSize(table->fontMetrics().height() + LinePadding);
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setTabKeyNavigation(false);
    table->setWordWrap(false);
    for (int line = 0; line < lines; ++line)
        for (int c = 0; c < columns; ++c) {
            auto* item = new QTableWidgetItem(panel.rows[line].value(c));
            item->setToolTip(item->text());
            table->setItem(line, c, item);
        }
    table->resizeColumnsToContents();
    const int widest = WidestPanelColumn * table->fontMetrics().averageCharWidth();
    for (int c = 0; c < columns; ++c) table->setColumnWidth(c, std::min(table->columnWidth(c), widest));
    table->horizontalHeader()->setStretchLastSection(true);
    const int height = table->verticalHeader()->defaultSectionSize() * (std::min(lines, MostPanelLines) + 2);
    table->setMinimumSize(std::min(table->horizontalHeader()->length() + ScrollBarWidth, WidestPanel),
                          height);
    return table;
}

// Above the buttons, which stand in the last row.
void addPanel(QMessageBox& message, const BoxPanel& panel) {
    auto* grid = qobject_cast<QGridLayout*>(message.layout());
    if (!grid) return;
    const int last = grid->rowCount() - 1;
    QLayoutItem* foot = grid->itemAtPosition(last, 0);
    QWidget* buttonBox = foot ? foot->widget() : nullptr;
    if (buttonBox) grid->removeWidget(buttonBox);
    grid->addWidget(makePanel(panel), last, 0, 1, grid->columnCount());
    if (buttonBox) grid->addWidget(buttonBox, last + 1, 0, 1, grid->columnCount());
}

}  // namespace

// What a person can do about a failure of the line, beside the box's own text.
QString ShellOperator::adviceFor(const QString& text) const {
    if (text == m_lang.MsgStr(Message::NoComPort))
        return QCoreApplication::translate("kelvane::ShellOperator", "The history says why, and what helps.");
    const bool silent = text == m_lang.MsgStr(Message::ComTimeout) ||
                        text == m_lang.MsgStr(Message::NoDriveDetected) ||
                        text == QLatin1String("Initial drive failed !!");
    if (!silent) return {};
    return QCoreApplication::translate(
        "kelvane::ShellOperator",
        "Look at the cable, at the power of the drive and at mode, baud rate and "
        "protocol in Com Setup, or let Auto-Detect find them.");
}

QStringList nameFilters(const QString& filter) {
    const QStringList parts = filter.split(QLatin1Char('|'));
    QStringList names;
    for (qsizetype i = 0; i < parts.size(); i += 2) {
        // A dialog takes its pattern from the brackets.
        const bool bracketed = parts[i].contains(QLatin1Char('('));
        names +=
            bracketed ? parts[i] : parts[i] % QStringLiteral(" (") % parts.value(i + 1) % QLatin1Char(')');
    }
    return names;
}

QString withSuffix(const QString& name, const QString& suffix) {
    if (suffix.isEmpty() || suffix.startsWith(QLatin1Char('.'))) return name % suffix;
    return QFileInfo(name).suffix().isEmpty() ? name % QLatin1Char('.') % suffix : name;
}

BoxAnswer ShellOperator::box(const QString& text, const QString& title, BoxIcon icon, BoxButtons buttons) {
    QMessageBox message(iconOf(icon), title, text, buttonsOf(buttons), windowInFront());
    return ask(message, buttons);
}

BoxAnswer ShellOperator::boxOverPanel(const QString& text, const QString& title, BoxIcon icon,
                                      BoxButtons buttons, const BoxPanel& panel) {
    QMessageBox message(iconOf(icon), title, text, buttonsOf(buttons), windowInFront());
    if (panel.doubtful && message.button(QMessageBox::No)) message.setDefaultButton(QMessageBox::No);
    return ask(message, buttons, &panel);
}

BoxAnswer ShellOperator::ask(QMessageBox& message, BoxButtons buttons, const BoxPanel* panel) const {
    message.setTextFormat(Qt::PlainText);
    message.setInformativeText(adviceFor(message.text()));  // lays the box out anew
    message.setText(inLanguage(message.text()));
    if (panel) addPanel(message, *panel);
    makeRoomForTitle(message);
    message.setTextInteractionFlags(Qt::TextSelectableByMouse);
    if (buttons == BoxButtons::YesNo) message.setEscapeButton(QMessageBox::No);
    // A warning before something moves: Enter alone does not say OK.
    if (buttons == BoxButtons::OkCancel && message.icon() == QMessageBox::Warning)
        message.setDefaultButton(QMessageBox::Cancel);
    if (buttons == BoxButtons::YesNoOrLeave) {
        message.setEscapeButton(QMessageBox::Cancel);
        message.button(QMessageBox::Cancel)->hide();
    }
    message.exec();
    goBackTo(message.parentWidget());
    const QMessageBox::StandardButton pressed = message.standardButton(message.clickedButton());
    return answerOf(pressed, buttons);
}

void ShellOperator::keepKind(const QString& path) {
    const QString suffix = QFileInfo(path).suffix().toLower();
    if (suffix.isEmpty()) return;
    m_lastKinds.removeAll(suffix);
    m_lastKinds.prepend(suffix);
}

// Who has just saved a table looks for a file of the same kind.
QString ShellOperator::kindToBeginWith(const QStringList& nameFilters) const {
    for (const QString& suffix : m_lastKinds)
        for (const QString& kind : nameFilters)
            if (kind.contains(QStringLiteral("*.") % suffix, Qt::CaseInsensitive)) return kind;
    return nameFilters.value(0);
}

std::optional<ShellOperator::ChosenFile> ShellOperator::askFile(QFileDialog::AcceptMode mode,
                                                                const QString& filter) {
    QFileDialog dialog(windowInFront());
    dialog.setAcceptMode(mode);
    dialog.setFileMode(mode == QFileDialog::AcceptOpen ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    dialog.setNameFilters(nameFilters(filter));
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    dialog.setIconProvider(&fileKinds());
    if (!lastFolder.isEmpty()) dialog.setDirectory(lastFolder);
    if (const QString name = std::exchange(suggestedName, {}); !name.isEmpty()) dialog.selectFile(name);
    if (mode == QFileDialog::AcceptOpen) dialog.selectNameFilter(kindToBeginWith(dialog.nameFilters()));
    dialog.exec();
    goBackTo(dialog.parentWidget());
    if (dialog.result() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
    lastFolder = dialog.directory().absolutePath();
    return ChosenFile{dialog.selectedFiles().first(),
                      dialog.nameFilters().indexOf(dialog.selectedNameFilter())};
}

std::optional<QString> ShellOperator::openFile(const QString& filter) {
    const std::optional<ChosenFile> chosen = askFile(QFileDialog::AcceptOpen, filter);
    if (chosen) keepKind(chosen->path);
    return chosen ? std::optional(chosen->path) : std::nullopt;
}

std::optional<QString> ShellOperator::saveFile(const QString& filter, const QString& suffix) {
    const QString title = std::exchange(overwriteTitle, {});
    for (;;) {
        const std::optional<ChosenFile> chosen = askFile(QFileDialog::AcceptSave, filter);
        if (!chosen) return {};
        const QStringList suffixes = suffix.split(QLatin1Char('|'));
        const QString path = withSuffix(chosen->path, suffixes.value(chosen->filter, suffixes.first()));
        keepKind(path);
        if (!QFileInfo::exists(path)) return path;
        if (yes(m_lang.MsgStr(Message::OverwriteFile), title.isEmpty() ? QStringLiteral("Cofirm") : title,
                BoxIcon::Exclamation))
            return path;
    }
}

LinkAnswer ShellOperator::linkFailure(const QString& ErrNameVrLabel, bool ignoreShown) {
    if (!messageForm) return LinkAnswer::Abort;
    LinkAnswer answer = LinkAnswer::Abort;
    QEventLoop loop;
    QObject::connect(messageForm, &TMessageForm::answered, &loop, [&](LinkAnswer pressed) {
        answer = pressed;
        loop.quit();
    });
    messageForm->ask(ErrNameVrLabel, ignoreShown);
    loop.exec();
    return answer;
}

void ShellOperator::editValue(ValueEdit& edit) {
    if (prepareValueEditor) prepareValueEditor(edit)->exec();
}

}  // namespace kelvane
