// The coupon pick lists, the coupon card and the search that crosses the
// recipes with the coupons on file.
#include "core/ChangeNotices.h"
#include "core/clsRegistry.h"
#include "coupons/frmAvailableCoupons.h"
#include "coupons/frmCouponQuickView.h"
#include "coupons/frmRecipeCouponSearch.h"
#include "coupons/frmRecipeCouponSearchResults.h"
#include "lists/frmShoppingListSelect.h"
#include "support/Rows.h"
#include "support/TestEnv.h"
#include "support/Views.h"

#include <QAction>
#include <QCheckBox>
#include <QCoreApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QSet>
#include <QTreeView>
#include <QTreeWidget>
#include <tuple>

namespace {

class CouponSearchTest : public LarderTest {
protected:
    static qint32 Coupon(const QString& manufacturer, const QString& product, const QString& value = "0.50",
                         const QString& expiration = "Never", QVariantMap more = {}) {
        QVariantMap row{{"Manufacturer", manufacturer}, {"Product", product},  {"Size", "12 oz"},
                        {"Value", value},               {"DiscountDouble", "0"}, {"Expiration", expiration},
                        {"Quantity", "1"},              {"Category", "Pantry"}, {"Store", " "}};
        row.insert(more);
        return rows::Add("Coupons", row);
    }

    // A recipe whose slots hold `ingredients` from the first column on.
    static void RecipeWith(const QString& title, const QStringList& ingredients, QVariantMap more = {}) {
        for (int i = 0; i < ingredients.size(); ++i)
            more.insert(i < 18 ? "Ingredient" + QString::number(i + 1) : "ingredient" + QString::number(i + 1),
                        ingredients[i]);
        rows::Recipe(title, "General", "General", more);
    }

    static QStringList Lines(const frmRecipeCouponSearchResults& r) {
        QStringList out;
        for (qint64 i = 0; i < r.LineCount(); ++i) out << r.Line(i).join("|");
        return out;
    }

    // Runs a search over every recipe on a results screen of the test's own.
    std::unique_ptr<frmRecipeCouponSearchResults> Search(const QString& sql = "SELECT * FROM Recipie ORDER BY [Title]") {
        auto results = std::make_unique<frmRecipeCouponSearchResults>();
        results->GetSearchResults(sql, 0);
        return results;
    }
};

TEST_F(CouponSearchTest, TheSearchFormBuildsTheRecipeQueryForEachChoice) {
    rows::Recipe("Fav Used", "General", "General", {{"Favorite", true}, {"TimesUsed", 5}});
    rows::Recipe("Fav New", "General", "General", {{"Favorite", true}, {"TimesUsed", 0}});
    rows::Recipe("Plain Used", "General", "General", {{"TimesUsed", 9}});
    Registry().CouponExpireDays(12);

    frmRecipeCouponSearch form;
    EXPECT_EQ(form.windowTitle(), "Cross Recipes and Coupons");
    EXPECT_EQ(form.txtCouponExpireDays->text(), "12");
    EXPECT_TRUE(form.optSearchAllCoupons->isChecked());

    const struct {
        bool favorites, limit;
        QString count, sql;
        QStringList titles;
    } cases[] = {
        {false, false, "0", "SELECT * FROM Recipie ORDER BY [Title]", {"Fav New", "Fav Used", "Plain Used"}},
        {true, false, "0", "SELECT * FROM Recipie WHERE [Favorite] = True ORDER BY [Title]", {"Fav New", "Fav Used"}},
        {false, true, "3", "SELECT * FROM Recipie WHERE [TimesUsed] > 3 ORDER BY [Title]", {"Fav Used", "Plain Used"}},
        {true, true, " 3 ", "SELECT * FROM Recipie WHERE [Favorite] = True AND [TimesUsed] > 3 ORDER BY [Title]",
         {"Fav Used"}},
        // A number the person writes with a currency sign still counts as a number.
        {false, true, "$8", "SELECT * FROM Recipie WHERE [TimesUsed] > 8 ORDER BY [Title]", {"Plain Used"}},
    };
    for (const auto& c : cases) {
        (c.favorites ? form.optSearchFavoriteRecipes : form.optSearchAllRecipes)->setChecked(true);
        form.chkLimitUseCount->setChecked(c.limit);
        form.txtMinUseCount->setText(c.count);
        EXPECT_EQ(form.SearchSql(), c.sql);
        // The query is one the database takes and finds what the choice says.
        EXPECT_EQ(rows::Column(form.SearchSql(), "Title"), c.titles) << c.sql.toStdString();
    }

    // The two coupon choices exclude each other, and the days box follows.
    form.chkLimitCouponSearch->click();
    EXPECT_FALSE(form.optSearchAllCoupons->isChecked());
    EXPECT_TRUE(form.txtCouponExpireDays->isEnabled());
    form.optSearchAllCoupons->click();
    EXPECT_FALSE(form.chkLimitCouponSearch->isChecked());
    EXPECT_FALSE(form.txtCouponExpireDays->isEnabled());
}

TEST_F(CouponSearchTest, TextThatIsNotANumberStopsTheSearchWithANotice) {
    frmRecipeCouponSearch form;
    form.chkLimitCouponSearch->setChecked(true);
    form.txtCouponExpireDays->setText("soon");
    ui.answer(Answer::OK);
    form.cmdSearch_Click();
    EXPECT_EQ(LastBox(), "Notice: The number of days must be a numeric value.");

    form.txtCouponExpireDays->setText("30");
    form.chkLimitUseCount->setChecked(true);
    form.txtMinUseCount->setText("a few");
    ui.answer(Answer::OK);
    form.cmdSearch_Click();
    EXPECT_EQ(LastBox(), "Notice: The Use Count must be a numeric value.");
    EXPECT_TRUE(ui.modeless().isEmpty());

    // A box that is not in use is not checked.
    form.chkLimitUseCount->setChecked(false);
    form.chkLimitCouponSearch->setChecked(false);
    form.txtCouponExpireDays->setText("soon");
    ui.answer(Answer::OK);  // nothing on file: no matches
    form.cmdSearch_Click();
    EXPECT_EQ(ui.prompts().size(), 3);
    EXPECT_EQ(ui.lastBox().title, "No Matches");
}

TEST_F(CouponSearchTest, EachCouponOfEachIngredientOfEachRecipeIsALine) {
    const qint32 beans = Coupon("Bush", "Baked Beans", "0.25", "2026-12-25");
    const qint32 green = Coupon("Del Monte", "green beans", "1", "Never");
    const qint32 free = Coupon("Acme", "Bean Sprouts", "Free", "Never");
    Coupon("Acme", "Rice");  // matches nothing below
    RecipeWith("Chili", {"1%%can%%beans%%drained", "   ", "2%%cup%%Bean"});
    RecipeWith("Arroz", {"1%%cup%%sprouts"});
    RecipeWith("Plain", {"1%%cup%%water"});

    const auto results = Search();
    EXPECT_EQ(Lines(*results),
              QStringList({"Arroz|sprouts|Acme's Bean Sprouts|Free|Never",
                           "Chili|beans|Bush's Baked Beans|$00.25|Friday, Dec 25 2026",
                           "Chili|beans|Del Monte's green beans|$01.0|Never",
                           "Chili|Bean|Bush's Baked Beans|$00.25|Friday, Dec 25 2026",
                           "Chili|Bean|Del Monte's green beans|$01.0|Never",
                           "Chili|Bean|Acme's Bean Sprouts|Free|Never"}));
    QList<qint32> ids;
    for (qint64 i = 0; i < results->LineCount(); ++i) ids << results->LineCouponID(i);
    EXPECT_EQ(ids, QList<qint32>({free, beans, green, beans, green, free}));
    EXPECT_EQ(results->lblStatus->text(), "Done.");
    EXPECT_EQ(ui.count(), 0);

    // The view shows the same lines, with the coupon's number behind each.
    QAbstractItemModel* model = results->lvSearchResults->model();
    ASSERT_EQ(model->rowCount(), 6);
    EXPECT_EQ(model->index(1, frmRecipeCouponSearchResults::colCoupon).data().toString(), "Bush's Baked Beans");
    EXPECT_EQ(model->index(1, 0).data(Qt::UserRole).toInt(), beans);
    EXPECT_EQ(model->headerData(4, Qt::Horizontal).toString(), "Expires");

    // Only favourites: the query decides which recipes are looked at.
    rows::Set("SELECT * FROM Recipie WHERE [Title] = 'Arroz'", "Favorite", true);
    EXPECT_EQ(Lines(*Search("SELECT * FROM Recipie WHERE [Favorite] = True ORDER BY [Title]")),
              QStringList({"Arroz|sprouts|Acme's Bean Sprouts|Free|Never"}));
}

TEST_F(CouponSearchTest, MatchingFindsWhatTheDatabaseLikeFinds) {
    // Names that a plain substring test would get wrong one way or the other.
    const QStringList products = {"Baker's Chocolate", "BAKERS Yeast", "2% Milk",   "20 Mule Team",
                                  "Jalapeño Slices",   "JALAPEÑO Dip",  "Rice_Mix", "RiceXMix",
                                  "Whole Wheat Flour", "wheat germ",    ""};
    for (const QString& p : products) Coupon("Acme", p);
    rows::Add("Coupons", {{"Manufacturer", "Acme"}, {"Value", "1.00"}, {"Expiration", "Never"}});  // no product
    const QStringList items = {"Baker's", "bakers", "2%", "2% milk", "jalapeño", "ice_mix", "WHEAT", "", "flour "};
    QStringList ingredients;
    for (const QString& item : items) ingredients << "1%%cup%%" + item;
    RecipeWith("Everything", ingredients);

    const auto results = Search();
    QStringList found;
    for (qint64 i = 0; i < results->LineCount(); ++i)
        found << results->Line(i)[1] + "=" + QString::number(results->LineCouponID(i));
    QStringList expected;
    for (const QString& item : items)
        for (const QString& id : rows::Column("SELECT * FROM Coupons WHERE [Product] LIKE '%" +
                                                  QString(item).replace("'", "''") + "%'",
                                              "ID"))
            expected << item + "=" + id;
    EXPECT_EQ(found, expected);
    // The check means something: the tricky names did match, and not everything matched.
    EXPECT_GT(expected.size(), 12);
    EXPECT_LT(expected.size(), 30);
}

TEST_F(CouponSearchTest, NoLineGivesTheNoMatchesNoticeAndABadIngredientTheErrorBox) {
    Coupon("Acme", "Rice");
    RecipeWith("Soup", {"1%%cup%%water"});
    frmRecipeCouponSearch form;
    ui.answer(Answer::OK);
    form.cmdSearch_Click();
    EXPECT_EQ(LastBox(),
              "No Matches: No matches were found at this time. Please try after more Coupons and Recipes have been "
              "added.");
    ASSERT_EQ(ui.modeless().size(), 1);
    EXPECT_EQ(ui.boxes().first().kind, "Modeless");
    EXPECT_EQ(form.result(), QDialog::Accepted);
    // The empty results go away by themselves.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(ui.modeless().first().isNull());

    // An ingredient with no name field ends the search in the error box; the
    // lines found before it stay.
    RecipeWith("Bad", {"1%%cup%%rice", "just rice"});
    ui.answer(Answer::OK);
    const auto results = Search();
    EXPECT_EQ(LastBox(), "Error: Error: Subscript out of range (Occurred in "
                         "frmRecipeCouponSearchResults.GetSearchResults)");
    EXPECT_EQ(Lines(*results), QStringList({"Bad|rice|Acme's Rice|$00.5|Never"}));
    EXPECT_NE(results->lblStatus->text(), "Done.");
}

TEST_F(CouponSearchTest, ClosingTheResultsWhileTheyAreGatheredStopsTheSearchQuietly) {
    Coupon("Acme", "Rice");
    RecipeWith("Soup", {"1%%cup%%water"});
    for (const char* how : {"reject", "close"}) {
        QPointer<frmRecipeCouponSearchResults> results = new frmRecipeCouponSearchResults;
        results->setAttribute(Qt::WA_DeleteOnClose);
        // Escape or the close box, taken while the search lets the window paint.
        QMetaObject::invokeMethod(results, how, Qt::QueuedConnection);
        results->GetSearchResults("SELECT * FROM Recipie", 0);
        ASSERT_FALSE(results.isNull());  // the screen outlived its search
        EXPECT_NE(results->lblStatus->text(), "Done.");
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_TRUE(results.isNull()) << how;
    }
    EXPECT_EQ(ui.count(), 0);  // no "No Matches" for a search nobody waits for
}

TEST_F(CouponSearchTest, TheToolbarAddsTheRecipeToTheDefaultListAndMayMakeThatListTheDefault) {
    Coupon("Acme", "Rice");
    RecipeWith("Pilaf", {"1%%cup%%rice", "2%%cup%%broth"});
    Registry().CurrentShoppingList("Weekly");
    const auto results = Search();

    // Nothing chosen: nothing asked.
    results->tbrMain_ButtonClick("Shoplist");
    EXPECT_EQ(ui.count(), 0);

    results->lvSearchResults->setCurrentIndex(results->lvSearchResults->model()->index(0, 1));
    EXPECT_EQ(results->SelectedRecipe(), "Pilaf");
    ui.answer(Answer::No);
    results->tbrMain_ButtonClick("Shoplist");
    EXPECT_EQ(ui.lastBox().prompt, "Add Pilaf to Weekly ?");
    EXPECT_EQ(ui.lastBox().buttons, Box::YesNo + Box::Question);
    EXPECT_EQ(rows::Count("SELECT * FROM ShopList"), 0);

    int reloads = 0;
    QObject::connect(&Notices(), &ChangeNotices::LoadShoppingList, results.get(), [&] { ++reloads; });
    ui.answer(Answer::Yes);
    ui.answer(Answer::OK);  // the list's own word that the recipe is on it
    ui.answer(Answer::No);
    results->tbrMain_ButtonClick("Shoplist");
    EXPECT_EQ(LastBox(), "Set default: Would you like to use Weekly as the default?");
    EXPECT_EQ(rows::Column("SELECT * FROM ShopList WHERE [Name] = 'Weekly' ORDER BY [ID]", "ItemName"),
              QStringList({"rice", "broth"}));
    EXPECT_EQ(reloads, 1);
    EXPECT_EQ(Registry().CurrentShoppingList(), "Weekly");

    // Without a default list the person picks one, and may keep it as the default.
    rows::Add("ShopList", {{"Name", "Party"}, {"ItemName", "ice"}, {"Dates", "None"}});
    Registry().CurrentShoppingList("");
    ui.answerModal([](QDialog* d) {
        auto* pick = qobject_cast<frmShoppingListSelect*>(d);
        const auto lines = pick->lvLists->findItems("Party", Qt::MatchExactly);
        if (lines.isEmpty()) return int(QDialog::Rejected);
        pick->lvLists->setCurrentItem(lines.first());
        pick->cmdOK->click();
        return d->result();
    });
    ui.answer(Answer::Yes);
    ui.answer(Answer::OK);
    ui.answer(Answer::Yes);
    results->tbrMain_ButtonClick("Shoplist");
    EXPECT_EQ(ui.prompts(), QStringList({"Add Pilaf to Weekly ?", "Add Pilaf to Weekly ?",
                                         "The Recipe ,Pilaf, was added to the List, Weekly.",
                                         "Would you like to use Weekly as the default?", "Add Pilaf to Party ?",
                                         "The Recipe ,Pilaf, was added to the List, Party.",
                                         "Would you like to use Party as the default?"}));
    EXPECT_EQ(Registry().CurrentShoppingList(), "Party");
    EXPECT_EQ(rows::Count("SELECT * FROM ShopList WHERE [Name] = 'Party'"), 3);

    // Picking no list adds nothing.
    Registry().CurrentShoppingList("");
    ui.answerModal([](QDialog*) { return int(QDialog::Rejected); });
    const int boxes = ui.count();
    results->tbrMain_ButtonClick("Shoplist");
    EXPECT_EQ(ui.count(), boxes + 1);  // the pick screen only
    EXPECT_EQ(rows::Count("SELECT * FROM ShopList"), 5);

    for (const char* key : {"Compare", "Meal"}) {
        ui.answer(Answer::OK);
        results->tbrMain_ButtonClick(key);
        EXPECT_EQ(LastBox(), "Coming Soon: This feature will be added soon!");
    }
}

TEST_F(CouponSearchTest, AProductWithoutACouponLeavesThePickListHiddenAndEmpty) {
    frmAvailableCoupons pick;
    EXPECT_FALSE(pick.GetProductCoupons("Acme", "Rice"));
    EXPECT_FALSE(pick.isVisible());
    EXPECT_EQ(pick.lvCoupons->topLevelItemCount(), 0);
    EXPECT_EQ(pick.windowTitle(), "Possible Coupons");

    // A coupon on file is listed by its number; the named columns stay empty,
    // as the coupon class answers only what was set on it.
    Coupon("Acme", "Brown Rice");
    const qint32 rice = Coupon("Campbell's", "Rice");
    EXPECT_TRUE(pick.GetProductCoupons("Campbell's", "Rice"));
    EXPECT_FALSE(pick.isVisible());
    ASSERT_EQ(pick.lvCoupons->topLevelItemCount(), 1);
    EXPECT_EQ(frmAvailableCoupons::CouponID(pick.lvCoupons->topLevelItem(0)), rice);
    EXPECT_EQ(views::Lines(pick.lvCoupons), QStringList({"||||||"}));
    EXPECT_EQ(ui.count(), 0);
}

TEST_F(CouponSearchTest, ARecipesPickListNamesEachCouponOnceWhateverWordsFoundIt) {
    const qint32 peanut = Coupon("Jif", "Creamy Peanut Butter", "0.75", "2026-12-25");
    const qint32 butter = Coupon("Land O'Lakes", "Butter", "1.00");
    const qint32 baker = Coupon("Acme", "Baker's Chocolate");
    Coupon("Acme", "Rice");
    RecipeWith("Cookies", {"1%%cup%%peanut butter%%", "2%%tbsp%%butter", "4%%oz%%baker's  chocolate", "",
                           "1%%cup%%cream"});
    RecipeWith("Toast", {"1%%slice%%bread"});

    frmAvailableCoupons pick;
    ASSERT_TRUE(pick.GetRecipeCoupons("Cookies"));
    EXPECT_EQ(pick.windowTitle(), "Possible Coupons for Cookies");
    QList<qint32> ids;
    for (int i = 0; i < pick.lvCoupons->topLevelItemCount(); ++i)
        ids << frmAvailableCoupons::CouponID(pick.lvCoupons->topLevelItem(i));
    EXPECT_EQ(ids, QList<qint32>({peanut, butter, baker}));
    const QStringList lines = views::Lines(pick.lvCoupons);
    EXPECT_EQ(lines.value(1), "peanut butter|Butter|Land O'Lakes|12 oz|$1.00|Never|");
    EXPECT_EQ(lines.value(2), "baker's  chocolate|Baker's Chocolate|Acme|12 oz|$0.50|Never|");
    EXPECT_EQ(ui.count(), 0);  // the apostrophe broke no query

    EXPECT_FALSE(pick.GetRecipeCoupons("Toast"));
    EXPECT_EQ(pick.windowTitle(), "Possible Coupons for Toast");
    EXPECT_FALSE(pick.GetRecipeCoupons("Nobody's Recipe"));
    EXPECT_EQ(ui.count(), 0);
}

TEST_F(CouponSearchTest, TheTickedCouponsGoToTheListOnlyThroughAddToList) {
    const qint32 a = Coupon("Jif", "Peanut Butter");
    Coupon("Acme", "Butter Beans");
    const qint32 c = Coupon("Acme", "Apple Butter");
    RecipeWith("Toast", {"1%%tbsp%%butter"});
    frmAvailableCoupons pick;
    ASSERT_TRUE(pick.GetRecipeCoupons("Toast"));
    ASSERT_EQ(pick.lvCoupons->topLevelItemCount(), 3);
    pick.lvCoupons->topLevelItem(0)->setCheckState(0, Qt::Checked);
    pick.lvCoupons->topLevelItem(2)->setCheckState(0, Qt::Checked);

    pick.cmdClose->click();
    EXPECT_TRUE(pick.PickedCouponIDs().isEmpty());
    pick.cmdAddToList->click();
    EXPECT_EQ(pick.PickedCouponIDs(), QList<qint32>({a, c}));

    // A fresh list forgets the ticks of the last one.
    ASSERT_TRUE(pick.GetRecipeCoupons("Toast"));
    pick.cmdAddToList->click();
    EXPECT_TRUE(pick.PickedCouponIDs().isEmpty());
}

TEST_F(CouponSearchTest, ThePopupShowsTheCardAddsTheRecipeAndOwnsUpToTheMealPlanner) {
    const qint32 id = Coupon("Jif", "Peanut Butter", "0.75", "2026-12-25",
                             {{"Comments", "Wallet, front pocket"}, {"DiscountDouble", "1"}, {"Store", "Kroger"}});
    RecipeWith("Toast", {"1%%tbsp%%butter"});
    Registry().CurrentShoppingList("Weekly");
    frmAvailableCoupons pick;
    ASSERT_TRUE(pick.GetRecipeCoupons("Toast"));
    pick.lvCoupons->setCurrentItem(pick.lvCoupons->topLevelItem(0));

    QStringList card;
    ui.answerModal([&](QDialog* d) {
        auto* view = qobject_cast<frmCouponQuickView*>(d);
        if (!view) return int(QDialog::Rejected);
        for (QLabel* l : {view->lblProduct, view->lblManufacturer, view->lblValue, view->lblQuantity, view->lblSize,
                          view->lblCategory, view->lblStore, view->lblExpiration, view->lblDiscountDouble,
                          view->lblComments})
            card << l->text();
        return int(QDialog::Accepted);
    });
    pick.mnuDisplayCoupon->trigger();
    EXPECT_EQ(card, QStringList({"Peanut Butter", "Jif", "$0.75", "1", "12 oz", "Pantry", "Kroger",
                                 "Friday, Dec 25 2026", "Yes", "Wallet, front pocket"}));

    // An expiry that is a word stands as it is; the card of a coupon gone is empty.
    rows::Set("SELECT * FROM Coupons WHERE [ID] = " + QString::number(id), "Expiration", "Never");
    frmCouponQuickView view;
    view.ShowCoupon(id);
    EXPECT_EQ(view.lblExpiration->text(), "Never");
    view.ShowCoupon(id + 100);
    EXPECT_EQ(view.lblProduct->text(), "");

    ui.answer(Answer::OK);
    pick.mnuAddRecipeToList->trigger();
    EXPECT_EQ(rows::Column("SELECT * FROM ShopList WHERE [Name] = 'Weekly'", "ItemName"), QStringList({"butter"}));

    ui.answer(Answer::OK);
    pick.mnuCreateMeal->trigger();
    EXPECT_EQ(LastBox(), "Coming Soon: This feature will be added soon!");
}

}  // namespace
