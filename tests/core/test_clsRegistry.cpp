#include "core/Globals.h"
#include "core/Values.h"
#include "core/clsRegistry.h"
#include "core/modEffects.h"
#include "platform/SettingsStore.h"
#include "support/TestEnv.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QWidget>

class RegistryTest : public LarderTest {
protected:
    // Replaces the settings file, as a user editing it by hand would.
    void WriteSettingsFile(const QByteArray& content) {
        QFile file(SettingsFile());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(content);
    }
};

// Read-only settings have no write, and a write with a name of its own leaves
// the plain name reading only.
template <class T>
concept WritableToolbar = requires(T r) {
    r.MainToolbar(QVariant());
};
template <class T>
concept WritablePalm = requires(T r) {
    r.PalmAppsInstalled(true);
};
template <class T>
concept PlainDateWrite = requires(T r) {
    r.DateDisplayFormat(QString());
};
template <class T>
concept PlainDockWrite = requires(T r) {
    r.DockMeasurements(true);
};
static_assert(!WritableToolbar<clsRegistry> && !WritablePalm<clsRegistry>);
static_assert(!PlainDateWrite<clsRegistry> && !PlainDockWrite<clsRegistry>);

TEST_F(RegistryTest, EachKindReadsItsDefaultWithoutWritingAndStoresItsWritesAsText) {
    clsRegistry r;
    struct Setting {
        const char* key;
        QString def, probe, written;  // the default read; a stored text; what writing its value stores
        std::function<QString()> read;
        std::function<void()> write;  // writes the probe's value
    };
    const Setting settings[] = {
        {"ALLOW_EXPLODE", "True", "False", "False", [&] { return CStr(r.AllowExplode()); },
         [&] { r.AllowExplode(false); }},
        {"BACKUP_REMINDER", "False", "-1", "True", [&] { return CStr(r.BackupReminder()); },
         [&] { r.BackupReminder(true); }},
        {"EXPLODE_RATE", "500", "-7", "-7", [&] { return CStr(r.ExplodeRate()); }, [&] { r.ExplodeRate(-7); }},
        {"ING_MATCH_TYPE", "3", "40000", "40000", [&] { return CStr(r.InventoryMatchType()); },
         [&] { r.InventoryMatchType(40000); }},
        {"START_COOKBOOK", "General", "Mom's, \"best\"", "Mom's, \"best\"", [&] { return r.StartupCookbook(); },
         [&] { r.StartupCookbook("Mom's, \"best\""); }},
        {"DATE_DISPLAY", "mm/dd/yyyy", "d-mmm-yy", "d-mmm-yy", [&] { return r.DateDisplayFormat(); },
         [&] { r.DateDisplayFormatWrite("d-mmm-yy"); }},
        {"MESSAGE_VIEW", "3", "2", "2", [&] { return TextOf(r.MessageView()); }, [&] { r.MessageViewWrite(2); }},
        {"PROMPT_BEFORE_ADD", "True", "False", "False", [&] { return TextOf(r.PromptBeforeAdd()); },
         [&] { r.PromptBeforeAddSet(false); }},
        {"DOCK_MEASURES", "False", "True", "True", [&] { return CStr(r.DockMeasurements()); },
         [&] { r.DockMeasurementsSet(true); }},
        {"DICT_PATH", Home() + "/dictionary.dic", "/x.dic", "/x.dic", [&] { return r.DictionaryPath(); },
         [&] { r.DictionaryPath("/x.dic"); }},
    };
    for (const Setting& s : settings) {
        SCOPED_TRACE(s.key);
        EXPECT_EQ(s.read(), s.def);
        EXPECT_FALSE(HasSetting("Settings", s.key)) << "a read wrote its default";
        SaveSetting("Settings", s.key, s.probe);
        EXPECT_EQ(s.read(), s.probe == "-1" ? "True" : s.probe);
        DeleteSetting("Settings", s.key);
        s.write();
        EXPECT_EQ(GetSetting("Settings", s.key), s.written);
        DeleteSetting("Settings", s.key);
    }
    // Read only: a stored value is read, and nothing writes it.
    EXPECT_FALSE(r.PalmAppsInstalled());
    SaveSetting("Settings", "Palm_Installed", "True");
    EXPECT_TRUE(r.PalmAppsInstalled());
    SaveSetting("Settings", "MAIN_TOOLBAR", "Big");
    EXPECT_EQ(r.MainToolbar(), QVariant(QStringLiteral("Big")));
}

TEST_F(RegistryTest, TheTwoDailyAmountSetsShareKeysButNotDefaults) {
    clsRegistry r;
    EXPECT_EQ(r.RDA_Calcium(), 2000);
    EXPECT_EQ(r.RDACalcium(), "1000");
    r.RDACalcium("1200");
    EXPECT_EQ(r.RDA_Calcium(), 1200);
    r.RDA_Calcium(1500);
    EXPECT_EQ(r.RDACalcium(), "1500");

    // Manganese is written to its own key but read from copper's.
    r.RDAMangenese("5");
    EXPECT_EQ(r.RDAMangenese(), "3");
    EXPECT_EQ(GetSetting("Settings", "RDA_Mangenese"), "5");
    r.RDACopper("2.5");
    EXPECT_EQ(r.RDAMangenese(), "2.5");
}

TEST_F(RegistryTest, StoredTextIsConvertedByTheValueRules) {
    clsRegistry r;
    SaveSetting("Settings", "EXPIRE_DAYS", "40000");
    EXPECT_EQ(ErrorOf([&] { r.CouponExpireDays(); }), Err::Overflow);
    SaveSetting("Settings", "RDA_Ash", "40000");
    EXPECT_EQ(ErrorOf([&] { r.RDA_Ash(); }), Err::Overflow);
    SaveSetting("Settings", "EXPIRE_DAYS", "abc");
    EXPECT_EQ(ErrorOf([&] { r.CouponExpireDays(); }), Err::TypeMismatch);
    SaveSetting("Settings", "ALLOW_EXPLODE", "");
    EXPECT_EQ(ErrorOf([&] { r.AllowExplode(); }), Err::TypeMismatch);

    // Variants keep the stored text; with neither text nor default they are Empty.
    r.MessageViewWrite(2);
    EXPECT_EQ(r.MessageView(), QVariant(QStringLiteral("2")));
    EXPECT_TRUE(IsEmpty(r.CurrentListFont()));
    EXPECT_TRUE(IsEmpty(r.AllowConversion()));
}

TEST_F(RegistryTest, PathDefaultsFollowTheProgramFolder) {
    clsRegistry r;
    const QString elsewhere = QDir(Home()).filePath("elsewhere");
    qputenv("LARDERKEEP_HOME", QFile::encodeName(elsewhere));
    EXPECT_EQ(r.DatabasePath(), elsewhere + "/Larderkeep.mdb");
    EXPECT_EQ(r.SaveReportDirectory(), elsewhere);
    EXPECT_EQ(r.HelpFile(), elsewhere + "/Larder.chm");
    r.DatabasePath("/data/Other.mdb");
    EXPECT_EQ(r.DatabasePath(), "/data/Other.mdb");
}

TEST_F(RegistryTest, NothingIsCached) {
    clsRegistry a, b;
    a.StartupCookbook("Mom's Best");
    EXPECT_EQ(b.StartupCookbook(), "Mom's Best");
    EXPECT_EQ(Registry().StartupCookbook(), "Mom's Best");

    WriteSettingsFile("[Settings]\nSTART_COOKBOOK=Desserts\nDATE_DISPLAY=dddd, mmm d yyyy\n");
    EXPECT_EQ(a.StartupCookbook(), "Desserts");
    EXPECT_EQ(a.DateDisplayFormat(), "dddd, mmm d yyyy");  // a comma typed by hand reads whole
}

TEST_F(RegistryTest, KeysAndValuesComeBackAsWritten) {
    SaveSetting("Settings", "Show Tips at Startup", "0");
    SaveSetting("Settings", "show tips at startup", "1");
    const QStringList values = {"dddd, mmm d yyyy", "  two blanks", "say \"hi\"; x = 1 \\ y", "@home", "",
                                "Crème brûlée"};
    for (int i = 0; i < values.size(); ++i) SaveSetting("Settings", QString("Value%1").arg(i), values[i]);
    Registry().SpellLeft(123456.79f);

    // Read back both here and by a fresh reader of the file.
    QSettings file(SettingsFile(), QSettings::IniFormat);
    EXPECT_EQ(Registry().GetValue("Settings", "Show Tips at Startup", "1"), "0");
    EXPECT_EQ(file.value("Settings/Show Tips at Startup").toString(), "0");
    EXPECT_EQ(GetSetting("Settings", "show tips at startup"), "1");
    for (int i = 0; i < values.size(); ++i) {
        EXPECT_EQ(GetSetting("Settings", QString("Value%1").arg(i), "absent"), values[i]);
        EXPECT_EQ(file.value(QString("Settings/Value%1").arg(i)).toString(), values[i]);
    }
    EXPECT_EQ(file.value("WindowSettings/SpellLeft").toString(), "123456.79");
    EXPECT_EQ(Registry().SpellLeft(), 123456.79f);
    EXPECT_EQ(Registry().SpellTop(), 0.0f);
}

TEST_F(RegistryTest, EachSettingsFileStandsAloneAndAFailedWriteRaisesAndLeavesNothing) {
    SaveSetting("Settings", "FAX_NAME", "first");
    const QString second = QDir(Home()).filePath("second.ini");
    qputenv("LARDERKEEP_CONFIG", QFile::encodeName(second));
    EXPECT_EQ(Registry().FaxName(), "");
    Registry().FaxName("second");
    qputenv("LARDERKEEP_CONFIG", QFile::encodeName(SettingsFile()));
    EXPECT_EQ(Registry().FaxName(), "first");

    const QString blocker = QDir(Home()).filePath("not-a-folder");
    QFile(blocker).open(QIODevice::WriteOnly);
    qputenv("LARDERKEEP_CONFIG", QFile::encodeName(blocker + "/Larderkeep.ini"));
    EXPECT_EQ(ErrorOf([] { Registry().FaxName("lost"); }), "Permission denied");
    EXPECT_EQ(Registry().FaxName(), "");
    qputenv("LARDERKEEP_CONFIG", QFile::encodeName(SettingsFile()));
    Registry().FaxName("kept");
    EXPECT_EQ(Registry().FaxName(), "kept");

    // Holds text and cannot be written, not even by the superuser.
    const QString locked = "/sys/kernel/uevent_seqnum";
    if (!QFileInfo(locked).isReadable()) GTEST_SKIP() << "no " << locked.toStdString();
    qputenv("LARDERKEEP_CONFIG", QFile::encodeName(locked));
    EXPECT_EQ(ErrorOf([] { Registry().FaxName("lost"); }), "Permission denied");
    EXPECT_EQ(Registry().FaxName(), "");
    EXPECT_EQ(QSettings(locked, QSettings::IniFormat).value("Settings/FAX_NAME").toString(), "");
}

TEST_F(RegistryTest, WindowPlacesBelongToTheirWindowAndOnlySavedNonZeroOnesAreRestored) {
    QWidget form;
    form.setObjectName("frmAllCoupons");
    form.move(30, 40);
    form.resize(300, 200);
    SaveSetting("Settings", "frmAllCoupons-Top", "0");  // saved at the very top edge
    SaveSetting("Settings", "frmAllCoupons-Height", "400");
    SaveSetting("Settings", "frmAllCoupons-Left", "50");
    RestoreFormPosition(&form);
    EXPECT_EQ(form.pos(), QPoint(50, 40));
    EXPECT_EQ(form.size(), QSize(300, 400));

    QWidget saved, other;
    saved.setObjectName("frmRecipieQuickView");
    other.setObjectName("frmShoppingList");
    other.move(5, 6);
    SaveFormPosition(&saved, 120, 250, 350, 60);
    EXPECT_EQ(GetSetting("Settings", "frmRecipieQuickView-Top"), "120");
    EXPECT_EQ(GetSetting("Settings", "frmRecipieQuickView-Width"), "350");
    QWidget reopened;
    reopened.setObjectName("frmRecipieQuickView");
    RestoreFormPosition(&reopened);
    EXPECT_EQ(reopened.geometry().topLeft(), QPoint(60, 120));
    EXPECT_EQ(reopened.size(), QSize(350, 250));
    RestoreFormPosition(&other);
    EXPECT_EQ(other.pos(), QPoint(5, 6));
}
