// Saving at a person's wish: asks where to, writes the file whole, and tells what went wrong.
#pragma once

#include "base/operator.h"
#include "base/whole_file.h"

namespace kelvane {

// The path that was written; nothing when the person changed their mind or the file could not be written.
std::optional<QString> askToSave(Operator& person, const QString& filter, const QByteArray& bytes);

}  // namespace kelvane
