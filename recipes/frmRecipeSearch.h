#pragma once

#include <QDialog>
#include <QPointer>

class QCheckBox;
class QComboBox;
class QLineEdit;
class QPushButton;
#include "recipes/frmRecipeList.h"

// Finds recipes by up to three conditions, each a field, a way of comparing
// and a text; the rows found go to a recipe list.
class frmRecipeSearch : public QDialog {
    Q_OBJECT
public:
    explicit frmRecipeSearch(QWidget* parent = nullptr);

    static constexpr int Rows = 3;
    QComboBox* cboField[Rows];
    QComboBox* cboOption[Rows];
    QLineEdit* txtSearch[Rows];
    QCheckBox* chkFavoritesOnly;
    QCheckBox* chkUsedOnly;
    QCheckBox* chkCloseFormAtEnd;
    QCheckBox* chkDisplayInSeperateForm;
    QCheckBox* chkSuggestedOnly;
    QPushButton* cmdSearch;
    QPushButton* cmdClose;

    // The query the conditions make. The texts go in as typed.
    QString SearchText() const;
    // The list the last search filled.
    frmRecipeList* Results() const { return results_; }

public Q_SLOTS:
    void cmdSearch_Click();
    void chkSuggestedOnly_Click();

private:
    void EnableAll(bool on);
    QPointer<frmRecipeList> results_;
};
