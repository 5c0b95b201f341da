// The files that were loaded last, newest first, for the menu of the Parameter window. They live in the
// program's ui-state file, behind a small interface.
#pragma once

#include <QStringList>

#include "base/kept_looks.h"

namespace kelvane {

class RecentFiles {
   public:
    static constexpr int Kept = 8;

    explicit RecentFiles(KeptLooks& looks) : m_looks(looks) {}
    QStringList list() const;
    void add(const QString& path);  // to the top, once
    void remove(const QString& path);
    void clear();

   private:
    KeptLooks& m_looks;
};

}  // namespace kelvane
