#pragma once

#include "platform/Database.h"

#include <QByteArray>
#include <QVariant>

// One cell of a result as SQLite holds it, and the value it becomes in a
// column of a given kind. Keeping the raw cell and turning it into a value
// only when it is read spares converting every column of every row a walk
// passes over.
struct SqliteCell {
    int type = 0;  // SQLITE_NULL, SQLITE_INTEGER, ...
    qint64 integer = 0;
    double real = 0;
    int offset = 0;  // text and blobs: where their bytes start in the row's copy
    int bytes = 0;

    // The cell of the statement's current row; `text` points into the statement
    // for text and blobs, so it lasts only until the next step.
    static SqliteCell Peek(sqlite3_stmt* st, int col, const char** text);
    // The same cell with its text or blob appended to `raw`.
    static SqliteCell Copy(sqlite3_stmt* st, int col, QByteArray* raw);
    // The value straight from the statement's own buffer: no copy to keep.
    static QVariant Read(sqlite3_stmt* st, int col, ColumnKind kind);

    // `data` holds the cell's text or blob bytes.
    QVariant Value(const char* data, ColumnKind kind) const;
};
