#include "recipes/frmRecipeSearchQuick.h"

#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/MainPanes.h"
#include "core/clsRegistry.h"
#include "platform/Ui.h"
#include "recipes/QuickSearchFile.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace {

// Nodes in the order the tree shows them, parents before their children.
void Walk(QStandardItem* parent, QList<QStandardItem*>& out) {
    for (int r = 0; r < parent->rowCount(); ++r) {
        QStandardItem* child = parent->child(r);
        if (!child) continue;
        out << child;
        Walk(child, out);
    }
}

}  // namespace

frmRecipeSearchQuick::frmRecipeSearchQuick(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmRecipeSearchQuick"));
    setWindowTitle(QStringLiteral("Find Recipe"));
    cboSearch = new QComboBox(this);
    cboSearch->setObjectName(QStringLiteral("cboSearch"));
    cboSearch->setEditable(true);
    cboSearch->setInsertPolicy(QComboBox::NoInsert);
    cboSearch->setMinimumContentsLength(28);
    chkMatch = new QCheckBox(QStringLiteral("Match &whole text"), this);
    optCurrentCategories = new QRadioButton(QStringLiteral("&Recipe titles"), this);
    optAll = new QRadioButton(QStringLiteral("&All"), this);
    optCurrentCategories->setChecked(true);
    cmdFindNext = new QPushButton(QStringLiteral("&Find Next"), this);
    cmdFindNext->setDefault(true);
    cmdClose = new QPushButton(QStringLiteral("&Close"), this);

    auto* find = new QHBoxLayout;
    auto* label = new QLabel(QStringLiteral("Fi&nd:"), this);
    label->setBuddy(cboSearch);
    find->addWidget(label);
    find->addWidget(cboSearch, 1);
    auto* look = new QHBoxLayout;
    look->addWidget(new QLabel(QStringLiteral("Look in:"), this));
    look->addWidget(optCurrentCategories);
    look->addWidget(optAll);
    look->addStretch(1);
    look->addWidget(chkMatch);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cmdFindNext);
    buttons->addWidget(cmdClose);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(find);
    layout->addLayout(look);
    layout->addLayout(buttons);

    if (Registry().SaveQuickSearch()) cboSearch->addItems(QuickSearchFile::Load());
    cboSearch->setCurrentIndex(-1);
    connect(cmdFindNext, &QPushButton::clicked, this, &frmRecipeSearchQuick::cmdFindNext_Click);
    connect(cmdClose, &QPushButton::clicked, this, &QDialog::accept);
}

frmRecipeSearchQuick::~frmRecipeSearchQuick() { Remember(); }

void frmRecipeSearchQuick::Launch() {
    auto* screen = new frmRecipeSearchQuick(MainWindow());
    screen->setAttribute(Qt::WA_DeleteOnClose);
    TheUi().ShowModeless(screen, MainWindow());
}

void frmRecipeSearchQuick::done(int result) {
    Remember();
    QDialog::done(result);
}

void frmRecipeSearchQuick::Remember() {
    if (saved_ || !Registry().SaveQuickSearch()) return;
    saved_ = true;
    QStringList entries;
    for (int i = 0; i < cboSearch->count(); ++i) entries << cboSearch->itemText(i);
    Trap(QStringLiteral("frmRecipeSearchQuick.Form_Unload"), [&] { QuickSearchFile::Save(entries); });
}

bool frmRecipeSearchQuick::cmdFindNext_Click() {
    const QString text = cboSearch->currentText();
    if (text.isEmpty()) return false;
    if (cboSearch->findText(text, Qt::MatchFixedString | Qt::MatchCaseSensitive) < 0) cboSearch->addItem(text);
    if (text != lastText_) {
        lastText_ = text;
        found_ = 0;
        last_ = nullptr;
    }
    MainPanes& panes = MainPanes::Instance();
    QList<QStandardItem*> nodes;
    Walk(panes.recipes.invisibleRootItem(), nodes);
    // From the last find on; a new text starts at the top.
    const qsizetype start = last_ ? nodes.indexOf(last_) + 1 : 0;
    for (qsizetype i = start; i < nodes.size(); ++i) {
        QStandardItem* node = nodes[i];
        if (optCurrentCategories->isChecked() && !MainPanes::IsRecipeNode(node)) continue;
        const bool hit = chkMatch->isChecked() ? node->text().compare(text, Qt::CaseInsensitive) == 0
                                               : node->text().contains(text, Qt::CaseInsensitive);
        if (!hit) continue;
        last_ = node;
        ++found_;
        panes.recipeSelection.setCurrentIndex(node->index(), QItemSelectionModel::ClearAndSelect);
        return true;
    }
    if (found_ > 0)
        MsgBox(QStringLiteral("No more entries for '") + text + QStringLiteral("' were found."), Box::Information);
    else
        MsgBox(QStringLiteral("'") + text + QStringLiteral("' was not found."), Box::Information);
    last_ = nullptr;
    found_ = 0;
    return false;
}
