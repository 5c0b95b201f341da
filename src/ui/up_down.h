// UpDown: two small arrow buttons that step a number which is shown in a field beside them. The window
// decides what becomes of a step.
#pragma once

#include <QToolButton>
#include <QVBoxLayout>
#include <QWidget>

namespace kelvane {

class UpDown : public QWidget {
    Q_OBJECT
    Q_PROPERTY(int position READ position WRITE setPosition)
   public:
    UpDown(int minimum, int maximum, QWidget* parent = nullptr);

    int position() const { return m_position; }
    void setPosition(int position) { m_position = std::clamp(position, m_minimum, m_maximum); }

   Q_SIGNALS:
    void stepped(int position);  // by the person, and within the limits

   private:
    QToolButton* arrow(Qt::ArrowType type, const QString& name, int by);
    int m_minimum;
    int m_maximum;
    int m_position = 0;
};

}  // namespace kelvane
