#pragma once

#include <QMainWindow>
#include <QMap>
#include <QStringList>

class QCalendarWidget;
class QLabel;
class QListView;
class QMenu;
class QSplitter;
class QStackedWidget;
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

    // Panes and controls.
    QTreeView* tvCoupons;
    QTreeView* tvRecipes;
    QListView* lvMessageCenter;
    QListView* lvQuickStart;
    QTreeView* lvCurrentList;
    QTreeView* tvMealList;
    QCalendarWidget* calMeals;
    QToolBar* tbMain;
    QToolBar* tbReports;
    QLabel* StatusPanelMessage;
    QLabel* StatusPanelCookbook;
    QLabel* StatusPanelInventory;
    QMap<QString, QAction*> menus;  // every menu entry by name

public Q_SLOTS:
    void Form_Load();
    void mnuExit();
    void mnuExit_Click() { mnuExit(); }
    void Form_Unload();
    void LayoutPanes();
    void SetMessage(const QString& text);

    // The message centre (frmMainMessages.cpp).
    void LoadMessages();
    void AddMessage(const QString& title, const QString& body, const QString& date, int type);
    void DisplayReminders();
    void MessageDisplay();
    void mnuDeleteMessage_Click();
    void mnuPrintMessage_Click();

    // Pane loading; each rebuilds its pane from the database.
    void LoadQuickStart();
    void LoadCoupons();
    void LoadRecipies();
    void LoadShoppingList();
    void LoadMealList();
    void SetCurrentInventory();
    void SetCurrentRecipieCount();
    void RemoveExpiredItems();
    void mnuCheckForUpdates_Click();
    void SetMenuIcons();
    void ShowTip();
    void ShowPurge();

    void tbMain_ButtonClick(const QString& key);
    void tbReports_ButtonClick(const QString& key);
    void mnuSAMShoppingList_Click();
    void mnuSAMMealListing_Click();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void BuildMenus();
    void BuildToolbars();
    void BuildPanes();
    void Status(const QString& text);
    bool DeviceCheckDisabled() const { return true; }
    void PrintCommandLineReport(const QString& which);

    QString commandLine_;
    QStringList statusTexts_;
    QString commandLineReport_;
    frmSplash* splash_ = nullptr;
    QSplitter* columns_ = nullptr;
    QSplitter* left_ = nullptr;
    QSplitter* right_ = nullptr;
    QStackedWidget* lowerRight_ = nullptr;
    bool ended_ = false;
    bool exiting_ = false;
};
