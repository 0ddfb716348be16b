#include "publish/clsCommunications.h"

#include <QDesktopServices>
#include <QRegularExpression>
#include <QUrl>

#include "core/ErrorReport.h"

namespace {

clsCommunications::LinkOpener& Opener() {
    static clsCommunications::LinkOpener opener;
    return opener;
}

bool DesktopOpen(const QString& link) {
    // Tolerant: the subject and body are not encoded, so let the URL class
    // escape what it must.
    return QDesktopServices::openUrl(QUrl(link, QUrl::TolerantMode));
}

}  // namespace

QString clsCommunications::MailLink(const QString& Address, const QString& Subject, const QString& Body,
                                    const QString& Attachment) {
    QString link = QStringLiteral("mailto:") + Address;
    if (!Subject.isEmpty()) link += QStringLiteral("?Subject=") + Subject;
    if (!Body.isEmpty()) link += QStringLiteral("&Body=") + Body;
    if (!Attachment.isEmpty()) {
        QString path = Attachment;
        path.replace(QLatin1Char(' '), QStringLiteral("%20"));
        link += QStringLiteral("&Attach=\"") + path + QLatin1Char('"');
    }
    return link;
}

QString clsCommunications::SendEmail(const QString& Address, const QString& Subject, const QString& Body,
                                     const QString& Attachment) {
    return Trap(QStringLiteral("clsCommunications.SendEmail"), QString(), [&] {
        const QString link = MailLink(Address, Subject, Body, Attachment);
        OpenLink(link);
        return link;
    });
}

bool clsCommunications::IsValidAddress(const QString& text) {
    static const QRegularExpression pattern(QStringLiteral("\\A.*@[A-Z,a-z0-9].*\\..*\\z"),
                                            QRegularExpression::DotMatchesEverythingOption);
    return pattern.match(text).hasMatch();
}

void clsCommunications::SetLinkOpener(LinkOpener opener) { Opener() = std::move(opener); }

bool clsCommunications::OpenLink(const QString& link) {
    if (Opener()) return Opener()(link);
    return DesktopOpen(link);
}
