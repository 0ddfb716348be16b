#pragma once

#include "core/GuardedDialog.h"

class QAction;
class QComboBox;
class QLineEdit;
class QMenu;
class QPushButton;
class QTreeWidget;

// The list of cookbooks, where one is added, renamed, looked into or deleted.
// A deleted cookbook's recipes go to "General", which can be neither renamed
// nor deleted.
class frmNewCookbook : public GuardedDialog {
    Q_OBJECT
public:
    explicit frmNewCookbook(QWidget* parent = nullptr);

    QLineEdit* txtCookbook;
    QComboBox* cboSpecialty;
    QTreeWidget* lvCookbooks;
    QPushButton* cmdOK;
    QPushButton* cmdClose;
    QMenu* mnuCookbook;
    QAction* mnuRenameCookbook;
    QAction* mnuViewRecipes;
    QAction* mnuDeleteCookbook;

public Q_SLOTS:
    void LoadCookbooks();
    void cmdOK_Click();
    void mnuRenameCookbook_Click();
    void mnuViewRecipes_Click();
    void mnuDeleteCookbook_Click();

protected:
    bool MayClose() override { return true; }

private:
    QString Selected() const;
};
