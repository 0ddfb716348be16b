#pragma once

#include "platform/Database.h"

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

    void Open(const QString& sql, Database& db, int cursorType = adOpenForwardOnly,
              int lockType = adLockReadOnly);
    void Close();
    bool IsOpen() const { return db_ != nullptr; }

    // For a cursor that is walked to find a few rows among many: wide results
    // are then stepped by key alone and a column read row after row is loaded
    // in one pass, so the walk never reads whole records it passes over.
    // Whole-table walks that read most columns are faster without it. Kept
    // across Open and Close.
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

    int FieldCount() const { return int(columns_.size()); }
    QString FieldName(int i) const;
    bool Updatable() const { return updatable_; }

private:
    // A fetched row keeps SQLite's raw cells and turns a cell into a value only
    // when it is read: walking a wide table to find one title must not convert
    // every column of every row. Rows written through this cursor hold values.
    struct Cell {
        int type = 0;  // SQLITE_NULL, SQLITE_INTEGER, ...
        qint64 integer = 0;
        double real = 0;
        int offset = 0;  // text and blobs: their bytes in Row::raw
        int bytes = 0;
    };
    struct Row {
        qint64 rowid = 0;
        std::vector<QVariant> values;  // empty while the row is raw
        std::vector<Cell> cells;
        QByteArray raw;
        bool deleted = false;
        bool keyOnly = false;  // only the rowid is known yet; see keyed_
    };
    struct Column {
        QString name;
        ColumnKind kind = ColumnKind::Other;
        int length = 0;
        QString origin;  // column of the base table, empty for computed columns
    };
    enum class At { BOF, Base, Added, EOF_, LastPending };

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
    QVariant ReadValue(sqlite3_stmt* st, int col, ColumnKind kind) const;
    static Cell ReadCell(sqlite3_stmt* st, int col, QByteArray* raw);
    // The cell as SQLite holds it; `bytes` points into the statement for text and blobs.
    static Cell PeekCell(sqlite3_stmt* st, int col, const char** bytes);
    static QVariant CellValue(const Cell& cell, const char* text, ColumnKind kind);
    QVariant RowValue(const Row& row, int col) const;
    void Materialize(Row& row) const;
    void ReloadRow(Row& row);
    QVariant KeyedValue(Row& row, int col) const;
    void LoadRow(Row& row) const;
    void LoadHotColumns(int col) const;
    void SetPosition(At at, int index) const;
    bool SeekBaseFrom(int index, int step) const;
    bool SeekAddedFrom(int index, int step) const;

    Database* db_ = nullptr;
    QString sql_;
    int cursorType_ = adOpenForwardOnly;
    int lockType_ = adLockReadOnly;
    bool updatable_ = false;
    bool hasRowid_ = false;
    QString table_;
    std::vector<Column> columns_;
    QHash<QString, int> index_;
    mutable std::array<std::pair<QString, int>, 8> recent_;
    mutable int recentNext_ = 0;

    // By key (FetchByKey), wide single-table results step only their rowids; a
    // row's cells are read when the row is looked at, and a column read row
    // after row is loaded for the whole result in one pass.
    bool fetchByKey_ = false;
    bool keyed_ = false;
    QString withRowid_;
    QString keyOrder_;
    // A column pass in its own order, which is the key order unless the
    // data moved in between; a row looks at its own position first.
    struct ColumnCache {
        bool loaded = false;
        std::vector<qint64> rowids;
        std::vector<QVariant> values;
        std::vector<int> byRowid;  // positions sorted by rowid, made on first miss
        const QVariant* Find(size_t position, qint64 rowid);
    };
    mutable std::vector<ColumnCache> cache_;
    mutable std::vector<int> reads_;
    mutable int rowLoads_ = 0;

    // The statement is stepped lazily; rows already seen stay cached so the
    // cursor can move back.
    mutable sqlite3_stmt* stmt_ = nullptr;
    mutable bool done_ = false;
    mutable std::vector<Row> rows_;
    mutable std::vector<Row> added_;
    mutable QSet<qint64> ownRowids_;
    mutable qint64 maxRowidAtOpen_ = 0;
    mutable At at_ = At::EOF_;
    mutable int pos_ = 0;
    mutable qint32 countCache_ = -1;
    bool anyWrites_ = false;
    int writes_ = 0;

    enum class Edit { None, Editing, Adding };
    Edit edit_ = Edit::None;
    QHash<int, QVariant> pending_;
};
