// F1: opens the manual at the window or box that the person is in, over whatever is in front.
#pragma once

#include <QWidget>
#include <memory>

namespace kelvane {

class Windows;

std::unique_ptr<QWidget> makeHelp(Windows& windows);
void wireHelp(Windows& windows, QWidget& form);

}  // namespace kelvane
