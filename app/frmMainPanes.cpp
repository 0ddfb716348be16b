// The window's side of its panes: each part of the program fills its pane's
// model; the window opens, scrolls and sizes the views over them.
#include "app/frmMain.h"

#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/ListView.h"
#include "core/MainPanes.h"
#include "core/PaneIcons.h"
#include "core/Values.h"
#include "core/clsRegistry.h"
#include "core/modVerify.h"
#include "coupons/CouponPane.h"
#include "lists/ListPane.h"
#include "meals/MealPane.h"
#include "messages/MessagePane.h"
#include "platform/Database.h"
#include "platform/Recordset.h"
#include "recipes/RecipePane.h"

#include <QAction>
#include <QLabel>
#include <QListView>
#include <QStyle>
#include <QTreeView>

namespace {

struct QuickStartItem {
    const char* key;
    const char* caption;
};

// The shortcuts the quick start pane can offer, in the order it shows them.
// "ShopList" is answered on a click but is never one of the rows.
const QuickStartItem kQuickStart[] = {
    {"Coupon", "New Coupon"},           {"Delivery", "Add Delivery Coupon"},
    {"Inventory", "View Inventory"},    {"RecurringLists", "Recurring Shopping lists"},
    {"IsleMap", "Isle Mapping"},        {"ItemCategory", "Item Category"},
    {"RecipeCat", "Recipe Categories"}, {"Nutrition", "Nutrition"},
    {"Product", "New Product"},
};

}  // namespace

// --- quick start --------------------------------------------------------------

void frmMain::LoadQuickStart() {
    MainPanes& panes = MainPanes::Instance();
    panes.Clear(panes.quickStart);
    const QString chosen = Registry().QuickViewOptions();
    for (const QuickStartItem& item : kQuickStart) {
        const QString key = QString::fromUtf8(item.key);
        if (!chosen.contains(key)) continue;
        QStandardItem* row = MainPanes::MakeNode(key, QString::fromUtf8(item.caption), QStringLiteral("QuickStart"));
        row->setData(key, MainPanes::ImageKeyRole);
        row->setData(PaneIcon(key), Qt::DecorationRole);
        row->setToolTip(QString::fromUtf8(item.caption));
        panes.quickStart.appendRow(row);
    }
    LayoutPanes();
}

// --- messages -----------------------------------------------------------------

void frmMain::LoadMessages() {
    Trap(QStringLiteral("frmMain.LoadMessages"), [&] {
        if (!lvMessageCenter->property("lkColumnsSet").toBool()) {
            MainPanes::Instance().messages.setHorizontalHeaderLabels(
                {QStringLiteral("Subject"), QStringLiteral("Date"), QStringLiteral("Message")});
            lvMessageCenter->SetColumnShares({25, 25, 49});
            lvMessageCenter->View(CLng(Registry().MessageView()));
            lvMessageCenter->setProperty("lkColumnsSet", true);
        }
        MessagePane::LoadMessages();
        lvMessageCenter->Resort();
    });
}

void frmMain::AddMessage(const QString& title, const QString& body, const QString& date, int type) {
    Trap(QStringLiteral("frmMain.AddMessage"), [&] { MessagePane::AddMessage(title, body, date, type); });
}

// --- coupons ----------------------------------------------------------------------

void frmMain::LoadCoupons() {
    const CouponPane::Loaded loaded = CouponPane::LoadCoupons();
    MainPanes& panes = MainPanes::Instance();
    QStandardItem* root = panes.Root(panes.coupons, QStringLiteral("Coupons"), QStringLiteral("Coupons"));
    tvCoupons->expand(root->index());
    // A household with a handful of coupons sees them at once; a drawer full
    // of them stays folded by manufacturer.
    if (loaded.coupons <= 40)
        for (int r = 0; r < root->rowCount(); ++r)
            if (root->child(r)->hasChildren()) tvCoupons->expand(root->child(r)->index());
    // Expired coupons are brought into view whatever the count.
    for (QStandardItem* parent : loaded.withExpired) tvCoupons->expand(parent->index());
    if (loaded.purge) PurgeOnStart = true;
}

void frmMain::LoadAllCoupons() {
    MainPanes& panes = MainPanes::Instance();
    panes.Clear(panes.coupons);
    LoadCoupons();
}

void frmMain::ShowNode(QStandardItem* node) {
    if (!node || !node->model()) return;
    QTreeView* view = node->model() == &MainPanes::Instance().coupons   ? tvCoupons
                      : node->model() == &MainPanes::Instance().recipes ? tvRecipes
                                                                        : nullptr;
    if (!view) return;
    if (node->parent()) view->expand(node->parent()->index());
    view->scrollTo(node->index());
}

// --- recipes ------------------------------------------------------------------------

void frmMain::LoadRecipies() {
    Trap(QStringLiteral("frmMain.LoadRecipies"), [&] {
        QStandardItem* root = RecipePane::LoadRecipies();
        recipesExpanded_ = false;
        tvRecipes->expand(root->index());
        if (Registry().ExpandRecipeList()) mnuPOPExpandView_Click();
        SetCurrentRecipieCount();
        if (recipeFilter_ != RecipeFilter::All) ApplyRecipeFilter();
    });
}

void frmMain::ReloadRecipes() {
    MainPanes& panes = MainPanes::Instance();
    panes.Clear(panes.recipes);
    LoadRecipies();
}

void frmMain::SetCurrentRecipieCount() {
    Trap(QStringLiteral("frmMain.SetCurrentRecipieCount"), [&] {
        Recordset rs;
        // Quoted from a copy: the quoting helper doubles apostrophes in place.
        const QString cookbook = CurrentCookbook;
        QString sql = QStringLiteral("SELECT [Title] FROM Recipie");
        if (!cookbook.isEmpty())
            sql += QStringLiteral(" WHERE [CookbookName] = '") + QuoteSql(cookbook) + QStringLiteral("'");
        rs.Open(sql, ConnectionMain(), adOpenKeyset, adLockReadOnly);
        const qint32 count = rs.RecordCount();
        rs.Close();
        StatusPanelRecipes->setText(QStringLiteral("Recipes: ") + QString::number(count));
        StatusPanelCookbook->setText(QStringLiteral("Current Cookbook: ") + CurrentCookbook +
                                     (CurrentCookbook.isEmpty() ? QStringLiteral(" (Showing all)") : QString()));
    });
}

// --- the current list and meals ---------------------------------------------------------

void frmMain::LoadShoppingList() {
    ListPane::LoadShoppingList();
    lvCurrentList->Resort();
}

void frmMain::LoadMealList() { MealPane::LoadMealList(); }

// --- status bar ---------------------------------------------------------------------------

void frmMain::SetCurrentInventory() {
    Recordset rs;
    rs.Open(QStringLiteral("SELECT [Name] FROM Product WHERE [LastPurchasedDate] > #1/1/50#"), ConnectionMain(),
            adOpenKeyset, adLockReadOnly);
    const qint32 count = rs.RecordCount();
    rs.Close();
    StatusPanelInventory->setText(QStringLiteral("Inventory: ") + QString::number(count) + QStringLiteral(" Items"));
}

// --- menu pictures --------------------------------------------------------------------------

void frmMain::SetMenuIcons() {
    // Menu entry and its picture: a pane picture by key, or one of the style's own.
    static const struct {
        const char* menu;
        const char* key;
        QStyle::StandardPixmap standard;
    } kIcons[] = {
        {"mnuOpenCookbook", "Recipies", QStyle::SP_CustomBase},
        {"mnuNewItem", "", QStyle::SP_FileDialogNewFolder},
        {"mnuReprintLastReport", "", QStyle::SP_FileDialogDetailedView},
        {"mnuExit", "", QStyle::SP_DialogCloseButton},
        {"mnuEnterCoupon", "Coupon", QStyle::SP_CustomBase},
        {"mnuViewAllCoupons", "Coupons", QStyle::SP_CustomBase},
        {"mnuDelivery", "Delivery", QStyle::SP_CustomBase},
        {"mnuCouponPendingExpirations", "CouponExpire", QStyle::SP_CustomBase},
        {"mnuPurgeCoupons", "", QStyle::SP_TrashIcon},
        {"mnuPrintCouponList", "", QStyle::SP_FileDialogDetailedView},
        {"mnuEnterProduct", "Inventory", QStyle::SP_CustomBase},
        {"mnuProductInventory", "IsleMap", QStyle::SP_CustomBase},
        {"mnuPrintProductList", "", QStyle::SP_FileDialogDetailedView},
        {"mnuPrintInventoryReport", "", QStyle::SP_FileDialogDetailedView},
        {"mnuNewCookbook", "Recipies", QStyle::SP_CustomBase},
        {"mnuGenerateWebsite", "", QStyle::SP_DriveNetIcon},
        {"mnuEnterRecipies", "Recipe", QStyle::SP_CustomBase},
        {"mnuRecStyles", "RecipeCategory", QStyle::SP_CustomBase},
        {"mnuCourseMapping", "RecipeCat", QStyle::SP_CustomBase},
        {"mnuRecipeComparaisons", "RecipeCompare", QStyle::SP_CustomBase},
        {"mnuViewMeals", "Meal", QStyle::SP_CustomBase},
        {"mnuNewMeal", "MealFavorite", QStyle::SP_CustomBase},
        {"mnuPurgeExpiredMeals", "", QStyle::SP_TrashIcon},
        {"mnuRecurringLists", "RecurringLists", QStyle::SP_CustomBase},
        {"mnuEditCurrentList", "ShopList", QStyle::SP_CustomBase},
        {"mnuPrintCurrentList", "", QStyle::SP_FileDialogDetailedView},
        {"mnuSetupStoreIsles", "IsleMap", QStyle::SP_CustomBase},
        {"mnuEnterItemCategories", "ItemCategory", QStyle::SP_CustomBase},
        {"mnuMessageDisplay", "Message", QStyle::SP_CustomBase},
        {"mnuNewMassage", "Reminder", QStyle::SP_CustomBase},
        {"mnuDeleteMessage", "", QStyle::SP_TrashIcon},
        {"mnuPrintMessage", "", QStyle::SP_FileDialogDetailedView},
        {"mnuDisplayNutrition", "Nutrition", QStyle::SP_CustomBase},
        {"mnuOptionGeneral", "", QStyle::SP_FileDialogContentsView},
        {"mnuHelpContents", "", QStyle::SP_DialogHelpButton},
        {"mnuTipODay", "", QStyle::SP_MessageBoxQuestion},
        {"mnuAbout", "", QStyle::SP_MessageBoxInformation},
        {"mnuCheckForUpdates", "", QStyle::SP_BrowserReload},
        {"mnuPOPDisplayRecipie", "Recipe", QStyle::SP_CustomBase},
        {"mnuPOPToggleFavorite", "RecipeFavorite", QStyle::SP_CustomBase},
        {"mnuPOPAddRecipeToComparison", "RecipeCompare", QStyle::SP_CustomBase},
        {"mnuPOPDeleteRecipie", "", QStyle::SP_TrashIcon},
        {"mnuPOPPrintRecipie", "", QStyle::SP_FileDialogDetailedView},
        {"mnuPOPSetQSItems", "", QStyle::SP_FileDialogContentsView},
    };
    for (const auto& entry : kIcons) {
        QAction* action = menus.value(QString::fromUtf8(entry.menu));
        if (!action) continue;
        const QString key = QString::fromUtf8(entry.key);
        action->setIcon(key.isEmpty() ? style()->standardIcon(entry.standard) : PaneIcon(key));
    }
}
