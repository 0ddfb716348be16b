#include "platform/ProgramFolder.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace ProgramFolder {

QString Path() {
    const QString home = qEnvironmentVariable("LARDERKEEP_HOME");
    if (!home.isEmpty()) return QDir::cleanPath(QFileInfo(home).absoluteFilePath());
    return QDir(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation))
        .filePath(QStringLiteral("Larderkeep"));
}

QString File(const QString& name) {
    QString relative = name;
    relative.replace(QLatin1Char('\\'), QLatin1Char('/'));
    while (relative.startsWith(QLatin1Char('/'))) relative.remove(0, 1);
    return relative.isEmpty() ? Path() : QDir(Path()).filePath(relative);
}

QString Subfolder(const QString& name) { return File(name); }

QString SafeFileName(const QString& name, const QString& fallback) {
    QString safe = name;
    for (QChar& c : safe) {
        if (c.unicode() < 32 || QStringLiteral("/\\:*?\"<>|").contains(c)) c = QLatin1Char('_');
    }
    return safe.trimmed().isEmpty() ? fallback : safe;
}

}  // namespace ProgramFolder
