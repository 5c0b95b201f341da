// Rows of the window table that belong to Parameter Management: its forms from its engines, and what they ask
// of one another.
#pragma once

#include <QWidget>
#include <memory>

namespace kelvane {

class Windows;

std::unique_ptr<QWidget> makeParameterForm(Windows& windows);
std::unique_ptr<QWidget> makeProgress(Windows& windows);
std::unique_ptr<QWidget> makeWriteCheck(Windows& windows);
std::unique_ptr<QWidget> makeInputValue(Windows& windows);
std::unique_ptr<QWidget> makeReport(Windows& windows);
std::unique_ptr<QWidget> makeSelGroupLoad(Windows& windows);
std::unique_ptr<QWidget> makeWriteCheckErrRecord(Windows& windows);

void wireParameterForm(Windows& windows, QWidget& form);
void wireSelParaSource(Windows& windows, QWidget& form);
void openParameterForm(Windows& windows, QWidget& form);

}  // namespace kelvane
