#pragma once

#include "platform/RuntimeError.h"

#include <QHash>
#include <QString>
#include <QStringList>
#include <QVector>
#include <memory>

struct sqlite3;
struct sqlite3_stmt;

// The connection text every opening of the database file is written as; the
// file's path follows it.
inline const QString kConnectionText = QStringLiteral("Provider=Microsoft.Jet.OLEDB.4.0;Data Source =");

enum CursorTypeEnum { adOpenForwardOnly = 0, adOpenKeyset = 1, adOpenStatic = 3 };
enum LockTypeEnum { adLockReadOnly = 1, adLockOptimistic = 3 };

// How a column is read and written. The declared type in the schema carries it
// (VARCHAR(n), LONGTEXT, BOOLEAN, CURRENCY, SMALLINT, INTEGER, DOUBLE, DATETIME,
// DATETEXT(n)), because the stored value alone cannot tell "True" from 1.
enum class ColumnKind { Text, LongText, Boolean, Currency, Int16, Int32, Double, Date, DateText, Other };

struct ColumnInfo {
    QString name;
    ColumnKind kind = ColumnKind::Other;
    int length = 0;  // characters, for Text and DateText
};

// A column of a query's result. Its kind comes from the table column it reads;
// origin names that column when it is one of the base table's, whose rows the
// result writes back to.
struct ResultColumn {
    QString name;
    ColumnKind kind = ColumnKind::Other;
    int length = 0;
    QString origin;
};

struct TableInfo {
    QString name;
    QVector<ColumnInfo> columns;
    QHash<QString, int> index;  // lower-case name -> column
    const ColumnInfo* column(const QString& name) const;
};

// One connection to a database file. Domain code only opens SELECT queries on it
// through Recordset; rows are written through the recordset's own statements.
class Database {
public:
    Database();
    ~Database();
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    // Refuses, without touching the file, what is missing, not a database of
    // ours, read-only or locked by another program.
    void Open(const QString& path);
    // The connection-string form: the path follows "Data Source =".
    void Open(const QString& connectionString, const QString& user, const QString& password, int options);
    void Close();
    bool IsOpen() const { return db_ != nullptr; }
    QString Path() const { return path_; }

    QString ConnectionString() const { return connectionString_; }
    void ConnectionString(const QString& text) { connectionString_ = text; }

    // Many writes as one: a bulk clean-up commits once instead of row by row.
    // Nesting is counted; only the outermost pair begins and commits. False
    // when no transaction could begin; the writes then commit one by one.
    bool BeginTrans();
    void CommitTrans();
    void RollbackTrans();

    // Runs a trusted script (template building); never for text built from user data.
    void ExecScript(const QString& sql);

    // Builds a new database file from scripts run in one transaction.
    static void CreateFile(const QString& path, const QStringList& scripts);

    // Writes a compacted copy of a closed database file to a new file.
    static void CompactFile(const QString& source, const QString& target);

    // Rewrites the query dialect the program writes ([names], #dates#, "texts",
    // True/False) into SQLite's.
    static QString TranslateQuery(const QString& sql);
    // A table or column name as SQLite reads it, whatever it contains.
    static QString QuoteName(const QString& name);

    // --- used by Recordset -------------------------------------------------
    const TableInfo* Table(const QString& name);
    // Prepares one SELECT under the read-only guard. Throws DbError.
    sqlite3_stmt* PrepareQuery(const QString& translatedSql, QString* error = nullptr);
    // Prepares (and caches) a statement the engine itself writes.
    sqlite3_stmt* CachedStatement(const QString& sql);
    sqlite3* Handle() const { return db_; }
    [[noreturn]] void ThrowLastError() const;
    // Writes made while a cursor is still reading commit only when that cursor
    // closes, and SQLite's own checkpoint never sees them; closing cursors
    // report their writes here so the log is folded back now and then.
    void WritesFinished(int count);

private:
    static int Authorize(void* self, int action, const char*, const char*, const char*, const char*);
    void FinalizeCache();

    sqlite3* db_ = nullptr;
    QString path_;
    QString connectionString_;
    bool guard_ = false;
    int transDepth_ = 0;
    int writesSinceCheckpoint_ = 0;
    QHash<QString, std::shared_ptr<TableInfo>> tables_;
    QHash<QString, sqlite3_stmt*> statements_;
};

// The writes of a scope committed together when it ends, whatever path it
// ends by: only speed is sought, so what was written stays written.
class WriteBatch {
public:
    explicit WriteBatch(Database& db) : db_(db), began_(db.BeginTrans()) {}
    ~WriteBatch() {
        if (!began_) return;
        try {
            db_.CommitTrans();
        } catch (...) {
            db_.RollbackTrans();
        }
    }
    WriteBatch(const WriteBatch&) = delete;
    WriteBatch& operator=(const WriteBatch&) = delete;
    // Drops everything written since the batch began (when it could begin).
    void Cancel() {
        if (!began_) return;
        began_ = false;
        db_.RollbackTrans();
    }

private:
    Database& db_;
    bool began_;
};
