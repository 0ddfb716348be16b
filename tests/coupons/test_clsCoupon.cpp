#include "coupons/clsCoupon.h"

#include "core/Globals.h"
#include "core/MainPanes.h"
#include "core/clsRegistry.h"
#include "platform/Database.h"
#include "platform/Recordset.h"
#include "platform/RuntimeError.h"
#include "support/TestEnv.h"

namespace {

class CouponTest : public LarderTest {
protected:
    void SetUp() override {
        LarderTest::SetUp();
        FoundCouponID = 0;
        MainPanes::Instance().ClearAll();
    }

    qint32 AddCoupon(const QString& manufacturer, const QString& product, const QString& size,
                     const QString& expiration = "Never", const QString& value = "0.50", bool marked = false) {
        Recordset rs;
        rs.Open("SELECT * FROM Coupons", ConnectionMain(), adOpenStatic, adLockOptimistic);
        rs.AddNew();
        rs.setField("Manufacturer", manufacturer);
        rs.setField("Product", product);
        rs.setField("Size", size);
        rs.setField("Value", value);
        rs.setField("Expiration", expiration);
        rs.setField("Quantity", "1");
        rs.setField("MarkForPurge", marked);
        rs.Update();
        return rs.Field("ID").toInt();
    }

    QVariant Column(const QString& sql, const QString& column) {
        Recordset rs;
        rs.Open(sql, ConnectionMain(), adOpenStatic, adLockReadOnly);
        return rs.IsEOF() ? QVariant() : rs.Field(column);
    }

    int Count(const QString& table) {
        Recordset rs;
        rs.Open("SELECT * FROM " + table, ConnectionMain(), adOpenStatic, adLockReadOnly);
        return rs.RecordCount();
    }
};

}  // namespace

TEST_F(CouponTest, MatchCodesFollowThePassesInOrder) {
    clsCoupon coupon;
    EXPECT_EQ(coupon.Exists("Acme", "Milk", "1 gal"), 5);
    EXPECT_EQ(FoundCouponID, 0);

    const qint32 first = AddCoupon("Acme", "Milk", "1 gal");
    const qint32 second = AddCoupon("Acme", "Milk", "1 gal");
    const qint32 otherMaker = AddCoupon("Dairyland", "Butter", "1 lb");
    ASSERT_NE(first, second);

    EXPECT_EQ(coupon.Exists("Acme", "Milk", "1 gal"), 1);
    EXPECT_EQ(FoundCouponID, first);  // the first of two equal coupons wins
    EXPECT_EQ(coupon.Exists("Acme", "Milk", "half gal"), 4);
    EXPECT_EQ(coupon.Exists("Store Brand", "Butter", "1 lb"), 3);
    EXPECT_EQ(FoundCouponID, otherMaker);
    // No trimming: a trailing blank is another product.
    EXPECT_EQ(coupon.Exists("Acme", "Milk ", "1 gal"), 5);
}

TEST_F(CouponTest, AProductOnlyMatchFailsIntoTheCallersHandler) {
    AddCoupon("Acme", "Milk", "1 gal");
    FoundCouponID = 77;
    clsCoupon coupon;
    try {
        coupon.Exists("Other", "Milk", "2 gal");
        FAIL() << "the product-only pass reads an ID it never selected";
    } catch (const RuntimeError& e) {
        EXPECT_EQ(e.description(), Err::ItemNotFound);
    }
    EXPECT_EQ(FoundCouponID, 77);
}

TEST_F(CouponTest, TheNotExactQuestionNamesTheCouponAndNoForgetsIt) {
    FoundCouponID = AddCoupon(" Acme ", "Milk ", " 1 gal");
    clsCoupon coupon;
    ui.answer(Answer::No);
    coupon.GetExistingCouponResponse();
    ASSERT_EQ(ui.count(), 1);
    EXPECT_EQ(ui.lastBox().title, "Coupon Alert");
    EXPECT_EQ(ui.lastBox().buttons, Box::YesNo + Box::Question);
    EXPECT_EQ(ui.lastBox().prompt,
              QString("A coupon was found for that item but it is not an exact match. You you like to use the found "
                      "Coupon? \r\n\r\n       \u2022 Product: Milk\r\n       \u2022 Manufacturer: Acme\r\n"
                      "       \u2022 Size: 1 gal\r\n             Would you like to use this Coupon?"));
    EXPECT_EQ(FoundCouponID, 0);
}

TEST_F(CouponTest, ReservingAndReleasing) {
    const qint32 id = AddCoupon("Acme", "Milk", "1 gal");
    clsCoupon coupon;
    coupon.MarkCouponList(id, "Joe's List");
    EXPECT_EQ(Column(QString("SELECT * FROM Coupons WHERE [ID] = %1").arg(id), "OwnerList").toString(), "Joe's List");

    // Another list cannot release it; its own list can, leaving "" and not "None".
    EXPECT_TRUE(coupon.ReleaseCouponList(id, "Other"));
    EXPECT_EQ(Column(QString("SELECT * FROM Coupons WHERE [ID] = %1").arg(id), "OwnerList").toString(), "Joe's List");
    EXPECT_TRUE(coupon.ReleaseCouponList(id, "Joe''s List"));
    EXPECT_EQ(Column(QString("SELECT * FROM Coupons WHERE [ID] = %1").arg(id), "OwnerList"), QVariant(QString()));

    // Numbers pass through a 16-bit integer.
    ui.answer(Answer::OK);
    coupon.MarkCouponList(40000, "Week");
    EXPECT_EQ(ui.lastBox().prompt, "Error: Overflow (Occurred in Coupon.MarkCouponList)");
    ui.answer(Answer::OK);
    EXPECT_FALSE(coupon.ReleaseCouponList(40000, "Week"));
    EXPECT_EQ(ui.lastBox().prompt, "Error: Overflow (Occurred in Coupon.ReleaseCouponList)");
}

TEST_F(CouponTest, AccessorsReadTheRowOnlyForTheirHalf) {
    AddCoupon("Acme", "Milk", "1 gal");
    clsCoupon coupon;
    coupon.OpenDB("SELECT * FROM Coupons", adOpenStatic, adLockReadOnly);
    EXPECT_EQ(coupon.Manufacturer(), "");
    EXPECT_EQ(coupon.product(), "");
    EXPECT_EQ(coupon.Quantity(), "1");
    EXPECT_FALSE(coupon.MarkForPurge());
    coupon.Quantity("9");
    EXPECT_EQ(coupon.Quantity(), "1");
    coupon.CloseDB();
}

TEST_F(CouponTest, PurgeTakesOnlyWhatIsPastItsDate) {
    const qint32 yesterday = AddCoupon("Acme", "Milk", "1 gal", "11/21/2026");
    const qint32 today = AddCoupon("Acme", "Bread", "loaf", "11/22/2026");
    const qint32 never = AddCoupon("Acme", "Eggs", "dozen", "Never");
    const qint32 byHand = AddCoupon("Acme", "Jam", "jar", "12/31/2027", "0.50", true);
    MainPanes& panes = MainPanes::Instance();
    panes.AddNode(panes.coupons, "", "Acme", "Acme", "");
    for (qint32 id : {yesterday, today, never, byHand})
        panes.AddNode(panes.coupons, "Acme", QString("C%1").arg(id), "coupon", QString(" %1 ").arg(id));

    clsCoupon coupon;
    coupon.AutoPurge(false, true);
    EXPECT_EQ(Count("Coupons"), 2);
    EXPECT_TRUE(Column(QString("SELECT * FROM Coupons WHERE [ID] = %1").arg(today), "ID").isValid());
    EXPECT_TRUE(Column(QString("SELECT * FROM Coupons WHERE [ID] = %1").arg(never), "ID").isValid());
    QStringList left;
    for (QStandardItem* node : panes.AllNodes(panes.coupons)) left << node->data(MainPanes::TagRole).toString().trimmed();
    EXPECT_EQ(left, QStringList({"", QString::number(today), QString::number(never)}));
}

TEST_F(CouponTest, AWordForADateStopsThePurgeWithWhatWasDoneKept) {
    AddCoupon("Acme", "Milk", "1 gal", "11/01/2026");
    AddCoupon("Acme", "Soap", "bar", "someday");
    AddCoupon("Acme", "Tea", "box", "11/02/2026");
    clsCoupon coupon;
    ui.answer(Answer::OK);
    coupon.AutoPurge(false, true);
    EXPECT_EQ(ui.lastBox().prompt, "Error: Type mismatch (Occurred in Coupon.AutoPurge)");
    // The first was marked before the walk stopped; nothing was deleted yet.
    EXPECT_EQ(Count("Coupons"), 3);
    EXPECT_TRUE(Column("SELECT * FROM Coupons WHERE [Product] = 'Milk'", "MarkForPurge").toBool());
    EXPECT_FALSE(Column("SELECT * FROM Coupons WHERE [Product] = 'Tea'", "MarkForPurge").toBool());
}

TEST_F(CouponTest, TheDeliveryWalkClearsATableOfExpiredCoupons) {
    auto addDelivery = [&](const QString& name, const QString& expiration) {
        Recordset rs;
        rs.Open("SELECT * FROM Delivery", ConnectionMain(), adOpenStatic, adLockOptimistic);
        rs.AddNew();
        rs.setField("Restaurant", name);
        rs.setField("Expiration", expiration);
        rs.Update();
    };
    // Only a table in which every row has expired lets the walk end: a current
    // delivery coupon holds it on that row for good, so no test can add one.
    addDelivery("Old pizza", "10/01/2026");
    addDelivery("Old curry", "11/21/2026");
    addDelivery("Old noodles", "01/15/2025");
    AddCoupon("Acme", "Milk", "1 gal");
    clsCoupon coupon;
    coupon.AutoPurge(false, true);
    EXPECT_EQ(Count("Delivery"), 0);
    EXPECT_EQ(Count("Coupons"), 1);  // the store coupons' stages still ran
}

TEST_F(CouponTest, ExpiryCheckWarnsAheadButReddensOnlyThePast) {
    Registry().CouponExpireNofication(true);
    Registry().CouponExpireDays(3);
    bool pending = false;
    const auto today = clsCoupon::CheckExpiry("11/22/2026", pending);
    EXPECT_EQ(today.imageKey, "CouponExpire");
    EXPECT_FALSE(today.expired);
    EXPECT_TRUE(pending);

    pending = false;
    EXPECT_EQ(clsCoupon::CheckExpiry("12/31/2026", pending).imageKey, "Coupon");
    EXPECT_EQ(clsCoupon::CheckExpiry("Never", pending).imageKey, "Coupon");
    EXPECT_FALSE(pending);
    EXPECT_TRUE(clsCoupon::CheckExpiry("11/21/2026", pending).expired);

    // Without notification nothing is pending, so no action follows even for the past.
    Registry().CouponExpireNofication(false);
    pending = false;
    const auto past = clsCoupon::CheckExpiry("11/01/2026", pending);
    EXPECT_TRUE(past.expired);
    EXPECT_EQ(past.imageKey, "Coupon");
    EXPECT_FALSE(pending);
    Registry().CouponExpiredAction(3);
    EXPECT_FALSE(clsCoupon::ExpireAction(pending));
    EXPECT_EQ(ui.count(), 0);

    ui.answer(Answer::OK);
    EXPECT_FALSE(clsCoupon::ExpireAction(true));
    EXPECT_EQ(ui.lastBox().prompt, "There are Coupons that are going to expire in the next 3 days.");
    EXPECT_EQ(ui.lastBox().title, "Pending Expiration");
    EXPECT_EQ(ui.lastBox().buttons, Box::Information);

    Registry().CouponExpiredAction(2);
    EXPECT_TRUE(clsCoupon::ExpireAction(true));
}

TEST_F(CouponTest, AddNewWritesTheRowItsVocabularyAndItsNode) {
    MainPanes& panes = MainPanes::Instance();
    clsCoupon coupon;
    coupon.Manufacturer("O'Brien's");
    coupon.product("Oat \"Crunch\"");
    coupon.Size("12 oz");
    coupon.Discount("Buy one, get one free");
    coupon.DiscountDbl("1");
    coupon.Expiration("12/31/2026");
    coupon.Quantity("2");
    coupon.Category("Cereal Aisle");
    coupon.Store(" ");
    coupon.OwnerList("None");
    ASSERT_TRUE(coupon.AddNew());
    EXPECT_EQ(Column("SELECT * FROM Manufacturer WHERE [Name] = 'O''Brien''s'", "Name").toString(), "O'Brien's");
    EXPECT_EQ(Column("SELECT * FROM ItemCategory WHERE [Name] = 'Cereal Aisle'", "Name").toString(), "Cereal Aisle");
    const QString where = "SELECT * FROM Coupons WHERE [Product] = 'Oat \"\"Crunch\"\"'";
    EXPECT_EQ(Column("SELECT * FROM Coupons", "Value").toString(), "Buy one, get one free");
    EXPECT_EQ(Column("SELECT * FROM Coupons", "OwnerList"), QVariant());  // never written
    const QString id = Column("SELECT * FROM Coupons", "ID").toString();
    QStandardItem* node = nullptr;
    for (QStandardItem* item : panes.AllNodes(panes.coupons))
        if (item->data(MainPanes::TagRole).toString() == id) node = item;
    ASSERT_NE(node, nullptr);
    EXPECT_EQ(node->text(), "2-12 oz Oat \"Crunch\"");
    ASSERT_NE(node->parent(), nullptr);
    EXPECT_EQ(node->parent()->text(), "O'Brien's");
}

TEST_F(CouponTest, DeletingLeavesAReminderToDiscardThePaperCoupon) {
    const qint32 id = AddCoupon("Acme", "Milk", "1 gal");
    Registry().CouponAddReminder(true);
    clsCoupon coupon;
    coupon.DeleteCoupon(id, 1);
    EXPECT_EQ(Count("Coupons"), 0);
    EXPECT_EQ(Column("SELECT * FROM Messages", "Title").toString(), "Discard Coupon for Acme's Milk");

    Registry().CouponAddReminder(false);
    coupon.DeleteCoupon(AddCoupon("Acme", "Tea", "box"), 1);
    EXPECT_EQ(Count("Messages"), 1);
}

TEST_F(CouponTest, ACouponEnteredForAListedItemReservesByTheListRowsNumber) {
    Recordset rs;
    rs.Open("SELECT * FROM ShopList", ConnectionMain(), adOpenStatic, adLockOptimistic);
    rs.AddNew();
    rs.setField("Name", "Week");
    rs.setField("ItemName", "Skim Milk");
    rs.setField("IsCurrent", false);
    rs.Update();
    const qint32 rowID = rs.Field("ID").toInt();
    rs.Close();
    // A coupon that happens to carry the list row's number is the one reserved.
    while (AddCoupon("Acme", "Other", "x") < rowID) {
    }

    clsCoupon coupon;
    ui.answer(Answer::Yes);
    coupon.CheckForExistingList("Milk");
    EXPECT_EQ(ui.lastBox().prompt, "A product similar to Milk is already on Week, do you want to use this coupon?");
    EXPECT_EQ(ui.lastBox().title, "Use Coupon?");
    EXPECT_TRUE(Column("SELECT * FROM ShopList", "Coupon").toBool());
    EXPECT_EQ(Column(QString("SELECT * FROM Coupons WHERE [ID] = %1").arg(rowID), "OwnerList").toString(), "Week");
}

TEST_F(CouponTest, TheUncalledHelpersStillAnswer) {
    AddCoupon("Acme", "Tomato Soup", "can", "Never", "0.25");
    AddCoupon("Acme", "Soup Crackers", "box", "Never", "0.50");
    clsCoupon coupon;
    // "Soup" matches both products; "Tomato" the first once more.
    EXPECT_EQ(coupon.IngredientCheck("tomato soup, 1 can"), "3%%Tomato Soup,Tomato Soup,Soup Crackers%%1");
    EXPECT_EQ(coupon.IngredientCheck(","), "0%%%%0");

    qint32 found = 0;
    coupon.PossibleCoupon("Soup", found);  // no product holds " Soup " between blanks
    EXPECT_EQ(found, 0);
    EXPECT_EQ(coupon.GetPendingExpirations(), 0);

    coupon.UpdateCoupons("Acme", "Crackers", "", "Week");
    EXPECT_EQ(Column("SELECT * FROM Coupons WHERE [Product] = 'Soup Crackers'", "OwnerList").toString(), "Week");
    ui.answer(Answer::OK);
    coupon.UpdateCoupons("Acme", "Joe's", "", "Week");
    EXPECT_TRUE(ui.lastBox().prompt.endsWith("(Occurred in Coupon.UpdateCoupons)"));
}
