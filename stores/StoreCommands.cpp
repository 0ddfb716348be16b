#include "stores/StoreCommands.h"

#include "core/ChangeNotices.h"
#include "core/CommandRegistry.h"
#include "core/Globals.h"
#include "core/PrintReport.h"
#include "core/clsRegistry.h"
#include "core/modEffects.h"
#include "platform/Ui.h"
#include "stores/clsItemCategory.h"
#include "stores/clsStore.h"
#include "stores/frmAllStores.h"
#include "stores/frmNewItemCategory.h"
#include "stores/frmNewStore.h"
#include "stores/frmSelectStore.h"
#include "stores/frmStoreIsleSetup.h"
#include "stores/rptStoreLayout.h"

#include <QDialog>
#include <functional>

namespace {

// A new store or category is named in an input box; a name already on file is refused.
QString AskNewName(const QString& prompt, const QString& title, const std::function<bool(const QString&)>& onFile) {
    const QString name = InputBox(prompt, title).trimmed();
    if (name.isEmpty()) return QString();
    if (onFile(name)) {
        MsgBox(name + QStringLiteral(" is already on file."), Box::OKOnly, QStringLiteral("Exists"));
        return QString();
    }
    return name;
}

}  // namespace

namespace StoreCommands {

void mnuAddNewStore_Click() {
    clsStore store;
    const QString name = AskNewName(QStringLiteral("What is the name of the new Store?"), QStringLiteral("Add Store"),
                                    [&](const QString& n) { return store.Exists(n); });
    if (name.isEmpty()) return;
    store.Name(name);
    store.IsleCount(1);
    if (store.WriteNew()) Q_EMIT Notices().SetMessage(QStringLiteral("Added the store ") + name);
}

void mnuEnterItemCategories_Click() {
    clsItemCategory categories;
    const QString name =
        AskNewName(QStringLiteral("What is the name of the new Item Category?"), QStringLiteral("Item Category"),
                   [&](const QString& n) { return categories.Exists(n); });
    if (!name.isEmpty()) categories.WriteNew(name);
}

void mnuImportStoreMap_Click() {
    const QString path = TheUi().OpenFileName(QStringLiteral("Import Store Map"), Registry().ExportFilePath(),
                                              QStringLiteral("Store Maps (*.gil);;All Files (*)"));
    if (!path.isEmpty()) clsStore().ImportStoreFile(path);
}

void mnuExportStoreMap_Click() {
    frmSelectStore pick(frmSelectStore::MapExport, MainWindow());
    if (pick.StoreCount() == 0) {
        MsgBox(QStringLiteral("There are no Stores to export."), Box::OKOnly, QStringLiteral("Notice"));
        return;
    }
    if (TheUi().ShowModal(&pick) != QDialog::Accepted || pick.SelectedStore().isEmpty()) return;
    clsStore().ExportStoreFile(pick.SelectedStore());
}

void OpenIsleSetup(const QString& store) {
    frmStoreIsleSetup setup(MainWindow());
    setup.LoadStore(store);
    ExplodeForm(&setup, Registry().ExplodeRate());
    TheUi().ShowModal(&setup);
}

void mnuSetupStoreIsles_Click() {
    const QString store = frmSelectStore::Choose(frmSelectStore::Setup, MainWindow());
    if (!store.isEmpty()) OpenIsleSetup(store);
}

void mnuDisplayAllStores_Click() {
    frmAllStores form(MainWindow());
    ExplodeForm(&form, Registry().ExplodeRate());
    TheUi().ShowModal(&form);
}

void mnuPrintStoreLayout_Click() {
    const QString store = frmSelectStore::Choose(frmSelectStore::LayoutPrint, MainWindow());
    if (!store.isEmpty()) PrintReport(rptStoreLayout::Build(store), QStringLiteral("StoreLayout.htm"), true);
}

void ShowNewStore() {
    frmNewStore form(MainWindow());
    ExplodeForm(&form, Registry().ExplodeRate());
    TheUi().ShowModal(&form);
}

void ShowItemCategories() {
    frmNewItemCategory form(MainWindow());
    ExplodeForm(&form, Registry().ExplodeRate());
    TheUi().ShowModal(&form);
}

void Register(CommandRegistry& commands) {
    commands.Add(QStringLiteral("mnuSetupStoreIsles"), mnuSetupStoreIsles_Click);
    commands.Add(QStringLiteral("mnuDisplayAllStores"), mnuDisplayAllStores_Click);
    commands.Add(QStringLiteral("mnuPrintStoreLayout"), mnuPrintStoreLayout_Click);
    commands.Add(QStringLiteral("mnuAddNewStore"), mnuAddNewStore_Click);
    commands.Add(QStringLiteral("mnuEnterItemCategories"), mnuEnterItemCategories_Click);
    commands.Add(QStringLiteral("mnuImportStoreMap"), mnuImportStoreMap_Click);
    commands.Add(QStringLiteral("mnuExportStoreMap"), mnuExportStoreMap_Click);
}

}  // namespace StoreCommands
