#pragma once

#include <QDialog>

class QLineEdit;
class QPushButton;
class QTreeWidget;

// Picks the product bought but not listed. The answer is the product's ID,
// name, manufacturer, size and cost joined by "::", or "" when cancelled.
class frmShoppingListUpdateAdd : public QDialog {
    Q_OBJECT
public:
    explicit frmShoppingListUpdateAdd(QWidget* parent = nullptr);

    enum Column { colItem, colManufacturer, colSize, colCost };
    static constexpr int IdRole = Qt::UserRole + 1;

    QLineEdit* txtSearch;
    QPushButton* cmdSearch;
    QTreeWidget* lvProducts;
    QPushButton* cmdOK;
    QPushButton* cmdCancel;

    QString Result() const { return result_; }
    // Shows the screen and gives its answer.
    static QString GetItem(QWidget* parent);

public Q_SLOTS:
    void LoadProducts();
    void cmdSearch_Click();
    void cmdOK_Click();

private:
    QString result_;
    int searchFrom_ = 0;
};
