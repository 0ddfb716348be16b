#include "stores/frmNewStore.h"

#include "core/Globals.h"
#include "core/Values.h"
#include "core/clsRegistry.h"
#include "core/modEffects.h"
#include "platform/Recordset.h"
#include "platform/Ui.h"
#include "stores/clsStore.h"
#include "stores/frmStoreIsleSetup.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

frmNewStore::frmNewStore(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmNewStore"));
    setWindowTitle(QStringLiteral("Add Store"));
    txtStoreName = new QLineEdit(this);
    txtStoreName->setObjectName(QStringLiteral("txtStoreName"));
    txtStoreName->setMaxLength(50);
    txtIsleCount = new QLineEdit(this);
    txtIsleCount->setObjectName(QStringLiteral("txtIsleCount"));
    txtFaxNumber = new QLineEdit(this);
    txtFaxNumber->setObjectName(QStringLiteral("txtFaxNumber"));
    auto* form = new QFormLayout;
    form->addRow(QStringLiteral("Store name:"), txtStoreName);
    form->addRow(QStringLiteral("Number of Isles:"), txtIsleCount);
    form->addRow(QStringLiteral("Fax number:"), txtFaxNumber);
    auto* buttons = new QDialogButtonBox(this);
    cmdNext = buttons->addButton(QStringLiteral("&Next >"), QDialogButtonBox::AcceptRole);
    cmdCancel = buttons->addButton(QDialogButtonBox::Cancel);
    cmdNext->setDefault(true);
    connect(cmdNext, &QPushButton::clicked, this, &frmNewStore::cmdNext_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(buttons);
    resize(380, sizeHint().height());
}

bool frmNewStore::txtIsleCount_Validate() {
    const QString text = txtIsleCount->text().trimmed();
    if (text.isEmpty()) {
        txtIsleCount->setText(QStringLiteral("0"));
        return true;
    }
    if (IsNumeric(text)) return true;
    MsgBox(QStringLiteral("This must be a numeric value."), Box::OKOnly, QStringLiteral("Notice"));
    txtIsleCount->selectAll();
    txtIsleCount->setFocus();
    return false;
}

void frmNewStore::cmdNext_Click() {
    const QString name = txtStoreName->text().trimmed();
    if (name.isEmpty()) {
        txtStoreName->setFocus();
        return;
    }
    if (!txtIsleCount_Validate()) return;
    if (MsgBox(QStringLiteral("Are you certain that you want to add the Store ") + name + QStringLiteral("?"),
               Box::YesNo + Box::Question, QStringLiteral("Add Store")) != Answer::Yes)
        return;
    Recordset r;
    r.Open(QStringLiteral("SELECT * FROM Store"), ConnectionMain(), adOpenForwardOnly, adLockReadOnly);
    for (; !r.IsEOF(); r.MoveNext())
        if (TextOf(r.Field(QStringLiteral("Name"))).compare(name, Qt::CaseInsensitive) == 0) {
            MsgBox(name + QStringLiteral(" has already been entered."), Box::OKOnly, QStringLiteral("Add Store"));
            txtStoreName->selectAll();
            txtStoreName->setFocus();
            return;
        }
    clsStore store;
    store.Name(name);
    store.IsleCount(CInt(Val(txtIsleCount->text())));
    store.StoreFaxNumber(txtFaxNumber->text().trimmed());
    if (!store.WriteNew()) return;
    added_ = name;
    accept();
    frmStoreIsleSetup setup(parentWidget());
    setup.LoadStore(name);
    // A new store starts with the aisles the person counted.
    if (store.IsleCount() > 0) {
        setup.txtIsleCount->setText(QString::number(store.IsleCount()));
        setup.cmdStandardIsles_Click();
    }
    ExplodeForm(&setup, Registry().ExplodeRate());
    TheUi().ShowModal(&setup);
}
