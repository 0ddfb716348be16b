#include "products/frmProductCostHistory.h"
#include "products/frmProductSpending.h"

#include "core/Globals.h"
#include "platform/Database.h"
#include "support/Rows.h"
#include "support/TestEnv.h"

#include <QBarCategoryAxis>
#include <QBarSet>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QFile>
#include <QHorizontalBarSeries>
#include <QImage>
#include <QLabel>
#include <QLineSeries>
#include <QTest>
#include <QTextEdit>
#include <utility>

class SpendingChartsTest : public LarderTest {
protected:
    static qint32 Product(const QString& name, const QString& maker, const QString& category = "Dairy",
                          const QString& size = "") {
        return rows::Add("Product", {{"Name", name}, {"Manufacturer", maker}, {"Category", category}, {"Size", size}});
    }
    static void Paid(qint32 id, const QString& date, double cost, const QString& store = "Aldi") {
        rows::Add("SpendHistory", {{"ItemID", id},
                                   {"ItemListDate", QDate::fromString(date, "M/d/yyyy")},
                                   {"ItemListCost", cost},
                                   {"ItemStore", store},
                                   {"ItemListName", ""}});
    }
    // The chart's weeks as "<Sunday>=<average>".
    static QStringList Points(const frmProductCostHistory& form) {
        QStringList out;
        for (const QPointF& p : form.PriceSeries()->points())
            out << QDateTime::fromMSecsSinceEpoch(qint64(p.x())).date().toString("M/d/yyyy") + "=" +
                       QString::number(p.y());
        return out;
    }
    // The bars top to bottom as "<name>=<amount>/<purchases>", the amount read
    // from the chart's own series.
    static QStringList BarsShown(const frmProductSpending& form) {
        const QBarSet* set = form.SpendingSeries()->barSets().value(0);
        const auto& bars = form.Bars();
        QStringList out;
        for (qsizetype i = 0; i < bars.size(); ++i)
            out << bars[i].name + "=" + QString::number(set->at(int(bars.size() - 1 - i))) + "/" +
                       QString::number(bars[i].purchases);
        return out;
    }
    static QStringList AxisLabels(const frmProductSpending& form) {
        for (QAbstractAxis* axis : form.SpendingSeries()->attachedAxes())
            if (auto* names = qobject_cast<QBarCategoryAxis*>(axis)) {
                QStringList top = names->categories();
                std::reverse(top.begin(), top.end());
                return top;
            }
        return {};
    }
};

TEST_F(SpendingChartsTest, CostHistoryRefusesNoChoiceAndProductsNotOnFile) {
    rows::Add("Manufacturer", {{"Name", "Quaker"}});
    rows::Add("Store", {{"Name", "Aldi"}});
    Product("Oats", "Quaker");
    Product("Grits", "Quaker");
    Product("Flakes", "Kellogg");
    frmProductCostHistory form;
    EXPECT_EQ(form.cboStore->itemText(0) + "|" + form.cboStore->itemText(1), "All Stores|Aldi");
    EXPECT_EQ(form.cboItem->count(), 4);

    ui.answer(Answer::OK);
    form.DisplayCostHistory();
    EXPECT_EQ(LastBox(), "Notice: You must select at least one of either Manufacturers or Products.");

    // Choosing a maker narrows the products to its own.
    form.cboManufacturer->setCurrentIndex(form.cboManufacturer->findText("Quaker"));
    QStringList offered;
    for (int i = 0; i < form.cboItem->count(); ++i) offered << form.cboItem->itemText(i);
    EXPECT_EQ(offered, QStringList({"All Products", "Grits", "Oats"}));

    for (const char* typed : {"Flakes", "abc", "$", ""}) {
        form.cboItem->setEditText(typed);
        ui.answer(Answer::OK);
        form.DisplayCostHistory();
        EXPECT_EQ(ui.lastBox().prompt, "That Product has not been enter, Please re-enter.") << typed;
    }
    EXPECT_EQ(form.PriceSeries()->count(), 0);
    EXPECT_EQ(form.lblBestPrice->text(), "");
}

TEST_F(SpendingChartsTest, CostHistoryShowsPricesDatesAndOnePointAWeek) {
    rows::Add("Manufacturer", {{"Name", "Quaker"}, {"UPC_Number", " 30000 "}});
    const qint32 oats = Product("Oats", "Quaker");
    rows::Set("SELECT * FROM Product WHERE [ID] = " + QString::number(oats), "UPC_Family", "456 ");
    const qint32 other = Product("Grits", "Quaker");
    Paid(oats, "11/2/2026", 2.00, "Aldi");  // Monday and Thursday of one week,
    Paid(oats, "11/5/2026", 3.00, "Kroger");
    Paid(oats, "11/10/2026", 1.50, "Aldi");  // Tuesday of the next
    Paid(oats, "3/1/2025", 9.99, "Kroger");  // long before the span
    Paid(other, "11/3/2026", 50.00, "Aldi");

    frmProductCostHistory form("Quaker", "Oats");
    EXPECT_EQ(form.cboItem->currentText(), "Oats");
    EXPECT_EQ(form.lblBestPrice->text(), "$1.50");
    EXPECT_EQ(form.lblWorstPrince->text(), "$9.99");
    EXPECT_EQ(form.lblLastPurchaseDate->text(), "Tuesday, Nov 10 2026");
    EXPECT_EQ(form.txtPurchasedDates->toPlainText(), "11/02/2026;11/05/2026;11/10/2026;03/01/2025");
    EXPECT_EQ(Points(form), QStringList({"11/1/2026=2.5", "11/8/2026=1.5"}));
    EXPECT_EQ(form.BarcodeText(), "30000456");

    // Filters narrow the chart only; the prices stay those of every purchase.
    form.cboStore->setEditText("Aldi");
    form.DisplayCostHistory();
    EXPECT_EQ(Points(form), QStringList({"11/1/2026=2", "11/8/2026=1.5"}));
    EXPECT_EQ(form.lblBestPrice->text() + " " + form.lblWorstPrince->text(), "$1.50 $9.99");
    for (const char* typed : {"abc", "$", ""}) {
        form.cboStore->setEditText(typed);
        form.DisplayCostHistory();
        EXPECT_EQ(Points(form), QStringList()) << typed;
    }
    form.cboStore->setCurrentIndex(0);
    form.dtpFrom->setDate(QDate(2026, 11, 4));
    form.dtpTo->setDate(QDate(2026, 11, 10));  // the last day counts
    form.DisplayCostHistory();
    EXPECT_EQ(Points(form), QStringList({"11/1/2026=3", "11/8/2026=1.5"}));
    form.dtpFrom->setDate(QDate(2025, 1, 1));
    form.dtpTo->setDate(QDate(2026, 11, 9));
    form.DisplayCostHistory();
    EXPECT_EQ(Points(form), QStringList({"2/23/2025=9.99", "11/1/2026=2.5"}));

    // A maker with every product charts the purchases of all products.
    form.cboItem->setCurrentIndex(0);
    form.dtpFrom->setDate(QDate(2026, 11, 1));
    form.DisplayCostHistory();
    EXPECT_EQ(Points(form), QStringList({"11/1/2026=18.3333"}));
    EXPECT_EQ(form.lblBestPrice->text(), "");
    EXPECT_EQ(form.BarcodeText(), "30000");

    // Typing into the date boxes cannot leave them without a date.
    QTest::keyClicks(form.dtpFrom, "abc$");
    EXPECT_TRUE(form.dtpFrom->date().isValid());

    // Nothing on file for the barcode: a sample stands in.
    Product("Salt", "Morton");
    frmProductCostHistory salt("Morton", "Salt");
    EXPECT_EQ(salt.BarcodeText(), "1234567890");
    EXPECT_EQ(salt.lblBestPrice->text(), "Never bought");
    EXPECT_EQ(salt.PriceSeries()->count(), 0);
}

TEST_F(SpendingChartsTest, SaveChartWritesAPictureAndAsksBeforeReplacingOne) {
    const qint32 oats = Product("Oats", "Quaker");
    Paid(oats, "11/2/2026", 2.00);
    frmProductCostHistory form("Quaker", "Oats");

    const QString file = HomeFile("chart.bmp");
    ui.answerFile(file);
    form.SaveChart();
    EXPECT_EQ(ui.lastBox().kind + ": " + ui.lastBox().title, "SaveFile: Save Chart As");
    const QImage saved(file);
    ASSERT_FALSE(saved.isNull());
    EXPECT_GT(saved.width(), 300);

    {
        QFile old(file);
        ASSERT_TRUE(old.open(QIODevice::WriteOnly));
        old.write("the earlier chart");
    }
    ui.answerFile(file);
    ui.answer(Answer::No);
    form.SaveChart();
    EXPECT_EQ(LastBox(), "Over-write: " + file + " already exists, Over-write?");
    QFile kept(file);
    ASSERT_TRUE(kept.open(QIODevice::ReadOnly));
    EXPECT_EQ(kept.readAll(), QByteArray("the earlier chart"));
    kept.close();

    ui.answerFile(file);
    ui.answer(Answer::Yes);
    form.SaveChart();
    EXPECT_FALSE(QImage(file).isNull());

    ui.answerFile(HomeFile("chart.png"));
    form.SaveChart();
    EXPECT_EQ(QImage(HomeFile("chart.png")).format() == QImage::Format_Invalid, false);

    ui.answerFile("");  // cancelled
    form.SaveChart();
    EXPECT_EQ(ui.lastBox().kind, "SaveFile");

    const QString nowhere = HomeFile("no such folder/chart.bmp");
    ui.answerFile(nowhere);
    ui.answer(Answer::OK);
    form.SaveChart();
    EXPECT_EQ(LastBox(), "Error: Error: The chart could not be written to " + nowhere +
                             ". (Occurred in frmProductCostHistory.SaveChart)");
}

TEST_F(SpendingChartsTest, SpendingSumsByCategoryAndByProduct) {
    const qint32 milk = Product("Milk", "Dairy Pure", "Dairy", "1 gal");
    const qint32 milkToo = Product("Milk", "Any", "Dairy", "half gal");
    const qint32 cheese = Product("Cheese", "Kraft", "Dairy", "8 oz");
    const qint32 bread = Product("Bread", "Wonder", "Bakery", "loaf");
    const qint32 stray = Product("Mystery", "Any", "Not a category");
    Paid(milk, "11/1/2026", 3.50);
    Paid(milk, "11/8/2026", 3.25);
    Paid(milkToo, "10/1/2026", 2.00);
    Paid(cheese, "9/1/2026", 4.00);
    Paid(bread, "11/15/2026", 2.50);
    Paid(bread, "1/1/2025", 10.00);  // before the span
    Paid(stray, "11/1/2026", 99.00);

    frmProductSpending form;  // opens charted, over the kept months
    EXPECT_EQ(BarsShown(form), QStringList({"Dairy=12.75/4", "Bakery=2.5/1"}));
    EXPECT_EQ(form.lblTotal->text(), "Total spent: $15.25 in 5 purchases, 05/22/2026 to 11/22/2026");

    form.chkAllDates->setChecked(true);
    EXPECT_FALSE(form.dtpFrom->isEnabled());
    form.SetChart();
    EXPECT_EQ(BarsShown(form), QStringList({"Dairy=12.75/4", "Bakery=12.5/2"}));
    EXPECT_EQ(form.SpendingSeries()->barSets()[0]->label(), "Spent, all dates");

    form.chkAllDates->setChecked(false);
    form.dtpFrom->setDate(QDate(2026, 11, 1));
    form.SetChart();
    EXPECT_EQ(BarsShown(form), QStringList({"Dairy=6.75/2", "Bakery=2.5/1"}));

    // One category: a bar per product, the same names told apart on the axis.
    form.chkAllDates->setChecked(true);
    form.cboCategory->setCurrentIndex(form.cboCategory->findText("Dairy"));
    EXPECT_EQ(form.cboProduct->count(), 3);  // "All Products", Cheese, Milk
    form.SetChart();
    EXPECT_EQ(BarsShown(form),
              QStringList({"Dairy Pure's Milk, 1 gal=6.75/2", "Kraft's Cheese, 8 oz=4/1", "Milk, half gal=2/1"}));
    EXPECT_EQ(AxisLabels(form),
              QStringList({"Dairy Pure's Milk, 1 gal  $6.75", "Cheese  $4.00", "Milk, half gal  $2.00"}));

    // One product across every category.
    form.cboCategory->setCurrentIndex(0);
    form.cboProduct->setEditText("milk");
    form.SetChart();
    EXPECT_EQ(BarsShown(form), QStringList({"Dairy Pure's Milk, 1 gal=6.75/2", "Milk, half gal=2/1"}));
}

TEST_F(SpendingChartsTest, SpendingWithNothingToShowSaysSo) {
    {
        frmProductSpending empty;  // no box on opening
        EXPECT_EQ(empty.Bars().size(), 0);
        EXPECT_EQ(empty.SpendingSeries()->barSets()[0]->count(), 0);
    }
    const qint32 milk = Product("Milk", "Any", "Dairy");
    Paid(milk, "11/1/2026", 3.50);
    frmProductSpending form;
    ASSERT_EQ(form.Bars().size(), 1);

    const auto expectNoRecords = [&](const QString& why) {
        ui.answer(Answer::OK);
        form.SetChart();
        EXPECT_EQ(LastBox(), "No Records: No records Spending History records were found matching your selection.")
            << why.toStdString();
        EXPECT_EQ(form.Bars().size(), 0);
        EXPECT_EQ(form.lblTotal->text(), "");
    };
    for (const char* typed : {"abc", "$", ""}) {
        form.cboCategory->setEditText(typed);
        expectNoRecords(QString("category ") + typed);
        form.cboCategory->setCurrentIndex(0);
        form.cboProduct->setEditText(typed);
        expectNoRecords(QString("product ") + typed);
        form.cboProduct->setCurrentIndex(0);
    }
    QTest::keyClicks(form.dtpTo, "abc$");
    form.dtpFrom->setDate(QDate(2026, 11, 2));
    expectNoRecords("span after the purchase");
    form.chkAllDates->setChecked(true);
    form.SetChart();
    EXPECT_EQ(form.Bars().size(), 1);
}

TEST_F(SpendingChartsTest, ManyProductsKeepTheBiggestBarsAndAddUpTheRest) {
    for (int n = 1; n <= 20; ++n) {
        const qint32 id = Product(QString("Specialty cheese number %1 from the far hills").arg(n), "Any");
        Paid(id, "11/1/2026", n);
    }
    frmProductSpending form;
    form.cboCategory->setCurrentIndex(form.cboCategory->findText("Dairy"));
    form.SetChart();
    const QStringList bars = BarsShown(form);
    ASSERT_EQ(bars.size(), frmProductSpending::kMostBars);
    EXPECT_EQ(bars.first(), "Specialty cheese number 20 from the far hills=20/1");
    EXPECT_EQ(bars[13], "Specialty cheese number 7 from the far hills=7/1");
    EXPECT_EQ(bars.last(), "All 6 others=21/6");  // 1 + 2 + ... + 6

    const QStringList labels = AxisLabels(form);
    EXPECT_EQ(labels.first(), QString("Specialty cheese number 20") + QChar(0x2026) + "  $20.00");
    EXPECT_EQ(labels.last(), "All 6 others  $21.00");
    EXPECT_EQ(QSet<QString>(labels.begin(), labels.end()).size(), labels.size());
}

TEST_F(SpendingChartsTest, ListsThatCannotBeReadAreReported) {
    frmProductSpending spending;
    frmProductCostHistory history;
    ConnectionMain().Close();
    ui.answer(Answer::OK);
    spending.LoadProducts();
    EXPECT_TRUE(ui.lastBox().prompt.endsWith(" (Occurred in frmProductSpending.LoadProducts)"))
        << LastBox().toStdString();
    for (const auto& [load, where] : {std::pair{&frmProductCostHistory::LoadStores, "LoadStores"},
                                      std::pair{&frmProductCostHistory::LoadProducts, "LoadProducts"}}) {
        ui.answer(Answer::OK);
        (history.*load)();
        EXPECT_TRUE(ui.lastBox().prompt.endsWith(QString(". (Occurred in frmProductCostHistory.") + where + ")"))
            << LastBox().toStdString();
    }
    // A failed lookup is reported once, not also as a product not on file.
    history.cboItem->setEditText("Oats");
    ui.answer(Answer::OK);
    history.DisplayCostHistory();
    EXPECT_TRUE(ui.lastBox().prompt.endsWith(". (Occurred in frmProductCostHistory.ProductExists)"))
        << LastBox().toStdString();
    EXPECT_EQ(ui.count(), 4);
}
