#pragma once

#include "platform/Currency.h"

#include <QDialog>

class QLabel;
class QLineEdit;
class QPushButton;

// Changes the cost of one item: the old cost shown, the new one typed, and the
// desktop's calculator at hand.
class frmShoppingListEditCost : public QDialog {
    Q_OBJECT
public:
    explicit frmShoppingListEditCost(QWidget* parent = nullptr);

    // Shows the screen with `oldCost` and waits; true with the new cost in
    // `newCost` when the person gave one.
    static bool GetNewCost(const Currency& oldCost, Currency& newCost, QWidget* parent = nullptr);

    void SetOldCost(const Currency& cost);
    Currency NewCost() const { return newCost_; }

    QLabel* lblOldCost;
    QLineEdit* txtNewCost;
    QPushButton* cmdCalculator;
    QPushButton* cmdOK;
    QPushButton* cmdCancel;

public Q_SLOTS:
    void cmdOK_Click();
    void cmdCalculator_Click();

private:
    Currency newCost_;
};
