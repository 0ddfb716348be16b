#pragma once

#include "platform/Database.h"

#include <QString>
#include <QVariant>
#include <vector>

// How a cursor walked to find a few rows among many reads a wide result: it
// steps the rows' keys alone, and a column that the walk reads row after row
// is loaded for the whole result in one pass, so the walk never reads whole
// records it passes over. Rows the walk stops at are read by their key.
class KeyedRows {
public:
    // The key column a cursor asks for in front of its own columns.
    static inline const QString kKeyColumn = QStringLiteral("__lk_rowid");

    // Starts keyed stepping of `withKey` (the query with the key column first)
    // when the result is worth it, giving the statement that steps the keys;
    // nullptr when the cursor should step whole rows.
    sqlite3_stmt* Start(Database& db, const QString& withKey, const std::vector<ResultColumn>& columns);
    bool Active() const { return db_ != nullptr; }

    void NoteRead(int col) {
        if (db_) ++reads_[col];
    }
    // The value of column `col` of the row with key `rowid` when a column pass
    // holds it; `position` is the row's place in the walk, tried first. Starts
    // the pass of a column read often enough.
    const QVariant* Cached(size_t position, qint64 rowid, int col);

private:
    // A column pass in its own order, which is the key order unless the
    // data moved in between; a row looks at its own position first.
    struct ColumnCache {
        bool loaded = false;
        std::vector<qint64> rowids;
        std::vector<QVariant> values;
        std::vector<int> byRowid;  // positions sorted by rowid, made on first miss
        const QVariant* Find(size_t position, qint64 rowid);
    };
    void LoadHotColumns(int col);

    Database* db_ = nullptr;
    QString withKey_;
    QString keyOrder_;
    std::vector<ResultColumn> columns_;
    std::vector<ColumnCache> cache_;
    std::vector<int> reads_;
    int rowLoads_ = 0;
};
