#include "measures/clsAbbreviations.h"
#include "support/Rows.h"
#include "support/TestEnv.h"

class AbbreviationsTest : public LarderTest {
protected:
    static QStringList DescriptionsOf(const QString& abbreviation) {
        return rows::Column("SELECT * FROM Abbreviation WHERE [Abbreviation] = " + rows::Literal(abbreviation),
                            "Description");
    }
};

TEST_F(AbbreviationsTest, AddNewStoresTheUnitWithItsGivenNameOrAsksForOne) {
    clsAbbreviations units;
    EXPECT_FALSE(units.Exists("tin"));
    units.Abbreviation("tin");
    units.Description("Tin");
    EXPECT_TRUE(units.AddNew());
    EXPECT_TRUE(units.Exists("tin"));
    EXPECT_TRUE(units.Exists("TIN"));
    EXPECT_EQ(DescriptionsOf("tin"), QStringList({"Tin"}));
    EXPECT_EQ(ui.count(), 0);

    ui.answerInput("Baker's Spoon");
    clsAbbreviations asking;
    asking.Abbreviation("b's");
    EXPECT_TRUE(asking.AddNew());
    ASSERT_EQ(ui.count(), 1);
    EXPECT_EQ(ui.lastBox().kind, "InputBox");
    EXPECT_EQ(LastBox(), "Add Description: What Decription would you like to use for b's?");
    EXPECT_EQ(DescriptionsOf("b's"), QStringList({"Baker's Spoon"}));
    EXPECT_EQ(asking.Description(), "Baker's Spoon");  // no recordset open: the member
}

TEST_F(AbbreviationsTest, ReadsFollowTheOpenRowWritesOnlyTheMember) {
    clsAbbreviations units;
    units.Abbreviation("tin");
    units.OpenDB("SELECT * FROM Abbreviation WHERE [Abbreviation] = 'cup'", adOpenKeyset, adLockReadOnly);
    EXPECT_EQ(units.Abbreviation(), "cup");
    EXPECT_EQ(units.Description(), "Cup");
    units.CloseDB();
    EXPECT_EQ(units.Abbreviation(), "tin");
}

TEST_F(AbbreviationsTest, RemoveDeletesEveryRowOfTheUnitAndATooLongOneIsNeverStored) {
    const int before = rows::Count("SELECT * FROM Abbreviation");
    clsAbbreviations units;
    for (const char* name : {"Baker's pinch", "Chef's pinch"}) {
        units.Abbreviation("b'p");
        units.Description(name);
        units.AddNew();
    }
    units.Remove("b'p");
    EXPECT_FALSE(units.Exists("b'p"));
    units.Remove("no such unit");
    units.Remove("");
    EXPECT_EQ(rows::Count("SELECT * FROM Abbreviation"), before);
    EXPECT_TRUE(units.Exists("pinch"));
    EXPECT_EQ(ui.count(), 0);

    ui.answer(Answer::OK);
    units.Abbreviation(QString(300, 'a'));
    units.Description("Long");
    EXPECT_FALSE(units.AddNew());
    ASSERT_EQ(ui.count(), 1);
    EXPECT_EQ(ui.lastBox().prompt,
              "Error: The field is too small to accept the amount of data you attempted to add. "
              "(Occurred in Abbreviations.AddNew)");
    EXPECT_EQ(rows::Count("SELECT * FROM Abbreviation"), before);
}
