// A recipe of eighteen ingredients onto a Current list of 500 rows among
// 100,000: half of its items stand on the list already and merge, half are
// new. The main window is open, so the list pane of 500 rows is read again as
// the person would see it; the "List Add" box is answered by the recorded
// message service.
#include "Fixture.h"
#include "app/frmMain.h"
#include "core/Globals.h"
#include "core/MainPanes.h"
#include "core/clsRegistry.h"
#include "platform/Database.h"
#include "platform/Recordset.h"
#include "platform/ScriptedUi.h"
#include "platform/Ui.h"
#include "recipes/PackedIngredient.h"
#include "recipes/clsRecipies.h"

#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace {

const QString kTitle = QStringLiteral("Bench Stew");

struct Household {
    QString list;
    QList<qint64> merged;  // the rows the recipe's first nine items merge into
};

// The household's last five lists are current (500 rows); the recipe's first
// nine items are the first nine of the last list, in their sizes.
Household Open(const QString& folder) {
    Fixture::OpenFreshHousehold(folder);
    WriteBatch batch(ConnectionMain());
    Recordset rs;
    rs.Open("SELECT * FROM ShopList WHERE [ID] > 99500", ConnectionMain(), adOpenKeyset, adLockOptimistic);
    for (; !rs.IsEOF(); rs.MoveNext()) {
        rs.setField("IsCurrent", true);
        rs.Update();
    }
    Household h;
    QVariantMap recipe{{"Title", kTitle}, {"Style", "Stew"}, {"CookbookName", "General"}, {"TimesUsed", 0}};
    rs.Open("SELECT * FROM ShopList WHERE [ID] >= 99901 ORDER BY [ID]", ConnectionMain(), adOpenKeyset, adLockReadOnly);
    h.list = rs.Field("Name").toString();
    for (int i = 1; i <= 18; ++i, rs.MoveNext()) {
        const bool merge = i <= 9;
        if (merge) h.merged << rs.Field("ID").toLongLong();
        const QString item = merge ? rs.Field("ItemName").toString() : QStringLiteral("Bench item %1").arg(i);
        const QString size = merge ? rs.Field("ItemSize").toString() : QStringLiteral("cup");
        recipe.insert(PackedIngredient::ColumnName(i),
                      PackedIngredient::Pack(PackedIngredient::PadQuantity(i % 2 ? "1 1/2" : "3"), size, item, ""));
    }
    rs.Open("SELECT * FROM Recipie", ConnectionMain(), adOpenStatic, adLockOptimistic);
    rs.AddNew();
    for (auto it = recipe.begin(); it != recipe.end(); ++it) rs.setField(it.key(), it.value());
    rs.Update();
    return h;
}

// Every run starts from the same list: the recipe's own rows go, the merged
// quantities are "2" again.
void Reset(const Household& h) {
    Recordset rs;
    rs.Open("SELECT * FROM ShopList WHERE [ItemStyle] = 'Bench Stew'", ConnectionMain(), adOpenKeyset,
            adLockOptimistic);
    while (!rs.IsEOF()) {
        rs.Delete();
        rs.MoveNext();
    }
    for (qint64 id : h.merged) {
        rs.Open(QStringLiteral("SELECT [ItemQuantity] FROM ShopList WHERE [ID] = %1").arg(id), ConnectionMain(),
                adOpenKeyset, adLockOptimistic);
        rs.setField("ItemQuantity", "2");
        rs.Update();
    }
}

void Check(benchmark::State& state, ScriptedUi& ui) {
    if (ui.count() != 1 || ui.lastBox().title != QLatin1String("List Add"))
        state.SkipWithError(ui.count() ? ui.lastBox().prompt.toStdString().c_str() : "no box");
}

void BM_GenerateListOnto500(benchmark::State& state) {
    static QTemporaryDir dir;
    const Household h = Open(dir.filePath("home"));
    Fixture::Window();
    ScriptedUi& ui = Fixture::Boxes();
    for (auto _ : state) {
        state.PauseTiming();
        Reset(h);
        ui.clear();
        state.ResumeTiming();
        QString title = kTitle;
        QString list = h.list;
        clsRecipies().GenerateList(title, list);
        state.PauseTiming();
        Check(state, ui);
        state.ResumeTiming();
    }
    state.counters["current_rows"] = Fixture::CurrentListRows();
    state.counters["pane_rows"] = MainPanes::Instance().currentList.rowCount();
    ui.clear();
}
BENCHMARK(BM_GenerateListOnto500)->Unit(benchmark::kMillisecond);

// The whole drop on the list pane: generation, the drop's own count and the
// one reload of the pane.
void BM_DropRecipeOnList500(benchmark::State& state) {
    static QTemporaryDir dir;
    const Household h = Open(dir.filePath("home"));
    frmMain& w = Fixture::Window();
    Registry().CurrentShoppingList(h.list);
    Registry().PromptBeforeAddSet(false);
    ScriptedUi& ui = Fixture::Boxes();
    for (auto _ : state) {
        state.PauseTiming();
        Reset(h);
        ui.clear();
        state.ResumeTiming();
        w.lvCurrentList_DragDrop(kTitle);
        state.PauseTiming();
        Check(state, ui);
        state.ResumeTiming();
    }
    state.counters["current_rows"] = Fixture::CurrentListRows();
    state.counters["pane_rows"] = MainPanes::Instance().currentList.rowCount();
    ui.clear();
}
BENCHMARK(BM_DropRecipeOnList500)->Unit(benchmark::kMillisecond);

}  // namespace
