// Every command the main window offers, run one after another the way a
// person clicking through the menus would: with something selected in each
// pane, every box answered with its default, every screen that opens closed
// again. Nothing may end the program, hang, or leave a screen open. New
// commands are walked as soon as they are in the window's tables.
#include "LargeHousehold.h"
#include "app/frmMain.h"
#include "core/Globals.h"
#include "core/MainPanes.h"
#include "platform/Database.h"
#include "platform/RuntimeError.h"
#include "support/TestEnv.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QMenu>
#include <QPushButton>
#include <QStandardItem>
#include <QTest>
#include <QToolBar>

namespace {

class CommandWalk : public LarderTest {
protected:
    void SetUp() override {
        LarderTest::SetUp();
        MainPanes::Instance().ClearAll();
        ui.strict(false);
        ui.defaultModal = [](QDialog* dialog) {
            dialog->show();
            QCoreApplication::processEvents();
            dialog->reject();
            return int(QDialog::Rejected);
        };
    }
    void TearDown() override {
        MainPanes::Instance().ClearAll();
        LarderTest::TearDown();
    }

    // The first node of `model` whose tag is one of `tags`, made current.
    static void Select(QStandardItemModel& model, const QStringList& tags) {
        MainPanes& panes = MainPanes::Instance();
        for (QStandardItem* node : panes.AllNodes(model)) {
            if (!tags.isEmpty() && !tags.contains(node->data(MainPanes::TagRole).toString())) continue;
            panes.SelectionOf(model)->setCurrentIndex(node->index(), QItemSelectionModel::ClearAndSelect);
            return;
        }
    }

    static void SelectSomethingEverywhere() {
        MainPanes& panes = MainPanes::Instance();
        Select(panes.recipes, {QStringLiteral("Recipe"), QStringLiteral("RecipeFavorite")});
        // A coupon's key starts with "C"; its tag is its number.
        for (QStandardItem* node : panes.AllNodes(panes.coupons))
            if (node->data(MainPanes::KeyRole).toString().startsWith(QLatin1Char('C'))) {
                panes.couponSelection.setCurrentIndex(node->index(), QItemSelectionModel::ClearAndSelect);
                break;
            }
        Select(panes.messages, {});
        Select(panes.currentList, {});
        Select(panes.meals, {});
    }

    // Closes whatever the command left open; false when a window refuses.
    static bool CloseEverythingBut(QWidget* main) {
        QCoreApplication::processEvents();
        bool closed = true;
        for (QWidget* w : QApplication::topLevelWidgets()) {
            if (w == main || !w->isVisible()) continue;
            if (auto* dialog = qobject_cast<QDialog*>(w))
                dialog->reject();
            else
                w->close();
            if (w->isVisible()) closed = false;
        }
        QCoreApplication::processEvents();
        return closed;
    }

    // Runs every enabled command of the menus, popups, toolbars and quick start.
    void Walk(frmMain& w) {
        QStringList keys;
        for (auto it = w.menus.constBegin(); it != w.menus.constEnd(); ++it)
            if (!it.value()->menu() && it.key() != QLatin1String("mnuExit")) keys << it.key();
        for (const QString& key : keys) {
            QAction* action = w.menus.value(key);
            if (!action->isEnabled()) continue;
            SCOPED_TRACE(key.toStdString());
            SelectSomethingEverywhere();
            action->trigger();
            EXPECT_TRUE(CloseEverythingBut(&w)) << "a screen stayed open after " << key.toStdString();
            EXPECT_FALSE(w.Ended());
        }
        for (QToolBar* bar : {w.tbMain, w.tbReports})
            for (QAction* button : bar->actions()) {
                if (button->isSeparator() || !button->isEnabled()) continue;
                SCOPED_TRACE(button->objectName().toStdString());
                button->trigger();
                EXPECT_TRUE(CloseEverythingBut(&w));
            }
        for (const char* key : {"Coupon", "Delivery", "Inventory", "RecurringLists", "IsleMap", "ItemCategory",
                                "RecipeCat", "Nutrition", "Product", "ShopList"}) {
            SCOPED_TRACE(key);
            w.lvQuickStart_DblClick(QString::fromLatin1(key));
            EXPECT_TRUE(CloseEverythingBut(&w));
        }
    }

    // The walk, then Exit, which must end the program.
    void WalkAndExit() {
        frmMain w;
        w.Form_Load();
        ASSERT_FALSE(w.Ended());
        Walk(w);
        w.mnuExit();
        CloseEverythingBut(&w);
        if (!w.Ended()) w.mnuExit();  // reminders held the first Exit, as they should
        EXPECT_TRUE(w.Ended());
    }
};

TEST_F(CommandWalk, StartingDatabase) { WalkAndExit(); }

TEST_F(CommandWalk, LargeHousehold) {
    CloseDatabase();
    LargeHousehold::Sizes sizes;
    sizes.recipes = 2000;
    sizes.shopListRows = 20000;
    sizes.spendRows = 20000;
    sizes.coupons = 1000;
    sizes.manufacturers = 200;
    sizes.messages = 300;
    sizes.meals = 300;
    LargeHousehold::Prepare(Home(), sizes);
    WalkAndExit();
}

TEST_F(CommandWalk, ConnectionClosedUnderneath) {
    frmMain w;
    w.Form_Load();
    ASSERT_FALSE(w.Ended());
    ConnectionMain().Close();
    Walk(w);
    // Every failure became a box; none of them ended the program.
    EXPECT_FALSE(w.Ended());
    EXPECT_GT(ui.count(), 0);
}

TEST_F(CommandWalk, AFailingScreenControlBecomesTheErrorBox) {
    QDialog screen;
    screen.setObjectName("frmSample");
    auto* button = new QPushButton("Go", &screen);
    button->setObjectName("cmdGo");
    QObject::connect(button, &QPushButton::clicked, [] { throw RuntimeError(QStringLiteral("Overflow")); });
    screen.show();
    QTest::mouseClick(button, Qt::LeftButton);
    ASSERT_EQ(ui.count(), 1);
    EXPECT_EQ(ui.lastBox().prompt, "Error: Overflow (Occurred in frmSample.cmdGo)");
}

}  // namespace
