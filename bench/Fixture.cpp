#include "Fixture.h"

#include "LargeHousehold.h"
#include "app/frmMain.h"
#include "core/Globals.h"
#include "platform/Database.h"
#include "platform/Recordset.h"
#include "platform/ScriptedUi.h"

#include <QCoreApplication>
#include <QTemporaryDir>

namespace Fixture {

ScriptedUi& Boxes() {
    static ScriptedUi ui;
    static bool set = false;
    if (!set) {
        ui.strict(false);
        SetUi(&ui);
        set = true;
    }
    return ui;
}

void CheckQuiet(benchmark::State& state) {
    if (Boxes().count() > 0) state.SkipWithError(Boxes().lastBox().prompt.toStdString().c_str());
}

Database& Household() {
    static QTemporaryDir dir;
    if (!ConnectionMain().IsOpen()) {
        Boxes();
        ConnectionMain().Open(LargeHousehold::Prepare(dir.filePath(QStringLiteral("home"))));
    }
    return ConnectionMain();
}

void OpenFreshHousehold(const QString& folder) {
    if (ConnectionMain().IsOpen()) ConnectionMain().Close();
    ConnectionMain().Open(LargeHousehold::Prepare(folder));
}

namespace {

frmMain* window = nullptr;

void CloseWindow() {
    delete window;
    window = nullptr;
}

}  // namespace

frmMain& Window() {
    if (!window) {
        Household();
        qAddPostRoutine(CloseWindow);
        window = new frmMain;
        window->resize(1280, 900);
        window->show();
    }
    return *window;
}

int CurrentListRows() {
    Recordset rs;
    rs.Open("SELECT COUNT(*) AS n FROM ShopList WHERE [IsCurrent] = True", ConnectionMain(), adOpenStatic,
            adLockReadOnly);
    return rs.Field("n").toInt();
}

}  // namespace Fixture
