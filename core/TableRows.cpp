#include "core/TableRows.h"

#include "core/Globals.h"
#include "platform/Database.h"
#include "platform/Recordset.h"

void SetEveryRow(const QString& sql, const QString& column, const QVariant& value) {
    WriteBatch batch(ConnectionMain());
    Recordset r;
    r.Open(sql, ConnectionMain(), adOpenKeyset, adLockOptimistic);
    for (; !r.IsEOF(); r.MoveNext()) {
        r.setField(column, value);
        r.Update();
    }
}

int DeleteEveryRow(const QString& sql) {
    WriteBatch batch(ConnectionMain());
    Recordset r;
    r.Open(sql, ConnectionMain(), adOpenKeyset, adLockOptimistic);
    int deleted = 0;
    for (; !r.IsEOF(); r.MoveNext()) {
        r.Delete();
        ++deleted;
    }
    return deleted;
}
