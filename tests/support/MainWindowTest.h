#pragma once

#include "app/frmMain.h"
#include "core/Globals.h"
#include "core/MainPanes.h"
#include "recipes/RecipeComparisons.h"
#include "support/Rows.h"
#include "support/TestEnv.h"

#include <QAction>
#include <QStandardItem>
#include <QTreeView>

// The main window's checks: each starts with bare panes and no recipes compared.
class MainWindowTest : public LarderTest {
protected:
    void SetUp() override {
        LarderTest::SetUp();
        RecipeComparisons::Instance().Clear();
    }

    // Three recipes of the cookbook "General", one a favourite and one in two
    // categories, loaded into the window's tree.
    void LoadRecipes(frmMain& w) {
        rows::Recipe("Leek Soup", "Soup", "General", {{"TimesUsed", 0}});
        rows::Recipe("Apple Pie", "Dessert", "General", {{"TimesUsed", 0}, {"Favorite", true}});
        rows::Recipe("Fish Stew", "Soup,Fish", "General", {{"TimesUsed", 0}});
        CurrentCookbook = "General";
        w.LoadRecipies();
    }

    // The recipe `title` as filed under `category`, or null.
    QStandardItem* RecipeNode(const QString& category, const QString& title) {
        QStandardItem* c = panes.FindByKey(panes.recipes, category);
        for (int r = 0; c && r < c->rowCount(); ++r)
            if (c->child(r)->text() == title) return c->child(r);
        return nullptr;
    }

    static QStringList Children(QStandardItem* node) {
        QStringList out;
        for (int r = 0; node && r < node->rowCount(); ++r) out << node->child(r)->text();
        return out;
    }

    // Every cell of one column of a flat pane.
    static QStringList Cells(const QStandardItemModel& model, int column) {
        QStringList out;
        for (int r = 0; r < model.rowCount(); ++r) out << model.item(r, column)->text();
        return out;
    }

    // Every row of a flat pane, its cells joined by "|".
    static QStringList Lines(const QStandardItemModel& model) {
        QStringList out;
        for (int r = 0; r < model.rowCount(); ++r) {
            QStringList cells;
            for (int c = 0; c < model.columnCount(); ++c) cells << model.item(r, c)->text();
            out << cells.join('|');
        }
        return out;
    }

    static bool Hidden(QTreeView* view, QStandardItem* node) {
        return view->isRowHidden(node->index().row(), node->index().parent());
    }
    static QString Caption(frmMain& w, const QString& name) { return w.menus.value(name)->text(); }
    static bool Enabled(frmMain& w, const QString& name) { return w.menus.value(name)->isEnabled(); }

    MainPanes& panes = MainPanes::Instance();
};
