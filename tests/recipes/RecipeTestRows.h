#pragma once

// Rows written straight into the database for the recipe, meal and list tests,
// so that each test states the data it starts from.

#include "core/Globals.h"
#include "core/MainPanes.h"
#include "platform/Recordset.h"
#include "recipes/PackedIngredient.h"

#include <QMap>
#include <QStringList>
#include <QVariant>

struct RecipeRow {
    QString title;
    QString style = QStringLiteral("General");
    QString cookbook = QStringLiteral("General");
    QString course;
    QString prep;
    QString servings;
    QVariant instructions;  // Null unless set
    QString image;
    bool favorite = false;
    QVariant timesUsed;  // Null unless set
    QMap<int, QString> packed;  // slot number -> packed text
};

inline qint32 AddRecipe(const RecipeRow& r) {
    Recordset rs;
    rs.Open(QStringLiteral("SELECT * FROM Recipie"), ConnectionMain(), adOpenStatic, adLockOptimistic);
    rs.AddNew();
    rs.setField(QStringLiteral("Title"), r.title);
    rs.setField(QStringLiteral("Style"), r.style);
    rs.setField(QStringLiteral("CookbookName"), r.cookbook);
    rs.setField(QStringLiteral("Course"), r.course);
    rs.setField(QStringLiteral("PrepTime"), r.prep);
    rs.setField(QStringLiteral("Servings"), r.servings);
    rs.setField(QStringLiteral("Favorite"), r.favorite);
    if (r.timesUsed.isValid()) rs.setField(QStringLiteral("TimesUsed"), r.timesUsed);
    if (r.instructions.isValid()) rs.setField(QStringLiteral("Instructions"), r.instructions);
    rs.setField(QStringLiteral("ImageFile"), r.image);
    for (auto it = r.packed.cbegin(); it != r.packed.cend(); ++it)
        rs.setField(PackedIngredient::ColumnName(it.key()), it.value());
    rs.Update();
    return rs.Field(QStringLiteral("ID")).toInt();
}

inline RecipeRow Recipe(const QString& title, const QString& style = QStringLiteral("General"),
                        const QString& cookbook = QStringLiteral("General")) {
    RecipeRow r;
    r.title = title;
    r.style = style;
    r.cookbook = cookbook;
    return r;
}

// Every value of one column, in the query's order.
inline QStringList Column(const QString& sql, const QString& column) {
    Recordset rs;
    rs.Open(sql, ConnectionMain(), adOpenKeyset, adLockReadOnly);
    QStringList out;
    while (!rs.IsEOF()) {
        const QVariant v = rs.Field(column);
        out << (v.isNull() ? QStringLiteral("<null>") : v.toString());
        rs.MoveNext();
    }
    return out;
}

inline QVariant RecipeValue(const QString& title, const QString& column) {
    Recordset rs;
    rs.Open(QStringLiteral("SELECT * FROM Recipie WHERE [ID] > 0"), ConnectionMain(), adOpenKeyset, adLockReadOnly);
    while (!rs.IsEOF()) {
        if (rs.Field(QStringLiteral("Title")).toString() == title) return rs.Field(column);
        rs.MoveNext();
    }
    return QStringLiteral("<no such recipe>");
}

inline int CountRows(const QString& sql) {
    Recordset rs;
    rs.Open(sql, ConnectionMain(), adOpenKeyset, adLockReadOnly);
    return rs.RecordCount();
}

struct MealRow {
    QString name;
    QString meal = QStringLiteral("Dinner");
    QString dates;
    QString appetizer, mainCourse, desert, sideOne, sideTwo, sideThree, sideFour;
};

inline qint32 AddMeal(const MealRow& m) {
    Recordset rs;
    rs.Open(QStringLiteral("SELECT * FROM Meal"), ConnectionMain(), adOpenStatic, adLockOptimistic);
    rs.AddNew();
    rs.setField(QStringLiteral("Name"), m.name);
    rs.setField(QStringLiteral("Meal"), m.meal);
    rs.setField(QStringLiteral("Dates"), m.dates);
    rs.setField(QStringLiteral("Appetizer"), m.appetizer);
    rs.setField(QStringLiteral("MainCourse"), m.mainCourse);
    rs.setField(QStringLiteral("Desert"), m.desert);
    rs.setField(QStringLiteral("SideDishOne"), m.sideOne);
    rs.setField(QStringLiteral("SideDishTwo"), m.sideTwo);
    rs.setField(QStringLiteral("SideDishThree"), m.sideThree);
    rs.setField(QStringLiteral("SideDishfour"), m.sideFour);
    rs.Update();
    return rs.Field(QStringLiteral("ID")).toInt();
}

inline QVariant MealValue(qint32 id, const QString& column) {
    Recordset rs;
    rs.Open(QStringLiteral("SELECT * FROM Meal WHERE [ID] = ") + QString::number(id), ConnectionMain(), adOpenKeyset,
            adLockReadOnly);
    if (rs.IsEOF()) return QStringLiteral("<no such meal>");
    return rs.Field(column);
}

inline void AddGuestServed(const QString& guest, const QString& recipe) {
    Recordset rs;
    rs.Open(QStringLiteral("SELECT * FROM GuestServed"), ConnectionMain(), adOpenStatic, adLockOptimistic);
    rs.AddNew();
    rs.setField(QStringLiteral("GuestName"), guest);
    rs.setField(QStringLiteral("RecipeName"), recipe);
    rs.Update();
}

// The recipe tree as the main window starts it: the root and some categories.
inline void StartRecipeTree(const QStringList& categories) {
    MainPanes& panes = MainPanes::Instance();
    panes.Clear(panes.recipes);
    panes.SetBold(panes.AddNode(panes.recipes, QString(), QStringLiteral("Root"), QStringLiteral("Recipies")));
    for (const QString& c : categories)
        panes.SetBold(panes.AddNode(panes.recipes, QStringLiteral("Root"), c, c, QStringLiteral("RecipeCategory")));
}

inline QStandardItem* AddRecipeNode(const QString& category, const QString& title,
                                    const QString& tag = QStringLiteral("Recipe Title")) {
    MainPanes& panes = MainPanes::Instance();
    return panes.AddNode(panes.recipes, category, QString(), title, tag);
}

// "Category/Title" for every recipe node, in tree order.
inline QStringList TreeLines() {
    MainPanes& panes = MainPanes::Instance();
    QStringList out;
    for (QStandardItem* node : panes.AllNodes(panes.recipes)) {
        if (!node->parent()) continue;
        out << (node->parent()->parent() ? node->parent()->text() + QStringLiteral("/") : QString()) + node->text();
    }
    return out;
}
