#include "platform/KeyedRows.h"

#include "platform/SqliteCell.h"

#include <QRegularExpression>
#include <QSet>
#include <algorithm>
#include <sqlite3.h>

namespace {

// When a result is wide enough to step by key, and when a column has been read
// often enough, over enough loaded rows, to be worth a pass of its own.
constexpr size_t kMinColumns = 8;
constexpr int kRowsBeforeBulk = 32;
constexpr int kHotReads = 8;

}  // namespace

sqlite3_stmt* KeyedRows::Start(Database& db, const QString& withKey, const std::vector<ResultColumn>& columns) {
    // Narrow results gain nothing from stepping keys alone; computed or
    // repeated columns could not be read back by name from the base table.
    if (columns.size() < kMinColumns) return nullptr;
    QSet<QString> names;
    for (const ResultColumn& c : columns) {
        if (c.origin.isEmpty()) return nullptr;
        names.insert(c.name.toLower());
    }
    if (names.size() != qsizetype(columns.size())) return nullptr;

    // Unordered, the full statement reads the table in its own order;
    // alone, the keys would come from whichever index is smallest.
    static const QRegularExpression orderRe(QStringLiteral("\\bORDER\\s+BY\\b"),
                                            QRegularExpression::CaseInsensitiveOption);
    const QString keyOrder = orderRe.match(withKey).hasMatch() ? QString() : QStringLiteral(" ORDER BY ") + kKeyColumn;
    QString refused;
    sqlite3_stmt* keys = db.PrepareQuery(
        QStringLiteral("SELECT ") + kKeyColumn + QStringLiteral(" FROM (") + withKey + QLatin1Char(')') + keyOrder,
        &refused);
    if (!keys) return nullptr;
    db_ = &db;
    withKey_ = withKey;
    keyOrder_ = keyOrder;
    columns_ = columns;
    cache_.resize(columns.size());
    reads_.assign(columns.size(), 0);
    return keys;
}

const QVariant* KeyedRows::Cached(size_t position, qint64 rowid, int col) {
    ColumnCache& cache = cache_[col];
    if (!cache.loaded && ++rowLoads_ > kRowsBeforeBulk && reads_[col] >= kHotReads) LoadHotColumns(col);
    return cache.loaded ? cache.Find(position, rowid) : nullptr;
}

const QVariant* KeyedRows::ColumnCache::Find(size_t position, qint64 rowid) {
    if (position < rowids.size() && rowids[position] == rowid) return &values[position];
    if (byRowid.empty() && !rowids.empty()) {
        byRowid.resize(rowids.size());
        for (size_t i = 0; i < rowids.size(); ++i) byRowid[i] = int(i);
        std::sort(byRowid.begin(), byRowid.end(), [this](int a, int b) { return rowids[a] < rowids[b]; });
    }
    const auto it =
        std::lower_bound(byRowid.begin(), byRowid.end(), rowid, [this](int i, qint64 key) { return rowids[i] < key; });
    if (it == byRowid.end() || rowids[*it] != rowid) return nullptr;
    return &values[*it];
}

// Every column that loops have been reading, in one pass over the result.
void KeyedRows::LoadHotColumns(int col) {
    std::vector<int> hot;
    QStringList names;
    for (size_t i = 0; i < columns_.size(); ++i) {
        if (cache_[i].loaded || (int(i) != col && reads_[i] < kHotReads)) continue;
        hot.push_back(int(i));
        names << Database::QuoteName(columns_[i].name);
    }
    sqlite3_stmt* st = db_->PrepareQuery(
        QStringLiteral("SELECT %1, %2 FROM (%3)").arg(kKeyColumn, names.join(QLatin1Char(',')), withKey_) + keyOrder_);
    int rc;
    while ((rc = sqlite3_step(st)) == SQLITE_ROW) {
        const qint64 rowid = sqlite3_column_int64(st, 0);
        for (size_t k = 0; k < hot.size(); ++k) {
            ColumnCache& cache = cache_[hot[k]];
            cache.rowids.push_back(rowid);
            cache.values.push_back(SqliteCell::Read(st, int(k) + 1, columns_[hot[k]].kind));
        }
    }
    sqlite3_finalize(st);
    if (rc != SQLITE_DONE) throw DbError(QString::fromUtf8(sqlite3_errmsg(db_->Handle())));
    for (int i : hot) cache_[i].loaded = true;
}
