#include "platform/TextFile.h"

#include "platform/RuntimeError.h"

#include <QFile>

namespace TextFile {

void Write(const QString& path, const QString& text) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        throw RuntimeError(QStringLiteral("Path/File access error"));
    const QByteArray bytes = text.toUtf8();
    if (file.write(bytes) != bytes.size() || !file.flush()) throw RuntimeError(QStringLiteral("Disk full"));
}

}  // namespace TextFile
