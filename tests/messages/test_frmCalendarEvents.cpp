#include "core/MainPanes.h"
#include "messages/frmCalendarEvents.h"
#include "support/Rows.h"
#include "support/TestEnv.h"

#include <QFile>
#include <QLabel>
#include <QStandardItem>

class CalendarEventsTest : public LarderTest {
protected:
    void SetUp() override {
        LarderTest::SetUp();
        rows::Message("Bake bread", "a", "11/22/2026", 1, 1);
        rows::Message("Buy yeast", "b", "11/19/2026", 1, 1);
        rows::Message("Plan the party", "c", "12/02/2026", 2, 4);
        rows::Message("Whenever", "d", "None", 1, 1);
        rows::Message("Scrambled", "e", "the 3rd?", 1, 1);
        rows::Message("Lunch today", "f", "11/22/2026 1:00 PM", 1, 1);
    }
    // "text|image" of each message under the root.
    static QStringList Shown(QStandardItem* root) {
        QStringList out;
        for (int i = 0; i < root->rowCount(); ++i)
            out << root->child(i)->text() + "|" + root->child(i)->data(MainPanes::ImageKeyRole).toString();
        return out;
    }
    static QString DateOf(const QString& title) { return rows::Field("Messages", "Title", title, "Date").toString(); }
};

TEST_F(CalendarEventsTest, DatedMessagesHangUnderOneRootMarkedByWhenTheyFall) {
    frmCalendarEvents f;
    EXPECT_EQ(f.lblDate->text(), "Sunday, Nov 22 2026");
    ASSERT_EQ(f.events.rowCount(), 1);
    QStandardItem* root = f.events.item(0);
    EXPECT_EQ(root->text(), "Messages");
    EXPECT_EQ(root->data(MainPanes::KeyRole).toString(), "Message");
    EXPECT_TRUE(root->font().bold());
    EXPECT_EQ(Shown(root),
              QStringList({"Bake bread|Today", "Buy yeast|Notice", "Plan the party|Generic", "Lunch today|Today"}));
    EXPECT_EQ(root->child(2)->foreground().color(), QColor(100, 100, 100));
    EXPECT_EQ(ui.count(), 0);
}

TEST_F(CalendarEventsTest, TooBusyMovesTodaysEventsToTomorrowAfterAYes) {
    frmCalendarEvents f;
    ui.answer(Answer::No);
    f.lblImTooBusy_Click();
    EXPECT_EQ(LastBox(), "Postpone?: This will Postpone all of todays events until tomorrow, Are you sure?");
    EXPECT_EQ(DateOf("Bake bread"), "2026-11-22");

    ui.answer(Answer::Yes);
    f.lblImTooBusy_Click();
    EXPECT_EQ(QStringList({DateOf("Bake bread"), DateOf("Lunch today"), DateOf("Buy yeast"), DateOf("Whenever")}),
              QStringList({"2026-11-23", "2026-11-23 13:00:00", "2026-11-19", "None"}));
    EXPECT_EQ(Shown(f.events.item(0)).value(0), "Bake bread|Generic");
    EXPECT_EQ(ui.count(), 2);
}

TEST_F(CalendarEventsTest, PrintingTheDayListsWhatIsShown) {
    frmCalendarEvents f;
    ui.answerFile(HomeFile("today.pdf"));
    f.lblPrintToday_Click();
    EXPECT_TRUE(QFile::exists(HomeFile("today.pdf")));
    EXPECT_EQ(ui.count(), 1);
}
