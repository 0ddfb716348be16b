// The start and close of the program: the sequence behind the splash screen and
// the two-stage exit.
#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/ListView.h"
#include "core/MainPanes.h"
#include "core/Dates.h"
#include "core/Values.h"
#include "core/clsRegistry.h"
#include "core/frmMain.h"
#include "core/deLarderkeep.h"
#include "core/frmSplash.h"
#include "core/modDatabase.h"
#include "messages/clsMessages.h"
#include "messages/frmReminder.h"
#include "platform/Clock.h"
#include "products/clsSpendHistory.h"
#include "platform/Database.h"
#include "platform/ProgramFolder.h"
#include "platform/SettingsStore.h"
#include "platform/Ui.h"

#include <QApplication>
#include <QCalendarWidget>
#include <QDir>
#include <QFile>
#include <QHeaderView>
#include <QLabel>
#include <QListView>
#include <QPrinter>
#include <QPrinterInfo>
#include <QStandardItemModel>
#include <QTextDocument>
#include <QTreeView>

void frmMain::Status(const QString& text) {
    statusTexts_ << text;
    if (splash_) splash_->SetStatus(text);
}

void frmMain::Form_Load() {
    statusTexts_.clear();
    try {
        // 1. A report asked for on the command line prints first; the start then
        // carries on against the unloaded window, as it always has.
        if (commandLine_ == QLatin1String("/L")) PrintCommandLineReport(QStringLiteral("rptStandard"));
        else if (commandLine_ == QLatin1String("/C")) PrintCommandLineReport(QStringLiteral("rptCoupons"));
        else if (commandLine_ == QLatin1String("/I")) PrintCommandLineReport(QStringLiteral("rptInventory"));

        // 2.
        SaveSetting(QStringLiteral("Settings"), QStringLiteral("InstallDir"), ProgramFolder::Path());
        // 3.
        if (!splash_) splash_ = new frmSplash;
        splash_->show();
        splash_->repaint();
        // 4. and 5. The connection is not open yet: both report and do nothing.
        if (Registry().DBCompact() == 2) DBCompact();
        if (Registry().BackupAction() == 1) {
            QString none;
            BackupDatabase(none, true);
        }
        // 6.
        if (Registry().BackupReminder()) {
            const QString last = Registry().LastBackup();
            if (last != QLatin1String("Never")) {
                if (DateDiff(QStringLiteral("d"), CDate(last), Clock::Now()) > 7) {
                    Response = MsgBox(QStringLiteral("Your current backup is older than 7 days. It is recommended that you "
                                                     "backup your database regularly. Do you want to run a backup now?"),
                                      Box::YesNo + Box::Question + Box::DefaultButton2 + Box::HelpButton,
                                      QStringLiteral("Notice"), Registry().HelpFile(), 1091);
                    if (Response == Answer::Yes) MsgBox(QStringLiteral("Add Code!"));
                }
            } else {
                MsgBox(QStringLiteral("The database has never been Backed up."), Box::Exclamation,
                       QStringLiteral("No Backup"));
            }
        }
        // 7.
        const QString database = ProgramFolder::File(QStringLiteral("Larderkeep.mdb"));
        if (QFile::exists(database)) {
            ConnectionMain().ConnectionString(QStringLiteral("Provider=Microsoft.Jet.OLEDB.4.0;Data Source =") + database);
            try {
                ConnectionMain().Open(ConnectionMain().ConnectionString(), QString(), QString(), -1);
            } catch (const DbError& e) {
                MsgBox(QStringLiteral("The Larderkeep database could not be opened (%1): %2")
                           .arg(e.description(), QDir::toNativeSeparators(database)),
                       Box::Critical, QStringLiteral("Database Error"));
                mnuExit();
            }
        } else {
            MsgBox(QStringLiteral("The Larderkeep database is missing, please select 'OK' the close program."),
                   Box::Critical, QStringLiteral("Missing Database"));
            mnuExit();
        }
        // 8.
        ShowingCurrentList = true;
        const QString quickSearch = ProgramFolder::File(QStringLiteral("qs.dat"));
        if (QFile::exists(quickSearch) && !Registry().SaveQuickSearch()) QFile::remove(quickSearch);
        // 9.
        LayoutPanes();
        // 10.
        Status(QStringLiteral("Loading Messages ..."));
        LoadMessages();
        lvMessageCenter->View(CLng(Registry().MessageView()));
        DisplayReminders();
        // 11.
        Status(QStringLiteral("Loading QuickStart ..."));
        LoadQuickStart();
        MainPanes& panes = MainPanes::Instance();
        panes.Clear(panes.coupons);
        QStandardItem* couponRoot = panes.AddNode(panes.coupons, QString(), QStringLiteral("Root"), QStringLiteral("Coupons"));
        panes.SetBold(couponRoot);
        panes.SetImageKey(couponRoot, QStringLiteral("Coupons"));
        // 12.
        Status(QStringLiteral("Loading Manufacturers/Coupons ..."));
        LoadCoupons();
        // 13.
        panes.Clear(panes.recipes);
        QStandardItem* recipeRoot = panes.AddNode(panes.recipes, QString(), QStringLiteral("Root"), QStringLiteral("Recipies"));
        panes.SetBold(recipeRoot);
        panes.SetImageKey(recipeRoot, QStringLiteral("Recipies"));
        CurrentCookbook = Registry().StartupCookbook();
        // 14.
        Status(QStringLiteral("Loading Recipes ..."));
        LoadRecipies();
        StatusPanelCookbook->setText(QStringLiteral("Current Cookbook: ") + CurrentCookbook);
        // 15.
        Status(QStringLiteral("Loading Shopping List ..."));
        panes.currentList.setHorizontalHeaderLabels(
            {QStringLiteral("Item"), QStringLiteral("Quantity"), QStringLiteral("Size"), QStringLiteral("Style")});
        panes.currentList.horizontalHeaderItem(1)->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
        lvCurrentList->View(ListView::lvwReport);
        lvCurrentList->SetColumnShares({40, 18, 20, 20});
        LoadShoppingList();
        // 16.
        Status(QStringLiteral("Loading Meals ..."));
        LoadMealList();
        {
            Recordset rs;
            rs.Open(QStringLiteral("SELECT * FROM Meal"), ConnectionMain(), adOpenKeyset, adLockReadOnly);
            const QDate first(calMeals->yearShown(), calMeals->monthShown(), 1);
            const QDate last = first.addMonths(1).addDays(-1);
            while (!rs.IsEOF()) {
                const QVariant when = rs.Field(QStringLiteral("Dates"));
                if (IsDate(when)) {
                    const QDate d = CDate(when).date();
                    if (d >= first && d <= last) {
                        calMeals->setSelectedDate(d);
                        panes.boldMealDates.insert(d);
                    }
                }
                rs.MoveNext();
            }
            Q_EMIT panes.mealDatesChanged();
        }
        // 17.
        Status(QStringLiteral("Loading Dictionary ..."));
        if (QFile::exists(Registry().DictionaryPath())) {
            Registry().SpellCheckAvailable(true);
        } else {
            MsgBox(QStringLiteral("SpellCheck dictionary was not found, this option will not be available"),
                   Box::Exclamation, QStringLiteral("Missing Dictionary"));
            Registry().SpellCheckAvailable(false);
        }
        // 18.
        if (Registry().CheckForUpgrade() == 1) {
            Status(QStringLiteral("Checking for Updates ..."));
            mnuCheckForUpdates_Click();
        }
        // 19.
        Status(QStringLiteral("Removing old Inventory ..."));
        RemoveExpiredItems();
        SetCurrentInventory();
        // 20.
        if (Registry().PurgeCostHistory()) {
            Status(QStringLiteral("Removing old Cost History ..."));
            bool purged = false;
            clsSpendHistory().PurgeExpired(0, 0, purged);
        }
        // 21. Dormant: the guard always answers true.
        if (!DeviceCheckDisabled() && Registry().PalmAppsInstalled()) {
            Status(QStringLiteral("Checking for attached devices ..."));
        }
        // 22.
        setWindowTitle(QStringLiteral("Larderkeep  v. %1.%2.%3").arg(LK_VERSION_MAJOR).arg(LK_VERSION_MINOR).arg(LK_VERSION_PATCH));
        // 23.
        splash_->close();
        delete splash_;
        splash_ = nullptr;
        SetMenuIcons();
        // 24.
        if (CLng(GetSetting(QStringLiteral("Settings"), QStringLiteral("Show Tips at Startup"), QStringLiteral("1"))) == 1)
            ShowTip();
        // 25.
        if (PurgeOnStart) {
            ShowPurge();
            PurgeOnStart = false;
        }
    } catch (const std::exception& e) {
        ReportError(e, QStringLiteral("frmMain.Load"));
    }
    if (splash_) {
        splash_->close();
        delete splash_;
        splash_ = nullptr;
    }
}

void frmMain::PrintCommandLineReport(const QString& which) {
    // With the print dialog, all pages; a machine without a printer is offered a PDF.
    deLarderkeep::ByName(which).Print(this, true);
    commandLineReport_ = which;
    hide();
}

void frmMain::mnuExit() {
    if (exiting_) return;
    exiting_ = true;
    bool pending = false;
    try {
        clsMessages messages;
        messages.OpenDB(QStringLiteral("SELECT * FROM Messages WHERE [ReminderTime] <> 4"), adOpenKeyset, adLockReadOnly);
        while (!messages.dbEOF()) {
            const QString when = messages.MesDate();
            if (when != QLatin1String("None") && DateDiff(QStringLiteral("d"), Clock::Now(), CDate(when)) < 0) {
                auto* reminder = new frmReminder;
                reminder->SetMessageID(messages.Subject());
                reminder->SetMessageText(messages.Body());
                TheUi().ShowModeless(reminder, this);
                pending = true;
            }
            messages.MoveNext();
        }
        messages.CloseDB();
    } catch (const std::exception& e) {
        exiting_ = false;
        ReportError(e, QStringLiteral("frmMain.mnuExit"));
        return;
    }
    exiting_ = false;
    if (pending) return;  // the program stays open behind its reminders
    ended_ = true;
    Form_Unload();
    for (QWidget* w : QApplication::topLevelWidgets())
        if (w != this) w->close();
    close();
}

void frmMain::Form_Unload() {
    try {
        if (Registry().CheckForUpgrade() == 2) mnuCheckForUpdates_Click();
    } catch (...) {
    }
    ConnectionMain().Close();
}

// Routines of other parts of the program, filled in as those arrive.
void frmMain::RemoveExpiredItems() {}
void frmMain::mnuCheckForUpdates_Click() {}
void frmMain::ShowTip() {}
void frmMain::ShowPurge() {}
