#pragma once

#include <QString>
#include <QStringList>

// The quick search's remembered entries: the text file "qs.dat" in the program
// folder, one entry a line. Kept only while SAVE_QS is on.
namespace QuickSearchFile {
QString Path();
// The entries, blank lines left out; none when the file is missing.
QStringList Load();
// Rewrites the file with the entries.
void Save(const QStringList& entries);
}  // namespace QuickSearchFile
