#include "MessageRows.h"
#include "core/MainPanes.h"
#include "messages/frmCalendarEvents.h"
#include "support/TestEnv.h"

#include <QFile>
#include <QLabel>
#include <QStandardItem>

namespace {

class CalendarEventsTest : public LarderTest {
protected:
    void SetUp() override {
        LarderTest::SetUp();
        MessageRows::Add("Bake bread", "a", "11/22/2026", 1, 1);
        MessageRows::Add("Buy yeast", "b", "11/19/2026", 1, 1);
        MessageRows::Add("Plan the party", "c", "12/02/2026", 2, 4);
        MessageRows::Add("Whenever", "d", "None", 1, 1);
        MessageRows::Add("Scrambled", "e", "the 3rd?", 1, 1);
        MessageRows::Add("Lunch today", "f", "11/22/2026 1:00 PM", 1, 1);
    }
    static QString Image(QStandardItem* node) { return node->data(MainPanes::ImageKeyRole).toString(); }
};

TEST_F(CalendarEventsTest, DatedMessagesHangUnderOneRootMarkedByWhenTheyFall) {
    frmCalendarEvents f;
    EXPECT_EQ(f.lblDate->text(), "Sunday, Nov 22 2026");
    ASSERT_EQ(f.events.rowCount(), 1);
    QStandardItem* root = f.events.item(0);
    EXPECT_EQ(root->text(), "Messages");
    EXPECT_EQ(root->data(MainPanes::KeyRole).toString(), "Message");
    EXPECT_TRUE(root->font().bold());
    ASSERT_EQ(root->rowCount(), 4);
    EXPECT_EQ(root->child(0)->text(), "Bake bread");
    EXPECT_EQ(Image(root->child(0)), "Today");
    EXPECT_EQ(Image(root->child(1)), "Notice");
    EXPECT_EQ(Image(root->child(2)), "Generic");
    EXPECT_EQ(root->child(2)->foreground().color(), QColor(100, 100, 100));
    EXPECT_EQ(root->child(3)->text(), "Lunch today");
    EXPECT_EQ(Image(root->child(3)), "Today");
    EXPECT_EQ(ui.count(), 0);
}

TEST_F(CalendarEventsTest, TooBusyMovesTodaysEventsToTomorrowAfterAYes) {
    frmCalendarEvents f;
    ui.answer(Answer::No);
    f.lblImTooBusy_Click();
    EXPECT_EQ(ui.lastBox().prompt, "This will Postpone all of todays events until tomorrow, Are you sure?");
    EXPECT_EQ(ui.lastBox().title, "Postpone?");
    EXPECT_EQ(MessageRows::Field("Bake bread", "Date").toString(), "2026-11-22");

    ui.answer(Answer::Yes);
    f.lblImTooBusy_Click();
    EXPECT_EQ(MessageRows::Field("Bake bread", "Date").toString(), "2026-11-23");
    EXPECT_EQ(MessageRows::Field("Lunch today", "Date").toString(), "2026-11-23 13:00:00");
    EXPECT_EQ(MessageRows::Field("Buy yeast", "Date").toString(), "2026-11-19");
    EXPECT_EQ(MessageRows::Field("Whenever", "Date").toString(), "None");
    QStandardItem* root = f.events.item(0);
    EXPECT_EQ(Image(root->child(0)), "Generic");
    EXPECT_EQ(ui.count(), 2);
}

TEST_F(CalendarEventsTest, PrintingTheDayListsWhatIsShown) {
    frmCalendarEvents f;
    ui.answerFile(HomeFile("today.pdf"));
    f.lblPrintToday_Click();
    EXPECT_TRUE(QFile::exists(HomeFile("today.pdf")));
    EXPECT_EQ(ui.count(), 1);
}

}  // namespace
