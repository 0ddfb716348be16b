#pragma once

#include "core/RecordsetClass.h"

#include <QString>

// The grocery item categories. A category is only a name: products, aisle
// mappings and list rows each carry it as text, with nothing tying them.
class clsItemCategory : public RecordsetClass {
public:
    QString Name();
    void Name(const QString& value) { name_ = value; }
    qint32 ItemID();

    bool Exists(const QString& name);
    // No handler of its own: a failure goes to the caller's.
    qint32 WriteNew(const QString& name);
    // Adds a category the table does not have yet; a name on file is left alone.
    void AddIfNew(const QString& name);
    // The category proposed for a typed item: its product's, the only product
    // containing the text, or the person's pick among several.
    QString SuggestItemCategory(QString item);
    bool RemoveCategory(const QString& name);
    bool RenameCategory(const QString& oldName, const QString& newName);
    // Products of the category; an empty name counts the member's.
    qint32 ItemCount(const QString& name = QString());

private:
    QString name_;
};
