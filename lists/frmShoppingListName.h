#pragma once

#include <QDialog>
#include <QString>

class QCheckBox;
class QDateEdit;
class QLineEdit;
class QPushButton;

// Asks the name a list is saved under and, when it has one, the day it is
// planned for.
class frmShoppingListName : public QDialog {
    Q_OBJECT
public:
    explicit frmShoppingListName(QWidget* parent = nullptr);

    // Shows the screen with `name` and `date` filled in and waits. On OK both
    // come back with what was entered (the date "" when the list has none) and
    // the answer is true; on Cancel they stay as they were.
    static bool GetName(QString& name, QString& date, QWidget* parent = nullptr);

    QLineEdit* txtName;
    QCheckBox* chkDate;
    QDateEdit* dtpDate;
    QPushButton* cmdOK;
    QPushButton* cmdCancel;

    QString Name() const;
    // In the user's date format; "" when the list is not planned for a day.
    QString DateText() const;
    void SetValues(const QString& name, const QString& date);

private:
    void RefreshButtons();
};
