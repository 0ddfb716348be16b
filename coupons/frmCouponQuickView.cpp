#include "coupons/frmCouponQuickView.h"

#include "core/Dates.h"
#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/Values.h"
#include "platform/Recordset.h"

#include <QFormLayout>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

QLabel* Field(const char* name, QWidget* parent) {
    auto* label = new QLabel(parent);
    label->setObjectName(QString::fromLatin1(name));
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    label->setWordWrap(true);
    return label;
}

}  // namespace

frmCouponQuickView::frmCouponQuickView(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmCouponQuickView"));
    setWindowTitle(QStringLiteral("Coupon"));

    lblProduct = Field("lblProduct", this);
    QFont big = lblProduct->font();
    big.setPointSizeF(big.pointSizeF() * 1.4);
    big.setBold(true);
    lblProduct->setFont(big);
    lblManufacturer = Field("lblManufacturer", this);
    lblValue = Field("lblValue", this);
    QFont strong = lblValue->font();
    strong.setBold(true);
    lblValue->setFont(strong);
    lblQuantity = Field("lblQuantity", this);
    lblSize = Field("lblSize", this);
    lblCategory = Field("lblCategory", this);
    lblStore = Field("lblStore", this);
    lblExpiration = Field("lblExpiration", this);
    lblDiscountDouble = Field("lblDiscountDouble", this);
    lblComments = Field("lblComments", this);
    lblComments->setAlignment(Qt::AlignLeft | Qt::AlignTop);

    auto* rule = new QFrame(this);
    rule->setFrameShape(QFrame::HLine);
    rule->setFrameShadow(QFrame::Sunken);

    auto* form = new QFormLayout;
    form->setLabelAlignment(Qt::AlignRight);
    form->addRow(QStringLiteral("Value:"), lblValue);
    form->addRow(QStringLiteral("Buy:"), lblQuantity);
    form->addRow(QStringLiteral("Size:"), lblSize);
    form->addRow(QStringLiteral("Category:"), lblCategory);
    form->addRow(QStringLiteral("Store:"), lblStore);
    form->addRow(QStringLiteral("Expires:"), lblExpiration);
    form->addRow(QStringLiteral("Store may double:"), lblDiscountDouble);
    form->addRow(QStringLiteral("Comments:"), lblComments);

    cmdClose = new QPushButton(QStringLiteral("&Close"), this);
    cmdClose->setObjectName(QStringLiteral("cmdClose"));
    cmdClose->setDefault(true);
    connect(cmdClose, &QPushButton::clicked, this, &QDialog::accept);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cmdClose);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(lblProduct);
    layout->addWidget(lblManufacturer);
    layout->addWidget(rule);
    layout->addLayout(form);
    layout->addStretch(1);
    layout->addLayout(buttons);
    setMinimumWidth(360);
}

void frmCouponQuickView::ShowCoupon(qint32 id) {
    for (QLabel* l : {lblProduct, lblManufacturer, lblValue, lblQuantity, lblSize, lblCategory, lblStore, lblExpiration,
                      lblDiscountDouble, lblComments})
        l->clear();
    Trap(QStringLiteral("frmCouponQuickView.ShowCoupon"), [&] {
        Recordset rs;
        rs.Open(QStringLiteral("SELECT * FROM Coupons WHERE [ID] =") + QString::number(id), ConnectionMain(),
                adOpenStatic, adLockReadOnly);
        if (rs.IsEOF()) return;
        const auto text = [&](const char* column) { return TextOf(rs.Field(QString::fromLatin1(column))); };
        lblProduct->setText(text("Product"));
        lblManufacturer->setText(text("Manufacturer"));
        // An amount shows as money; an offer as it is written.
        lblValue->setText(Format(rs.Field(QStringLiteral("Value")), QStringLiteral("$#0.00")));
        lblQuantity->setText(text("Quantity"));
        lblSize->setText(text("Size"));
        lblCategory->setText(text("Category"));
        // A blank store means any store will take it.
        lblStore->setText(text("Store"));
        const QVariant expiration = rs.Field(QStringLiteral("Expiration"));
        lblExpiration->setText(IsDate(expiration) ? Format(QVariant(CDate(expiration)), QStringLiteral("dddd, mmm d yyyy"))
                                                  : TextOf(expiration));
        // Stored as the tick box left it ("1" or "0"); anything else reads as No.
        const QString twice = text("DiscountDouble").trimmed();
        const bool doubles = IsNumeric(QVariant(twice)) ? CDbl(QVariant(twice)) != 0
                                                        : twice.compare(QLatin1String("True"), Qt::CaseInsensitive) == 0;
        lblDiscountDouble->setText(doubles ? QStringLiteral("Yes") : QStringLiteral("No"));
        lblComments->setText(text("Comments"));
        setWindowTitle(QStringLiteral("Coupon - ") + lblProduct->text());
    });
}
