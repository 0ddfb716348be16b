#include "core/CommandRegistry.h"
#include "lists/UpdateCommands.h"
#include "lists/frmShoppingListUpdate.h"
#include "lists/frmShoppingListUpdateAdd.h"
#include "products/modInventory.h"

#include "support/Rows.h"
#include "support/TestEnv.h"
#include "support/Views.h"

#include <QAction>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QTreeWidget>

namespace {

class ListUpdateTest : public LarderTest {
protected:
    static qint32 Product(const QString& name, const QString& maker) {
        return rows::Add("Product", {{"Name", name}, {"Manufacturer", maker}, {"Size", "1 lb"}, {"Cost", 2.5},
                                     {"LastPurchasedDate", QDate(2026, 11, 22)}});
    }
    static qint32 Spent(qint32 item, const QString& list, double cost, QVariantMap more = {}) {
        QVariantMap row{{"ItemID", item}, {"ItemListName", list}, {"ItemListCost", cost},
                        {"ItemListDate", QDate(2026, 11, 21)}, {"ItemStore", ""}};
        row.insert(more);
        return rows::Add("SpendHistory", row);
    }
    static qint32 Coupon(const QString& owner) {
        return rows::Add("Coupons", {{"Manufacturer", "Acme"}, {"Product", "Tea"}, {"Expiration", "Never"},
                                     {"OwnerList", owner}});
    }
    static QStringList History() {
        return rows::Joined("SELECT * FROM SpendHistory ORDER BY [SpendID]",
                            {"ItemID", "ItemListName", "ItemListCost", "ItemStore"});
    }
    static QStringList Names(const frmShoppingListUpdate& f) {
        QStringList out;
        for (int i = 0; i < f.cboShopingList->count(); ++i) out << f.cboShopingList->itemText(i);
        return out;
    }
    static void Load(frmShoppingListUpdate& f, const QString& list) {
        f.cboShopingList->setEditText(list);
        f.cmdLoad_Click();
    }
    static void Check(frmShoppingListUpdate& f, int line, bool on = true) {
        f.lvListItems->topLevelItem(line)->setCheckState(0, on ? Qt::Checked : Qt::Unchecked);
    }
};

TEST_F(ListUpdateTest, PrintedListBecomesPendingPurchasesAndTrivialItemsLeaveNoRecord) {
    QFile trivial(HomeFile("TrivialItem.lis"));
    ASSERT_TRUE(trivial.open(QIODevice::WriteOnly));
    trivial.write("Ice water\r\n");
    trivial.close();
    const qint32 tea = Product("Tea", "Acme");
    Product("Water", "Acme");
    for (const char* item : {"Tea", "Water"})
        rows::Add("ShopList", {{"Name", "Mom's list"}, {"ItemName", item}, {"ItemManufacturer", "Acme"},
                               {"ItemQuantity", "1"}, {"ItemCost", 3}, {"Dates", ""}, {"IsCurrent", true}});
    ui.answer(Answer::OK);
    modInventory::CreateInventory();
    EXPECT_EQ(History(), QStringList({QString::number(tea) + "|Mom's list|3|"}));
    EXPECT_EQ(rows::Count("SELECT * FROM ShopList"), 0);

    frmShoppingListUpdate form;
    EXPECT_EQ(Names(form), QStringList({"From Receipt", "Mom's list"}));
    Load(form, "Mom's list");
    EXPECT_EQ(form.lblHeader->text(), "1 Adjustments for Mom's list");
    EXPECT_EQ(views::Lines(form.lvListItems), QStringList({"Tea|Acme|1 lb|$3.00||1"}));
}

TEST_F(ListUpdateTest, AllCheckedSavesWithoutAQuestionAndUsesTheCoupons) {
    const qint32 tea = Product("Tea", "Acme"), jam = Product("Jam", "Acme");
    const qint32 used = Coupon("Week");
    Spent(tea, "Week", 2, {{"ItemCouponID", used}});
    Spent(jam, "week", 4);  // the same list, written otherwise
    Spent(jam, "Other", 1);
    Spent(jam, "", 1);
    frmShoppingListUpdate form;
    EXPECT_EQ(Names(form), QStringList({"From Receipt", "Week", "Other"}));
    Load(form, "Week");
    ASSERT_EQ(form.lvListItems->topLevelItemCount(), 2);
    EXPECT_EQ(form.lvListItems->topLevelItem(0)->data(0, frmShoppingListUpdate::ImageKeyRole), "HasCoupon");
    form.cboStore->setEditText("Aldi");
    form.mnuMarkAllItemsForStore_Click();
    form.mnuCheckAllEntries_Click();
    form.cmdApply_Click();
    EXPECT_EQ(ui.count(), 0);
    EXPECT_EQ(History(), QStringList({QString::number(tea) + "||2|Aldi", QString::number(jam) + "||4|Aldi",
                                      QString::number(jam) + "|Other|1|", QString::number(jam) + "||1|"}));
    EXPECT_EQ(rows::Count("SELECT * FROM Coupons"), 0);
    EXPECT_EQ(Names(form), QStringList({"From Receipt", "Other"}));
    EXPECT_EQ(form.lvListItems->topLevelItemCount(), 0);
    EXPECT_FALSE(form.Changed());
}

TEST_F(ListUpdateTest, AnUncheckedLineAsksAndNoChangesNothing) {
    const qint32 tea = Product("Tea", "Acme"), jam = Product("Jam", "Acme");
    Spent(tea, "Week", 2);
    Spent(jam, "Week", 4);
    const QStringList before = History();
    frmShoppingListUpdate form;
    Load(form, "Week");
    Check(form, 0);
    ui.answer(Answer::No);
    EXPECT_FALSE(form.UpdateItemCosts());
    EXPECT_EQ(LastBox(),
              "Continue: There are some Items that have not been Checked, these Items will be deleted.\r\n\r\nYou can "
              "click 'No' and use the option 'Check All Entries' to mark these items.        Do you wish to "
              "Continue?");
    EXPECT_EQ(ui.lastBox().buttons, Box::YesNo + Box::Question + Box::DefaultButton2);
    EXPECT_EQ(History(), before);
    EXPECT_EQ(form.lvListItems->topLevelItemCount(), 2);

    // Yes: the unchecked purchase and its stock are gone, the checked one is final.
    ui.answer(Answer::Yes);
    EXPECT_TRUE(form.UpdateItemCosts());
    EXPECT_EQ(History(), QStringList({QString::number(tea) + "||2|"}));
    EXPECT_EQ(rows::Count("SELECT * FROM Product WHERE [LastPurchasedDate] > #1/1/50#"), 1);
}

TEST_F(ListUpdateTest, AReleasedCouponSurvivesAndItsListMayHoldAnApostrophe) {
    const qint32 tea = Product("Tea", "Acme");
    const qint32 coupon = Coupon("Mom's list");
    Spent(tea, "Mom's list", 2, {{"ItemCouponID", coupon}});
    frmShoppingListUpdate form;
    Load(form, "Mom's list");
    form.lvListItems->setCurrentItem(form.lvListItems->topLevelItem(0));
    ui.answer(Answer::Yes);
    form.mnuReleaseItemsCoupon_Click();
    EXPECT_EQ(LastBox(),
              "Release Coupon: This will release the Coupon for Tea. Once the Coupon has been released it cannot be "
              "reassigned to this Item.\r\nDo you wish to Release this Coupon?");
    EXPECT_EQ(TextOf(rows::Field("Coupons", "ID", coupon, "OwnerList")), "");
    EXPECT_EQ(form.lvListItems->topLevelItem(0)->data(0, frmShoppingListUpdate::ImageKeyRole), "Item");
    form.mnuCheckAllEntries_Click();
    EXPECT_TRUE(form.UpdateItemCosts());
    EXPECT_EQ(rows::Count("SELECT * FROM Coupons"), 1);

    // Leaving with changes asks first.
    Spent(tea, "Week", 2);
    form.LoadListNames();
    Load(form, "Week");
    form.lvListItems->setCurrentItem(form.lvListItems->topLevelItem(0));
    form.cboStore->setEditText("Aldi");
    form.mnuSetItemsStore_Click();
    // The cost editor's answer lands on the line in the update's money format.
    ui.answerModal([](QDialog* d) {
        d->findChild<QLineEdit*>("txtNewCost")->setText("$1234.5");
        QMetaObject::invokeMethod(d, "cmdOK_Click");
        return int(d->result());
    });
    form.mnuEditItemCost_Click();
    EXPECT_EQ(form.lvListItems->topLevelItem(0)->text(frmShoppingListUpdate::colCost), "$1234.50");
    ui.answer(Answer::No);
    form.cmdCancel_Click();
    EXPECT_EQ(LastBox(), "Exit: The current changes have not been saved, Continue?");
    EXPECT_EQ(form.lvListItems->topLevelItem(0)->text(frmShoppingListUpdate::colStore), "Aldi");
}

TEST_F(ListUpdateTest, FromReceiptPurchasesAreFinalAtOnce) {
    const qint32 tea = Product("Tea", "O'Neil");
    frmShoppingListUpdate form;
    ui.answer(Answer::OK);
    Load(form, "Nothing");
    EXPECT_EQ(LastBox(), "Notice: The list 'Nothing' does not exist, Please re-enter.");

    Load(form, "From Receipt");
    EXPECT_EQ(form.lblHeader->text(), " Item from Receipt");
    auto pickTea = [&](QDialog* d) {
        auto* add = static_cast<frmShoppingListUpdateAdd*>(d);
        add->txtSearch->setText("o'neil");
        add->cmdSearch_Click();
        add->cmdOK_Click();
        return 1;
    };
    ui.answerModal(pickTea);
    form.mnuAddNewItem_Click();
    ui.answerModal(pickTea);
    ui.answer(Answer::Yes);
    form.mnuAddNewItem_Click();
    EXPECT_EQ(LastBox(), "Duplicate: O'Neil's Tea is already on this List. Would you like to still add it?");
    EXPECT_EQ(History(), QStringList(2, QString::number(tea) + "||2.5|"));
    EXPECT_EQ(form.lvListItems->topLevelItem(1)->checkState(0), Qt::Checked);
    form.LoadListNames();
    EXPECT_EQ(Names(form), QStringList({"From Receipt"}));

    // A keyword not found says so.
    frmShoppingListUpdateAdd add;
    add.txtSearch->setText("caviar");
    ui.answer(Answer::OK);
    add.cmdSearch_Click();
    EXPECT_EQ(LastBox(), "Not found: caviar was not found.");
    EXPECT_TRUE(add.Result().isEmpty());
}

TEST_F(ListUpdateTest, TheMainWindowCommandOpensTheScreen) {
    CommandRegistry commands;
    UpdateCommands::Register(commands);
    QString opened;
    ui.answerModal([&](QDialog* d) {
        opened = d->objectName();
        return 0;
    });
    EXPECT_TRUE(commands.Run("mnuEnterListData"));
    EXPECT_EQ(opened, "frmShoppingListUpdate");
}

}  // namespace
