// Whether the texts of a window fit their controls, measured against the room that each has, and the pages of
// a window one by one.
#pragma once

#include <QStringList>
#include <QWidget>
#include <functional>

namespace kelvane {

// "DriveVrLabel", or the class where a control has no name.
QString nameOf(const QWidget& control);

// Shown in the window now and no window of its own.
bool isInSight(const QWidget& control, const QWidget& window);

// Calls look for the window with each page of its tabs in front; what was in front comes back.
void onEveryPage(QWidget& window, const std::function<void()>& look);

// A line for each control in sight whose text has not the room that it takes, or which its surroundings cut.
QStringList cutTexts(const QWidget& window);

// A line for each label in sight whose text cannot be read on its ground.
QStringList paleTexts(const QWidget& window);

}  // namespace kelvane
