#include "core/clsRegistry.h"

#include "core/Values.h"
#include "platform/ProgramFolder.h"
#include "platform/SettingsStore.h"

#include <charconv>

namespace {

const QString kSettings = QStringLiteral("Settings");
const QString kWindowSettings = QStringLiteral("WindowSettings");

std::optional<QString> Stored(const QString& key) { return FindSetting(kSettings, key); }

bool ReadBool(const QString& key, bool def) {
    const auto text = Stored(key);
    return text ? CBool(*text) : def;
}

qint16 ReadInt(const QString& key, qint16 def) {
    const auto text = Stored(key);
    return text ? CInt(*text) : def;
}

qint32 ReadLong(const QString& key, qint32 def) {
    const auto text = Stored(key);
    return text ? CLng(*text) : def;
}

QString ReadText(const QString& key, const QString& def) { return GetSetting(kSettings, key, def); }

QVariant ReadVariant(const QString& key, const QVariant& def) {
    const auto text = Stored(key);
    return text ? QVariant(*text) : def;
}

void WriteBool(const QString& key, bool value) {
    SaveSetting(kSettings, key, value ? QStringLiteral("True") : QStringLiteral("False"));
}

void WriteNumber(const QString& key, qint32 value) { SaveSetting(kSettings, key, QString::number(value)); }

void WriteText(const QString& key, const QString& value) { SaveSetting(kSettings, key, value); }

// Stored as the text the value would print as: True/False, plain numbers.
void WriteVariant(const QString& key, const QVariant& value) { SaveSetting(kSettings, key, TextOf(value)); }

// The shortest text that reads back as the same single.
QString SingleText(float value) {
    char buffer[32];
    const auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
    return QString::fromLatin1(buffer, int(result.ptr - buffer));
}

QString InFolder(const char* name) { return ProgramFolder::File(QString::fromLatin1(name)); }

}  // namespace

#define LK_BOOL(Name, Key, Default)                                             \
    bool clsRegistry::Name() { return ReadBool(QStringLiteral(Key), Default); } \
    void clsRegistry::Name(bool value) { WriteBool(QStringLiteral(Key), value); }
#define LK_INT(Name, Key, Default)                                               \
    qint16 clsRegistry::Name() { return ReadInt(QStringLiteral(Key), Default); } \
    void clsRegistry::Name(qint16 value) { WriteNumber(QStringLiteral(Key), value); }
#define LK_LONG(Name, Key, Default)                                               \
    qint32 clsRegistry::Name() { return ReadLong(QStringLiteral(Key), Default); } \
    void clsRegistry::Name(qint32 value) { WriteNumber(QStringLiteral(Key), value); }
#define LK_TEXT(Name, Key, Default)                                                \
    QString clsRegistry::Name() { return ReadText(QStringLiteral(Key), Default); } \
    void clsRegistry::Name(const QString& value) { WriteText(QStringLiteral(Key), value); }
#define LK_VARIANT(Name, Write, Key, Default)                                          \
    QVariant clsRegistry::Name() { return ReadVariant(QStringLiteral(Key), Default); } \
    void clsRegistry::Write(const QVariant& value) { WriteVariant(QStringLiteral(Key), value); }

// --- General -----------------------------------------------------------------
LK_VARIANT(CurrentListFont, CurrentListFontWrite, "CUR_LIST_FNT", EmptyValue())
LK_VARIANT(CurrentListFontColor, CurrentListFontColorWrite, "CUR_LIST_FNT_CLR", EmptyValue())
QString clsRegistry::DateDisplayFormat() {
    return ReadText(QStringLiteral("DATE_DISPLAY"), QStringLiteral("mm/dd/yyyy"));
}
void clsRegistry::DateDisplayFormatWrite(const QString& value) { WriteText(QStringLiteral("DATE_DISPLAY"), value); }
QVariant clsRegistry::MainToolbar() { return ReadVariant(QStringLiteral("MAIN_TOOLBAR"), EmptyValue()); }
LK_BOOL(SpellCheckAvailable, "SC_AVAILABLE", false)
LK_TEXT(DictionaryPath, "DICT_PATH", InFolder("dictionary.dic"))
LK_TEXT(HelpFile, "HELP_FILE", InFolder("Larder.chm"))
LK_LONG(EmailFileFormat, "FILE_FORMAT", 2)
LK_LONG(EmailFilePlacement, "FILE_PLACE", 2)
LK_TEXT(DatabasePath, "DB_PATH", InFolder("Larderkeep.mdb"))
LK_TEXT(QuickViewOptions, "QV_OPTIONS", QString())
LK_BOOL(IncludeDefaultAddress, "Include_Default_Client", false)
LK_TEXT(ExportFilePath, "EXPORT_PATH", InFolder("Export"))
LK_BOOL(AddExportsToMRU, "EXPORT_ON_MRU", true)
bool clsRegistry::PalmAppsInstalled() { return ReadBool(QStringLiteral("Palm_Installed"), false); }
LK_BOOL(PalmCostingInstalled, "PalmCostingInstall", false)
LK_BOOL(PalmShoplistInstalled, "PalmShoppingInstall", false)
LK_VARIANT(MessageView, MessageViewWrite, "MESSAGE_VIEW", 3)
LK_BOOL(AlwaysPrintPreview, "LIST_PREVIEW", true)
LK_BOOL(PromptBeforeInventoryAdd, "INV_PROMPT", false)
LK_BOOL(PromptOnMultiCategory, "CAT_PROMPT", true)
LK_BOOL(PrintCouponWithShoplist, "PRINT_COUPONLIST", true)
LK_TEXT(DefaultFaxStore, "DEFAULT_FAX", QString())
LK_TEXT(FaxName, "FAX_NAME", QString())
LK_BOOL(ShowCostAlternative, "ShowCostAlternative", true)
LK_VARIANT(PrintBackground, PrintBackgroundWrite, "PRINT_BACKGROUND", EmptyValue())
LK_BOOL(SaveReportCopy, "REPORT_BACKUP", true)
LK_TEXT(SaveReportDirectory, "REPORT_BACKUP_DIRECTORY", ProgramFolder::Path())
LK_TEXT(StartupCookbook, "START_COOKBOOK", QStringLiteral("General"))
LK_VARIANT(AllowConversion, AllowConversionWrite, "ALLOW_CONVERT", EmptyValue())
LK_BOOL(AllowExplode, "ALLOW_EXPLODE", true)
LK_INT(ExplodeRate, "EXPLODE_RATE", 500)
LK_BOOL(ComboAutoComplete, "COMBO_COMPLETE", true)
LK_BOOL(FormAutoComplete, "FORM_COMPLETE", true)
LK_BOOL(UseBackgroundBands, "LV_BANDS", false)
LK_BOOL(SaveQuickSearch, "SAVE_QS", false)
LK_BOOL(ExpandRecipeList, "EXPAND_RECIPES", false)
LK_TEXT(DrinkCategory, "DRINK_CATEGORY", QStringLiteral("<Enter or Select>"))
LK_LONG(InventoryMatchType, "ING_MATCH_TYPE", 3)
LK_TEXT(WebpageEditorPath, "EDIT_PATH", QString())
LK_VARIANT(PromptBeforeAdd, PromptBeforeAddSet, "PROMPT_BEFORE_ADD", true)
LK_TEXT(CurrentShoppingList, "CURRENT_SHOP_LIST", QString())
LK_BOOL(UseLastListAsCurrent, "Last_List_Default", true)
LK_BOOL(PromptMealItemAddition, "PROMPT_MEAL_ADDITIONS", true)
LK_BOOL(AddListMessageItem, "ADD_MESSAGE", true)
LK_BOOL(CheckLowerCost, "CHECK_LOWCOST", true)
LK_LONG(AttachmentListFormat, "ATTACHMENT_DISPLAY", 0)
LK_LONG(ShopListFormat, "SHOPLIST_DISPLAY", 3)

// --- Coupons and inventory ---------------------------------------------------
LK_INT(CouponExpireDays, "EXPIRE_DAYS", 14)
LK_BOOL(CouponExpireNofication, "EXPIRE_NOTIFICATION", false)
LK_LONG(CouponExpiredAction, "EXPIRE_ACTION", 3)
LK_BOOL(DisplayExpiredReport, "EXPIRE_REPORT", false)
LK_BOOL(CouponAddReminder, "COUPON_REMINDER", true)
LK_BOOL(ConsiderInventoryEmpty, "INVENTORY_EXPIRES", true)
LK_INT(InventoryDays, "INVENTORY_DAYS", 30)
LK_BOOL(InventoryOnNextList, "INVENTORY_NEXT", true)
LK_BOOL(InventoryNotifyEmpty, "INVENTORY_NOTIFY", true)
LK_BOOL(InventoryRemoveEmpty, "INVENTORY_REMOVE", true)
LK_BOOL(PurgeCostHistory, "PURGE_COST", true)
LK_INT(CostHistoryMonths, "HISTORY_MONTHS", 6)

// --- Ingredient alternatives -------------------------------------------------
bool clsRegistry::DockMeasurements() { return ReadBool(QStringLiteral("DOCK_MEASURES"), false); }
void clsRegistry::DockMeasurementsSet(bool value) { WriteBool(QStringLiteral("DOCK_MEASURES"), value); }
LK_BOOL(IngredientAlternatives, "ALT_INGREDIENT", false)
LK_BOOL(LowerSodium, "LOW_SODIUM", false)
LK_BOOL(LowerCalories, "LOW_CALORIES", false)
LK_BOOL(LowerFat, "LOW_FAT", false)
LK_BOOL(LowerCholesterol, "LOW_CHOLESTEROL", false)
LK_BOOL(HigherCalcium, "HI_CALCIUM", false)
LK_BOOL(HigherIron, "HI_IRON", false)
LK_BOOL(HigherVitaminC, "HI_VITC", false)

// --- Database upkeep and meals -----------------------------------------------
LK_LONG(DBCompact, "DB_COMPACT", 1)
LK_TEXT(LastCompact, "DB_LASTCOMPACT", QStringLiteral("Never"))
LK_LONG(CheckForUpgrade, "UPGRADE_CHK", 3)
LK_LONG(BackupAction, "DB_BACKUP", 3)
LK_TEXT(LastBackup, "LAST_BACKUP", QStringLiteral("Never"))
LK_BOOL(BackupReminder, "BACKUP_REMINDER", false)
LK_LONG(MealAction, "EXPIRED_MEAL_ACTION", 2)
LK_BOOL(ExpandNewMealDate, "EXPAND_MEAL", false)
LK_BOOL(WarnEmptyCourses, "COURSE_WARN", true)
LK_INT(MealTargetCalories, "TARGET_CALORIES", 2000)
LK_BOOL(MealTargetCaloriesMax, "TARGET_CALORIES_MAX", true)
LK_BOOL(EnforceMealTargets, "ENFORCE_TARGETS", false)

// --- Mail ----------------------------------------------------------------------
LK_TEXT(EmailServer, "MAIL_SERVER", QString())
LK_TEXT(EmailAccount, "MAIL_ACCOUNT", QString())
LK_TEXT(EmailPassword, "EMAIL_PASS", QString())

// --- Recommended daily amounts -------------------------------------------------
LK_INT(RDA_Calories, "RDA_Calories", 2000)
LK_INT(RDA_Protein, "RDA_Protein", 2000)
LK_INT(RDA_LipidFat, "RDA_LipidFat", 2000)
LK_INT(RDA_Carbohyrdates, "RDA_Carbohyrdates", 2000)
LK_INT(RDA_Dietary_Fibre, "RDA_Dietary_Fibre", 2000)
LK_INT(RDA_Calcium, "RDA_Calcium", 2000)
LK_INT(RDA_Ash, "RDA_Ash", 2000)

LK_TEXT(RDACalcium, "RDA_Calcium", QStringLiteral("1000"))
LK_TEXT(RDACopper, "RDA_Copper", QStringLiteral("2"))
LK_TEXT(RDAIron, "RDA_Iron", QStringLiteral("2"))
QString clsRegistry::RDAMangenese() { return ReadText(QStringLiteral("RDA_Copper"), QStringLiteral("3")); }
void clsRegistry::RDAMangenese(const QString& value) { WriteText(QStringLiteral("RDA_Mangenese"), value); }
LK_TEXT(RDANiacin, "RDA_Niacin", QStringLiteral("16"))
LK_TEXT(RDAPotassium, "RDA_Potassium", QStringLiteral("2000"))
LK_TEXT(RDARiboflavin, "RDA_Riboflavin", QStringLiteral("1.3"))
LK_TEXT(RDASodium, "RDA_Sodium", QStringLiteral("500"))
LK_TEXT(RDAThiamin, "RDA_Thiamin", QStringLiteral("1.2"))
LK_TEXT(RDAVitaminA, "RDA_VitaminA", QStringLiteral("1000"))
LK_TEXT(RDAVitaminB12, "RDA_VitaminB12", QStringLiteral("2.4"))
LK_TEXT(RDAVitaminB6, "RDA_VitaminB6", QStringLiteral("1.3"))
LK_TEXT(RDAVitaminC, "RDA_VitaminC", QStringLiteral("60"))
LK_TEXT(RDAVitaminE, "RDA_VitaminE", QStringLiteral("10"))
LK_TEXT(RDAZinc, "RDA_Zinc", QStringLiteral("15"))
LK_TEXT(RDABasis, "RDA_Basis", QStringLiteral("Adult Male (31-50 yrs)"))

#undef LK_BOOL
#undef LK_INT
#undef LK_LONG
#undef LK_TEXT
#undef LK_VARIANT

// --- Window places ---------------------------------------------------------------
qint32 clsRegistry::FormTop() { return ReadLong(formName_ + QStringLiteral("-Top"), 0); }
void clsRegistry::FormTop(qint32 value) { WriteNumber(formName_ + QStringLiteral("-Top"), value); }
qint32 clsRegistry::FormHeight() { return ReadLong(formName_ + QStringLiteral("-Height"), 0); }
void clsRegistry::FormHeight(qint32 value) { WriteNumber(formName_ + QStringLiteral("-Height"), value); }
qint32 clsRegistry::FormWidth() { return ReadLong(formName_ + QStringLiteral("-Width"), 0); }
void clsRegistry::FormWidth(qint32 value) { WriteNumber(formName_ + QStringLiteral("-Width"), value); }
qint32 clsRegistry::FormLeft() { return ReadLong(formName_ + QStringLiteral("-Left"), 0); }
void clsRegistry::FormLeft(qint32 value) { WriteNumber(formName_ + QStringLiteral("-Left"), value); }

float clsRegistry::SpellLeft() {
    const auto text = FindSetting(kWindowSettings, QStringLiteral("SpellLeft"));
    return text ? float(CDbl(*text)) : 0.0f;
}
void clsRegistry::SpellLeft(float value) {
    SaveSetting(kWindowSettings, QStringLiteral("SpellLeft"), SingleText(value));
}
float clsRegistry::SpellTop() {
    const auto text = FindSetting(kWindowSettings, QStringLiteral("SpellTop"));
    return text ? float(CDbl(*text)) : 0.0f;
}
void clsRegistry::SpellTop(float value) { SaveSetting(kWindowSettings, QStringLiteral("SpellTop"), SingleText(value)); }

QString clsRegistry::GetValue(const QString& section, const QString& key, const QString& def) {
    return GetSetting(section, key, def);
}
void clsRegistry::SetValue(const QString& section, const QString& key, const QString& value) {
    SaveSetting(section, key, value);
}
