#include "core/Globals.h"
#include "measures/modConvert.h"
#include "platform/Database.h"
#include "platform/FirstStart.h"
#include "platform/Recordset.h"
#include "support/Rows.h"
#include "support/TestEnv.h"

#include <QDir>
#include <QFile>
#include <unistd.h>

class TemplateTest : public LarderTest {
protected:
    static int Count(const QString& table) { return rows::Count("SELECT * FROM " + table); }
};

TEST_F(TemplateTest, StartingDataIsComplete) {
    EXPECT_EQ(Count("Nutrition"), 7413);
    EXPECT_EQ(rows::Field("Nutrition", "Item", "Butter, salted", "Calories").toDouble(), 717.0);
    EXPECT_NEAR(rows::Field("Nutrition", "Item", "Butter, salted", "Fat Calories").toDouble(), 729.99, 0.01);
    EXPECT_EQ(rows::Field("Cookbook", "Name", "General", "Specialty").toString(), "None");
    EXPECT_GE(Count("RecipieCategory"), 20);
    EXPECT_GE(Count("ItemCategory"), 25);
    // Every cell of the square chart is there, filled or not.
    const int measures = Count("Abbreviation");
    EXPECT_EQ(Count("Conversion"), measures * measures);
}

TEST_F(TemplateTest, ConversionChartAgreesBothWays) {
    EXPECT_EQ(ConvertUnit("cup", "1", "tbsp"), "16");
    EXPECT_EQ(ConvertUnit("tbsp", "48", "cup"), "3");
    EXPECT_EQ(ConvertUnit("lb", "2", "oz"), "32");
    // Volume and weight have no constant: an empty cell, read as none known.
    EXPECT_EQ(ConvertUnit("cup", "1", "g"), "0");
    EXPECT_EQ(ui.count(), 0);
}

TEST(FirstStartTest, AnUnwritableFolderIsNamedInTheMessage) {
    QTemporaryDir dir;
    const QString locked = dir.filePath("locked");
    QDir().mkpath(locked);
    QFile::setPermissions(locked, QFile::ReadOwner | QFile::ExeOwner);
    qputenv("LARDERKEEP_HOME", QFile::encodeName(locked + "/Larderkeep"));
    QString error;
    const bool made = FirstStart::Run(&error);
    if (getuid() == 0) {  // root writes anywhere; then the folder is simply made
        EXPECT_TRUE(made);
        EXPECT_TRUE(QFile::exists(locked + "/Larderkeep/Larderkeep.mdb"));
    } else {
        EXPECT_FALSE(made);
        EXPECT_NE(error.indexOf(locked + "/Larderkeep"), -1) << error.toStdString();
    }
    QFile::setPermissions(locked, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

TEST(FirstStartTest, FirstStartMakesTheFolderOnceAndNeverRebuildsALostDatabase) {
    QTemporaryDir dir;
    const QString home = dir.filePath("Larderkeep");
    qputenv("LARDERKEEP_HOME", QFile::encodeName(home));
    QString error;
    ASSERT_TRUE(FirstStart::Run(&error)) << error.toStdString();
    EXPECT_TRUE(QFile::exists(home + "/Larderkeep.mdb"));
    EXPECT_TRUE(QDir(home + "/Export").exists());
    QFile dictionary(home + "/dictionary.dic");
    ASSERT_TRUE(dictionary.open(QIODevice::ReadOnly));
    EXPECT_TRUE(dictionary.readLine().endsWith("\r\n"));

    QFile::remove(home + "/Larderkeep.mdb");
    ASSERT_TRUE(FirstStart::Run(&error));
    EXPECT_FALSE(QFile::exists(home + "/Larderkeep.mdb"));  // a lost database is reported, not replaced
}
