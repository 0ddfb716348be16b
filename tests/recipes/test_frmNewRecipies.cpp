#include "core/Globals.h"
#include "recipes/PackedIngredient.h"
#include "recipes/frmNewRecipies.h"

#include "support/RecipeTree.h"
#include "support/Rows.h"
#include "support/TestEnv.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStackedWidget>
#include <QTest>
#include <QTreeWidget>

namespace {

class NewRecipiesTest : public LarderTest {
protected:
    void SetUp() override {
        LarderTest::SetUp();
        tree::Start({"Soups", "Quick"});
        CurrentCookbook = "Family";
    }
    void TearDown() override {
        CurrentCookbook.clear();
        LarderTest::TearDown();
    }
    // One ingredient row typed as a person types it: Enter after each field.
    static void Type(frmNewRecipies& f, const QString& qty, const QString& unit, const QString& item,
                     const QString& prep = QString()) {
        QTest::keyClicks(f.cboQuantity->lineEdit(), qty);
        QTest::keyClick(f.cboQuantity->lineEdit(), Qt::Key_Return);
        QTest::keyClicks(f.cboUnit->lineEdit(), unit);
        QTest::keyClick(f.cboUnit->lineEdit(), Qt::Key_Return);
        f.cboItem->setEditText(item);
        QTest::keyClick(f.cboItem->lineEdit(), Qt::Key_Return);
        QTest::keyClicks(f.txtPrepInstructions, prep);
        QTest::keyClick(f.txtPrepInstructions, Qt::Key_Return);
    }
    static QString Col(const QString& title, const QString& column) {
        return rows::Field("Recipie", "Title", title, column).toString();
    }
    // The save of a new recipe with its name confirmed.
    void SaveNew(frmNewRecipies& f) {
        ui.answer(Answer::Yes);
        f.cmdAdd->click();
    }
};

TEST_F(NewRecipiesTest, AFifteenIngredientRecipeTypedWithEnterIsSavedWhole) {
    frmNewRecipies f;
    f.show();
    f.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&f));
    f.txtName->setText("Harvest Stew");
    f.optMainCourse->setChecked(true);
    f.txtStyles->setText("Soups, Quick");
    f.cboServes->setEditText("6");
    f.cboPrepTime->setEditText("1 Hour");
    f.cmdNext->click();
    ASSERT_EQ(f.frRecipeStep->currentIndex(), 1);

    // Units and items complete from their lists as they are typed.
    f.cboUnit->setFocus();
    QTest::keyClicks(f.cboUnit->lineEdit(), "tbs");
    EXPECT_EQ(f.cboUnit->currentText(), "tbsp");
    f.cboUnit->clearEditText();
    f.cboItem->setFocus();
    QTest::keyClicks(f.cboItem->lineEdit(), "lotus root, r");
    QTest::keyClick(f.cboItem->lineEdit(), Qt::Key_Return);
    EXPECT_EQ(f.cboItem->currentText(), "Lotus root, raw");
    EXPECT_EQ(QApplication::focusWidget(), f.txtPrepInstructions) << "Enter moves on";
    f.cboItem->setCurrentIndex(-1);
    f.cboItem->clearEditText();

    for (int i = 1; i <= 15; ++i) Type(f, QString::number(i), "cup", QString("Item %1").arg(i), i == 3 ? "diced" : "");
    ASSERT_EQ(f.lvIngredients->topLevelItemCount(), 15);
    EXPECT_EQ(f.lvIngredients->topLevelItem(2)->text(frmNewRecipies::colQty), "      3");
    EXPECT_TRUE(f.cboItem->currentText().isEmpty());
    EXPECT_TRUE(f.cboQuantity->hasFocus()) << "the next row starts at the quantity";

    // Walking back and forth keeps every step as it was typed.
    f.cmdNext->click();
    f.txtDirections->setPlainText("Simmer~Serve");
    f.cmdPrevious->click();
    f.cmdPrevious->click();
    f.cmdNext->click();
    f.cmdNext->click();
    EXPECT_EQ(f.txtName->text(), "Harvest Stew");
    EXPECT_EQ(f.lvIngredients->topLevelItemCount(), 15);
    EXPECT_EQ(f.txtDirections->toPlainText(), "Simmer~Serve");

    SaveNew(f);
    EXPECT_EQ(ui.prompts(), QStringList{"Are you certain that you have entered Harvest Stew correctly?"});
    EXPECT_EQ(Col("Harvest Stew", "Ingredient3"), "      3%%cup%%Item 3%%diced");
    EXPECT_EQ(Col("Harvest Stew", "Ingredient15"), "     15%%cup%%Item 15%%");
    EXPECT_EQ(Col("Harvest Stew", "Course"), "Main Course");
    EXPECT_EQ(Col("Harvest Stew", "Servings"), "6 Servings");
    EXPECT_EQ(Col("Harvest Stew", "CookbookName"), "Family");
    EXPECT_EQ(Col("Harvest Stew", "TimesUsed"), "0");
    EXPECT_TRUE(tree::Lines().contains("Soups/Harvest Stew"));
    EXPECT_TRUE(tree::Lines().contains("Quick/Harvest Stew"));
    // Ready for the next recipe.
    EXPECT_TRUE(f.txtName->text().isEmpty());
    EXPECT_EQ(f.lvIngredients->topLevelItemCount(), 0);
    EXPECT_EQ(f.frRecipeStep->currentIndex(), 0);
}

TEST_F(NewRecipiesTest, BadIngredientLinesAreRefusedOrStoredAsTyped) {
    CurrentCookbook.clear();
    frmNewRecipies f;
    f.txtName->setText("Odd Lines");
    // Item and unit without a quantity are refused; a quantity of blanks is the default.
    f.cboItem->setEditText("salt");
    f.cboUnit->setEditText("tsp");
    ui.answer(Answer::OK);
    f.cmdAddIngred->click();
    EXPECT_EQ(LastBox(), "Larderkeep: You must enter Items, Unit and Quantity before adding to the list.");
    EXPECT_EQ(f.lvIngredients->topLevelItemCount(), 0);
    f.cboQuantity->setEditText("   ");
    f.cmdAddIngred->click();
    EXPECT_EQ(f.lvIngredients->topLevelItem(0)->text(frmNewRecipies::colQty), "      1");

    const QString longName = QString(100, 'n');
    Type(f, "abc", "tsp", longName, "minced");
    Type(f, "1/0", "tsp", "pepper");
    Type(f, "1 1/2/3", "tsp", "sugar");
    // A unit nobody knows is asked about when the recipe is saved.
    Type(f, "2", "handfuls-of-the-big-kind", "basil");
    ui.answer(Answer::Yes);
    ui.answerInput("Handfuls");
    f.cmdAdd->click();
    EXPECT_EQ(Col("Odd Lines", "Ingredient2"), PackedIngredient::Pack("    abc", "tsp", longName, "minced"));
    EXPECT_EQ(Col("Odd Lines", "Ingredient2").size(), 100);
    EXPECT_EQ(Col("Odd Lines", "Ingredient3"), "    1/0%%tsp%%pepper%%");
    EXPECT_EQ(Col("Odd Lines", "Ingredient4"), "1 1/2/3%%tsp%%sugar%%");
    EXPECT_EQ(rows::Count("SELECT * FROM Abbreviation WHERE Abbreviation = 'handfuls-of-the-big-kind'"), 1);
    EXPECT_EQ(Col("Odd Lines", "Instructions"), "None Given.");
    EXPECT_EQ(Col("Odd Lines", "Style"), "General");
    EXPECT_EQ(Col("Odd Lines", "CookbookName"), "General") << "with no cookbook open";
}

TEST_F(NewRecipiesTest, ASecondRecipeUnderOneTitleAsksBeforeReplacingAndKeepsTheMarks) {
    rows::Recipe("Chili", "Quick", "Texas", {{"Favorite", true}, {"TimesUsed", 4}, {"Ingredient1", "      1%%lb%%beef%%"}});
    frmNewRecipies f;
    f.txtName->setText("Chili");
    f.cboQuantity->setEditText("2");
    f.cboUnit->setEditText("can");
    f.cboItem->setEditText("beans");
    f.cmdAddIngred->click();

    ui.answer(Answer::Yes);
    ui.answer(Answer::No);
    f.cmdAdd->click();
    EXPECT_EQ(LastBox(), "Replace Recipe: A recipe named Chili is already on file. Do you want to replace it?");
    EXPECT_EQ(rows::Count("SELECT * FROM Recipie WHERE Title = 'Chili'"), 1);
    EXPECT_EQ(Col("Chili", "Ingredient1"), "      1%%lb%%beef%%");
    EXPECT_EQ(f.lvIngredients->topLevelItemCount(), 1) << "nothing typed is lost";

    ui.answer(Answer::Yes);
    ui.answer(Answer::Yes);
    f.cmdAdd->click();
    EXPECT_EQ(rows::Count("SELECT * FROM Recipie WHERE Title = 'Chili'"), 1);
    EXPECT_EQ(Col("Chili", "Ingredient1"), "      2%%can%%beans%%");
    EXPECT_EQ(Col("Chili", "CookbookName"), "Texas");
    EXPECT_EQ(Col("Chili", "TimesUsed"), "4");
    EXPECT_TRUE(rows::Field("Recipie", "Title", "Chili", "Favorite").toBool());
}

TEST_F(NewRecipiesTest, QuotesInATitleAreStoredDoubledAndASecondSaveStillFindsTheRow) {
    for (int round = 0; round < 2; ++round) {
        frmNewRecipies f;
        f.txtName->setText("Mom's \"Best\" Pie");
        ui.answer(Answer::Yes);
        if (round == 1) ui.answer(Answer::Yes);  // the replace question
        f.cmdAdd->click();
    }
    EXPECT_EQ(rows::Count("SELECT * FROM Recipie WHERE Title = 'Mom''''s \"Best\" Pie'"), 1);
    EXPECT_EQ(rows::Count("SELECT * FROM Recipie"), 1);
    // Editing it finds the row under its stored title and keeps that title.
    frmNewRecipies f;
    f.SetRecipe("EDITMom''s \"Best\" Pie");
    f.cmdAdd->click();
    EXPECT_EQ(rows::Column("SELECT * FROM Recipie", "Title"), QStringList{"Mom''s \"Best\" Pie"});
}

TEST_F(NewRecipiesTest, AnEditKeepsAllTwentyLinesAndAFailedSaveKeepsTheRecipe) {
    QVariantMap more{{"Course", "Main Course"}, {"Servings", "4 Servings"}, {"Instructions", "Stir."}};
    for (int i = 1; i <= 20; ++i)
        more.insert(PackedIngredient::ColumnName(i), PackedIngredient::Pack(PackedIngredient::PadQuantity(
                                                                                QString::number(i)),
                                                                            i == 5 ? "" : "oz", QString("Part %1").arg(i),
                                                                            ""));
    rows::Recipe("Big Salad", "Quick", "General", more);
    rows::Set("SELECT * FROM Recipie WHERE Title = 'Big Salad'", "ImageFile", "/pics/salad.jpg");

    {
        frmNewRecipies f;
        f.SetRecipe("EDITBig Salad");
        ASSERT_EQ(f.lvIngredients->topLevelItemCount(), 20);
        EXPECT_EQ(f.lvIngredients->topLevelItem(4)->text(frmNewRecipies::colUnit), "ea");
        EXPECT_FALSE(f.optMainCourse->isChecked()) << "the loader looks for the course without its blank";
        EXPECT_EQ(f.cboServes->currentText(), "4");
        f.lvIngredients->setCurrentItem(f.lvIngredients->topLevelItem(0));
        f.mnuEditIngredient->trigger();
        EXPECT_EQ(f.cboQuantity->currentText(), "1");
        f.cboQuantity->setEditText("3");
        f.cmdAddIngred->click();
        EXPECT_EQ(f.lvIngredients->topLevelItemCount(), 20);
        f.cmdAdd->click();  // an edit asks nothing
    }
    EXPECT_EQ(ui.count(), 0) << LastBox().toStdString();
    EXPECT_EQ(rows::Count("SELECT * FROM Recipie"), 1);
    EXPECT_EQ(Col("Big Salad", "Ingredient1"), "      3%%oz%%Part 1%%");
    EXPECT_EQ(Col("Big Salad", "ingredient20"), "     20%%oz%%Part 20%%");
    EXPECT_EQ(Col("Big Salad", "ImageFile"), "") << "an edit writes a new row without the picture";

    frmNewRecipies f;
    f.SetRecipe("EDITBig Salad");
    f.cboQuantity->setEditText("1");
    f.cboUnit->setEditText("oz");
    f.cboItem->setEditText("Part 21");
    f.cmdAddIngred->click();
    ui.answer(Answer::OK);
    f.cmdAdd->click();
    EXPECT_TRUE(LastBox().startsWith("Error: Error: ")) << LastBox().toStdString();
    EXPECT_EQ(rows::Count("SELECT * FROM Recipie"), 1);
    EXPECT_EQ(Col("Big Salad", "Ingredient1"), "      3%%oz%%Part 1%%") << "the old recipe stands";
}

TEST_F(NewRecipiesTest, AMissingRecipeAndTheStyleButtons) {
    frmNewRecipies f;
    ui.answer(Answer::OK);
    f.SetRecipe("EDITNowhere");
    EXPECT_EQ(LastBox(), "Recipe Not found: That Recipe was not found.");
    EXPECT_FALSE(f.RecipeFound());

    frmNewRecipies g;
    EXPECT_FALSE(g.cmdAddStyle->isEnabled());
    g.cboStyle->setEditText("Brunch");
    EXPECT_TRUE(g.cmdAppendStyle->isEnabled());
    g.cmdAddStyle->click();
    EXPECT_EQ(rows::Count("SELECT * FROM RecipieCategory WHERE Name = 'Brunch'"), 1);
    ui.answer(Answer::OK);
    g.cmdAddStyle->click();
    EXPECT_EQ(LastBox(), "Duplicate: Brunch already exists.");
    g.txtStyles->setText("Soups");
    g.cmdAppendStyle->click();
    EXPECT_EQ(g.txtStyles->text(), "Soups, Brunch");
    // A category typed that nobody knows is offered for adding.
    g.txtStyles->setText("Brunch, Picnic");
    ui.answer(Answer::Yes);
    g.txtStyles_LostFocus();
    EXPECT_EQ(LastBox(), "Add Category: Picnic does not exist, do you want to add it?");
    EXPECT_EQ(rows::Count("SELECT * FROM RecipieCategory WHERE Name = 'Picnic'"), 1);
}

}  // namespace
