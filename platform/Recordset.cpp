#include "platform/Recordset.h"

#include "platform/Currency.h"
#include "platform/DateText.h"

#include <QDateTime>
#include <QRegularExpression>
#include <cmath>
#include <cstdint>
#include <sqlite3.h>

namespace {

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
        static const QRegularExpression numberRe(QStringLiteral("^[+-]?(\\d+\\.?\\d*|\\.\\d+)([eE][+-]?\\d+)?$"));
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
        if (kind == ColumnKind::DateText && (v.typeId() == QMetaType::QDate || v.typeId() == QMetaType::QDateTime)) {
            text = v.typeId() == QMetaType::QDate ? IsoDateText(v.toDate()) : IsoDateText(v.toDateTime());
        } else {
            text = ValueText(v);
            if (kind == ColumnKind::DateText) {
                if (const auto d = ParseDateText(text)) text = IsoDateText(*d);
            }
        }
        if (kind != ColumnKind::LongText && length > 0 && text.size() > length) throw RuntimeError(Err::FieldTooSmall);
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

bool IsWordChar(QChar c) { return c.isLetterOrNumber() || c == QLatin1Char('_'); }

// Whether the outer query makes one row of many (SELECT DISTINCT, GROUP BY,
// HAVING, an aggregate among its own terms): such a row is no row of the base
// table, and its key would name an arbitrary member of the group. Texts,
// quoted names and whatever stands in parentheses (subqueries too) do not count.
bool Grouped(const QString& sql) {
    static const QLatin1StringView kAggregates[] = {QLatin1StringView("count"),        QLatin1StringView("sum"),
                                                    QLatin1StringView("avg"),          QLatin1StringView("min"),
                                                    QLatin1StringView("max"),          QLatin1StringView("total"),
                                                    QLatin1StringView("group_concat"), QLatin1StringView("string_agg")};
    const QStringView text(sql);
    const qsizetype n = text.size();
    int depth = 0;
    QStringView previous;
    for (qsizetype i = 0; i < n;) {
        const QChar c = text[i];
        if (c == QLatin1Char('\'') || c == QLatin1Char('"') || c == QLatin1Char('`')) {
            qsizetype j = i + 1;
            for (; j < n; ++j) {
                if (text[j] != c) continue;
                if (j + 1 < n && text[j + 1] == c) {  // a doubled quote stays inside
                    ++j;
                    continue;
                }
                break;
            }
            i = j + 1;
            previous = {};
            continue;
        }
        if (!IsWordChar(c)) {
            if (c == QLatin1Char('('))
                ++depth;
            else if (c == QLatin1Char(')'))
                --depth;
            ++i;
            continue;
        }
        qsizetype j = i;
        while (j < n && IsWordChar(text[j])) ++j;
        const QStringView word = text.mid(i, j - i);
        i = j;
        if (depth > 0) continue;
        auto is = [](QStringView w, QLatin1StringView name) {
            return w.size() == name.size() && w.compare(name, Qt::CaseInsensitive) == 0;
        };
        if (is(word, QLatin1StringView("having")) ||
            (is(word, QLatin1StringView("by")) && is(previous, QLatin1StringView("group"))) ||
            (is(word, QLatin1StringView("distinct")) && is(previous, QLatin1StringView("select"))))
            return true;
        previous = word;
        // Only a call can aggregate: the name must be followed by its arguments.
        while (j < n && text[j].isSpace()) ++j;
        if (j == n || text[j] != QLatin1Char('(')) continue;
        for (const QLatin1StringView aggregate : kAggregates)
            if (is(word, aggregate)) return true;
    }
    return false;
}

// One of the cursor's own writes: the values bound in order, one step.
void Write(Database& db, const QString& sql, const QList<QVariant>& values) {
    sqlite3_stmt* st = db.CachedStatement(sql);
    for (int i = 0; i < values.size(); ++i) Bind(st, i + 1, values[i]);
    const int rc = sqlite3_step(st);
    sqlite3_reset(st);
    if (rc != SQLITE_DONE) db.ThrowLastError();
}

}  // namespace

Recordset::Recordset() = default;

Recordset::~Recordset() { Close(); }

void Recordset::Close() {
    if (s_.stmt) sqlite3_finalize(s_.stmt);
    if (s_.db && s_.writes > 0) s_.db->WritesFinished(s_.writes);
    s_ = State();
}

void Recordset::Open(const QString& sql, Database& db, int cursorType, int lockType) {
    Close();
    if (!db.IsOpen()) throw DbError(Err::ClosedRecordset);
    const QString translated = Database::TranslateQuery(sql);

    // Asking for the rowid as an extra first column is how we learn the one base
    // table a row can be written back to; a join refuses it, and a grouping is
    // never asked.
    static const QRegularExpression headRe(QStringLiteral("^\\s*SELECT\\b(\\s+ALL\\b)?"),
                                           QRegularExpression::CaseInsensitiveOption);
    sqlite3_stmt* st = nullptr;
    QString withRowid;
    const auto head = headRe.match(translated);
    if (head.hasMatch() && !Grouped(translated)) {
        withRowid = translated.left(head.capturedEnd()) + QStringLiteral(" _rowid_ AS ") + KeyedRows::kKeyColumn +
                    QStringLiteral(", ") + translated.mid(head.capturedEnd());
        QString ignored;
        st = db.PrepareQuery(withRowid, &ignored);
        if (st && !sqlite3_column_table_name(st, 0)) {
            sqlite3_finalize(st);
            st = nullptr;
        }
        if (st) {
            s_.hasRowid = true;
            s_.table = QString::fromUtf8(sqlite3_column_table_name(st, 0));
        }
    }
    if (!st) st = db.PrepareQuery(translated);

    s_.db = &db;
    s_.sql = translated;
    s_.cursorType = cursorType;
    s_.stmt = st;

    const TableInfo* base = s_.hasRowid ? db.Table(s_.table) : nullptr;
    const int first = s_.hasRowid ? 1 : 0;
    const int n = sqlite3_column_count(st);
    for (int i = first; i < n; ++i) {
        ResultColumn c;
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
            if (base && t.compare(s_.table, Qt::CaseInsensitive) == 0) c.origin = QString::fromUtf8(originColumn);
            // A join repeats names; the table-qualified form reaches the second one.
            s_.index.insert((t + QLatin1Char('.') + c.name).toLower(), int(s_.columns.size()));
        }
        const QString key = c.name.toLower();
        if (!s_.index.contains(key)) s_.index.insert(key, int(s_.columns.size()));
        s_.columns.push_back(c);
    }
    s_.updatable = s_.hasRowid && lockType != adLockReadOnly;

    if (fetchByKey_ && s_.hasRowid) {
        // The key and column passes wrap the query as a subquery.
        withRowid = withRowid.trimmed();
        while (withRowid.endsWith(QLatin1Char(';'))) withRowid = withRowid.chopped(1).trimmed();
        if (sqlite3_stmt* keys = s_.keyed.Start(db, withRowid, s_.columns)) {
            sqlite3_finalize(s_.stmt);
            s_.stmt = keys;
        }
    }

    if (s_.hasRowid) {
        // Rows inserted after this point by anyone else stay out of this cursor.
        sqlite3_stmt* mx =
            db.CachedStatement(QStringLiteral("SELECT max(_rowid_) FROM ") + Database::QuoteName(s_.table));
        if (sqlite3_step(mx) == SQLITE_ROW) s_.maxRowidAtOpen = sqlite3_column_int64(mx, 0);
        sqlite3_reset(mx);
    }

    if (FetchOne())
        SetPosition(At::Base, 0);
    else
        SetPosition(At::EOF_, 0);
}

QVariant Recordset::RowValue(const Row& row, int col) const {
    if (!row.values.empty()) return row.values[col];
    if (row.keyOnly) {
        // The walk's own rows look at their place in a column pass first.
        const Row* rows = s_.rows.data();
        const size_t position = &row >= rows && &row < rows + s_.rows.size() ? size_t(&row - rows) : SIZE_MAX;
        if (const QVariant* v = s_.keyed.Cached(position, row.rowid, col)) return *v;
        Row& loaded = const_cast<Row&>(row);
        LoadRow(loaded);
        return loaded.values[col];
    }
    const SqliteCell& cell = row.cells[col];
    return cell.Value(row.raw.constData() + cell.offset, s_.columns[col].kind);
}

void Recordset::Materialize(Row& row) const {
    if (!row.values.empty()) return;
    if (row.keyOnly) {
        LoadRow(row);
        return;
    }
    std::vector<QVariant> values;
    values.reserve(s_.columns.size());
    for (size_t i = 0; i < s_.columns.size(); ++i) values.push_back(RowValue(row, int(i)));
    row.values = std::move(values);
    row.cells.clear();
    row.raw.clear();
}

bool Recordset::FetchOne() const {
    while (s_.stmt && !s_.done) {
        const int rc = sqlite3_step(s_.stmt);
        if (rc == SQLITE_DONE) {
            s_.done = true;
            sqlite3_finalize(s_.stmt);
            s_.stmt = nullptr;
            return false;
        }
        if (rc != SQLITE_ROW) {
            const QString why = QString::fromUtf8(sqlite3_errmsg(s_.db->Handle()));
            s_.done = true;
            sqlite3_finalize(s_.stmt);
            s_.stmt = nullptr;
            throw DbError(why);
        }
        Row row;
        int first = 0;
        if (s_.hasRowid) {
            row.rowid = sqlite3_column_int64(s_.stmt, 0);
            first = 1;
            // Writes made while this cursor is half read may surface again in
            // the statement; this cursor already holds them, or never saw them.
            if (row.rowid > s_.maxRowidAtOpen) continue;
            if (s_.anyWrites) {
                if (s_.ownRowids.contains(row.rowid)) continue;
                s_.ownRowids.insert(row.rowid);
            }
        }
        if (s_.keyed.Active()) {
            row.keyOnly = true;
            s_.rows.push_back(std::move(row));
            return true;
        }
        row.cells.reserve(s_.columns.size());
        for (size_t i = 0; i < s_.columns.size(); ++i)
            row.cells.push_back(SqliteCell::Copy(s_.stmt, int(i) + first, &row.raw));
        s_.rows.push_back(std::move(row));
        return true;
    }
    return false;
}

// The row's columns of the base table read again by its key; a row deleted
// meanwhile keeps what it had.
void Recordset::ReadBaseRow(Row& row) const {
    QStringList cols;
    std::vector<int> map;
    for (size_t i = 0; i < s_.columns.size(); ++i) {
        if (s_.columns[i].origin.isEmpty()) continue;
        cols << Database::QuoteName(s_.columns[i].origin);
        map.push_back(int(i));
    }
    if (cols.isEmpty()) return;
    sqlite3_stmt* st = s_.db->CachedStatement(QStringLiteral("SELECT %1 FROM %2 WHERE _rowid_=?")
                                                  .arg(cols.join(QLatin1Char(',')), Database::QuoteName(s_.table)));
    sqlite3_bind_int64(st, 1, row.rowid);
    if (sqlite3_step(st) == SQLITE_ROW) {
        for (size_t k = 0; k < map.size(); ++k)
            row.values[map[k]] = SqliteCell::Read(st, int(k), s_.columns[map[k]].kind);
    }
    sqlite3_reset(st);
}

// A row the keyed walk stopped at, whole; deleted meanwhile, it reads as empty.
void Recordset::LoadRow(Row& row) const {
    row.values.assign(s_.columns.size(), QVariant());
    ReadBaseRow(row);
    row.keyOnly = false;
}

// Reads the row back so that defaults and the new key show through the cursor.
void Recordset::ReloadRow(Row& row) {
    Materialize(row);
    ReadBaseRow(row);
}

void Recordset::FetchAll() const {
    while (FetchOne()) {}
}

void Recordset::SetPosition(At at, int index) const {
    s_.at = at;
    s_.pos = index;
}

// Moves to the first live base row at or beyond index (step +1) or at or before it
// (step -1). Returns false when there is none.
bool Recordset::SeekBaseFrom(int index, int step) const {
    for (int i = index; i >= 0; i += step) {
        if (i >= int(s_.rows.size()) && (step < 0 || !FetchOne())) return false;
        if (i < int(s_.rows.size()) && !s_.rows[i].deleted) {
            SetPosition(At::Base, i);
            return true;
        }
    }
    return false;
}

bool Recordset::SeekAddedFrom(int index, int step) const {
    for (int i = index; i >= 0 && i < int(s_.added.size()); i += step) {
        if (!s_.added[i].deleted) {
            SetPosition(At::Added, i);
            return true;
        }
    }
    return false;
}

void Recordset::Resolve() const {
    if (s_.at != At::LastPending) return;
    FetchAll();
    if (!SeekAddedFrom(int(s_.added.size()) - 1, -1) && !SeekBaseFrom(int(s_.rows.size()) - 1, -1))
        SetPosition(At::EOF_, 0);
}

bool Recordset::HasLiveRow() const {
    for (const Row& r : s_.added)
        if (!r.deleted) return true;
    for (const Row& r : s_.rows)
        if (!r.deleted) return true;
    FetchAll();
    for (const Row& r : s_.rows)
        if (!r.deleted) return true;
    return false;
}

bool Recordset::IsBOF() const {
    RequireOpen();
    Resolve();
    if (s_.at == At::BOF) return true;
    return s_.at == At::EOF_ && !HasLiveRow();
}

bool Recordset::IsEOF() const {
    RequireOpen();
    if (s_.at == At::LastPending && !s_.anyWrites) return false;
    Resolve();
    if (s_.at == At::EOF_) return true;
    return s_.at == At::BOF && !HasLiveRow();
}

qint32 Recordset::RecordCount() {
    RequireOpen();
    if (s_.cursorType == adOpenForwardOnly) return -1;
    // A short result is cheaper to read than to count with a second query.
    for (int i = 0; i < 64 && !s_.done; ++i) FetchOne();
    if (!s_.done && !s_.anyWrites) {
        if (s_.countCache < 0) {
            sqlite3_stmt* st =
                s_.db->PrepareQuery(QStringLiteral("SELECT COUNT(*) FROM (") + s_.sql + QLatin1Char(')'));
            if (sqlite3_step(st) == SQLITE_ROW) s_.countCache = qint32(sqlite3_column_int64(st, 0));
            sqlite3_finalize(st);
        }
        return s_.countCache;
    }
    FetchAll();
    qint32 n = 0;
    for (const Row& r : s_.rows) n += r.deleted ? 0 : 1;
    for (const Row& r : s_.added) n += r.deleted ? 0 : 1;
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
    switch (s_.at) {
    case At::BOF:
        MoveFirst();
        return;
    case At::Base:
        if (SeekBaseFrom(s_.pos + 1, 1) || SeekAddedFrom(0, 1)) return;
        break;
    case At::Added:
        if (SeekAddedFrom(s_.pos + 1, 1)) return;
        break;
    case At::EOF_:
    case At::LastPending:
        throw RuntimeError(Err::NoCurrentRecord);
    }
    SetPosition(At::EOF_, 0);
}

void Recordset::MovePrevious() {
    RequireOpen();
    if (s_.cursorType == adOpenForwardOnly) throw DbError(Err::ForwardOnly);
    FlushEdit();
    Resolve();
    switch (s_.at) {
    case At::BOF:
    case At::LastPending:
        throw RuntimeError(Err::NoCurrentRecord);
    case At::EOF_:
        SetPosition(At::LastPending, 0);
        Resolve();
        if (s_.at == At::EOF_) SetPosition(At::BOF, 0);
        return;
    case At::Added:
        if (SeekAddedFrom(s_.pos - 1, -1)) return;
        FetchAll();
        if (SeekBaseFrom(int(s_.rows.size()) - 1, -1)) return;
        break;
    case At::Base:
        if (SeekBaseFrom(s_.pos - 1, -1)) return;
        break;
    }
    SetPosition(At::BOF, 0);
}

void Recordset::MoveLast() {
    RequireOpen();
    if (s_.cursorType == adOpenForwardOnly) throw DbError(Err::ForwardOnly);
    FlushEdit();
    // Left unresolved until something reads the row: adding a row after moving
    // last must not read the whole table.
    if (HasLiveRow())
        SetPosition(At::LastPending, 0);
    else
        SetPosition(At::EOF_, 0);
}

Recordset::Row* Recordset::CurrentRow() const {
    Resolve();
    Row* row = nullptr;
    if (s_.at == At::Base)
        row = &s_.rows[s_.pos];
    else if (s_.at == At::Added)
        row = &s_.added[s_.pos];
    if (!row || row->deleted) throw RuntimeError(Err::NoCurrentRecord);
    return row;
}

int Recordset::ColumnIndex(const QString& name) const {
    // Loops read the same few names row after row; an exact match with a recent
    // name spares folding its case again.
    for (const auto& [cached, col] : s_.recent)
        if (cached.size() == name.size() && cached == name) return col;
    const auto it = s_.index.constFind(name.toLower());
    if (it == s_.index.cend()) throw RuntimeError(Err::ItemNotFound);
    s_.recent[s_.recentNext] = {name, *it};
    s_.recentNext = (s_.recentNext + 1) % int(s_.recent.size());
    return *it;
}

// Rows already read must not surface again once this cursor starts writing.
void Recordset::NoteWriting() {
    ++s_.writes;
    if (s_.anyWrites) return;
    s_.anyWrites = true;
    s_.countCache = -1;
    if (s_.done) return;
    for (const Row& r : s_.rows) s_.ownRowids.insert(r.rowid);
}

void Recordset::RequireOpen() const {
    if (!s_.db) throw RuntimeError(Err::ClosedRecordset);
}

void Recordset::RequireUpdatable() const {
    RequireOpen();
    if (!s_.updatable) throw DbError(Err::NotUpdatable);
}

QString Recordset::FieldName(int i) const {
    if (i < 0 || i >= int(s_.columns.size())) throw RuntimeError(Err::ItemNotFound);
    return s_.columns[i].name;
}

QVariant Recordset::Field(const QString& name) const {
    RequireOpen();
    const int col = ColumnIndex(name);
    s_.keyed.NoteRead(col);
    if (s_.edit != Edit::None) {
        const auto it = s_.pending.constFind(col);
        if (it != s_.pending.cend()) return FromStorage(*it, s_.columns[col].kind);
        if (s_.edit == Edit::Adding) return {};
    }
    return RowValue(*CurrentRow(), col);
}

void Recordset::setField(const QString& name, const QVariant& value) {
    RequireUpdatable();
    const int col = ColumnIndex(name);
    const ResultColumn& c = s_.columns[col];
    if (c.origin.isEmpty()) throw DbError(Err::NotUpdatable);
    if (s_.edit == Edit::None) {
        CurrentRow();  // editing needs a row to edit
        s_.edit = Edit::Editing;
    }
    s_.pending.insert(col, ToStorage(value, c.kind, c.length));
}

void Recordset::AddNew() {
    RequireUpdatable();
    FlushEdit();
    s_.edit = Edit::Adding;
    s_.pending.clear();
}

void Recordset::CancelUpdate() {
    s_.edit = Edit::None;
    s_.pending.clear();
}

void Recordset::FlushEdit() {
    if (s_.edit != Edit::None) Update();
}

void Recordset::Update() {
    RequireUpdatable();
    if (s_.edit == Edit::None) return;
    const QString table = Database::QuoteName(s_.table);
    QStringList names;
    QList<QVariant> values;
    for (auto it = s_.pending.cbegin(); it != s_.pending.cend(); ++it) {
        names << Database::QuoteName(s_.columns[it.key()].origin);
        values << it.value();
    }
    NoteWriting();
    if (s_.edit == Edit::Adding) {
        if (names.isEmpty()) {
            Write(*s_.db, QStringLiteral("INSERT INTO %1 DEFAULT VALUES").arg(table), values);
        } else {
            QStringList marks;
            for (int i = 0; i < names.size(); ++i) marks << QStringLiteral("?");
            Write(*s_.db,
                  QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
                      .arg(table, names.join(QLatin1Char(',')), marks.join(QLatin1Char(','))),
                  values);
        }
        Row row;
        row.rowid = sqlite3_last_insert_rowid(s_.db->Handle());
        row.values.resize(s_.columns.size());
        ReloadRow(row);
        s_.ownRowids.insert(row.rowid);
        s_.added.push_back(std::move(row));
        SetPosition(At::Added, int(s_.added.size()) - 1);
    } else {
        Row* row = CurrentRow();
        if (!names.isEmpty()) {
            QStringList sets;
            for (const QString& n : names) sets << n + QStringLiteral("=?");
            values << row->rowid;
            Write(*s_.db, QStringLiteral("UPDATE %1 SET %2 WHERE _rowid_=?").arg(table, sets.join(QLatin1Char(','))),
                  values);
            ReloadRow(*row);
        }
    }
    s_.edit = Edit::None;
    s_.pending.clear();
}

void Recordset::Delete() {
    RequireUpdatable();
    CancelUpdate();
    Row* row = CurrentRow();
    Write(*s_.db, QStringLiteral("DELETE FROM %1 WHERE _rowid_=?").arg(Database::QuoteName(s_.table)), {row->rowid});
    NoteWriting();
    row->deleted = true;
}
