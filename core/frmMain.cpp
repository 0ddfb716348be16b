#include "core/frmMain.h"

#include "core/MainPanes.h"
#include "platform/Ui.h"

#include <QAction>
#include <QCalendarWidget>
#include <QCloseEvent>
#include <QHeaderView>
#include <QLabel>
#include <QListView>
#include <QMenuBar>
#include <QSplitter>
#include <QStackedWidget>
#include <QStatusBar>
#include <QStyle>
#include <QTextCharFormat>
#include <QToolBar>
#include <QTreeView>
#include <QVBoxLayout>

namespace {

struct Entry {
    const char* name;
    const char* caption;
};
struct TopMenu {
    const char* name;
    const char* caption;
    std::vector<Entry> entries;
};

// The top menus in order. Screens that are not built yet keep their entries
// visible but disabled, so the menus already read as they will.
const std::vector<TopMenu>& MenuTable() {
    static const std::vector<TopMenu> table = {
        {"mnuFile", "&File",
         {{"mnuNewItem", "New .."}, {"mnuOpenCookbook", "Open/New Cookbook"}, {"mnuCloseCookbook", "Close Cookbook"},
          {"mnuCalendarToday", "View/Todays Events"}, {"mnuViewExportedFile", "View/Exported Files"},
          {"mnuReprintLastReport", "Reprint last Report"}, {"-", ""}, {"mnuExit", "Exit"}}},
        {"mnuCoupons", "&Coupons",
         {{"mnuEnterCoupon", "Enter Coupons"}, {"mnuViewAllCoupons", "View All Coupons"},
          {"mnuDelivery", "Delivery Coupons"}, {"mnuCouponPendingExpirations", "Pending Expirations"},
          {"mnuCheapMeals", "Cheap Meals"}, {"mnuPurgeCoupons", "Purge Expired Coupons"},
          {"mnuPrintCouponList", "Print Coupon List"}}},
        {"mnuProductS", "&Products",
         {{"mnuEnterProduct", "Enter Product"}, {"mnuEditProduct", "Edit Product"},
          {"mnuEditProductDetail", "Edit Product Detail"}, {"mnuEnterProductCost", "Enter Product Cost"},
          {"mnuViewAllProducts", "View All Products"}, {"mnuPrintProductList", "Print Product List"},
          {"mnuProductInventory", "Inventory"}, {"mnuPrintInventoryReport", "Print Inventory Report"},
          {"mnuPrintInventoryWorkSheet", "Print Inventory Worksheet"}, {"mnuExportProduct", "Export"},
          {"mnuSynchToPalmDatabase", "Synch to Palm Database"}, {"mnuProductSpendingReport", "Spending Analysis"},
          {"mnuProductSpendingHistory", "Spending History"}, {"mnuProductCostHistory", "Item Cost History"}}},
        {"mnuCookbooks", "Coo&kbooks",
         {{"mnuNewCookbook", "New Cookbook"}, {"mnuAllCookbooks", "All Cookbooks"},
          {"mnuMoveRecipies", "Move Recipes"}, {"mnuGenerateWebsite", "Generate Website"},
          {"mnuPrintEntireCookbook", "Print Entire Cookbook"},
          {"mnuPrintCookbookRecipeList", "Print Cookbook Recipe List"}}},
        {"mnuRecipies", "&Recipes",
         {{"mnuEnterRecipies", "Enter Recipes"}, {"mnuViewRecipies", "View Recipes"},
          {"mnuRemoveErrors", "Remove Errors"}, {"mnuImportRecipies", "Import Recipes"},
          {"mnuEditRecipeCookbook", "Edit Recipe Cookbook"}, {"mnuRecStyles", "Recipe Categories"},
          {"mnuCourseMapping", "Course Mapping"}, {"mnuEditMeasureAbbreviations", "Measurements/Abbreviations"},
          {"mnuEditConversionConstants", "Measurements/Conversion Constants"},
          {"mnuConvertmeasurements", "Measurements/Convert Measurements"},
          {"mnuPOPSearchCurrentCookbook", "Find Recipe/Search Current Cookbook"},
          {"mnuPOPRecipeAdvancedSearch", "Find Recipe/Advanced Search"},
          {"mnuSearchRecipeCenter", "Find Recipe/Search Recipe Center"},
          {"mnuBrowseRecipePhoto", "Find Recipe/Browse Recipe Photos"},
          {"mnuSuggestUsingInventory", "Suggest Recipes/Using Inventory"},
          {"mnuSuggetARecipe", "Suggest Recipes/Suggest a Recipe"},
          {"mnuCrossRecWithCoupons", "Cross Recipes with Coupons"}, {"mnuImportImages", "Import Images"},
          {"mnuRecipeComparaisons", "Recipe Comparisons"}, {"mnuClearRecipeComparasions", "Clear Recipe Comparisons"},
          {"mnuExportRecipies", "Export Recipes"}, {"mnuIngredientSubstitutions", "Ingredient Substitutions"},
          {"mnuBartendersGuide", "Bartender's Guide"}}},
        {"mnuMeals", "&Meals",
         {{"mnuViewMeals", "View Meals"}, {"mnuNewMeal", "New Meal"}, {"mnuViewRecipePrefs", "Recipe Preferences"},
          {"mnuCreateCalendar", "Create Calendar"}, {"mnuExportToCalendarInOutlook", "Export to Calendar"},
          {"mnuPurgeExpiredMeals", "Purge Expired Meals"}, {"mnuMealCategories", "Meal Categories"}}},
        {"mnuShoppingList", "&Lists",
         {{"mnuGenerateList", "Generate List"}, {"mnuRecurringLists", "Recurring Lists"},
          {"mnuViewCurrent", "View Current"}, {"mnuSearchShoppingList", "Search Shopping Lists"},
          {"mnuEnterListItem", "Enter List Item"}, {"mnuEditList", "Edit List"},
          {"mnuEditCurrentList", "Edit Current List"}, {"mnuPrintCurrentList", "Print Current List"},
          {"mnuListByCategory", "List by Category"}, {"mnuListByStore", "List by Store"},
          {"mnuPrintListForAllStores", "Print List for All Stores"}, {"mnuEditCustomLayout", "Edit Custom Layout"},
          {"mnuFaxShoppingList", "Fax Shopping List"}, {"mnuExportCurrentShoppingList", "Export Current List"},
          {"mnuSynchList", "Snych Shopping List"}, {"mnuImportShoppingList", "Import Shopping List"},
          {"mnuEnterListData", "Enter List Data"}}},
        {"mnuStores", "&Stores",
         {{"mnuAddNewStore", "Add New Store"}, {"mnuSetupStoreIsles", "Setup Store Isles"},
          {"mnuImportStoreMap", "Import Store Map"}, {"mnuExportStoreMap", "Export Store Map"},
          {"mnuDisplayAllStores", "Display All Stores"}, {"mnuEnterItemCategories", "Item Categories"},
          {"mnuPrintStoreLayout", "Print Store Layout"}}},
        {"mnuMessages", "Messa&ge",
         {{"mnuMessageDisplay", "Display Message"}, {"mnuNewMassage", "New Message"},
          {"mnuEditMessage", "Edit Message"}, {"mnuDeleteMessage", "Delete Message"},
          {"mnuPrintMessage", "Print Message"}, {"mnuPurgeMessages", "Purge Messages"},
          {"mnuExportMessageToOutlook", "Export Message to Calendar"}}},
        {"mnuNutrition", "&Nutrition",
         {{"mnuFindItemNutrition", "Find Item Nutrition"}, {"mnuDisplayNutrition", "Display Nutrition"},
          {"mnuEnterNutritionItem", "Enter Nutrition Item"}, {"mnuGetItemInformation", "Get Item Information"}}},
        {"mnuOptions", "&Options",
         {{"mnuOptionGeneral", "General Settings"}, {"mnuSystemDisplay", "System Display"},
          {"mnuPrinterSetup", "Printer Setup"}}},
        {"mnuHelp", "&Help",
         {{"mnuHelpContents", "Contents"}, {"mnuHelpSearch", "Search"}, {"mnuTipODay", "Tip of the Day"},
          {"mnuAddMyTip", "Add My Tip"}, {"mnuAbout", "About"}, {"mnuLarderkeepInternet", "Larderkeep on the Internet"},
          {"mnuCheckForUpdates", "Check for Updates"}}},
    };
    return table;
}

QLabel* Header(const QString& text, QWidget* parent) {
    auto* label = new QLabel(text, parent);
    label->setStyleSheet(QStringLiteral("QLabel { background: #3b5b7a; color: white; font-weight: bold; padding: 3px; }"));
    return label;
}

QWidget* Pane(const QString& header, QWidget* content, QWidget* parent) {
    auto* box = new QWidget(parent);
    auto* layout = new QVBoxLayout(box);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    if (!header.isEmpty()) layout->addWidget(Header(header, box));
    layout->addWidget(content);
    return box;
}

}  // namespace

frmMain::frmMain(QWidget* parent) : QMainWindow(parent) {
    setObjectName(QStringLiteral("frmMain"));
    setWindowTitle(QStringLiteral("Larderkeep"));
    BuildMenus();
    BuildToolbars();
    BuildPanes();
    resize(1100, 760);
}

frmMain::~frmMain() = default;

void frmMain::BuildMenus() {
    for (const TopMenu& top : MenuTable()) {
        QMenu* menu = menuBar()->addMenu(QString::fromUtf8(top.caption));
        menu->setObjectName(QString::fromUtf8(top.name));
        QMap<QString, QMenu*> submenus;
        for (const Entry& e : top.entries) {
            if (QString::fromUtf8(e.name) == QLatin1String("-")) {
                menu->addSeparator();
                continue;
            }
            QString caption = QString::fromUtf8(e.caption);
            QMenu* target = menu;
            const int slash = int(caption.indexOf(QLatin1Char('/')));
            if (slash > 0) {
                const QString group = caption.left(slash);
                if (!submenus.contains(group)) submenus.insert(group, menu->addMenu(group));
                target = submenus.value(group);
                caption = caption.mid(slash + 1);
            }
            QAction* action = target->addAction(caption);
            action->setObjectName(QString::fromUtf8(e.name));
            action->setEnabled(false);
            menus.insert(action->objectName(), action);
        }
    }
    QAction* exit = menus.value(QStringLiteral("mnuExit"));
    exit->setEnabled(true);
    connect(exit, &QAction::triggered, this, &frmMain::mnuExit_Click);
    QAction* updates = menus.value(QStringLiteral("mnuCheckForUpdates"));
    Q_UNUSED(updates);
}

void frmMain::BuildToolbars() {
    tbMain = addToolBar(QStringLiteral("Main"));
    tbMain->setObjectName(QStringLiteral("tbMain"));
    struct Button { const char* key; const char* text; QStyle::StandardPixmap icon; };
    const Button buttons[] = {
        {"OpenCookbook", "Open Cookbook", QStyle::SP_DirOpenIcon},
        {"NewCookbook", "New Cookbook", QStyle::SP_FileDialogNewFolder},
        {"NewRecipe", "New Recipe", QStyle::SP_FileIcon},
        {"NewCoupon", "New Coupon", QStyle::SP_FileDialogContentsView},
        {"NewMeal", "New Meal", QStyle::SP_FileDialogDetailedView},
        {"NewMessage", "New Message", QStyle::SP_MessageBoxInformation},
        {"Nutrition", "Nutrition", QStyle::SP_FileDialogInfoView},
        {"SortAsc", "Sort Ascending", QStyle::SP_ArrowUp},
        {"SortDsc", "Sort Descending", QStyle::SP_ArrowDown},
        {"TipODay", "Tip of the Day", QStyle::SP_DialogHelpButton},
        {"Help", "Help", QStyle::SP_TitleBarContextHelpButton},
    };
    for (const Button& b : buttons) {
        const QString key = QString::fromUtf8(b.key);
        QAction* a = tbMain->addAction(style()->standardIcon(b.icon), QString::fromUtf8(b.text));
        a->setObjectName(key);
        connect(a, &QAction::triggered, this, [this, key] { tbMain_ButtonClick(key); });
    }
    tbReports = addToolBar(QStringLiteral("Reports"));
    tbReports->setObjectName(QStringLiteral("tbReports"));
    for (const char* key : {"InvReport", "ShopListReport", "ProductReport", "CouponReport"}) {
        const QString k = QString::fromUtf8(key);
        QAction* a = tbReports->addAction(style()->standardIcon(QStyle::SP_FileDialogListView), k);
        a->setObjectName(k);
        connect(a, &QAction::triggered, this, [this, k] { tbReports_ButtonClick(k); });
    }
}

void frmMain::BuildPanes() {
    MainPanes& panes = MainPanes::Instance();
    auto tree = [this](QStandardItemModel* model, const QString& name) {
        auto* view = new QTreeView(this);
        view->setObjectName(name);
        view->setModel(model);
        view->setHeaderHidden(true);
        view->setDragEnabled(true);
        view->setAcceptDrops(true);
        return view;
    };
    tvCoupons = tree(&panes.coupons, QStringLiteral("tvCoupons"));
    tvRecipes = tree(&panes.recipes, QStringLiteral("tvRecipes"));
    tvMealList = tree(&panes.meals, QStringLiteral("tvMealList"));
    lvCurrentList = tree(&panes.currentList, QStringLiteral("lvCurrentList"));
    lvCurrentList->setHeaderHidden(false);
    lvCurrentList->setRootIsDecorated(false);
    lvCurrentList->setSortingEnabled(true);
    lvMessageCenter = new QListView(this);
    lvMessageCenter->setObjectName(QStringLiteral("lvMessageCenter"));
    lvMessageCenter->setModel(&panes.messages);
    lvQuickStart = new QListView(this);
    lvQuickStart->setObjectName(QStringLiteral("lvQuickStart"));
    lvQuickStart->setModel(&panes.quickStart);
    calMeals = new QCalendarWidget(this);
    calMeals->setObjectName(QStringLiteral("calMeals"));
    calMeals->setGridVisible(true);
    connect(&panes, &MainPanes::mealDatesChanged, this, [this] {
        QTextCharFormat plain, bold;
        bold.setFontWeight(QFont::Bold);
        calMeals->setDateTextFormat(QDate(), plain);
        for (const QDate& d : MainPanes::Instance().boldMealDates) calMeals->setDateTextFormat(d, bold);
    });

    // imgOne, imgTwo and imgNoteSplit: the column split and the split inside each column.
    left_ = new QSplitter(Qt::Vertical, this);
    left_->addWidget(Pane(QStringLiteral(" Coupons"), tvCoupons, left_));
    left_->addWidget(Pane(QStringLiteral(" Recipes"), tvRecipes, left_));
    left_->addWidget(Pane(QStringLiteral(" Message Center"), lvMessageCenter, left_));
    right_ = new QSplitter(Qt::Vertical, this);
    right_->addWidget(Pane(QStringLiteral(" Meal Calendar"), calMeals, right_));
    right_->addWidget(Pane(QStringLiteral(" Quick Start Menu"), lvQuickStart, right_));
    lowerRight_ = new QStackedWidget(right_);
    lowerRight_->addWidget(Pane(QStringLiteral(" Current Shopping List"), lvCurrentList, lowerRight_));
    lowerRight_->addWidget(Pane(QString(), tvMealList, lowerRight_));
    right_->addWidget(lowerRight_);
    columns_ = new QSplitter(Qt::Horizontal, this);
    columns_->setObjectName(QStringLiteral("imgOne"));
    left_->setObjectName(QStringLiteral("imgTwo"));
    right_->setObjectName(QStringLiteral("imgNoteSplit"));
    columns_->addWidget(left_);
    columns_->addWidget(right_);
    setCentralWidget(columns_);

    StatusPanelMessage = new QLabel(this);
    StatusPanelCookbook = new QLabel(this);
    StatusPanelInventory = new QLabel(this);
    statusBar()->addWidget(StatusPanelMessage, 2);
    statusBar()->addWidget(StatusPanelCookbook, 2);
    statusBar()->addWidget(StatusPanelInventory, 1);
}

void frmMain::LayoutPanes() {
    // The current list takes the height the calendar and quick start leave.
    const int w = width();
    columns_->setSizes({w / 2, w - w / 2});
    const int h = qMax(300, centralWidget()->height());
    left_->setSizes({h / 3, h / 3, h - 2 * (h / 3)});
    const int calendar = qMin(calMeals->sizeHint().height() + 24, h / 2);
    const int quick = h / 6;
    right_->setSizes({calendar, quick, qMax(80, h - calendar - quick)});
}

void frmMain::SetMessage(const QString& text) { StatusPanelMessage->setText(text); }

void frmMain::tbMain_ButtonClick(const QString& key) {
    if (key == QLatin1String("SortAsc") || key == QLatin1String("SortDsc")) {
        const Qt::SortOrder order = key == QLatin1String("SortAsc") ? Qt::AscendingOrder : Qt::DescendingOrder;
        if (lvCurrentList->hasFocus()) lvCurrentList->sortByColumn(0, order);
        return;
    }
    MsgBox(QStringLiteral("This feature will be added soon, please use the Menus."), 0, QStringLiteral("Coming Soon"));
}

void frmMain::tbReports_ButtonClick(const QString&) {
    MsgBox(QStringLiteral("This feature will be added soon, please use the Menus."), 0, QStringLiteral("Coming Soon"));
}

void frmMain::mnuSAMShoppingList_Click() {
    ShowingCurrentList = true;
    lowerRight_->setCurrentIndex(0);
}

void frmMain::mnuSAMMealListing_Click() {
    ShowingCurrentList = false;
    lowerRight_->setCurrentIndex(1);
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
