// The plot: what stands where on it, that a scrolled picture is the picture painted anew, and what the hand
// does.
#include "ui/trend_plot.h"

#include <gtest/gtest.h>

#include <QPainter>
#include <QSignalSpy>
#include <QTest>

#include "base/trend_time.h"
#include "ui/trend_overview.h"

namespace kelvane {
namespace {

struct Plot {
    TrendData data;
    std::unique_ptr<TrendPlot> plot;

    explicit Plot(int channels = 8) {
        data.channels.resize(size_t(channels));
        for (TrendChannel& channel : data.channels) channel.DigitalTo = 1000;
        for (size_t c = 1; c < data.channels.size(); ++c) data.channels[c].visible = false;
        plot = std::make_unique<TrendPlot>(data);
        plot->resize(710, 400);
        plot->look.opGrid = plot->look.opTime = plot->look.opCaption = false;
        plot->lookChanged();
    }
    void add(quint16 digit, double Time = 40000.5) {
        TrendRecord record{Time, {}};
        record.Ch.fill(digit);
        ASSERT_TRUE(data.records.append(record));
    }
    QImage picture() { return plot->grab().toImage(); }
    int x(qint64 record) const { return int(plot->view().xOf(record)); }
    int y(quint16 digit) const { return int(std::lround(plot->view().yOf(digit / 1000.0))) - 1; }
};

const QRgb Lime = qRgb(0, 255, 0);

TEST(TrendPlot, DrawsOneRecordAPixelOnTheScaleOfItsChannel) {
    Plot p;
    for (int i = 0; i < 300; ++i) p.add(quint16(i < 100 ? 250 : 750));
    p.plot->PaintRecords(0, 600);
    const QImage image = p.picture();
    EXPECT_EQ(image.pixel(p.x(50), p.y(250)), Lime);
    EXPECT_EQ(image.pixel(p.x(200), p.y(750)), Lime);
    EXPECT_NE(image.pixel(p.x(50), p.y(750)), Lime);
    EXPECT_NE(image.pixel(p.x(350), p.y(750)), Lime);
    // The stroke from record 99 to 100.
    EXPECT_TRUE(image.pixel(p.x(99), p.y(500)) == Lime || image.pixel(p.x(100), p.y(500)) == Lime);
}

TEST(TrendPlot, ABreakIsALineAndNoStrokeJoinsAcrossIt) {
    for (const int perPixel : {1, 4}) {
        Plot p;
        for (int i = 0; i < 40; ++i) p.add(100);
        for (int i = 0; i < 8; ++i) p.add(100, 0);
        for (int i = 0; i < 40; ++i) p.add(900);
        p.plot->PaintRecords(0, 600 * perPixel);
        const QImage image = p.picture();
        EXPECT_EQ(image.pixel(p.x(40), p.y(950)), qRgb(255, 255, 255)) << perPixel;
        for (int record = 36; record < 56; record += perPixel)
            EXPECT_NE(image.pixel(p.x(record), p.y(500)), Lime) << perPixel << ' ' << record;
        EXPECT_EQ(image.pixel(p.x(20), p.y(100)), Lime);
        EXPECT_EQ(image.pixel(p.x(60), p.y(900)), Lime);
    }
}

TEST(TrendPlot, ManyRecordsAPixelShowTheirLowestAndHighest) {
    Plot p;
    for (int i = 0; i < 60000; ++i) p.add(i == 30050 ? 990 : 500);
    p.plot->fit();
    const QImage image = p.picture();
    EXPECT_EQ(image.pixel(p.x(30000), p.y(990)), Lime);
    EXPECT_NE(image.pixel(p.x(30300), p.y(990)), Lime);
}

// What a later channel covers is left out, and nothing else: the picture is that of all channels drawn one
// over the other.
TEST(TrendPlot, ChannelsOfManyRecordsCoverEachOtherInOrder) {
    Plot p(4);
    const quint32 colours[] = {0x00FF00, 0xFFFF00, 0xFF0000, 0xFF00FF};
    for (size_t c = 0; c < 4; ++c) p.data.channels[c].color = colours[c];
    p.data.channels[1].penWidth = 3;
    quint32 noise = 1;
    for (int i = 0; i < 3000; ++i) {
        TrendRecord record{i % 700 == 699 ? 0.0 : 40000.5, {}};
        for (size_t c = 0; c < 4; ++c) {
            noise = noise * 1664525 + 1013904223;
            record.Ch[c] = quint16((i / int(c + 1) + (noise >> 16) % (60 * (c + 1))) % 1000);
        }
        ASSERT_TRUE(p.data.records.append(record));
    }
    const auto pictureOf = [&p](std::initializer_list<size_t> shown) {
        for (TrendChannel& channel : p.data.channels) channel.visible = false;
        for (const size_t c : shown) p.data.channels[c].visible = true;
        p.plot->fit();
        return p.picture();
    };
    QImage layers = pictureOf({0});
    for (size_t c = 1; c < 4; ++c) {
        const QImage layer = pictureOf({c});
        for (int y = 0; y < layer.height(); ++y)
            for (int x = p.plot->view().left(); x < layer.width(); ++x)
                if (layer.pixel(x, y) == (0xFF000000 | colours[c])) layers.setPixel(x, y, layer.pixel(x, y));
    }
    const QRect curves(p.plot->view().left(), 0, p.plot->view().columns(), 400);
    EXPECT_EQ(pictureOf({0, 1, 2, 3}).copy(curves), layers.copy(curves));
}

TEST(TrendPlot, WhileRecordingTheScrolledPictureIsTheOnePaintedAnew) {
    for (const double zoom : {1.0, 0.25, 3.0}) {
        Plot p(2);
        p.data.channels[1].visible = true;
        p.data.channels[1].color = 0xFFFF00;
        p.data.channels[1].penWidth = 3;
        p.plot->look.opGrid = p.plot->look.opTime = p.plot->look.opCaption = true;
        p.plot->lookChanged();
        p.plot->setFlow(true);
        p.plot->zoomAbout(100, zoom);
        const auto grow = [&](int i) {
            TrendRecord record{i % 37 == 5 ? 0.0 : 40000 + i / 86400.0, {}};
            record.Ch = {quint16((i * 137) % 1000), quint16(i % 900)};
            ASSERT_TRUE(p.data.records.append(record));
            p.plot->recordsGrew();
            p.picture();
        };
        for (int i = 0; i < 900; ++i) grow(i);
        const QImage scrolled = p.picture();
        EXPECT_GT(p.plot->FirstDisplayedRec(), zoom < 3 ? 100 : -1);
        EXPECT_EQ(p.plot->LastDisplayedRec(), 899);
        p.plot->lookChanged();
        EXPECT_EQ(scrolled, p.picture()) << zoom;
    }
}

TEST(TrendPlot, ScaleTimesAndCaptionsStandBesideTheCurves) {
    Plot p;
    for (int i = 0; i < 200; ++i)
        p.add(500, trendTime(QDateTime(QDate(2026, 3, 2), QTime(9, 8, 7).addSecs(i))));
    p.data.channels[0].Caption = "Ch1 Output Frequency H";
    p.plot->look.opTime = p.plot->look.opCaption = p.plot->look.opGrid = true;
    p.plot->lookChanged();
    const QImage full = p.picture();
    const auto inked = [&](const QImage& image, const QRect& room) {
        int count = 0;
        for (int y = room.top(); y <= room.bottom(); ++y)
            for (int x = room.left(); x <= room.right(); ++x) count += image.pixel(x, y) != qRgb(0, 0, 0);
        return count;
    };
    const TrendView& view = p.plot->view();
    const QRect below(view.left() + 40, view.bottom() + 1, 110, view.bottomMargin - 2);
    EXPECT_GT(inked(full, below), 30);  // 50 and 100 pixels behind the first record
    EXPECT_GT(inked(full, QRect(view.left(), 0, 150, 14)), 30);
    EXPECT_GT(inked(full, QRect(0, view.top(), view.left() - 5, view.rows())), 100);
    EXPECT_GT(inked(full, QRect(view.left() + 50, view.top(), 1, view.rows())), 50);
    EXPECT_EQ(full.pixel(view.left() + 51, p.y(930)), qRgb(0, 0, 0));
}

TEST(TrendPlot, NoScaleNoRecordsAndAnyTimeArePainted) {
    Plot p;
    p.plot->look.opTime = p.plot->look.opCaption = p.plot->look.opGrid = true;
    p.plot->lookChanged();
    p.picture();
    p.data.channels[0].DigitalTo = 0;
    for (const double Time : {1e300, double(NAN), double(-INFINITY), -5.0, 0.0, 40000.0}) p.add(65535, Time);
    p.plot->recordsReplaced();
    p.plot->fit();
    p.picture();
    for (int i = 0; i < 100; ++i) p.plot->ZoomYIn();
    p.picture();
    p.plot->resize(50, 20);
    p.picture();
    QImage page(300, 200, QImage::Format_RGB32);
    QPainter painter(&page);
    p.plot->paintSheet(painter, page.size(), Qt::white);
    p.plot->paintSheet(painter, page.size(), Qt::white, 5, 2);
    SUCCEED();
}

TEST(TrendPlot, TheCursorSnapsToARecordAndTellsItsValue) {
    Plot p;
    for (int i = 0; i < 60; ++i) p.add(quint16(i));
    p.plot->PaintRecords(0, 60);  // ten pixels a record
    QSignalSpy told(p.plot.get(), &TrendPlot::OnNewCursorPos);
    p.plot->show();
    QTest::mouseMove(p.plot.get(), QPoint(p.x(7) + 3, 100));
    ASSERT_EQ(told.count(), 1);
    EXPECT_EQ(p.plot->valueAtCursor().RecordNo, 7);
    const QRgb white = qRgb(255, 255, 255);
    EXPECT_EQ(p.picture().pixel(p.x(7), p.y(800)), white);
    p.plot->setCursorOnRec(false);
    EXPECT_EQ(p.picture().pixel(p.x(7) + 3, p.y(800)), white);
    EXPECT_TRUE(p.plot->valueAtCursor().DataValid);
    p.plot->PaintRecords(0, 600);
    EXPECT_EQ(p.plot->valueAtCursor().RecordNo, 7) << "it goes with its record";
    p.plot->SetCursorLine(p.x(300), 100);
    EXPECT_FALSE(p.plot->valueAtCursor().DataValid);
    p.plot->fit();
    EXPECT_EQ(p.plot->valueAtCursor().RecordNo, 30) << "and takes what comes to stand under it";
    p.plot->SetCursorLine(20, 100);
    EXPECT_FALSE(p.plot->valueAtCursor().DataValid);
}

TEST(TrendPlot, WheelDragAndKeysMoveTheView) {
    Plot p;
    for (int i = 0; i < 20000; ++i) p.add(quint16(i % 1000));
    p.plot->show();
    p.plot->setFlow(true);
    EXPECT_EQ(p.plot->LastDisplayedRec(), 19999);
    QTest::keyClick(p.plot.get(), Qt::Key_F);
    EXPECT_EQ(p.plot->FirstDisplayedRec(), 0);
    EXPECT_EQ(p.plot->LastDisplayedRec(), 19999);
    const auto wheel = [&](int turned) {
        QWheelEvent event(QPointF(400, 100), p.plot->mapToGlobal(QPointF(400, 100)), {}, {0, turned}, {}, {},
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(p.plot.get(), &event);
    };
    const qint64 under = p.plot->view().recordAt(400);
    for (int i = 0; i < 6; ++i) wheel(120);
    EXPECT_LT(p.plot->view().recordsPerPixel(), 20000.0 / 600 / 3);
    EXPECT_NEAR(double(p.plot->view().recordAt(400)), double(under), 34);
    const qint64 from = p.plot->FirstDisplayedRec();
    QTest::mousePress(p.plot.get(), Qt::LeftButton, {}, QPoint(300, 100));
    QTest::mouseMove(p.plot.get(), QPoint(200, 100));
    QTest::mouseRelease(p.plot.get(), Qt::LeftButton, {}, QPoint(200, 100));
    EXPECT_NEAR(double(p.plot->FirstDisplayedRec() - from), 100 * p.plot->view().recordsPerPixel(), 2);
    QTest::keyClick(p.plot.get(), Qt::Key_End);
    EXPECT_TRUE(p.plot->follows());
    QTest::keyClick(p.plot.get(), Qt::Key_Home);
    EXPECT_FALSE(p.plot->follows());
    EXPECT_EQ(p.plot->FirstDisplayedRec(), 0);
    const double top = p.plot->view().yOf(1);
    QTest::keyClick(p.plot.get(), Qt::Key_Up);
    EXPECT_NEAR(p.plot->view().yOf(1), top - 5, 1e-9);

    TrendOverview strip(p.data, *p.plot);
    strip.resize(710, 40);
    strip.grab();
    QTest::mouseClick(&strip, Qt::LeftButton, {}, QPoint(400, 20));
    EXPECT_NEAR(double(p.plot->view().recordAt(380)), (400 - 80) / 600.0 * 20000, 40);
}

TEST(TrendPlot, MeasuringCursorsArePutDraggedAndGoWithTheirRecords) {
    Plot p;
    for (int i = 0; i < 600; ++i) p.add(1);
    p.plot->PaintRecords(0, 600);
    p.plot->show();
    QTest::mouseClick(p.plot.get(), Qt::LeftButton, Qt::ControlModifier, QPoint(p.x(100), 100));
    QTest::mouseClick(p.plot.get(), Qt::LeftButton, Qt::ShiftModifier, QPoint(p.x(300), 100));
    EXPECT_EQ(p.plot->cursorA(), 100);
    EXPECT_EQ(p.plot->cursorB(), 300);
    QTest::mousePress(p.plot.get(), Qt::LeftButton, {}, QPoint(p.x(301), 100));
    QTest::mouseMove(p.plot.get(), QPoint(p.x(400), 100));
    QTest::mouseRelease(p.plot.get(), Qt::LeftButton, {}, QPoint(p.x(400), 100));
    EXPECT_EQ(p.plot->cursorB(), 400);
    QTest::keyClick(p.plot.get(), Qt::Key_A);
    EXPECT_EQ(p.plot->cursorA(), 400);
    QSignalSpy marker(p.plot.get(), &TrendPlot::markerWanted);
    QTest::keyClick(p.plot.get(), Qt::Key_M);
    QTest::mouseDClick(p.plot.get(), Qt::LeftButton, {}, QPoint(p.x(55), 100));
    ASSERT_EQ(marker.count(), 2);
    EXPECT_EQ(marker[1][0].toLongLong(), 55);
    p.data.records.clear();
    p.plot->recordsReplaced();
    EXPECT_FALSE(p.plot->cursorA());
}

TEST(TrendPainter, AColourThatCannotBeSeenOnPaperIsDarkened) {
    TrendChannel channel;
    channel.color = 0xFFFF00;
    EXPECT_EQ(channelColour(channel, Qt::black), QColor(255, 255, 0));
    EXPECT_NE(channelColour(channel, Qt::white), QColor(255, 255, 0));
    channel.color = 0xFF0000;
    EXPECT_EQ(channelColour(channel, Qt::white), QColor(255, 0, 0));
}

}  // namespace
}  // namespace kelvane
