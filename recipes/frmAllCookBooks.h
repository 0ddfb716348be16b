#pragma once

#include "core/GuardedDialog.h"

class QLineEdit;
class QPushButton;
class QStackedWidget;
class QTreeWidget;

// Every cookbook, and the specialty ones apart; one is opened as the current
// cookbook of the main window, or a new one added.
class frmAllCookBooks : public GuardedDialog {
    Q_OBJECT
public:
    explicit frmAllCookBooks(QWidget* parent = nullptr);

    QTreeWidget* tvCookbooks;
    QStackedWidget* stkLists;
    QTreeWidget* lvAllCookbooks;
    QTreeWidget* lvSpecialtyCookbooks;
    QLineEdit* txtName;
    QLineEdit* txtSpecialty;
    QPushButton* cmdSpecialty;
    QPushButton* cmdAddCookbook;
    QPushButton* cmdOpenCookbook;
    QPushButton* cmdClose;

public Q_SLOTS:
    void LoadCookbooks();
    void cmdAddCookbook_Click();
    void cmdSpecialty_Click();
    void cmdOpenCookbook_Click();

protected:
    bool MayClose() override { return true; }
};
