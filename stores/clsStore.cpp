#include "stores/clsStore.h"

#include "core/ChangeNotices.h"
#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/Progress.h"
#include "core/TableRows.h"
#include "core/Values.h"
#include "core/clsRegistry.h"
#include "core/modVerify.h"
#include "platform/Database.h"
#include "platform/ProgramFolder.h"
#include "platform/TextFile.h"
#include "platform/Ui.h"
#include "publish/clsCommunications.h"
#include "stores/StoreMapFile.h"
#include "stores/clsIsleMap.h"
#include "stores/clsItemCategory.h"

#include <QDir>
#include <QFile>
#include <QSet>

QString clsStore::Name() { return TextOf(rs.Field(QStringLiteral("Name"))); }

qint16 clsStore::IsleCount() { return CInt(rs.Field(QStringLiteral("isles"))); }

QString clsStore::StoreFaxNumber() { return TextOf(rs.Field(QStringLiteral("FaxNumber"))); }

bool clsStore::WriteNew() {
    return Trap(QStringLiteral("Store.WriteNew"), false, [&] {
        OpenForAdd(QStringLiteral("Store"));
        rs.setField(QStringLiteral("Name"), name_);
        rs.setField(QStringLiteral("isles"), isleCount_);
        rs.setField(QStringLiteral("FaxNumber"), faxNumber_);
        rs.Update();
        return true;
    });
}

void clsStore::UpdateStore() {
    Trap(QStringLiteral("Store.UpdateStore"), [&] {
        Recordset r;
        r.Open(QStringLiteral("SELECT * FROM Store WHERE [Name] =") + SqlText(name_), ConnectionMain(), adOpenKeyset,
               adLockOptimistic);
        if (r.RecordCount() != 1) return;
        bool changed = false;
        if (CInt(r.Field(QStringLiteral("isles"))) != isleCount_ || IsNull(r.Field(QStringLiteral("isles")))) {
            r.setField(QStringLiteral("isles"), isleCount_);
            changed = true;
        }
        if (TextOf(r.Field(QStringLiteral("FaxNumber"))) != faxNumber_) {
            r.setField(QStringLiteral("FaxNumber"), faxNumber_);
            changed = true;
        }
        if (changed) r.Update();
    });
}

qint16 clsStore::FindCount(const QString& name) {
    if (rs.IsBOF() && rs.IsEOF()) return 0;
    rs.MoveFirst();
    while (!rs.IsEOF()) {
        if (TextOf(rs.Field(QStringLiteral("Name"))) == name) return CInt(rs.Field(QStringLiteral("isles")));
        rs.MoveNext();
    }
    return 0;
}

void clsStore::UpdateCount(const QString& name, qint16 count) {
    Recordset r;
    r.Open(QStringLiteral("SELECT * FROM Store WHERE [Name] = ") + SqlText(name), ConnectionMain(), adOpenKeyset,
           adLockOptimistic);
    while (!r.IsEOF()) {
        if (TextOf(r.Field(QStringLiteral("Name"))) == name) {
            r.setField(QStringLiteral("isles"), count);
            r.Update();
            return;
        }
        r.MoveNext();
    }
}

bool clsStore::Exists(const QString& name) {
    return Trap(QStringLiteral("Store.Exists"), false, [&] {
        Recordset r;
        r.Open(QStringLiteral("SELECT [Name] FROM Store WHERE [Name] = ") + SqlText(name), ConnectionMain(),
               adOpenKeyset, adLockReadOnly);
        return !r.IsEOF();
    });
}

bool clsStore::IsPossibleManufacturer(const QString& name) {
    return Trap(QStringLiteral("Store.IsPossibleManufacturer"), false, [&] {
        Recordset r;
        r.Open(QStringLiteral("SELECT [Name] FROM Manufacturer WHERE [Name] LIKE '%") + QuoteSql(name) +
                   QStringLiteral("%'"),
               ConnectionMain(), adOpenKeyset, adLockReadOnly);
        return !r.IsEOF();
    });
}

void clsStore::ChangeName(const QString& oldName, const QString& newName) {
    if (!Exists(oldName)) {
        MsgBox(oldName + QStringLiteral(" does not exist, please choose a different name."), Box::OKOnly,
               QStringLiteral("Exists"));
        return;
    }
    // The alternate aisle map keeps the old name on purpose: a rename leaves it alone.
    const QString old = SqlText(oldName);
    SetEveryRow(QStringLiteral("SELECT [Name] FROM Store WHERE [Name] = ") + old, QStringLiteral("Name"), newName);
    SetEveryRow(QStringLiteral("SELECT [Store] FROM Shoplist WHERE [Store] =") + old, QStringLiteral("Store"), newName);
    SetEveryRow(QStringLiteral("SELECT [Store] FROM Coupons WHERE [Store] =") + old, QStringLiteral("Store"), newName);
    SetEveryRow(QStringLiteral("SELECT [Store] FROM Islemap WHERE [Store] =") + old, QStringLiteral("Store"), newName);
}

void clsStore::DeleteStore(const QString& name) {
    if (!Exists(name)) {
        MsgBox(name + QStringLiteral(" doesn't exist, please choose a different name."), Box::OKOnly,
               QStringLiteral("Exists"));
        return;
    }
    const QString key = SqlText(name);
    DeleteEveryRow(QStringLiteral("SELECT * FROM Store WHERE [Name] = ") + key);
    // List items and coupons stay; they only lose their store.
    SetEveryRow(QStringLiteral("SELECT [Store] FROM ShopList WHERE [Store] = ") + key, QStringLiteral("Store"),
                QString());
    SetEveryRow(QStringLiteral("SELECT [Store] FROM Coupons WHERE [Store] = ") + key, QStringLiteral("Store"),
                QString());
    DeleteEveryRow(QStringLiteral("SELECT * FROM IsleMap WHERE [Store] = ") + key);
}

QString clsStore::ExportFileFor(const QString& name) {
    return QDir(Registry().ExportFilePath())
        .filePath(ProgramFolder::SafeFileName(name, QStringLiteral("Store")) + QStringLiteral(".gil"));
}

void clsStore::ExportStoreFile(const QString& name) {
    Trap(QStringLiteral("Store.ExportStoreFile"), [&] {
        const QString path = QDir::toNativeSeparators(ExportFileFor(name));
        Recordset r;
        r.Open(QStringLiteral("SELECT * FROM IsleMap WHERE [Store] = ") + SqlText(name), ConnectionMain(), adOpenKeyset,
               adLockReadOnly);
        if (r.IsEOF()) {
            MsgBox(QStringLiteral("There are no Isles mapped for ") + name + QStringLiteral("."), Box::OKOnly,
                   QStringLiteral("Notice"));
            return;
        }
        QDir().mkpath(Registry().ExportFilePath());
        if (QFile::exists(path) && MsgBox(path + QStringLiteral(" has already been exported, Over-write file?"),
                                          Box::YesNo + Box::Question, QStringLiteral("Over-write")) == Answer::No)
            return;

        QString text;
        while (!r.IsEOF()) {
            text += StoreMapFile::Line(TextOf(r.Field(QStringLiteral("Store"))),
                                       TextOf(r.Field(QStringLiteral("ItemCategory"))),
                                       TextOf(r.Field(QStringLiteral("Isle"))));
            r.MoveNext();
        }
        TextFile::Write(path, text);
        Q_EMIT Notices().SetMessage(QStringLiteral("Exported the aisle map of ") + name + QStringLiteral(" to ") +
                                    path);

        if (MsgBox(QStringLiteral("Would you like to mail ") + name + QStringLiteral(" to someone?"),
                   Box::YesNo + Box::Question, QStringLiteral("Mail Store")) == Answer::Yes)
            clsCommunications().SendEmail(QString(), name, QString(), path);
    });
}

void clsStore::ImportStoreFile(const QString& path) {
    Trap(QStringLiteral("Store.ImportStoreFile"), [&] {
        std::vector<StoreMapFile::Record> records;
        if (!StoreMapFile::Read(path, records)) {
            MsgBox(QStringLiteral("There Appears to be a problem with this Store Map file."), Box::Critical,
                   QStringLiteral("File Problem"));
            return;
        }
        // One batch: a cancelled import leaves the household as it was.
        Progress progress(QStringLiteral("Importing the store map ..."), int(records.size()), true);
        WriteBatch batch(ConnectionMain());
        int done = 0;
        int mapped = 0;
        QSet<QString> stores;
        for (const StoreMapFile::Record& record : records) {
            if (!progress.Step(done++)) {
                batch.Cancel();
                Q_EMIT Notices().SetMessage(QStringLiteral("Store map import cancelled: nothing was changed."));
                return;
            }
            stores.insert(record.store.toCaseFolded());
            if (!Exists(record.store)) {
                clsStore store;
                store.Name(record.store);
                store.IsleCount(1);
                store.WriteNew();
            }
            clsItemCategory().AddIfNew(record.category);
            clsIsleMap map;
            if (!map.IsMapped(record.store, record.category, record.isle)) {
                map.Store(record.store);
                map.ItemCategory(record.category);
                map.Isle(record.isle);
                map.IsleOrder(0);
                map.WriteNew();
                ++mapped;
            }
        }
        Q_EMIT Notices().SetMessage(QStringLiteral("Imported %1 aisle mappings for %2 store(s) from %3")
                                        .arg(mapped)
                                        .arg(stores.size())
                                        .arg(QDir::toNativeSeparators(path)));
    });
}
