#pragma once

#include "platform/Currency.h"

#include <QDate>
#include <QDialog>
#include <QList>

class QChartView;
class QComboBox;
class QDateEdit;
class QLabel;
class QLineSeries;
class QTextEdit;
class QPushButton;

// What a product has cost week by week, at one store or all, over a span of
// dates: its best and worst prices, when it was bought, and a chart of the
// price paid that can be saved as a picture.
class frmProductCostHistory : public QDialog {
    Q_OBJECT
public:
    explicit frmProductCostHistory(QWidget* parent = nullptr);
    // Opens on one product and charts it at once.
    frmProductCostHistory(const QString& manufacturer, const QString& productName, QWidget* parent = nullptr);

    QComboBox* cboManufacturer;
    QComboBox* cboItem;
    QComboBox* cboStore;
    QDateEdit* dtpFrom;
    QDateEdit* dtpTo;
    QPushButton* cmdDisplay;
    QLabel* picBarcode;
    QLabel* lblBestPrice;
    QLabel* lblWorstPrince;
    QLabel* lblLastPurchaseDate;
    QTextEdit* txtPurchasedDates;
    QChartView* chtCostHistory;
    QPushButton* cmdSaveChart;
    QPushButton* cmdClose;

    // One point a week: the week's Sunday and the average paid that week.
    QLineSeries* PriceSeries() const { return series_; }
    // The text the barcode frame stands for, as DrawProductBarcode left it.
    QString BarcodeText() const { return barcodeText_; }

    // One week of purchases.
    struct WeekPrice {
        QDate weekOf;  // the Sunday the week starts on
        Currency total;
        int purchases = 0;
        Currency Average() const { return purchases ? total / Currency(purchases) : Currency(); }
    };
    // The rows of a history query gathered into weeks, earliest first.
    static QList<WeekPrice> GetChartData(const QString& sql);

public Q_SLOTS:
    void DisplayCostHistory();
    // Chooses the manufacturer and the product, then shows them.
    void ShowProduct(const QString& manufacturer, const QString& productName);
    void LoadStores();
    // The product names of the chosen manufacturer, or of every one.
    void LoadProducts();
    void SaveChart();
    // Draws the product's barcode: the manufacturer's code and the product's
    // family code, or a sample when neither is on file. Returns its text.
    QString DrawProductBarcode(const QString& manufacturer, const QString& productName);

public:
    // The product of that name (of that manufacturer unless all are meant);
    // `id` gets its record number, 0 when there is none, -1 when the lookup failed.
    bool ProductExists(const QString& manufacturer, const QString& productName, qint32& id);

private:
    void Build();
    void LoadManufacturers();
    void ShowPrices(qint32 id);
    void Chart(const QString& sql, const QString& title);
    void ChartNothing(const QString& title);

    QLineSeries* series_ = nullptr;
    QString barcodeText_;
};
