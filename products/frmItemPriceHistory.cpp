#include "products/frmItemPriceHistory.h"

#include "core/Dates.h"
#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/Values.h"
#include "core/clsRegistry.h"
#include "core/modVerify.h"
#include "platform/Recordset.h"
#include "platform/Ui.h"

#include <QChart>
#include <QChartView>
#include <QComboBox>
#include <QDateTime>
#include <QDateTimeAxis>
#include <QFont>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineSeries>
#include <QPushButton>
#include <QScatterSeries>
#include <QSplitter>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <QValueAxis>

#include <algorithm>

namespace {

enum Column { colDate, colList, colStore, colCost };

struct Point {
    QDateTime when;
    double cost;
};

// The prices as a line over the dates, with a dot at each purchase so that a
// single one shows too.
void Draw(QChart* chart, const QList<Point>& points) {
    chart->removeAllSeries();
    for (QAbstractAxis* axis : chart->axes()) {
        chart->removeAxis(axis);
        delete axis;
    }
    if (points.isEmpty()) return;

    auto* line = new QLineSeries;
    auto* dots = new QScatterSeries;
    dots->setMarkerSize(7);
    double top = 0;
    for (const Point& p : points) {
        line->append(double(p.when.toMSecsSinceEpoch()), p.cost);
        dots->append(double(p.when.toMSecsSinceEpoch()), p.cost);
        top = std::max(top, p.cost);
    }
    chart->addSeries(line);
    chart->addSeries(dots);
    // The theme colours a series as it joins the chart.
    dots->setColor(line->color());
    dots->setBorderColor(line->color());

    auto* dates = new QDateTimeAxis;
    dates->setFormat(QStringLiteral("MM/dd/yy"));
    QDateTime first = points.first().when, last = points.last().when;
    if (first == last) {
        first = first.addDays(-1);
        last = last.addDays(1);
    }
    dates->setRange(first, last);
    dates->setTickCount(std::clamp(int(points.size()), 2, 5));
    auto* prices = new QValueAxis;
    prices->setRange(0, top * 1.15);
    prices->setTickCount(5);
    prices->applyNiceNumbers();
    prices->setLabelFormat(QStringLiteral("$%.2f"));
    for (QAbstractAxis* axis : {static_cast<QAbstractAxis*>(dates), static_cast<QAbstractAxis*>(prices)}) {
        QFont small = axis->labelsFont();
        small.setPointSizeF(small.pointSizeF() * 0.85);
        axis->setLabelsFont(small);
    }
    chart->addAxis(dates, Qt::AlignBottom);
    chart->addAxis(prices, Qt::AlignLeft);
    for (QAbstractSeries* series : chart->series()) {
        series->attachAxis(dates);
        series->attachAxis(prices);
    }
}

}  // namespace

frmItemPriceHistory::frmItemPriceHistory(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmItemPriceHistory"));
    setWindowTitle(QStringLiteral("Item Price History"));

    cboManufacturer = new QComboBox(this);
    cboManufacturer->setObjectName(QStringLiteral("cboManufacturer"));
    cboManufacturer->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    cboManufacturer->setMinimumContentsLength(12);
    cboProduct = new QComboBox(this);
    cboProduct->setObjectName(QStringLiteral("cboProduct"));
    cboProduct->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    cboProduct->setMinimumContentsLength(16);
    cmdShow = new QPushButton(QStringLiteral("Show"), this);
    cmdShow->setObjectName(QStringLiteral("cmdShow"));
    auto* pick = new QHBoxLayout;
    pick->addWidget(new QLabel(QStringLiteral("Manufacturer:"), this));
    pick->addWidget(cboManufacturer, 2);
    pick->addSpacing(8);
    pick->addWidget(new QLabel(QStringLiteral("Product:"), this));
    pick->addWidget(cboProduct, 3);
    pick->addWidget(cmdShow);

    lblProduct = new QLabel(this);
    lblProduct->setObjectName(QStringLiteral("lblProduct"));
    QFont bold = lblProduct->font();
    bold.setBold(true);
    lblProduct->setFont(bold);

    lvHistory = new QTreeWidget(this);
    lvHistory->setObjectName(QStringLiteral("lvHistory"));
    lvHistory->setRootIsDecorated(false);
    lvHistory->setUniformRowHeights(true);
    lvHistory->setHeaderLabels(
        {QStringLiteral("Date"), QStringLiteral("List"), QStringLiteral("Store"), QStringLiteral("Cost")});
    lvHistory->headerItem()->setTextAlignment(colCost, Qt::AlignRight | Qt::AlignVCenter);
    QHeaderView* header = lvHistory->header();
    header->setStretchLastSection(false);
    header->setSectionResizeMode(colDate, QHeaderView::ResizeToContents);
    header->setSectionResizeMode(colList, QHeaderView::Stretch);
    header->setSectionResizeMode(colStore, QHeaderView::Stretch);
    header->setSectionResizeMode(colCost, QHeaderView::ResizeToContents);

    auto* chart = new QChart;
    chart->legend()->hide();
    chart->setMargins(QMargins(4, 4, 4, 4));
    chart->setBackgroundRoundness(0);
    chtPrices = new QChartView(chart, this);
    chtPrices->setObjectName(QStringLiteral("chtPrices"));
    chtPrices->setRenderHint(QPainter::Antialiasing);
    chtPrices->setMinimumHeight(170);

    auto* split = new QSplitter(Qt::Vertical, this);
    split->setChildrenCollapsible(false);
    split->addWidget(lvHistory);
    split->addWidget(chtPrices);
    split->setStretchFactor(0, 1);
    split->setStretchFactor(1, 1);

    cmdClose = new QPushButton(QStringLiteral("Close"), this);
    cmdClose->setObjectName(QStringLiteral("cmdClose"));
    auto* bottom = new QHBoxLayout;
    bottom->addStretch();
    bottom->addWidget(cmdClose);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(pick);
    layout->addWidget(lblProduct);
    layout->addWidget(split, 1);
    layout->addLayout(bottom);
    resize(560, 480);

    Recordset r;
    r.Open(QStringLiteral("SELECT [Manufacturer],[Name] FROM Product ORDER BY [Manufacturer],[Name]"), ConnectionMain(),
           adOpenKeyset, adLockReadOnly);
    for (; !r.IsEOF(); r.MoveNext()) {
        QStringList& names = products_[TextOf(r.Field(QStringLiteral("Manufacturer")))];
        const QString name = TextOf(r.Field(QStringLiteral("Name")));
        if (!names.contains(name)) names << name;  // one line for every size
    }
    cboManufacturer->addItems(products_.keys());
    cboManufacturer_Click();
    Clear();

    connect(cboManufacturer, &QComboBox::currentIndexChanged, this, &frmItemPriceHistory::cboManufacturer_Click);
    connect(cmdShow, &QPushButton::clicked, this, &frmItemPriceHistory::cmdShow_Click);
    connect(cmdClose, &QPushButton::clicked, this, &QDialog::accept);
}

void frmItemPriceHistory::cboManufacturer_Click() {
    cboProduct->clear();
    cboProduct->addItems(products_.value(cboManufacturer->currentText()));
    cmdShow->setEnabled(cboProduct->count() > 0);
}

void frmItemPriceHistory::cmdShow_Click() { DisplayProduct(cboProduct->currentText(), cboManufacturer->currentText()); }

void frmItemPriceHistory::Clear() {
    lblProduct->setText(QStringLiteral("Pick a manufacturer and a product, then press Show."));
    lblProduct->setEnabled(false);
    lvHistory->clear();
    Draw(chtPrices->chart(), {});
    chtPrices->hide();
}

void frmItemPriceHistory::Pick(const QString& name, const QString& manufacturer) {
    const int maker = cboManufacturer->findText(manufacturer, Qt::MatchFixedString);
    if (maker < 0) return;
    cboManufacturer->setCurrentIndex(maker);
    const int product = cboProduct->findText(name, Qt::MatchFixedString);
    if (product >= 0) cboProduct->setCurrentIndex(product);
}

bool frmItemPriceHistory::DisplayProduct(const QString& Name, const QString& Manufacturer) {
    Clear();
    Pick(Name, Manufacturer);
    return TrapTail(QStringLiteral("(Occurred in frmItemPriceHistory.DisplayProduct)"), false, [&] {
        Recordset product;
        product.Open(QStringLiteral("SELECT * FROM Product WHERE [Name] = ") + SqlText(Name) +
                         QStringLiteral(" AND [Manufacturer] = ") + SqlText(Manufacturer),
                     ConnectionMain(), adOpenKeyset, adLockReadOnly);
        if (product.IsEOF()) {
            MsgBox(Manufacturer + QStringLiteral("'s ") + Name + QStringLiteral(" was not found in the database."),
                   Box::Information, QStringLiteral("Not Found"));
            return false;
        }
        const qint32 id = CLng(product.Field(QStringLiteral("ID")));
        Recordset history;
        history.Open(QStringLiteral("SELECT * FROM SpendHistory WHERE [ItemID] = ") + QString::number(id) +
                         QStringLiteral(" AND [ItemListCost] > 0 ORDER By [ItemListDate]"),
                     ConnectionMain(), adOpenKeyset, adLockReadOnly);
        if (history.IsEOF()) {
            MsgBox(QStringLiteral("Either no Price History was found for ") + Manufacturer + QStringLiteral("'s ") +
                       Name + QStringLiteral(" or the entered Costs have a zero dollar value."),
                   Box::Information, QStringLiteral("No History"));
            return false;
        }

        const QString size = TextOf(product.Field(QStringLiteral("Size")));
        lblProduct->setText(Manufacturer + QStringLiteral("'s ") + Name +
                            (size.isEmpty() ? QString() : QStringLiteral(", ") + size));
        lblProduct->setEnabled(true);
        const QString dateFormat = Registry().DateDisplayFormat();
        QList<QTreeWidgetItem*> lines;
        QList<Point> points;
        for (; !history.IsEOF(); history.MoveNext()) {
            const QVariant when = history.Field(QStringLiteral("ItemListDate"));
            const QVariant cost = history.Field(QStringLiteral("ItemListCost"));
            auto* line = new QTreeWidgetItem(
                {Format(when, dateFormat), TextOf(history.Field(QStringLiteral("ItemListName"))),
                 TextOf(history.Field(QStringLiteral("ItemStore"))), Format(cost, QStringLiteral("#0.00"))});
            line->setTextAlignment(colCost, Qt::AlignRight | Qt::AlignVCenter);
            lines << line;
            if (!IsNull(when)) points << Point{CDate(when), CDbl(cost)};
        }
        lvHistory->addTopLevelItems(lines);
        Draw(chtPrices->chart(), points);
        chtPrices->setVisible(!points.isEmpty());
        return true;
    });
}
