#pragma once

// Fills the current-list pane with the rows of the lists marked current.
namespace ListPane {
void LoadShoppingList();
}  // namespace ListPane
