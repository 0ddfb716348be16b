#include "core/Globals.h"
#include "core/MainPanes.h"
#include "core/clsRegistry.h"
#include "recipes/RecipeCommands.h"
#include "recipes/frmAddRecipeCategory.h"
#include "recipes/frmAllCookBooks.h"
#include "recipes/frmChangeRecipeCookbook.h"
#include "recipes/frmRecCourses.h"
#include "recipes/frmSpecialtySelect.h"
#include "recipes/frmCookbookRecipies.h"
#include "recipes/frmNewCookbook.h"
#include "recipes/frmRecStyles.h"
#include "publish/clsCommunications.h"
#include "recipes/frmRecipieQuickView.h"

#include "support/RecipeTree.h"
#include "support/Rows.h"
#include "support/TestEnv.h"

#include <QAction>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QListWidget>
#include <QStackedWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>

namespace {

class RecipeScreensTest : public LarderTest {
protected:
    void SetUp() override {
        LarderTest::SetUp();
        tree::Start({"Fish", "Quick", "Soups"});
        rows::Add("Cookbook", {{"Name", "Family"}, {"Specialty", "None"}});
        rows::Recipe("Chowder", "Fish", "Family", {{"Ingredient1", "      2%%cup%%clams%%"}, {"Instructions", "Stir~Serve"}});
        rows::Recipe("Trout", "Fish, Quick", "Family");
        rows::Recipe("Toast", "Quick");
    }
    static void Select(QTreeWidget* list, const QString& text) {
        const auto found = list->findItems(text, Qt::MatchExactly);
        ASSERT_EQ(found.size(), 1) << text.toStdString();
        list->setCurrentItem(found[0]);
    }
    static QStringList Texts(QTreeWidget* list, int column = 0) {
        QStringList out;
        for (int i = 0; i < list->topLevelItemCount(); ++i) out << list->topLevelItem(i)->text(column);
        return out;
    }
    static QStringList Texts(QListWidget* list) {
        QStringList out;
        for (int i = 0; i < list->count(); ++i) out << list->item(i)->text();
        return out;
    }
};

TEST_F(RecipeScreensTest, CookbooksAreAddedRenamedAndDeletedWithGeneralKept) {
    frmNewCookbook f;
    Select(f.lvCookbooks, "Family");
    EXPECT_EQ(f.lvCookbooks->currentItem()->text(1), "Not a Specialty");
    EXPECT_EQ(f.lvCookbooks->currentItem()->text(3), "2");

    f.txtCookbook->setText("Family");
    ui.answer(Answer::OK);
    f.cmdOK->click();
    EXPECT_EQ(LastBox(), "Notice: Family already exists. Please select a different name for the new Cookbook.");
    f.txtCookbook->setText("Holidays");
    f.cboSpecialty->setEditText("Baking");
    f.cmdOK->click();
    EXPECT_EQ(rows::Field("Cookbook", "Name", "Holidays", "Specialty").toString(), "Baking");

    Select(f.lvCookbooks, "General");
    ui.answer(Answer::OK);
    f.mnuDeleteCookbook->trigger();
    EXPECT_EQ(LastBox(), "Cannot Delete: The 'General' cookbook cannot be deleted");
    ui.answer(Answer::OK);
    f.mnuRenameCookbook->trigger();
    EXPECT_EQ(LastBox(), "Can't Rename: The 'General' cookbook cannot be renamed.");

    Select(f.lvCookbooks, "Family");
    ui.answerInput("Holidays");
    ui.answer(Answer::OK);
    f.mnuRenameCookbook->trigger();
    EXPECT_EQ(LastBox(), "Rename Cookbook: That Cookbook name already exists!");

    CurrentCookbook = "Family";
    ui.answer(Answer::Yes);
    f.mnuDeleteCookbook->trigger();
    EXPECT_EQ(ui.lastBox().prompt, "Are you sure you wish to delete Family?\r\nNote: The recipes in this Cookbook will "
                                   "be moved to the 'General' Cookbook.");
    EXPECT_EQ(rows::Count("SELECT * FROM Cookbook WHERE Name = 'Family'"), 0);
    EXPECT_EQ(rows::Count("SELECT * FROM Recipie WHERE CookbookName = 'General'"), 3);
    EXPECT_TRUE(CurrentCookbook.isEmpty());

    frmCookbookRecipies view;
    EXPECT_EQ(view.LoadRecipes("General"), 3);
    EXPECT_EQ(view.windowTitle(), "3 Recipies for General");
    EXPECT_EQ(Texts(view.lvRecipies, 1), (QStringList{"Fish", "Quick", "Fish, Quick"}));
}

TEST_F(RecipeScreensTest, StylesRefuseRepeatsAndRemovingOneRewritesOnlyWholeLists) {
    frmRecStyles f;
    QTest::keyClicks(f.txtNewCategory, "Gr;il:l");
    EXPECT_EQ(f.txtNewCategory->text(), "Grill");
    f.cmdAddCat->click();
    EXPECT_EQ(rows::Count("SELECT * FROM RecipieCategory WHERE Name = 'Grill'"), 1);
    f.txtNewCategory->setText("grill");
    ui.answer(Answer::OK);
    f.cmdAddCat->click();
    EXPECT_EQ(LastBox(), "Larderkeep: That Style already appears on the list.");

    f.lvStyles->setCurrentItem(nullptr);
    ui.answer(Answer::OK);
    f.mnuShowRecipes->trigger();
    EXPECT_EQ(LastBox(), "Missing Selection: You must first select a style to display");
    Select(f.lvStyles, "Grill");
    ui.answer(Answer::OK);
    f.mnuShowRecipes->trigger();
    EXPECT_EQ(LastBox(), "Notice: There are no Recipes that use the Style 'Grill'.");

    Select(f.lvStyles, "Fish");
    f.mnuShowRecipes->trigger();
    EXPECT_EQ(Texts(f.lvRecipes), (QStringList{"Chowder", "Trout"}));
    ui.answer(Answer::Yes);
    f.mnuDeleteStyle->trigger();
    EXPECT_EQ(LastBox(), "Remove Style: This will remove Fish from any recipe that has it, are you certain?");
    EXPECT_EQ(rows::Field("Recipie", "Title", "Chowder", "Style").toString(), "");
    EXPECT_EQ(rows::Field("Recipie", "Title", "Trout", "Style").toString(), "Fish, Quick");
}

TEST_F(RecipeScreensTest, ARecipesCategoriesAreAddedNewOnesAfterAskingAndRemovedOnDoubleClick) {
    frmAddRecipeCategory f("Trout");
    EXPECT_EQ(f.lvCurrentCategories->headerItem()->text(0), " Current Categories for Trout");
    EXPECT_EQ(Texts(f.lvCurrentCategories), (QStringList{"Fish", "Quick"}));
    EXPECT_EQ(f.cboCategoryList->currentText(), "<Enter or Select>");

    f.cboCategoryList->setEditText("Campfire");
    ui.answer(Answer::No);
    f.cmdAdd->click();
    EXPECT_EQ(LastBox(), "Add Category: The Category, Campfire, does not exist. Do you want to add it?");
    EXPECT_EQ(f.Added(), QStringList{});
    ui.answer(Answer::Yes);
    f.cmdAdd->click();
    f.cboCategoryList->setEditText("soups");
    f.cmdAdd->click();
    EXPECT_EQ(f.Added(), (QStringList{"Campfire", "Soups"}));

    Select(f.lvCurrentCategories, "Quick");
    ui.answer(Answer::Yes);
    f.lvCurrentCategories_DblClick();
    EXPECT_EQ(LastBox(), "Remove Category?: Do you wish to remove the Category Quick");
    f.cmdOK->click();
    EXPECT_EQ(rows::Field("Recipie", "Title", "Trout", "Style").toString(), "Fish,Campfire,Soups");
}

TEST_F(RecipeScreensTest, TheRecipeWindowShowsSetsTheCourseSavesTextAndAddsToTheList) {
    rows::Set("SELECT * FROM Recipie WHERE Title = 'Chowder'", "ImageFile", "");
    RecipeCommands::DisplayRecipe("Chowder");
    ASSERT_EQ(ui.modeless().size(), 1);
    auto* view = qobject_cast<frmRecipieQuickView*>(ui.modeless()[0].data());
    ASSERT_TRUE(view);
    EXPECT_TRUE(view->txtRecipie->toPlainText().contains("      2 cu clams"));
    EXPECT_FALSE(view->Button("Picture")->isEnabled());

    view->tbRecipe_ButtonMenuClick("CourseMain");
    EXPECT_EQ(rows::Field("Recipie", "Title", "Chowder", "Course").toString(), "Main Course");
    EXPECT_TRUE(view->txtRecipie->toPlainText().contains("Course: Main Course"));

    QString opened;
    frmRecipieQuickView::OpenFile = [&](const QString& path) { opened = path; };
    ui.answerFile(HomeFile(""));
    view->tbRecipe_ButtonMenuClick("Text");
    EXPECT_EQ(opened, QDir(HomeFile("")).filePath("Chowder.txt"));
    QFile text(opened);
    ASSERT_TRUE(text.open(QIODevice::ReadOnly));
    EXPECT_EQ(QString::fromUtf8(text.readAll()), view->txtRecipie->toPlainText());

    // Mail goes to the mail program as a link: the text as the body, or as an attached file.
    QStringList links;
    clsCommunications::SetLinkOpener([&](const QString& link) {
        links << link;
        return true;
    });
    view->tbRecipe_ButtonMenuClick("RecipeBody");
    view->tbRecipe_ButtonMenuClick("RecipeAttach");
    clsCommunications::SetLinkOpener(nullptr);
    ASSERT_EQ(links.size(), 2);
    EXPECT_TRUE(links[0].startsWith("mailto:?Subject=Chowder&Body=")) << links[0].toStdString();
    EXPECT_TRUE(links[0].contains("2 cu clams"));
    EXPECT_TRUE(links[1].startsWith("mailto:?Subject=Chowder&Attach=\"")) << links[1].toStdString();
    EXPECT_TRUE(links[1].endsWith("Chowder.txt\""));

    Registry().CurrentShoppingList("Weekly");
    ui.strict(false);  // the list's own notice
    view->tbRecipe_ButtonClick("AddToList");
    EXPECT_EQ(rows::Count("SELECT * FROM ShopList WHERE [Name] = 'Weekly'"), 1);
    delete view;
}

TEST_F(RecipeScreensTest, AllCookbooksAddsWithASpecialtyAndOpensTheChosenOne) {
    rows::Add("Cookbook", {{"Name", "Breads"}, {"Specialty", "Baking"}});
    rows::Set("SELECT * FROM Recipie WHERE Title = 'Trout'", "Favorite", true);
    frmAllCookBooks f;
    EXPECT_EQ(Texts(f.lvAllCookbooks), (QStringList{"Breads", "Family", "General"}));
    Select(f.lvAllCookbooks, "Family");
    EXPECT_EQ(f.lvAllCookbooks->currentItem()->text(1), "2");
    EXPECT_EQ(f.lvAllCookbooks->currentItem()->text(2), "1");
    EXPECT_EQ(Texts(f.lvSpecialtyCookbooks), QStringList{"Breads"});

    f.txtName->setText("Pies");
    ui.answer(Answer::OK);
    f.cmdAddCookbook->click();
    EXPECT_EQ(LastBox(), "Larderkeep: You must either enter a Specialty or 'None' for this Cookbook.");
    ui.answerModal([](QDialog* d) {
        auto* select = qobject_cast<frmSpecialtySelect*>(d);
        EXPECT_EQ(select->lstSpecialties->count(), 2);  // Baking, None
        select->lstSpecialties->setCurrentRow(0);
        return int(QDialog::Accepted);
    });
    f.cmdSpecialty->click();
    EXPECT_EQ(f.txtSpecialty->text(), "Baking");
    f.txtName->setText("Breads");
    ui.answer(Answer::OK);
    f.cmdAddCookbook->click();
    EXPECT_EQ(LastBox(), "Larderkeep: That Cookbook has already been entered, please re-enter.");
    f.txtName->setText("Pies");
    f.cmdAddCookbook->click();
    EXPECT_EQ(Texts(f.lvSpecialtyCookbooks), (QStringList{"Breads", "Pies"}));

    f.tvCookbooks->setCurrentItem(f.tvCookbooks->topLevelItem(1));
    Select(f.lvSpecialtyCookbooks, "Pies");
    f.cmdOpenCookbook->click();
    EXPECT_EQ(CurrentCookbook, "Pies");
    CurrentCookbook.clear();
}

TEST_F(RecipeScreensTest, CourseMappingMovesCategoriesAndSavesTheMap) {
    rows::Add("Course", {{"Category", "Soups"}, {"Course", "Appetizer"}});
    frmRecCourses f;
    EXPECT_EQ(Texts(f.lstAppetizers), QStringList{"Soups"});
    f.lstCategories->clearSelection();
    ui.answer(Answer::OK);
    f.cmdAddMainCourse->click();
    EXPECT_EQ(LastBox(), "Larderkeep: You must first select an Item before moving it.");
    f.lstCategories->findItems("Fish", Qt::MatchExactly)[0]->setSelected(true);
    f.cmdAddMainCourse->click();
    EXPECT_TRUE(f.Changed());
    ui.answer(Answer::Yes);
    f.close();
    EXPECT_EQ(LastBox(), "Save Changes: Do you wish to save the changes before exiting?");
    EXPECT_EQ(rows::Joined("SELECT * FROM Course ORDER BY Category", {"Category", "Course"}),
              (QStringList{"Fish|Main Course", "Soups|Appetizer"}));
    EXPECT_EQ(rows::Field("Recipie", "Title", "Trout", "Course").toString(), "Main Course");

    frmRecCourses again;
    ui.answer(Answer::Yes);
    again.cmdResetAll->click();
    EXPECT_EQ(LastBox(), "Confirm: This will reset all of the Category/Course mappings, Are you sure?");
    again.cmdSave->click();
    EXPECT_EQ(rows::Count("SELECT * FROM Course"), 0);
}

TEST_F(RecipeScreensTest, RecipesDroppedOnACookbookMoveAndANewCookbookIsNamedInPlace) {
    frmChangeRecipeCookbook f;
    QTreeWidgetItem* root = f.tvCookbooks->topLevelItem(0);
    ASSERT_EQ(root->childCount(), 2);
    ui.answer(Answer::OK);
    EXPECT_EQ(f.DropRecipes(root, {"Toast"}), 0);
    EXPECT_EQ(LastBox(), "Notice: 'Cookbooks' is not a Cookbook.");
    QTreeWidgetItem* general = root->child(1);
    ASSERT_EQ(general->text(0), "General");
    EXPECT_EQ(f.DropRecipes(general, {"Chowder", "Trout"}), 2);
    EXPECT_EQ(rows::Count("SELECT * FROM Recipie WHERE CookbookName = 'General'"), 3);

    f.mnuAddNewCookbook->trigger();
    QTreeWidgetItem* added = root->child(root->childCount() - 1);
    EXPECT_EQ(added->text(0), "<Enter Cookbook>");
    ui.answer(Answer::OK);
    added->setText(0, "General");
    EXPECT_EQ(LastBox(), "Cookbook Exists: That Cookbook already exists. Please re-enter.");
    added->setText(0, "Weeknights");
    EXPECT_EQ(rows::Count("SELECT * FROM Cookbook WHERE Name = 'Weeknights'"), 1);
    EXPECT_EQ(f.DropRecipes(added, {"Toast"}), 1);
    EXPECT_EQ(rows::Field("Recipie", "Title", "Toast", "CookbookName").toString(), "Weeknights");
    EXPECT_EQ(f.lvRecipes->findItems("Toast", Qt::MatchExactly)[0]->text(1), "Weeknights");
}

}  // namespace
