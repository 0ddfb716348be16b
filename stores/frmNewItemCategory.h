#pragma once

#include <QDialog>

class QLineEdit;
class QPushButton;
class QTreeWidget;

// The item categories with the number of products in each: add, rename and
// delete them.
class frmNewItemCategory : public QDialog {
    Q_OBJECT
public:
    explicit frmNewItemCategory(QWidget* parent = nullptr);

    QTreeWidget* lvItemCategories;
    QLineEdit* txtCategory;
    QPushButton* cmdAddNew;
    QPushButton* cmdClose;

    QString SelectedCategory() const;

public Q_SLOTS:
    void LoadCategories();
    void cmdAddNew_Click();
    void mnuDeleteCategory_Click();
    void mnuRenameCategory_Click();
    void mnuShowItemsInCategory_Click();
};
