#pragma once

#include <QDialog>

class QLabel;
class QPushButton;

// A reminder that has fallen due.
class frmReminder : public QDialog {
    Q_OBJECT
public:
    explicit frmReminder(QWidget* parent = nullptr);
    void SetMessageID(const QString& title);
    QString MessageID() const { return title_; }
    void SetMessageText(const QString& text);
    bool ReminderOverdue = false;

    QLabel* lblReminder;
    QPushButton* cmdClose;

public Q_SLOTS:
    void cmdClose_Click();

private:
    QString title_;
};
