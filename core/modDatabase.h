#pragma once

#include <QString>

// Compaction and backup of the live database. Both close the main connection
// first, so they only work while it is open.
bool DBCompact();
bool BackupDatabase(QString& path, bool useDefault);
