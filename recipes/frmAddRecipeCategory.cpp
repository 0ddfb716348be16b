#include "recipes/frmAddRecipeCategory.h"

#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/Values.h"
#include "core/modVerify.h"
#include "platform/Recordset.h"
#include "platform/Ui.h"
#include "recipes/clsRecCategory.h"
#include "recipes/clsRecipies.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {
const QString kPrompt = QStringLiteral("<Enter or Select>");
}

frmAddRecipeCategory::frmAddRecipeCategory(const QString& title, QWidget* parent)
    : GuardedDialog(parent), title_(title) {
    setObjectName(QStringLiteral("frmAddRecipeCategory"));
    setWindowTitle(QStringLiteral("Recipe Categories"));
    lvCurrentCategories = new QTreeWidget(this);
    lvCurrentCategories->setObjectName(QStringLiteral("lvCurrentCategories"));
    lvCurrentCategories->setHeaderLabels({QStringLiteral(" Current Categories for ") + title});
    lvCurrentCategories->setRootIsDecorated(false);
    lvCategories = new QTreeWidget(this);
    lvCategories->setObjectName(QStringLiteral("lvCategories"));
    lvCategories->setHeaderLabels({QStringLiteral("Name"), QStringLiteral("Recipes")});
    lvCategories->setRootIsDecorated(false);
    cboCategoryList = new QComboBox(this);
    cboCategoryList->setObjectName(QStringLiteral("cboCategoryList"));
    cboCategoryList->setEditable(true);
    cboCategoryList->setInsertPolicy(QComboBox::NoInsert);
    cmdAdd = new QPushButton(QStringLiteral("&Add"), this);
    cmdOK = new QPushButton(QStringLiteral("&OK"), this);
    cmdCancel = new QPushButton(QStringLiteral("&Cancel"), this);
    cmdAdd->setObjectName(QStringLiteral("cmdAdd"));
    cmdOK->setObjectName(QStringLiteral("cmdOK"));
    cmdCancel->setObjectName(QStringLiteral("cmdCancel"));
    for (QPushButton* b : {cmdAdd, cmdOK, cmdCancel}) b->setAutoDefault(false);

    auto* entry = new QHBoxLayout;
    entry->addWidget(cboCategoryList, 1);
    entry->addWidget(cmdAdd);
    auto* lists = new QHBoxLayout;
    lists->addWidget(lvCurrentCategories, 1);
    lists->addWidget(lvCategories, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cmdOK);
    buttons->addWidget(cmdCancel);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(entry);
    layout->addLayout(lists, 1);
    layout->addLayout(buttons);

    connect(cmdAdd, &QPushButton::clicked, this, &frmAddRecipeCategory::cmdAdd_Click);
    connect(cmdOK, &QPushButton::clicked, this, &frmAddRecipeCategory::cmdOK_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &GuardedDialog::CloseChecked);
    connect(cboCategoryList->lineEdit(), &QLineEdit::returnPressed, this, &frmAddRecipeCategory::cmdAdd_Click);
    connect(lvCurrentCategories, &QTreeWidget::itemDoubleClicked, this,
            &frmAddRecipeCategory::lvCurrentCategories_DblClick);
    connect(lvCategories, &QTreeWidget::itemDoubleClicked, this, [this](QTreeWidgetItem* row) {
        cboCategoryList->setEditText(row->text(0));
        cmdAdd_Click();
    });
    resize(680, 420);
    LoadCategories();
}

void frmAddRecipeCategory::LoadCategories() {
    lvCurrentCategories->clear();
    lvCategories->clear();
    cboCategoryList->clear();
    cboCategoryList->addItem(kPrompt);
    Trap(QStringLiteral("frmAddRecipeCategory.LoadCategories"), [&] {
        Recordset rs;
        rs.Open(QStringLiteral("SELECT [Style] FROM Recipie WHERE [Title] = ") + SqlText(title_), ConnectionMain(),
                adOpenForwardOnly, adLockReadOnly);
        if (!rs.IsEOF())
            for (const QString& part : TextOf(rs.Field(QStringLiteral("Style"))).split(QLatin1Char(',')))
                if (!part.trimmed().isEmpty()) new QTreeWidgetItem(lvCurrentCategories, {part.trimmed()});
        rs.Close();
        // Every category with how many recipes are filed under it, counted in one walk.
        QMap<QString, int> counts;
        QStringList names;
        rs.Open(QStringLiteral("SELECT [Name] FROM RecipieCategory ORDER BY [Name]"), ConnectionMain(),
                adOpenForwardOnly, adLockReadOnly);
        for (; !rs.IsEOF(); rs.MoveNext()) names << TextOf(rs.Field(QStringLiteral("Name")));
        rs.Close();
        rs.Open(QStringLiteral("SELECT [Style] FROM Recipie"), ConnectionMain(), adOpenForwardOnly, adLockReadOnly);
        for (; !rs.IsEOF(); rs.MoveNext())
            for (const QString& part : TextOf(rs.Field(QStringLiteral("Style"))).split(QLatin1Char(',')))
                ++counts[part.trimmed().toLower()];
        for (const QString& name : names) {
            auto* row = new QTreeWidgetItem(lvCategories, {name, QString::number(counts.value(name.toLower()))});
            row->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
        }
        cboCategoryList->addItems(names);
    });
    cboCategoryList->setCurrentIndex(0);
    lvCategories->resizeColumnToContents(0);
}

bool frmAddRecipeCategory::cboCategoryList_Validate() {
    const QString name = cboCategoryList->currentText().trimmed();
    if (name.isEmpty() || name == kPrompt) return false;
    if (cboCategoryList->findText(name, Qt::MatchFixedString) >= 0) return true;
    clsRecCategory categories;
    const bool known = Trap(QStringLiteral("frmAddRecipeCategory.cboCategoryList_Validate"), false,
                            [&] { return categories.Exists(name); });
    if (known) return true;
    if (MsgBox(QStringLiteral("The Category, ") + name + QStringLiteral(", does not exist. Do you want to add it?"),
               Box::YesNo + Box::Question, QStringLiteral("Add Category")) != Answer::Yes)
        return false;
    if (!categories.WriteNew(name)) return false;
    cboCategoryList->addItem(name);
    new QTreeWidgetItem(lvCategories, {name, QStringLiteral("0")});
    return true;
}

void frmAddRecipeCategory::cmdAdd_Click() {
    if (!cboCategoryList_Validate()) return;
    QString name = cboCategoryList->currentText().trimmed();
    const int at = cboCategoryList->findText(name, Qt::MatchFixedString);
    if (at >= 0) name = cboCategoryList->itemText(at);
    if (!lvCurrentCategories->findItems(name, Qt::MatchFixedString).isEmpty()) return;
    new QTreeWidgetItem(lvCurrentCategories, {name});
    added_ << name;
    cboCategoryList->setCurrentIndex(0);
}

void frmAddRecipeCategory::cmdOK_Click() {
    Trap(QStringLiteral("frmAddRecipeCategory.cmdOK_Click"), [&] {
        clsRecipies recipes;
        for (const QString& name : std::as_const(added_)) recipes.AddRecipeCategory(name, title_);
    });
    added_.clear();
    CloseUnchecked();
}

void frmAddRecipeCategory::lvCurrentCategories_DblClick() {
    QTreeWidgetItem* row = lvCurrentCategories->currentItem();
    if (!row) return;
    const QString name = row->text(0);
    if (MsgBox(QStringLiteral("Do you wish to remove the Category ") + name, Box::YesNo + Box::Question,
               QStringLiteral("Remove Category?")) != Answer::Yes)
        return;
    if (added_.removeOne(name)) {
        delete row;
        return;
    }
    clsRecipies().RemoveFromCategory(title_, name);
    delete row;
}
