#pragma once

#include "core/GuardedDialog.h"

class QLabel;
class QListWidget;
class QPushButton;

// Which recipe categories make which course: categories are moved from the
// unsorted list to the appetizers, main courses or deserts, and saved as the
// category-to-course map (which also sets the course of the recipes).
class frmRecCourses : public GuardedDialog {
    Q_OBJECT
public:
    explicit frmRecCourses(QWidget* parent = nullptr);

    QListWidget* lstCategories;
    QListWidget* lstAppetizers;
    QListWidget* lstMainCourses;
    QListWidget* lstDeserts;
    QPushButton* cmdAddAppetizer;
    QPushButton* cmdAddMainCourse;
    QPushButton* cmdAddDeserts;
    QPushButton* cmdRemove;
    QPushButton* cmdResetAll;
    QPushButton* cmdSave;
    QPushButton* cmdClose;
    QLabel* lblStatus;
    bool Changed() const { return changed_; }

public Q_SLOTS:
    void LoadCategories();
    void cmdAddAppetizer_Click();
    void cmdAddMainCourse_Click();
    void cmdAddDeserts_Click();
    void cmdRemove_Click();
    void cmdResetAll_Click();
    void cmdSave_Click();

protected:
    bool MayClose() override;

private:
    void MoveTo(QListWidget* target);

    bool changed_ = false;
};
