#include "recipes/clsCourses.h"

#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/Values.h"
#include "core/modVerify.h"

QString clsCourses::Category() const { return TextOf(rs.Field(QStringLiteral("Category"))); }

QString clsCourses::Course() const { return TextOf(rs.Field(QStringLiteral("Course"))); }

bool clsCourses::IsMapped(const QString& category) {
    return Trap(QStringLiteral("Courses.IsMapped"), false, [&] {
        Recordset r;
        r.Open(QStringLiteral("SELECT * FROM Course WHERE [Category] = ") + SqlText(category), ConnectionMain(),
               adOpenKeyset, adLockReadOnly);
        return r.RecordCount() > 0;
    });
}

QString clsCourses::GetCourse(const QString& category) {
    return Trap(QStringLiteral("Course.GetCourse"), QString(), [&] {
        // Walks the category table, which has no Course column: a category that
        // is there ends in the error report, one that is not gives "".
        Recordset r;
        r.Open(QStringLiteral("SELECT * FROM RecipieCategory"), ConnectionMain(), adOpenKeyset, adLockReadOnly);
        while (!r.IsEOF()) {
            if (TextOf(r.Field(QStringLiteral("Name"))) == category) return TextOf(r.Field(QStringLiteral("Course")));
            r.MoveNext();
        }
        return QString();
    });
}

void clsCourses::WriteNew(const QString& category, const QString& course) {
    Recordset r;
    r.Open(QStringLiteral("SELECT * FROM Course"), ConnectionMain(), adOpenStatic, adLockOptimistic);
    if (!r.IsEOF()) r.MoveLast();
    r.AddNew();
    r.setField(QStringLiteral("Category"), category);
    r.setField(QStringLiteral("Course"), course);
    r.Update();
    r.Close();

    r.Open(QStringLiteral("SELECT [Course],[Style] FROM Recipie WHERE [Style] LIKE '%") + QuoteSql(category) +
               QStringLiteral("%'"),
           ConnectionMain(), adOpenKeyset, adLockOptimistic);
    while (!r.IsEOF()) {
        r.setField(QStringLiteral("Course"), course);
        r.Update();
        r.MoveNext();
    }
}

void clsCourses::ClearAll() {
    Recordset r;
    r.Open(QStringLiteral("SELECT * FROM Course"), ConnectionMain(), adOpenKeyset, adLockOptimistic);
    while (!r.IsEOF()) {
        r.Delete();
        r.MoveNext();
    }
}
