#include "coupons/frmAllCoupons.h"

#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/ListView.h"
#include "core/MainPanes.h"
#include "core/PaneIcons.h"
#include "core/Values.h"
#include "core/clsRegistry.h"
#include "core/deLarderkeep.h"
#include "core/modEffects.h"
#include "core/modVerify.h"
#include "coupons/clsCoupon.h"
#include "coupons/frmCouponFilter.h"
#include "coupons/frmNewCoupon.h"
#include "platform/Recordset.h"
#include "platform/Ui.h"
#include "publish/clsCommunications.h"

#include <QAction>
#include <QActionGroup>
#include <QCloseEvent>
#include <QFile>
#include <QHeaderView>
#include <QLabel>
#include <QStandardItemModel>
#include <QStatusBar>
#include <QStyle>
#include <QToolBar>
#include <QUrl>
#include <QVBoxLayout>

namespace {

const QString kWhere = QStringLiteral("frmAllCoupons.ButtonClick");

// A cell that sorts by its sort key when it has one (numbers before words),
// otherwise by its text without regard to case.
class Cell : public QStandardItem {
public:
    explicit Cell(const QString& text) : QStandardItem(text) {}
    bool operator<(const QStandardItem& other) const override {
        const QVariant a = data(frmAllCoupons::SortKeyRole), b = other.data(frmAllCoupons::SortKeyRole);
        if (!a.isValid() || !b.isValid()) return text().compare(other.text(), Qt::CaseInsensitive) < 0;
        const bool an = a.typeId() == QMetaType::Double, bn = b.typeId() == QMetaType::Double;
        if (an && bn) return a.toDouble() < b.toDouble();
        if (an != bn) return an;
        return a.toString().compare(b.toString(), Qt::CaseInsensitive) < 0;
    }
};

// A number sorts as a number, anything else as its text.
QVariant SortKey(const QString& text) {
    bool ok = false;
    const double number = text.trimmed().toDouble(&ok);
    return ok ? QVariant(number) : QVariant(text);
}

QString SelectFor(int kind, const QString& value) {
    const QString all = QStringLiteral("SELECT * FROM Coupons");
    switch (kind) {
    case frmCouponFilter::ByManufacturer:
        return all + QStringLiteral(" WHERE [Manufacturer] = '%1'").arg(QuoteSql(value));
    case frmCouponFilter::ByProduct:
        return all + QStringLiteral(" WHERE [Product] = '%1'").arg(QuoteSql(value));
    case frmCouponFilter::ByExpiration:
        return all + QStringLiteral(" WHERE [Expiration] < #%1#").arg(value);
    case frmCouponFilter::ByStore:
        return all + QStringLiteral(" WHERE [Store] = '%1'").arg(QuoteSql(value));
    default:
        return all;
    }
}

}  // namespace

bool frmAllCoupons::Doubled(const QString& discountDouble) {
    const QString text = discountDouble.trimmed();
    return IsNumeric(QVariant(text)) ? Val(text) != 0 : text.compare(QLatin1String("True"), Qt::CaseInsensitive) == 0;
}

frmAllCoupons::frmAllCoupons(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmAllCoupons"));
    setWindowTitle(QStringLiteral("All Coupons"));
    setWindowFlag(Qt::WindowMaximizeButtonHint, true);
    setSizeGripEnabled(true);

    tbMain = new QToolBar(this);
    tbMain->setObjectName(QStringLiteral("tbMain"));
    tbMain->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    tbMain->setIconSize(QSize(20, 20));
    AddButton(QStringLiteral("Close"), QStringLiteral("Close"), QStringLiteral("Close the Coupon List."),
              QStyle::SP_DialogCloseButton);
    tbMain->addSeparator();
    AddButton(QStringLiteral("NewCoupon"), QStringLiteral("New"), QStringLiteral("Enter a new Coupon."),
              QStyle::SP_FileIcon);
    AddButton(QStringLiteral("Delete"), QStringLiteral("Delete"), QStringLiteral("Delete the selected Coupon."),
              QStyle::SP_TrashIcon);
    AddButton(QStringLiteral("Refresh"), QStringLiteral("Refresh"), QStringLiteral("Requery the Coupon List."),
              QStyle::SP_BrowserReload);
    AddButton(QStringLiteral("Filter"), QStringLiteral("Filter"), QStringLiteral("Show only some of the Coupons."),
              QStyle::SP_FileDialogContentsView);
    tbMain->addSeparator();
    auto* views = new QActionGroup(this);
    for (QAction* a : {AddButton(QStringLiteral("LgIcon"), QStringLiteral("Large"), QStringLiteral("Large Icons"),
                                 QStyle::SP_FileDialogInfoView),
                       AddButton(QStringLiteral("SmIcon"), QStringLiteral("Small"), QStringLiteral("Small Icons"),
                                 QStyle::SP_FileDialogListView),
                       AddButton(QStringLiteral("Report"), QStringLiteral("Details"), QStringLiteral("Details"),
                                 QStyle::SP_FileDialogDetailedView)}) {
        a->setCheckable(true);
        views->addAction(a);
    }
    tbMain->findChild<QAction*>(QStringLiteral("Report"))->setChecked(true);
    tbMain->addSeparator();
    AddButton(QStringLiteral("Print"), QStringLiteral("Print"), QStringLiteral("Print the Coupon report."),
              QStyle::SP_DialogSaveButton);
    AddButton(QStringLiteral("Help"), QStringLiteral("Help"), QStringLiteral("Help"), QStyle::SP_DialogHelpButton);

    lvCoupons = new ListView(this);
    lvCoupons->setObjectName(QStringLiteral("lvCoupons"));
    lvCoupons->setEditTriggers(QAbstractItemView::NoEditTriggers);
    lvCoupons->setSelectionMode(QAbstractItemView::SingleSelection);
    lvCoupons->setAlternatingRowColors(true);
    lvCoupons->header()->setStretchLastSection(true);

    sbStatus = new QStatusBar(this);
    sbStatus->setObjectName(QStringLiteral("sbStatus"));
    sbStatus->setSizeGripEnabled(false);
    pnlCount = new QLabel(this);
    pnlCount->setObjectName(QStringLiteral("pnlCount"));
    pnlTotal = new QLabel(this);
    pnlTotal->setObjectName(QStringLiteral("pnlTotal"));
    pnlCount->setMinimumWidth(160);
    sbStatus->addWidget(pnlCount);
    sbStatus->addWidget(pnlTotal, 1);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(tbMain);
    layout->addWidget(lvCoupons, 1);
    layout->addWidget(sbStatus);

    connect(lvCoupons, &QAbstractItemView::doubleClicked, this, &frmAllCoupons::EditCoupon);

    model_ = new QStandardItemModel(0, ColumnCount, this);
    lvCoupons->setModel(model_);
    ShowStatus();
    resize(860, 480);
    RestoreFormPosition(this);
}

QAction* frmAllCoupons::AddButton(const QString& key, const QString& caption, const QString& tip, int icon) {
    QAction* action = tbMain->addAction(style()->standardIcon(QStyle::StandardPixmap(icon)), caption);
    action->setObjectName(key);
    action->setToolTip(tip);
    connect(action, &QAction::triggered, this, [this, key] { tbMain_ButtonClick(key); });
    return action;
}

int frmAllCoupons::CouponCount() const { return model_->rowCount(); }

void frmAllCoupons::ShowStatus() {
    pnlCount->setText(QStringLiteral("Coupon Count: ") + QString::number(CouponCount()));
    pnlTotal->setText(QStringLiteral("Total Value: ") +
                      Format(QVariant::fromValue(total_), QStringLiteral("$####0.00")));
}

void frmAllCoupons::LoadCoupons(int filterKind, const QString& value) {
    filterKind_ = filterKind;
    filterValue_ = value;
    loaded_ = true;

    // The lines are built before the list sees them, so the view lays out
    // once however many coupons there are.
    auto* model = new QStandardItemModel(0, ColumnCount, this);
    model->setHorizontalHeaderLabels({QStringLiteral("Manufacturer"), QStringLiteral("Product"),
                                      QStringLiteral("Size"), QStringLiteral("Quantity"), QStringLiteral("Value"),
                                      QStringLiteral("Double"), QStringLiteral("Expiration"),
                                      QStringLiteral("Category"), QStringLiteral("Store")});
    total_ = Currency();
    QStringList widest(ColumnCount);
    QString failure;
    try {
        const QIcon icon = PaneIcon(QStringLiteral("Coupon"));
        const Qt::Alignment right = Qt::AlignRight | Qt::AlignVCenter;
        Recordset rs;
        rs.Open(SelectFor(filterKind, value), ConnectionMain(), adOpenForwardOnly, adLockReadOnly);
        for (; !rs.IsEOF(); rs.MoveNext()) {
            const QVariant stored = rs.Field(QStringLiteral("Value"));
            // A value that is not an amount ("Free") cannot be added: the load
            // ends there, with the lines and the total before it.
            const Currency total = CCur(LooseAdd(QVariant::fromValue(total_), stored));
            const QString quantity = TextOf(rs.Field(QStringLiteral("Quantity")));
            const QString expiration = TextOf(rs.Field(QStringLiteral("Expiration")));
            const qint32 id = CLng(rs.Field(QStringLiteral("ID")));
            QList<QStandardItem*> cells = {
                new Cell(TextOf(rs.Field(QStringLiteral("Manufacturer")))),
                new Cell(TextOf(rs.Field(QStringLiteral("Product")))),
                new Cell(TextOf(rs.Field(QStringLiteral("Size")))),
                new Cell(quantity.rightJustified(3, QLatin1Char(' '))),
                new Cell(Format(stored, QStringLiteral("$#0.00"))),
                new Cell(Doubled(TextOf(rs.Field(QStringLiteral("DiscountDouble")))) ? QStringLiteral("Yes")
                                                                                      : QStringLiteral("No")),
                new Cell(Format(QVariant(expiration), QStringLiteral("mm/dd/yyyy"))),
                new Cell(TextOf(rs.Field(QStringLiteral("Category")))),
                new Cell(TextOf(rs.Field(QStringLiteral("Store")))),
            };
            cells[colManufacturer]->setIcon(icon);
            cells[colManufacturer]->setData(id, IDRole);
            cells[colQuantity]->setData(SortKey(quantity), SortKeyRole);
            cells[colQuantity]->setTextAlignment(right);
            cells[colValue]->setData(stored, RawValueRole);
            cells[colValue]->setData(SortKey(TextOf(stored)), SortKeyRole);
            cells[colValue]->setTextAlignment(right);
            // Dates sort as stored, every word after every date.
            cells[colExpiration]->setData(expiration, SortKeyRole);
            for (int c = 0; c < ColumnCount; ++c)
                if (cells[c]->text().size() > widest[c].size()) widest[c] = cells[c]->text();
            model->appendRow(cells);
            total_ = total;
        }
    } catch (const std::exception& e) {
        failure = ErrorDescription(e);
    }

    QStandardItemModel* old = model_;
    model_ = model;
    lvCoupons->setModel(model_);
    delete old;
    lvCoupons->Resort();
    SizeColumns(widest);
    ShowStatus();
    if (!failure.isEmpty())
        ReportErrorText(QStringLiteral("Error: ") + failure + QStringLiteral(" (Occurred in frmAllCoupon.LoadCoupons.)"));
}

void frmAllCoupons::SizeColumns(const QStringList& widest) {
    const QFontMetrics metrics(lvCoupons->font());
    for (int c = 0; c < ColumnCount; ++c) {
        const QString header = model_->headerData(c, Qt::Horizontal).toString();
        int width = qMax(metrics.horizontalAdvance(header), metrics.horizontalAdvance(widest.value(c))) + 24;
        if (c == colManufacturer) width += lvCoupons->iconSize().width() + 8;
        lvCoupons->header()->resizeSection(c, qMin(width, 320));
    }
}

void frmAllCoupons::tbMain_ButtonClick(const QString& key) {
    Trap(kWhere, [&] {
        if (key == QLatin1String("Close")) {
            close();
        } else if (key == QLatin1String("NewCoupon")) {
            AddNewCoupon();
        } else if (key == QLatin1String("Refresh")) {
            LoadCoupons(filterKind_, filterValue_);
        } else if (key == QLatin1String("Filter")) {
            Filter();
        } else if (key == QLatin1String("Delete")) {
            DeleteCoupon();
        } else if (key == QLatin1String("LgIcon")) {
            lvCoupons->View(ListView::lvwIcon);
        } else if (key == QLatin1String("SmIcon")) {
            lvCoupons->View(ListView::lvwSmallIcon);
        } else if (key == QLatin1String("Report")) {
            lvCoupons->View(ListView::lvwReport);
        } else if (key == QLatin1String("Print")) {
            deLarderkeep::ByName(QStringLiteral("rptCoupons")).Print(this, true);
        } else if (key == QLatin1String("Help")) {
            const QString help = Registry().HelpFile();
            if (!help.isEmpty() && QFile::exists(help))
                clsCommunications::OpenLink(QUrl::fromLocalFile(help).toString());
            else
                MsgBox(QStringLiteral("The help file could not be found."), Box::Exclamation, QStringLiteral("Help"));
        }
    });
}

void frmAllCoupons::DeleteCoupon() {
    const QModelIndex current = lvCoupons->currentIndex();
    if (!current.isValid()) return;
    const int row = current.row();
    QStandardItem* first = model_->item(row, colManufacturer);
    if (MsgBox(QStringLiteral("Do you want to delete ") + first->text() + QStringLiteral("'s ") +
                   model_->item(row, colProduct)->text() + QStringLiteral(" ?"),
               Box::YesNo + Box::Question, QStringLiteral("Delete Coupon")) != Answer::Yes)
        return;
    const qint32 id = first->data(IDRole).toInt();
    const QVariant stored = model_->item(row, colValue)->data(RawValueRole);
    clsCoupon().DeleteCoupon(id, 1);
    MainPanes& panes = MainPanes::Instance();
    if (QStandardItem* node = panes.FindByKey(panes.coupons, QStringLiteral("C") + QString::number(id)))
        panes.Remove(panes.coupons, node);
    model_->removeRow(row);
    total_ = total_ - CCur(stored);
    ShowStatus();
}

void frmAllCoupons::AddNewCoupon() {
    frmNewCoupon form(this);
    TheUi().ShowModal(&form);
    if (form.SavedCount() > 0) LoadCoupons(filterKind_, filterValue_);
}

void frmAllCoupons::EditCoupon() {
    const QModelIndex current = lvCoupons->currentIndex();
    if (!current.isValid()) return;
    frmNewCoupon form(this);
    form.EditCoupon(model_->item(current.row(), colManufacturer)->data(IDRole).toInt());
    TheUi().ShowModal(&form);
    if (form.SavedCount() > 0) LoadCoupons(filterKind_, filterValue_);
}

void frmAllCoupons::Filter() {
    frmCouponFilter filter(this);
    int kind = 0;
    QString value;
    if (filter.GetFilterData(kind, value)) LoadCoupons(kind, value);
}

void frmAllCoupons::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (!loaded_) LoadCoupons();
}

void frmAllCoupons::closeEvent(QCloseEvent* event) {
    const QRect frame = frameGeometry();
    SaveFormPosition(this, frame.top(), height(), width(), frame.left());
    QDialog::closeEvent(event);
}
