#pragma once

#include <QDialog>

class QPushButton;
class QTreeWidget;

// Every store with its aisle and coupon counts; stores are added, renamed,
// deleted and laid out from here.
class frmAllStores : public QDialog {
    Q_OBJECT
public:
    explicit frmAllStores(QWidget* parent = nullptr);

    QTreeWidget* lvStores;
    QPushButton* cmdNew;
    QPushButton* cmdSetup;
    QPushButton* cmdClose;

    QString SelectedStore() const;

public Q_SLOTS:
    void LoadStores();
    void mnuDeleteStore_Click();
    void mnuRenameStore_Click();
    void mnuFindStoreCoupon_Click();
    void mnuGenerateStoreList_Click();
    void cmdNew_Click();
    void cmdSetup_Click();
};
