#pragma once

#include <QDialog>
#include <QString>

class QLabel;
class QLineEdit;
class QPushButton;

// Takes a barcode typed or scanned into its text box. A scanner ends with
// Enter, which completes the dialog whatever the length.
class frmNewBarcode : public QDialog {
    Q_OBJECT
public:
    explicit frmNewBarcode(QWidget* parent = nullptr);

    // The text entered, or "" when cancelled.
    static QString GetItemBarcode(const QString& existing, const QString& reserved1 = QString(),
                                  const QString& reserved2 = QString());

    QLabel* lblInstruction;
    QLineEdit* txtBarcode;
    QLabel* picBarcode;
    QPushButton* cmdOK;
    QPushButton* cmdCancel;

protected:
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void txtBarcode_Change(const QString& text);
    void cmdOK_Click();
    void cmdCancel_Click();
    void Finish(int code);

    QString existing_;
    QString result_;
};
