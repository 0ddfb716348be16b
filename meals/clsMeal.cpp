#include "meals/clsMeal.h"

#include "core/Dates.h"
#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/Values.h"
#include "core/clsRegistry.h"
#include "core/modVerify.h"
#include "platform/Clock.h"
#include "platform/Ui.h"

namespace {

// Today as a query's date literal, month first.
QString TodayLiteral() {
    return QStringLiteral("#") + Clock::Today().toString(QStringLiteral("M/d/yyyy")) + QStringLiteral("#");
}

}  // namespace

bool clsMeal::AddNew() {
    return Trap(QStringLiteral("Meal.AddNew"), false, [&] {
        OpenDB(QStringLiteral("SELECT * FROM Meal WHERE [Name] = ") + SqlText(name_), adOpenKeyset, adLockOptimistic);
        rs.AddNew();
        rs.setField(QStringLiteral("Name"), name_);
        rs.setField(QStringLiteral("Meal"), meal_);
        rs.setField(QStringLiteral("Dates"), dates_);
        rs.setField(QStringLiteral("Appetizer"), appetizer_);
        rs.setField(QStringLiteral("MainCourse"), mainCourse_);
        rs.setField(QStringLiteral("Desert"), desert_);
        rs.setField(QStringLiteral("Favorite"), favorite_);
        rs.setField(QStringLiteral("Cheap"), cheap_);
        rs.Update();
        CloseDB();
        return true;
    });
}

void clsMeal::AuditMeals() {
    const qint32 action = Registry().MealAction();
    OpenDB(QStringLiteral("SELECT * FROM Meal WHERE ([Dates] < ") + TodayLiteral() + QStringLiteral(")"), adOpenKeyset,
           adLockOptimistic);
    if (action == 1) {
        const qint32 count = RecordCount();
        while (!rs.IsEOF()) {
            rs.Delete();
            rs.MoveNext();
        }
        CloseDB();
        if (count > 0)
            MsgBox(QString::number(count) + QStringLiteral(" Meal(s) were deleted by the Auto-Purge process."),
                   Box::Information, QStringLiteral("Meal Auto-Purge"));
        return;
    }
    // Every other setting moves past meals on by a week. Only the date moves:
    // a dated meal's name keeps the old long date.
    qint32 moved = 0;
    while (!rs.IsEOF()) {
        const QVariant when = rs.Field(QStringLiteral("Dates"));
        if (IsDate(when)) {
            rs.setField(QStringLiteral("Dates"), CDate(when).date().addDays(7));
            rs.Update();
            ++moved;
        }
        rs.MoveNext();
    }
    CloseDB();
    if (moved > 0)
        MsgBox(
            QString::number(moved) + QStringLiteral(" Meal(s) dates were advanced 7 days by the Auto-Purge process."),
            Box::Information, QStringLiteral("Meal Auto-Purge"));
}

void clsMeal::RemoveRecipe(const QString& name, const QString& title) {
    Trap(QStringLiteral("Meal.RemoveRecipe"), [&] {
        OpenDB(name.isEmpty() ? QStringLiteral("SELECT * FROM Meal")
                              : QStringLiteral("SELECT * FROM Meal WHERE [Name]=") + SqlText(name),
               adOpenKeyset, adLockOptimistic);
        while (!rs.IsEOF()) {
            for (const char* course :
                 {"Appetizer", "MainCourse", "Desert", "SideDishOne", "SideDishTwo", "SideDishThree", "SideDishfour"}) {
                const QString column = QString::fromLatin1(course);
                // A Null course equals nothing, not even an empty title.
                const QVariant value = rs.Field(column);
                if (!IsNull(value) && TextOf(value) == title) {
                    // A cleared course holds one blank, which readers take as empty.
                    rs.setField(column, QStringLiteral(" "));
                    rs.Update();
                }
            }
            rs.MoveNext();
        }
        CloseDB();
    });
}
