#include "lists/rptListByIsle.h"

#include "core/Globals.h"
#include "core/clsRegistry.h"
#include "core/deLarderkeep.h"
#include "platform/RuntimeError.h"
#include "platform/Ui.h"
#include "products/modInventory.h"

#include <QDir>

namespace ListReports {

void Produce(const Report& report) {
    if (Registry().AlwaysPrintPreview())
        report.Preview(MainWindow());
    else
        report.Print(MainWindow(), false);
}

void Finished(const Report& report, const QString& copyName, bool ask) {
    if (Registry().PromptBeforeInventoryAdd()) {
        if (!ask) return;
        if (MsgBox(QStringLiteral("Add items from this Shopping List to Inventory?"), Box::YesNo + Box::Question,
                   QStringLiteral("Create Inventory")) != Answer::Yes)
            return;
        modInventory::CreateInventory();
    }
    if (!Registry().SaveReportCopy()) return;
    const QString path = QDir(Registry().SaveReportDirectory()).filePath(copyName);
    if (!report.SaveHtml(path)) throw RuntimeError(QStringLiteral("Path/File access error"));
    LastReportFile = path;
}

}  // namespace ListReports

rptListByIsle::rptListByIsle(const QString& store) : report_(deLarderkeep::cmShoplistByIsle(store)) {}

void rptListByIsle::Show(bool finish) {
    ListReports::Produce(report_);
    if (finish) ListReports::Finished(report_, CopyName(), true);
}

rptStandard::rptStandard(const QString& listName) : report_(deLarderkeep::cmShoppingList(listName)) {}

void rptStandard::Show() {
    ListReports::Produce(report_);
    ListReports::Finished(report_, CopyName(), !NoInventory);
}
