#pragma once

#include <QList>
#include <QString>
#include <QStringList>

// The recipes the household has put side by side: a list of titles, added to
// from the recipe tree and kept for the whole session. A rename follows a
// title here as it does in meals and lists.
class RecipeComparisons {
public:
    struct Entry {
        QString title;
        QString details;       // "Style:..; Course: ..; Prep: ..; ..."
        QString instructions;  // shortened with "..."
    };

    static RecipeComparisons& Instance();

    void Add(const QString& title) { titles_ << title; }
    // Removes the first entry equal to `title`; false when there is none.
    bool RemoveFirst(const QString& title);
    void Clear() { titles_.clear(); }
    const QStringList& Titles() const { return titles_; }
    int Count() const { return int(titles_.size()); }

    // One entry per listed title that is still a recipe, read fresh.
    QList<Entry> Entries() const;
    // The details line of one recipe, "" when there is no such recipe.
    static Entry Describe(const QString& title, bool* found = nullptr);

    // How much of the method an entry shows before "...".
    static constexpr int InstructionsShown = 120;

private:
    RecipeComparisons() = default;
    QStringList titles_;
};
