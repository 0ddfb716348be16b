#include "measures/clsSize.h"
#include "support/Rows.h"
#include "support/TestEnv.h"

class SizeTest : public LarderTest {
protected:
    // The short form stored for a measure, "<null>" when it has none.
    static QStringList AbbreviationOf(const QString& name) {
        return rows::Column("SELECT * FROM ItemSize WHERE [Name] = " + rows::Literal(name), "Abbreviation");
    }
    void ExpectDuplicateQuestion() {
        ASSERT_GT(ui.count(), 0);
        const auto& box = ui.boxes().at(0);
        EXPECT_EQ(box.kind, "MsgBox");
        EXPECT_EQ(box.prompt, "The Abbreviation has already been used, would you like to select another?");
        EXPECT_EQ(box.title, "Duplicate Abbreviation");
        EXPECT_EQ(box.buttons, Box::YesNo + Box::Question);
    }
};

TEST_F(SizeTest, LookupsMatchWholeTextsWithoutCaseAndSurviveApostrophes) {
    clsSize sizes;
    QList<bool> found;
    for (const char* name : {"cup", "CUP", "cu", "", "baker's dozen"}) found << sizes.Exists(name);
    // No measure is stored without a short form.
    for (const char* abbreviation : {"tbsp", "tb'sp", ""}) found << sizes.AbbreviationExists(abbreviation);
    EXPECT_EQ(found, QList<bool>({true, true, false, false, false, true, false, false}));

    // A free short form is stored without a question.
    sizes.WriteNew("baker's dozen", "bdz");
    EXPECT_EQ(AbbreviationOf("baker's dozen"), QStringList({"bdz"}));
    EXPECT_TRUE(sizes.Exists("baker's dozen"));
    EXPECT_TRUE(sizes.AbbreviationExists("bdz"));
    EXPECT_EQ(ui.count(), 0);
}

TEST_F(SizeTest, ATakenShortFormIsKeptWhenThePersonSaysNo) {
    ui.answer(Answer::No);
    clsSize().WriteNew("teacup", "cup");
    ExpectDuplicateQuestion();
    EXPECT_EQ(ui.count(), 1);
    EXPECT_EQ(AbbreviationOf("teacup"), QStringList({"cup"}));
}

TEST_F(SizeTest, ATakenShortFormIsAskedForAgainUntilOneIsFree) {
    ui.answer(Answer::Yes);
    ui.answerInput("tsp");  // taken as well
    ui.answerInput("tcp");
    clsSize().WriteNew("teacup", "cup");
    ExpectDuplicateQuestion();
    const QString ask = "Please enter the Abbreviation for teacup that you would like to use";
    EXPECT_EQ(ui.prompts("InputBox"), QStringList({ask, ask}));
    EXPECT_EQ(ui.prompts("MsgBox").size(), 1);  // the question itself is asked once
    EXPECT_EQ(AbbreviationOf("teacup"), QStringList({"tcp"}));
}

TEST_F(SizeTest, AnEmptyAnswerLeavesTheMeasureWithoutAShortForm) {
    ui.answer(Answer::Yes);
    ui.answerInput("");
    clsSize sizes;
    sizes.WriteNew("mug", "cup");
    EXPECT_EQ(AbbreviationOf("mug"), QStringList({"<null>"}));
    ui.clear();

    // Measures without a short form never collide with one another.
    sizes.WriteNew("bowl", "");
    sizes.WriteNew("ladle", "");
    EXPECT_EQ(ui.count(), 0);
    EXPECT_EQ(AbbreviationOf("ladle"), QStringList({"<null>"}));
}

TEST_F(SizeTest, ATooLongNameIsReportedAndLeavesNoRow) {
    const int before = rows::Count("SELECT * FROM ItemSize");
    ui.answer(Answer::OK);
    clsSize().WriteNew(QString(300, 'x'), "xx");
    ASSERT_EQ(ui.count(), 1);
    EXPECT_EQ(ui.lastBox().title, "Error");
    EXPECT_TRUE(ui.lastBox().prompt.endsWith("(Occurred in Size.WriteNew)")) << ui.lastBox().prompt.toStdString();
    EXPECT_EQ(rows::Count("SELECT * FROM ItemSize"), before);
}
