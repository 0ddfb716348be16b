// The main window's store, product and manufacturer commands.
#include "core/frmMain.h"

#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/MainPanes.h"
#include "core/clsRegistry.h"
#include "core/deLarderkeep.h"
#include "coupons/clsCoupon.h"
#include "platform/Report.h"
#include "platform/RuntimeError.h"
#include "platform/Ui.h"
#include "products/clsManufacturer.h"
#include "products/clsProduct.h"
#include "products/frmProductListing.h"
#include "products/frmProductNew.h"
#include "stores/clsItemCategory.h"
#include "stores/clsStore.h"
#include "stores/frmSelectStore.h"

#include <QDir>
#include <QStandardItem>
#include <QTreeView>
#include <functional>
#include <memory>

QString frmMain::SelectedManufacturer() const {
    const QModelIndex current = tvCoupons->currentIndex();
    QStandardItem* node = current.isValid() ? MainPanes::Instance().coupons.itemFromIndex(current) : nullptr;
    if (node && node->data(MainPanes::TagRole).toString() != QLatin1String("Manufacturer")) node = node->parent();
    return node && node->data(MainPanes::TagRole).toString() == QLatin1String("Manufacturer") ? node->text()
                                                                                             : QString();
}

void frmMain::ConnectStoreAndProductScreens() {
    auto showModal = [](QDialog* dialog) {
        std::unique_ptr<QDialog> owned(dialog);
        TheUi().ShowModal(owned.get());
    };
    auto listing = [this, showModal] { showModal(new frmProductListing(QString(), this)); };

    Connect(QStringLiteral("mnuEnterProduct"), [this, showModal] { showModal(new frmProductNew(this)); });
    Connect(QStringLiteral("mnuViewAllProducts"), listing);
    // Editing starts from the listing, where the product is picked.
    Connect(QStringLiteral("mnuEditProduct"), listing);
    Connect(QStringLiteral("mnuEditProductDetail"), listing);
    Connect(QStringLiteral("mnuExportProduct"), [] { clsProduct().ExportList(); });
    Connect(QStringLiteral("mnuPrintProductList"), [this] {
        Trap(QStringLiteral("frmMain.mnuPrintProductList"),
             [&] { PrintReport(deLarderkeep::cmProducts(), QStringLiteral("Products.htm"), true); });
    });

    // A new store or category is named in an input box; a name already on file is refused.
    auto askNewName = [](const QString& prompt, const QString& title, const std::function<bool(const QString&)>& onFile) {
        const QString name = InputBox(prompt, title).trimmed();
        if (name.isEmpty()) return QString();
        if (onFile(name)) {
            MsgBox(name + QStringLiteral(" is already on file."), Box::OKOnly, QStringLiteral("Exists"));
            return QString();
        }
        return name;
    };
    Connect(QStringLiteral("mnuAddNewStore"), [askNewName] {
        clsStore store;
        const QString name = askNewName(QStringLiteral("What is the name of the new Store?"), QStringLiteral("Add Store"),
                                        [&](const QString& n) { return store.Exists(n); });
        if (name.isEmpty()) return;
        store.Name(name);
        store.IsleCount(1);
        store.WriteNew();
    });
    Connect(QStringLiteral("mnuEnterItemCategories"), [askNewName] {
        clsItemCategory categories;
        const QString name =
            askNewName(QStringLiteral("What is the name of the new Item Category?"), QStringLiteral("Item Category"),
                       [&](const QString& n) { return categories.Exists(n); });
        if (!name.isEmpty()) categories.WriteNew(name);
    });
    Connect(QStringLiteral("mnuImportStoreMap"), [] {
        const QString path = TheUi().OpenFileName(QStringLiteral("Import Store Map"), Registry().ExportFilePath(),
                                                  QStringLiteral("Store Maps (*.gil);;All Files (*)"));
        if (!path.isEmpty()) clsStore().ImportStoreFile(path);
    });
    Connect(QStringLiteral("mnuExportStoreMap"), [this] {
        frmSelectStore pick(QStringLiteral("Which Store's Isle map would you like to export?"), this);
        if (pick.StoreCount() == 0) {
            MsgBox(QStringLiteral("There are no Stores to export."), Box::OKOnly, QStringLiteral("Notice"));
            return;
        }
        if (TheUi().ShowModal(&pick) != QDialog::Accepted || pick.SelectedStore().isEmpty()) return;
        clsStore().ExportStoreFile(pick.SelectedStore());
    });

    Connect(QStringLiteral("mnuRenameManufacturer"), [this] {
        const QString old = SelectedManufacturer();
        if (old.isEmpty()) return;
        const QString name = InputBox(QStringLiteral("What is the new name for ") + old + QStringLiteral("?"),
                                      QStringLiteral("Rename Manufacturer"), old)
                                 .trimmed();
        if (name.isEmpty() || name == old) return;
        clsManufacturer().RenameManufacturer(old, name);
        LoadAllCoupons();
    });
    Connect(QStringLiteral("mnuDeleteManufacturer"), [this] {
        const QString name = SelectedManufacturer();
        if (name.isEmpty()) return;
        if (clsManufacturer().DeleteManufacturer(name)) LoadAllCoupons();
    });
    Connect(QStringLiteral("mnuPOPShowProducts"), [this, showModal] {
        const QString name = SelectedManufacturer();
        if (!name.isEmpty()) showModal(new frmProductListing(name, this));
    });
    Connect(QStringLiteral("mnuPOPDeleteCoupon"), [this] {
        const QModelIndex current = tvCoupons->currentIndex();
        QStandardItem* node = current.isValid() ? MainPanes::Instance().coupons.itemFromIndex(current) : nullptr;
        if (!node || !node->data(MainPanes::KeyRole).toString().startsWith(QLatin1Char('C')) || !node->parent()) return;
        const QString maker = node->parent()->data(MainPanes::TagRole).toString() == QLatin1String("Manufacturer")
                                  ? node->parent()->text()
                                  : QString();
        if (MsgBox(QStringLiteral("Do you want to delete ") + maker + QStringLiteral("'s ") + node->text() +
                       QStringLiteral(" ?"),
                   Box::YesNo + Box::Question, QStringLiteral("Delete Coupon")) != Answer::Yes)
            return;
        clsCoupon().DeleteCoupon(node->data(MainPanes::TagRole).toInt(), 1);
        MainPanes::Instance().Remove(MainPanes::Instance().coupons, node);
    });
}
