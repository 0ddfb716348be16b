#include "meals/clsMeal.h"

#include "core/ChangeNotices.h"
#include "core/Dates.h"
#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/Progress.h"
#include "core/Values.h"
#include "core/clsRegistry.h"
#include "core/modVerify.h"
#include "meals/clsGuestServed.h"
#include "measures/modConvert.h"
#include "platform/Clock.h"
#include "platform/Database.h"
#include "platform/DateText.h"
#include "platform/Ui.h"

#include <QAbstractItemModel>

namespace {

// A date as a query's date literal, month first.
QString DateLiteral(const QDate& day) {
    return QStringLiteral("#") + day.toString(QStringLiteral("M/d/yyyy")) + QStringLiteral("#");
}

// The meals dated before today. An undated meal's empty date sorts before
// every date, so it is kept out by name.
QString PastMeals(const QString& table) {
    return QStringLiteral("SELECT * FROM ") + table + QStringLiteral(" WHERE ([Dates] < ") +
           DateLiteral(Clock::Today()) + QStringLiteral(") AND ([Dates] <> '')");
}

QString MealRows(const QString& columns, const QString& name) {
    return QStringLiteral("SELECT ") + columns + QStringLiteral(" FROM Meal WHERE [Name] = ") + SqlText(name);
}

QString MealtimeRow(const QString& name, const QString& mealtime, bool bracketed) {
    const QString byName = QStringLiteral("[Name] = ") + SqlText(name);
    const QString byTime = QStringLiteral("[Meal] = ") + SqlText(mealtime);
    return QStringLiteral("SELECT * FROM Meal WHERE ") +
           (bracketed ? QLatin1Char('(') + byName + QStringLiteral(") AND (") + byTime + QLatin1Char(')')
                      : byName + QStringLiteral(" AND ") + byTime);
}

// The window shows the meals; after a change it reads them again.
void MealsChanged() { Q_EMIT Notices().LoadMealList(); }

}  // namespace

bool clsMeal::AddNew() {
    return Trapped(QStringLiteral("Meal.AddNew"), false, [&] {
        OpenDB(MealRows(QStringLiteral("*"), name_), adOpenKeyset, adLockOptimistic);
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

bool clsMeal::Exists(const QString& name) {
    return Trapped(QStringLiteral("Meal.Exists"), false, [&] {
        OpenDB(MealRows(QStringLiteral("[Name]"), name), adOpenForwardOnly, adLockReadOnly);
        const bool found = !rs.IsEOF();
        CloseDB();
        return found;
    });
}

bool clsMeal::DateTaken(const QString& date) {
    return Trapped(QStringLiteral("Meal.DateTaken"), false, [&] {
        // Dates are kept in one written form whatever hand they came in, so a
        // date is looked for in that form. Anything else goes in unquoted.
        const auto day = ParseDateText(date);
        const QString value = day ? IsoDateText(*day) : date;
        OpenDB(QStringLiteral("SELECT [Dates] FROM Meal WHERE [Dates] = '") + value + QLatin1Char('\''),
               adOpenForwardOnly, adLockReadOnly);
        const bool taken = !rs.IsEOF();
        CloseDB();
        return taken;
    });
}

bool clsMeal::IsFavorite(const QString& name) {
    return Trapped(QStringLiteral("Meal.IsFavorite"), false, [&] {
        OpenDB(MealRows(QStringLiteral("[Favorite]"), name), adOpenForwardOnly, adLockReadOnly);
        const QVariant mark = rs.IsEOF() ? QVariant() : rs.Field(QStringLiteral("Favorite"));
        CloseDB();
        return !IsNull(mark) && CBool(mark);
    });
}

void clsMeal::ToggleFavorite(const QString& name) {
    Trapped(QStringLiteral("Meal.ToggleFavorite"), [&] {
        OpenDB(MealRows(QStringLiteral("[Favorite]"), name), adOpenKeyset, adLockOptimistic);
        const bool found = !rs.IsEOF();
        if (found) {
            const QVariant mark = rs.Field(QStringLiteral("Favorite"));
            rs.setField(QStringLiteral("Favorite"), IsNull(mark) || !CBool(mark));
            rs.Update();
        }
        CloseDB();
        if (found) MealsChanged();
    });
}

bool clsMeal::Remove(const QString& name) {
    return Trapped(QStringLiteral("Meal.Remove"), false, [&] {
        OpenDB(MealRows(QStringLiteral("*"), name), adOpenKeyset, adLockOptimistic);
        const bool found = !rs.IsEOF();
        if (found) rs.Delete();
        CloseDB();
        if (found) MealsChanged();
        return true;
    });
}

bool clsMeal::ChangeName(const QString& oldName, const QString& newName) {
    return Trapped(QStringLiteral("Meal.ChangeName"), false, [&] {
        OpenDB(MealRows(QStringLiteral("[Name]"), oldName), adOpenKeyset, adLockOptimistic);
        const bool found = !rs.IsEOF();
        if (found) {
            rs.setField(QStringLiteral("Name"), newName);
            rs.Update();
        }
        CloseDB();
        if (found) MealsChanged();
        return true;
    });
}

void clsMeal::RemoveCourse(const QString& name, const QString& mealtime) {
    Trapped(QStringLiteral("Meal.RemoveCourse"), [&] {
        OpenDB(MealtimeRow(name, mealtime, true), adOpenKeyset, adLockOptimistic);
        const bool found = !rs.IsEOF();
        if (found) rs.Delete();
        CloseDB();
        if (found) MealsChanged();
    });
}

void clsMeal::ChangeDate(const QString& name, const QString& mealtime, const QVariant& date) {
    Trapped(QStringLiteral("Meal.ChangeDate"), [&] {
        OpenDB(MealtimeRow(name, mealtime, false), adOpenKeyset, adLockOptimistic);
        const bool found = !rs.IsEOF();
        if (found) {
            rs.setField(QStringLiteral("Dates"), date);
            rs.Update();
        }
        CloseDB();
        if (found) MealsChanged();
    });
}

void clsMeal::ChangeCourse(const QString&, const QString&, const QString&) {}

void clsMeal::CreateVCalItem(const QString&, const QString&) {}

qint32 clsMeal::Purge(int mode, qint32& count) {
    count = 0;
    count = Trapped(QStringLiteral("Meal.Purge"), qint32(0), [&] {
        OpenDB(PastMeals(QStringLiteral("[Meal]")), adOpenStatic, adLockOptimistic);
        const qint32 found = mode == 1 || mode == 2 ? RecordCount() : 0;
        if (mode == 1) DeleteEveryRow(QStringLiteral("Removing past meals ..."));
        CloseDB();
        if (mode == 1 && found > 0) MealsChanged();
        return found;
    });
    return count;
}

void clsMeal::DeleteEveryRow(const QString& label) {
    const qint32 total = RecordCount();
    if (total <= 0) return;
    // Each row goes as it is passed, so there is no Cancel halfway.
    Progress progress(label, total, false);
    WriteBatch batch(ConnectionMain());
    int done = 0;
    while (!rs.IsEOF()) {
        progress.Step(done++);
        rs.Delete();
        rs.MoveNext();
    }
}

void clsMeal::AuditMeals() {
    const qint32 action = Registry().MealAction();
    OpenDB(PastMeals(QStringLiteral("Meal")), adOpenKeyset, adLockOptimistic);
    if (action == 1) {
        const qint32 count = RecordCount();
        DeleteEveryRow(QStringLiteral("Removing past meals ..."));
        CloseDB();
        if (count > 0)
            MsgBox(QString::number(count) + QStringLiteral(" Meal(s) were deleted by the Auto-Purge process."),
                   Box::Information, QStringLiteral("Meal Auto-Purge"));
        return;
    }
    // Every other setting moves past meals on by a week. Only the date moves:
    // a dated meal's name keeps the old long date.
    qint32 moved = 0;
    const qint32 total = RecordCount();
    if (total > 0) {
        Progress progress(QStringLiteral("Moving past meals on a week ..."), total, false);
        WriteBatch batch(ConnectionMain());
        int done = 0;
        while (!rs.IsEOF()) {
            progress.Step(done++);
            const QVariant when = rs.Field(QStringLiteral("Dates"));
            // A date the database let through as text, not being a date, stays.
            if (IsDate(when)) {
                rs.setField(QStringLiteral("Dates"), DateAdd(QStringLiteral("d"), 7, CDate(when)));
                rs.Update();
                ++moved;
            }
            rs.MoveNext();
        }
    }
    CloseDB();
    if (moved > 0)
        MsgBox(
            QString::number(moved) + QStringLiteral(" Meal(s) dates were advanced 7 days by the Auto-Purge process."),
            Box::Information, QStringLiteral("Meal Auto-Purge"));
}

void clsMeal::RemoveRecipe(const QString& name, const QString& title) {
    Trapped(QStringLiteral("Meal.RemoveRecipe"), [&] {
        OpenDB(name.isEmpty() ? QStringLiteral("SELECT * FROM Meal")
                              : QStringLiteral("SELECT * FROM Meal WHERE [Name]=") + SqlText(name),
               adOpenKeyset, adLockOptimistic);
        bool cleared = false;
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
                    cleared = true;
                }
            }
            rs.MoveNext();
        }
        CloseDB();
        if (cleared) MealsChanged();
    });
}

void clsMeal::PrintMealCalendar(const QString& week) {
    Trapped(QStringLiteral("Meals.PrintMealCalendar"), [&] {
        const qint32 key = CLng(week);
        const QDate start = WeekStart(key);
        bool any = false;
        if (start.isValid()) {
            OpenDB(QStringLiteral("SELECT * FROM Meal WHERE [Dates] BETWEEN ") + DateLiteral(start) +
                       QStringLiteral(" AND ") + DateLiteral(start.addDays(7)) + QStringLiteral(" ORDER BY [Dates]"),
                   adOpenForwardOnly, adLockReadOnly);
            any = !rs.IsEOF();
            CloseDB();
        }
        // A week with meals has no page of its own yet: there is nothing to say.
        if (any) return;
        MsgBox(QStringLiteral("There are no Meals entered during week %1 of %2.").arg(key % 100).arg(key / 100),
               Box::Information, QStringLiteral("Notice"));
    });
}

bool clsMeal::SaveDailyMeals(QStandardItem*, int) { return true; }

bool clsMeal::SaveSingleMeal(QStandardItem*, int) { return true; }

bool clsMeal::SaveSingleMealCourse(QStandardItem*, int) { return true; }

void clsMeal::SaveRecipeGuests(const QString& title, const QAbstractItemModel* guests) {
    if (!guests) return;
    for (int row = 0; row < guests->rowCount(); ++row) {
        const QModelIndex guest = guests->index(row, 0);
        if (guests->data(guest, Qt::CheckStateRole).toInt() != Qt::Checked) continue;
        clsGuestServed served;
        served.GuestName(guests->data(guest, Qt::DisplayRole).toString());
        served.RecipeName(title);
        served.WriteNew();
    }
}
