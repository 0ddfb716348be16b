#pragma once

#include <QDialog>
#include <QStandardItemModel>

class QLabel;
class QTreeView;

// Today's view of the message centre: every dated message under one root,
// today's and the overdue ones marked, the rest in grey.
class frmCalendarEvents : public QDialog {
    Q_OBJECT
public:
    explicit frmCalendarEvents(QWidget* parent = nullptr);

    QLabel* lblDate;
    QTreeView* tvTODO;
    QLabel* lblImTooBusy;
    QLabel* lblPrintToday;
    QStandardItemModel events;  // what tvTODO shows

public Q_SLOTS:
    void Form_Load();
    void lblImTooBusy_Click();
    void lblPrintToday_Click();
};
