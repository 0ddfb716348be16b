// Menus, toolbars, popups, sorting, the quick start chooser and the window
// effects of the main window.
#include "app/frmQuickStart.h"
#include "core/ListView.h"
#include "core/clsRegistry.h"
#include "core/modEffects.h"
#include "coupons/frmAllCoupons.h"
#include "support/MainWindowTest.h"

#include <QAbstractItemModel>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QMenuBar>
#include <QStackedWidget>
#include <QToolBar>
#include <QTreeWidget>

namespace {

using CommandTest = MainWindowTest;

TEST_F(CommandTest, EveryCommandIsInTheMenusAndOnlyBuiltOnesAreEnabled) {
    frmMain w;
    for (const char* name : {"mnuFile",
                             "mnuNewItem",
                             "mnuOpenCookbook",
                             "mnuCloseCookbook",
                             "mnuView",
                             "mnuCalendarToday",
                             "mnuViewExportedFile",
                             "mnuReprintLastReport",
                             "mnuExit",
                             "mnuCoupons",
                             "mnuPurgeCoupons",
                             "mnuPrintCouponList",
                             "mnuProductS",
                             "mnuProductCostHistory",
                             "mnuCookbooks",
                             "mnuGenerateWebsite",
                             "mnuRecipies",
                             "mnuRecipeMeasurements",
                             "mnuConvertmeasurements",
                             "mnuFindRecipe",
                             "mnuSearchRecipeCenter",
                             "mnuSuggetRecipes",
                             "mnuSuggetARecipe",
                             "mnuBartendersGuide",
                             "mnuMeals",
                             "mnuMealCategories",
                             "mnuShoppingList",
                             "mnuSynchList",
                             "mnuEnterListData",
                             "mnuStores",
                             "mnuPrintStoreLayout",
                             "mnuMessages",
                             "mnuNewMassage",
                             "mnuExportMessageToOutlook",
                             "mnuNutrition",
                             "mnuGetItemInformation",
                             "mnuOptions",
                             "mnuOptionGeneral",
                             "mnuPrinterSetup",
                             "mnuHelp",
                             "mnuCheckForUpdates",
                             "mnuPOPDisplayRecipie",
                             "mnuRecipeCostInformation",
                             "mnuPOPEnterNew",
                             "mnuGroupCouponsByCategory",
                             "mnuSAMCurrentView",
                             "mnuSAMFindListItem",
                             "mnuPOPSetQSItems"})
        EXPECT_TRUE(w.menus.contains(name)) << name;
    EXPECT_EQ(Caption(w, "mnuSynchList"), "Snych Shopping List");
    EXPECT_EQ(Caption(w, "mnuOpenCookbook"), "Open/New Cookbook");
    EXPECT_EQ(Caption(w, "mnuOptionGeneral"), "General Settings");
    EXPECT_EQ(Caption(w, "mnuPOPSetQSItems"), "Set QS Items");
    // Screens that are not there yet are shown but rest.
    EXPECT_TRUE(w.menus.value("mnuPurgeCoupons")->isVisible());
    for (const auto& [name, enabled] : {std::pair{"mnuPurgeCoupons", false},
                                        {"mnuProductInventory", true},
                                        {"mnuEnterCoupon", true},
                                        {"mnuPOPEditRecipie", true},
                                        {"mnuSetupStoreIsles", true},
                                        {"mnuExit", true},
                                        {"mnuCloseCookbook", true},
                                        {"mnuReprintLastReport", true}})
        EXPECT_EQ(Enabled(w, name), enabled) << name;
    // The top menus follow the command table's order.
    QStringList tops;
    for (QAction* a : w.menuBar()->actions()) tops << a->objectName();
    EXPECT_EQ(tops,
              QStringList({"mnuFile", "mnuCoupons", "mnuProductS", "mnuCookbooks", "mnuRecipies", "mnuMeals",
                           "mnuShoppingList", "mnuStores", "mnuMessages", "mnuNutrition", "mnuOptions", "mnuHelp"}));
}

TEST_F(CommandTest, KeysWithoutAScreenSayComingSoonAndRestingCommandsDoNothing) {
    frmMain w;
    const QString menus = "Coming Soon: This feature will be added soon, please use the Menus.";
    const std::pair<std::function<void()>, QString> soon[] = {
        {[&] { w.tbMain_ButtonClick("Calendar"); }, menus},
        {[&] { w.tbMain_ButtonClick("Calculator"); }, menus},
        {[&] { w.tbReports_ButtonClick("SpendReport"); }, menus},
        {[&] { w.lvQuickStart_DblClick("RecurringLists"); }, "Coming Soon: This feature will be added soon!"},
    };
    for (const auto& [click, box] : soon) {
        ui.clear();
        ui.answer(Answer::OK);
        click();
        ASSERT_EQ(ui.count(), 1);
        EXPECT_EQ(LastBox(), box);
    }

    // A mapped key whose screen is not there does nothing, and its button follows its command.
    ui.clear();
    w.tbMain_ButtonClick("Website");
    EXPECT_EQ(ui.count(), 0);
    QAction* button = w.tbMain->findChild<QAction*>("Website");
    ASSERT_NE(button, nullptr);
    EXPECT_FALSE(button->isEnabled());
    w.menus.value("mnuGenerateWebsite")->setEnabled(true);
    EXPECT_TRUE(button->isEnabled());
}

TEST_F(CommandTest, TheRecipePopupNamesTheNodeItOpensOnAndItsViewsFilterTheTree) {
    frmMain w;
    LoadRecipes(w);
    QStandardItem* leek = RecipeNode("Soup", "Leek Soup");
    ASSERT_NE(leek, nullptr);
    QStandardItem* soup = panes.FindByKey(panes.recipes, "Soup");
    QStandardItem* dessert = panes.FindByKey(panes.recipes, "Dessert");

    w.SetRecipePopup(leek);
    EXPECT_EQ(Caption(w, "mnuPOPDisplayRecipie"), "Display Leek Soup");
    EXPECT_EQ(Caption(w, "mnuPOPEditRecipie"), "Edit Leek Soup");
    EXPECT_EQ(Caption(w, "mnuPOPDeleteRecipie"), "Delete Leek Soup");
    EXPECT_EQ(Caption(w, "mnuPOPShowRecipesInCategory"), "Show Recipes in Soup");
    EXPECT_EQ(Caption(w, "mnuPOPDisplayFavorites"), "Display Favorites");
    EXPECT_EQ(Caption(w, "mnuPOPExpandView"), "Expand View");
    EXPECT_TRUE(Enabled(w, "mnuPOPDeleteRecipie"));
    EXPECT_TRUE(Enabled(w, "mnuPOPDisplayRecipie"));

    w.SetRecipePopup(dessert);
    EXPECT_EQ(Caption(w, "mnuPOPShowRecipesInCategory"), "Show Recipes in Dessert");
    EXPECT_EQ(Caption(w, "mnuPOPDisplayRecipie"), "Display Recipe");
    EXPECT_FALSE(Enabled(w, "mnuPOPDeleteRecipie"));
    EXPECT_FALSE(Enabled(w, "mnuPOPDisplayRecipie"));
    w.SetRecipePopup(panes.FindByKey(panes.recipes, "Root"));
    EXPECT_EQ(Caption(w, "mnuPOPShowRecipesInCategory"), "Show Recipes in Category");
    EXPECT_FALSE(Enabled(w, "mnuPOPShowRecipesInCategory"));

    // Favourites only, then one category only: each entry offers the way back.
    w.mnuPOPDisplayFavorites_Click();
    w.SetRecipePopup(leek);
    EXPECT_EQ(Caption(w, "mnuPOPDisplayFavorites"), "Display All Recipes");
    EXPECT_TRUE(Hidden(w.tvRecipes, soup));  // no favourite there
    w.mnuPOPDisplayFavorites_Click();
    EXPECT_FALSE(Hidden(w.tvRecipes, soup));

    w.tvRecipes->setCurrentIndex(leek->index());
    w.mnuPOPShowRecipesInCategory_Click();
    w.SetRecipePopup(leek);
    EXPECT_EQ(Caption(w, "mnuPOPShowRecipesInCategory"), "Display All Recipes");
    EXPECT_TRUE(Hidden(w.tvRecipes, dessert));
    EXPECT_FALSE(Hidden(w.tvRecipes, soup));
    w.mnuPOPShowRecipesInCategory_Click();
    EXPECT_FALSE(Hidden(w.tvRecipes, dessert));

    w.mnuPOPExpandView_Click();
    w.SetRecipePopup(leek);
    EXPECT_EQ(Caption(w, "mnuPOPExpandView"), "Collapse View");
}

TEST_F(CommandTest, FavouriteComparisonAndDeletionActOnTheSelectedRecipe) {
    frmMain w;
    LoadRecipes(w);
    QStandardItem* fishInSoup = RecipeNode("Soup", "Fish Stew");
    w.tvRecipes->setCurrentIndex(fishInSoup->index());

    w.RunCommand("mnuPOPToggleFavorite");
    EXPECT_TRUE(rows::Field("Recipie", "Title", "Fish Stew", "Favorite").toBool());
    // Both of its nodes follow.
    EXPECT_EQ(RecipeNode("Fish", "Fish Stew")->data(MainPanes::TagRole).toString(), "RecipeFavorite");
    EXPECT_EQ(fishInSoup->data(MainPanes::ImageKeyRole).toString(), "RecipeFavorite");

    w.RunCommand("mnuPOPAddRecipeToComparison");
    EXPECT_EQ(RecipeComparisons::Instance().Titles(), QStringList({"Fish Stew"}));
    EXPECT_EQ(RecipeNode("Fish", "Fish Stew")->data(MainPanes::ImageKeyRole).toString(), "RecipeCompareFavorite");
    w.RunCommand("mnuClearRecipeComparasions");
    EXPECT_EQ(RecipeComparisons::Instance().Count(), 0);
    EXPECT_EQ(fishInSoup->data(MainPanes::ImageKeyRole).toString(), "RecipeFavorite");

    // Deleting asks first; No keeps it.
    ui.answer(Answer::No);
    w.RunCommand("mnuPOPDeleteRecipie");
    EXPECT_EQ(ui.lastBox().title, "Delete Recipe");
    EXPECT_EQ(ui.lastBox().buttons, Box::YesNo + Box::Question + Box::DefaultButton2);
    EXPECT_NE(RecipeNode("Fish", "Fish Stew"), nullptr);
    ui.answer(Answer::Yes);
    w.RunCommand("mnuPOPDeleteRecipie");
    EXPECT_EQ(RecipeNode("Fish", "Fish Stew"), nullptr);
    EXPECT_EQ(RecipeNode("Soup", "Fish Stew"), nullptr);
    EXPECT_EQ(rows::Count("SELECT * FROM Recipie WHERE [Title] = 'Fish Stew'"), 0);
    EXPECT_EQ(w.StatusPanelRecipes->text(), "Recipes: 2");
}

TEST_F(CommandTest, TheLowerRightPaneSwitchesWithItsMenuGroupsAndItsListSorts) {
    frmMain w;
    auto* stack = w.findChild<QStackedWidget*>();
    ASSERT_NE(stack, nullptr);
    auto visible = [&](const char* name) { return w.menus.value(name)->isVisible(); };
    EXPECT_TRUE(w.ShowingCurrentList);
    EXPECT_TRUE(visible("mnuEditShopList"));
    EXPECT_FALSE(visible("mnuEditMealList"));

    w.mnuSAMMealListing_Click();
    EXPECT_FALSE(w.ShowingCurrentList);
    EXPECT_TRUE(stack->currentWidget()->isAncestorOf(w.tvMealList));
    EXPECT_FALSE(visible("mnuEditShopList"));
    EXPECT_TRUE(visible("mnuEditMealList"));
    EXPECT_TRUE(w.menus.value("mnuSAMMealListing")->isChecked());

    w.mnuSAMShoppingList_Click();
    EXPECT_TRUE(stack->currentWidget()->isAncestorOf(w.lvCurrentList));
    EXPECT_TRUE(visible("mnuEditShopList"));
    EXPECT_TRUE(w.menus.value("mnuSAMShoppingList")->isChecked());

    // Header clicks sort the list, twice turns it around.
    QStandardItemModel& list = panes.currentList;
    list.setHorizontalHeaderLabels({"Item", "Quantity", "Size", "Style"});
    for (const char* row : {"Milk|2|gal|Dairy", "Apples|6|lb|Fruit", "Bread|1|loaf|Bakery"}) {
        QList<QStandardItem*> cells;
        for (const QString& s : QString(row).split('|')) cells << new QStandardItem(s);
        list.appendRow(cells);
    }
    w.lvCurrentList->ColumnClick(3);
    EXPECT_EQ(w.lvCurrentList->SortKey(), 3);
    EXPECT_TRUE(w.lvCurrentList->Sorted());
    EXPECT_EQ(Cells(list, 3), QStringList({"Fruit", "Dairy", "Bakery"}));
    w.lvCurrentList->ColumnClick(3);
    EXPECT_EQ(Cells(list, 3), QStringList({"Bakery", "Dairy", "Fruit"}));

    // The toolbar acts on the list last used, by its current key.
    Q_EMIT w.lvCurrentList->becameActive();
    w.tbMain_ButtonClick("SortDsc");
    EXPECT_EQ(Cells(list, 3), QStringList({"Fruit", "Dairy", "Bakery"}));
    w.lvCurrentList->SortKey(0);
    w.tbMain_ButtonClick("SortAsc");
    EXPECT_EQ(Cells(list, 0), QStringList({"Apples", "Bread", "Milk"}));
    EXPECT_EQ(ui.count(), 0);
}

TEST_F(CommandTest, ReprintNeedsACopyOfTheLastReport) {
    frmMain w;
    QFile copy(HomeFile("Message.htm"));
    ASSERT_TRUE(copy.open(QIODevice::WriteOnly));
    copy.write("<html><body><h1>Call the plumber</h1></body></html>");
    copy.close();
    // None printed yet, a copy moved away, and a copy while REPORT_BACKUP is off all count as none.
    const std::pair<QString, bool> none[] = {{"", true}, {HomeFile("Gone.htm"), true}, {copy.fileName(), false}};
    for (const auto& [file, keepCopies] : none) {
        LastReportFile = file;
        Registry().SaveReportCopy(keepCopies);
        ui.clear();
        ui.answer(Answer::OK);
        w.mnuReprintLastReport_Click();
        ASSERT_EQ(ui.count(), 1) << file.toStdString();
        EXPECT_EQ(ui.lastBox().title, "Notice");
        EXPECT_EQ(ui.lastBox().context, 1151);
        EXPECT_TRUE(
            ui.lastBox().prompt.startsWith("The last report cannot be printed because either there have "
                                           "been no Reports printed since Larderkeep was started"));
    }
    // With the copy there it prints; this machine has no printer, so as a PDF.
    Registry().SaveReportCopy(true);
    ui.clear();
    ui.answerFile(HomeFile("again.pdf"));
    w.mnuReprintLastReport_Click();
    EXPECT_TRUE(QFile::exists(HomeFile("again.pdf")));
    EXPECT_EQ(ui.prompts().size(), 0);
}

TEST_F(CommandTest, QuickStartShowsTheChosenKeysAndItsChooserWritesThem) {
    Registry().QuickViewOptions("Product::Coupon::Nutrition");
    Registry().AllowExplode(false);
    frmMain w;
    w.LoadQuickStart();
    // The pane keeps its own order, not the setting's.
    EXPECT_EQ(Cells(panes.quickStart, 0), QStringList({"New Coupon", "Nutrition", "New Product"}));
    QStringList keys;
    for (int r = 0; r < panes.quickStart.rowCount(); ++r)
        keys << panes.quickStart.item(r)->data(MainPanes::KeyRole).toString();
    EXPECT_EQ(keys, QStringList({"Coupon", "Nutrition", "Product"}));

    Registry().QuickViewOptions("Coupon");
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
    EXPECT_EQ(LastBox(), "Continue: The Current List has changed and has not been saved. Do you wish to continue?");
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
    Registry().QuickViewOptions("");
    w.LoadQuickStart();
    EXPECT_EQ(panes.quickStart.rowCount(), 0);
}

TEST_F(CommandTest, TheOpeningEffectGrowsFromTheCentreAndHonoursTheSetting) {
    // A higher rate is faster: fewer steps, and never none.
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

    // Off or on, the saved place is put back and the window is left for its caller to
    // show; closing hides it only when the effect is on.
    for (bool explode : {false, true}) {
        QWidget form;
        form.setObjectName("frmSample");
        form.resize(300, 200);
        if (!explode) SaveFormPosition(&form, 120, 240, 360, 80);
        Registry().AllowExplode(explode);
        ExplodeForm(&form, 500);
        EXPECT_EQ(form.pos(), QPoint(80, 120));
        EXPECT_EQ(form.size(), QSize(360, 240));
        EXPECT_FALSE(form.isVisible());
        form.show();
        ImplodeForm(&form, 500);
        EXPECT_EQ(form.isVisible(), !explode);
    }
}

TEST_F(CommandTest, CommandsOpenTheirScreensAndStoreCommandsReachTheirRows) {
    frmMain w;
    const std::pair<const char*, const char*> screens[] = {{"mnuEditMeasureAbbreviations", "frmMeasureAbbreviations"},
                                                           {"mnuEditConversionConstants", "frmConversions"},
                                                           {"mnuConvertmeasurements", "frmConvertMeasures"},
                                                           {"mnuCalendarToday", "frmCalendarEvents"},
                                                           {"mnuEnterProduct", "frmProductNew"},
                                                           {"mnuViewAllProducts", "frmProductListing"},
                                                           {"mnuEditProduct", "frmProductListing"}};
    for (const auto& [name, screen] : screens) {
        ASSERT_TRUE(Enabled(w, name)) << name;
        QString opened;
        ui.answerModal([&](QDialog* dialog) {
            opened = dialog->metaObject()->className();
            return 0;
        });
        w.menus.value(name)->trigger();
        EXPECT_EQ(opened, screen) << name;
    }
    w.menus.value("mnuNewMassage")->trigger();
    ASSERT_EQ(ui.modeless().size(), 1);
    EXPECT_STREQ(ui.modeless().first()->metaObject()->className(), "frmMessageNew");

    // New stores and categories are named in an input box; a name on file is refused, not doubled.
    const std::tuple<const char*, const char*, QString, QString> named[] = {
        {"mnuAddNewStore", "Store", "Joe's", "Joe's"},
        {"mnuEnterItemCategories", "ItemCategory", "  Kid's Snacks ", "Kid's Snacks"}};
    for (const auto& [menu, table, typed, name] : named) {
        ui.answerInput(typed);
        w.menus.value(menu)->trigger();
        ui.answerInput(name);
        ui.answer(Answer::OK);
        w.menus.value(menu)->trigger();
        EXPECT_EQ(LastBox(), "Exists: " + name + " is already on file.");
        EXPECT_EQ(rows::Count(QString("SELECT * FROM %1 WHERE [Name] = %2").arg(table, rows::Literal(name))), 1);
    }

    // A map imported from a file the person picks; exporting asks which store first.
    QFile map(QDir(Home()).filePath("corner.gil"));
    ASSERT_TRUE(map.open(QIODevice::WriteOnly));
    map.write("Corner Shop,Dairy,Isle 1\r\n");
    map.close();
    ui.answerFile(map.fileName());
    w.menus.value("mnuImportStoreMap")->trigger();
    EXPECT_EQ(rows::Count("SELECT * FROM IsleMap WHERE [Store] = 'Corner Shop'"), 1);
    ui.answerModal(
        [](QDialog* dialog) { return dialog->metaObject()->className() == QString("frmSelectStore") ? 1 : 0; });
    ui.answer(Answer::No);  // no mail
    w.menus.value("mnuExportStoreMap")->trigger();
    EXPECT_EQ(ui.lastBox().prompt, "Would you like to mail Corner Shop to someone?");

    // Manufacturer commands act on the selected manufacturer node.
    rows::Add("Manufacturer", {{"Name", "Acme"}});
    w.LoadAllCoupons();
    QStandardItem* acme = panes.FindByKey(panes.coupons, "Acme");
    ASSERT_NE(acme, nullptr);
    w.SetCouponPopup(acme);
    EXPECT_TRUE(Enabled(w, "mnuRenameManufacturer"));
    EXPECT_FALSE(Enabled(w, "mnuPOPDeleteCoupon"));
    w.tvCoupons->setCurrentIndex(acme->index());
    ui.answerInput("Acme & Sons");
    w.menus.value("mnuRenameManufacturer")->trigger();
    EXPECT_EQ(panes.FindByKey(panes.coupons, "Acme"), nullptr);
    QStandardItem* renamed = panes.FindByKey(panes.coupons, "Acme & Sons");
    ASSERT_NE(renamed, nullptr);
    w.tvCoupons->setCurrentIndex(renamed->index());
    w.menus.value("mnuDeleteManufacturer")->trigger();  // no products: nothing to ask
    EXPECT_EQ(panes.FindByKey(panes.coupons, "Acme & Sons"), nullptr);
}

TEST_F(CommandTest, CouponCommandsActOnTheSelectedCouponOrItsManufacturer) {
    frmMain w;
    MainPanes& panes = MainPanes::Instance();
    for (const char* maker : {"Joe's", "Acme"})
        rows::Add("Coupons", {{"Manufacturer", maker}, {"Product", "Oats"}, {"Size", "box"}, {"Quantity", "1"},
                              {"Value", "0.50"}, {"Expiration", "Never"}, {"Category", "Cereal"}});
    w.LoadAllCoupons();
    QStandardItem* joes = panes.FindByKey(panes.coupons, "Joe's");
    ASSERT_NE(joes, nullptr);
    ASSERT_TRUE(joes->hasChildren());
    QStandardItem* coupon = joes->child(0);
    w.SetCouponPopup(joes);
    EXPECT_FALSE(Enabled(w, "mnuPOPEditCoupon"));
    w.SetCouponPopup(coupon);
    for (const char* name : {"mnuPOPDisplayCoupon", "mnuPOPEditCoupon", "mnuPOPDeleteCoupon"})
        EXPECT_TRUE(Enabled(w, name)) << name;

    // The card and the entry screen are handed the coupon under the cursor.
    w.tvCoupons->setCurrentIndex(coupon->index());
    QStringList seen;
    for (const char* name : {"mnuPOPDisplayCoupon", "mnuPOPEditCoupon"}) {
        ui.answerModal([&](QDialog* dialog) {
            seen << dialog->metaObject()->className();
            const QList<QComboBox*> boxes = dialog->findChildren<QComboBox*>("cboManufacturer");
            if (!boxes.isEmpty()) seen << boxes.first()->currentText();
            return 0;
        });
        w.menus.value(name)->trigger();
    }
    EXPECT_EQ(seen, QStringList({"frmCouponQuickView", "frmNewCoupon", "Joe's"}));

    // The manufacturer's search lists that maker's coupons only, beside the main window.
    w.menus.value("mnuFindCouponsFor")->trigger();
    ASSERT_EQ(ui.modeless().size(), 1);
    auto* list = qobject_cast<frmAllCoupons*>(ui.modeless().first().data());
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->CouponCount(), 1);
    EXPECT_EQ(list->Model()->index(0, frmAllCoupons::colManufacturer).data().toString(), "Joe's");
}

}  // namespace
