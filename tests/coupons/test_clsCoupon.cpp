#include "coupons/clsCoupon.h"

#include "core/Globals.h"
#include "core/MainPanes.h"
#include "core/clsRegistry.h"
#include "support/Rows.h"
#include "support/TestEnv.h"

class CouponTest : public LarderTest {
protected:
    static qint32 AddCoupon(const QString& manufacturer, const QString& product, const QString& size,
                            const QString& expiration = "Never", const QString& value = "0.50", bool marked = false) {
        return rows::Add("Coupons", {{"Manufacturer", manufacturer},
                                     {"Product", product},
                                     {"Size", size},
                                     {"Value", value},
                                     {"Expiration", expiration},
                                     {"Quantity", "1"},
                                     {"MarkForPurge", marked}});
    }
    static QVariant Of(qint32 id, const QString& column) { return rows::Field("Coupons", "ID", id, column); }
    static int Count(const QString& table) { return rows::Count("SELECT * FROM " + table); }
};

TEST_F(CouponTest, MatchCodesFollowThePassesInOrder) {
    clsCoupon coupon;
    EXPECT_EQ(coupon.Exists("Acme", "Milk", "1 gal"), 5);
    EXPECT_EQ(FoundCouponID, 0);

    const qint32 first = AddCoupon("Acme", "Milk", "1 gal");
    ASSERT_NE(first, AddCoupon("Acme", "Milk", "1 gal"));
    const qint32 otherMaker = AddCoupon("Dairyland", "Butter", "1 lb");
    EXPECT_EQ(coupon.Exists("Acme", "Milk", "1 gal"), 1);
    EXPECT_EQ(FoundCouponID, first);  // the first of two equal coupons wins
    EXPECT_EQ(coupon.Exists("Acme", "Milk", "half gal"), 4);
    EXPECT_EQ(coupon.Exists("Store Brand", "Butter", "1 lb"), 3);
    EXPECT_EQ(FoundCouponID, otherMaker);
    // No trimming: a trailing blank is another product.
    EXPECT_EQ(coupon.Exists("Acme", "Milk ", "1 gal"), 5);

    // A product-only match fails into the caller's handler: it reads an ID it never selected.
    FoundCouponID = 77;
    EXPECT_EQ(ErrorOf([&] { coupon.Exists("Other", "Milk", "2 gal"); }), Err::ItemNotFound);
    EXPECT_EQ(FoundCouponID, 77);
}

TEST_F(CouponTest, TheNotExactQuestionNamesTheCouponAndNoForgetsIt) {
    FoundCouponID = AddCoupon(" Acme ", "Milk ", " 1 gal");
    ui.answer(Answer::No);
    clsCoupon().GetExistingCouponResponse();
    ASSERT_EQ(ui.count(), 1);
    EXPECT_EQ(ui.lastBox().buttons, Box::YesNo + Box::Question);
    EXPECT_EQ(LastBox(),
              QString("Coupon Alert: A coupon was found for that item but it is not an exact match. You you "
                      "like to use the found Coupon? \r\n\r\n       \u2022 Product: Milk\r\n       \u2022 "
                      "Manufacturer: Acme\r\n       \u2022 Size: 1 gal\r\n             Would you like to use "
                      "this Coupon?"));
    EXPECT_EQ(FoundCouponID, 0);
}

TEST_F(CouponTest, ReservingAndReleasingAndTheAccessorsOfTheOpenRow) {
    const qint32 id = AddCoupon("Acme", "Milk", "1 gal");
    clsCoupon coupon;
    coupon.MarkCouponList(id, "Joe's List");
    EXPECT_EQ(Of(id, "OwnerList").toString(), "Joe's List");
    // Another list cannot release it; its own list can, leaving "" and not "None".
    EXPECT_TRUE(coupon.ReleaseCouponList(id, "Other"));
    EXPECT_EQ(Of(id, "OwnerList").toString(), "Joe's List");
    EXPECT_TRUE(coupon.ReleaseCouponList(id, "Joe's List"));
    EXPECT_EQ(Of(id, "OwnerList"), QVariant(QString()));

    // Numbers pass through a 16-bit integer.
    ui.answer(Answer::OK);
    coupon.MarkCouponList(40000, "Week");
    EXPECT_EQ(ui.lastBox().prompt, "Error: Overflow (Occurred in Coupon.MarkCouponList)");
    ui.answer(Answer::OK);
    EXPECT_FALSE(coupon.ReleaseCouponList(40000, "Week"));
    EXPECT_EQ(ui.lastBox().prompt, "Error: Overflow (Occurred in Coupon.ReleaseCouponList)");

    // The accessors read the row only for their half.
    coupon.OpenDB("SELECT * FROM Coupons", adOpenStatic, adLockReadOnly);
    EXPECT_EQ(QStringList({coupon.Manufacturer(), coupon.product(), coupon.Quantity()}), QStringList({"", "", "1"}));
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

    clsCoupon().AutoPurge(false, true);
    EXPECT_EQ(rows::Column("SELECT * FROM Coupons ORDER BY [ID]", "ID"),
              QStringList({QString::number(today), QString::number(never)}));
    QStringList left;
    for (QStandardItem* node : panes.AllNodes(panes.coupons))
        left << node->data(MainPanes::TagRole).toString().trimmed();
    EXPECT_EQ(left, QStringList({"", QString::number(today), QString::number(never)}));
}

TEST_F(CouponTest, AWordForADateStopsThePurgeWithWhatWasDoneKept) {
    AddCoupon("Acme", "Milk", "1 gal", "11/01/2026");
    AddCoupon("Acme", "Soap", "bar", "someday");
    AddCoupon("Acme", "Tea", "box", "11/02/2026");
    ui.answer(Answer::OK);
    clsCoupon().AutoPurge(false, true);
    EXPECT_EQ(ui.lastBox().prompt, "Error: Type mismatch (Occurred in Coupon.AutoPurge)");
    // The first was marked before the walk stopped; nothing was deleted yet.
    EXPECT_EQ(rows::Column("SELECT * FROM Coupons ORDER BY [ID]", "MarkForPurge"),
              QStringList({"True", "False", "False"}));
}

TEST_F(CouponTest, TheDeliveryWalkDeletesExpiredCouponsAndPassesLiveOnes) {
    // A coupon still good sits between expired ones: the walk must pass it
    // (not stop on it for good) and keep it.
    for (const auto& [name, expiration] : QList<QPair<QString, QString>>{{"Old pizza", "10/01/2026"},
                                                                         {"Fresh sushi", "12/31/2026"},
                                                                         {"Old curry", "11/21/2026"},
                                                                         {"Today's tacos", "11/22/2026"},
                                                                         {"Old noodles", "01/15/2025"}})
        rows::Add("Delivery", {{"Restaurant", name}, {"Expiration", expiration}});
    AddCoupon("Acme", "Milk", "1 gal");
    clsCoupon().AutoPurge(false, true);
    EXPECT_EQ(rows::Column("SELECT * FROM Delivery ORDER BY [Restaurant]", "Restaurant"),
              QStringList({"Fresh sushi", "Today's tacos"}));
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
    EXPECT_EQ(LastBox(), "Pending Expiration: There are Coupons that are going to expire in the next 3 days.");
    EXPECT_EQ(ui.lastBox().buttons, Box::Information);
    Registry().CouponExpiredAction(2);
    EXPECT_TRUE(clsCoupon::ExpireAction(true));
}

TEST_F(CouponTest, AddNewWritesTheRowItsVocabularyAndItsNode) {
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
    EXPECT_EQ(rows::Count("SELECT * FROM Manufacturer WHERE [Name] = 'O''Brien''s'"), 1);
    EXPECT_EQ(rows::Count("SELECT * FROM ItemCategory WHERE [Name] = 'Cereal Aisle'"), 1);
    EXPECT_EQ(rows::Column("SELECT * FROM Coupons", "Value"), QStringList({"Buy one, get one free"}));
    EXPECT_EQ(rows::Column("SELECT * FROM Coupons", "OwnerList"), QStringList({"<null>"}));  // never written
    const QString id = rows::Column("SELECT * FROM Coupons", "ID").value(0);
    MainPanes& panes = MainPanes::Instance();
    QStandardItem* node = nullptr;
    for (QStandardItem* item : panes.AllNodes(panes.coupons))
        if (item->data(MainPanes::TagRole).toString() == id) node = item;
    ASSERT_NE(node, nullptr);
    EXPECT_EQ(node->text(), "2-12 oz Oat \"Crunch\"");
    ASSERT_NE(node->parent(), nullptr);
    EXPECT_EQ(node->parent()->text(), "O'Brien's");
}

TEST_F(CouponTest, DeletingLeavesAReminderToDiscardThePaperCoupon) {
    Registry().CouponAddReminder(true);
    clsCoupon coupon;
    coupon.DeleteCoupon(AddCoupon("Acme", "Milk", "1 gal"), 1);
    EXPECT_EQ(Count("Coupons"), 0);
    EXPECT_EQ(rows::Column("SELECT * FROM Messages", "Title"), QStringList({"Discard Coupon for Acme's Milk"}));
    Registry().CouponAddReminder(false);
    coupon.DeleteCoupon(AddCoupon("Acme", "Tea", "box"), 1);
    EXPECT_EQ(Count("Messages"), 1);
}

TEST_F(CouponTest, ACouponEnteredForAListedItemReservesByTheListRowsNumber) {
    const qint32 rowID = rows::Add("ShopList", {{"Name", "Week"}, {"ItemName", "Skim Milk"}, {"IsCurrent", false}});
    // A coupon that happens to carry the list row's number is the one reserved.
    while (AddCoupon("Acme", "Other", "x") < rowID) {}
    ui.answer(Answer::Yes);
    clsCoupon().CheckForExistingList("Milk");
    EXPECT_EQ(LastBox(), "Use Coupon?: A product similar to Milk is already on Week, do you want to use this coupon?");
    EXPECT_TRUE(rows::Field("ShopList", "ID", rowID, "Coupon").toBool());
    EXPECT_EQ(Of(rowID, "OwnerList").toString(), "Week");
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

    coupon.UpdateCoupons("Acme", "Crackers", "", "Week");
    EXPECT_EQ(rows::Column("SELECT * FROM Coupons WHERE [Product] = 'Soup Crackers'", "OwnerList"),
              QStringList({"Week"}));
    ui.answer(Answer::OK);
    coupon.UpdateCoupons("Acme", "Joe's", "", "Week");
    EXPECT_TRUE(ui.lastBox().prompt.endsWith("(Occurred in Coupon.UpdateCoupons)"));
}
