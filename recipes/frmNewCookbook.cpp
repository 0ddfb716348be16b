#include "recipes/frmNewCookbook.h"

#include "core/ChangeNotices.h"
#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/Values.h"
#include "platform/Recordset.h"
#include "platform/Ui.h"
#include "recipes/clsCookBook.h"
#include "recipes/clsRecipies.h"
#include "recipes/frmCookbookRecipies.h"

#include <QAction>
#include <QComboBox>
#include <QFormLayout>
#include <QHeaderView>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {
const QString kGeneral = QStringLiteral("General");
const QString kNone = QStringLiteral("None");
}  // namespace

frmNewCookbook::frmNewCookbook(QWidget* parent) : GuardedDialog(parent) {
    setObjectName(QStringLiteral("frmNewCookbook"));
    setWindowTitle(QStringLiteral("Cookbooks"));
    txtCookbook = new QLineEdit(this);
    txtCookbook->setObjectName(QStringLiteral("txtCookbook"));
    cboSpecialty = new QComboBox(this);
    cboSpecialty->setObjectName(QStringLiteral("cboSpecialty"));
    cboSpecialty->setEditable(true);
    cboSpecialty->setInsertPolicy(QComboBox::NoInsert);
    cmdOK = new QPushButton(QStringLiteral("&Add"), this);
    cmdOK->setObjectName(QStringLiteral("cmdOK"));
    cmdOK->setDefault(true);
    cmdClose = new QPushButton(QStringLiteral("&Close"), this);
    cmdClose->setObjectName(QStringLiteral("cmdClose"));
    cmdClose->setAutoDefault(false);
    lvCookbooks = new QTreeWidget(this);
    lvCookbooks->setObjectName(QStringLiteral("lvCookbooks"));
    lvCookbooks->setHeaderLabels(
        {QStringLiteral("Cookbook"), QStringLiteral("Specialty"), QStringLiteral("Favorites"), QStringLiteral("Recipies")});
    lvCookbooks->setRootIsDecorated(false);
    lvCookbooks->setUniformRowHeights(true);
    lvCookbooks->setContextMenuPolicy(Qt::CustomContextMenu);
    // The name takes the room; the counts stay beside it.
    lvCookbooks->header()->setStretchLastSection(false);
    mnuCookbook = new QMenu(this);
    mnuViewRecipes = mnuCookbook->addAction(QStringLiteral("&View Recipes"));
    mnuRenameCookbook = mnuCookbook->addAction(QStringLiteral("&Rename Cookbook"));
    mnuDeleteCookbook = mnuCookbook->addAction(QStringLiteral("&Delete Cookbook"));
    mnuViewRecipes->setObjectName(QStringLiteral("mnuViewRecipes"));
    mnuRenameCookbook->setObjectName(QStringLiteral("mnuRenameCookbook"));
    mnuDeleteCookbook->setObjectName(QStringLiteral("mnuDeleteCookbook"));

    auto* form = new QFormLayout;
    form->addRow(QStringLiteral("New &Cookbook:"), txtCookbook);
    form->addRow(QStringLiteral("&Specialty:"), cboSpecialty);
    auto* side = new QVBoxLayout;
    side->addWidget(cmdOK);
    side->addWidget(cmdClose);
    side->addStretch(1);
    auto* top = new QHBoxLayout;
    top->addLayout(form, 1);
    top->addLayout(side);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(lvCookbooks, 1);

    connect(cmdOK, &QPushButton::clicked, this, &frmNewCookbook::cmdOK_Click);
    connect(cmdClose, &QPushButton::clicked, this, &GuardedDialog::CloseChecked);
    connect(mnuRenameCookbook, &QAction::triggered, this, &frmNewCookbook::mnuRenameCookbook_Click);
    connect(mnuViewRecipes, &QAction::triggered, this, &frmNewCookbook::mnuViewRecipes_Click);
    connect(mnuDeleteCookbook, &QAction::triggered, this, &frmNewCookbook::mnuDeleteCookbook_Click);
    connect(lvCookbooks, &QTreeWidget::itemDoubleClicked, this, &frmNewCookbook::mnuViewRecipes_Click);
    connect(lvCookbooks, &QWidget::customContextMenuRequested, this, [this](const QPoint& at) {
        if (QTreeWidgetItem* row = lvCookbooks->itemAt(at)) lvCookbooks->setCurrentItem(row);
        mnuCookbook->popup(lvCookbooks->viewport()->mapToGlobal(at));
    });
    resize(560, 420);
    LoadCookbooks();
}

QString frmNewCookbook::Selected() const {
    QTreeWidgetItem* row = lvCookbooks->currentItem();
    return row ? row->text(0) : QString();
}

void frmNewCookbook::LoadCookbooks() {
    lvCookbooks->clear();
    QStringList specialties{kNone};
    Trap(QStringLiteral("frmNewCookbook.LoadCookbooks"), [&] {
        Recordset rs;
        rs.Open(QStringLiteral("SELECT [Name],[Specialty] FROM Cookbook ORDER BY [Name]"), ConnectionMain(),
                adOpenForwardOnly, adLockReadOnly);
        clsRecipies recipes;
        for (; !rs.IsEOF(); rs.MoveNext()) {
            const QString name = TextOf(rs.Field(QStringLiteral("Name")));
            const QString specialty = TextOf(rs.Field(QStringLiteral("Specialty")));
            auto* row = new QTreeWidgetItem(lvCookbooks);
            row->setText(0, name);
            row->setText(1, specialty.isEmpty() || specialty == kNone ? QStringLiteral("Not a Specialty") : specialty);
            row->setText(2, QString::number(recipes.FavoriteCount(name)));
            row->setText(3, QString::number(recipes.SelectCount(name)));
            row->setTextAlignment(2, Qt::AlignRight | Qt::AlignVCenter);
            row->setTextAlignment(3, Qt::AlignRight | Qt::AlignVCenter);
            if (!specialty.isEmpty() && !specialties.contains(specialty)) specialties << specialty;
        }
    });
    const QString typed = cboSpecialty->currentText();
    cboSpecialty->clear();
    cboSpecialty->addItems(specialties);
    cboSpecialty->setEditText(typed.isEmpty() ? kNone : typed);
    for (int c = 1; c < 4; ++c) {
        lvCookbooks->resizeColumnToContents(c);
        lvCookbooks->setColumnWidth(c, qMax(lvCookbooks->columnWidth(c), 70) + 16);
    }
    lvCookbooks->header()->setSectionResizeMode(0, QHeaderView::Stretch);
}

void frmNewCookbook::cmdOK_Click() {
    const QString name = txtCookbook->text().trimmed();
    if (name.isEmpty()) return;
    clsCookBook books;
    if (books.Exists(name)) {
        MsgBox(name + QStringLiteral(" already exists. Please select a different name for the new Cookbook."),
               Box::Exclamation, QStringLiteral("Notice"));
        return;
    }
    const QString specialty = cboSpecialty->currentText().trimmed();
    books.WriteNew(name, specialty.isEmpty() ? kNone : specialty);
    txtCookbook->clear();
    LoadCookbooks();
}

void frmNewCookbook::mnuRenameCookbook_Click() {
    const QString name = Selected();
    if (name.isEmpty()) return;
    if (name == kGeneral) {
        clsCookBook().Rename(name, name);  // says why not
        return;
    }
    const QString to = InputBox(QStringLiteral("What would you like to change the name of ") + name +
                                    QStringLiteral(" to?"),
                                QStringLiteral("Rename Cookbook"), name)
                           .trimmed();
    if (to.isEmpty() || to == name) return;
    clsCookBook books;
    if (books.Exists(to)) {
        MsgBox(QStringLiteral("That Cookbook name already exists!"), Box::Exclamation, QStringLiteral("Rename Cookbook"));
        return;
    }
    books.Rename(name, to);
    clsRecipies().NewCookbookName(name, to);
    LoadCookbooks();
    Q_EMIT Notices().SetCurrentRecipieCount();
}

void frmNewCookbook::mnuViewRecipes_Click() {
    const QString name = Selected();
    if (name.isEmpty()) {
        MsgBox(QStringLiteral("You must first select a Cookbook to view the recipies it contains."), Box::Information,
               QStringLiteral("Notice"));
        return;
    }
    frmCookbookRecipies view(this);
    view.LoadRecipes(name);
    TheUi().ShowModal(&view);
}

void frmNewCookbook::mnuDeleteCookbook_Click() {
    const QString name = Selected();
    if (name.isEmpty()) return;
    if (name == kGeneral) {
        MsgBox(QStringLiteral("The 'General' cookbook cannot be deleted"), Box::Exclamation,
               QStringLiteral("Cannot Delete"));
        return;
    }
    if (MsgBox(QStringLiteral("Are you sure you wish to delete ") + name + QStringLiteral("?\r\n") +
                   QStringLiteral("Note: The recipes in this Cookbook will be moved to the 'General' Cookbook."),
               Box::YesNo + Box::Question, QStringLiteral("Delete Cookbook")) != Answer::Yes)
        return;
    clsCookBook().RemoveCookbook(name);
    if (CurrentCookbook == name) {
        CurrentCookbook.clear();
        Q_EMIT Notices().LoadRecipies();
    }
    LoadCookbooks();
}
