#include "measures/clsAbbreviations.h"
#include "measures/frmMeasureAbbreviations.h"
#include "recipes/RecipeTestRows.h"
#include "support/TestEnv.h"

#include <QAction>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QTableWidget>

namespace {

class MeasureAbbreviationsTest : public LarderTest {
protected:
    void AddRecipeWith(const QString& title, const QMap<int, QString>& packed) {
        RecipeRow r = Recipe(title);
        r.packed = packed;
        AddRecipe(r);
    }
    int RowOf(frmMeasureAbbreviations& form, const QString& abbreviation) {
        for (int r = 0; r < form.flxAbbreviation->rowCount(); ++r)
            if (form.flxAbbreviation->item(r, 0)->text() == abbreviation) return r;
        return -1;
    }
    // Closing through the window's close box; true when it closed.
    bool CloseBox(frmMeasureAbbreviations& form) {
        QCloseEvent event;
        QCoreApplication::sendEvent(&form, &event);
        return event.isAccepted();
    }
};

TEST_F(MeasureAbbreviationsTest, TheGridListsEveryStoredUnitWithItsName) {
    frmMeasureAbbreviations form;
    EXPECT_EQ(form.flxAbbreviation->horizontalHeaderItem(0)->text(), "Abbr.");
    EXPECT_EQ(form.flxAbbreviation->horizontalHeaderItem(1)->text(), "Measure Name");
    EXPECT_EQ(form.flxAbbreviation->rowCount(), CountRows("SELECT * FROM Abbreviation"));
    EXPECT_TRUE(form.Lines().contains("tbsp|Tablespoon"));
    EXPECT_FALSE(form.Changed());
    EXPECT_TRUE(CloseBox(form));  // nothing changed, nothing asked
    EXPECT_EQ(ui.count(), 0);
}

TEST_F(MeasureAbbreviationsTest, UnlistedUnitsAreGatheredOnceFromTheFirstEighteenIngredients) {
    AddRecipeWith("Bean Pot", {{1, "1%%tin%%beans%%drained"},
                               {2, "2%%cup%%flour%%"},
                               {3, "3%%%%eggs%%"},
                               {4, "salt to taste"},
                               {5, "1%% Tin %%tomatoes%%"},
                               {18, "1%%baker's spoon%%yeast%%"},
                               {19, "1%%crate%%apples%%"}});
    AddRecipeWith("Stew", {{1, "2%%tin%%stock%%"}, {2, "1%%sprig%%thyme"}});
    frmMeasureAbbreviations form;
    const int stored = form.flxAbbreviation->rowCount();
    form.mnuFindUnlistedAbbr->trigger();
    EXPECT_EQ(form.Lines().mid(stored), QStringList({"tin|", "baker's spoon|", "sprig|"}));
    EXPECT_TRUE(form.Changed());
    // A second search finds nothing new.
    form.mnuFindUnlistedAbbr->trigger();
    EXPECT_EQ(form.flxAbbreviation->rowCount(), stored + 3);
    EXPECT_EQ(ui.count(), 0);
}

TEST_F(MeasureAbbreviationsTest, ClosingWithChangesAsksFirst) {
    AddRecipeWith("Bean Pot", {{1, "1%%tin%%beans%%"}});
    frmMeasureAbbreviations form;
    form.mnuFindUnlistedAbbr->trigger();
    ui.answer(Answer::No);
    EXPECT_FALSE(CloseBox(form));
    ASSERT_EQ(ui.count(), 1);
    EXPECT_EQ(ui.lastBox().prompt, "The current list of Abbreviations has changed. Do you wish to close this form?");
    EXPECT_EQ(ui.lastBox().title, "Cancel?");
    EXPECT_EQ(ui.lastBox().buttons, Box::YesNo + Box::Question);
    ui.answer(Answer::Yes);
    form.mnuClose->trigger();
    EXPECT_EQ(form.result(), int(QDialog::Rejected));
    EXPECT_EQ(ui.count(), 2);
    EXPECT_FALSE(clsAbbreviations().Exists("tin"));  // closing saves nothing
}

TEST_F(MeasureAbbreviationsTest, SavingStoresNewUnitsAndChangedNames) {
    AddRecipeWith("Bean Pot", {{1, "1%%tin%%beans%%"}, {2, "1%%baker's spoon%%yeast%%"}});
    frmMeasureAbbreviations form;
    form.mnuFindUnlistedAbbr->trigger();
    form.flxAbbreviation->item(RowOf(form, "tin"), 1)->setText("Tin");
    form.flxAbbreviation->item(RowOf(form, "cup"), 1)->setText("Cupful");
    ui.answerInput("Baker's Spoon");
    form.mnuSaveAbbreviations->trigger();
    ASSERT_EQ(ui.count(), 1);
    EXPECT_EQ(ui.lastBox().prompt, "What Decription would you like to use for baker's spoon?");
    EXPECT_FALSE(form.Changed());
    EXPECT_EQ(Column("SELECT * FROM Abbreviation WHERE [Abbreviation] = 'tin'", "Description"), QStringList({"Tin"}));
    EXPECT_EQ(Column("SELECT * FROM Abbreviation WHERE [Abbreviation] = 'baker''s spoon'", "Description"),
              QStringList({"Baker's Spoon"}));
    EXPECT_EQ(Column("SELECT * FROM Abbreviation WHERE [Abbreviation] = 'cup'", "Description"),
              QStringList({"Cupful"}));
    EXPECT_TRUE(form.Lines().contains("baker's spoon|Baker's Spoon"));

    // Saving again writes nothing twice.
    form.mnuSaveAbbreviations->trigger();
    EXPECT_EQ(CountRows("SELECT * FROM Abbreviation WHERE [Abbreviation] = 'tin'"), 1);
    EXPECT_TRUE(CloseBox(form));
    EXPECT_EQ(ui.count(), 1);
}

TEST_F(MeasureAbbreviationsTest, DeleteRemovesTheUnitFromTableAndGrid) {
    frmMeasureAbbreviations form;
    const int rows = form.flxAbbreviation->rowCount();
    form.flxAbbreviation->setCurrentCell(RowOf(form, "cup"), 0);
    form.mnuDeleteAbbreviation->trigger();
    EXPECT_FALSE(clsAbbreviations().Exists("cup"));
    EXPECT_EQ(RowOf(form, "cup"), -1);
    EXPECT_EQ(form.flxAbbreviation->rowCount(), rows - 1);

    // A line never saved goes from the grid only.
    form.mnuAddAbbreviation->trigger();
    form.flxAbbreviation->item(rows - 1, 0)->setText("tsp");
    form.flxAbbreviation->setCurrentCell(rows - 1, 0);
    form.mnuDeleteAbbreviation->trigger();
    EXPECT_TRUE(clsAbbreviations().Exists("tsp"));
    EXPECT_EQ(form.flxAbbreviation->rowCount(), rows - 1);
    EXPECT_EQ(ui.count(), 0);
}

}  // namespace
