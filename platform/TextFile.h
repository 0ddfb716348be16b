#pragma once

#include <QString>

namespace TextFile {

// Writes `text` as UTF-8 over whatever the file held. A file that cannot be
// opened or written in full throws, with the run-time error's own words, so the
// caller's handler reports it like any other failure.
void Write(const QString& path, const QString& text);

}  // namespace TextFile
