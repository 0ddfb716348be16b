#include "stores/clsAlterIsleMap.h"
#include "stores/clsIsleMap.h"
#include "stores/clsItemCategory.h"
#include "stores/frmSelectCategory.h"

#include "core/clsRegistry.h"
#include "platform/RuntimeError.h"
#include "support/Rows.h"
#include "support/TestEnv.h"

#include <QTreeWidget>

class IsleMapTest : public LarderTest {
protected:
    static void Map(const QString& store, const QString& category, const QString& isle, int order) {
        rows::Add("IsleMap", {{"Store", store}, {"ItemCategory", category}, {"Isle", isle}, {"IsleOrder", order}});
    }
    static void Product(const QString& name, const QString& category) {
        rows::Add("Product", {{"Name", name}, {"Category", category}, {"Manufacturer", "Any"}});
    }
};

TEST_F(IsleMapTest, TheAisleOfACategoryIsTheFirstMappedRowOrNothing) {
    Map("Aldi", "Dairy", "Isle 3", 3);
    Map("Aldi", "Dairy", "Isle 9", 9);  // mapped twice: the first row wins
    Map("Lidl", "Bakery", "Isle 1", 1);
    clsIsleMap map;
    EXPECT_EQ(QStringList({map.GetIsle("Aldi", "Dairy"), map.GetIsle("Aldi", "Bakery"),
                           map.GetIsle("O'Hara's", "Kid's \"Snacks\"")}),
              QStringList({"Isle 3", "", ""}));
    EXPECT_EQ(map.GetIsleOrder("Aldi", "Dairy"), 3);
    EXPECT_EQ(map.GetIsleOrder("Aldi", "Bakery"), 0);
    EXPECT_TRUE(map.IsMapped("Aldi", "Dairy", "Isle 9"));
    EXPECT_FALSE(map.IsMapped("Aldi", "Dairy", "Isle 1"));

    EXPECT_TRUE(map.RemoveMapping("Aldi", "Dairy", "Isle 3"));
    EXPECT_EQ(map.GetIsle("Aldi", "Dairy"), "Isle 9");
    EXPECT_TRUE(map.RemoveMapping("Aldi", "Nothing", "Isle 3"));
}

TEST_F(IsleMapTest, APairKeepsOneOrderAcrossAllStores) {
    Map("Lidl", "Dairy", "Isle 1", 4);
    clsIsleMap map;
    map.Store("Aldi");
    map.ItemCategory("Dairy");
    map.Isle("Isle 1");
    map.IsleOrder(2);
    ui.answer(Answer::OK);
    EXPECT_FALSE(map.WriteNew());
    EXPECT_EQ(LastBox(),
              "Notice: The Isle Isle 1 already exists with the Isle Order of 4 so, this Isle will not be saved.");
    EXPECT_EQ(map.FoundOrder(), 4);
    EXPECT_EQ(rows::Count("SELECT * FROM IsleMap WHERE [Store] = 'Aldi'"), 0);

    map.IsleOrder(4);
    EXPECT_TRUE(map.WriteNew());
    map.Isle("Isle 2");
    map.IsleOrder(5);
    EXPECT_TRUE(map.WriteNew());
    EXPECT_EQ(rows::Column("SELECT * FROM IsleMap WHERE [Store] = 'Aldi'", "IsleOrder"), QStringList({"4", "5"}));
    // Store and category give back what was written, whatever is open.
    EXPECT_EQ(map.Store(), "Aldi");
    EXPECT_EQ(map.ItemCategory(), "Dairy");
}

TEST_F(IsleMapTest, AlternateMappingsAreFoundAndDeletedByStoreProductAndMaker) {
    clsAlterIsleMap alt;
    alt.StoreName("Aldi");
    alt.ItemName("Ben's \"Best\" Rice");
    alt.ItemManufacturer("Ben's");
    alt.StoreIsle("Isle 7");
    alt.StoreIsleOrder(7);
    EXPECT_FALSE(alt.AlternateMapExists());
    ASSERT_TRUE(alt.WriteNew());
    EXPECT_TRUE(alt.AlternateMapExists());
    EXPECT_EQ(rows::Column("SELECT * FROM AlternateIsleMap", "StoreIsleOrder"), QStringList({"7"}));
    // The key is asked for under a name the table does not have.
    alt.OpenDB("SELECT * FROM AlternateIsleMap", adOpenKeyset, adLockReadOnly);
    EXPECT_THROW(alt.AltMapID(), RuntimeError);
    alt.CloseDB();
    EXPECT_TRUE(alt.DeleteAlterMap());
    EXPECT_FALSE(alt.AlternateMapExists());
}

TEST_F(IsleMapTest, RemovingAndRenamingCategoriesRewriteProductsButNotTheMap) {
    Product("Milk", "Dairy");
    Product("Cheese", "Dairy");
    Product("Bread", "Bakery");
    rows::Add("ItemCategory", {{"Name", "Dairy"}});
    Map("Aldi", "Dairy", "Isle 1", 1);
    clsItemCategory categories;
    EXPECT_EQ(categories.ItemCount("Dairy"), 2);
    categories.Name("Bakery");
    EXPECT_EQ(categories.ItemCount(), 1);

    EXPECT_TRUE(categories.RenameCategory("Dairy", "Milk & Cheese"));
    EXPECT_EQ(rows::Column("SELECT * FROM Product WHERE [Category] = 'Milk & Cheese'", "Name"),
              QStringList({"Milk", "Cheese"}));
    EXPECT_TRUE(categories.Exists("Milk & Cheese"));
    EXPECT_EQ(rows::Column("SELECT * FROM IsleMap", "ItemCategory"), QStringList({"Dairy"}));

    EXPECT_TRUE(categories.RemoveCategory("Milk & Cheese"));
    EXPECT_FALSE(categories.Exists("Milk & Cheese"));
    EXPECT_EQ(rows::Column("SELECT * FROM Product WHERE [Category] = 'None'", "Name"), QStringList({"Milk", "Cheese"}));
    EXPECT_EQ(rows::Count("SELECT * FROM IsleMap"), 1);

    const qint32 id = categories.WriteNew("Kid's \"Snacks\"");
    EXPECT_GT(id, 0);
    EXPECT_TRUE(categories.Exists("Kid's \"Snacks\""));
}

TEST_F(IsleMapTest, SuggestionsComeFromOneProductOrFromThePersonsPick) {
    Product("Milk", "Dairy");
    Product("Milk Chocolate", "Candy");
    Product("Chocolate Milk", "Drinks");
    Product("Oat's Bran", "Cereal");
    clsItemCategory categories;
    // "Milk" is the exact name alone.
    EXPECT_EQ(QStringList({categories.SuggestItemCategory("Milk"), categories.SuggestItemCategory("Bran"),
                           categories.SuggestItemCategory("Oat's"), categories.SuggestItemCategory("Caviar")}),
              QStringList({"Dairy", "Cereal", "Cereal", ""}));

    // Several matches: the person picks, or nothing without the prompt.
    QStringList offered;
    ui.answerModal([&](QDialog* dialog) {
        auto* form = qobject_cast<frmSelectCategory*>(dialog);
        for (int i = 0; i < form->lvProducts->topLevelItemCount(); ++i)
            offered << form->lvProducts->topLevelItem(i)->text(1);
        form->lvProducts->setCurrentItem(form->lvProducts->topLevelItem(1));
        return int(QDialog::Accepted);
    });
    EXPECT_EQ(categories.SuggestItemCategory("Chocolate"), "Drinks");
    EXPECT_EQ(offered, QStringList({"Candy", "Drinks"}));

    ui.answerModal([](QDialog*) { return int(QDialog::Rejected); });
    EXPECT_EQ(categories.SuggestItemCategory("Chocolate"), "");

    Registry().PromptOnMultiCategory(false);
    EXPECT_EQ(categories.SuggestItemCategory("Chocolate"), "");
}
