#include "recipes/frmRecipeSearch.h"

#include "core/Globals.h"
#include "platform/Ui.h"
#include "recipes/frmRecipeList.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

frmRecipeSearch::frmRecipeSearch(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmRecipeSearch"));
    setWindowTitle(QStringLiteral("Recipe Search"));
    auto* criteria = new QGroupBox(QStringLiteral("Find recipes where"), this);
    auto* grid = new QGridLayout(criteria);
    grid->addWidget(new QLabel(QStringLiteral("Field"), criteria), 0, 0);
    grid->addWidget(new QLabel(QStringLiteral("Comparison"), criteria), 0, 1);
    grid->addWidget(new QLabel(QStringLiteral("Text"), criteria), 0, 2);
    for (int r = 0; r < Rows; ++r) {
        cboField[r] = new QComboBox(criteria);
        cboField[r]->setObjectName(QStringLiteral("cboField%1").arg(r));
        cboField[r]->addItems({QStringLiteral("Title"), QStringLiteral("Course"), QStringLiteral("Servings"),
                               QStringLiteral("Style"), QStringLiteral("Ingredients"),
                               QStringLiteral("Instructions")});
        cboOption[r] = new QComboBox(criteria);
        cboOption[r]->setObjectName(QStringLiteral("cboOption%1").arg(r));
        cboOption[r]->addItems(
            {QStringLiteral("must equal"), QStringLiteral("can contain"), QStringLiteral("must not contain")});
        cboOption[r]->setCurrentIndex(1);
        txtSearch[r] = new QLineEdit(criteria);
        txtSearch[r]->setObjectName(QStringLiteral("txtSearch%1").arg(r));
        txtSearch[r]->setMinimumWidth(220);
        grid->addWidget(cboField[r], r + 1, 0);
        grid->addWidget(cboOption[r], r + 1, 1);
        grid->addWidget(txtSearch[r], r + 1, 2);
    }
    grid->setColumnStretch(2, 1);

    auto* options = new QGroupBox(QStringLiteral("Options"), this);
    auto* optionGrid = new QGridLayout(options);
    chkFavoritesOnly = new QCheckBox(QStringLiteral("&Favorites only"), options);
    chkUsedOnly = new QCheckBox(QStringLiteral("&Used before only"), options);
    chkSuggestedOnly = new QCheckBox(QStringLiteral("S&uggested recipes only"), options);
    chkCloseFormAtEnd = new QCheckBox(QStringLiteral("C&lose this window after the search"), options);
    chkDisplayInSeperateForm = new QCheckBox(QStringLiteral("Show results in a &new window"), options);
    optionGrid->addWidget(chkFavoritesOnly, 0, 0);
    optionGrid->addWidget(chkUsedOnly, 1, 0);
    optionGrid->addWidget(chkSuggestedOnly, 2, 0);
    optionGrid->addWidget(chkCloseFormAtEnd, 0, 1);
    optionGrid->addWidget(chkDisplayInSeperateForm, 1, 1);

    cmdSearch = new QPushButton(QStringLiteral("&Search"), this);
    cmdSearch->setObjectName(QStringLiteral("cmdSearch"));
    cmdSearch->setDefault(true);
    cmdClose = new QPushButton(QStringLiteral("&Close"), this);
    cmdClose->setObjectName(QStringLiteral("cmdClose"));
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cmdSearch);
    buttons->addWidget(cmdClose);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(criteria);
    layout->addWidget(options);
    layout->addLayout(buttons);

    connect(cmdSearch, &QPushButton::clicked, this, &frmRecipeSearch::cmdSearch_Click);
    connect(cmdClose, &QPushButton::clicked, this, &QDialog::reject);
    connect(chkSuggestedOnly, &QCheckBox::clicked, this, &frmRecipeSearch::chkSuggestedOnly_Click);
}

QString frmRecipeSearch::SearchText() const {
    QString sql = QStringLiteral("SELECT * FROM Recipie WHERE ");
    for (int r = 0; r < Rows; ++r) {
        const QString text = txtSearch[r]->text();
        if (text.isEmpty()) continue;
        const QString field = cboField[r]->currentText();
        const QString option = cboOption[r]->currentText();
        if (field == QLatin1String("Ingredients")) {
            // Every column is named, but only the last one takes the
            // comparison: the others stand as bare conditions.
            const QString joiner =
                option == QLatin1String("must not contain") ? QStringLiteral("AND") : QStringLiteral("OR");
            QString side;
            for (int i = 1; i <= 18; ++i)
                side += QStringLiteral("[Ingredient%1] ").arg(i) + joiner + QLatin1Char(' ');
            side.chop(joiner.size() + 2);
            sql += side;
        } else {
            sql += QLatin1Char('[') + field + QLatin1Char(']');
        }
        if (option == QLatin1String("must equal"))
            sql += QStringLiteral(" ='") + text + QLatin1Char('\'');
        else if (option == QLatin1String("can contain"))
            sql += QStringLiteral(" LIKE '%") + text + QStringLiteral("%'");
        else
            sql += QStringLiteral(" <> '%") + text + QStringLiteral("%'");
        sql += QStringLiteral(" AND ");
    }
    if (sql.endsWith(QLatin1String("AND "))) sql.chop(5);
    if (chkFavoritesOnly->isChecked()) sql += QStringLiteral(" AND [Favorite] = True");
    if (chkUsedOnly->isChecked()) sql += QStringLiteral(" AND [TimesUsed] > 0");
    return sql;
}

void frmRecipeSearch::EnableAll(bool on) {
    for (QWidget* w : findChildren<QWidget*>()) w->setEnabled(on);
}

void frmRecipeSearch::cmdSearch_Click() {
    EnableAll(false);
    const QString sql = SearchText();
    if (!results_ || chkDisplayInSeperateForm->isChecked()) {
        results_ = new frmRecipeList(MainWindow());
        results_->setAttribute(Qt::WA_DeleteOnClose);
    }
    results_->LoadRecipes(sql);
    TheUi().ShowModeless(results_, this);
    EnableAll(true);
    if (chkCloseFormAtEnd->isChecked()) accept();
}

void frmRecipeSearch::chkSuggestedOnly_Click() {
    if (chkSuggestedOnly->isChecked())
        MsgBox(QStringLiteral("Selecting this option will add a significant amount of time to the search!"),
               Box::Exclamation, QStringLiteral("Select?"));
}
