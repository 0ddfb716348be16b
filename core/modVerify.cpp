#include "core/modVerify.h"

QString QuoteSql(QString& text) {
    text.replace(QLatin1Char('\''), QLatin1String("''"));
    return text;
}

QString QuoteSql(const QString& text) {
    QString copy = text;
    return QuoteSql(copy);
}

QString SqlText(const QString& text) { return QStringLiteral("'") + QuoteSql(text) + QStringLiteral("'"); }
