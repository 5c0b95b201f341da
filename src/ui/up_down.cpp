#include "ui/up_down.h"

namespace kelvane {

UpDown::UpDown(int minimum, int maximum, QWidget* parent)
    : QWidget(parent), m_minimum(minimum), m_maximum(maximum) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(arrow(Qt::UpArrow, QStringLiteral("Up"), 1));
    column->addWidget(arrow(Qt::DownArrow, QStringLiteral("Down"), -1));
}

QToolButton* UpDown::arrow(Qt::ArrowType type, const QString& name, int by) {
    auto* button = new QToolButton(this);
    button->setArrowType(type);
    button->setAutoRepeat(true);
    button->setAccessibleName(name);
    const int height = fontMetrics().height() * 3 / 4;
    button->setFixedSize(height * 3 / 2, height);
    connect(button, &QToolButton::clicked, this, [this, by] {
        const int wanted = std::clamp(m_position + by, m_minimum, m_maximum);
        if (wanted == m_position) return;
        m_position = wanted;
        Q_EMIT stepped(wanted);
    });
    return button;
}

}  // namespace kelvane
