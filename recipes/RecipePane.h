#pragma once

class QStandardItem;

// Fills the recipe pane: every category in use, bold, and under each the
// recipes of the cookbook on show (all cookbooks when none is open).
namespace RecipePane {
// The tree's root, its categories and recipes made afresh.
QStandardItem* LoadRecipies();
}  // namespace RecipePane
