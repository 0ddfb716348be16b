#pragma once

#include <QString>
#include <vector>

// The store-map exchange file: one record a line, store, category and aisle
// joined by commas, with no quoting and no walking order. It is read as one
// stream of fields: commas and line ends both end a field, leading blanks are
// skipped, and a field that begins with a double quote runs to the next double
// quote.
class StoreMapFile {
public:
    struct Record {
        QString store;
        QString category;
        QString isle;
    };

    // What the writer puts out for one mapping, line end included.
    static QString Line(const QString& store, const QString& category, const QString& isle);

    // All records of the file, or false when the file cannot be read as records
    // of three fields: it is missing, holds control characters (a binary file),
    // ends inside a record, or has a field longer than a name can be.
    static bool Read(const QString& path, std::vector<Record>& records);

    static constexpr int kLongestField = 255;
};
