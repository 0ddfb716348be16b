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
#include <QHideEvent>
#include <QFile>
#include <QHash>
#include <QHeaderView>
#include <QLabel>
#include <QAbstractTableModel>
#include <QIcon>
#include <QStandardItem>
#include <QStatusBar>
#include <QStyle>
#include <QToolBar>
#include <QUrl>
#include <QVBoxLayout>
#include <algorithm>

namespace {

const QString kWhere = QStringLiteral("frmAllCoupons.ButtonClick");

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

// The coupon list's lines, one small record each rather than an object per
// cell, so that thousands of coupons are read, shown, sorted and dropped fast.
class CouponLines : public QAbstractTableModel {
public:
    struct Line {
        QString cells[frmAllCoupons::ColumnCount];
        qint32 id = 0;
        QVariant stored;       // the value as the table holds it
        QVariant quantityKey;  // what the quantity and value sort by
        QVariant valueKey;
        QString expirationKey;  // the stored date text: dates in order, words after
    };

    CouponLines(QObject* parent) : QAbstractTableModel(parent), icon_(PaneIcon(QStringLiteral("Coupon"))) {}

    void Reset(QList<Line>&& lines) {
        beginResetModel();
        lines_ = std::move(lines);
        endResetModel();
    }
    const Line& At(int row) const { return lines_.at(row); }

    int rowCount(const QModelIndex& parent = QModelIndex()) const override {
        return parent.isValid() ? 0 : int(lines_.size());
    }
    int columnCount(const QModelIndex& parent = QModelIndex()) const override {
        return parent.isValid() ? 0 : frmAllCoupons::ColumnCount;
    }
    QVariant data(const QModelIndex& index, int role) const override {
        if (!index.isValid() || index.row() >= lines_.size()) return {};
        const Line& line = lines_.at(index.row());
        const int c = index.column();
        switch (role) {
        case Qt::DisplayRole:
            return line.cells[c];
        case Qt::DecorationRole:
            return c == frmAllCoupons::colManufacturer ? QVariant(icon_) : QVariant();
        case Qt::TextAlignmentRole:
            return c == frmAllCoupons::colQuantity || c == frmAllCoupons::colValue
                       ? QVariant(int(Qt::AlignRight | Qt::AlignVCenter))
                       : QVariant();
        case frmAllCoupons::IDRole:
            return line.id;
        case frmAllCoupons::RawValueRole:
            return line.stored;
        default:
            return {};
        }
    }
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
        static const char* const headers[] = {"Manufacturer", "Product",    "Size",     "Quantity", "Value",
                                              "Double",       "Expiration", "Category", "Store"};
        if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0 ||
            section >= frmAllCoupons::ColumnCount)
            return QAbstractTableModel::headerData(section, orientation, role);
        return QString::fromLatin1(headers[section]);
    }
    bool removeRows(int row, int count, const QModelIndex& parent = QModelIndex()) override {
        if (parent.isValid() || row < 0 || count <= 0 || row + count > lines_.size()) return false;
        beginRemoveRows(parent, row, row + count - 1);
        lines_.remove(row, count);
        endRemoveRows();
        return true;
    }
    void sort(int column, Qt::SortOrder order) override {
        if (column < 0 || column >= frmAllCoupons::ColumnCount) return;
        Q_EMIT layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
        // The selection and the current line follow their coupon.
        const QModelIndexList before = persistentIndexList();
        QList<qint32> ids;
        for (const QModelIndex& i : before) ids << lines_.at(i.row()).id;
        std::stable_sort(lines_.begin(), lines_.end(), [&](const Line& a, const Line& b) {
            return order == Qt::AscendingOrder ? Less(a, b, column) : Less(b, a, column);
        });
        QHash<qint32, int> rowOf;
        for (int r = 0; r < lines_.size(); ++r) rowOf.insert(lines_.at(r).id, r);
        QModelIndexList after;
        for (int i = 0; i < before.size(); ++i) after << index(rowOf.value(ids[i]), before[i].column());
        changePersistentIndexList(before, after);
        Q_EMIT layoutChanged({}, QAbstractItemModel::VerticalSortHint);
    }

private:
    // Numbers before words; words and names without regard to case.
    static bool KeyLess(const QVariant& a, const QVariant& b) {
        const bool an = a.typeId() == QMetaType::Double, bn = b.typeId() == QMetaType::Double;
        if (an && bn) return a.toDouble() < b.toDouble();
        if (an != bn) return an;
        return a.toString().compare(b.toString(), Qt::CaseInsensitive) < 0;
    }
    static bool Less(const Line& a, const Line& b, int column) {
        switch (column) {
        case frmAllCoupons::colQuantity:
            return KeyLess(a.quantityKey, b.quantityKey);
        case frmAllCoupons::colValue:
            return KeyLess(a.valueKey, b.valueKey);
        case frmAllCoupons::colExpiration:
            return a.expirationKey.compare(b.expirationKey, Qt::CaseInsensitive) < 0;
        default:
            return a.cells[column].compare(b.cells[column], Qt::CaseInsensitive) < 0;
        }
    }

    QList<Line> lines_;
    QIcon icon_;
};

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

    lines_ = new CouponLines(this);
    lvCoupons->setModel(lines_);
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

int frmAllCoupons::CouponCount() const { return lines_->rowCount(); }

QAbstractItemModel* frmAllCoupons::Model() const { return lines_; }

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
    QList<CouponLines::Line> lines;
    total_ = Currency();
    QStringList widest(ColumnCount);
    QString failure;
    // Coupons share a handful of values and dates: each is formatted once.
    QHash<QString, QString> shownValue, shownDate;
    const auto shown = [](QHash<QString, QString>& seen, const QString& text, const QString& pattern) {
        auto it = seen.constFind(text);
        if (it == seen.constEnd()) it = seen.insert(text, Format(QVariant(text), pattern));
        return *it;
    };
    try {
        Recordset rs;
        rs.Open(SelectFor(filterKind, value), ConnectionMain(), adOpenForwardOnly, adLockReadOnly);
        for (; !rs.IsEOF(); rs.MoveNext()) {
            CouponLines::Line line;
            line.stored = rs.Field(QStringLiteral("Value"));
            // A value that is not an amount ("Free") cannot be added: the load
            // ends there, with the lines and the total before it.
            const Currency total = CCur(LooseAdd(QVariant::fromValue(total_), line.stored));
            const QString quantity = TextOf(rs.Field(QStringLiteral("Quantity")));
            const QString stored = TextOf(line.stored);
            line.expirationKey = TextOf(rs.Field(QStringLiteral("Expiration")));
            line.id = CLng(rs.Field(QStringLiteral("ID")));
            line.quantityKey = SortKey(quantity);
            line.valueKey = SortKey(stored);
            QString* cells = line.cells;
            cells[colManufacturer] = TextOf(rs.Field(QStringLiteral("Manufacturer")));
            cells[colProduct] = TextOf(rs.Field(QStringLiteral("Product")));
            cells[colSize] = TextOf(rs.Field(QStringLiteral("Size")));
            cells[colQuantity] = quantity.rightJustified(3, QLatin1Char(' '));
            cells[colValue] = line.stored.isNull() ? QString() : shown(shownValue, stored, QStringLiteral("$#0.00"));
            cells[colDouble] = Doubled(TextOf(rs.Field(QStringLiteral("DiscountDouble")))) ? QStringLiteral("Yes")
                                                                                          : QStringLiteral("No");
            cells[colExpiration] = shown(shownDate, line.expirationKey, QStringLiteral("mm/dd/yyyy"));
            cells[colCategory] = TextOf(rs.Field(QStringLiteral("Category")));
            cells[colStore] = TextOf(rs.Field(QStringLiteral("Store")));
            for (int c = 0; c < ColumnCount; ++c)
                if (cells[c].size() > widest[c].size()) widest[c] = cells[c];
            lines.append(std::move(line));
            total_ = total;
        }
    } catch (const std::exception& e) {
        failure = ErrorDescription(e);
    }

    lines_->Reset(std::move(lines));
    lvCoupons->Resort();
    SizeColumns(widest);
    ShowStatus();
    if (!failure.isEmpty())
        ReportErrorText(QStringLiteral("Error: ") + failure + QStringLiteral(" (Occurred in frmAllCoupon.LoadCoupons.)"));
}

void frmAllCoupons::SizeColumns(const QStringList& widest) {
    const QFontMetrics metrics(lvCoupons->font());
    for (int c = 0; c < ColumnCount; ++c) {
        const QString header = lines_->headerData(c, Qt::Horizontal, Qt::DisplayRole).toString();
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
    const CouponLines::Line& line = lines_->At(row);
    if (MsgBox(QStringLiteral("Do you want to delete ") + line.cells[colManufacturer] + QStringLiteral("'s ") +
                   line.cells[colProduct] + QStringLiteral(" ?"),
               Box::YesNo + Box::Question, QStringLiteral("Delete Coupon")) != Answer::Yes)
        return;
    const qint32 id = line.id;
    const QVariant stored = line.stored;
    clsCoupon().DeleteCoupon(id, 1);
    MainPanes& panes = MainPanes::Instance();
    if (QStandardItem* node = panes.FindByKey(panes.coupons, QStringLiteral("C") + QString::number(id)))
        panes.Remove(panes.coupons, node);
    lines_->removeRow(row);
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
    form.EditCoupon(lines_->At(current.row()).id);
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

void frmAllCoupons::hideEvent(QHideEvent* event) {
    // Escape and the Close button both end here.
    const QRect frame = frameGeometry();
    SaveFormPosition(this, frame.top(), height(), width(), frame.left());
    QDialog::hideEvent(event);
}
