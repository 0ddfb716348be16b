#pragma once

#include "core/RecordsetClass.h"
#include "platform/Currency.h"

#include <QDateTime>
#include <QString>
#include <optional>

// The catalogue of things the household buys. A product row is also its
// inventory record: a purchase date later than 1/1/50 means it is on hand.
class clsProduct : public RecordsetClass {
public:
    // Field reads come from the current row; the three setters fill members.
    qint32 RecordID();
    QString Manufacturer();
    void Manufacturer(const QString& value) { manufacturer_ = value; }
    QString Name();
    void Name(const QString& value) { name_ = value; }
    QString Size();
    void Size(const QString& value) { size_ = value; }
    QString Category();
    Currency Cost();
    bool IsLookout();
    qint16 LastPurchaseQty();
    // Date zero (12/30/1899) for an empty column.
    QDateTime LastPurchasedDate();
    qint32 TimesPurchased();
    QString Barcode();

    // The new ID, or -1 when the row could not be written.
    qint32 WriteNew(const QString& manufacturer, const QString& name, const QString& category, const QString& size,
                    bool isLookout, bool createInventory, Currency cost, const QString& barcode);
    // A given size replaces the manufacturer in the test; the two are never
    // tested together.
    bool Exists(const QString& name, const QString& manufacturer, const QString& size);
    void AddToInventory(const QString& name);
    void Delete(const QString& name);
    Currency CostInfo(const QString& name, const QString& manufacturer, const QString& size);
    void ChangeCost(const QString& name, const QString& manufacturer, const QString& size, Currency newCost);
    // -1 when there is no such product; the ID is narrowed to 16 bits.
    qint16 GetItemID(const QString& name, const QString& manufacturer, const QString& size);
    // The catalogue as Product.prd in the export folder.
    void ExportList();
    static QString ExportFile();
    // Whether the members' product may still be on hand.
    bool HasPossibleInventory();
    void RemoveFromRecordset();
    bool MultiplePricePoints(const QString& name);
    bool UpdatePalmCost(qint32 id, Currency newCost);

    // A cost as typed: a leading "$" is allowed, empty is 0; nothing when the
    // rest is not a number.
    static std::optional<Currency> CostFromText(const QString& text);
    // The same for a cost typed in a product screen, where a text that is not
    // a number is answered with the "Cost Error" box.
    static std::optional<Currency> TypedCost(const QString& text);

private:
    QString manufacturer_;
    QString name_;
    QString size_;
};
