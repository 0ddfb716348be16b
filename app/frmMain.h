#pragma once

#include <QDate>
#include <QMainWindow>

#include "core/CommandRegistry.h"

#include <QMap>
#include <QPersistentModelIndex>
#include <QPoint>
#include <QStringList>

class ListView;
class QCalendarWidget;
class QLabel;
class QListView;
class QMenu;
class QModelIndex;
class QSplitter;
class QStackedWidget;
class QStandardItem;
class QTableView;
class QTimer;
class QToolBar;
class QTreeView;
class frmSplash;

// The one permanent window: six panes over the household's data, the menus
// and toolbars that reach every screen, and the start and close of the program.

class frmMain : public QMainWindow {
    Q_OBJECT
public:
    explicit frmMain(QWidget* parent = nullptr);
    ~frmMain() override;

    // The complete command line, arguments joined by one blank.
    void SetCommandLine(const QString& text) { commandLine_ = text; }
    bool PurgeOnStart = false;
    bool ShowingCurrentList = true;
    // Status texts of the last start, in order.
    QStringList StartStatusTexts() const { return statusTexts_; }
    // The report printed from the command line at the last start ("" for none).
    QString CommandLineReport() const { return commandLineReport_; }
    bool Ended() const { return ended_; }
    // 0 after a normal end; 1 when the start could not go on.
    int ExitStatus() const { return exitStatus_; }

    // Panes and controls.
    QTreeView* tvCoupons;
    QTreeView* tvRecipes;
    ListView* lvMessageCenter;
    QListView* lvQuickStart;
    ListView* lvCurrentList;
    QTreeView* tvMealList;
    QCalendarWidget* calMeals;
    QToolBar* tbMain;
    QToolBar* tbReports;
    QLabel* StatusPanelMessage;
    QLabel* StatusPanelCookbook;
    QLabel* StatusPanelRecipes;
    QLabel* StatusPanelInventory;
    QTimer* Timer1;                 // scrolls the recipe tree while a drag is near its edge
    QTimer* tmrReminders;           // never started: reminders fall due at start and at exit
    QMap<QString, QAction*> menus;  // every menu entry, submenu and popup entry by name
    QMenu* mnuPopupRecipies;
    QMenu* mnuCouponPopup;
    QMenu* mnuShopListAndMeals;
    QMenu* mnuPOPQuickStart;
    // Header label of each pane by its caption's control name ("lblRecipes").
    QMap<QString, QLabel*> headers;
    // The splitter bars: imgOne between the columns, imgTwo under the coupons,
    // imgNoteSplit above the message centre.
    QSplitter* Columns() const { return columns_; }
    QSplitter* LeftColumn() const { return left_; }

    // The dragged recipe's title, "" when no drag is under way.
    QString DragTitle() const { return dragTitle_; }

public Q_SLOTS:
    void Form_Load();
    void mnuExit();
    void mnuExit_Click() { mnuExit(); }
    void Form_Unload();
    void LayoutPanes();
    void SetMessage(const QString& text);

    // The message centre.
    void LoadMessages();
    void AddMessage(const QString& title, const QString& body, const QString& date, int type);

    // Pane loading; each rebuilds its pane from the database.
    void LoadQuickStart();
    void LoadCoupons();
    void LoadAllCoupons();
    void LoadRecipies();
    void ReloadRecipes();
    void LoadShoppingList();
    void LoadMealList();
    void SetCurrentInventory();
    void SetCurrentRecipieCount();
    void ApplyRecipeFilter();
    // A node just added to a pane is opened and brought into view.
    void ShowNode(QStandardItem* node);
    void RemoveExpiredItems();
    void mnuCheckForUpdates_Click();
    void SetMenuIcons();
    void ShowTip();
    void ShowPurge();

    // While a tool works on the data behind the panes the menus and toolbars rest.
    void EnableMenuOptions();
    void DisableMenuOptions();
    // The lower right pane back to the current list, the panes laid out afresh.
    void ResetOverView();

    // Runs the command registered for a menu, popup or quick-start key, inside
    // the error trap; false when no part of the program answers the key.
    bool RunCommand(const QString& key);
    const CommandRegistry& Commands() const { return commands_; }

    // Toolbars.
    void tbMain_ButtonClick(const QString& key);
    void tbReports_ButtonClick(const QString& key);

    // The window's own commands: its views and the last report.
    void mnuReprintLastReport_Click();
    void mnuSAMShoppingList_Click();
    void mnuSAMMealListing_Click();
    void mnuPOPSetQSItems_Click();
    void mnuPOPExpandView_Click();
    void mnuPOPDisplayFavorites_Click();
    void mnuPOPShowRecipesInCategory_Click();
    void lvQuickStart_DblClick(const QString& key);

    // Popups: set the captions and states for the node or row the menu opens
    // on (nullptr for none). The right click selects the node, calls these,
    // and shows the menu.
    void SetRecipePopup(QStandardItem* node);
    void SetCouponPopup(QStandardItem* node);
    void SetListAndMealsPopup();

    // Drops of a recipe dragged from the recipe tree.
    void lvCurrentList_DragDrop(const QString& recipe);
    void calMeals_DragDrop(const QString& recipe, const QDate& day);
    void tvRecipes_DragDrop(const QString& recipe, QStandardItem* target);
    // The pointer moved over the recipe tree during a drag (viewport position).
    void tvRecipes_DragOver(const QPoint& pos);
    void Timer1_Timer();
    // The end of every drag, dropped or not.
    void EndDrag();

protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    enum class RecipeFilter { All, Favorites, Category };

    void BuildMenus();
    void BuildPopups();
    void BuildToolbars();
    void BuildPanes();
    void BuildStatusBar();
    void RegisterCommands();
    void ListenToNotices();
    // Enables the entries whose keys have a handler and wires them to it.
    void WireCommands();
    void Status(const QString& text);

    // The start, step by step.
    void PrintCommandLineRequest();
    void ShowSplash();
    void RunStartUpkeep();
    void CheckBackupAge();
    // False when the database cannot be used; the start then ends.
    bool OpenDatabase();
    void LoadPanes();
    void LoadMealCalendar();
    void CheckDictionary();
    void RunStartPurges();
    void FinishStart();
    void CloseSplash();
    // The start cannot go on: the connection stays closed and the window ends
    // without another word.
    void EndStart();
    bool DeviceCheckDisabled() const { return true; }
    void PrintCommandLineReport(const QString& which);
    void ShowPopup(QMenu* menu, QWidget* view, const QPoint& pos);
    void StartRecipeDrag(const QString& title);
    QDate CalendarDateAt(const QPoint& viewportPos) const;
    QStandardItem* SelectedRecipeNode() const;
    ListView* ActiveList() const;
    // The recipe's ingredients onto the list; the drops ignore how it went, as
    // a recipe that is not found has already said so.
    void GenerateListFromRecipe(const QString& recipe, const QString& list);
    // A list the person picks, "" when none was picked.
    QString PickShoppingList();
    // With no default list: a picked list, offered as the default; "" when none was picked.
    QString PickListOfferingDefault();

    CommandRegistry commands_;
    QString commandLine_;
    QStringList statusTexts_;
    QString commandLineReport_;
    frmSplash* splash_ = nullptr;
    QSplitter* columns_ = nullptr;
    QSplitter* left_ = nullptr;
    QWidget* right_ = nullptr;
    QWidget* quickStartPane_ = nullptr;
    QWidget* calendarPane_ = nullptr;
    QStackedWidget* lowerRight_ = nullptr;
    QTableView* calendarView_ = nullptr;
    bool ended_ = false;
    int exitStatus_ = 0;
    bool exiting_ = false;

    // Layout: the share of the width the left column takes and the shares of
    // its height the coupons and recipes take; the splitters change them.
    double leftShare_ = 0.46;
    double couponShare_ = 0.26;
    double recipeShare_ = 0.50;
    bool laying_ = false;

    // The recipe tree's display: everything, favourites, or one category.
    RecipeFilter recipeFilter_ = RecipeFilter::All;
    QString filterCategory_;
    bool recipesExpanded_ = false;

    // Drag state.
    QString dragTitle_;
    QPoint pressPos_;
    int scrollDirection_ = 0;
    // A collapsed node held under the pointer during a drag opens after a moment.
    QTimer* expandTimer_ = nullptr;
    QPersistentModelIndex expandIndex_;

    ListView* activeList_ = nullptr;
};
