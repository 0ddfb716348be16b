#pragma once

#include "measures/MeasureList.h"

// The measures of the conversion chart with their short forms.
class frmConversionsUtility : public MeasureList {
    Q_OBJECT
public:
    explicit frmConversionsUtility(QWidget* parent = nullptr);
};
