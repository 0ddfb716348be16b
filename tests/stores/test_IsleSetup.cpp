// The screens on which a household describes its stores: the aisle tree and
// its drag and drop, saving with its refusals, and the smaller store and
// category screens.
#include "core/CommandRegistry.h"
#include "core/Globals.h"
#include "core/TableRows.h"
#include "core/clsRegistry.h"
#include "lists/clsShopList.h"
#include "products/frmProductNew.h"
#include "stores/StoreCommands.h"
#include "stores/clsIsleMap.h"
#include "stores/frmAllStores.h"
#include "stores/frmNewItemCategory.h"
#include "stores/frmNewStore.h"
#include "stores/frmSelectStore.h"
#include "stores/frmSetItemIsle.h"
#include "stores/frmStoreIsleSetup.h"
#include "support/Rows.h"
#include "support/TestEnv.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QTreeWidget>

namespace {

class IsleSetupTest : public LarderTest {
protected:
    void SetUp() override {
        LarderTest::SetUp();
        Registry().AllowExplode(false);
        rows::Add("Store", {{"Name", "Joe's"}, {"isles", 2}, {"FaxNumber", "555-1234"}});
        DeleteEveryRow("SELECT * FROM ItemCategory");  // the starting set is not needed here
        for (const char* name : {"Bakery", "Dairy", "Produce"}) rows::Add("ItemCategory", {{"Name", name}});
        Map("Joe's", "Dairy", "Isle 2", 2);
        rows::Add("Product", {{"Name", "Milk"}, {"Manufacturer", "Acme"}, {"Category", "Dairy"}});
        rows::Add("Product", {{"Name", "Butter"}, {"Manufacturer", "Acme"}, {"Category", "Dairy"}});
    }
    static void Map(const QString& store, const QString& category, const QString& isle, int order) {
        rows::Add("IsleMap", {{"Store", store}, {"ItemCategory", category}, {"Isle", isle}, {"IsleOrder", order}});
    }
    static QStringList Children(const QTreeWidgetItem* node) {
        QStringList texts;
        for (int i = 0; node && i < node->childCount(); ++i) texts << node->child(i)->text(0);
        return texts;
    }
    static QStringList Unplaced(const frmStoreIsleSetup& form) {
        QStringList texts;
        for (int i = 0; i < form.lvCategories->count(); ++i) texts << form.lvCategories->item(i)->text();
        return texts;
    }
};

TEST_F(IsleSetupTest, TheTreeShowsTheStoresWalkAndCategoriesAreDroppedOnlyOnAisles) {
    frmStoreIsleSetup form;
    form.LoadStore("Joe's");
    EXPECT_EQ(form.Root()->text(0), " Store: Joe's");
    QTreeWidgetItem* isle2 = form.FindIsle("Isle 2");
    ASSERT_NE(isle2, nullptr);
    EXPECT_EQ(isle2->data(0, frmStoreIsleSetup::KeyRole).toString(), "Isle::1");
    EXPECT_EQ(Children(isle2), QStringList({"Dairy"}));
    EXPECT_EQ(Children(form.FindCategory("Dairy")), QStringList({"Butter", "Milk"}));
    EXPECT_EQ(form.FindCategory("Dairy")->child(0)->data(0, frmStoreIsleSetup::TagRole).toString(),
              "Product::Butter::Acme");
    EXPECT_EQ(Unplaced(form), QStringList({"Bakery", "Produce"}));

    // A new aisle takes the chosen category with it; the next one goes by drag.
    form.cboIsle->setCurrentText("Isle 1");
    form.txtIsleOrder->setText("1");
    form.cboItemCategory->setCurrentText("Produce");
    form.cmdAddIsle_Click();
    QTreeWidgetItem* isle1 = form.FindIsle("Isle 1");
    ASSERT_NE(isle1, nullptr);
    EXPECT_EQ(Children(isle1), QStringList({"Produce"}));
    ui.answer(Answer::OK);
    form.tvIsleMap_DragDrop(nullptr, "Bakery", form.FindCategory("Produce"));
    EXPECT_EQ(LastBox(), "Notice: The Category, Bakery, can only be added to an Isle, not another Category.");
    form.tvIsleMap_DragDrop(nullptr, "Bakery", isle1);
    EXPECT_EQ(Children(isle1), QStringList({"Produce", "Bakery"}));
    EXPECT_TRUE(Unplaced(form).isEmpty());
    ui.answer(Answer::OK);
    form.cboIsle->setCurrentText("isle 1");
    form.cmdAddIsle_Click();
    EXPECT_EQ(LastBox(), "Notice: That Isle has already been added.");

    // Nothing is on the map before saving; leaving unsaved asks.
    EXPECT_EQ(rows::Count("SELECT * FROM IsleMap"), 1);
    ui.answer(Answer::No);
    form.reject();
    EXPECT_EQ(LastBox(), "Exit: The Current mapping has not been Saved. Do you want to exit?");
    form.cmdSave_Click();
    EXPECT_EQ(rows::Joined("SELECT * FROM IsleMap ORDER BY [IsleOrder], [ItemCategory]",
                           {"ItemCategory", "Isle", "IsleOrder"}),
              QStringList({"Bakery|Isle 1|1", "Produce|Isle 1|1", "Dairy|Isle 2|2"}));
    EXPECT_EQ(rows::Field("Store", "Name", "Joe's", "isles").toInt(), 2);
    EXPECT_EQ(rows::Field("Store", "Name", "Joe's", "FaxNumber").toString(), "555-1234");
}

TEST_F(IsleSetupTest, SavingKeepsTwoAislesOfACategoryAndRefusesAnOrderAnotherStoreContradicts) {
    Map("Aldi", "Produce", "Isle 1", 5);
    frmStoreIsleSetup form;
    form.LoadStore("Joe's");
    form.txtIsleCount->setText("x");
    ui.answer(Answer::OK);
    form.cmdStandardIsles_Click();
    EXPECT_EQ(LastBox(), "Notice: This Count must be a numeric value!");
    form.txtIsleCount->setText("3");
    form.cmdStandardIsles_Click();
    EXPECT_EQ(Children(form.Root()), QStringList({"Isle 2", "Isle 1", "Isle 3"}));
    // Dairy also in aisle 3; Produce in aisle 1 at order 1, where Aldi has 5.
    form.tvIsleMap_DragDrop(nullptr, "Produce", form.FindIsle("Isle 1"));
    new QTreeWidgetItem(form.FindIsle("Isle 3"), {"Dairy"});
    form.FindIsle("Isle 3")->child(0)->setData(0, frmStoreIsleSetup::TagRole, "Category");
    ui.answer(Answer::OK);
    EXPECT_FALSE(form.SaveMapping());
    EXPECT_EQ(LastBox(),
              "Notice: The Isle Isle 1 already exists with the Isle Order of 5 so, this Isle will not be saved.");
    EXPECT_EQ(rows::Joined("SELECT * FROM IsleMap WHERE [Store] = 'Joe''s'", {"ItemCategory", "Isle"}),
              QStringList({"Dairy|Isle 2", "Dairy|Isle 3"}));
    EXPECT_EQ(clsIsleMap().GetIsle("Joe's", "Dairy"), "Isle 2");

    // A saved mapping put back in the list is deleted only on Yes.
    frmStoreIsleSetup again;
    again.LoadStore("Joe's");
    again.tvIsleMap->setCurrentItem(again.FindIsle("Isle 3")->child(0));
    ui.answer(Answer::Yes);
    again.mnuResetItemCategory_Click();
    EXPECT_EQ(LastBox(), "Delete?: That Isle Mapping has already been saved. Do you wish to delete it?");
    EXPECT_EQ(rows::Count("SELECT * FROM IsleMap WHERE [Isle] = 'Isle 3'"), 0);
    EXPECT_EQ(rows::Count("SELECT * FROM IsleMap WHERE [Isle] = 'Isle 2'"), 1);
}

TEST_F(IsleSetupTest, AProductGivenItsOwnAisleLeavesItsCategoryButListsStayByCategory) {
    frmStoreIsleSetup form;
    form.LoadStore("Joe's");
    form.cmdStandardIsles_Click();  // two standard aisles: "Isle 1" is added
    QTreeWidgetItem* milk = form.FindCategory("Dairy")->child(1);
    ASSERT_EQ(milk->text(0), "Milk");
    ui.answer(Answer::Yes);
    form.tvIsleMap_DragDrop(milk, QString(), form.FindIsle("Isle 1"));
    EXPECT_EQ(LastBox(), "Create Alternate Mapping: Do you wish to create a Alternate Isle mapping for Acme's Milk?");
    EXPECT_EQ(Children(form.FindCategory("Dairy")), QStringList({"Butter"}));
    EXPECT_EQ(Children(form.FindIsle("Isle 1")), QStringList({"Acme's Milk"}));
    EXPECT_EQ(rows::Joined("SELECT * FROM AlternateIsleMap", {"StoreName", "ItemName", "StoreIsle", "StoreIsleOrder"}),
              QStringList({"Joe's|Milk|Isle 1|1"}));

    // Changing it again asks first; a list still walks by category.
    frmStoreIsleSetup again;
    again.LoadStore("Joe's");
    EXPECT_EQ(Children(again.FindCategory("Dairy")), QStringList({"Butter"}));
    QTreeWidgetItem* moved = again.FindIsle("Isle 1")->child(0);
    ui.answer(Answer::Yes);
    ui.answer(Answer::No);
    again.tvIsleMap_DragDrop(moved, QString(), again.FindIsle("Isle 2"));
    EXPECT_EQ(LastBox(), "Change: That Alternate mapping already exists. Do you wish to change it?");
    EXPECT_EQ(rows::Column("SELECT * FROM AlternateIsleMap", "StoreIsle"), QStringList({"Isle 1"}));
    rows::Add(
        "ShopList",
        {{"Name", "Week"}, {"Store", "Joe's"}, {"ItemName", "Milk"}, {"ItemStyle", "Dairy"}, {"IsCurrent", true}});
    clsShopList().MakeCurrent(QString(), "Joe's");
    EXPECT_EQ(rows::Column("SELECT * FROM ShopList", "ShopIsle"), QStringList({"Isle 2"}));
}

TEST_F(IsleSetupTest, ADuplicateCategoryLosesOnlyItsOwnRow) {
    rows::Add("ItemCategory", {{"Name", "dairy"}});
    Map("Joe's", "Produce", "Isle 1", 1);
    frmStoreIsleSetup form;
    ui.answer(Answer::Yes);
    form.LoadStore("Joe's");
    EXPECT_EQ(LastBox(),
              "Delete Duplicate: dairy appears to be a duplicate of another Category, Dairy. Do you want to "
              "delete the duplicate entry?");
    EXPECT_EQ(rows::Column("SELECT * FROM ItemCategory WHERE [Name] = 'Dairy'", "Name"), QStringList({"Dairy"}));
    EXPECT_EQ(rows::Count("SELECT * FROM Product WHERE [Category] = 'Dairy'"), 2);
    EXPECT_EQ(rows::Count("SELECT * FROM IsleMap"), 2);
}

TEST_F(IsleSetupTest, StoresAndCategoriesAreAddedRenamedAndDeletedOnTheirScreens) {
    frmNewStore add;
    add.txtStoreName->setText("JOE'S");
    ui.answer(Answer::Yes);
    ui.answer(Answer::OK);
    add.cmdNext_Click();
    EXPECT_EQ(LastBox(), "Add Store: JOE'S has already been entered.");
    add.txtStoreName->setText("Corner");
    add.txtIsleCount->setText("two");
    ui.answer(Answer::OK);
    add.cmdNext_Click();
    EXPECT_EQ(LastBox(), "Notice: This must be a numeric value.");
    add.txtIsleCount->setText("4");
    ui.answer(Answer::Yes);
    int isles = -1;
    ui.answerModal([&](QDialog* dialog) {
        isles = static_cast<frmStoreIsleSetup*>(dialog)->Root()->childCount();
        return 0;
    });
    add.cmdNext_Click();
    EXPECT_EQ(isles, 4);  // the counted aisles are ready to be filled
    EXPECT_EQ(rows::Field("Store", "Name", "Corner", "isles").toInt(), 4);

    rows::Add("ShopList", {{"Name", "Week"}, {"Store", "Corner"}, {"ItemName", "Tea"}});
    frmAllStores all;
    all.lvStores->setCurrentItem(all.lvStores->topLevelItem(0));
    EXPECT_EQ(all.SelectedStore(), "Corner");
    ui.answerInput("Corner Market");
    ui.answer(Answer::Yes);
    all.mnuRenameStore_Click();
    EXPECT_EQ(LastBox(), "Confirm: Are you certain that you want to change Corner to Corner Market?");
    EXPECT_EQ(rows::Column("SELECT * FROM ShopList", "Store"), QStringList({"Corner Market"}));
    ui.answer(Answer::Yes);
    all.mnuDeleteStore_Click();
    EXPECT_EQ(rows::Count("SELECT * FROM Store WHERE [Name] = 'Corner Market'"), 0);
    EXPECT_EQ(rows::Column("SELECT * FROM ShopList", "Store"), QStringList({""}));

    frmNewItemCategory categories;
    EXPECT_EQ(categories.lvItemCategories->topLevelItem(1)->text(1), "2");  // Dairy's products
    categories.txtCategory->setText("bakery");
    ui.answer(Answer::OK);
    categories.cmdAddNew_Click();
    EXPECT_EQ(LastBox(), "Notice: That category already exists,please re-enter.");
    categories.lvItemCategories->setCurrentItem(categories.lvItemCategories->topLevelItem(1));
    ui.answerInput("Milk & Cheese");
    categories.mnuRenameCategory_Click();
    EXPECT_EQ(rows::Count("SELECT * FROM Product WHERE [Category] = 'Milk & Cheese'"), 2);
    ui.answer(Answer::Yes);
    categories.mnuDeleteCategory_Click();
    EXPECT_EQ(rows::Count("SELECT * FROM Product WHERE [Category] = 'None'"), 2);
}

TEST_F(IsleSetupTest, AnItemPlacedAwayFromItsCategoryAsksBeforeItsOwnMapping) {
    frmSetItemIsle form;
    ui.answerModal([](QDialog*) { return int(QDialog::Rejected); });
    EXPECT_EQ(form.SetItemIsle("Milk", "Acme", QString()), "BAD");

    ui.answerModal([&](QDialog*) {
        EXPECT_EQ(form.lblOldIsle->text(), "Isle 2");
        form.cboNewIsle->setCurrentText("Isle 9");
        form.txtNewOrder->setText("9 (back)");
        form.cmdOK_Click();
        return form.result();
    });
    ui.answer(Answer::Yes);
    EXPECT_EQ(form.SetItemIsle("Milk", "Acme", "Joe's"), "OK");
    EXPECT_EQ(ui.boxes()[2].prompt,
              "Acme's Milk is mapped to Isle 2 for Store Joe's by default. Do you want to "
              "create an Alternate Mapping for this item?");
    EXPECT_EQ(ui.boxes()[2].buttons, Box::YesNo + Box::Question + Box::DefaultButton2);
    EXPECT_EQ(rows::Joined("SELECT * FROM AlternateIsleMap", {"ItemName", "StoreIsle", "StoreIsleOrder"}),
              QStringList({"Milk|Isle 9|9"}));
}

TEST_F(IsleSetupTest, TheStoreCommandsAndTheProductEntryOpenTheSetupOfTheChosenStore) {
    CommandRegistry commands;
    StoreCommands::Register(commands);
    auto pick = [this](const QString& prompt) {
        ui.answerModal([prompt](QDialog* dialog) {
            auto* form = qobject_cast<frmSelectStore*>(dialog);
            EXPECT_EQ(form->findChild<QLabel*>()->text(), prompt);
            form->lstStores->setCurrentRow(0);
            return int(QDialog::Accepted);
        });
    };
    QString opened;
    pick("Select the store that you wish to use for the setup.");
    ui.answerModal([&](QDialog* dialog) {
        opened = static_cast<frmStoreIsleSetup*>(dialog)->Store();
        return 0;
    });
    ASSERT_TRUE(commands.Run("mnuSetupStoreIsles"));
    EXPECT_EQ(opened, "Joe's");

    // The layout prints the aisles in walking order, and its copy is kept.
    Map("Joe's", "Produce", "Isle 1", 1);
    Registry().SaveReportCopy(true);
    pick("Select the Store that you wish to print a layout for.");
    ui.answerModal([](QDialog*) { return 0; });
    ASSERT_TRUE(commands.Run("mnuPrintStoreLayout"));
    QFile copy(HomeFile("StoreLayout.htm"));
    ASSERT_TRUE(copy.open(QIODevice::ReadOnly));
    const QString html = QString::fromUtf8(copy.readAll());
    EXPECT_LT(html.indexOf("Isle 1"), html.indexOf("Isle 2"));
    EXPECT_LT(html.indexOf("Produce"), html.indexOf("Dairy"));

    // A product entered with its aisle information ticked goes on to the setup.
    frmProductNew entry;
    entry.txtProduct->setText("Cream");
    entry.cboStore->setCurrentText("Joe's");
    entry.txtCost->setText("2");
    entry.chkAddIsleInformation->setChecked(true);
    opened.clear();
    ui.answerModal([&](QDialog* dialog) {
        opened = static_cast<frmStoreIsleSetup*>(dialog)->Store();
        return 0;
    });
    entry.cmdAddProduct_Click();
    EXPECT_EQ(opened, "Joe's");
    EXPECT_FALSE(entry.chkAddIsleInformation->isChecked());
}

}  // namespace
