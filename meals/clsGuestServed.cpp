#include "meals/clsGuestServed.h"

#include "core/ErrorReport.h"
#include "core/Values.h"
#include "core/modVerify.h"
#include "platform/Ui.h"

namespace {

QString ServedQuery(const QString& title, const QString& guest) {
    return QStringLiteral("SELECT * FROM GuestServed WHERE [RecipeName] = ") + SqlText(title) +
           QStringLiteral(" AND [GuestName] = ") + SqlText(guest);
}

}  // namespace

QString clsGuestServed::GuestName() const { return TextOf(rs.Field(QStringLiteral("GuestName"))); }

QString clsGuestServed::RecipeName() const { return TextOf(rs.Field(QStringLiteral("RecipeName"))); }

bool clsGuestServed::WriteNew() {
    return Trap(QStringLiteral("GuestServed.WriteNew"), false, [&] {
        OpenDB(ServedQuery(recipeName_, guestName_), adOpenKeyset, adLockOptimistic);
        rs.AddNew();
        rs.setField(QStringLiteral("RecipeName"), recipeName_);
        rs.setField(QStringLiteral("GuestName"), guestName_);
        rs.Update();
        CloseDB();
        return true;
    });
}

int clsGuestServed::RecipeServed(const QString& title, const QString& guest) {
    return Trap(QStringLiteral("GuestServed.MealServed"), int(Answer::Yes), [&] {
        OpenDB(ServedQuery(title.trimmed(), guest.trimmed()), adOpenKeyset, adLockReadOnly);
        const bool served = !rs.IsEOF();
        CloseDB();
        if (!served) return int(Answer::Yes);
        return MsgBox(QStringLiteral("The Recipe, ") + title + QStringLiteral(", has already been served to ") + guest +
                          QStringLiteral(". Do you wish to continue?"),
                      Box::YesNo + Box::Question, QStringLiteral("Notice"));
    });
}

void clsGuestServed::RemoveRecipes(const QString& title) {
    Trap(QStringLiteral("GuestServed.RemoveRecipes"), [&] {
        OpenDB(QStringLiteral("SELECT * FROM GuestServed WHERE [RecipeName] = ") + SqlText(title), adOpenKeyset,
               adLockOptimistic);
        while (!rs.IsEOF()) {
            dbDelete();
            rs.MoveNext();
        }
        CloseDB();
    });
}

void clsGuestServed::RenameRecipes(const QString& oldTitle, const QString& newTitle) {
    Trap(QStringLiteral("GuestServed.RemoveRecipes"), [&] {
        OpenDB(QStringLiteral("SELECT * FROM GuestServed WHERE [RecipeName] = ") + SqlText(oldTitle), adOpenKeyset,
               adLockOptimistic);
        while (!rs.IsEOF()) {
            rs.setField(QStringLiteral("RecipeName"), newTitle);
            rs.Update();
            rs.MoveNext();
        }
        CloseDB();
    });
}
