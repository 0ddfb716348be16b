#pragma once

#include <QDialog>
#include <QString>

class QLineEdit;
class QPushButton;
class QTreeWidget;

// Picks the recipe whose ingredients go onto a list: the titles holding the
// typed text, narrowed as the person types.
class frmShoplistRecipeSearch : public QDialog {
    Q_OBJECT
public:
    explicit frmShoplistRecipeSearch(QWidget* parent = nullptr);

    // The chosen recipe's title; "" when cancelled.
    static QString GetRecipe(QWidget* parent = nullptr);

    QLineEdit* txtSearch;
    QTreeWidget* lvRecipes;
    QPushButton* cmdOK;
    QPushButton* cmdCancel;

    QString SelectedTitle() const;

public Q_SLOTS:
    void LoadRecipes();
};
