#pragma once

#include <QString>
#include <QVariant>

// The row-by-row writes that renames and clean-ups make over a query's rows,
// on the main connection. No handler: failures go to the caller's.
void SetEveryRow(const QString& sql, const QString& column, const QVariant& value);
// The number of rows deleted.
int DeleteEveryRow(const QString& sql);
