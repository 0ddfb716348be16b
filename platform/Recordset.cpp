#include "platform/Recordset.h"

#include "platform/Currency.h"
#include "platform/DateText.h"

#include <QDateTime>
#include <QRegularExpression>
#include <cmath>
#include <sqlite3.h>

namespace {

const QString kRowidAlias = QStringLiteral("__lk_rowid");
// When a result is wide enough to step by key, and when a column has been read
// often enough, over enough loaded rows, to be worth a pass of its own.
constexpr size_t kKeyedMinColumns = 8;
constexpr int kKeyedRowsBeforeBulk = 32;
constexpr int kKeyedHotReads = 8;

QString Quoted(const QString& name) {
    return QLatin1Char('"') + QString(name).replace(QLatin1Char('"'), QLatin1String("\"\"")) + QLatin1Char('"');
}

// The text a value becomes in a text column, as the program's own conversion
// to text would write it.
QString ValueText(const QVariant& v) {
    switch (v.typeId()) {
    case QMetaType::Bool:
        return v.toBool() ? QStringLiteral("True") : QStringLiteral("False");
    case QMetaType::Double:
    case QMetaType::Float:
        return QString::number(v.toDouble(), 'g', 15);
    case QMetaType::QDate:
        return v.toDate().toString(QStringLiteral("M/d/yyyy"));
    case QMetaType::QDateTime: {
        const QDateTime dt = v.toDateTime();
        if (dt.time() == QTime(0, 0)) return dt.date().toString(QStringLiteral("M/d/yyyy"));
        return dt.toString(QStringLiteral("M/d/yyyy h:mm:ss AP"));
    }
    default:
        if (v.metaType() == QMetaType::fromType<Currency>()) return v.value<Currency>().toString();
        return v.toString();
    }
}

std::optional<double> NumberOf(const QVariant& v, bool allowDollar) {
    if (v.metaType() == QMetaType::fromType<Currency>()) return v.value<Currency>().toDouble();
    switch (v.typeId()) {
    case QMetaType::Bool:
        return v.toBool() ? -1.0 : 0.0;
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Double:
    case QMetaType::Float:
    case QMetaType::Short:
    case QMetaType::UShort:
        return v.toDouble();
    case QMetaType::QString: {
        QString t = v.toString().trimmed();
        if (allowDollar && t.startsWith(QLatin1Char('$'))) t = t.mid(1).trimmed();
        static const QRegularExpression numberRe(
            QStringLiteral("^[+-]?(\\d+\\.?\\d*|\\.\\d+)([eE][+-]?\\d+)?$"));
        if (!numberRe.match(t).hasMatch()) return std::nullopt;
        return t.toDouble();
    }
    default:
        return std::nullopt;
    }
}

// What a written value becomes in storage, with the store's own refusals.
QVariant ToStorage(const QVariant& v, ColumnKind kind, int length) {
    if (v.isNull()) return {};
    switch (kind) {
    case ColumnKind::Text:
    case ColumnKind::LongText:
    case ColumnKind::DateText: {
        QString text;
        if (kind == ColumnKind::DateText &&
            (v.typeId() == QMetaType::QDate || v.typeId() == QMetaType::QDateTime)) {
            text = v.typeId() == QMetaType::QDate ? IsoDateText(v.toDate()) : IsoDateText(v.toDateTime());
        } else {
            text = ValueText(v);
            if (kind == ColumnKind::DateText) {
                if (const auto d = ParseDateText(text)) text = IsoDateText(*d);
            }
        }
        if (kind != ColumnKind::LongText && length > 0 && text.size() > length)
            throw RuntimeError(Err::FieldTooSmall);
        return text;
    }
    case ColumnKind::Boolean: {
        if (v.typeId() == QMetaType::QString) {
            const QString t = v.toString().trimmed();
            if (t.compare(QLatin1String("True"), Qt::CaseInsensitive) == 0) return qint64(1);
            if (t.compare(QLatin1String("False"), Qt::CaseInsensitive) == 0) return qint64(0);
        }
        const auto n = NumberOf(v, false);
        if (!n) throw RuntimeError(Err::TypeMismatch);
        return qint64(*n != 0 ? 1 : 0);
    }
    case ColumnKind::Int16:
    case ColumnKind::Int32: {
        const auto n = NumberOf(v, false);
        if (!n) throw RuntimeError(Err::TypeMismatch);
        const double r = std::nearbyint(*n);  // ties go to even, as the store rounds
        const double lo = kind == ColumnKind::Int16 ? -32768.0 : -2147483648.0;
        const double hi = kind == ColumnKind::Int16 ? 32767.0 : 2147483647.0;
        if (r < lo || r > hi) throw RuntimeError(Err::Overflow);
        return qint64(r);
    }
    case ColumnKind::Double: {
        const auto n = NumberOf(v, false);
        if (!n) throw RuntimeError(Err::TypeMismatch);
        return *n;
    }
    case ColumnKind::Currency: {
        if (v.metaType() == QMetaType::fromType<Currency>()) return v.value<Currency>().toDouble();
        const auto n = NumberOf(v, true);
        if (!n) throw RuntimeError(Err::TypeMismatch);
        return Currency::fromDouble(*n).toDouble();
    }
    case ColumnKind::Date: {
        if (v.typeId() == QMetaType::QDate) return IsoDateText(v.toDate());
        if (v.typeId() == QMetaType::QDateTime) return IsoDateText(v.toDateTime());
        if (v.typeId() == QMetaType::QString) {
            if (const auto d = ParseDateText(v.toString().trimmed())) return IsoDateText(*d);
        }
        throw RuntimeError(Err::TypeMismatch);
    }
    case ColumnKind::Other:
        break;
    }
    if (v.metaType() == QMetaType::fromType<Currency>()) return v.value<Currency>().toDouble();
    return v;
}

void Bind(sqlite3_stmt* st, int i, const QVariant& v) {
    if (v.isNull()) {
        sqlite3_bind_null(st, i);
        return;
    }
    switch (v.typeId()) {
    case QMetaType::LongLong:
    case QMetaType::Int:
    case QMetaType::Bool:
        sqlite3_bind_int64(st, i, v.toLongLong());
        break;
    case QMetaType::Double:
        sqlite3_bind_double(st, i, v.toDouble());
        break;
    default: {
        const QByteArray text = v.toString().toUtf8();
        sqlite3_bind_text(st, i, text.constData(), int(text.size()), SQLITE_TRANSIENT);
    }
    }
}

// A value waiting in the edit buffer, seen as a read of the column would give it.
QVariant FromStorage(const QVariant& v, ColumnKind kind) {
    if (v.isNull()) return {};
    switch (kind) {
    case ColumnKind::Boolean:
        return v.toLongLong() != 0;
    case ColumnKind::Currency:
        return QVariant::fromValue(Currency::fromDouble(v.toDouble()));
    case ColumnKind::Int16:
    case ColumnKind::Int32:
        return int(v.toLongLong());
    case ColumnKind::Date:
        if (const auto d = ParseDateText(v.toString())) return *d;
        return v;
    default:
        return v;
    }
}

}  // namespace

Recordset::Recordset() = default;

Recordset::~Recordset() { Close(); }

void Recordset::Close() {
    if (stmt_) sqlite3_finalize(stmt_);
    stmt_ = nullptr;
    if (db_ && writes_ > 0) db_->WritesFinished(writes_);
    writes_ = 0;
    db_ = nullptr;
    done_ = false;
    rows_.clear();
    added_.clear();
    ownRowids_.clear();
    columns_.clear();
    index_.clear();
    recent_.fill({});
    pending_.clear();
    edit_ = Edit::None;
    at_ = At::EOF_;
    pos_ = 0;
    countCache_ = -1;
    anyWrites_ = false;
    updatable_ = hasRowid_ = false;
    table_.clear();
    keyed_ = false;
    withRowid_.clear();
    keyOrder_.clear();
    cache_.clear();
    reads_.clear();
    rowLoads_ = 0;
}

void Recordset::Open(const QString& sql, Database& db, int cursorType, int lockType) {
    Close();
    if (!db.IsOpen()) throw DbError(Err::ClosedRecordset);
    const QString translated = Database::TranslateQuery(sql);

    // Asking for the rowid as an extra first column is how we learn the one base
    // table a row can be written back to; a join or a grouping refuses it.
    static const QRegularExpression headRe(QStringLiteral("^\\s*SELECT\\b(\\s+ALL\\b)?"),
                                           QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression distinctRe(QStringLiteral("^\\s*SELECT\\s+DISTINCT\\b"),
                                               QRegularExpression::CaseInsensitiveOption);
    sqlite3_stmt* st = nullptr;
    const auto head = headRe.match(translated);
    if (head.hasMatch() && !distinctRe.match(translated).hasMatch()) {
        const QString withRowid = translated.left(head.capturedEnd()) + QStringLiteral(" _rowid_ AS ") +
                                  kRowidAlias + QStringLiteral(", ") + translated.mid(head.capturedEnd());
        QString ignored;
        st = db.PrepareQuery(withRowid, &ignored);
        if (st && !sqlite3_column_table_name(st, 0)) {
            sqlite3_finalize(st);
            st = nullptr;
        }
        if (st) {
            hasRowid_ = true;
            table_ = QString::fromUtf8(sqlite3_column_table_name(st, 0));
            // Kept for the key and column passes, which wrap it as a subquery.
            withRowid_ = withRowid.trimmed();
            while (withRowid_.endsWith(QLatin1Char(';'))) withRowid_ = withRowid_.chopped(1).trimmed();
        }
    }
    if (!st) st = db.PrepareQuery(translated);

    db_ = &db;
    sql_ = translated;
    cursorType_ = cursorType;
    lockType_ = lockType;
    stmt_ = st;

    const TableInfo* base = hasRowid_ ? db.Table(table_) : nullptr;
    const int first = hasRowid_ ? 1 : 0;
    const int n = sqlite3_column_count(st);
    for (int i = first; i < n; ++i) {
        Column c;
        c.name = QString::fromUtf8(sqlite3_column_name(st, i));
        const char* originTable = sqlite3_column_table_name(st, i);
        const char* originColumn = sqlite3_column_origin_name(st, i);
        if (originTable && originColumn) {
            const QString t = QString::fromUtf8(originTable);
            if (const TableInfo* info = db.Table(t)) {
                if (const ColumnInfo* ci = info->column(QString::fromUtf8(originColumn))) {
                    c.kind = ci->kind;
                    c.length = ci->length;
                }
            }
            if (base && t.compare(table_, Qt::CaseInsensitive) == 0) c.origin = QString::fromUtf8(originColumn);
            // A join repeats names; the table-qualified form reaches the second one.
            index_.insert((t + QLatin1Char('.') + c.name).toLower(), int(columns_.size()));
        }
        const QString key = c.name.toLower();
        if (!index_.contains(key)) index_.insert(key, int(columns_.size()));
        columns_.push_back(c);
    }
    updatable_ = hasRowid_ && lockType != adLockReadOnly;

    // Narrow results gain nothing from stepping keys alone; computed or
    // repeated columns could not be read back by name from the base table.
    bool keyed = fetchByKey_ && hasRowid_ && columns_.size() >= kKeyedMinColumns;
    if (keyed) {
        QSet<QString> names;
        for (const Column& c : columns_) {
            keyed = keyed && !c.origin.isEmpty();
            names.insert(c.name.toLower());
        }
        keyed = keyed && names.size() == qsizetype(columns_.size());
    }
    sqlite3_stmt* keys = nullptr;
    if (keyed) {
        // Unordered, the full statement reads the table in its own order;
        // alone, the keys would come from whichever index is smallest.
        static const QRegularExpression orderRe(QStringLiteral("\\bORDER\\s+BY\\b"),
                                                QRegularExpression::CaseInsensitiveOption);
        if (!orderRe.match(withRowid_).hasMatch()) keyOrder_ = QStringLiteral(" ORDER BY ") + kRowidAlias;
        QString refused;
        keys = db.PrepareQuery(QStringLiteral("SELECT ") + kRowidAlias + QStringLiteral(" FROM (") + withRowid_ +
                                   QLatin1Char(')') + keyOrder_,
                               &refused);
    }
    if (keys) {
        sqlite3_finalize(stmt_);
        stmt_ = keys;
        keyed_ = true;
        cache_.resize(columns_.size());
        reads_.assign(columns_.size(), 0);
    }

    if (hasRowid_) {
        // Rows inserted after this point by anyone else stay out of this cursor.
        sqlite3_stmt* mx = db.CachedStatement(QStringLiteral("SELECT max(_rowid_) FROM ") + Quoted(table_));
        if (sqlite3_step(mx) == SQLITE_ROW) maxRowidAtOpen_ = sqlite3_column_int64(mx, 0);
        sqlite3_reset(mx);
    }

    if (FetchOne())
        SetPosition(At::Base, 0);
    else
        SetPosition(At::EOF_, 0);
}

QVariant Recordset::CellValue(const Cell& cell, const char* bytes, ColumnKind kind) {
    const int type = cell.type;
    if (type == SQLITE_NULL) return {};
    auto text = [&] {
        if (type == SQLITE_INTEGER) return QString::number(cell.integer);
        if (type == SQLITE_FLOAT) return QString::number(cell.real, 'g', 15);
        return QString::fromUtf8(bytes, cell.bytes);
    };
    switch (kind) {
    case ColumnKind::Text:
    case ColumnKind::LongText:
    case ColumnKind::DateText:
        return text();
    case ColumnKind::Boolean:
        if (type == SQLITE_TEXT) {
            const QString t = text().trimmed();
            if (t.compare(QLatin1String("True"), Qt::CaseInsensitive) == 0) return true;
            if (t.compare(QLatin1String("False"), Qt::CaseInsensitive) == 0) return false;
            return t.toDouble() != 0;
        }
        return type == SQLITE_INTEGER ? cell.integer != 0 : cell.real != 0;
    case ColumnKind::Currency:
        return QVariant::fromValue(Currency::fromDouble(type == SQLITE_INTEGER ? double(cell.integer)
                                                        : type == SQLITE_FLOAT ? cell.real
                                                                                : text().toDouble()));
    case ColumnKind::Int16:
    case ColumnKind::Int32:
        return int(type == SQLITE_INTEGER ? cell.integer
                   : type == SQLITE_FLOAT ? qint64(cell.real)
                                          : text().toLongLong());
    case ColumnKind::Double:
        return type == SQLITE_INTEGER ? double(cell.integer) : type == SQLITE_FLOAT ? cell.real : text().toDouble();
    case ColumnKind::Date: {
        const QString t = text();
        if (const auto d = ParseDateText(t)) return *d;
        return t;
    }
    case ColumnKind::Other:
        break;
    }
    switch (type) {
    case SQLITE_INTEGER:
        if (cell.integer >= INT_MIN && cell.integer <= INT_MAX) return int(cell.integer);
        return cell.integer;
    case SQLITE_FLOAT:
        return cell.real;
    case SQLITE_BLOB:
        return QByteArray(bytes, cell.bytes);
    default:
        return text();
    }
}

Recordset::Cell Recordset::PeekCell(sqlite3_stmt* st, int col, const char** bytes) {
    Cell cell;
    cell.type = sqlite3_column_type(st, col);
    switch (cell.type) {
    case SQLITE_INTEGER:
        cell.integer = sqlite3_column_int64(st, col);
        break;
    case SQLITE_FLOAT:
        cell.real = sqlite3_column_double(st, col);
        break;
    case SQLITE_NULL:
        break;
    default:
        *bytes = cell.type == SQLITE_BLOB ? static_cast<const char*>(sqlite3_column_blob(st, col))
                                          : reinterpret_cast<const char*>(sqlite3_column_text(st, col));
        cell.bytes = sqlite3_column_bytes(st, col);
    }
    return cell;
}

Recordset::Cell Recordset::ReadCell(sqlite3_stmt* st, int col, QByteArray* raw) {
    const char* bytes = nullptr;
    Cell cell = PeekCell(st, col, &bytes);
    if (bytes) {
        cell.offset = int(raw->size());
        raw->append(bytes, cell.bytes);
    }
    return cell;
}

QVariant Recordset::ReadValue(sqlite3_stmt* st, int col, ColumnKind kind) const {
    // Decoded straight from the statement's own buffer: no copy to keep.
    const char* bytes = nullptr;
    const Cell cell = PeekCell(st, col, &bytes);
    return CellValue(cell, bytes, kind);
}

QVariant Recordset::RowValue(const Row& row, int col) const {
    if (!row.values.empty()) return row.values[col];
    if (row.keyOnly) return KeyedValue(const_cast<Row&>(row), col);
    const Cell& cell = row.cells[col];
    return CellValue(cell, row.raw.constData() + cell.offset, columns_[col].kind);
}

void Recordset::Materialize(Row& row) const {
    if (!row.values.empty()) return;
    if (row.keyOnly) {
        LoadRow(row);
        return;
    }
    std::vector<QVariant> values;
    values.reserve(columns_.size());
    for (size_t i = 0; i < columns_.size(); ++i) values.push_back(RowValue(row, int(i)));
    row.values = std::move(values);
    row.cells.clear();
    row.raw.clear();
}

bool Recordset::FetchOne() const {
    while (stmt_ && !done_) {
        const int rc = sqlite3_step(stmt_);
        if (rc == SQLITE_DONE) {
            done_ = true;
            sqlite3_finalize(stmt_);
            stmt_ = nullptr;
            return false;
        }
        if (rc != SQLITE_ROW) {
            const QString why = QString::fromUtf8(sqlite3_errmsg(db_->Handle()));
            done_ = true;
            sqlite3_finalize(stmt_);
            stmt_ = nullptr;
            throw DbError(why);
        }
        Row row;
        int first = 0;
        if (hasRowid_) {
            row.rowid = sqlite3_column_int64(stmt_, 0);
            first = 1;
            // Writes made while this cursor is half read may surface again in
            // the statement; this cursor already holds them, or never saw them.
            if (row.rowid > maxRowidAtOpen_) continue;
            if (anyWrites_) {
                if (ownRowids_.contains(row.rowid)) continue;
                ownRowids_.insert(row.rowid);
            }
        }
        if (keyed_) {
            row.keyOnly = true;
            rows_.push_back(std::move(row));
            return true;
        }
        row.cells.reserve(columns_.size());
        for (size_t i = 0; i < columns_.size(); ++i) row.cells.push_back(ReadCell(stmt_, int(i) + first, &row.raw));
        rows_.push_back(std::move(row));
        return true;
    }
    return false;
}

QVariant Recordset::KeyedValue(Row& row, int col) const {
    ColumnCache& cache = cache_[col];
    if (!cache.loaded && ++rowLoads_ > kKeyedRowsBeforeBulk && reads_[col] >= kKeyedHotReads) LoadHotColumns(col);
    if (cache.loaded) {
        const size_t position = &row >= rows_.data() && &row < rows_.data() + rows_.size() ? size_t(&row - rows_.data())
                                                                                         : cache.rowids.size();
        if (const QVariant* v = cache.Find(position, row.rowid)) return *v;
    }
    LoadRow(row);
    return row.values[col];
}

const QVariant* Recordset::ColumnCache::Find(size_t position, qint64 rowid) {
    if (position < rowids.size() && rowids[position] == rowid) return &values[position];
    if (byRowid.empty() && !rowids.empty()) {
        byRowid.resize(rowids.size());
        for (size_t i = 0; i < rowids.size(); ++i) byRowid[i] = int(i);
        std::sort(byRowid.begin(), byRowid.end(), [this](int a, int b) { return rowids[a] < rowids[b]; });
    }
    const auto it = std::lower_bound(byRowid.begin(), byRowid.end(), rowid,
                                     [this](int i, qint64 key) { return rowids[i] < key; });
    if (it == byRowid.end() || rowids[*it] != rowid) return nullptr;
    return &values[*it];
}

// The whole row from the base table; a row deleted meanwhile reads as empty.
void Recordset::LoadRow(Row& row) const {
    QStringList cols;
    for (const Column& c : columns_) cols << Quoted(c.origin);
    sqlite3_stmt* st = db_->CachedStatement(
        QStringLiteral("SELECT %1 FROM %2 WHERE _rowid_=?").arg(cols.join(QLatin1Char(',')), Quoted(table_)));
    sqlite3_bind_int64(st, 1, row.rowid);
    row.values.assign(columns_.size(), QVariant());
    if (sqlite3_step(st) == SQLITE_ROW) {
        for (size_t i = 0; i < columns_.size(); ++i) row.values[i] = ReadValue(st, int(i), columns_[i].kind);
    }
    sqlite3_reset(st);
    row.keyOnly = false;
}

// Every column that loops have been reading, in one pass over the result.
void Recordset::LoadHotColumns(int col) const {
    std::vector<int> hot;
    QStringList names;
    for (size_t i = 0; i < columns_.size(); ++i) {
        if (cache_[i].loaded || (int(i) != col && reads_[i] < kKeyedHotReads)) continue;
        hot.push_back(int(i));
        names << Quoted(columns_[i].name);
    }
    sqlite3_stmt* st = db_->PrepareQuery(QStringLiteral("SELECT %1, %2 FROM (%3)")
                                             .arg(kRowidAlias, names.join(QLatin1Char(',')), withRowid_) +
                                         keyOrder_);
    int rc;
    while ((rc = sqlite3_step(st)) == SQLITE_ROW) {
        const qint64 rowid = sqlite3_column_int64(st, 0);
        for (size_t k = 0; k < hot.size(); ++k) {
            ColumnCache& cache = cache_[hot[k]];
            cache.rowids.push_back(rowid);
            cache.values.push_back(ReadValue(st, int(k) + 1, columns_[hot[k]].kind));
        }
    }
    sqlite3_finalize(st);
    if (rc != SQLITE_DONE) throw DbError(QString::fromUtf8(sqlite3_errmsg(db_->Handle())));
    for (int i : hot) cache_[i].loaded = true;
}

void Recordset::FetchAll() const {
    while (FetchOne()) {
    }
}

void Recordset::SetPosition(At at, int index) const {
    at_ = at;
    pos_ = index;
}

// Moves to the first live base row at or beyond index (step +1) or at or before it
// (step -1). Returns false when there is none.
bool Recordset::SeekBaseFrom(int index, int step) const {
    for (int i = index; i >= 0; i += step) {
        if (i >= int(rows_.size()) && (step < 0 || !FetchOne())) return false;
        if (i < int(rows_.size()) && !rows_[i].deleted) {
            SetPosition(At::Base, i);
            return true;
        }
    }
    return false;
}

bool Recordset::SeekAddedFrom(int index, int step) const {
    for (int i = index; i >= 0 && i < int(added_.size()); i += step) {
        if (!added_[i].deleted) {
            SetPosition(At::Added, i);
            return true;
        }
    }
    return false;
}

void Recordset::Resolve() const {
    if (at_ != At::LastPending) return;
    FetchAll();
    if (!SeekAddedFrom(int(added_.size()) - 1, -1) && !SeekBaseFrom(int(rows_.size()) - 1, -1))
        SetPosition(At::EOF_, 0);
}

bool Recordset::HasLiveRow() const {
    for (const Row& r : added_)
        if (!r.deleted) return true;
    for (const Row& r : rows_)
        if (!r.deleted) return true;
    FetchAll();
    for (const Row& r : rows_)
        if (!r.deleted) return true;
    return false;
}

bool Recordset::IsBOF() const {
    RequireOpen();
    Resolve();
    if (at_ == At::BOF) return true;
    return at_ == At::EOF_ && !HasLiveRow();
}

bool Recordset::IsEOF() const {
    RequireOpen();
    if (at_ == At::LastPending && !anyWrites_) return false;
    Resolve();
    if (at_ == At::EOF_) return true;
    return at_ == At::BOF && !HasLiveRow();
}

qint32 Recordset::RecordCount() {
    RequireOpen();
    if (cursorType_ == adOpenForwardOnly) return -1;
    // A short result is cheaper to read than to count with a second query.
    for (int i = 0; i < 64 && !done_; ++i) FetchOne();
    if (!done_ && !anyWrites_) {
        if (countCache_ < 0) {
            sqlite3_stmt* st = db_->PrepareQuery(QStringLiteral("SELECT COUNT(*) FROM (") + sql_ + QLatin1Char(')'));
            if (sqlite3_step(st) == SQLITE_ROW) countCache_ = qint32(sqlite3_column_int64(st, 0));
            sqlite3_finalize(st);
        }
        return countCache_;
    }
    FetchAll();
    qint32 n = 0;
    for (const Row& r : rows_) n += r.deleted ? 0 : 1;
    for (const Row& r : added_) n += r.deleted ? 0 : 1;
    return n;
}

void Recordset::MoveFirst() {
    RequireOpen();
    FlushEdit();
    if (!SeekBaseFrom(0, 1) && !SeekAddedFrom(0, 1)) SetPosition(At::EOF_, 0);
}

void Recordset::MoveNext() {
    RequireOpen();
    FlushEdit();
    Resolve();
    switch (at_) {
    case At::BOF:
        MoveFirst();
        return;
    case At::Base:
        if (SeekBaseFrom(pos_ + 1, 1) || SeekAddedFrom(0, 1)) return;
        break;
    case At::Added:
        if (SeekAddedFrom(pos_ + 1, 1)) return;
        break;
    case At::EOF_:
    case At::LastPending:
        throw RuntimeError(Err::NoCurrentRecord);
    }
    SetPosition(At::EOF_, 0);
}

void Recordset::MovePrevious() {
    RequireOpen();
    if (cursorType_ == adOpenForwardOnly) throw DbError(Err::ForwardOnly);
    FlushEdit();
    Resolve();
    switch (at_) {
    case At::BOF:
    case At::LastPending:
        throw RuntimeError(Err::NoCurrentRecord);
    case At::EOF_:
        SetPosition(At::LastPending, 0);
        Resolve();
        if (at_ == At::EOF_) SetPosition(At::BOF, 0);
        return;
    case At::Added:
        if (SeekAddedFrom(pos_ - 1, -1)) return;
        FetchAll();
        if (SeekBaseFrom(int(rows_.size()) - 1, -1)) return;
        break;
    case At::Base:
        if (SeekBaseFrom(pos_ - 1, -1)) return;
        break;
    }
    SetPosition(At::BOF, 0);
}

void Recordset::MoveLast() {
    RequireOpen();
    if (cursorType_ == adOpenForwardOnly) throw DbError(Err::ForwardOnly);
    FlushEdit();
    // Left unresolved until something reads the row: adding a row after moving
    // last must not read the whole table.
    if (HasLiveRow()) SetPosition(At::LastPending, 0);
    else SetPosition(At::EOF_, 0);
}

Recordset::Row* Recordset::CurrentRow() const {
    Resolve();
    Row* row = nullptr;
    if (at_ == At::Base) row = &rows_[pos_];
    else if (at_ == At::Added) row = &added_[pos_];
    if (!row || row->deleted) throw RuntimeError(Err::NoCurrentRecord);
    return row;
}

int Recordset::ColumnIndex(const QString& name) const {
    // Loops read the same few names row after row; an exact match with a recent
    // name spares folding its case again.
    for (const auto& [cached, col] : recent_)
        if (cached.size() == name.size() && cached == name) return col;
    const auto it = index_.constFind(name.toLower());
    if (it == index_.cend()) throw RuntimeError(Err::ItemNotFound);
    recent_[recentNext_] = {name, *it};
    recentNext_ = (recentNext_ + 1) % int(recent_.size());
    return *it;
}

// Rows already read must not surface again once this cursor starts writing.
void Recordset::NoteWriting() {
    ++writes_;
    if (anyWrites_) return;
    anyWrites_ = true;
    countCache_ = -1;
    if (done_) return;
    for (const Row& r : rows_) ownRowids_.insert(r.rowid);
}

void Recordset::RequireOpen() const {
    if (!db_) throw RuntimeError(Err::ClosedRecordset);
}

void Recordset::RequireUpdatable() const {
    RequireOpen();
    if (!updatable_) throw DbError(Err::NotUpdatable);
}

QString Recordset::FieldName(int i) const {
    if (i < 0 || i >= int(columns_.size())) throw RuntimeError(Err::ItemNotFound);
    return columns_[i].name;
}

QVariant Recordset::Field(const QString& name) const {
    RequireOpen();
    const int col = ColumnIndex(name);
    if (keyed_) ++reads_[col];
    if (edit_ != Edit::None) {
        const auto it = pending_.constFind(col);
        if (it != pending_.cend()) return FromStorage(*it, columns_[col].kind);
        if (edit_ == Edit::Adding) return {};
    }
    return RowValue(*CurrentRow(), col);
}

void Recordset::setField(const QString& name, const QVariant& value) {
    RequireUpdatable();
    const int col = ColumnIndex(name);
    const Column& c = columns_[col];
    if (c.origin.isEmpty()) throw DbError(Err::NotUpdatable);
    if (edit_ == Edit::None) {
        CurrentRow();  // editing needs a row to edit
        edit_ = Edit::Editing;
    }
    pending_.insert(col, ToStorage(value, c.kind, c.length));
}

void Recordset::AddNew() {
    RequireUpdatable();
    FlushEdit();
    edit_ = Edit::Adding;
    pending_.clear();
}

void Recordset::CancelUpdate() {
    edit_ = Edit::None;
    pending_.clear();
}

void Recordset::FlushEdit() {
    if (edit_ != Edit::None) Update();
}

void Recordset::Update() {
    RequireUpdatable();
    if (edit_ == Edit::None) return;
    QStringList names;
    QList<QVariant> values;
    for (auto it = pending_.cbegin(); it != pending_.cend(); ++it) {
        names << Quoted(columns_[it.key()].origin);
        values << it.value();
    }
    NoteWriting();
    if (edit_ == Edit::Adding) {
        QString sql;
        if (names.isEmpty()) {
            sql = QStringLiteral("INSERT INTO %1 DEFAULT VALUES").arg(Quoted(table_));
        } else {
            QStringList marks;
            for (int i = 0; i < names.size(); ++i) marks << QStringLiteral("?");
            sql = QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
                      .arg(Quoted(table_), names.join(QLatin1Char(',')), marks.join(QLatin1Char(',')));
        }
        sqlite3_stmt* st = db_->CachedStatement(sql);
        for (int i = 0; i < values.size(); ++i) Bind(st, i + 1, values[i]);
        const int rc = sqlite3_step(st);
        sqlite3_reset(st);
        if (rc != SQLITE_DONE) db_->ThrowLastError();
        Row row;
        row.rowid = sqlite3_last_insert_rowid(db_->Handle());
        row.values.resize(columns_.size());
        ReloadRow(row);
        ownRowids_.insert(row.rowid);
        added_.push_back(std::move(row));
        SetPosition(At::Added, int(added_.size()) - 1);
    } else {
        Row* row = CurrentRow();
        if (!names.isEmpty()) {
            QStringList sets;
            for (const QString& n : names) sets << n + QStringLiteral("=?");
            const QString sql = QStringLiteral("UPDATE %1 SET %2 WHERE _rowid_=?").arg(Quoted(table_), sets.join(QLatin1Char(',')));
            sqlite3_stmt* st = db_->CachedStatement(sql);
            for (int i = 0; i < values.size(); ++i) Bind(st, i + 1, values[i]);
            sqlite3_bind_int64(st, int(values.size()) + 1, row->rowid);
            const int rc = sqlite3_step(st);
            sqlite3_reset(st);
            if (rc != SQLITE_DONE) db_->ThrowLastError();
            ReloadRow(*row);
        }
    }
    edit_ = Edit::None;
    pending_.clear();
}

// Reads the row back so that defaults and the new key show through the cursor.
void Recordset::ReloadRow(Row& row) {
    Materialize(row);
    QStringList cols;
    std::vector<int> map;
    for (size_t i = 0; i < columns_.size(); ++i) {
        if (columns_[i].origin.isEmpty()) continue;
        cols << Quoted(columns_[i].origin);
        map.push_back(int(i));
    }
    if (cols.isEmpty()) return;
    const QString sql = QStringLiteral("SELECT %1 FROM %2 WHERE _rowid_=?").arg(cols.join(QLatin1Char(',')), Quoted(table_));
    sqlite3_stmt* st = db_->CachedStatement(sql);
    sqlite3_bind_int64(st, 1, row.rowid);
    if (sqlite3_step(st) == SQLITE_ROW) {
        for (size_t k = 0; k < map.size(); ++k)
            row.values[map[k]] = ReadValue(st, int(k), columns_[map[k]].kind);
    }
    sqlite3_reset(st);
}

void Recordset::Delete() {
    RequireUpdatable();
    CancelUpdate();
    Row* row = CurrentRow();
    sqlite3_stmt* st = db_->CachedStatement(QStringLiteral("DELETE FROM %1 WHERE _rowid_=?").arg(Quoted(table_)));
    sqlite3_bind_int64(st, 1, row->rowid);
    const int rc = sqlite3_step(st);
    sqlite3_reset(st);
    if (rc != SQLITE_DONE) db_->ThrowLastError();
    NoteWriting();
    row->deleted = true;
}
