#include "recipes/RecipeComparisons.h"

#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/Values.h"
#include "core/modVerify.h"
#include "platform/Recordset.h"

RecipeComparisons& RecipeComparisons::Instance() {
    static RecipeComparisons list;
    return list;
}

bool RecipeComparisons::RemoveFirst(const QString& title) {
    const int at = titles_.indexOf(title);
    if (at < 0) return false;
    titles_.removeAt(at);
    return true;
}

RecipeComparisons::Entry RecipeComparisons::Describe(const QString& title, bool* found) {
    Entry entry;
    entry.title = title;
    if (found) *found = false;
    Recordset rs;
    rs.Open(QStringLiteral("SELECT * FROM Recipie WHERE [Title] = '") + QuoteSql(title) + QStringLiteral("'"),
            ConnectionMain(), adOpenKeyset, adLockReadOnly);
    if (rs.IsEOF()) return entry;
    if (found) *found = true;
    const auto text = [&rs](const char* name) { return TextOf(rs.Field(QString::fromLatin1(name))); };
    QString prep = text("PrepTime");
    if (prep.trimmed().isEmpty()) prep = QStringLiteral("Not Given");
    QString used = text("TimesUsed");
    if (used.isEmpty()) used = QStringLiteral("0");
    QString line = QStringLiteral("Style:") + text("Style") + QStringLiteral("; Course: ") + text("Course") +
                   QStringLiteral("; Prep: ") + prep + QStringLiteral("; Serves: ") + text("Servings");
    const QVariant favorite = rs.Field(QStringLiteral("Favorite"));
    if (!IsNull(favorite) && CBool(favorite)) line += QStringLiteral("; Marked as Favorite");
    line += QStringLiteral("; Cookbook: ") + text("CookbookName") + QStringLiteral("; Used: ") + used;
    entry.details = line;
    QString method = text("Instructions");
    method.replace(QLatin1Char('~'), QLatin1Char(' '));
    entry.instructions =
        method.size() > InstructionsShown ? method.left(InstructionsShown) + QStringLiteral("...") : method;
    return entry;
}

QList<RecipeComparisons::Entry> RecipeComparisons::Entries() const {
    QList<Entry> out;
    for (const QString& title : titles_) {
        bool found = false;
        const Entry entry = Trap(QStringLiteral("frmRecipeComparisons.LoadComparisons"), Entry{},
                                 [&] { return Describe(title, &found); });
        if (found) out << entry;
    }
    return out;
}
