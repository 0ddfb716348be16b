#include "stores/clsItemCategory.h"

#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/TableRows.h"
#include "core/Values.h"
#include "core/clsRegistry.h"
#include "core/modVerify.h"
#include "platform/Ui.h"
#include "stores/frmSelectCategory.h"

#include <memory>

QString clsItemCategory::Name() { return TextOf(rs.Field(QStringLiteral("Name"))); }

qint32 clsItemCategory::ItemID() { return CLng(rs.Field(QStringLiteral("ID"))); }

bool clsItemCategory::Exists(const QString& name) {
    return Trap(QStringLiteral("ItemCategory.Exists"), false, [&] {
        Recordset r;
        r.Open(QStringLiteral("SELECT [Name] FROM ItemCategory WHERE [Name] = ") + SqlText(name), ConnectionMain(),
               adOpenKeyset, adLockReadOnly);
        return !r.IsEOF();
    });
}

qint32 clsItemCategory::WriteNew(const QString& name) {
    OpenForAdd(QStringLiteral("ItemCategory"));
    rs.setField(QStringLiteral("Name"), name);
    rs.Update();
    return CLng(rs.Field(QStringLiteral("ID")));
}

void clsItemCategory::AddIfNew(const QString& name) {
    if (!Exists(name)) WriteNew(name);
}

QString clsItemCategory::SuggestItemCategory(QString item) {
    return Trap(QStringLiteral("ItemCategory.SuggestItemCategory"), QString(), [&] {
        Recordset r;
        r.Open(QStringLiteral("SELECT [Name],[Category] FROM Product WHERE [Name] = ") + SqlText(item),
               ConnectionMain(), adOpenKeyset, adLockReadOnly);
        if (r.RecordCount() == 1) return TextOf(r.Field(QStringLiteral("Category")));
        r.Close();

        r.Open(QStringLiteral("SELECT [Name],[Category] FROM Product WHERE [Name] LIKE '%") + QuoteSql(item) +
                   QStringLiteral("%'"),
               ConnectionMain(), adOpenKeyset, adLockReadOnly);
        const qint32 count = r.RecordCount();
        if (count == 1) return TextOf(r.Field(QStringLiteral("Category")));
        if (count == 0 || !Registry().PromptOnMultiCategory()) return QString();

        QList<QPair<QString, QString>> choices;
        while (!r.IsEOF()) {
            choices.append({TextOf(r.Field(QStringLiteral("Name"))), TextOf(r.Field(QStringLiteral("Category")))});
            r.MoveNext();
        }
        auto form = std::make_unique<frmSelectCategory>(item, choices);
        if (TheUi().ShowModal(form.get()) != QDialog::Accepted) return QString();
        return form->SelectedCategory();
    });
}

bool clsItemCategory::RemoveCategory(const QString& name) {
    return Trap(QStringLiteral("ItemCategory.RemoveCategory"), false, [&] {
        SetEveryRow(QStringLiteral("SELECT * FROM Product WHERE [Category] = ") + SqlText(name),
                    QStringLiteral("Category"), QStringLiteral("None"));
        DeleteEveryRow(QStringLiteral("SELECT * FROM ItemCategory WHERE [Name] = ") + SqlText(name));
        return true;
    });
}

bool clsItemCategory::RenameCategory(const QString& oldName, const QString& newName) {
    return Trap(QStringLiteral("ItemCategory.RenameCategory"), false, [&] {
        SetEveryRow(QStringLiteral("SELECT * FROM Product WHERE [Category] = ") + SqlText(oldName),
                    QStringLiteral("Category"), newName);
        SetEveryRow(QStringLiteral("SELECT * FROM ItemCategory WHERE [Name] = ") + SqlText(oldName),
                    QStringLiteral("Name"), newName);
        return true;
    });
}

qint32 clsItemCategory::ItemCount(const QString& name) {
    return Trap(QStringLiteral("ItemCategory.ItemCount"), qint32(0), [&] {
        Recordset r;
        r.Open(QStringLiteral("SELECT * FROM Product WHERE [Category] = ") + SqlText(name.isEmpty() ? name_ : name),
               ConnectionMain(), adOpenKeyset, adLockReadOnly);
        return r.RecordCount();
    });
}
