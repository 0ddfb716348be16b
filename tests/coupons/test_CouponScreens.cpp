// The coupon entry, the full coupon list and its filter, driven as a person would.
#include "core/ListView.h"
#include "core/MainPanes.h"
#include "core/clsRegistry.h"
#include "coupons/frmAllCoupons.h"
#include "coupons/frmCouponFilter.h"
#include "coupons/frmNewCoupon.h"
#include "messages/EditorToolbar.h"

#include "support/Rows.h"
#include "support/TestEnv.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QAbstractItemModel>
#include <QTest>
#include <QTextEdit>

namespace {

class CouponScreensTest : public LarderTest {
protected:
    static qint32 Coupon(const QString& maker, const QString& product, const QString& value,
                         const QString& expiration = "2026-12-31", const QString& store = " ",
                         const QString& dbl = "0") {
        return rows::Add("Coupons", {{"Manufacturer", maker},
                                     {"Product", product},
                                     {"Size", "16 oz"},
                                     {"Value", value},
                                     {"DiscountDouble", dbl},
                                     {"Expiration", expiration},
                                     {"Quantity", "1"},
                                     {"Category", "Dairy"},
                                     {"Store", store}});
    }
    // Each line as "manufacturer|product|size|quantity|value|double|expiration|category|store".
    static QString Cell(const frmAllCoupons& f, int row, int column, int role = Qt::DisplayRole) {
        return f.Model()->index(row, column).data(role).toString();
    }
    static QStringList Lines(const frmAllCoupons& f) {
        QStringList out;
        for (int r = 0; r < f.Model()->rowCount(); ++r) {
            QStringList cells;
            for (int c = 0; c < frmAllCoupons::ColumnCount; ++c) cells << Cell(f, r, c);
            out << cells.join("|");
        }
        return out;
    }
    static QStringList Products(const frmAllCoupons& f) {
        QStringList out;
        for (int r = 0; r < f.Model()->rowCount(); ++r) out << Cell(f, r, frmAllCoupons::colProduct);
        return out;
    }
    static QString Status(const frmAllCoupons& f) { return f.pnlCount->text() + " / " + f.pnlTotal->text(); }
    static void Fill(frmNewCoupon& f, const QString& maker, const QString& product, const QString& size,
                     const QString& category) {
        f.cboManufacturer->setEditText(maker);
        f.cboProduct->setEditText(product);
        f.cboSize->setEditText(size);
        f.cboCouponCategory->setEditText(category);
    }
    static QStringList Table() {
        return rows::Joined("SELECT * FROM Coupons ORDER BY [ID]", {"ID", "Manufacturer", "Product", "Size", "Value",
                                                                    "DiscountDouble", "Expiration", "Quantity",
                                                                    "Category", "Store", "OwnerList"});
    }
};

TEST_F(CouponScreensTest, AValueThatIsNoAmountEndsTheLoadWithTheLinesAndTotalBeforeIt) {
    Coupon("Acme", "Milk", "0.25", "2026-12-31", " ", "1");
    Coupon("Acme", "Cream", "1", "Never");
    Coupon("Bell", "Butter", "Free");
    Coupon("Bell", "Cheese", "0.50");
    frmAllCoupons list;
    ui.answer(Answer::OK);
    list.LoadCoupons();
    EXPECT_EQ(ui.prompts(), QStringList({"Error: Type mismatch (Occurred in frmAllCoupon.LoadCoupons.)"}));
    EXPECT_EQ(ui.lastBox().title, "Error");
    EXPECT_EQ(Lines(list), QStringList({"Acme|Milk|16 oz|  1|$0.25|Yes|12/31/2026|Dairy| ",
                                        "Acme|Cream|16 oz|  1|$1.00|No|Never|Dairy| "}));
    EXPECT_EQ(Status(list), "Coupon Count: 2 / Total Value: $1.25");
    EXPECT_EQ(Cell(list, 1, 0, frmAllCoupons::IDRole), "2");

    // Without the offer the whole list loads, and a header click sorts by
    // amount, not by text, turning the order round on each click.
    rows::Set("SELECT * FROM Coupons WHERE [Product] = 'Butter'", "Value", "10");
    ui.clear();
    list.tbMain_ButtonClick("Refresh");
    EXPECT_EQ(Status(list), "Coupon Count: 4 / Total Value: $11.75");
    list.lvCoupons->ColumnClick(frmAllCoupons::colValue);
    EXPECT_EQ(Products(list), QStringList({"Butter", "Cream", "Cheese", "Milk"}));
    list.lvCoupons->ColumnClick(frmAllCoupons::colValue);
    EXPECT_EQ(Products(list), QStringList({"Milk", "Cheese", "Cream", "Butter"}));
}

TEST_F(CouponScreensTest, FiltersListTheirCouponsOnly) {
    Coupon("Newman's Own", "Dressing", "0.50", "2026-11-30");
    Coupon("Acme", "Milk", "0.25", "2027-01-15", "Kroger");
    Coupon("Acme", "Cream", "0.75", "Never", "Kroger");
    Coupon("newman's own", "Salsa", "1.00", "2026-12-01");
    frmAllCoupons list;
    const auto productsFor = [&](int kind, const QString& value) {
        list.LoadCoupons(kind, value);
        return Products(list);
    };
    EXPECT_EQ(productsFor(frmCouponFilter::ByManufacturer, "Newman's Own"), QStringList({"Dressing", "Salsa"}));
    EXPECT_EQ(productsFor(frmCouponFilter::ByProduct, "Milk"), QStringList({"Milk"}));
    EXPECT_EQ(productsFor(frmCouponFilter::ByStore, "Kroger"), QStringList({"Milk", "Cream"}));
    // Before a date: "Never" never expires.
    EXPECT_EQ(productsFor(frmCouponFilter::ByExpiration, "12/01/2026"), QStringList({"Dressing"}));
    EXPECT_EQ(productsFor(0, ""), QStringList({"Dressing", "Milk", "Cream", "Salsa"}));

    // The filter screen offers each maker once and gives back the kind and value chosen.
    ui.answerModal([](QDialog* d) {
        auto* f = qobject_cast<frmCouponFilter*>(d);
        QStringList offered;
        for (int i = 0; i < f->cboFilterData->count(); ++i) offered << f->cboFilterData->itemText(i);
        EXPECT_EQ(offered, QStringList({"Acme", "Newman's Own"}));
        EXPECT_EQ(f->lblPrompt->text(), "Select the Manufacturer that you wish to view Coupons for.");
        f->cboReduceTable->setCurrentIndex(f->cboReduceTable->findText("Store"));
        EXPECT_EQ(f->lblPrompt->text(), "Select the Store that you wish to view Coupons for.");
        EXPECT_EQ(f->cboFilterData->count(), 1);  // the blank of a coupon for any store is no choice
        f->cboReduceTable->setCurrentIndex(f->cboReduceTable->findText("Expiration"));
        EXPECT_EQ(f->lblPrompt->text(), "Select the Expiration date that Coupons expire before.");
        f->dtpFilterDate->setDate(QDate(2026, 12, 2));
        f->cmdOK->click();
        return d->result();
    });
    list.tbMain_ButtonClick("Filter");
    EXPECT_EQ(Products(list), QStringList({"Dressing", "Salsa"}));
}

TEST_F(CouponScreensTest, DeleteAsksThenTakesTheCouponOutOfListTableAndTotal) {
    Registry().CouponAddReminder(false);
    Coupon("Acme", "Milk", "0.25");
    const qint32 cream = Coupon("Acme", "Cream", "1.50");
    MainPanes::Instance().AddCoupon("Acme", QString::number(cream), "1", "16 oz", "Cream");
    frmAllCoupons list;
    list.LoadCoupons();
    list.lvCoupons->setCurrentIndex(list.Model()->index(1, 0));
    ui.answer(Answer::No);
    list.tbMain_ButtonClick("Delete");
    EXPECT_EQ(ui.lastBox().prompt, "Do you want to delete Acme's Cream ?");
    EXPECT_EQ(rows::Count("SELECT * FROM Coupons"), 2);

    ui.answer(Answer::Yes);
    list.tbMain_ButtonClick("Delete");
    EXPECT_EQ(rows::Column("SELECT * FROM Coupons", "Product"), QStringList({"Milk"}));
    EXPECT_EQ(Products(list), QStringList({"Milk"}));
    EXPECT_EQ(Status(list), "Coupon Count: 1 / Total Value: $0.25");
    EXPECT_EQ(MainPanes::Instance().FindByKey(MainPanes::Instance().coupons, "C" + QString::number(cream)), nullptr);
}

TEST_F(CouponScreensTest, OKNamesTheFirstBlankBoxThenWritesTheCouponAndClears) {
    frmNewCoupon form;
    EXPECT_EQ(form.windowTitle(), "Enter New Coupon");
    EXPECT_EQ(form.cboCouponValue->count(), 93);
    const QString size = "The Size field is blank, please correct.";
    const QStringList blanks = {"The Manufacturer field is blank, please correct.",
                                "The Product Field is blank, please correct.", size, size,
                                "The Category field is blank, please correct"};
    // Boxes filled one at a time, in the order they are checked; a size is
    // wanted even for a coupon good on any size, and blanks are no size.
    const QStringList filled[] = {
        {}, {"Acme"}, {"Acme", "Milk (any size)"}, {"Acme", "Milk (any size)", "   "}, {"Acme", "Milk", "all"}};
    for (int i = 0; i < 5; ++i) {
        Fill(form, filled[i].value(0), filled[i].value(1), filled[i].value(2), "");
        ui.answer(Answer::OK);
        form.cmdOK->click();
        EXPECT_EQ(ui.lastBox().prompt, blanks[i]);
    }
    EXPECT_EQ(ui.count(), 5);
    EXPECT_EQ(rows::Count("SELECT * FROM Coupons"), 0);

    Fill(form, "Acme", "Milk", "1 gal", "Dairy");
    form.cboQuantity->setEditText("2");
    form.cboCouponValue->setEditText("75 cents on two");  // typed, not in the list
    form.dtpExpiration->setDate(QDate(2027, 1, 31));
    form.cmdOK->click();
    EXPECT_EQ(Table(), QStringList({"1|Acme|Milk|1 gal|75 cents on two|0|2027-01-31|2|Dairy| |"}));
    EXPECT_EQ(rows::Joined("SELECT * FROM Product", {"Manufacturer", "Name", "Size", "Category", "Cost"}),
              QStringList({"Acme|Milk|1 gal|Dairy|0"}));
    EXPECT_EQ(rows::Column("SELECT * FROM Manufacturer WHERE [Name] = 'Acme'", "Name"), QStringList({"Acme"}));
    EXPECT_NE(MainPanes::Instance().FindByKey(MainPanes::Instance().coupons, "C1"), nullptr);
    EXPECT_EQ(form.SavedCount(), 1);
    EXPECT_EQ(form.cboManufacturer->currentText() + form.cboProduct->currentText() + form.cboCouponValue->currentText(),
              "");

    // A store-only coupon that never expires.
    Fill(form, "Acme", "Cream", "1 pt", "Dairy");
    form.cboCouponValue->setEditText("Free");
    form.chkDiscountDouble->setChecked(true);
    form.cmdNeverExpires->click();
    EXPECT_EQ(form.cmdNeverExpires->text(), "Set &Expiration");
    form.chkAdvertisedSpecial->click();
    EXPECT_FALSE(form.cboStore->isHidden());
    form.cboStore->setEditText("Kroger");
    form.cmdOK->click();
    EXPECT_EQ(Table().value(1), "2|Acme|Cream|1 pt|Free|1|Never||Dairy|Kroger|");
    EXPECT_TRUE(form.cboStore->isHidden());
    EXPECT_EQ(form.cmdNeverExpires->text(), "No &Expiration");
}

TEST_F(CouponScreensTest, AQuantityThatIsNoNumberOrAPastDateIsRefused) {
    frmNewCoupon form;
    Fill(form, "Acme", "Milk", "1 gal", "Dairy");
    form.cboQuantity->setEditText("abc");
    ui.answer(Answer::OK);
    form.cmdOK->click();
    EXPECT_EQ(LastBox(), "Larderkeep: The Quantity field must be a numberic value, please correct.");
    form.cboQuantity->setEditText("1");

    form.dtpExpiration->setDate(QDate(2026, 11, 21));
    for (int answer : {Answer::OK, Answer::Cancel}) {
        ui.answer(answer);
        form.cmdOK->click();
        EXPECT_EQ(LastBox(), "Prior Date: That date is prior to today!");
        EXPECT_EQ(ui.lastBox().buttons & 7, Box::OKCancel);
    }
    EXPECT_EQ(rows::Count("SELECT * FROM Coupons"), 0);
    form.dtpExpiration->setDate(QDate(2026, 11, 22));  // today is not past
    form.cmdOK->click();
    EXPECT_EQ(rows::Count("SELECT * FROM Coupons"), 1);
}

TEST_F(CouponScreensTest, AnEditReplacesTheCouponUnderANewIDKeepingWhatItHad) {
    Registry().CouponAddReminder(false);
    Coupon("Acme", "Tea", "0.10");
    const qint32 id = Coupon("Bell's", "Coffee", "Buy one, get one free", "Never", "Kroger", "1");
    MainPanes::Instance().AddCoupon("Bell's", QString::number(id), "1", "16 oz", "Coffee");
    frmNewCoupon form;
    form.EditCoupon(id);
    EXPECT_TRUE(form.Editing());
    EXPECT_EQ(form.cboCouponValue->currentText(), "Buy one, get one free");
    EXPECT_EQ(form.cmdNeverExpires->text(), "Set &Expiration");
    EXPECT_TRUE(form.chkAdvertisedSpecial->isChecked());
    form.cboSize->setEditText("12 oz");
    form.cmdOK->click();

    EXPECT_EQ(Table(), QStringList({"1|Acme|Tea|16 oz|0.10|0|2026-12-31|1|Dairy| |",
                                    "3|Bell's|Coffee|12 oz|Buy one, get one free|1|Never|1|Dairy|Kroger|"}));
    EXPECT_FALSE(form.Editing());
    MainPanes& panes = MainPanes::Instance();
    EXPECT_EQ(panes.FindByKey(panes.coupons, "C2"), nullptr);
    EXPECT_NE(panes.FindByKey(panes.coupons, "C3"), nullptr);

    // An ID that is not on file leaves the screen entering a new coupon.
    form.EditCoupon(99);
    EXPECT_FALSE(form.Editing());
}

TEST_F(CouponScreensTest, AScanSetsTheValueAndEmptiesMakerAndProduct) {
    frmNewCoupon form;
    Fill(form, "Acme", "Milk", "1 gal", "Dairy");
    const auto scan = [this](const QString& typed) {
        ui.answerModal([typed](QDialog* d) {
            auto* field = d->findChild<QLineEdit*>("txtBarcode");
            field->setText(typed);
            QTest::keyClick(field, typed.isEmpty() ? Qt::Key_Escape : Qt::Key_Return);
            return d->result();
        });
    };
    scan("");  // cancelled: nothing changes
    form.cmdScan->click();
    EXPECT_EQ(form.cboManufacturer->currentText() + "|" + form.cboProduct->currentText(), "Acme|Milk");

    scan("512345678021");
    form.cmdScan->click();
    EXPECT_EQ(form.cboCouponValue->currentText(), "Buy four or more, get one free");
    EXPECT_EQ(form.cboManufacturer->currentText() + "|" + form.cboProduct->currentText(), "|");
    EXPECT_EQ(form.Barcode(), "512345678021");
    EXPECT_FALSE(form.picBarcode->pixmap().isNull());
}

TEST_F(CouponScreensTest, NotesPagesStepAndTheirToolbarEdits) {
    frmNewCoupon form;
    EXPECT_FALSE(form.cmdPrev->isEnabled());
    form.cmdNext->click();
    EXPECT_EQ(form.Page(), 1);
    EXPECT_FALSE(form.cmdNext->isEnabled());
    EXPECT_TRUE(form.cmdPrev->isEnabled());
    form.txtCouponNotes->setPlainText("clip me");
    form.txtCouponNotes->selectAll();
    form.tbNotes->ButtonClick("Delete");
    EXPECT_EQ(form.txtCouponNotes->toPlainText(), "");
    EXPECT_EQ(form.tbNotes->Button("Spell"), nullptr);
    form.cmdPrev->click();
    EXPECT_EQ(form.Page(), 0);
}

}  // namespace
