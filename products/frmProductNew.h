#pragma once

#include <QDialog>
#include <QString>

class QCheckBox;
class QComboBox;
class QLineEdit;
class QPushButton;

// Entering products one after another: the boxes clear after each one, and
// names not yet known become manufacturers, categories and stores.
class frmProductNew : public QDialog {
    Q_OBJECT
public:
    explicit frmProductNew(QWidget* parent = nullptr);

    QLineEdit* txtProduct;
    QComboBox* cboManufacturer;
    QComboBox* cboCategory;
    QLineEdit* txtSize;
    QCheckBox* chkLookout;
    QCheckBox* chkIsFoodItem;
    QCheckBox* chkCreateInventory;
    QCheckBox* chkAddIsleInformation;
    QCheckBox* chkGetItemBarcode;
    QComboBox* cboStore;
    QLineEdit* txtCost;
    QPushButton* cmdCalculator;
    QPushButton* cmdAddProduct;
    QPushButton* cmdClose;

    static QString Placeholder();

public Q_SLOTS:
    void Form_Load();
    void cboManufacturer_LostFocus();
    void cboStore_LostFocus();
    // False when the cost was refused.
    bool txtCost_Validate();
    void cmdAddProduct_Click();
    void cmdCalculator_Click();
    // Ticked: asks for the barcode and offers the manufacturers it names.
    // Unticked: the product has no barcode ("0").
    void chkGetItemBarcode_Click(bool ticked);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    static bool Chosen(const QComboBox* box);
    static void AddOnce(QComboBox* box, const QString& text);
    void ClearEntry();

    QString barcode_ = QStringLiteral("0");
};
