#include "coupons/frmRecipeCouponSearch.h"

#include "core/Globals.h"
#include "core/Values.h"
#include "core/clsRegistry.h"
#include "coupons/frmRecipeCouponSearchResults.h"
#include "platform/Ui.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace {

QLineEdit* NumberBox(const char* name, QWidget* parent) {
    auto* box = new QLineEdit(parent);
    box->setObjectName(QString::fromLatin1(name));
    box->setMaximumWidth(60);
    box->setAlignment(Qt::AlignRight);
    return box;
}

// A number as the query and the results take it: "$5" and "1,000" are
// numbers to the person, and the query wants the plain figure.
QString Figure(const QLineEdit* box) { return CStr(QVariant(CDbl(QVariant(box->text().trimmed())))); }

}  // namespace

frmRecipeCouponSearch::frmRecipeCouponSearch(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmRecipeCouponSearch"));
    setWindowTitle(QStringLiteral("Cross Recipes and Coupons"));

    auto* recipes = new QGroupBox(QStringLiteral("Recipes"), this);
    optSearchFavoriteRecipes = new QRadioButton(QStringLiteral("Search only my &favorite recipes"), recipes);
    optSearchFavoriteRecipes->setObjectName(QStringLiteral("optSearchFavoriteRecipes"));
    optSearchAllRecipes = new QRadioButton(QStringLiteral("Search &all recipes"), recipes);
    optSearchAllRecipes->setObjectName(QStringLiteral("optSearchAllRecipes"));
    optSearchAllRecipes->setChecked(true);
    chkLimitUseCount = new QCheckBox(QStringLiteral("&Limit Search to Recipes I have used more than"), recipes);
    chkLimitUseCount->setObjectName(QStringLiteral("chkLimitUseCount"));
    txtMinUseCount = NumberBox("txtMinUseCount", recipes);
    txtMinUseCount->setText(QStringLiteral("0"));
    auto* useRow = new QHBoxLayout;
    useRow->addWidget(chkLimitUseCount);
    useRow->addWidget(txtMinUseCount);
    useRow->addWidget(new QLabel(QStringLiteral("times"), recipes));
    useRow->addStretch(1);
    auto* recipeBox = new QVBoxLayout(recipes);
    recipeBox->addWidget(optSearchFavoriteRecipes);
    recipeBox->addWidget(optSearchAllRecipes);
    recipeBox->addLayout(useRow);

    auto* coupons = new QGroupBox(QStringLiteral("Coupons"), this);
    optSearchAllCoupons = new QRadioButton(QStringLiteral("Search all &coupons"), coupons);
    optSearchAllCoupons->setObjectName(QStringLiteral("optSearchAllCoupons"));
    // Alone in its group it could never be unticked; the check box beside
    // it is its other half.
    optSearchAllCoupons->setAutoExclusive(false);
    optSearchAllCoupons->setChecked(true);
    chkLimitCouponSearch = new QCheckBox(QStringLiteral("Limit Search to Coupons that &expire within"), coupons);
    chkLimitCouponSearch->setObjectName(QStringLiteral("chkLimitCouponSearch"));
    txtCouponExpireDays = NumberBox("txtCouponExpireDays", coupons);
    txtCouponExpireDays->setText(QString::number(Registry().CouponExpireDays()));
    auto* daysRow = new QHBoxLayout;
    daysRow->addWidget(chkLimitCouponSearch);
    daysRow->addWidget(txtCouponExpireDays);
    daysRow->addWidget(new QLabel(QStringLiteral("days"), coupons));
    daysRow->addStretch(1);
    auto* couponBox = new QVBoxLayout(coupons);
    couponBox->addWidget(optSearchAllCoupons);
    couponBox->addLayout(daysRow);

    cmdSearch = new QPushButton(QStringLiteral("&Search"), this);
    cmdSearch->setObjectName(QStringLiteral("cmdSearch"));
    cmdSearch->setDefault(true);
    cmdCancel = new QPushButton(QStringLiteral("Close"), this);
    cmdCancel->setObjectName(QStringLiteral("cmdCancel"));
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cmdSearch);
    buttons->addWidget(cmdCancel);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(recipes);
    layout->addWidget(coupons);
    layout->addStretch(1);
    layout->addLayout(buttons);

    connect(cmdSearch, &QPushButton::clicked, this, &frmRecipeCouponSearch::cmdSearch_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(chkLimitUseCount, &QCheckBox::clicked, this, &frmRecipeCouponSearch::chkLimitUseCount_Click);
    connect(chkLimitCouponSearch, &QCheckBox::clicked, this, &frmRecipeCouponSearch::chkLimitCouponSearch_Click);
    connect(optSearchAllCoupons, &QRadioButton::clicked, this, &frmRecipeCouponSearch::optSearchAllCoupons_Click);
    chkLimitUseCount_Click();
    chkLimitCouponSearch_Click();

    setTabOrder(optSearchFavoriteRecipes, optSearchAllRecipes);
    setTabOrder(optSearchAllRecipes, chkLimitUseCount);
    setTabOrder(chkLimitUseCount, txtMinUseCount);
    setTabOrder(txtMinUseCount, optSearchAllCoupons);
    setTabOrder(optSearchAllCoupons, chkLimitCouponSearch);
    setTabOrder(chkLimitCouponSearch, txtCouponExpireDays);
    setTabOrder(txtCouponExpireDays, cmdSearch);
    setTabOrder(cmdSearch, cmdCancel);
}

void frmRecipeCouponSearch::chkLimitUseCount_Click() { txtMinUseCount->setEnabled(chkLimitUseCount->isChecked()); }

void frmRecipeCouponSearch::chkLimitCouponSearch_Click() {
    const bool limited = chkLimitCouponSearch->isChecked();
    // The two coupon choices exclude each other.
    optSearchAllCoupons->setChecked(!limited);
    txtCouponExpireDays->setEnabled(limited);
}

void frmRecipeCouponSearch::optSearchAllCoupons_Click() {
    chkLimitCouponSearch->setChecked(!optSearchAllCoupons->isChecked());
    txtCouponExpireDays->setEnabled(chkLimitCouponSearch->isChecked());
}

QString frmRecipeCouponSearch::SearchSql() const {
    QString sql = QStringLiteral("SELECT * FROM Recipie");
    const bool favorites = optSearchFavoriteRecipes->isChecked();
    if (favorites) sql += QStringLiteral(" WHERE [Favorite] = True");
    if (chkLimitUseCount->isChecked())
        sql += (favorites ? QStringLiteral(" AND [TimesUsed] > ") : QStringLiteral(" WHERE [TimesUsed] > ")) +
               Figure(txtMinUseCount);
    sql += QStringLiteral(" ORDER BY [Title]");
    return sql;
}

bool frmRecipeCouponSearch::NumbersValid() {
    const auto numeric = [](const QLineEdit* box) { return IsNumeric(QVariant(box->text().trimmed())); };
    if (chkLimitCouponSearch->isChecked() && !numeric(txtCouponExpireDays)) {
        MsgBox(QStringLiteral("The number of days must be a numeric value."), Box::Information, QStringLiteral("Notice"));
        txtCouponExpireDays->setFocus();
        txtCouponExpireDays->selectAll();
        return false;
    }
    if (chkLimitUseCount->isChecked() && !numeric(txtMinUseCount)) {
        MsgBox(QStringLiteral("The Use Count must be a numeric value."), Box::Information, QStringLiteral("Notice"));
        txtMinUseCount->setFocus();
        txtMinUseCount->selectAll();
        return false;
    }
    return true;
}

void frmRecipeCouponSearch::cmdSearch_Click() {
    if (!NumbersValid()) return;
    const QString sql = SearchSql();
    const qint32 days = chkLimitCouponSearch->isChecked()
                            ? qint32(qBound(-1e9, CDbl(QVariant(txtCouponExpireDays->text().trimmed())), 1e9))
                            : 0;
    // Out of the way first, so that the results take the person's input while
    // they are being gathered.
    accept();
    auto* results = new frmRecipeCouponSearchResults;
    results->setAttribute(Qt::WA_DeleteOnClose);
    TheUi().ShowModeless(results, MainWindow());
    results->GetSearchResults(sql, days);
}
