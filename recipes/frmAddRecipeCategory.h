#pragma once

#include "core/GuardedDialog.h"

class QComboBox;
class QPushButton;
class QTreeWidget;

// The categories of one recipe: the ones it has, and any category of the
// household (with its recipe count) to add to them. OK writes the added ones.
class frmAddRecipeCategory : public GuardedDialog {
    Q_OBJECT
public:
    explicit frmAddRecipeCategory(const QString& title, QWidget* parent = nullptr);

    QTreeWidget* lvCurrentCategories;
    QTreeWidget* lvCategories;
    QComboBox* cboCategoryList;
    QPushButton* cmdAdd;
    QPushButton* cmdOK;
    QPushButton* cmdCancel;
    // Categories added here and not written yet.
    QStringList Added() const { return added_; }

public Q_SLOTS:
    void LoadCategories();
    // False when the typed name is new and the person did not want it added.
    bool cboCategoryList_Validate();
    void cmdAdd_Click();
    void cmdOK_Click();
    void lvCurrentCategories_DblClick();

protected:
    bool MayClose() override { return true; }

private:
    QString title_;
    QStringList added_;
};
