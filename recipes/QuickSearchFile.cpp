#include "recipes/QuickSearchFile.h"

#include "platform/ProgramFolder.h"
#include "platform/TextFile.h"

#include <QFile>

namespace QuickSearchFile {

QString Path() { return ProgramFolder::File(QStringLiteral("qs.dat")); }

QStringList Load() {
    QFile file(Path());
    if (!file.open(QIODevice::ReadOnly)) return {};
    QStringList entries;
    for (const QString& line : QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'))) {
        QString entry = line;
        if (entry.endsWith(QLatin1Char('\r'))) entry.chop(1);
        if (!entry.isEmpty()) entries << entry;
    }
    return entries;
}

void Save(const QStringList& entries) {
    QString text;
    for (const QString& entry : entries) text += entry + QStringLiteral("\r\n");
    TextFile::Write(Path(), text);
}

}  // namespace QuickSearchFile
