#include "base/recent_files.h"

namespace kelvane {

QStringList RecentFiles::list() const { return m_looks.list(m_key).mid(0, Kept); }

void RecentFiles::add(const QString& path) {
    QStringList files = list();
    files.removeAll(path);
    files.prepend(path);
    m_looks.setList(m_key, files.mid(0, Kept));
}

void RecentFiles::remove(const QString& path) {
    QStringList files = list();
    if (files.removeAll(path) > 0) m_looks.setList(m_key, files);
}

void RecentFiles::clear() { m_looks.setList(m_key, {}); }

}  // namespace kelvane
