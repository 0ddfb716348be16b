// Recipes dragged out of the recipe tree: the rules of each target, the boxes
// through the scripted service, the results in the database and the panes.
#include "core/Globals.h"
#include "core/MainPanes.h"
#include "core/clsRegistry.h"
#include "app/frmMain.h"
#include "platform/Database.h"
#include "platform/Recordset.h"
#include "support/TestEnv.h"

#include <QCalendarWidget>
#include <QCoreApplication>
#include <QScrollBar>
#include <QTableView>
#include <QTimer>
#include <QTreeView>

namespace {

class DragTest : public LarderTest {
protected:
    void SetUp() override {
        LarderTest::SetUp();
        MainPanes::Instance().ClearAll();
        AddRecipe("Leek Soup", "Soup");
        AddRecipe("Apple Pie", "Pies");
    }
    void TearDown() override {
        MainPanes::Instance().ClearAll();
        LarderTest::TearDown();
    }
    void AddRecipe(const QString& title, const QString& style) {
        Recordset rs;
        rs.Open("SELECT * FROM Recipie", ConnectionMain(), adOpenStatic, adLockOptimistic);
        rs.AddNew();
        rs.setField("Title", title);
        rs.setField("Style", style);
        rs.setField("CookbookName", "General");
        rs.setField("TimesUsed", 0);
        rs.Update();
    }
    int Rows(const QString& sql) {
        Recordset rs;
        rs.Open(sql, ConnectionMain(), adOpenKeyset, adLockReadOnly);
        return rs.RecordCount();
    }
    QVariant Value(const QString& sql, const QString& column) {
        Recordset rs;
        rs.Open(sql, ConnectionMain(), adOpenKeyset, adLockReadOnly);
        return rs.IsEOF() ? QVariant() : rs.Field(column);
    }

    MainPanes& panes = MainPanes::Instance();
};

TEST_F(DragTest, ADayBeforeTodayIsRefusedAndNothingChanges) {
    frmMain w;
    ui.answer(Answer::OK);
    w.calMeals_DragDrop("Leek Soup", QDate(2026, 11, 21));
    ASSERT_EQ(ui.count(), 1);
    EXPECT_EQ(ui.lastBox().prompt, "This date is before today and cannot be added, Please reselect.");
    EXPECT_EQ(ui.lastBox().title, "Select Again");
    EXPECT_EQ(Rows("SELECT * FROM Meal"), 0);
    EXPECT_TRUE(panes.boldMealDates.isEmpty());
    EXPECT_EQ(Value("SELECT [TimesUsed] FROM Recipie WHERE [Title] = 'Leek Soup'", "TimesUsed").toInt(), 0);
}

TEST_F(DragTest, AFreeDayGetsTheRecipeAsAMealAndTheListQuestionFollows) {
    frmMain w;
    ui.answer(Answer::Yes);  // add the meal
    ui.answer(Answer::No);   // not to the list
    w.calMeals_DragDrop("Leek Soup", QDate(2026, 11, 22));  // today is allowed
    ASSERT_EQ(ui.count(), 2);
    EXPECT_EQ(ui.boxes()[0].prompt, "Do you wish to add Leek Soup as a meal on Sunday, Nov 22 2026 ?");
    EXPECT_EQ(ui.boxes()[0].title, "Add Meal?");
    EXPECT_EQ(ui.boxes()[0].buttons, Box::YesNo + Box::Question);
    EXPECT_EQ(ui.boxes()[1].prompt, "Do you wish to add Leek Soup to the current shopping list?");
    EXPECT_EQ(ui.boxes()[1].title, "Add to Shoppinglist");

    EXPECT_EQ(Rows("SELECT * FROM Meal"), 1);
    EXPECT_EQ(Value("SELECT * FROM Meal", "Name").toString(), "Sunday, Nov 22 2026");
    EXPECT_EQ(Value("SELECT * FROM Meal", "MainCourse").toString(), "Leek Soup");
    EXPECT_EQ(Rows("SELECT * FROM Meal WHERE [Dates] = #11/22/2026#"), 1);
    EXPECT_TRUE(panes.boldMealDates.contains(QDate(2026, 11, 22)));
    EXPECT_EQ(Value("SELECT [TimesUsed] FROM Recipie WHERE [Title] = 'Leek Soup'", "TimesUsed").toInt(), 1);
    QStandardItem* meal = panes.FindByKey(panes.meals, "Meal::Sunday, Nov 22 2026");
    ASSERT_NE(meal, nullptr);
    ASSERT_EQ(meal->rowCount(), 1);
    EXPECT_EQ(meal->child(0)->text(), "Leek Soup");

    // The same day again: the day keeps its one meal.
    ui.answer(Answer::Yes);
    ui.answer(Answer::No);
    w.calMeals_DragDrop("Apple Pie", QDate(2026, 11, 22));
    EXPECT_EQ(Rows("SELECT * FROM Meal"), 1);

    // No to the meal ends it there.
    ui.clear();
    ui.answer(Answer::No);
    w.calMeals_DragDrop("Apple Pie", QDate(2026, 12, 1));
    EXPECT_EQ(ui.count(), 1);
    EXPECT_EQ(Rows("SELECT * FROM Meal"), 1);
}

TEST_F(DragTest, YesToTheListAfterACalendarDropReachesListGeneration) {
    frmMain w;
    Registry().CurrentShoppingList("Weekly");
    ui.answer(Answer::Yes);
    ui.answer(Answer::Yes);
    ui.answer(Answer::OK);  // generation is not there yet and says so
    w.calMeals_DragDrop("Leek Soup", QDate(2026, 11, 30));
    ASSERT_EQ(ui.count(), 3);
    EXPECT_EQ(ui.lastBox().title, "Coming Soon");
    EXPECT_EQ(Rows("SELECT * FROM Meal"), 1);
}

TEST_F(DragTest, OnlyACategoryTakesARecipe) {
    frmMain w;
    CurrentCookbook = "General";
    w.LoadRecipies();
    QStandardItem* soup = panes.FindByKey(panes.recipes, "Soup");
    QStandardItem* pies = panes.FindByKey(panes.recipes, "Pies");
    ASSERT_NE(soup, nullptr);
    ASSERT_NE(pies, nullptr);

    ui.answer(Answer::OK);
    w.tvRecipes_DragDrop("Apple Pie", soup->child(0));
    EXPECT_EQ(ui.lastBox().prompt, "A Recipe can only be added to a Category.");
    EXPECT_EQ(ui.lastBox().title, "Cannot Do");

    ui.answer(Answer::No);
    w.tvRecipes_DragDrop("Apple Pie", soup);
    EXPECT_EQ(ui.lastBox().prompt, "Add Apple Pie to the Soup?");
    EXPECT_EQ(ui.lastBox().title, "Add Category");
    EXPECT_EQ(soup->rowCount(), 1);

    ui.answer(Answer::Yes);
    w.tvRecipes_DragDrop("Apple Pie", soup);
    EXPECT_EQ(Value("SELECT [Style] FROM Recipie WHERE [Title] = 'Apple Pie'", "Style").toString(), "Pies,Soup");
    EXPECT_EQ(soup->rowCount(), 2);

    // The root is no category: nothing is asked.
    const int boxes = ui.count();
    w.tvRecipes_DragDrop("Apple Pie", panes.FindByKey(panes.recipes, "Root"));
    EXPECT_EQ(ui.count(), boxes);
}

TEST_F(DragTest, ADropOnTheListAsksAboutTheDefaultListUnlessToldNotTo) {
    frmMain w;
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
    EXPECT_EQ(Value("SELECT [TimesUsed] FROM Recipie WHERE [Title] = 'Leek Soup'", "TimesUsed").toInt(), 0);
}

TEST_F(DragTest, TheTreeScrollsWhileTheDragIsNearItsEdge) {
    // Enough recipes to scroll.
    for (int i = 0; i < 80; ++i) AddRecipe(QString("Recipe %1").arg(i, 2, 10, QChar('0')), "Soup");
    frmMain w;
    w.resize(1000, 700);
    w.show();
    CurrentCookbook = "General";
    Registry().ExpandRecipeList(true);
    w.LoadRecipies();
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
