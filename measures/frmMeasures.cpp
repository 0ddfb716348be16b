#include "measures/frmMeasures.h"

#include "core/Globals.h"
#include "core/clsRegistry.h"

frmMeasures::frmMeasures(QWidget* parent)
    : MeasureList(QStringLiteral("frmMeasures"), QStringLiteral("Measures"),
                  {QStringLiteral("Ab."), QStringLiteral("Desc.")}, QStringLiteral("SELECT * FROM Abbreviation"),
                  QStringLiteral("Abbreviation"), QStringLiteral("Description"), parent) {
    SetDocked(Registry().DockMeasurements());
}

void frmMeasures::DockChanged(bool docked) { Registry().DockMeasurementsSet(docked); }
