#include "ui/icons.h"

#include <QFile>
#include <QGuiApplication>
#include <QHash>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmapCache>
#include <QSvgRenderer>
#include <algorithm>
#include <array>

#include "base/drive_family.h"
#include "ui/readable_colours.h"

// Outside the namespace, as the resource compiler wants it; a static library's resources do not load
// themselves.
static void loadResources() {
    static const bool loaded = [] {
        Q_INIT_RESOURCE(kelvane_ui);
        return true;
    }();
    Q_UNUSED(loaded);
}

namespace kelvane {
namespace {

constexpr auto IconCount = static_cast<size_t>(Icon::Count_);
// clang-format off
constexpr std::array<const char*, IconCount> IconNames{
    "com_setup", "parameter", "quick_setup", "advance", "keypad", "trend", "monitor",
    "open", "save", "exit", "read_drive", "read_file", "write_select", "write_all",
    "compare", "print", "language", "find", "previous", "next", "undo",
    "redo", "backup", "help", "about", "pid", "auto_tuning", "multi_step",
    "copy", "close", "folder", "folder_up", "file", "accept", "cancel",
    "test", "connect", "disconnect", "start", "stop", "clear", "option",
    "cursor", "picture", "zoom", "add", "remove", "edit", "run",
    "fault", "lock", "motor", "more", "refused", "up", "down",
    "zoom_in", "zoom_out", "reset", "tree_drive", "tree_file", "tree_open", "tree_compare",
    "tree_parameters", "motor_1", "motor_2", "step_back", "step_next"};
// clang-format on
static_assert(IconNames.back() != nullptr, "one name for each icon");

constexpr std::array TreeImages{Icon::TreeDrive, Icon::TreeFile, Icon::TreeOpen, Icon::TreeCompare,
                                Icon::TreeParameters};

// The two tones as they stand in the drawings.
const QByteArray LineTone = "currentColor";
const QByteArray AccentTone = "#1a7fc1";
const QColor AccentOnLight(0x1a, 0x7f, 0xc1);
const QColor AccentOnDark(0x62, 0xb8, 0xf0);

struct Tones {
    QColor line;
    QColor accent;
};

Tones tonesFor(QIcon::Mode mode, const QPalette& palette) {
    const QColor ground = palette.color(QPalette::Window);
    const QColor line = palette.color(QPalette::Active, QPalette::WindowText);
    const QColor accent =
        contrast(AccentOnLight, ground) > contrast(AccentOnDark, ground) ? AccentOnLight : AccentOnDark;
    if (mode == QIcon::Disabled) return {mix(line, ground, 0.55), mix(line, ground, 0.7)};
    if (mode != QIcon::Selected) return {line, accent};
    const QColor onHighlight = palette.color(QPalette::Active, QPalette::HighlightedText);
    return {onHighlight, mix(onHighlight, palette.color(QPalette::Active, QPalette::Highlight), 0.25)};
}

QByteArray drawing(const QString& path) {
    loadResources();
    QFile file(QLatin1String(":/kelvane/") + path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray toned(QByteArray svg, const Tones& tones) {
    return svg.replace(LineTone, tones.line.name().toLatin1())
        .replace(AccentTone, tones.accent.name().toLatin1());
}

void renderInside(QPainter& painter, const QRectF& room, const QByteArray& svg) {
    QSvgRenderer renderer(svg);
    renderer.setAspectRatioMode(Qt::KeepAspectRatio);
    renderer.render(&painter, room);
}

QPixmap rendered(const QByteArray& svg, QSize size, qreal devicePixelRatio) {
    QPixmap picture(size * devicePixelRatio);
    picture.setDevicePixelRatio(devicePixelRatio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    renderInside(painter, QRectF(QPointF(), QSizeF(size)), svg);
    return picture;
}

class TonedIconEngine : public QIconEngine {
   public:
    explicit TonedIconEngine(QString path) : m_path(std::move(path)) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        renderInside(*painter, rect, toned(drawing(m_path), tonesFor(mode, QGuiApplication::palette())));
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State) override {
        const Tones tones = tonesFor(mode, QGuiApplication::palette());
        const QString key = QStringLiteral("kelvane/%1/%2x%3/%4/%5")
                                .arg(m_path)
                                .arg(size.width())
                                .arg(size.height())
                                .arg(tones.line.name(), tones.accent.name());
        QPixmap picture;
        if (QPixmapCache::find(key, &picture)) return picture;
        picture = rendered(toned(drawing(m_path), tones), size, 1);
        QPixmapCache::insert(key, picture);
        return picture;
    }
    QIconEngine* clone() const override { return new TonedIconEngine(m_path); }

   private:
    QString m_path;
};

QString familyPath(quint8 DriveFamily) {
    const QString name = QString::fromLatin1(familyName(DriveFamily)).toLower();
    return name.isEmpty() ? QString() : QLatin1String("families/") + name + QLatin1String(".svg");
}

QByteArray pidDiagram(quint8 DriveFamily) {
    const QString name = QString::fromLatin1(familyName(DriveFamily)).toLower();
    return name.isEmpty() ? QByteArray() : drawing(QLatin1String("pid/") + name + QLatin1String(".svg"));
}

QByteArray logoDrawing(const QPalette& palette) {
    return toned(drawing(QStringLiteral("logo.svg")), tonesFor(QIcon::Normal, palette));
}

}  // namespace

QString iconName(Icon which) {
    const auto place = static_cast<size_t>(which);
    return place < IconCount ? QString::fromLatin1(IconNames[place]) : QString();
}

QIcon icon(Icon which) {
    const QString name = iconName(which);
    if (name.isEmpty()) return {};
    return QIcon(new TonedIconEngine(QLatin1String("icons/") + name + QLatin1String(".svg")));
}

QPixmap iconPicture(Icon which, const QPalette& palette, QSize size, qreal devicePixelRatio) {
    const QByteArray svg = drawing(QLatin1String("icons/") + iconName(which) + QLatin1String(".svg"));
    return rendered(toned(svg, tonesFor(QIcon::Normal, palette)), size, devicePixelRatio);
}

QIcon treeImage(int index) {
    if (index < 0 || index >= static_cast<int>(TreeImages.size())) return {};
    return icon(TreeImages[static_cast<size_t>(index)]);
}

QIcon applicationIcon() { return QIcon(new TonedIconEngine(QStringLiteral("kelvane.svg"))); }

PictureBox::PictureBox(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void PictureBox::showFamily(quint8 DriveFamily) {
    m_family = DriveFamily;
    m_kind = familyPath(DriveFamily).isEmpty() ? Kind::Nothing : Kind::Family;
    setAccessibleName(QString::fromLatin1(familyName(DriveFamily)));
    update();
}

void PictureBox::showLogo() {
    m_kind = Kind::Logo;
    setAccessibleName(QStringLiteral("Kelvane"));
    update();
}

void PictureBox::showKeypad() {
    m_kind = Kind::Keypad;
    update();
}

void PictureBox::showPidDiagram(quint8 DriveFamily) {
    m_family = DriveFamily;
    m_kind = pidDiagram(DriveFamily).isEmpty() ? Kind::Nothing : Kind::PidDiagram;
    setAccessibleName(QStringLiteral("PID of ") + QString::fromLatin1(familyName(DriveFamily)));
    update();
}

QSize PictureBox::sizeHint() const {
    if (m_kind == Kind::PidDiagram) return {640, 220};
    return m_kind == Kind::Logo ? QSize(420, 124) : QSize(160, 200);
}

QByteArray PictureBox::wantedDrawing() const {
    switch (m_kind) {
        case Kind::Logo: return logoDrawing(palette());
        case Kind::Keypad: return drawing(QStringLiteral("keypad.svg"));
        case Kind::PidDiagram: return toned(pidDiagram(m_family), tonesFor(QIcon::Normal, palette()));
        default: return drawing(familyPath(m_family));
    }
}

void PictureBox::paintEvent(QPaintEvent*) {
    if (m_kind == Kind::Nothing) return;
    const QByteArray wanted = wantedDrawing();
    if (wanted != m_drawnFrom || m_drawn.size() != size() * devicePixelRatio()) {
        m_drawn = rendered(wanted, size(), devicePixelRatio());
        m_drawnFrom = wanted;
    }
    QPainter(this).drawPixmap(0, 0, m_drawn);
}

}  // namespace kelvane
