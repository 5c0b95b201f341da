// The grid of the plant without its widget: text cells addressed by column and row, row 0 being the header
// row, check boxes in column 0, hidden columns and rows, cell colours by a rule. Engines fill it, ui/ shows
// it. As an item model its row r is grid row r + 1 and its header is grid row 0.
#pragma once

#include <QAbstractTableModel>
#include <functional>
#include <optional>
#include <vector>

namespace kelvane {

using Rgb = quint32;  // 0xRRGGBB

struct CellColours {
    std::optional<Rgb> text;
    std::optional<Rgb> background;
};

class StringGrid : public QAbstractTableModel {
    Q_OBJECT
   public:
    explicit StringGrid(int columns, QObject* parent = nullptr);

    // Cells. Reading outside gives empty text; writing past the last row makes the grid grow, writing past
    // the last column is dropped.
    QString cell(int column, int row) const;
    void setCell(int column, int row, const QString& text);
    int ColCount() const { return m_columns; }
    int RowCount() const { return static_cast<int>(m_rows.size()); }  // header row included
    // Rows that are cut lose their cells, check boxes and edit marks; new rows are blank.
    void setRowCount(int count);
    void insertBlankRow(int row);  // a data row before row, or behind the last one
    void deleteRow(int row);       // nothing on the header or on a row that is not there
    void blank(int fromColumn, int toColumn, int fromRow, int toRow);  // clipped to what exists
    void setHeaders(const QStringList& headers);

    // Check boxes, column 0. A row without a box reads unset.
    void addCheckBox(int row, bool set);
    void removeCheckBox(int row);
    bool hasCheckBox(int row) const;
    bool checkBox(int row) const;
    void setCheckBox(int row, bool set);  // nothing on a row without a box

    // Hidden columns and rows. Hidden rows drop out of the visible numbering: visibleCell(c, 1) is the first
    // row behind the header that is not hidden.
    bool columnHidden(int column) const;
    void setColumnHidden(int column, bool hidden);
    bool rowHidden(int row) const;
    void setRowHidden(int row, bool hidden);
    void setRowsHidden(const std::vector<bool>& hidden);  // by row; views hear of it once
    void showAllRows();
    int visibleRowCount() const;
    int realRow(int visibleRow) const;  // -1 when there is none
    QString visibleCell(int column, int visibleRow) const { return cell(column, realRow(visibleRow)); }

    // Rows edited but not yet written; shown as a mark, never as a colour that has a meaning.
    bool edited(int row) const;
    void setEdited(int row, bool edited);

    // While it lives, views hear of the changes of one row once, at its end.
    class RowFilling {
       public:
        RowFilling(StringGrid& grid, int row) : m_grid(grid), m_row(row) { grid.m_filledRow = row; }
        ~RowFilling() {
            m_grid.m_filledRow = -1;
            m_grid.rowChanged(m_row);
        }
        RowFilling(const RowFilling&) = delete;
        RowFilling& operator=(const RowFilling&) = delete;

       private:
        StringGrid& m_grid;
        int m_row;
    };

    // A row whose box a person cannot change, asked when it is drawn: it looks disabled.
    std::function<bool(int row)> boxRests;
    // Colours of a cell, asked when it is drawn.
    std::function<CellColours(int column, int row)> cellColours;
    // Whether a person may type into a cell, asked when one wants to. Without a rule nobody may.
    std::function<bool(int column, int row)> mayType;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;  // what a person typed

    // Roles beside the standard ones; colours are Rgb numbers, absent when the rule gives none.
    static constexpr int EditedRole = Qt::UserRole + 1;
    static constexpr int TextColourRole = Qt::UserRole + 2;
    static constexpr int BackgroundColourRole = Qt::UserRole + 3;
    static constexpr int BoxRestsRole = Qt::UserRole + 4;

   Q_SIGNALS:
    void cellTyped(int column, int row);
    void hiddenColumnsChanged();
    void hiddenRowsChanged();

   private:
    struct Row {
        std::vector<QString> cells;
        std::optional<bool> check;
        bool hidden = false;
        bool edited = false;
    };
    bool hasRow(int row) const { return row >= 0 && row < RowCount(); }
    void rowChanged(int row);
    QVariant colourOf(int column, int row, std::optional<Rgb> CellColours::*which) const;
    int m_columns;
    int m_filledRow = -1;
    std::vector<Row> m_rows;
    std::vector<bool> m_columnHidden;
};

}  // namespace kelvane
