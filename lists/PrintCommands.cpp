#include "lists/PrintCommands.h"

#include "core/CommandRegistry.h"
#include "core/Globals.h"
#include "core/Values.h"
#include "core/clsRegistry.h"
#include "core/modEffects.h"
#include "core/modVerify.h"
#include "lists/clsShopList.h"
#include "lists/frmCurrentShoppingList.h"
#include "lists/rptListByIsle.h"
#include "platform/Recordset.h"
#include "platform/Ui.h"
#include "stores/frmSelectStore.h"
#include "stores/frmStoreIsleSetup.h"

#include <QApplication>

namespace PrintCommands {
namespace {

qint32 CountOf(const QString& sql) {
    Recordset r;
    r.Open(sql, ConnectionMain(), adOpenKeyset, adLockReadOnly);
    return r.RecordCount();
}

}  // namespace

void mnuViewCurrent_Click() {
    frmCurrentShoppingList form(MainWindow());
    ExplodeForm(&form, Registry().ExplodeRate());
    TheUi().ShowModal(&form);
}

void mnuListByStore_Click() {
    const qint32 total = CountOf(QStringLiteral("SELECT * FROM ShopList WHERE [IsCurrent] = True"));
    if (total == 0) {
        if (MsgBox(QStringLiteral("There are no Shopping Lists marked as 'Current'. Would you like to setup the "
                                  "Current List?"),
                   Box::YesNo + Box::Question, QStringLiteral("Setup Current List?")) == Answer::Yes)
            mnuViewCurrent_Click();
        return;
    }

    QString store;
    for (;;) {
        store = frmSelectStore::Choose(frmSelectStore::ListArrangement, MainWindow());
        if (store.isEmpty()) return;
        const qint32 here =
            CountOf(QStringLiteral("SELECT * FROM ShopList WHERE [IsCurrent] = True AND [Store] = ") + SqlText(store));
        if (here == total) break;
        const int answer = MsgBox(
            QStringLiteral("There are only %1 Item(s) on the 'Current' List for %2 out of %3 Item(s) on the Current "
                           "List.\n\nWould you like to select another Store or Adjust the Items on the 'Current' "
                           "List?\n\n • Click 'Yes' to select another Store.\n • Click 'No' to adjust Items on the "
                           "'Current' List.\n • Click 'Cancel' to cancel operation.")
                .arg(here)
                .arg(store)
                .arg(total),
            Box::YesNoCancel + Box::Question, QStringLiteral("Notice"));
        if (answer == Answer::Yes) continue;
        if (answer != Answer::No) return;
        QApplication::setOverrideCursor(Qt::WaitCursor);
        clsShopList().MarkListForStore(store, QString());
        QApplication::restoreOverrideCursor();
        break;
    }

    const QStringList missing =
        clsShopList().AllCategoriesNotMapped(QString()).split(QStringLiteral("//"), Qt::SkipEmptyParts);
    if (!missing.isEmpty()) {
        const int answer =
            MsgBox(QStringLiteral("The following Categories are on the Current Shopping List but are not Mapped to "
                                  "any Isles for ") +
                       store + QStringLiteral(": \n\n") + missing.join(QStringLiteral(", ")) +
                       QStringLiteral("\n\nWould you like to modify ") + store +
                       QStringLiteral("'s Isle Mapping or proceed? \n • Press 'Yes' to modify the mapping.\n • Press "
                                      "'No' to proceed as is.\n • Press 'Cancel' to exit printing."),
                   Box::YesNoCancel + Box::Question + Box::HelpButton, QStringLiteral("Missing Categories"),
                   Registry().HelpFile());
        if (answer == Answer::Cancel) return;
        if (answer == Answer::Yes) {
            frmStoreIsleSetup setup(MainWindow());
            setup.LoadStore(store);
            ExplodeForm(&setup, Registry().ExplodeRate());
            TheUi().ShowModal(&setup);
        }
    }

    clsShopList().MakeCurrent(QString(), store);
    rptListByIsle(store).Show();
}

void mnuPrintListForAllStores_Click() {
    QStringList stores;
    {
        Recordset r;
        r.Open(QStringLiteral("SELECT [Name],[Store] FROM ShopList ORDER BY [Store]"), ConnectionMain(),
               adOpenForwardOnly, adLockReadOnly);
        for (; !r.IsEOF(); r.MoveNext()) {
            const QString store = TextOf(r.Field(QStringLiteral("Store")));
            if (stores.isEmpty() || stores.last() != store) stores << store;
        }
    }
    // Marking the rows for one store overwrites the marks of the one before,
    // so each store is marked just before its own list is printed. The
    // inventory question comes once, after the last store.
    for (int i = 0; i < stores.size(); ++i) {
        clsShopList().MakeCurrent(QString(), stores[i]);
        rptListByIsle report(stores[i]);
        report.Show(false);
        ListReports::Finished(report.Layout(), rptListByIsle::CopyName(), i + 1 == stores.size());
    }
}

void mnuPrintCurrentList_Click() { rptStandard().Show(); }

void mnuListByCategory_Click() { rptStandard().Show(); }

void Register(CommandRegistry& commands) {
    commands.Add(QStringLiteral("mnuListByStore"), mnuListByStore_Click);
    commands.Add(QStringLiteral("mnuPrintListForAllStores"), mnuPrintListForAllStores_Click);
    commands.Add(QStringLiteral("mnuPrintCurrentList"), mnuPrintCurrentList_Click);
    commands.Add(QStringLiteral("mnuListByCategory"), mnuListByCategory_Click);
    commands.Add(QStringLiteral("mnuViewCurrent"), mnuViewCurrent_Click);
}

}  // namespace PrintCommands
