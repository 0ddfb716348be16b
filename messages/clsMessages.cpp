#include "messages/clsMessages.h"

#include "core/Values.h"

QString clsMessages::Subject() const { return TextOf(rs.Field(QStringLiteral("Title"))); }
QString clsMessages::Body() const { return TextOf(rs.Field(QStringLiteral("Body"))); }
QString clsMessages::MesDate() const { return TextOf(rs.Field(QStringLiteral("Date"))); }
qint32 clsMessages::ReminderTime() const { return CLng(rs.Field(QStringLiteral("ReminderTime"))); }
