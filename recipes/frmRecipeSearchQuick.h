#pragma once

#include <QDialog>

class QCheckBox;
class QComboBox;
class QPushButton;
class QRadioButton;
class QStandardItem;

// Finds nodes of the main window's recipe tree by their text, one after the
// other from where the last find stopped, selecting each in the tree.
class frmRecipeSearchQuick : public QDialog {
    Q_OBJECT
public:
    explicit frmRecipeSearchQuick(QWidget* parent = nullptr);
    ~frmRecipeSearchQuick() override;

    QComboBox* cboSearch;
    QCheckBox* chkMatch;
    QRadioButton* optCurrentCategories;
    QRadioButton* optAll;
    QPushButton* cmdFindNext;
    QPushButton* cmdClose;

    // Opens the screen beside the main window.
    static void Launch();

public Q_SLOTS:
    // Selects the next matching node; false when none follows.
    bool cmdFindNext_Click();

protected:
    void done(int result) override;

private:
    void Remember();
    QStandardItem* last_ = nullptr;
    QString lastText_;
    int found_ = 0;
    bool saved_ = false;
};
