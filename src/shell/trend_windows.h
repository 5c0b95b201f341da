// Rows of the window table that belong to the trend: its forms from its engine, what they ask of one another,
// and what the tool keeps of the window in project files.
#pragma once

#include <QWidget>
#include <memory>

namespace kelvane {

class Windows;

std::unique_ptr<QWidget> makeScope(Windows& windows);
std::unique_ptr<QWidget> makeTool(Windows& windows);
std::unique_ptr<QWidget> makeTrendPrint(Windows& windows);
void wireScope(Windows& windows, QWidget& form);

}  // namespace kelvane
