#include "lists/frmShoppingListGenerate.h"

#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/Values.h"
#include "core/clsRegistry.h"
#include "core/deLarderkeep.h"
#include "core/modEffects.h"
#include "platform/Recordset.h"
#include "platform/Report.h"
#include "platform/RuntimeError.h"
#include "platform/Ui.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPrinter>
#include <QPrinterInfo>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

frmShoppingListGenerate::frmShoppingListGenerate(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmShoppingListGenerate"));
    setWindowTitle(QStringLiteral("Generate List"));

    fraSelectList = new QGroupBox(QStringLiteral("Select List"), this);
    fraSelectList->setObjectName(QStringLiteral("fraSelectList"));
    cboShoppingLists = new QComboBox(fraSelectList);
    cboShoppingLists->setObjectName(QStringLiteral("cboShoppingLists"));
    cboShoppingLists->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    (new QVBoxLayout(fraSelectList))->addWidget(cboShoppingLists);

    fraSelectPrinter = new QGroupBox(QStringLiteral("Select Printer"), this);
    fraSelectPrinter->setObjectName(QStringLiteral("fraSelectPrinter"));
    cboPrinter = new QComboBox(fraSelectPrinter);
    cboPrinter->setObjectName(QStringLiteral("cboPrinter"));
    cboPrinter->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    chkPrintToFile = new QCheckBox(QStringLiteral("Print to File"), fraSelectPrinter);
    chkPrintToFile->setObjectName(QStringLiteral("chkPrintToFile"));
    lblFile = new QLabel(fraSelectPrinter);
    lblFile->setObjectName(QStringLiteral("lblFile"));
    lblFile->setTextInteractionFlags(Qt::TextSelectableByMouse);
    lblFile->setVisible(false);
    chkPreview = new QCheckBox(QStringLiteral("Preview"), fraSelectPrinter);
    chkPreview->setObjectName(QStringLiteral("chkPreview"));
    auto* printerBox = new QVBoxLayout(fraSelectPrinter);
    printerBox->addWidget(cboPrinter);
    auto* printerChecks = new QHBoxLayout;
    printerChecks->addWidget(chkPrintToFile);
    printerChecks->addWidget(chkPreview);
    printerChecks->addStretch(1);
    printerBox->addLayout(printerChecks);
    printerBox->addWidget(lblFile);

    fraSelectStyle = new QGroupBox(QStringLiteral("Select Style"), this);
    fraSelectStyle->setObjectName(QStringLiteral("fraSelectStyle"));
    optStandard = new QRadioButton(QStringLiteral("Standard"), fraSelectStyle);
    optStandard->setObjectName(QStringLiteral("optStandard"));
    optStandard->setChecked(true);
    optByIsle = new QRadioButton(QStringLiteral("By Isle"), fraSelectStyle);
    optByIsle->setObjectName(QStringLiteral("optByIsle"));
    auto* styleBox = new QHBoxLayout(fraSelectStyle);
    styleBox->addWidget(optStandard);
    styleBox->addWidget(optByIsle);
    styleBox->addStretch(1);

    cmdPrint = new QPushButton(QStringLiteral("Print"), this);
    cmdPrint->setObjectName(QStringLiteral("cmdPrint"));
    cmdPrint->setDefault(true);
    cmdCancel = new QPushButton(QStringLiteral("Cancel"), this);
    cmdCancel->setObjectName(QStringLiteral("cmdCancel"));
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cmdPrint);
    buttons->addWidget(cmdCancel);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(fraSelectList);
    layout->addWidget(fraSelectPrinter);
    layout->addWidget(fraSelectStyle);
    layout->addStretch(1);
    layout->addLayout(buttons);
    setMinimumWidth(420);

    connect(chkPrintToFile, &QCheckBox::clicked, this, &frmShoppingListGenerate::chkPrintToFile_Click);
    connect(cmdPrint, &QPushButton::clicked, this, &frmShoppingListGenerate::cmdPrint_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmShoppingListGenerate::cmdCancel_Click);

    LoadShoppingLists();
    LoadPrinters();
}

void frmShoppingListGenerate::LoadShoppingLists() {
    cboShoppingLists->clear();
    Trap(QStringLiteral("frmShoppingListGenerate.LoadShoppingLists"), [&] {
        Recordset rs;
        rs.Open(QStringLiteral("SELECT [Name] FROM Shoplist"), ConnectionMain(), adOpenKeyset, adLockReadOnly);
        QStringList names;
        for (; !rs.IsEOF(); rs.MoveNext()) {
            const QString name = TextOf(rs.Field(QStringLiteral("Name")));
            // One entry per list; names compare without regard to case, as the table does.
            if (!names.contains(name, Qt::CaseInsensitive)) names << name;
        }
        cboShoppingLists->addItems(names);
    });
    cmdPrint->setEnabled(cboShoppingLists->count() > 0);
}

void frmShoppingListGenerate::LoadPrinters() {
    cboPrinter->clear();
    const QStringList printers = QPrinterInfo::availablePrinterNames();
    if (printers.isEmpty()) {
        cboPrinter->addItem(QStringLiteral("There are no printers setup on this PC"));
        cboPrinter->setEnabled(false);
        return;
    }
    cboPrinter->addItem(QStringLiteral("- Select a Printer -"));
    cboPrinter->addItems(printers);
    cboPrinter->setEnabled(true);
}

void frmShoppingListGenerate::chkPrintToFile_Click() {
    printFile_.clear();
    lblFile->clear();
    lblFile->setVisible(false);
    if (!chkPrintToFile->isChecked()) return;
    // The question below is the only one about an existing file.
    const QString path = TheUi().SaveFileName(QStringLiteral("Save Larder list to file..."), QDir::homePath(),
                                              QStringLiteral("Shopping Lists (*.htm)"), false);
    bool keep = !path.isEmpty();
    if (keep && QFileInfo::exists(path)) {
        Response = MsgBox(path + QStringLiteral(" exists, Over-write it?"), Box::YesNo + Box::Question,
                          QStringLiteral("Over-write"));
        keep = Response == Answer::Yes;
    }
    if (!keep) {
        const QSignalBlocker quiet(chkPrintToFile);
        chkPrintToFile->setChecked(false);
        return;
    }
    printFile_ = path;
    lblFile->setText(QDir::toNativeSeparators(path));
    lblFile->setVisible(true);
}

void frmShoppingListGenerate::cmdPrint_Click() {
    if (!optStandard->isChecked()) return;
    const QString listName = cboShoppingLists->currentText();
    if (listName.isEmpty()) return;
    const Report report = deLarderkeep::cmShoppingList(listName);
    if (chkPrintToFile->isChecked() && !printFile_.isEmpty()) {
        if (!report.SaveHtml(printFile_)) {
            MsgBox(QStringLiteral("The report could not be written to %1.").arg(printFile_), Box::Exclamation,
                   report.Title());
            return;
        }
    } else if (chkPreview->isChecked()) {
        report.Preview(this);
    } else if (cboPrinter->isEnabled() && cboPrinter->currentIndex() > 0) {
        QPrinter printer(QPrinterInfo::printerInfo(cboPrinter->currentText()), QPrinter::HighResolution);
        report.PrintTo(printer);
    } else if (!report.Print(this, true)) {
        return;
    }
    // The copy kept for "Reprint last Report".
    if (Registry().SaveReportCopy()) {
        const QString path = QDir(Registry().SaveReportDirectory()).filePath(QStringLiteral("ShopListByCategory.htm"));
        if (report.SaveHtml(path)) LastReportFile = path;
    }
    Finish(true);
}

void frmShoppingListGenerate::cmdCancel_Click() {
    FormClosing = true;
    Finish(false);
}

void frmShoppingListGenerate::Finish(bool printed) {
    closing_ = true;
    ImplodeForm(this, Registry().ExplodeRate());
    if (printed)
        QDialog::accept();
    else
        QDialog::reject();
}

void frmShoppingListGenerate::reject() {
    // Escape and the window's close box take the same way out as Cancel.
    if (closing_) {
        QDialog::reject();
        return;
    }
    cmdCancel_Click();
}
