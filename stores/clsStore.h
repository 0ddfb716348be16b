#pragma once

#include "core/RecordsetClass.h"

#include <QString>

// The stores. A store's name is its key everywhere: list rows, coupons and
// aisle maps copy it, so renaming and deleting walk those tables too.
class clsStore : public RecordsetClass {
public:
    QString Name();
    void Name(const QString& value) { name_ = value; }
    qint16 IsleCount();
    void IsleCount(qint16 value) { isleCount_ = value; }
    QString StoreFaxNumber();
    void StoreFaxNumber(const QString& value) { faxNumber_ = value; }

    bool WriteNew();
    // Writes the members' aisle count and fax number on the one row of the
    // member's name; nothing when the name has no row or several.
    void UpdateStore();
    // Over the open rows, from the first: the aisle count of that name, or 0.
    qint16 FindCount(const QString& name);
    void UpdateCount(const QString& name, qint16 count);
    bool Exists(const QString& name);
    // A store brand: some manufacturer's name contains the store's.
    bool IsPossibleManufacturer(const QString& name);
    void ChangeName(const QString& oldName, const QString& newName);
    void DeleteStore(const QString& name);

    // The store's aisle map as "<export folder>/<store>.gil".
    void ExportStoreFile(const QString& name);
    // Adds the stores, categories and mappings the file names, after checking
    // that the whole file reads.
    void ImportStoreFile(const QString& path);
    static QString ExportFileFor(const QString& name);

private:
    QString name_;
    qint16 isleCount_ = 0;
    QString faxNumber_;
};
