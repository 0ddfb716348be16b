#include "core/RecordsetClass.h"

#include "core/Globals.h"

void RecordsetClass::OpenDB(const QString& sql, int cursorType, int lockType) {
    rs.Open(sql, ConnectionMain(), cursorType, lockType);
}

void RecordsetClass::CloseDB() { rs.Close(); }

void RecordsetClass::OpenForAdd(const QString& table) {
    OpenDB(QStringLiteral("SELECT * FROM ") + table, adOpenStatic, adLockOptimistic);
    if (!rs.IsEOF()) rs.MoveLast();
    rs.AddNew();
}
