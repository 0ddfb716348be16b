#pragma once

#include <QString>

// Doubles every apostrophe so a value can sit between single quotes in a query.
// The caller's own text is changed as well, and returned.
QString QuoteSql(QString& text);
// For literals and temporaries, where there is no caller's variable to change.
QString QuoteSql(const QString& text);
// The text as a quoted literal for a query: '<text with apostrophes doubled>'.
QString SqlText(const QString& text);
