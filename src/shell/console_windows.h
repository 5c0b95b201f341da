// Rows of the window table that belong to the Advance console.
#pragma once

#include <QWidget>
#include <memory>

namespace kelvane {

class Windows;

std::unique_ptr<QWidget> makeAdvanceForm(Windows& windows);
std::unique_ptr<QWidget> makeInputTimeOut(Windows& windows);
void wireAdvanceForm(Windows& windows, QWidget& form);
void openAdvanceForm(Windows& windows, QWidget& form);

}  // namespace kelvane
