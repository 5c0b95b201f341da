// The header of a StringGridView: column captions, and the check box that stands for all rows.
#pragma once

#include <QHeaderView>
#include <optional>

namespace kelvane {

class StringGridView;

class CheckHeader : public QHeaderView {
    Q_OBJECT
   public:
    explicit CheckHeader(StringGridView* view);

   Q_SIGNALS:
    void boxClicked();

   protected:
    void paintSection(QPainter* painter, const QRect& rect, int section) const override;
    void initStyleOptionForIndex(QStyleOptionHeader* option, int section) const override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

   private:
    bool onBox(const QPoint& pos) const;
    void askBox(const QMouseEvent& event);
    const StringGridView* m_view;
    std::optional<quint64> m_askedAt;  // ms, of the window system's clock
    bool m_boxPressed = false;
};

}  // namespace kelvane
