#pragma once

#include "platform/Recordset.h"

// The shape every table class shares: one recordset, opened per operation on the
// main connection and walked with these calls.
class RecordsetClass {
public:
    virtual ~RecordsetClass() = default;

    void OpenDB(const QString& sql, int cursorType, int lockType);
    void CloseDB();
    void MoveFirst() { rs.MoveFirst(); }
    void MoveNext() { rs.MoveNext(); }
    void MoveLast() { rs.MoveLast(); }
    void MovePrevious() { rs.MovePrevious(); }
    bool dbBOF() const { return rs.IsBOF(); }
    bool dbEOF() const { return rs.IsEOF(); }
    qint32 RecordCount() { return rs.RecordCount(); }

protected:
    // Adding a row the way every class does: the whole table, static and
    // optimistic, positioned after its last row.
    void OpenForAdd(const QString& table);

    Recordset rs;
};
