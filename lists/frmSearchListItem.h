#pragma once

#include <QDialog>
#include <QString>

class QLabel;
class QLineEdit;
class QPushButton;
class QTreeWidget;

// Finds an item on the saved lists: every line whose item name holds the text,
// with the list it stands on. The chosen line names a list and an item.
class frmSearchListItem : public QDialog {
    Q_OBJECT
public:
    explicit frmSearchListItem(QWidget* parent = nullptr);

    // Shows the screen and waits; true with the chosen line's list and item.
    static bool FindListItem(QString& listName, QString& itemName, QWidget* parent = nullptr);

    enum Column { colItem, colQuantity, colManufacturer, colList, colDate };

    QLineEdit* txtSearch;
    QPushButton* cmdSearch;
    QTreeWidget* lvItems;
    QLabel* lblFound;
    QPushButton* cmdOpen;
    QPushButton* cmdCancel;

    QString ListName() const;
    QString ItemName() const;

public Q_SLOTS:
    void cmdSearch_Click();
};
