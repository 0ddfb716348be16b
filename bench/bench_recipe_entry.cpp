// The recipe entry screen and the recipe window under a big household: the
// screen opens with the whole nutrition list in its item box, a typed recipe of
// fifteen lines is saved, and a recipe is shown as text.
#include "Fixture.h"
#include "platform/Recordset.h"
#include "platform/ScriptedUi.h"
#include "recipes/frmNewRecipies.h"
#include "recipes/frmRecipieQuickView.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>
#include <benchmark/benchmark.h>

namespace {

using Fixture::CheckQuiet;

void BM_RecipeEntryOpens(benchmark::State& state) {
    Fixture::Household();
    for (auto _ : state) {
        frmNewRecipies form;
        if (form.cboItem->count() < 1000) state.SkipWithError("nutrition list not loaded");
    }
    CheckQuiet(state);
}
BENCHMARK(BM_RecipeEntryOpens)->Unit(benchmark::kMillisecond);

void BM_RecipeEntrySavesFifteenLines(benchmark::State& state) {
    Fixture::Household();
    frmNewRecipies form;
    int n = 0;
    for (auto _ : state) {
        state.PauseTiming();
        form.txtName->setText(QStringLiteral("Bench Stew %1").arg(++n));
        form.txtStyles->setText(QStringLiteral("Soups"));
        for (int i = 1; i <= 15; ++i) {
            form.cboQuantity->setEditText(QString::number(i));
            form.cboUnit->setEditText(QStringLiteral("cup"));
            form.cboItem->setEditText(QStringLiteral("Ingredient %1").arg(i));
            form.cmdAddIngred_Click();
        }
        Fixture::Boxes().clear();
        state.ResumeTiming();
        form.cmdAdd_Click();  // the name question takes its default, Yes
    }
    // Only the name question may have been asked.
    if (Fixture::Boxes().count() != 1) CheckQuiet(state);
    Fixture::Boxes().clear();
}
BENCHMARK(BM_RecipeEntrySavesFifteenLines)->Unit(benchmark::kMillisecond);

void BM_RecipeQuickView(benchmark::State& state) {
    Recordset rs;
    rs.Open("SELECT [Title] FROM Recipie ORDER BY [Title] DESC", Fixture::Household(), adOpenKeyset, adLockReadOnly);
    for (int i = 0; i < 10; ++i) rs.MoveNext();
    const QString title = rs.Field("Title").toString();
    rs.Close();
    for (auto _ : state) {
        frmRecipieQuickView view;
        view.Display(title);
    }
    CheckQuiet(state);
}
BENCHMARK(BM_RecipeQuickView)->Unit(benchmark::kMillisecond);

}  // namespace
