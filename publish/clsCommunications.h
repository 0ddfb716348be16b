#pragma once

#include <QString>
#include <functional>

// Mail leaves the program only as a mailto: link handed to the user's own mail
// program; there is no mail protocol in here.
class clsCommunications {
public:
    // "mailto:" + address, then "?Subject=", "&Body=" and "&Attach=" for the
    // parts that are not empty. Subject and body go in as typed: a "&" in them
    // ends the field early in the mail program.
    // Returns the link that was handed on.
    QString SendEmail(const QString& Address, const QString& Subject, const QString& Body, const QString& Attachment);

    // The link as SendEmail builds it, without opening anything.
    static QString MailLink(const QString& Address, const QString& Subject, const QString& Body,
                            const QString& Attachment);

    // The pattern "*@[A-Z,a-z,0-9]*.*": an at sign, a letter, digit (or comma)
    // right after it, and a dot somewhere after that.
    static bool IsValidAddress(const QString& text);

    // What opens a link ("mailto:", a file) with the desktop's handler. Tests put
    // their own here to see the link instead of starting a mail program; an
    // empty function puts the desktop's handler back.
    using LinkOpener = std::function<bool(const QString& link)>;
    static void SetLinkOpener(LinkOpener opener);
    static bool OpenLink(const QString& link);
};
