// Recipes dragged out of the recipe tree: the rules of each target, the boxes
// through the scripted service, the results in the database and the panes.
#include "core/clsRegistry.h"
#include "support/MainWindowTest.h"

#include <QCoreApplication>
#include <QScrollBar>
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

    // Yes to the list reaches list generation, which is not there yet and says so.
    Registry().CurrentShoppingList("Weekly");
    ui.clear();
    ui.answer(Answer::Yes);
    ui.answer(Answer::Yes);
    ui.answer(Answer::OK);
    w.calMeals_DragDrop("Leek Soup", QDate(2026, 11, 30));
    ASSERT_EQ(ui.count(), 3);
    EXPECT_EQ(ui.lastBox().title, "Coming Soon");
    EXPECT_EQ(rows::Count("SELECT * FROM Meal"), 2);
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

    // Without the question the drop goes straight to generation.
    Registry().PromptBeforeAddSet(false);
    ui.answer(Answer::OK);
    w.lvCurrentList_DragDrop("Leek Soup");
    EXPECT_EQ(ui.count(), 2);
    EXPECT_EQ(ui.lastBox().title, "Coming Soon");
    EXPECT_EQ(TimesUsed("Leek Soup"), 0);
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
