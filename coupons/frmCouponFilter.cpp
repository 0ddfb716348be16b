#include "coupons/frmCouponFilter.h"

#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/Values.h"
#include "platform/Clock.h"
#include "platform/Recordset.h"
#include "platform/Ui.h"

#include <QComboBox>
#include <QDateEdit>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSet>
#include <QVBoxLayout>
#include <algorithm>

namespace {

struct KindRow {
    const char* caption;
    int kind;
    const char* field;
    const char* prompt;
};

// In the order the screen offers them.
const KindRow kKinds[] = {
    {"Manufacturer", frmCouponFilter::ByManufacturer, "Manufacturer",
     "Select the Manufacturer that you wish to view Coupons for."},
    {"Product", frmCouponFilter::ByProduct, "Product", "Select the Product that you wish to view Coupons for."},
    {"Store", frmCouponFilter::ByStore, "Store", "Select the Store that you wish to view Coupons for."},
    {"Expiration", frmCouponFilter::ByExpiration, "Expiration", "Select the Expiration date that Coupons expire before."},
};

const KindRow& RowOf(int kind) {
    for (const KindRow& row : kKinds)
        if (row.kind == kind) return row;
    return kKinds[0];
}

}  // namespace

frmCouponFilter::frmCouponFilter(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmCouponFilter"));
    setWindowTitle(QStringLiteral("Filter Coupons"));

    cboReduceTable = new QComboBox(this);
    cboReduceTable->setObjectName(QStringLiteral("cboReduceTable"));
    for (const KindRow& row : kKinds) cboReduceTable->addItem(QString::fromLatin1(row.caption), row.kind);
    lblPrompt = new QLabel(this);
    lblPrompt->setObjectName(QStringLiteral("lblPrompt"));
    lblPrompt->setWordWrap(true);
    cboFilterData = new QComboBox(this);
    cboFilterData->setObjectName(QStringLiteral("cboFilterData"));
    cboFilterData->setEditable(true);
    cboFilterData->setInsertPolicy(QComboBox::NoInsert);
    cboFilterData->setMinimumContentsLength(28);
    dtpFilterDate = new QDateEdit(Clock::Today(), this);
    dtpFilterDate->setObjectName(QStringLiteral("dtpFilterDate"));
    dtpFilterDate->setCalendarPopup(true);
    dtpFilterDate->setDisplayFormat(QStringLiteral("MM/dd/yyyy"));
    cmdOK = new QPushButton(QStringLiteral("OK"), this);
    cmdOK->setObjectName(QStringLiteral("cmdOK"));
    cmdOK->setDefault(true);
    cmdCancel = new QPushButton(QStringLiteral("Cancel"), this);
    cmdCancel->setObjectName(QStringLiteral("cmdCancel"));

    auto* form = new QFormLayout;
    form->addRow(QStringLiteral("&Show coupons by:"), cboReduceTable);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(lblPrompt);
    layout->addWidget(cboFilterData);
    layout->addWidget(dtpFilterDate);
    layout->addStretch(1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cmdOK);
    buttons->addWidget(cmdCancel);
    layout->addLayout(buttons);

    connect(cboReduceTable, &QComboBox::currentIndexChanged, this, &frmCouponFilter::cboReduceTable_Click);
    connect(cboFilterData, &QComboBox::editTextChanged, this,
            [this] { cmdOK->setEnabled(Kind() == ByExpiration || !Value().isEmpty()); });
    connect(cmdOK, &QPushButton::clicked, this, &frmCouponFilter::cmdOK_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    setMinimumWidth(380);
    cboReduceTable_Click();
}

int frmCouponFilter::Kind() const { return cboReduceTable->currentData().toInt(); }

QString frmCouponFilter::Value() const {
    if (Kind() == ByExpiration) return dtpFilterDate->date().toString(QStringLiteral("MM/dd/yyyy"));
    return cboFilterData->currentText().trimmed();
}

void frmCouponFilter::cboReduceTable_Click() {
    const KindRow& row = RowOf(Kind());
    lblPrompt->setText(QString::fromLatin1(row.prompt));
    const bool byDate = row.kind == ByExpiration;
    dtpFilterDate->setVisible(byDate);
    cboFilterData->setVisible(!byDate);
    if (!byDate) LoadFilterData(QString::fromLatin1(row.field));
    cmdOK->setEnabled(byDate || !Value().isEmpty());
}

void frmCouponFilter::LoadFilterData(const QString& field) {
    cboFilterData->clear();
    Trap(QStringLiteral("frmCouponFilter.LoadFilterData"), [&] {
        Recordset rs;
        rs.Open(QStringLiteral("SELECT [%1] FROM Coupons").arg(field), ConnectionMain(), adOpenForwardOnly,
                adLockReadOnly);
        QStringList values;
        QSet<QString> seen;
        for (; !rs.IsEOF(); rs.MoveNext()) {
            // A coupon for no store holds a blank, which is no choice.
            const QString value = TextOf(rs.Field(field)).trimmed();
            if (value.isEmpty() || seen.contains(value.toCaseFolded())) continue;
            seen.insert(value.toCaseFolded());
            values << value;
        }
        std::sort(values.begin(), values.end(),
                  [](const QString& a, const QString& b) { return a.compare(b, Qt::CaseInsensitive) < 0; });
        cboFilterData->addItems(values);
    });
    cboFilterData->setCurrentIndex(cboFilterData->count() ? 0 : -1);
}

void frmCouponFilter::cmdOK_Click() {
    if (Kind() != ByExpiration && Value().isEmpty()) {
        cboFilterData->setFocus();
        return;
    }
    accept();
}

bool frmCouponFilter::GetFilterData(int& kind, QString& value) {
    cboReduceTable_Click();
    if (TheUi().ShowModal(this) != QDialog::Accepted) return false;
    kind = Kind();
    value = Value();
    return true;
}
