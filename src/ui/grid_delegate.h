// Draws a cell of a StringGridView: the engine's colours with their readable partner, selection, the mark of
// an edited row and the outlines of find hits; shows a text that is cut as a tool tip.
#pragma once

#include <QStyledItemDelegate>

namespace kelvane {

class StringGridView;

// The grids' check box, in ink on paper and centred in the room; drawn here because a native one sinks into
// dark and coloured backgrounds.
void drawGridBox(QPainter* painter, const QRect& room, bool set, const QColor& ink, const QColor& paper);

class GridDelegate : public QStyledItemDelegate {
    Q_OBJECT
   public:
    explicit GridDelegate(StringGridView* view);
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QWidget* createEditor(QWidget*, const QStyleOptionViewItem&, const QModelIndex&) const override {
        return nullptr;
    }
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

   protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

   private:
    const StringGridView* m_view;
};

}  // namespace kelvane
