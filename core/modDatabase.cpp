#include "core/modDatabase.h"

#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "platform/Database.h"
#include "platform/ProgramFolder.h"
#include "platform/RuntimeError.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>

namespace {


// Closing a connection that is not open is an error: upkeep needs the live database.
void CloseMain() {
    if (!ConnectionMain().IsOpen()) throw RuntimeError(Err::ClosedRecordset);
    ConnectionMain().Close();
}

QString SourceOf(const QString& connectionString) {
    static const QRegularExpression re(QStringLiteral("Data Source\\s*=\\s*([^;]*)"),
                                       QRegularExpression::CaseInsensitiveOption);
    return re.match(connectionString).captured(1).trimmed();
}

void ReopenMain(const QString& connectionString) { ConnectionMain().Open(connectionString, QString(), QString(), -1); }

}  // namespace

bool DBCompact() {
    return Trap(QStringLiteral("DBCompact"), false, [&] {
        const QString connection = ConnectionMain().ConnectionString();
        CloseMain();
        int n = 1;
        while (QFile::exists(ProgramFolder::File(QStringLiteral("Larder.%1").arg(n)))) ++n;
        // The safety copy is taken from "Larder.mdb", a name distinct from the live file.
        const QString safety = ProgramFolder::File(QStringLiteral("Larder.%1").arg(n));
        const QString safetySource = ProgramFolder::File(QStringLiteral("Larder.mdb"));
        if (!QFile::copy(safetySource, safety)) throw RuntimeError(QStringLiteral("File not found"));
        const QString temp = ProgramFolder::File(QStringLiteral("temp"));
        Database::CompactFile(SourceOf(connection), temp);
        const QString live = ProgramFolder::File(QStringLiteral("Larderkeep.mdb"));
        QFile::remove(live);
        QFile::remove(live + QStringLiteral("-wal"));
        QFile::remove(live + QStringLiteral("-shm"));
        QFile::rename(temp, live);
        ReopenMain(kConnectionText + live);
        return true;
    });
}

bool BackupDatabase(QString& path, bool useDefault) {
    return TrapTail(QStringLiteral("."), false, [&] {
        if (path == QLatin1String("Larderkeep.bak")) path = ProgramFolder::File(QStringLiteral("Larderkeep.bak"));
        if (!path.isEmpty() && QFile::exists(path)) QFile::remove(path);
        const QString connection = ConnectionMain().ConnectionString();
        CloseMain();
        const QString target = useDefault ? QDir::current().filePath(QStringLiteral("Larderkeep.bak")) : path;
        try {
            Database::CompactFile(SourceOf(connection), target);
        } catch (...) {
            ReopenMain(connection);
            throw;
        }
        ReopenMain(connection);
        return true;
    });
}
