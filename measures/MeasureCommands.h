#pragma once

class CommandRegistry;

// The main window's measurement commands.
namespace MeasureCommands {
void Register(CommandRegistry& commands);

void mnuEditMeasureAbbreviations_Click();
void mnuEditConversionConstants_Click();
void mnuConvertmeasurements_Click();
}  // namespace MeasureCommands
