#include "core/Globals.h"
#include "core/Values.h"
#include "core/clsRegistry.h"
#include "core/modEffects.h"
#include "platform/RuntimeError.h"
#include "platform/SettingsStore.h"
#include "support/TestEnv.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QWidget>
#include <functional>
#include <type_traits>
#include <utility>
#include <vector>

namespace {

class RegistryTest : public LarderTest {
protected:
    // Replaces the settings file, as a user editing it by hand would.
    void WriteSettingsFile(const QByteArray& content) {
        QFile file(SettingsFile());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(content);
    }
};

template <class F>
QString ErrorOf(F body) {
    try {
        body();
    } catch (const RuntimeError& e) {
        return e.description();
    }
    return QStringLiteral("(no error)");
}

// --- Every setting: key, kind, default, and where its write goes --------------

QString Shown(bool v) { return v ? QStringLiteral("True") : QStringLiteral("False"); }
QString Shown(qint16 v) { return QString::number(v); }
QString Shown(qint32 v) { return QString::number(v); }
QString Shown(const QString& v) { return v; }
QString Shown(const QVariant& v) { return TextOf(v); }

template <class T> T From(const QString& text);
template <> bool From<bool>(const QString& text) { return CBool(text); }
template <> qint16 From<qint16>(const QString& text) { return CInt(text); }
template <> qint32 From<qint32>(const QString& text) { return CLng(text); }
template <> QString From<QString>(const QString& text) { return text; }
template <> QVariant From<QVariant>(const QString& text) { return text; }

template <class T> const char* KindOf();
template <> const char* KindOf<bool>() { return "bool"; }
template <> const char* KindOf<qint16>() { return "int16"; }
template <> const char* KindOf<qint32>() { return "int32"; }
template <> const char* KindOf<QString>() { return "text"; }
template <> const char* KindOf<QVariant>() { return "variant"; }

struct Setting {
    QString key;  // where the read looks
    QString writeKey;
    QString kind;
    QString def;  // "<home>" stands for the program folder
    QString propertyKind;
    std::function<QString(clsRegistry&)> read;
    std::function<void(clsRegistry&, const QString&)> write;  // empty when read only
};

#define READER(Read) [](clsRegistry& r) { return Shown(r.Read()); }
#define WRITER(Read, Write) [](clsRegistry& r, const QString& t) { r.Write(From<std::decay_t<decltype(r.Read())>>(t)); }
#define KIND(Read) KindOf<std::decay_t<decltype(std::declval<clsRegistry&>().Read())>>()
#define PAIR(key, kind, def, Prop) Setting{key, key, kind, def, KIND(Prop), READER(Prop), WRITER(Prop, Prop)}
#define SPLIT(key, kind, def, Read, Write) Setting{key, key, kind, def, KIND(Read), READER(Read), WRITER(Read, Write)}
#define READ_ONLY(key, kind, def, Read) Setting{key, key, kind, def, KIND(Read), READER(Read), {}}
#define ASYMMETRIC(key, writeKey, kind, def, Prop) Setting{key, writeKey, kind, def, KIND(Prop), READER(Prop), WRITER(Prop, Prop)}

const std::vector<Setting>& AllSettings() {
    static const std::vector<Setting> settings = {
        // General
        SPLIT("CUR_LIST_FNT", "variant text", "", CurrentListFont, CurrentListFontWrite),
        SPLIT("CUR_LIST_FNT_CLR", "variant text", "", CurrentListFontColor, CurrentListFontColorWrite),
        SPLIT("DATE_DISPLAY", "text", "mm/dd/yyyy", DateDisplayFormat, DateDisplayFormatWrite),
        READ_ONLY("MAIN_TOOLBAR", "variant text", "", MainToolbar),
        PAIR("SC_AVAILABLE", "bool", "False", SpellCheckAvailable),
        PAIR("DICT_PATH", "text", "<home>/dictionary.dic", DictionaryPath),
        PAIR("HELP_FILE", "text", "<home>/Larder.chm", HelpFile),
        PAIR("FILE_FORMAT", "int32", "2", EmailFileFormat),
        PAIR("FILE_PLACE", "int32", "2", EmailFilePlacement),
        PAIR("DB_PATH", "text", "<home>/Larderkeep.mdb", DatabasePath),
        PAIR("QV_OPTIONS", "text", "", QuickViewOptions),
        PAIR("Include_Default_Client", "bool", "False", IncludeDefaultAddress),
        PAIR("EXPORT_PATH", "text", "<home>/Export", ExportFilePath),
        PAIR("EXPORT_ON_MRU", "bool", "True", AddExportsToMRU),
        READ_ONLY("Palm_Installed", "bool", "False", PalmAppsInstalled),
        PAIR("PalmCostingInstall", "bool", "False", PalmCostingInstalled),
        PAIR("PalmShoppingInstall", "bool", "False", PalmShoplistInstalled),
        SPLIT("MESSAGE_VIEW", "variant int", "3", MessageView, MessageViewWrite),
        PAIR("LIST_PREVIEW", "bool", "True", AlwaysPrintPreview),
        PAIR("INV_PROMPT", "bool", "False", PromptBeforeInventoryAdd),
        PAIR("CAT_PROMPT", "bool", "True", PromptOnMultiCategory),
        PAIR("PRINT_COUPONLIST", "bool", "True", PrintCouponWithShoplist),
        PAIR("DEFAULT_FAX", "text", "", DefaultFaxStore),
        PAIR("FAX_NAME", "text", "", FaxName),
        PAIR("ShowCostAlternative", "bool", "True", ShowCostAlternative),
        SPLIT("PRINT_BACKGROUND", "variant text", "", PrintBackground, PrintBackgroundWrite),
        PAIR("REPORT_BACKUP", "bool", "True", SaveReportCopy),
        PAIR("REPORT_BACKUP_DIRECTORY", "text", "<home>", SaveReportDirectory),
        PAIR("START_COOKBOOK", "text", "General", StartupCookbook),
        SPLIT("ALLOW_CONVERT", "variant bool", "", AllowConversion, AllowConversionWrite),
        PAIR("ALLOW_EXPLODE", "bool", "True", AllowExplode),
        PAIR("EXPLODE_RATE", "int16", "500", ExplodeRate),
        PAIR("COMBO_COMPLETE", "bool", "True", ComboAutoComplete),
        PAIR("FORM_COMPLETE", "bool", "True", FormAutoComplete),
        PAIR("LV_BANDS", "bool", "False", UseBackgroundBands),
        PAIR("SAVE_QS", "bool", "False", SaveQuickSearch),
        PAIR("EXPAND_RECIPES", "bool", "False", ExpandRecipeList),
        PAIR("DRINK_CATEGORY", "text", "<Enter or Select>", DrinkCategory),
        PAIR("ING_MATCH_TYPE", "int32", "3", InventoryMatchType),
        PAIR("EDIT_PATH", "text", "", WebpageEditorPath),
        SPLIT("PROMPT_BEFORE_ADD", "variant bool", "True", PromptBeforeAdd, PromptBeforeAddSet),
        PAIR("CURRENT_SHOP_LIST", "text", "", CurrentShoppingList),
        PAIR("Last_List_Default", "bool", "True", UseLastListAsCurrent),
        PAIR("PROMPT_MEAL_ADDITIONS", "bool", "True", PromptMealItemAddition),
        PAIR("ADD_MESSAGE", "bool", "True", AddListMessageItem),
        PAIR("CHECK_LOWCOST", "bool", "True", CheckLowerCost),
        PAIR("ATTACHMENT_DISPLAY", "int32", "0", AttachmentListFormat),
        PAIR("SHOPLIST_DISPLAY", "int32", "3", ShopListFormat),
        // Coupons and inventory
        PAIR("EXPIRE_DAYS", "int16", "14", CouponExpireDays),
        PAIR("EXPIRE_NOTIFICATION", "bool", "False", CouponExpireNofication),
        PAIR("EXPIRE_ACTION", "int32", "3", CouponExpiredAction),
        PAIR("EXPIRE_REPORT", "bool", "False", DisplayExpiredReport),
        PAIR("COUPON_REMINDER", "bool", "True", CouponAddReminder),
        PAIR("INVENTORY_EXPIRES", "bool", "True", ConsiderInventoryEmpty),
        PAIR("INVENTORY_DAYS", "int16", "30", InventoryDays),
        PAIR("INVENTORY_NEXT", "bool", "True", InventoryOnNextList),
        PAIR("INVENTORY_NOTIFY", "bool", "True", InventoryNotifyEmpty),
        PAIR("INVENTORY_REMOVE", "bool", "True", InventoryRemoveEmpty),
        PAIR("PURGE_COST", "bool", "True", PurgeCostHistory),
        PAIR("HISTORY_MONTHS", "int16", "6", CostHistoryMonths),
        // Ingredient alternatives
        SPLIT("DOCK_MEASURES", "bool", "False", DockMeasurements, DockMeasurementsSet),
        PAIR("ALT_INGREDIENT", "bool", "False", IngredientAlternatives),
        PAIR("LOW_SODIUM", "bool", "False", LowerSodium),
        PAIR("LOW_CALORIES", "bool", "False", LowerCalories),
        PAIR("LOW_FAT", "bool", "False", LowerFat),
        PAIR("LOW_CHOLESTEROL", "bool", "False", LowerCholesterol),
        PAIR("HI_CALCIUM", "bool", "False", HigherCalcium),
        PAIR("HI_IRON", "bool", "False", HigherIron),
        PAIR("HI_VITC", "bool", "False", HigherVitaminC),
        // Database upkeep and meals
        PAIR("DB_COMPACT", "int32", "1", DBCompact),
        PAIR("DB_LASTCOMPACT", "text", "Never", LastCompact),
        PAIR("UPGRADE_CHK", "int32", "3", CheckForUpgrade),
        PAIR("DB_BACKUP", "int32", "3", BackupAction),
        PAIR("LAST_BACKUP", "text", "Never", LastBackup),
        PAIR("BACKUP_REMINDER", "bool", "False", BackupReminder),
        PAIR("EXPIRED_MEAL_ACTION", "int32", "2", MealAction),
        PAIR("EXPAND_MEAL", "bool", "False", ExpandNewMealDate),
        PAIR("COURSE_WARN", "bool", "True", WarnEmptyCourses),
        PAIR("TARGET_CALORIES", "int16", "2000", MealTargetCalories),
        PAIR("TARGET_CALORIES_MAX", "bool", "True", MealTargetCaloriesMax),
        PAIR("ENFORCE_TARGETS", "bool", "False", EnforceMealTargets),
        // Mail
        PAIR("MAIL_SERVER", "text", "", EmailServer),
        PAIR("MAIL_ACCOUNT", "text", "", EmailAccount),
        PAIR("EMAIL_PASS", "text", "", EmailPassword),
        // Recommended daily amounts
        PAIR("RDA_Calories", "int16", "2000", RDA_Calories),
        PAIR("RDA_Protein", "int16", "2000", RDA_Protein),
        PAIR("RDA_LipidFat", "int16", "2000", RDA_LipidFat),
        PAIR("RDA_Carbohyrdates", "int16", "2000", RDA_Carbohyrdates),
        PAIR("RDA_Dietary_Fibre", "int16", "2000", RDA_Dietary_Fibre),
        PAIR("RDA_Calcium", "int16", "2000", RDA_Calcium),
        PAIR("RDA_Ash", "int16", "2000", RDA_Ash),
        PAIR("RDA_Calcium", "text", "1000", RDACalcium),
        PAIR("RDA_Copper", "text", "2", RDACopper),
        PAIR("RDA_Iron", "text", "2", RDAIron),
        // Read from copper's key, written to its own.
        ASYMMETRIC("RDA_Copper", "RDA_Mangenese", "text", "3", RDAMangenese),
        PAIR("RDA_Niacin", "text", "16", RDANiacin),
        PAIR("RDA_Potassium", "text", "2000", RDAPotassium),
        PAIR("RDA_Riboflavin", "text", "1.3", RDARiboflavin),
        PAIR("RDA_Sodium", "text", "500", RDASodium),
        PAIR("RDA_Thiamin", "text", "1.2", RDAThiamin),
        PAIR("RDA_VitaminA", "text", "1000", RDAVitaminA),
        PAIR("RDA_VitaminB12", "text", "2.4", RDAVitaminB12),
        PAIR("RDA_VitaminB6", "text", "1.3", RDAVitaminB6),
        PAIR("RDA_VitaminC", "text", "60", RDAVitaminC),
        PAIR("RDA_VitaminE", "text", "10", RDAVitaminE),
        PAIR("RDA_Zinc", "text", "15", RDAZinc),
        PAIR("RDA_Basis", "text", "Adult Male (31-50 yrs)", RDABasis),
    };
    return settings;
}

// Read-only settings have no write, and a write with a name of its own leaves
// the plain name reading only.
template <class T> concept WritableToolbar = requires(T r) { r.MainToolbar(QVariant()); };
template <class T> concept WritablePalm = requires(T r) { r.PalmAppsInstalled(true); };
template <class T> concept PlainDateWrite = requires(T r) { r.DateDisplayFormat(QString()); };
template <class T> concept PlainDockWrite = requires(T r) { r.DockMeasurements(true); };
static_assert(!WritableToolbar<clsRegistry> && !WritablePalm<clsRegistry>);
static_assert(!PlainDateWrite<clsRegistry> && !PlainDockWrite<clsRegistry>);

// A stored value unlike the default, of the setting's kind.
QString Probe(const Setting& s) {
    if (s.kind == "bool") return s.def == "True" ? "False" : "True";
    if (s.kind == "int16") return "-7";
    if (s.kind == "int32") return "40000";
    return "Mom's, \"best\"";
}

TEST_F(RegistryTest, EverySettingHasItsKeyKindAndDefault) {
    clsRegistry r;
    for (const Setting& s : AllSettings()) {
        SCOPED_TRACE(s.key.toStdString());
        EXPECT_EQ(s.propertyKind, s.kind.startsWith("variant") ? "variant" : s.kind);

        QString def = s.def;
        def.replace("<home>", Home());
        EXPECT_EQ(s.read(r), def);
        EXPECT_FALSE(HasSetting("Settings", s.key)) << "a read wrote its default";

        SaveSetting("Settings", s.key, Probe(s));
        EXPECT_EQ(s.read(r), Probe(s));
        if (s.kind == "int16") {
            SaveSetting("Settings", s.key, "40000");
            EXPECT_EQ(ErrorOf([&] { s.read(r); }), Err::Overflow);
        }
        DeleteSetting("Settings", s.key);

        if (s.write) {
            s.write(r, Probe(s));
            EXPECT_EQ(GetSetting("Settings", s.writeKey), Probe(s));
            DeleteSetting("Settings", s.writeKey);
        }
    }
}

// --- The rules behind the table ---------------------------------------------

TEST_F(RegistryTest, TheTwoDailyAmountSetsShareKeysButNotDefaults) {
    clsRegistry r;
    EXPECT_EQ(r.RDA_Calcium(), 2000);
    EXPECT_EQ(r.RDACalcium(), "1000");
    r.RDACalcium("1200");
    EXPECT_EQ(r.RDA_Calcium(), 1200);
    r.RDA_Calcium(1500);
    EXPECT_EQ(r.RDACalcium(), "1500");
}

TEST_F(RegistryTest, ManganeseIsWrittenButCopperIsRead) {
    clsRegistry r;
    r.RDAMangenese("5");
    EXPECT_EQ(r.RDAMangenese(), "3");
    EXPECT_EQ(GetSetting("Settings", "RDA_Mangenese"), "5");
    r.RDACopper("2.5");
    EXPECT_EQ(r.RDAMangenese(), "2.5");
}

TEST_F(RegistryTest, StoredTextIsConvertedByTheValueRules) {
    clsRegistry r;
    SaveSetting("Settings", "BACKUP_REMINDER", "-1");
    EXPECT_TRUE(r.BackupReminder());
    SaveSetting("Settings", "EXPIRE_DAYS", "abc");
    EXPECT_EQ(ErrorOf([&] { r.CouponExpireDays(); }), Err::TypeMismatch);
    SaveSetting("Settings", "ALLOW_EXPLODE", "");
    EXPECT_EQ(ErrorOf([&] { r.AllowExplode(); }), Err::TypeMismatch);

    // Variants keep the stored text; with neither text nor default they are Empty.
    r.MessageViewWrite(2);
    EXPECT_EQ(r.MessageView(), QVariant(QStringLiteral("2")));
    r.PromptBeforeAddSet(false);
    EXPECT_EQ(GetSetting("Settings", "PROMPT_BEFORE_ADD"), "False");
    EXPECT_TRUE(IsEmpty(r.CurrentListFont()));
}

TEST_F(RegistryTest, PathDefaultsFollowTheProgramFolder) {
    clsRegistry r;
    const QString elsewhere = QDir(Home()).filePath("elsewhere");
    qputenv("LARDERKEEP_HOME", QFile::encodeName(elsewhere));
    EXPECT_EQ(r.DatabasePath(), elsewhere + "/Larderkeep.mdb");
    EXPECT_EQ(r.SaveReportDirectory(), elsewhere);
    r.DatabasePath("/data/Other.mdb");
    EXPECT_EQ(r.DatabasePath(), "/data/Other.mdb");
}

TEST_F(RegistryTest, NothingIsCached) {
    clsRegistry a, b;
    a.StartupCookbook("Mom's Best");
    EXPECT_EQ(b.StartupCookbook(), "Mom's Best");
    EXPECT_EQ(Registry().StartupCookbook(), "Mom's Best");

    WriteSettingsFile("[Settings]\nSTART_COOKBOOK=Desserts\n");
    EXPECT_EQ(a.StartupCookbook(), "Desserts");
}

// --- The file ----------------------------------------------------------------

TEST_F(RegistryTest, KeysAndValuesComeBackAsWritten) {
    SaveSetting("Settings", "Show Tips at Startup", "0");
    SaveSetting("Settings", "show tips at startup", "1");
    const QStringList values = {"dddd, mmm d yyyy", "  two blanks", "say \"hi\"; x = 1 \\ y", "@home", "", "Crème brûlée"};
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

TEST_F(RegistryTest, AValueEditedByHandWithACommaReadsWhole) {
    WriteSettingsFile("[Settings]\nDATE_DISPLAY=dddd, mmm d yyyy\n");
    EXPECT_EQ(Registry().DateDisplayFormat(), "dddd, mmm d yyyy");
}

TEST_F(RegistryTest, EachSettingsFileStandsAlone) {
    SaveSetting("Settings", "FAX_NAME", "first");
    const QString second = QDir(Home()).filePath("second.ini");
    qputenv("LARDERKEEP_CONFIG", QFile::encodeName(second));
    EXPECT_EQ(Registry().FaxName(), "");
    Registry().FaxName("second");
    qputenv("LARDERKEEP_CONFIG", QFile::encodeName(SettingsFile()));
    EXPECT_EQ(Registry().FaxName(), "first");
}

TEST_F(RegistryTest, AWriteThatCannotReachTheDiskRaises) {
    const QString blocker = QDir(Home()).filePath("not-a-folder");
    QFile(blocker).open(QIODevice::WriteOnly);
    qputenv("LARDERKEEP_CONFIG", QFile::encodeName(blocker + "/Larderkeep.ini"));
    EXPECT_EQ(ErrorOf([] { Registry().FaxName("lost"); }), "Permission denied");
    EXPECT_EQ(Registry().FaxName(), "");
    qputenv("LARDERKEEP_CONFIG", QFile::encodeName(SettingsFile()));
    Registry().FaxName("kept");
    EXPECT_EQ(Registry().FaxName(), "kept");
}

TEST_F(RegistryTest, AFailedWriteLeavesNoPhantomValue) {
    // Holds text and cannot be written, not even by the superuser.
    const QString locked = "/sys/kernel/uevent_seqnum";
    if (!QFileInfo(locked).isReadable()) GTEST_SKIP() << "no " << locked.toStdString();
    qputenv("LARDERKEEP_CONFIG", QFile::encodeName(locked));
    EXPECT_EQ(ErrorOf([] { Registry().FaxName("lost"); }), "Permission denied");
    EXPECT_EQ(Registry().FaxName(), "");
    EXPECT_EQ(QSettings(locked, QSettings::IniFormat).value("Settings/FAX_NAME").toString(), "");
}

// --- Window places -----------------------------------------------------------

TEST_F(RegistryTest, RestoreTakesOnlyTheSavedNonZeroPlaces) {
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
}

TEST_F(RegistryTest, SavedPlacesBelongToTheirWindow) {
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

}  // namespace
