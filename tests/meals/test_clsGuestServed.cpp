#include "meals/clsGuestServed.h"
#include "recipes/RecipeTestRows.h"
#include "support/TestEnv.h"

namespace {

class GuestServedTest : public LarderTest {};

}  // namespace

TEST_F(GuestServedTest, RenameAndRemoveFollowTheRecipeAcrossGuests) {
    AddGuestServed("Ann", "Chili");
    AddGuestServed("Bob", "Chili");
    AddGuestServed("Cy", "Chili Dog");
    AddGuestServed("Dee", "Mom's Pie");
    clsGuestServed served;
    served.RenameRecipes("Chili", "Texas Chili");
    EXPECT_EQ(Column("SELECT * FROM GuestServed ORDER BY [GuestName]", "RecipeName"),
              QStringList({"Texas Chili", "Texas Chili", "Chili Dog", "Mom's Pie"}));
    served.RemoveRecipes("Texas Chili");
    served.RemoveRecipes("Mom's Pie");
    EXPECT_EQ(Column("SELECT * FROM GuestServed ORDER BY [GuestName]", "GuestName"), QStringList({"Cy"}));
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
    EXPECT_EQ(ui.lastBox().prompt, "The Recipe,  Chili , has already been served to Ann. Do you wish to continue?");
    EXPECT_EQ(ui.lastBox().title, "Notice");
    EXPECT_EQ(ui.lastBox().buttons, 36);
}
