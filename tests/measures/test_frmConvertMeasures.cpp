#include "measures/frmConvertMeasures.h"
#include "support/Rows.h"
#include "support/TestEnv.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QSet>
#include <QToolButton>

class ConvertMeasuresTest : public LarderTest {
protected:
    // Runs a conversion and gives the text of the result box.
    QString Convert(frmConvertMeasures& form, const QString& quantity, const QString& from, const QString& to) {
        form.txtQuantity->setText(quantity);
        form.txtQuantity_LostFocus();
        EXPECT_TRUE(form.selectFromUnit(from));
        EXPECT_TRUE(form.selectToUnit(to));
        EXPECT_TRUE(form.cmdCalculate->isEnabled()) << quantity.toStdString();
        ui.answer(Answer::OK);
        form.cmdCalculate->click();
        EXPECT_EQ(ui.lastBox().title, "Result");
        EXPECT_EQ(ui.lastBox().buttons, Box::Information);
        return ui.lastBox().prompt;
    }
    static void SetConstant(const QString& from, const QString& to, const QVariant& value) {
        rows::Set("SELECT * FROM Conversion WHERE [RowDescription] = " + rows::Literal(from) +
                      " AND [ColumnDescription] = " + rows::Literal(to),
                  "ConversionConstant", value);
    }
};

TEST_F(ConvertMeasuresTest, BothListsHoldEachChartMeasureOnceUnderASelectLine) {
    frmConvertMeasures form;
    EXPECT_EQ(form.windowTitle(), "Measurement Conversion");
    const int measures = rows::Count("SELECT * FROM Abbreviation");
    for (QComboBox* box : {form.cboFromUnit, form.cboToUnit}) {
        ASSERT_EQ(box->count(), measures + 1);
        EXPECT_EQ(box->itemText(0), "<Select>");
        EXPECT_EQ(box->currentIndex(), 0);
        QSet<QString> seen;
        for (int i = 1; i < box->count(); ++i) seen.insert(box->itemText(i));
        EXPECT_EQ(seen.size(), measures);
    }
    EXPECT_TRUE(form.selectFromUnit("CUP"));
    EXPECT_EQ(form.cboFromUnit->currentText(), "cup");
    EXPECT_FALSE(form.selectFromUnit("bucket"));
    EXPECT_FALSE(form.selectToUnit("<Select>"));
}

TEST_F(ConvertMeasuresTest, CalculateOpensOnlyWithTwoMeasuresAndANumber) {
    frmConvertMeasures form;
    EXPECT_FALSE(form.cmdCalculate->isEnabled());
    form.txtQuantity->setText("2");
    EXPECT_FALSE(form.cmdCalculate->isEnabled());
    form.selectFromUnit("cup");
    EXPECT_FALSE(form.cmdCalculate->isEnabled());
    form.selectToUnit("tbsp");
    EXPECT_TRUE(form.cmdCalculate->isEnabled());
    for (const char* bad : {"", "abc", "1 1/2"}) {
        form.txtQuantity->setText(bad);
        EXPECT_FALSE(form.cmdCalculate->isEnabled()) << bad;
    }
    // Leaving the box turns a written fraction into its decimal.
    form.txtQuantity_LostFocus();
    EXPECT_EQ(form.txtQuantity->text(), "1.5");
    EXPECT_TRUE(form.cmdCalculate->isEnabled());
    form.cboToUnit->setCurrentIndex(0);
    EXPECT_FALSE(form.cmdCalculate->isEnabled());
    EXPECT_EQ(ui.count(), 0);
}

TEST_F(ConvertMeasuresTest, ALoneFractionReportsAndBecomesZero) {
    frmConvertMeasures form;
    form.txtQuantity->setText("1/2");
    ui.answer(Answer::OK);
    form.txtQuantity_LostFocus();
    EXPECT_EQ(ui.lastBox().prompt, "Error: Subscript out of range (Occurred in Convert.FractionToDecimal)");
    EXPECT_EQ(form.txtQuantity->text(), "0");
    form.txtQuantity->setText("2 1/0");  // a zero denominator adds nothing, quietly
    form.txtQuantity_LostFocus();
    EXPECT_EQ(form.txtQuantity->text(), "2");
    EXPECT_EQ(ui.count(), 1);
}

TEST_F(ConvertMeasuresTest, TheResultShowsAFractionWhereOneFitsAndTheDecimalOtherwise) {
    frmConvertMeasures form;
    EXPECT_EQ(Convert(form, "1", "cup", "tbsp"), "1 cup = 16 tbsp");
    EXPECT_EQ(Convert(form, "1 1/2", "cup", "pt"), "1.5 cup =  3/4 pt");  // the fraction's own blank stays
    EXPECT_EQ(Convert(form, "3", "tsp", "tbsp"), "3 tsp = 1 tbsp");
    EXPECT_EQ(Convert(form, "5", "tsp", "tbsp"), "5 tsp = 1 2/3 tbsp");
    EXPECT_EQ(Convert(form, "100", "g", "kg"), "100 g =  1/10 kg");
    EXPECT_EQ(Convert(form, "3", "kg", "g"), "3 kg = 3000 g");
    EXPECT_EQ(Convert(form, "1", "ml", "l"), "1 ml = 0.001 l");
}

TEST_F(ConvertMeasuresTest, AMissingConstantOffersTheChart) {
    frmConvertMeasures form;
    form.txtQuantity->setText("2");
    form.selectFromUnit("cup");
    form.selectToUnit("tbsp");
    SetConstant("cup", "tbsp", 0);  // a zero means no conversion is known
    ui.answer(Answer::No);
    form.cmdCalculate->click();
    ASSERT_EQ(ui.count(), 1);
    EXPECT_EQ(LastBox(), "Add Constant: The required conversion constant does no exist, Do you wish to add it?");
    EXPECT_EQ(ui.lastBox().buttons, Box::YesNo + Box::Question);

    // An empty cell knows no constant and is offered the same way.
    form.selectToUnit("g");
    ui.answer(Answer::Yes);
    QString opened;
    ui.answerModal([&](QDialog* d) {
        opened = d->objectName() + "|" + d->windowTitle();
        return int(QDialog::Rejected);
    });
    form.cmdCalculate->click();
    EXPECT_EQ(ui.prompts().mid(1),
              QStringList({"The required conversion constant does no exist, Do you wish to add it?"}));
    EXPECT_EQ(opened, "frmConversions|Conversion Chart");
    // The lists come back with the choices kept.
    EXPECT_EQ(form.cboFromUnit->currentText() + ">" + form.cboToUnit->currentText(), "cup>g");
}

TEST_F(ConvertMeasuresTest, AResultTooBigForTheFixedPointIsReportedNotShown) {
    SetConstant("cup", "tbsp", 1e15);
    frmConvertMeasures form;
    form.txtQuantity->setText("1000");
    form.selectFromUnit("cup");
    form.selectToUnit("tbsp");
    ui.answer(Answer::OK);
    form.cmdCalculate->click();
    ASSERT_EQ(ui.count(), 1);
    EXPECT_EQ(ui.lastBox().prompt, "Error: Overflow (Occurred in frmConvertMeasures.cmdCalculate_Click)");
}

TEST_F(ConvertMeasuresTest, TheUpDownStepsByOneAndStopsAtZero) {
    frmConvertMeasures form;
    QStringList shown;
    for (const auto& [start, up] :
         QList<QPair<QString, bool>>{{"2", true}, {"0.5", false}, {"0", false}, {"abc", true}}) {
        form.txtQuantity->setText(start);
        (up ? form.udQuantityUp : form.udQuantityDown)->click();
        shown << form.txtQuantity->text();
    }
    EXPECT_EQ(shown, QStringList({"3", "0", "0", "1"}));
}
