// The files that were loaded last, newest first, for the menu of a window. They live in the program's
// ui-state file, behind a small interface, under a key of the window.
#pragma once

#include <QStringList>

#include "base/kept_looks.h"

namespace kelvane {

class RecentFiles {
   public:
    static constexpr int Kept = 8;

    RecentFiles(KeptLooks& looks, QString key) : m_looks(looks), m_key(std::move(key)) {}
    QStringList list() const;
    void add(const QString& path);  // to the top, once
    void remove(const QString& path);
    void clear();

   private:
    KeptLooks& m_looks;
    QString m_key;
};

}  // namespace kelvane
