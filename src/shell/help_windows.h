// F1: opens the manual at the window or box that the person is in, over whatever is in front. Ctrl+R: the
// session report, likewise.
#pragma once

#include <QWidget>
#include <memory>

namespace kelvane {

class Windows;

std::unique_ptr<QWidget> makeHelp(Windows& windows);
void wireHelp(Windows& windows, QWidget& form);
std::unique_ptr<QWidget> makeSessionReport(Windows& windows);
void wireSessionReport(Windows& windows, QWidget& form);

}  // namespace kelvane
