#include "products/frmProductDetail.h"
#include "products/frmProductListing.h"
#include "products/frmProductNew.h"

#include "core/MainPanes.h"
#include "support/Rows.h"
#include "support/TestEnv.h"
#include "support/Views.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>

class ProductScreensTest : public LarderTest {
protected:
    static QStringList Lines(const QTreeWidget* view) { return views::Lines(view); }
};

TEST_F(ProductScreensTest, EntryChecksTheCostAndMakesNewNamesKnown) {
    rows::Add("Store", {{"Name", "Aldi"}});
    frmProductNew form;
    EXPECT_EQ(QStringList({form.windowTitle(), form.cboManufacturer->currentText(), form.cboStore->currentText()}),
              QStringList({"New Product Entry", "<Enter or Select>", "<Enter or Select>"}));

    // A store chosen wants a cost.
    form.cboStore->setCurrentText("Aldi");
    ui.answer(Answer::OK);
    EXPECT_FALSE(form.txtCost_Validate());
    EXPECT_EQ(ui.lastBox().prompt, "If a Store is selected, you must enter a cost for the item at that Store.");
    EXPECT_EQ(form.cboStore->currentText(), "<Enter or Select>");

    for (const char* bad : {"1.2.3", "abc"}) {
        form.txtCost->setText(bad);
        ui.answer(Answer::OK);
        EXPECT_FALSE(form.txtCost_Validate());
        EXPECT_EQ(LastBox(), "Cost Error: The Cost value must be a numeric value, but the '$' sign is allowed.");
    }
    form.txtCost->setText("$1234.5");
    EXPECT_TRUE(form.txtCost_Validate());
    EXPECT_EQ(form.txtCost->text(), "$1,234.50");

    form.txtProduct->setText("Kid's \"Crunch\"");
    form.cboCategory->setCurrentText("Cereal Bars");
    form.cboManufacturer->setCurrentText("O'Neil");
    form.cboStore->setCurrentText("Aldi");
    form.chkCreateInventory->setChecked(true);
    form.cmdAddProduct->click();
    EXPECT_EQ(rows::Column("SELECT * FROM Product", "Manufacturer") + rows::Column("SELECT * FROM Product", "Cost"),
              QStringList({"O'Neil", "1234.5"}));
    EXPECT_EQ(rows::Count("SELECT * FROM Product WHERE [LastPurchasedDate] = #11/22/2026#"), 1);
    EXPECT_EQ(rows::Column("SELECT * FROM SpendHistory", "ItemStore") +
                  rows::Column("SELECT * FROM SpendHistory", "ItemListCost"),
              QStringList({"Aldi", "1234.5"}));
    EXPECT_EQ(rows::Count("SELECT * FROM ItemCategory WHERE [Name] = 'Cereal Bars'"), 1);
    EXPECT_EQ(rows::Column("SELECT * FROM Manufacturer", "Name"), QStringList({"O'Neil"}));
    EXPECT_GE(form.cboManufacturer->findText("O'Neil"), 0);
    // Cleared for the next one.
    EXPECT_EQ(form.txtProduct->text(), "");
    EXPECT_EQ(form.cboCategory->currentText(), "<Enter or Select>");
    EXPECT_FALSE(form.chkCreateInventory->isChecked());

    // No maker, no cost, no store: "Any" at 0, and no history.
    form.txtProduct->setText("Salt");
    form.cmdAddProduct->click();
    EXPECT_EQ(rows::Column("SELECT * FROM Product WHERE [Name] = 'Salt'", "Manufacturer") +
                  rows::Column("SELECT * FROM Product WHERE [Name] = 'Salt'", "Cost"),
              QStringList({"Any", "0"}));
    EXPECT_EQ(rows::Count("SELECT * FROM SpendHistory"), 1);
}

TEST_F(ProductScreensTest, TheItemBarcodeIsScannedAndOffersTheManufacturersEndingInItsCode) {
    rows::Add("Manufacturer", {{"Name", "Acme"}, {"UPC_Number", "0041234"}});
    rows::Add("Manufacturer", {{"Name", "Inside"}, {"UPC_Number", "412349"}});  // holds the code, does not end in it
    frmProductNew form;
    auto enter = [this](const QString& typed) {
        ui.answerModal([typed](QDialog* d) {
            auto* field = d->findChild<QLineEdit*>("txtBarcode");
            field->setText(typed);
            QTest::keyClick(field, typed.isEmpty() ? Qt::Key_Escape : Qt::Key_Return);
            return d->result();
        });
    };

    // Cancelled: the box does not stay ticked and the product has no barcode.
    enter("");
    form.chkGetItemBarcode->click();
    EXPECT_FALSE(form.chkGetItemBarcode->isChecked());

    enter("041234567890");
    form.chkGetItemBarcode->click();
    EXPECT_TRUE(form.chkGetItemBarcode->isChecked());
    QStringList offered;
    for (int i = 0; i < form.cboManufacturer->count(); ++i) offered << form.cboManufacturer->itemText(i);
    EXPECT_EQ(offered, QStringList({"<Enter or Select>", "Acme"}));
    form.txtProduct->setText("Soup");
    form.cmdAddProduct->click();
    EXPECT_EQ(rows::Column("SELECT * FROM Product WHERE [Name] = 'Soup'", "Barcode"), QStringList({"041234567890"}));

    // Ticked then unticked: "0".
    enter("041234567890");
    form.chkGetItemBarcode->click();
    form.chkGetItemBarcode->click();
    form.txtProduct->setText("Bread");
    form.cmdAddProduct->click();
    EXPECT_EQ(rows::Column("SELECT * FROM Product WHERE [Name] = 'Bread'", "Barcode"), QStringList({"0"}));
}

TEST_F(ProductScreensTest, StoresAndManufacturersThatShareANameAreOffered) {
    rows::Add("Store", {{"Name", "Kroger"}});
    frmProductNew form;
    form.cboManufacturer->setCurrentText("Kroger");
    ui.answer(Answer::Yes);
    form.cboManufacturer_LostFocus();
    EXPECT_EQ(LastBox(),
              "Set Store: Kroger is also a Store Name. Would you like to set this as this Item's Store as well?");
    EXPECT_EQ(form.cboStore->currentText(), "Kroger");

    form.cboStore->setCurrentText("Joe's Market");
    ui.answer(Answer::Yes);
    form.cboStore_LostFocus();
    EXPECT_EQ(LastBox(), "Add Store: Would you like to add the Store Joe's Market to the database?");
    EXPECT_EQ(rows::Column("SELECT * FROM Store WHERE [Name] = 'Joe''s Market'", "isles"), QStringList({"1"}));
}

TEST_F(ProductScreensTest, TheListingShowsWatchesSearchesLiterallyAndDeletesOnConfirmation) {
    rows::Add(
        "Product",
        {{"Name", "Tea"}, {"Manufacturer", "Lipton"}, {"Size", "box"}, {"Category", "Drinks"}, {"lookout", true}});
    rows::Add("Product", {{"Name", "Oats"}, {"Manufacturer", "Quaker"}, {"Size", "tin"}, {"Category", "Cereal"}});
    rows::Add("Product", {{"Name", "Star*Fruit*"}, {"Manufacturer", "Any"}});
    frmProductListing listing;
    EXPECT_EQ(Lines(listing.lvProducts),
              QStringList({"Oats|Quaker|tin|Cereal|No", "Star*Fruit*|Any|||No", "Tea|Lipton|box|Drinks|Yes"}));

    // The stars of the search are plain characters to this database.
    listing.txtSearch->setText("Fruit");
    listing.cmdSearch_Click();
    EXPECT_EQ(listing.lvProducts->topLevelItemCount(), 0);
    EXPECT_EQ(listing.Query(), "SELECT * FROM Product WHERE [Name] LIKE '*Fruit*' ORDER BY [Name]");
    listing.txtSearch->setText("");
    listing.chkWatchOnly->setChecked(true);
    listing.cmdSearch_Click();
    EXPECT_EQ(listing.Query(), "SELECT * FROM Product WHERE [Name] LIKE '**' AND [LookOut] = True ORDER BY [Name]");

    listing.LoadProducts();
    listing.lvProducts->setCurrentItem(listing.lvProducts->topLevelItem(2));
    ui.answer(Answer::No);
    listing.mnuDeleteItem_Click();
    EXPECT_EQ(ui.lastBox().prompt, "This will permanently delete Tea. Do you want to Continue?");
    EXPECT_EQ(listing.lvProducts->topLevelItemCount(), 3);
    ui.answer(Answer::Yes);
    listing.mnuDeleteItem_Click();
    EXPECT_EQ(rows::Count("SELECT * FROM Product WHERE [Name] = 'Tea'"), 0);
    EXPECT_EQ(listing.lvProducts->topLevelItemCount(), 2);  // refreshed by the product's event

    // Sorting toggles with each click on the same header.
    listing.lvProducts_ColumnClick(1);
    EXPECT_EQ(listing.lvProducts->topLevelItem(0)->text(1), "Any");
    listing.lvProducts_ColumnClick(1);
    EXPECT_EQ(listing.lvProducts->topLevelItem(0)->text(1), "Quaker");

    frmProductListing oneMaker("Quaker");
    EXPECT_EQ(oneMaker.lblIntro->text(),
              "Below is a listing of all of the products that have ever been entered for Quaker into the database.");
    EXPECT_EQ(Lines(oneMaker.lvProducts), QStringList({"Oats|Quaker|tin|Cereal|No"}));
}

TEST_F(ProductScreensTest, TheListingPutsAProductOnAListAfterItsTwoQuestions) {
    rows::Add("Product", {{"Name", "Joe's Tea"},
                          {"Manufacturer", "Lipton"},
                          {"Size", "box"},
                          {"Category", "Drinks"},
                          {"Cost", 3.25},
                          {"LastPurchasedDate", QDate(2026, 11, 20)}});
    rows::Add("ShopList", {{"Name", "Week"}, {"ItemName", "Bread"}, {"Dates", "2026-11-29"}, {"IsCurrent", true},
                           {"Recurring", " "}});
    frmProductListing listing;
    listing.lvProducts->setCurrentItem(listing.lvProducts->topLevelItem(0));
    for (const char* name : {"mnuAddCoupon", "mnuAddItemToShopList"}) EXPECT_TRUE(listing.Command(name)->isEnabled());

    // Still on hand: No keeps it off every list.
    ui.answer(Answer::No);
    listing.mnuAddItemToShopList_Click();
    EXPECT_EQ(LastBox(), "Notice: It appear that this Item may still be in your Inventory. Do you still wish to add it "
                         "to a Shopping List?");
    ui.answer(Answer::Yes);
    ui.answer(Answer::Cancel);
    listing.mnuAddItemToShopList_Click();
    EXPECT_EQ(LastBox(), "Add Item: Would you like to add this to an existing Shopping List or create a new one?\r\n"
                         "\r\nClick Yes to add this item to an existing List, Click 'No' to create a new List.");
    EXPECT_EQ(ui.lastBox().buttons, Box::YesNoCancel + Box::Question);

    // An existing list: the item joins it as the list stands.
    ui.answer(Answer::Yes);
    ui.answer(Answer::Yes);
    ui.answerModal([](QDialog* d) {
        auto* picker = qobject_cast<QDialog*>(d);
        picker->accept();
        return int(QDialog::Accepted);
    });
    listing.mnuAddItemToShopList_Click();
    EXPECT_EQ(rows::Joined("SELECT * FROM ShopList WHERE [ItemName] = 'Joe''s Tea'",
                           {"Name", "ItemQuantity", "ItemManufacturer", "ItemCost", "Dates", "IsCurrent"}),
              QStringList({"Week|1|Lipton|3.25|2026-11-29|True"}));

    // A new list: a name already taken is refused and asked again.
    ui.answer(Answer::Yes);
    ui.answer(Answer::No);
    ui.answerInput("Week");
    ui.answer(Answer::OK);
    ui.answerInput("Tea Party");
    listing.mnuAddItemToShopList_Click();
    EXPECT_EQ(ui.prompts("InputBox").last(), "What is the Name of the List that you would like to create?");
    EXPECT_EQ(ui.boxes().last().title, "New Shopping List Name");
    EXPECT_EQ(rows::Joined("SELECT * FROM ShopList WHERE [Name] = 'Tea Party'", {"ItemName", "Dates", "IsCurrent"}),
              QStringList({"Joe's Tea|None|False"}));
    EXPECT_EQ(ui.pendingAnswers(), 0);

    // The coupon entry opens for the product.
    QString opened;
    ui.answerModal([&](QDialog* d) {
        opened = d->metaObject()->className();
        return 0;
    });
    listing.mnuAddCoupon_Click();
    EXPECT_EQ(opened, "frmNewCoupon");
}

TEST_F(ProductScreensTest, TheDetailShowsHistoryAndSavesCorrections) {
    const qint32 id =
        rows::Add("Product", {{"Name", "Oats"}, {"Manufacturer", "Quaker"}, {"Size", "tin"}, {"Cost", "2.5"}});
    rows::Add("SpendHistory",
              {{"ItemID", id}, {"ItemStore", "Aldi"}, {"ItemListCost", "2.39"}, {"ItemListDate", "11/01/2026"}});
    frmProductListing listing{QString()};
    frmProductDetail detail(id);
    ASSERT_TRUE(detail.Found());
    EXPECT_EQ(detail.txtCost->text(), "$2.50");
    EXPECT_EQ(Lines(detail.lvPriceHistory), QStringList({"11/01/2026|Aldi||$2.39"}));

    detail.txtCost->setText("-5");  // a number, so it stands
    detail.txtSize->setText("big \"tin\"");
    detail.cboCategory->setCurrentText("Breakfast");
    EXPECT_TRUE(detail.cmdSave_Click());
    EXPECT_EQ(rows::Column("SELECT * FROM Product", "Cost") + rows::Column("SELECT * FROM Product", "Size"),
              QStringList({"-5", "big \"tin\""}));
    EXPECT_EQ(rows::Count("SELECT * FROM ItemCategory WHERE [Name] = 'Breakfast'"), 1);
    // An open listing hears of the save and shows the correction.
    EXPECT_EQ(Lines(listing.lvProducts), QStringList({"Oats|Quaker|big \"tin\"|Breakfast|No"}));

    detail.txtCost->setText("$");
    EXPECT_TRUE(detail.cmdSave_Click());
    EXPECT_EQ(rows::Column("SELECT * FROM Product", "Cost"), QStringList({"0"}));
    detail.txtCost->setText("1.2.3");
    ui.answer(Answer::OK);
    EXPECT_FALSE(detail.cmdSave_Click());
    EXPECT_EQ(ui.lastBox().title, "Cost Error");

    frmProductDetail gone(9999);
    EXPECT_FALSE(gone.Found());
    EXPECT_FALSE(gone.cmdSave->isEnabled());
}

TEST_F(ProductScreensTest, ALongNameIsCutShortAndTheOtherColumnsStayInView) {
    const QString longName = "Organic " + QString(192, 'x');
    rows::Add("Product", {{"Name", longName}, {"Manufacturer", "Quaker"}, {"Size", "tin"}, {"Category", "Cereal"}});
    frmProductListing listing;
    listing.resize(700, 400);
    listing.show();
    QCoreApplication::processEvents();

    QTreeWidget* view = listing.lvProducts;
    const int visible = view->viewport()->width();
    int total = 0;
    for (int c = 0; c < view->columnCount(); ++c) {
        EXPECT_GT(view->columnWidth(c), 30) << c;
        total += view->columnWidth(c);
    }
    EXPECT_LE(total, visible);
    EXPECT_LT(view->columnWidth(0), visible / 2);
    EXPECT_EQ(view->topLevelItem(0)->toolTip(0), longName);
}

TEST_F(ProductScreensTest, TheDetailLeavesWhatWasNeverGivenEmpty) {
    const qint32 id =
        rows::Add("Product",
                  {{"Name", "Oats"}, {"Manufacturer", "Quaker"}, {"Size", "tin"}, {"LastPurchasedDate", "11/20/2026"}});
    frmProductDetail detail(id);
    EXPECT_EQ(detail.lblInventory->text(), "On hand since 11/20/2026, bought 0 times");
    EXPECT_EQ(detail.txtCost->text(), "");

    detail.txtSize->setText("sack");
    EXPECT_TRUE(detail.cmdSave_Click());
    EXPECT_EQ(rows::Column("SELECT * FROM Product", "Cost") + rows::Column("SELECT * FROM Product", "Size"),
              QStringList({"<null>", "sack"}));

    // A cost on file stays when its box is emptied, and a typed one is written.
    rows::Set("SELECT * FROM Product", "Cost", "2.5");
    detail.Form_Load();
    detail.txtCost->setText(" ");
    EXPECT_TRUE(detail.cmdSave_Click());
    EXPECT_EQ(rows::Column("SELECT * FROM Product", "Cost"), QStringList({"2.5"}));
    detail.txtCost->setText("$3.25");
    EXPECT_TRUE(detail.cmdSave_Click());
    EXPECT_EQ(rows::Column("SELECT * FROM Product", "Cost"), QStringList({"3.25"}));
}
