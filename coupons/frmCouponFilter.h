#pragma once

#include <QDialog>
#include <QString>

class QComboBox;
class QDateEdit;
class QLabel;
class QPushButton;

// Narrows the coupon list to one manufacturer, product or store, or to the
// coupons that expire before a date.
class frmCouponFilter : public QDialog {
    Q_OBJECT
public:
    // The kinds of filter, as the coupon list takes them.
    enum Kind { ByManufacturer = 1, ByProduct = 2, ByExpiration = 3, ByStore = 4 };

    explicit frmCouponFilter(QWidget* parent = nullptr);

    // Shows the screen; true with the kind and its value when the person chose
    // one. An expiry date comes back as "mm/dd/yyyy".
    bool GetFilterData(int& kind, QString& value);
    // The values of one column of the coupons, each once, in order.
    void LoadFilterData(const QString& field);

    // The kind chosen in cboReduceTable, and the value the screen would return.
    int Kind() const;
    QString Value() const;

    QComboBox* cboReduceTable;
    QLabel* lblPrompt;
    QComboBox* cboFilterData;
    QDateEdit* dtpFilterDate;
    QPushButton* cmdOK;
    QPushButton* cmdCancel;

public Q_SLOTS:
    void cboReduceTable_Click();
    void cmdOK_Click();
};
