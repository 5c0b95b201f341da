#include "parameters/files/recent_files.h"

namespace kelvane {

namespace {

const auto Key = QStringLiteral("parameters/recentFiles");

}  // namespace

QStringList RecentFiles::list() const { return m_looks.list(Key).mid(0, Kept); }

void RecentFiles::add(const QString& path) {
    QStringList files = list();
    files.removeAll(path);
    files.prepend(path);
    m_looks.setList(Key, files.mid(0, Kept));
}

void RecentFiles::remove(const QString& path) {
    QStringList files = list();
    if (files.removeAll(path) > 0) m_looks.setList(Key, files);
}

void RecentFiles::clear() { m_looks.setList(Key, {}); }

}  // namespace kelvane
