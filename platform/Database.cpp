#include "platform/Database.h"

#include "platform/DateText.h"

#include <QFileInfo>
#include <QRegularExpression>
#include <memory>
#include <sqlite3.h>

namespace {

// Tables every Larderkeep database has; a file without them is someone else's.
const char* const kRequiredTables[] = {"Recipie", "ShopList", "Messages", "Coupons", "Product"};

ColumnInfo ParseColumn(const QString& name, const QString& declared) {
    ColumnInfo info;
    info.name = name;
    const QString type = declared.trimmed().toUpper();
    static const QRegularExpression lengthRe(QStringLiteral("\\((\\d+)\\)"));
    const auto m = lengthRe.match(type);
    const int length = m.hasMatch() ? m.captured(1).toInt() : 255;
    if (type.startsWith(QLatin1String("VARCHAR")) || type.startsWith(QLatin1String("CHAR")) ||
        type == QLatin1String("TEXT")) {
        info.kind = ColumnKind::Text;
        info.length = length;
    } else if (type.startsWith(QLatin1String("LONGTEXT"))) {
        info.kind = ColumnKind::LongText;
    } else if (type.startsWith(QLatin1String("DATETEXT"))) {
        info.kind = ColumnKind::DateText;
        info.length = length;
    } else if (type.startsWith(QLatin1String("DATETIME")) || type == QLatin1String("DATE")) {
        info.kind = ColumnKind::Date;
    } else if (type == QLatin1String("BOOLEAN")) {
        info.kind = ColumnKind::Boolean;
    } else if (type == QLatin1String("CURRENCY")) {
        info.kind = ColumnKind::Currency;
    } else if (type == QLatin1String("SMALLINT")) {
        info.kind = ColumnKind::Int16;
    } else if (type.startsWith(QLatin1String("INT"))) {
        info.kind = ColumnKind::Int32;
    } else if (type == QLatin1String("DOUBLE") || type == QLatin1String("REAL")) {
        info.kind = ColumnKind::Double;
    }
    return info;
}

bool IsWordChar(QChar c) { return c.isLetterOrNumber() || c == QLatin1Char('_'); }

// Opens a database file; a file that cannot be opened throws SQLite's words.
sqlite3* OpenFile(const QString& path, int flags) {
    sqlite3* db = nullptr;
    const int rc = sqlite3_open_v2(QFile::encodeName(path).constData(), &db, flags, nullptr);
    if (rc == SQLITE_OK) return db;
    const QString why = QString::fromUtf8(db ? sqlite3_errmsg(db) : sqlite3_errstr(rc));
    sqlite3_close_v2(db);
    throw DbError(why);
}

// Runs trusted statements; a failure throws SQLite's words.
void Exec(sqlite3* db, const QString& sql) {
    char* err = nullptr;
    const int rc = sqlite3_exec(db, sql.toUtf8().constData(), nullptr, nullptr, &err);
    if (rc == SQLITE_OK) return;
    const QString why = QString::fromUtf8(err ? err : sqlite3_errstr(rc));
    sqlite3_free(err);
    throw DbError(why);
}

// A connection that closes when the scope ends, whichever way it ends.
using Connection = std::unique_ptr<sqlite3, decltype(&sqlite3_close_v2)>;

}  // namespace

const ColumnInfo* TableInfo::column(const QString& name) const {
    const auto it = index.constFind(name.toLower());
    return it == index.cend() ? nullptr : &columns[*it];
}

Database::Database() = default;

Database::~Database() { Close(); }

void Database::Open(const QString& connectionString, const QString&, const QString&, int) {
    static const QRegularExpression sourceRe(QStringLiteral("Data Source\\s*=\\s*([^;]*)"),
                                             QRegularExpression::CaseInsensitiveOption);
    const auto m = sourceRe.match(connectionString);
    if (!m.hasMatch()) throw DbError(QStringLiteral("The connection string names no data source."));
    connectionString_ = connectionString;
    Open(m.captured(1).trimmed());
}

void Database::Open(const QString& path) {
    Close();
    const QFileInfo fi(path);
    if (!fi.exists() || !fi.isFile()) throw DbError(QStringLiteral("Could not find file '%1'.").arg(path));

    // One connection on one thread: SQLite's own locking would only cost time.
    Connection db(OpenFile(path, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX), &sqlite3_close_v2);
    sqlite3_busy_timeout(db.get(), 2000);
    // A name the query misspells must fail, never turn silently into a text value.
    sqlite3_db_config(db.get(), SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    sqlite3_db_config(db.get(), SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);

    // Reading the catalogue is what tells a database from any other file, and it
    // writes nothing.
    sqlite3_stmt* st = nullptr;
    int rc = sqlite3_prepare_v2(db.get(), "SELECT name FROM sqlite_master WHERE type='table'", -1, &st, nullptr);
    if (rc != SQLITE_OK) throw DbError(QString::fromUtf8(sqlite3_errmsg(db.get())));
    QStringList tables;
    while ((rc = sqlite3_step(st)) == SQLITE_ROW)
        tables << QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(st, 0))).toLower();
    const QString stepError = QString::fromUtf8(sqlite3_errmsg(db.get()));
    sqlite3_finalize(st);
    if (rc != SQLITE_DONE) throw DbError(stepError);
    for (const char* required : kRequiredTables)
        if (!tables.contains(QString::fromLatin1(required).toLower()))
            throw DbError(QStringLiteral("The file is not a Larderkeep database."));
    if (sqlite3_db_readonly(db.get(), "main") == 1) throw DbError(QStringLiteral("The database file is read-only."));

    Exec(db.get(), QStringLiteral("PRAGMA journal_mode=WAL; PRAGMA synchronous=NORMAL; PRAGMA foreign_keys=OFF; "
                                  "PRAGMA cache_size=-65536; PRAGMA mmap_size=268435456;"));
    // A write lock held by another program shows only when we try to take it.
    Exec(db.get(), QStringLiteral("BEGIN IMMEDIATE; COMMIT;"));

    db_ = db.release();
    path_ = fi.absoluteFilePath();
    if (connectionString_.isEmpty())
        connectionString_ = kConnectionText + path;
    sqlite3_set_authorizer(db_, &Database::Authorize, this);
}

void Database::Close() {
    if (!db_) return;
    FinalizeCache();
    tables_.clear();
    transDepth_ = 0;
    // close_v2 lets recordsets still open finish with their statements.
    sqlite3_close_v2(db_);
    db_ = nullptr;
}

void Database::FinalizeCache() {
    for (sqlite3_stmt* st : std::as_const(statements_)) sqlite3_finalize(st);
    statements_.clear();
}

bool Database::BeginTrans() {
    if (!db_) return false;
    if (transDepth_ == 0 && sqlite3_exec(db_, "BEGIN", nullptr, nullptr, nullptr) != SQLITE_OK) return false;
    ++transDepth_;
    return true;
}

void Database::CommitTrans() {
    if (!db_ || transDepth_ == 0) return;
    if (--transDepth_ == 0 && sqlite3_exec(db_, "COMMIT", nullptr, nullptr, nullptr) != SQLITE_OK) ThrowLastError();
}

void Database::RollbackTrans() {
    if (!db_ || transDepth_ == 0) return;
    transDepth_ = 0;
    sqlite3_exec(db_, "ROLLBACK", nullptr, nullptr, nullptr);
}

void Database::WritesFinished(int count) {
    if (!db_) return;
    writesSinceCheckpoint_ += count;
    if (writesSinceCheckpoint_ < 200) return;
    writesSinceCheckpoint_ = 0;
    sqlite3_wal_checkpoint_v2(db_, nullptr, SQLITE_CHECKPOINT_PASSIVE, nullptr, nullptr);
}

void Database::ThrowLastError() const {
    throw DbError(db_ ? QString::fromUtf8(sqlite3_errmsg(db_)) : Err::ClosedRecordset);
}

void Database::ExecScript(const QString& sql) {
    if (!db_) throw DbError(Err::ClosedRecordset);
    Exec(db_, sql);
    tables_.clear();
    FinalizeCache();
}

void Database::CreateFile(const QString& path, const QStringList& scripts) {
    QString all = QStringLiteral("PRAGMA journal_mode=DELETE; BEGIN;\n");
    for (const QString& s : scripts) all += s + QLatin1Char('\n');
    all += QStringLiteral("COMMIT; PRAGMA journal_mode=WAL;");
    try {
        Connection db(OpenFile(path, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE), &sqlite3_close_v2);
        Exec(db.get(), all);
    } catch (const DbError&) {
        QFile::remove(path);
        throw;
    }
}

void Database::CompactFile(const QString& source, const QString& target) {
    if (!QFileInfo::exists(source)) throw DbError(QStringLiteral("Could not find file '%1'.").arg(source));
    if (QFileInfo::exists(target)) throw DbError(QStringLiteral("Database '%1' already exists.").arg(target));
    Connection db(OpenFile(source, SQLITE_OPEN_READONLY), &sqlite3_close_v2);
    Exec(db.get(), QStringLiteral("VACUUM INTO '%1'").arg(QString(target).replace('\'', "''")));
}

int Database::Authorize(void* self, int action, const char*, const char*, const char*, const char*) {
    auto* db = static_cast<Database*>(self);
    if (!db->guard_) return SQLITE_OK;
    switch (action) {
    case SQLITE_SELECT:
    case SQLITE_READ:
    case SQLITE_FUNCTION:
    case SQLITE_RECURSIVE:
        return SQLITE_OK;
    default:
        return SQLITE_DENY;
    }
}

sqlite3_stmt* Database::PrepareQuery(const QString& translatedSql, QString* error) {
    if (!db_) throw DbError(Err::ClosedRecordset);
    const QByteArray text = translatedSql.toUtf8();
    sqlite3_stmt* st = nullptr;
    const char* tail = nullptr;
    guard_ = true;
    const int rc = sqlite3_prepare_v2(db_, text.constData(), int(text.size()), &st, &tail);
    guard_ = false;
    auto refuse = [&](const QString& why) -> sqlite3_stmt* {
        if (st) sqlite3_finalize(st);
        if (error) {
            *error = why;
            return nullptr;
        }
        throw DbError(why);
    };
    if (rc != SQLITE_OK) {
        QString why = QString::fromUtf8(sqlite3_errmsg(db_));
        if (why == QLatin1String("not authorized"))
            why = QStringLiteral("Only a SELECT query can be opened: %1").arg(translatedSql);
        return refuse(why);
    }
    if (!st) return refuse(QStringLiteral("The query is empty."));
    // One statement only: whatever follows the first must be blanks or semicolons.
    for (const char* p = tail; p && *p; ++p)
        if (*p != ';' && !QChar::isSpace(uchar(*p)))
            return refuse(QStringLiteral("Characters found after end of SQL statement."));
    static const QRegularExpression selectRe(QStringLiteral("^[\\s(]*SELECT\\b"),
                                             QRegularExpression::CaseInsensitiveOption);
    if (!selectRe.match(translatedSql).hasMatch() || !sqlite3_stmt_readonly(st))
        return refuse(QStringLiteral("Only a SELECT query can be opened: %1").arg(translatedSql));
    return st;
}

sqlite3_stmt* Database::CachedStatement(const QString& sql) {
    if (!db_) throw DbError(Err::ClosedRecordset);
    auto it = statements_.find(sql);
    if (it != statements_.end()) {
        sqlite3_reset(*it);
        sqlite3_clear_bindings(*it);
        return *it;
    }
    sqlite3_stmt* st = nullptr;
    const QByteArray text = sql.toUtf8();
    if (sqlite3_prepare_v3(db_, text.constData(), int(text.size()), SQLITE_PREPARE_PERSISTENT, &st, nullptr) !=
        SQLITE_OK)
        ThrowLastError();
    statements_.insert(sql, st);
    return st;
}

const TableInfo* Database::Table(const QString& name) {
    const QString key = name.toLower();
    auto it = tables_.constFind(key);
    if (it != tables_.cend()) return it->get();
    if (!db_) return nullptr;
    sqlite3_stmt* st = nullptr;
    const QByteArray sql = (QStringLiteral("PRAGMA table_info(") + QuoteName(name) + QLatin1Char(')')).toUtf8();
    if (sqlite3_prepare_v2(db_, sql.constData(), -1, &st, nullptr) != SQLITE_OK) return nullptr;
    auto info = std::make_shared<TableInfo>();
    info->name = name;
    while (sqlite3_step(st) == SQLITE_ROW) {
        const QString col = QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(st, 1)));
        const QString type = QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(st, 2)));
        info->index.insert(col.toLower(), int(info->columns.size()));
        info->columns.push_back(ParseColumn(col, type));
    }
    sqlite3_finalize(st);
    if (info->columns.isEmpty()) return nullptr;
    tables_.insert(key, info);
    return info.get();
}

QString Database::QuoteName(const QString& name) {
    return QLatin1Char('"') + QString(name).replace(QLatin1Char('"'), QLatin1String("\"\"")) + QLatin1Char('"');
}

QString Database::TranslateQuery(const QString& sql) {
    QString out;
    out.reserve(sql.size() + 16);
    const int n = int(sql.size());
    int i = 0;
    while (i < n) {
        const QChar c = sql[i];
        if (c == QLatin1Char('\'')) {
            // Single-quoted literal, kept as it is ('' stays an escaped quote).
            int j = i + 1;
            while (j < n) {
                if (sql[j] == QLatin1Char('\'')) {
                    if (j + 1 < n && sql[j + 1] == QLatin1Char('\'')) {
                        j += 2;
                        continue;
                    }
                    break;
                }
                ++j;
            }
            out += sql.mid(i, j - i + 1);
            i = j + 1;
        } else if (c == QLatin1Char('"')) {
            // A double-quoted text is a literal in this dialect, not a name.
            QString value;
            int j = i + 1;
            while (j < n) {
                if (sql[j] == QLatin1Char('"')) {
                    if (j + 1 < n && sql[j + 1] == QLatin1Char('"')) {
                        value += QLatin1Char('"');
                        j += 2;
                        continue;
                    }
                    break;
                }
                value += sql[j];
                ++j;
            }
            out += QLatin1Char('\'') + value.replace(QLatin1Char('\''), QLatin1String("''")) + QLatin1Char('\'');
            i = j + 1;
        } else if (c == QLatin1Char('[')) {
            const int j = sql.indexOf(QLatin1Char(']'), i + 1);
            if (j < 0) {
                out += sql.mid(i);
                break;
            }
            out += QuoteName(sql.mid(i + 1, j - i - 1));
            i = j + 1;
        } else if (c == QLatin1Char('`')) {
            const int j = sql.indexOf(QLatin1Char('`'), i + 1);
            if (j < 0) {
                out += sql.mid(i);
                break;
            }
            out += sql.mid(i, j - i + 1);
            i = j + 1;
        } else if (c == QLatin1Char('#')) {
            const int j = sql.indexOf(QLatin1Char('#'), i + 1);
            const auto date = j > i ? ParseDateText(sql.mid(i + 1, j - i - 1).trimmed()) : std::nullopt;
            if (date) {
                out += QLatin1Char('\'') + IsoDateText(*date) + QLatin1Char('\'');
                i = j + 1;
            } else {
                out += c;
                ++i;
            }
        } else if (IsWordChar(c)) {
            int j = i;
            while (j < n && IsWordChar(sql[j])) ++j;
            const QString word = sql.mid(i, j - i);
            const bool standalone = i == 0 || sql[i - 1] != QLatin1Char('.');
            if (standalone && word.compare(QLatin1String("True"), Qt::CaseInsensitive) == 0)
                out += QLatin1Char('1');
            else if (standalone && word.compare(QLatin1String("False"), Qt::CaseInsensitive) == 0)
                out += QLatin1Char('0');
            else
                out += word;
            i = j;
        } else {
            out += c;
            ++i;
        }
    }
    return out;
}
