#include "recipes/clsRecipies.h"

#include "core/ChangeNotices.h"
#include "core/Dates.h"
#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/MainPanes.h"
#include "core/Values.h"
#include "core/modVerify.h"
#include "lists/clsShopList.h"
#include "meals/clsGuestServed.h"
#include "meals/clsMeal.h"
#include "platform/RuntimeError.h"
#include "platform/Ui.h"
#include "products/clsHistory.h"
#include "recipes/PackedIngredient.h"
#include "recipes/RecipeComparisons.h"
#include "recipes/rptRecipe.h"

#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QTemporaryFile>

namespace {

const QString kRecipeTitleTag = QStringLiteral("Recipe Title");
const QColor kRecipeColour(100, 100, 100);


// The second family: the caller's own string is doubled first and then quoted
// again, so what reaches the query has four apostrophes for each one typed.
QString LitInPlace(QString& text) {
    QuoteSql(text);
    return SqlText(text);
}

QStandardItemModel& Tree() { return MainPanes::Instance().recipes; }

QStandardItem* CategoryNode(const QString& category) { return MainPanes::Instance().AddCategory(category); }

QString MissingRecord() { return Err::NoCurrentRecord; }

}  // namespace

clsRecipies::clsRecipies() {
    // A snapshot of every recipe by title; Display walks it to find one.
    Trap(QStringLiteral("Recipe.Class_Initialize"), [&] {
        rs_.FetchByKey(true);
        rs_.Open(QStringLiteral("SELECT * FROM Recipie ORDER BY [Title];"), ConnectionMain(), adOpenKeyset,
                 adLockOptimistic);
    });
}

clsRecipies::~clsRecipies() = default;

// --- the current row -------------------------------------------------------

namespace {

bool OnRow(const Recordset& rs) { return rs.IsOpen() && !rs.IsBOF() && !rs.IsEOF(); }

QVariant Col(const Recordset& rs, const QString& name) { return OnRow(rs) ? rs.Field(name) : QVariant(); }

}  // namespace

QString clsRecipies::Style() { return TextOf(Col(rs_, QStringLiteral("Style"))); }
QString clsRecipies::Course() { return TextOf(Col(rs_, QStringLiteral("Course"))); }
QString clsRecipies::Name() { return TextOf(Col(rs_, QStringLiteral("Title"))); }
QString clsRecipies::PrepTime() { return TextOf(Col(rs_, QStringLiteral("PrepTime"))); }
QString clsRecipies::CookbookName() { return TextOf(Col(rs_, QStringLiteral("CookbookName"))); }

qint16 clsRecipies::Favorite() {
    const QVariant v = Col(rs_, QStringLiteral("Favorite"));
    return IsNull(v) ? 0 : CInt(v);
}

qint16 clsRecipies::Servings() {
    // Stored as "<n> Servings": the number is read from the first two characters.
    return qint16(Val(TextOf(Col(rs_, QStringLiteral("Servings"))).left(2)));
}

qint16 clsRecipies::Uses() {
    const QVariant v = Col(rs_, QStringLiteral("TimesUsed"));
    return IsNull(v) ? 0 : CInt(v);
}

QString clsRecipies::Ingredients(int index) {
    const QString column = PackedIngredient::ColumnName(index);
    if (column.isEmpty()) return QString();
    return TextOf(Col(rs_, column));
}

QString clsRecipies::Instructions() { return TextOf(Col(rs_, QStringLiteral("Instructions"))); }

QString clsRecipies::IngredientQuantity(int index) { return PackedIngredient::Quantity(Ingredients(index)); }
QString clsRecipies::IngredientMeasure(int index) { return PackedIngredient::Unit(Ingredients(index)); }
QString clsRecipies::IngredientName(int index) { return PackedIngredient::Name(Ingredients(index)); }

int clsRecipies::IngredientCount() {
    for (int i = PackedIngredient::LastShownSlot; i >= 1; --i)
        if (!Ingredients(i).isEmpty()) return i;
    return 0;
}

// --- lookups and counts ---------------------------------------------------

bool clsRecipies::Exists(QString& title) {
    return Trap(QStringLiteral("Recipe.Exists"), false, [&] {
        Recordset rs;
        rs.Open(QStringLiteral("SELECT [Title] FROM Recipie WHERE [Title] = ") + LitInPlace(title), ConnectionMain(),
                adOpenKeyset, adLockReadOnly);
        return rs.RecordCount() > 0;
    });
}

bool clsRecipies::Exists(const QString& title) {
    QString copy = title;
    return Exists(copy);
}

qint32 clsRecipies::SelectCount(const QString& cookbook) {
    return Trap(QStringLiteral("Recipe.SelectCount"), qint32(0), [&] {
        Recordset rs;
        rs.Open(QStringLiteral("SELECT * FROM [Recipie] WHERE [CookbookName] = \"") + QuoteSql(cookbook) +
                    QStringLiteral("\""),
                ConnectionMain(), adOpenKeyset, adLockReadOnly);
        return rs.RecordCount();
    });
}

void clsRecipies::MarkFavorite(const QString& title) {
    Trap(QStringLiteral("Recipe.MarkFavorite"), [&] {
        Recordset rs;
        rs.Open(QStringLiteral("SELECT [Favorite] FROM Recipie WHERE [Title] = ") + SqlText(title), ConnectionMain(),
                adOpenKeyset, adLockOptimistic);
        if (rs.IsEOF()) return;
        const QVariant v = rs.Field(QStringLiteral("Favorite"));
        rs.setField(QStringLiteral("Favorite"), !(!IsNull(v) && CBool(v)));
        rs.Update();
        rs.Close();

        MainPanes& panes = MainPanes::Instance();
        for (QStandardItem* node : panes.AllNodes(Tree())) {
            if (node->text() != title || node->data(MainPanes::TagRole).toString() != kRecipeTitleTag) continue;
            const QString key = node->data(MainPanes::ImageKeyRole).toString();
            if (key == QLatin1String("Recipe"))
                panes.SetImageKey(node, QStringLiteral("RecipeFavorite"));
            else if (key == QLatin1String("RecipeFavorite"))
                panes.SetImageKey(node, QStringLiteral("Recipe"));
            else if (key == QLatin1String("RecipeCompareFavorite"))
                panes.SetImageKey(node, QStringLiteral("RecipeCompare"));
            else if (key == QLatin1String("RecipeCompare"))
                panes.SetImageKey(node, QStringLiteral("RecipeCompareFavorite"));
        }
    });
}

bool clsRecipies::IsFavorite(QString& title) {
    return Trap(QStringLiteral("Recipe.IsFavorite"), false, [&] {
        // This query is not well formed and names a table the database
        // does not have, so the answer is always the error report and False.
        // Callers read the mark from the row instead.
        Recordset rs;
        rs.Open(QStringLiteral("SELECT [Favorite FROM Recipies WHERE [Favorite] = 'True' and [Title] =") +
                    LitInPlace(title),
                ConnectionMain(), adOpenKeyset, adLockReadOnly);
        return rs.RecordCount() > 0;
    });
}

bool clsRecipies::IsFavorite(const QString& title) {
    QString copy = title;
    return IsFavorite(copy);
}

qint32 clsRecipies::FavoriteCount(QString& cookbook) {
    // Counts every recipe of the cookbook, favourite or not: the figure the
    // cookbook lists show under "Favorites".
    return Trap(QStringLiteral("Recipe.FavoriteCount"), qint32(0), [&] {
        Recordset rs;
        rs.Open(QStringLiteral("SELECT [Title] FROM Recipie WHERE [CookbookName] = ") + LitInPlace(cookbook),
                ConnectionMain(), adOpenKeyset, adLockReadOnly);
        return rs.RecordCount();
    });
}

qint32 clsRecipies::FavoriteCount(const QString& cookbook) {
    QString copy = cookbook;
    return FavoriteCount(copy);
}

bool clsRecipies::OnMeal(QString& title) {
    return Trap(QStringLiteral("Recipe.OnMeal"), false, [&] {
        QuoteSql(title);
        // "Meals" and its Side columns name no table of this database, which has
        // Meal, so this reports the missing table and answers False.
        Recordset rs;
        rs.Open(QStringLiteral("SELECT * FROM Meals"), ConnectionMain(), adOpenKeyset, adLockReadOnly);
        while (!rs.IsEOF()) {
            for (const char* column : {"Appetizer", "MainCourse", "Desert", "SideOne", "SideTwo", "SideThree"})
                if (TextOf(rs.Field(QString::fromLatin1(column))) == title) return true;
            rs.MoveNext();
        }
        return false;
    });
}

bool clsRecipies::OnMeal(const QString& title) {
    QString copy = title;
    return OnMeal(copy);
}

QString clsRecipies::Display(const QString& title) {
    if (!rs_.IsOpen()) return QString();
    const QString wanted = title.trimmed();
    if (rs_.IsBOF() && rs_.IsEOF()) return QString();
    rs_.MoveFirst();
    while (!rs_.IsEOF()) {
        if (TextOf(rs_.Field(QStringLiteral("Title"))).trimmed() == wanted) break;
        rs_.MoveNext();
    }
    if (rs_.IsEOF()) return QString();

    const QString crlf = QStringLiteral("\r\n");
    QString text;
    text += QStringLiteral("Categories: ") + TextOf(rs_.Field(QStringLiteral("Style"))) + crlf;
    text += QStringLiteral("Course: ") + TextOf(rs_.Field(QStringLiteral("Course"))) + crlf;
    text += QStringLiteral("Prep Time: ") + TextOf(rs_.Field(QStringLiteral("PrepTime"))) + crlf;
    text += QStringLiteral("Servings: ") + TextOf(rs_.Field(QStringLiteral("Servings"))) + crlf + crlf;
    for (int i = 1; i <= PackedIngredient::LastShownSlot; ++i) {
        const QString packed = TextOf(rs_.Field(PackedIngredient::ColumnName(i)));
        if (!packed.isEmpty()) text += PackedIngredient::DisplayLine(packed) + crlf;
    }
    const QVariant instructions = rs_.Field(QStringLiteral("Instructions"));
    if (!IsNull(instructions)) text += TextOf(instructions).replace(QLatin1Char('~'), crlf);
    return text;
}

// --- renames and deletions --------------------------------------------------

void clsRecipies::RenameRecipie(const QString& oldTitle, const QString& newTitle) {
    // The row itself is written anew by the entry screen; this carries the new
    // title to everything that copies it.
    if (newTitle.isEmpty()) {
        MsgBox(oldTitle + QStringLiteral(" was not renamed!"), Box::Exclamation);
        return;
    }
    RecipeComparisons& compare = RecipeComparisons::Instance();
    if (compare.RemoveFirst(oldTitle)) compare.Add(newTitle);

    Recordset rs;
    rs.Open(QStringLiteral("SELECT * FROM Meal"), ConnectionMain(), adOpenKeyset, adLockOptimistic);
    while (!rs.IsEOF()) {
        const auto is = [&rs, &oldTitle](const char* column) {
            return TextOf(rs.Field(QString::fromLatin1(column))) == oldTitle;
        };
        if (is("Name")) {
            rs.setField(QStringLiteral("Name"), newTitle);
            rs.Update();
        }
        if (is("Appetizer")) {
            rs.setField(QStringLiteral("Appetizer"), newTitle);
            rs.Update();
        }
        // A main course is renamed into the Appetizer column, and saved meals
        // depend on it; the old title stays in MainCourse.
        if (is("MainCourse")) {
            rs.setField(QStringLiteral("Appetizer"), newTitle);
            rs.Update();
        }
        if (is("Desert")) {
            rs.setField(QStringLiteral("Desert"), newTitle);
            rs.Update();
        }
        rs.MoveNext();
    }
    rs.Close();

    for (QStandardItem* node : MainPanes::Instance().AllNodes(Tree()))
        if (node->data(MainPanes::TagRole).toString() == kRecipeTitleTag && node->text() == oldTitle)
            node->setText(newTitle);

    clsShopList list;
    list.AdjustRecipeName(oldTitle, newTitle);
    clsGuestServed served;
    served.RenameRecipes(oldTitle, newTitle);
}

qint16 clsRecipies::DeleteRecipie(QString& title) {
    qint16 result = 0;
    Trap(QStringLiteral("Recipe.DeleteRecipe"), [&] {
        // The meals are cleaned with the title as the caller gave it, before it
        // is doubled for the query below.
        clsMeal meals;
        meals.RemoveRecipe(QString(), title);

        Recordset rs;
        rs.Open(QStringLiteral("SELECT * FROM Recipie WHERE [Title] = ") + LitInPlace(title), ConnectionMain(),
                adOpenKeyset, adLockOptimistic);
        const qint32 count = rs.RecordCount();
        if (count == 1) {
            rs.Delete();
            result = 0;
        } else {
            result = count > 1 ? 1 : 2;
        }
        rs.Close();

        // Walked by position: after a removal the walk goes on at the next
        // position, so a node that moved up into the freed place is passed over.
        MainPanes& panes = MainPanes::Instance();
        const QString wanted = title.trimmed();
        for (int i = 0;; ++i) {
            const QList<QStandardItem*> nodes = panes.AllNodes(Tree());
            if (i >= nodes.size()) break;
            if (nodes[i]->text().trimmed() == wanted) panes.Remove(Tree(), nodes[i]);
        }

        clsGuestServed served;
        served.RemoveRecipes(title);
    });
    return result;
}

qint16 clsRecipies::DeleteRecipie(const QString& title) {
    QString copy = title;
    return DeleteRecipie(copy);
}

QString clsRecipies::GetCookbookName(const QString& title) {
    return Trap(QStringLiteral("Recipe.GetCookbookName"), QString(), [&] {
        Recordset rs;
        rs.Open(QStringLiteral("SELECT [CookbookName] FROM Recipie WHERE [Title] = ") + SqlText(title),
                ConnectionMain(), adOpenKeyset, adLockReadOnly);
        if (rs.IsEOF()) return QString();
        return TextOf(rs.Field(QStringLiteral("CookbookName")));
    });
}

void clsRecipies::UpdateTimesUsed(QString& title) {
    Trap(QStringLiteral("Recipe.UpdateTimesUsed"), [&] {
        Recordset rs;
        rs.Open(QStringLiteral("SELECT [TimesUsed] FROM Recipie WHERE [Title] = ") + LitInPlace(title),
                ConnectionMain(), adOpenKeyset, adLockOptimistic);
        if (rs.IsEOF()) return;
        const QVariant used = rs.Field(QStringLiteral("TimesUsed"));
        rs.setField(QStringLiteral("TimesUsed"), IsNull(used) ? QVariant(1) : LooseAdd(used, 1));
        rs.Update();
    });
}

void clsRecipies::UpdateTimesUsed(const QString& title) {
    QString copy = title;
    UpdateTimesUsed(copy);
}

qint32 clsRecipies::CategoryCount(QString& category) {
    // A substring match: a count for Fish includes Shellfish.
    return Trap(QStringLiteral("Recipe.CategoryCount"), qint32(0), [&] {
        QuoteSql(category);
        Recordset rs;
        rs.Open(QStringLiteral("SELECT [Title] from recipie WHERE [Style] LIKE '%") + QuoteSql(QString(category)) +
                    QStringLiteral("%'"),
                ConnectionMain(), adOpenKeyset, adLockReadOnly);
        return rs.RecordCount();
    });
}

qint32 clsRecipies::CategoryCount(const QString& category) {
    QString copy = category;
    return CategoryCount(copy);
}

qint16 clsRecipies::GetUses(QString& title) {
    return Trap(QStringLiteral("Recipe.GetUses"), qint16(0), [&] {
        Recordset rs;
        rs.Open(QStringLiteral("SELECT [TimesUsed] from Recipie WHERE [Title] = ") + LitInPlace(title) +
                    QStringLiteral(" ORDER BY [TimesUsed]"),
                ConnectionMain(), adOpenKeyset, adLockReadOnly);
        if (rs.IsEOF()) throw RuntimeError(MissingRecord());
        const QVariant used = rs.Field(QStringLiteral("TimesUsed"));
        if (IsNull(used)) throw RuntimeError(Err::InvalidUseOfNull);
        return CInt(used);
    });
}

qint16 clsRecipies::GetUses(const QString& title) {
    QString copy = title;
    return GetUses(copy);
}

void clsRecipies::ClearUses(QString& title) {
    Trap(QStringLiteral("Recipe.ClearUses"), [&] {
        Recordset rs;
        rs.Open(QStringLiteral("SELECT [TimesUsed] FROM Recipie WHERE [Title] = ") + LitInPlace(title),
                ConnectionMain(), adOpenKeyset, adLockOptimistic);
        if (rs.IsEOF()) return;
        rs.setField(QStringLiteral("TimesUsed"), 0);
        rs.Update();
    });
}

void clsRecipies::ClearUses(const QString& title) {
    QString copy = title;
    ClearUses(copy);
}

void clsRecipies::ClearCookbookName(QString& cookbook) {
    Trap(QStringLiteral("Recipe.ClearCookbookName"), [&] {
        Recordset rs;
        rs.Open(QStringLiteral("SELECT [CookBookname] from Recipie WHERE [CookBookName] = ") + LitInPlace(cookbook),
                ConnectionMain(), adOpenKeyset, adLockOptimistic);
        while (!rs.IsEOF()) {
            rs.setField(QStringLiteral("CookbookName"), QStringLiteral("General"));
            rs.Update();
            rs.MoveNext();
        }
        rs.Close();

        if (CurrentCookbook == QLatin1String("General")) {
            const qint32 count = SelectCount(QStringLiteral("General"));
            Q_EMIT Notices().SetCookbookPanel(QStringLiteral("Recipes: ") + QString::number(count));
        }
        if (CurrentCookbook == cookbook) {
            CurrentCookbook.clear();
            Q_EMIT Notices().SetCookbookPanel(QStringLiteral("Current Cookbook:"));
            Q_EMIT Notices().LoadRecipies();
        }
    });
}

void clsRecipies::ClearCookbookName(const QString& cookbook) {
    QString copy = cookbook;
    ClearCookbookName(copy);
}

QString clsRecipies::NewCookbookName(QString& oldName, const QString& newName) {
    return Trap(QStringLiteral("Recipe.NewCookbookName"), QString(), [&] {
        Recordset rs;
        rs.Open(QStringLiteral("SELECT [CookbookName] FROM Recipie WHERE [CookbookName] = ") + LitInPlace(oldName),
                ConnectionMain(), adOpenKeyset, adLockOptimistic);
        while (!rs.IsEOF()) {
            rs.setField(QStringLiteral("CookbookName"), newName);
            rs.Update();
            rs.MoveNext();
        }
        return newName;
    });
}

QString clsRecipies::NewCookbookName(const QString& oldName, const QString& newName) {
    QString copy = oldName;
    return NewCookbookName(copy, newName);
}

// --- categories and cookbooks ----------------------------------------------

void clsRecipies::RemoveFromCategory(const QString& title, const QString& category) {
    Trap(QStringLiteral("Recipe.RemoveFromCategory"), [&] {
        Recordset rs;
        rs.Open(QStringLiteral("SELECT [Style] FROM Recipie WHERE [Title] = ") + SqlText(title), ConnectionMain(),
                adOpenKeyset, adLockOptimistic);
        if (rs.IsEOF()) return;
        const QString drop = category.trimmed();
        while (!rs.IsEOF()) {
            QString style;
            for (const QString& part : Split(TextOf(rs.Field(QStringLiteral("Style"))), QStringLiteral(","))) {
                const QString name = part.trimmed();
                if (name != drop) style += name + QStringLiteral(" ,");
            }
            if (style.endsWith(QLatin1String(" ,"))) style.chop(2);
            rs.setField(QStringLiteral("Style"), style);
            rs.Update();
            rs.MoveNext();
        }
        rs.Close();

        // The first node named exactly like the category goes, with all under it,
        // rather than the recipe's node beneath it.
        MainPanes& panes = MainPanes::Instance();
        for (QStandardItem* node : panes.AllNodes(Tree())) {
            if (node->text() == category) {
                panes.Remove(Tree(), node);
                break;
            }
        }
    });
}

bool clsRecipies::ChangeCookbook(const QString& title, const QString& cookbook) {
    return Trap(QStringLiteral("Recipe.ChangeCookbook"), false, [&] {
        Recordset rs;
        rs.Open(
            QStringLiteral("SELECT [CookbookName],[Style],[Favorite] FROM Recipie WHERE [Title] = ") + SqlText(title),
            ConnectionMain(), adOpenKeyset, adLockOptimistic);
        if (rs.IsEOF()) return false;
        rs.setField(QStringLiteral("CookbookName"), cookbook);
        rs.Update();

        MainPanes& panes = MainPanes::Instance();
        if (cookbook == CurrentCookbook) {
            const QVariant fav = rs.Field(QStringLiteral("Favorite"));
            const bool favorite = !IsNull(fav) && CBool(fav);
            for (const QString& part : Split(TextOf(rs.Field(QStringLiteral("Style"))), QStringLiteral(","))) {
                if (part.trimmed().isEmpty()) continue;
                // A recipe moved in shows greyed, favourite or not, until the tree is loaded again.
                QStandardItem* node = MainPanes::RecipeNode(title, favorite);
                node->setData(kRecipeTitleTag, MainPanes::TagRole);
                panes.SetColour(node, kRecipeColour);
                CategoryNode(part)->appendRow(node);
            }
        } else {
            for (QStandardItem* node : panes.AllNodes(Tree())) {
                if (node->text() == title) {
                    panes.Remove(Tree(), node);
                    break;
                }
            }
        }
        return true;
    });
}

void clsRecipies::SetCourse() {
    QuoteSql(name_);
    Recordset rs;
    rs.Open(QStringLiteral("SELECT [Course] FROM Recipie WHERE [Title] = ") + SqlText(name_), ConnectionMain(),
            adOpenKeyset, adLockOptimistic);
    if (rs.IsEOF()) return;
    rs.setField(QStringLiteral("Course"), course_);
    rs.Update();
}

void clsRecipies::AddRecipeCategory(const QString& category, const QString& title) {
    Trap(QStringLiteral("Recipe.AddRecipeCategory"), [&] {
        // The tree first: the category's node (made when missing) with the recipe under it.
        CategoryNode(category)->appendRow(MainPanes::RecipeNode(title, false));

        Recordset rs;
        rs.Open(QStringLiteral("SELECT [Style] FROM Recipie WHERE [Title] = ") + SqlText(title), ConnectionMain(),
                adOpenKeyset, adLockOptimistic);
        if (rs.IsEOF()) return;
        const QString style = TextOf(rs.Field(QStringLiteral("Style")));
        rs.setField(QStringLiteral("Style"),
                    style.endsWith(QLatin1Char(',')) ? style + category : style + QStringLiteral(",") + category);
        rs.Update();
    });
}

// --- shopping lists ------------------------------------------------------------

namespace {

// An ingredient written as "salt for" (the rest of the phrase cut off) goes on
// the list without its dangling "for". Only the last three characters are
// looked at, so "salt For" and "salt for " stay as they are.
QString WithoutTrailingFor(QString name) {
    if (name.right(3).trimmed() == QLatin1String("for")) name.chop(3);
    return name;
}

}  // namespace

bool clsRecipies::GenerateList(QString& recipeTitle, QString& listName) {
    return Trap(QStringLiteral("Recipe.GenerateList"), false, [&] {
        Recordset rs;
        rs.Open(QStringLiteral("SELECT * FROM Recipie WHERE [Title] = ") + LitInPlace(recipeTitle), ConnectionMain(),
                adOpenKeyset, adLockOptimistic);
        if (IsDate(QVariant(listName)))
            listName = Format(QVariant(CDate(QVariant(listName))), QStringLiteral("dddd, mmm d yyyy"));
        {
            // The list pane is read once when the last ingredient is in.
            NoticeBatch batch;
            // Raises when no row was found, before anything is written.
            const QString style = TextOf(rs.Field(QStringLiteral("Style")));
            clsHistory().AddItems(style);
            for (int i = 1; i <= PackedIngredient::LastShownSlot; ++i) {
                const QVariant value = rs.Field(PackedIngredient::ColumnName(i));
                if (IsNull(value)) continue;
                const QString packed = TextOf(value);
                if (packed.isEmpty()) continue;
                clsShopList item;
                item.Name(listName);
                item.Store(QStringLiteral("Any"));
                item.ItemManufacturer(QStringLiteral("Any"));
                item.ItemName(WithoutTrailingFor(PackedIngredient::Name(packed)));
                // Stored right-justified in seven places; the list takes the quantity itself.
                item.ItemQuantity(PackedIngredient::Quantity(packed));
                item.ItemSize(PackedIngredient::Field(packed, 1));
                item.ItemStyle(recipeTitle);
                item.IsCurrent(true);
                item.ItemCoupon(false);
                item.Recurring(QStringLiteral(" "));
                item.AddItem();
            }
            const QVariant used = rs.Field(QStringLiteral("TimesUsed"));
            rs.setField(QStringLiteral("TimesUsed"), IsNull(used) ? QVariant(1) : LooseAdd(used, 1));
            rs.Update();
            rs.Close();
        }
        MsgBox(QStringLiteral("The Recipe ,") + recipeTitle + QStringLiteral(", was added to the List, ") + listName +
                   QStringLiteral("."),
               Box::Exclamation, QStringLiteral("List Add"));
        return true;
    });
}

// --- pictures ----------------------------------------------------------------

void clsRecipies::SetRecipeImage(const QString& title, const QString& file) {
    Trap(QStringLiteral("Recipe.SetRecipeImage"), [&] {
        Recordset rs;
        rs.Open(QStringLiteral("SELECT [ImageFile],[Title] FROM Recipie WHERE [Title] = ") + SqlText(title),
                ConnectionMain(), adOpenKeyset, adLockOptimistic);
        if (rs.IsEOF()) {
            MsgBox(title + QStringLiteral(" is not in the Database!"), Box::Information, QStringLiteral("Notice"));
            return;
        }
        rs.setField(QStringLiteral("ImageFile"), file);
        rs.Update();
    });
}

bool clsRecipies::ValidateImage(const QString& title) {
    return Trap(QStringLiteral("Recipe.ValidateImage"), false, [&] {
        const QString path = GetRecipeImageUnTrapped(title);
        return !path.isEmpty() && QFileInfo(path).isFile();
    });
}

QString clsRecipies::GetRecipeImage(const QString& title) {
    return Trap(QStringLiteral("Recipe.GetRecipeImage"), QString(), [&] { return GetRecipeImageUnTrapped(title); });
}

QString clsRecipies::GetRecipeImageUnTrapped(const QString& title) {
    Recordset rs;
    rs.Open(QStringLiteral("SELECT [ImageFile] FROM Recipie WHERE [Title] = ") + SqlText(title), ConnectionMain(),
            adOpenKeyset, adLockReadOnly);
    if (rs.IsEOF()) return QString();
    return TextOf(rs.Field(QStringLiteral("ImageFile")));
}

// --- printing ----------------------------------------------------------------

bool clsRecipies::PrepareReport(const QString& title, bool testPicture, rptRecipe& report) {
    Recordset rs;
    rs.Open(QStringLiteral("SELECT * FROM Recipie WHERE [Title] = ") + SqlText(title), ConnectionMain(), adOpenKeyset,
            adLockReadOnly);
    if (rs.IsEOF()) return false;
    // Binding turns each "%%" into a blank in what was fetched; nothing is written back.
    report.Bind(rs);
    const QString image = TextOf(rs.Field(QStringLiteral("ImageFile")));
    if (testPicture) {
        if (!image.isEmpty() && QFileInfo(image).isFile()) report.Picture = QImage(image);
        if (report.Picture.isNull()) report.Picture = rptRecipe::Background();
    } else if (!image.isEmpty()) {
        report.Picture = QImage(image);
        if (report.Picture.isNull()) throw RuntimeError(QStringLiteral("File not found"));
    }
    return true;
}

void clsRecipies::PrintPreview(const QString& title, int mode, const QString& path) {
    Trap(QStringLiteral("Recipe.PrintPreview"), [&] {
        rptRecipe layout;
        if (!PrepareReport(title, true, layout)) return;
        const Report report = layout.Build();
        QWidget* owner = MainWindow();
        switch (mode) {
        case 1:
            report.Print(owner);
            break;
        case 2:
            report.Preview(owner);
            break;
        case 3: {
            // Only an export without a path goes anywhere: the report engine
            // then asks where. A given path is ignored on purpose: the
            // cookbook printout relies on that.
            if (!path.isEmpty()) break;
            const QString target =
                TheUi().SaveFileName(QStringLiteral("Export Report"),
                                     QDir::homePath() + QLatin1Char('/') + layout.Title + QStringLiteral(".htm"),
                                     QStringLiteral("HTML (*.htm *.html)"));
            if (target.isEmpty()) break;
            if (!report.SaveHtml(target)) throw RuntimeError(QStringLiteral("Path/File access error"));
            lastExport_ = target;
            break;
        }
        default:
            break;
        }
    });
}

QString clsRecipies::CreateTempFile(const QString& title, const QString& selector) {
    return Trap(QStringLiteral("Recipe.CreateTempFile"), QString(), [&] {
        rptRecipe layout;
        PrepareReport(title, false, layout);
        QTemporaryFile file(QDir::tempPath() + QStringLiteral("/VBNXXXXXX.tmp"));
        file.setAutoRemove(false);
        if (!file.open()) throw RuntimeError(QStringLiteral("Path/File access error"));
        const QString path = file.fileName();
        file.close();
        const Report report = layout.Build();
        const bool ok = selector.isEmpty() ? report.SaveHtml(path) : report.SaveText(path);
        if (!ok) throw RuntimeError(QStringLiteral("Path/File access error"));
        return path;
    });
}
