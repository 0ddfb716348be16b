#include "core/modBarcode.h"

QString GetManufacturerCode(const QString& barcode) { return barcode.size() >= 12 ? barcode.mid(1, 5) : QString(); }
