#pragma once

#include "core/RecordsetClass.h"
#include "platform/Currency.h"

#include <QString>

// The one gateway to ShopList. A list has no header row: it is the set of rows
// sharing one Name, and the Current list is every row marked IsCurrent. The
// write side of each property fills the item under construction; the read
// side reads the open recordset's current row, so after OpenDB a read always
// gives the database's value, never what was last written to the object.
class clsShopList : public RecordsetClass {
public:
    QString Name() const;
    void Name(const QString& value) { name_ = value; }
    QString Store() const;
    void Store(const QString& value) { store_ = value; }
    QString Dates() const;
    void Dates(const QString& value) { dates_ = value; }
    QString ItemName() const;
    void ItemName(const QString& value) { itemName_ = value.left(50); }
    QString ItemQuantity() const;
    void ItemQuantity(const QString& value) { itemQuantity_ = value; }
    QString ItemManufacturer() const;
    void ItemManufacturer(const QString& value) { itemManufacturer_ = value.left(50); }
    QString ItemSize() const;
    void ItemSize(const QString& value) { itemSize_ = value; }
    // The one read that gives "" for a Null column.
    QString ItemStyle() const;
    void ItemStyle(const QString& value) { itemStyle_ = value; }
    Currency ItemCost() const;
    void ItemCost(const Currency& value) { itemCost_ = value; }
    bool ItemCoupon() const;  // column Coupon
    void ItemCoupon(bool value) { itemCoupon_ = value; }
    QString Recurring() const;
    void Recurring(const QString& value) { recurring_ = value; }
    bool IsCurrent() const;
    void IsCurrent(bool value) { isCurrent_ = value; }
    QString ItemSource() const;
    void ItemSource(const QString& value) { itemSource_ = value; }
    qint16 CouponID() const;
    void CouponID(qint16 value) { couponID_ = value; }
    qint32 ItemID() const;

    // Saves the open row with the kept Store, CouponID and ItemManufacturer,
    // each only when it holds something. No handler: failures are the caller's.
    void UpdateList();
    // Doubles the apostrophes of `name` in place before quoting it again, so a
    // name holding one never matches and the caller's text comes back doubled.
    bool Exists(QString& name);
    // No handler: failures are the caller's.
    void LoadList(const QString& column, const QString& value);
    // A list name makes that list current; a store fills each row's aisle and
    // walking order from that store's map (the Current rows when no name).
    void MakeCurrent(const QString& listName, const QString& store);
    // The rows stay, saved under their names; they are only no longer current.
    void RemoveAllCurrent();
    // Adds the kept item to the list Name, or merges its quantity into that
    // list's Current row of the same item. True when a row was added.
    bool AddItem();
    bool ItemExists(const QString& itemName);
    bool ListItemExists(const QString& itemName, const QString& listName);
    // A recipe's new title reaches the items generated from it: ItemStyle where
    // it is exactly the old title, and every occurrence inside ItemSource.
    void AdjustRecipeName(const QString& oldTitle, const QString& newTitle);
    // Deletes the list's rows and nothing else: the editor rewrites a list in place.
    void ClearPreviousList(const QString& listName);
    // Deletes the rows of the list Name; the default list setting forgets it.
    bool DeleteList();
    // The default list setting keeps naming the old list.
    bool RenameList(const QString& oldName, const QString& newName);
    // The categories of the Current rows that the rows' own stores have no
    // aisle for, joined by "//".
    QString AllCategoriesNotMapped(const QString& store);
    bool ContainsMultipleStores(const QString& listName, const QString& store);
    // Moves every Current row to `store`, asking before a store brand becomes
    // another store's brand.
    bool MarkListForStore(const QString& store, const QString& flag = QString());

private:
    // The merged quantity text, or "" when the quantities cannot be joined;
    // `quantity` comes back in decimal form when it held a fraction.
    QString ClacQuantity(const QString& itemName, QString& quantity, const QString& size);
    // Writes the kept item into the row being added. A second row of an item
    // already on the list is always current and takes no coupon.
    void WriteNewRow(bool secondRow);

    QString name_, store_, dates_, itemName_, itemQuantity_, itemManufacturer_, itemSize_, itemStyle_;
    Currency itemCost_;
    bool itemCoupon_ = false;
    QString recurring_;
    bool isCurrent_ = false;
    QString itemSource_;
    qint16 couponID_ = 0;
};
