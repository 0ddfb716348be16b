#pragma once

#include "support/Rows.h"

// The Messages rows of the main window's checks, kept in the shared row helpers' terms.
namespace MessageRows {

inline void Add(const QString& title, const QString& body, const QString& date, int type, int reminderTime) {
    rows::Message(title, body, date, type, reminderTime);
}

inline int Count(const QString& where = QString()) {
    return rows::Count("SELECT * FROM Messages" + (where.isEmpty() ? QString() : " WHERE " + where));
}

// The column of the first row with that title; an invalid value when none.
inline QVariant Field(const QString& title, const QString& column) { return rows::Field("Messages", "Title", title, column); }

}  // namespace MessageRows
