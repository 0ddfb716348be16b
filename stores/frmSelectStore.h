#pragma once

#include <QDialog>

class QListWidget;

// Picking one of the stores on file, for a purpose the prompt names.
class frmSelectStore : public QDialog {
    Q_OBJECT
public:
    enum Purpose { Setup, LayoutPrint, ListArrangement, MapExport, LineAssignment };

    explicit frmSelectStore(const QString& prompt, QWidget* parent = nullptr);
    explicit frmSelectStore(Purpose purpose, QWidget* parent = nullptr);

    static QString Prompt(Purpose purpose);
    // The store picked through the dialog service, or "" when cancelled or
    // when there is no store to pick.
    static QString Choose(Purpose purpose, QWidget* parent);

    QListWidget* lstStores;
    // "" when nothing is picked.
    QString SelectedStore() const;
    int StoreCount() const;
};
