#pragma once

#include <QDialog>
#include <QPointer>

class QCheckBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QRadioButton;
class QSlider;
#include "recipes/frmSuggestedRecipes.h"

// "Suggestions Options": what the suggestions are to lean on, and how sure
// they must be, before a run.
class frmSuggestedRecipeSetup : public QDialog {
    Q_OBJECT
public:
    explicit frmSuggestedRecipeSetup(QWidget* parent = nullptr);

    QRadioButton* optEntered;
    QRadioButton* optHistory;
    QRadioButton* optPreferences;
    QLineEdit* txtKeywords;
    QListWidget* lbCategories;
    QPushButton* cmdSelection;
    QSlider* Slider1;
    QLabel* lblHitPercent;
    QCheckBox* chkLimitCategories;
    QCheckBox* chkFavoritesOnly;
    QCheckBox* chkUsedBefore;
    QGroupBox* frOptions;
    QPushButton* cmdOptions;
    QPushButton* cmdMoreOptions;
    QPushButton* cmdGo;
    QPushButton* cmdCancel;

    // The results of the last run that found any.
    frmSuggestedRecipes* Results() const { return results_; }

public Q_SLOTS:
    void cmdGo_Click();
    void cmdSelection_Click();
    void cmdOptions_Click();
    void cmdMoreOptions_Click();
    void Slider1_Change(int value);
    void SourceChanged();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QPointer<frmSuggestedRecipes> results_;
};
