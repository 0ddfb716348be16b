#include "core/frmMain.h"

void frmMain::LoadMessages() {}
void frmMain::AddMessage(const QString&, const QString&, const QString&, int) {}
void frmMain::DisplayReminders() {}
void frmMain::MessageDisplay() {}
void frmMain::mnuDeleteMessage_Click() {}
void frmMain::mnuPrintMessage_Click() {}
