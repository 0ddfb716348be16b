#pragma once

#include <QDialog>

class EditorToolbar;
class QPushButton;
class QTextEdit;

// Edits a long comment; GetComments gives the text back to the caller.
class frmComment : public QDialog {
    Q_OBJECT
public:
    explicit frmComment(QWidget* parent = nullptr);

    // Shows the window modally over `current`; the edited text on OK, the
    // text as it came in on Cancel.
    QString GetComments(const QString& current = QString());

    QTextEdit* txtComments;
    EditorToolbar* tbEditor;
    QPushButton* cmdOK;
    QPushButton* cmdClear;
    QPushButton* cmdCancel;

public Q_SLOTS:
    void tbEditor_ButtonClick(const QString& key);
    void cmdOK_Click() { accept(); }
    void cmdClear_Click();
    void cmdCancel_Click() { reject(); }
};
