#include "products/clsHistory.h"
#include "products/frmItemPriceHistory.h"
#include "products/frmProductCostSelect.h"
#include "products/frmProductListing.h"

#include "core/CommandRegistry.h"
#include "core/clsRegistry.h"
#include "products/ProductCommands.h"
#include "support/Rows.h"
#include "support/TestEnv.h"
#include "support/Views.h"

#include <QChart>
#include <QChartView>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QTreeWidget>
#include <QXYSeries>

namespace {

class PriceHistoryTest : public LarderTest {
protected:
    static QStringList Lines(const QTreeWidget* view) { return views::Lines(view); }
    static qint32 Product(const QString& name, const QString& manufacturer, const QString& size = "") {
        return rows::Add("Product", {{"Name", name}, {"Manufacturer", manufacturer}, {"Size", size}});
    }
    static void Bought(qint32 id, const QVariant& store, const QVariant& cost, const QString& date = "11/01/2026",
                       const QString& list = "") {
        rows::Add("SpendHistory", {{"ItemID", id},
                                   {"ItemStore", store},
                                   {"ItemListCost", cost},
                                   {"ItemListDate", date},
                                   {"ItemListName", list}});
    }
};

TEST_F(PriceHistoryTest, CategoriesAreCountedUpOrAddedOnceEach) {
    clsHistory history;
    history.AddItems("Soup, Dinner");
    history.AddItems("  Soup ,Kid's Meal,, ");
    history.AddItems("");
    EXPECT_EQ(rows::Joined("SELECT * FROM History ORDER BY [Category]", {"Category", "TimesUsed"}),
              QStringList({"|2", "Dinner|1", "Kid's Meal|1", "Soup|2"}));
    EXPECT_EQ(QList<qint32>(
                  {history.CanRecommend("Soup"), history.CanRecommend("Kid's Meal"), history.CanRecommend("Desert")}),
              QList<qint32>({2, 1, 0}));

    // The walk reads the current row; a count nobody wrote counts as none.
    rows::Add("History", {{"Category", "Brunch"}});
    history.AddItems("Brunch");
    history.OpenDB("SELECT * FROM History WHERE [Category] = 'Brunch'", 1, 1);
    ASSERT_EQ(history.RecordCount(), 1);
    EXPECT_EQ(history.Category() + "=" + QString::number(history.TimesUsed()), "Brunch=1");
    history.CloseDB();

    // A name too long for the column stops the count with the error, leaving no row.
    ui.answer(Answer::OK);
    history.AddItems("Lunch," + QString(300, 'x'));
    EXPECT_EQ(LastBox(),
              "Error: Error: The field is too small to accept the amount of data you attempted to add. "
              "(Occurred in History.AddItems)");
    EXPECT_EQ(
        rows::Column("SELECT * FROM History WHERE [Category] LIKE 'Lunch' OR [Category] LIKE 'xxx%'", "TimesUsed"),
        QStringList({"1"}));
}

TEST_F(PriceHistoryTest, AlternativesShowOnlyPricedStoresAndTheFirstTickedLineIsTaken) {
    const qint32 quaker = Product("Oats", "Quaker", "tin");
    const qint32 bran = Product("Oat Bran", "Kroger", "box");
    Product("Oatmeal Cookies", "Keebler");  // "Oat%" catches it, but it has no history
    Bought(quaker, "Aldi", "2.5");
    Bought(quaker, "", "1.99");  // no store
    Bought(quaker, QVariant(), "1.89");
    Bought(quaker, "Aldi", "0");  // no price
    Bought(bran, "Kroger", "12.05");
    Bought(bran, "Meijer", "3.1");
    rows::Add("Coupons", {{"Manufacturer", "Quaker"}, {"Product", "Oats"}, {"Size", "tin"}, {"Value", "$1.00"}});

    QStringList seen;
    ui.answerModal([&](QDialog* dialog) {
        auto* form = qobject_cast<frmProductCostSelect*>(dialog);
        seen << form->windowTitle() << form->lblHeader->text() << form->chkSupressCostSelection->text();
        seen << Lines(form->lvItemList);
        for (int i = 0; i < form->lvItemList->topLevelItemCount(); ++i) {
            const QTreeWidgetItem* line = form->lvItemList->topLevelItem(i);
            EXPECT_EQ(line->checkState(0), Qt::Unchecked);
            seen << line->data(0, frmProductCostSelect::ImageKeyRole).toString() + ": " + line->toolTip(0);
        }
        form->lvItemList->topLevelItem(1)->setCheckState(0, Qt::Checked);
        form->lvItemList->topLevelItem(2)->setCheckState(0, Qt::Checked);
        form->cmdSelect->click();
        return form->result();
    });
    frmProductCostSelect select;
    EXPECT_EQ(select.GetLowCostStore("Oat%"), "Meijer::" + QString::number(bran) + "::3.10");
    EXPECT_EQ(seen, QStringList({"Select Store by Cost", "Alternative Store Item Costs",
                                 "Do not show Cost alternatives for this Shopping List.",
                                 "Oat Bran|Kroger|Kroger|$12.05", "Oat Bran|Kroger|Meijer|$03.10",
                                 "Oats|Quaker|Aldi|$02.50", "Item: This Item does not have a Coupon.",
                                 "Item: This Item does not have a Coupon.", "ItemCoupon: This Item has a Coupon."}));
    EXPECT_TRUE(Registry().ShowCostAlternative());

    // Nothing ticked gives nothing; the suppress box turns the alternatives off for good.
    Registry().ShowCostAlternative(true);
    ui.answerModal([](QDialog* dialog) {
        auto* form = qobject_cast<frmProductCostSelect*>(dialog);
        form->chkSupressCostSelection->setChecked(true);
        form->cmdSelect->click();
        return form->result();
    });
    EXPECT_EQ(select.GetLowCostStore("Oats"), "");
    EXPECT_FALSE(Registry().ShowCostAlternative());

    // Cancel gives nothing whatever is ticked, and leaves the setting alone.
    Registry().ShowCostAlternative(true);
    ui.answerModal([](QDialog* dialog) {
        auto* form = qobject_cast<frmProductCostSelect*>(dialog);
        form->lvItemList->topLevelItem(0)->setCheckState(0, Qt::Checked);
        form->chkSupressCostSelection->setChecked(true);
        form->cmdCancel->click();
        return form->result();
    });
    EXPECT_EQ(select.GetLowCostStore("Oats"), "");
    EXPECT_TRUE(Registry().ShowCostAlternative());
}

TEST_F(PriceHistoryTest, APriceHistoryNeedsTheProductAndAPricedPurchase) {
    const qint32 id = Product("Kid's Oats", "O'Neil", "tin");
    frmItemPriceHistory screen;
    ui.answer(Answer::OK);
    EXPECT_FALSE(screen.DisplayProduct("Kid's Oats", "Quaker"));
    EXPECT_EQ(LastBox(), "Not Found: Quaker's Kid's Oats was not found in the database.");

    Bought(id, "Aldi", "0");
    Bought(id, "Aldi", QVariant());
    ui.answer(Answer::OK);
    EXPECT_FALSE(screen.DisplayProduct("Kid's Oats", "O'Neil"));
    EXPECT_EQ(LastBox(),
              "No History: Either no Price History was found for O'Neil's Kid's Oats or the entered Costs have a "
              "zero dollar value.");
    EXPECT_EQ(screen.lvHistory->topLevelItemCount(), 0);

    Bought(id, "Kroger", "2.5", "10/03/2026", "Week 40");
    Bought(id, "Aldi", "12.345", "01/15/2026", "January");
    Bought(id, "Meijer", "3", "06/30/2026");
    EXPECT_TRUE(screen.DisplayProduct("Kid's Oats", "O'Neil"));
    EXPECT_EQ(Lines(screen.lvHistory), QStringList({"01/15/2026|January|Aldi|12.35", "06/30/2026||Meijer|3.00",
                                                    "10/03/2026|Week 40|Kroger|2.50"}));
    EXPECT_EQ(screen.lblProduct->text(), "O'Neil's Kid's Oats, tin");
    const QList<QAbstractSeries*> series = screen.chtPrices->chart()->series();
    ASSERT_FALSE(series.isEmpty());
    const QList<QPointF> points = static_cast<QXYSeries*>(series.first())->points();
    ASSERT_EQ(points.size(), 3);
    EXPECT_LT(points[0].x(), points[1].x());
    EXPECT_DOUBLE_EQ(points[2].y(), 2.5);

    // A later failure empties what was shown.
    ui.answer(Answer::OK);
    EXPECT_FALSE(screen.DisplayProduct("Tea", "Lipton"));
    EXPECT_EQ(screen.lvHistory->topLevelItemCount(), 0);
    EXPECT_TRUE(screen.chtPrices->chart()->series().isEmpty());
}

TEST_F(PriceHistoryTest, TheProductIsPickedOnTheScreenOrFromTheListing) {
    const qint32 oats = Product("Oats", "Quaker", "tin");
    Product("Oats", "Quaker", "sack");
    Product("Tea", "O'Neil");
    Product("Grits", "Quaker");
    Bought(oats, "Aldi", "2.39");

    // From the main menu the screen opens bare, and the person picks.
    CommandRegistry commands;
    ProductCommands::Register(commands);
    ASSERT_TRUE(commands.Has("mnuProductSpendingHistory"));
    QStringList seen;
    ui.answerModal([&](QDialog* dialog) {
        auto* screen = qobject_cast<frmItemPriceHistory*>(dialog);
        EXPECT_EQ(screen->lvHistory->topLevelItemCount(), 0);
        for (QComboBox* box : {screen->cboManufacturer, screen->cboProduct}) {
            QStringList items;
            for (int i = 0; i < box->count(); ++i) items << box->itemText(i);
            seen << items.join(",");
        }
        screen->cboManufacturer->setCurrentText("Quaker");
        seen << screen->cboProduct->itemText(0) + "," + screen->cboProduct->itemText(1);
        screen->cboProduct->setCurrentText("Oats");
        screen->cmdShow->click();
        seen << Lines(screen->lvHistory);
        return int(QDialog::Accepted);
    });
    EXPECT_TRUE(commands.Run("mnuProductSpendingHistory"));
    EXPECT_EQ(seen, QStringList({"O'Neil,Quaker", "Tea", "Grits,Oats", "11/01/2026||Aldi|2.39"}));

    // From the listing, for the selected product, only when there is something to show.
    frmProductListing listing;
    QAction* entry = listing.Command("mnuItemPriceHistory");
    ASSERT_TRUE(entry->isEnabled());
    listing.lvProducts->setCurrentItem(listing.lvProducts->topLevelItem(1));  // Oats, tin
    seen.clear();
    ui.answerModal([&](QDialog* dialog) {
        auto* screen = qobject_cast<frmItemPriceHistory*>(dialog);
        seen << screen->cboManufacturer->currentText() + "/" + screen->cboProduct->currentText();
        seen << Lines(screen->lvHistory);
        return int(QDialog::Accepted);
    });
    entry->trigger();
    EXPECT_EQ(seen, QStringList({"Quaker/Oats", "11/01/2026||Aldi|2.39"}));

    listing.lvProducts->setCurrentItem(listing.lvProducts->topLevelItem(3));  // Tea
    ASSERT_EQ(listing.SelectedName(), "Tea");
    ui.answer(Answer::OK);
    const int before = ui.count();
    entry->trigger();
    EXPECT_EQ(ui.count(), before + 1);
    EXPECT_EQ(ui.lastBox().title, "No History");
}

}  // namespace
