#pragma once

#include "core/Globals.h"
#include "platform/Recordset.h"

#include <QString>
#include <QVariant>

// Rows of the Messages table, written and read straight through the store so
// the checks do not lean on the class under test.
namespace MessageRows {

inline void Add(const QString& title, const QString& body, const QString& date, int type, int reminderTime) {
    Recordset rs;
    rs.Open("SELECT * FROM Messages", ConnectionMain(), adOpenStatic, adLockOptimistic);
    rs.AddNew();
    rs.setField("Title", title);
    rs.setField("Body", body);
    rs.setField("Date", date);
    rs.setField("Type", type);
    rs.setField("ReminderTime", reminderTime);
    rs.Update();
}

inline int Count(const QString& where = QString()) {
    Recordset rs;
    rs.Open("SELECT * FROM Messages" + (where.isEmpty() ? QString() : " WHERE " + where), ConnectionMain(),
            adOpenStatic, adLockReadOnly);
    return rs.RecordCount();
}

// The column of the first row with that title; an invalid value when none.
inline QVariant Field(const QString& title, const QString& column) {
    QString quoted = title;
    quoted.replace("'", "''");
    Recordset rs;
    rs.Open("SELECT * FROM Messages WHERE [Title] = '" + quoted + "'", ConnectionMain(), adOpenStatic, adLockReadOnly);
    if (rs.IsEOF()) return QVariant();
    return rs.Field(column);
}

}  // namespace MessageRows
