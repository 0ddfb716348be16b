#include "lists/ListCommands.h"

#include "core/CommandRegistry.h"
#include "core/Globals.h"
#include "core/MainPanes.h"
#include "core/Values.h"
#include "core/clsRegistry.h"
#include "core/modEffects.h"
#include "core/modVerify.h"
#include "lists/frmSearchListItem.h"
#include "lists/frmShoppingList.h"
#include "lists/frmShoppingListGenerate.h"
#include "lists/frmShoppingListSelect.h"
#include "platform/Recordset.h"
#include "platform/Ui.h"

#include <QComboBox>
#include <QPointer>
#include <QStandardItem>
#include <QTreeWidget>

namespace ListCommands {

namespace {

QPointer<frmShoppingList> g_editor;

// The distinct list names a query's first column gives, in order.
QStringList Names(const QString& sql) {
    QStringList names;
    Recordset rs;
    rs.Open(sql, ConnectionMain(), adOpenForwardOnly, adLockReadOnly);
    for (; !rs.IsEOF(); rs.MoveNext()) {
        const QString name = TextOf(rs.Field(0));
        if (!names.contains(name, Qt::CaseInsensitive)) names << name;
    }
    return names;
}

}  // namespace

void mnuGenerateList_Click() {
    frmShoppingListGenerate form(MainWindow());
    ExplodeForm(&form, Registry().ExplodeRate());
    TheUi().ShowModal(&form);
}

frmShoppingList* OpenEditor(const QString& listName, const QString& itemName) {
    frmShoppingList* editor = g_editor;
    const bool fresh = !editor;
    if (fresh) {
        editor = new frmShoppingList(MainWindow());
        editor->setAttribute(Qt::WA_DeleteOnClose);
        g_editor = editor;
    }
    if (!listName.isEmpty() && editor->CurrentListName().compare(listName, Qt::CaseInsensitive) != 0)
        editor->LoadShopList(listName);
    if (!itemName.isEmpty()) {
        const QList<QTreeWidgetItem*> found =
            editor->lvShoppingList->findItems(itemName, Qt::MatchFixedString, frmShoppingList::colItem);
        if (!found.isEmpty()) {
            editor->lvShoppingList->setCurrentItem(found.first());
            editor->lvShoppingList->scrollToItem(found.first());
        }
    }
    if (fresh) {
        ExplodeForm(editor, Registry().ExplodeRate());
        TheUi().ShowModeless(editor, MainWindow());
    } else {
        editor->raise();
        editor->activateWindow();
    }
    return editor;
}

void mnuEnterListItem_Click() {
    frmShoppingList* editor = OpenEditor();
    editor->cboItem->setFocus();
}

void mnuEditList_Click() {
    const QString name = frmShoppingListSelect::GetListName(MainWindow());
    if (!name.isEmpty()) OpenEditor(name);
}

void mnuEditCurrentList_Click() {
    QString name = Registry().CurrentShoppingList();
    if (!name.isEmpty() &&
        Names(QStringLiteral("SELECT [Name] FROM ShopList WHERE [Name] = ") + SqlText(name)).isEmpty())
        name.clear();
    if (name.isEmpty()) {
        const QStringList current =
            Names(QStringLiteral("SELECT [Name] FROM ShopList WHERE [IsCurrent] = True ORDER BY [Name]"));
        if (current.size() == 1) {
            name = current.first();
        } else if (current.size() > 1) {
            name = frmShoppingListSelect::GetListName(MainWindow());
            if (name.isEmpty()) return;
        }
    }
    OpenEditor(name);
}

void mnuSearchShoppingList_Click() {
    QString list, item;
    if (frmSearchListItem::FindListItem(list, item, MainWindow())) OpenEditor(list, item);
}

void mnuSAMEditShopList_Click() {
    MainPanes& panes = MainPanes::Instance();
    const QStandardItem* node = panes.CurrentNode(panes.currentList);
    const QVariant id = node ? node->data(Qt::UserRole + 10) : QVariant();
    if (!id.isValid()) {
        mnuEditCurrentList_Click();
        return;
    }
    Recordset rs;
    rs.Open(QStringLiteral("SELECT [Name],[ItemName] FROM ShopList WHERE [ID] = ") + QString::number(id.toLongLong()),
            ConnectionMain(), adOpenForwardOnly, adLockReadOnly);
    if (rs.IsEOF()) {
        mnuEditCurrentList_Click();
        return;
    }
    const QString list = TextOf(rs.Field(QStringLiteral("Name")));
    const QString item = TextOf(rs.Field(QStringLiteral("ItemName")));
    rs.Close();
    OpenEditor(list, item);
}

frmShoppingList* OpenSpecialList(const QString& recipeTitle) {
    auto* editor = new frmShoppingList(MainWindow());
    editor->setAttribute(Qt::WA_DeleteOnClose);
    editor->AddRecipe(recipeTitle);
    TheUi().ShowModeless(editor, MainWindow());
    return editor;
}

void Register(CommandRegistry& commands) {
    commands.Add(QStringLiteral("mnuGenerateList"), mnuGenerateList_Click);
    commands.Add(QStringLiteral("mnuEnterListItem"), mnuEnterListItem_Click);
    commands.Add(QStringLiteral("mnuEditList"), mnuEditList_Click);
    commands.Add(QStringLiteral("mnuEditCurrentList"), mnuEditCurrentList_Click);
    commands.Add(QStringLiteral("mnuSearchShoppingList"), mnuSearchShoppingList_Click);
    commands.Add(QStringLiteral("mnuSAMEditShopList"), mnuSAMEditShopList_Click);
    commands.Add(QStringLiteral("mnuSAMFindListItem"), mnuSearchShoppingList_Click);
}

}  // namespace ListCommands
