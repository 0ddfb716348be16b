#include "app/frmQuickStart.h"

#include "core/ChangeNotices.h"
#include "core/Globals.h"
#include "core/MainPanes.h"
#include "core/PaneIcons.h"
#include "core/clsRegistry.h"
#include "core/modEffects.h"
#include "platform/Ui.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

struct Choice {
    const char* key;
    const char* item;
    const char* description;
};

// Everything the quick start pane can hold, in the pane's order.
const Choice kChoices[] = {
    {"Coupon", "New Coupon", "Enter a coupon from the paper or the mail"},
    {"Delivery", "Add Delivery Coupon", "Keep a coupon for a restaurant or take-away"},
    {"Inventory", "View Inventory", "What is in the pantry now"},
    {"RecurringLists", "Recurring Shopping lists", "Lists bought again and again"},
    {"IsleMap", "Isle Mapping", "Where each category lies in a store"},
    {"ItemCategory", "Item Category", "The categories of shopping items"},
    {"RecipeCat", "Recipe Categories", "The categories recipes are filed under"},
    {"Nutrition", "Nutrition", "Nutrition figures of foods"},
    {"Product", "New Product", "Enter a product you buy"},
};

}  // namespace

frmQuickStart::frmQuickStart(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmQuickStart"));
    setWindowTitle(QStringLiteral("Quick Start Menu"));

    auto* intro = new QLabel(QStringLiteral("Check the items the Quick Start Menu should show."), this);
    lvQSItems = new QTreeWidget(this);
    lvQSItems->setObjectName(QStringLiteral("lvQSItems"));
    lvQSItems->setColumnCount(2);
    lvQSItems->setHeaderLabels({QStringLiteral("Item"), QStringLiteral("Description")});
    lvQSItems->setRootIsDecorated(false);
    lvQSItems->setUniformRowHeights(true);
    lvQSItems->setIconSize(QSize(20, 20));
    lvQSItems->header()->setStretchLastSection(true);

    cmdApply = new QPushButton(QStringLiteral("&Apply"), this);
    cmdSave = new QPushButton(QStringLiteral("&Save"), this);
    cmdClose = new QPushButton(QStringLiteral("&Close"), this);
    cmdApply->setObjectName(QStringLiteral("cmdApply"));
    cmdSave->setObjectName(QStringLiteral("cmdSave"));
    cmdClose->setObjectName(QStringLiteral("cmdClose"));
    cmdSave->setDefault(true);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cmdApply);
    buttons->addWidget(cmdSave);
    buttons->addWidget(cmdClose);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(intro);
    layout->addWidget(lvQSItems, 1);
    layout->addLayout(buttons);

    connect(cmdApply, &QPushButton::clicked, this, &frmQuickStart::cmdApply_Click);
    connect(cmdSave, &QPushButton::clicked, this, &frmQuickStart::cmdSave_Click);
    connect(cmdClose, &QPushButton::clicked, this, &frmQuickStart::cmdClose_Click);
    connect(lvQSItems, &QTreeWidget::itemChanged, this, [this] {
        if (!loading_) changed_ = true;
    });

    resize(520, 360);
    Form_Load();
    lvQSItems->resizeColumnToContents(0);
    lvQSItems->setColumnWidth(0, lvQSItems->columnWidth(0) + 24);
}

void frmQuickStart::Form_Load() {
    loading_ = true;
    lvQSItems->clear();
    const QString chosen = Registry().QuickViewOptions();
    for (const Choice& c : kChoices) {
        auto* row = new QTreeWidgetItem(lvQSItems);
        const QString key = QString::fromUtf8(c.key);
        row->setText(0, QString::fromUtf8(c.item));
        row->setText(1, QString::fromUtf8(c.description));
        row->setData(0, Qt::UserRole, key);
        row->setIcon(0, PaneIcon(key));
        row->setFlags(row->flags() | Qt::ItemIsUserCheckable);
        row->setCheckState(0, chosen.contains(key) ? Qt::Checked : Qt::Unchecked);
    }
    loading_ = false;
    changed_ = false;
}

QString frmQuickStart::CheckedKeys() const {
    QStringList keys;
    for (int i = 0; i < lvQSItems->topLevelItemCount(); ++i) {
        const QTreeWidgetItem* row = lvQSItems->topLevelItem(i);
        if (row->checkState(0) == Qt::Checked) keys << row->data(0, Qt::UserRole).toString();
    }
    return keys.join(QStringLiteral("::"));
}

void frmQuickStart::Save() {
    Registry().QuickViewOptions(CheckedKeys());
    Q_EMIT Notices().LoadQuickStart();
    changed_ = false;
}

void frmQuickStart::cmdApply_Click() { Save(); }

void frmQuickStart::cmdSave_Click() {
    Save();
    closing_ = true;
    ImplodeForm(this, Registry().ExplodeRate());
    accept();
}

bool frmQuickStart::MayClose() {
    if (!changed_) return true;
    Response = MsgBox(QStringLiteral("The Current List has changed and has not been saved. Do you wish to continue?"),
                      Box::YesNo + Box::Question, QStringLiteral("Continue"));
    return Response == Answer::Yes;
}

void frmQuickStart::cmdClose_Click() {
    if (!MayClose()) return;
    FormClosing = true;
    closing_ = true;
    ImplodeForm(this, Registry().ExplodeRate());
    QDialog::reject();
}

void frmQuickStart::reject() {
    // Escape and the window's close box take the same way out as Close.
    if (closing_) {
        QDialog::reject();
        return;
    }
    cmdClose_Click();
}

void frmQuickStart::closeEvent(QCloseEvent* event) {
    if (closing_) {
        event->accept();
        return;
    }
    if (!MayClose()) {
        event->ignore();
        return;
    }
    closing_ = true;
    ImplodeForm(this, Registry().ExplodeRate());
    event->accept();
    QDialog::reject();
}
