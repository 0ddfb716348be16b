#include "platform/DatabaseFile.h"

#include <QFile>
#include <QFileInfo>

namespace DatabaseFile {

Trouble Inspect(const QString& path) {
    QFile file(path);
    if (file.size() == 0) return Trouble::Empty;
    if (!file.open(QIODevice::ReadOnly)) return Trouble::None;  // opening will say why
    const QByteArray header = file.read(100);
    if (header.size() < 100 || !header.startsWith(QByteArrayLiteral("SQLite format 3\0"))) return Trouble::NotADatabase;
    auto be = [&header](int at, int bytes) {
        quint64 v = 0;
        for (int i = 0; i < bytes; ++i) v = (v << 8) | quint8(header[at + i]);
        return v;
    };
    quint64 pageSize = be(16, 2);
    if (pageSize == 1) pageSize = 65536;
    const quint64 pages = be(28, 4);
    // The page count in the header is trusted only while the change counter
    // it was written with is current; a log beside the file may hold pages
    // the file itself has not received yet.
    const bool countValid = be(92, 4) == be(24, 4);
    const QFileInfo wal(path + QStringLiteral("-wal"));
    if (countValid && pages > 0 && !(wal.exists() && wal.size() > 0) && quint64(file.size()) < pageSize * pages)
        return Trouble::Truncated;
    return Trouble::None;
}

}  // namespace DatabaseFile
