#pragma once

#include "core/GuardedDialog.h"

class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

// Which saved lists make up the Current list: one checked line per list.
// Saving rebuilds the Current list whole from the checked lines.
class frmCurrentShoppingList : public GuardedDialog {
    Q_OBJECT
public:
    explicit frmCurrentShoppingList(QWidget* parent = nullptr);

    QTreeWidget* lvCurrentLists;
    QPushButton* cmdOK;     // "Apply"
    QPushButton* cmdClose;  // "Save"
    QPushButton* cmdCancel;

    bool Changed() const { return changed_; }
    QTreeWidgetItem* Line(const QString& listName) const;

public Q_SLOTS:
    void LoadLists();
    void SaveCurrent();
    void cmdOK_Click();
    void cmdClose_Click();
    void mnuEditList_Click();
    void mnuDeleteList_Click();

protected:
    bool MayClose() override;

private:
    bool changed_ = false;
    bool loading_ = false;
};
