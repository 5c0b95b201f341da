#include "base/save_file.h"

namespace kelvane {

std::optional<QString> askToSave(Operator& person, const QString& filter, const QByteArray& bytes) {
    person.overwriteTitle = QStringLiteral("MessageBox");
    std::optional<QString> path = person.saveFile(filter, {});
    if (!path) return {};
    const FileResult written = writeWhole(*path, bytes);
    if (written.ok) return path;
    person.tell(written.error, QStringLiteral("Error"), BoxIcon::Stop);
    return {};
}

}  // namespace kelvane
