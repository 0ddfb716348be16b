#pragma once

class CommandRegistry;

// The main window's message centre commands, and the reminders that fall due
// at start.
namespace MessageCommands {
void Register(CommandRegistry& commands);

void MessageDisplay();
void mnuNewMassage_Click();
void mnuDeleteMessage_Click();
void mnuPrintMessage_Click();
void mnuPurgeMessages_Click();
void mnuExportMessageToOutlook_Click();
void mnuCalendarToday_Click();
void DisplayReminders();
}  // namespace MessageCommands
