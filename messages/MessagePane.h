#pragma once

#include <QString>

// Fills the message centre from the Messages table and adds the messages
// written while the program runs.
namespace MessagePane {
void LoadMessages();
void AddMessage(const QString& title, const QString& body, const QString& date, int type);
// A stored date in the user's display form; words ("None") and anything else
// that is not a date show as they are.
QString ShownDate(const QString& date, const QString& pattern);
}  // namespace MessagePane
