#pragma once

#include <QDialog>
#include <QString>

class QPushButton;
class QTreeWidget;

// The saved lists to pick one from: one line per list name with its date, its
// number of items and whether it is kept as a recurring list.
class frmShoppingListSelect : public QDialog {
    Q_OBJECT
public:
    // `recurringOnly` offers only the lists kept as recurring lists.
    explicit frmShoppingListSelect(QWidget* parent = nullptr, bool recurringOnly = false);

    // The chosen list's name, "" when cancelled or nothing was chosen.
    static QString GetListName(QWidget* parent = nullptr, bool recurringOnly = false);

    QTreeWidget* lvLists;
    QPushButton* cmdOK;
    QPushButton* cmdCancel;

    enum Column { colName, colDate, colItems, colRecurring };

    void LoadLists();
    // The name of the selected line, "" without one.
    QString SelectedName() const;

private:
    bool recurringOnly_ = false;
};
