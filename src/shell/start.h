// Start of the tool: one instance, program folder, language behind the splash, engines, windows, event loop.
#pragma once

class QApplication;

namespace kelvane {

// Runs the tool to its end; the program's exit code. A second start raises the first and ends at once.
int runTool(QApplication& app);

}  // namespace kelvane
