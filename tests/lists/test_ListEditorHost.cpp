// The list editor as it stands: importing a meal's recipes as lines, saving
// the lines as a list, and the screens around it that name, pick and print
// a list.
#include "ListEditorFixture.h"

#include "core/CommandRegistry.h"
#include "lists/ListCommands.h"
#include "lists/frmShoppingListGenerate.h"
#include "lists/frmSearchListItem.h"
#include "lists/frmShoppingListEditCost.h"
#include "lists/frmShoppingListSelect.h"
#include "core/MainPanes.h"
#include "lists/ListPane.h"

#include <QLabel>

#include <QApplication>
#include <QFile>
#include <QPrinterInfo>
#include <QRadioButton>

namespace {

// A recipe whose ingredients are "quantity%%size%%name" in column order.
void RecipeWith(const QString& title, const QStringList& ingredients, QVariantMap more = {}) {
    for (int i = 0; i < ingredients.size(); ++i) more.insert("Ingredient" + QString::number(i + 1), ingredients[i]);
    rows::Recipe(title, "General", "General", more);
}

QString Line(const QString& name, const QString& qty, const QString& size, const QString& title) {
    return name + "|" + qty + "|Any|" + size + "|For " + title + "|No|||";
}

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
    editor.tbMain_ButtonClick("Remove");
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
    editor.tbMain_ButtonClick("Close");
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

TEST_F(ListEditorTest, SavingTurnsEmptyCostsIntoNothingAndOddQuantitiesIntoOne) {
    frmShoppingList editor;
    Add(editor, "Mom's \"Best\" Jam", "2", "O'Neil", "jar", "Spreads", "");
    auto odd = [&](const QString& qty) {
        auto* line = new QTreeWidgetItem({"Odd " + qty, qty, "Any", "each", "None", "No", "", "", ""});
        editor.lvShoppingList->addTopLevelItem(line);
        return line;
    };
    odd("0");
    odd("a few");
    odd("-2");
    odd("1/2");  // a fraction from a recipe keeps its text
    editor.CurrentListName("Joe's List");
    ASSERT_TRUE(editor.SaveList());
    EXPECT_EQ(Saved("Joe's List", {"ItemName", "ItemQuantity", "ItemManufacturer", "ItemCost", "CouponID", "Dates",
                                   "Recurring"}),
              QStringList({"Mom's \"Best\" Jam|2|O'Neil|0|0|None| ", "Odd 0|1|Any|0|0|None| ",
                           "Odd a few|1|Any|0|0|None| ", "Odd -2|1|Any|0|0|None| ", "Odd 1/2|1/2|Any|0|0|None| "}));

    // Loaded back, the lines are what was saved, and the list counts as saved.
    frmShoppingList again;
    again.LoadShopList("Joe's List");
    EXPECT_EQ(Lines(again).first(), "Mom's \"Best\" Jam|2|O'Neil|jar|Spreads|No|0|");
    EXPECT_EQ(again.CurrentListName(), "Joe's List");
    EXPECT_FALSE(again.Changed());
    EXPECT_EQ(ui.count(), 0);
}

TEST_F(ListEditorTest, LoadingOverLinesAsksClearAppendOrCancelAndDeletesOnlyWhenToldTwice) {
    ListRow("Week", "Bread", false);
    ListRow("Week", "Milk", false, " ", {{"Store", "Aldi"}, {"Coupon", true}, {"CouponID", 7}, {"Dates", "2026-11-29"}});
    ListRow("Party", "Chips", false);

    frmShoppingList editor;
    editor.LoadShopList("Week");
    EXPECT_EQ(Lines(editor), QStringList({"Bread|1|Any|each|Produce|No|0|", "Milk|1|Any|each|Produce|Yes|0|Aldi"}));
    EXPECT_EQ(editor.lvShoppingList->topLevelItem(1)->data(0, frmShoppingList::TagRole).toString(), "7");
    EXPECT_EQ(editor.CurrentListDate(), "11/29/2026");
    EXPECT_EQ(ui.count(), 0);

    ui.answer(Answer::Cancel);
    editor.LoadShopList("Party");
    EXPECT_EQ(LastBox(), "Clear List: This List already contains Items, Do you wish to clear the current list?");
    EXPECT_EQ(ui.lastBox().buttons, Box::YesNoCancel + Box::Question);
    EXPECT_EQ(editor.lvShoppingList->topLevelItemCount(), 2);

    // No appends, under the name already there.
    ui.answer(Answer::No);
    editor.LoadShopList("Party");
    EXPECT_EQ(editor.lvShoppingList->topLevelItemCount(), 3);
    EXPECT_EQ(editor.CurrentListName(), "Week");
    EXPECT_TRUE(editor.Changed());
    // The same list again appends again; nothing on file changes.
    ui.answer(Answer::No);
    editor.LoadShopList("Party");
    EXPECT_EQ(editor.lvShoppingList->topLevelItemCount(), 4);

    // Yes, then No to deleting: the view is cleared, the saved list stays.
    ui.answer(Answer::Yes);
    ui.answer(Answer::No);
    editor.LoadShopList("Party");
    EXPECT_EQ(LastBox(), "Delete List: This List has already been saved, Do you wish to delete it?");
    EXPECT_EQ(Lines(editor), QStringList({"Chips|1|Any|each|Produce|No|0|"}));
    EXPECT_EQ(Saved("Week").size(), 2);

    ui.answer(Answer::Yes);
    ui.answer(Answer::Yes);
    editor.LoadShopList("Week");
    EXPECT_EQ(Saved("Party"), QStringList());
    EXPECT_EQ(Lines(editor).size(), 2);
    EXPECT_EQ(ui.pendingAnswers(), 0);
}

TEST_F(ListEditorTest, ExpiredItemsComeFromTheExpiredListAndFromWhatHasRunOut) {
    frmShoppingList editor;
    ui.answer(Answer::OK);
    editor.tbMain_ButtonClick("ExpiredInventory");
    EXPECT_EQ(LastBox(), "Notice: There are no Expired Items to add to List.");

    // 30 days: bought 32 days ago has run out, 31 days ago not yet.
    Product("Rice", "Uncle", "bag", {{"LastPurchasedDate", QDate(2026, 10, 21)}, {"lastpurchasedquantity", 2}});
    Product("Oats", "Quaker", "box", {{"LastPurchasedDate", QDate(2026, 10, 22)}});
    Product("Salt", "Morton", "box", {{"LastPurchasedDate", QDate(1950, 1, 1)}});
    ListRow("Expired", "Flour", true);
    ui.clear();
    editor.tbMain_ButtonClick("ExpiredInventory");
    EXPECT_EQ(Lines(editor), QStringList({"Flour|1|Any|each|Produce|No|0|", "Rice|2|Uncle|bag|Dairy|No|2.5|"}));
    EXPECT_EQ(ui.count(), 0);
    EXPECT_TRUE(editor.CurrentListName().isEmpty());
}

TEST_F(ListEditorTest, SaveStopsForAnotherStoresBrandAndWithoutAnyLine) {
    rows::Add("Store", {{"Name", "Aldi"}});
    rows::Add("Store", {{"Name", "Kroger"}});
    ListRow("Week", "Old", false);
    frmShoppingList editor;
    editor.CurrentListName("Week");
    ui.answer(Answer::OK);
    EXPECT_FALSE(editor.SaveList());
    EXPECT_EQ(ui.lastBox().prompt, "There is nothing on the list to save.");

    Add(editor, "Beans", "1", "Aldi", "can");
    Add(editor, "Rice", "1", "Any", "bag");
    editor.cboStore->setEditText("Kroger");
    ui.answer(Answer::No);
    editor.cmdStoreAction_Click();
    EXPECT_EQ(LastBox(), "Set Store: There are items already on this list that appear to be Store brands but not for "
                         "this Store. Would you still like to set this Lists Store to Kroger?");
    EXPECT_EQ(editor.ListStore(), "");
    ui.answer(Answer::Yes);
    editor.cmdStoreAction_Click();
    EXPECT_EQ(editor.ListStore(), "Kroger");

    ui.answer(Answer::No);
    EXPECT_FALSE(editor.SaveList());
    EXPECT_EQ(LastBox(), "Save: There are items on this list that appear to be Store brands but not for this Store. "
                         "Would you still like to save this List for Store Kroger?");
    EXPECT_EQ(ui.lastBox().buttons, Box::YesNo + Box::Question + Box::DefaultButton2);
    EXPECT_EQ(Saved("Week"), QStringList({"Old|1"}));

    ui.answer(Answer::Yes);
    EXPECT_TRUE(editor.SaveList());
    EXPECT_EQ(Saved("Week", {"ItemName", "Store"}), QStringList({"Beans|Kroger", "Rice|Kroger"}));
}

TEST_F(ListEditorTest, ASavedListLeavesOneNoteInTheMessageCentre) {
    frmShoppingList editor;
    Add(editor, "Milk", "2", "Acme", "gal");
    editor.CurrentListName(QString(60, 'w'));
    ASSERT_TRUE(editor.SaveList());
    Add(editor, "Eggs", "1", "Any", "dozen");
    ASSERT_TRUE(editor.SaveList());
    EXPECT_EQ(rows::Joined("SELECT * FROM Messages", {"Title", "Body", "Date", "Type"}),
              QStringList({QString(50, 'w') + "|2 gal Acme Milk\r\n1 dozen Any Eggs\r\n|None|2"}));

    Registry().AddListMessageItem(false);
    editor.CurrentListName("Quiet");
    ASSERT_TRUE(editor.SaveList());
    EXPECT_EQ(rows::Count("SELECT * FROM Messages"), 1);
}

TEST_F(ListEditorTest, ARecurringListIsNamedOnceAndReopenedFromTheRecurringPicker) {
    frmShoppingList editor;
    Add(editor, "Milk", "1", "Acme", "gal");
    ui.answerInput("");
    ui.answer(Answer::OK);
    editor.tbMain_ButtonClick("RecurringSave");
    EXPECT_EQ(ui.boxes()[0].prompt, "What Name would you like to use to identify this Shopping List once saved?");
    EXPECT_EQ(LastBox(), "Notice: This Shopping List was not saved.");
    EXPECT_EQ(rows::Count("SELECT * FROM ShopList"), 0);

    ui.answerInput("Weekly Staples");
    editor.tbMain_ButtonClick("RecurringSave");
    EXPECT_EQ(Saved("Weekly Staples", {"ItemName", "Recurring"}), QStringList({"Milk|Weekly Staples"}));
    ui.answer(Answer::No);
    editor.tbMain_ButtonClick("RecurringSave");
    EXPECT_EQ(LastBox(), "Save As Recurring: This List was previously save as a Recurring List. Save it again as a "
                         "Recurring List?");

    ListRow("Plain", "Bread", false);
    frmShoppingList other;
    ui.answerModal([](QDialog* d) {
        auto* form = qobject_cast<frmShoppingListSelect*>(d);
        EXPECT_EQ(views::Lines(form->lvLists), QStringList({"Weekly Staples||1|Weekly Staples"}));
        form->cmdOK->click();
        return d->result();
    });
    other.tbMain_ButtonClick("RecurringOpen");
    EXPECT_EQ(other.RecurringName(), "Weekly Staples");
    EXPECT_EQ(Lines(other), QStringList({"Milk|1|Acme|gal|None|No|0|"}));
}

TEST_F(ListEditorTest, ClearingAndPrintingAskAboutTheSavedList) {
    frmShoppingList editor;
    Add(editor, "Milk", "1", "Acme", "gal");
    ui.answer(Answer::No);
    editor.tbMain_ButtonClick("Print");
    EXPECT_EQ(LastBox(), "Save List: The Current List will first have to be saved, Save it now?");

    editor.CurrentListName("Week");
    ASSERT_TRUE(editor.SaveList());
    const QString pdf = HomeFile("week.pdf");
    if (QPrinterInfo::availablePrinterNames().isEmpty()) {
        ui.answerFile(pdf);
        editor.tbMain_ButtonClick("Print");
        EXPECT_TRUE(QFile::exists(pdf));
    }

    ui.answer(Answer::Yes);
    ui.answer(Answer::No);
    editor.tbMain_ButtonClick("ClearList");
    EXPECT_EQ(ui.prompts().mid(ui.prompts().size() - 2),
              QStringList({"Are you sure that you want to clear this list?",
                           "This list has already been saved. Proceeding will completely remove this list. Do you "
                           "wish to continue?"}));
    EXPECT_EQ(editor.lvShoppingList->topLevelItemCount(), 1);
    ui.answer(Answer::Yes);
    ui.answer(Answer::Yes);
    editor.tbMain_ButtonClick("ClearList");
    EXPECT_EQ(editor.lvShoppingList->topLevelItemCount(), 0);
    EXPECT_EQ(Saved("Week"), QStringList());

    ui.answer(Answer::OK);
    editor.TempListPrint();
    EXPECT_EQ(ui.lastBox().prompt, "The Shopping List Week does not exist.");
}

TEST_F(ListEditorTest, LineCommandsEditReleaseAndTakeCoupons) {
    const qint32 coupon = Coupon("Acme", "Milk", "gal");
    const qint32 other = Coupon("Best", "Bread", "loaf");
    frmShoppingList editor;
    ui.answer(Answer::Yes);
    Add(editor, "Milk", "1", "Acme", "gal", "", "3");
    editor.CurrentListName("Week");
    ASSERT_TRUE(editor.SaveList());
    EXPECT_EQ(rows::Field("Coupons", "ID", coupon, "OwnerList").toString(), "Week");

    QTreeWidgetItem* milk = editor.lvShoppingList->topLevelItem(0);
    editor.lvShoppingList->setCurrentItem(milk);
    editor.mnuReleaseCoupon_Click();
    EXPECT_EQ(rows::Field("Coupons", "ID", coupon, "OwnerList").toString(), "");
    EXPECT_EQ(Lines(editor), QStringList({"Milk|1|Acme|gal|None|No|3|"}));

    // The cost screen refuses what is not a number.
    ui.answerModal([](QDialog* d) {
        auto* form = qobject_cast<frmShoppingListEditCost*>(d);
        EXPECT_EQ(form->lblOldCost->text(), "$3.00");
        form->txtNewCost->setText("cheap");
        form->cmdOK->click();
        form->txtNewCost->setText("$2.75");
        form->cmdOK->click();
        return d->result();
    });
    ui.answer(Answer::OK);
    editor.mnuEditItemCost_Click();
    EXPECT_EQ(LastBox(), "Notice: The Cost must be a numeric value.");
    EXPECT_EQ(Lines(editor), QStringList({"Milk|1|Acme|gal|None|No|2.75|"}));

    editor.AddSelectCoupons({coupon, other, 9999});
    EXPECT_EQ(Lines(editor), QStringList({"Milk|1|Acme|gal|None|Yes|2.75|", "Bread|2|Best|loaf|Dairy|Yes||"}));

    editor.lvShoppingList->setCurrentItem(editor.lvShoppingList->topLevelItem(0));
    editor.mnuEditItem_Click();
    EXPECT_EQ(QStringList({editor.cboItem->currentText(), editor.txtQuantity->text(), editor.txtCost->text(),
                           editor.PendingCoupon()}),
              QStringList({"Milk", "1", "2.75", "Yes"}));
    EXPECT_EQ(editor.lvShoppingList->topLevelItemCount(), 1);
    ui.answer(Answer::Yes);  // the exact coupon again
    editor.txtQuantity->setText("2");
    editor.cmdAddItem_Click();
    EXPECT_EQ(Lines(editor).last(), "Milk|2|Acme|gal|None|Yes|2.75|");

    // Removing from the pop-up frees the line's coupon.
    ASSERT_TRUE(editor.SaveList());
    editor.lvShoppingList->clearSelection();
    editor.lvShoppingList->topLevelItem(0)->setSelected(true);
    ui.answer(Answer::Yes);
    editor.mnuRemoveItem_Click();
    EXPECT_EQ(rows::Field("Coupons", "ID", other, "OwnerList").toString(), "");
    EXPECT_EQ(rows::Field("Coupons", "ID", coupon, "OwnerList").toString(), "Week");
}

TEST_F(ListEditorTest, TheMainWindowsCommandsOpenOneEditorOnTheChosenList) {
    CommandRegistry commands;
    ListCommands::Register(commands);
    for (const char* key : {"mnuGenerateList", "mnuEnterListItem", "mnuEditList", "mnuEditCurrentList",
                            "mnuSearchShoppingList", "mnuSAMEditShopList", "mnuSAMFindListItem"})
        EXPECT_TRUE(commands.Has(key)) << key;
    ListRow("Week", "Bread", true);
    ListRow("Week", "Joe's Milk", true);
    ListRow("Party", "Chips", false);

    // The search screen finds an item on any list; its list opens with the line chosen.
    ui.answerModal([](QDialog* d) {
        auto* form = qobject_cast<frmSearchListItem*>(d);
        form->txtSearch->setText("'s m");
        form->cmdSearch_Click();
        EXPECT_EQ(views::Lines(form->lvItems), QStringList({"Joe's Milk|1|Any|Week|"}));
        form->txtSearch->setText("%");
        form->cmdSearch_Click();
        EXPECT_EQ(form->lvItems->topLevelItemCount(), 0);
        form->txtSearch->setText("i");
        form->cmdSearch_Click();
        form->lvItems->setCurrentItem(form->lvItems->topLevelItem(1));
        form->cmdOpen->click();
        return d->result();
    });
    EXPECT_TRUE(commands.Run("mnuSearchShoppingList"));
    ASSERT_EQ(ui.modeless().size(), 1);
    auto* editor = qobject_cast<frmShoppingList*>(ui.modeless().first().data());
    ASSERT_NE(editor, nullptr);
    EXPECT_EQ(editor->CurrentListName(), "Week");
    EXPECT_EQ(editor->lvShoppingList->currentItem()->text(0), "Joe's Milk");

    // The Current list is the one list with current rows; it is open already,
    // so nothing is asked and no second editor appears.
    EXPECT_TRUE(commands.Run("mnuEditCurrentList"));
    EXPECT_EQ(ui.modeless().size(), 1);
    EXPECT_EQ(ui.count(), 2);

    // Another list through the picker loads into the same editor.
    ui.answerModal([](QDialog* d) {
        auto* form = qobject_cast<frmShoppingListSelect*>(d);
        form->lvLists->setCurrentItem(form->lvLists->findItems("Party", Qt::MatchExactly).first());
        form->cmdOK->click();
        return d->result();
    });
    ui.answer(Answer::Yes);
    ui.answer(Answer::No);
    EXPECT_TRUE(commands.Run("mnuEditList"));
    EXPECT_EQ(editor->CurrentListName(), "Party");
    EXPECT_EQ(Saved("Week").size(), 2);
    delete editor;

    // The pane's selected line names its list.
    MainPanes& panes = MainPanes::Instance();
    ListPane::LoadShoppingList();
    panes.currentListSelection.setCurrentIndex(panes.currentList.index(0, 0), QItemSelectionModel::ClearAndSelect);
    EXPECT_TRUE(commands.Run("mnuSAMEditShopList"));
    ASSERT_EQ(ui.modeless().size(), 2);
    editor = qobject_cast<frmShoppingList*>(ui.modeless().last().data());
    EXPECT_EQ(editor->CurrentListName(), "Week");
    delete editor;
}

}  // namespace
