#include "measures/clsAbbreviations.h"
#include "measures/frmMeasureAbbreviations.h"
#include "recipes/PackedIngredient.h"
#include "support/Rows.h"
#include "support/TestEnv.h"

#include <QAction>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QTableWidget>

class MeasureAbbreviationsTest : public LarderTest {
protected:
    void AddRecipeWith(const QString& title, const QMap<int, QString>& packed) {
        QVariantMap cells;
        for (auto it = packed.begin(); it != packed.end(); ++it)
            cells.insert(PackedIngredient::ColumnName(it.key()), it.value());
        rows::Recipe(title, "General", "General", cells);
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
    EXPECT_EQ(form.flxAbbreviation->horizontalHeaderItem(0)->text() + "|" +
                  form.flxAbbreviation->horizontalHeaderItem(1)->text(),
              "Abbr.|Measure Name");
    EXPECT_EQ(form.flxAbbreviation->rowCount(), rows::Count("SELECT * FROM Abbreviation"));
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
    EXPECT_EQ(LastBox(), "Cancel?: The current list of Abbreviations has changed. Do you wish to close this form?");
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
    QStringList names;
    for (const char* unit : {"tin", "baker's spoon", "cup"})
        names +=
            rows::Column("SELECT * FROM Abbreviation WHERE [Abbreviation] = " + rows::Literal(unit), "Description");
    EXPECT_EQ(names, QStringList({"Tin", "Baker's Spoon", "Cupful"}));
    EXPECT_TRUE(form.Lines().contains("baker's spoon|Baker's Spoon"));

    // Saving again writes nothing twice.
    form.mnuSaveAbbreviations->trigger();
    EXPECT_EQ(rows::Count("SELECT * FROM Abbreviation WHERE [Abbreviation] = 'tin'"), 1);
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
