#pragma once

#include "platform/Currency.h"

#include <QDialog>
#include <QList>
#include <QStringList>

class QAbstractBarSeries;
class QChartView;
class QCheckBox;
class QComboBox;
class QDateEdit;
class QLabel;
class QPushButton;

// Where the money went: what was spent on each category, or on each product of
// a category, over a span of dates or over all of them.
class frmProductSpending : public QDialog {
    Q_OBJECT
public:
    explicit frmProductSpending(QWidget* parent = nullptr);

    QComboBox* cboCategory;
    QComboBox* cboProduct;
    QCheckBox* chkAllDates;
    QDateEdit* dtpFrom;
    QDateEdit* dtpTo;
    QPushButton* cmdShow;
    QChartView* chtSpending;
    QLabel* lblTotal;
    QPushButton* cmdClose;

    // One bar of the chart.
    struct Bar {
        QString name;       // the category, or the product as "<maker>'s <name>, <size>"
        QString shortName;  // the category, or the product's name alone
        Currency spent;
        int purchases = 0;
    };
    // The bars, most spent first; the series holds them bottom to top.
    const QList<Bar>& Bars() const { return bars_; }
    QAbstractBarSeries* SpendingSeries() const { return series_; }

    // At most this many bars: beyond it the smallest are added into one.
    static constexpr int kMostBars = 15;

public Q_SLOTS:
    void SetChart();
    // The product names of the chosen category, or of every one.
    void LoadProducts();

private:
    void LoadCategories();
    // Sums the spending; false when no purchase matches.
    bool Gather();
    void Draw(const QString& title);

    QList<Bar> bars_;
    QAbstractBarSeries* series_ = nullptr;
};
