#include "messages/clsComments.h"

#include "core/ErrorReport.h"
#include "core/Values.h"

QString clsComments::Comment() const { return TextOf(rs.Field(QStringLiteral("Comment"))); }
qint32 clsComments::ID() const { return CLng(rs.Field(QStringLiteral("ID"))); }

bool clsComments::AddComment(const QString& text, qint32 id) {
    return Trapped(QStringLiteral("Comments.AddComment"), false, [&] {
        OpenForAdd(QStringLiteral("Comments"));
        rs.setField(QStringLiteral("Comment"), text);
        rs.setField(QStringLiteral("ID"), id);
        rs.Update();
        CloseDB();
        return true;
    });
}
