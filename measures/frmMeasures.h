#pragma once

#include "measures/MeasureList.h"

// The units recipes use with their names, at hand while a recipe is typed.
// Whether it stays above other windows is remembered (DOCK_MEASURES).
class frmMeasures : public MeasureList {
    Q_OBJECT
public:
    explicit frmMeasures(QWidget* parent = nullptr);

protected:
    void DockChanged(bool docked) override;
};
