#include "platform/Ui.h"

#include "platform/QtUi.h"

namespace {
Ui* g_ui = nullptr;
}

Ui::~Ui() = default;

Ui& TheUi() {
    if (!g_ui) {
        static QtUi real;
        return real;
    }
    return *g_ui;
}

void SetUi(Ui* ui) { g_ui = ui; }

int MsgBox(const QString& prompt, int buttons, const QString& title, const QString& helpFile, int context) {
    return TheUi().MsgBox(prompt, buttons, title, helpFile, context);
}

QString InputBox(const QString& prompt, const QString& title, const QString& def) {
    return TheUi().InputBox(prompt, title, def);
}
