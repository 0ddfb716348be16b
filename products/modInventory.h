#pragma once

#include <QString>

// What the household has on hand: purchases from the Current list written into
// the catalogue, run-out items taken away, and the generic items that never
// count as purchases.
namespace modInventory {
void CreateInventory();
void RemoveExpiredItems();
bool Generic(const QString& itemName);
bool RemoveFromInventory(qint32 productID);
}  // namespace modInventory
