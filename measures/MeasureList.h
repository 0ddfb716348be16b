#pragma once

#include <QDialog>

class QAction;
class QToolBar;
class QTreeWidget;

// A small tool window listing two columns of one measures table, which the
// person may keep above the other windows ("docked") or let float.
class MeasureList : public QDialog {
    Q_OBJECT
public:
    QToolBar* tbMain;
    QAction* tbDock;
    QTreeWidget* lvList;

    bool Docked() const { return docked_; }
    void SetDocked(bool docked);
    // The list's rows as "first|second", in order.
    QStringList Lines() const;

public Q_SLOTS:
    void Form_Load();
    void tbDock_Click();

protected:
    MeasureList(const QString& objectName, const QString& title, const QStringList& headers, const QString& sql,
                const QString& firstColumn, const QString& secondColumn, QWidget* parent);
    // Where the choice lasts beyond this window, if anywhere.
    virtual void DockChanged(bool /*docked*/) {}

private:
    QString sql_;
    QString firstColumn_;
    QString secondColumn_;
    bool docked_ = false;
};
