#pragma once

#include "core/RecordsetClass.h"

#include <QString>

// The measures of table ItemSize: a name as the conversion chart knows it and a
// short form that no other measure may use.
class clsSize : public RecordsetClass {
public:
    bool Exists(const QString& name);
    bool AbbreviationExists(const QString& abbreviation);
    // Adds the measure. A short form already taken is offered for change; the
    // person may keep it, pick another or leave it empty.
    void WriteNew(const QString& name, const QString& abbreviation);
};
