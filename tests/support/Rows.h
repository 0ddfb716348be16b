#pragma once

#include "core/Globals.h"
#include "core/Values.h"
#include "platform/Recordset.h"

#include <QStringList>
#include <QVariantMap>

// Setting up and reading back table rows the way the program itself does,
// without going through the class under test.
namespace rows {

inline qint32 Add(const QString& table, const QVariantMap& values) {
    Recordset rs;
    rs.Open("SELECT * FROM " + table, ConnectionMain(), adOpenStatic, adLockOptimistic);
    rs.AddNew();
    for (auto it = values.begin(); it != values.end(); ++it) rs.setField(it.key(), it.value());
    rs.Update();
    for (int i = 0; i < rs.FieldCount(); ++i)
        if (rs.FieldName(i).compare("ID", Qt::CaseInsensitive) == 0) return rs.Field("ID").toInt();
    return 0;
}

// A recipe as the entry screen leaves it: every text column filled, not a favourite.
inline qint32 Recipe(const QString& title, const QString& style = "General", const QString& cookbook = "General",
                     QVariantMap more = {}) {
    QVariantMap row{{"Title", title}, {"Style", style}, {"CookbookName", cookbook}, {"Course", ""},
                    {"PrepTime", ""}, {"Servings", ""}, {"Favorite", false},        {"ImageFile", ""}};
    row.insert(more);
    return Add("Recipie", row);
}

// A dinner with every course column empty but those given.
inline qint32 Meal(const QString& name, QVariantMap more = {}) {
    QVariantMap row{{"Name", name},        {"Meal", "Dinner"},  {"Dates", ""},       {"Appetizer", ""},
                    {"MainCourse", ""},    {"Desert", ""},      {"SideDishOne", ""}, {"SideDishTwo", ""},
                    {"SideDishThree", ""}, {"SideDishfour", ""}};
    row.insert(more);
    return Add("Meal", row);
}

// A message or reminder (type 1) and when it next reminds.
inline qint32 Message(const QString& title, const QString& body, const QString& date, int type, int reminderTime) {
    return Add("Messages",
               {{"Title", title}, {"Body", body}, {"Date", date}, {"Type", type}, {"ReminderTime", reminderTime}});
}

// A value written into a query of the checks' own.
inline QString Literal(const QVariant& value) {
    if (value.typeId() == QMetaType::Int || value.typeId() == QMetaType::LongLong) return value.toString();
    return "'" + value.toString().replace("'", "''") + "'";
}

inline int Count(const QString& sql) {
    Recordset rs;
    rs.Open(sql, ConnectionMain(), adOpenKeyset, adLockReadOnly);
    int n = 0;
    for (; !rs.IsEOF(); rs.MoveNext()) ++n;
    return n;
}

// Every value of one column in the query's order, a Null shown as "<null>".
inline QStringList Column(const QString& sql, const QString& field) {
    Recordset rs;
    rs.Open(sql, ConnectionMain(), adOpenKeyset, adLockReadOnly);
    QStringList out;
    for (; !rs.IsEOF(); rs.MoveNext()) {
        const QVariant v = rs.Field(field);
        out << (v.isNull() ? QStringLiteral("<null>") : TextOf(v));
    }
    return out;
}

// Several columns of each row, joined by `separator`, in the query's order.
inline QStringList Joined(const QString& sql, const QStringList& fields, const QString& separator = "|") {
    Recordset rs;
    rs.Open(sql, ConnectionMain(), adOpenKeyset, adLockReadOnly);
    QStringList out;
    for (; !rs.IsEOF(); rs.MoveNext()) {
        QStringList cells;
        for (const QString& field : fields) cells << TextOf(rs.Field(field));
        out << cells.join(separator);
    }
    return out;
}

// Writes one column of the first row a query finds.
inline void Set(const QString& sql, const QString& field, const QVariant& value) {
    Recordset rs;
    rs.Open(sql, ConnectionMain(), adOpenKeyset, adLockOptimistic);
    rs.setField(field, value);
    rs.Update();
}

// One column of the first row whose `key` column holds `value`; invalid when there is none.
inline QVariant Field(const QString& table, const QString& key, const QVariant& value, const QString& column) {
    Recordset rs;
    rs.Open("SELECT * FROM " + table + " WHERE [" + key + "] = " + Literal(value), ConnectionMain(), adOpenKeyset,
            adLockReadOnly);
    return rs.IsEOF() ? QVariant() : rs.Field(column);
}

}  // namespace rows
