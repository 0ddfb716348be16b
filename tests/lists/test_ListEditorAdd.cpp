// Typing into the list editor: the checks and questions on the way from the
// entry boxes to a line, the quantity box, the scanner, and completion.
#include "ListEditorFixture.h"

#include "core/Globals.h"
#include "coupons/frmAvailableCoupons.h"
#include "coupons/frmNewCoupon.h"
#include "products/frmProductCostSelect.h"
#include "text/modAutoComplete.h"

#include <QTest>

namespace {

TEST_F(ListEditorTest, EachMissingBoxStopsTheAddWithItsOwnMessage) {
    frmShoppingList editor;
    struct Case {
        QString item, maker, size, quantity, message;
    };
    const QList<Case> cases = {
        {"  ", "Acme", "gal", "1", "You must enter an Item before Adding this item."},
        {"Milk", "", "gal", "1", "You must enter a Manufacturer before Adding this item."},
        {"Milk", "Acme", "", "1", "You must enter a Size before Adding this item."},
        {"Milk", "Acme", "gal", " ", "You must enter a Quantity before Adding this item."},
    };
    for (const Case& c : cases) {
        ui.answer(Answer::OK);
        Add(editor, c.item, c.quantity, c.maker, c.size);
        EXPECT_EQ(ui.lastBox().prompt, c.message);
    }
    EXPECT_EQ(editor.lvShoppingList->topLevelItemCount(), 0);
    EXPECT_FALSE(editor.Changed());
}

TEST_F(ListEditorTest, TheQuantityBoxAsksAboveTenStepsWithTheArrowsAndAddsOnEnter) {
    frmShoppingList editor;
    editor.txtQuantity->setText("10");
    EXPECT_TRUE(editor.txtQuantity_Validate());
    EXPECT_EQ(ui.count(), 0);

    editor.txtQuantity->setText("10.5");
    ui.answer(Answer::OK);
    EXPECT_TRUE(editor.txtQuantity_Validate());
    EXPECT_EQ(LastBox(), "Large Quantity: This is a large quantity for a single item, Is this correct?");
    EXPECT_EQ(ui.lastBox().buttons, Box::OKCancel + Box::Question);
    EXPECT_EQ(editor.txtQuantity->text(), "10.5");

    for (const QString& bad : {"99999999999999999999", "1e300"}) {
        editor.txtQuantity->setText(bad);
        ui.answer(Answer::Cancel);
        EXPECT_FALSE(editor.txtQuantity_Validate());
        EXPECT_EQ(editor.txtQuantity->text(), "");
    }
    for (const QString& bad : {"two", "1/2", "3'", "--1"}) {
        editor.txtQuantity->setText(bad);
        ui.answer(Answer::OK);
        EXPECT_FALSE(editor.txtQuantity_Validate()) << bad.toStdString();
        EXPECT_EQ(ui.lastBox().prompt, "This must be a numeric value.");
        EXPECT_EQ(editor.txtQuantity->text(), bad);
    }

    editor.txtQuantity->setText(" 2 ");
    QTest::keyClick(editor.txtQuantity, Qt::Key_Up);
    EXPECT_EQ(editor.txtQuantity->text(), "3");
    QTest::keyClick(editor.txtQuantity, Qt::Key_Down);
    QTest::keyClick(editor.txtQuantity, Qt::Key_Down);
    EXPECT_EQ(editor.txtQuantity->text(), "1");
    editor.txtQuantity->setText("");
    QTest::keyClick(editor.txtQuantity, Qt::Key_Up);
    EXPECT_EQ(editor.txtQuantity->text(), "1");

    // Enter in the quantity box adds; a large quantity asked about on the way
    // is asked once.
    Type(editor, "Milk", "12", "Acme", "gal");
    ui.answer(Answer::OK);
    QTest::keyClick(editor.txtQuantity, Qt::Key_Return);
    EXPECT_EQ(ui.count(), 8);
    EXPECT_EQ(Lines(editor), QStringList({"Milk|12|Acme|gal|None|No||"}));
    EXPECT_EQ(editor.cboItem->currentText(), "");
    EXPECT_EQ(editor.txtQuantity->text(), "");
}

TEST_F(ListEditorTest, LikeLinesJoinWithANumericSumAndOthersStandApart) {
    frmShoppingList editor;
    Add(editor, "Milk", "2", "Acme", "gal", "Dairy", "$3.10");
    Add(editor, "Milk", "3", "Acme", "gal", "", "3.1");  // the same cost, written another way
    Add(editor, "Milk", "1", "Best", "gal");
    Add(editor, "Milk", "1", "Acme", "qt");
    EXPECT_EQ(Lines(editor), QStringList({"Milk|5|Acme|gal|Dairy|No|3.10|", "Milk|1|Best|gal|None|No||",
                                          "Milk|1|Acme|qt|None|No||"}));
    EXPECT_EQ(ui.count(), 0);

    ui.answer(Answer::No);
    Add(editor, "Milk", "1", "Acme", "gal", "", "2.99");
    EXPECT_EQ(LastBox(), "Choose Cost: Acme's Milk already exists on this List but at a different Cost. The existing "
                         "cost is 3.10 and the new cost is 2.99. Would you like to use the new cost?");
    ui.answer(Answer::Yes);
    Add(editor, "Milk", "0.5", "Acme", "gal", "", "$2.89");
    EXPECT_EQ(Lines(editor).first(), "Milk|6.5|Acme|gal|Dairy|No|2.89|");
    // No cost given keeps the line's without asking.
    Add(editor, "Milk", "1", "Acme", "gal");
    EXPECT_EQ(Lines(editor).first(), "Milk|7.5|Acme|gal|Dairy|No|2.89|");
    EXPECT_EQ(ui.count(), 2);

    // One line of the joined quantity, one row saved. The store joins rows by
    // name alone: the second maker's row is written current, and the quart
    // then joins it in that row's size (a quarter gallon before its 1).
    editor.CurrentListName("Week");
    ASSERT_TRUE(editor.SaveList());
    EXPECT_EQ(Saved("Week", {"ItemName", "ItemQuantity", "ItemManufacturer", "ItemSize", "IsCurrent"}),
              QStringList({"Milk|7.5|Acme|gal|False", "Milk|0.251, |Best|gal|True"}));
}

TEST_F(ListEditorTest, TheChainAsksInventoryThenCheaperStoreThenCoupon) {
    const qint32 id = Product("Milk", "Acme", "gal", {{"LastPurchasedDate", QDate(2026, 11, 20)}});
    for (const char* store : {"Aldi", "Kroger"})
        rows::Add("SpendHistory", {{"ItemID", id}, {"ItemStore", store}, {"ItemListCost", 3.0},
                                   {"ItemListDate", QDate(2026, 11, 1)}, {"ItemListName", ""}});
    const qint32 coupon = Coupon("Acme", "Milk", "gal");
    rows::Add("Store", {{"Name", "Kroger"}});
    frmShoppingList editor;
    editor.cboStore->setEditText("Kroger");
    editor.cmdStoreAction_Click();
    EXPECT_EQ(editor.fraStore->title(), "Store-Kroger");

    // No to the inventory question stops before anything else is asked.
    ui.answer(Answer::No);
    Add(editor, "Milk", "1", "Acme", "gal");
    EXPECT_EQ(ui.prompts(), QStringList({"gal Acme's Milk may still have Inventory. Do you want to continue?"}));
    EXPECT_EQ(ui.lastBox().title, "Continue?");
    EXPECT_EQ(editor.lvShoppingList->topLevelItemCount(), 0);

    ui.clear();
    ui.answer(Answer::Yes);
    ui.answerModal([](QDialog* d) {
        auto* select = qobject_cast<frmProductCostSelect*>(d);
        select->lvItemList->topLevelItem(0)->setCheckState(0, Qt::Checked);
        select->cmdSelect_Click();
        return d->result();
    });
    ui.answer(Answer::Yes);  // give up the list's store
    ui.answer(Answer::Yes);  // take the coupon
    Add(editor, "Milk", "1", "Acme", "gal");
    QStringList order;
    for (const auto& box : ui.boxes()) order << box.title;
    EXPECT_EQ(order, QStringList({"Continue?", "Select Store by Cost", "Cancel List Store", "Coupon Found"}));
    EXPECT_EQ(ui.prompts()[1], "You have choosen a Store for Milk for cost reasons which is different than the "
                               "choosen Store for the entire List. Do you wish to disable the Store for this List?");
    EXPECT_EQ(ui.prompts()[2], "A exact Coupon match was found for this Item. Do you want to use this Coupon?");
    EXPECT_EQ(Lines(editor), QStringList({"Milk|1|Acme|gal|None|Yes||Aldi"}));
    EXPECT_EQ(editor.lvShoppingList->topLevelItem(0)->data(0, frmShoppingList::TagRole).toString(),
              QString::number(coupon));
    EXPECT_EQ(editor.ListStore(), "");
    EXPECT_EQ(editor.fraStore->title(), "Store");
    EXPECT_FALSE(editor.cmdStoreAction->isEnabled());
    EXPECT_EQ(editor.PendingCoupon(), "No");

    // Keeping the list's store drops the line's; turning the alternatives off
    // asks nothing about stores.
    editor.cboStore->setEditText("Kroger");
    editor.cmdStoreAction_Click();
    ui.clear();
    ui.answerModal([](QDialog* d) {
        auto* select = qobject_cast<frmProductCostSelect*>(d);
        select->lvItemList->topLevelItem(0)->setCheckState(0, Qt::Checked);
        select->chkSupressCostSelection->setChecked(true);
        select->cmdSelect_Click();
        return d->result();
    });
    ui.answer(Answer::No);  // keep the list's store
    ui.answer(Answer::No);  // the coupon for the gallon is not for the pint
    Add(editor, "Milk", "1", "Acme", "pint");  // another size: its own line, no inventory
    EXPECT_EQ(Lines(editor).last(), "Milk|1|Acme|pint|None|No||");
    EXPECT_EQ(editor.ListStore(), "Kroger");
    EXPECT_FALSE(Registry().ShowCostAlternative());
}

TEST_F(ListEditorTest, ACouponThatIsNotExactBringsItsOwnItemAndAProductOnlyMatchIsReported) {
    const qint32 coupon = Coupon("Acme", "Yogurt", "6 oz");
    frmShoppingList editor;
    ui.answer(Answer::Yes);
    Add(editor, "Yogurt", "1", "Best", "6 oz");
    EXPECT_EQ(ui.lastBox().title, "Coupon Alert");
    EXPECT_EQ(Lines(editor), QStringList({"Yogurt|2|Acme|6 oz|None|Yes||"}));
    EXPECT_EQ(editor.lvShoppingList->topLevelItem(0)->data(0, frmShoppingList::TagRole).toString(),
              QString::number(coupon));

    ui.answer(Answer::No);
    Add(editor, "Yogurt", "1", "Best", "6 oz");
    EXPECT_EQ(FoundCouponID, 0);
    EXPECT_EQ(Lines(editor).last(), "Yogurt|1|Best|6 oz|None|No||");

    // A coupon for the product alone cannot be read back: reported, and the
    // item still goes on the list.
    ui.answer(Answer::OK);
    Add(editor, "Yogurt", "1", "Cheap", "tub");
    EXPECT_EQ(LastBox(), "Error: Error: Item cannot be found in the collection corresponding to the requested name or "
                         "ordinal. (Occurred in frmShoppingList.cmdAddItem_Click)");
    EXPECT_EQ(Lines(editor).last(), "Yogurt|1|Cheap|tub|None|No||");
}

TEST_F(ListEditorTest, ACostIsRememberedAndNewSizesAndCategoriesBecomeKnown) {
    Product("Bread", "Bimbo", "loaf", {{"Cost", 1.0}});
    frmShoppingList editor;
    Add(editor, "Bread", "1", "Bimbo", "loaf", "Bakery", "$1.25");
    Add(editor, "Kid's Cereal", "1", "O'Neil", "big box", "Breakfast Stuff", "4");
    ui.answer(Answer::OK);
    Add(editor, "Tea", "1", "Any", "box", "", "abc");  // refused: stays in the boxes
    EXPECT_EQ(ui.lastBox().prompt, "This must be a numeric value.");
    EXPECT_EQ(editor.cboItem->currentText(), "Tea");
    // Too big to be an amount is refused the same way; a negative quantity is
    // a number and goes through (saving makes it 1).
    ui.answer(Answer::OK);
    Add(editor, "Tea", "-2", "Any", "box", "", "999999999999999999999");
    EXPECT_EQ(ui.lastBox().prompt, "This must be a numeric value.");
    EXPECT_EQ(editor.lvShoppingList->topLevelItemCount(), 2);
    Add(editor, "Tea", "-2", "Any", "box");
    EXPECT_EQ(Lines(editor).last(), "Tea|-2|Any|box|None|No||");
    EXPECT_EQ(rows::Joined("SELECT * FROM Product ORDER BY [ID]", {"Name", "Manufacturer", "Size", "Category", "Cost"}),
              QStringList({"Bread|Bimbo|loaf|Dairy|1.25", "Kid's Cereal|O'Neil|big box|Breakfast Stuff|4"}));
    EXPECT_EQ(rows::Count("SELECT * FROM ItemSize WHERE [Name] = 'big box'"), 1);
    EXPECT_EQ(rows::Count("SELECT * FROM ItemCategory WHERE [Name] = 'Breakfast Stuff'"), 1);
    EXPECT_GE(editor.cboSize->findText("big box"), 0);
    EXPECT_GE(editor.cboItemCategory->findText("Breakfast Stuff"), 0);
    EXPECT_GE(editor.cboItem->findText("Kid's Cereal"), 0);
    EXPECT_EQ(editor.sbStatus->findChild<QLabel*>("lblCost")->text(), "Cost: $5.25");
}

TEST_F(ListEditorTest, TwelveDigitsAreAScanAndOtherLengthsAreNot) {
    Product("Soup", "Campbell", "", {{"Barcode", "051000012616"}, {"Cost", 0.99}, {"Category", "Canned"}});
    frmShoppingList editor;
    editor.cboItem->setEditText("051000012616");
    editor.cboItem_Change(Qt::Key_6);
    EXPECT_EQ(Lines(editor), QStringList({"Soup|1|Campbell|Any|Canned|No|0.99|"}));
    EXPECT_EQ(ui.count(), 0);

    for (const QString& notScanned : {"05100001261", "0510000126160"}) {
        editor.cboItem->setEditText(notScanned);
        editor.cboItem_Change(Qt::Key_0);
        EXPECT_EQ(editor.cboItem->currentText(), notScanned);
    }
    EXPECT_EQ(ui.count(), 0);

    ui.answer(Answer::OK);
    editor.cboItem->setEditText("999999999999");
    editor.cboItem_Change(Qt::Key_9);
    EXPECT_EQ(LastBox(), "Unknown Barcode: That Barcode was not recogized. Please either enter or scan it again.");
    EXPECT_EQ(editor.cboItem->currentText(), "");
    EXPECT_EQ(editor.lvShoppingList->topLevelItemCount(), 1);
}

TEST_F(ListEditorTest, TypingANewItemEmptiesTheBoxesAndLeavingItFillsThemFromTheCatalogue) {
    Product("Butter", "Land O'Lakes", "lb", {{"lastpurchasedquantity", 0}, {"Cost", 3.49}});
    Product("Eggs", "Farm", "dozen", {{"lastpurchasedquantity", 2}});
    frmShoppingList editor;
    Type(editor, "Flour", "1", "Gold", "5 lb", "Baking", "3");
    editor.cboItem->setEditText("B");
    editor.cboItem_Change(Qt::Key_B);
    EXPECT_EQ(editor.cboItem->currentText(), "Butter");  // completed from the catalogue
    EXPECT_EQ(editor.cboItem->lineEdit()->selectedText(), "utter");
    EXPECT_EQ(QStringList({editor.txtQuantity->text(), editor.cboManufacturer->currentText(),
                           editor.cboSize->currentText(), editor.cboItemCategory->currentText(),
                           editor.txtCost->text()}),
              QStringList({"", "", "", "", ""}));

    editor.cboItem_Validate();
    EXPECT_EQ(QStringList({editor.txtQuantity->text(), editor.cboManufacturer->currentText(),
                           editor.cboSize->currentText(), editor.cboItemCategory->currentText(),
                           editor.txtCost->text()}),
              QStringList({"1", "Land O'Lakes", "lb", "Dairy", "$3.49"}));

    editor.cboItem->setEditText("Eggs");
    editor.cboManufacturer->setEditText("Other");
    editor.txtQuantity->clear();
    editor.cboItem_Validate();
    EXPECT_EQ(editor.txtQuantity->text(), "2");
    EXPECT_EQ(editor.cboManufacturer->currentText(), "Other");  // what the person chose stays

    Registry().FormAutoComplete(false);
    Type(editor, "Butter", "", "", "");
    editor.cboItem_Validate();
    EXPECT_EQ(editor.cboManufacturer->currentText(), "");
}

TEST_F(ListEditorTest, ComboCompletionTakesTheFirstEntryStartingWithTheText) {
    QComboBox box;
    box.setEditable(true);
    box.addItems({"Milk", "Malt", "Mayo", "salt"});
    auto typed = [&](const QString& text, int key) {
        box.setEditText(text);
        const bool changed = modAutoComplete::ComboComplete(&box, key);
        return QStringList({changed ? "changed" : "kept", box.currentText(), box.lineEdit()->selectedText()});
    };
    EXPECT_EQ(typed("ma", Qt::Key_A), QStringList({"changed", "Malt", "lt"}));
    EXPECT_EQ(typed("al", Qt::Key_L), QStringList({"kept", "al", ""}));
    EXPECT_EQ(typed("Mayo", Qt::Key_O), QStringList({"kept", "Mayo", ""}));
    EXPECT_EQ(typed("Mal", Qt::Key_Backspace), QStringList({"changed", "Ma", ""}));
    EXPECT_EQ(typed("Mal", Qt::Key_Delete), QStringList({"kept", "Mal", ""}));
    EXPECT_EQ(typed("", Qt::Key_M), QStringList({"kept", "", ""}));

    // Through the watcher: a Backspace that takes away a completion steps back a
    // letter; with the setting off nothing completes.
    bool on = true;
    ComboCompleter completer(&box, [&] { return on; });
    box.setEditText("");
    QTest::keyClicks(box.lineEdit(), "Ma");
    EXPECT_EQ(box.currentText(), "Malt");
    QTest::keyClick(box.lineEdit(), Qt::Key_Backspace);
    EXPECT_EQ(box.currentText(), "M");
    on = false;
    box.setEditText("");
    QTest::keyClicks(box.lineEdit(), "sa");
    EXPECT_EQ(box.currentText(), "sa");
}

TEST_F(ListEditorTest, ACouponEnteredHereMarksTheNextLineAndPickedCouponsBecomeLines) {
    frmShoppingList editor;
    ui.strict(false);  // the coupon pane's own notices
    ui.answerModal([](QDialog* d) {
        auto* entry = qobject_cast<frmNewCoupon*>(d);
        entry->cboManufacturer->setEditText("Dairyland");
        entry->cboProduct->setEditText("Cream");
        entry->cboSize->setEditText("pint");
        entry->cboCouponCategory->setEditText("Dairy");
        entry->cmdOK_Click();
        return 0;
    });
    editor.cmdAddCoupon_Click();
    EXPECT_EQ(rows::Count("SELECT * FROM Coupons WHERE [Product] = 'Cream'"), 1);
    Add(editor, "Bread", "1", "Baker's", "loaf");
    EXPECT_EQ(Lines(editor).value(0).split('|').value(5), "Yes");

    // The coupon search of a line: the ticked coupon is added as its own line.
    Add(editor, "Oats", "1", "Acme", "tin");
    const qint32 oats = Coupon("Acme", "Oats", "box");
    Coupon("Acme", "Oats", "bag");
    editor.lvShoppingList->setCurrentItem(editor.lvShoppingList->topLevelItem(1));
    ui.answerModal([oats](QDialog* d) {
        auto* pick = qobject_cast<frmAvailableCoupons*>(d);
        for (int i = 0; i < pick->lvCoupons->topLevelItemCount(); ++i) {
            QTreeWidgetItem* line = pick->lvCoupons->topLevelItem(i);
            line->setCheckState(0, frmAvailableCoupons::CouponID(line) == oats ? Qt::Checked : Qt::Unchecked);
        }
        pick->cmdAddToList->click();
        return d->result();
    });
    editor.mnuFindCoupon_Click();
    const QStringList lines = Lines(editor);
    ASSERT_EQ(lines.size(), 3) << lines.join('\n').toStdString();
    EXPECT_TRUE(lines[2].startsWith("Oats|2|Acme|box|")) << lines[2].toStdString();
    EXPECT_EQ(editor.lvShoppingList->topLevelItem(2)->data(0, frmShoppingList::TagRole).toInt(), oats);
}

}  // namespace
