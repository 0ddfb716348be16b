#include "core/Globals.h"
#include "core/clsRegistry.h"
#include "measures/frmConversionsUtility.h"
#include "measures/frmMeasures.h"
#include "support/Rows.h"
#include "support/TestEnv.h"

#include <QAction>
#include <QTreeWidget>

using MeasuresTest = LarderTest;

bool OnTop(const QWidget& w) { return w.windowFlags() & Qt::WindowStaysOnTopHint; }

TEST_F(MeasuresTest, BothListsShowTheirTables) {
    frmMeasures measures;
    EXPECT_EQ(measures.lvList->headerItem()->text(0) + "|" + measures.lvList->headerItem()->text(1), "Ab.|Desc.");
    EXPECT_EQ(measures.Lines().size(), rows::Count("SELECT * FROM Abbreviation"));
    EXPECT_TRUE(measures.Lines().contains("tbsp|Tablespoon"));

    frmConversionsUtility sizes;
    EXPECT_EQ(sizes.lvList->headerItem()->text(0) + "|" + sizes.lvList->headerItem()->text(1), "Name|Abbreviation");
    EXPECT_EQ(sizes.Lines().size(), rows::Count("SELECT * FROM ItemSize"));
    EXPECT_TRUE(sizes.Lines().contains("fl oz|fl oz"));
    EXPECT_EQ(ui.count(), 0);
}

TEST_F(MeasuresTest, TheDockButtonKeepsTheListOnTopAndRemembersIt) {
    {
        frmMeasures measures;
        EXPECT_FALSE(measures.Docked());
        EXPECT_FALSE(OnTop(measures));
        EXPECT_EQ(measures.tbDock->text(), "Click to Keep on top");
        measures.tbDock->trigger();
        EXPECT_TRUE(OnTop(measures));
        EXPECT_EQ(measures.tbDock->text(), "Click to Release");
        EXPECT_TRUE(Registry().DockMeasurements());
    }
    frmMeasures again;
    EXPECT_TRUE(again.Docked());
    EXPECT_TRUE(OnTop(again));
    EXPECT_EQ(again.tbDock->text(), "Click to Release");
    again.show();
    again.tbDock->trigger();
    EXPECT_TRUE(again.isVisible());  // releasing does not lose the window
    EXPECT_FALSE(OnTop(again));
    EXPECT_FALSE(Registry().DockMeasurements());
}

TEST_F(MeasuresTest, TheSizesListDocksWithoutTouchingTheMeasuresSetting) {
    frmConversionsUtility sizes;
    sizes.tbDock->trigger();
    EXPECT_TRUE(OnTop(sizes));
    EXPECT_EQ(sizes.tbDock->text(), "Click to Release");
    EXPECT_FALSE(Registry().DockMeasurements());
}
