#pragma once

#include <QDialog>
#include <QString>

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QPushButton;
class QRadioButton;

// Prints one saved list: which list, on which printer or into a file, and in
// which style. Only the standard style prints so far.
class frmShoppingListGenerate : public QDialog {
    Q_OBJECT
public:
    explicit frmShoppingListGenerate(QWidget* parent = nullptr);

    QGroupBox* fraSelectList;
    QComboBox* cboShoppingLists;
    QGroupBox* fraSelectPrinter;
    QComboBox* cboPrinter;
    QCheckBox* chkPrintToFile;
    QLabel* lblFile;
    QCheckBox* chkPreview;
    QGroupBox* fraSelectStyle;
    QRadioButton* optStandard;
    QRadioButton* optByIsle;
    QPushButton* cmdPrint;
    QPushButton* cmdCancel;

    // The file the list goes into when printing to a file; "" otherwise.
    QString PrintFile() const { return printFile_; }

public Q_SLOTS:
    void LoadShoppingLists();
    void LoadPrinters();
    void chkPrintToFile_Click();
    void cmdPrint_Click();
    void cmdCancel_Click();
    void reject() override;

private:
    // Closes through the closing effect.
    void Finish(bool printed);

    QString printFile_;
    bool closing_ = false;
};
