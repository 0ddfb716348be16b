#include "measures/frmConvertMeasures.h"

#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/Values.h"
#include "measures/frmConversions.h"
#include "measures/modConvert.h"
#include "platform/Recordset.h"
#include "platform/Ui.h"

#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSet>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

const QString kSelect = QStringLiteral("<Select>");

bool SelectIn(QComboBox* box, const QString& unit) {
    const int at = box->findText(unit, Qt::MatchFixedString);
    if (at <= 0) return false;
    box->setCurrentIndex(at);
    return true;
}

}  // namespace

frmConvertMeasures::frmConvertMeasures(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmConvertMeasures"));
    setWindowTitle(QStringLiteral("Measurement Conversion"));

    cboFromUnit = new QComboBox(this);
    cboToUnit = new QComboBox(this);
    txtQuantity = new QLineEdit(this);
    udQuantityUp = new QToolButton(this);
    udQuantityDown = new QToolButton(this);
    cmdCalculate = new QPushButton(QStringLiteral("&Calculate"), this);
    cmdClose = new QPushButton(QStringLiteral("C&lose"), this);
    cboFromUnit->setObjectName(QStringLiteral("cboFromUnit"));
    cboToUnit->setObjectName(QStringLiteral("cboToUnit"));
    txtQuantity->setObjectName(QStringLiteral("txtQuantity"));
    udQuantityUp->setObjectName(QStringLiteral("udQuantityUp"));
    udQuantityDown->setObjectName(QStringLiteral("udQuantityDown"));
    cmdCalculate->setObjectName(QStringLiteral("cmdCalculate"));
    cmdClose->setObjectName(QStringLiteral("cmdClose"));
    udQuantityUp->setArrowType(Qt::UpArrow);
    udQuantityDown->setArrowType(Qt::DownArrow);
    udQuantityUp->setAutoRepeat(true);
    for (QToolButton* b : {udQuantityUp, udQuantityDown}) b->setFixedSize(18, 12);
    udQuantityDown->setAutoRepeat(true);
    cmdCalculate->setDefault(true);

    auto* upDown = new QVBoxLayout;
    upDown->setSpacing(0);
    upDown->addWidget(udQuantityUp);
    upDown->addWidget(udQuantityDown);
    auto* quantity = new QHBoxLayout;
    quantity->addWidget(txtQuantity, 1);
    quantity->addLayout(upDown);
    auto* form = new QFormLayout;
    auto* quantityLabel = new QLabel(QStringLiteral("&Quantity:"), this);
    quantityLabel->setBuddy(txtQuantity);
    form->addRow(quantityLabel, quantity);
    form->addRow(QStringLiteral("&From:"), cboFromUnit);
    form->addRow(QStringLiteral("&To:"), cboToUnit);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cmdCalculate);
    buttons->addWidget(cmdClose);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addLayout(buttons);

    connect(cmdCalculate, &QPushButton::clicked, this, &frmConvertMeasures::cmdCalculate_Click);
    connect(cmdClose, &QPushButton::clicked, this, &frmConvertMeasures::cmdClose_Click);
    connect(txtQuantity, &QLineEdit::editingFinished, this, &frmConvertMeasures::txtQuantity_LostFocus);
    connect(txtQuantity, &QLineEdit::textChanged, this, &frmConvertMeasures::EnableCalculate);
    connect(cboFromUnit, &QComboBox::currentIndexChanged, this, &frmConvertMeasures::EnableCalculate);
    connect(cboToUnit, &QComboBox::currentIndexChanged, this, &frmConvertMeasures::EnableCalculate);
    connect(udQuantityUp, &QToolButton::clicked, this, [this] { udQuantity_Change(1); });
    connect(udQuantityDown, &QToolButton::clicked, this, [this] { udQuantity_Change(-1); });

    Form_Load();
}

void frmConvertMeasures::Form_Load() {
    Trap(QStringLiteral("frmConvertMeasures.Form_Load"), [&] {
        cboFromUnit->clear();
        cboToUnit->clear();
        cboFromUnit->addItem(kSelect);
        cboToUnit->addItem(kSelect);
        Recordset rs;
        rs.Open(QStringLiteral("SELECT [RowDescription] FROM Conversion"), ConnectionMain(), adOpenStatic,
                adLockReadOnly);
        QSet<QString> seen;
        while (!rs.IsEOF()) {
            const QString unit = TextOf(rs.Field(QStringLiteral("RowDescription")));
            // The store compares names without case; so does this list.
            if (!unit.isEmpty() && !seen.contains(unit.toLower())) {
                seen.insert(unit.toLower());
                cboFromUnit->addItem(unit);
                cboToUnit->addItem(unit);
            }
            rs.MoveNext();
        }
    });
    cboFromUnit->setCurrentIndex(0);
    cboToUnit->setCurrentIndex(0);
    EnableCalculate();
}

bool frmConvertMeasures::selectFromUnit(const QString& unit) { return SelectIn(cboFromUnit, unit); }

bool frmConvertMeasures::selectToUnit(const QString& unit) { return SelectIn(cboToUnit, unit); }

void frmConvertMeasures::EnableCalculate() {
    cmdCalculate->setEnabled(cboFromUnit->currentIndex() > 0 && cboToUnit->currentIndex() > 0 &&
                             IsNumeric(txtQuantity->text()));
}

void frmConvertMeasures::txtQuantity_LostFocus() {
    const QString text = txtQuantity->text();
    if (!text.contains(QLatin1Char('/'))) return;
    txtQuantity->setText(FractionToDecimal(text).toString());
}

void frmConvertMeasures::udQuantity_Change(int step) {
    Trap(QStringLiteral("frmConvertMeasures.udQuantity_Change"), [&] {
        const double value = Val(txtQuantity->text()) + step;
        txtQuantity->setText(CStr(value < 0 ? 0.0 : value));
    });
}

void frmConvertMeasures::cmdCalculate_Click() {
    Trap(QStringLiteral("frmConvertMeasures.cmdCalculate_Click"), [&] {
        const QString quantity = txtQuantity->text();
        const QString from = cboFromUnit->currentText();
        const QString to = cboToUnit->currentText();
        const QString result = ConvertUnit(from, quantity, to);
        if (!result.isEmpty() && result != QStringLiteral("0")) {
            Currency value = CCur(result);
            const QString fraction = DecimalToFraction(value);
            // The fraction keeps the blank it starts with below one.
            const QString shown = fraction.isEmpty() ? value.toString() : fraction;
            MsgBox(quantity + QLatin1Char(' ') + from + QStringLiteral(" = ") + shown + QLatin1Char(' ') + to,
                   Box::Information, QStringLiteral("Result"));
            return;
        }
        Response = MsgBox(QStringLiteral("The required conversion constant does no exist, Do you wish to add it?"),
                          Box::YesNo + Box::Question, QStringLiteral("Add Constant"));
        if (Response != Answer::Yes) return;
        frmConversions chart(this);
        TheUi().ShowModal(&chart);
        // A measure added to the chart is offered at once.
        Form_Load();
        selectFromUnit(from);
        selectToUnit(to);
    });
}

void frmConvertMeasures::cmdClose_Click() {
    FormClosing = true;
    accept();
}
