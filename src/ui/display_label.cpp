#include "ui/display_label.h"

#include <QEvent>
#include <QFontDatabase>
#include <optional>

#include "ui/accessible_kit.h"
#include "ui/readable_colours.h"

namespace kelvane {

VrLabel::VrLabel(QWidget* parent) : VrLabel(QString(), parent) {}

VrLabel::VrLabel(const QString& text, QWidget* parent) : QLabel(text, parent) {
    installAccessibleKit();
    setTextFormat(Qt::PlainText);
    setMargin(2);
    applyColours();
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void VrLabel::setColor(const QColor& color) {
    if (color == m_color) return;
    m_color = color;
    applyColours();
}

void VrLabel::setBackgroundColor(const QColor& color) {
    if (color == m_background) return;
    m_background = color;
    applyColours();
}

void VrLabel::setDigital(bool digital) {
    if (digital == m_digital) return;
    m_digital = digital;
    QFont face = font();
    if (digital) face.setFamilies(QFontDatabase::systemFont(QFontDatabase::FixedFont).families());
    face.setBold(digital);
    setFont(face);
}

void VrLabel::setCharacters(int characters) {
    m_characters = characters;
    updateGeometry();
}

QSize VrLabel::sizeHint() const {
    const QMargins edge = contentsMargins();
    const int frame = 2 * margin() + edge.left() + edge.right() + 6;
    const int line = fontMetrics().height() + 2 * margin() + edge.top() + edge.bottom();
    const int room = m_characters > 0 ? fontMetrics().horizontalAdvance(QLatin1Char('0')) * m_characters : 0;
    const QSize own = QLabel::sizeHint();
    return {std::max(m_characters > 0 ? room + frame : own.width(), frame), std::max(own.height(), line)};
}

void VrLabel::changeEvent(QEvent* event) {
    QLabel::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && !m_applying) applyColours();
}

void VrLabel::applyColours() {
    m_applying = true;
    const auto told = [](const QColor& c) { return c.isValid() ? std::optional(c) : std::nullopt; };
    QPalette colours;
    const bool ownColours = m_color.isValid() || m_background.isValid();
    setFrameStyle(ownColours ? QFrame::StyledPanel | QFrame::Sunken : QFrame::NoFrame);
    setAutoFillBackground(ownColours);
    setBackgroundRole(ownColours ? QPalette::Base : QPalette::Window);
    setForegroundRole(ownColours ? QPalette::Text : QPalette::WindowText);
    if (ownColours) {
        setPalette(QPalette());
        const ColourPair pair = readablePair(told(m_color), told(m_background), palette());
        colours.setColor(QPalette::Text, pair.text);
        colours.setColor(QPalette::Base, pair.background);
    }
    setPalette(colours);
    m_applying = false;
}

}  // namespace kelvane
