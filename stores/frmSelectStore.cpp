#include "stores/frmSelectStore.h"

#include "core/Globals.h"
#include "core/Values.h"
#include "platform/Recordset.h"
#include "platform/Ui.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QListWidget>
#include <QVBoxLayout>

frmSelectStore::frmSelectStore(const QString& prompt, QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmSelectStore"));
    setWindowTitle(QStringLiteral("Select Store"));
    auto* layout = new QVBoxLayout(this);
    auto* label = new QLabel(prompt, this);
    label->setWordWrap(true);
    layout->addWidget(label);
    lstStores = new QListWidget(this);
    lstStores->setObjectName(QStringLiteral("lstStores"));
    Recordset r;
    r.Open(QStringLiteral("SELECT [Name] FROM Store ORDER BY [Name]"), ConnectionMain(), adOpenKeyset, adLockReadOnly);
    for (; !r.IsEOF(); r.MoveNext()) lstStores->addItem(TextOf(r.Field(QStringLiteral("Name"))));
    if (lstStores->count() > 0) lstStores->setCurrentRow(0);
    layout->addWidget(lstStores);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(lstStores, &QListWidget::itemDoubleClicked, this, &QDialog::accept);
    layout->addWidget(buttons);
    resize(300, 320);
}

QString frmSelectStore::SelectedStore() const {
    const QListWidgetItem* item = lstStores->currentItem();
    return item ? item->text() : QString();
}

int frmSelectStore::StoreCount() const { return lstStores->count(); }

frmSelectStore::frmSelectStore(Purpose purpose, QWidget* parent) : frmSelectStore(Prompt(purpose), parent) {}

QString frmSelectStore::Prompt(Purpose purpose) {
    switch (purpose) {
    case Setup:
        return QStringLiteral("Select the store that you wish to use for the setup.");
    case LayoutPrint:
        return QStringLiteral("Select the Store that you wish to print a layout for.");
    case ListArrangement:
        return QStringLiteral("Select the Store that you wish to have the current Shopping List arranged for.");
    case MapExport:
        return QStringLiteral("Select the Store whose Map you wish to export to a file.");
    case LineAssignment:
        return QStringLiteral("Select the Store you would like to assign to the selected List Item");
    }
    return QString();
}

QString frmSelectStore::Choose(Purpose purpose, QWidget* parent) {
    frmSelectStore pick(purpose, parent);
    if (TheUi().ShowModal(&pick) != QDialog::Accepted) return QString();
    return pick.SelectedStore();
}
