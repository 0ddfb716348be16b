#include "measures/frmConversionsUtility.h"

frmConversionsUtility::frmConversionsUtility(QWidget* parent)
    : MeasureList(QStringLiteral("frmConversionsUtility"), QStringLiteral("Conversion Measures"),
                  {QStringLiteral("Name"), QStringLiteral("Abbreviation")}, QStringLiteral("SELECT * FROM ItemSize"),
                  QStringLiteral("Name"), QStringLiteral("Abbreviation"), parent) {}
