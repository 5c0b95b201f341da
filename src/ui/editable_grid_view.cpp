#include "ui/editable_grid_view.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>

#include "ui/grid_delegate.h"

namespace kelvane {

namespace {

class EditDelegate final : public GridDelegate {
   public:
    explicit EditDelegate(EditableGridView* view) : GridDelegate(view), m_view(view) {}

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem&,
                          const QModelIndex& index) const override {
        auto* edit = new QLineEdit(parent);
        edit->setFrame(false);
        edit->setAccessibleName(m_view->grid()->cell(index.column(), 0));
        connect(edit, &QLineEdit::textEdited, this,
                [this, edit, column = index.column()](const QString& text) {
                    if (!m_view->tidy) return;
                    const QString tidied = m_view->tidy(column, text);
                    if (tidied == text) return;
                    const int cursor = edit->cursorPosition() - static_cast<int>(text.size() - tidied.size());
                    edit->setText(tidied);
                    edit->setCursorPosition(std::clamp(cursor, 0, static_cast<int>(tidied.size())));
                });
        return edit;
    }

   private:
    EditableGridView* m_view;
};

}  // namespace

EditableGridView::EditableGridView(QWidget* parent) : StringGridView(parent) {
    setItemDelegate(new EditDelegate(this));
    setEditTriggers(QAbstractItemView::AnyKeyPressed);
    connect(this, &StringGridView::dblClickCell, this, &EditableGridView::editCell);
}

void EditableGridView::editCell(int column, int row) {
    if (row < 1 || !grid()) return;
    const QModelIndex index = grid()->index(row - 1, column);
    if (index.flags().testFlag(Qt::ItemIsEditable)) edit(index);
}

void EditableGridView::keyPressEvent(QKeyEvent* event) {
    // The Enter that ends an open cell comes here as well.
    if (state() == EditingState) return event->accept();
    const bool editable = currentIndex().flags().testFlag(Qt::ItemIsEditable);
    if (event->key() == Qt::Key_Delete && editable) {
        grid()->setData(currentIndex(), QString(), Qt::EditRole);
        event->accept();
        return;
    }
    StringGridView::keyPressEvent(event);
}

void EditableGridView::focusOutEvent(QFocusEvent* event) {
    StringGridView::focusOutEvent(event);
    if (!isAncestorOf(QApplication::focusWidget())) Q_EMIT left();
}

void EditableGridView::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) {
    const GridCell cell = currentCell();
    StringGridView::closeEditor(editor, hint);
    if (hint == QAbstractItemDelegate::SubmitModelCache && cell.row + 1 < grid()->RowCount())
        setCurrentCell(cell.column, cell.row + 1);
}

}  // namespace kelvane
