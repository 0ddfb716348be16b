// The start and close of the program: the sequence behind the splash screen and
// the two-stage exit.
#include "app/frmMain.h"
#include "app/frmSplash.h"
#include "core/Dates.h"
#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/ListView.h"
#include "core/MainPanes.h"
#include "core/Values.h"
#include "core/clsRegistry.h"
#include "core/deLarderkeep.h"
#include "core/modDatabase.h"
#include "messages/MessageCommands.h"
#include "messages/clsMessages.h"
#include "messages/frmReminder.h"
#include "platform/Clock.h"
#include "platform/Database.h"
#include "platform/DatabaseFile.h"
#include "platform/ProgramFolder.h"
#include "platform/Recordset.h"
#include "platform/SettingsStore.h"
#include "platform/Ui.h"
#include "products/modInventory.h"
#include "products/clsSpendHistory.h"

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

namespace {

// What is wrong with a database that cannot be used, in the person's words.
QString DatabaseTroubleText(const QString& error) {
    const QString e = error.toLower();
    if (e.contains(QLatin1String("not a larderkeep database")) || e.contains(QLatin1String("not a database")) ||
        e.contains(QLatin1String("file is empty")))
        return QStringLiteral("The file is not a Larderkeep database.");
    if (e.contains(QLatin1String("malformed")) || e.contains(QLatin1String("corrupt")) ||
        e.contains(QLatin1String("cut short")))
        return QStringLiteral("The file is damaged.");
    if (e.contains(QLatin1String("read-only")) || e.contains(QLatin1String("readonly")))
        return QStringLiteral("The file is read-only.");
    if (e.contains(QLatin1String("locked")) || e.contains(QLatin1String("busy")))
        return QStringLiteral("The file is in use by another program (perhaps Larderkeep itself, started twice).");
    return QStringLiteral("The file cannot be read or written (%1).").arg(error);
}

QString DatabaseAdvice(const QString& trouble) {
    if (trouble.contains(QLatin1String("in use")))
        return QStringLiteral("Close the other program and start Larderkeep again.");
    if (trouble.contains(QLatin1String("read-only")) || trouble.contains(QLatin1String("cannot be read")) ||
        trouble.contains(QLatin1String("folder")))
        return QStringLiteral(
            "Check that you may read and write the file and its folder, then start Larderkeep "
            "again.");
    return QStringLiteral(
        "Put a backup copy of the database in its place, or move the file aside to start with a "
        "new household, then start Larderkeep again.");
}

}  // namespace

void frmMain::Form_Load() {
    statusTexts_.clear();
    try {
        PrintCommandLineRequest();
        SaveSetting(QStringLiteral("Settings"), QStringLiteral("InstallDir"), ProgramFolder::Path());
        ShowSplash();
        RunStartUpkeep();
        CheckBackupAge();
        if (!OpenDatabase()) {
            EndStart();
            return;
        }
        LoadPanes();
        CheckDictionary();
        RunStartPurges();
        FinishStart();
    } catch (const std::exception& e) {
        ReportError(e, QStringLiteral("frmMain.Load"));
    }
    CloseSplash();
}

// A report asked for on the command line prints first; the start then carries
// on behind the hidden window.
void frmMain::PrintCommandLineRequest() {
    if (commandLine_ == QLatin1String("/L"))
        PrintCommandLineReport(QStringLiteral("rptStandard"));
    else if (commandLine_ == QLatin1String("/C"))
        PrintCommandLineReport(QStringLiteral("rptCoupons"));
    else if (commandLine_ == QLatin1String("/I"))
        PrintCommandLineReport(QStringLiteral("rptInventory"));
}

void frmMain::ShowSplash() {
    if (!splash_) splash_ = new frmSplash;
    splash_->show();
    splash_->repaint();
}

void frmMain::CloseSplash() {
    if (!splash_) return;
    splash_->close();
    delete splash_;
    splash_ = nullptr;
}

// Compaction and backup run before the connection opens: both report that
// they cannot work on a closed connection and do nothing.
void frmMain::RunStartUpkeep() {
    if (Registry().DBCompact() == 2) DBCompact();
    if (Registry().BackupAction() == 1) {
        QString none;
        BackupDatabase(none, true);
    }
}

void frmMain::CheckBackupAge() {
    if (!Registry().BackupReminder()) return;
    const QString last = Registry().LastBackup();
    if (last == QLatin1String("Never")) {
        MsgBox(QStringLiteral("The database has never been Backed up."), Box::Exclamation, QStringLiteral("No Backup"));
        return;
    }
    if (DateDiff(QStringLiteral("d"), CDate(last), Clock::Now()) <= 7) return;
    Response = MsgBox(QStringLiteral("Your current backup is older than 7 days. It is recommended that you "
                                     "backup your database regularly. Do you want to run a backup now?"),
                      Box::YesNo + Box::Question + Box::DefaultButton2 + Box::HelpButton, QStringLiteral("Notice"),
                      Registry().HelpFile(), 1091);
    if (Response == Answer::Yes) MsgBox(QStringLiteral("Add Code!"));
}

bool frmMain::OpenDatabase() {
    const QString database = ProgramFolder::File(QStringLiteral("Larderkeep.mdb"));
    if (!QFile::exists(database)) {
        MsgBox(QStringLiteral("The Larderkeep database is missing, please select 'OK' the close program."),
               Box::Critical, QStringLiteral("Missing Database"));
        return false;
    }
    QString trouble;
    switch (DatabaseFile::Inspect(database)) {
    case DatabaseFile::Trouble::Empty:
    case DatabaseFile::Trouble::NotADatabase:
        trouble = QStringLiteral("The file is not a Larderkeep database.");
        break;
    case DatabaseFile::Trouble::Truncated:
        trouble = QStringLiteral("The file is damaged: it has been cut short.");
        break;
    case DatabaseFile::Trouble::None:
        break;
    }
    if (trouble.isEmpty()) {
        ConnectionMain().ConnectionString(kConnectionText + database);
        try {
            ConnectionMain().Open(ConnectionMain().ConnectionString(), QString(), QString(), -1);
        } catch (const DbError& e) {
            trouble = DatabaseTroubleText(e.description());
        }
    }
    if (trouble.isEmpty()) return true;
    MsgBox(QStringLiteral("Larderkeep cannot open its database:\n%1\n\n%2\n\n%3")
               .arg(QDir::toNativeSeparators(database), trouble, DatabaseAdvice(trouble)),
           Box::Critical, QStringLiteral("Database Error"));
    return false;
}

void frmMain::EndStart() {
    CloseSplash();
    ConnectionMain().Close();
    ended_ = true;
    exitStatus_ = 1;
    for (QWidget* w : QApplication::topLevelWidgets())
        if (w != this) w->close();
    close();
}

void frmMain::LoadPanes() {
    ShowingCurrentList = true;
    const QString quickSearch = ProgramFolder::File(QStringLiteral("qs.dat"));
    if (QFile::exists(quickSearch) && !Registry().SaveQuickSearch()) QFile::remove(quickSearch);
    LayoutPanes();

    Status(QStringLiteral("Loading Messages ..."));
    LoadMessages();
    lvMessageCenter->View(CLng(Registry().MessageView()));
    MessageCommands::DisplayReminders();

    Status(QStringLiteral("Loading QuickStart ..."));
    LoadQuickStart();
    MainPanes& panes = MainPanes::Instance();
    panes.Clear(panes.coupons);
    panes.Root(panes.coupons, QStringLiteral("Coupons"), QStringLiteral("Coupons"));
    Status(QStringLiteral("Loading Manufacturers/Coupons ..."));
    LoadCoupons();

    panes.Clear(panes.recipes);
    panes.Root(panes.recipes, QStringLiteral("Recipies"), QStringLiteral("Recipies"));
    CurrentCookbook = Registry().StartupCookbook();
    Status(QStringLiteral("Loading Recipes ..."));
    LoadRecipies();
    StatusPanelCookbook->setText(QStringLiteral("Current Cookbook: ") + CurrentCookbook);

    Status(QStringLiteral("Loading Shopping List ..."));
    panes.currentList.setHorizontalHeaderLabels(
        {QStringLiteral("Item"), QStringLiteral("Quantity"), QStringLiteral("Size"), QStringLiteral("Style")});
    panes.currentList.horizontalHeaderItem(1)->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    lvCurrentList->View(ListView::lvwReport);
    lvCurrentList->SetColumnShares({40, 18, 20, 20});
    LoadShoppingList();

    Status(QStringLiteral("Loading Meals ..."));
    LoadMealList();
    LoadMealCalendar();
}

// The calendar opens on the month shown with its meal days bold, the last of
// them selected.
void frmMain::LoadMealCalendar() {
    MainPanes& panes = MainPanes::Instance();
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

void frmMain::CheckDictionary() {
    Status(QStringLiteral("Loading Dictionary ..."));
    if (QFile::exists(Registry().DictionaryPath())) {
        Registry().SpellCheckAvailable(true);
        return;
    }
    MsgBox(QStringLiteral("SpellCheck dictionary was not found, this option will not be available"), Box::Exclamation,
           QStringLiteral("Missing Dictionary"));
    Registry().SpellCheckAvailable(false);
}

void frmMain::RunStartPurges() {
    if (Registry().CheckForUpgrade() == 1) {
        Status(QStringLiteral("Checking for Updates ..."));
        mnuCheckForUpdates_Click();
    }
    Status(QStringLiteral("Removing old Inventory ..."));
    RemoveExpiredItems();
    SetCurrentInventory();
    if (Registry().PurgeCostHistory()) {
        Status(QStringLiteral("Removing old Cost History ..."));
        bool purged = false;
        clsSpendHistory().PurgeExpired(0, 0, purged);
    }
    // Attached handhelds are not looked for at start: the check stays off.
    if (!DeviceCheckDisabled() && Registry().PalmAppsInstalled()) {
        Status(QStringLiteral("Checking for attached devices ..."));
    }
}

void frmMain::FinishStart() {
    setWindowTitle(
        QStringLiteral("Larderkeep  v. %1.%2.%3").arg(LK_VERSION_MAJOR).arg(LK_VERSION_MINOR).arg(LK_VERSION_PATCH));
    CloseSplash();
    SetMenuIcons();
    if (CLng(GetSetting(QStringLiteral("Settings"), QStringLiteral("Show Tips at Startup"), QStringLiteral("1"))) == 1)
        ShowTip();
    if (PurgeOnStart) {
        ShowPurge();
        PurgeOnStart = false;
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
        messages.OpenDB(QStringLiteral("SELECT * FROM Messages WHERE [ReminderTime] <> 4"), adOpenKeyset,
                        adLockReadOnly);
        while (!messages.dbEOF()) {
            const QString when = messages.MesDate();
            // Only a real date can fall due: a word or a damaged date never holds the exit.
            if (IsDate(when) && DateDiff(QStringLiteral("d"), Clock::Now(), CDate(when)) < 0) {
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
    } catch (...) {}
    ConnectionMain().Close();
}

// Routines of other parts of the program, filled in as those arrive.
void frmMain::RemoveExpiredItems() { modInventory::RemoveExpiredItems(); }
void frmMain::mnuCheckForUpdates_Click() {}
void frmMain::ShowTip() {}
void frmMain::ShowPurge() {}
