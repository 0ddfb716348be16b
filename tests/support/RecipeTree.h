#pragma once

#include "core/MainPanes.h"

#include <QStringList>

// The recipe tree of the main window, set up and read back for the checks.
namespace tree {

// The tree as the main window starts it: the root and some categories.
inline void Start(const QStringList& categories) {
    MainPanes& panes = MainPanes::Instance();
    panes.Clear(panes.recipes);
    panes.SetBold(panes.AddNode(panes.recipes, QString(), "Root", "Recipies"));
    for (const QString& c : categories) panes.SetBold(panes.AddNode(panes.recipes, "Root", c, c, "RecipeCategory"));
}

inline QStandardItem* AddRecipe(const QString& category, const QString& title, const QString& tag = "Recipe Title") {
    MainPanes& panes = MainPanes::Instance();
    return panes.AddNode(panes.recipes, category, QString(), title, tag);
}

// "Category/Title" for every recipe node, in tree order.
inline QStringList Lines() {
    MainPanes& panes = MainPanes::Instance();
    QStringList out;
    for (QStandardItem* node : panes.AllNodes(panes.recipes)) {
        if (!node->parent()) continue;
        out << (node->parent()->parent() ? node->parent()->text() + "/" : QString()) + node->text();
    }
    return out;
}

}  // namespace tree
