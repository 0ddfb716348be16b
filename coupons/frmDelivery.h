#pragma once

#include "core/GuardedDialog.h"

class QCheckBox;
class QComboBox;
class QDateEdit;
class QLineEdit;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

// The delivery coupons as a working list: lines are added and removed in
// memory, and only the lines not yet written ("Unsaved") go to the table on
// Apply or Save.
class frmDelivery : public GuardedDialog {
    Q_OBJECT
public:
    explicit frmDelivery(QWidget* parent = nullptr);

    QTreeWidget* lvDeliveryCoupons;
    QComboBox* cboType;
    QComboBox* cboRestaurant;
    QComboBox* cboItem;
    QLineEdit* txtValue;
    QCheckBox* chkCarryOut;
    QDateEdit* dtpExpiration;
    QPushButton* cmdExpiration;
    QPushButton* cmdAdd;
    QPushButton* cmdDelete;
    QPushButton* cmdCalculator;
    QPushButton* cmdApply;
    QPushButton* cmdSave;
    QPushButton* cmdClose;

    // The state column of a line: "Saved" or "Unsaved".
    static constexpr int StateColumn = 5;
    int UnsavedCount() const;

public Q_SLOTS:
    void LoadDeliveryCoupons();
    // True when every unsaved line reached the table.
    bool SaveDeliveryCoupons();
    void cmdAdd_Click();
    void cmdDelete_Click();
    void cmdExpiration_Click();
    void cmdCalculator_Click();
    void cmdApply_Click();
    void cmdSave_Click();
    void cmdClose_Click();
    void txtValue_LostFocus();

protected:
    bool MayClose() override;

private:
    void AddLine(const QStringList& cells, bool carryOut, const QString& state);
};
