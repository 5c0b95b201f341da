// The files that were loaded last, newest first, for the menu of the Parameter window. They live in the program's
// ui-state file, behind a small interface.
#pragma once

#include <QStringList>

#include "base/ui_state.h"

namespace kelvane {

class RecentFiles {
   public:
    static constexpr int Kept = 8;

    explicit RecentFiles(UiState& state) : m_state(state) {}
    QStringList list() const;
    void add(const QString& path);  // to the top, once
    void remove(const QString& path);
    void clear();

   private:
    UiState& m_state;
};

}  // namespace kelvane
