#include "core/PrintReport.h"

#include "core/Globals.h"
#include "core/clsRegistry.h"
#include "platform/Report.h"
#include "platform/RuntimeError.h"

#include <QDir>

void PrintReport(const Report& report, const QString& copyName, bool showPrintDialog) {
    if (Registry().AlwaysPrintPreview())
        report.Preview(MainWindow());
    else
        report.Print(MainWindow(), showPrintDialog);
    if (Registry().SaveReportCopy()) {
        const QString path = QDir(Registry().SaveReportDirectory()).filePath(copyName);
        if (!report.SaveHtml(path)) throw RuntimeError(QStringLiteral("Path/File access error"));
        LastReportFile = path;
    }
}
