#include "recipes/frmCookbookRecipies.h"

#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/Values.h"
#include "core/modVerify.h"
#include "platform/Recordset.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QTreeWidget>
#include <QVBoxLayout>

frmCookbookRecipies::frmCookbookRecipies(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmCookbookRecipies"));
    lvRecipies = new QTreeWidget(this);
    lvRecipies->setObjectName(QStringLiteral("lvRecipies"));
    lvRecipies->setHeaderLabels({QStringLiteral("Title"), QStringLiteral("Categories")});
    lvRecipies->setRootIsDecorated(false);
    lvRecipies->setUniformRowHeights(true);
    lvRecipies->setAlternatingRowColors(true);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(lvRecipies, 1);
    layout->addWidget(buttons);
    resize(560, 440);
}

int frmCookbookRecipies::LoadRecipes(const QString& cookbook) {
    lvRecipies->clear();
    QList<QTreeWidgetItem*> lines;
    Trap(QStringLiteral("frmCookbookRecipes.LoadRecipes"), [&] {
        Recordset rs;
        rs.Open(QStringLiteral("SELECT [Title],[CookbookName],[Style] FROM Recipie WHERE [CookbookName] = ") +
                    SqlText(cookbook) + QStringLiteral(" ORDER BY [Title]"),
                ConnectionMain(), adOpenForwardOnly, adLockReadOnly);
        for (; !rs.IsEOF(); rs.MoveNext())
            lines << new QTreeWidgetItem(
                QStringList{TextOf(rs.Field(QStringLiteral("Title"))), TextOf(rs.Field(QStringLiteral("Style")))});
    });
    lvRecipies->addTopLevelItems(lines);
    lvRecipies->resizeColumnToContents(0);
    lvRecipies->setColumnWidth(0, qBound(160, lvRecipies->columnWidth(0) + 16, 360));
    setWindowTitle(QStringLiteral("%1 Recipies for %2").arg(lines.size()).arg(cookbook));
    return int(lines.size());
}
