#include "app/frmMain.h"
#include "coupons/clsDelivery.h"
#include "coupons/frmDelivery.h"

#include "support/Rows.h"
#include "support/TestEnv.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>

namespace {

class DeliveryTest : public LarderTest {
protected:
    static void AddRow(const QString& type, const QString& restaurant, const QString& item, const QString& value,
                       const QString& expiration) {
        rows::Add("Delivery", {{"FoodType", type},
                               {"Restaurant", restaurant},
                               {"Item", item},
                               {"CarryOutOnly", false},
                               {"Value", value},
                               {"ActualValue", value},
                               {"Expiration", expiration}});
    }
    static QStringList Table() {
        return rows::Joined("SELECT * FROM Delivery", {"FoodType", "Restaurant", "Item", "CarryOutOnly", "Value",
                                                       "Expiration"});
    }
    static QStringList Lines(const frmDelivery& f) {
        QStringList out;
        for (int i = 0; i < f.lvDeliveryCoupons->topLevelItemCount(); ++i) {
            QStringList cells;
            for (int c = 0; c <= frmDelivery::StateColumn; ++c) cells << f.lvDeliveryCoupons->topLevelItem(i)->text(c);
            out << cells.join("|");
        }
        return out;
    }
    static void Fill(frmDelivery& f, const QString& type, const QString& restaurant, const QString& item,
                     const QString& value) {
        f.cboType->setEditText(type);
        f.cboRestaurant->setEditText(restaurant);
        f.cboItem->setEditText(item);
        f.txtValue->setText(value);
    }
};

TEST_F(DeliveryTest, TheStoreWritesEveryColumnAndReadsTheOpenRow) {
    clsDelivery d;
    d.FoodType("Pizza");
    d.Restaurant("Luigi's");
    d.CarryOutOnly(true);
    d.Item("Large 2-topping");
    d.Value("2.50");
    d.ActualValue("3");
    d.ItemExpiration("12/31/26");
    ASSERT_TRUE(d.AddNew());
    // The date column keeps dates in its own form, whatever form they came in.
    EXPECT_EQ(Table(), QStringList({"Pizza|Luigi's|Large 2-topping|True|2.5|2026-12-31"}));

    d.OpenDB("SELECT * FROM Delivery", adOpenStatic, adLockReadOnly);
    EXPECT_EQ(d.RecordCount(), 1);
    EXPECT_EQ(QStringList({d.FoodType(), d.Restaurant(), d.Item(), d.ItemExpiration()}),
              QStringList({"Pizza", "Luigi's", "Large 2-topping", "2026-12-31"}));
    EXPECT_TRUE(d.CarryOutOnly());
    EXPECT_EQ(TextOf(d.ActualValue()), "3");
    d.Item("changed");  // a setter never touches the row
    EXPECT_EQ(d.Item(), "Large 2-topping");
    d.CloseDB();

    // Looking up and deleting one coupon leave the table as it is.
    EXPECT_TRUE(d.Exists());
    EXPECT_TRUE(d.DeleteCoupon());
    EXPECT_EQ(Table().size(), 1);
}

TEST_F(DeliveryTest, LoadingFormatsTheRowsAndOffersTheNamesSeen) {
    AddRow("Pizza", "Luigi's", "Large", "2.5", "12/31/2026");
    AddRow("Pizza", "Wok Inn", "Egg rolls", "10", "Never");
    frmDelivery f;
    EXPECT_EQ(f.windowTitle(), "Delivery Coupons");
    EXPECT_EQ(Lines(f), QStringList({"Pizza|Luigi's|Large|$2.50|12/31/26|Saved",
                                     "Pizza|Wok Inn|Egg rolls|$10.00|Never|Saved"}));
    EXPECT_EQ(f.cboType->count(), 2);  // "<Select or Enter>" and one "Pizza"
    EXPECT_EQ(f.cboRestaurant->itemText(0), "<Select or Enter>");
    EXPECT_EQ(f.cboRestaurant->itemText(2), "Wok Inn");
    EXPECT_EQ(f.UnsavedCount(), 0);
}

TEST_F(DeliveryTest, AddingChecksItemRestaurantTypeAndValueInThatOrder) {
    frmDelivery f;
    const QString notice = "Notice: ";
    const std::pair<std::function<void()>, QString> refused[] = {
        {[&] { Fill(f, "<Select or Enter>", "<Select or Enter>", "<Select or Enter>", "1"); },
         "You must enter an Item for this Coupon."},
        {[&] { Fill(f, "<Select or Enter>", "<Select or Enter>", "Wings", "1"); },
         "You must enter an Restaurant for this Coupon."},
        {[&] { Fill(f, "<Select or Enter>", "Joe's", "Wings", "1"); }, "You must enter an Food Type for this Coupon."},
        {[&] { Fill(f, "   ", "Joe's", "Wings", "1"); }, "You must enter an Food Type for this Coupon."},
        {[&] { Fill(f, "Chicken", "Joe's", "Wings", "two dollars"); },
         "The Coupon's value can only be a numeric value."},
        {[&] { Fill(f, "Chicken", "Joe's", "Wings", "$1$"); }, "The Coupon's value can only be a numeric value."},
        {[&] { Fill(f, "Chicken", "Joe's", "Wings", ""); }, "The Coupon's value can only be a numeric value."},
    };
    for (const auto& [fill, box] : refused) {
        fill();
        ui.clear();
        ui.answer(Answer::OK);
        f.cmdAdd_Click();
        ASSERT_EQ(ui.count(), 1) << box.toStdString();
        EXPECT_EQ(LastBox(), notice + box);
    }
    EXPECT_TRUE(Lines(f).isEmpty());

    // Typed names not in the lists, a "$" value, a date already past: all taken as given.
    Fill(f, "Chicken", "Joe's", "Wings", "$1.5");
    f.chkCarryOut->setChecked(true);
    f.dtpExpiration->setDate(QDate(2026, 11, 1));
    f.cmdAdd_Click();
    Fill(f, "Chicken", "Joe's", "Family bucket", "4");
    f.cmdExpiration_Click();
    EXPECT_EQ(f.cmdExpiration->text(), "&Expiration");
    f.cmdAdd_Click();
    EXPECT_EQ(Lines(f), QStringList({"Chicken|Joe's|Wings|$1.50|11/01/26|Unsaved",
                                     "Chicken|Joe's|Family bucket|$4.00|Never|Unsaved"}));
    EXPECT_GE(f.cboRestaurant->findText("Joe's"), 1);
    f.cmdExpiration_Click();
    EXPECT_EQ(f.cmdExpiration->text(), "No &Expiration");

    // A value typed with "$" is shown back in money form; a bad one is refused there too.
    f.txtValue->setText("$3");
    f.txtValue_LostFocus();
    EXPECT_EQ(f.txtValue->text(), "$3.00");
    ui.answer(Answer::OK);
    f.txtValue->setText("3,,x");
    f.txtValue_LostFocus();
    EXPECT_EQ(LastBox(), "Notice: The Coupon's value can only be a numeric value.");
}

TEST_F(DeliveryTest, OnlyUnsavedLinesAreWrittenAndANeverLineKeepsNever) {
    AddRow("Pizza", "Luigi's", "Large", "2.5", "12/31/2026");
    frmDelivery f;
    Fill(f, "Thai", "Bangkok O'Hare", "Pad thai", "2");
    f.dtpExpiration->setDate(QDate(2027, 1, 15));
    f.cmdAdd_Click();
    Fill(f, "Thai", "Bangkok O'Hare", "Soup", "1");
    f.cmdExpiration_Click();
    f.chkCarryOut->setChecked(true);
    f.cmdAdd_Click();

    f.cmdApply_Click();
    const QStringList saved = {"Pizza|Luigi's|Large|False|2.5|2026-12-31",
                               "Thai|Bangkok O'Hare|Pad thai|False|2|2027-01-15",
                               "Thai|Bangkok O'Hare|Soup|True|1|Never"};
    EXPECT_EQ(Table(), saved);
    EXPECT_EQ(f.UnsavedCount(), 0);
    f.cmdApply_Click();  // saving twice adds nothing
    EXPECT_EQ(Table(), saved);
}

TEST_F(DeliveryTest, DeletingASavedLineLeavesItsRowAndClosingAsksForUnsavedLines) {
    AddRow("Pizza", "Luigi's", "Large", "2.5", "Never");
    frmDelivery f;
    f.lvDeliveryCoupons->setCurrentItem(f.lvDeliveryCoupons->topLevelItem(0));
    ui.answer(Answer::No);
    f.cmdDelete_Click();
    EXPECT_EQ(Lines(f).size(), 1);
    ui.answer(Answer::Yes);
    f.cmdDelete_Click();
    EXPECT_EQ(LastBox(), "Delete: This will permantently remove the this item. Do you want to continue?");
    EXPECT_TRUE(Lines(f).isEmpty());
    EXPECT_EQ(Table().size(), 1);

    Fill(f, "Thai", "Wok Inn", "Soup", "1");
    f.cmdAdd_Click();
    f.show();
    ui.answer(Answer::No);
    f.cmdClose_Click();
    EXPECT_EQ(LastBox(),
              "Continue: The current list of Delivery Coupons has not been saved. Do you wish to continue?");
    EXPECT_TRUE(f.isVisible());
    f.cmdSave_Click();  // writes and closes without asking
    EXPECT_FALSE(f.isVisible());
    EXPECT_EQ(Table().size(), 2);
}

TEST_F(DeliveryTest, TheMenuAndTheQuickStartOpenTheScreen) {
    frmMain w;
    for (const std::function<void()>& open :
         {std::function<void()>([&] { w.RunCommand("mnuDelivery"); }),
          std::function<void()>([&] { w.lvQuickStart_DblClick("Delivery"); })}) {
        QString title;
        ui.answerModal([&](QDialog* d) {
            title = d->windowTitle();
            return int(QDialog::Rejected);
        });
        open();
        EXPECT_EQ(title, "Delivery Coupons");
        EXPECT_EQ(ui.pendingAnswers(), 0);
    }
}

}  // namespace
