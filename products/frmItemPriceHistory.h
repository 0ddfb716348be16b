#pragma once

#include <QDialog>
#include <QMap>
#include <QStringList>

class QChartView;
class QComboBox;
class QLabel;
class QPushButton;
class QTreeWidget;

// What one product has cost over time: every purchase with a price, as a
// table and as a line. The person picks the product here unless the screen
// was opened for one.
class frmItemPriceHistory : public QDialog {
    Q_OBJECT
public:
    explicit frmItemPriceHistory(QWidget* parent = nullptr);

    QComboBox* cboManufacturer;
    QComboBox* cboProduct;
    QPushButton* cmdShow;
    QLabel* lblProduct;
    QTreeWidget* lvHistory;
    QChartView* chtPrices;
    QPushButton* cmdClose;

    // Fills the table and the chart; false, with the reason shown, when the
    // product or a priced purchase of it is not on file.
    bool DisplayProduct(const QString& Name, const QString& Manufacturer);

public Q_SLOTS:
    void cboManufacturer_Click();
    void cmdShow_Click();

private:
    void Clear();
    void Pick(const QString& name, const QString& manufacturer);

    // The products of each maker, for the two pickers.
    QMap<QString, QStringList> products_;
};
