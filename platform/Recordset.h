#pragma once

#include "platform/Database.h"
#include "platform/KeyedRows.h"
#include "platform/SqliteCell.h"

#include <QHash>
#include <QSet>
#include <QVariant>
#include <array>
#include <utility>
#include <vector>

// A cursor over one SELECT, in the manner the program's classes expect: it opens
// on the first row, moves both ways (unless forward-only), and writes rows back
// one at a time to the query's single base table. Rows are fetched only as the
// cursor reaches them, so opening a big table just to add a row costs nothing.
class Recordset {
public:
    Recordset();
    ~Recordset();
    Recordset(const Recordset&) = delete;
    Recordset& operator=(const Recordset&) = delete;

    void Open(const QString& sql, Database& db, int cursorType = adOpenForwardOnly, int lockType = adLockReadOnly);
    void Close();
    bool IsOpen() const { return s_.db != nullptr; }

    // For a cursor that is walked to find a few rows among many (see
    // KeyedRows). Whole-table walks that read most columns are faster without
    // it. Kept across Open and Close.
    void FetchByKey(bool on) { fetchByKey_ = on; }

    bool IsBOF() const;
    bool IsEOF() const;
    qint32 RecordCount();

    void MoveFirst();
    void MoveNext();
    void MovePrevious();
    void MoveLast();

    QVariant Field(const QString& name) const;
    void setField(const QString& name, const QVariant& value);
    void AddNew();
    void Update();
    void CancelUpdate();
    void Delete();

    int FieldCount() const { return int(s_.columns.size()); }
    QString FieldName(int i) const;
    bool Updatable() const { return s_.updatable; }

private:
    // A fetched row keeps SQLite's raw cells and turns a cell into a value only
    // when it is read: walking a wide table to find one title must not convert
    // every column of every row. Rows written through this cursor hold values.
    struct Row {
        qint64 rowid = 0;
        std::vector<QVariant> values;  // empty while the row is raw
        std::vector<SqliteCell> cells;
        QByteArray raw;
        bool deleted = false;
        bool keyOnly = false;  // only the rowid is known yet; see KeyedRows
    };
    enum class At { BOF, Base, Added, EOF_, LastPending };
    enum class Edit { None, Editing, Adding };

    // Everything an open cursor knows; closing puts back a fresh one.
    struct State {
        Database* db = nullptr;
        QString sql;
        int cursorType = adOpenForwardOnly;
        bool updatable = false;
        bool hasRowid = false;
        QString table;
        std::vector<ResultColumn> columns;
        QHash<QString, int> index;
        mutable std::array<std::pair<QString, int>, 8> recent;
        mutable int recentNext = 0;
        mutable KeyedRows keyed;

        // The statement is stepped lazily; rows already seen stay cached so the
        // cursor can move back.
        mutable sqlite3_stmt* stmt = nullptr;
        mutable bool done = false;
        mutable std::vector<Row> rows;
        mutable std::vector<Row> added;
        mutable QSet<qint64> ownRowids;
        qint64 maxRowidAtOpen = 0;
        mutable At at = At::EOF_;
        mutable int pos = 0;
        mutable qint32 countCache = -1;
        bool anyWrites = false;
        int writes = 0;

        Edit edit = Edit::None;
        QHash<int, QVariant> pending;
    };

    bool FetchOne() const;
    void FetchAll() const;
    void Resolve() const;
    bool HasLiveRow() const;
    Row* CurrentRow() const;
    int ColumnIndex(const QString& name) const;
    void RequireOpen() const;
    void NoteWriting();
    void RequireUpdatable() const;
    void FlushEdit();
    QVariant RowValue(const Row& row, int col) const;
    void Materialize(Row& row) const;
    void LoadRow(Row& row) const;
    void ReloadRow(Row& row);
    void ReadBaseRow(Row& row) const;
    void SetPosition(At at, int index) const;
    bool SeekBaseFrom(int index, int step) const;
    bool SeekAddedFrom(int index, int step) const;

    State s_;
    bool fetchByKey_ = false;
};
