// Recipes dragged out of the recipe tree: the rules of each target, the boxes
// through the scripted service, the results in the database and the panes.
#include "core/ChangeNotices.h"
#include "core/clsRegistry.h"
#include "lists/frmShoppingListSelect.h"
#include "meals/clsMeal.h"
#include "recipes/PackedIngredient.h"
#include "support/MainWindowTest.h"

#include <QCoreApplication>
#include <QScrollBar>
#include <QTreeWidget>
#include <QSignalSpy>
#include <QTimer>

namespace {

using DragTest = MainWindowTest;

int TimesUsed(const QString& title) { return rows::Field("Recipie", "Title", title, "TimesUsed").toInt(); }

TEST_F(DragTest, ACalendarDayBeforeTodayIsRefusedAndAFreeDayGetsTheRecipeAsAMeal) {
    frmMain w;
    LoadRecipes(w);
    ui.answer(Answer::OK);
    w.calMeals_DragDrop("Leek Soup", QDate(2026, 11, 21));
    ASSERT_EQ(ui.count(), 1);
    EXPECT_EQ(LastBox(), "Select Again: This date is before today and cannot be added, Please reselect.");
    EXPECT_EQ(rows::Count("SELECT * FROM Meal"), 0);
    EXPECT_TRUE(panes.boldMealDates.isEmpty());
    EXPECT_EQ(TimesUsed("Leek Soup"), 0);

    ui.clear();
    ui.answer(Answer::Yes);                                 // add the meal
    ui.answer(Answer::No);                                  // not to the list
    w.calMeals_DragDrop("Leek Soup", QDate(2026, 11, 22));  // today is allowed
    ASSERT_EQ(ui.count(), 2);
    EXPECT_EQ(ui.boxes()[0].prompt, "Do you wish to add Leek Soup as a meal on Sunday, Nov 22 2026 ?");
    EXPECT_EQ(ui.boxes()[0].title, "Add Meal?");
    EXPECT_EQ(ui.boxes()[0].buttons, Box::YesNo + Box::Question);
    EXPECT_EQ(LastBox(), "Add to Shoppinglist: Do you wish to add Leek Soup to the current shopping list?");
    EXPECT_EQ(rows::Joined("SELECT * FROM Meal", {"Name", "MainCourse"}),
              QStringList({"Sunday, Nov 22 2026|Leek Soup"}));
    EXPECT_EQ(rows::Count("SELECT * FROM Meal WHERE [Dates] = #11/22/2026#"), 1);
    EXPECT_TRUE(panes.boldMealDates.contains(QDate(2026, 11, 22)));
    EXPECT_EQ(TimesUsed("Leek Soup"), 1);
    EXPECT_EQ(Children(panes.FindByKey(panes.meals, "Meal::Sunday, Nov 22 2026")), QStringList({"Leek Soup"}));

    // The same day again: the day keeps its one meal.
    ui.answer(Answer::Yes);
    ui.answer(Answer::No);
    w.calMeals_DragDrop("Apple Pie", QDate(2026, 11, 22));
    EXPECT_EQ(rows::Count("SELECT * FROM Meal"), 1);

    // No to the meal ends it there.
    ui.clear();
    ui.answer(Answer::No);
    w.calMeals_DragDrop("Apple Pie", QDate(2026, 12, 1));
    EXPECT_EQ(ui.count(), 1);
    EXPECT_EQ(rows::Count("SELECT * FROM Meal"), 1);

    // Yes to the list with no default list: the list picker is cancelled, so
    // nothing reaches a list.
    ui.clear();
    ui.answer(Answer::Yes);
    ui.answer(Answer::Yes);
    QString picker;
    ui.answerModal([&](QDialog* d) {
        picker = d->objectName();
        return int(QDialog::Rejected);
    });
    w.calMeals_DragDrop("Leek Soup", QDate(2026, 11, 30));
    EXPECT_EQ(ui.prompts().size(), 2);
    EXPECT_EQ(picker, "frmShoppingListSelect");
    EXPECT_EQ(rows::Count("SELECT * FROM Meal"), 2);
    EXPECT_EQ(rows::Count("SELECT * FROM ShopList"), 0);
    EXPECT_EQ(TimesUsed("Leek Soup"), 2);
}

TEST_F(DragTest, OnlyACategoryTakesARecipe) {
    frmMain w;
    LoadRecipes(w);
    QStandardItem* soup = panes.FindByKey(panes.recipes, "Soup");
    ASSERT_NE(soup, nullptr);

    ui.answer(Answer::OK);
    w.tvRecipes_DragDrop("Apple Pie", soup->child(0));
    EXPECT_EQ(LastBox(), "Cannot Do: A Recipe can only be added to a Category.");

    ui.answer(Answer::No);
    w.tvRecipes_DragDrop("Apple Pie", soup);
    EXPECT_EQ(LastBox(), "Add Category: Add Apple Pie to the Soup?");
    EXPECT_EQ(soup->rowCount(), 2);

    ui.answer(Answer::Yes);
    w.tvRecipes_DragDrop("Apple Pie", soup);
    EXPECT_EQ(rows::Field("Recipie", "Title", "Apple Pie", "Style").toString(), "Dessert,Soup");
    EXPECT_EQ(soup->rowCount(), 3);
    EXPECT_NE(RecipeNode("Soup", "Apple Pie"), nullptr);

    // The root is no category: nothing is asked.
    const int boxes = ui.count();
    w.tvRecipes_DragDrop("Apple Pie", panes.FindByKey(panes.recipes, "Root"));
    EXPECT_EQ(ui.count(), boxes);
}

TEST_F(DragTest, ADropOnTheListAsksAboutTheDefaultListUnlessToldNotTo) {
    frmMain w;
    LoadRecipes(w);
    Registry().CurrentShoppingList("Weekly");
    ui.answer(Answer::No);
    w.lvCurrentList_DragDrop("Leek Soup");
    ASSERT_EQ(ui.count(), 1);
    EXPECT_EQ(ui.lastBox().prompt, "Add Leek Soup to Weekly ?");
    EXPECT_EQ(ui.lastBox().buttons, Box::YesNo + Box::Question);

    EXPECT_EQ(TimesUsed("Leek Soup"), 0);

    // Without the question the drop goes straight to generation.
    Registry().PromptBeforeAddSet(false);
    ui.answer(Answer::OK);
    w.lvCurrentList_DragDrop("Leek Soup");
    EXPECT_EQ(ui.count(), 2);
    EXPECT_EQ(LastBox(), "List Add: The Recipe ,Leek Soup, was added to the List, Weekly.");
    EXPECT_EQ(TimesUsed("Leek Soup"), 2);

    // With no default list the picker is cancelled and the drop ends there.
    Registry().CurrentShoppingList("");
    ui.clear();
    ui.answerModal([](QDialog*) { return int(QDialog::Rejected); });
    w.lvCurrentList_DragDrop("Leek Soup");
    EXPECT_EQ(ui.prompts(), QStringList());
    EXPECT_EQ(TimesUsed("Leek Soup"), 2);

    // A list picked there is offered as the default and takes the recipe.
    rows::Add("ShopList", {{"Name", "Weekly"}, {"ItemName", "leeks"}});
    ui.answerModal([](QDialog* d) {
        auto* picker = static_cast<frmShoppingListSelect*>(d);
        picker->lvLists->setCurrentItem(picker->lvLists->topLevelItem(0));
        return int(QDialog::Accepted);
    });
    ui.answer(Answer::Yes);
    ui.answer(Answer::OK);
    w.lvCurrentList_DragDrop("Leek Soup");
    EXPECT_EQ(ui.prompts(), QStringList({"Would you like to use Weekly as the default?",
                                         "The Recipe ,Leek Soup, was added to the List, Weekly."}));
    EXPECT_EQ(Registry().CurrentShoppingList(), "Weekly");
}

// A recipe of eighteen ingredients, packed as the entry screen stores them.
void HarvestStew() {
    const char* const parts[18][3] = {
        {"1 1/2", "cup", "flour"},      // same size as the list's row: the fraction turns decimal
        {"2", "tbsp", "butter"},        // the list holds cups: converted by the chart
        {"2", "carton", "beef broth"},  // the list holds cans, the chart knows no cartons
        {"1", "ea", "onion"},           // same size: joined as text
        {"1/2", "tsp", "salt for"},     // new, and without its dangling "for"
        {"1 1/2", "lb", "beef chuck"}, {"3", "clove", "garlic"},  {"2", "ea", "carrot"},      {"1", "cup", "red wine"},
        {"2", "tbsp", "tomato paste"}, {"1", "tsp", "thyme"},     {"2", "ea", "bay leaf"},    {"4", "ea", "potato"},
        {"1", "cup", "peas"},          {"1/4", "cup", "parsley"}, {"1", "tbsp", "olive oil"}, {"1", "ea", "celery"},
        {"1/2", "tsp", "pepper"}};
    QVariantMap columns{{"TimesUsed", 0}, {"ingredient19", "      9%%cup%%never read"}};
    for (int i = 0; i < 18; ++i)
        columns.insert(
            PackedIngredient::ColumnName(i + 1),
            PackedIngredient::Pack(PackedIngredient::PadQuantity(parts[i][0]), parts[i][1], parts[i][2], ""));
    rows::Recipe("Harvest Stew", "Stew", "General", columns);
}

// The Current list the stew is dropped on, and a saved list that is not current.
void WeeklyList() {
    const char* const items[][4] = {{"flour", "2", "cup", "Baking"},
                                    {"butter", "1", "cup", "Dairy"},
                                    {"beef broth", "1", "can", "Soup"},
                                    {"onion", "2", "ea", "Produce"},
                                    {"milk", "1", "gal", "Dairy"}};
    for (const auto& i : items)
        rows::Add("ShopList", {{"Name", "Weekly"},
                               {"Store", "Any"},
                               {"ItemManufacturer", "Any"},
                               {"ItemName", i[0]},
                               {"ItemQuantity", i[1]},
                               {"ItemSize", i[2]},
                               {"ItemStyle", i[3]},
                               {"IsCurrent", true},
                               {"Recurring", " "}});
    rows::Add("ShopList", {{"Name", "Old"},
                           {"Store", "Any"},
                           {"ItemManufacturer", "Any"},
                           {"ItemName", "carrot"},
                           {"ItemQuantity", "5"},
                           {"ItemSize", "ea"},
                           {"IsCurrent", false}});
}

// What the stew leaves on the Current list, as the list pane shows it.
const QStringList kStewOnWeekly = {"flour|21.5, |cup|Baking",
                                   "butter|0.1251, |cup|Dairy",
                                   "beef broth|1, |can|Soup",
                                   "onion|21, |ea|Produce",
                                   "milk|1|gal|Dairy",
                                   "salt |1/2|tsp|Harvest Stew",
                                   "beef chuck|1 1/2|lb|Harvest Stew",
                                   "garlic|3|clove|Harvest Stew",
                                   "carrot|2|ea|Harvest Stew",
                                   "red wine|1|cup|Harvest Stew",
                                   "tomato paste|2|tbsp|Harvest Stew",
                                   "thyme|1|tsp|Harvest Stew",
                                   "bay leaf|2|ea|Harvest Stew",
                                   "potato|4|ea|Harvest Stew",
                                   "peas|1|cup|Harvest Stew",
                                   "parsley|1/4|cup|Harvest Stew",
                                   "olive oil|1|tbsp|Harvest Stew",
                                   "celery|1|ea|Harvest Stew",
                                   "pepper|1/2|tsp|Harvest Stew"};

QStringList Sorted(QStringList lines) {
    lines.sort();
    return lines;
}

TEST_F(DragTest, ARecipeDroppedOnTheListMergesIntoTheCurrentListAndThePaneShowsIt) {
    HarvestStew();
    WeeklyList();
    Registry().CurrentShoppingList("Weekly");
    frmMain w;
    LoadRecipes(w);
    w.LoadShoppingList();
    ASSERT_EQ(panes.currentList.rowCount(), 5);
    QSignalSpy reloads(&Notices(), &ChangeNotices::LoadShoppingList);

    ui.answer(Answer::Yes);
    ui.answer(Answer::OK);
    w.lvCurrentList_DragDrop("Harvest Stew");
    EXPECT_EQ(ui.prompts(), QStringList({"Add Harvest Stew to Weekly ?",
                                         "The Recipe ,Harvest Stew, was added to the List, Weekly."}));

    const QStringList weekly = rows::Joined("SELECT * FROM ShopList WHERE [Name] = 'Weekly' ORDER BY [ID]",
                                            {"ItemName", "ItemQuantity", "ItemSize", "ItemStyle"});
    EXPECT_EQ(weekly, kStewOnWeekly);
    EXPECT_EQ(rows::Joined("SELECT * FROM ShopList WHERE [Name] = 'Old'", {"ItemQuantity", "IsCurrent"}),
              QStringList({"5|False"}));
    // One from the generation, one from the drop.
    EXPECT_EQ(TimesUsed("Harvest Stew"), 2);
    EXPECT_EQ(reloads.count(), 1);
    EXPECT_EQ(Sorted(Lines(panes.currentList)), Sorted(kStewOnWeekly));
}

TEST_F(DragTest, ARecipeDroppedOnAFreeDayBecomesItsMealAndGoesOnTheList) {
    HarvestStew();
    WeeklyList();
    Registry().CurrentShoppingList("Weekly");
    frmMain w;
    LoadRecipes(w);
    w.LoadShoppingList();

    ui.answer(Answer::Yes);  // the meal
    ui.answer(Answer::Yes);  // the list
    ui.answer(Answer::OK);
    w.calMeals_DragDrop("Harvest Stew", QDate(2026, 11, 24));
    EXPECT_EQ(ui.prompts(), QStringList({"Do you wish to add Harvest Stew as a meal on Tuesday, Nov 24 2026 ?",
                                         "Do you wish to add Harvest Stew to the current shopping list?",
                                         "The Recipe ,Harvest Stew, was added to the List, Weekly."}));
    EXPECT_EQ(rows::Joined("SELECT * FROM Meal", {"Name", "Meal", "MainCourse"}),
              QStringList({"Tuesday, Nov 24 2026|Dinner|Harvest Stew"}));
    EXPECT_TRUE(clsMeal().DateTaken("11/24/26"));
    EXPECT_TRUE(panes.boldMealDates.contains(QDate(2026, 11, 24)));
    EXPECT_EQ(Children(panes.FindByKey(panes.meals, "Meal::Tuesday, Nov 24 2026")), QStringList({"Harvest Stew"}));
    EXPECT_EQ(Sorted(Lines(panes.currentList)), Sorted(kStewOnWeekly));
    // The meal, the generation and the list each count a use.
    EXPECT_EQ(TimesUsed("Harvest Stew"), 3);
}

TEST_F(DragTest, TheTreeScrollsWhileTheDragIsNearItsEdge) {
    for (int i = 0; i < 80; ++i) rows::Recipe(QString("Recipe %1").arg(i, 2, 10, QChar('0')), "Soup");
    frmMain w;
    w.resize(1000, 700);
    w.show();
    Registry().ExpandRecipeList(true);
    LoadRecipes(w);
    QCoreApplication::processEvents();
    QScrollBar* bar = w.tvRecipes->verticalScrollBar();
    ASSERT_GT(bar->maximum(), 0);
    const int height = w.tvRecipes->viewport()->height();

    w.tvRecipes_DragOver(QPoint(20, height - 2));
    EXPECT_TRUE(w.Timer1->isActive());
    const int before = bar->value();
    w.Timer1_Timer();
    w.Timer1_Timer();
    EXPECT_EQ(bar->value(), before + 2 * bar->singleStep());

    w.tvRecipes_DragOver(QPoint(20, height / 2));
    EXPECT_FALSE(w.Timer1->isActive());

    w.tvRecipes_DragOver(QPoint(20, 1));
    EXPECT_TRUE(w.Timer1->isActive());
    w.Timer1_Timer();
    EXPECT_EQ(bar->value(), before + bar->singleStep());

    w.EndDrag();
    EXPECT_FALSE(w.Timer1->isActive());
    EXPECT_EQ(w.DragTitle(), "");
}

}  // namespace
