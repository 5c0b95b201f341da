// The meters: what stands on them for which value, and that no scale makes them fail.
#include "ui/meters.h"

#include <gtest/gtest.h>

#include <QSignalSpy>
#include <QTest>

namespace kelvane {
namespace {

// Pixels in the colour of value on the screen.
int redPixels(QWidget& meter) {
    const QImage picture = meter.grab().toImage();
    int count = 0;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x) {
            const QColor colour = picture.pixelColor(x, y);
            count += colour.red() > 150 && colour.green() < 90 && colour.blue() < 90;
        }
    return count;
}

TEST(Meters, ClipAtTheTopAndBearAnyScale) {
    DialMeter dial;
    for (const auto& [position, top, share] : std::vector<std::tuple<double, double, double>>{
             {25, 50, 0.5}, {80, 50, 1}, {-5, 50, 0}, {5, 0, 0}}) {
        dial.setPosition(position);
        dial.setMaxValue(top);
        EXPECT_EQ(dial.share(), share);
        EXPECT_GT(redPixels(dial), 20);
    }
    for (const ScaleMeter::Shape shape : {ScaleMeter::Shape::Thermometer, ScaleMeter::Shape::Bar}) {
        ScaleMeter meter(shape);
        meter.resize(200, 200);
        const int bottom = redPixels(meter);
        meter.setDigit(2500);
        EXPECT_EQ(meter.value(), 25);
        EXPECT_GT(redPixels(meter), bottom + 100);
        meter.setDigit(99999);
        EXPECT_EQ(meter.share(), 1);
        meter.setDigitalTo(0);
        EXPECT_EQ(meter.value(), 0);
        EXPECT_EQ(redPixels(meter), bottom);
        QSignalSpy asked(&meter, &ScaleMeter::doubleClicked);
        QTest::mouseDClick(&meter, Qt::LeftButton);
        EXPECT_EQ(asked.size(), 1);
    }
}

}  // namespace
}  // namespace kelvane
