#include "stores/clsStore.h"

#include "core/clsRegistry.h"
#include "support/MailCapture.h"
#include "support/Rows.h"

#include <QDir>
#include <QFile>

class StoreTest : public MailCaptureTest {
protected:
    static void Map(const QString& store, const QString& category, const QString& isle, int order) {
        rows::Add("IsleMap", {{"Store", store}, {"ItemCategory", category}, {"Isle", isle}, {"IsleOrder", order}});
    }
    QString WriteFile(const QString& name, const QByteArray& bytes) {
        const QString path = QDir(Home()).filePath(name);
        QFile f(path);
        f.open(QIODevice::WriteOnly);
        f.write(bytes);
        return path;
    }
    // "Store/Category/Isle/Order" of every mapping, in the order written.
    static QStringList Mappings() {
        return rows::Joined("SELECT * FROM IsleMap ORDER BY [ID]", {"Store", "ItemCategory", "Isle", "IsleOrder"}, "/");
    }
};

TEST_F(StoreTest, UpdateStoreWritesOnlyTheOneRowOfItsName) {
    rows::Add("Store", {{"Name", "Kroger"}, {"isles", 10}, {"FaxNumber", "555-1"}});
    rows::Add("Store", {{"Name", "Twin"}, {"isles", 4}});
    rows::Add("Store", {{"Name", "Twin"}, {"isles", 4}});
    clsStore store;
    store.Name("Kroger");
    store.IsleCount(12);
    store.StoreFaxNumber("555-2");
    store.UpdateStore();
    store.Name("Twin");
    store.UpdateStore();
    store.Name("Nobody");
    store.UpdateStore();
    EXPECT_EQ(rows::Column("SELECT * FROM Store", "isles"), QStringList({"12", "4", "4"}));
    EXPECT_EQ(rows::Column("SELECT * FROM Store WHERE [Name] = 'Kroger'", "FaxNumber"), QStringList({"555-2"}));
    EXPECT_EQ(rows::Count("SELECT * FROM Store WHERE [Name] = 'Nobody'"), 0);

    // FindCount walks the open rows; UpdateCount writes by name.
    store.OpenDB("SELECT * FROM Store", adOpenKeyset, adLockReadOnly);
    EXPECT_EQ(store.FindCount("Kroger"), 12);
    EXPECT_EQ(store.FindCount("Nobody"), 0);
    store.UpdateCount("Kroger", 3);
    EXPECT_EQ(rows::Column("SELECT * FROM Store WHERE [Name] = 'Kroger'", "isles"), QStringList({"3"}));
}

TEST_F(StoreTest, StoreBrandsAreFoundInsideManufacturerNames) {
    rows::Add("Manufacturer", {{"Name", "Kroger Brand Foods"}});
    rows::Add("Manufacturer", {{"Name", "O'Neil's Dairy"}});
    clsStore store;
    EXPECT_EQ(QList<bool>({store.IsPossibleManufacturer("Kroger"), store.IsPossibleManufacturer("roger"),
                           store.IsPossibleManufacturer("O'Neil"), store.IsPossibleManufacturer("Safeway")}),
              QList<bool>({true, true, true, false}));
    EXPECT_FALSE(store.Exists("Kroger"));
}

TEST_F(StoreTest, RenamingCarriesTheNameEverywhereButTheAlternateMap) {
    rows::Add("Store", {{"Name", "Joe's"}, {"isles", 5}});
    rows::Add("ShopList", {{"Name", "Week"}, {"ItemName", "Milk"}, {"Store", "Joe's"}});
    rows::Add("Coupons", {{"Product", "Milk"}, {"Store", "Joe's"}});
    Map("Joe's", "Dairy", "Isle 1", 1);
    rows::Add("AlternateIsleMap", {{"StoreName", "Joe's"}, {"ItemName", "Milk"}});
    clsStore store;
    store.ChangeName("Joe's", "Joe \"Big\" Mart");
    EXPECT_EQ(rows::Column("SELECT * FROM Store", "Name") + rows::Column("SELECT * FROM ShopList", "Store") +
                  rows::Column("SELECT * FROM Coupons", "Store") + rows::Column("SELECT * FROM IsleMap", "Store") +
                  rows::Column("SELECT * FROM AlternateIsleMap", "StoreName"),
              QStringList({"Joe \"Big\" Mart", "Joe \"Big\" Mart", "Joe \"Big\" Mart", "Joe \"Big\" Mart", "Joe's"}));

    ui.answer(Answer::OK);
    store.ChangeName("Joe's", "Other");
    EXPECT_EQ(LastBox(), "Exists: Joe's does not exist, please choose a different name.");
}

TEST_F(StoreTest, DeletingAStoreKeepsListRowsAndCouponsWithoutIt) {
    rows::Add("Store", {{"Name", "Aldi"}});
    rows::Add("Store", {{"Name", "Lidl"}});
    rows::Add("ShopList", {{"Name", "Week"}, {"ItemName", "Eggs"}, {"Store", "Aldi"}});
    rows::Add("Coupons", {{"Product", "Eggs"}, {"Store", "Aldi"}});
    Map("Aldi", "Dairy", "1", 1);
    Map("Lidl", "Dairy", "1", 1);
    rows::Add("AlternateIsleMap", {{"StoreName", "Aldi"}});
    clsStore store;
    store.DeleteStore("Aldi");
    EXPECT_EQ(rows::Column("SELECT * FROM Store", "Name") + rows::Column("SELECT * FROM ShopList", "Store") +
                  rows::Column("SELECT * FROM Coupons", "Store") + rows::Column("SELECT * FROM IsleMap", "Store"),
              QStringList({"Lidl", "", "", "Lidl"}));
    EXPECT_EQ(rows::Count("SELECT * FROM AlternateIsleMap"), 1);

    ui.answer(Answer::OK);
    store.DeleteStore("Aldi");
    EXPECT_EQ(ui.lastBox().prompt, "Aldi doesn't exist, please choose a different name.");
}

TEST_F(StoreTest, ExportWritesBareLinesAsksBeforeOverwritingAndOffersMail) {
    clsStore store;
    ui.answer(Answer::OK);
    store.ExportStoreFile("Aldi");
    EXPECT_EQ(ui.lastBox().prompt, "There are no Isles mapped for Aldi.");
    EXPECT_FALSE(QFile::exists(clsStore::ExportFileFor("Aldi")));

    Map("Aldi", " Dairy ", "Isle 1", 7);
    Map("Aldi", "Pasta, rice", "Isle \"2\"", 8);
    ui.answer(Answer::No);  // no mail
    store.ExportStoreFile("Aldi");
    const QString path = clsStore::ExportFileFor("Aldi");
    QFile f(path);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    EXPECT_EQ(f.readAll(), QByteArray("Aldi,Dairy,Isle 1\r\nAldi,Pasta, rice,Isle \"2\"\r\n"));
    f.close();
    EXPECT_EQ(ui.lastBox().prompt, "Would you like to mail Aldi to someone?");
    EXPECT_TRUE(links.isEmpty());

    ui.answer(Answer::No);  // keep the old file
    store.ExportStoreFile("Aldi");
    EXPECT_EQ(LastBox(),
              "Over-write: " + QDir::toNativeSeparators(path) + " has already been exported, Over-write file?");

    ui.answer(Answer::Yes);
    ui.answer(Answer::Yes);
    store.ExportStoreFile("Aldi");
    ASSERT_EQ(links.size(), 1);
    EXPECT_TRUE(links[0].startsWith("mailto:")) << links[0].toStdString();
    EXPECT_TRUE(links[0].contains("Aldi.gil")) << links[0].toStdString();
}

TEST_F(StoreTest, ImportAddsStoresCategoriesAndMappingsAtOrderZero) {
    const int categories = rows::Count("SELECT * FROM ItemCategory");
    Map("Other", "Bakery", "Isle 9", 4);  // the pair already walks at 4 elsewhere
    const QString path = WriteFile("map.gil",
                                   "New Mart,Dairy,Isle 1\r\n  New Mart , Tinned Fish,Isle 2\r\n\r\n"
                                   "New Mart,Bakery,Isle 9\r\nNew Mart,Dairy,Isle 1\r\n");
    clsStore store;
    ui.answer(Answer::OK);
    store.ImportStoreFile(path);
    EXPECT_EQ(ui.lastBox().prompt,
              "The Isle Isle 9 already exists with the Isle Order of 4 so, this Isle will not be saved.");
    EXPECT_EQ(rows::Column("SELECT * FROM Store", "Name"), QStringList({"New Mart"}));
    EXPECT_EQ(rows::Column("SELECT * FROM Store", "isles"), QStringList({"1"}));
    EXPECT_EQ(rows::Count("SELECT * FROM ItemCategory"), categories + 1);
    EXPECT_EQ(rows::Count("SELECT * FROM ItemCategory WHERE [Name] = 'Tinned Fish'"), 1);
    EXPECT_EQ(Mappings(),
              QStringList({"Other/Bakery/Isle 9/4", "New Mart/Dairy/Isle 1/0", "New Mart/Tinned Fish/Isle 2/0"}));
}

TEST_F(StoreTest, ARoundTripLosesTheOrderAndSplitsACommaIntoTheNextField) {
    Map("Aldi", "Dairy", "Isle 1", 7);
    Map("Aldi", "Pasta, rice", "Isle 2", 8);
    Map("Aldi", "Tea, coffee", "Isle 3", 9);
    Map("Aldi", "Oil, vinegar", "Isle 4", 10);
    clsStore store;
    ui.answer(Answer::No);
    store.ExportStoreFile("Aldi");
    const QString path = clsStore::ExportFileFor("Aldi");
    {
        Recordset rs;
        rs.Open("SELECT * FROM IsleMap", ConnectionMain(), adOpenKeyset, adLockOptimistic);
        for (; !rs.IsEOF(); rs.MoveNext()) rs.Delete();
    }
    store.ImportStoreFile(path);
    // Fifteen fields make five records; after the first comma every record is shifted.
    // The file lists the map by category.
    EXPECT_EQ(Mappings(), QStringList({"Aldi/Dairy/Isle 1/0", "Aldi/Oil/vinegar/0", "Isle 4/Aldi/Pasta/0",
                                       "rice/Isle 2/Aldi/0", "Tea/coffee/Isle 3/0"}));
    EXPECT_EQ(rows::Count("SELECT * FROM Store"), 4);
}

TEST_F(StoreTest, BrokenMapFilesAreRefusedWholeAndEmptyOnesImportNothing) {
    clsStore store;
    const QStringList bad = {
        WriteFile("short.gil", "Aldi,Dairy,Isle 1\r\nAldi,Bakery\r\n"),
        WriteFile("binary.gil", QByteArray("Aldi,\x00\x01\x02,Isle", 13)),
        WriteFile("long.gil", "Aldi,Dairy," + QByteArray(100000, 'x') + "\r\n"),
        WriteFile("open-quote.gil", "Aldi,\"Dairy,Isle 1\r\nAldi,Bakery,Isle 2\r\n"),
        QDir(Home()).filePath("missing.gil"),
    };
    for (const QString& path : bad) {
        ui.answer(Answer::OK);
        store.ImportStoreFile(path);
        EXPECT_EQ(LastBox(), "File Problem: There Appears to be a problem with this Store Map file.")
            << path.toStdString();
        EXPECT_EQ(ui.lastBox().buttons, Box::Critical);
    }
    store.ImportStoreFile(WriteFile("empty.gil", ""));
    EXPECT_EQ(rows::Count("SELECT * FROM IsleMap"), 0);
    EXPECT_EQ(rows::Count("SELECT * FROM Store"), 0);

    // A quoted field runs to the next quote, commas and all.
    store.ImportStoreFile(WriteFile("quoted.gil", "Aldi,\"Pasta, rice\" ,Isle 1\r\n"));
    EXPECT_EQ(Mappings(), QStringList({"Aldi/Pasta, rice/Isle 1/0"}));
}
