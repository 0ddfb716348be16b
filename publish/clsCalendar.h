#pragma once

#include <QDateTime>
#include <QString>

// One event written as a vCalendar 1.0 file (".vcs") that a desktop calendar
// can take in, with the offer to mail it on.
class clsCalendar {
public:
    QString Summary;
    QString Description;
    QString Location;
    QString Attendee;
    // A date left unset is written as an empty field after its keyword.
    QDateTime StartDate;
    QDateTime EndDate;
    QDateTime DueDate;
    QDateTime CompletedDate;
    QDateTime CreatedDate;

    // "YYYYMMDDTHHMMSS"; "" for an unset date.
    static QString ConvertTovCalDateTime(const QDateTime& DateValue);
    // Reads the fixed places of "YYYYMMDDTHHMMSS". A null date (and the error
    // box) when the places do not hold numbers.
    static QDateTime ConvertFromvCalDateTime(const QString& Text);

    // Writes <temp folder>/<name>.vcs, offers to mail it, and gives its path
    // ("" when it could not be written).
    QString WriteData(const QString& FileBaseName);

    // The text of the file, lines ended by CR LF.
    QString Text() const;
    // The file's name for an event name: characters no file name may hold
    // become "_".
    static QString FileNameFor(const QString& FileBaseName);
};
