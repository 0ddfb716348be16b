#include "products/modInventory.h"

namespace modInventory {
void CreateInventory() {}
void RemoveExpiredItems() {}
bool Generic(const QString&) { return false; }
bool RemoveFromInventory(qint32) { return false; }
}  // namespace modInventory
