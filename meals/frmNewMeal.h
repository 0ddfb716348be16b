#pragma once

#include "core/GuardedDialog.h"

#include <QDate>
#include <QPointer>
#include <QStringList>

class QAction;
class QMenu;
class QToolBar;
class QTreeWidget;
class QTreeWidgetItem;

// The meal planner. Recipes are dragged from the recipe tree onto the courses
// of a meal; the plan lives in the meal tree until it is saved, and the
// running list beside it shows what the plan will buy. While a plan is not
// saved the program knows a meal is being edited.
//
// A meal's node: the name (its date, when it has one, in the node's tag), its
// mealtimes Breakfast, Lunch and Dinner, and under each the courses
// Appetizer, Main Course and Dessert. A course's tag is its path
// ("Meal//Lunch//Main Course"), and its text is the recipe title or, while
// empty, the course label.
class frmNewMeal : public GuardedDialog {
    Q_OBJECT
public:
    explicit frmNewMeal(QWidget* parent = nullptr);
    ~frmNewMeal() override;

    enum Role { KeyRole = 0x0100, TagRole };
    enum Grouping { ByCourse = 1, ByCourseAndCategory = 2 };
    enum ListColumn { colItem, colQty, colManufacturer, colSize, colStyle, colCpn };

    QTreeWidget* tvRecipes = nullptr;
    QTreeWidget* tvMealList = nullptr;
    QTreeWidget* lvShoppingList = nullptr;
    QTreeWidget* lvGuests = nullptr;
    QToolBar* tbMeal = nullptr;
    QToolBar* tbShopList = nullptr;
    QToolBar* tbGuests = nullptr;

    // The planner on show, made and shown when there is none.
    static frmNewMeal* Open();
    // The planner with an empty meal for `day` (nothing when the day is taken
    // or past; the person is told why), or with the saved meal `name` and its
    // courses. Each gives the meal's node, nullptr when none was added.
    static QTreeWidgetItem* OpenForDate(const QDate& day);
    static QTreeWidgetItem* OpenForMeal(const QString& name);

    // Fills the recipe tree grouped by course, or by course and category.
    void LoadRecipes(int grouping);
    // The meal's node, made with its mealtimes and courses; with `withContents`
    // the courses of a saved meal of that name are filled in. A name that is a
    // date shows as the long date. An existing node of that name is given back.
    QTreeWidgetItem* CreateEmptyNode(const QString& name, bool withContents, const QString& date);
    // Adds empty meals for the dates ("::"-joined), refusing taken and past days.
    void AddMealDates(const QString& dates);

    // `title` dropped on `target` of the meal tree.
    void tvMealList_DragDrop(QTreeWidgetItem* target, const QString& title);
    // `title` dropped on `target` of the recipe tree: it becomes a recipe of
    // that course.
    void tvRecipes_DragDrop(QTreeWidgetItem* target, const QString& title);
    // Puts `title` on the course of the meal `mealName`, the course told by its
    // tag ("Meal//Dinner//Main Course"); the meal is added when missing. What
    // a drop of the recipe there does.
    bool AddRecipeAsCourse(const QString& mealName, const QString& courseTag, const QString& title);
    // Mode 2 adds the recipe's ingredients to the running list, mode 1 takes
    // them off again.
    void AdjustShoppingList(const QString& title, int mode);

    QTreeWidgetItem* FindMeal(const QString& name) const;
    QTreeWidgetItem* FindCourse(QTreeWidgetItem* meal, const QString& courseTag) const;
    // Whether a course node holds a recipe rather than its label.
    static bool HoldsRecipe(const QTreeWidgetItem* course);
    bool Changed() const { return changed_; }

public Q_SLOTS:
    void tbMeal_ButtonClick(const QString& key);
    void tbShopList_ButtonClick(const QString& key);
    void tbGuests_ButtonClick(const QString& key);
    void cmdSave_Click();
    void mnuSaveMealAs_Click();
    void mnuSaveCourseAsMeal_Click();
    void mnuRemoveRecipeFromMeal_Click();
    void mnuRenameMeal_Click();
    void mnuChangeDate_Click();
    void mnuDeleteMeal_Click();
    void mnuPurgeOldMeals_Click();
    void mnuToggleFavoriteMeal_Click();
    void mnuExpandView_Click();
    void mnuDisplayRecipe_Click();
    void mnuListItemDelete_Click();
    void lvGuests_ItemCheck(QTreeWidgetItem* item, int column);

protected:
    bool MayClose() override;
    void Closing() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void BuildLayout();
    void LoadGuests();
    void SetChanged(bool changed);
    void EnableListButtons();
    QTreeWidgetItem* SelectedMeal() const;
    QString SelectedRecipe() const;
    QStringList RecipesOf(QTreeWidgetItem* meal) const;
    bool AnyRecipe() const;
    bool AnyGuestChecked() const;
    // Writes the meal's mealtimes that hold recipes as its rows.
    void WriteMeal(QTreeWidgetItem* meal);
    void SaveGuests(QTreeWidgetItem* meal);
    QString PickDate(const QString& prompt, const QDate& current);

    bool changed_ = false;
    bool loadingGuests_ = false;
    QMenu* mealMenu_ = nullptr;
    QMenu* recipeMenu_ = nullptr;
    QMenu* listMenu_ = nullptr;
    static QPointer<frmNewMeal> open_;
};
