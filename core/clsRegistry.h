#pragma once

#include <QString>
#include <QVariant>

// Every preference of the program, read from and written to the settings store
// (section "Settings" unless noted) at each use. Nothing is cached, so a change
// is in force at once, also for another clsRegistry.
//
// A property is one overloaded name: `bool AllowExplode()` reads,
// `void AllowExplode(bool)` writes. Where a write has a name of its own
// (`DateDisplayFormatWrite`), the plain name only reads.
//
// Reads of an absent key give the default and write nothing. Stored text is
// converted by the program's value rules (CBool, CInt, CLng), so a value edited
// by hand that will not convert raises RuntimeError ("Type mismatch",
// "Overflow") in the caller; this class traps nothing. Booleans are written
// "True"/"False" and "-1" reads as true. Variant settings read back the stored
// text as it is, and Empty (EmptyValue()) when there is none and no default.
// The defaults of the paths follow the program folder.
class clsRegistry {
public:
    // --- General ---------------------------------------------------------
    QVariant CurrentListFont();
    void CurrentListFontWrite(const QVariant& value);
    QVariant CurrentListFontColor();
    void CurrentListFontColorWrite(const QVariant& value);
    QString DateDisplayFormat();
    void DateDisplayFormatWrite(const QString& value);
    QVariant MainToolbar();
    bool SpellCheckAvailable();
    void SpellCheckAvailable(bool value);
    QString DictionaryPath();
    void DictionaryPath(const QString& value);
    QString HelpFile();
    void HelpFile(const QString& value);
    qint32 EmailFileFormat();
    void EmailFileFormat(qint32 value);
    qint32 EmailFilePlacement();
    void EmailFilePlacement(qint32 value);
    QString DatabasePath();
    void DatabasePath(const QString& value);
    QString QuickViewOptions();
    void QuickViewOptions(const QString& value);
    bool IncludeDefaultAddress();
    void IncludeDefaultAddress(bool value);
    QString ExportFilePath();
    void ExportFilePath(const QString& value);
    bool AddExportsToMRU();
    void AddExportsToMRU(bool value);
    bool PalmAppsInstalled();
    bool PalmCostingInstalled();
    void PalmCostingInstalled(bool value);
    bool PalmShoplistInstalled();
    void PalmShoplistInstalled(bool value);
    QVariant MessageView();
    void MessageViewWrite(const QVariant& value);
    bool AlwaysPrintPreview();
    void AlwaysPrintPreview(bool value);
    bool PromptBeforeInventoryAdd();
    void PromptBeforeInventoryAdd(bool value);
    bool PromptOnMultiCategory();
    void PromptOnMultiCategory(bool value);
    bool PrintCouponWithShoplist();
    void PrintCouponWithShoplist(bool value);
    QString DefaultFaxStore();
    void DefaultFaxStore(const QString& value);
    QString FaxName();
    void FaxName(const QString& value);
    bool ShowCostAlternative();
    void ShowCostAlternative(bool value);
    QVariant PrintBackground();
    void PrintBackgroundWrite(const QVariant& value);
    bool SaveReportCopy();
    void SaveReportCopy(bool value);
    QString SaveReportDirectory();
    void SaveReportDirectory(const QString& value);
    QString StartupCookbook();
    void StartupCookbook(const QString& value);
    QVariant AllowConversion();
    void AllowConversionWrite(const QVariant& value);
    bool AllowExplode();
    void AllowExplode(bool value);
    qint16 ExplodeRate();
    void ExplodeRate(qint16 value);
    bool ComboAutoComplete();
    void ComboAutoComplete(bool value);
    bool FormAutoComplete();
    void FormAutoComplete(bool value);
    bool UseBackgroundBands();
    void UseBackgroundBands(bool value);
    bool SaveQuickSearch();
    void SaveQuickSearch(bool value);
    bool ExpandRecipeList();
    void ExpandRecipeList(bool value);
    QString DrinkCategory();
    void DrinkCategory(const QString& value);
    qint32 InventoryMatchType();
    void InventoryMatchType(qint32 value);
    QString WebpageEditorPath();
    void WebpageEditorPath(const QString& value);
    QVariant PromptBeforeAdd();
    void PromptBeforeAddSet(const QVariant& value);
    QString CurrentShoppingList();
    void CurrentShoppingList(const QString& value);
    bool UseLastListAsCurrent();
    void UseLastListAsCurrent(bool value);
    bool PromptMealItemAddition();
    void PromptMealItemAddition(bool value);
    bool AddListMessageItem();
    void AddListMessageItem(bool value);
    bool CheckLowerCost();
    void CheckLowerCost(bool value);
    qint32 AttachmentListFormat();
    void AttachmentListFormat(qint32 value);
    qint32 ShopListFormat();
    void ShopListFormat(qint32 value);

    // --- Coupons and inventory -------------------------------------------
    qint16 CouponExpireDays();
    void CouponExpireDays(qint16 value);
    bool CouponExpireNofication();
    void CouponExpireNofication(bool value);
    qint32 CouponExpiredAction();
    void CouponExpiredAction(qint32 value);
    bool DisplayExpiredReport();
    void DisplayExpiredReport(bool value);
    bool CouponAddReminder();
    void CouponAddReminder(bool value);
    bool ConsiderInventoryEmpty();
    void ConsiderInventoryEmpty(bool value);
    qint16 InventoryDays();
    void InventoryDays(qint16 value);
    bool InventoryOnNextList();
    void InventoryOnNextList(bool value);
    bool InventoryNotifyEmpty();
    void InventoryNotifyEmpty(bool value);
    bool InventoryRemoveEmpty();
    void InventoryRemoveEmpty(bool value);
    bool PurgeCostHistory();
    void PurgeCostHistory(bool value);
    qint16 CostHistoryMonths();
    void CostHistoryMonths(qint16 value);

    // --- Ingredient alternatives -----------------------------------------
    bool DockMeasurements();
    void DockMeasurementsSet(bool value);
    bool IngredientAlternatives();
    void IngredientAlternatives(bool value);
    bool LowerSodium();
    void LowerSodium(bool value);
    bool LowerCalories();
    void LowerCalories(bool value);
    bool LowerFat();
    void LowerFat(bool value);
    bool LowerCholesterol();
    void LowerCholesterol(bool value);
    bool HigherCalcium();
    void HigherCalcium(bool value);
    bool HigherIron();
    void HigherIron(bool value);
    bool HigherVitaminC();
    void HigherVitaminC(bool value);

    // --- Database upkeep and meals ---------------------------------------
    qint32 DBCompact();
    void DBCompact(qint32 value);
    QString LastCompact();
    void LastCompact(const QString& value);
    qint32 CheckForUpgrade();
    void CheckForUpgrade(qint32 value);
    qint32 BackupAction();
    void BackupAction(qint32 value);
    QString LastBackup();
    void LastBackup(const QString& value);
    bool BackupReminder();
    void BackupReminder(bool value);
    qint32 MealAction();
    void MealAction(qint32 value);
    bool ExpandNewMealDate();
    void ExpandNewMealDate(bool value);
    bool WarnEmptyCourses();
    void WarnEmptyCourses(bool value);
    qint16 MealTargetCalories();
    void MealTargetCalories(qint16 value);
    bool MealTargetCaloriesMax();
    void MealTargetCaloriesMax(bool value);
    bool EnforceMealTargets();
    void EnforceMealTargets(bool value);

    // --- Mail (the password is kept as typed, in plain text) --------------
    QString EmailServer();
    void EmailServer(const QString& value);
    QString EmailAccount();
    void EmailAccount(const QString& value);
    QString EmailPassword();
    void EmailPassword(const QString& value);

    // --- Recommended daily amounts ----------------------------------------
    // Two sets on partly the same keys: the numbers (default 2000 each) and the
    // texts the options screen shows, so "RDA_Calcium" reads 2000 one way and
    // "1000" the other while it is unset.
    qint16 RDA_Calories();
    void RDA_Calories(qint16 value);
    qint16 RDA_Protein();
    void RDA_Protein(qint16 value);
    qint16 RDA_LipidFat();
    void RDA_LipidFat(qint16 value);
    qint16 RDA_Carbohyrdates();
    void RDA_Carbohyrdates(qint16 value);
    qint16 RDA_Dietary_Fibre();
    void RDA_Dietary_Fibre(qint16 value);
    qint16 RDA_Calcium();
    void RDA_Calcium(qint16 value);
    qint16 RDA_Ash();
    void RDA_Ash(qint16 value);

    QString RDACalcium();
    void RDACalcium(const QString& value);
    QString RDACopper();
    void RDACopper(const QString& value);
    QString RDAIron();
    void RDAIron(const QString& value);
    // Reads copper's key (default "3") but writes manganese's, so a saved
    // manganese value is never read back and the screen shows copper's. Users'
    // files have it that way; keep it.
    QString RDAMangenese();
    void RDAMangenese(const QString& value);
    QString RDANiacin();
    void RDANiacin(const QString& value);
    QString RDAPotassium();
    void RDAPotassium(const QString& value);
    QString RDARiboflavin();
    void RDARiboflavin(const QString& value);
    QString RDASodium();
    void RDASodium(const QString& value);
    QString RDAThiamin();
    void RDAThiamin(const QString& value);
    QString RDAVitaminA();
    void RDAVitaminA(const QString& value);
    QString RDAVitaminB12();
    void RDAVitaminB12(const QString& value);
    QString RDAVitaminB6();
    void RDAVitaminB6(const QString& value);
    QString RDAVitaminC();
    void RDAVitaminC(const QString& value);
    QString RDAVitaminE();
    void RDAVitaminE(const QString& value);
    QString RDAZinc();
    void RDAZinc(const QString& value);
    QString RDABasis();
    void RDABasis(const QString& value);

    // --- Callers name these; there is nothing behind them ----------------
    qint32 RecentlyUsed() { return 0; }
    void RecentlyUsed(qint32) {}
    void SetLVForm() {}

    // --- Window places ------------------------------------------------------
    // FormSettingName chooses the window the next calls are about; the keys are
    // "<name>-Top", "-Height", "-Width", "-Left", default 0 (never saved).
    void FormSettingName(const QString& name) { formName_ = name; }
    qint32 FormTop();
    void FormTop(qint32 value);
    qint32 FormHeight();
    void FormHeight(qint32 value);
    qint32 FormWidth();
    void FormWidth(qint32 value);
    qint32 FormLeft();
    void FormLeft(qint32 value);

    // The spell-check window's place, section "WindowSettings"; 0 when never saved.
    float SpellLeft();
    void SpellLeft(float value);
    float SpellTop();
    void SpellTop(float value);

    // Keys that other code reads by their literal names ("InstallDir",
    // "Show Tips at Startup"); plain text, as GetSetting/SaveSetting.
    QString GetValue(const QString& section, const QString& key, const QString& def = QString());
    void SetValue(const QString& section, const QString& key, const QString& value);

private:
    QString formName_;
};
