#include "stores/frmAllStores.h"

#include "core/ChangeNotices.h"
#include "core/Globals.h"
#include "core/Values.h"
#include "core/clsRegistry.h"
#include "core/modEffects.h"
#include "core/modVerify.h"
#include "platform/Recordset.h"
#include "platform/Ui.h"
#include "stores/clsStore.h"
#include "stores/frmNewStore.h"
#include "stores/frmStoreIsleSetup.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QMenu>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

frmAllStores::frmAllStores(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmAllStores"));
    setWindowTitle(QStringLiteral("All Stores"));
    lvStores = new QTreeWidget(this);
    lvStores->setObjectName(QStringLiteral("lvStores"));
    lvStores->setRootIsDecorated(false);
    lvStores->setHeaderLabels({QStringLiteral("Store"), QStringLiteral("Isles"), QStringLiteral("Coupons")});
    lvStores->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    lvStores->header()->setStretchLastSection(false);
    lvStores->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(lvStores, &QWidget::customContextMenuRequested, this, [this](const QPoint& at) {
        if (!lvStores->itemAt(at)) return;
        lvStores->setCurrentItem(lvStores->itemAt(at));
        QMenu menu(this);
        menu.addAction(QStringLiteral("Setup Isles"), this, &frmAllStores::cmdSetup_Click);
        menu.addAction(QStringLiteral("Rename Store"), this, &frmAllStores::mnuRenameStore_Click);
        menu.addAction(QStringLiteral("Delete Store"), this, &frmAllStores::mnuDeleteStore_Click);
        menu.addSeparator();
        menu.addAction(QStringLiteral("Find Store Coupons"), this, &frmAllStores::mnuFindStoreCoupon_Click);
        menu.addAction(QStringLiteral("Generate Store List"), this, &frmAllStores::mnuGenerateStoreList_Click);
        menu.exec(lvStores->viewport()->mapToGlobal(at));
    });
    connect(lvStores, &QTreeWidget::itemActivated, this, &frmAllStores::cmdSetup_Click);
    cmdNew = new QPushButton(QStringLiteral("&New Store..."), this);
    cmdSetup = new QPushButton(QStringLiteral("&Setup Isles..."), this);
    cmdClose = new QPushButton(QStringLiteral("Close"), this);
    connect(cmdNew, &QPushButton::clicked, this, &frmAllStores::cmdNew_Click);
    connect(cmdSetup, &QPushButton::clicked, this, &frmAllStores::cmdSetup_Click);
    connect(cmdClose, &QPushButton::clicked, this, &QDialog::accept);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(cmdNew);
    buttons->addWidget(cmdSetup);
    buttons->addStretch();
    buttons->addWidget(cmdClose);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(lvStores);
    layout->addLayout(buttons);
    resize(440, 360);
    LoadStores();
}

void frmAllStores::LoadStores() {
    const QString keep = SelectedStore();
    lvStores->clear();
    Recordset r;
    r.Open(QStringLiteral("SELECT * FROM Store ORDER BY [Name]"), ConnectionMain(), adOpenForwardOnly, adLockReadOnly);
    for (; !r.IsEOF(); r.MoveNext()) {
        const QString name = TextOf(r.Field(QStringLiteral("Name")));
        Recordset coupons;
        coupons.Open(QStringLiteral("SELECT [Product] FROM Coupons WHERE [Store] = ") + SqlText(name), ConnectionMain(),
                     adOpenKeyset, adLockReadOnly);
        auto* row = new QTreeWidgetItem(
            lvStores, {name, TextOf(r.Field(QStringLiteral("isles"))), QString::number(coupons.RecordCount())});
        row->setTextAlignment(1, Qt::AlignRight);
        row->setTextAlignment(2, Qt::AlignRight);
        if (name == keep) lvStores->setCurrentItem(row);
    }
    for (int c = 1; c < 3; ++c) lvStores->resizeColumnToContents(c);
    if (!lvStores->currentItem() && lvStores->topLevelItemCount() > 0)
        lvStores->setCurrentItem(lvStores->topLevelItem(0));
}

QString frmAllStores::SelectedStore() const {
    return lvStores->currentItem() ? lvStores->currentItem()->text(0) : QString();
}

void frmAllStores::mnuDeleteStore_Click() {
    const QString store = SelectedStore();
    if (store.isEmpty()) return;
    if (MsgBox(QStringLiteral("Are you certain that you want to permanently delete ") + store + QStringLiteral("?"),
               Box::YesNo + Box::Question, QStringLiteral("Confirm Delete")) != Answer::Yes)
        return;
    clsStore().DeleteStore(store);
    LoadStores();
    Q_EMIT Notices().LoadShoppingList();
}

void frmAllStores::mnuRenameStore_Click() {
    const QString old = SelectedStore();
    if (old.isEmpty()) return;
    const QString renamed = InputBox(QStringLiteral("What would you like to rename ") + old + QStringLiteral(" to?"),
                                     QStringLiteral("New Name"), old)
                                .trimmed();
    if (renamed.isEmpty() || renamed == old) return;
    if (MsgBox(QStringLiteral("Are you certain that you want to change ") + old + QStringLiteral(" to ") + renamed +
                   QStringLiteral("?"),
               Box::YesNo + Box::Question, QStringLiteral("Confirm")) != Answer::Yes)
        return;
    clsStore().ChangeName(old, renamed);
    LoadStores();
    for (int i = 0; i < lvStores->topLevelItemCount(); ++i)
        if (lvStores->topLevelItem(i)->text(0) == renamed) lvStores->setCurrentItem(lvStores->topLevelItem(i));
    Q_EMIT Notices().LoadShoppingList();
}

void frmAllStores::mnuFindStoreCoupon_Click() {
    MsgBox(QStringLiteral("This feature will be added soon!"), Box::OKOnly, QStringLiteral("Coming Soon"));
}

void frmAllStores::mnuGenerateStoreList_Click() {
    MsgBox(QStringLiteral("This feature will be added soon!"), Box::OKOnly, QStringLiteral("Coming Soon"));
}

void frmAllStores::cmdNew_Click() {
    frmNewStore form(this);
    TheUi().ShowModal(&form);
    LoadStores();
}

void frmAllStores::cmdSetup_Click() {
    const QString store = SelectedStore();
    if (store.isEmpty()) return;
    frmStoreIsleSetup setup(this);
    setup.LoadStore(store);
    ExplodeForm(&setup, Registry().ExplodeRate());
    TheUi().ShowModal(&setup);
    LoadStores();
}
