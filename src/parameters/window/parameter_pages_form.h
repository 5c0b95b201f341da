// The middle of the Parameter window: PageControl1 with the tables from drive and from file, each with its
// identity and its "All" and "Sub" sheets, and the comparison. It mirrors the session's screen and tells what
// the person chose.
#pragma once

#include <QStackedWidget>
#include <QTabWidget>

#include "parameters/parameter_session.h"
#include "ui/string_grid_view.h"

class QGridLayout;
class QVBoxLayout;

namespace kelvane {

class AbLED;
class PathLabel;
class VrLabel;

// A page of a tab control; its text is the caption of the tab, shown as it stands.
class TabSheet : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QString text READ text WRITE setText)
    Q_PROPERTY(bool highlighted READ highlighted)
   public:
    TabSheet(QTabWidget* pages, const char* name, const QString& text);

    QString text() const { return m_text; }
    void setText(const QString& text);
    bool tabVisible() const { return m_pages->isTabVisible(m_pages->indexOf(this)); }
    void setTabVisible(bool visible);
    bool highlighted() const { return m_highlighted; }
    void setHighlighted(bool highlighted);

   private:
    QTabWidget* m_pages;
    QString m_text;
    bool m_highlighted = false;
};

// Pages that only the tree changes: no key turns them.
class TreePages : public QTabWidget {
    Q_OBJECT
   public:
    using QTabWidget::QTabWidget;

   protected:
    void keyPressEvent(QKeyEvent* event) override;
};

// Pages that the usual keys turn, over the hidden ones.
class ShownPages : public QTabWidget {
    Q_OBJECT
   public:
    using QTabWidget::QTabWidget;

   protected:
    void keyPressEvent(QKeyEvent* event) override;
};

// DriveTabSheet or FileTabSheet.
class TableSheet : public TabSheet {
    Q_OBJECT
   public:
    TableSheet(QTabWidget* pages, TableSide side, StringGrid& all, StringGrid& sub);

    VrLabel* ModelVrLabel;  // on the file's page ModelFVrLabel and so on
    VrLabel* VersionVrLabel;
    VrLabel* HPVrLabel;
    VrLabel* RatedVoltageVrLabel;
    VrLabel* RatedCurrentVrLabel;
    PathLabel* FileNameLabel = nullptr;  // file only
    AbLED* RparaAbLED = nullptr;         // drive only
    StringGridView* allGrid;
    StringGridView* subGrid;

    void showSub(bool sub);
    bool subShown() const { return m_sheets->currentIndex() == 1; }

   private:
    void buildIdentity(QVBoxLayout* column);
    VrLabel* addLabel(QGridLayout* header, int row, int column, const char* name, const QString& caption);
    StringGridView* addSheet(const char* sheetName, const QString& caption, const char* gridName,
                             StringGrid& grid);
    TableSide m_side;
    TreePages* m_sheets;
};

class CompareSheet : public TabSheet {
    Q_OBJECT
   public:
    CompareSheet(QTabWidget* pages, ComparisonSheet& comparison);

    VrLabel* CompKindLabel;
    StringGridView* CompInfoAdvStringGrid;
    StringGridView* CompareAdvStringGrid;
};

class ParameterPages : public QStackedWidget {
    Q_OBJECT
   public:
    explicit ParameterPages(ParameterSession& session, QWidget* parent = nullptr);

    ShownPages* PageControl1;
    TableSheet* DriveTabSheet;
    TableSheet* FileTabSheet;
    CompareSheet* CompareTabSheet;
    TabSheet* PrintTabSheet;  // never shown as a tab
    TabSheet* File2TabSheet;  // never shown

    // Takes over tabs, labels and sheets from the session.
    void showScreen();
    // The grid in front; nullptr when no tab is open.
    StringGridView* frontView() const;
    TabSheet* sheet(ParameterTab tab) const;
    QString tabCaption(ParameterTab tab) const;

   Q_SIGNALS:
    void tabChosen(ParameterTab tab);
    void closeTabWanted();
    void tabMenuRequested(const QPoint& globalPos);

   private:
    void buildEmptyPage();
    void tabMenu(const QPoint& pos);
    void showTabs();
    void showIdentity();
    ParameterTab tabOf(int index) const;

    ParameterSession& m_session;
    bool m_mirroring = false;
};

}  // namespace kelvane
