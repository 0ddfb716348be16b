#include "messages/rptMessage.h"

#include "core/Dates.h"
#include "core/Globals.h"
#include "core/Values.h"
#include "core/clsRegistry.h"
#include "core/modVerify.h"
#include "platform/Database.h"
#include "platform/Recordset.h"

Report rptMessage::Build() const {
    Database connection;
    connection.Open(Registry().DatabasePath());
    Recordset rs;
    rs.Open(QStringLiteral("SELECT * FROM Messages WHERE [Title] = '") + QuoteSql(MessageTitle) + QLatin1Char('\''),
            connection, adOpenForwardOnly, adLockReadOnly);
    Report report(MessageTitle);
    while (!rs.IsEOF()) {
        const QVariant when = rs.Field(QStringLiteral("Date"));
        const QString shown =
            IsDate(when) ? Format(QVariant(CDate(when)), QStringLiteral("dddd, mmm d yyyy")) : TextOf(when);
        report.AddParagraph(TextOf(rs.Field(QStringLiteral("Body"))), shown);
        rs.MoveNext();
    }
    rs.Close();
    return report;
}
