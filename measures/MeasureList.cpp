#include "measures/MeasureList.h"

#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/Values.h"
#include "platform/Recordset.h"

#include <QAction>
#include <QHeaderView>
#include <QToolBar>
#include <QTreeWidget>
#include <QVBoxLayout>

MeasureList::MeasureList(const QString& objectName, const QString& title, const QStringList& headers,
                         const QString& sql, const QString& firstColumn, const QString& secondColumn, QWidget* parent)
    : QDialog(parent), sql_(sql), firstColumn_(firstColumn), secondColumn_(secondColumn) {
    setObjectName(objectName);
    setWindowTitle(title);
    setWindowFlag(Qt::Tool, true);

    tbMain = new QToolBar(this);
    tbMain->setObjectName(QStringLiteral("tbMain"));
    tbDock = tbMain->addAction(QString());
    tbDock->setObjectName(QStringLiteral("tbDock"));
    tbDock->setCheckable(true);

    lvList = new QTreeWidget(this);
    lvList->setObjectName(QStringLiteral("lvList"));
    lvList->setColumnCount(2);
    lvList->setHeaderLabels(headers);
    lvList->setRootIsDecorated(false);
    lvList->setUniformRowHeights(true);
    lvList->setSortingEnabled(true);
    lvList->sortByColumn(0, Qt::AscendingOrder);
    lvList->header()->setStretchLastSection(true);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(tbMain);
    layout->addWidget(lvList, 1);

    connect(tbDock, &QAction::triggered, this, &MeasureList::tbDock_Click);

    resize(260, 380);
    SetDocked(false);
    Form_Load();
}

void MeasureList::Form_Load() {
    lvList->clear();
    Trap(objectName() + QStringLiteral(".Form_Load"), [&] {
        Recordset rs;
        rs.Open(sql_, ConnectionMain(), adOpenStatic, adLockReadOnly);
        while (!rs.IsEOF()) {
            auto* row = new QTreeWidgetItem(lvList);
            row->setText(0, TextOf(rs.Field(firstColumn_)));
            row->setText(1, TextOf(rs.Field(secondColumn_)));
            rs.MoveNext();
        }
    });
    lvList->resizeColumnToContents(0);
}

QStringList MeasureList::Lines() const {
    QStringList lines;
    for (int i = 0; i < lvList->topLevelItemCount(); ++i)
        lines << lvList->topLevelItem(i)->text(0) + QLatin1Char('|') + lvList->topLevelItem(i)->text(1);
    return lines;
}

void MeasureList::SetDocked(bool docked) {
    docked_ = docked;
    tbDock->setChecked(docked);
    // The button says what a click will do.
    tbDock->setText(docked ? QStringLiteral("Click to Release") : QStringLiteral("Click to Keep on top"));
    tbDock->setToolTip(tbDock->text());
    if (bool(windowFlags() & Qt::WindowStaysOnTopHint) == docked) return;
    const bool visible = isVisible();
    setWindowFlag(Qt::WindowStaysOnTopHint, docked);
    // Changing a window's flags hides it; bring it back where it was.
    if (visible) show();
}

void MeasureList::tbDock_Click() {
    SetDocked(!docked_);
    DockChanged(docked_);
}
