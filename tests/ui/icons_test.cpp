#include "ui/icons.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QPalette>
#include <set>

#include "base/drive_family.h"

namespace kelvane {
namespace {

int inkedPixels(const QImage& image) {
    int count = 0;
    for (int row = 0; row < image.height(); ++row)
        for (int column = 0; column < image.width(); ++column) count += qAlpha(image.pixel(column, row)) > 40;
    return count;
}

QByteArray bytes(const QImage& image) {
    return {reinterpret_cast<const char*>(image.constBits()), image.sizeInBytes()};
}

QImage drawn(const QIcon& icon, QIcon::Mode mode = QIcon::Normal) {
    return icon.pixmap(QSize(24, 24), 1, mode).toImage().convertToFormat(QImage::Format_ARGB32);
}

TEST(Icons, EveryOneIsDrawnAndLooksLikeNoOther) {
    std::set<QByteArray> seen;
    for (int k = 0; k < static_cast<int>(Icon::Count_); ++k) {
        const Icon which = static_cast<Icon>(k);
        const QImage image = drawn(icon(which));
        EXPECT_GT(inkedPixels(image), 20) << iconName(which).toStdString();
        EXPECT_TRUE(seen.insert(bytes(image)).second) << iconName(which).toStdString();
        const QImage disabled = drawn(icon(which), QIcon::Disabled);
        EXPECT_GT(inkedPixels(disabled), 20) << iconName(which).toStdString();
        EXPECT_NE(bytes(disabled), bytes(image)) << iconName(which).toStdString();
    }
    EXPECT_TRUE(icon(Icon::Count_).isNull() && treeImage(-1).isNull() && treeImage(5).isNull());
}

TEST(Icons, FollowThePalette) {
    const QPalette before = QApplication::palette();
    const QIcon save = icon(Icon::Save);
    const QImage onLight = drawn(save);
    QPalette dark = before;
    dark.setColor(QPalette::Window, QColor(0x2b, 0x2b, 0x2b));
    dark.setColor(QPalette::WindowText, Qt::white);
    QApplication::setPalette(dark);
    EXPECT_NE(bytes(drawn(save)), bytes(onLight));
    QApplication::setPalette(before);
    EXPECT_EQ(bytes(drawn(save)), bytes(onLight));
}

TEST(FamilyPictures, OneForEachFamilyAllDifferent) {
    PictureBox box;
    box.resize(160, 200);
    const auto shown = [&](int family) {
        box.showFamily(static_cast<quint8>(family));
        return bytes(box.grab().toImage());
    };
    std::set<QByteArray> seen{shown(7)};
    for (const Family family : AllFamilies)
        EXPECT_TRUE(seen.insert(shown(static_cast<int>(family))).second) << familyName(family);
    for (const int none : {10, 20, 255}) EXPECT_FALSE(seen.insert(shown(none)).second);
}

}  // namespace
}  // namespace kelvane
