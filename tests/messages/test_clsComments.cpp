#include "core/Globals.h"
#include "messages/clsComments.h"
#include "messages/frmComment.h"
#include "platform/Recordset.h"
#include "support/TestEnv.h"

#include <QFile>
#include <QPushButton>
#include <QTextEdit>

using CommentsTest = LarderTest;

TEST_F(CommentsTest, ACommentIsStoredAgainstItsRowKey) {
    clsComments comments;
    const QString text = QString("Guests said: \"too salty\", Bob's plate came back.\r\n") + QString(5000, 'z');
    EXPECT_TRUE(comments.AddComment(text, 42));
    EXPECT_TRUE(comments.AddComment("", 7));
    comments.OpenDB("SELECT * FROM Comments WHERE [ID] = 42", adOpenKeyset, adLockReadOnly);
    ASSERT_EQ(comments.RecordCount(), 1);
    EXPECT_EQ(comments.Comment(), text);
    EXPECT_EQ(comments.ID(), 42);
    comments.CloseDB();
    EXPECT_EQ(ui.count(), 0);

    ConnectionMain().Close();
    ui.answer(Answer::OK);
    EXPECT_FALSE(comments.AddComment("x", 1));
    EXPECT_EQ(ui.lastBox().prompt,
              "Error: Operation is not allowed when the object is closed. (Occurred in Comments.AddComment)");
}

TEST_F(CommentsTest, TheEditorGivesBackTheEditedTextOnlyWhenAccepted) {
    frmComment f;
    ui.answerModal([](QDialog* d) {
        auto* form = static_cast<frmComment*>(d);
        EXPECT_EQ(form->txtComments->toPlainText(), "first draft");
        form->cmdClear_Click();
        form->txtComments->setPlainText("second draft");
        form->cmdOK->click();
        return form->result();
    });
    EXPECT_EQ(f.GetComments("first draft"), "second draft");
    ui.answerModal([](QDialog* d) {
        auto* form = static_cast<frmComment*>(d);
        form->txtComments->setPlainText("thrown away");
        form->cmdCancel->click();
        return form->result();
    });
    EXPECT_EQ(f.GetComments("kept"), "kept");
}

TEST_F(CommentsTest, OpenLoadsATextFileAndSaysSoWhenItCannot) {
    {
        QFile f(HomeFile("notes.txt"));
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write("Use less salt\nServe warm");
    }
    frmComment f;
    ui.answerFile(HomeFile("notes.txt"));
    f.tbEditor_ButtonClick("Open");
    EXPECT_EQ(f.txtComments->toPlainText(), "Use less salt\nServe warm");
    ui.answerFile(HomeFile("gone.txt"));
    ui.answer(Answer::OK);
    f.tbEditor_ButtonClick("Open");
    EXPECT_EQ(ui.lastBox().prompt, "Error: File not found (Occurred in frmComment.GetComment)");
    EXPECT_EQ(f.txtComments->toPlainText(), "Use less salt\nServe warm");
    ui.answerFile(QString());  // cancelled
    f.tbEditor_ButtonClick("Open");
    EXPECT_EQ(f.txtComments->toPlainText(), "Use less salt\nServe warm");
}
