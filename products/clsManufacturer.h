#pragma once

#include "core/RecordsetClass.h"

#include <QString>

// The makers of products and coupons. A manufacturer is known by its name,
// which products and coupons copy.
class clsManufacturer : public RecordsetClass {
public:
    QString Name();
    void Name(const QString& value) { name_ = value; }
    // Read under the name "UPC_code", which the table does not have: the read
    // fails into the caller's handler, on purpose.
    QString UPCCode();
    void UPCCode(const QString& value) { upcCode_ = value; }

    bool Exists(const QString& name);
    // Adds the member's name, with the manufacturer code of the member's
    // barcode, and its node in the coupon tree. Nothing when it exists.
    bool WriteNew();
    void RenameManufacturer(const QString& oldName, const QString& newName);
    // Asks what becomes of the manufacturer's products; false when cancelled.
    bool DeleteManufacturer(const QString& name);
    // Whether the text is also (part of) a store's name.
    bool rsManufacturer(const QString& text);

private:
    QString name_;
    QString upcCode_;
};
