#pragma once

#include <QDialog>

class QComboBox;
class QLineEdit;
class QPushButton;
class QToolButton;

// Expresses a quantity of one measure in another through the conversion chart.
// The recipe screen may choose the first measure and the quantity before it
// shows the window.
class frmConvertMeasures : public QDialog {
    Q_OBJECT
public:
    explicit frmConvertMeasures(QWidget* parent = nullptr);

    QComboBox* cboFromUnit;
    QComboBox* cboToUnit;
    QLineEdit* txtQuantity;
    // The up-down control beside the quantity: a step of one either way.
    QToolButton* udQuantityUp;
    QToolButton* udQuantityDown;
    QPushButton* cmdCalculate;
    QPushButton* cmdClose;

    // Picks the measure in the list, ignoring case; false when it is not there.
    bool selectFromUnit(const QString& unit);
    bool selectToUnit(const QString& unit);

public Q_SLOTS:
    void Form_Load();
    void cmdCalculate_Click();
    void cmdClose_Click();
    void txtQuantity_LostFocus();
    void udQuantity_Change(int step);
    // Calculate is open only with both measures and a numeric quantity.
    void EnableCalculate();
};
