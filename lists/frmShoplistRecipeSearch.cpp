#include "lists/frmShoplistRecipeSearch.h"

#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/Values.h"
#include "core/modVerify.h"
#include "platform/Recordset.h"
#include "platform/Ui.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

frmShoplistRecipeSearch::frmShoplistRecipeSearch(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmShoplistRecipeSearch"));
    setWindowTitle(QStringLiteral("Add Recipe to List"));
    txtSearch = new QLineEdit(this);
    txtSearch->setObjectName(QStringLiteral("txtSearch"));
    txtSearch->setPlaceholderText(QStringLiteral("Type part of the recipe's title"));
    txtSearch->setClearButtonEnabled(true);
    lvRecipes = new QTreeWidget(this);
    lvRecipes->setObjectName(QStringLiteral("lvRecipes"));
    lvRecipes->setRootIsDecorated(false);
    lvRecipes->setUniformRowHeights(true);
    lvRecipes->setHeaderLabels({QStringLiteral("Recipe"), QStringLiteral("Cookbook")});
    lvRecipes->header()->setStretchLastSection(false);
    lvRecipes->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    lvRecipes->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    cmdOK = new QPushButton(QStringLiteral("Add to List"), this);
    cmdOK->setObjectName(QStringLiteral("cmdOK"));
    cmdOK->setDefault(true);
    cmdCancel = new QPushButton(QStringLiteral("Cancel"), this);
    cmdCancel->setObjectName(QStringLiteral("cmdCancel"));
    cmdCancel->setAutoDefault(false);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cmdOK);
    buttons->addWidget(cmdCancel);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(txtSearch);
    layout->addWidget(lvRecipes, 1);
    layout->addLayout(buttons);
    resize(480, 420);

    connect(txtSearch, &QLineEdit::textChanged, this, &frmShoplistRecipeSearch::LoadRecipes);
    connect(lvRecipes, &QTreeWidget::itemDoubleClicked, this, [this] { cmdOK->click(); });
    connect(cmdOK, &QPushButton::clicked, this, [this] {
        if (!SelectedTitle().isEmpty()) accept();
    });
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    LoadRecipes();
}

void frmShoplistRecipeSearch::LoadRecipes() {
    lvRecipes->clear();
    Trap(QStringLiteral("frmShoplistRecipeSearch.LoadRecipes"), [&] {
        QString pattern = txtSearch->text().trimmed();
        QuoteSql(pattern);
        pattern.replace(QLatin1Char('\\'), QStringLiteral("\\\\"))
            .replace(QLatin1Char('%'), QStringLiteral("\\%"))
            .replace(QLatin1Char('_'), QStringLiteral("\\_"));
        Recordset rs;
        rs.Open(QStringLiteral("SELECT [Title],[CookbookName] FROM Recipie WHERE [Title] LIKE '%") + pattern +
                    QStringLiteral("%' ESCAPE '\\' ORDER BY [Title]"),
                ConnectionMain(), adOpenForwardOnly, adLockReadOnly);
        QList<QTreeWidgetItem*> lines;
        for (; !rs.IsEOF(); rs.MoveNext())
            lines << new QTreeWidgetItem(
                {TextOf(rs.Field(QStringLiteral("Title"))), TextOf(rs.Field(QStringLiteral("CookbookName")))});
        lvRecipes->addTopLevelItems(lines);
    });
    if (lvRecipes->topLevelItemCount() > 0) lvRecipes->setCurrentItem(lvRecipes->topLevelItem(0));
    cmdOK->setEnabled(lvRecipes->topLevelItemCount() > 0);
}

QString frmShoplistRecipeSearch::SelectedTitle() const {
    const QList<QTreeWidgetItem*> selected = lvRecipes->selectedItems();
    return selected.isEmpty() ? QString() : selected.first()->text(0);
}

QString frmShoplistRecipeSearch::GetRecipe(QWidget* parent) {
    frmShoplistRecipeSearch form(parent ? parent : MainWindow());
    if (TheUi().ShowModal(&form) != QDialog::Accepted) return QString();
    return form.SelectedTitle();
}
