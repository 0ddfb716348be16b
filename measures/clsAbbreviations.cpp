#include "measures/clsAbbreviations.h"

#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/Values.h"
#include "core/modVerify.h"
#include "platform/Ui.h"

namespace {

QString Query(const QString& abbreviation) {
    return QStringLiteral("SELECT * FROM Abbreviation WHERE [Abbreviation] = '") + QuoteSql(abbreviation) +
           QLatin1Char('\'');
}

}  // namespace

QString clsAbbreviations::Read(const QString& column, const QString& member) const {
    if (!rs.IsOpen() || rs.IsEOF() || rs.IsBOF()) return member;
    return TextOf(rs.Field(column));
}

QString clsAbbreviations::Abbreviation() const { return Read(QStringLiteral("Abbreviation"), abbreviation_); }

QString clsAbbreviations::Description() const { return Read(QStringLiteral("Description"), description_); }

bool clsAbbreviations::Exists(const QString& abbreviation) {
    return Trap(QStringLiteral("Abbreviations.Exists"), false, [&] {
        Recordset r;
        r.Open(Query(abbreviation), ConnectionMain(), adOpenKeyset, adLockReadOnly);
        return !r.IsEOF();
    });
}

void clsAbbreviations::Remove(const QString& abbreviation) {
    Trap(QStringLiteral("Abbreviations.Remove"), [&] {
        Recordset r;
        r.Open(Query(abbreviation), ConnectionMain(), adOpenKeyset, adLockOptimistic);
        while (!r.IsEOF()) {
            r.Delete();
            r.MoveNext();
        }
    });
}

bool clsAbbreviations::AddNew() {
    return Trap(QStringLiteral("Abbreviations.AddNew"), false, [&] {
        if (description_.isEmpty())
            description_ = InputBox(
                QStringLiteral("What Decription would you like to use for ") + abbreviation_ + QStringLiteral("?"),
                QStringLiteral("Add Description"));
        Recordset r;
        r.Open(QStringLiteral("SELECT * FROM Abbreviation"), ConnectionMain(), adOpenStatic, adLockOptimistic);
        if (!r.IsEOF()) r.MoveLast();
        r.AddNew();
        r.setField(QStringLiteral("Abbreviation"), abbreviation_);
        r.setField(QStringLiteral("Description"), description_);
        r.Update();
        return true;
    });
}
