#pragma once

#include <QString>
#include <QVariant>

// Every preference of the program, read from and written to the settings store at
// each use: nothing is cached, so a change is in force at once. Reads convert
// the stored text; a value that will not convert raises in the caller.
//
// The property tables below list key, property (one overloaded name: read and
// write), and default. Where a write has a name of its own, the plain name only reads.
// One line of a property table: the read and the write of one key.
#define LK_REG_DECLARE(Type, Prop, Key, Default) \
    Type Prop();                                 \
    void Prop(Type v);

class clsRegistry {
public:
    // --- General ---------------------------------------------------------
    QVariant CurrentListFont();
    void CurrentListFontWrite(const QVariant& v);
    QVariant CurrentListFontColor();
    void CurrentListFontColorWrite(const QVariant& v);
    QString DateDisplayFormat();
    void DateDisplayFormatWrite(const QString& v);
    QVariant MainToolbar();
#define LK_REG_GENERAL(X)                                                       \
    X(bool, SpellCheckAvailable, "SC_AVAILABLE", false)                         \
    X(QString, DictionaryPath, "DICT_PATH", Computed("dictionary.dic"))         \
    X(QString, HelpFile, "HELP_FILE", Computed("Larder.chm"))                   \
    X(qint32, EmailFileFormat, "FILE_FORMAT", 2)                                \
    X(qint32, EmailFilePlacement, "FILE_PLACE", 2)                              \
    X(QString, DatabasePath, "DB_PATH", Computed("Larderkeep.mdb"))             \
    X(QString, QuickViewOptions, "QV_OPTIONS", "")                              \
    X(bool, IncludeDefaultAddress, "Include_Default_Client", false)             \
    X(QString, ExportFilePath, "EXPORT_PATH", Computed("Export"))               \
    X(bool, AddExportsToMRU, "EXPORT_ON_MRU", true)
    LK_REG_GENERAL(LK_REG_DECLARE)
    bool PalmAppsInstalled();
#define LK_REG_GENERAL2(X)                                                      \
    X(bool, PalmCostingInstalled, "PalmCostingInstall", false)                  \
    X(bool, PalmShoplistInstalled, "PalmShoppingInstall", false)
    LK_REG_GENERAL2(LK_REG_DECLARE)
    QVariant MessageView();
    void MessageViewWrite(const QVariant& v);
#define LK_REG_GENERAL3(X)                                                      \
    X(bool, AlwaysPrintPreview, "LIST_PREVIEW", true)                           \
    X(bool, PromptBeforeInventoryAdd, "INV_PROMPT", false)                      \
    X(bool, PromptOnMultiCategory, "CAT_PROMPT", true)                          \
    X(bool, PrintCouponWithShoplist, "PRINT_COUPONLIST", true)                  \
    X(QString, DefaultFaxStore, "DEFAULT_FAX", "")                              \
    X(QString, FaxName, "FAX_NAME", "")                                         \
    X(bool, ShowCostAlternative, "ShowCostAlternative", true)
    LK_REG_GENERAL3(LK_REG_DECLARE)
    QVariant PrintBackground();
    void PrintBackgroundWrite(const QVariant& v);
#define LK_REG_GENERAL4(X)                                                      \
    X(bool, SaveReportCopy, "REPORT_BACKUP", true)                              \
    X(QString, SaveReportDirectory, "REPORT_BACKUP_DIRECTORY", Computed(""))    \
    X(QString, StartupCookbook, "START_COOKBOOK", "General")
    LK_REG_GENERAL4(LK_REG_DECLARE)
    QVariant AllowConversion();
    void AllowConversionWrite(const QVariant& v);
#define LK_REG_GENERAL5(X)                                                      \
    X(bool, AllowExplode, "ALLOW_EXPLODE", true)                                \
    X(qint16, ExplodeRate, "EXPLODE_RATE", 500)                                 \
    X(bool, ComboAutoComplete, "COMBO_COMPLETE", true)                          \
    X(bool, FormAutoComplete, "FORM_COMPLETE", true)                            \
    X(bool, UseBackgroundBands, "LV_BANDS", false)                              \
    X(bool, SaveQuickSearch, "SAVE_QS", false)                                  \
    X(bool, ExpandRecipeList, "EXPAND_RECIPES", false)                          \
    X(QString, DrinkCategory, "DRINK_CATEGORY", "<Enter or Select>")            \
    X(qint32, InventoryMatchType, "ING_MATCH_TYPE", 3)                          \
    X(QString, WebpageEditorPath, "EDIT_PATH", "")
    LK_REG_GENERAL5(LK_REG_DECLARE)
    QVariant PromptBeforeAdd();
    void PromptBeforeAddSet(const QVariant& v);
#define LK_REG_GENERAL6(X)                                                      \
    X(QString, CurrentShoppingList, "CURRENT_SHOP_LIST", "")                    \
    X(bool, UseLastListAsCurrent, "Last_List_Default", true)                    \
    X(bool, PromptMealItemAddition, "PROMPT_MEAL_ADDITIONS", true)              \
    X(bool, AddListMessageItem, "ADD_MESSAGE", true)                            \
    X(bool, CheckLowerCost, "CHECK_LOWCOST", true)                              \
    X(qint32, AttachmentListFormat, "ATTACHMENT_DISPLAY", 0)                    \
    X(qint32, ShopListFormat, "SHOPLIST_DISPLAY", 3)
    LK_REG_GENERAL6(LK_REG_DECLARE)

    // --- Coupons and inventory -------------------------------------------
#define LK_REG_COUPONS(X)                                                       \
    X(qint16, CouponExpireDays, "EXPIRE_DAYS", 14)                              \
    X(bool, CouponExpireNofication, "EXPIRE_NOTIFICATION", false)               \
    X(qint32, CouponExpiredAction, "EXPIRE_ACTION", 3)                          \
    X(bool, DisplayExpiredReport, "EXPIRE_REPORT", false)                       \
    X(bool, CouponAddReminder, "COUPON_REMINDER", true)                         \
    X(bool, ConsiderInventoryEmpty, "INVENTORY_EXPIRES", true)                  \
    X(qint16, InventoryDays, "INVENTORY_DAYS", 30)                              \
    X(bool, InventoryOnNextList, "INVENTORY_NEXT", true)                        \
    X(bool, InventoryNotifyEmpty, "INVENTORY_NOTIFY", true)                     \
    X(bool, InventoryRemoveEmpty, "INVENTORY_REMOVE", true)                     \
    X(bool, PurgeCostHistory, "PURGE_COST", true)                               \
    X(qint16, CostHistoryMonths, "HISTORY_MONTHS", 6)
    LK_REG_COUPONS(LK_REG_DECLARE)

    // --- Ingredient alternatives -----------------------------------------
    bool DockMeasurements();
    void DockMeasurementsSet(bool v);
#define LK_REG_ALTERNATIVES(X)                                                  \
    X(bool, IngredientAlternatives, "ALT_INGREDIENT", false)                    \
    X(bool, LowerSodium, "LOW_SODIUM", false)                                   \
    X(bool, LowerCalories, "LOW_CALORIES", false)                               \
    X(bool, LowerFat, "LOW_FAT", false)                                         \
    X(bool, LowerCholesterol, "LOW_CHOLESTEROL", false)                         \
    X(bool, HigherCalcium, "HI_CALCIUM", false)                                 \
    X(bool, HigherIron, "HI_IRON", false)                                       \
    X(bool, HigherVitaminC, "HI_VITC", false)
    LK_REG_ALTERNATIVES(LK_REG_DECLARE)

    // --- Database upkeep and meals ---------------------------------------
#define LK_REG_UPKEEP(X)                                                        \
    X(qint32, DBCompact, "DB_COMPACT", 1)                                       \
    X(QString, LastCompact, "DB_LASTCOMPACT", "Never")                          \
    X(qint32, CheckForUpgrade, "UPGRADE_CHK", 3)                                \
    X(qint32, BackupAction, "DB_BACKUP", 3)                                     \
    X(QString, LastBackup, "LAST_BACKUP", "Never")                              \
    X(bool, BackupReminder, "BACKUP_REMINDER", false)                           \
    X(qint32, MealAction, "EXPIRED_MEAL_ACTION", 2)                             \
    X(bool, ExpandNewMealDate, "EXPAND_MEAL", false)                            \
    X(bool, WarnEmptyCourses, "COURSE_WARN", true)                              \
    X(qint16, MealTargetCalories, "TARGET_CALORIES", 2000)                      \
    X(bool, MealTargetCaloriesMax, "TARGET_CALORIES_MAX", true)                 \
    X(bool, EnforceMealTargets, "ENFORCE_TARGETS", false)
    LK_REG_UPKEEP(LK_REG_DECLARE)

    // --- Mail (the password is kept as typed) ----------------------------
#define LK_REG_MAIL(X)                                                          \
    X(QString, EmailServer, "MAIL_SERVER", "")                                  \
    X(QString, EmailAccount, "MAIL_ACCOUNT", "")                                \
    X(QString, EmailPassword, "EMAIL_PASS", "")
    LK_REG_MAIL(LK_REG_DECLARE)

    // --- Recommended daily amounts: a number set and a text set, partly on
    // the same keys, so one key can read 2000 one way and "1000" the other.
#define LK_REG_RDA_NUMBERS(X)                                                   \
    X(qint16, RDA_Calories, "RDA_Calories", 2000)                               \
    X(qint16, RDA_Protein, "RDA_Protein", 2000)                                 \
    X(qint16, RDA_LipidFat, "RDA_LipidFat", 2000)                               \
    X(qint16, RDA_Carbohyrdates, "RDA_Carbohyrdates", 2000)                     \
    X(qint16, RDA_Dietary_Fibre, "RDA_Dietary_Fibre", 2000)                     \
    X(qint16, RDA_Calcium, "RDA_Calcium", 2000)                                 \
    X(qint16, RDA_Ash, "RDA_Ash", 2000)
    LK_REG_RDA_NUMBERS(LK_REG_DECLARE)
#define LK_REG_RDA_TEXTS(X)                                                     \
    X(QString, RDACalcium, "RDA_Calcium", "1000")                               \
    X(QString, RDACopper, "RDA_Copper", "2")                                    \
    X(QString, RDAIron, "RDA_Iron", "2")
    LK_REG_RDA_TEXTS(LK_REG_DECLARE)
    // Reads copper's key (default "3") and writes manganese's: a saved manganese
    // value is never read back. Kept so, as the options screen has always shown it.
    QString RDAMangenese();
    void RDAMangenese(const QString& v);
#define LK_REG_RDA_TEXTS2(X)                                                    \
    X(QString, RDANiacin, "RDA_Niacin", "16")                                   \
    X(QString, RDAPotassium, "RDA_Potassium", "2000")                           \
    X(QString, RDARiboflavin, "RDA_Riboflavin", "1.3")                          \
    X(QString, RDASodium, "RDA_Sodium", "500")                                  \
    X(QString, RDAThiamin, "RDA_Thiamin", "1.2")                                \
    X(QString, RDAVitaminA, "RDA_VitaminA", "1000")                             \
    X(QString, RDAVitaminB12, "RDA_VitaminB12", "2.4")                          \
    X(QString, RDAVitaminB6, "RDA_VitaminB6", "1.3")                            \
    X(QString, RDAVitaminC, "RDA_VitaminC", "60")                               \
    X(QString, RDAVitaminE, "RDA_VitaminE", "10")                               \
    X(QString, RDAZinc, "RDA_Zinc", "15")                                       \
    X(QString, RDABasis, "RDA_Basis", "Adult Male (31-50 yrs)")
    LK_REG_RDA_TEXTS2(LK_REG_DECLARE)

    // --- Kept as names only ---------------------------------------------
    qint32 RecentlyUsed() { return 0; }
    void RecentlyUsed(qint32) {}
    void SetLVForm() {}

    // --- Window places ----------------------------------------------------
    void FormSettingName(const QString& name) { formName_ = name; }
    qint32 FormTop();
    void FormTop(qint32 v);
    qint32 FormHeight();
    void FormHeight(qint32 v);
    qint32 FormWidth();
    void FormWidth(qint32 v);
    qint32 FormLeft();
    void FormLeft(qint32 v);

    // The spell-check window's place, in its own section.
    float SpellLeft();
    void SpellLeft(float v);
    float SpellTop();
    void SpellTop(float v);

    // Keys read outside this class by their literal names.
    QString GetValue(const QString& section, const QString& key, const QString& def = QString());
    void SetValue(const QString& section, const QString& key, const QString& value);

private:
    static QString Computed(const char* name);
    QString formName_;
};
