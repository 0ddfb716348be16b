// Filling the main window's panes from the database. Each procedure rebuilds
// its pane whole; nothing is kept beyond what the pane shows.
#include "core/ErrorReport.h"
#include "core/Dates.h"
#include "core/Globals.h"
#include "coupons/clsCoupon.h"
#include "products/clsManufacturer.h"
#include "core/ListView.h"
#include "core/MainPanes.h"
#include "core/PaneIcons.h"
#include "core/Values.h"
#include "core/clsRegistry.h"
#include "core/frmMain.h"
#include "core/modVerify.h"
#include "lists/clsShopList.h"
#include "meals/clsMeal.h"
#include "platform/Database.h"
#include "platform/Recordset.h"
#include "platform/RuntimeError.h"
#include "recipes/clsRecCategory.h"

#include <QAction>
#include <QCalendarWidget>
#include <QHeaderView>
#include <QLabel>
#include <QListView>
#include <QMenu>
#include <QStyle>
#include <QTreeView>

namespace {

const QColor kGrey(100, 100, 100);

struct QuickStartItem {
    const char* key;
    const char* caption;
};

// The shortcuts the quick start pane can offer, in the order it shows them.
// "ShopList" is answered on a click but is never one of the rows.
const QuickStartItem kQuickStart[] = {
    {"Coupon", "New Coupon"},
    {"Delivery", "Add Delivery Coupon"},
    {"Inventory", "View Inventory"},
    {"RecurringLists", "Recurring Shopping lists"},
    {"IsleMap", "Isle Mapping"},
    {"ItemCategory", "Item Category"},
    {"RecipeCat", "Recipe Categories"},
    {"Nutrition", "Nutrition"},
    {"Product", "New Product"},
};

QStandardItem* RootOf(QStandardItemModel& model, const QString& text, const QString& image) {
    MainPanes& panes = MainPanes::Instance();
    QStandardItem* root = panes.FindByKey(model, QStringLiteral("Root"));
    if (!root) {
        root = panes.AddNode(model, QString(), QStringLiteral("Root"), text);
        panes.SetBold(root);
        panes.SetImageKey(root, image);
    }
    return root;
}

QStandardItem* CategoryNode(const QString& name) {
    QStandardItem* node = MainPanes::MakeNode(name, name, QStringLiteral("RecipeCategory"));
    MainPanes::Instance().SetBold(node);
    return node;
}

QStandardItem* RecipeNode(const QString& title, bool favourite) {
    QStandardItem* node =
        MainPanes::MakeNode(QString(), title, favourite ? QStringLiteral("RecipeFavorite") : QStringLiteral("Recipe"));
    node->setData(favourite ? QStringLiteral("RecipeFavorite") : QStringLiteral("Recipe"), MainPanes::ImageKeyRole);
    if (!favourite) node->setForeground(kGrey);
    return node;
}

QStandardItem* ManufacturerNode(const QString& name) {
    QStandardItem* node = MainPanes::MakeNode(name, name, QStringLiteral("Manufacturer"));
    node->setData(QStringLiteral("Manufacturer"), MainPanes::ImageKeyRole);
    return node;
}

QStandardItem* CouponNode(const QString& id, const QString& quantity, const QString& size, const QString& product) {
    QStandardItem* node = MainPanes::MakeNode(QStringLiteral("C") + id,
                                              quantity + QStringLiteral("-") + size + QStringLiteral(" ") + product, id);
    node->setData(QStringLiteral("Coupon"), MainPanes::ImageKeyRole);
    node->setForeground(kGrey);
    return node;
}

bool Truth(const QVariant& v) { return !IsNull(v) && !IsEmpty(v) && CBool(v); }

// Appends the children gathered per parent, one insertion per parent, in the
// order the parents were first met.
void Flush(QList<QStandardItem*>& parents, QHash<QStandardItem*, QList<QStandardItem*>>& children) {
    for (QStandardItem* parent : parents) parent->appendRows(children.value(parent));
    parents.clear();
    children.clear();
}

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

// --- coupons ----------------------------------------------------------------------

void frmMain::LoadCoupons() {
    MainPanes& panes = MainPanes::Instance();
    QStandardItem* root = RootOf(panes.coupons, QStringLiteral("Coupons"), QStringLiteral("Coupons"));
    root->removeRows(0, root->rowCount());

    Recordset rs;
    rs.Open(QStringLiteral("SELECT * FROM Manufacturer ORDER BY [Name]"), ConnectionMain(), adOpenKeyset,
            adLockReadOnly);
    QList<QStandardItem*> makers;
    QSet<QString> seen;
    while (!rs.IsEOF()) {
        const QString name = TextOf(rs.Field(QStringLiteral("Name")));
        if (!name.isEmpty() && !seen.contains(name.toCaseFolded())) {
            seen.insert(name.toCaseFolded());
            makers << ManufacturerNode(name);
        }
        rs.MoveNext();
    }
    rs.Close();
    root->appendRows(makers);

    QList<QStandardItem*> parents;
    QHash<QStandardItem*, QList<QStandardItem*>> children;
    QSet<QStandardItem*> expanded;
    bool pending = false;
    const bool notify = Registry().CouponExpireNofication();
    const qint16 warnDays = Registry().CouponExpireDays();
    rs.Open(QStringLiteral("SELECT * FROM COUPONS"), ConnectionMain(), adOpenKeyset, adLockReadOnly);
    while (!rs.IsEOF()) {
        const QString maker = TextOf(rs.Field(QStringLiteral("Manufacturer")));
        QStandardItem* parent = maker.isEmpty() ? root : panes.FindByKey(panes.coupons, maker);
        if (!parent) {
            // A coupon of a manufacturer nobody entered: the manufacturer is
            // added so that the tree and the table agree from now on.
            clsManufacturer manufacturer;
            manufacturer.Name(maker);
            manufacturer.WriteNew();
            parent = panes.FindByKey(panes.coupons, maker);
            if (!parent) {
                parent = ManufacturerNode(maker);
                root->appendRow(parent);
            }
        }
        QStandardItem* node =
            CouponNode(TextOf(rs.Field(QStringLiteral("ID"))), TextOf(rs.Field(QStringLiteral("Quantity"))),
                       TextOf(rs.Field(QStringLiteral("Size"))), TextOf(rs.Field(QStringLiteral("Product"))));
        // An expiration that is no date cannot be judged; the coupon shows as
        // an ordinary one rather than stopping the pane.
        const QString expiration = TextOf(rs.Field(QStringLiteral("Expiration")));
        if (expiration == QLatin1String("Never") || IsDate(expiration)) {
            const clsCoupon::Expiry expiry = clsCoupon::CheckExpiry(expiration, notify, warnDays, pending);
            node->setData(expiry.imageKey, MainPanes::ImageKeyRole);
            if (expiry.expired) {
                node->setText(node->text() + QStringLiteral(" (Expired)"));
                node->setForeground(QColor(255, 0, 0));
                expanded << parent;
            }
        }
        if (!children.contains(parent)) parents << parent;
        children[parent] << node;
        rs.MoveNext();
    }
    rs.Close();
    int coupons = 0;
    for (QStandardItem* parent : parents) coupons += int(children.value(parent).size());
    Flush(parents, children);
    tvCoupons->expand(root->index());
    // A household with a handful of coupons sees them at once; a drawer full
    // of them stays folded by manufacturer.
    if (coupons <= 40)
        for (int r = 0; r < root->rowCount(); ++r)
            if (root->child(r)->hasChildren()) tvCoupons->expand(root->child(r)->index());
    // Expired coupons are brought into view whatever the count.
    for (QStandardItem* parent : expanded) tvCoupons->expand(parent->index());
    if (clsCoupon::ExpireAction(pending)) PurgeOnStart = true;
}

void frmMain::LoadAllCoupons() {
    MainPanes& panes = MainPanes::Instance();
    panes.Clear(panes.coupons);
    LoadCoupons();
}

void frmMain::AddManufacturer(const QString& name) {
    MainPanes& panes = MainPanes::Instance();
    QStandardItem* root = RootOf(panes.coupons, QStringLiteral("Coupons"), QStringLiteral("Coupons"));
    QStandardItem* node = panes.FindByKey(panes.coupons, name);
    if (!node) {
        node = ManufacturerNode(name);
        node->setData(QStringLiteral("Root"), MainPanes::ImageKeyRole);
        QFont bold = node->font();
        bold.setBold(true);
        node->setFont(bold);
        root->appendRow(node);
        root->sortChildren(0);
    }
    if (frmMain* main = MainForm()) main->tvCoupons->scrollTo(node->index());
}

void frmMain::AddCoupon(const QString& manufacturer, qint32 id, const QString& quantity, const QString& size,
                        const QString& product) {
    MainPanes& panes = MainPanes::Instance();
    QStandardItem* root = RootOf(panes.coupons, QStringLiteral("Coupons"), QStringLiteral("Coupons"));
    QStandardItem* parent = manufacturer.isEmpty() ? root : panes.FindByKey(panes.coupons, manufacturer);
    if (!parent) {
        parent = ManufacturerNode(manufacturer);
        root->appendRow(parent);
    }
    QStandardItem* node = CouponNode(QString::number(id), quantity, size, product);
    parent->appendRow(node);
    tvCoupons->expand(parent->index());
    tvCoupons->scrollTo(node->index());
}

// --- recipes ------------------------------------------------------------------------

void frmMain::LoadRecipies() {
    Trap(QStringLiteral("frmMain.LoadRecipies"), [&] {
        MainPanes& panes = MainPanes::Instance();
        QStandardItem* root = RootOf(panes.recipes, QStringLiteral("Recipies"), QStringLiteral("Recipies"));
        root->removeRows(0, root->rowCount());

        // 1. The categories, bold, keyed and labelled by the trimmed name.
        Recordset rs;
        rs.Open(QStringLiteral("SELECT * From RecipieCategory ORDER BY [Name]"), ConnectionMain(), adOpenKeyset,
                adLockReadOnly);
        QList<QStandardItem*> categories;
        QSet<QString> seen;
        while (!rs.IsEOF()) {
            const QString name = TextOf(rs.Field(QStringLiteral("Name"))).trimmed();
            if (!name.isEmpty() && !seen.contains(name.toCaseFolded())) {
                seen.insert(name.toCaseFolded());
                categories << CategoryNode(name);
            }
            rs.MoveNext();
        }
        rs.Close();
        root->appendRows(categories);

        // 2. and 3. Each recipe of the cookbook on show under each of its
        // categories. The nodes are gathered per category and put in at once:
        // a big household has many thousands.
        rs.Open(QStringLiteral("SELECT [Title],[Style],[CookbookName],[Favorite] FROM Recipie ORDER BY [Title]"),
                ConnectionMain(), adOpenKeyset, adLockReadOnly);
        QList<QStandardItem*> parents;
        QHash<QStandardItem*, QList<QStandardItem*>> children;
        QHash<QString, QStandardItem*> byName;  // categories met so far, folded
        const QString cookbook = CurrentCookbook;
        while (!rs.IsEOF()) {
            if (cookbook.isEmpty() || TextOf(rs.Field(QStringLiteral("CookbookName"))) == cookbook) {
                const QString title = TextOf(rs.Field(QStringLiteral("Title")));
                const bool favourite = Truth(rs.Field(QStringLiteral("Favorite")));
                const QString style = TextOf(rs.Field(QStringLiteral("Style")));
                for (const QString& part : style.split(QLatin1Char(','))) {
                    const QString name = part.trimmed();
                    if (name.isEmpty()) continue;
                    QStandardItem*& category = byName[name.toCaseFolded()];
                    if (!category) category = panes.FindByKey(panes.recipes, name);
                    if (!category) {
                        // A category in use that the table lacks is added, so
                        // the tree always shows every category in use.
                        clsRecCategory table;
                        if (!table.Exists(name)) table.WriteNew(name);
                        category = panes.FindByKey(panes.recipes, name);
                        if (!category) {
                            category = CategoryNode(name);
                            root->appendRow(category);
                        }
                    }
                    if (!children.contains(category)) parents << category;
                    children[category] << RecipeNode(title, favourite);
                }
            }
            rs.MoveNext();
        }
        rs.Close();
        Flush(parents, children);

        // 4.
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

void frmMain::AddNewCategoryWithRecipe(const QString& category, const QString& title) {
    MainPanes& panes = MainPanes::Instance();
    QStandardItem* root = RootOf(panes.recipes, QStringLiteral("Recipies"), QStringLiteral("Recipies"));
    const QString name = category.trimmed();
    if (name.isEmpty()) return;
    QStandardItem* node = panes.FindByKey(panes.recipes, name);
    if (!node) {
        node = CategoryNode(name);
        root->appendRow(node);
    }
    QStandardItem* recipe = RecipeNode(title, false);
    node->appendRow(recipe);
    tvRecipes->expand(node->index());
    tvRecipes->scrollTo(recipe->index());
}

// --- the current list -----------------------------------------------------------------

void frmMain::LoadShoppingList() {
    MainPanes& panes = MainPanes::Instance();
    QStandardItemModel& model = panes.currentList;
    if (model.columnCount() < 4)
        model.setHorizontalHeaderLabels(
            {QStringLiteral("Item"), QStringLiteral("Quantity"), QStringLiteral("Size"), QStringLiteral("Style")});
    if (model.rowCount() > 0) model.removeRows(0, model.rowCount());

    clsShopList list;
    list.OpenDB(QStringLiteral("SELECT * FROM Shoplist WHERE [IsCurrent] = True"), adOpenKeyset, adLockReadOnly);
    QList<QList<QStandardItem*>> rows;
    // A column left empty (NULL) by an import shows as blank rather than
    // costing the whole list.
    auto text = [&list](QString (clsShopList::*read)() const) {
        try {
            return (list.*read)();
        } catch (const RuntimeError&) {
            return QString();
        }
    };
    while (!list.dbEOF()) {
        if (list.IsCurrent()) {
            const QString maker = text(&clsShopList::ItemManufacturer);
            const QString name = text(&clsShopList::ItemName);
            // An open manufacturer ("Any", or none at all) shows the item alone.
            const QString caption = maker == QLatin1String("Any") || maker.trimmed().isEmpty()
                                        ? name
                                        : maker + QStringLiteral("'s ") + name;
            QStandardItem* item = MainPanes::MakeNode(QString(), caption, QStringLiteral("Item"));
            item->setData(QStringLiteral("Item"), MainPanes::ImageKeyRole);
            item->setData(list.ItemID(), Qt::UserRole + 10);
            auto* quantity = new QStandardItem(text(&clsShopList::ItemQuantity));
            quantity->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            auto* size = new QStandardItem(text(&clsShopList::ItemSize));
            auto* style = new QStandardItem(list.ItemStyle());
            for (QStandardItem* cell : {quantity, size, style}) cell->setEditable(false);
            rows << QList<QStandardItem*>{item, quantity, size, style};
        }
        list.MoveNext();
    }
    list.CloseDB();
    for (const QList<QStandardItem*>& row : rows) model.appendRow(row);
    lvCurrentList->Resort();
}

// --- meals ------------------------------------------------------------------------------

void frmMain::AddMealRow(const QString& name, bool favorite, const QString& id, const QStringList& courses) {
    static const char* const kCourseKeys[] = {"App", "Main", "SideOne", "SideTwo", "SideThree", "Desert"};
    MainPanes& panes = MainPanes::Instance();
    const QString key = QStringLiteral("Meal::") + name;
    QStandardItem* meal = panes.FindByKey(panes.meals, key);
    if (!meal) {
        meal = MainPanes::MakeNode(key, name, QStringLiteral("Meal"));
        meal->setData(QStringLiteral("Meal"), MainPanes::ImageKeyRole);
        panes.meals.appendRow(meal);
    }
    if (favorite) {
        panes.SetBold(meal);
        panes.SetImageKey(meal, QStringLiteral("MealFavorite"));
    }
    QList<QStandardItem*> dishes;
    for (int i = 0; i < 6 && i < courses.size(); ++i) {
        // A cleared course holds one blank.
        if (courses[i].trimmed().isEmpty()) continue;
        QStandardItem* dish = MainPanes::MakeNode(id + QString::fromLatin1(kCourseKeys[i]), courses[i],
                                                  QStringLiteral("Recipie"));
        dish->setData(QStringLiteral("Recipie"), MainPanes::ImageKeyRole);
        dishes << dish;
    }
    if (!dishes.isEmpty()) meal->appendRows(dishes);
}

void frmMain::MarkMealDay(const QDate& day) {
    if (!day.isValid()) return;
    MainPanes& panes = MainPanes::Instance();
    panes.boldMealDates.insert(day);
    Q_EMIT panes.mealDatesChanged();
}

void frmMain::LoadMealList() {
    // Past meals are purged or moved on first; its failure goes to our caller.
    clsMeal audit;
    audit.AuditMeals();

    MainPanes& panes = MainPanes::Instance();
    panes.Clear(panes.meals);
    panes.boldMealDates.clear();
    Recordset rs;
    rs.Open(QStringLiteral("SELECT * FROM Meal"), ConnectionMain(), adOpenKeyset, adLockReadOnly);
    static const char* const kCourses[] = {"Appetizer", "MainCourse", "SideDishOne", "SideDishTwo", "SideDishThree",
                                           "Desert"};
    while (!rs.IsEOF()) {
        QStringList courses;
        for (const char* course : kCourses) courses << TextOf(rs.Field(QString::fromLatin1(course)));
        AddMealRow(TextOf(rs.Field(QStringLiteral("Name"))), Truth(rs.Field(QStringLiteral("Favorite"))),
                   TextOf(rs.Field(QStringLiteral("ID"))), courses);
        const QVariant when = rs.Field(QStringLiteral("Dates"));
        if (IsDate(when)) panes.boldMealDates.insert(CDate(when).date());
        rs.MoveNext();
    }
    rs.Close();
    Q_EMIT panes.mealDatesChanged();
}

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
