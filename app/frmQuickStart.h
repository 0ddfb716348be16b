#pragma once

#include <QDialog>

class QPushButton;
class QTreeWidget;

// Choosing the shortcuts of the main window's quick start pane. Every item the
// pane can show is listed with a check box; Apply and Save write the checked
// keys, joined by "::", to QV_OPTIONS and refill the pane.
class frmQuickStart : public QDialog {
    Q_OBJECT
public:
    explicit frmQuickStart(QWidget* parent = nullptr);

    QTreeWidget* lvQSItems;
    QPushButton* cmdApply;
    QPushButton* cmdSave;
    QPushButton* cmdClose;

    // The "::"-joined keys of the checked rows, in the list's order.
    QString CheckedKeys() const;
    bool Changed() const { return changed_; }

public Q_SLOTS:
    void Form_Load();
    void cmdApply_Click();
    void cmdSave_Click();
    void cmdClose_Click();

protected:
    void closeEvent(QCloseEvent* event) override;
    void reject() override;

private:
    void Save();
    // Asks before unsaved changes are lost; true when the window may close.
    bool MayClose();

    bool changed_ = false;
    bool loading_ = false;
    bool closing_ = false;
};
