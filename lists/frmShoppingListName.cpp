#include "lists/frmShoppingListName.h"

#include "core/Dates.h"
#include "core/Values.h"
#include "core/clsRegistry.h"
#include "core/Globals.h"
#include "platform/Clock.h"
#include "platform/Ui.h"

#include <QCheckBox>
#include <QDateEdit>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

frmShoppingListName::frmShoppingListName(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmShoppingListName"));
    setWindowTitle(QStringLiteral("Shopping List Name"));

    txtName = new QLineEdit(this);
    txtName->setObjectName(QStringLiteral("txtName"));
    // A list name is one ShopList.Name value.
    txtName->setMaxLength(255);
    txtName->setMinimumWidth(280);
    chkDate = new QCheckBox(QStringLiteral("Planned for"), this);
    chkDate->setObjectName(QStringLiteral("chkDate"));
    dtpDate = new QDateEdit(Clock::Today(), this);
    dtpDate->setObjectName(QStringLiteral("dtpDate"));
    dtpDate->setCalendarPopup(true);
    dtpDate->setDisplayFormat(QStringLiteral("dddd, MMM d yyyy"));
    dtpDate->setEnabled(false);

    cmdOK = new QPushButton(QStringLiteral("OK"), this);
    cmdOK->setObjectName(QStringLiteral("cmdOK"));
    cmdOK->setDefault(true);
    cmdCancel = new QPushButton(QStringLiteral("Cancel"), this);
    cmdCancel->setObjectName(QStringLiteral("cmdCancel"));

    auto* form = new QFormLayout;
    form->addRow(QStringLiteral("List name:"), txtName);
    form->addRow(chkDate, dtpDate);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cmdOK);
    buttons->addWidget(cmdCancel);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addStretch(1);
    layout->addLayout(buttons);

    connect(txtName, &QLineEdit::textChanged, this, [this] { RefreshButtons(); });
    connect(chkDate, &QCheckBox::toggled, dtpDate, &QWidget::setEnabled);
    connect(cmdOK, &QPushButton::clicked, this, [this] {
        if (!Name().isEmpty()) accept();
    });
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    RefreshButtons();
}

QString frmShoppingListName::Name() const { return txtName->text().trimmed(); }

QString frmShoppingListName::DateText() const {
    if (!chkDate->isChecked()) return QString();
    return Format(QVariant(dtpDate->date()), Registry().DateDisplayFormat());
}

void frmShoppingListName::SetValues(const QString& name, const QString& date) {
    txtName->setText(name);
    const bool dated = IsDate(QVariant(date));
    chkDate->setChecked(dated);
    if (dated) dtpDate->setDate(CDate(QVariant(date)).date());
}

// An empty name would be a list nobody can pick again.
void frmShoppingListName::RefreshButtons() { cmdOK->setEnabled(!Name().isEmpty()); }

bool frmShoppingListName::GetName(QString& name, QString& date, QWidget* parent) {
    frmShoppingListName form(parent ? parent : MainWindow());
    form.SetValues(name, date);
    if (TheUi().ShowModal(&form) != QDialog::Accepted || form.Name().isEmpty()) return false;
    name = form.Name();
    date = form.DateText();
    return true;
}
