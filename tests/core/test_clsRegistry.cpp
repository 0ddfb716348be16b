#include "core/Globals.h"
#include "core/clsRegistry.h"
#include "platform/RuntimeError.h"
#include "platform/SettingsStore.h"
#include "support/TestEnv.h"

namespace {

class RegistryTest : public LarderTest {};

TEST_F(RegistryTest, TheTwoDailyAmountSetsShareKeysButNotDefaults) {
    clsRegistry r;
    EXPECT_EQ(r.RDA_Calcium(), 2000);
    EXPECT_EQ(r.RDACalcium(), "1000");
    r.RDACalcium("1200");
    EXPECT_EQ(r.RDA_Calcium(), 1200);
}

TEST_F(RegistryTest, ManganeseIsWrittenButReadFromCopper) {
    clsRegistry r;
    EXPECT_EQ(r.RDAMangenese(), "3");
    r.RDAMangenese("5");
    EXPECT_EQ(r.RDAMangenese(), "3");
    EXPECT_EQ(GetSetting("Settings", "RDA_Mangenese"), "5");
    r.RDACopper("2.5");
    EXPECT_EQ(r.RDAMangenese(), "2.5");
}

TEST_F(RegistryTest, StoredTextConvertsOrRaises) {
    clsRegistry r;
    SaveSetting("Settings", "BACKUP_REMINDER", "-1");
    EXPECT_TRUE(r.BackupReminder());
    r.AllowExplode(false);
    EXPECT_EQ(GetSetting("Settings", "ALLOW_EXPLODE"), "False");
    SaveSetting("Settings", "EXPIRE_DAYS", "abc");
    try {
        r.CouponExpireDays();
        ADD_FAILURE() << "a non-number read as a number";
    } catch (const RuntimeError& e) {
        EXPECT_EQ(e.description(), "Type mismatch");
    }
}

TEST_F(RegistryTest, AbsentKeysGiveDefaultsWithoutBeingWritten) {
    clsRegistry r;
    EXPECT_EQ(r.DateDisplayFormat(), "mm/dd/yyyy");
    EXPECT_EQ(r.ExplodeRate(), 500);
    EXPECT_EQ(r.CouponExpiredAction(), 3);
    EXPECT_EQ(r.LastBackup(), "Never");
    EXPECT_EQ(r.DrinkCategory(), "<Enter or Select>");
    EXPECT_EQ(r.RDABasis(), "Adult Male (31-50 yrs)");
    EXPECT_EQ(r.MessageView().toInt(), 3);
    EXPECT_TRUE(r.PromptBeforeAdd().toBool());
    EXPECT_EQ(r.DatabasePath(), HomeFile("Larderkeep.mdb"));
    EXPECT_EQ(r.DictionaryPath(), HomeFile("dictionary.dic"));
    EXPECT_EQ(r.SaveReportDirectory(), Home());
    EXPECT_FALSE(HasSetting("Settings", "DATE_DISPLAY"));
    EXPECT_FALSE(HasSetting("Settings", "DB_PATH"));
}

TEST_F(RegistryTest, WritesAreSeenAtOnceAndWindowPlacesUseTheFormName) {
    clsRegistry a, b;
    a.StartupCookbook("Mom's Best");
    EXPECT_EQ(b.StartupCookbook(), "Mom's Best");
    a.FormSettingName("frmShoppingList");
    a.FormTop(120);
    EXPECT_EQ(GetSetting("Settings", "frmShoppingList-Top"), "120");
    b.FormSettingName("frmShoppingList");
    EXPECT_EQ(b.FormTop(), 120);
    b.FormSettingName("frmOther");
    EXPECT_EQ(b.FormTop(), 0);
    EXPECT_EQ(a.RecentlyUsed(), 0);
}

}  // namespace
