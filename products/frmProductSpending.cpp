#include "products/frmProductSpending.h"

#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/Values.h"
#include "core/clsRegistry.h"
#include "core/modVerify.h"
#include "platform/Clock.h"
#include "platform/Recordset.h"
#include "platform/Ui.h"
#include "products/ChartParts.h"

#include <QBarCategoryAxis>
#include <QBarSet>
#include <QChart>
#include <QChartView>
#include <QCheckBox>
#include <QComboBox>
#include <QCursor>
#include <QDateEdit>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHash>
#include <QHorizontalBarSeries>
#include <QLabel>
#include <QPushButton>
#include <QToolTip>
#include <QVBoxLayout>
#include <QValueAxis>
#include <algorithm>

namespace {

const QString kAllCategories = QStringLiteral("All Categories");
const QString kAllProducts = QStringLiteral("All Products");

// Longer names are cut on the axis; the bar's tool tip gives them whole.
constexpr int kLongestLabel = 28;

// Above this many products the spending is read in one pass over the history
// rather than product by product through the index.
constexpr int kMostLookedUp = 200;

struct Product {
    qint32 id;
    QString name;
    QString label;  // "<maker>'s <name>, <size>"
    int category;   // index into the charted categories
};

QString ProductLabel(const QString& maker, const QString& name, const QString& size) {
    QString label = maker.isEmpty() || maker.compare(QStringLiteral("Any"), Qt::CaseInsensitive) == 0
                        ? name
                        : maker + QStringLiteral("'s ") + name;
    if (!size.isEmpty()) label += QStringLiteral(", ") + size;
    return label;
}

// Each bar is named with what it stands for and the amount in dollars and
// cents. Labels must differ from one another, or the axis merges their bars.
QStringList AxisLabels(const QStringList& shortNames, const QStringList& fullNames, const QStringList& amounts) {
    QStringList labels;
    for (int i = 0; i < shortNames.size(); ++i) {
        QString label = shortNames.count(shortNames[i]) > 1 ? fullNames[i] : shortNames[i];
        if (label.size() > kLongestLabel) label = label.left(kLongestLabel - 1).trimmed() + QChar(0x2026);
        const QString base = label;
        for (int n = 2; labels.contains(label + QStringLiteral("  ") + amounts[i]); ++n)
            label = base + QStringLiteral(" (%1)").arg(n);
        labels << label + QStringLiteral("  ") + amounts[i];
    }
    return labels;
}

}  // namespace

frmProductSpending::frmProductSpending(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmProductSpending"));
    setWindowTitle(QStringLiteral("Product Spending"));

    cboCategory = ChartParts::NameBox(this, QStringLiteral("cboCategory"));
    cboProduct = ChartParts::NameBox(this, QStringLiteral("cboProduct"));
    chkAllDates = new QCheckBox(QStringLiteral("All dates"), this);
    chkAllDates->setObjectName(QStringLiteral("chkAllDates"));
    dtpFrom = ChartParts::DateBox(this, QStringLiteral("dtpFrom"), ChartParts::DefaultFrom());
    dtpTo = ChartParts::DateBox(this, QStringLiteral("dtpTo"), Clock::Today());
    cmdShow = new QPushButton(QStringLiteral("Show Spending"), this);
    cmdShow->setObjectName(QStringLiteral("cmdShow"));
    cmdShow->setDefault(true);

    auto* filters = new QGridLayout;
    filters->addWidget(new QLabel(QStringLiteral("Category:"), this), 0, 0);
    filters->addWidget(cboCategory, 0, 1);
    filters->addWidget(new QLabel(QStringLiteral("Product:"), this), 0, 2);
    filters->addWidget(cboProduct, 0, 3, 1, 3);
    filters->addWidget(new QLabel(QStringLiteral("From:"), this), 1, 0);
    filters->addWidget(dtpFrom, 1, 1);
    filters->addWidget(new QLabel(QStringLiteral("To:"), this), 1, 2);
    filters->addWidget(dtpTo, 1, 3);
    filters->addWidget(chkAllDates, 1, 4);
    filters->addWidget(cmdShow, 1, 5);
    filters->setColumnStretch(1, 1);
    filters->setColumnStretch(3, 1);

    chtSpending = new QChartView(this);
    chtSpending->setObjectName(QStringLiteral("chtSpending"));
    chtSpending->setRenderHint(QPainter::Antialiasing);
    chtSpending->setMinimumSize(480, 320);

    lblTotal = new QLabel(this);
    lblTotal->setObjectName(QStringLiteral("lblTotal"));
    QFont bold = lblTotal->font();
    bold.setBold(true);
    lblTotal->setFont(bold);
    cmdClose = new QPushButton(QStringLiteral("Close"), this);
    cmdClose->setObjectName(QStringLiteral("cmdClose"));
    auto* bottom = new QHBoxLayout;
    bottom->addWidget(lblTotal, 1);
    bottom->addWidget(cmdClose);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(filters);
    layout->addWidget(chtSpending, 1);
    layout->addLayout(bottom);
    resize(900, 600);

    LoadCategories();
    LoadProducts();

    connect(cboCategory, &QComboBox::currentIndexChanged, this, &frmProductSpending::LoadProducts);
    connect(chkAllDates, &QCheckBox::toggled, this, [this](bool all) {
        dtpFrom->setEnabled(!all);
        dtpTo->setEnabled(!all);
    });
    connect(cmdShow, &QPushButton::clicked, this, &frmProductSpending::SetChart);
    connect(cmdClose, &QPushButton::clicked, this, &QDialog::accept);

    // Opens on the whole picture; an empty history is said on the chart, not
    // in a box the person did not ask for.
    if (Gather())
        Draw(QString());
    else
        Draw(QStringLiteral("No spending recorded in these dates yet"));
}

void frmProductSpending::LoadCategories() {
    ChartParts::FillNames(cboCategory, kAllCategories, QStringLiteral("SELECT * FROM ItemCategory ORDER BY [Name]"));
}

void frmProductSpending::LoadProducts() {
    Trap(QStringLiteral("frmProductSpending.LoadProducts"), [&] {
        const QString category = cboCategory->currentText().trimmed();
        ChartParts::FillNames(cboProduct, kAllProducts,
                              category == kAllCategories
                                  ? QStringLiteral("SELECT [Name] FROM Product ORDER BY [Name]")
                                  : QStringLiteral("SELECT [Name] FROM Product WHERE [Category] = ") +
                                        SqlText(category) + QStringLiteral(" ORDER BY [Name]"));
    });
}

void frmProductSpending::SetChart() {
    if (Gather()) {
        Draw(QString());
        return;
    }
    MsgBox(QStringLiteral("No records Spending History records were found matching your selection."), Box::Information,
           QStringLiteral("No Records"));
    Draw(QStringLiteral("No spending matches these choices"));
}

// Spending is summed per product over the whole history in one grouped pass
// (or through the index for a handful of products) rather than one query per
// product: the sums are the same, and a household of thousands of products is
// charted at once.
bool frmProductSpending::Gather() {
    bars_.clear();
    const QString category = cboCategory->currentText().trimmed();
    const QString product = cboProduct->currentText().trimmed();
    const bool byCategory = category == kAllCategories && product == kAllProducts;

    QStringList categories;
    if (category == kAllCategories) {
        Recordset r;
        r.Open(QStringLiteral("SELECT * FROM ItemCategory ORDER BY [Name]"), ConnectionMain(), adOpenForwardOnly,
               adLockReadOnly);
        for (; !r.IsEOF(); r.MoveNext()) categories << TextOf(r.Field(QStringLiteral("Name")));
    } else {
        categories << category;
    }
    QHash<QString, int> categoryAt;
    for (int i = 0; i < categories.size(); ++i)
        if (!categoryAt.contains(categories[i].toLower())) categoryAt.insert(categories[i].toLower(), i);

    QList<Product> products;
    {
        Recordset r;
        r.Open(QStringLiteral("SELECT [ID],[Name],[Manufacturer],[Size],[Category] FROM Product"), ConnectionMain(),
               adOpenForwardOnly, adLockReadOnly);
        for (; !r.IsEOF(); r.MoveNext()) {
            const auto at = categoryAt.constFind(TextOf(r.Field(QStringLiteral("Category"))).toLower());
            if (at == categoryAt.constEnd()) continue;
            const QString name = TextOf(r.Field(QStringLiteral("Name")));
            if (product != kAllProducts && name.compare(product, Qt::CaseInsensitive) != 0) continue;
            products << Product{CLng(r.Field(QStringLiteral("ID"))), name,
                                ProductLabel(TextOf(r.Field(QStringLiteral("Manufacturer"))), name,
                                             TextOf(r.Field(QStringLiteral("Size")))),
                                *at};
        }
    }
    if (products.isEmpty()) return false;

    QStringList where;
    if (products.size() <= kMostLookedUp) {
        QStringList ids;
        for (const Product& p : products) ids << QString::number(p.id);
        where << QStringLiteral("[ItemID] IN (") + ids.join(QLatin1Char(',')) + QLatin1Char(')');
    }
    if (!chkAllDates->isChecked())
        where << QStringLiteral("[ItemListDate] BETWEEN ") + ChartParts::DateLiteral(dtpFrom->date()) +
                     QStringLiteral(" AND ") + ChartParts::DateLiteral(dtpTo->date());
    QString sql =
        QStringLiteral("SELECT [ItemID], SUM([ItemListCost]) AS Spent, COUNT(*) AS Purchases FROM SpendHistory");
    if (!where.isEmpty()) sql += QStringLiteral(" WHERE ") + where.join(QStringLiteral(" AND "));
    sql += QStringLiteral(" GROUP BY [ItemID]");

    struct Spent {
        Currency amount;
        int purchases = 0;
    };
    QHash<qint32, Spent> spent;
    {
        Recordset r;
        r.Open(sql, ConnectionMain(), adOpenForwardOnly, adLockReadOnly);
        for (; !r.IsEOF(); r.MoveNext())
            spent.insert(
                CLng(r.Field(QStringLiteral("ItemID"))),
                Spent{ChartParts::Money(r.Field(QStringLiteral("Spent"))), CLng(r.Field(QStringLiteral("Purchases")))});
    }

    if (byCategory) {
        QList<Bar> perCategory(categories.size());
        for (int i = 0; i < categories.size(); ++i) perCategory[i].name = perCategory[i].shortName = categories[i];
        for (const Product& p : products) {
            const Spent s = spent.value(p.id);
            perCategory[p.category].spent += s.amount;
            perCategory[p.category].purchases += s.purchases;
        }
        for (const Bar& bar : perCategory)
            if (bar.purchases > 0) bars_ << bar;
    } else {
        for (const Product& p : products) {
            const auto s = spent.constFind(p.id);
            if (s != spent.constEnd() && s->purchases > 0) bars_ << Bar{p.label, p.name, s->amount, s->purchases};
        }
    }
    if (bars_.isEmpty()) return false;

    std::stable_sort(bars_.begin(), bars_.end(), [](const Bar& a, const Bar& b) { return a.spent > b.spent; });
    if (bars_.size() > kMostBars) {
        Bar rest;
        const qsizetype others = bars_.size() - (kMostBars - 1);
        for (qsizetype i = kMostBars - 1; i < bars_.size(); ++i) {
            rest.spent += bars_[i].spent;
            rest.purchases += bars_[i].purchases;
        }
        rest.name = rest.shortName = QStringLiteral("All %1 others").arg(others);
        bars_.erase(bars_.begin() + (kMostBars - 1), bars_.end());
        bars_ << rest;
    }
    return true;
}

void frmProductSpending::Draw(const QString& emptyTitle) {
    const QString category = cboCategory->currentText().trimmed();
    const QString product = cboProduct->currentText().trimmed();
    const bool byCategory = category == kAllCategories && product == kAllProducts;
    const QString shown = Registry().DateDisplayFormat();
    const QString span = chkAllDates->isChecked()
                             ? QStringLiteral("all dates")
                             : Format(dtpFrom->date(), shown) + QStringLiteral(" to ") + Format(dtpTo->date(), shown);

    auto* chart = new QChart;
    ChartParts::Dress(chart);
    if (!emptyTitle.isEmpty())
        chart->setTitle(emptyTitle);
    else if (byCategory)
        chart->setTitle(QStringLiteral("Spending by category"));
    else if (product == kAllProducts)
        chart->setTitle(QStringLiteral("Spending on ") + category + QStringLiteral(", by product"));
    else
        chart->setTitle(QStringLiteral("Spending on ") + product);

    auto* set = new QBarSet(QStringLiteral("Spent, ") + span);
    QStringList shortNames, fullNames, amounts;
    double largest = 0;
    Currency total;
    int purchases = 0;
    // Bars are laid from the bottom up; the most spent goes on top.
    for (auto bar = bars_.crbegin(); bar != bars_.crend(); ++bar) {
        *set << bar->spent.toDouble();
        largest = qMax(largest, bar->spent.toDouble());
        total += bar->spent;
        purchases += bar->purchases;
        fullNames << bar->name;
        shortNames << bar->shortName;
        amounts << ChartParts::MoneyText(bar->spent);
    }
    auto* series = new QHorizontalBarSeries;
    series->append(set);
    series->setBarWidth(0.7);
    chart->addSeries(series);
    series_ = series;

    auto* names = new QBarCategoryAxis;
    names->append(AxisLabels(shortNames, fullNames, amounts));
    names->setTitleText(byCategory ? QStringLiteral("Category") : QStringLiteral("Product"));
    if (bars_.size() > 10) {
        // A label taller than its bar's share of the axis is shown as "...".
        QFont small = names->labelsFont();
        small.setPointSizeF(small.pointSizeF() * 0.85);
        names->setLabelsFont(small);
    }
    chart->addAxis(names, Qt::AlignLeft);
    series->attachAxis(names);
    QValueAxis* money = ChartParts::MoneyAxis(QStringLiteral("Amount spent"), largest);
    chart->addAxis(money, Qt::AlignBottom);
    series->attachAxis(money);

    connect(set, &QBarSet::hovered, this, [this](bool inside, int index) {
        if (!inside || index < 0 || index >= bars_.size()) {
            QToolTip::hideText();
            return;
        }
        const Bar& bar = bars_[bars_.size() - 1 - index];
        QToolTip::showText(QCursor::pos(), bar.name + QStringLiteral(": ") + ChartParts::MoneyText(bar.spent) +
                                               QStringLiteral(" in %1 purchase(s)").arg(bar.purchases));
    });

    lblTotal->setText(bars_.isEmpty() ? QString()
                                      : QStringLiteral("Total spent: ") + ChartParts::MoneyText(total) +
                                            QStringLiteral(" in %1 purchases, ").arg(purchases) + span);

    QChart* old = chtSpending->chart();
    chtSpending->setChart(chart);
    delete old;
}
