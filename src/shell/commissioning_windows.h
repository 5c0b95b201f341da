// PID control and auto tuning in the table of windows: how they are made, what they ask for, and how they
// open behind the wait notice.
#pragma once

#include <QWidget>
#include <memory>

namespace kelvane {

class Windows;

std::unique_ptr<QWidget> makePid(Windows& windows);
std::unique_ptr<QWidget> makeAutoTuning(Windows& windows);
std::unique_ptr<QWidget> makeMotorSel(Windows& windows);
void wirePid(Windows& windows, QWidget& form);
void wireAutoTuning(Windows& windows, QWidget& form);
void openPid(Windows& windows, QWidget& form);
void openAutoTuning(Windows& windows, QWidget& form);

}  // namespace kelvane
