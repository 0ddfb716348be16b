#pragma once

#include <QObject>
#include <QString>

class QStandardItem;

// What a screen or a table class changed that the main window shows. Each
// signal stands for one refresh of the window: the window listens and reloads
// the pane or panel, so nothing below it needs to know the window exists.
class ChangeNotices : public QObject {
    Q_OBJECT
public:
    static ChangeNotices& Instance();

    // A piece of work that changes many rows holds the list and meal reloads
    // while it runs, so that the window reads each pane once at its end rather
    // than once per row. Holds nest; the outermost release sends what was asked.
    void Hold();
    void Release();
    // LoadShoppingList and LoadMealList, now or when the outermost hold ends.
    void ShoppingListChanged();
    void MealListChanged();

Q_SIGNALS:
    void LoadRecipies();
    void LoadAllCoupons();
    void LoadShoppingList();
    void LoadMealList();
    void LoadMessages();
    void LoadQuickStart();
    void SetCurrentInventory();
    void SetCurrentRecipieCount();
    // The recipe tree's marks changed; the tree shows or hides by its filter again.
    void ApplyRecipeFilter();
    // One line in the status bar saying what a finished piece of work did.
    void SetMessage(const QString& text);
    // The cookbook panel of the status bar shows `text` as it stands.
    void SetCookbookPanel(const QString& text);
    // A message written while the program runs joins the message centre.
    void AddMessage(const QString& title, const QString& body, const QString& date, int type);
    // A node just added to a pane is opened and scrolled into view.
    void ShowNode(QStandardItem* node);

private:
    ChangeNotices() = default;

    int holds_ = 0;
    bool listAsked_ = false;
    bool mealsAsked_ = false;
};

inline ChangeNotices& Notices() { return ChangeNotices::Instance(); }

// Holds the reloads for as long as it lives.
class NoticeBatch {
public:
    NoticeBatch() { Notices().Hold(); }
    ~NoticeBatch() { Notices().Release(); }
    NoticeBatch(const NoticeBatch&) = delete;
    NoticeBatch& operator=(const NoticeBatch&) = delete;
};
