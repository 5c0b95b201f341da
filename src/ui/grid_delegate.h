// Draws a cell of a StringGridView: told colours with their readable partner, selection, the mark of an edited
// row and the outlines of find hits; shows a text that is cut as a tool tip.
#pragma once

#include <QStyledItemDelegate>

namespace kelvane {

class StringGridView;

class GridDelegate : public QStyledItemDelegate {
    Q_OBJECT
   public:
    explicit GridDelegate(StringGridView* view);
    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QWidget* createEditor(QWidget*, const QStyleOptionViewItem&, const QModelIndex&) const override { return nullptr; }
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

   protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

   private:
    void drawBox(QPainter* painter, const QStyleOptionViewItem& cell, bool set) const;
    const StringGridView* m_view;
};

}  // namespace kelvane
