#include "ui/path_label.h"

#include <QEvent>

#include "ui/named.h"

namespace kelvane {
namespace {

const QString Dots = QStringLiteral("...");

qsizetype nameStart(const QString& path) {
    return std::max(path.lastIndexOf(QLatin1Char('/')), path.lastIndexOf(QLatin1Char('\\')));
}

// The longest of "make(n)" that fits, n counted down from most; empty when none does.
template <typename Make>
QString longestFitting(qsizetype most, int width, const std::function<int(const QString&)>& widthOf,
                       Make make) {
    for (qsizetype n = most; n >= 0; --n) {
        QString shorter = make(n);
        if (widthOf(shorter) <= width) return shorter;
    }
    return {};
}

QString shortenedName(const QString& name, int width, const std::function<int(const QString&)>& widthOf) {
    if (widthOf(name) <= width) return name;
    return longestFitting(name.size() - 1, width, widthOf, [&](qsizetype kept) {
        const qsizetype tail =
            std::min(kept, std::max<qsizetype>(kept / 2, name.size() - name.lastIndexOf(u'.')));
        return QString(name.left(kept - tail) % Dots % name.right(tail));
    });
}

}  // namespace

QString calLabelString(const QString& path, int width, const std::function<int(const QString&)>& widthOf) {
    if (widthOf(path) <= width) return path;
    const qsizetype separator = nameStart(path);
    if (separator < 0) return shortenedName(path, width, widthOf);
    const QString name = path.mid(separator);
    const QString shorter = longestFitting(separator - 1, width, widthOf, [&](qsizetype kept) {
        return QString(path.left(kept) % Dots % name);
    });
    return shorter.isEmpty() ? shortenedName(name.mid(1), width, widthOf) : shorter;
}

PathLabel::PathLabel(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void PathLabel::setPath(const QString& path) {
    if (path == m_path) return;
    m_path = path;
    setToolTip(plainHint(path));
    setAccessibleName(path);
    updateGeometry();
    fit();
}

QSize PathLabel::sizeHint() const {
    return {fontMetrics().horizontalAdvance(m_path) + 2 * margin() + 4, QLabel::sizeHint().height()};
}

QSize PathLabel::minimumSizeHint() const {
    return {fontMetrics().averageCharWidth() * 12, QLabel::minimumSizeHint().height()};
}

void PathLabel::resizeEvent(QResizeEvent* event) {
    QLabel::resizeEvent(event);
    fit();
}

void PathLabel::changeEvent(QEvent* event) {
    QLabel::changeEvent(event);
    if (event->type() == QEvent::FontChange) fit();
}

void PathLabel::fit() {
    const QFontMetrics metrics = fontMetrics();
    setText(calLabelString(m_path, contentsRect().width() - 2 * margin(),
                           [&](const QString& text) { return metrics.horizontalAdvance(text); }));
}

}  // namespace kelvane
