#pragma once

#include "core/RecordsetClass.h"

// Long comments kept against the row of another table, by that row's ID.
class clsComments : public RecordsetClass {
public:
    QString Comment() const;  // reads the current row
    void Comment(const QString& v) { comment_ = v; }
    qint32 ID() const;

    bool AddComment(const QString& text, qint32 id);

private:
    QString comment_;
};
