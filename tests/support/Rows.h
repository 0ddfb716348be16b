#pragma once

#include "core/Globals.h"
#include "core/Values.h"
#include "platform/Recordset.h"

#include <QStringList>
#include <QVariantMap>

// Setting up and reading back table rows the way the program itself does,
// without going through the class under test.
namespace rows {

inline qint32 Add(const QString& table, const QVariantMap& values) {
    Recordset rs;
    rs.Open("SELECT * FROM " + table, ConnectionMain(), adOpenStatic, adLockOptimistic);
    rs.AddNew();
    for (auto it = values.begin(); it != values.end(); ++it) rs.setField(it.key(), it.value());
    rs.Update();
    for (int i = 0; i < rs.FieldCount(); ++i)
        if (rs.FieldName(i).compare("ID", Qt::CaseInsensitive) == 0) return rs.Field("ID").toInt();
    return 0;
}

inline int Count(const QString& sql) {
    Recordset rs;
    rs.Open(sql, ConnectionMain(), adOpenKeyset, adLockReadOnly);
    int n = 0;
    for (; !rs.IsEOF(); rs.MoveNext()) ++n;
    return n;
}

inline QStringList Column(const QString& sql, const QString& field) {
    Recordset rs;
    rs.Open(sql, ConnectionMain(), adOpenKeyset, adLockReadOnly);
    QStringList out;
    for (; !rs.IsEOF(); rs.MoveNext()) out << TextOf(rs.Field(field));
    return out;
}

}  // namespace rows
