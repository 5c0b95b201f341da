// The find bar over a table (Ctrl+F): looks for a text in the columns that it is handed, lights all hits in
// the shown grid and jumps from one to the next. It hides no rows. A window owns one and hands it the grid in
// front.
#pragma once

#include <QPointer>
#include <QWidget>
#include <vector>

#include "ui/string_grid_view.h"

class QAction;
class QLabel;
class QLineEdit;
class QToolButton;

namespace kelvane {

class FindBar : public QWidget {
    Q_OBJECT
   public:
    explicit FindBar(QWidget* parent = nullptr);  // starts hidden

    // The view to search, its grid already set; nullptr for none. The search follows what changes in the
    // grid. The actions are added to every view handed in, so the shortcuts work from there.
    void setView(StringGridView* view);
    void setColumns(const std::vector<int>& columns);

    // Actions with their shortcuts (Ctrl+F, F3, Shift+F3) for the window's menu; the bar itself owns them.
    QAction* findAction() const { return m_findAction; }
    QAction* nextAction() const { return m_nextAction; }
    QAction* previousAction() const { return m_previousAction; }

    void openBar();   // shows the bar, its text selected, and searches
    void closeBar();  // hides it, puts the lights out and gives the focus back to the grid
    void findNext();
    void findPrevious();
    int hitCount() const { return static_cast<int>(m_hits.size()); }
    int currentHit() const { return m_current; }  // from 0; -1 when there is none

   protected:
    void keyPressEvent(QKeyEvent* event) override;

   private:
    void build();
    void nameControls();
    void watch(StringGridView* view);
    void searchLater();
    void search();
    void jumpTo(int hit);
    void step(int direction);
    void showState();

    QPointer<StringGridView> m_view;
    std::vector<int> m_columns;
    std::vector<GridCell> m_hits;
    int m_current = -1;
    bool m_searchPending = false;
    QLineEdit* m_edit;
    QLabel* m_count;
    QToolButton* m_previous;
    QToolButton* m_next;
    QToolButton* m_close;
    QAction* m_findAction;
    QAction* m_nextAction;
    QAction* m_previousAction;
};

// All cells of the given columns that contain the text (case does not matter), row by row; hidden rows and
// columns and the header are left out. An empty text has no hits.
std::vector<GridCell> findHits(const StringGrid& grid, const std::vector<int>& columns, const QString& text);

}  // namespace kelvane
