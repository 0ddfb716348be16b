#include "core/ChangeNotices.h"
#include "core/Globals.h"
#include "core/MainPanes.h"
#include "meals/MealPane.h"
#include "meals/frmNewMeal.h"
#include "meals/frmNewMealName.h"

#include "support/Rows.h"
#include "support/TestEnv.h"

#include <QComboBox>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTreeWidget>

namespace {

// Today is Sunday, November 22 2026.
class PlannerTest : public LarderTest {
protected:
    void SetUp() override {
        LarderTest::SetUp();
        rows::Recipe("Pancakes", "Breakfast", "General",
                     {{"Course", "Main Course"}, {"Ingredient1", "      2%%cup%%flour%%"},
                      {"Ingredient2", "      1%%ea%%egg%%"}});
        rows::Recipe("Bread", "Baking", "General", {{"Ingredient1", "      3%%cup%%flour%%"}});
        rows::Recipe("Crepes", "Breakfast", "General", {{"Ingredient1", "      1%%lb%%flour%%"}});
    }
    // "item|qty|manufacturer|size" per line of the running list.
    static QStringList List(const frmNewMeal& f) {
        QStringList out;
        for (int i = 0; i < f.lvShoppingList->topLevelItemCount(); ++i) {
            const QTreeWidgetItem* line = f.lvShoppingList->topLevelItem(i);
            out << line->text(0) + "|" + line->text(1) + "|" + line->text(2) + "|" + line->text(3);
        }
        return out;
    }
    static QTreeWidgetItem* Course(frmNewMeal& f, const QString& meal, const QString& tag) {
        return f.FindCourse(f.FindMeal(meal), tag);
    }
    // Fills the name screen when it is shown.
    void NameTheMeal(const QString& name, const QString& category) {
        ui.answerModal([=](QDialog* d) {
            auto* screen = static_cast<frmNewMealName*>(d);
            screen->txtMealName->setText(name);
            screen->cboCategory->setEditText(category);
            screen->cmdSaveMeal_Click();
            return screen->result();
        });
    }
    const QString monday = "Monday, Nov 23 2026";
    const QString tuesday = "Tuesday, Nov 24 2026";
};

TEST_F(PlannerTest, AMealHasItsMealtimesAndCoursesAndTheRecipeTreeGroupsByCourse) {
    frmNewMeal f;
    QTreeWidgetItem* meal = f.CreateEmptyNode("11/23/2026", false, "11/23/26");
    ASSERT_TRUE(meal);
    EXPECT_EQ(meal->text(0), monday);
    ASSERT_EQ(meal->childCount(), 3);
    EXPECT_EQ(meal->child(1)->text(0), "Lunch");
    EXPECT_EQ(meal->child(2)->child(2)->text(0), "Dessert:");
    EXPECT_EQ(meal->child(2)->child(2)->data(0, frmNewMeal::TagRole).toString(), "Meal//Dinner//Desert");
    EXPECT_EQ(f.CreateEmptyNode(monday, false, ""), meal);  // one node per name

    // Recipes without a course wait under "Unassigned".
    EXPECT_EQ(f.tvRecipes->topLevelItem(1)->text(0), "Main Course");
    EXPECT_EQ(f.tvRecipes->topLevelItem(1)->child(0)->text(0), "Pancakes");
    EXPECT_EQ(f.tvRecipes->topLevelItem(3)->childCount(), 2);
    f.LoadRecipes(frmNewMeal::ByCourseAndCategory);
    EXPECT_EQ(f.tvRecipes->topLevelItem(3)->child(0)->text(0), "Baking");
    EXPECT_EQ(f.tvRecipes->topLevelItem(3)->child(0)->child(0)->text(0), "Bread");
}

TEST_F(PlannerTest, TheRunningListAddsInTheMakersColumnAndTakesOffOnReplace) {
    frmNewMeal f;
    f.AddMealDates("11/23/2026");
    f.tvMealList_DragDrop(Course(f, monday, "Meal//Dinner//Main Course"), "Pancakes");
    EXPECT_EQ(List(f), QStringList({"flour|2|Any|cup", "egg|1|Any|ea"}));
    EXPECT_TRUE(f.Changed());
    EXPECT_TRUE(MealBeingEdited());
    // Same item and size: the sum goes in column 2, Qty keeps the first.
    f.tvMealList_DragDrop(Course(f, monday, "Meal//Lunch//Appetizer"), "Bread");
    // Another size: a line of its own.
    f.tvMealList_DragDrop(Course(f, monday, "Meal//Breakfast//Appetizer"), "Crepes");
    EXPECT_EQ(List(f), QStringList({"flour|2|3|cup", "egg|1|Any|ea", "flour|1|Any|lb"}));

    // Replacing Bread takes it off: its sum reaches 0 and the line goes,
    // though the first recipe's flour was on it.
    ui.answer(Answer::Yes);
    f.tvMealList_DragDrop(Course(f, monday, "Meal//Lunch//Appetizer"), "Pancakes");
    EXPECT_EQ(ui.lastBox().title, "Replace");
    EXPECT_EQ(List(f), QStringList({"egg|1|1|ea", "flour|1|Any|lb", "flour|2|Any|cup"}));
    EXPECT_EQ(rows::Joined("SELECT [TimesUsed] FROM Recipie WHERE [Title] = 'Pancakes'", {"TimesUsed"}),
              QStringList({"2"}));

    // Removing a recipe takes its items off. The first flour line found is of
    // another size, so taking flour off adds a line rather than subtracting.
    f.tvMealList->setCurrentItem(Course(f, monday, "Meal//Dinner//Main Course"));
    f.mnuRemoveRecipeFromMeal_Click();
    EXPECT_EQ(Course(f, monday, "Meal//Dinner//Main Course")->text(0), "Main Course:");
    EXPECT_EQ(List(f), QStringList({"flour|1|Any|lb", "flour|2|Any|cup", "flour|2|Any|cup"}));

    // Only courses take recipes.
    ui.answer(Answer::OK);
    f.tvMealList_DragDrop(f.FindMeal(monday)->child(0), "Bread");
    EXPECT_EQ(LastBox(), "Notice: Recipes can only be added to Meals.");
    EXPECT_EQ(f.FindMeal(monday)->child(0)->text(0), "Breakfast");
}

TEST_F(PlannerTest, DatesAlreadyPlannedOrPastAreRefused) {
    rows::Meal(tuesday, {{"Dates", "11/24/2026"}});
    frmNewMeal f;
    f.AddMealDates("");  // no date chosen: nothing happens
    ui.answer(Answer::OK);
    ui.answer(Answer::OK);
    f.AddMealDates("11/21/2026::11/23/2026::11/24/2026");
    EXPECT_EQ(ui.prompts(), QStringList({"That date, 11/21/2026 , is prior to today. Please select another date.",
                                         "The date, 11/24/2026, is already scheduled, Please select another date to "
                                         "add."}));
    ASSERT_EQ(f.tvMealList->topLevelItemCount(), 1);
    EXPECT_EQ(f.tvMealList->topLevelItem(0)->text(0), monday);
}

TEST_F(PlannerTest, SavingAWeekWritesOneRowPerMealtimeAndReopensWithItsCourses) {
    {
        frmNewMeal f;
        ui.answer(Answer::OK);
        f.cmdSave_Click();
        EXPECT_EQ(ui.lastBox().prompt, "There have been no recipies added to the meal list.");
        f.AddMealDates("11/23/2026::11/24/2026");
        f.tvMealList_DragDrop(Course(f, monday, "Meal//Dinner//Main Course"), "Pancakes");
        f.tvMealList_DragDrop(Course(f, monday, "Meal//Dinner//Desert"), "Bread");
        f.tvMealList_DragDrop(Course(f, tuesday, "Meal//Breakfast//Appetizer"), "Crepes");
        QSignalSpy reloads(&ChangeNotices::Instance(), &ChangeNotices::LoadMealList);
        ui.answer(Answer::Yes);
        f.cmdSave_Click();
        EXPECT_EQ(LastBox(), "Save...: This will save the entire current list, Continue?");
        // The window reads the meals once, and the planned days turn bold.
        EXPECT_EQ(reloads.count(), 1);
        MealPane::LoadMealList();
        EXPECT_EQ(MainPanes::Instance().boldMealDates, QSet<QDate>({QDate(2026, 11, 23), QDate(2026, 11, 24)}));
        EXPECT_FALSE(f.Changed());
        EXPECT_FALSE(MealBeingEdited());
    }
    EXPECT_EQ(rows::Joined("SELECT * FROM Meal ORDER BY [Dates]", {"Name", "Meal", "Dates", "Appetizer",
                                                                   "MainCourse", "Desert"}),
              QStringList({"Monday, Nov 23 2026|Dinner|2026-11-23| |Pancakes|Bread",
                           "Tuesday, Nov 24 2026|Breakfast|2026-11-24|Crepes| | "}));

    frmNewMeal again;
    QTreeWidgetItem* meal = again.CreateEmptyNode(monday, true, "11/23/26");
    EXPECT_EQ(Course(again, monday, "Meal//Dinner//Desert")->text(0), "Bread");
    EXPECT_EQ(Course(again, monday, "Meal//Dinner//Appetizer")->text(0), "Appetizer:");
    // A changed course is written over the row, not added beside it.
    again.tvMealList->setCurrentItem(meal->child(2));
    ui.answer(Answer::Yes);
    again.mnuRemoveRecipeFromMeal_Click();
    EXPECT_EQ(LastBox(),
              "Confirm Course: You have chosen to remove a complete Course from this Meal. Are you certain?");
    again.tvMealList_DragDrop(Course(again, tuesday, "Meal//Lunch//Appetizer"), "Bread");  // not in the tree
    again.tvMealList_DragDrop(Course(again, monday, "Meal//Lunch//Appetizer"), "Bread");
    ui.answer(Answer::Yes);
    again.cmdSave_Click();
    EXPECT_EQ(rows::Joined("SELECT * FROM Meal WHERE [Name] = 'Monday, Nov 23 2026' ORDER BY [Meal]",
                           {"Meal", "Appetizer", "MainCourse", "Desert"}),
              QStringList({"Dinner| | | ", "Lunch|Bread| | "}));
}

TEST_F(PlannerTest, ACourseSavedAsAMealCanLeaveTheOriginal) {
    rows::Meal(monday, {{"Dates", "11/23/2026"}, {"MainCourse", "Pancakes"}, {"Desert", "Bread"}});
    frmNewMeal f;
    f.CreateEmptyNode(monday, true, "11/23/26");
    f.tvMealList->setCurrentItem(Course(f, monday, "Meal//Dinner//Appetizer"));
    ui.answer(Answer::OK);
    f.mnuSaveCourseAsMeal_Click();
    EXPECT_EQ(LastBox(), "Notice: That Course has not had any Recipes added to it, please add a Recipe(s) before "
                         "saving.");

    f.tvMealList->setCurrentItem(Course(f, monday, "Meal//Dinner//Main Course"));
    NameTheMeal("Pancake Night", "Quick");
    ui.answer(Answer::No);
    f.mnuSaveCourseAsMeal_Click();
    EXPECT_EQ(LastBox(), "Remove Course: Do you want to leave this Course as part of the original Meal?");
    EXPECT_EQ(rows::Joined("SELECT * FROM Meal ORDER BY [ID]", {"Name", "Meal", "MainCourse", "Desert"}),
              QStringList({"Monday, Nov 23 2026|Dinner| |Bread", "Pancake Night|Dinner|Pancakes|"}));
    EXPECT_EQ(rows::Count("SELECT * FROM MealCategory WHERE [Category] = 'Quick'"), 1);
}

TEST_F(PlannerTest, TheNameScreenRefusesSeparatorsTakenNamesAndNoCategory) {
    rows::Meal("Sunday Roast");
    frmNewMealName f;
    f.txtMealName->setText("A::B");
    ui.answer(Answer::OK);
    f.cmdSaveMeal_Click();
    EXPECT_EQ(LastBox(), "Notice: A Meal Name cannot contain '::'");
    f.txtMealName->setText("Roast");
    ui.answer(Answer::OK);
    f.cmdSaveMeal_Click();
    EXPECT_EQ(ui.lastBox().prompt, "Please enter a new Category for this Meal or select on from the List.");
    f.txtMealName->setText("Sunday Roast");
    f.cboCategory->setEditText("Family");
    ui.answer(Answer::OK);
    f.cmdSaveMeal_Click();
    EXPECT_EQ(ui.lastBox().prompt,
              "The name you have selected for this Meal already exists, please enter a new Name for this Meal.");
    EXPECT_TRUE(f.Result().isEmpty());
    f.txtMealName->setText("Roast");
    f.cmdSaveMeal_Click();
    EXPECT_EQ(f.Result(), "Roast%%Family");
}

TEST_F(PlannerTest, SaveAsWritesNoMealAndLeavingAChangedPlanAsks) {
    rows::Add("Guests", {{"GuestName", "Ann"}});
    frmNewMeal f;
    f.AddMealDates("11/23/2026");
    f.tvMealList_DragDrop(Course(f, monday, "Meal//Dinner//Main Course"), "Pancakes");
    f.tvMealList->setCurrentItem(f.FindMeal(monday));
    NameTheMeal("Brunch", "Family");
    ui.answer(Answer::Yes);
    f.mnuSaveMealAs_Click();
    EXPECT_EQ(ui.lastBox().title, "No Guests");
    EXPECT_EQ(ui.lastBox().buttons, Box::YesNo + Box::Question + Box::DefaultButton2 + Box::HelpButton);
    EXPECT_EQ(rows::Count("SELECT * FROM Meal"), 0);

    ui.answer(Answer::No);
    f.CloseChecked();
    EXPECT_EQ(LastBox(), "Exit?: The current Meal has changed and hasn't been saved, Continue?");
    EXPECT_TRUE(MealBeingEdited());
    ui.answer(Answer::Yes);
    f.CloseChecked();
    EXPECT_FALSE(MealBeingEdited());
}

}  // namespace
