#pragma once

#include "core/RecordsetClass.h"

#include <QString>

// The units recipes write (table Abbreviation) with their long names. The unit
// field of a packed ingredient is looked up here.
class clsAbbreviations : public RecordsetClass {
public:
    // Reads give the current row of an open recordset, or what was last
    // written when none is open; writes only fill the member used by AddNew.
    QString Abbreviation() const;
    void Abbreviation(const QString& value) { abbreviation_ = value; }
    QString Description() const;
    void Description(const QString& value) { description_ = value; }

    bool Exists(const QString& abbreviation);
    // Deletes every row of the unit.
    void Remove(const QString& abbreviation);
    // Stores the member unit with its description, asking for the description
    // when there is none.
    bool AddNew();

private:
    QString Read(const QString& column, const QString& member) const;

    QString abbreviation_;
    QString description_;
};
