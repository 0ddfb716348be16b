// A recipe onto a shopping list: the rows it writes, the merge with the
// Current list, the titles and list names it changes, the count and the box;
// and the recipe popup and quick-view roads that lead to it.
#include "core/ChangeNotices.h"
#include "core/MainPanes.h"
#include "core/clsRegistry.h"
#include "recipes/PackedIngredient.h"
#include "recipes/RecipeCommands.h"
#include "recipes/clsRecipies.h"
#include "support/Rows.h"
#include "support/TestEnv.h"

#include <QSignalSpy>
#include <QStandardItem>

namespace {

// Packed as the entry screen stores it: the quantity right-justified.
QString Slot(const QString& quantity, const QString& unit, const QString& name, const QString& prep = "") {
    return PackedIngredient::Pack(PackedIngredient::PadQuantity(quantity), unit, name, prep);
}

class GenerateListTest : public LarderTest {
protected:
    void TearDown() override {
        RecipeCommands::SpecialListHook = nullptr;
        MainPanes::Instance().ClearAll();
        LarderTest::TearDown();
    }

    static QStringList Items(const QString& where = "1 = 1") {
        return rows::Joined("SELECT * FROM ShopList WHERE " + where + " ORDER BY [ID]",
                            {"Name", "ItemName", "ItemQuantity", "ItemSize", "ItemStyle"});
    }
    static int Uses(const QString& title) { return rows::Field("Recipie", "Title", title, "TimesUsed").toInt(); }
    static QString ErrorBox(const QString& description) {
        return "Error: Error: " + description + " (Occurred in Recipe.GenerateList)";
    }
};

TEST_F(GenerateListTest, EveryFilledSlotOfTheFirstEighteenBecomesOneRowOfTheList) {
    QVariantMap columns{{"TimesUsed", 5}};
    for (int i = 1; i <= 20; ++i)
        columns.insert(PackedIngredient::ColumnName(i), Slot(QString::number(i), "can", QString("item %1").arg(i)));
    columns["Ingredient3"] = "";          // an empty slot is passed over
    columns["Ingredient4"] = QVariant();  // and so is a Null one
    columns["Ingredient5"] = Slot("1 1/2", "cup", "milk for");
    columns["Ingredient6"] = Slot("2", "", "salt For");
    columns["Ingredient7"] = Slot("1/2", "tsp", "pepper for ");
    rows::Recipe("Leek Soup", "Soup,Quick", "General", columns);
    rows::Add("History", {{"Category", "Soup"}, {"TimesUsed", 4}});

    QSignalSpy reloads(&Notices(), &ChangeNotices::LoadShoppingList);
    ui.answer(Answer::OK);
    QString title = "Leek Soup";
    QString list = "Weekly";
    EXPECT_TRUE(clsRecipies().GenerateList(title, list));

    ASSERT_EQ(ui.count(), 1);
    EXPECT_EQ(LastBox(), "List Add: The Recipe ,Leek Soup, was added to the List, Weekly.");
    EXPECT_EQ(ui.lastBox().buttons, Box::Exclamation);
    // One reload of the list pane for the whole recipe.
    EXPECT_EQ(reloads.count(), 1);

    QStringList expected;
    for (int i = 1; i <= 18; ++i) {
        if (i == 3 || i == 4) continue;
        const QString n = QString::number(i);
        if (i == 5)
            expected << "Weekly|milk |1 1/2|cup|Leek Soup";  // the dangling "for" goes, the blank stays
        else if (i == 6)
            expected << "Weekly|salt For|2||Leek Soup";
        else if (i == 7)
            expected << "Weekly|pepper for |1/2|tsp|Leek Soup";
        else
            expected << "Weekly|item " + n + "|" + n + "|can|Leek Soup";
    }
    EXPECT_EQ(Items(), expected);  // 16 rows; columns 19 and 20 are never read
    QStringList rest = rows::Joined("SELECT * FROM ShopList",
                                    {"Store", "ItemManufacturer", "Coupon", "Recurring", "IsCurrent", "Dates"});
    rest.removeDuplicates();
    EXPECT_EQ(rest, QStringList({"Any|Any|False| |True|"}));
    EXPECT_EQ(Uses("Leek Soup"), 6);
    EXPECT_EQ(rows::Joined("SELECT * FROM History ORDER BY [Category]", {"Category", "TimesUsed"}),
              QStringList({"Quick|1", "Soup|5"}));
}

TEST_F(GenerateListTest, TheSameRecipeTwiceMergesIntoItsRowsAndCountsOncePerCall) {
    rows::Recipe("Chili", "Main", "General",
                 {{"Ingredient1", Slot("2", "can", "beans")}, {"Ingredient2", Slot("1", "lb", "beef")}});
    // A list row of another list, not current, is left alone.
    rows::Add(
        "ShopList",
        {{"Name", "Old"}, {"ItemName", "beans"}, {"ItemQuantity", "7"}, {"ItemSize", "can"}, {"IsCurrent", false}});
    for (int call = 0; call < 2; ++call) {
        ui.answer(Answer::OK);
        QString title = "Chili";
        QString list = "Weekly";
        clsRecipies().GenerateList(title, list);
    }
    EXPECT_EQ(Items(), QStringList({"Old|beans|7|can|", "Weekly|beans|22, |can|Chili", "Weekly|beef|11, |lb|Chili"}));
    // A Null count becomes 1, then grows by one per call, not per ingredient.
    EXPECT_EQ(Uses("Chili"), 2);
    EXPECT_EQ(ui.prompts(), QStringList(2, "The Recipe ,Chili, was added to the List, Weekly."));
}

TEST_F(GenerateListTest, ATitleWithAnApostropheIsNotFoundAndNothingIsAdded) {
    rows::Recipe("Mom's Stew", "Stew", "General", {{"Ingredient1", Slot("2", "can", "beans")}, {"TimesUsed", 3}});
    ui.answer(Answer::OK);
    QString title = "Mom's Stew";
    QString list = "11/29/26";
    EXPECT_FALSE(clsRecipies().GenerateList(title, list));
    ASSERT_EQ(ui.count(), 1);
    EXPECT_EQ(LastBox(),
              ErrorBox("Either BOF or EOF is True, or the current record has been deleted. Requested operation "
                       "requires a current record."));
    EXPECT_EQ(title, "Mom''s Stew");
    EXPECT_EQ(list, "Sunday, Nov 29 2026");  // the name changed before the reads failed
    EXPECT_EQ(rows::Count("SELECT * FROM ShopList"), 0);
    EXPECT_EQ(rows::Count("SELECT * FROM History"), 0);
    EXPECT_EQ(Uses("Mom's Stew"), 3);
}

TEST_F(GenerateListTest, AListNamedByADateTakesTheLongFormAndTheCallerSeesIt) {
    rows::Recipe("Chili", "Main", "General", {{"Ingredient1", Slot("2", "can", "beans")}});
    const struct {
        QString given, becomes;
    } cases[] = {{"11/29/2026", "Sunday, Nov 29 2026"},
                 {"2026-12-03", "Thursday, Dec 3 2026"},
                 {"Sunday, Nov 29 2026", "Sunday, Nov 29 2026"},
                 {"Party 12", "Party 12"}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.given.toStdString());
        ui.answer(Answer::OK);
        QString title = "Chili";
        QString list = c.given;
        clsRecipies().GenerateList(title, list);
        EXPECT_EQ(list, c.becomes);
        EXPECT_EQ(LastBox(), "List Add: The Recipe ,Chili, was added to the List, " + c.becomes + ".");
        EXPECT_EQ(rows::Count("SELECT * FROM ShopList WHERE [Name] = " + rows::Literal(c.becomes)), 1);
    }
}

TEST_F(GenerateListTest, ReloadsAskedForDuringABatchAreSentOnceWhenTheOutermostEnds) {
    QSignalSpy lists(&Notices(), &ChangeNotices::LoadShoppingList);
    QSignalSpy meals(&Notices(), &ChangeNotices::LoadMealList);
    {
        NoticeBatch outer;
        {
            NoticeBatch inner;
            Notices().ShoppingListChanged();
            Notices().ShoppingListChanged();
        }
        EXPECT_EQ(lists.count(), 0);
        Notices().MealListChanged();
        EXPECT_EQ(meals.count(), 0);
    }
    EXPECT_EQ(lists.count(), 1);
    EXPECT_EQ(meals.count(), 1);
    // Without a batch each is sent at once; a batch that asked nothing sends nothing.
    Notices().ShoppingListChanged();
    { NoticeBatch idle; }
    EXPECT_EQ(lists.count(), 2);
    EXPECT_EQ(meals.count(), 1);
}

// The recipe popup works on a node of the recipe tree tagged as a recipe
// title (one added since the tree was loaded).
class RecipePopupTest : public GenerateListTest {
protected:
    void SetUp() override {
        GenerateListTest::SetUp();
        rows::Recipe("Chili", "Main", "General", {{"Ingredient1", Slot("2", "can", "beans")}, {"TimesUsed", 0}});
    }
    void Select(const QString& tag) {
        MainPanes& panes = MainPanes::Instance();
        QStandardItem* node = MainPanes::RecipeNode("Chili", false);
        node->setData(tag, MainPanes::TagRole);
        panes.AddCategory("Main")->appendRow(node);
        panes.SelectionOf(panes.recipes)->setCurrentIndex(node->index(), QItemSelectionModel::ClearAndSelect);
    }
};

TEST_F(RecipePopupTest, NoSendsTheRecipeToTheDefaultListAndYesToTheSpecialList) {
    Select("Recipe Title");
    Registry().CurrentShoppingList("Weekly");
    QStringList special;
    RecipeCommands::SpecialListHook = [&special](const QString& title) { special << title; };

    ui.answer(Answer::Yes);
    RecipeCommands::mnuPOPRecipieAddToShopList_Click();
    EXPECT_EQ(LastBox(), "Special List: Would you like to create a list just for this item?");
    EXPECT_EQ(ui.lastBox().buttons, Box::YesNo + Box::Question);
    EXPECT_EQ(special, QStringList({"Chili"}));
    EXPECT_EQ(rows::Count("SELECT * FROM ShopList"), 0);

    ui.answer(Answer::No);
    ui.answer(Answer::OK);
    RecipeCommands::mnuPOPRecipieAddToShopList_Click();
    EXPECT_EQ(LastBox(), "List Add: The Recipe ,Chili, was added to the List, Weekly.");
    EXPECT_EQ(Items(), QStringList({"Weekly|beans|2|can|Chili"}));
    EXPECT_EQ(Uses("Chili"), 2);  // the generation's count and the popup's own
    EXPECT_EQ(special.size(), 1);

    // Without the special list's screen, Yes does nothing more.
    RecipeCommands::SpecialListHook = nullptr;
    ui.clear();
    ui.answer(Answer::Yes);
    RecipeCommands::mnuPOPRecipieAddToShopList_Click();
    EXPECT_EQ(ui.count(), 1);
    EXPECT_EQ(rows::Count("SELECT * FROM ShopList"), 1);
}

TEST_F(RecipePopupTest, ARecipeNodeLoadedWithTheTreeAsksAndACategoryNodeDoesNot) {
    Select("Recipe");
    ui.answer(Answer::Yes);
    RecipeCommands::mnuPOPRecipieAddToShopList_Click();
    EXPECT_EQ(LastBox(), "Special List: Would you like to create a list just for this item?");

    ui.clear();
    MainPanes& panes = MainPanes::Instance();
    panes.SelectionOf(panes.recipes)
        ->setCurrentIndex(panes.AddCategory("Main")->index(), QItemSelectionModel::ClearAndSelect);
    RecipeCommands::mnuPOPRecipieAddToShopList_Click();
    EXPECT_EQ(ui.count(), 0);
}

TEST_F(GenerateListTest, WithNoDefaultListTheQuickAddGoesToTodaysListAndAFailedOneCountsNothing) {
    rows::Recipe("Chili", "Main", "General", {{"Ingredient1", Slot("2", "can", "beans")}, {"TimesUsed", 0}});
    QSignalSpy reloads(&Notices(), &ChangeNotices::LoadShoppingList);
    ui.answer(Answer::OK);
    EXPECT_TRUE(RecipeCommands::AddRecipeToCurrentList("Chili"));
    EXPECT_EQ(LastBox(), "List Add: The Recipe ,Chili, was added to the List, Sunday, Nov 22 2026.");
    EXPECT_EQ(Items(), QStringList({"Sunday, Nov 22 2026|beans|2|can|Chili"}));
    EXPECT_EQ(Uses("Chili"), 2);
    EXPECT_EQ(reloads.count(), 1);

    rows::Recipe("Mom's Stew", "Stew", "General", {{"TimesUsed", 0}});
    ui.answer(Answer::OK);
    EXPECT_FALSE(RecipeCommands::AddRecipeToCurrentList("Mom's Stew"));
    EXPECT_EQ(ui.lastBox().title, "Error");
    EXPECT_EQ(Uses("Mom's Stew"), 0);
}

}  // namespace
