#pragma once

#include <QDialog>
#include <QString>

class EditorToolbar;
class QCheckBox;
class QComboBox;
class QDateEdit;
class QLabel;
class QPushButton;
class QStackedWidget;
class QTextEdit;

// Entry and editing of one paper coupon. The screen stays open after OK for
// the next coupon; the caller shows it.
class frmNewCoupon : public QDialog {
    Q_OBJECT
public:
    explicit frmNewCoupon(QWidget* parent = nullptr);

    // Puts the screen in edit mode for the coupon with this ID and fills the boxes.
    void EditCoupon(qint32 id);
    // Fills the boxes from a product, for a coupon entered from the product listing.
    void Prefill(const QString& manufacturer, const QString& product, const QString& size,
                 const QString& category);
    // Coupons written since the screen opened.
    int SavedCount() const { return savedCount_; }

    bool Editing() const { return editing_; }
    // The barcode of the last scan, "" when none or cancelled.
    QString Barcode() const { return barcode_; }
    // The page shown: 0 the coupon, 1 its notes.
    int Page() const;

    QStackedWidget* pages;
    QComboBox* cboManufacturer;
    QComboBox* cboProduct;
    QComboBox* cboSize;
    QComboBox* cboQuantity;
    QComboBox* cboCouponCategory;
    QComboBox* cboCouponValue;
    QCheckBox* chkDiscountDouble;
    QDateEdit* dtpExpiration;
    QPushButton* cmdNeverExpires;
    QCheckBox* chkAdvertisedSpecial;
    QLabel* lblStore;
    QComboBox* cboStore;
    QLabel* picBarcode;
    QPushButton* cmdScan;
    QTextEdit* txtCouponNotes;
    EditorToolbar* tbNotes;
    QPushButton* cmdPrev;
    QPushButton* cmdNext;
    QPushButton* cmdOK;
    QPushButton* cmdCancel;

public Q_SLOTS:
    void Form_Load();
    void cboManufacturer_LostFocus();
    // False (after saying why) when the box holds text that is not a number.
    bool cboQuantity_Validate();
    // False (after saying why) when the date lies before today.
    bool dtpExpiration_Validate();
    void cmdOK_Click();
    void cmdScan_Click();
    void cmdNeverExpires_Click();
    void chkAdvertisedSpecial_Click();
    void cmdPrev_Click();
    void cmdNext_Click();
    // Writes the boxes as a new coupon; false when the table refused it.
    bool WriteNewCoupon();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void LoadProducts(const QString& manufacturer);
    void SetNeverExpires(bool never);
    void ShowPage(int page);
    void ClearEntry();
    bool Required();

    bool editing_ = false;
    qint32 editID_ = 0;
    QString barcode_;
    // The manufacturer whose products the product box offers.
    QString loadedMaker_;
    // Set when the person changed the date; a date filled in by an edit that
    // has since passed is not held against them.
    bool dateEdited_ = false;
    bool filling_ = false;
    int savedCount_ = 0;
};
