#include "measures/MeasureCommands.h"

#include "core/CommandRegistry.h"
#include "core/Globals.h"
#include "measures/frmConversions.h"
#include "measures/frmConvertMeasures.h"
#include "measures/frmMeasureAbbreviations.h"
#include "platform/Ui.h"

namespace MeasureCommands {

void mnuEditMeasureAbbreviations_Click() {
    frmMeasureAbbreviations form(MainWindow());
    TheUi().ShowModal(&form);
}

void mnuEditConversionConstants_Click() {
    frmConversions form(MainWindow());
    TheUi().ShowModal(&form);
}

void mnuConvertmeasurements_Click() {
    frmConvertMeasures form(MainWindow());
    TheUi().ShowModal(&form);
}

void Register(CommandRegistry& commands) {
    commands.Add(QStringLiteral("mnuEditMeasureAbbreviations"), mnuEditMeasureAbbreviations_Click);
    commands.Add(QStringLiteral("mnuEditConversionConstants"), mnuEditConversionConstants_Click);
    commands.Add(QStringLiteral("mnuConvertmeasurements"), mnuConvertmeasurements_Click);
}

}  // namespace MeasureCommands
