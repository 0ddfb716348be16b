#pragma once

#include <QDialog>

class QListWidget;

// Picking one of the stores on file.
class frmSelectStore : public QDialog {
    Q_OBJECT
public:
    explicit frmSelectStore(const QString& prompt, QWidget* parent = nullptr);

    QListWidget* lstStores;
    // "" when nothing is picked.
    QString SelectedStore() const;
    int StoreCount() const;
};
