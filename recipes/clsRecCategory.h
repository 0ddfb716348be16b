#pragma once

#include "core/RecordsetClass.h"

#include <QString>

// The recipe categories of table RecipieCategory. A recipe carries its
// categories by name in its Style list, so removing a category also rewrites
// the recipes that hold it alone.
class clsRecCategory : public RecordsetClass {
public:
    QString Name() const;
    void Name(const QString& value) { name_ = value; }

    // No handler of its own: a failure goes to the caller's.
    bool Exists(const QString& name);
    // Adds the row and the category's node in the recipe tree.
    bool WriteNew(const QString& name);
    void RemoveCategory(const QString& name);

private:
    QString name_;
};
