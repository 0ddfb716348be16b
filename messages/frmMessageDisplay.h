#pragma once

#include <QDialog>

class QLabel;
class QPushButton;
class QTextEdit;

// Shows one message of the message centre: its date and its whole text.
class frmMessageDisplay : public QDialog {
    Q_OBJECT
public:
    explicit frmMessageDisplay(QWidget* parent = nullptr);
    void SetMessage(const QString& title, const QString& date, const QString& body);

    QLabel* lblDate;
    QTextEdit* txtMessage;
    QPushButton* cmdExport;
    QPushButton* cmdClose;

public Q_SLOTS:
    void cmdExport_Click();
    void cmdClose_Click() { close(); }
};
