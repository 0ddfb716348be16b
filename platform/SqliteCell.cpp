#include "platform/SqliteCell.h"

#include "platform/Currency.h"
#include "platform/DateText.h"

#include <climits>
#include <sqlite3.h>

SqliteCell SqliteCell::Peek(sqlite3_stmt* st, int col, const char** text) {
    SqliteCell cell;
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
        *text = cell.type == SQLITE_BLOB ? static_cast<const char*>(sqlite3_column_blob(st, col))
                                         : reinterpret_cast<const char*>(sqlite3_column_text(st, col));
        cell.bytes = sqlite3_column_bytes(st, col);
    }
    return cell;
}

SqliteCell SqliteCell::Copy(sqlite3_stmt* st, int col, QByteArray* raw) {
    const char* text = nullptr;
    SqliteCell cell = Peek(st, col, &text);
    if (text) {
        cell.offset = int(raw->size());
        raw->append(text, cell.bytes);
    }
    return cell;
}

QVariant SqliteCell::Read(sqlite3_stmt* st, int col, ColumnKind kind) {
    const char* text = nullptr;
    const SqliteCell cell = Peek(st, col, &text);
    return cell.Value(text, kind);
}

QVariant SqliteCell::Value(const char* data, ColumnKind kind) const {
    if (type == SQLITE_NULL) return {};
    auto text = [&] {
        if (type == SQLITE_INTEGER) return QString::number(integer);
        if (type == SQLITE_FLOAT) return QString::number(real, 'g', 15);
        return QString::fromUtf8(data, bytes);
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
        return type == SQLITE_INTEGER ? integer != 0 : real != 0;
    case ColumnKind::Currency:
        return QVariant::fromValue(Currency::fromDouble(type == SQLITE_INTEGER ? double(integer)
                                                        : type == SQLITE_FLOAT ? real
                                                                               : text().toDouble()));
    case ColumnKind::Int16:
    case ColumnKind::Int32:
        return int(type == SQLITE_INTEGER ? integer : type == SQLITE_FLOAT ? qint64(real) : text().toLongLong());
    case ColumnKind::Double:
        return type == SQLITE_INTEGER ? double(integer) : type == SQLITE_FLOAT ? real : text().toDouble();
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
        if (integer >= INT_MIN && integer <= INT_MAX) return int(integer);
        return integer;
    case SQLITE_FLOAT:
        return real;
    case SQLITE_BLOB:
        return QByteArray(data, bytes);
    default:
        return text();
    }
}
