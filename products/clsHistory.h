#pragma once

#include "core/RecordsetClass.h"

#include <QString>

// How often the household has used each recipe category; suggestions lean on
// these counts.
class clsHistory : public RecordsetClass {
public:
    // Both read the open recordset's current row.
    qint32 TimesUsed();
    QString Category();

    // Counts each category of a comma-separated list once more, adding the
    // ones not seen before with a count of 1.
    void AddItems(const QString& categories);
    // The uses counted for `category`, 0 when it was never used.
    qint32 CanRecommend(const QString& category);
};
