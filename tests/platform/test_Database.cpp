#include "core/Globals.h"
#include "core/modVerify.h"
#include "platform/Currency.h"
#include "platform/Database.h"
#include "platform/Recordset.h"
#include "support/TestEnv.h"

#include <QDateTime>
#include <QFile>
#include <sqlite3.h>
#include <unistd.h>

namespace {

class DatabaseTest : public LarderTest {
protected:
    Database& db() { return ConnectionMain(); }

    // Adds a row the way the program's classes do, returning its new ID.
    int AddRow(const QString& table, const QList<QPair<QString, QVariant>>& values) {
        Recordset rs;
        rs.Open("SELECT * FROM " + table, db(), adOpenStatic, adLockOptimistic);
        if (!rs.IsEOF()) rs.MoveLast();
        rs.AddNew();
        for (const auto& [name, value] : values) rs.setField(name, value);
        rs.Update();
        int id = 0;
        for (int i = 0; i < rs.FieldCount(); ++i)
            if (rs.FieldName(i).compare("ID", Qt::CaseInsensitive) == 0) id = rs.Field("ID").toInt();
        return id;
    }

    QStringList Column(const QString& sql, const QString& field) {
        Recordset rs;
        rs.Open(sql, db(), adOpenKeyset, adLockReadOnly);
        QStringList out;
        while (!rs.IsEOF()) {
            out << rs.Field(field).toString();
            rs.MoveNext();
        }
        return out;
    }

    std::string ErrorOf(const std::function<void()>& f) {
        try {
            f();
        } catch (const std::exception& e) {
            return e.what();
        }
        return "no error";
    }
};

TEST_F(DatabaseTest, DatesCompareAsDatesAndWordsInDateTextColumnsSortAroundThem) {
    // Date literals read month first, with two-digit years.
    AddRow("Product", {{"Name", "Never bought"}, {"LastPurchasedDate", "1/1/50"}});
    AddRow("Product", {{"Name", "Bought once"}, {"LastPurchasedDate", QDate(1950, 1, 2)}});
    AddRow("Product", {{"Name", "Bought lately"}, {"LastPurchasedDate", "11/20/2026 3:15:00 PM"}});
    EXPECT_EQ(Column("SELECT * FROM Product WHERE [LastPurchasedDate] > #1/1/50# ORDER BY [Name]", "Name"),
              QStringList({"Bought lately", "Bought once"}));
    EXPECT_EQ(Column("SELECT * FROM Product WHERE [LastPurchasedDate] BETWEEN #11/20/2026# AND #11/21/2026#", "Name"),
              QStringList({"Bought lately"}));
    Recordset rs;
    rs.Open("SELECT [LastPurchasedDate] FROM Product WHERE [Name] = 'Bought lately'", db(), adOpenKeyset,
            adLockReadOnly);
    EXPECT_EQ(rs.Field("LastPurchasedDate").toDateTime(), QDateTime(QDate(2026, 11, 20), QTime(15, 15)));

    // A word sorts after every date, an empty text before.
    for (const QString& when : {QString("11/1/2026"), QString("Never"), QString(""), QString("12/31/2026")})
        AddRow("Coupons", {{"Product", "Coupon " + when}, {"Expiration", when}});
    EXPECT_EQ(Column("SELECT * FROM Coupons WHERE [Expiration] < #11/22/2026# ORDER BY [Expiration]", "Expiration"),
              QStringList({"", "2026-11-01"}));
    EXPECT_EQ(Column("SELECT * FROM Coupons WHERE [Expiration] > #11/22/2026# ORDER BY [Expiration]", "Expiration"),
              QStringList({"2026-12-31", "Never"}));
    AddRow("Messages", {{"Title", "Someday"}, {"Date", "None"}, {"ReminderTime", 1}});
    AddRow("Messages", {{"Title", "Dentist"}, {"Date", QDate(2026, 11, 20)}, {"ReminderTime", 1}});
    EXPECT_EQ(Column("SELECT * FROM Messages WHERE [Date] <= #11/22/2026#", "Title"), QStringList({"Dentist"}));
}

TEST_F(DatabaseTest, NamesAndTextsIgnoreCaseAndQuotedTextsSurvive) {
    AddRow("Recipie", {{"Title", "Apple Pie"}, {"Style", "Desserts,Pies"}});
    AddRow("Recipie", {{"Title", "banana bread"}});

    EXPECT_EQ(Column("SELECT * FROM recipie WHERE [TITLE] = 'apple pie'", "title"), QStringList({"Apple Pie"}));
    EXPECT_EQ(Column("SELECT * FROM RECIPIE WHERE [Style] LIKE '%pies%'", "Title"), QStringList({"Apple Pie"}));
    EXPECT_EQ(Column("SELECT*FROM Recipie ORDER BY [Title]", "Title"), QStringList({"Apple Pie", "banana bread"}));
    // A double-quoted text is a literal, as the program's queries write it.
    EXPECT_EQ(Column("SELECT * FROM Recipie WHERE [Title] = \"Banana Bread\"", "Title"), QStringList({"banana bread"}));

    AddRow("Recipie", {{"Title", "Grandma's \"Best\" Pie"}});
    QString title = "Grandma's \"Best\" Pie";
    const QString sql = "SELECT * FROM Recipie WHERE [Title] = '" + QuoteSql(title) + "'";
    EXPECT_EQ(title, "Grandma''s \"Best\" Pie");  // the caller's text is changed too
    EXPECT_EQ(Column(sql, "Title"), QStringList({"Grandma's \"Best\" Pie"}));
    // Unquoted, the apostrophe breaks the query, and the engine says so.
    Recordset rs;
    EXPECT_THROW(rs.Open("SELECT * FROM Recipie WHERE [Title] = 'Grandma's Pie'", db(), 1, 1), DbError);
}

TEST_F(DatabaseTest, QueriesForWhatIsNotThereOrThatWriteAreRefused) {
    AddRow("Recipie", {{"Title", "Stew"}});
    // A bracket left open swallows the rest of the query into one name; that name
    // must fail as a column, not come back as a text value on every row.
    const std::string why = ErrorOf([&] {
        Recordset rs;
        rs.Open("SELECT [Favorite FROM Recipies WHERE [Favorite] = True", db(), adOpenKeyset, adLockReadOnly);
    });
    EXPECT_NE(why.find("no such column"), std::string::npos) << why;

    const QStringList refused = {
        "DELETE FROM Recipie",
        "SELECT * FROM Recipie; DELETE FROM Recipie",
        "DROP TABLE Recipie",
        "PRAGMA writable_schema=1",
        "INSERT INTO Recipie (Title) VALUES ('y')",
        "WITH x AS (SELECT 1) DELETE FROM Recipie",
    };
    for (const QString& sql : refused) {
        Recordset rs;
        EXPECT_THROW(rs.Open(sql, db(), adOpenKeyset, adLockOptimistic), DbError) << sql.toStdString();
    }
    EXPECT_EQ(Column("SELECT * FROM Recipie", "Title"), QStringList({"Stew"}));

    // A column the query did not select cannot be read.
    Recordset rs;
    rs.Open("SELECT [Title] FROM Recipie", db(), adOpenKeyset, adLockReadOnly);
    EXPECT_EQ(rs.Field("TITLE").toString(), "Stew");
    EXPECT_EQ(ErrorOf([&] { rs.Field("ID"); }),
              "Item cannot be found in the collection corresponding to the requested name or ordinal.");
}

TEST_F(DatabaseTest, WritesAreRefusedOnJoinsGroupsAndReadOnlyLocks) {
    AddRow("ShopList",
           {{"Name", "L"}, {"ItemName", "Flour"}, {"Store", "Aldi"}, {"ItemStyle", "Baking"}, {"IsCurrent", true}});
    AddRow("ShopList",
           {{"Name", "L"}, {"ItemName", "Sugar"}, {"Store", "Aldi"}, {"ItemStyle", "Baking"}, {"IsCurrent", true}});
    AddRow("IsleMap", {{"Store", "Aldi"}, {"ItemCategory", "Baking"}, {"Isle", "3"}, {"IsleOrder", 3}});
    const QStringList items = {"Flour", "Sugar"};

    Recordset join;
    join.Open(
        "SELECT * FROM ShopList, IsleMap WHERE (ShopList.Store = IsleMap.Store) AND "
        "(IsleMap.ItemCategory = Shoplist.ItemStyle)",
        db(), adOpenKeyset, adLockOptimistic);
    ASSERT_FALSE(join.IsEOF());
    EXPECT_EQ(join.Field("Isle").toString(), "3");
    EXPECT_EQ(join.Field("IsleMap.Store").toString(), "Aldi");
    EXPECT_THROW(join.setField("ItemName", "Rye"), DbError);
    EXPECT_THROW(join.AddNew(), DbError);

    // A grouped row stands for many rows of the table, none of which it may change.
    for (const char* sql : {"SELECT [Store], COUNT(*) AS n FROM ShopList GROUP BY [Store]",
                            "SELECT DISTINCT [Store], [ItemStyle] FROM ShopList",
                            "SELECT MAX([ItemName]) AS last, [Store] FROM ShopList"}) {
        Recordset grouped;
        grouped.Open(sql, db(), adOpenKeyset, adLockOptimistic);
        ASSERT_FALSE(grouped.IsEOF()) << sql;
        EXPECT_EQ(grouped.Field("Store").toString(), "Aldi") << sql;
        EXPECT_FALSE(grouped.Updatable()) << sql;
        EXPECT_THROW(grouped.setField("Store", "Lidl"), DbError) << sql;
        EXPECT_THROW(grouped.Delete(), DbError) << sql;
        EXPECT_THROW(grouped.AddNew(), DbError) << sql;
    }
    // An aggregate inside a subquery leaves the outer rows the table's own.
    Recordset latest;
    latest.Open("SELECT * FROM ShopList WHERE [ItemName] = (SELECT MAX([ItemName]) FROM ShopList)", db(), adOpenKeyset,
                adLockOptimistic);
    EXPECT_TRUE(latest.Updatable());

    Recordset readOnly;
    readOnly.Open("SELECT * FROM ShopList", db(), adOpenKeyset, adLockReadOnly);
    EXPECT_THROW(readOnly.setField("ItemName", "Rye"), DbError);
    EXPECT_THROW(readOnly.Delete(), DbError);
    EXPECT_EQ(Column("SELECT * FROM ShopList", "ItemName"), items);
    EXPECT_EQ(Column("SELECT * FROM ShopList", "Store"), QStringList({"Aldi", "Aldi"}));
}

TEST_F(DatabaseTest, ValuesKeepTheirColumnKindsAndTheWrongKindLeavesNoPartialRow) {
    AddRow("ShopList", {{"Name", "Weekly"}, {"ItemName", "Milk"}, {"IsCurrent", true}, {"ItemCost", "2.4999"}});
    AddRow("ShopList", {{"Name", "Weekly"}, {"ItemName", "Eggs"}, {"IsCurrent", "False"}, {"ItemCost", 1.5}});
    Recordset list;
    list.Open("SELECT * FROM ShopList WHERE [IsCurrent] = True", db(), adOpenKeyset, adLockReadOnly);
    ASSERT_FALSE(list.IsEOF());
    EXPECT_EQ(list.Field("ItemName").toString(), "Milk");
    EXPECT_EQ(list.Field("IsCurrent").typeId(), QMetaType::Bool);
    EXPECT_TRUE(list.Field("IsCurrent").toBool());
    EXPECT_EQ(list.Field("ItemCost").value<Currency>().toString(), "2.4999");
    list.MoveNext();
    EXPECT_TRUE(list.IsEOF());

    Recordset rs;
    rs.Open("SELECT * FROM Recipie", db(), adOpenStatic, adLockOptimistic);
    rs.AddNew();
    rs.setField("Title", "Soup");
    EXPECT_EQ(ErrorOf([&] { rs.setField("TimesUsed", "many"); }), "Type mismatch");
    rs.setField("TimesUsed", " 3 ");
    rs.CancelUpdate();
    rs.Close();
    EXPECT_TRUE(Column("SELECT * FROM Recipie", "Title").isEmpty());

    Recordset meal;
    meal.Open("SELECT * FROM Meal", db(), adOpenStatic, adLockOptimistic);
    meal.AddNew();
    EXPECT_NO_THROW(meal.setField("Name", QString(80, 'x')));
    EXPECT_EQ(ErrorOf([&] { meal.setField("Name", QString(81, 'x')); }),
              "The field is too small to accept the amount of data you attempted to add.");
    meal.Update();
    meal.Close();
    EXPECT_EQ(Column("SELECT * FROM Meal", "Name"), QStringList({QString(80, 'x')}));
}

TEST_F(DatabaseTest, WritesTouchOnlyTheirColumnsAndNewKeysAreNeverReused) {
    const int first = AddRow("Guests", {{"GuestName", "One"}});
    const int second = AddRow("Guests", {{"GuestName", "Two"}});
    EXPECT_GT(first, 0);
    EXPECT_EQ(second, first + 1);
    {
        Recordset rs;
        rs.Open("SELECT * FROM Guests WHERE [GuestName] = 'Two'", db(), adOpenKeyset, adLockOptimistic);
        rs.Delete();
    }
    EXPECT_EQ(AddRow("Guests", {{"GuestName", "Three"}}), second + 1);

    AddRow("Recipie", {{"Title", "Stew"}, {"Servings", "4 Servings"}, {"TimesUsed", 2}});
    Recordset a;
    a.Open("SELECT * FROM Recipie WHERE [Title] = 'Stew'", db(), adOpenKeyset, adLockOptimistic);
    Recordset b;
    b.Open("SELECT * FROM Recipie WHERE [Title] = 'Stew'", db(), adOpenKeyset, adLockOptimistic);
    a.setField("Servings", "6 Servings");
    a.Update();
    b.setField("TimesUsed", 3);
    b.Update();  // must not put back b's stale Servings
    EXPECT_EQ(Column("SELECT * FROM Recipie", "Servings"), QStringList({"6 Servings"}));
    EXPECT_EQ(Column("SELECT * FROM Recipie", "TimesUsed"), QStringList({"3"}));
}

TEST_F(DatabaseTest, CursorEndsAndMovesBehaveAsTheClassesExpect) {
    Recordset empty;
    empty.Open("SELECT * FROM Recipie", db(), adOpenKeyset, adLockOptimistic);
    EXPECT_TRUE(empty.IsBOF());
    EXPECT_TRUE(empty.IsEOF());
    EXPECT_EQ(empty.RecordCount(), 0);
    empty.AddNew();  // an empty table still takes a row without moving last
    empty.setField("Title", "First");
    empty.Update();
    EXPECT_EQ(empty.RecordCount(), 1);
    empty.Close();

    AddRow("Recipie", {{"Title", "Second"}});
    AddRow("Recipie", {{"Title", "Third"}});

    Recordset rs;
    rs.Open("SELECT * FROM Recipie ORDER BY [Title]", db(), adOpenStatic, adLockOptimistic);
    EXPECT_EQ(rs.RecordCount(), 3);
    rs.MoveLast();
    EXPECT_EQ(rs.Field("Title").toString(), "Third");
    rs.MovePrevious();
    EXPECT_EQ(rs.Field("Title").toString(), "Second");
    rs.Delete();
    rs.MoveNext();
    EXPECT_EQ(rs.Field("Title").toString(), "Third");
    rs.MoveNext();
    EXPECT_TRUE(rs.IsEOF());
    EXPECT_FALSE(rs.IsBOF());
    rs.MoveFirst();
    EXPECT_EQ(rs.Field("Title").toString(), "First");
    rs.MovePrevious();
    EXPECT_TRUE(rs.IsBOF());
    EXPECT_EQ(rs.RecordCount(), 2);

    Recordset forward;
    forward.Open("SELECT * FROM Recipie", db(), adOpenForwardOnly, adLockReadOnly);
    EXPECT_EQ(forward.RecordCount(), -1);
    EXPECT_THROW(forward.MovePrevious(), DbError);
}

TEST_F(DatabaseTest, RowsAddedWhileACursorIsHalfReadAppearOnceAtTheEnd) {
    for (int i = 0; i < 300; ++i) AddRow("SpendHistory", {{"ItemListName", QString("row %1").arg(i)}, {"ItemID", i}});

    Recordset rs;
    rs.Open("SELECT * FROM SpendHistory", db(), adOpenStatic, adLockOptimistic);
    rs.MoveLast();  // unresolved: nothing read yet
    rs.AddNew();
    rs.setField("ItemListName", "added");
    rs.Update();
    EXPECT_EQ(rs.Field("ItemListName").toString(), "added");
    EXPECT_GT(rs.Field("SpendID").toInt(), 300);

    // Another writer's row after this cursor opened stays out of it.
    AddRow("SpendHistory", {{"ItemListName", "someone else"}});

    rs.MoveFirst();
    int seen = 0;
    QString last;
    while (!rs.IsEOF()) {
        ++seen;
        last = rs.Field("ItemListName").toString();
        rs.MoveNext();
    }
    EXPECT_EQ(seen, 301);
    EXPECT_EQ(last, "added");
}

// Wide results are walked by key and their hot columns loaded in one pass;
// whichever way a value arrives, the loop must see the row it is on.
TEST_F(DatabaseTest, LongWalksOverWideRowsReadTheRowTheyAreOn) {
    for (int i = 0; i < 200; ++i)
        AddRow("Recipie", {{"Title", QString("Dish %1").arg(i, 3, 10, QChar('0'))},
                           {"Course", i % 2 ? "Main Course" : "Dessert"},
                           {"TimesUsed", i}});

    // Unordered, rows come in table order even where an index could give the keys.
    AddRow("Coupons", {{"Product", "Zeta"}});
    AddRow("Coupons", {{"Product", "Alpha"}});
    {
        Recordset coupons;
        coupons.FetchByKey(true);
        coupons.Open("SELECT * FROM Coupons", db(), adOpenKeyset, adLockReadOnly);
        EXPECT_EQ(coupons.Field("Product").toString(), "Zeta");
        coupons.MoveNext();
        EXPECT_EQ(coupons.Field("Product").toString(), "Alpha");
    }

    Recordset rs;
    rs.FetchByKey(true);
    rs.Open("SELECT * FROM Recipie WHERE [Course] = 'Dessert' ORDER BY [Title] DESC;", db(), adOpenKeyset,
            adLockOptimistic);
    int seen = 0;
    while (!rs.IsEOF()) {
        const int used = rs.Field("TimesUsed").toInt();
        ASSERT_EQ(rs.Field("Title").toString(), QString("Dish %1").arg(used, 3, 10, QChar('0')));
        ASSERT_EQ(used, 198 - 2 * seen);
        if (used == 100) {
            // Columns not read in the loop come from the row itself.
            EXPECT_EQ(rs.Field("Course").toString(), "Dessert");
            rs.setField("TimesUsed", 1000);
            rs.Update();
            EXPECT_EQ(rs.Field("TimesUsed").toInt(), 1000);
            EXPECT_EQ(rs.Field("Title").toString(), "Dish 100");
        }
        ++seen;
        rs.MoveNext();
    }
    EXPECT_EQ(seen, 100);

    // After the column passes, the written value still wins over the pass.
    rs.MoveFirst();
    while (rs.Field("Title").toString() != "Dish 100") rs.MoveNext();
    EXPECT_EQ(rs.Field("TimesUsed").toInt(), 1000);
    rs.MovePrevious();
    EXPECT_EQ(rs.Field("TimesUsed").toInt(), 102);

    // A row another cursor deletes mid-walk reads as empty, not as a crash.
    Recordset other;
    other.Open("SELECT * FROM Recipie WHERE [Title] = 'Dish 000'", db(), adOpenKeyset, adLockOptimistic);
    other.Delete();
    rs.MoveLast();
    EXPECT_TRUE(rs.Field("Instructions").isNull());
}

TEST_F(DatabaseTest, BatchedWritesCommitOnceWhenTheOutermostBatchEnds) {
    Database other;
    other.Open(HomeFile("Larderkeep.mdb"));
    auto seenByOther = [&] {
        Recordset rs;
        rs.Open("SELECT * FROM Store", other, adOpenKeyset, adLockReadOnly);
        return rs.RecordCount();
    };
    {
        WriteBatch outer(db());
        {
            WriteBatch inner(db());
            AddRow("Store", {{"Name", "Aldi"}});
        }
        AddRow("Store", {{"Name", "Lidl"}});
        EXPECT_EQ(seenByOther(), 0);
        EXPECT_EQ(Column("SELECT * FROM Store", "Name"), QStringList({"Aldi", "Lidl"}));
    }
    EXPECT_EQ(seenByOther(), 2);
}

class DatabaseFileTest : public LarderTest {};

TEST_F(DatabaseFileTest, UnusableLockedOrReadOnlyFilesAreRefusedAndLeftUntouched) {
    CloseDatabase();
    Database db;

    const QString missing = HomeFile("nothing.mdb");
    EXPECT_THROW(db.Open(missing), DbError);
    EXPECT_FALSE(QFile::exists(missing));

    const QString junk = HomeFile("junk.mdb");
    QByteArray bytes;
    for (int i = 0; i < 4096; ++i) bytes.append(char((i * 7919) % 251));
    {
        QFile f(junk);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(bytes);
    }
    EXPECT_THROW(db.Open(junk), DbError);
    QFile f(junk);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    EXPECT_EQ(f.readAll(), bytes);
    EXPECT_FALSE(QFile::exists(junk + "-wal"));

    const QString empty = HomeFile("empty.mdb");
    QFile(empty).open(QIODevice::WriteOnly);
    EXPECT_THROW(db.Open(empty), DbError);
    EXPECT_EQ(QFileInfo(empty).size(), 0);

    // Another program holding the write lock.
    const QString path = HomeFile("Larderkeep.mdb");
    sqlite3* other = nullptr;
    ASSERT_EQ(sqlite3_open(QFile::encodeName(path).constData(), &other), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(other, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr), SQLITE_OK);
    try {
        db.Open(path);
        ADD_FAILURE() << "a locked database opened";
    } catch (const DbError& e) {
        EXPECT_NE(e.description().indexOf("locked"), -1) << e.description().toStdString();
    }
    sqlite3_exec(other, "ROLLBACK", nullptr, nullptr, nullptr);
    sqlite3_close(other);
    EXPECT_FALSE(db.IsOpen());

    if (getuid() != 0) {  // root can write through any permission
        QFile::setPermissions(path, QFile::ReadOwner);
        EXPECT_THROW(db.Open(path), DbError);
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner);
    }
    EXPECT_NO_THROW(db.Open(path));
}

TEST(QueryDialect, RewritesNamesDatesTextsAndTruthWords) {
    EXPECT_EQ(Database::TranslateQuery("SELECT * FROM Coupons WHERE [Expiration] < #11/22/2026# AND x = True"),
              "SELECT * FROM Coupons WHERE \"Expiration\" < '2026-11-22' AND x = 1");
    EXPECT_EQ(Database::TranslateQuery("SELECT * FROM Meal WHERE [Dates] = #1/1/50 1:05:00 PM#"),
              "SELECT * FROM Meal WHERE \"Dates\" = '1950-01-01 13:05:00'");
    EXPECT_EQ(Database::TranslateQuery("SELECT * FROM Cookbook WHERE [Name] = \"Mom's\" AND [a] = 'True #1/1/50#'"),
              "SELECT * FROM Cookbook WHERE \"Name\" = 'Mom''s' AND \"a\" = 'True #1/1/50#'");
    EXPECT_EQ(Database::TranslateQuery("SELECT * FROM Product WHERE [Name] LIKE '*x' AND [Fat Calories] = False"),
              "SELECT * FROM Product WHERE \"Name\" LIKE '*x' AND \"Fat Calories\" = 0");
}

}  // namespace
