// The Current list printed in a store's walking order: the road from the
// command through its questions, the report on paper (read back from the PDF)
// and its HTML copy, and the screen that decides which lists are current.
#include "core/CommandRegistry.h"
#include "core/Globals.h"
#include "core/clsRegistry.h"
#include "core/deLarderkeep.h"
#include "lists/PrintCommands.h"
#include "lists/clsShopList.h"
#include "lists/frmCurrentShoppingList.h"
#include "lists/rptListByIsle.h"
#include "stores/frmSelectStore.h"
#include "support/Rows.h"
#include "support/TestEnv.h"

#include <QFile>
#include <QListWidget>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTreeWidget>

namespace {

// The text of a PDF, "" when pdftotext is missing: in the order it was drawn,
// or laid out as on the page.
QString PdfText(const QString& pdf, const QString& mode = "-raw") {
    if (QStandardPaths::findExecutable("pdftotext").isEmpty()) return QString();
    QProcess tool;
    tool.start("pdftotext", {mode, pdf, "-"});
    tool.waitForFinished(20000);
    return QString::fromUtf8(tool.readAllStandardOutput());
}

// Each name appears, and after the one before it.
void ExpectInOrder(const QString& text, const QStringList& names) {
    qsizetype at = -1;
    for (const QString& name : names) {
        const qsizetype found = text.indexOf(name, at + 1);
        EXPECT_GT(found, at) << name.toStdString();
        if (found > at) at = found;
    }
}

class ListByIsleTest : public LarderTest {
protected:
    void SetUp() override {
        LarderTest::SetUp();
        Registry().PromptBeforeInventoryAdd(false);
        Registry().SaveReportCopy(true);
        Registry().AlwaysPrintPreview(true);
        Registry().AllowExplode(false);
        rows::Add("Store", {{"Name", "Joe's"}, {"isles", 3}});
        rows::Add("Store", {{"Name", "Aldi"}, {"isles", 2}});
        Map("Joe's", "Produce", "Isle 1", 1);
        Map("Joe's", "Dairy", "Isle 7", 7);
        Map("Joe's", "Bakery", "Isle 3", 3);
        Map("Aldi", "Dairy", "Front", 1);
        Map("Aldi", "Produce", "Back", 9);
    }
    static void Map(const QString& store, const QString& category, const QString& isle, int order) {
        rows::Add("IsleMap", {{"Store", store}, {"ItemCategory", category}, {"Isle", isle}, {"IsleOrder", order}});
    }
    static void Item(const QString& list, const QString& store, const QString& name, const QString& category,
                     double cost = 1, bool current = true) {
        rows::Add("ShopList", {{"Name", list},
                               {"Store", store},
                               {"ItemName", name},
                               {"ItemStyle", category},
                               {"ItemQuantity", "2"},
                               {"ItemManufacturer", "Any"},
                               {"ItemCost", cost},
                               {"IsCurrent", current},
                               {"CouponID", 0}});
    }
    void PickStore(const QString& store) {
        ui.answerModal([store](QDialog* dialog) {
            auto* pick = qobject_cast<frmSelectStore*>(dialog);
            if (!pick) return int(QDialog::Rejected);
            const auto found = pick->lstStores->findItems(store, Qt::MatchExactly);
            if (found.isEmpty()) return int(QDialog::Rejected);
            pick->lstStores->setCurrentItem(found.first());
            return int(QDialog::Accepted);
        });
    }
    void ExpectPreview() {
        ui.answerModal([](QDialog* dialog) { return dialog->windowTitle() == "Shopping List by Isle" ? 0 : -1; });
    }
    QString Copy() const {
        QFile file(HomeFile("ShopListByIsle.htm"));
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }
};

TEST_F(ListByIsleTest, AListAllForTheStorePrintsInItsWalkWithUnmappedItemsFirst) {
    Item("Week", "Joe's", "Milk", "Dairy", 3.10);
    Item("Week", "Joe's", "Apples", "Produce", 2.00);
    Item("Week", "Joe's", "Rye bread", "Bakery", 4.25);
    Item("Week", "Joe's", "Candles", "Household", 5.00);
    PickStore("Joe's");
    ui.answer(Answer::No);  // Household has no aisle here: proceed as is
    ExpectPreview();
    PrintCommands::mnuListByStore_Click();
    ASSERT_EQ(ui.prompts().size(), 1);  // no "There are only" question
    EXPECT_EQ(ui.boxes()[1].title, "Missing Categories");
    EXPECT_TRUE(ui.prompts().first().contains("for Joe's: \n\nHousehold\n\n"));

    // The rows carry the walk; the copy is kept for reprinting, in walk order.
    EXPECT_EQ(rows::Joined("SELECT * FROM ShopList ORDER BY [ShopOrder]", {"ItemName", "ShopIsle"}),
              QStringList({"Candles|Not Given", "Apples|Isle 1", "Rye bread|Isle 3", "Milk|Isle 7"}));
    EXPECT_EQ(LastReportFile, HomeFile("ShopListByIsle.htm"));
    ExpectInOrder(Copy(), {"Not Given", "Candles", "Isle 1", "Apples", "Isle 3", "Rye bread", "Isle 7", "Milk"});

    // On paper: the same order, the running cost beside each line, the total.
    const QString pdf = HomeFile("walk.pdf");
    ASSERT_TRUE(rptListByIsle("Joe's").Layout().SavePdf(pdf));
    const QString text = PdfText(pdf);
    if (text.isEmpty()) GTEST_SKIP() << "pdftotext (poppler-utils) is not installed";
    ExpectInOrder(text, {"Not Given", "Candles", "Isle 1", "Produce", "Apples", "Isle 3", "Rye bread", "Isle 7", "Milk",
                         "Total"});
    EXPECT_TRUE(QRegularExpression(R"(Milk\s+2\s+\$3\.10\s+\$14\.35)").match(PdfText(pdf, "-layout")).hasMatch());
    EXPECT_TRUE(text.contains("Page 1 of 1"));
}

TEST_F(ListByIsleTest, ItemsOfOtherStoresAreMovedOnlyWhenThePersonSaysSo) {
    Item("Week", "Joe's", "Milk", "Dairy");
    Item("Week", "Aldi", "Apples", "Produce");
    Item("Week", "", "Bread", "Bakery");
    // A cancelled pick changes nothing.
    ui.answerModal([](QDialog*) { return int(QDialog::Rejected); });
    PrintCommands::mnuListByStore_Click();
    EXPECT_EQ(ui.count(), 1);

    PickStore("Joe's");
    ui.answer(Answer::Yes);  // pick another store
    PickStore("Joe's");
    ui.answer(Answer::Cancel);
    PrintCommands::mnuListByStore_Click();
    EXPECT_TRUE(ui.prompts().first().startsWith(
        "There are only 1 Item(s) on the 'Current' List for Joe's out of 3 Item(s) on the Current List.\n\n"));
    EXPECT_EQ(rows::Count("SELECT * FROM ShopList WHERE [Store] = 'Joe''s'"), 1);

    PickStore("Joe's");
    ui.answer(Answer::No);  // adjust: everything goes to Joe's
    ExpectPreview();
    PrintCommands::mnuListByStore_Click();
    EXPECT_EQ(rows::Count("SELECT * FROM ShopList WHERE [Store] = 'Joe''s'"), 3);
    ExpectInOrder(Copy(), {"Apples", "Bread", "Milk"});
}

TEST_F(ListByIsleTest, EveryStorePrintsInItsOwnWalkAndTheInventoryQuestionComesOnce) {
    Item("Week", "Joe's", "Milk", "Dairy");
    Item("Week", "Joe's", "Apples", "Produce");
    Item("Old", "Aldi", "Cream", "Dairy", 1, false);
    Item("Week", "Aldi", "Pears", "Produce");
    Item("Week", "Aldi", "Yogurt", "Dairy");
    Registry().PromptBeforeInventoryAdd(true);
    QStringList printed;
    for (int i = 0; i < 2; ++i)
        ui.answerModal([&](QDialog*) {
            printed << rows::Joined("SELECT * FROM ShopList WHERE [IsCurrent] = True ORDER BY [ShopOrder]",
                                    {"Store", "ItemName"})
                           .join(",");
            return 0;
        });
    ui.answer(Answer::No);
    PrintCommands::mnuPrintListForAllStores_Click();
    EXPECT_EQ(ui.prompts(), QStringList({"Add items from this Shopping List to Inventory?"}));
    // Aldi walks Dairy before Produce; Joe's the other way round.
    ASSERT_EQ(printed.size(), 2);
    EXPECT_TRUE(printed[0].indexOf("Aldi|Yogurt") < printed[0].indexOf("Aldi|Pears")) << printed[0].toStdString();
    EXPECT_TRUE(printed[1].indexOf("Joe's|Apples") < printed[1].indexOf("Joe's|Milk")) << printed[1].toStdString();
    // With the question on, only a Yes keeps a copy.
    EXPECT_FALSE(QFile::exists(HomeFile("ShopListByIsle.htm")));
}

TEST_F(ListByIsleTest, WithNoCurrentListThePersonIsOfferedToChooseOne) {
    Item("Week", "Joe's", "Milk", "Dairy", 1, false);
    Item("Week", "Joe's", "Soap", "Household", 1, false);
    ui.answer(Answer::Yes);
    ui.answerModal([](QDialog* dialog) {
        auto* form = qobject_cast<frmCurrentShoppingList*>(dialog);
        if (!form) return 0;
        QTreeWidgetItem* week = form->Line("Week");
        EXPECT_EQ(week->text(1) + "|" + week->text(2), "2|4");
        week->setCheckState(0, Qt::Checked);
        form->cmdClose_Click();
        return 1;
    });
    PrintCommands::mnuListByStore_Click();
    EXPECT_EQ(ui.boxes().first().title + ": " + ui.prompts().first(),
              "Setup Current List?: There are no Shopping Lists marked as 'Current'. Would you like to setup the "
              "Current List?");
    EXPECT_EQ(rows::Count("SELECT * FROM ShopList WHERE [IsCurrent] = True"), 2);

    // Unchecking every list and saving leaves nothing current; leaving with a
    // change unsaved asks first.
    frmCurrentShoppingList form;
    form.Line("Week")->setCheckState(0, Qt::Unchecked);
    ui.answer(Answer::No);
    form.reject();
    EXPECT_EQ(ui.lastBox().prompt, "The Current List has changed, Do you wish to save it before exiting?");
    EXPECT_EQ(rows::Count("SELECT * FROM ShopList WHERE [IsCurrent] = True"), 2);
    frmCurrentShoppingList again;
    again.Line("Week")->setCheckState(0, Qt::Unchecked);
    again.cmdOK_Click();
    EXPECT_EQ(rows::Count("SELECT * FROM ShopList WHERE [IsCurrent] = True"), 0);
}

TEST_F(ListByIsleTest, ALongListFillsFewPagesWithItsColumnsApart) {
    for (int i = 0; i < 60; ++i) {
        const int isle = i % 12;
        rows::Add("ShopList", {{"Name", "Week"},
                               {"Store", "Big"},
                               {"ItemName", QString("Item number %1").arg(i)},
                               {"ItemStyle", QString("Category %1").arg(isle)},
                               {"ItemQuantity", "1"},
                               {"ItemCost", 1.5},
                               {"IsCurrent", true},
                               {"ShopOrder", isle + 1},
                               {"ShopIsle", QString("Aisle %1").arg(isle + 1)}});
    }
    const QString pdf = HomeFile("long.pdf");
    ASSERT_TRUE(deLarderkeep::cmShoplistByIsle("Big").SavePdf(pdf));
    const QString text = PdfText(pdf);
    if (text.isEmpty()) GTEST_SKIP() << "pdftotext (poppler-utils) is not installed";
    const QRegularExpression pages(R"(Page (\d+) of (\d+))");
    const auto last = pages.match(text.mid(text.lastIndexOf("Page ")));
    ASSERT_TRUE(last.hasMatch());
    EXPECT_LE(last.captured(2).toInt(), 2);
    EXPECT_EQ(last.captured(1), last.captured(2));
    // The header row's captions stand apart, and a cost never touches the running total.
    const QString page = PdfText(pdf, "-layout");
    EXPECT_TRUE(QRegularExpression(R"(Item\s+Qty\s+Cost\s+So far)").match(page).hasMatch());
    EXPECT_FALSE(QRegularExpression(R"(\$\d+\.\d\d\$)").match(page).hasMatch());
    EXPECT_TRUE(text.contains("$90.00"));
    QStringList walk;
    for (int isle = 1; isle <= 12; ++isle) walk << QString("Aisle %1\n").arg(isle);
    ExpectInOrder(text, walk);
}

}  // namespace
