#pragma once

#include <QString>
#include <QStringList>

class QTreeWidget;

// Scores every recipe against the keywords, the household's category history
// and the categories picked, and adds to `list` (columns: title, hit %,
// reasons) each recipe scoring strictly above `hitPercent`. `result` tells
// whether a row was added. The counters are 16-bit: an overflow before the
// category step ends the run in the error box; from the category step on,
// failures are passed over for the rest of the run, as a history row without
// a count must not stop the suggestions.
void GetSuggestions(QTreeWidget* list, const QString& keywords, const QStringList& categories, bool limit,
                    bool favorites, bool used, qint16 hitPercent, bool& result);
