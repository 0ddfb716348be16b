// The list editor as it stands: importing a meal's recipes as lines, saving
// the lines as a list, and the screens around it that name, pick and print
// a list.
#include "core/CommandRegistry.h"
#include "core/clsRegistry.h"
#include "lists/ListCommands.h"
#include "lists/frmShoppingList.h"
#include "lists/frmShoppingListGenerate.h"
#include "lists/frmShoppingListName.h"
#include "lists/frmShoppingListSelect.h"
#include "support/Rows.h"
#include "support/TestEnv.h"
#include "support/Views.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QLineEdit>
#include <QPrinterInfo>
#include <QPushButton>
#include <QRadioButton>
#include <QTreeWidget>

namespace {

class ListEditorTest : public LarderTest {
protected:
    void SetUp() override {
        LarderTest::SetUp();
        Registry().AllowExplode(false);
    }

    // A recipe whose ingredients are "quantity%%size%%name" in column order.
    static void RecipeWith(const QString& title, const QStringList& ingredients, QVariantMap more = {}) {
        for (int i = 0; i < ingredients.size(); ++i) more.insert("Ingredient" + QString::number(i + 1), ingredients[i]);
        rows::Recipe(title, "General", "General", more);
    }

    static void ListRow(const QString& list, const QString& item, bool current, const QString& recurring = " ") {
        rows::Add("ShopList", {{"Name", list},
                               {"Store", "Any"},
                               {"Dates", "None"},
                               {"ItemName", item},
                               {"ItemQuantity", "1"},
                               {"ItemManufacturer", "Any"},
                               {"ItemSize", "each"},
                               {"ItemStyle", "Produce"},
                               {"Recurring", recurring},
                               {"IsCurrent", current}});
    }

    static QStringList Saved(const QString& list, const QStringList& fields = {"ItemName", "ItemQuantity"}) {
        return rows::Joined("SELECT * FROM ShopList WHERE [Name] = " + rows::Literal(list) + " ORDER BY [ID]", fields);
    }

    // The name screen, answered with `name` typed in and OK clicked.
    void AnswerName(const QString& name, bool dated = false) {
        ui.answerModal([name, dated](QDialog* d) {
            auto* form = qobject_cast<frmShoppingListName*>(d);
            form->txtName->setText(name);
            form->chkDate->setChecked(dated);
            form->cmdOK->click();
            return d->result();
        });
    }

    static QString Line(const QString& name, const QString& qty, const QString& size, const QString& title) {
        return name + "|" + qty + "|Any|" + size + "|For " + title + "|No|||";
    }
};

TEST_F(ListEditorTest, ImportTakesTheCoursesInTheirOrderAndNamesAMealThatIsNotThere) {
    RecipeWith("Dip", {"1%%cup%%yogurt"});
    RecipeWith("Roast", {"2%%lb%%beef", "1%%each%%onion"});
    RecipeWith("Pie", {"3%%each%%apple"});
    RecipeWith("Beans", {"1%%can%%beans"});
    RecipeWith("Rice", {"1%%cup%%rice"});
    RecipeWith("Salad", {"1%%head%%lettuce"});
    rows::Meal("Sunday", {{"Appetizer", "Dip"},
                          {"MainCourse", "Roast"},
                          {"Desert", "Pie"},
                          {"SideDishOne", "Beans"},
                          {"SideDishTwo", "Rice"},
                          {"SideDishThree", "Salad"}});
    // Only the meal's first row is imported; a cleared course holds " ".
    rows::Meal("Sunday", {{"Meal", "Lunch"}, {"MainCourse", "Pie"}, {"Appetizer", " "}});

    frmShoppingList editor;
    ASSERT_EQ(editor.cboMeal->findText("Sunday"), 0);
    EXPECT_EQ(editor.cboMeal->count(), 1);  // one entry per meal, not per row
    editor.cboMeal->setCurrentText("Sunday");
    editor.cmdImport_Click();
    EXPECT_EQ(views::Lines(editor.lvShoppingList),
              QStringList({Line("yogurt", "1", "cup", "Dip"), Line("beef", "2", "lb", "Roast"),
                           Line("onion", "1", "each", "Roast"), Line("apple", "3", "each", "Pie"),
                           Line("beans", "1", "can", "Beans"), Line("rice", "1", "cup", "Rice"),
                           Line("lettuce", "1", "head", "Salad")}));
    EXPECT_TRUE(editor.Changed());
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    // Importing again adds the lines again: the editor does not join them.
    editor.cmdImport_Click();
    EXPECT_EQ(editor.lvShoppingList->topLevelItemCount(), 14);

    editor.cboMeal->addItem("Nobody's \"Feast\"");
    editor.cboMeal->setCurrentText("Nobody's \"Feast\"");
    ui.answer(Answer::OK);
    editor.cmdImport_Click();
    EXPECT_EQ(ui.lastBox().prompt, "Nobody's \"Feast\" is not a Meal in the database.");
    EXPECT_EQ(editor.lvShoppingList->topLevelItemCount(), 14);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(ListEditorTest, ARecipeComesInAsItStandsEvenWithAnApostropheInItsTitle) {
    QStringList eighteen;
    for (int i = 1; i <= 18; ++i) eighteen << QString::number(i) + "%%cup%%thing" + QString::number(i);
    eighteen[0] = "1%%pinch%%salt for";
    eighteen[4] = "";
    RecipeWith("Mom's Stew", eighteen, {{"ingredient19", "9%%cup%%never"}});

    frmShoppingList editor;
    editor.AddRecipe("   ");
    EXPECT_FALSE(editor.Changed());
    editor.AddRecipe("Mom's Stew");
    const QStringList lines = views::Lines(editor.lvShoppingList);
    ASSERT_EQ(lines.size(), 17);  // the empty fifth column is skipped, the nineteenth never read
    EXPECT_EQ(lines.first(), Line("salt for", "1", "pinch", "Mom's Stew"));
    EXPECT_EQ(lines.last(), Line("thing18", "18", "cup", "Mom's Stew"));
    EXPECT_TRUE(editor.Changed());

    // A recipe asked for by itself that is gone adds nothing and asks nothing.
    editor.AddRecipe("Nothing Like It");
    EXPECT_EQ(editor.lvShoppingList->topLevelItemCount(), 17);
}

TEST_F(ListEditorTest, AMissingRecipeLeavesTheMealOnlyWhenThePersonSaysSo) {
    RecipeWith("Pie", {"3%%each%%apple"});
    rows::Meal("Friday", {{"MainCourse", "Gone Dish"}, {"Desert", "Pie"}});
    rows::Meal("Saturday", {{"MainCourse", "Gone Dish"}});

    frmShoppingList editor;
    editor.cboMeal->setCurrentText("Saturday");
    ui.answer(Answer::No);
    editor.cmdImport_Click();
    EXPECT_EQ(LastBox(), "Missing Recipe: Gone Dish was not found in any Cookbook do you want to remove if from this Meal?");
    EXPECT_EQ(ui.lastBox().buttons, Box::YesNo + Box::Question);
    EXPECT_EQ(rows::Field("Meal", "Name", "Saturday", "MainCourse").toString(), "Gone Dish");

    editor.cboMeal->setCurrentText("Friday");
    ui.answer(Answer::Yes);
    editor.cmdImport_Click();
    EXPECT_EQ(rows::Field("Meal", "Name", "Friday", "MainCourse").toString(), " ");
    EXPECT_EQ(rows::Field("Meal", "Name", "Saturday", "MainCourse").toString(), "Gone Dish");
    EXPECT_EQ(views::Lines(editor.lvShoppingList), QStringList({Line("apple", "3", "each", "Pie")}));
}

TEST_F(ListEditorTest, SavingReplacesTheListsRowsAndJoinsLikeItemsOfACurrentList) {
    RecipeWith("Roast", {"2%%lb%%beef", "1%%cup%%stock", "3%%cup%%stock"});
    ListRow("Week", "Old Bread", true);
    ListRow("Week", "Old Milk", true);
    ListRow("Other", "Milk", false);
    ListRow("Other", "beef", true);

    frmShoppingList editor;
    editor.CurrentListName("Week");
    editor.AddRecipe("Roast");
    auto* odd = new QTreeWidgetItem({"tea", "lots", "Acme", "box", "Drinks", "YES", "", "", ""});
    editor.lvShoppingList->addTopLevelItem(odd);
    ASSERT_TRUE(editor.SaveList());

    // The list stays current, so its second stock joins the first (quantities
    // of one size join as text).
    EXPECT_EQ(Saved("Week", {"ItemName", "ItemQuantity", "ItemManufacturer", "ItemStyle", "Dates", "IsCurrent"}),
              QStringList({"beef|2|Any|For Roast|None|True", "stock|13, |Any|For Roast|None|True",
                           "tea|1|Acme|Drinks|None|True"}));
    EXPECT_EQ(rows::Field("ShopList", "ItemName", "tea", "Coupon").toBool(), true);
    EXPECT_EQ(Saved("Other"), QStringList({"Milk|1", "beef|1"}));
    EXPECT_FALSE(editor.Changed());

    // A second save writes the same rows again rather than adding to them.
    editor.lvShoppingList->setCurrentItem(odd);
    ui.answer(Answer::Yes);
    editor.cmdRemove_Click();
    EXPECT_EQ(LastBox(), "Remove Item: Are you sure you want to remove these Item(s)?");
    ASSERT_TRUE(editor.SaveList());
    EXPECT_EQ(Saved("Week"), QStringList({"beef|2", "stock|13, "}));
    EXPECT_EQ(Saved("Other"), QStringList({"Milk|1", "beef|1"}));
}

TEST_F(ListEditorTest, AListWithoutANameIsNamedFirstAndACancelDeletesNothing) {
    RecipeWith("Pie", {"3%%each%%apple"});
    ListRow("Other", "Milk", false);
    frmShoppingList editor;
    editor.AddRecipe("Pie");

    ui.answerModal([](QDialog* d) {
        d->reject();
        return d->result();
    });
    EXPECT_FALSE(editor.SaveList());
    EXPECT_EQ(rows::Count("SELECT * FROM ShopList"), 1);

    // Naming it after a list that is there asks before that list is replaced.
    AnswerName("Other");
    ui.answer(Answer::No);
    EXPECT_FALSE(editor.SaveList());
    EXPECT_EQ(LastBox(), "Replace List: The Shopping List Other already exists. Do you want to replace it?");
    EXPECT_EQ(Saved("Other"), QStringList({"Milk|1"}));
    EXPECT_TRUE(editor.CurrentListName().isEmpty());

    AnswerName("Party", true);
    EXPECT_TRUE(editor.SaveList());
    EXPECT_EQ(editor.CurrentListName(), "Party");
    EXPECT_EQ(editor.CurrentListDate(), "11/22/2026");
    EXPECT_EQ(Saved("Party", {"ItemName", "Dates"}), QStringList({"apple|2026-11-22"}));

    // Closing asks only while something is unsaved.
    editor.AddRecipe("Pie");
    ui.answer(Answer::No);
    editor.cmdClose_Click();
    EXPECT_EQ(LastBox(), "Exit without save?: The current list has not been saved, Exit anyway?");
    EXPECT_EQ(editor.result(), 0);
    EXPECT_EQ(ui.pendingAnswers(), 0);
}

TEST_F(ListEditorTest, OddListNamesSaveReplacePickAndPrintWithoutLosingARow) {
    RecipeWith("Roast", {"2%%lb%%beef", "1%%each%%onion"});
    const QStringList names = {"Joe's", "say \"hi\"", "a::b", QString(200, 'x')};
    for (const QString& name : names) {
        frmShoppingList editor;
        editor.CurrentListName(name);
        editor.AddRecipe("Roast");
        ASSERT_TRUE(editor.SaveList()) << name.toStdString();
        ASSERT_TRUE(editor.SaveList()) << name.toStdString();
        EXPECT_EQ(Saved(name), QStringList({"beef|2", "onion|1"})) << name.toStdString();
    }
    EXPECT_EQ(rows::Count("SELECT * FROM ShopList"), 8);

    frmShoppingListGenerate print;
    QStringList listed;
    for (int i = 0; i < print.cboShoppingLists->count(); ++i) listed << print.cboShoppingLists->itemText(i);
    QStringList expected = names;
    listed.sort();
    expected.sort();
    EXPECT_EQ(listed, expected);

    for (const QString& name : names) {
        ui.answerModal([name](QDialog* d) {
            auto* form = qobject_cast<frmShoppingListSelect*>(d);
            const auto found = form->lvLists->findItems(name, Qt::MatchExactly);
            if (found.size() != 1) return 0;
            form->lvLists->setCurrentItem(found.first());
            form->cmdOK->click();
            return d->result();
        });
        EXPECT_EQ(frmShoppingListSelect::GetListName(), name);
    }
}

TEST_F(ListEditorTest, TheNameScreenRefusesAnEmptyName) {
    frmShoppingListName form;
    form.txtName->setText("   ");
    EXPECT_FALSE(form.cmdOK->isEnabled());
    form.txtName->setText(" Week ");
    EXPECT_TRUE(form.cmdOK->isEnabled());

    QString name = "kept", date = "";
    AnswerName("");
    EXPECT_FALSE(frmShoppingListName::GetName(name, date));
    EXPECT_EQ(name, "kept");
    AnswerName("  Week  ");
    EXPECT_TRUE(frmShoppingListName::GetName(name, date));
    EXPECT_EQ(name, "Week");
    EXPECT_EQ(date, "");
}

TEST_F(ListEditorTest, ThePickerGivesTheChosenListOrNothing) {
    ListRow("Week", "Bread", true);
    ListRow("Week", "Milk", true);
    ListRow("Party", "Chips", false, "X");

    ui.answerModal([](QDialog* d) {
        auto* form = qobject_cast<frmShoppingListSelect*>(d);
        EXPECT_EQ(views::Lines(form->lvLists), QStringList({"Party||1|Yes", "Week||2|"}));
        form->lvLists->setCurrentItem(form->lvLists->topLevelItem(1));
        form->cmdOK->click();
        return d->result();
    });
    EXPECT_EQ(frmShoppingListSelect::GetListName(), "Week");

    ui.answerModal([](QDialog* d) {
        qobject_cast<frmShoppingListSelect*>(d)->cmdCancel->click();
        return d->result();
    });
    EXPECT_EQ(frmShoppingListSelect::GetListName(), "");
}

TEST_F(ListEditorTest, ThePrintDialogueOffersEachListOnceAndPrintsOneIntoAFile) {
    ListRow("Week", "Bread", true);
    ListRow("week", "Milk", true);
    ListRow("Party", "Chips", false);
    ListRow("Week", "Eggs", true);

    frmShoppingListGenerate print;
    EXPECT_EQ(print.windowTitle(), "Generate List");
    QStringList listed;
    for (int i = 0; i < print.cboShoppingLists->count(); ++i) listed << print.cboShoppingLists->itemText(i);
    listed.sort();
    EXPECT_EQ(listed, QStringList({"Party", "Week"}));
    EXPECT_EQ(print.cboPrinter->itemText(0), QPrinterInfo::availablePrinterNames().isEmpty()
                                                 ? "There are no printers setup on this PC"
                                                 : "- Select a Printer -");

    const QString path = HomeFile("Party.htm");
    QFile old(path);
    ASSERT_TRUE(old.open(QIODevice::WriteOnly));
    old.write("old");
    old.close();
    ui.answerFile(path);
    ui.answer(Answer::No);
    print.chkPrintToFile->click();
    EXPECT_EQ(ui.boxes()[0].title, "Save Larder list to file...");
    EXPECT_EQ(LastBox(), "Over-write: " + path + " exists, Over-write it?");
    EXPECT_FALSE(print.chkPrintToFile->isChecked());
    EXPECT_TRUE(print.PrintFile().isEmpty());

    ui.answerFile(path);
    ui.answer(Answer::Yes);
    print.chkPrintToFile->click();
    EXPECT_TRUE(print.chkPrintToFile->isChecked());
    print.cboShoppingLists->setCurrentText("Party");
    // Only the standard style prints.
    print.optByIsle->setChecked(true);
    print.cmdPrint_Click();
    QFile untouched(path);
    ASSERT_TRUE(untouched.open(QIODevice::ReadOnly));
    EXPECT_EQ(untouched.readAll(), "old");
    untouched.close();
    print.optStandard->setChecked(true);
    print.cmdPrint_Click();
    EXPECT_EQ(print.result(), QDialog::Accepted);
    QFile written(path);
    ASSERT_TRUE(written.open(QIODevice::ReadOnly));
    const QString html = QString::fromUtf8(written.readAll());
    EXPECT_TRUE(html.contains("Chips"));
    EXPECT_FALSE(html.contains("Bread"));
}

TEST_F(ListEditorTest, TheMenuOpensThePrintDialogueAndASpecialListOpensAnEditor) {
    CommandRegistry commands;
    ListCommands::Register(commands);
    QString title;
    ui.answerModal([&](QDialog* d) {
        title = d->windowTitle();
        return 0;
    });
    EXPECT_TRUE(commands.Run("mnuGenerateList"));
    EXPECT_EQ(title, "Generate List");

    RecipeWith("Pie", {"3%%each%%apple", "1%%cup%%sugar"});
    frmShoppingList* editor = ListCommands::OpenSpecialList("Pie");
    ASSERT_EQ(ui.modeless().size(), 1);
    EXPECT_EQ(ui.modeless().first(), editor);
    EXPECT_EQ(editor->lvShoppingList->topLevelItemCount(), 2);
    EXPECT_TRUE(editor->CurrentListName().isEmpty());
    delete editor;
}

}  // namespace
