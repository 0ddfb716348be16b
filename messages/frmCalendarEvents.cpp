#include "messages/frmCalendarEvents.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QTreeView>
#include <QVBoxLayout>

#include "core/ChangeNotices.h"
#include "core/Dates.h"
#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/MainPanes.h"
#include "core/PaneIcons.h"
#include "core/Values.h"
#include "messages/clsMessages.h"
#include "platform/Clock.h"
#include "platform/Recordset.h"
#include "platform/Report.h"
#include "platform/Ui.h"

namespace {

// Role of each event node: the message's date as stored.
constexpr int DateRole = MainPanes::ImageKeyRole + 10;

QLabel* Link(const QString& name, const QString& caption, QWidget* parent) {
    auto* label =
        new QLabel(QStringLiteral("<a href=\"#\">") + caption.toHtmlEscaped() + QStringLiteral("</a>"), parent);
    label->setObjectName(name);
    label->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    return label;
}

}  // namespace

frmCalendarEvents::frmCalendarEvents(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmCalendarEvents"));
    setWindowTitle(QStringLiteral("Todays Events"));
    lblDate = new QLabel(this);
    lblDate->setObjectName(QStringLiteral("lblDate"));
    QFont heading = lblDate->font();
    heading.setBold(true);
    heading.setPointSizeF(heading.pointSizeF() * 1.2);
    lblDate->setFont(heading);
    tvTODO = new QTreeView(this);
    tvTODO->setObjectName(QStringLiteral("tvTODO"));
    tvTODO->setModel(&events);
    tvTODO->setHeaderHidden(true);
    tvTODO->setEditTriggers(QAbstractItemView::NoEditTriggers);
    tvTODO->setItemDelegate(new PaneIconDelegate(tvTODO));
    lblImTooBusy = Link(QStringLiteral("lblImTooBusy"), QStringLiteral("I'm too busy today"), this);
    lblPrintToday = Link(QStringLiteral("lblPrintToday"), QStringLiteral("Print today's events"), this);
    connect(lblImTooBusy, &QLabel::linkActivated, this, &frmCalendarEvents::lblImTooBusy_Click);
    connect(lblPrintToday, &QLabel::linkActivated, this, &frmCalendarEvents::lblPrintToday_Click);

    auto* links = new QHBoxLayout;
    links->addWidget(lblImTooBusy);
    links->addStretch();
    links->addWidget(lblPrintToday);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(lblDate);
    layout->addWidget(tvTODO, 1);
    layout->addLayout(links);
    resize(380, 420);

    Form_Load();
}

void frmCalendarEvents::Form_Load() {
    Trap(QStringLiteral("frmCalendarEvents.Form_Load"), [&] {
        const QDate today = Clock::Today();
        lblDate->setText(Format(QVariant(today), QStringLiteral("dddd, mmm d yyyy")));
        events.clear();
        QStandardItem* root = MainPanes::MakeNode(QStringLiteral("Message"), QStringLiteral("Messages"));
        MainPanes::Instance().SetBold(root);
        events.appendRow(root);

        Recordset rs;
        rs.Open(QStringLiteral("SELECT * FROM Messages"), ConnectionMain(), adOpenKeyset, adLockReadOnly);
        while (!rs.IsEOF()) {
            const QVariant when = rs.Field(QStringLiteral("Date"));
            if (IsDate(when)) {
                QStandardItem* node = MainPanes::MakeNode(QString(), TextOf(rs.Field(QStringLiteral("Title"))));
                node->setData(TextOf(when), DateRole);
                const qint64 days = DateDiff(QStringLiteral("d"), QDateTime(today, QTime(0, 0)), CDate(when));
                if (days == 0) {
                    MainPanes::Instance().SetImageKey(node, QStringLiteral("Today"));
                } else if (days < 0) {
                    MainPanes::Instance().SetImageKey(node, QStringLiteral("Notice"));
                } else {
                    MainPanes::Instance().SetImageKey(node, QStringLiteral("Generic"));
                    MainPanes::Instance().SetColour(node, QColor(100, 100, 100));
                }
                root->appendRow(node);
            }
            rs.MoveNext();
        }
        rs.Close();
        tvTODO->expandAll();
    });
}

void frmCalendarEvents::lblImTooBusy_Click() {
    Trap(QStringLiteral("frmCalendarEvents.lblImTooBusy"), [&] {
        Response = MsgBox(QStringLiteral("This will Postpone all of todays events until tomorrow, Are you sure?"),
                          Box::YesNo + Box::Question, QStringLiteral("Postpone?"));
        if (Response != Answer::Yes) return;
        // Each of today's rows moves to the same time tomorrow.
        const QDate today = Clock::Today();
        Recordset rs;
        rs.Open(QStringLiteral("SELECT * FROM Messages"), ConnectionMain(), adOpenKeyset, adLockOptimistic);
        while (!rs.IsEOF()) {
            const QVariant when = rs.Field(QStringLiteral("Date"));
            if (IsDate(when) && CDate(when).date() == today) {
                rs.setField(QStringLiteral("Date"), DateAdd(QStringLiteral("d"), 1, CDate(when)));
                rs.Update();
            }
            rs.MoveNext();
        }
        rs.Close();
        Q_EMIT Notices().LoadMessages();
        Form_Load();
    });
}

void frmCalendarEvents::lblPrintToday_Click() {
    Trap(QStringLiteral("frmCalendarEvents.lblPrintToday"), [&] {
        Report report(QStringLiteral("Todays Events"));
        report.AddHeading(lblDate->text());
        report.SetColumns(QStringList{QStringLiteral("Subject"), QStringLiteral("Date")});
        QStandardItem* root = events.item(0);
        for (int i = 0; root && i < root->rowCount(); ++i) {
            QStandardItem* node = root->child(i);
            const QString when = node->data(DateRole).toString();
            report.AddRow({node->text(), Format(QVariant(CDate(when)), QStringLiteral("mm/dd/yyyy"))});
        }
        report.Print(this, true);
    });
}
