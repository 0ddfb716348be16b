#pragma once

#include <QDialog>

class EditorToolbar;
class QCalendarWidget;
class QLabel;
class QLineEdit;
class QPushButton;
class QTextEdit;
class QToolButton;

// Writes messages and reminders into the message centre, one after another.
class frmMessageNew : public QDialog {
    Q_OBJECT
public:
    explicit frmMessageNew(QWidget* parent = nullptr);

    // "None", or the day picked, as a date text.
    QString MessageDate() const { return date_; }
    // 1 reminder, 2 message.
    int MessageType() const { return type_; }

    QLineEdit* txtSubject;
    QTextEdit* txtMessage;
    QLabel* lblDate;
    QLabel* imgDate;
    QCalendarWidget* MonthView1;
    EditorToolbar* tbEditor;
    QToolButton* tbType;  // the toolbar's drop-down: "R" reminder, "M" message
    QPushButton* cmdAddMessage;
    QPushButton* cmdClose;

public Q_SLOTS:
    void Form_Load();
    void lblDate_Click();
    void MonthView1_DateClick(const QDate& day);
    void tbEditor_ButtonClick(const QString& key);
    // "R" or "M".
    void tbEditor_ButtonMenuClick(const QString& key);
    void cmdAddMessage_Click();
    void cmdClose_Click();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void SetCaption();
    bool HasUnsavedText() const;

    QString date_ = QStringLiteral("None");
    int type_ = 2;
    bool closing_ = false;
};
