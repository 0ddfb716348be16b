#pragma once

#include "core/RecordsetClass.h"

#include <QString>

// The cookbooks: named shelves of recipes, with an optional specialty ("None"
// when not). The object holds every cookbook from its making to its end.
// "General" always exists and takes the recipes of a cookbook that goes.
class clsCookBook : public RecordsetClass {
public:
    clsCookBook();

    QString Name() const;
    void Name(const QString& value) { name_ = value; }
    QString Specialty() const;
    void Specialty(const QString& value) { specialty_ = value; }

    bool IsSpecialty(const QString& name);
    // Looks in the object's own rows.
    bool IsCookBook(const QString& name);
    bool WriteNew(const QString& name, const QString& specialty);
    // Deletes the cookbook and moves its recipes to "General". The caller's
    // name comes back with its apostrophes doubled.
    void RemoveCookbook(QString& name);
    void RemoveCookbook(const QString& name);
    bool Exists(const QString& name);
    // Renames the cookbook row; the recipes are moved by
    // clsRecipies::NewCookbookName, which the screens call beside this.
    void Rename(const QString& oldName, const QString& newName);
    // format 1 Meal-Master, 2 MasterCook, 3 text, 4 HTML.
    void ExportCookBook(const QString& cookbook, int format, bool useRecipeName, const QString& target);

private:
    QString name_;
    QString specialty_;
};
