#pragma once

#include <QDialog>

class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

// Where one product stands in one store: its aisle by its category, and an
// aisle of its own when the store shelves it elsewhere.
class frmSetItemIsle : public QDialog {
    Q_OBJECT
public:
    explicit frmSetItemIsle(QWidget* parent = nullptr);

    QLabel* lblItem;
    QLabel* lblOldIsle;
    QLabel* lblOldOrder;
    QComboBox* cboNewIsle;
    QLineEdit* txtNewOrder;
    QPushButton* cmdShowItemsInIsle;
    QListWidget* lstItemsInIsle;
    QPushButton* cmdOK;
    QPushButton* cmdCancel;

    // "OK", or "BAD" when no store could be chosen. The store is asked for
    // when none is given.
    QString SetItemIsle(const QString& item, const QString& manufacturer, QString store);

public Q_SLOTS:
    void LoadStoreIsleNames();
    void cmdShowItemsInIsle_Click();
    void cmdOK_Click();

private:
    QString item_, manufacturer_, store_, category_, oldIsle_;
};
