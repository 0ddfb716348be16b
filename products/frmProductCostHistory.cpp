#include "products/frmProductCostHistory.h"

#include "core/Dates.h"
#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/Values.h"
#include "core/clsRegistry.h"
#include "core/modBarcode.h"
#include "core/modVerify.h"
#include "platform/Clock.h"
#include "platform/Recordset.h"
#include "platform/RuntimeError.h"
#include "platform/Ui.h"
#include "products/ChartParts.h"

#include <QChart>
#include <QChartView>
#include <QComboBox>
#include <QCursor>
#include <QDateEdit>
#include <QDateTimeAxis>
#include <QDir>
#include <QFileInfo>
#include <QFontDatabase>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineSeries>
#include <QMap>
#include <QPushButton>
#include <QTextEdit>
#include <QToolTip>
#include <QVBoxLayout>
#include <QValueAxis>

namespace {

const QString kAllManufacturers = QStringLiteral("All Manufacturers");
const QString kAllProducts = QStringLiteral("All Products");
const QString kAllStores = QStringLiteral("All Stores");

QLabel* Value(QWidget* parent, const QString& objectName) {
    auto* label = new QLabel(parent);
    label->setObjectName(objectName);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    QFont bold = label->font();
    bold.setBold(true);
    label->setFont(bold);
    return label;
}

}  // namespace

frmProductCostHistory::frmProductCostHistory(QWidget* parent) : QDialog(parent) {
    Build();
    ChartNothing(QStringLiteral("Choose a manufacturer or a product, then press Show History"));
}

frmProductCostHistory::frmProductCostHistory(const QString& manufacturer, const QString& productName, QWidget* parent)
    : QDialog(parent) {
    Build();
    ChartNothing(QString());
    ShowProduct(manufacturer, productName);
}

void frmProductCostHistory::Build() {
    setObjectName(QStringLiteral("frmProductCostHistory"));
    setWindowTitle(QStringLiteral("Product Cost History"));

    cboManufacturer = ChartParts::NameBox(this, QStringLiteral("cboManufacturer"));
    cboItem = ChartParts::NameBox(this, QStringLiteral("cboItem"));
    cboStore = ChartParts::NameBox(this, QStringLiteral("cboStore"));
    dtpFrom = ChartParts::DateBox(this, QStringLiteral("dtpFrom"), ChartParts::DefaultFrom());
    dtpTo = ChartParts::DateBox(this, QStringLiteral("dtpTo"), Clock::Today());
    cmdDisplay = new QPushButton(QStringLiteral("Show History"), this);
    cmdDisplay->setObjectName(QStringLiteral("cmdDisplay"));
    cmdDisplay->setDefault(true);

    auto* filters = new QGridLayout;
    filters->addWidget(new QLabel(QStringLiteral("Manufacturer:"), this), 0, 0);
    filters->addWidget(cboManufacturer, 0, 1);
    filters->addWidget(new QLabel(QStringLiteral("Product:"), this), 0, 2);
    filters->addWidget(cboItem, 0, 3);
    filters->addWidget(new QLabel(QStringLiteral("Store:"), this), 0, 4);
    filters->addWidget(cboStore, 0, 5);
    filters->addWidget(new QLabel(QStringLiteral("From:"), this), 1, 0);
    filters->addWidget(dtpFrom, 1, 1);
    filters->addWidget(new QLabel(QStringLiteral("To:"), this), 1, 2);
    filters->addWidget(dtpTo, 1, 3);
    filters->addWidget(cmdDisplay, 1, 5);
    filters->setColumnStretch(1, 1);
    filters->setColumnStretch(3, 1);
    filters->setColumnStretch(5, 1);

    // Wide enough for a manufacturer's and a family's five digits at two pixels
    // a narrow bar.
    picBarcode = new QLabel(this);
    picBarcode->setObjectName(QStringLiteral("picBarcode"));
    picBarcode->setFrameShape(QFrame::StyledPanel);
    picBarcode->setFixedSize(330, 80);
    auto* barcodeBox = new QGroupBox(QStringLiteral("Barcode"), this);
    auto* barcodeLayout = new QVBoxLayout(barcodeBox);
    barcodeLayout->addWidget(picBarcode, 0, Qt::AlignHCenter);

    lblBestPrice = Value(this, QStringLiteral("lblBestPrice"));
    lblWorstPrince = Value(this, QStringLiteral("lblWorstPrince"));
    lblLastPurchaseDate = Value(this, QStringLiteral("lblLastPurchaseDate"));
    lblLastPurchaseDate->setWordWrap(true);
    txtPurchasedDates = new QTextEdit(this);
    txtPurchasedDates->setObjectName(QStringLiteral("txtPurchasedDates"));
    txtPurchasedDates->setReadOnly(true);
    txtPurchasedDates->setAcceptRichText(false);
    // The dates run together with ";" and no blank, which offers no place to
    // break a line; in even columns every line starts on a whole date.
    txtPurchasedDates->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    txtPurchasedDates->setWordWrapMode(QTextOption::WrapAnywhere);
    txtPurchasedDates->setLineWrapMode(QTextEdit::FixedColumnWidth);

    auto* pricesBox = new QGroupBox(QStringLiteral("Prices paid"), this);
    auto* prices = new QFormLayout(pricesBox);
    prices->setRowWrapPolicy(QFormLayout::DontWrapRows);
    prices->addRow(QStringLiteral("Lowest:"), lblBestPrice);
    prices->addRow(QStringLiteral("Highest:"), lblWorstPrince);
    prices->addRow(QStringLiteral("Last bought:"), lblLastPurchaseDate);

    auto* datesBox = new QGroupBox(QStringLiteral("Bought on"), this);
    auto* datesLayout = new QVBoxLayout(datesBox);
    datesLayout->addWidget(txtPurchasedDates);

    auto* side = new QVBoxLayout;
    side->addWidget(barcodeBox);
    side->addWidget(pricesBox);
    side->addWidget(datesBox, 1);
    auto* sideWidget = new QWidget(this);
    sideWidget->setLayout(side);
    side->setContentsMargins(0, 0, 0, 0);
    sideWidget->setFixedWidth(240);

    chtCostHistory = new QChartView(this);
    chtCostHistory->setObjectName(QStringLiteral("chtCostHistory"));
    chtCostHistory->setRenderHint(QPainter::Antialiasing);
    chtCostHistory->setMinimumSize(420, 300);

    auto* middle = new QHBoxLayout;
    middle->addWidget(chtCostHistory, 1);
    middle->addWidget(sideWidget);

    cmdSaveChart = new QPushButton(QStringLiteral("Save Chart..."), this);
    cmdSaveChart->setObjectName(QStringLiteral("cmdSaveChart"));
    cmdClose = new QPushButton(QStringLiteral("Close"), this);
    cmdClose->setObjectName(QStringLiteral("cmdClose"));
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(cmdSaveChart);
    buttons->addStretch();
    buttons->addWidget(cmdClose);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(filters);
    layout->addLayout(middle, 1);
    layout->addLayout(buttons);
    resize(900, 600);

    LoadManufacturers();
    LoadProducts();
    LoadStores();

    connect(cboManufacturer, &QComboBox::currentIndexChanged, this, &frmProductCostHistory::LoadProducts);
    connect(cmdDisplay, &QPushButton::clicked, this, &frmProductCostHistory::DisplayCostHistory);
    connect(cmdSaveChart, &QPushButton::clicked, this, &frmProductCostHistory::SaveChart);
    connect(cmdClose, &QPushButton::clicked, this, &QDialog::accept);
}

void frmProductCostHistory::LoadManufacturers() {
    ChartParts::FillNames(cboManufacturer, kAllManufacturers,
                          QStringLiteral("SELECT [Name] FROM Manufacturer ORDER BY [Name]"));
}

void frmProductCostHistory::LoadStores() {
    TrapTail(QStringLiteral(". (Occurred in frmProductCostHistory.LoadStores)"), true, [&] {
        ChartParts::FillNames(cboStore, kAllStores, QStringLiteral("SELECT [Name] FROM Store ORDER BY [Name]"));
        return true;
    });
}

void frmProductCostHistory::LoadProducts() {
    TrapTail(QStringLiteral(". (Occurred in frmProductCostHistory.LoadProducts)"), true, [&] {
        const QString manufacturer = cboManufacturer->currentText().trimmed();
        ChartParts::FillNames(cboItem, kAllProducts,
                              manufacturer == kAllManufacturers
                                  ? QStringLiteral("SELECT [Name] FROM Product ORDER BY [Name]")
                                  : QStringLiteral("SELECT [Name] FROM Product WHERE [Manufacturer] = ") +
                                        SqlText(manufacturer) + QStringLiteral(" ORDER BY [Name]"));
        return true;
    });
}

bool frmProductCostHistory::ProductExists(const QString& manufacturer, const QString& productName, qint32& id) {
    id = -1;  // stays so when the lookup itself fails
    return TrapTail(QStringLiteral(". (Occurred in frmProductCostHistory.ProductExists)"), false, [&] {
        QString sql = QStringLiteral("SELECT * FROM Product WHERE ");
        if (manufacturer != kAllManufacturers)
            sql += QStringLiteral("[Manufacturer] = ") + SqlText(manufacturer) + QStringLiteral(" AND ");
        sql += QStringLiteral("[Name] = ") + SqlText(productName);
        Recordset r;
        r.Open(sql, ConnectionMain(), adOpenForwardOnly, adLockReadOnly);
        id = 0;
        if (r.IsEOF()) return false;
        id = CLng(r.Field(QStringLiteral("ID")));
        return true;
    });
}

void frmProductCostHistory::ShowProduct(const QString& manufacturer, const QString& productName) {
    const QString maker = manufacturer.trimmed().isEmpty() ? kAllManufacturers : manufacturer;
    {
        QSignalBlocker quiet(cboManufacturer);
        const int at = cboManufacturer->findText(maker, Qt::MatchFixedString);
        if (at >= 0)
            cboManufacturer->setCurrentIndex(at);
        else
            cboManufacturer->setEditText(maker);
    }
    LoadProducts();
    const int at = cboItem->findText(productName, Qt::MatchFixedString);
    if (at >= 0)
        cboItem->setCurrentIndex(at);
    else
        cboItem->setEditText(productName);
    DisplayCostHistory();
}

void frmProductCostHistory::DisplayCostHistory() {
    const QString manufacturer = cboManufacturer->currentText().trimmed();
    const QString item = cboItem->currentText().trimmed();
    const QString store = cboStore->currentText().trimmed();
    if (manufacturer == kAllManufacturers && item == kAllProducts) {
        MsgBox(QStringLiteral("You must select at least one of either Manufacturers or Products."), Box::Information,
               QStringLiteral("Notice"));
        return;
    }
    qint32 id = 0;
    if (item != kAllProducts && !ProductExists(manufacturer, item, id)) {
        if (id == 0) MsgBox(QStringLiteral("That Product has not been enter, Please re-enter."), Box::Exclamation);
        return;
    }

    DrawProductBarcode(manufacturer, item);
    ShowPrices(id);

    QString sql = id > 0 ? QStringLiteral("SELECT * FROM SpendHistory WHERE [ItemID] = ") + QString::number(id)
                         : QStringLiteral("SELECT * FROM SpendHistory WHERE [ItemID] > 0 ");
    if (store != kAllStores) sql += QStringLiteral(" AND [ItemStore] =") + SqlText(store);
    sql += QStringLiteral(" AND [ItemListDate] BETWEEN ") + ChartParts::DateLiteral(dtpFrom->date()) +
           QStringLiteral(" AND ") + ChartParts::DateLiteral(dtpTo->date()) + QLatin1Char(' ');

    QString title = id > 0 ? (manufacturer == kAllManufacturers ? item : manufacturer + QStringLiteral("'s ") + item)
                           : QStringLiteral("All products");
    if (store != kAllStores) title += QStringLiteral(" at ") + store;
    Chart(sql, title);
}

QString frmProductCostHistory::DrawProductBarcode(const QString& manufacturer, const QString& productName) {
    QString maker = manufacturer;
    if (maker == kAllManufacturers && productName != kAllProducts) {
        Recordset product;
        product.Open(QStringLiteral("SELECT * FROM Product WHERE [Name] = ") + SqlText(productName), ConnectionMain(),
                     adOpenForwardOnly, adLockReadOnly);
        if (!product.IsEOF()) maker = TextOf(product.Field(QStringLiteral("Manufacturer")));
    }
    QString number, family;
    Recordset r;
    r.Open(QStringLiteral("SELECT * FROM Manufacturer WHERE [Name] = ") + SqlText(maker), ConnectionMain(),
           adOpenForwardOnly, adLockReadOnly);
    if (!r.IsEOF()) number = TextOf(r.Field(QStringLiteral("UPC_Number"))).trimmed();
    r.Close();
    r.Open(QStringLiteral("SELECT * FROM Product WHERE [Manufacturer] = ") + SqlText(maker) +
               QStringLiteral(" AND [Name] = ") + SqlText(productName),
           ConnectionMain(), adOpenForwardOnly, adLockReadOnly);
    if (!r.IsEOF()) family = TextOf(r.Field(QStringLiteral("UPC_Family"))).trimmed();
    barcodeText_ = number.isEmpty() && family.isEmpty() ? QStringLiteral("1234567890") : number + family;
    DrawBarcode(barcodeText_, picBarcode);
    return barcodeText_;
}

void frmProductCostHistory::ShowPrices(qint32 id) {
    lblBestPrice->clear();
    lblWorstPrince->clear();
    lblLastPurchaseDate->clear();
    txtPurchasedDates->clear();
    if (id <= 0) return;

    Recordset r;
    r.Open(QStringLiteral("SELECT * FROM SpendHistory WHERE ItemID = ") + QString::number(id), ConnectionMain(),
           adOpenForwardOnly, adLockReadOnly);
    if (r.IsEOF()) {
        lblBestPrice->setText(QStringLiteral("Never bought"));
        return;
    }
    const QString shown = Registry().DateDisplayFormat();
    Currency best = Currency::max(), worst = Currency::min();
    QStringList dates;
    QDateTime last;
    for (; !r.IsEOF(); r.MoveNext()) {
        const Currency paid = ChartParts::Money(r.Field(QStringLiteral("ItemListCost")));
        best = qMin(best, paid);
        worst = qMax(worst, paid);
        const QVariant when = r.Field(QStringLiteral("ItemListDate"));
        if (IsNull(when) || !IsDate(when)) continue;
        const QDateTime date = CDate(when);
        dates << Format(date, shown);
        if (!last.isValid() || DateDiff(QStringLiteral("d"), last, date) > 0) last = date;
    }
    lblBestPrice->setText(ChartParts::MoneyText(best));
    lblWorstPrince->setText(ChartParts::MoneyText(worst));
    if (last.isValid()) lblLastPurchaseDate->setText(Format(last, QStringLiteral("dddd, mmm d yyyy")));
    if (!dates.isEmpty()) {
        const int entry = int(dates.first().size()) + 1;
        const int fit = qMax(1, 22 / entry);
        txtPurchasedDates->setLineWrapColumnOrWidth(entry * fit);
    }
    txtPurchasedDates->setPlainText(dates.join(QLatin1Char(';')));
}

QList<frmProductCostHistory::WeekPrice> frmProductCostHistory::GetChartData(const QString& sql) {
    QMap<QDate, WeekPrice> weeks;
    Recordset r;
    r.Open(sql, ConnectionMain(), adOpenForwardOnly, adLockReadOnly);
    for (; !r.IsEOF(); r.MoveNext()) {
        const QVariant when = r.Field(QStringLiteral("ItemListDate"));
        if (IsNull(when) || !IsDate(when)) continue;
        const QDate date = CDate(when).date();
        // Weeks start on Sunday, as the program's week numbers do.
        const QDate weekOf = date.addDays(1 - Weekday(date));
        WeekPrice& week = weeks[weekOf];
        week.weekOf = weekOf;
        week.total += ChartParts::Money(r.Field(QStringLiteral("ItemListCost")));
        ++week.purchases;
    }
    return weeks.values();
}

void frmProductCostHistory::ChartNothing(const QString& title) { Chart(QString(), title); }

// Each week is charted as the average price paid that week: a product bought
// twice in a week at different stores shows what it typically cost, not the
// sum of two purchases.
void frmProductCostHistory::Chart(const QString& sql, const QString& title) {
    const QList<WeekPrice> weeks = sql.isEmpty() ? QList<WeekPrice>() : GetChartData(sql);

    auto* chart = new QChart;
    ChartParts::Dress(chart);
    series_ = new QLineSeries;
    series_->setName(QStringLiteral("Average price paid in the week"));
    series_->setPointsVisible(true);
    double largest = 0;
    for (const WeekPrice& week : weeks) {
        const double average = week.Average().toDouble();
        series_->append(double(QDateTime(week.weekOf, QTime(0, 0)).toMSecsSinceEpoch()), average);
        largest = qMax(largest, average);
    }
    chart->addSeries(series_);
    QPen line = series_->pen();  // the theme's colour, drawn bolder
    line.setWidth(3);
    series_->setPen(line);

    if (sql.isEmpty())
        chart->setTitle(title);
    else if (weeks.isEmpty())
        chart->setTitle(title + QStringLiteral(": no purchases between ") +
                        Format(dtpFrom->date(), Registry().DateDisplayFormat()) + QStringLiteral(" and ") +
                        Format(dtpTo->date(), Registry().DateDisplayFormat()));
    else
        chart->setTitle(title + QStringLiteral(": price paid week by week"));

    auto* time = new QDateTimeAxis;
    time->setTitleText(QStringLiteral("Week of"));
    time->setFormat(QStringLiteral("MMM d yyyy"));
    // A little room either side, so that the first and last weeks do not sit on
    // the frame and a single week still has a span to stand in.
    const QDate first = weeks.isEmpty() ? dtpFrom->date() : weeks.first().weekOf.addDays(-3);
    const QDate lastWeek = weeks.isEmpty() ? dtpTo->date() : weeks.last().weekOf.addDays(3);
    time->setRange(QDateTime(first, QTime(0, 0)), QDateTime(lastWeek.addDays(first == lastWeek ? 1 : 0), QTime(0, 0)));
    time->setTickCount(int(qBound(qsizetype(2), weeks.size(), qsizetype(6))));
    chart->addAxis(time, Qt::AlignBottom);
    series_->attachAxis(time);

    QValueAxis* money = ChartParts::MoneyAxis(QStringLiteral("Price paid"), largest);
    chart->addAxis(money, Qt::AlignLeft);
    series_->attachAxis(money);

    connect(series_, &QLineSeries::hovered, this, [this, weeks](const QPointF& point, bool inside) {
        if (!inside) {
            QToolTip::hideText();
            return;
        }
        const QDate weekOf = QDateTime::fromMSecsSinceEpoch(qint64(point.x())).date();
        const WeekPrice* nearest = nullptr;
        for (const WeekPrice& week : weeks)
            if (!nearest || qAbs(week.weekOf.daysTo(weekOf)) < qAbs(nearest->weekOf.daysTo(weekOf))) nearest = &week;
        if (!nearest) return;
        QToolTip::showText(QCursor::pos(), QStringLiteral("Week of ") +
                                               Format(nearest->weekOf, Registry().DateDisplayFormat()) +
                                               QStringLiteral(": ") + ChartParts::MoneyText(nearest->Average()) +
                                               QStringLiteral(" on average, %1 purchase(s)").arg(nearest->purchases));
    });

    QChart* old = chtCostHistory->chart();
    chtCostHistory->setChart(chart);
    delete old;
}

void frmProductCostHistory::SaveChart() {
    Trap(QStringLiteral("frmProductCostHistory.SaveChart"), [&] {
        const QString file =
            TheUi().SaveFileName(QStringLiteral("Save Chart As"), QDir::tempPath(),
                                 QStringLiteral("Windows Bitmaps (*.bmp);;PNG Pictures (*.png)"), false);
        if (file.isEmpty()) return;
        if (QFileInfo::exists(file) && MsgBox(file + QStringLiteral(" already exists, Over-write?"),
                                              Box::YesNo + Box::Question, QStringLiteral("Over-write")) != Answer::Yes)
            return;
        const char* format =
            QFileInfo(file).suffix().compare(QStringLiteral("png"), Qt::CaseInsensitive) == 0 ? "PNG" : "BMP";
        if (!chtCostHistory->grab().save(file, format))
            throw RuntimeError(QStringLiteral("The chart could not be written to ") + file + QLatin1Char('.'));
    });
}
