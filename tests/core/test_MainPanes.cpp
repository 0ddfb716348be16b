#include "core/MainPanes.h"

#include <QStandardItem>
#include <gtest/gtest.h>

namespace {

class PanesTest : public ::testing::Test {
protected:
    void SetUp() override { MainPanes::Instance().ClearAll(); }
    void TearDown() override { MainPanes::Instance().ClearAll(); }
    MainPanes& panes = MainPanes::Instance();
};

TEST_F(PanesTest, KeysAreFoundWhoeverAddedTheNodeAndWithoutRegardToCase) {
    QStandardItem* root = panes.AddNode(panes.recipes, "", "Root", "Recipies");
    QStandardItem* soup = panes.AddNode(panes.recipes, "Root", "Soup", "Soup", "RecipeCategory");
    EXPECT_EQ(panes.FindByKey(panes.recipes, "soup"), soup);
    EXPECT_EQ(panes.FindByKey(panes.recipes, "SOUP"), soup);
    EXPECT_EQ(panes.FindByKey(panes.recipes, "Root"), root);

    // A node put straight into the model, already carrying a child, is indexed
    // with its child.
    QStandardItem* fish = MainPanes::MakeNode("Fish", "Fish", "RecipeCategory");
    fish->appendRow(MainPanes::MakeNode("Fish::Cod", "Cod"));
    root->appendRow(fish);
    EXPECT_EQ(panes.FindByKey(panes.recipes, "fish::cod"), fish->child(0));

    // The same key in another pane is another node.
    EXPECT_EQ(panes.FindByKey(panes.coupons, "Soup"), nullptr);
    // No key is never a match, though many nodes have none.
    panes.AddNode(panes.recipes, "Soup", "", "Leek Soup", "Recipe");
    EXPECT_EQ(panes.FindByKey(panes.recipes, ""), nullptr);
    EXPECT_EQ(panes.IndexedKeys(panes.recipes), 4);
}

TEST_F(PanesTest, TheIndexFollowsRemovalsRenamesAndClearing) {
    panes.AddNode(panes.recipes, "", "Root", "Recipies");
    QStandardItem* soup = panes.AddNode(panes.recipes, "Root", "Soup", "Soup");
    panes.AddNode(panes.recipes, "Soup", "Soup::Leek", "Leek");

    // Removing a parent takes its children's keys too.
    soup->parent()->removeRow(soup->row());
    EXPECT_EQ(panes.FindByKey(panes.recipes, "Soup"), nullptr);
    EXPECT_EQ(panes.FindByKey(panes.recipes, "Soup::Leek"), nullptr);

    QStandardItem* stew = panes.AddNode(panes.recipes, "Root", "Stew", "Stew");
    stew->setData("Stews", MainPanes::KeyRole);
    EXPECT_EQ(panes.FindByKey(panes.recipes, "Stew"), nullptr);
    EXPECT_EQ(panes.FindByKey(panes.recipes, "Stews"), stew);
    // Other changes to a node leave its key alone.
    panes.SetBold(stew);
    stew->setText("Hearty Stews");
    EXPECT_EQ(panes.FindByKey(panes.recipes, "stews"), stew);

    panes.recipes.clear();
    EXPECT_EQ(panes.FindByKey(panes.recipes, "Root"), nullptr);
    EXPECT_EQ(panes.IndexedKeys(panes.recipes), 0);
    panes.AddNode(panes.recipes, "", "Root", "Recipies");
    EXPECT_NE(panes.FindByKey(panes.recipes, "Root"), nullptr);
}

TEST_F(PanesTest, OfTwoNodesWithOneKeyTheFirstAddedIsFoundUntilItGoes) {
    QStandardItem* first = panes.AddNode(panes.coupons, "", "Acme", "Acme");
    QStandardItem* second = panes.AddNode(panes.coupons, "", "ACME", "ACME");
    EXPECT_EQ(panes.FindByKey(panes.coupons, "acme"), first);
    panes.Remove(panes.coupons, first);
    EXPECT_EQ(panes.FindByKey(panes.coupons, "acme"), second);
    // Children go under the node the key finds.
    QStandardItem* child = panes.AddNode(panes.coupons, "Acme", "C1", "1-12 oz Oats", "1");
    EXPECT_EQ(child->parent(), second);
}

TEST_F(PanesTest, AllNodesListsParentsBeforeChildrenLevelByLevel) {
    panes.AddNode(panes.meals, "", "Meal::A", "A", "Meal");
    panes.AddNode(panes.meals, "", "Meal::B", "B", "Meal");
    panes.AddNode(panes.meals, "Meal::A", "1App", "Soup", "Recipie");
    panes.AddNode(panes.meals, "Meal::B", "2Main", "Roast", "Recipie");
    QStringList order;
    for (QStandardItem* node : panes.AllNodes(panes.meals)) order << node->text();
    EXPECT_EQ(order, QStringList({"A", "B", "Soup", "Roast"}));
    EXPECT_EQ(panes.FindByTag(panes.meals, "Recipie").size(), 2);
}

TEST_F(PanesTest, ManyThousandNodesStayFindableAfterBulkInsertion) {
    QStandardItem* root = panes.AddNode(panes.recipes, "", "Root", "Recipies");
    QList<QStandardItem*> categories;
    for (int c = 0; c < 40; ++c) {
        QStandardItem* category = MainPanes::MakeNode(QString("Cat %1").arg(c), QString("Cat %1").arg(c));
        QList<QStandardItem*> recipes;
        for (int r = 0; r < 250; ++r) recipes << MainPanes::MakeNode(QString("R%1-%2").arg(c).arg(r), "x");
        category->appendRows(recipes);
        categories << category;
    }
    root->appendRows(categories);
    EXPECT_EQ(panes.IndexedKeys(panes.recipes), 1 + 40 + 40 * 250);
    EXPECT_EQ(panes.FindByKey(panes.recipes, "r39-249"), categories[39]->child(249));
    root->removeRows(0, 20);
    EXPECT_EQ(panes.FindByKey(panes.recipes, "R0-0"), nullptr);
    EXPECT_EQ(panes.IndexedKeys(panes.recipes), 1 + 20 + 20 * 250);
}

}  // namespace
