#include "recipes/clsCookBook.h"

#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/Values.h"
#include "core/modVerify.h"
#include "platform/Ui.h"

clsCookBook::clsCookBook() {
    Trap(QStringLiteral("Cookbook.Class_Initialize"),
         [&] { OpenDB(QStringLiteral("SELECT * FROM CookBook"), adOpenKeyset, adLockOptimistic); });
}

QString clsCookBook::Name() const { return TextOf(rs.Field(QStringLiteral("Name"))); }

QString clsCookBook::Specialty() const { return TextOf(rs.Field(QStringLiteral("Specialty"))); }

bool clsCookBook::IsSpecialty(const QString& name) {
    return Trap(QStringLiteral("Cookbook.IsSpecialty"), false, [&] {
        Recordset r;
        r.Open(QStringLiteral("SELECT [Specialty] FROM Cookbook WHERE [Name] = ") + SqlText(name), ConnectionMain(),
               adOpenKeyset, adLockReadOnly);
        if (r.IsEOF()) return false;
        return TextOf(r.Field(QStringLiteral("Specialty"))) != QLatin1String("None");
    });
}

bool clsCookBook::IsCookBook(const QString& name) {
    return Trap(QStringLiteral("Cookbook.IsCookBook"), false, [&] {
        if (dbBOF() && dbEOF()) return false;
        MoveFirst();
        while (!dbEOF()) {
            if (TextOf(rs.Field(QStringLiteral("Name"))) == name) return true;
            MoveNext();
        }
        return false;
    });
}

bool clsCookBook::WriteNew(const QString& name, const QString& specialty) {
    return Trap(QStringLiteral("Cookbook.WriteNew"), false, [&] {
        Recordset r;
        r.Open(QStringLiteral("SELECT * FROM Cookbook"), ConnectionMain(), adOpenStatic, adLockOptimistic);
        if (!r.IsEOF()) r.MoveLast();
        r.AddNew();
        r.setField(QStringLiteral("Name"), name);
        r.setField(QStringLiteral("Specialty"), specialty);
        r.Update();
        return true;
    });
}

void clsCookBook::RemoveCookbook(QString& name) {
    Trap(QStringLiteral("Cookbook.RemoveCookbook"), [&] {
        if (!(dbBOF() && dbEOF())) {
            MoveFirst();
            while (!dbEOF()) {
                if (TextOf(rs.Field(QStringLiteral("Name"))).trimmed() == name.trimmed()) {
                    rs.Delete();
                    break;
                }
                MoveNext();
            }
        }
        Recordset r;
        r.Open(
            QStringLiteral("SELECT * FROM [Recipie] WHERE [CookbookName] = '") + QuoteSql(name) + QStringLiteral("'"),
            ConnectionMain(), adOpenKeyset, adLockOptimistic);
        while (!r.IsEOF()) {
            r.setField(QStringLiteral("CookbookName"), QStringLiteral("General"));
            r.Update();
            r.MoveNext();
        }
    });
}

void clsCookBook::RemoveCookbook(const QString& name) {
    QString copy = name;
    RemoveCookbook(copy);
}

bool clsCookBook::Exists(const QString& name) {
    return Trap(QStringLiteral("Cookbook.Exists"), false, [&] {
        Recordset r;
        r.Open(QStringLiteral("SELECT [Name] FROM Cookbook WHERE [Name] = ") + SqlText(name), ConnectionMain(),
               adOpenKeyset, adLockReadOnly);
        return r.RecordCount() > 0;
    });
}

void clsCookBook::Rename(const QString& oldName, const QString& newName) {
    if (oldName == QLatin1String("General")) {
        MsgBox(QStringLiteral("The 'General' cookbook cannot be renamed."), Box::Exclamation,
               QStringLiteral("Can't Rename"));
        return;
    }
    Trap(QStringLiteral("Cookbook.Rename"), [&] {
        Recordset r;
        r.Open(QStringLiteral("SELECT [Name] FROM CookBook WHERE [Name] = ") + SqlText(oldName), ConnectionMain(),
               adOpenKeyset, adLockOptimistic);
        while (!r.IsEOF()) {
            r.setField(QStringLiteral("Name"), newName);
            r.Update();
            r.MoveNext();
        }
        r.Close();
        if (CurrentCookbook == oldName) CurrentCookbook = newName;
        // This statement cannot run (no such table, no "="); it reports, and
        // the recipes keep the old name until NewCookbookName moves them.
        r.Open(QStringLiteral("SELECT [Cookbook] FROM Recipies WHERE [Cookbook] ") + SqlText(oldName), ConnectionMain(),
               adOpenKeyset, adLockOptimistic);
        while (!r.IsEOF()) {
            r.setField(QStringLiteral("Cookbook"), newName);
            r.Update();
            r.MoveNext();
        }
    });
}

void clsCookBook::ExportCookBook(const QString& cookbook, int format, bool useRecipeName, const QString& target) {
    Q_UNUSED(cookbook);
    Q_UNUSED(useRecipeName);
    Q_UNUSED(target);
    Trap(QStringLiteral("Cookbook.ExportCookBook"), [&] {
        // No format has a writer yet; HTML at least asks which look is wanted.
        if (format != 4) return;
        Response = MsgBox(QStringLiteral("Would you like to use the Report format or the Website format?") +
                              QStringLiteral("\r\n") +
                              QStringLiteral("  Click 'Yes' for the Report Format, and 'No' for the Website format."),
                          Box::YesNo, QStringLiteral("Select Format"));
    });
}
