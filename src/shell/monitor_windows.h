// Rows of the window table that belong to the meters and to the fault history: their forms from their
// engines, and what they ask of others.
#pragma once

#include <QWidget>
#include <memory>

namespace kelvane {

class Windows;

std::unique_ptr<QWidget> makeMonitor(Windows& windows);
std::unique_ptr<QWidget> makeMeterType(Windows& windows);
std::unique_ptr<QWidget> makeErrHistory(Windows& windows);
void wireMonitor(Windows& windows, QWidget& form);
void wireErrHistory(Windows& windows, QWidget& form);

}  // namespace kelvane
