#include "messages/MessagePane.h"

#include "core/Dates.h"
#include "core/Globals.h"
#include "core/MainPanes.h"
#include "core/Values.h"
#include "core/clsRegistry.h"
#include "platform/Database.h"
#include "platform/Recordset.h"

#include <QHash>
#include <QStandardItem>

namespace {

// A household has many notes on few days; reading each date text once keeps
// a long list quick to fill.
class DateTexts {
public:
    explicit DateTexts(const QString& pattern) : pattern_(pattern) {}
    QString Shown(const QString& date) {
        auto it = shown_.constFind(date);
        if (it == shown_.constEnd()) it = shown_.insert(date, MessagePane::ShownDate(date, pattern_));
        return *it;
    }

private:
    QString pattern_;
    QHash<QString, QString> shown_;
};

bool IsReminderType(const QVariant& type) { return !IsNull(type) && IsNumeric(type) && CDbl(type) == 1; }

}  // namespace

namespace MessagePane {

QString ShownDate(const QString& date, const QString& pattern) {
    if (date.isEmpty() || date == QLatin1String("None") || !IsDate(date)) return date;
    return Format(QVariant(CDate(date)), pattern);
}

void LoadMessages() {
    MainPanes& panes = MainPanes::Instance();
    QStandardItemModel& model = panes.messages;
    if (model.columnCount() == 0)
        model.setHorizontalHeaderLabels({QStringLiteral("Subject"), QStringLiteral("Date"), QStringLiteral("Message")});
    panes.Clear(model);

    DateTexts dates(Registry().DateDisplayFormat());
    QList<QList<QStandardItem*>> rows;
    Recordset rs;
    rs.Open(QStringLiteral("SELECT * FROM Messages"), ConnectionMain(), adOpenKeyset, adLockReadOnly);
    while (!rs.IsEOF()) {
        rows << MainPanes::MessageRow(
            TextOf(rs.Field(QStringLiteral("Title"))), TextOf(rs.Field(QStringLiteral("Body"))),
            dates.Shown(TextOf(rs.Field(QStringLiteral("Date")))), IsReminderType(rs.Field(QStringLiteral("Type"))));
        rs.MoveNext();
    }
    rs.Close();
    for (const QList<QStandardItem*>& row : rows) model.appendRow(row);
}

void AddMessage(const QString& title, const QString& body, const QString& date, int type) {
    MainPanes::Instance().messages.appendRow(
        MainPanes::MessageRow(title, body, ShownDate(date, Registry().DateDisplayFormat()), type == 1));
}

}  // namespace MessagePane
