// The shopping-list store on a big household: adding to a Current list of 500
// rows among 100,000, and the store pass over those 500 rows.
#include "Fixture.h"
#include "core/Globals.h"
#include "lists/clsShopList.h"
#include "lists/frmShoppingList.h"
#include "platform/Database.h"
#include "platform/Recordset.h"
#include "platform/ScriptedUi.h"
#include "platform/Ui.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTreeWidget>
#include <memory>
#include <benchmark/benchmark.h>

namespace {

// The household's last list is current; the four before it join it, so that
// 500 rows are current. Every tenth of them is an Aldi item of the Aldi brand
// (a manufacturer is named after the store), and every fiftieth holds an Aldi
// coupon: the store pass asks 50 questions and shows 10 notices.
void OpenHousehold(const QString& folder) {
    Fixture::OpenFreshHousehold(folder);
    WriteBatch batch(ConnectionMain());
    Recordset rs;
    rs.Open("SELECT * FROM Manufacturer", ConnectionMain(), adOpenStatic, adLockOptimistic);
    rs.AddNew();
    rs.setField("Name", "Aldi Fresh");
    rs.Update();
    rs.Open("SELECT * FROM Coupons", ConnectionMain(), adOpenStatic, adLockOptimistic);
    rs.AddNew();
    rs.setField("Manufacturer", "Aldi");
    rs.setField("Product", "Bench beans");
    rs.Update();
    const int coupon = rs.Field("ID").toInt();
    rs.Open("SELECT * FROM ShopList WHERE [ID] > 99500", ConnectionMain(), adOpenKeyset, adLockOptimistic);
    for (int i = 0; !rs.IsEOF(); rs.MoveNext(), ++i) {
        rs.setField("IsCurrent", true);
        if (i % 10 == 0) {
            rs.setField("Store", "Aldi");
            rs.setField("ItemManufacturer", "Aldi");
        }
        if (i % 50 == 0) rs.setField("CouponID", coupon);
        rs.Update();
    }
}

// The first current row of the household's last list, whose quantity each
// run puts back to "2" so that every merge joins the same texts.
struct Target {
    QString list, item, size;
    qint64 id = 0;
};

Target FirstOfLastList() {
    Recordset rs;
    rs.Open("SELECT * FROM ShopList WHERE [ID] = 99901", ConnectionMain(), adOpenStatic, adLockReadOnly);
    return {rs.Field("Name").toString(), rs.Field("ItemName").toString(), rs.Field("ItemSize").toString(), 99901};
}

void ResetQuantity(const Target& t) {
    Recordset rs;
    rs.Open(QStringLiteral("SELECT [ItemQuantity] FROM ShopList WHERE [ID] = %1").arg(t.id), ConnectionMain(),
            adOpenKeyset, adLockOptimistic);
    rs.setField("ItemQuantity", "2");
    rs.Update();
}

void Fill(clsShopList& shop, const QString& list, const QString& item, const QString& size, bool current) {
    shop.Name(list);
    shop.ItemName(item);
    shop.ItemQuantity("3");
    shop.ItemSize(size);
    shop.Store("Any");
    shop.ItemManufacturer("Any");
    shop.IsCurrent(current);
}

void BM_AddItemMerge(benchmark::State& state) {
    static QTemporaryDir dir;
    OpenHousehold(dir.filePath("home"));
    const Target t = FirstOfLastList();
    Fixture::Boxes().clear();
    for (auto _ : state) {
        state.PauseTiming();
        ResetQuantity(t);
        clsShopList shop;
        Fill(shop, t.list, t.item, t.size, true);
        state.ResumeTiming();
        if (shop.AddItem()) state.SkipWithError("the item was added, not merged");
    }
    state.counters["current_rows"] = Fixture::CurrentListRows();
    Fixture::CheckQuiet(state);
}
BENCHMARK(BM_AddItemMerge)->Unit(benchmark::kMillisecond);

void BM_AddItemNewRow(benchmark::State& state) {
    static QTemporaryDir dir;
    OpenHousehold(dir.filePath("home"));
    const Target t = FirstOfLastList();
    Fixture::Boxes().clear();
    int n = 0;
    for (auto _ : state) {
        state.PauseTiming();
        clsShopList shop;
        // Saved but not current, so that the Current list stays at 500 rows.
        Fill(shop, t.list, QStringLiteral("Bench item %1").arg(n++), "can", false);
        state.ResumeTiming();
        if (!shop.AddItem()) state.SkipWithError("no row was added");
    }
    state.counters["current_rows"] = Fixture::CurrentListRows();
    Fixture::CheckQuiet(state);
}
BENCHMARK(BM_AddItemNewRow)->Unit(benchmark::kMillisecond);

// The questions are answered No, so every run asks them again.
void BM_MarkListForStore500(benchmark::State& state) {
    static QTemporaryDir dir;
    OpenHousehold(dir.filePath("home"));
    ScriptedUi& ui = Fixture::Boxes();
    for (auto _ : state) {
        state.PauseTiming();
        ui.clear();
        for (int i = 0; i < 60; ++i) ui.answer(Answer::No);  // the notices take one each
        state.ResumeTiming();
        clsShopList().MarkListForStore("Kroger", "");
        state.PauseTiming();
        state.counters["boxes"] = ui.count();
        state.ResumeTiming();
    }
    state.counters["current_rows"] = Fixture::CurrentListRows();
    ui.clear();
}
BENCHMARK(BM_MarkListForStore500)->Unit(benchmark::kMillisecond);

}  // namespace

// The list editor on the big household: a 300-line list, 2,000 products and
// 5,000 coupons on file.
namespace editor {

const QString kList = QStringLiteral("Bench three hundred");

// The first 300 products of the catalogue as a saved list, and the editor
// holding it.
struct Editor {
    QTemporaryDir dir;
    std::unique_ptr<frmShoppingList> form;
    QList<QStringList> products;  // name, manufacturer, size of the rest
};

Editor& Open() {
    static Editor e;
    if (e.form) return e;
    Fixture::Boxes();
    Fixture::OpenFreshHousehold(e.dir.filePath("home"));
    Recordset rs;
    rs.Open("SELECT [Name],[Manufacturer],[Size],[Category] FROM Product ORDER BY [ID]", ConnectionMain(),
            adOpenForwardOnly, adLockReadOnly);
    {
        WriteBatch batch(ConnectionMain());
        Recordset list;
        list.Open("SELECT * FROM ShopList WHERE [ID] = 0", ConnectionMain(), adOpenKeyset, adLockOptimistic);
        for (int i = 0; !rs.IsEOF(); rs.MoveNext(), ++i) {
            const QStringList p = {rs.Field("Name").toString(), rs.Field("Manufacturer").toString(),
                                   rs.Field("Size").toString()};
            if (i >= 300) {
                e.products << p;
                continue;
            }
            list.AddNew();
            list.setField("Name", kList);
            list.setField("Store", "Any");
            list.setField("Dates", "None");
            // Every line its own item, so that saving keeps 300 rows.
            list.setField("ItemName", QStringLiteral("%1 %2").arg(p[0]).arg(i));
            list.setField("ItemQuantity", "1");
            list.setField("ItemManufacturer", p[1]);
            list.setField("ItemSize", p[2]);
            list.setField("ItemStyle", rs.Field("Category"));
            list.setField("ItemCost", 1.25);
            list.setField("Recurring", " ");
            list.setField("IsCurrent", false);
            list.setField("Coupon", false);
            list.setField("CouponID", 0);
            list.Update();
        }
    }
    e.form = std::make_unique<frmShoppingList>();
    e.form->LoadShopList(kList);
    // The editor goes with the application, before the fonts it was drawn with.
    qAddPostRoutine([] { e.form.reset(); });
    return e;
}

// Opening the editor: its combos take the catalogue, the sizes, categories,
// makers, stores and meals, and every item name the lists have held.
void BM_EditorOpen(benchmark::State& state) {
    Open();
    for (auto _ : state) {
        frmShoppingList form;
        benchmark::DoNotOptimize(form.cboItem->count());
    }
}
BENCHMARK(BM_EditorOpen)->Unit(benchmark::kMillisecond);

// One item through the whole chain (inventory, cheaper stores, coupons, the
// merge walk over 300 lines, the remembered cost and the new words); the line
// is taken off again between runs. The questions are answered by default.
void BM_EditorAddItem(benchmark::State& state) {
    Editor& e = Open();
    frmShoppingList& form = *e.form;
    int n = 0;
    for (auto _ : state) {
        state.PauseTiming();
        const QStringList& p = e.products[n++ % e.products.size()];
        form.cboItem->setEditText(p[0]);
        form.txtQuantity->setText("2");
        form.cboManufacturer->setEditText(p[1]);
        form.cboSize->setEditText(p[2].isEmpty() ? QStringLiteral("each") : p[2]);
        form.txtCost->setText("1.99");
        state.ResumeTiming();
        form.cmdAddItem_Click();
        state.PauseTiming();
        if (form.lvShoppingList->topLevelItemCount() != 301) state.SkipWithError("the line was not added");
        delete form.lvShoppingList->topLevelItem(300);
        state.ResumeTiming();
    }
    state.counters["lines"] = form.lvShoppingList->topLevelItemCount();
    state.counters["boxes"] = Fixture::Boxes().count();
    Fixture::Boxes().clear();
}
BENCHMARK(BM_EditorAddItem)->Unit(benchmark::kMillisecond);

// Saving replaces the list's 300 rows, reserves its coupons and leaves its
// note in the message centre.
void BM_EditorSave300(benchmark::State& state) {
    Editor& e = Open();
    for (auto _ : state)
        if (!e.form->SaveList()) state.SkipWithError("not saved");
    Recordset rs;
    rs.Open("SELECT COUNT(*) AS n FROM ShopList WHERE [Name] = '" + kList + "'", ConnectionMain(), adOpenStatic,
            adLockReadOnly);
    state.counters["rows"] = rs.Field("n").toInt();
    Fixture::CheckQuiet(state);
}
BENCHMARK(BM_EditorSave300)->Unit(benchmark::kMillisecond);

void BM_EditorLoad300(benchmark::State& state) {
    Editor& e = Open();
    frmShoppingList& form = *e.form;
    for (auto _ : state) {
        state.PauseTiming();
        form.lvShoppingList->clear();
        state.ResumeTiming();
        form.LoadShopList(kList);
    }
    state.counters["lines"] = form.lvShoppingList->topLevelItemCount();
    Fixture::CheckQuiet(state);
}
BENCHMARK(BM_EditorLoad300)->Unit(benchmark::kMillisecond);

// One keystroke in the item box: completion over the whole vocabulary, for
// texts that complete late in the list, early, and not at all.
void BM_ItemBoxKeystroke(benchmark::State& state) {
    Editor& e = Open();
    frmShoppingList& form = *e.form;
    const QStringList typed = {form.cboItem->itemText(form.cboItem->count() - 1).left(3),
                               form.cboItem->itemText(0).left(2), QStringLiteral("zzqx")};
    int n = 0;
    for (auto _ : state) {
        state.PauseTiming();
        form.cboItem->setEditText(typed[n++ % typed.size()]);
        state.ResumeTiming();
        form.cboItem_Change(Qt::Key_A);
    }
    state.counters["vocabulary"] = form.cboItem->count();
    Fixture::CheckQuiet(state);
}
BENCHMARK(BM_ItemBoxKeystroke)->Unit(benchmark::kMicrosecond);

// The same over a vocabulary of 12,000 words (every recipe title and product
// name), the most a household's item box is likely to hold.
void BM_ItemBoxKeystrokeLarge(benchmark::State& state) {
    Editor& e = Open();
    frmShoppingList& form = *e.form;
    QStringList words;
    Recordset rs;
    rs.Open("SELECT [Title] FROM Recipie UNION SELECT [Name] FROM Product ORDER BY 1", ConnectionMain(),
            adOpenForwardOnly, adLockReadOnly);
    for (; !rs.IsEOF(); rs.MoveNext()) words << rs.Field(0).toString();
    const QStringList before = [&] {
        QStringList items;
        for (int i = 0; i < form.cboItem->count(); ++i) items << form.cboItem->itemText(i);
        return items;
    }();
    form.cboItem->clear();
    form.cboItem->addItems(words);
    const QStringList typed = {words.last().left(4), words.first().left(2), QStringLiteral("zzqx")};
    int n = 0;
    for (auto _ : state) {
        state.PauseTiming();
        form.cboItem->setEditText(typed[n++ % typed.size()]);
        state.ResumeTiming();
        form.cboItem_Change(Qt::Key_A);
    }
    state.counters["vocabulary"] = form.cboItem->count();
    form.cboItem->clear();
    form.cboItem->addItems(before);
    Fixture::CheckQuiet(state);
}
BENCHMARK(BM_ItemBoxKeystrokeLarge)->Unit(benchmark::kMicrosecond);

}  // namespace editor
