#pragma once

#include <QDialog>

class QLineEdit;
class QPushButton;

// Adding a store: its name, how many aisles it has and its fax number; Next
// saves it and goes on to lay out its aisles.
class frmNewStore : public QDialog {
    Q_OBJECT
public:
    explicit frmNewStore(QWidget* parent = nullptr);

    QLineEdit* txtStoreName;
    QLineEdit* txtIsleCount;
    QLineEdit* txtFaxNumber;
    QPushButton* cmdNext;
    QPushButton* cmdCancel;

    // The store added, "" until one is.
    QString AddedStore() const { return added_; }

public Q_SLOTS:
    // False when the count was refused.
    bool txtIsleCount_Validate();
    void cmdNext_Click();

private:
    QString added_;
};
