#include "lists/frmShoppingListEditCost.h"

#include "core/Globals.h"
#include "core/Values.h"
#include "platform/Ui.h"
#include "products/Calculator.h"
#include "products/clsProduct.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

frmShoppingListEditCost::frmShoppingListEditCost(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmShoppingListEditCost"));
    setWindowTitle(QStringLiteral("Edit Item Cost"));

    lblOldCost = new QLabel(this);
    lblOldCost->setObjectName(QStringLiteral("lblOldCost"));
    txtNewCost = new QLineEdit(this);
    txtNewCost->setObjectName(QStringLiteral("txtNewCost"));
    txtNewCost->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    cmdCalculator = new QPushButton(QStringLiteral("Calculator"), this);
    cmdCalculator->setObjectName(QStringLiteral("cmdCalculator"));
    cmdCalculator->setAutoDefault(false);
    if (Calculator::Program().isEmpty()) {
        cmdCalculator->setEnabled(false);
        cmdCalculator->setToolTip(QStringLiteral("No desktop calculator was found on this computer."));
    }
    cmdOK = new QPushButton(QStringLiteral("OK"), this);
    cmdOK->setObjectName(QStringLiteral("cmdOK"));
    cmdOK->setDefault(true);
    cmdCancel = new QPushButton(QStringLiteral("Cancel"), this);
    cmdCancel->setObjectName(QStringLiteral("cmdCancel"));
    cmdCancel->setAutoDefault(false);

    auto* form = new QFormLayout;
    form->addRow(QStringLiteral("Old cost:"), lblOldCost);
    auto* costRow = new QHBoxLayout;
    costRow->addWidget(txtNewCost, 1);
    costRow->addWidget(cmdCalculator);
    form->addRow(QStringLiteral("&New cost:"), costRow);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cmdOK);
    buttons->addWidget(cmdCancel);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addLayout(buttons);

    connect(cmdOK, &QPushButton::clicked, this, &frmShoppingListEditCost::cmdOK_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(cmdCalculator, &QPushButton::clicked, this, &frmShoppingListEditCost::cmdCalculator_Click);
}

void frmShoppingListEditCost::SetOldCost(const Currency& cost) {
    const QString shown = Format(QVariant::fromValue(cost), QStringLiteral("$#0.00"));
    lblOldCost->setText(shown);
    txtNewCost->setText(shown.mid(1));
    txtNewCost->selectAll();
}

void frmShoppingListEditCost::cmdOK_Click() {
    std::optional<Currency> cost;
    try {
        if (!txtNewCost->text().trimmed().isEmpty()) cost = clsProduct::CostFromText(txtNewCost->text());
    } catch (const std::exception&) {
        cost.reset();
    }
    if (!cost) {
        MsgBox(QStringLiteral("The Cost must be a numeric value."), Box::Exclamation, QStringLiteral("Notice"));
        txtNewCost->setFocus();
        txtNewCost->selectAll();
        return;
    }
    newCost_ = *cost;
    accept();
}

void frmShoppingListEditCost::cmdCalculator_Click() { Calculator::Start(); }

bool frmShoppingListEditCost::GetNewCost(const Currency& oldCost, Currency& newCost, QWidget* parent) {
    frmShoppingListEditCost form(parent ? parent : MainWindow());
    form.SetOldCost(oldCost);
    if (TheUi().ShowModal(&form) != QDialog::Accepted) return false;
    newCost = form.NewCost();
    return true;
}
