#include "products/clsManufacturer.h"

#include "core/ChangeNotices.h"
#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/MainPanes.h"
#include "core/TableRows.h"
#include "core/Values.h"
#include "core/modBarcode.h"
#include "core/modVerify.h"
#include "platform/Ui.h"

namespace {

const QString kCrLf = QStringLiteral("\r\n");

}  // namespace

QString clsManufacturer::Name() { return TextOf(rs.Field(QStringLiteral("Name"))); }

QString clsManufacturer::UPCCode() { return TextOf(rs.Field(QStringLiteral("UPC_code"))); }

bool clsManufacturer::Exists(const QString& name) {
    return Trap(QStringLiteral("Manufacturer.Exists"), false, [&] {
        Recordset r;
        r.Open(QStringLiteral("SELECT [Name] FROM Manufacturer WHERE [Name] = ") + SqlText(name), ConnectionMain(),
               adOpenKeyset, adLockReadOnly);
        return !r.IsEOF();
    });
}

bool clsManufacturer::WriteNew() {
    return Trap(QStringLiteral("Manufacturer.WriteNew"), false, [&] {
        if (Exists(name_)) return false;
        if (upcCode_.isEmpty()) upcCode_ = QStringLiteral("0");
        OpenForAdd(QStringLiteral("Manufacturer"));
        rs.setField(QStringLiteral("Name"), name_);
        rs.setField(QStringLiteral("UPC_Number"), GetManufacturerCode(upcCode_));
        rs.Update();
        Q_EMIT Notices().ShowNode(MainPanes::Instance().AddManufacturer(name_));
        return true;
    });
}

void clsManufacturer::RenameManufacturer(const QString& oldName, const QString& newName) {
    Trap(QStringLiteral("Manufacturer.RenameManufacturer"), [&] {
        const QString old = SqlText(oldName);
        SetEveryRow(QStringLiteral("SELECT * FROM Manufacturer WHERE [Name] = ") + old, QStringLiteral("Name"),
                    newName);
        SetEveryRow(QStringLiteral("SELECT * FROM Product WHERE [Manufacturer] = ") + old,
                    QStringLiteral("Manufacturer"), newName);
        SetEveryRow(QStringLiteral("SELECT * FROM Coupons WHERE [Manufacturer] = ") + old,
                    QStringLiteral("Manufacturer"), newName);
    });
}

bool clsManufacturer::DeleteManufacturer(const QString& name) {
    return Trap(QStringLiteral("Manufacturer.DeleteManufacturer"), false, [&] {
        const QString key = SqlText(name);
        Recordset products;
        products.Open(QStringLiteral("SELECT * FROM Product WHERE [Manufacturer] = ") + key, ConnectionMain(),
                      adOpenKeyset, adLockOptimistic);
        if (!products.IsEOF()) {
            const int answer =
                MsgBox(QStringLiteral("There are Products for ") + name +
                           QStringLiteral(". Do you wish to delete these Products or set the Manufacturer to 'Any'?") +
                           kCrLf + kCrLf + QStringLiteral(" • Click 'Yes' to delete this Manufacturer.") + kCrLf +
                           QStringLiteral(" • Click 'No' to reset the Manufacturer to 'Any'.") + kCrLf +
                           QStringLiteral(" • Click 'Cancel' to Exit."),
                       Box::YesNoCancel + Box::Question, QStringLiteral("Products Found"));
            if (answer == Answer::Cancel) return false;
            while (!products.IsEOF()) {
                if (answer == Answer::Yes) {
                    // The history is looked up by its own key, not by ItemID;
                    // the clean-up matches that way on purpose.
                    DeleteEveryRow(QStringLiteral("Select * FROM SpendHistory WHERE [SpendID] = ") +
                                   QString::number(CLng(products.Field(QStringLiteral("ID")))));
                    products.Delete();
                } else {
                    products.setField(QStringLiteral("Manufacturer"), QStringLiteral("Any"));
                    products.Update();
                }
                products.MoveNext();
            }
        }
        products.Close();

        DeleteEveryRow(QStringLiteral("SELECT * FROM Coupons WHERE [Manufacturer] = ") + key);
        DeleteEveryRow(QStringLiteral("SELECT * FROM Manufacturer WHERE [Name] = ") + key);
        return true;
    });
}

bool clsManufacturer::rsManufacturer(const QString& text) {
    return Trap(QStringLiteral("Manufacturer.rsManufacturer"), false, [&] {
        Recordset r;
        r.Open(QStringLiteral("SELECT [Name] FROM Store WHERE [Name] LIKE '%") + QuoteSql(text) + QStringLiteral("%'"),
               ConnectionMain(), adOpenKeyset, adLockReadOnly);
        return !r.IsEOF();
    });
}
