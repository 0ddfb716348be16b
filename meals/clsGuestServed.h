#pragma once

#include "core/RecordsetClass.h"

#include <QString>

// Which guest was served which recipe. The write side of each property keeps a
// member; the read side reads the current row.
class clsGuestServed : public RecordsetClass {
public:
    QString GuestName() const;
    void GuestName(const QString& value) { guestName_ = value; }
    QString RecipeName() const;
    void RecipeName(const QString& value) { recipeName_ = value; }

    // Deletes the current row.
    void dbDelete() { rs.Delete(); }

    // Adds a row of the kept guest and recipe.
    bool WriteNew();
    // Asks before serving a recipe twice to one guest: the answer (Answer::Yes when
    // it was never served).
    int RecipeServed(const QString& title, const QString& guest);
    // Follows a recipe's deletion and rename.
    void RemoveRecipes(const QString& title);
    void RenameRecipes(const QString& oldTitle, const QString& newTitle);

private:
    QString guestName_;
    QString recipeName_;
};
