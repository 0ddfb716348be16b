#include "platform/Report.h"

#include "support/TestEnv.h"

#include <QFile>
#include <QPrintPreviewDialog>
#include <QPrinterInfo>

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

}  // namespace

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
