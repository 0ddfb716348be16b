#include "measures/clsSize.h"

#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/modVerify.h"
#include "platform/Ui.h"

namespace {

bool Found(const QString& sql) {
    Recordset r;
    r.Open(sql, ConnectionMain(), adOpenKeyset, adLockReadOnly);
    return !r.IsEOF();
}

}  // namespace

bool clsSize::Exists(const QString& name) {
    return Trap(QStringLiteral("Size.Exists"), false, [&] {
        return Found(QStringLiteral("SELECT [Name] FROM ItemSize WHERE [Name] = '") + QuoteSql(name) +
                     QLatin1Char('\''));
    });
}

bool clsSize::AbbreviationExists(const QString& abbreviation) {
    return Trap(QStringLiteral("Size.AbbreviationExists"), false, [&] {
        return Found(QStringLiteral("SELECT [Abbreviation] FROM ItemSize WHERE [Abbreviation] = '") +
                     QuoteSql(abbreviation) + QLatin1Char('\''));
    });
}

void clsSize::WriteNew(const QString& name, const QString& abbreviation) {
    Trap(QStringLiteral("Size.WriteNew"), [&] {
        OpenForAdd(QStringLiteral("ItemSize"));
        rs.setField(QStringLiteral("Name"), name);
        QString chosen = abbreviation;
        if (AbbreviationExists(chosen)) {
            Response =
                MsgBox(QStringLiteral("The Abbreviation has already been used, would you like to select another?"),
                       Box::YesNo + Box::Question, QStringLiteral("Duplicate Abbreviation"));
            if (Response == Answer::Yes) {
                do {
                    chosen = InputBox(QStringLiteral("Please enter the Abbreviation for ") + name +
                                          QStringLiteral(" that you would like to use"),
                                      QStringLiteral("Duplicate Abbreviation"));
                } while (!chosen.isEmpty() && AbbreviationExists(chosen));
            }
        }
        // An empty short form is left unset rather than stored as "", so that
        // measures without one never count as sharing it.
        if (!chosen.isEmpty()) rs.setField(QStringLiteral("Abbreviation"), chosen);
        rs.Update();
        CloseDB();
    });
    if (rs.IsOpen()) {
        rs.CancelUpdate();
        CloseDB();
    }
}
