#include "core/MainPanes.h"
#include "messages/frmReminder.h"
#include "publish/clsCommunications.h"
#include "support/Rows.h"
#include "support/TestEnv.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QStandardItem>

class ReminderTest : public LarderTest {
protected:
    void SetUp() override {
        LarderTest::SetUp();
        rows::Message("Seed", "keeps the table from being empty", "None", 2, 4);
        rows::Message("Return library books", "Three of them", "11/20/2026", 1, 1);
        MainPanes::Instance().messages.appendRow(MainPanes::MakeNode(QString(), "Return library books"));
    }
    // The window deletes itself when it closes, as an open reminder does.
    static frmReminder* Open(const QString& title = "Return library books") {
        auto* r = new frmReminder;
        r->SetMessageID(title);
        r->SetMessageText("Three of them");
        return r;
    }
    static QVariant Of(const QString& column, const QString& title = "Return library books") {
        return rows::Field("Messages", "Title", title, column);
    }
    static int PaneRows() { return MainPanes::Instance().messages.rowCount(); }
};

TEST_F(ReminderTest, TheTimerChoicesWaitForRemindMeAgainAndTheOverdueMarkForItsFlag) {
    QPointer<frmReminder> r = Open();
    EXPECT_EQ(r->windowTitle(), "Reminder Return library books");
    ASSERT_EQ(r->cboReminderTimer->count(), 3);
    EXPECT_EQ(QStringList({r->cboReminderTimer->itemText(0), r->cboReminderTimer->itemText(1),
                           r->cboReminderTimer->itemText(2), r->chkRemindAgain->text(), r->imgOverdue->toolTip(),
                           r->cmdOutlook->text()}),
              QStringList({"Before closing Larderkeep", "in 10 minutes", "in 1 hour", "Remind me again",
                           "This Reminder is Overdue", "&Export"}));
    EXPECT_FALSE(r->cboReminderTimer->isEnabled());
    r->chkRemindAgain->setChecked(true);
    EXPECT_TRUE(r->cboReminderTimer->isEnabled());
    r->chkRemindAgain->setChecked(false);
    EXPECT_FALSE(r->cboReminderTimer->isEnabled());

    EXPECT_TRUE(r->imgOverdue->isHidden());
    r->ReminderOverdue = true;
    r->Form_Load();
    EXPECT_FALSE(r->imgOverdue->isHidden());
    EXPECT_EQ(r->cboReminderTimer->count(), 3);  // loading again adds nothing
    delete r;
}

TEST_F(ReminderTest, ClosingWithoutRemindAgainDeletesTheMessageAfterAYes) {
    QPointer<frmReminder> r = Open();
    r->show();
    ui.answer(Answer::Yes);
    r->cmdClose_Click();
    EXPECT_EQ(LastBox(),
              "Continue: This message has not been marked for further notification so it will be deleted. "
              "Do you want to continue?");
    EXPECT_EQ(ui.lastBox().buttons, 292);
    EXPECT_FALSE(Of("Title").isValid());
    EXPECT_EQ(PaneRows(), 0);
    EXPECT_TRUE(r.isNull() || !r->isVisible());
}

TEST_F(ReminderTest, ClosingKeepsTheChosenTimeOnNoOrWithRemindAgainAndIgnoreKeepsItForThisRun) {
    ui.answer(Answer::No);
    Open()->cmdClose_Click();
    EXPECT_EQ(Of("ReminderTime").toInt(), 1);
    rows::Message("Other", "x", "None", 1, 4);
    frmReminder* r = Open();
    r->chkRemindAgain->setChecked(true);
    r->cboReminderTimer->setCurrentIndex(2);
    r->cmdClose_Click();
    EXPECT_EQ(Of("ReminderTime").toInt(), 3);
    frmReminder* other = Open("Other");
    other->chkRemindAgain->setChecked(true);
    other->cboReminderTimer->setCurrentIndex(1);
    other->cmdClose_Click();
    EXPECT_EQ(Of("ReminderTime", "Other").toInt(), 2);
    EXPECT_EQ(ui.count(), 1);
    EXPECT_EQ(PaneRows(), 1);

    Open()->cmdIgnore_Click();
    EXPECT_EQ(Of("ReminderTime").toInt(), 4);
    EXPECT_EQ(PaneRows(), 1);
    EXPECT_EQ(ui.count(), 1);
}

TEST_F(ReminderTest, ExportWritesTheCalendarFileAndThenRemovesTheReminder) {
    const QByteArray oldTmp = qgetenv("TMPDIR");
    qputenv("TMPDIR", QFile::encodeName(Home()));
    ui.answer(Answer::No);
    Open()->cmdOutlook_Click();
    qputenv("TMPDIR", oldTmp);
    QFile file(QDir(Home()).filePath("Return library books.vcs"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_TRUE(
        QString::fromUtf8(file.readAll()).contains("SUMMARY:Return library books\r\nDESCRIPTION:Three of them\r\n"));
    EXPECT_FALSE(Of("Title").isValid());
    EXPECT_EQ(PaneRows(), 0);
}

TEST_F(ReminderTest, RemovingAMessageThatIsAlreadyGoneLeavesThePaneAlone) {
    rows::Message("Someone else's", "x", "None", 1, 1);
    Open("Not in the table")->cmdRemove_Click();
    EXPECT_EQ(PaneRows(), 1);
    EXPECT_EQ(rows::Count("SELECT * FROM Messages"), 3);
    EXPECT_EQ(ui.count(), 0);
}
