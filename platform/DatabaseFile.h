#pragma once

#include <QString>

// Looks at a database file's own header before it is opened, to tell a file
// cut short (a copy that stopped halfway, a full disk) from a whole one. Reads
// only; the file is never changed.
namespace DatabaseFile {
enum class Trouble { None, Empty, NotADatabase, Truncated };
Trouble Inspect(const QString& path);
}  // namespace DatabaseFile
