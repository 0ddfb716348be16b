#pragma once

#include "core/RecordsetClass.h"

// The message centre's notes and reminders (table Messages).
class clsMessages : public RecordsetClass {
public:
    QString Subject() const;                  // reads Title
    void Subject(const QString& v) { subject_ = v.left(50); }
    QString Body() const;
    void Body(const QString& v) { body_ = v; }
    QString MesDate() const;                  // reads Date
    void MesDate(const QString& v) { date_ = v; }
    qint32 ReminderTime() const;
    void ReminderTime(qint32 v) { reminderTime_ = v; }

private:
    QString subject_;
    QString body_;
    QString date_;
    qint32 reminderTime_ = 0;
};
