#pragma once

#include <QString>

// The manufacturer part of a product's UPC-A barcode: the five characters
// after the number-system digit, or "" for anything shorter than 12.
QString GetManufacturerCode(const QString& barcode);
