#include "products/ProductCommands.h"

#include "core/ChangeNotices.h"
#include "core/CommandRegistry.h"
#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/MainPanes.h"
#include "core/PrintReport.h"
#include "core/deLarderkeep.h"
#include "platform/Ui.h"
#include "products/clsManufacturer.h"
#include "products/clsProduct.h"
#include "products/frmInventorySuggestions.h"
#include "products/frmItemPriceHistory.h"
#include "products/frmProductCostHistory.h"
#include "products/frmProductInventory.h"
#include "products/frmProductListing.h"
#include "products/frmProductNew.h"
#include "products/frmProductSpending.h"
#include "products/rptInventory.h"

#include <QStandardItem>
#include <memory>

namespace {

void ShowModal(QDialog* dialog) {
    std::unique_ptr<QDialog> owned(dialog);
    TheUi().ShowModal(owned.get());
}

// The manufacturer of the coupon pane's selected node, "" without one.
QString SelectedManufacturer() {
    MainPanes& panes = MainPanes::Instance();
    QStandardItem* node = panes.CurrentNode(panes.coupons);
    if (node && node->data(MainPanes::TagRole).toString() != QLatin1String("Manufacturer")) node = node->parent();
    return node && node->data(MainPanes::TagRole).toString() == QLatin1String("Manufacturer") ? node->text()
                                                                                              : QString();
}

}  // namespace

namespace ProductCommands {

void mnuEnterProduct_Click() { ShowModal(new frmProductNew(MainWindow())); }

void mnuViewAllProducts_Click() { ShowModal(new frmProductListing(QString(), MainWindow())); }

void mnuExportProduct_Click() { clsProduct().ExportList(); }

void mnuPrintProductList_Click() {
    Trap(QStringLiteral("frmMain.mnuPrintProductList"),
         [&] { PrintReport(deLarderkeep::cmProducts(), QStringLiteral("Products.htm"), true); });
}

void mnuRenameManufacturer_Click() {
    const QString old = SelectedManufacturer();
    if (old.isEmpty()) return;
    const QString name = InputBox(QStringLiteral("What is the new name for ") + old + QStringLiteral("?"),
                                  QStringLiteral("Rename Manufacturer"), old)
                             .trimmed();
    if (name.isEmpty() || name == old) return;
    clsManufacturer().RenameManufacturer(old, name);
    Q_EMIT Notices().LoadAllCoupons();
}

void mnuDeleteManufacturer_Click() {
    const QString name = SelectedManufacturer();
    if (name.isEmpty()) return;
    if (clsManufacturer().DeleteManufacturer(name)) Q_EMIT Notices().LoadAllCoupons();
}

void mnuPOPShowProducts_Click() {
    const QString name = SelectedManufacturer();
    if (!name.isEmpty()) ShowModal(new frmProductListing(name, MainWindow()));
}

void mnuProductSpendingHistory_Click() { ShowModal(new frmItemPriceHistory(MainWindow())); }

void mnuProductCostHistory_Click() { ShowModal(new frmProductCostHistory(MainWindow())); }

void mnuProductSpendingReport_Click() { ShowModal(new frmProductSpending(MainWindow())); }

void mnuProductInventory_Click() { ShowModal(new frmProductInventory(MainWindow())); }

void mnuPrintInventoryReport_Click() {
    Trap(QStringLiteral("frmMain.mnuPrintInventoryReport"),
         [&] { rptInventory::Print(rptInventory::Inventory(), false); });
}

void mnuPrintInventoryWorkSheet_Click() {
    Trap(QStringLiteral("frmMain.mnuPrintInventoryWorkSheet"),
         [&] { rptInventory::Print(rptInventory::Worksheet(), false); });
}

void mnuSuggestUsingInventory_Click() { ShowModal(new frmInventorySuggestions(MainWindow())); }

void Register(CommandRegistry& commands) {
    commands.Add(QStringLiteral("mnuEnterProduct"), mnuEnterProduct_Click);
    commands.Add(QStringLiteral("mnuViewAllProducts"), mnuViewAllProducts_Click);
    commands.Add(QStringLiteral("mnuEditProduct"), mnuViewAllProducts_Click);
    commands.Add(QStringLiteral("mnuEditProductDetail"), mnuViewAllProducts_Click);
    commands.Add(QStringLiteral("mnuExportProduct"), mnuExportProduct_Click);
    commands.Add(QStringLiteral("mnuPrintProductList"), mnuPrintProductList_Click);
    commands.Add(QStringLiteral("mnuRenameManufacturer"), mnuRenameManufacturer_Click);
    commands.Add(QStringLiteral("mnuDeleteManufacturer"), mnuDeleteManufacturer_Click);
    commands.Add(QStringLiteral("mnuPOPShowProducts"), mnuPOPShowProducts_Click);
    commands.Add(QStringLiteral("mnuProductSpendingHistory"), mnuProductSpendingHistory_Click);
    commands.Add(QStringLiteral("mnuProductCostHistory"), mnuProductCostHistory_Click);
    commands.Add(QStringLiteral("mnuProductSpendingReport"), mnuProductSpendingReport_Click);
    commands.Add(QStringLiteral("mnuProductInventory"), mnuProductInventory_Click);
    commands.Add(QStringLiteral("mnuPrintInventoryReport"), mnuPrintInventoryReport_Click);
    commands.Add(QStringLiteral("mnuPrintInventoryWorkSheet"), mnuPrintInventoryWorkSheet_Click);
    commands.Add(QStringLiteral("mnuSuggestUsingInventory"), mnuSuggestUsingInventory_Click);
}

}  // namespace ProductCommands
