// Menus, toolbars, popups, sorting, the quick start chooser and the window
// effects of the main window.
#include "core/Globals.h"
#include "core/ListView.h"
#include "core/MainPanes.h"
#include "core/clsRegistry.h"
#include "app/frmMain.h"
#include "app/frmQuickStart.h"
#include "core/modEffects.h"
#include "platform/Database.h"
#include "platform/Recordset.h"
#include "recipes/RecipeComparisons.h"
#include "support/Rows.h"
#include "support/TestEnv.h"

#include <QAction>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QStackedWidget>
#include <QToolBar>
#include <QTreeView>
#include <QTreeWidget>

namespace {

class CommandTest : public LarderTest {
protected:
    void SetUp() override {
        LarderTest::SetUp();
        MainPanes::Instance().ClearAll();
        RecipeComparisons::Instance().Clear();
    }
    void TearDown() override {
        MainPanes::Instance().ClearAll();
        LarderTest::TearDown();
    }

    // A small recipe tree as the window loads it.
    void LoadTree(frmMain& w) {
        Recordset rs;
        rs.Open("SELECT * FROM Recipie", ConnectionMain(), adOpenStatic, adLockOptimistic);
        const QList<QVariantList> rows = {{"Leek Soup", "Soup", false}, {"Apple Pie", "Dessert", true},
                                          {"Fish Stew", "Soup,Fish", false}};
        for (const QVariantList& r : rows) {
            rs.AddNew();
            rs.setField("Title", r[0]);
            rs.setField("Style", r[1]);
            rs.setField("Favorite", r[2]);
            rs.setField("CookbookName", "General");
            rs.Update();
        }
        rs.Close();
        CurrentCookbook = "General";
        w.LoadRecipies();
    }
    QStandardItem* Recipe(const QString& category, const QString& title) {
        QStandardItem* c = panes.FindByKey(panes.recipes, category);
        for (int r = 0; c && r < c->rowCount(); ++r)
            if (c->child(r)->text() == title) return c->child(r);
        return nullptr;
    }
    QString Caption(frmMain& w, const QString& name) { return w.menus.value(name)->text(); }
    bool Enabled(frmMain& w, const QString& name) { return w.menus.value(name)->isEnabled(); }

    MainPanes& panes = MainPanes::Instance();
};

TEST_F(CommandTest, EveryCommandIsInTheMenusAndOnlyBuiltOnesAreEnabled) {
    frmMain w;
    const QStringList expected = {
        "mnuFile", "mnuNewItem", "mnuOpenCookbook", "mnuCloseCookbook", "mnuView", "mnuCalendarToday",
        "mnuViewExportedFile", "mnuReprintLastReport", "mnuExit", "mnuCoupons", "mnuPurgeCoupons",
        "mnuPrintCouponList", "mnuProductS", "mnuProductCostHistory", "mnuCookbooks", "mnuGenerateWebsite",
        "mnuRecipies", "mnuRecipeMeasurements", "mnuConvertmeasurements", "mnuFindRecipe", "mnuSearchRecipeCenter",
        "mnuSuggetRecipes", "mnuSuggetARecipe", "mnuBartendersGuide", "mnuMeals", "mnuMealCategories",
        "mnuShoppingList", "mnuSynchList", "mnuEnterListData", "mnuStores", "mnuPrintStoreLayout", "mnuMessages",
        "mnuNewMassage", "mnuExportMessageToOutlook", "mnuNutrition", "mnuGetItemInformation", "mnuOptions",
        "mnuOptionGeneral", "mnuPrinterSetup", "mnuHelp", "mnuCheckForUpdates",
        // popups
        "mnuPOPDisplayRecipie", "mnuRecipeCostInformation", "mnuPOPEnterNew", "mnuGroupCouponsByCategory",
        "mnuSAMCurrentView", "mnuSAMFindListItem", "mnuPOPSetQSItems"};
    for (const QString& name : expected) EXPECT_TRUE(w.menus.contains(name)) << name.toStdString();
    EXPECT_EQ(Caption(w, "mnuSynchList"), "Snych Shopping List");
    EXPECT_EQ(Caption(w, "mnuOpenCookbook"), "Open/New Cookbook");
    EXPECT_EQ(Caption(w, "mnuOptionGeneral"), "General Settings");
    EXPECT_EQ(Caption(w, "mnuPOPSetQSItems"), "Set QS Items");
    // Screens that are not there yet: shown, not usable.
    EXPECT_TRUE(w.menus.value("mnuEnterCoupon")->isVisible());
    EXPECT_FALSE(Enabled(w, "mnuEnterCoupon"));
    EXPECT_FALSE(Enabled(w, "mnuPOPEditRecipie"));
    EXPECT_TRUE(Enabled(w, "mnuExit"));
    EXPECT_TRUE(Enabled(w, "mnuCloseCookbook"));
    EXPECT_TRUE(Enabled(w, "mnuReprintLastReport"));
    // The top menus follow the command table's order.
    QStringList tops;
    for (QAction* a : w.menuBar()->actions()) tops << a->objectName();
    EXPECT_EQ(tops, QStringList({"mnuFile", "mnuCoupons", "mnuProductS", "mnuCookbooks", "mnuRecipies", "mnuMeals",
                                 "mnuShoppingList", "mnuStores", "mnuMessages", "mnuNutrition", "mnuOptions",
                                 "mnuHelp"}));
}

TEST_F(CommandTest, ToolbarKeysRunTheirCommandsOrSayComingSoon) {
    frmMain w;
    // A key with no command of its own.
    ui.answer(Answer::OK);
    w.tbMain_ButtonClick("Calendar");
    ASSERT_EQ(ui.count(), 1);
    EXPECT_EQ(ui.lastBox().prompt, "This feature will be added soon, please use the Menus.");
    EXPECT_EQ(ui.lastBox().title, "Coming Soon");
    ui.answer(Answer::OK);
    w.tbReports_ButtonClick("SpendReport");
    EXPECT_EQ(ui.lastBox().title, "Coming Soon");

    // A mapped key whose screen is not there does nothing, and its button rests.
    ui.clear();
    w.tbMain_ButtonClick("NewCoupon");
    EXPECT_EQ(ui.count(), 0);
    QAction* button = w.tbMain->findChild<QAction*>("NewCoupon");
    ASSERT_NE(button, nullptr);
    EXPECT_FALSE(button->isEnabled());
    // A button follows its command when that becomes usable.
    w.menus.value("mnuEnterCoupon")->setEnabled(true);
    EXPECT_TRUE(button->isEnabled());
}

TEST_F(CommandTest, TheRecipePopupNamesTheNodeItOpensOn) {
    frmMain w;
    LoadTree(w);
    QStandardItem* leek = Recipe("Soup", "Leek Soup");
    ASSERT_NE(leek, nullptr);

    w.SetRecipePopup(leek);
    EXPECT_EQ(Caption(w, "mnuPOPDisplayRecipie"), "Display Leek Soup");
    EXPECT_EQ(Caption(w, "mnuPOPEditRecipie"), "Edit Leek Soup");
    EXPECT_EQ(Caption(w, "mnuPOPDeleteRecipie"), "Delete Leek Soup");
    EXPECT_EQ(Caption(w, "mnuPOPShowRecipesInCategory"), "Show Recipes in Soup");
    EXPECT_EQ(Caption(w, "mnuPOPDisplayFavorites"), "Display Favorites");
    EXPECT_TRUE(Enabled(w, "mnuPOPDeleteRecipie"));
    EXPECT_FALSE(Enabled(w, "mnuPOPDisplayRecipie"));  // the recipe screen is not there yet

    w.SetRecipePopup(panes.FindByKey(panes.recipes, "Dessert"));
    EXPECT_EQ(Caption(w, "mnuPOPShowRecipesInCategory"), "Show Recipes in Dessert");
    EXPECT_EQ(Caption(w, "mnuPOPDisplayRecipie"), "Display Recipe");
    EXPECT_FALSE(Enabled(w, "mnuPOPDeleteRecipie"));

    w.SetRecipePopup(panes.FindByKey(panes.recipes, "Root"));
    EXPECT_EQ(Caption(w, "mnuPOPShowRecipesInCategory"), "Show Recipes in Category");
    EXPECT_FALSE(Enabled(w, "mnuPOPShowRecipesInCategory"));

    // Showing favourites only: the entry offers the way back.
    w.mnuPOPDisplayFavorites_Click();
    w.SetRecipePopup(leek);
    EXPECT_EQ(Caption(w, "mnuPOPDisplayFavorites"), "Display All Recipes");
    const QModelIndex soup = panes.FindByKey(panes.recipes, "Soup")->index();
    EXPECT_TRUE(w.tvRecipes->isRowHidden(soup.row(), soup.parent()));  // no favourite there
    w.mnuPOPDisplayFavorites_Click();
    EXPECT_FALSE(w.tvRecipes->isRowHidden(soup.row(), soup.parent()));

    // One category only, from a recipe of it.
    w.tvRecipes->setCurrentIndex(leek->index());
    w.mnuPOPShowRecipesInCategory_Click();
    w.SetRecipePopup(leek);
    EXPECT_EQ(Caption(w, "mnuPOPShowRecipesInCategory"), "Display All Recipes");
    const QModelIndex dessert = panes.FindByKey(panes.recipes, "Dessert")->index();
    EXPECT_TRUE(w.tvRecipes->isRowHidden(dessert.row(), dessert.parent()));
    EXPECT_FALSE(w.tvRecipes->isRowHidden(soup.row(), soup.parent()));
    w.mnuPOPShowRecipesInCategory_Click();
    EXPECT_FALSE(w.tvRecipes->isRowHidden(dessert.row(), dessert.parent()));

    EXPECT_EQ(Caption(w, "mnuPOPExpandView"), "Expand View");
    w.mnuPOPExpandView_Click();
    w.SetRecipePopup(leek);
    EXPECT_EQ(Caption(w, "mnuPOPExpandView"), "Collapse View");
}

TEST_F(CommandTest, FavouriteComparisonAndDeletionActOnTheSelectedRecipe) {
    frmMain w;
    LoadTree(w);
    QStandardItem* fishInSoup = Recipe("Soup", "Fish Stew");
    w.tvRecipes->setCurrentIndex(fishInSoup->index());

    w.RunCommand("mnuPOPToggleFavorite");
    Recordset rs;
    rs.Open("SELECT [Favorite] FROM Recipie WHERE [Title] = 'Fish Stew'", ConnectionMain(), adOpenKeyset,
            adLockReadOnly);
    EXPECT_TRUE(rs.Field("Favorite").toBool());
    rs.Close();
    // Both of its nodes follow.
    EXPECT_EQ(Recipe("Fish", "Fish Stew")->data(MainPanes::TagRole).toString(), "RecipeFavorite");
    EXPECT_EQ(fishInSoup->data(MainPanes::ImageKeyRole).toString(), "RecipeFavorite");

    w.RunCommand("mnuPOPAddRecipeToComparison");
    EXPECT_EQ(RecipeComparisons::Instance().Titles(), QStringList({"Fish Stew"}));
    EXPECT_EQ(Recipe("Fish", "Fish Stew")->data(MainPanes::ImageKeyRole).toString(), "RecipeCompareFavorite");
    w.RunCommand("mnuClearRecipeComparasions");
    EXPECT_EQ(RecipeComparisons::Instance().Count(), 0);
    EXPECT_EQ(fishInSoup->data(MainPanes::ImageKeyRole).toString(), "RecipeFavorite");

    // Deleting asks first; No keeps it.
    ui.answer(Answer::No);
    w.RunCommand("mnuPOPDeleteRecipie");
    EXPECT_EQ(ui.lastBox().title, "Delete Recipe");
    EXPECT_EQ(ui.lastBox().buttons, Box::YesNo + Box::Question + Box::DefaultButton2);
    EXPECT_NE(Recipe("Fish", "Fish Stew"), nullptr);
    ui.answer(Answer::Yes);
    w.RunCommand("mnuPOPDeleteRecipie");
    EXPECT_EQ(Recipe("Fish", "Fish Stew"), nullptr);
    EXPECT_EQ(Recipe("Soup", "Fish Stew"), nullptr);
    rs.Open("SELECT * FROM Recipie WHERE [Title] = 'Fish Stew'", ConnectionMain(), adOpenKeyset, adLockReadOnly);
    EXPECT_EQ(rs.RecordCount(), 0);
    EXPECT_EQ(w.StatusPanelRecipes->text(), "Recipes: 2");
}

TEST_F(CommandTest, TheLowerRightPaneSwitchesWithItsMenuGroups) {
    frmMain w;
    auto* stack = w.findChild<QStackedWidget*>();
    ASSERT_NE(stack, nullptr);
    EXPECT_TRUE(w.ShowingCurrentList);
    EXPECT_TRUE(w.menus.value("mnuEditShopList")->isVisible());
    EXPECT_FALSE(w.menus.value("mnuEditMealList")->isVisible());

    w.mnuSAMMealListing_Click();
    EXPECT_FALSE(w.ShowingCurrentList);
    EXPECT_TRUE(stack->currentWidget()->isAncestorOf(w.tvMealList));
    EXPECT_FALSE(w.menus.value("mnuEditShopList")->isVisible());
    EXPECT_TRUE(w.menus.value("mnuEditMealList")->isVisible());
    EXPECT_TRUE(w.menus.value("mnuSAMMealListing")->isChecked());

    w.mnuSAMShoppingList_Click();
    EXPECT_TRUE(stack->currentWidget()->isAncestorOf(w.lvCurrentList));
    EXPECT_TRUE(w.menus.value("mnuEditShopList")->isVisible());
    EXPECT_TRUE(w.menus.value("mnuSAMShoppingList")->isChecked());
}

TEST_F(CommandTest, HeaderClicksAndTheSortButtonsSortTheActiveList) {
    frmMain w;
    QStandardItemModel& list = panes.currentList;
    list.setHorizontalHeaderLabels({"Item", "Quantity", "Size", "Style"});
    for (const QStringList& row : {QStringList{"Milk", "2", "gal", "Dairy"}, QStringList{"Apples", "6", "lb", "Fruit"},
                                   QStringList{"Bread", "1", "loaf", "Bakery"}}) {
        QList<QStandardItem*> cells;
        for (const QString& s : row) cells << new QStandardItem(s);
        list.appendRow(cells);
    }
    auto column = [&](int c) {
        QStringList out;
        for (int r = 0; r < list.rowCount(); ++r) out << list.item(r, c)->text();
        return out;
    };
    w.lvCurrentList->ColumnClick(3);
    EXPECT_EQ(w.lvCurrentList->SortKey(), 3);
    EXPECT_TRUE(w.lvCurrentList->Sorted());
    EXPECT_EQ(column(3), QStringList({"Fruit", "Dairy", "Bakery"}));
    w.lvCurrentList->ColumnClick(3);
    EXPECT_EQ(column(3), QStringList({"Bakery", "Dairy", "Fruit"}));

    // The toolbar acts on the list last used, by its current key.
    Q_EMIT w.lvCurrentList->becameActive();
    w.tbMain_ButtonClick("SortDsc");
    EXPECT_EQ(column(3), QStringList({"Fruit", "Dairy", "Bakery"}));
    w.lvCurrentList->SortKey(0);
    w.tbMain_ButtonClick("SortAsc");
    EXPECT_EQ(column(0), QStringList({"Apples", "Bread", "Milk"}));
    EXPECT_EQ(ui.count(), 0);
}

TEST_F(CommandTest, ReprintNeedsACopyOfTheLastReport) {
    frmMain w;
    ui.answer(Answer::OK);
    w.mnuReprintLastReport_Click();
    ASSERT_EQ(ui.count(), 1);
    EXPECT_EQ(ui.lastBox().title, "Notice");
    EXPECT_EQ(ui.lastBox().context, 1151);
    EXPECT_TRUE(ui.lastBox().prompt.startsWith("The last report cannot be printed because either there have been no "
                                               "Reports printed since Larderkeep was started"));

    // A copy that was moved away counts as none; so does REPORT_BACKUP off.
    LastReportFile = HomeFile("Gone.htm");
    ui.answer(Answer::OK);
    w.mnuReprintLastReport_Click();
    EXPECT_EQ(ui.count(), 2);
    {
        QFile f(HomeFile("Message.htm"));
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write("<html><body><h1>Call the plumber</h1></body></html>");
    }
    LastReportFile = HomeFile("Message.htm");
    Registry().SaveReportCopy(false);
    ui.answer(Answer::OK);
    w.mnuReprintLastReport_Click();
    EXPECT_EQ(ui.count(), 3);

    // With the copy there it prints; this machine has no printer, so as a PDF.
    Registry().SaveReportCopy(true);
    ui.answerFile(HomeFile("again.pdf"));
    w.mnuReprintLastReport_Click();
    EXPECT_TRUE(QFile::exists(HomeFile("again.pdf")));
    EXPECT_EQ(ui.prompts().size(), 3);
}

TEST_F(CommandTest, QuickStartChooserWritesTheCheckedKeysAndRefillsThePane) {
    Registry().QuickViewOptions("Coupon");
    Registry().AllowExplode(false);
    frmMain w;
    w.LoadQuickStart();
    frmQuickStart form(&w);
    ASSERT_EQ(form.lvQSItems->topLevelItemCount(), 9);
    EXPECT_EQ(form.lvQSItems->headerItem()->text(0), "Item");
    EXPECT_EQ(form.lvQSItems->headerItem()->text(1), "Description");
    EXPECT_EQ(form.lvQSItems->topLevelItem(0)->checkState(0), Qt::Checked);
    EXPECT_FALSE(form.Changed());

    form.lvQSItems->topLevelItem(7)->setCheckState(0, Qt::Checked);  // Nutrition
    EXPECT_TRUE(form.Changed());
    form.cmdApply_Click();
    EXPECT_EQ(Registry().QuickViewOptions(), "Coupon::Nutrition");
    EXPECT_EQ(panes.quickStart.rowCount(), 2);

    // Unsaved changes are asked about; No keeps the window open.
    form.show();
    form.lvQSItems->topLevelItem(0)->setCheckState(0, Qt::Unchecked);
    ui.answer(Answer::No);
    form.cmdClose_Click();
    EXPECT_EQ(ui.lastBox().prompt, "The Current List has changed and has not been saved. Do you wish to continue?");
    EXPECT_EQ(ui.lastBox().title, "Continue");
    EXPECT_TRUE(form.isVisible());
    ui.answer(Answer::Yes);
    form.cmdClose_Click();
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(Registry().QuickViewOptions(), "Coupon::Nutrition");

    // The popup entry opens the chooser modally; Save writes and closes.
    ui.answerModal([](QDialog* d) {
        auto* chooser = qobject_cast<frmQuickStart*>(d);
        if (!chooser) return int(QDialog::Rejected);
        chooser->lvQSItems->topLevelItem(0)->setCheckState(0, Qt::Unchecked);
        chooser->cmdSave_Click();
        return chooser->result();
    });
    w.mnuPOPSetQSItems_Click();
    EXPECT_EQ(Registry().QuickViewOptions(), "Nutrition");
    EXPECT_EQ(panes.quickStart.rowCount(), 1);
}

TEST_F(CommandTest, AQuickStartShortcutWithoutItsScreenSaysSo) {
    frmMain w;
    ui.answer(Answer::OK);
    w.lvQuickStart_DblClick("Coupon");
    EXPECT_EQ(ui.lastBox().prompt, "This feature will be added soon!");
    EXPECT_EQ(ui.lastBox().title, "Coming Soon");
}

TEST_F(CommandTest, TheOpeningEffectGrowsFromTheCentreAndHonoursTheSetting) {
    // A higher rate is faster: fewer steps.
    EXPECT_EQ(ExplodeSteps(500), 10);
    EXPECT_GT(ExplodeSteps(100), ExplodeSteps(500));
    EXPECT_LT(ExplodeSteps(2500), ExplodeSteps(500));
    EXPECT_GE(ExplodeSteps(32000), 2);
    EXPECT_EQ(ExplodeSteps(0), 50);

    const QRect target(100, 200, 400, 300);
    const QList<QRect> frames = ExplodeFrames(target, 4);
    ASSERT_EQ(frames.size(), 4);
    EXPECT_EQ(frames.last(), target);
    for (int i = 0; i + 1 < frames.size(); ++i) {
        EXPECT_LT(frames[i].width(), frames[i + 1].width());
        EXPECT_LE(qAbs(frames[i].center().x() - target.center().x()), 1);
        EXPECT_LE(qAbs(frames[i].center().y() - target.center().y()), 1);
    }

    // Off: only the saved place is put back.
    QWidget form;
    form.setObjectName("frmSample");
    form.resize(300, 200);
    SaveFormPosition(&form, 120, 240, 360, 80);
    Registry().AllowExplode(false);
    ExplodeForm(&form, 500);
    EXPECT_EQ(form.pos(), QPoint(80, 120));
    EXPECT_EQ(form.size(), QSize(360, 240));
    EXPECT_FALSE(form.isVisible());
    // On: the same place, and the window is left for its caller to show.
    Registry().AllowExplode(true);
    QWidget other;
    other.setObjectName("frmSample");
    ExplodeForm(&other, 500);
    EXPECT_EQ(other.pos(), QPoint(80, 120));
    EXPECT_FALSE(other.isVisible());
    other.show();
    ImplodeForm(&other, 500);
    EXPECT_FALSE(other.isVisible());
}

}  // namespace

TEST_F(CommandTest, MeasureAndMessageCommandsOpenTheirScreens) {
    frmMain w;
    QStringList opened;
    for (const char* name : {"mnuEditMeasureAbbreviations", "mnuEditConversionConstants", "mnuConvertmeasurements",
                             "mnuCalendarToday"}) {
        ASSERT_TRUE(Enabled(w, name)) << name;
        ui.answerModal([&](QDialog* dialog) {
            opened << dialog->metaObject()->className();
            return 0;
        });
        w.menus.value(name)->trigger();
    }
    EXPECT_EQ(opened, QStringList({"frmMeasureAbbreviations", "frmConversions", "frmConvertMeasures",
                                   "frmCalendarEvents"}));

    w.menus.value("mnuNewMassage")->trigger();
    ASSERT_EQ(ui.modeless().size(), 1);
    EXPECT_STREQ(ui.modeless().first()->metaObject()->className(), "frmMessageNew");
}

// The store, product and manufacturer commands reach their screens and classes.
namespace {

TEST_F(CommandTest, StoreProductAndManufacturerCommandsAreWired) {
    frmMain w;
    QStringList opened;
    auto record = [&](int answer) {
        ui.answerModal([&, answer](QDialog* dialog) {
            opened << dialog->metaObject()->className();
            return answer;
        });
    };
    for (const char* name : {"mnuEnterProduct", "mnuViewAllProducts", "mnuEditProduct"}) {
        record(0);
        w.menus.value(name)->trigger();
    }
    EXPECT_EQ(opened, QStringList({"frmProductNew", "frmProductListing", "frmProductListing"}));
    EXPECT_FALSE(Enabled(w, "mnuSetupStoreIsles"));  // the aisle setup screen is not there yet

    // New stores and categories are named in an input box; a name on file is refused, not doubled.
    ui.answerInput("Joe's");
    w.menus.value("mnuAddNewStore")->trigger();
    ui.answerInput("Joe's");
    ui.answer(Answer::OK);
    w.menus.value("mnuAddNewStore")->trigger();
    EXPECT_EQ(ui.lastBox().prompt, "Joe's is already on file.");
    ui.answerInput("  Kid's Snacks ");
    w.menus.value("mnuEnterItemCategories")->trigger();
    ui.answerInput("Kid's Snacks");
    ui.answer(Answer::OK);
    w.menus.value("mnuEnterItemCategories")->trigger();
    EXPECT_EQ(rows::Count("SELECT * FROM Store WHERE [Name] = 'Joe''s'"), 1);
    EXPECT_EQ(rows::Count("SELECT * FROM ItemCategory WHERE [Name] = 'Kid''s Snacks'"), 1);

    // A map imported from a file the person picks.
    const QString path = QDir(Home()).filePath("corner.gil");
    {
        QFile f(path);
        f.open(QIODevice::WriteOnly);
        f.write("Corner Shop,Dairy,Isle 1\r\n");
    }
    ui.answerFile(path);
    w.menus.value("mnuImportStoreMap")->trigger();
    Recordset rs;
    rs.Open("SELECT * FROM IsleMap WHERE [Store] = 'Corner Shop'", ConnectionMain(), adOpenKeyset, adLockReadOnly);
    EXPECT_FALSE(rs.IsEOF());
    rs.Close();

    // Exporting asks which store first.
    ui.answerModal([](QDialog* dialog) { return dialog->metaObject()->className() == QString("frmSelectStore") ? 1 : 0; });
    ui.answer(Answer::No);  // no mail
    w.menus.value("mnuExportStoreMap")->trigger();
    EXPECT_EQ(ui.lastBox().prompt, "Would you like to mail Corner Shop to someone?");

    // Manufacturer commands act on the selected manufacturer node.
    rs.Open("SELECT * FROM Manufacturer", ConnectionMain(), adOpenStatic, adLockOptimistic);
    rs.AddNew();
    rs.setField("Name", "Acme");
    rs.Update();
    rs.Close();
    w.LoadAllCoupons();
    MainPanes& panes = MainPanes::Instance();
    QStandardItem* acme = panes.FindByKey(panes.coupons, "Acme");
    ASSERT_NE(acme, nullptr);
    w.SetCouponPopup(acme);
    EXPECT_TRUE(Enabled(w, "mnuRenameManufacturer"));
    EXPECT_FALSE(Enabled(w, "mnuPOPDeleteCoupon"));
    w.tvCoupons->setCurrentIndex(acme->index());
    ui.answerInput("Acme & Sons");
    w.menus.value("mnuRenameManufacturer")->trigger();
    EXPECT_NE(panes.FindByKey(panes.coupons, "Acme & Sons"), nullptr);
    EXPECT_EQ(panes.FindByKey(panes.coupons, "Acme"), nullptr);

    w.tvCoupons->setCurrentIndex(panes.FindByKey(panes.coupons, "Acme & Sons")->index());
    w.menus.value("mnuDeleteManufacturer")->trigger();  // no products: nothing to ask
    EXPECT_EQ(panes.FindByKey(panes.coupons, "Acme & Sons"), nullptr);
}

}  // namespace
