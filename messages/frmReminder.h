#pragma once

#include <QDialog>

class QCheckBox;
class QComboBox;
class QLabel;
class QPushButton;

// A reminder that has fallen due. Several can stand open at once; each acts
// on its own message, found by title.
class frmReminder : public QDialog {
    Q_OBJECT
public:
    explicit frmReminder(QWidget* parent = nullptr);
    // The message's title: the key of every change this window makes.
    void SetMessageID(const QString& title);
    QString MessageID() const { return title_; }
    void SetMessageText(const QString& text);
    // Shows the overdue mark; read when the window loads and when it shows.
    bool ReminderOverdue = false;

    QLabel* lblReminder;
    QLabel* imgOverdue;
    QCheckBox* chkRemindAgain;
    QComboBox* cboReminderTimer;
    QPushButton* cmdClose;
    QPushButton* cmdIgnore;
    QPushButton* cmdRemove;
    QPushButton* cmdOutlook;
    QPushButton* cmdHelp;

public Q_SLOTS:
    void Form_Load();
    void chkRemindAgain_Click();
    void cmdClose_Click();
    void cmdIgnore_Click();
    void cmdOutlook_Click();
    void cmdRemove_Click();
    void cmdHelp_Click();

protected:
    void showEvent(QShowEvent* event) override;

private:
    QString title_;
};
