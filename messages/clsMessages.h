#pragma once

#include "core/RecordsetClass.h"

// The message centre's notes and reminders (table Messages). A row is found by
// its Title; Type 1 is a reminder, 2 a plain message. ReminderTime is the
// reminder's state: 1 remind at exit, 2 and 3 the timed choices (kept, but
// they act like 1), 4 fresh or ignored for this run.
class clsMessages : public RecordsetClass {
public:
    QString Subject() const;  // reads Title
    void Subject(const QString& v) { subject_ = v.left(50); }
    QString Body() const;
    void Body(const QString& v) { body_ = v; }
    QString MesDate() const;  // reads Date
    void MesDate(const QString& v) { date_ = v; }
    qint32 ReminderTime() const;
    void ReminderTime(qint32 v) { reminderTime_ = v; }

    // Adds a row from the arguments (not the kept members). On an empty table
    // the body becomes "(None)", in the caller's own text as well.
    bool WriteNew(const QString& title, QString& body, const QString& date, int type, int reminderTime);
    bool WriteNew(const QString& title, const QString& body, const QString& date, int type, int reminderTime);
    // Writes one kept member to the first row of that title: the body when one
    // was kept, else the date, else the reminder time. Callers set one member
    // at a time. False when no row has the title.
    bool UpdateMessage(const QString& title);
    bool Exists(const QString& title);
    // Deletes the first row of that title.
    bool DelMessage(const QString& title);
    // Offers to delete every message dated before now; gives how many went.
    qint32 PurgeExpired();
    // The message as a calendar event file from today to a week on (due on the
    // message's date when it has one), through the calendar writer; gives the
    // file's path ("" when none was written).
    QString ExportToOutlook(const QString& title, const QString& body = QString(),
                            const QString& date = QStringLiteral("None"));

    // Takes the first item titled `title` out of the message centre pane.
    static bool RemoveFromMessageCenter(const QString& title);

private:
    QString subject_;
    QString body_;
    QString date_;
    qint32 reminderTime_ = 0;
};
