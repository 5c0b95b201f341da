// Rows of the window table that belong to Quick Setup: the source dialog, the wait while slots are read or
// written, the wizard.
#pragma once

#include <QWidget>
#include <memory>

namespace kelvane {

class Windows;

std::unique_ptr<QWidget> makeQuickSetup(Windows& windows);
void wireQuickSetup(Windows& windows, QWidget& form);
void openQuickSetup(Windows& windows, QWidget& form);
void wireQSsource(Windows& windows, QWidget& form);

}  // namespace kelvane
