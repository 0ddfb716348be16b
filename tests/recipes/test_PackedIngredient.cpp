#include "recipes/PackedIngredient.h"
#include "support/TestEnv.h"

using P = PackedIngredient;

TEST(PackedIngredient, WritingPadsTheQuantityJoinsTheFieldsAndCutsAtOneHundred) {
    // Nothing to pad, nothing cut.
    EXPECT_EQ(QStringList({P::PadQuantity("1"), P::PadQuantity("  1 1/2 "), P::PadQuantity("12345678")}),
              QStringList({"      1", "  1 1/2", "12345678"}));
    EXPECT_EQ(P::Pack("      2", "cup", "flour", "sifted"), "      2%%cup%%flour%%sifted");

    const QString packed = P::Pack("      1", "lb", QString(120, 'n'), "diced");
    ASSERT_EQ(packed.size(), 100);
    // The cut falls inside the name: the preparation is gone altogether.
    const P p = P::Parse(packed);
    EXPECT_EQ(QStringList({p.quantity, p.unit, p.name}), QStringList({"1", "lb", QString(100 - 7 - 2 - 2 - 2, 'n')}));
    EXPECT_FALSE(p.hasPreparation);
}

TEST(PackedIngredient, ColumnsOfTheLastTwoSlotsAreSpeltInLowerCase) {
    QStringList names;
    for (int slot : {1, 18, 19, 20, 0, 21}) names << P::ColumnName(slot);
    EXPECT_EQ(names, QStringList({"Ingredient1", "Ingredient18", "ingredient19", "ingredient20", "", ""}));
}

TEST(PackedIngredient, FieldReadersTrimTheQuantityAndReadAnEmptyUnitAsEach) {
    const QString packed = "  1 1/2%%%%eggs%%beaten";
    EXPECT_EQ(QStringList({P::Quantity(packed), P::Unit(packed), P::Name(packed), P::Field(packed, 3)}),
              QStringList({"1 1/2", "ea", "eggs", "beaten"}));

    // A row with three fields has no preparation, and the name still reads.
    const QString threeFields = "      2%%cup%%milk";
    EXPECT_EQ(P::Name(threeFields), "milk");
    EXPECT_FALSE(P::Parse(threeFields).hasPreparation);
    EXPECT_EQ(ErrorOf([&] { P::Field(threeFields, 3); }), "Subscript out of range");
    // Text without any separator has no unit field; the lenient reader never fails.
    EXPECT_EQ(ErrorOf([] { P::Unit("just salt"); }), "Subscript out of range");
    const P p = P::Parse("just salt");
    EXPECT_EQ(p.quantity, "just salt");
    EXPECT_EQ(p.fieldCount, 1);
    EXPECT_EQ(P::Parse("").fieldCount, 0);
}

TEST(PackedIngredient, DisplayAndPrintLinesKeepTheirFixedFields) {
    const std::pair<const char*, const char*> lines[] = {
        {"      2%%cup%%flour%%sifted", "      2 cu flour"},
        {"1 1/2%%T%%sugar", "  1 1/2 T  sugar"},
        {"      3%%%%eggs", "      3 ea eggs"},
        {"1234567890%%oz%%cheese", "1234567 oz cheese"},  // a quantity longer than its field is cut to seven
        {"salt", "   salt ea "}};
    for (const auto& [packed, shown] : lines) EXPECT_EQ(P::DisplayLine(packed), shown) << packed;
    EXPECT_EQ(P::PrintLine("      2%%cup%%flour%%sifted"), "      2 cup flour sifted");
}
