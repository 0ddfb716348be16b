#include "recipes/frmAllCookBooks.h"

#include "core/ChangeNotices.h"
#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/Values.h"
#include "platform/Recordset.h"
#include "platform/Ui.h"
#include "recipes/clsCookBook.h"
#include "recipes/frmSpecialtySelect.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QMap>
#include <QPushButton>
#include <QStackedWidget>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

QTreeWidget* List(const QString& name, const QStringList& heads, QWidget* parent) {
    auto* list = new QTreeWidget(parent);
    list->setObjectName(name);
    list->setHeaderLabels(heads);
    list->setRootIsDecorated(false);
    list->setUniformRowHeights(true);
    list->setAlternatingRowColors(true);
    return list;
}

}  // namespace

frmAllCookBooks::frmAllCookBooks(QWidget* parent) : GuardedDialog(parent) {
    setObjectName(QStringLiteral("frmAllCookBooks"));
    setWindowTitle(QStringLiteral("Cookbooks"));
    tvCookbooks = new QTreeWidget(this);
    tvCookbooks->setObjectName(QStringLiteral("tvCookbooks"));
    tvCookbooks->setHeaderHidden(true);
    tvCookbooks->setRootIsDecorated(false);
    tvCookbooks->addTopLevelItem(new QTreeWidgetItem({QStringLiteral("All Cookbooks")}));
    tvCookbooks->addTopLevelItem(new QTreeWidgetItem({QStringLiteral("Specialty Cookbooks")}));
    tvCookbooks->setMaximumWidth(170);
    lvAllCookbooks = List(QStringLiteral("lvAllCookbooks"),
                          {QStringLiteral("Name"), QStringLiteral("Recipies"), QStringLiteral("Favorites")}, this);
    lvSpecialtyCookbooks =
        List(QStringLiteral("lvSpecialtyCookbooks"),
             {QStringLiteral("Name"), QStringLiteral("Specialty"), QStringLiteral("Recipies"), QStringLiteral("Favorites")},
             this);
    stkLists = new QStackedWidget(this);
    stkLists->addWidget(lvAllCookbooks);
    stkLists->addWidget(lvSpecialtyCookbooks);
    txtName = new QLineEdit(this);
    txtName->setObjectName(QStringLiteral("txtName"));
    txtSpecialty = new QLineEdit(this);
    txtSpecialty->setObjectName(QStringLiteral("txtSpecialty"));
    txtSpecialty->setPlaceholderText(QStringLiteral("None"));
    cmdSpecialty = new QPushButton(QStringLiteral("..."), this);
    cmdSpecialty->setObjectName(QStringLiteral("cmdSpecialty"));
    cmdSpecialty->setToolTip(QStringLiteral("Choose a specialty already in use"));
    cmdAddCookbook = new QPushButton(QStringLiteral("&Add Cookbook"), this);
    cmdAddCookbook->setObjectName(QStringLiteral("cmdAddCookbook"));
    cmdOpenCookbook = new QPushButton(QStringLiteral("&Open Cookbook"), this);
    cmdOpenCookbook->setObjectName(QStringLiteral("cmdOpenCookbook"));
    cmdOpenCookbook->setDefault(true);
    cmdClose = new QPushButton(QStringLiteral("&Close"), this);
    cmdClose->setObjectName(QStringLiteral("cmdClose"));
    for (QPushButton* b : {cmdSpecialty, cmdAddCookbook, cmdClose}) b->setAutoDefault(false);

    auto* specialtyRow = new QHBoxLayout;
    specialtyRow->addWidget(txtSpecialty, 1);
    specialtyRow->addWidget(cmdSpecialty);
    auto* form = new QFormLayout;
    form->addRow(QStringLiteral("&Name:"), txtName);
    form->addRow(QStringLiteral("&Specialty:"), specialtyRow);
    auto* addRow = new QHBoxLayout;
    addRow->addLayout(form, 1);
    addRow->addWidget(cmdAddCookbook, 0, Qt::AlignBottom);
    auto* lists = new QHBoxLayout;
    lists->addWidget(tvCookbooks);
    lists->addWidget(stkLists, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cmdOpenCookbook);
    buttons->addWidget(cmdClose);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(lists, 1);
    layout->addLayout(addRow);
    layout->addLayout(buttons);

    connect(tvCookbooks, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* item) {
        stkLists->setCurrentIndex(item ? tvCookbooks->indexOfTopLevelItem(item) : 0);
    });
    connect(cmdAddCookbook, &QPushButton::clicked, this, &frmAllCookBooks::cmdAddCookbook_Click);
    connect(cmdSpecialty, &QPushButton::clicked, this, &frmAllCookBooks::cmdSpecialty_Click);
    connect(cmdOpenCookbook, &QPushButton::clicked, this, &frmAllCookBooks::cmdOpenCookbook_Click);
    connect(cmdClose, &QPushButton::clicked, this, &GuardedDialog::CloseChecked);
    connect(lvAllCookbooks, &QTreeWidget::itemDoubleClicked, this, &frmAllCookBooks::cmdOpenCookbook_Click);
    connect(lvSpecialtyCookbooks, &QTreeWidget::itemDoubleClicked, this, &frmAllCookBooks::cmdOpenCookbook_Click);
    resize(620, 420);
    tvCookbooks->setCurrentItem(tvCookbooks->topLevelItem(0));
    LoadCookbooks();
}

void frmAllCookBooks::LoadCookbooks() {
    lvAllCookbooks->clear();
    lvSpecialtyCookbooks->clear();
    Trap(QStringLiteral("frmAllCookBooks.LoadCookbooks"), [&] {
        // Recipes and favourites per cookbook in one walk of the recipes.
        QMap<QString, int> recipes, favorites;
        Recordset rs;
        rs.Open(QStringLiteral("SELECT [CookbookName],[Favorite] FROM Recipie"), ConnectionMain(), adOpenForwardOnly,
                adLockReadOnly);
        for (; !rs.IsEOF(); rs.MoveNext()) {
            const QString book = TextOf(rs.Field(QStringLiteral("CookbookName")));
            ++recipes[book];
            const QVariant fav = rs.Field(QStringLiteral("Favorite"));
            if (!IsNull(fav) && CBool(fav)) ++favorites[book];
        }
        rs.Close();
        rs.Open(QStringLiteral("SELECT [Name],[Specialty] FROM Cookbook ORDER BY [Name]"), ConnectionMain(),
                adOpenForwardOnly, adLockReadOnly);
        for (; !rs.IsEOF(); rs.MoveNext()) {
            const QString name = TextOf(rs.Field(QStringLiteral("Name")));
            const QString specialty = TextOf(rs.Field(QStringLiteral("Specialty")));
            const QString count = QString::number(recipes.value(name)), fav = QString::number(favorites.value(name));
            new QTreeWidgetItem(lvAllCookbooks, {name, count, fav});
            if (!specialty.isEmpty() && specialty != QLatin1String("None"))
                new QTreeWidgetItem(lvSpecialtyCookbooks, {name, specialty, count, fav});
        }
    });
    for (QTreeWidget* list : {lvAllCookbooks, lvSpecialtyCookbooks}) {
        list->resizeColumnToContents(0);
        list->setColumnWidth(0, qMax(list->columnWidth(0) + 16, 160));
    }
}

void frmAllCookBooks::cmdSpecialty_Click() {
    frmSpecialtySelect select(this);
    if (TheUi().ShowModal(&select) == QDialog::Accepted && !select.Choice().isEmpty())
        txtSpecialty->setText(select.Choice());
}

void frmAllCookBooks::cmdAddCookbook_Click() {
    const QString name = txtName->text().trimmed();
    const QString specialty = txtSpecialty->text().trimmed();
    if (name.isEmpty()) return;
    if (specialty.isEmpty()) {
        MsgBox(QStringLiteral("You must either enter a Specialty or 'None' for this Cookbook."), Box::Exclamation);
        txtSpecialty->setFocus();
        return;
    }
    clsCookBook books;
    if (books.IsCookBook(name)) {
        MsgBox(QStringLiteral("That Cookbook has already been entered, please re-enter."), Box::Exclamation);
        txtName->setFocus();
        return;
    }
    books.WriteNew(name, specialty);
    txtName->clear();
    txtSpecialty->clear();
    LoadCookbooks();
}

void frmAllCookBooks::cmdOpenCookbook_Click() {
    QTreeWidget* list = stkLists->currentIndex() == 0 ? lvAllCookbooks : lvSpecialtyCookbooks;
    QTreeWidgetItem* row = list->currentItem();
    if (!row) return;
    CurrentCookbook = row->text(0);
    Q_EMIT Notices().LoadRecipies();
    CloseUnchecked();
}
