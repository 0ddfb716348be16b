#include "products/ChartParts.h"

#include "core/Dates.h"
#include "core/EntryBox.h"
#include "core/Globals.h"
#include "core/Values.h"
#include "core/clsRegistry.h"
#include "platform/Clock.h"
#include "platform/Recordset.h"

#include <QChart>
#include <QComboBox>
#include <QDateEdit>
#include <QLegend>
#include <QValueAxis>

namespace ChartParts {

QDate DefaultFrom() {
    const QDateTime today(Clock::Today(), QTime());
    return DateAdd(QStringLiteral("m"), -Registry().CostHistoryMonths(), today).date();
}

QString DateLiteral(const QDate& date) {
    return QLatin1Char('#') + date.toString(QStringLiteral("M/d/yyyy")) + QLatin1Char('#');
}

QDateEdit* DateBox(QWidget* parent, const QString& objectName, const QDate& date) {
    auto* box = new QDateEdit(date, parent);
    box->setObjectName(objectName);
    box->setCalendarPopup(true);
    // The person's date format names months with "m"; the box wants "M". A
    // format without day, month and year would hide part of the span.
    QString shown = Registry().DateDisplayFormat();
    shown.replace(QLatin1Char('m'), QLatin1Char('M'));
    if (!shown.contains(QLatin1Char('d')) || !shown.contains(QLatin1Char('M')) || !shown.contains(QLatin1Char('y')))
        shown = QStringLiteral("MM/dd/yyyy");
    box->setDisplayFormat(shown);
    box->setMinimumWidth(120);
    return box;
}

QComboBox* NameBox(QWidget* parent, const QString& objectName) { return EntryBox(objectName, parent, 18); }

void FillNames(QComboBox* box, const QString& all, const QString& sql) {
    QSignalBlocker quiet(box);
    box->clear();
    box->addItem(all);
    Recordset r;
    r.Open(sql, ConnectionMain(), adOpenForwardOnly, adLockReadOnly);
    QString previous;
    for (; !r.IsEOF(); r.MoveNext()) {
        const QString name = TextOf(r.Field(QStringLiteral("Name")));
        if (name.isEmpty() || name.compare(previous, Qt::CaseInsensitive) == 0) continue;
        box->addItem(name);
        previous = name;
    }
    box->setCurrentIndex(0);
}

Currency Money(const QVariant& value) { return IsNull(value) || IsEmpty(value) ? Currency() : CCur(value); }

QString MoneyText(Currency amount) { return Format(QVariant::fromValue(amount), QStringLiteral("$#,##0.00")); }

void Dress(QChart* chart) {
    chart->setTheme(QChart::ChartThemeLight);
    chart->setAnimationOptions(QChart::NoAnimation);
    chart->legend()->setVisible(true);
    chart->legend()->setAlignment(Qt::AlignBottom);
    QFont title = chart->titleFont();
    title.setPointSizeF(title.pointSizeF() * 1.2);
    title.setBold(true);
    chart->setTitleFont(title);
}

QValueAxis* MoneyAxis(const QString& title, double largest) {
    auto* axis = new QValueAxis;
    axis->setTitleText(title);
    axis->setRange(0, largest > 0 ? largest * 1.1 : 1.0);
    axis->applyNiceNumbers();
    axis->setLabelFormat(axis->max() >= 20 ? QStringLiteral("$%.0f") : QStringLiteral("$%.2f"));
    return axis;
}

}  // namespace ChartParts
