#include "products/clsHistory.h"

#include "core/Values.h"
#include "core/modVerify.h"

namespace {

// A count nobody wrote yet counts as none.
qint32 Count(const QVariant& v) { return IsNull(v) ? 0 : CLng(v); }

}  // namespace

qint32 clsHistory::TimesUsed() { return Count(rs.Field(QStringLiteral("TimesUsed"))); }

QString clsHistory::Category() { return TextOf(rs.Field(QStringLiteral("Category"))); }

void clsHistory::AddItems(const QString& categories) {
    Trapped(QStringLiteral("History.AddItems"), [&] {
        for (const QString& part : Split(categories, QStringLiteral(","))) {
            const QString name = part.trimmed();
            OpenDB(QStringLiteral("SELECT * FROM History WHERE [Category] = ") + SqlText(name), adOpenKeyset,
                   adLockOptimistic);
            if (!rs.IsEOF()) {
                rs.setField(QStringLiteral("TimesUsed"), TimesUsed() + 1);
                rs.Update();
                CloseDB();
                continue;
            }
            CloseDB();
            OpenForAdd(QStringLiteral("History"));
            rs.setField(QStringLiteral("Category"), name);
            rs.setField(QStringLiteral("TimesUsed"), 1);
            rs.Update();
            CloseDB();
        }
    });
}

qint32 clsHistory::CanRecommend(const QString& category) {
    qint32 total = 0;
    OpenDB(QStringLiteral("SELECT * FROM History"), adOpenKeyset, adLockReadOnly);
    for (; !rs.IsEOF(); rs.MoveNext())
        if (Category() == category) total += TimesUsed();
    CloseDB();
    return total;
}
