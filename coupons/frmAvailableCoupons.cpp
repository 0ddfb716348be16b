#include "coupons/frmAvailableCoupons.h"

#include "core/Dates.h"
#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/Values.h"
#include "core/clsRegistry.h"
#include "core/modVerify.h"
#include "coupons/clsCoupon.h"
#include "coupons/frmCouponQuickView.h"
#include "platform/Recordset.h"
#include "platform/Ui.h"
#include "recipes/PackedIngredient.h"
#include "recipes/RecipeCommands.h"

#include <QAction>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QMenu>
#include <QPushButton>
#include <QSet>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

// An amount shows as money; an offer ("Buy one, get one free") as it is written.
const QString kMoney = QStringLiteral("$#0.00");

}  // namespace

frmAvailableCoupons::frmAvailableCoupons(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmAvailableCoupons"));
    setWindowTitle(QStringLiteral("Possible Coupons"));

    lvCoupons = new QTreeWidget(this);
    lvCoupons->setObjectName(QStringLiteral("lvCoupons"));
    lvCoupons->setHeaderLabels({QStringLiteral("Item"), QStringLiteral("Coupon"), QStringLiteral("Manufacturer"),
                                QStringLiteral("Size"), QStringLiteral("Value"), QStringLiteral("Expiration"),
                                QStringLiteral("Store")});
    lvCoupons->setRootIsDecorated(false);
    lvCoupons->setUniformRowHeights(true);
    lvCoupons->setAlternatingRowColors(true);
    lvCoupons->setContextMenuPolicy(Qt::CustomContextMenu);
    lvCoupons->headerItem()->setTextAlignment(colValue, Qt::AlignCenter);

    cmdAddToList = new QPushButton(QStringLiteral("&Add to List"), this);
    cmdAddToList->setObjectName(QStringLiteral("cmdAddToList"));
    cmdAddToList->setDefault(true);
    cmdClose = new QPushButton(QStringLiteral("&Close"), this);
    cmdClose->setObjectName(QStringLiteral("cmdClose"));
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cmdAddToList);
    buttons->addWidget(cmdClose);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(lvCoupons, 1);
    layout->addLayout(buttons);

    mnuPopup = new QMenu(this);
    mnuDisplayCoupon = mnuPopup->addAction(QStringLiteral("&Display Coupon"));
    mnuDisplayCoupon->setObjectName(QStringLiteral("mnuDisplayCoupon"));
    mnuAddRecipeToList = mnuPopup->addAction(QStringLiteral("Add Recipe to &List"));
    mnuAddRecipeToList->setObjectName(QStringLiteral("mnuAddRecipeToList"));
    mnuCreateMeal = mnuPopup->addAction(QStringLiteral("Create &Meal"));
    mnuCreateMeal->setObjectName(QStringLiteral("mnuCreateMeal"));

    connect(cmdAddToList, &QPushButton::clicked, this, &QDialog::accept);
    connect(cmdClose, &QPushButton::clicked, this, &QDialog::reject);
    connect(mnuDisplayCoupon, &QAction::triggered, this, &frmAvailableCoupons::mnuDisplayCoupon_Click);
    connect(mnuAddRecipeToList, &QAction::triggered, this, &frmAvailableCoupons::mnuAddRecipeToList_Click);
    connect(mnuCreateMeal, &QAction::triggered, this, &frmAvailableCoupons::mnuCreateMeal_Click);
    connect(lvCoupons, &QTreeWidget::customContextMenuRequested, this, [this](const QPoint& at) {
        QTreeWidgetItem* line = lvCoupons->itemAt(at);
        if (line) lvCoupons->setCurrentItem(line);
        mnuDisplayCoupon->setEnabled(line != nullptr);
        // The recipe's own commands only make sense when a recipe is listed.
        mnuAddRecipeToList->setVisible(!recipe_.isEmpty());
        mnuCreateMeal->setVisible(!recipe_.isEmpty());
        mnuPopup->popup(lvCoupons->viewport()->mapToGlobal(at));
    });
    connect(lvCoupons, &QTreeWidget::itemDoubleClicked, this, &frmAvailableCoupons::mnuDisplayCoupon_Click);

    resize(760, 360);
}

qint32 frmAvailableCoupons::CouponID(const QTreeWidgetItem* line) {
    return line ? line->data(colItem, Qt::UserRole).toInt() : 0;
}

void frmAvailableCoupons::Clear() {
    lvCoupons->clear();
    recipe_.clear();
}

QTreeWidgetItem* frmAvailableCoupons::AddLine(qint32 id, const QStringList& cells) {
    auto* line = new QTreeWidgetItem(lvCoupons, cells);
    line->setData(colItem, Qt::UserRole, id);
    line->setFlags(line->flags() | Qt::ItemIsUserCheckable);
    line->setCheckState(colItem, Qt::Unchecked);
    line->setTextAlignment(colValue, Qt::AlignCenter);
    return line;
}

void frmAvailableCoupons::FitColumns() {
    for (int c = colItem; c <= colStore; ++c) {
        lvCoupons->resizeColumnToContents(c);
        lvCoupons->setColumnWidth(c, qMax(lvCoupons->columnWidth(c) + 12, c == colItem ? 120 : 64));
    }
}

bool frmAvailableCoupons::GetProductCoupons(const QString& manufacturer, const QString& product) {
    Clear();
    setWindowTitle(QStringLiteral("Possible Coupons"));
    Trap(QStringLiteral("frmAvailableCoupons.GetProductCoupons"), [&] {
        clsCoupon coupon;
        coupon.OpenDB(QStringLiteral("SELECT * FROM Coupons WHERE [Manufacturer] = '") + QuoteSql(manufacturer) +
                          QStringLiteral("' AND [Product] = '") + QuoteSql(product) +
                          QStringLiteral("' ORDER BY [Manufacturer]"),
                      adOpenStatic, adLockReadOnly);
        // The named fields answer what was last set on the object, never the
        // row, so only the coupon's number comes from the table here.
        for (; !coupon.dbEOF(); coupon.MoveNext())
            AddLine(coupon.CouponDBID(), {coupon.product(), coupon.product(), coupon.Manufacturer(), coupon.Size(),
                                          coupon.Discount(), coupon.Expiration(), coupon.Store()});
        coupon.CloseDB();
    });
    FitColumns();
    return lvCoupons->topLevelItemCount() > 0;
}

bool frmAvailableCoupons::GetRecipeCoupons(const QString& title) {
    Clear();
    recipe_ = title;
    setWindowTitle(QStringLiteral("Possible Coupons for ") + title);
    Trap(QStringLiteral("frmAvailableCoupons.GetRecipeCoupons"), [&] {
        Recordset recipe;
        recipe.Open(QStringLiteral("SELECT * FROM Recipie WHERE [Title] = ") + SqlText(title), ConnectionMain(),
                    adOpenStatic, adLockReadOnly);
        if (recipe.IsEOF()) return;
        const QString dateForm = Registry().DateDisplayFormat();
        QSet<qint32> listed;
        for (int slot = 1; slot <= PackedIngredient::LastSlot; ++slot) {
            const QString packed = TextOf(recipe.Field(PackedIngredient::ColumnName(slot)));
            if (packed.trimmed().isEmpty()) continue;
            const QString item = PackedIngredient::Field(packed, 2);
            // Blanks side by side would leave an empty word, which would match
            // every coupon on file.
            for (const QString& word : item.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
                Recordset rs;
                rs.Open(QStringLiteral("SELECT * FROM Coupons WHERE [Product] LIKE '%") + QuoteSql(word) +
                            QStringLiteral("%'"),
                        ConnectionMain(), adOpenForwardOnly, adLockReadOnly);
                for (; !rs.IsEOF(); rs.MoveNext()) {
                    const qint32 id = rs.Field(QStringLiteral("ID")).toInt();
                    if (listed.contains(id)) continue;
                    listed.insert(id);
                    const QVariant expiration = rs.Field(QStringLiteral("Expiration"));
                    AddLine(id, {item, TextOf(rs.Field(QStringLiteral("Product"))),
                                 TextOf(rs.Field(QStringLiteral("Manufacturer"))),
                                 TextOf(rs.Field(QStringLiteral("Size"))), Format(rs.Field(QStringLiteral("Value")), kMoney),
                                 IsDate(expiration) ? Format(QVariant(CDate(expiration)), dateForm) : TextOf(expiration),
                                 TextOf(rs.Field(QStringLiteral("Store"))).trimmed()});
                }
            }
        }
    });
    FitColumns();
    return lvCoupons->topLevelItemCount() > 0;
}

QList<qint32> frmAvailableCoupons::PickedCouponIDs() const {
    QList<qint32> ids;
    if (result() != QDialog::Accepted) return ids;
    for (int i = 0; i < lvCoupons->topLevelItemCount(); ++i) {
        const QTreeWidgetItem* line = lvCoupons->topLevelItem(i);
        if (line->checkState(colItem) == Qt::Checked) ids << CouponID(line);
    }
    return ids;
}

void frmAvailableCoupons::mnuDisplayCoupon_Click() {
    const QTreeWidgetItem* line = lvCoupons->currentItem();
    if (!line) return;
    frmCouponQuickView view(this);
    view.ShowCoupon(CouponID(line));
    TheUi().ShowModal(&view);
}

void frmAvailableCoupons::mnuAddRecipeToList_Click() {
    if (recipe_.isEmpty()) return;
    RecipeCommands::AddRecipeToCurrentList(recipe_);
}

void frmAvailableCoupons::mnuCreateMeal_Click() {
    MsgBox(QStringLiteral("This feature will be added soon!"), Box::Information, QStringLiteral("Coming Soon"));
}
