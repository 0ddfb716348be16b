#pragma once

#include "platform/Recordset.h"

#include <QString>

class rptRecipe;

// The one way the program reads and changes a recipe. A recipe is one row of
// Recipie, found by its Title; its ingredients are packed text in the numbered
// Ingredient columns (see PackedIngredient). The class also carries the chores
// that follow a title around the database: renames and deletions reaching meals,
// lists and guests, use counts, cookbook and category moves.
//
// The object opens "every recipe by title" when it is made and keeps that
// snapshot; Display positions it, and the indexed readers read the row it
// stands on.
//
// Quoting comes in two kinds and the difference is part of the contract. Most
// operations quote a copy of the title. Those taking `QString&` double the
// apostrophes of the caller's own string first and then quote that again, so a
// title holding an apostrophe is searched for with two in its place and is not
// found, and the caller's string stays doubled. The `const QString&` overloads
// of those operations exist for literals and temporaries: they behave alike on
// a copy.
class clsRecipies {
public:
    clsRecipies();
    ~clsRecipies();
    clsRecipies(const clsRecipies&) = delete;
    clsRecipies& operator=(const clsRecipies&) = delete;

    // Property pairs: the write side keeps a member, the read side reads the
    // current row of the object's recordset.
    QString Style();
    void Style(const QString& value) { style_ = value; }
    QString Course();
    void Course(const QString& value) { course_ = value; }
    QString Name();  // column Title
    void Name(const QString& value) { name_ = value; }
    QString PrepTime();
    void PrepTime(const QString& value) { prepTime_ = value; }
    qint16 Favorite();
    void Favorite(qint16 value) { favorite_ = value; }
    qint16 Servings();
    void Servings(qint16 value) { servings_ = value; }
    QString CookbookName();
    void CookbookName(const QString& value) { cookbookName_ = value; }
    qint16 Uses();  // column TimesUsed
    void Uses(qint16 value) { uses_ = value; }
    bool Imported() const { return false; }  // never reports an import, deliberately
    void Imported(bool value) { imported_ = value; }

    // Readers of the current row. Ingredients takes 1..20; the others below
    // split that text.
    QString Ingredients(int index);
    QString Instructions();
    QString IngredientQuantity(int index);
    QString IngredientMeasure(int index);
    QString IngredientName(int index);
    // The highest of 1..18 whose column holds text (a gap counts), 0 when none.
    int IngredientCount();

    bool Exists(QString& title);
    bool Exists(const QString& title);
    qint32 SelectCount(const QString& cookbook);
    void MarkFavorite(const QString& title);
    bool IsFavorite(QString& title);
    bool IsFavorite(const QString& title);
    qint32 FavoriteCount(QString& cookbook);
    qint32 FavoriteCount(const QString& cookbook);
    bool OnMeal(QString& title);
    bool OnMeal(const QString& title);
    QString Display(const QString& title);
    void RenameRecipie(const QString& oldTitle, const QString& newTitle);
    // 0 deleted, 1 more than one row has the title (nothing deleted), 2 no such row.
    qint16 DeleteRecipie(QString& title);
    qint16 DeleteRecipie(const QString& title);
    QString GetCookbookName(const QString& title);
    void UpdateTimesUsed(QString& title);
    void UpdateTimesUsed(const QString& title);
    qint32 CategoryCount(QString& category);
    qint32 CategoryCount(const QString& category);
    qint16 GetUses(QString& title);
    qint16 GetUses(const QString& title);
    void ClearUses(QString& title);
    void ClearUses(const QString& title);
    void ClearCookbookName(QString& cookbook);
    void ClearCookbookName(const QString& cookbook);
    QString NewCookbookName(QString& oldName, const QString& newName);
    QString NewCookbookName(const QString& oldName, const QString& newName);
    void RemoveFromCategory(const QString& title, const QString& category);
    bool ChangeCookbook(const QString& title, const QString& cookbook);
    // Writes member Course on the row titled member Name (whose apostrophes are
    // doubled in place first).
    void SetCourse();
    // mode 1 prints, 2 previews, 3 exports as HTML, but only when `path` is empty.
    void PrintPreview(const QString& title, int mode, const QString& path);
    // Writes the recipe to a new temporary file, as text when `selector` is not
    // empty and as HTML otherwise, and gives its path; the caller removes it.
    QString CreateTempFile(const QString& title, const QString& selector);
    void SetRecipeImage(const QString& title, const QString& file);
    bool ValidateImage(const QString& title);
    QString GetRecipeImage(const QString& title);
    void AddRecipeCategory(const QString& category, const QString& title);

    // Puts the recipe's ingredients 1..18 on the shopping list `listName`, one
    // AddItem each (so like items of the Current list merge), notes its
    // categories in the history, counts one use and says so in a box. Both
    // arguments are in-out: the title comes back with its apostrophes doubled
    // (so a title holding one is not found, and the call ends in the error box
    // with nothing added), and a list name that is a date comes back in its long
    // form, which is the name a dated list has. True when the list was written.
    bool GenerateList(QString& recipeTitle, QString& listName);

    // Where the last HTML export of PrintPreview went ("" when none); the
    // report engine names it, callers that want to show it read it here.
    QString LastExportFile() const { return lastExport_; }

private:
    QString GetRecipeImageUnTrapped(const QString& title);
    // Reads the recipe into the report layout; false when there is no such row.
    // `testPicture`: fall back to the background when the file is missing,
    // rather than failing on it.
    bool PrepareReport(const QString& title, bool testPicture, rptRecipe& report);

    QString style_, course_, name_, prepTime_, cookbookName_;
    qint16 favorite_ = 0, servings_ = 0, uses_ = 0;
    bool imported_ = false;
    Recordset rs_;
    QString lastExport_;
};
