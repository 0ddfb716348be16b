#include "platform/Report.h"

#include "support/TestEnv.h"

#include <QFile>
#include <QPrintPreviewDialog>
#include <QPrinterInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>

using ReportTest = LarderTest;

namespace {

Report Sample() {
    Report report("Pantry <check>");
    report.AddHeading("Smith's kitchen");
    report.SetColumns(QList<Report::Column>{{"Item"}, {"Qty", Qt::AlignRight}});
    report.AddGroup("Dairy");
    report.AddGroup("Cold", 1);
    report.AddRow({"Milk & cream", "2"});
    report.AddGroup("Bakery");
    report.AddRow({"Bread \"rye\"", "1"});
    report.AddParagraph("First line\r\nSecond line", "Notes");
    return report;
}

QByteArray ReadAll(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// The PDF's text as laid out on the page, "" when pdftotext is missing.
QString PdfLayout(const QString& pdf) {
    if (QStandardPaths::findExecutable("pdftotext").isEmpty()) return QString();
    QProcess tool;
    tool.start("pdftotext", {"-layout", pdf, "-"});
    tool.waitForFinished(20000);
    return QString::fromUtf8(tool.readAllStandardOutput());
}

}  // namespace

TEST_F(ReportTest, OnPaperColumnsStandApartLongTextsWrapInTheirColumnAndPagesAreNumbered) {
    Report report("Products");
    report.SetColumns(
        QList<Report::Column>{{"Product"}, {"Cost", Qt::AlignRight}, {"Last bought"}, {"Times", Qt::AlignRight}});
    report.AddGroup("Acme");
    report.AddRow(
        {"Bananas family size value pack with an extra long description that cannot fit on one line of "
         "the page beside the other columns",
         "$0.00", "11/18/2026", "7"});
    for (int i = 0; i < 120; ++i) report.AddRow({QString("Plain item %1").arg(i), "$1.25", "11/18/2026", "3"});
    report.AddTotal({"Total", "$150.00", "", ""});
    ASSERT_TRUE(report.SavePdf(HomeFile("products.pdf")));
    const QString text = PdfLayout(HomeFile("products.pdf"));
    if (text.isEmpty()) GTEST_SKIP() << "pdftotext (poppler-utils) is not installed";
    const QStringList lines = text.split('\n');
    EXPECT_TRUE(QRegularExpression(R"(Product\s+Cost\s+Last bought\s+Times)").match(text).hasMatch());
    // The long name wraps under itself while its row's other cells stay on its first line.
    const int first = int(lines.indexOf(QRegularExpression(R"(^\s*Bananas family.*\$0\.00\s+11/18/2026\s+7\s*$)")));
    ASSERT_GE(first, 0) << text.left(800).toStdString();
    EXPECT_FALSE(lines[first + 1].contains("Plain item"));
    EXPECT_FALSE(lines[first + 1].contains("$"));
    const int count = text.count(QRegularExpression(R"(Page \d+ of \d+)"));
    ASSERT_GE(count, 2);
    EXPECT_TRUE(text.contains(QString("Page %1 of %1").arg(count)));
    // Every page repeats the column header, and the open group says it goes on.
    EXPECT_EQ(text.count(QRegularExpression(R"(Product\s+Cost\s+Last bought)")), count);
    EXPECT_TRUE(text.contains("Acme (continued)"));
    EXPECT_TRUE(QRegularExpression(R"(Total\s+\$150\.00)").match(text).hasMatch());
}

TEST_F(ReportTest, HtmlAndTextCarryTheSameContentInOrder) {
    const Report report = Sample();
    EXPECT_EQ(report.RowCount(), 2);

    const QString html = report.ToHtml();
    for (const char* part :
         {"<h1>Pantry &lt;check&gt;</h1>", "Milk &amp; cream", "Bread &quot;rye&quot;", "First line<br>Second line"})
        EXPECT_TRUE(html.contains(part)) << part;
    EXPECT_LT(html.indexOf("Dairy"), html.indexOf("Cold"));
    EXPECT_LT(html.indexOf("Cold"), html.indexOf("Milk"));
    EXPECT_LT(html.indexOf("Milk"), html.indexOf("Bakery"));

    const QStringList text = report.ToText().split("\r\n");
    EXPECT_EQ(text.value(0) + "|" + text.value(2), "Pantry <check>|Smith's kitchen");
    // Rows sit under their nested groups, the quantity column right-aligned.
    const int dairy = text.indexOf("Dairy");
    ASSERT_GE(dairy, 0);
    EXPECT_EQ(text.mid(dairy + 1, 2), QStringList({"  Cold", "    Milk & cream    2"}));
    EXPECT_TRUE(text.contains("Second line"));
}

TEST_F(ReportTest, ExportsWriteFilesOrSayTheyCouldNot) {
    const Report report = Sample();
    const QString html = HomeFile("copy.htm");
    const QString text = HomeFile("copy.txt");
    const QString pdf = HomeFile("copy.pdf");
    ASSERT_TRUE(report.SaveHtml(html));
    ASSERT_TRUE(report.SaveText(text));
    ASSERT_TRUE(report.SavePdf(pdf));
    EXPECT_TRUE(ReadAll(html).contains("Milk &amp; cream"));
    EXPECT_TRUE(ReadAll(text).contains("Bread \"rye\""));
    EXPECT_TRUE(ReadAll(pdf).startsWith("%PDF"));

    EXPECT_FALSE(report.SaveHtml(HomeFile("no such folder/copy.htm")));
    EXPECT_FALSE(report.SavePdf(HomeFile("no such folder/copy.pdf")));
}

TEST_F(ReportTest, PictureTravelsBesideTheHtmlCopy) {
    Report report("With picture");
    QImage picture(20, 10, QImage::Format_RGB32);
    picture.fill(Qt::red);
    report.SetPicture(picture);
    ASSERT_TRUE(report.SaveHtml(HomeFile("pic.htm")));
    EXPECT_TRUE(ReadAll(HomeFile("pic.htm")).contains("src=\"pic_picture.png\""));
    EXPECT_FALSE(QImage(HomeFile("pic_picture.png")).isNull());
}

TEST_F(ReportTest, WithoutAPrinterThePrintoutIsAPdfTheUserPlaces) {
    if (!QPrinterInfo::availablePrinters().isEmpty()) GTEST_SKIP() << "this machine has a printer";
    const Report report = Sample();
    ui.answerFile(HomeFile("printed.pdf"));
    EXPECT_TRUE(report.Print(nullptr));
    EXPECT_TRUE(ReadAll(HomeFile("printed.pdf")).startsWith("%PDF"));

    ui.answerFile("");  // the user cancels the file dialog
    EXPECT_FALSE(report.Print(nullptr));

    ui.answerFile(HomeFile("gone/printed.pdf"));
    ui.answer(1);
    EXPECT_FALSE(report.Print(nullptr));
    EXPECT_EQ(ui.lastBox().prompt, "The report could not be written to " + HomeFile("gone/printed.pdf") + ".");
}

TEST_F(ReportTest, PreviewIsAModalWindowTitledAfterTheReport) {
    QString title;
    ui.answerModal([&](QDialog* dialog) {
        EXPECT_NE(qobject_cast<QPrintPreviewDialog*>(dialog), nullptr);
        title = dialog->windowTitle();
        return 0;
    });
    Sample().Preview(nullptr);
    EXPECT_EQ(title, "Pantry <check>");
}
