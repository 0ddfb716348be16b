#include "stores/frmSelectCategory.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QTreeWidget>
#include <QVBoxLayout>

frmSelectCategory::frmSelectCategory(const QString& item, const QList<QPair<QString, QString>>& productsAndCategories,
                                     QWidget* parent)
    : QDialog(parent) {
    setObjectName(QStringLiteral("frmSelectCategory"));
    setWindowTitle(QStringLiteral("Select Item Category"));
    auto* layout = new QVBoxLayout(this);
    auto* intro = new QLabel(QStringLiteral("More than one product matches \"%1\". Choose the one whose category "
                                            "this item should take.")
                                 .arg(item),
                             this);
    intro->setWordWrap(true);
    layout->addWidget(intro);

    lvProducts = new QTreeWidget(this);
    lvProducts->setObjectName(QStringLiteral("lvProducts"));
    lvProducts->setRootIsDecorated(false);
    lvProducts->setHeaderLabels({QStringLiteral("Product"), QStringLiteral("Category")});
    for (const auto& [product, category] : productsAndCategories)
        lvProducts->addTopLevelItem(new QTreeWidgetItem({product, category}));
    lvProducts->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    if (lvProducts->topLevelItemCount() > 0) lvProducts->setCurrentItem(lvProducts->topLevelItem(0));
    layout->addWidget(lvProducts);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(lvProducts, &QTreeWidget::itemDoubleClicked, this, &QDialog::accept);
    layout->addWidget(buttons);
    resize(420, 300);
}

QString frmSelectCategory::SelectedCategory() const {
    const QTreeWidgetItem* item = lvProducts->currentItem();
    return item ? item->text(1) : QString();
}
