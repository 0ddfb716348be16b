#include "platform/RuntimeError.h"
#include "recipes/PackedIngredient.h"

#include <gtest/gtest.h>

TEST(PackedIngredient, WritingPadsTheQuantityJoinsTheFieldsAndCutsAtOneHundred) {
    EXPECT_EQ(PackedIngredient::PadQuantity("1"), "      1");
    EXPECT_EQ(PackedIngredient::PadQuantity("  1 1/2 "), "  1 1/2");
    // Nothing to pad, nothing cut.
    EXPECT_EQ(PackedIngredient::PadQuantity("12345678"), "12345678");
    EXPECT_EQ(PackedIngredient::Pack("      2", "cup", "flour", "sifted"), "      2%%cup%%flour%%sifted");

    const QString name(120, QLatin1Char('n'));
    const QString packed = PackedIngredient::Pack("      1", "lb", name, "diced");
    ASSERT_EQ(packed.size(), 100);
    // The cut falls inside the name: the preparation is gone altogether.
    const PackedIngredient p = PackedIngredient::Parse(packed);
    EXPECT_EQ(p.quantity, "1");
    EXPECT_EQ(p.unit, "lb");
    EXPECT_EQ(p.name, QString(100 - 7 - 2 - 2 - 2, QLatin1Char('n')));
    EXPECT_FALSE(p.hasPreparation);
}

TEST(PackedIngredient, ColumnsOfTheLastTwoSlotsAreSpeltInLowerCase) {
    EXPECT_EQ(PackedIngredient::ColumnName(1), "Ingredient1");
    EXPECT_EQ(PackedIngredient::ColumnName(18), "Ingredient18");
    EXPECT_EQ(PackedIngredient::ColumnName(19), "ingredient19");
    EXPECT_EQ(PackedIngredient::ColumnName(20), "ingredient20");
    EXPECT_EQ(PackedIngredient::ColumnName(0), "");
    EXPECT_EQ(PackedIngredient::ColumnName(21), "");
}

TEST(PackedIngredient, FieldReadersTrimTheQuantityAndReadAnEmptyUnitAsEach) {
    const QString packed = "  1 1/2%%%%eggs%%beaten";
    EXPECT_EQ(PackedIngredient::Quantity(packed), "1 1/2");
    EXPECT_EQ(PackedIngredient::Unit(packed), "ea");
    EXPECT_EQ(PackedIngredient::Name(packed), "eggs");
    EXPECT_EQ(PackedIngredient::Field(packed, 3), "beaten");

    // A row with three fields has no preparation, and the name still reads.
    const QString threeFields = "      2%%cup%%milk";
    EXPECT_EQ(PackedIngredient::Name(threeFields), "milk");
    EXPECT_FALSE(PackedIngredient::Parse(threeFields).hasPreparation);
    EXPECT_THROW(PackedIngredient::Field(threeFields, 3), RuntimeError);

    // Text without any separator has no unit field.
    try {
        PackedIngredient::Unit("just salt");
        ADD_FAILURE() << "no error";
    } catch (const RuntimeError& e) {
        EXPECT_EQ(e.description(), "Subscript out of range");
    }
    // The lenient reader never fails.
    const PackedIngredient p = PackedIngredient::Parse("just salt");
    EXPECT_EQ(p.quantity, "just salt");
    EXPECT_EQ(p.fieldCount, 1);
    EXPECT_EQ(PackedIngredient::Parse("").fieldCount, 0);
}

TEST(PackedIngredient, DisplayAndPrintLinesKeepTheirFixedFields) {
    EXPECT_EQ(PackedIngredient::DisplayLine("      2%%cup%%flour%%sifted"), "      2 cu flour");
    EXPECT_EQ(PackedIngredient::DisplayLine("1 1/2%%T%%sugar"), "  1 1/2 T  sugar");
    EXPECT_EQ(PackedIngredient::DisplayLine("      3%%%%eggs"), "      3 ea eggs");
    // A quantity longer than its field is cut to seven places.
    EXPECT_EQ(PackedIngredient::DisplayLine("1234567890%%oz%%cheese"), "1234567 oz cheese");
    EXPECT_EQ(PackedIngredient::DisplayLine("salt"), "   salt ea ");
    EXPECT_EQ(PackedIngredient::PrintLine("      2%%cup%%flour%%sifted"), "      2 cup flour sifted");
}
