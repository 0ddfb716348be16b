#include "recipes/modSuggest.h"

#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/Progress.h"
#include "core/Values.h"
#include "platform/Database.h"
#include "platform/Recordset.h"
#include "platform/RuntimeError.h"

#include <QHash>
#include <QTreeWidget>
#include <optional>

namespace {

// A 16-bit counter: growing past its range raises Overflow.
void Grow(qint16& counter, qint64 by) {
    const qint64 sum = qint64(counter) + by;
    if (sum > 32767 || sum < -32768) throw RuntimeError(Err::Overflow);
    counter = qint16(sum);
}

// Once the category step has begun, a failing statement is passed over.
template <class F>
void Guarded(bool passOver, F&& step) {
    if (!passOver) {
        step();
        return;
    }
    try {
        step();
    } catch (const std::exception&) {
    }
}

bool Filled(const QVariant& v) { return !IsNull(v) && !TextOf(v).isEmpty(); }

// What the history says of one category: whether a row's name contains it,
// and the count of the first such row. Each category is asked once per run:
// a large history makes each question a walk over many thousand rows.
struct HistoryAnswer {
    bool found = false;
    QVariant timesUsed;
};

class History {
public:
    HistoryAnswer Lookup(const QString& category) {
        auto it = answers_.constFind(category);
        if (it != answers_.constEnd()) return *it;
        HistoryAnswer answer;
        Recordset rs;
        // The name goes into the query as it is: one with an apostrophe fails
        // here, and the failure is passed over like any other of this step.
        try {
            rs.Open(QStringLiteral("SELECT * FROM History WHERE [Category] LIKE '%") + category +
                        QStringLiteral("%'"),
                    ConnectionMain(), adOpenForwardOnly, adLockReadOnly);
            if (!rs.IsEOF()) {
                answer.found = true;
                answer.timesUsed = rs.Field(QStringLiteral("TimesUsed"));
            }
        } catch (const std::exception&) {
            answers_.insert(category, answer);
            throw;
        }
        answers_.insert(category, answer);
        return answer;
    }
    // The count of the table's first row: what the total query yields.
    QVariant FirstCount() {
        if (!first_) {
            Recordset rs;
            rs.Open(QStringLiteral("SELECT [TimesUsed] FROM History AS TempTotal"), ConnectionMain(),
                    adOpenForwardOnly, adLockReadOnly);
            first_ = rs.IsEOF() ? QVariant() : rs.Field(QStringLiteral("TimesUsed"));
        }
        return *first_;
    }

private:
    QHash<QString, HistoryAnswer> answers_;
    std::optional<QVariant> first_;
};

}  // namespace

void GetSuggestions(QTreeWidget* list, const QString& keywords, const QStringList& categories, bool limit,
                    bool favorites, bool used, qint16 hitPercent, bool& result) {
    Trap(QStringLiteral("Recipe.GetSuggestions"), [&] {
        const QStringList K = keywords.split(QLatin1Char(','));
        Recordset rs;
        rs.Open(favorites ? QStringLiteral("SELECT * FROM [Recipie] WHERE [Favorite] = True")
                          : QStringLiteral("SELECT * FROM [Recipie]"),
                ConnectionMain(), adOpenStatic, adLockReadOnly);
        Progress progress(QStringLiteral("Getting Suggestions ..."), rs.RecordCount(), false);
        History history;
        QList<QTreeWidgetItem*> rows;
        bool passOver = false;
        QStringList ingredientColumns;
        for (int i = 1; i <= 18; ++i) ingredientColumns << QStringLiteral("Ingredient%1").arg(i);
        int done = 0;
        // Rows gathered so far go in even when the run ends early.
        struct Flush {
            QTreeWidget* list;
            QList<QTreeWidgetItem*>& rows;
            ~Flush() {
                if (list && !rows.isEmpty()) list->addTopLevelItems(rows);
            }
        } flush{list, rows};
        for (; !rs.IsEOF(); rs.MoveNext()) {
            progress.Step(++done);
            const QVariant timesUsed = rs.Field(QStringLiteral("TimesUsed"));
            if (used && !Filled(timesUsed)) continue;
            qint16 hits = 0, possible = 0, matches = 0, uses = 0;
            QString reason;

            const QString style = TextOf(rs.Field(QStringLiteral("Style")));
            QString text = TextOf(rs.Field(QStringLiteral("Title"))) + style;
            for (const QString& column : ingredientColumns) text += TextOf(rs.Field(column));
            text += TextOf(rs.Field(QStringLiteral("Instructions")));

            // Keywords: the recipe's text is looked for inside each keyword,
            // so every keyword is a hit unless it holds the whole recipe.
            if (!keywords.isEmpty()) {
                Guarded(passOver, [&] {
                    qint16 keywordHits = 0;
                    for (const QString& k : K) {
                        Grow(possible, 1);
                        if (!k.contains(text, Qt::CaseInsensitive)) {
                            Grow(hits, 1);
                            Grow(keywordHits, 1);
                        }
                    }
                    if (keywordHits > 0) reason = QString::number(hits) + QStringLiteral(" Keyword hits;");
                });
            } else {
                Guarded(passOver, [&] { Grow(possible, 1); });
            }

            // Use.
            Guarded(passOver, [&] {
                if (Filled(timesUsed) && Val(TextOf(timesUsed)) > 0) {
                    Grow(hits, 1);
                    reason += QStringLiteral(" Used ") + TextOf(timesUsed) + QStringLiteral(" times;");
                }
                Grow(possible, 1);
            });

            // Categories.
            const QStringList own = style.split(QLatin1Char(','));
            bool inPicked = !limit;
            if (limit)
                for (const QString& c : own)
                    if (categories.contains(c)) inPicked = true;
            if (inPicked) {
                passOver = true;
                for (const QString& c : own) {
                    bool found = false;
                    QVariant first;
                    Guarded(true, [&] {
                        const HistoryAnswer answer = history.Lookup(c);
                        found = answer.found;
                        first = answer.timesUsed;
                    });
                    if (found) {
                        Guarded(true, [&] { Grow(matches, 1); });
                        Guarded(true, [&] {
                            if (IsNull(first)) throw RuntimeError(Err::InvalidUseOfNull);
                            Grow(hits, qint64(CDbl(first)));
                        });
                        QVariant total;
                        Guarded(true, [&] { total = history.FirstCount(); });
                        Guarded(true, [&] {
                            if (IsNull(total)) throw RuntimeError(Err::InvalidUseOfNull);
                            Grow(possible, qint64(CDbl(total)));
                        });
                        Guarded(true, [&] {
                            if (IsNull(total)) throw RuntimeError(Err::InvalidUseOfNull);
                            Grow(uses, qint64(CDbl(total)));
                        });
                    }
                    for (const QString& picked : categories) {
                        Guarded(true, [&] { Grow(possible, 1); });
                        if (picked == c) Guarded(true, [&] { Grow(hits, 1); });
                    }
                }
            }

            if (matches > 0)
                reason += QString::number(matches) + QStringLiteral(" Category matches with ") +
                          QString::number(uses) + QStringLiteral(" uses.");
            if (reason.endsWith(QLatin1Char(';'))) reason = reason.left(reason.size() - 1) + QLatin1Char('.');

            if (possible == 0) {
                // Only reachable when every count above was passed over.
                if (!passOver) throw RuntimeError(Err::DivisionByZero);
                continue;
            }
            const double score = double(hits) / double(possible) * 100.0;
            if (score > hitPercent) {
                auto* row = new QTreeWidgetItem;
                row->setText(0, TextOf(rs.Field(QStringLiteral("Title"))));
                row->setText(1, QString::number(qint64(score)));
                row->setText(2, reason);
                rows << row;
                result = true;
            }
        }
    });
}
