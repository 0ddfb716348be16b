#include "app/frmMain.h"
#include "core/MainPanes.h"
#include "core/clsRegistry.h"
#include "messages/EditorToolbar.h"
#include "messages/frmMessageNew.h"
#include "support/Rows.h"
#include "support/TestEnv.h"

#include <QAction>
#include <QCalendarWidget>
#include <QLabel>
#include <QLineEdit>
#include <QStandardItem>
#include <QTextEdit>

class MessageNewTest : public LarderTest {
protected:
    void SetUp() override {
        LarderTest::SetUp();
        rows::Message("Seed", "keeps the table from being empty", "None", 2, 4);
    }
};

TEST_F(MessageNewTest, TheCaptionFollowsTheTypeAndTheSubjectTyped) {
    frmMessageNew f;
    EXPECT_EQ(f.windowTitle(), "[Message] ");
    EXPECT_EQ(f.MessageDate(), "None");
    EXPECT_EQ(f.MessageType(), 2);
    f.txtSubject->setText("Buy stamps");
    EXPECT_EQ(f.windowTitle(), "[Message] Buy stamps");
    f.tbEditor_ButtonMenuClick("R");
    EXPECT_EQ(f.windowTitle(), "[Reminder] Buy stamps");
    EXPECT_EQ(f.MessageType(), 1);
    f.tbEditor_ButtonMenuClick("M");
    EXPECT_EQ(f.windowTitle(), "[Message] Buy stamps");
}

TEST_F(MessageNewTest, ASubjectIsRequiredWithHelpOnTheBox) {
    frmMessageNew f;
    for (const QString& subject : {QString("<Enter Subject>"), QString()}) {
        f.txtSubject->setText(subject);
        ui.answer(Answer::OK);
        f.cmdAddMessage_Click();
        const auto& box = ui.lastBox();
        EXPECT_EQ(LastBox(), "Missing Message: This Message must have a Subject.");
        EXPECT_EQ(box.buttons & Box::HelpButton, Box::HelpButton);
        EXPECT_EQ(box.context, 1040);
        EXPECT_EQ(box.helpFile, Registry().HelpFile());
    }
    EXPECT_EQ(rows::Count("SELECT * FROM Messages"), 1);
}

TEST_F(MessageNewTest, AddingWritesAFreshReminderShowsItAndClearsTheBoxesForTheNext) {
    frmMain w;
    frmMessageNew f;
    f.txtSubject->setText("Pick up the turkey");
    f.txtMessage->setPlainText("From Hanson's \"farm\" stand\nbefore noon");
    f.tbEditor_ButtonMenuClick("R");
    f.lblDate_Click();
    EXPECT_TRUE(f.MonthView1->isVisibleTo(&f));
    f.MonthView1_DateClick(QDate(2026, 11, 25));
    EXPECT_EQ(f.lblDate->text(), "Wednesday, Nov 25 2026");
    EXPECT_FALSE(f.MonthView1->isVisibleTo(&f));
    f.cmdAddMessage_Click();

    QStringList row;
    for (const char* column : {"Body", "Date", "Type", "ReminderTime"})
        row << rows::Field("Messages", "Title", "Pick up the turkey", column).toString();
    EXPECT_EQ(row, QStringList({"From Hanson's \"farm\" stand\nbefore noon", "2026-11-25", "1", "4"}));
    auto& pane = MainPanes::Instance().messages;
    ASSERT_EQ(pane.rowCount(), 1);
    EXPECT_EQ(QStringList({pane.item(0, 0)->text(), pane.item(0, 1)->text(), pane.item(0, 2)->text()}),
              QStringList({"Pick up the turkey", "11/25/2026", "From Hanson's \"farm\" stand;before noon"}));
    EXPECT_TRUE(f.txtSubject->text().isEmpty());
    EXPECT_TRUE(f.txtMessage->toPlainText().isEmpty());
    EXPECT_EQ(ui.count(), 0);
}

TEST_F(MessageNewTest, LongSubjectsKeepFiftyAndTextAroundThePlaceholderBecomesIt) {
    frmMessageNew f;
    f.txtSubject->setText(QString(60, 'x'));
    f.txtMessage->setPlainText("typed in front (None)");
    f.cmdAddMessage_Click();
    EXPECT_EQ(rows::Field("Messages", "Title", QString(50, 'x'), "Body").toString(), "(None)");
    EXPECT_EQ(rows::Field("Messages", "Title", QString(50, 'x'), "Date").toString(), "None");
    EXPECT_EQ(rows::Count("SELECT * FROM Messages"), 2);
    EXPECT_EQ(ui.count(), 0);
}

TEST_F(MessageNewTest, ClosingWithUnsavedTextAsksFirst) {
    {
        frmMessageNew f;
        f.show();
        f.cmdClose_Click();  // nothing typed: no question
        EXPECT_FALSE(f.isVisible());
        EXPECT_EQ(ui.count(), 0);
    }
    frmMessageNew f;
    f.show();
    f.txtMessage->setPlainText("half a thought");
    ui.answer(Answer::No);
    f.cmdClose_Click();
    EXPECT_EQ(LastBox(), "Exit: This message has not been saved, Exit anyway?");
    EXPECT_TRUE(f.isVisible());
    ui.answer(Answer::Yes);
    f.tbEditor_ButtonClick("Close");
    EXPECT_FALSE(f.isVisible());
    EXPECT_EQ(ui.count(), 2);
}

TEST_F(MessageNewTest, EmailExportIsOfferedButNotThereYet) {
    frmMessageNew f;
    ui.answer(Answer::No);
    f.tbEditor_ButtonClick("Email");
    EXPECT_EQ(LastBox(),
              "Export Message: This will save this Message as a file that can be emailed and imported\r\n"
              "into Microsoft Outlook's Calendar. Do you want to continue?");
    ui.answer(Answer::Yes);
    ui.answer(Answer::OK);
    f.tbEditor_ButtonClick("Email");
    EXPECT_EQ(LastBox(), "Coming Soon: This feature will be added soon!");
    EXPECT_EQ(ui.count(), 3);
}

TEST_F(MessageNewTest, SpellRunsTheInstalledCheckerAndSaysItIsDone) {
    Registry().SpellCheckAvailable(true);
    frmMessageNew f;
    QString seen;
    EditorToolbar::SetSpellChecker([&](QTextEdit* box) { seen = box->toPlainText(); });
    f.txtMessage->setPlainText("Recieve the parcel");
    ui.answer(Answer::OK);
    f.tbEditor->ButtonClick("Spell");
    EditorToolbar::SetSpellChecker({});
    EXPECT_EQ(seen, "Recieve the parcel");
    EXPECT_EQ(ui.lastBox().prompt, "Spell Check complete.");

    Registry().SpellCheckAvailable(false);
    frmMessageNew without;
    EXPECT_FALSE(without.tbEditor->Button("Spell")->isEnabled());
}
