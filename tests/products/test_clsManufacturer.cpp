#include "products/clsManufacturer.h"

#include "core/MainPanes.h"
#include "core/modBarcode.h"
#include "platform/RuntimeError.h"
#include "support/Rows.h"
#include "support/TestEnv.h"

class ManufacturerTest : public LarderTest {
protected:
    // The three products, their histories and a coupon of one maker.
    void Household() {
        for (const char* name : {"Oats", "Bran"}) {
            const qint32 id = rows::Add("Product", {{"Name", name}, {"Manufacturer", "Quaker"}});
            // The clean-up matches history by its own key: give each product a row whose key is its ID.
            rows::Add("SpendHistory", {{"SpendID", id}, {"ItemID", 900 + id}, {"ItemStore", "Aldi"}});
        }
        rows::Add("Product", {{"Name", "Tea"}, {"Manufacturer", "Lipton"}});
        rows::Add("Coupons", {{"Manufacturer", "Quaker"}, {"Product", "Oats"}});
        rows::Add("Manufacturer", {{"Name", "Quaker"}});
    }
    void Answered(int answer) {
        ui.answer(answer);
        clsManufacturer().DeleteManufacturer("Quaker");
    }
};

TEST_F(ManufacturerTest, TheCodeIsTheBarcodesFiveDigitsAfterTheFirst) {
    QStringList codes;
    for (const char* barcode : {"012345678905", "0123456789051", "01234567890", "A1B2C3D4E5F6", ""})
        codes << GetManufacturerCode(barcode);
    EXPECT_EQ(codes, QStringList({"12345", "12345", "", "1B2C3", ""}));
}

TEST_F(ManufacturerTest, WriteNewAddsTheRowOnceWithItsCodeAndABoldNode) {
    MainPanes& panes = MainPanes::Instance();
    clsManufacturer maker;
    maker.Name("O'Neil \"Best\" Foods");
    maker.UPCCode("012345678905");
    EXPECT_TRUE(maker.WriteNew());
    EXPECT_FALSE(maker.WriteNew());
    maker.Name("Acme");
    maker.UPCCode("");
    EXPECT_TRUE(maker.WriteNew());
    EXPECT_EQ(rows::Column("SELECT * FROM Manufacturer", "UPC_Number"), QStringList({"12345", ""}));
    QStandardItem* node = panes.FindByKey(panes.coupons, "O'Neil \"Best\" Foods");
    ASSERT_NE(node, nullptr);
    EXPECT_TRUE(node->font().bold());
    EXPECT_EQ(node->data(MainPanes::ImageKeyRole).toString(), "Root");
    ASSERT_NE(node->parent(), nullptr);
    EXPECT_EQ(node->parent()->child(0)->text(), "Acme");  // sorted

    // The code is read under a name the table lacks; the caller's handler hears of it.
    maker.OpenDB("SELECT * FROM Manufacturer", adOpenKeyset, adLockReadOnly);
    EXPECT_EQ(maker.Name(), "O'Neil \"Best\" Foods");
    EXPECT_THROW(maker.UPCCode(), RuntimeError);
}

TEST_F(ManufacturerTest, RenamingReachesProductsAndCouponsAndStoresAreFoundByPart) {
    Household();
    rows::Add("Store", {{"Name", "Quaker Market"}});
    clsManufacturer maker;
    EXPECT_TRUE(maker.rsManufacturer("Quaker"));
    EXPECT_FALSE(maker.rsManufacturer("Lipton"));
    maker.RenameManufacturer("Quaker", "Quaker's");
    EXPECT_EQ(rows::Count("SELECT * FROM Product WHERE [Manufacturer] = 'Quaker''s'"), 2);
    EXPECT_EQ(rows::Column("SELECT * FROM Coupons", "Manufacturer"), QStringList({"Quaker's"}));
    EXPECT_TRUE(maker.Exists("Quaker's"));
    EXPECT_FALSE(maker.Exists("Quaker"));
}

TEST_F(ManufacturerTest, DeletingAsksWhatBecomesOfTheProductsAndAlwaysTakesTheCoupons) {
    Household();
    Answered(Answer::Cancel);
    EXPECT_EQ(LastBox(),
              "Products Found: There are Products for Quaker. Do you wish to delete these Products or set the "
              "Manufacturer to 'Any'?\r\n\r\n • Click 'Yes' to delete this Manufacturer.\r\n • Click 'No' "
              "to reset the Manufacturer to 'Any'.\r\n • Click 'Cancel' to Exit.");
    EXPECT_EQ(ui.lastBox().buttons, Box::YesNoCancel + Box::Question);
    EXPECT_EQ(rows::Count("SELECT * FROM Product WHERE [Manufacturer] = 'Quaker'"), 2);
    EXPECT_EQ(rows::Count("SELECT * FROM Coupons"), 1);

    Answered(Answer::No);
    EXPECT_EQ(rows::Column("SELECT * FROM Product ORDER BY [ID]", "Manufacturer"),
              QStringList({"Any", "Any", "Lipton"}));
    EXPECT_EQ(rows::Count("SELECT * FROM Coupons"), 0);
    EXPECT_EQ(rows::Count("SELECT * FROM Manufacturer"), 0);
    EXPECT_EQ(rows::Count("SELECT * FROM SpendHistory"), 2);
}

TEST_F(ManufacturerTest, DeletingWithYesTakesProductsAndTheHistoryKeyedByTheirNumbers) {
    Household();
    Answered(Answer::Yes);
    EXPECT_EQ(rows::Column("SELECT * FROM Product", "Name"), QStringList({"Tea"}));
    EXPECT_EQ(rows::Count("SELECT * FROM SpendHistory"), 0);
    EXPECT_EQ(rows::Count("SELECT * FROM Manufacturer"), 0);
    // Without products there is nothing to ask.
    rows::Add("Manufacturer", {{"Name", "Quaker"}});
    EXPECT_TRUE(clsManufacturer().DeleteManufacturer("Quaker"));
    EXPECT_EQ(rows::Count("SELECT * FROM Manufacturer"), 0);
}
