#include "recipes/clsRecCategory.h"

#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/MainPanes.h"
#include "core/Values.h"
#include "core/modVerify.h"

namespace {

const QString kCategoryTag = QStringLiteral("RecipeCategory");

}  // namespace

QString clsRecCategory::Name() const { return TextOf(rs.Field(QStringLiteral("Name"))); }

bool clsRecCategory::Exists(const QString& name) {
    Recordset r;
    r.Open(QStringLiteral("SELECT * FROM RecipieCategory WHERE Name = ") + SqlText(name), ConnectionMain(),
           adOpenKeyset, adLockReadOnly);
    return r.RecordCount() > 0;
}

bool clsRecCategory::WriteNew(const QString& name) {
    return Trap(QStringLiteral("RecCategory.WriteNew"), false, [&] {
        Recordset r;
        r.Open(QStringLiteral("SELECT * FROM RecipieCategory"), ConnectionMain(), adOpenStatic, adLockOptimistic);
        if (!r.IsEOF()) r.MoveLast();
        r.AddNew();
        r.setField(QStringLiteral("Name"), name);
        r.Update();

        // The node the main window would have made for it when loading.
        MainPanes::Instance().AddCategory(name);
        return true;
    });
}

void clsRecCategory::RemoveCategory(const QString& name) {
    Trap(QStringLiteral("RecCategory.RemoveCategory"), [&] {
        Recordset r;
        r.Open(QStringLiteral("SELECT [Name] FROM RecipieCategory WHERE [Name] =") + SqlText(name), ConnectionMain(),
               adOpenKeyset, adLockOptimistic);
        if (!r.IsEOF()) r.Delete();
        r.Close();

        // Only a recipe whose whole list is this one name is found here; a
        // recipe filed as "Fish, Quick" keeps its Fish.
        r.Open(QStringLiteral("SELECT [Style] FROM Recipie WHERE [Style] = ") + SqlText(name), ConnectionMain(),
               adOpenKeyset, adLockOptimistic);
        while (!r.IsEOF()) {
            QString style;
            for (const QString& part : Split(TextOf(r.Field(QStringLiteral("Style"))), QStringLiteral(",")))
                if (part.trimmed() != name.trimmed()) style += part.trimmed() + QStringLiteral(",");
            if (style.endsWith(QLatin1Char(','))) style.chop(1);
            r.setField(QStringLiteral("Style"), style);
            r.Update();
            r.MoveNext();
        }
        r.Close();

        MainPanes& panes = MainPanes::Instance();
        for (QStandardItem* node : panes.FindByTag(panes.recipes, kCategoryTag)) {
            if (node->text() == name) {
                panes.Remove(panes.recipes, node);
                break;
            }
        }
    });
}
