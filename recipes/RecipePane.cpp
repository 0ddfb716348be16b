#include "recipes/RecipePane.h"

#include "core/Globals.h"
#include "core/MainPanes.h"
#include "core/Values.h"
#include "platform/Database.h"
#include "platform/Recordset.h"
#include "recipes/clsRecCategory.h"

#include <QSet>
#include <QStandardItem>

namespace RecipePane {

QStandardItem* LoadRecipies() {
    MainPanes& panes = MainPanes::Instance();
    QStandardItem* root = panes.Root(panes.recipes, QStringLiteral("Recipies"), QStringLiteral("Recipies"));
    root->removeRows(0, root->rowCount());

    // The categories, bold, keyed and labelled by the trimmed name.
    Recordset rs;
    rs.Open(QStringLiteral("SELECT * From RecipieCategory ORDER BY [Name]"), ConnectionMain(), adOpenKeyset,
            adLockReadOnly);
    QList<QStandardItem*> categories;
    QSet<QString> seen;
    while (!rs.IsEOF()) {
        const QString name = TextOf(rs.Field(QStringLiteral("Name"))).trimmed();
        if (!name.isEmpty() && !seen.contains(name.toCaseFolded())) {
            seen.insert(name.toCaseFolded());
            categories << MainPanes::CategoryNode(name);
        }
        rs.MoveNext();
    }
    rs.Close();
    root->appendRows(categories);

    // Each recipe of the cookbook on show under each of its categories. The
    // nodes are gathered per category and put in at once: a big household
    // has many thousands.
    rs.Open(QStringLiteral("SELECT [Title],[Style],[CookbookName],[Favorite] FROM Recipie ORDER BY [Title]"),
            ConnectionMain(), adOpenKeyset, adLockReadOnly);
    QList<QStandardItem*> parents;
    QHash<QStandardItem*, QList<QStandardItem*>> children;
    QHash<QString, QStandardItem*> byName;  // categories met so far, folded
    const QString cookbook = CurrentCookbook;
    while (!rs.IsEOF()) {
        if (cookbook.isEmpty() || TextOf(rs.Field(QStringLiteral("CookbookName"))) == cookbook) {
            const QString title = TextOf(rs.Field(QStringLiteral("Title")));
            const QVariant mark = rs.Field(QStringLiteral("Favorite"));
            const bool favourite = !IsNull(mark) && !IsEmpty(mark) && CBool(mark);
            const QString style = TextOf(rs.Field(QStringLiteral("Style")));
            for (const QString& part : style.split(QLatin1Char(','))) {
                const QString name = part.trimmed();
                if (name.isEmpty()) continue;
                QStandardItem*& category = byName[name.toCaseFolded()];
                if (!category) category = panes.FindByKey(panes.recipes, name);
                if (!category) {
                    // A category in use that the table lacks is added, so
                    // the tree always shows every category in use.
                    clsRecCategory table;
                    if (!table.Exists(name)) table.WriteNew(name);
                    category = panes.FindByKey(panes.recipes, name);
                    if (!category) {
                        category = MainPanes::CategoryNode(name);
                        root->appendRow(category);
                    }
                }
                if (!children.contains(category)) parents << category;
                children[category] << MainPanes::RecipeNode(title, favourite);
            }
        }
        rs.MoveNext();
    }
    rs.Close();
    for (QStandardItem* parent : parents) parent->appendRows(children.value(parent));
    return root;
}

}  // namespace RecipePane
