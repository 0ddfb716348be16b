// The main window's frame: menus, popups, toolbars, the panes and their layout,
// the status bar, sorting and the commands that need no screen of their own.
#include "app/frmMain.h"

#include "app/frmQuickStart.h"
#include "core/ChangeNotices.h"
#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/ListView.h"
#include "core/MainPanes.h"
#include "core/PaneIcons.h"
#include "core/Values.h"
#include "core/clsRegistry.h"
#include "core/modEffects.h"
#include "coupons/CouponCommands.h"
#include "lists/ListCommands.h"
#include "lists/PrintCommands.h"
#include "lists/UpdateCommands.h"
#include "meals/MealCommands.h"
#include "measures/MeasureCommands.h"
#include "messages/MessageCommands.h"
#include "messages/MessagePane.h"
#include "platform/Clock.h"
#include "platform/Ui.h"
#include "products/ProductCommands.h"
#include "recipes/RecipeCommands.h"
#include "recipes/SearchCommands.h"
#include "stores/StoreCommands.h"

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QCalendarWidget>
#include <QCloseEvent>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHeaderView>
#include <QLabel>
#include <QListView>
#include <QMenuBar>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QScrollBar>
#include <QSplitter>
#include <QStackedWidget>
#include <QStatusBar>
#include <QStyle>
#include <QTableView>
#include <QTextCharFormat>
#include <QTextDocument>
#include <QTimer>
#include <QToolBar>
#include <QTreeView>
#include <QVBoxLayout>

namespace {

// A menu entry, or a submenu when it has entries of its own. "-" separates.
struct Item {
    const char* name;
    const char* caption;
    std::vector<Item> entries = {};
};

// The top menus in order. Entries whose screens are not part of the program
// yet stay visible but disabled, so the menus already read as they will.
const std::vector<Item>& MenuTable() {
    static const std::vector<Item> table = {
        {"mnuFile",
         "&File",
         {{"mnuNewItem", "New .."},
          {"mnuOpenCookbook", "Open/New Cookbook"},
          {"mnuCloseCookbook", "Close Cookbook"},
          {"mnuView", "View", {{"mnuCalendarToday", "Todays Events"}, {"mnuViewExportedFile", "Exported Files"}}},
          {"-", ""},
          {"mnuReprintLastReport", "Reprint last Report"},
          {"-", ""},
          {"mnuExit", "Exit"}}},
        {"mnuCoupons",
         "&Coupons",
         {{"mnuEnterCoupon", "Enter Coupons"},
          {"mnuViewAllCoupons", "View All Coupons"},
          {"mnuDelivery", "Delivery Coupons"},
          {"mnuCouponPendingExpirations", "Pending Expirations"},
          {"mnuCheapMeals", "Cheap Meals"},
          {"-", ""},
          {"mnuPurgeCoupons", "Purge Expired Coupons"},
          {"mnuPrintCouponList", "Print Coupon List"}}},
        {"mnuProductS",
         "&Products",
         {{"mnuEnterProduct", "Enter Product"},
          {"mnuEditProduct", "Edit Product"},
          {"mnuEditProductDetail", "Edit Product Detail"},
          {"mnuEnterProductCost", "Enter Product Cost"},
          {"mnuViewAllProducts", "View All Products"},
          {"mnuPrintProductList", "Print Product List"},
          {"-", ""},
          {"mnuProductInventory", "Inventory"},
          {"mnuPrintInventoryReport", "Print Inventory Report"},
          {"mnuPrintInventoryWorkSheet", "Print Inventory Worksheet"},
          {"-", ""},
          {"mnuExportProduct", "Export"},
          {"mnuSynchToPalmDatabase", "Synch to Palm Database"},
          {"-", ""},
          {"mnuProductSpendingReport", "Spending Analysis"},
          {"mnuProductSpendingHistory", "Spending History"},
          {"mnuProductCostHistory", "Item Cost History"}}},
        {"mnuCookbooks",
         "Coo&kbooks",
         {{"mnuNewCookbook", "New Cookbook"},
          {"mnuAllCookbooks", "All Cookbooks"},
          {"mnuMoveRecipies", "Move Recipes"},
          {"mnuGenerateWebsite", "Generate Website"},
          {"-", ""},
          {"mnuPrintEntireCookbook", "Print Entire Cookbook"},
          {"mnuPrintCookbookRecipeList", "Print Cookbook Recipe List"}}},
        {"mnuRecipies",
         "&Recipes",
         {{"mnuEnterRecipies", "Enter Recipes"},
          {"mnuViewRecipies", "View Recipes"},
          {"mnuRemoveErrors", "Remove Errors"},
          {"mnuImportRecipies", "Import Recipes"},
          {"mnuEditRecipeCookbook", "Change Recipe Cookbook"},
          {"mnuRecStyles", "Recipe Categories"},
          {"mnuCourseMapping", "Course Mapping"},
          {"mnuRecipeMeasurements",
           "Measurements",
           {{"mnuEditMeasureAbbreviations", "Abbreviations"},
            {"mnuEditConversionConstants", "Conversion Constants"},
            {"mnuConvertmeasurements", "Convert Measurements"}}},
          {"-", ""},
          {"mnuFindRecipe",
           "Find Recipe",
           {{"mnuPOPSearchCurrentCookbook", "Search Current Cookbook"},
            {"mnuPOPRecipeAdvancedSearch", "Advanced Search"},
            {"mnuSearchRecipeCenter", "Search Recipe Center"},
            {"mnuBrowseRecipePhoto", "Browse Recipe Photos"}}},
          {"mnuSuggetRecipes",
           "Suggest Recipes",
           {{"mnuSuggestUsingInventory", "Using Inventory"}, {"mnuSuggetARecipe", "Suggest a Recipe"}}},
          {"mnuCrossRecWithCoupons", "Cross Recipes with Coupons"},
          {"-", ""},
          {"mnuImportImages", "Recipe Images"},
          {"mnuRecipeComparaisons", "Recipe Comparisons"},
          {"mnuClearRecipeComparasions", "Clear Recipe Comparisons"},
          {"mnuExportRecipies", "Export Recipes"},
          {"mnuIngredientSubstitutions", "Ingredient Substitutions"},
          {"mnuBartendersGuide", "Bartender's Guide"}}},
        {"mnuMeals",
         "&Meals",
         {{"mnuViewMeals", "View Meals"},
          {"mnuNewMeal", "New Meal"},
          {"mnuViewRecipePrefs", "Recipe Preferences"},
          {"mnuCreateCalendar", "Create Calendar"},
          {"mnuExportToCalendarInOutlook", "Export to Calendar"},
          {"mnuPurgeExpiredMeals", "Purge Expired Meals"},
          {"mnuMealCategories", "Meal Categories"}}},
        {"mnuShoppingList",
         "&Lists",
         {{"mnuGenerateList", "Generate List"},
          {"mnuRecurringLists", "Recurring Lists"},
          {"mnuViewCurrent", "View Current List"},
          {"mnuSearchShoppingList", "Search Shopping Lists"},
          {"-", ""},
          {"mnuEnterListItem", "Enter List Item"},
          {"mnuEditList", "Edit List"},
          {"mnuEditCurrentList", "Edit Current List"},
          {"-", ""},
          {"mnuPrintCurrentList", "Print Current List"},
          {"mnuListByCategory", "List by Category"},
          {"mnuListByStore", "List by Store"},
          {"mnuPrintListForAllStores", "Print List for All Stores"},
          {"mnuEditCustomLayout", "Edit Custom Layout"},
          {"mnuFaxShoppingList", "Fax Shopping List"},
          {"-", ""},
          {"mnuExportCurrentShoppingList", "Export Current List"},
          {"mnuSynchList", "Snych Shopping List"},
          {"mnuImportShoppingList", "Import Shopping List"},
          {"mnuEnterListData", "Enter List Data"}}},
        {"mnuStores",
         "&Stores",
         {{"mnuAddNewStore", "Add New Store"},
          {"mnuSetupStoreIsles", "Setup Store Isles"},
          {"mnuImportStoreMap", "Import Store Map"},
          {"mnuExportStoreMap", "Export Store Map"},
          {"mnuDisplayAllStores", "Display All Stores"},
          {"mnuEnterItemCategories", "Item Categories"},
          {"mnuPrintStoreLayout", "Print Store Layout"}}},
        {"mnuMessages",
         "Messa&ge",
         {{"mnuMessageDisplay", "Display Message"},
          {"mnuNewMassage", "New Message"},
          {"mnuEditMessage", "Edit Message"},
          {"mnuDeleteMessage", "Delete Message"},
          {"mnuPrintMessage", "Print Message"},
          {"-", ""},
          {"mnuPurgeMessages", "Purge Expired Messages"},
          {"mnuExportMessageToOutlook", "Export to Calendar"}}},
        {"mnuNutrition",
         "&Nutrition",
         {{"mnuFindItemNutrition", "Find Item Nutrition"},
          {"mnuDisplayNutrition", "Display Nutrition"},
          {"mnuEnterNutritionItem", "Enter Nutrition Item"},
          {"mnuGetItemInformation", "Get Item Information"}}},
        {"mnuOptions",
         "&Options",
         {{"mnuOptionGeneral", "General Settings"},
          {"mnuSystemDisplay", "System Display"},
          {"mnuPrinterSetup", "Printer Setup"}}},
        {"mnuHelp",
         "&Help",
         {{"mnuHelpContents", "Contents"},
          {"mnuHelpSearch", "Search for Help On..."},
          {"mnuTipODay", "Tip of the Day"},
          {"mnuAddMyTip", "Add My Tip"},
          {"-", ""},
          {"mnuAbout", "About Larderkeep"},
          {"mnuLarderkeepInternet", "Larderkeep on the Internet"},
          {"mnuCheckForUpdates", "Check for Updates"}}},
    };
    return table;
}

// The popups, each a menu of its own that never shows in the menu bar.
const std::vector<Item>& PopupTable() {
    static const std::vector<Item> table = {
        {"mnuPopupRecipies",
         "Recipes",
         {{"mnuPOPDisplayRecipie", "Display Recipe"},
          {"mnuPOPEditRecipie", "Edit Recipe"},
          {"mnuPOPRenameRecipie", "Rename Recipe"},
          {"mnuPOPDeleteRecipie", "Delete Recipe"},
          {"-", ""},
          {"mnuPOPAddRecipeCategory", "Add to a Category"},
          {"mnuPOPFindRecipie", "Find Recipe"},
          {"mnuPOPExpandView", "Expand View"},
          {"-", ""},
          {"mnuPOPPrintRecipie", "Print Recipe"},
          {"mnuPOPPrintPreview", "Print Preview"},
          {"-", ""},
          {"mnuPOPToggleFavorite", "Toggle Favorite"},
          {"mnuPOPDisplayFavorites", "Display Favorites"},
          {"mnuPOPShowRecipesInCategory", "Show Recipes in Category"},
          {"-", ""},
          {"mnuPOPAddRecipeToComparison", "Add to Recipe Comparison"},
          {"mnuPOPRecipieAddToShopList", "Add to Shopping List"},
          {"mnuFindRecipeCoupon", "Find Coupons for Recipe"},
          {"mnuGetRecipeNutrition", "Nutrition Information"},
          {"mnuRecipeCostInformation", "Cost Information"}}},
        {"mnuCouponPopup",
         "Coupons",
         {{"mnuPOPEnterNew", "New Coupon"},
          {"mnuPOPDisplayCoupon", "Display Coupon"},
          {"mnuPOPEditCoupon", "Edit Coupon"},
          {"mnuPOPDeleteCoupon", "Delete Coupon"},
          {"-", ""},
          {"mnuFindCouponsFor", "Find Coupons for Manufacturer"},
          {"mnuRenameManufacturer", "Rename Manufacturer"},
          {"mnuDeleteManufacturer", "Delete Manufacturer"},
          {"mnuPOPShowProducts", "Show Products"},
          {"-", ""},
          {"mnuPOPLaunchPurge", "Purge Expired Coupons"},
          {"mnuGroupCouponsByCategory", "Group Coupons by Category"}}},
        {"mnuShopListAndMeals",
         "List and Meals",
         {{"mnuSAMCurrentView",
           "Current View",
           {{"mnuSAMShoppingList", "Shopping List"}, {"mnuSAMMealListing", "Meal Listing"}}},
          {"-", ""},
          {"mnuEditShopList",
           "Shopping List",
           {{"mnuSAMEditShopList", "Edit List"},
            {"mnuSAMPrintShopList", "Print List"},
            {"mnuSAMDelShopList", "Delete List"}}},
          {"mnuEditMealList", "Meals", {{"mnuSAMEditMealList", "Edit Meal"}}},
          {"mnuSAMFindListItem", "Find Item"}}},
        {"mnuPOPQuickStart", "Quick Start", {{"mnuPOPSetQSItems", "Set QS Items"}}},
    };
    return table;
}

// Toolbar keys and the menu command each one runs.
const QMap<QString, QString>& ToolbarCommands() {
    static const QMap<QString, QString> map = {
        {"OpenCookbook", "mnuOpenCookbook"},
        {"NewCookbook", "mnuNewCookbook"},
        {"NewRecipe", "mnuEnterRecipies"},
        {"CourseMapping", "mnuCourseMapping"},
        {"RecipePref", "mnuViewRecipePrefs"},
        {"NewProduct", "mnuEnterProduct"},
        {"Inventory", "mnuProductInventory"},
        {"NewCoupon", "mnuEnterCoupon"},
        {"NewMeal", "mnuNewMeal"},
        {"NewMessage", "mnuNewMassage"},
        {"Nutrition", "mnuDisplayNutrition"},
        {"Website", "mnuGenerateWebsite"},
        {"TipODay", "mnuTipODay"},
        {"Options", "mnuOptionGeneral"},
        {"Help", "mnuHelpContents"},
    };
    return map;
}

const QMap<QString, QString>& ReportToolbarCommands() {
    static const QMap<QString, QString> map = {
        {"InvReport", "mnuPrintInventoryReport"},
        {"ShopListReport", "mnuPrintCurrentList"},
        {"ProductReport", "mnuPrintProductList"},
        {"CouponReport", "mnuPrintCouponList"},
    };
    return map;
}

// Quick-start keys and the command each one stands for.
const QMap<QString, QString>& QuickStartCommands() {
    static const QMap<QString, QString> map = {
        {"Coupon", "mnuEnterCoupon"},         {"Delivery", "mnuDelivery"},
        {"Inventory", "mnuProductInventory"}, {"RecurringLists", "mnuRecurringLists"},
        {"IsleMap", "mnuSetupStoreIsles"},    {"ItemCategory", "mnuEnterItemCategories"},
        {"RecipeCat", "mnuRecStyles"},        {"Nutrition", "mnuDisplayNutrition"},
        {"Product", "mnuEnterProduct"},       {"ShopList", "mnuEditCurrentList"},
    };
    return map;
}

QLabel* Header(const QString& name, const QString& text, QWidget* parent) {
    auto* label = new QLabel(text, parent);
    label->setObjectName(name);
    label->setStyleSheet(
        QStringLiteral("QLabel { background: qlineargradient(x1:0, y1:0, x2:0, y2:1, stop:0 #4d7096, stop:1 #3a5878);"
                       " color: white; font-weight: bold; padding: 4px 4px; }"));
    return label;
}

QWidget* Pane(QLabel* header, QWidget* content, QWidget* parent) {
    auto* box = new QWidget(parent);
    auto* layout = new QVBoxLayout(box);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    if (header) layout->addWidget(header);
    layout->addWidget(content, 1);
    return box;
}

QTreeView* Tree(QStandardItemModel* model, const QString& name, QWidget* parent) {
    auto* view = new QTreeView(parent);
    view->setObjectName(name);
    view->setModel(model);
    view->setHeaderHidden(true);
    view->setUniformRowHeights(true);
    view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    view->setItemDelegate(new PaneIconDelegate(view));
    view->setContextMenuPolicy(Qt::CustomContextMenu);
    return view;
}

}  // namespace

// --- construction -----------------------------------------------------------

frmMain::frmMain(QWidget* parent) : QMainWindow(parent) {
    setObjectName(QStringLiteral("frmMain"));
    setWindowTitle(QStringLiteral("Larderkeep"));
    BuildMenus();
    BuildPopups();
    RegisterCommands();
    WireCommands();
    BuildToolbars();
    BuildPanes();
    BuildStatusBar();
    ListenToNotices();
    resize(1180, 800);
    SetMainWindow(this);
}

frmMain::~frmMain() {
    if (MainWindow() == this) SetMainWindow(nullptr);
}

// The window's own commands first, then each part of the program's.
void frmMain::RegisterCommands() {
    auto own = [this](const char* key, void (frmMain::*slot)()) {
        commands_.Add(QString::fromLatin1(key), [this, slot] { (this->*slot)(); });
    };
    own("mnuExit", &frmMain::mnuExit_Click);
    own("mnuReprintLastReport", &frmMain::mnuReprintLastReport_Click);
    own("mnuPOPExpandView", &frmMain::mnuPOPExpandView_Click);
    own("mnuPOPDisplayFavorites", &frmMain::mnuPOPDisplayFavorites_Click);
    own("mnuPOPShowRecipesInCategory", &frmMain::mnuPOPShowRecipesInCategory_Click);
    own("mnuPOPSetQSItems", &frmMain::mnuPOPSetQSItems_Click);
    own("mnuSAMShoppingList", &frmMain::mnuSAMShoppingList_Click);
    own("mnuSAMMealListing", &frmMain::mnuSAMMealListing_Click);
    CouponCommands::Register(commands_);
    ListCommands::Register(commands_);
    MealCommands::Register(commands_);
    MeasureCommands::Register(commands_);
    MessageCommands::Register(commands_);
    ProductCommands::Register(commands_);
    RecipeCommands::Register(commands_);
    StoreCommands::Register(commands_);
    UpdateCommands::Register(commands_);
    PrintCommands::Register(commands_);
    SearchCommands::Register(commands_);
    // A recipe's "list just for this item" opens in the list editor.
    RecipeCommands::SpecialListHook = [](const QString& title) { ListCommands::OpenSpecialList(title); };
}

void frmMain::WireCommands() {
    for (const QString& key : commands_.Keys()) {
        QAction* action = menus.value(key);
        if (!action) continue;
        action->setEnabled(true);
        action->setProperty("wired", true);
        connect(action, &QAction::triggered, this, [this, key] { RunCommand(key); });
    }
}

bool frmMain::RunCommand(const QString& key) { return commands_.Run(key); }

// Each change a screen or table class announces reaches the pane it concerns.
void frmMain::ListenToNotices() {
    ChangeNotices& notices = Notices();
    // A refresh that fails reports here: nothing may leave a notice unfinished.
    auto listen = [this, &notices](auto signal, void (frmMain::*refresh)(), const char* where) {
        connect(&notices, signal, this,
                [this, refresh, where] { Trap(QString::fromLatin1(where), [this, refresh] { (this->*refresh)(); }); });
    };
    listen(&ChangeNotices::LoadRecipies, &frmMain::LoadRecipies, "frmMain.LoadRecipies");
    listen(&ChangeNotices::LoadAllCoupons, &frmMain::LoadAllCoupons, "frmMain.LoadAllCoupons");
    listen(&ChangeNotices::LoadShoppingList, &frmMain::LoadShoppingList, "frmMain.LoadShoppingList");
    listen(&ChangeNotices::LoadMealList, &frmMain::LoadMealList, "frmMain.LoadMealList");
    listen(&ChangeNotices::LoadMessages, &frmMain::LoadMessages, "frmMain.LoadMessages");
    listen(&ChangeNotices::LoadQuickStart, &frmMain::LoadQuickStart, "frmMain.LoadQuickStart");
    listen(&ChangeNotices::SetCurrentInventory, &frmMain::SetCurrentInventory, "frmMain.SetCurrentInventory");
    listen(&ChangeNotices::SetCurrentRecipieCount, &frmMain::SetCurrentRecipieCount, "frmMain.SetCurrentRecipieCount");
    connect(&notices, &ChangeNotices::ApplyRecipeFilter, this, [this] {
        if (recipeFilter_ == RecipeFilter::Favorites) ApplyRecipeFilter();
    });
    connect(&notices, &ChangeNotices::SetCookbookPanel, this,
            [this](const QString& text) { StatusPanelCookbook->setText(text); });
    connect(&notices, &ChangeNotices::AddMessage, this, &frmMain::AddMessage);
    connect(&notices, &ChangeNotices::SetMessage, this, &frmMain::SetMessage);
    connect(&notices, &ChangeNotices::ShowNode, this, &frmMain::ShowNode);
}

namespace {

void AddEntries(QMenu* menu, const std::vector<Item>& entries, QMap<QString, QAction*>& menus) {
    for (const Item& e : entries) {
        const QString name = QString::fromUtf8(e.name);
        if (name == QLatin1String("-")) {
            menu->addSeparator();
            continue;
        }
        if (!e.entries.empty()) {
            QMenu* sub = menu->addMenu(QString::fromUtf8(e.caption));
            sub->setObjectName(name);
            sub->menuAction()->setObjectName(name);
            menus.insert(name, sub->menuAction());
            AddEntries(sub, e.entries, menus);
            continue;
        }
        QAction* action = menu->addAction(QString::fromUtf8(e.caption));
        action->setObjectName(name);
        action->setEnabled(false);
        menus.insert(name, action);
    }
}

}  // namespace

void frmMain::BuildMenus() {
    for (const Item& top : MenuTable()) {
        QMenu* menu = menuBar()->addMenu(QString::fromUtf8(top.caption));
        const QString name = QString::fromUtf8(top.name);
        menu->setObjectName(name);
        menu->menuAction()->setObjectName(name);
        menus.insert(name, menu->menuAction());
        AddEntries(menu, top.entries, menus);
    }
}

void frmMain::BuildPopups() {
    QMap<QString, QMenu*> popups;
    for (const Item& top : PopupTable()) {
        auto* menu = new QMenu(QString::fromUtf8(top.caption), this);
        menu->setObjectName(QString::fromUtf8(top.name));
        popups.insert(menu->objectName(), menu);
        AddEntries(menu, top.entries, menus);
    }
    mnuPopupRecipies = popups.value(QStringLiteral("mnuPopupRecipies"));
    mnuCouponPopup = popups.value(QStringLiteral("mnuCouponPopup"));
    mnuShopListAndMeals = popups.value(QStringLiteral("mnuShopListAndMeals"));
    mnuPOPQuickStart = popups.value(QStringLiteral("mnuPOPQuickStart"));

    // The two views of the lower right pane are one choice.
    auto* views = new QActionGroup(this);
    for (const char* name : {"mnuSAMShoppingList", "mnuSAMMealListing"}) {
        QAction* a = menus.value(QString::fromUtf8(name));
        a->setCheckable(true);
        views->addAction(a);
    }
    menus.value(QStringLiteral("mnuSAMShoppingList"))->setChecked(true);
    menus.value(QStringLiteral("mnuEditMealList"))->setVisible(false);
}

void frmMain::BuildToolbars() {
    tbMain = addToolBar(QStringLiteral("Main"));
    tbMain->setObjectName(QStringLiteral("tbMain"));
    tbMain->setIconSize(QSize(22, 22));
    struct Button {
        const char* key;
        const char* text;
        QString icon;  // a pane picture, or empty for the style's own
        QStyle::StandardPixmap standard;
    };
    const Button buttons[] = {
        {"OpenCookbook", "Open Cookbook", "Recipies", QStyle::SP_DirOpenIcon},
        {"NewCookbook", "New Cookbook", "", QStyle::SP_FileDialogNewFolder},
        {"NewRecipe", "New Recipe", "Recipe", QStyle::SP_FileIcon},
        {"CourseMapping", "Course Mapping", "RecipeCat", QStyle::SP_FileDialogListView},
        {"RecipePref", "Recipe Preferences", "RecipeFavorite", QStyle::SP_FileDialogInfoView},
        {"", "", "", QStyle::SP_CustomBase},
        {"NewProduct", "New Product", "Inventory", QStyle::SP_FileIcon},
        {"Inventory", "Inventory", "IsleMap", QStyle::SP_FileDialogDetailedView},
        {"NewCoupon", "New Coupon", "Coupon", QStyle::SP_FileIcon},
        {"NewMeal", "New Meal", "Meal", QStyle::SP_FileIcon},
        {"NewMessage", "New Message", "Message", QStyle::SP_MessageBoxInformation},
        {"Nutrition", "Nutrition", "Nutrition", QStyle::SP_FileIcon},
        {"Website", "Generate Website", "", QStyle::SP_DriveNetIcon},
        {"", "", "", QStyle::SP_CustomBase},
        {"SortAsc", "Sort Ascending", "", QStyle::SP_ArrowUp},
        {"SortDsc", "Sort Descending", "", QStyle::SP_ArrowDown},
        {"", "", "", QStyle::SP_CustomBase},
        {"TipODay", "Tip of the Day", "", QStyle::SP_MessageBoxQuestion},
        {"Options", "Options", "", QStyle::SP_FileDialogContentsView},
        {"Help", "Help", "", QStyle::SP_DialogHelpButton},
    };
    for (const Button& b : buttons) {
        const QString key = QString::fromUtf8(b.key);
        if (key.isEmpty()) {
            tbMain->addSeparator();
            continue;
        }
        const QIcon icon = b.icon.isEmpty() ? style()->standardIcon(b.standard) : PaneIcon(b.icon);
        QAction* a = tbMain->addAction(icon, QString::fromUtf8(b.text));
        a->setObjectName(key);
        connect(a, &QAction::triggered, this, [this, key] { tbMain_ButtonClick(key); });
        // A button stands for its menu command and rests while that does.
        if (QAction* command = menus.value(ToolbarCommands().value(key))) {
            a->setEnabled(command->isEnabled());
            connect(command, &QAction::enabledChanged, a, &QAction::setEnabled);
        }
    }

    tbReports = addToolBar(QStringLiteral("Reports"));
    tbReports->setObjectName(QStringLiteral("tbReports"));
    tbReports->setIconSize(QSize(22, 22));
    const struct {
        const char* key;
        const char* text;
        const char* icon;
    } reports[] = {{"InvReport", "Inventory Report", "Inventory"},
                   {"ShopListReport", "Shopping List Report", "ShopList"},
                   {"ProductReport", "Product Report", "ItemCategory"},
                   {"CouponReport", "Coupon Report", "Coupon"}};
    for (const auto& r : reports) {
        const QString key = QString::fromUtf8(r.key);
        QAction* a = tbReports->addAction(PaneIcon(QString::fromUtf8(r.icon)), QString::fromUtf8(r.text));
        a->setObjectName(key);
        connect(a, &QAction::triggered, this, [this, key] { tbReports_ButtonClick(key); });
        if (QAction* command = menus.value(ReportToolbarCommands().value(key))) {
            a->setEnabled(command->isEnabled());
            connect(command, &QAction::enabledChanged, a, &QAction::setEnabled);
        }
    }
}

void frmMain::BuildPanes() {
    MainPanes& panes = MainPanes::Instance();

    tvCoupons = Tree(&panes.coupons, QStringLiteral("tvCoupons"), this);
    tvRecipes = Tree(&panes.recipes, QStringLiteral("tvRecipes"), this);
    tvMealList = Tree(&panes.meals, QStringLiteral("tvMealList"), this);

    lvCurrentList = new ListView(this);
    lvCurrentList->setObjectName(QStringLiteral("lvCurrentList"));
    lvCurrentList->setModel(&panes.currentList);
    lvCurrentList->setItemDelegate(new PaneIconDelegate(lvCurrentList));
    lvCurrentList->setContextMenuPolicy(Qt::CustomContextMenu);
    lvCurrentList->setEditTriggers(QAbstractItemView::NoEditTriggers);

    lvMessageCenter = new ListView(this);
    lvMessageCenter->setObjectName(QStringLiteral("lvMessageCenter"));
    lvMessageCenter->setModel(&panes.messages);
    lvMessageCenter->setItemDelegate(new PaneIconDelegate(lvMessageCenter));
    lvMessageCenter->setContextMenuPolicy(Qt::CustomContextMenu);
    lvMessageCenter->setEditTriggers(QAbstractItemView::NoEditTriggers);

    // The views share the panes' selections, so commands read them without the window.
    tvCoupons->setSelectionModel(&panes.couponSelection);
    tvRecipes->setSelectionModel(&panes.recipeSelection);
    tvMealList->setSelectionModel(&panes.mealSelection);
    lvCurrentList->setSelectionModel(&panes.currentListSelection);
    lvMessageCenter->setSelectionModel(&panes.messageSelection);

    lvQuickStart = new QListView(this);
    lvQuickStart->setObjectName(QStringLiteral("lvQuickStart"));
    lvQuickStart->setModel(&panes.quickStart);
    lvQuickStart->setViewMode(QListView::IconMode);
    lvQuickStart->setMovement(QListView::Static);
    lvQuickStart->setResizeMode(QListView::Adjust);
    lvQuickStart->setWrapping(true);
    lvQuickStart->setIconSize(QSize(32, 32));
    lvQuickStart->setGridSize(QSize(104, 64));
    lvQuickStart->setWordWrap(true);
    lvQuickStart->setSpacing(2);
    lvQuickStart->setEditTriggers(QAbstractItemView::NoEditTriggers);
    lvQuickStart->setContextMenuPolicy(Qt::CustomContextMenu);

    calMeals = new QCalendarWidget(this);
    calMeals->setObjectName(QStringLiteral("calMeals"));
    calMeals->setGridVisible(true);
    calMeals->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    calMeals->setSelectedDate(Clock::Today());
    calendarView_ = calMeals->findChild<QTableView*>();
    connect(&panes, &MainPanes::mealDatesChanged, this, [this] {
        QTextCharFormat plain, bold;
        bold.setFontWeight(QFont::Bold);
        bold.setForeground(QColor(0x1d, 0x4e, 0x89));
        calMeals->setDateTextFormat(QDate(), plain);
        for (const QDate& d : MainPanes::Instance().boldMealDates) calMeals->setDateTextFormat(d, bold);
    });

    auto header = [this](const char* name, const char* text) {
        QLabel* label = Header(QString::fromUtf8(name), QString::fromUtf8(text), this);
        headers.insert(label->objectName(), label);
        return label;
    };

    left_ = new QSplitter(Qt::Vertical, this);
    left_->setChildrenCollapsible(false);
    left_->addWidget(Pane(header("lblCoupons", " Coupons"), tvCoupons, left_));
    left_->addWidget(Pane(header("lblRecipes", " Recipes"), tvRecipes, left_));
    left_->addWidget(Pane(header("lblMessageCenter", " Message Center"), lvMessageCenter, left_));

    right_ = new QWidget(this);
    auto* rightLayout = new QVBoxLayout(right_);
    rightLayout->setContentsMargins(0, 0, 0, 0);
    rightLayout->setSpacing(4);
    calendarPane_ = Pane(header("lblMealCalendar", " Meal Calendar"), calMeals, right_);
    quickStartPane_ = Pane(header("lblQuickStart", " Quick Start Menu"), lvQuickStart, right_);
    lowerRight_ = new QStackedWidget(right_);
    lowerRight_->addWidget(Pane(header("lblCurrentList", " Current Shopping List"), lvCurrentList, lowerRight_));
    lowerRight_->addWidget(Pane(nullptr, tvMealList, lowerRight_));
    rightLayout->addWidget(calendarPane_);
    rightLayout->addWidget(quickStartPane_);
    rightLayout->addWidget(lowerRight_, 1);

    columns_ = new QSplitter(Qt::Horizontal, this);
    columns_->setChildrenCollapsible(false);
    columns_->addWidget(left_);
    columns_->addWidget(right_);
    columns_->setObjectName(QStringLiteral("Columns"));
    left_->setObjectName(QStringLiteral("LeftColumn"));
    columns_->handle(1)->setObjectName(QStringLiteral("imgOne"));
    left_->handle(1)->setObjectName(QStringLiteral("imgTwo"));
    left_->handle(2)->setObjectName(QStringLiteral("imgNoteSplit"));
    columns_->setHandleWidth(6);
    left_->setHandleWidth(6);

    auto* central = new QWidget(this);
    auto* centralLayout = new QVBoxLayout(central);
    centralLayout->setContentsMargins(4, 4, 4, 0);
    centralLayout->addWidget(columns_);
    setCentralWidget(central);

    // A moved splitter keeps its new shares and the panes are sized again.
    connect(columns_, &QSplitter::splitterMoved, this, [this] {
        if (laying_) return;
        const QList<int> s = columns_->sizes();
        const int total = s.value(0) + s.value(1);
        if (total > 0) leftShare_ = double(s.value(0)) / total;
        LayoutPanes();
    });
    connect(left_, &QSplitter::splitterMoved, this, [this] {
        if (laying_) return;
        const QList<int> s = left_->sizes();
        const int total = s.value(0) + s.value(1) + s.value(2);
        if (total > 0) {
            couponShare_ = double(s.value(0)) / total;
            recipeShare_ = double(s.value(1)) / total;
        }
        LayoutPanes();
    });

    // Popups: a right click selects what is under the pointer first.
    connect(tvRecipes, &QWidget::customContextMenuRequested, this, [this](const QPoint& pos) {
        const QModelIndex index = tvRecipes->indexAt(pos);
        if (index.isValid()) tvRecipes->setCurrentIndex(index);
        SetRecipePopup(MainPanes::Instance().recipes.itemFromIndex(index));
        ShowPopup(mnuPopupRecipies, tvRecipes, pos);
    });
    connect(tvCoupons, &QWidget::customContextMenuRequested, this, [this](const QPoint& pos) {
        const QModelIndex index = tvCoupons->indexAt(pos);
        if (index.isValid()) tvCoupons->setCurrentIndex(index);
        SetCouponPopup(MainPanes::Instance().coupons.itemFromIndex(index));
        ShowPopup(mnuCouponPopup, tvCoupons, pos);
    });
    for (QAbstractItemView* view :
         {static_cast<QAbstractItemView*>(lvCurrentList), static_cast<QAbstractItemView*>(tvMealList)}) {
        connect(view, &QWidget::customContextMenuRequested, this, [this, view](const QPoint& pos) {
            const QModelIndex index = view->indexAt(pos);
            if (index.isValid()) view->setCurrentIndex(index);
            SetListAndMealsPopup();
            ShowPopup(mnuShopListAndMeals, view, pos);
        });
    }
    connect(lvQuickStart, &QWidget::customContextMenuRequested, this, [this](const QPoint& pos) {
        const QModelIndex index = lvQuickStart->indexAt(pos);
        if (index.isValid()) lvQuickStart->setCurrentIndex(index);
        ShowPopup(mnuPOPQuickStart, lvQuickStart, pos);
    });
    connect(lvMessageCenter, &QWidget::customContextMenuRequested, this, [this](const QPoint& pos) {
        const QModelIndex index = lvMessageCenter->indexAt(pos);
        if (index.isValid()) lvMessageCenter->setCurrentIndex(index);
        ShowPopup(menus.value(QStringLiteral("mnuMessages"))->menu(), lvMessageCenter, pos);
    });

    connect(lvQuickStart, &QAbstractItemView::doubleClicked, this,
            [this](const QModelIndex& index) { lvQuickStart_DblClick(index.data(MainPanes::KeyRole).toString()); });
    connect(lvMessageCenter, &QAbstractItemView::doubleClicked, this,
            [this] { RunCommand(QStringLiteral("mnuMessageDisplay")); });
    lvMessageCenter->installEventFilter(this);

    // The list toolbar's sort buttons act on the list last used.
    for (ListView* list : {lvCurrentList, lvMessageCenter})
        connect(list, &ListView::becameActive, this, [this, list] { activeList_ = list; });

    // Drags start from recipe nodes and end on the list, a day or a category.
    tvRecipes->setDragEnabled(false);
    tvRecipes->setAutoScroll(false);
    tvRecipes->viewport()->installEventFilter(this);
    tvRecipes->viewport()->setAcceptDrops(true);
    lvCurrentList->viewport()->installEventFilter(this);
    lvCurrentList->viewport()->setAcceptDrops(true);
    if (calendarView_) {
        calendarView_->viewport()->installEventFilter(this);
        calendarView_->viewport()->setAcceptDrops(true);
    }

    Timer1 = new QTimer(this);
    Timer1->setObjectName(QStringLiteral("Timer1"));
    Timer1->setInterval(80);
    connect(Timer1, &QTimer::timeout, this, &frmMain::Timer1_Timer);
    expandTimer_ = new QTimer(this);
    expandTimer_->setSingleShot(true);
    expandTimer_->setInterval(700);
    connect(expandTimer_, &QTimer::timeout, this, [this] {
        if (expandIndex_.isValid()) tvRecipes->expand(expandIndex_);
    });
    tmrReminders = new QTimer(this);
    tmrReminders->setObjectName(QStringLiteral("tmrReminders"));
}

void frmMain::BuildStatusBar() {
    StatusPanelMessage = new QLabel(this);
    StatusPanelMessage->setObjectName(QStringLiteral("Message"));
    StatusPanelCookbook = new QLabel(this);
    StatusPanelCookbook->setObjectName(QStringLiteral("Cookbook"));
    StatusPanelRecipes = new QLabel(this);
    StatusPanelRecipes->setObjectName(QStringLiteral("Recipes"));
    StatusPanelInventory = new QLabel(this);
    StatusPanelInventory->setObjectName(QStringLiteral("Inventory"));
    for (QLabel* panel : {StatusPanelMessage, StatusPanelCookbook, StatusPanelRecipes, StatusPanelInventory})
        panel->setContentsMargins(6, 0, 6, 0);
    statusBar()->addWidget(StatusPanelMessage, 3);
    statusBar()->addPermanentWidget(StatusPanelCookbook);
    statusBar()->addPermanentWidget(StatusPanelRecipes);
    statusBar()->addPermanentWidget(StatusPanelInventory);
}

// --- layout -------------------------------------------------------------------

void frmMain::LayoutPanes() {
    if (laying_) return;
    laying_ = true;
    // Left column: coupons, recipes, messages by their shares; right column:
    // the calendar at its natural height, the quick start for two rows of
    // shortcuts, and the current list (or the meal tree) taking what is left.
    const int width = qMax(400, columns_->width());
    const int minimumRight = calMeals->minimumSizeHint().width() + 8;
    int leftWidth = int(width * leftShare_);
    leftWidth = qBound(200, leftWidth, qMax(200, width - minimumRight));
    columns_->setSizes({leftWidth, width - leftWidth});

    const int height = qMax(300, left_->height());
    const int coupons = int(height * couponShare_);
    const int recipes = int(height * recipeShare_);
    left_->setSizes({coupons, recipes, qMax(60, height - coupons - recipes)});

    const int calendar = calMeals->sizeHint().height();
    calMeals->setFixedHeight(qMax(calendar, 170));
    // Up to two rows of shortcuts; a third scrolls.
    const int perRow = qMax(1, (width - leftWidth - 12) / lvQuickStart->gridSize().width());
    const int items = lvQuickStart->model()->rowCount();
    const int rows = qBound(1, (items + perRow - 1) / perRow, 2);
    lvQuickStart->setFixedHeight(rows * lvQuickStart->gridSize().height() + 2 * lvQuickStart->frameWidth() + 6);

    // The current list's columns keep their shares of its width.
    lvCurrentList->SetColumnShares({40, 18, 20, 20});
    laying_ = false;
}

void frmMain::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    LayoutPanes();
}

void frmMain::closeEvent(QCloseEvent* event) {
    if (ended_) {
        event->accept();
        return;
    }
    // Closing the window is the same as Exit, which may keep it open.
    event->ignore();
    mnuExit();
}

void frmMain::SetMessage(const QString& text) { StatusPanelMessage->setText(text); }

// --- toolbars -----------------------------------------------------------------

ListView* frmMain::ActiveList() const {
    QWidget* focus = QApplication::focusWidget();
    for (ListView* list : {lvCurrentList, lvMessageCenter})
        if (focus && (focus == list || list->isAncestorOf(focus))) return list;
    return activeList_;
}

void frmMain::tbMain_ButtonClick(const QString& key) {
    if (key == QLatin1String("SortAsc") || key == QLatin1String("SortDsc")) {
        if (ListView* list = ActiveList()) {
            list->SortOrder(key == QLatin1String("SortAsc") ? Qt::AscendingOrder : Qt::DescendingOrder);
            list->Sorted(true);
        }
        return;
    }
    const QString command = ToolbarCommands().value(key);
    if (QAction* action = menus.value(command)) {
        // "TipODay" and "Options" open their screens with the opening effect,
        // as their menu commands do.
        action->trigger();
        return;
    }
    MsgBox(QStringLiteral("This feature will be added soon, please use the Menus."), Box::Information,
           QStringLiteral("Coming Soon"));
}

void frmMain::tbReports_ButtonClick(const QString& key) {
    if (QAction* action = menus.value(ReportToolbarCommands().value(key))) {
        action->trigger();
        return;
    }
    MsgBox(QStringLiteral("This feature will be added soon, please use the Menus."), Box::Information,
           QStringLiteral("Coming Soon"));
}

// --- menu states ----------------------------------------------------------------

void frmMain::DisableMenuOptions() {
    for (QAction* top : menuBar()->actions()) top->setEnabled(false);
    tbMain->setEnabled(false);
    tbReports->setEnabled(false);
}

void frmMain::EnableMenuOptions() {
    for (QAction* top : menuBar()->actions()) top->setEnabled(true);
    tbMain->setEnabled(true);
    tbReports->setEnabled(true);
}

void frmMain::ResetOverView() {
    mnuSAMShoppingList_Click();
    LayoutPanes();
}

// --- commands -------------------------------------------------------------------


void frmMain::mnuReprintLastReport_Click() {
    Trap(QStringLiteral("frmMain.mnuReprintLastReport"), [&] {
        if (!Registry().SaveReportCopy() || LastReportFile.isEmpty() || !QFile::exists(LastReportFile)) {
            MsgBox(QStringLiteral("The last report cannot be printed because either there have been no Reports "
                                  "printed since Larderkeep was started or the Report has been moved or deleted ..."),
                   Box::Information + Box::HelpButton, QStringLiteral("Notice"), Registry().HelpFile(), 1151);
            return;
        }
        QFile file(LastReportFile);
        if (!file.open(QIODevice::ReadOnly)) {
            MsgBox(
                QStringLiteral("The last report could not be read: %1").arg(QDir::toNativeSeparators(LastReportFile)),
                Box::Exclamation, QStringLiteral("Notice"));
            return;
        }
        QTextDocument document;
        const QByteArray bytes = file.readAll();
        if (LastReportFile.endsWith(QLatin1String(".htm"), Qt::CaseInsensitive) ||
            LastReportFile.endsWith(QLatin1String(".html"), Qt::CaseInsensitive))
            document.setHtml(QString::fromUtf8(bytes));
        else
            document.setPlainText(QString::fromUtf8(bytes));

        if (QPrinterInfo::availablePrinters().isEmpty()) {
            // No printer on this machine: the copy is offered as a PDF.
            const QString pdf =
                TheUi().SaveFileName(QStringLiteral("Save the last report as PDF"),
                                     QDir::homePath() + QLatin1Char('/') +
                                         QFileInfo(LastReportFile).completeBaseName() + QStringLiteral(".pdf"),
                                     QStringLiteral("PDF files (*.pdf)"));
            if (pdf.isEmpty()) return;
            QPrinter printer(QPrinter::HighResolution);
            printer.setOutputFormat(QPrinter::PdfFormat);
            printer.setOutputFileName(pdf);
            document.print(&printer);
            return;
        }
        // The print dialog gives the copies and the orientation.
        QPrinter printer(QPrinter::HighResolution);
        QPrintDialog dialog(&printer, this);
        dialog.setWindowTitle(QStringLiteral("Reprint last Report"));
        if (TheUi().ShowModal(&dialog) != QDialog::Accepted) return;
        document.print(&printer);
    });
}


void frmMain::mnuSAMShoppingList_Click() {
    ShowingCurrentList = true;
    lowerRight_->setCurrentIndex(0);
    menus.value(QStringLiteral("mnuSAMShoppingList"))->setChecked(true);
    menus.value(QStringLiteral("mnuEditShopList"))->setVisible(true);
    menus.value(QStringLiteral("mnuEditMealList"))->setVisible(false);
}

void frmMain::mnuSAMMealListing_Click() {
    ShowingCurrentList = false;
    lowerRight_->setCurrentIndex(1);
    menus.value(QStringLiteral("mnuSAMMealListing"))->setChecked(true);
    menus.value(QStringLiteral("mnuEditShopList"))->setVisible(false);
    menus.value(QStringLiteral("mnuEditMealList"))->setVisible(true);
}

void frmMain::mnuPOPSetQSItems_Click() {
    frmQuickStart form(this);
    ExplodeForm(&form, Registry().ExplodeRate());
    TheUi().ShowModal(&form);
}

void frmMain::lvQuickStart_DblClick(const QString& key) {
    QAction* action = menus.value(QuickStartCommands().value(key));
    if (action && action->isEnabled()) {
        action->trigger();
        return;
    }
    MsgBox(QStringLiteral("This feature will be added soon!"), Box::Information, QStringLiteral("Coming Soon"));
}

// --- the recipe tree's popup ---------------------------------------------------

QStandardItem* frmMain::SelectedRecipeNode() const {
    return MainPanes::Instance().recipes.itemFromIndex(tvRecipes->currentIndex());
}

void frmMain::SetRecipePopup(QStandardItem* node) {
    const bool recipe = MainPanes::IsRecipeNode(node);
    const bool category = MainPanes::IsCategoryNode(node);
    const QString title = recipe ? node->text() : QString();
    auto set = [this](const char* name, const QString& caption, bool enabled) {
        QAction* a = menus.value(QString::fromUtf8(name));
        a->setText(caption);
        // Entries whose screens are not there stay disabled whatever the node.
        if (a->property("wired").toBool()) a->setEnabled(enabled);
    };
    set("mnuPOPDisplayRecipie", recipe ? QStringLiteral("Display ") + title : QStringLiteral("Display Recipe"), recipe);
    set("mnuPOPEditRecipie", recipe ? QStringLiteral("Edit ") + title : QStringLiteral("Edit Recipe"), recipe);
    set("mnuPOPDeleteRecipie", recipe ? QStringLiteral("Delete ") + title : QStringLiteral("Delete Recipe"), recipe);
    set("mnuPOPPrintRecipie", QStringLiteral("Print Recipe"), recipe);
    set("mnuPOPPrintPreview", QStringLiteral("Print Preview"), recipe);
    set("mnuPOPToggleFavorite", QStringLiteral("Toggle Favorite"), recipe);
    set("mnuPOPAddRecipeToComparison", QStringLiteral("Add to Recipe Comparison"), recipe);
    set("mnuFindRecipeCoupon", QStringLiteral("Find Coupons for Recipe"), recipe);
    set("mnuPOPExpandView", recipesExpanded_ ? QStringLiteral("Collapse View") : QStringLiteral("Expand View"), true);
    set("mnuPOPDisplayFavorites",
        recipeFilter_ == RecipeFilter::Favorites ? QStringLiteral("Display All Recipes")
                                                 : QStringLiteral("Display Favorites"),
        true);
    if (recipeFilter_ == RecipeFilter::Category) {
        set("mnuPOPShowRecipesInCategory", QStringLiteral("Display All Recipes"), true);
    } else if (category) {
        set("mnuPOPShowRecipesInCategory", QStringLiteral("Show Recipes in ") + node->text(), true);
    } else if (recipe && MainPanes::IsCategoryNode(node->parent())) {
        set("mnuPOPShowRecipesInCategory", QStringLiteral("Show Recipes in ") + node->parent()->text(), true);
    } else {
        set("mnuPOPShowRecipesInCategory", QStringLiteral("Show Recipes in Category"), false);
    }
}

void frmMain::SetCouponPopup(QStandardItem* node) {
    // A coupon's manufacturer names the search; the coupon entries need a coupon.
    QStandardItem* maker = node;
    if (maker && maker->parent() && maker->data(MainPanes::TagRole).toString() != QLatin1String("Manufacturer"))
        maker = maker->parent();
    const bool isMaker = maker && maker->data(MainPanes::TagRole).toString() == QLatin1String("Manufacturer");
    menus.value(QStringLiteral("mnuFindCouponsFor"))
        ->setText(isMaker ? QStringLiteral("Find Coupons for ") + maker->text()
                          : QStringLiteral("Find Coupons for Manufacturer"));
    for (const char* name : {"mnuRenameManufacturer", "mnuDeleteManufacturer", "mnuPOPShowProducts"})
        menus.value(QString::fromLatin1(name))->setEnabled(isMaker);
    const bool isCoupon =
        node && node != maker && node->data(MainPanes::KeyRole).toString().startsWith(QLatin1Char('C'));
    for (const char* name : {"mnuPOPDisplayCoupon", "mnuPOPEditCoupon", "mnuPOPDeleteCoupon"})
        menus.value(QString::fromLatin1(name))->setEnabled(isCoupon);
}

void frmMain::SetListAndMealsPopup() {
    menus.value(QStringLiteral("mnuSAMShoppingList"))->setChecked(ShowingCurrentList);
    menus.value(QStringLiteral("mnuSAMMealListing"))->setChecked(!ShowingCurrentList);
    menus.value(QStringLiteral("mnuEditShopList"))->setVisible(ShowingCurrentList);
    menus.value(QStringLiteral("mnuEditMealList"))->setVisible(!ShowingCurrentList);
}

void frmMain::ShowPopup(QMenu* menu, QWidget* view, const QPoint& pos) {
    if (!menu) return;
    QWidget* area = view;
    if (auto* scroll = qobject_cast<QAbstractScrollArea*>(view)) area = scroll->viewport();
    menu->popup(area->mapToGlobal(pos));
}

void frmMain::mnuPOPExpandView_Click() {
    recipesExpanded_ = !recipesExpanded_;
    if (recipesExpanded_)
        tvRecipes->expandAll();
    else {
        tvRecipes->collapseAll();
        // The root stays open so the categories show.
        tvRecipes->expand(MainPanes::Instance().recipes.index(0, 0));
    }
}

void frmMain::mnuPOPDisplayFavorites_Click() {
    recipeFilter_ = recipeFilter_ == RecipeFilter::Favorites ? RecipeFilter::All : RecipeFilter::Favorites;
    filterCategory_.clear();
    ApplyRecipeFilter();
}

void frmMain::mnuPOPShowRecipesInCategory_Click() {
    if (recipeFilter_ == RecipeFilter::Category) {
        recipeFilter_ = RecipeFilter::All;
        filterCategory_.clear();
        ApplyRecipeFilter();
        return;
    }
    QStandardItem* node = SelectedRecipeNode();
    if (MainPanes::IsRecipeNode(node)) node = node->parent();
    if (!MainPanes::IsCategoryNode(node)) return;
    recipeFilter_ = RecipeFilter::Category;
    filterCategory_ = node->data(MainPanes::KeyRole).toString();
    ApplyRecipeFilter();
}

void frmMain::ApplyRecipeFilter() {
    MainPanes& panes = MainPanes::Instance();
    QStandardItem* root = panes.FindByKey(panes.recipes, QStringLiteral("Root"));
    if (!root) return;
    const QModelIndex rootIndex = root->index();
    tvRecipes->setUpdatesEnabled(false);
    for (int c = 0; c < root->rowCount(); ++c) {
        QStandardItem* category = root->child(c);
        const QModelIndex categoryIndex = category->index();
        bool anyShown = false;
        for (int r = 0; r < category->rowCount(); ++r) {
            const bool favourite =
                category->child(r)->data(MainPanes::TagRole).toString() == QLatin1String("RecipeFavorite");
            const bool show = recipeFilter_ != RecipeFilter::Favorites || favourite;
            tvRecipes->setRowHidden(r, categoryIndex, !show);
            anyShown = anyShown || show;
        }
        bool showCategory = true;
        if (recipeFilter_ == RecipeFilter::Favorites)
            showCategory = anyShown;
        else if (recipeFilter_ == RecipeFilter::Category)
            showCategory =
                category->data(MainPanes::KeyRole).toString().compare(filterCategory_, Qt::CaseInsensitive) == 0;
        tvRecipes->setRowHidden(c, rootIndex, !showCategory);
        if (recipeFilter_ != RecipeFilter::All && showCategory) tvRecipes->expand(categoryIndex);
    }
    tvRecipes->expand(rootIndex);
    tvRecipes->setUpdatesEnabled(true);
}
