#include "core/modBarcode.h"
#include "coupons/frmNewBarcode.h"
#include "coupons/modCouponBarcodes.h"
#include "products/frmProductCostHistory.h"

#include "support/Rows.h"
#include "support/TestEnv.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

namespace {

// Code 39 as printed in the symbology's tables: bar, space, bar ... bar, each
// narrow (n) or wide (w).
const QMap<QString, QChar> kStandard = {{"nwnnwnwnn", '*'}, {"nnnwwnwnn", '0'}, {"wnnwnnnnw", '1'}, {"nnwwnnnnw", '2'},
                                        {"wnwwnnnnn", '3'}, {"nnnwwnnnw", '4'}, {"wnnwwnnnn", '5'}, {"nnwwwnnnn", '6'},
                                        {"nnnwnnwnw", '7'}, {"wnnwnnwnn", '8'}, {"nnwwnnwnn", '9'}, {"wnnnnwnnw", 'A'},
                                        {"nwwnwnnnn", 'Z'}};

// The widths of the black and white runs along one pixel row, black or white
// taken at the half-way grey.
QList<int> Runs(const QImage& image, int y) {
    QList<int> runs;
    bool dark = false;
    int length = 0;
    for (int x = 0; x < image.width(); ++x) {
        const bool d = qGray(image.pixel(x, y)) < 128;
        if (x > 0 && d != dark) {
            runs << length;
            length = 0;
        }
        dark = d;
        ++length;
    }
    runs << length;
    return runs;
}

// Reads the symbol back: every character is nine elements behind a one-unit
// gap; an element is narrow at one unit and wide at two.
QString ReadBars(const QImage& image, int unit) {
    const QList<int> runs = Runs(image, 1);
    QString read;
    int i = 1;  // past the gap in front of the start mark
    while (i + 9 <= runs.size()) {
        QString pattern;
        for (int k = 0; k < 9; ++k) {
            const int width = runs[i + k];
            if (width == unit)
                pattern += 'n';
            else if (width == 2 * unit)
                pattern += 'w';
            else
                return read + "?";
        }
        read += kStandard.value(pattern, '?');
        i += 9;
        if (i < runs.size() && runs[i] != unit) break;  // the white after the stop mark
        ++i;
    }
    return read;
}

QImage Drawn(const QString& text, QLabel& picture) {
    picture.setFixedSize(600, 80);
    return DrawBarcode(text, &picture);
}

QString Decoded(const QString& barcode) {
    SetCouponBarcode(barcode);
    EXPECT_TRUE(DecodeCoupon());
    return GetCouponValueText();
}

}  // namespace

class BarcodeTest : public LarderTest {};

TEST_F(BarcodeTest, ValueCodesComeFromDigitsTenAndElevenAndTheFirstCode02Wins) {
    EXPECT_EQ(Decoded("512345678021"), "Buy four or more, get one free");
    EXPECT_EQ(Decoded("512345678001"), "Checker Intervention");
    EXPECT_EQ(Decoded("512345678051"), "Unknown");
    for (const char* gap : {"07", "08", "09", "13", "27", "29", "39"})
        EXPECT_EQ(Decoded(QString("512345678") + gap + "1"), "Unknown") << gap;
    EXPECT_EQ(Decoded("512345678953"), "0.95");
    EXPECT_EQ(Decoded("512345678963"), "4.50");
    EXPECT_EQ(Decoded("512345678611"), "10.00");
    EXPECT_EQ(Decoded("512345678981"), "Buy 2 or more, Get $0.65 off");
    // The check digit is never looked at.
    EXPECT_EQ(Decoded("512345678990"), Decoded("512345678999"));
    EXPECT_EQ(GetCouponValueText(), "0.99");

    // Any length, and letters or symbols where the digits should be.
    const QString digits = "51234567802123456789";
    for (int length = 0; length <= digits.size(); ++length)
        EXPECT_EQ(Decoded(digits.left(length)), length < 11 ? "Unknown" : "Buy four or more, get one free") << length;
    for (const char* odd : {"5123456780A1", "512345678~~1", "512345678 21", "5123456782"})
        EXPECT_EQ(Decoded(odd), "Unknown") << odd;
}

TEST_F(BarcodeTest, TheManufacturerIsLookedUpButReachesNoText) {
    rows::Add("Manufacturer", {{"Name", "Coupon Maker"}, {"UPC_Number", "9951234"}});
    SetCouponBarcode("512349999991");
    EXPECT_EQ(CouponManufacturer(), "Coupon Maker");  // the first five digits anywhere in the number
    EXPECT_TRUE(DecodeCoupon());
    EXPECT_EQ(GetCouponManufacturerText(), "");
    EXPECT_EQ(GetCouponProductText(), "");
    EXPECT_EQ(GetCouponValueText(), "0.99");

    SetCouponBarcode("587659999991");
    EXPECT_EQ(CouponManufacturer(), "Unknown");
    SetCouponBarcode("'");
    EXPECT_EQ(CouponManufacturer(), "Unknown");
}

TEST_F(BarcodeTest, TheProductManufacturerCodeIsPositionsTwoToSix) {
    EXPECT_EQ(GetManufacturerCode("041234567890"), "41234");
    EXPECT_EQ(GetManufacturerCode("04123456789012"), "41234");
    EXPECT_EQ(GetManufacturerCode("04123456789"), "");
    EXPECT_EQ(GetManufacturerCode(""), "");
}

TEST_F(BarcodeTest, TheSymbolReadsBackAsCode39) {
    QLabel picture;
    const QImage image = Drawn("a1z", picture);
    const int unit = qRound(80 / 40.0);
    EXPECT_EQ(ReadBars(image, unit), "*A1Z*");
    // White at the left edge for one unit, then the first bar of the start mark.
    EXPECT_EQ(Runs(image, 1).first(), unit);
    // The bars stop above the text.
    EXPECT_TRUE(Runs(image, 79).size() < Runs(image, 1).size());
    EXPECT_EQ(picture.pixmap().toImage().convertToFormat(image.format()), image);
    EXPECT_EQ(QGuiApplication::clipboard()->image().convertToFormat(image.format()), image);

    // The unit follows the height.
    QLabel tall;
    tall.setFixedSize(600, 160);
    EXPECT_EQ(ReadBars(DrawBarcode("09", &tall), 4), "*09*");
}

TEST_F(BarcodeTest, CharactersWithoutASymbolDrawNothingAndThoseAboveZDrawAsZ) {
    QLabel picture;
    const QList<int> plain = Runs(Drawn("AZ", picture), 1);
    EXPECT_EQ(Runs(Drawn("#a#z@", picture), 1), plain);
    EXPECT_EQ(Runs(Drawn("A[", picture), 1), plain);
    EXPECT_EQ(Runs(Drawn(QString("A") + QChar(0x00E9), picture), 1), plain);
    EXPECT_EQ(Runs(Drawn("A~", picture), 1), plain);
    EXPECT_EQ(ReadBars(Drawn("", picture), 2), "**");
}

TEST_F(BarcodeTest, TheEntryTakesEnterAtAnyLengthAndOKAtTwelveDigits) {
    ui.answerModal([](QDialog* d) {
        auto* form = qobject_cast<frmNewBarcode*>(d);
        EXPECT_EQ(form->windowTitle(), "Enter Barcode");
        EXPECT_EQ(form->lblInstruction->text(),
                  " Enter or scan the Items barcode while the cursor is in the 'Barcode' field.");
        QTest::keyClicks(form->txtBarcode, "123456");
        EXPECT_FALSE(form->cmdOK->isEnabled());
        QTest::keyClick(form->txtBarcode, Qt::Key_Return);
        return form->result();
    });
    EXPECT_EQ(frmNewBarcode::GetItemBarcode(""), "123456");

    ui.answerModal([](QDialog* d) {
        auto* form = qobject_cast<frmNewBarcode*>(d);
        QTest::keyClicks(form->txtBarcode, "04123456789");
        EXPECT_FALSE(form->cmdOK->isEnabled());
        QTest::keyClicks(form->txtBarcode, "0");
        EXPECT_TRUE(form->cmdOK->isEnabled());
        EXPECT_EQ(ReadBars(form->picBarcode->pixmap().toImage(), 2).size(), 14);
        // Not a number: the button and the picture stay as they were.
        const QImage before = form->picBarcode->pixmap().toImage();
        QTest::keyClicks(form->txtBarcode, "x");
        EXPECT_TRUE(form->cmdOK->isEnabled());
        EXPECT_EQ(form->picBarcode->pixmap().toImage(), before);
        QTest::keyClick(form->txtBarcode, Qt::Key_Backspace);
        form->cmdOK->click();
        return form->result();
    });
    EXPECT_EQ(frmNewBarcode::GetItemBarcode(""), "041234567890");

    ui.answerModal([](QDialog* d) {
        auto* form = qobject_cast<frmNewBarcode*>(d);
        QTest::keyClicks(form->txtBarcode, "041234567890");
        form->cmdCancel->click();
        return form->result();
    });
    EXPECT_EQ(frmNewBarcode::GetItemBarcode(""), "");
}

TEST_F(BarcodeTest, TheCostHistoryDrawsItsBarcodeText) {
    rows::Add("Product", {{"Name", "Salt"}, {"Manufacturer", "Morton"}});
    frmProductCostHistory form("Morton", "Salt");
    ASSERT_EQ(form.BarcodeText(), "1234567890");
    const QImage image = form.picBarcode->pixmap().toImage();
    EXPECT_EQ(ReadBars(image, qRound(image.height() / 40.0)), "*1234567890*");
}
