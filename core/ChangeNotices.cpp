#include "core/ChangeNotices.h"

#include <utility>

ChangeNotices& ChangeNotices::Instance() {
    static ChangeNotices notices;
    return notices;
}

void ChangeNotices::Hold() { ++holds_; }

void ChangeNotices::Release() {
    if (holds_ == 0 || --holds_ > 0) return;
    // Cleared before sending: a listener may start a batch of its own.
    const bool list = std::exchange(listAsked_, false);
    const bool meals = std::exchange(mealsAsked_, false);
    if (list) Q_EMIT LoadShoppingList();
    if (meals) Q_EMIT LoadMealList();
}

void ChangeNotices::ShoppingListChanged() {
    if (holds_ > 0)
        listAsked_ = true;
    else
        Q_EMIT LoadShoppingList();
}

void ChangeNotices::MealListChanged() {
    if (holds_ > 0)
        mealsAsked_ = true;
    else
        Q_EMIT LoadMealList();
}
