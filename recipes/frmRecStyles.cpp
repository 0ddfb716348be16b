#include "recipes/frmRecStyles.h"

#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/Values.h"
#include "core/modVerify.h"
#include "platform/Recordset.h"
#include "platform/Ui.h"
#include "recipes/clsRecCategory.h"

#include <QAction>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QSplitter>
#include <QTreeWidget>
#include <QVBoxLayout>

frmRecStyles::frmRecStyles(QWidget* parent) : GuardedDialog(parent) {
    setObjectName(QStringLiteral("frmRecStyles"));
    setWindowTitle(QStringLiteral("Recipe Categories"));
    lvStyles = new QTreeWidget(this);
    lvStyles->setObjectName(QStringLiteral("lvStyles"));
    lvStyles->setHeaderLabels({QStringLiteral("Recipe Style")});
    lvStyles->setRootIsDecorated(false);
    lvStyles->setSortingEnabled(true);
    lvStyles->sortByColumn(0, Qt::AscendingOrder);
    lvStyles->setContextMenuPolicy(Qt::CustomContextMenu);
    lvRecipes = new QTreeWidget(this);
    lvRecipes->setObjectName(QStringLiteral("lvRecipes"));
    lvRecipes->setHeaderLabels({QStringLiteral("Recipe"), QStringLiteral("Categories")});
    lvRecipes->setRootIsDecorated(false);
    txtNewCategory = new QLineEdit(this);
    txtNewCategory->setObjectName(QStringLiteral("txtNewCategory"));
    // A category name is written into lists that ";" and ":" would break.
    txtNewCategory->setValidator(
        new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[^;:]*")), txtNewCategory));
    cmdAddCat = new QPushButton(QStringLiteral("&Add"), this);
    cmdAddCat->setObjectName(QStringLiteral("cmdAddCat"));
    cmdAddCat->setDefault(true);
    cmdClose = new QPushButton(QStringLiteral("&Close"), this);
    cmdClose->setObjectName(QStringLiteral("cmdClose"));
    cmdClose->setAutoDefault(false);
    mnuStyle = new QMenu(this);
    mnuShowRecipes = mnuStyle->addAction(QStringLiteral("&Show Recipes"));
    mnuDeleteStyle = mnuStyle->addAction(QStringLiteral("&Delete Style"));
    mnuShowRecipes->setObjectName(QStringLiteral("mnuShowRecipes"));
    mnuDeleteStyle->setObjectName(QStringLiteral("mnuDeleteStyle"));

    auto* entry = new QHBoxLayout;
    entry->addWidget(new QLabel(QStringLiteral("New Style:"), this));
    entry->addWidget(txtNewCategory, 1);
    entry->addWidget(cmdAddCat);
    auto* split = new QSplitter(this);
    split->addWidget(lvStyles);
    split->addWidget(lvRecipes);
    split->setStretchFactor(1, 2);
    auto* bottom = new QHBoxLayout;
    bottom->addStretch(1);
    bottom->addWidget(cmdClose);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(entry);
    layout->addWidget(split, 1);
    layout->addLayout(bottom);

    connect(cmdAddCat, &QPushButton::clicked, this, &frmRecStyles::cmdAddCat_Click);
    connect(cmdClose, &QPushButton::clicked, this, &GuardedDialog::CloseChecked);
    connect(mnuShowRecipes, &QAction::triggered, this, &frmRecStyles::mnuShowRecipes_Click);
    connect(mnuDeleteStyle, &QAction::triggered, this, &frmRecStyles::mnuDeleteStyle_Click);
    connect(lvStyles, &QTreeWidget::itemDoubleClicked, this, &frmRecStyles::mnuShowRecipes_Click);
    connect(lvStyles, &QWidget::customContextMenuRequested, this, [this](const QPoint& at) {
        if (QTreeWidgetItem* row = lvStyles->itemAt(at)) lvStyles->setCurrentItem(row);
        mnuStyle->popup(lvStyles->viewport()->mapToGlobal(at));
    });
    resize(620, 440);
    LoadStyles();
}

void frmRecStyles::LoadStyles() {
    lvStyles->clear();
    Trap(QStringLiteral("frmRecStyles.LoadStyles"), [&] {
        Recordset rs;
        rs.Open(QStringLiteral("SELECT * FROM RecipieCategory Order By [Name]"), ConnectionMain(), adOpenForwardOnly,
                adLockReadOnly);
        for (; !rs.IsEOF(); rs.MoveNext()) new QTreeWidgetItem(lvStyles, {TextOf(rs.Field(QStringLiteral("Name")))});
    });
}

void frmRecStyles::cmdAddCat_Click() {
    const QString name = txtNewCategory->text().trimmed();
    if (name.isEmpty()) return;
    if (!lvStyles->findItems(name, Qt::MatchFixedString).isEmpty()) {
        MsgBox(QStringLiteral("That Style already appears on the list."), Box::Exclamation);
        return;
    }
    if (!clsRecCategory().WriteNew(name)) return;
    lvStyles->setCurrentItem(new QTreeWidgetItem(lvStyles, {name}));
    txtNewCategory->clear();
}

void frmRecStyles::mnuDeleteStyle_Click() {
    QTreeWidgetItem* row = lvStyles->currentItem();
    if (!row) return;
    const QString name = row->text(0);
    if (MsgBox(QStringLiteral("This will remove ") + name + QStringLiteral(" from any recipe that has it, are you certain?"),
               Box::YesNo + Box::Question, QStringLiteral("Remove Style")) != Answer::Yes)
        return;
    clsRecCategory().RemoveCategory(name);
    delete row;
}

void frmRecStyles::mnuShowRecipes_Click() {
    QTreeWidgetItem* row = lvStyles->currentItem();
    if (!row) {
        MsgBox(QStringLiteral("You must first select a style to display"), Box::Exclamation,
               QStringLiteral("Missing Selection"));
        return;
    }
    const QString name = row->text(0);
    lvRecipes->clear();
    Trap(QStringLiteral("frmRecStyles.mnuShowRecipes_Click"), [&] {
        Recordset rs;
        rs.Open(QStringLiteral("SELECT [Title],[Style] FROM Recipie WHERE [Style] LIKE '%") + QuoteSql(name) +
                    QStringLiteral("%' ORDER BY [Title]"),
                ConnectionMain(), adOpenForwardOnly, adLockReadOnly);
        for (; !rs.IsEOF(); rs.MoveNext())
            new QTreeWidgetItem(lvRecipes, {TextOf(rs.Field(QStringLiteral("Title"))),
                                            TextOf(rs.Field(QStringLiteral("Style")))});
    });
    if (lvRecipes->topLevelItemCount() == 0) {
        MsgBox(QStringLiteral("There are no Recipes that use the Style '") + name + QStringLiteral("'."),
               Box::Information, QStringLiteral("Notice"));
        return;
    }
    lvRecipes->resizeColumnToContents(0);
}
