#include "measures/frmConversions.h"
#include "measures/modConvert.h"
#include "platform/Database.h"
#include "support/Rows.h"
#include "support/TestEnv.h"

#include <QAction>
#include <QLineEdit>
#include <QTableWidget>
#include <QtTest/QTest>

class ConversionsTest : public LarderTest {
protected:
    // The chart row (and column) of a measure, from 1.
    int Index(const QString& measure) {
        return rows::Field("Conversion", "RowDescription", measure, "RowIndex").toInt();
    }
    int FilledInStore() { return rows::Count("SELECT * FROM Conversion WHERE [ConversionConstant] IS NOT NULL"); }
    QString Stored(const QString& from, const QString& to) {
        const QStringList v = rows::Column("SELECT * FROM Conversion WHERE [RowDescription] = " + rows::Literal(from) +
                                               " AND [ColumnDescription] = " + rows::Literal(to),
                                           "ConversionConstant");
        return v.size() == 1 ? v.first() : QStringLiteral("<%1 rows>").arg(v.size());
    }
    // Types into the cell the way a person does: over the cell, then Enter.
    void Type(frmConversions& chart, int row, int column, const QString& text) {
        chart.SelectCell(row, column);
        chart.StartEdit();
        chart.txtField->selectAll();
        QTest::keyClicks(chart.txtField, text);
        QTest::keyClick(chart.txtField, Qt::Key_Return);
    }
};

TEST_F(ConversionsTest, TheChartShowsEveryStoredCellWithItsReadingAndCounts) {
    frmConversions chart;
    const int measures = rows::Count("SELECT * FROM Abbreviation");
    ASSERT_EQ(chart.Measures(), measures);
    EXPECT_EQ(chart.windowTitle(), "Conversion Chart");
    EXPECT_EQ(chart.StatusPanel(2),
              QStringLiteral("Total Cells: %1; Filled Cells: %2").arg(measures * measures).arg(FilledInStore()));

    const int cup = Index("cup"), tbsp = Index("tbsp"), g = Index("g");
    EXPECT_EQ(chart.flxConversionChart->verticalHeaderItem(cup - 1)->text(), "cup");
    EXPECT_EQ(chart.flxConversionChart->horizontalHeaderItem(tbsp - 1)->text(), "tbsp");
    chart.SelectCell(cup, tbsp);
    EXPECT_EQ(chart.StatusPanel(1), "1 cup = 16 tbsp");
    chart.SelectCell(cup, g);  // volume against weight has no constant
    EXPECT_EQ(chart.StatusPanel(1), "");
    EXPECT_EQ(ui.count(), 0);
}

TEST_F(ConversionsTest, ANumberTypedInACellWritesItsReciprocalInTheMirrorCell) {
    frmConversions chart;
    const int cup = Index("cup"), tbsp = Index("tbsp");
    Type(chart, cup, tbsp, "8");
    EXPECT_FALSE(chart.Editing());
    EXPECT_TRUE(chart.txtField->isHidden());
    EXPECT_EQ(chart.Cell(cup, tbsp) + " " + chart.Cell(tbsp, cup), "8 0.125");
    EXPECT_EQ(chart.StatusPanel(1), "1 cup = 8 tbsp");
    EXPECT_TRUE(chart.Changed());

    Type(chart, cup, tbsp, "16");
    EXPECT_EQ(chart.Cell(tbsp, cup), "0.062");  // three places, half to even

    Type(chart, cup, tbsp, "3");
    EXPECT_EQ(chart.Cell(tbsp, cup), "0.333");

    // A zero or a word has no reciprocal: the mirror keeps its value.
    Type(chart, cup, tbsp, "0");
    EXPECT_EQ(chart.Cell(cup, tbsp) + " " + chart.Cell(tbsp, cup), "0 0.333");
    Type(chart, cup, tbsp, "lots");
    EXPECT_EQ(chart.Cell(cup, tbsp) + " " + chart.Cell(tbsp, cup), "lots 0.333");
    EXPECT_EQ(ui.count(), 0);
}

TEST_F(ConversionsTest, TypingInTheGridOpensTheFieldAndEscapeLeavesTheCellAlone) {
    frmConversions chart;
    const int lb = Index("lb"), oz = Index("oz");
    chart.SelectCell(lb, oz);
    QTest::keyClick(chart.flxConversionChart, '2');
    ASSERT_TRUE(chart.Editing());
    EXPECT_EQ(chart.txtField->text(), "2");
    const QRect cell = chart.flxConversionChart->visualRect(chart.flxConversionChart->model()->index(lb - 1, oz - 1));
    EXPECT_EQ(chart.txtField->geometry(), cell);
    QTest::keyClick(chart.txtField, Qt::Key_Escape);
    EXPECT_FALSE(chart.Editing());
    EXPECT_EQ(chart.Cell(lb, oz), "16");
    EXPECT_TRUE(chart.txtField->isHidden());
    EXPECT_FALSE(chart.Changed());

    // Moving to another cell keeps what was typed.
    chart.SelectCell(lb, oz);
    chart.StartEdit("20");
    chart.SelectCell(oz, lb);
    EXPECT_EQ(chart.Cell(lb, oz) + " " + chart.Cell(oz, lb), "20 0.05");
}

TEST_F(ConversionsTest, SavingWritesEveryCellAndMakesNewMeasuresIntoSizes) {
    const int before = rows::Count("SELECT * FROM Conversion");
    const int sizesBefore = rows::Count("SELECT * FROM ItemSize");
    {
        frmConversions chart;
        ui.answerInput("Baker's dozen");
        chart.mnuAddConversion->trigger();
        ui.answerInput("  ");  // a blank name adds nothing
        chart.mnuAddConversion->trigger();
        ui.answerInput("gross");
        chart.mnuAddConversion->trigger();
        const int n = chart.Measures();
        ASSERT_EQ(n, rows::Count("SELECT * FROM Abbreviation") + 2);
        EXPECT_EQ(chart.Cell(n - 1, n - 1), "1");
        EXPECT_EQ(chart.flxConversionChart->horizontalHeaderItem(n - 2)->text(), "Baker's dozen");
        EXPECT_EQ(chart.flxConversionChart->verticalHeaderItem(n - 2)->text(), "Baker's dozen");
        Type(chart, n - 1, Index("ea"), "13");
        Type(chart, Index("cup"), Index("tbsp"), "$16");  // numeric as the store reads it
        chart.mnuSaveGrid->trigger();
        EXPECT_FALSE(chart.Changed());
    }
    const int n = rows::Count("SELECT * FROM Abbreviation") + 2;
    EXPECT_EQ(rows::Count("SELECT * FROM Conversion"), n * n);
    EXPECT_GT(n * n, before);
    EXPECT_EQ(QStringList({Stored("Baker's dozen", "Baker's dozen"), Stored("Baker's dozen", "ea"),
                           Stored("ea", "Baker's dozen"), Stored("Baker's dozen", "cup"), Stored("cup", "tbsp")}),
              QStringList({"1", "13", "0.077", "<null>", "16"}));
    EXPECT_EQ(ConvertUnit("Baker's dozen", "2", "ea"), "26");

    // New measures become sizes without a short form, and asking nothing.
    EXPECT_EQ(rows::Count("SELECT * FROM ItemSize"), sizesBefore + 2);
    EXPECT_EQ(rows::Column("SELECT * FROM ItemSize WHERE [Name] = 'gross'", "Abbreviation"), QStringList({"<null>"}));
    const QString ask = "What is the name of the measurement that you want to add?";
    EXPECT_EQ(ui.prompts("InputBox"), QStringList({ask, ask, ask}));
    EXPECT_EQ(ui.boxes().first().title, "Add Measurement");
    EXPECT_EQ(ui.prompts("MsgBox").size(), 0);

    // The chart reads back as it was saved.
    frmConversions again;
    EXPECT_EQ(again.Measures(), n);
    EXPECT_EQ(again.Cell(n - 1, Index("ea")), "13");
    EXPECT_EQ(again.Cell(Index("ea"), n - 1), "0.077");
}

TEST_F(ConversionsTest, ABadCellIsNamedAndTheStoredChartStaysWhole) {
    const int filled = FilledInStore();
    frmConversions chart;
    const int cup = Index("cup"), pt = Index("pt");
    Type(chart, cup, pt, "1/2");
    chart.SelectCell(cup, pt);
    chart.mnuHideConversion->trigger();
    chart.SelectCell(1, 1);
    ui.answer(Answer::OK);
    chart.mnuSaveGrid->trigger();
    ASSERT_EQ(ui.count(), 1);
    EXPECT_EQ(LastBox(),
              QStringLiteral("Data Error: Error in Row: %1, Column: %2; 1/2, Please correct").arg(cup).arg(pt));
    EXPECT_EQ(Stored("cup", "pt"), "0.5");
    EXPECT_EQ(FilledInStore(), filled);
    // The cell is shown and chosen, ready for the correction.
    EXPECT_FALSE(chart.flxConversionChart->isRowHidden(cup - 1));
    EXPECT_FALSE(chart.flxConversionChart->isColumnHidden(pt - 1));
    EXPECT_EQ(chart.flxConversionChart->currentRow(), cup - 1);
    EXPECT_EQ(chart.flxConversionChart->currentColumn(), pt - 1);
    EXPECT_TRUE(chart.Changed());

    Type(chart, cup, pt, "0.5");
    chart.mnuSaveGrid->trigger();
    EXPECT_EQ(ui.count(), 1);
    EXPECT_EQ(Stored("cup", "pt") + " " + Stored("pt", "cup"), "0.5 2");
}

TEST_F(ConversionsTest, HidingTakesTheCurrentRowAndColumnAndShowAllBringsThemBack) {
    frmConversions chart;
    const int cup = Index("cup"), tsp = Index("tsp");
    chart.SelectCell(cup, tsp);
    chart.mnuHideConversion->trigger();
    EXPECT_TRUE(chart.flxConversionChart->isRowHidden(cup - 1));
    EXPECT_TRUE(chart.flxConversionChart->isColumnHidden(tsp - 1));
    EXPECT_FALSE(chart.flxConversionChart->isRowHidden(tsp - 1));
    chart.mnuShowAllCells->trigger();
    for (int i = 0; i < chart.Measures(); ++i) {
        EXPECT_FALSE(chart.flxConversionChart->isRowHidden(i));
        EXPECT_FALSE(chart.flxConversionChart->isColumnHidden(i));
    }
}

TEST_F(ConversionsTest, TheEditMenuOnlyAnswersThatItIsNotThere) {
    frmConversions chart;
    for (QAction* a : {chart.mnuEditCut, chart.mnuEditCopy, chart.mnuEditPaste, chart.mnuEditDelete}) {
        ui.answer(Answer::OK);
        a->trigger();
        EXPECT_EQ(LastBox(), "Coming Soon: This feature will be added soon!");
    }
    EXPECT_EQ(ui.count(), 4);
    EXPECT_FALSE(chart.Changed());
}

TEST_F(ConversionsTest, AnEmptyChartStartsEmptyAndGrowsFromNothing) {
    ConnectionMain().ExecScript("DELETE FROM Conversion;");
    frmConversions chart;
    EXPECT_EQ(chart.Measures(), 0);
    EXPECT_EQ(chart.StatusPanel(2), "Total Cells: 0; Filled Cells: 0");
    chart.StartEdit("5");  // no cell to type in
    EXPECT_FALSE(chart.Editing());
    ui.answerInput("jug");
    chart.mnuAddConversion->trigger();
    EXPECT_EQ(chart.StatusPanel(2), "Total Cells: 1; Filled Cells: 1");
    EXPECT_EQ(chart.StatusPanel(1), "1 jug = 1 jug");
}
