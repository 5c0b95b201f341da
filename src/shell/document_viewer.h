// The desktop's way of showing a document: which programs are registered for PDF, and opening a file with the
// preferred one. The one place that knows how the platform says so.
#pragma once

#include "shell/manuals.h"

namespace kelvane {

DocumentViewer desktopViewer();

}  // namespace kelvane
