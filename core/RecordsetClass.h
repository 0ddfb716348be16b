#pragma once

#include "core/ErrorReport.h"
#include "platform/Recordset.h"

#include <utility>

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

    // Runs body; on a run-time error closes the recordset first, so that a row
    // refused half-way is never stored, then reports the error for `where`
    // and gives `fallback`, the operation's default result.
    template <class T, class F>
    T Trapped(const QString& where, T fallback, F&& body) {
        try {
            return std::forward<F>(body)();
        } catch (const std::exception& e) {
            CloseDB();
            ReportError(e, where);
            return fallback;
        }
    }

    template <class F>
    void Trapped(const QString& where, F&& body) {
        try {
            std::forward<F>(body)();
        } catch (const std::exception& e) {
            CloseDB();
            ReportError(e, where);
        }
    }

    Recordset rs;
};
