#pragma once

#include <QDialog>

class QComboBox;
class QLineEdit;
class QPushButton;

// Asks the name (up to 30 characters) and category under which a meal is
// saved. The category list offers the meal categories; a new one is added.
class frmNewMealName : public QDialog {
    Q_OBJECT
public:
    explicit frmNewMealName(QWidget* parent = nullptr);

    QLineEdit* txtMealName;
    QComboBox* cboCategory;
    QPushButton* cmdSaveMeal;
    QPushButton* cmdCancel;

    // Shows the screen and gives "<name>%%<category>", "" when cancelled.
    static QString GetMealName(QWidget* parent, const QString& suggested = QString());
    QString Result() const { return result_; }

public Q_SLOTS:
    // False when the name was refused (the box is then emptied or left).
    bool txtMealName_Validate();
    void cmdSaveMeal_Click();

private:
    QString result_;
    QString validated_;  // the last name that passed, so it is not asked twice
};
