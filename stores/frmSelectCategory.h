#pragma once

#include <QDialog>
#include <QList>
#include <QPair>
#include <QString>

class QTreeWidget;

// The pick offered when a typed item matches several products: each product
// with its category, the first one chosen.
class frmSelectCategory : public QDialog {
    Q_OBJECT
public:
    frmSelectCategory(const QString& item, const QList<QPair<QString, QString>>& productsAndCategories,
                      QWidget* parent = nullptr);

    QString SelectedCategory() const;
    QTreeWidget* lvProducts;
};
