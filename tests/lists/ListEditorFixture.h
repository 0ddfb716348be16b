#pragma once

#include "core/clsRegistry.h"
#include "lists/frmShoppingList.h"
#include "lists/frmShoppingListName.h"
#include "support/Rows.h"
#include "support/TestEnv.h"
#include "support/Views.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QStatusBar>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>

// The list editor's tests share a household with a few things on file and
// ways to type into the editor and read its lines back.
class ListEditorTest : public LarderTest {
protected:
    void SetUp() override {
        LarderTest::SetUp();
        Registry().AllowExplode(false);
    }

    static qint32 Product(const QString& name, const QString& maker, const QString& size, QVariantMap more = {}) {
        QVariantMap row{{"Name", name}, {"Manufacturer", maker}, {"Size", size},       {"Category", "Dairy"},
                        {"Cost", 2.5},  {"lookout", false},      {"Barcode", "0"},     {"TimesPurchased", 0},
                        {"lastpurchasedquantity", 0}};
        row.insert(more);
        return rows::Add("Product", row);
    }

    static qint32 Coupon(const QString& maker, const QString& product, const QString& size) {
        return rows::Add("Coupons", {{"Manufacturer", maker},
                                     {"Product", product},
                                     {"Size", size},
                                     {"Value", "0.50"},
                                     {"Quantity", "2"},
                                     {"Category", "Dairy"},
                                     {"Expiration", "Never"},
                                     {"Store", " "},
                                     {"OwnerList", ""}});
    }

    static void ListRow(const QString& list, const QString& item, bool current, const QString& recurring = " ",
                        QVariantMap more = {}) {
        QVariantMap row{{"Name", list},          {"Store", "Any"},         {"Dates", "None"},
                        {"ItemName", item},      {"ItemQuantity", "1"},    {"ItemManufacturer", "Any"},
                        {"ItemSize", "each"},    {"ItemStyle", "Produce"}, {"Recurring", recurring},
                        {"IsCurrent", current},  {"ItemCost", 0},          {"Coupon", false},
                        {"CouponID", 0}};
        row.insert(more);
        rows::Add("ShopList", row);
    }

    static QStringList Saved(const QString& list, const QStringList& fields = {"ItemName", "ItemQuantity"}) {
        return rows::Joined("SELECT * FROM ShopList WHERE [Name] = " + rows::Literal(list) + " ORDER BY [ID]", fields);
    }

    // Fills the entry boxes as a person would leave them.
    static void Type(frmShoppingList& editor, const QString& item, const QString& quantity, const QString& maker,
                     const QString& size, const QString& category = QString(), const QString& cost = QString()) {
        editor.cboItem->setEditText(item);
        editor.txtQuantity->setText(quantity);
        editor.cboManufacturer->setEditText(maker);
        editor.cboSize->setEditText(size);
        editor.cboItemCategory->setEditText(category);
        editor.txtCost->setText(cost);
    }

    static void Add(frmShoppingList& editor, const QString& item, const QString& quantity, const QString& maker,
                    const QString& size, const QString& category = QString(), const QString& cost = QString()) {
        Type(editor, item, quantity, maker, size, category, cost);
        editor.cmdAddItem_Click();
    }

    // Item, quantity, manufacturer, size, category, coupon, then the hidden
    // cost and store, joined by "|".
    static QStringList Lines(const frmShoppingList& editor) {
        QStringList out;
        for (const QString& line : views::Lines(editor.lvShoppingList)) {
            QStringList cells = line.split('|');
            cells.removeAt(frmShoppingList::colSpare);
            out << cells.join('|');
        }
        return out;
    }

    // The name screen, answered with `name` typed in and OK clicked.
    void AnswerName(const QString& name, bool dated = false) {
        ui.answerModal([name, dated](QDialog* d) {
            auto* form = qobject_cast<frmShoppingListName*>(d);
            form->txtName->setText(name);
            form->chkDate->setChecked(dated);
            form->cmdOK->click();
            return d->result();
        });
    }
};
