#pragma once

#include <QDialog>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTreeWidget;

// One product in full: its fields to correct, what is known of its stock, and
// what it has cost where.
class frmProductDetail : public QDialog {
    Q_OBJECT
public:
    explicit frmProductDetail(qint32 productID, QWidget* parent = nullptr);

    QLineEdit* txtProduct;
    QComboBox* cboManufacturer;
    QComboBox* cboCategory;
    QLineEdit* txtSize;
    QLineEdit* txtCost;
    QCheckBox* chkLookout;
    QLineEdit* txtBarcode;
    QLabel* lblInventory;
    QTreeWidget* lvPriceHistory;
    QPushButton* cmdSave;
    QPushButton* cmdCancel;

    bool Found() const { return found_; }

public Q_SLOTS:
    void Form_Load();
    // Writes the fields back; false (with the reason shown) when one is refused.
    bool cmdSave_Click();

private:
    qint32 id_;
    bool found_ = false;
};
