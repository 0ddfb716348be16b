#pragma once

class CommandRegistry;

// The main window's commands for the update after shopping.
namespace UpdateCommands {
void Register(CommandRegistry& commands);

// The purchases of a printed list, checked against the receipt.
void mnuEnterListData_Click();
}  // namespace UpdateCommands
