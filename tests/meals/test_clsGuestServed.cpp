#include "meals/clsGuestServed.h"
#include "support/Rows.h"
#include "support/TestEnv.h"

using GuestServedTest = LarderTest;

TEST_F(GuestServedTest, RenameAndRemoveFollowTheRecipeAcrossGuests) {
    for (const auto& [guest, recipe] :
         QList<QPair<QString, QString>>{{"Ann", "Chili"}, {"Bob", "Chili"}, {"Cy", "Chili Dog"}, {"Dee", "Mom's Pie"}})
        rows::Add("GuestServed", {{"GuestName", guest}, {"RecipeName", recipe}});
    clsGuestServed served;
    served.RenameRecipes("Chili", "Texas Chili");
    EXPECT_EQ(rows::Column("SELECT * FROM GuestServed ORDER BY [GuestName]", "RecipeName"),
              QStringList({"Texas Chili", "Texas Chili", "Chili Dog", "Mom's Pie"}));
    served.RemoveRecipes("Texas Chili");
    served.RemoveRecipes("Mom's Pie");
    EXPECT_EQ(rows::Column("SELECT * FROM GuestServed ORDER BY [GuestName]", "GuestName"), QStringList({"Cy"}));
    served.RemoveRecipes("Nobody's");
    EXPECT_EQ(ui.count(), 0);
}

TEST_F(GuestServedTest, ServingTwiceAsksAndTheAnswerIsTheResult) {
    clsGuestServed served;
    served.GuestName("Ann");
    served.RecipeName("Chili");
    ASSERT_TRUE(served.WriteNew());
    EXPECT_EQ(served.RecipeServed("Chili", "Bob"), Answer::Yes);
    EXPECT_EQ(ui.count(), 0);
    ui.answer(Answer::No);
    EXPECT_EQ(served.RecipeServed(" Chili ", "Ann"), Answer::No);
    EXPECT_EQ(LastBox(), "Notice: The Recipe,  Chili , has already been served to Ann. Do you wish to continue?");
    EXPECT_EQ(ui.lastBox().buttons, 36);
}
