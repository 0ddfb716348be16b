#include "lists/frmShoppingListSelect.h"

#include "core/Dates.h"
#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/Values.h"
#include "core/clsRegistry.h"
#include "platform/Recordset.h"
#include "platform/Ui.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

frmShoppingListSelect::frmShoppingListSelect(QWidget* parent, bool recurringOnly)
    : QDialog(parent), recurringOnly_(recurringOnly) {
    setObjectName(QStringLiteral("frmShoppingListSelect"));
    setWindowTitle(recurringOnly ? QStringLiteral("Select Recurring List") : QStringLiteral("Select Shopping List"));

    lvLists = new QTreeWidget(this);
    lvLists->setObjectName(QStringLiteral("lvLists"));
    lvLists->setRootIsDecorated(false);
    lvLists->setUniformRowHeights(true);
    lvLists->setHeaderLabels(
        {QStringLiteral("List Name"), QStringLiteral("Date"), QStringLiteral("Items"), QStringLiteral("Recurring")});
    lvLists->headerItem()->setTextAlignment(colItems, Qt::AlignRight | Qt::AlignVCenter);
    QHeaderView* header = lvLists->header();
    header->setStretchLastSection(false);
    header->setSectionResizeMode(colName, QHeaderView::Stretch);
    header->setSectionResizeMode(colDate, QHeaderView::ResizeToContents);
    header->setSectionResizeMode(colItems, QHeaderView::ResizeToContents);
    header->setSectionResizeMode(colRecurring, QHeaderView::ResizeToContents);

    cmdOK = new QPushButton(QStringLiteral("OK"), this);
    cmdOK->setObjectName(QStringLiteral("cmdOK"));
    cmdOK->setDefault(true);
    cmdCancel = new QPushButton(QStringLiteral("Cancel"), this);
    cmdCancel->setObjectName(QStringLiteral("cmdCancel"));
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cmdOK);
    buttons->addWidget(cmdCancel);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(lvLists, 1);
    layout->addLayout(buttons);
    resize(520, 340);

    connect(lvLists, &QTreeWidget::itemSelectionChanged, this,
            [this] { cmdOK->setEnabled(!SelectedName().isEmpty()); });
    connect(lvLists, &QTreeWidget::itemDoubleClicked, this, [this] { cmdOK->click(); });
    connect(cmdOK, &QPushButton::clicked, this, [this] {
        if (!SelectedName().isEmpty()) accept();
    });
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    LoadLists();
}

void frmShoppingListSelect::LoadLists() {
    lvLists->clear();
    Trap(QStringLiteral("frmShoppingListSelect.LoadLists"), [&] {
        Recordset rs;
        QString sql = QStringLiteral("SELECT [Name],[Dates],[Recurring] FROM ShopList");
        if (recurringOnly_) sql += QStringLiteral(" WHERE TRIM([Recurring]) <> ''");
        rs.Open(sql + QStringLiteral(" ORDER BY [Name]"), ConnectionMain(), adOpenKeyset, adLockReadOnly);
        QTreeWidgetItem* line = nullptr;
        int items = 0;
        for (; !rs.IsEOF(); rs.MoveNext()) {
            const QString name = TextOf(rs.Field(QStringLiteral("Name")));
            // Names compare without regard to case, as the table does.
            if (!line || line->text(colName).compare(name, Qt::CaseInsensitive) != 0) {
                line = new QTreeWidgetItem(lvLists, {name, QString(), QString(), QString()});
                line->setTextAlignment(colItems, Qt::AlignRight | Qt::AlignVCenter);
                items = 0;
            }
            line->setText(colItems, QString::number(++items));
            const QString dates = TextOf(rs.Field(QStringLiteral("Dates")));
            if (line->text(colDate).isEmpty() && !dates.isEmpty() && dates != QLatin1String("None"))
                line->setText(colDate, IsDate(QVariant(dates)) ? Format(QVariant(dates), Registry().DateDisplayFormat())
                                                               : dates);
            // A list kept for use again and again carries its recurring name
            // ("X" when it was marked without one).
            const QString recurring = TextOf(rs.Field(QStringLiteral("Recurring"))).trimmed();
            if (line->text(colRecurring).isEmpty() && !recurring.isEmpty())
                line->setText(colRecurring, recurring == QLatin1String("X") ? QStringLiteral("Yes") : recurring);
        }
    });
    if (lvLists->topLevelItemCount() > 0) lvLists->setCurrentItem(lvLists->topLevelItem(0));
    cmdOK->setEnabled(!SelectedName().isEmpty());
}

QString frmShoppingListSelect::SelectedName() const {
    const QList<QTreeWidgetItem*> selected = lvLists->selectedItems();
    return selected.isEmpty() ? QString() : selected.first()->text(colName);
}

QString frmShoppingListSelect::GetListName(QWidget* parent, bool recurringOnly) {
    frmShoppingListSelect form(parent ? parent : MainWindow(), recurringOnly);
    if (TheUi().ShowModal(&form) != QDialog::Accepted) return QString();
    return form.SelectedName();
}
