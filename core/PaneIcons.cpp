#include "core/PaneIcons.h"

#include "core/MainPanes.h"

#include <QHash>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <QPolygonF>
#include <cmath>

namespace {

QPolygonF Star(QPointF centre, double outer, double inner) {
    QPolygonF p;
    for (int i = 0; i < 10; ++i) {
        const double r = i % 2 ? inner : outer;
        const double a = -M_PI / 2 + i * M_PI / 5;
        p << QPointF(centre.x() + r * std::cos(a), centre.y() + r * std::sin(a));
    }
    return p;
}

void Page(QPainter& p, const QColor& edge) {
    p.setPen(QPen(edge, 1));
    p.setBrush(Qt::white);
    p.drawRect(QRectF(3.5, 1.5, 9, 13));
    p.setPen(QPen(QColor(150, 150, 150), 1));
    for (double y = 4.5; y < 13; y += 2.5) p.drawLine(QPointF(5.5, y), QPointF(10.5, y));
}

void Ticket(QPainter& p, const QColor& fill) {
    QPainterPath path;
    path.addRoundedRect(QRectF(1.5, 4.5, 13, 8), 1.5, 1.5);
    QPainterPath notch;
    notch.addEllipse(QPointF(1.5, 8.5), 2, 2);
    notch.addEllipse(QPointF(14.5, 8.5), 2, 2);
    p.setPen(QPen(fill.darker(150), 1));
    p.setBrush(fill);
    p.drawPath(path.subtracted(notch));
    p.setPen(QPen(Qt::white, 1, Qt::DotLine));
    p.drawLine(QPointF(5.5, 5.5), QPointF(5.5, 11.5));
}

void Plate(QPainter& p) {
    p.setPen(QPen(QColor(120, 120, 120), 1));
    p.setBrush(QColor(250, 250, 250));
    p.drawEllipse(QPointF(8, 8.5), 6.5, 6.5);
    p.setBrush(QColor(225, 232, 240));
    p.drawEllipse(QPointF(8, 8.5), 4, 4);
}

void Folder(QPainter& p, const QColor& fill) {
    p.setPen(QPen(fill.darker(160), 1));
    p.setBrush(fill.darker(110));
    p.drawRect(QRectF(1.5, 3.5, 6, 3));
    p.setBrush(fill);
    p.drawRect(QRectF(1.5, 5.5, 13, 9));
}

// Every picture is drawn on a 16 by 16 grid and scaled to the size asked for.
void Draw(QPainter& p, const QString& key) {
    if (key == QLatin1String("Recipe") || key == QLatin1String("Recipe Title")) {
        Page(p, QColor(110, 110, 110));
    } else if (key == QLatin1String("RecipeFavorite")) {
        Page(p, QColor(110, 110, 110));
        p.setPen(QPen(QColor(170, 120, 0), 0.8));
        p.setBrush(QColor(255, 196, 0));
        p.drawPolygon(Star(QPointF(11, 11), 5, 2.2));
    } else if (key == QLatin1String("RecipeCompare") || key == QLatin1String("RecipeCompareFavorite")) {
        Page(p, QColor(40, 90, 170));
        p.setPen(Qt::NoPen);
        p.setBrush(key == QLatin1String("RecipeCompare") ? QColor(40, 110, 200) : QColor(255, 196, 0));
        p.drawEllipse(QPointF(11.5, 11.5), 3.5, 3.5);
    } else if (key == QLatin1String("RecipeCategory")) {
        Folder(p, QColor(240, 200, 90));
    } else if (key == QLatin1String("Recipies") || key == QLatin1String("Cookbook")) {
        p.setPen(QPen(QColor(90, 50, 20), 1));
        p.setBrush(QColor(160, 82, 45));
        p.drawRect(QRectF(2.5, 1.5, 11, 13));
        p.setBrush(QColor(245, 235, 210));
        p.drawRect(QRectF(4.5, 3.5, 7, 3));
    } else if (key == QLatin1String("Coupons") || key == QLatin1String("Coupon") || key == QLatin1String("Product")) {
        Ticket(p, QColor(60, 160, 90));
    } else if (key == QLatin1String("CouponExpire")) {
        Ticket(p, QColor(210, 60, 50));
    } else if (key == QLatin1String("Manufacturer") || key == QLatin1String("Root")) {
        p.setPen(QPen(QColor(80, 80, 90), 1));
        p.setBrush(QColor(170, 175, 190));
        QPolygonF roof;
        roof << QPointF(1.5, 14.5) << QPointF(1.5, 7.5) << QPointF(5.5, 5) << QPointF(5.5, 7.5) << QPointF(9.5, 5)
             << QPointF(9.5, 7.5) << QPointF(14.5, 4.5) << QPointF(14.5, 14.5);
        p.drawPolygon(roof);
        p.setBrush(QColor(90, 90, 100));
        p.drawRect(QRectF(6.5, 10.5, 3, 4));
    } else if (key == QLatin1String("Meal") || key == QLatin1String("Meals")) {
        Plate(p);
    } else if (key == QLatin1String("MealFavorite")) {
        Plate(p);
        p.setPen(QPen(QColor(170, 120, 0), 0.8));
        p.setBrush(QColor(255, 196, 0));
        p.drawPolygon(Star(QPointF(8, 8.5), 4, 1.8));
    } else if (key == QLatin1String("Recipie")) {
        p.setPen(Qt::NoPen);
        p.setBrush(QColor(200, 120, 60));
        p.drawEllipse(QPointF(8, 8), 3, 3);
    } else if (key == QLatin1String("Reminder")) {
        p.setPen(QPen(QColor(170, 90, 0), 1));
        p.setBrush(QColor(255, 190, 80));
        p.drawEllipse(QPointF(8, 8.5), 6.5, 6.5);
        p.setPen(QPen(QColor(90, 50, 0), 1.4));
        p.drawLine(QPointF(8, 8.5), QPointF(8, 4.5));
        p.drawLine(QPointF(8, 8.5), QPointF(11, 10));
    } else if (key == QLatin1String("Message")) {
        p.setPen(QPen(QColor(70, 90, 130), 1));
        p.setBrush(QColor(235, 240, 250));
        p.drawRect(QRectF(1.5, 3.5, 13, 9));
        p.drawLine(QPointF(1.5, 3.5), QPointF(8, 9));
        p.drawLine(QPointF(14.5, 3.5), QPointF(8, 9));
    } else if (key == QLatin1String("Item")) {
        // A plain bullet: a box here would read as a check box.
        p.setPen(Qt::NoPen);
        p.setBrush(QColor(80, 150, 90));
        p.drawEllipse(QPointF(8, 8), 2.6, 2.6);
    } else if (key == QLatin1String("Delivery")) {
        p.setPen(QPen(QColor(60, 60, 60), 1));
        p.setBrush(QColor(220, 70, 60));
        p.drawRect(QRectF(1.5, 5.5, 9, 6));
        p.setBrush(QColor(240, 240, 240));
        p.drawRect(QRectF(10.5, 7.5, 4, 4));
        p.setBrush(QColor(50, 50, 50));
        p.drawEllipse(QPointF(4.5, 12.5), 1.6, 1.6);
        p.drawEllipse(QPointF(12, 12.5), 1.6, 1.6);
    } else if (key == QLatin1String("Inventory")) {
        p.setPen(QPen(QColor(120, 80, 30), 1));
        p.setBrush(QColor(215, 170, 100));
        p.drawRect(QRectF(1.5, 8.5, 6, 6));
        p.drawRect(QRectF(8.5, 8.5, 6, 6));
        p.drawRect(QRectF(5, 2.5, 6, 6));
    } else if (key == QLatin1String("RecurringLists")) {
        p.setPen(QPen(QColor(40, 110, 170), 1.8));
        p.setBrush(Qt::NoBrush);
        p.drawArc(QRectF(3, 3, 10, 10), 30 * 16, 300 * 16);
        p.setBrush(QColor(40, 110, 170));
        p.setPen(Qt::NoPen);
        QPolygonF head;
        head << QPointF(12.5, 2) << QPointF(14.5, 7) << QPointF(9.5, 6);
        p.drawPolygon(head);
    } else if (key == QLatin1String("IsleMap")) {
        p.setPen(QPen(QColor(90, 90, 90), 1));
        p.setBrush(QColor(245, 245, 240));
        p.drawRect(QRectF(1.5, 1.5, 13, 13));
        p.setBrush(QColor(120, 160, 200));
        for (double x : {3.5, 7.0, 10.5}) p.drawRect(QRectF(x, 3.5, 2, 9));
    } else if (key == QLatin1String("ItemCategory")) {
        p.setPen(QPen(QColor(120, 60, 140), 1));
        p.setBrush(QColor(200, 150, 220));
        QPolygonF tag;
        tag << QPointF(1.5, 3.5) << QPointF(9.5, 3.5) << QPointF(14.5, 8) << QPointF(9.5, 12.5) << QPointF(1.5, 12.5);
        p.drawPolygon(tag);
        p.setBrush(Qt::white);
        p.drawEllipse(QPointF(4.5, 8), 1.3, 1.3);
    } else if (key == QLatin1String("RecipeCat")) {
        Folder(p, QColor(240, 200, 90));
        Page(p, QColor(110, 110, 110));
    } else if (key == QLatin1String("Nutrition")) {
        p.setPen(QPen(QColor(140, 20, 20), 1));
        p.setBrush(QColor(215, 45, 45));
        p.drawEllipse(QRectF(2.5, 4.5, 11, 10));
        p.setPen(QPen(QColor(90, 60, 20), 1.4));
        p.drawLine(QPointF(8, 5), QPointF(9, 1.5));
        p.setPen(Qt::NoPen);
        p.setBrush(QColor(60, 150, 60));
        p.drawEllipse(QRectF(9, 1.5, 4, 2.5));
    } else if (key == QLatin1String("ShopList")) {
        Page(p, QColor(60, 120, 60));
        p.setPen(QPen(QColor(60, 150, 60), 1.4));
        p.drawLine(QPointF(4.5, 4.5), QPointF(5.5, 5.5));
        p.drawLine(QPointF(5.5, 5.5), QPointF(7, 3.5));
    }
}

bool Known(const QString& key) {
    static const QStringList keys = {
        "Recipe",         "Recipe Title", "RecipeFavorite", "RecipeCompare",  "RecipeCompareFavorite",
        "RecipeCategory", "Recipies",     "Cookbook",       "Coupons",        "Coupon",
        "Product",        "CouponExpire", "Manufacturer",   "Root",           "Meal",
        "Meals",          "MealFavorite", "Recipie",        "Reminder",       "Message",
        "Item",           "Delivery",     "Inventory",      "RecurringLists", "IsleMap",
        "ItemCategory",   "RecipeCat",    "Nutrition",      "ShopList"};
    return keys.contains(key);
}

}  // namespace

QIcon PaneIcon(const QString& key) {
    static QHash<QString, QIcon> cache;
    const auto it = cache.constFind(key);
    if (it != cache.constEnd()) return *it;
    QIcon icon;
    if (Known(key)) {
        for (int size : {16, 24, 32, 48}) {
            QPixmap pixmap(size, size);
            pixmap.fill(Qt::transparent);
            QPainter p(&pixmap);
            p.setRenderHint(QPainter::Antialiasing);
            p.scale(size / 16.0, size / 16.0);
            Draw(p, key);
            p.end();
            icon.addPixmap(pixmap);
        }
    }
    cache.insert(key, icon);
    return icon;
}

void PaneIconDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    if (index.column() != 0) return;
    QString key = index.data(MainPanes::ImageKeyRole).toString();
    if (key.isEmpty()) key = index.data(MainPanes::TagRole).toString();
    if (key.isEmpty()) key = index.data(MainPanes::KeyRole).toString();
    const QIcon icon = PaneIcon(key);
    if (icon.isNull()) return;
    option->icon = icon;
    option->features |= QStyleOptionViewItem::HasDecoration;
    if (option->decorationSize.isEmpty()) option->decorationSize = QSize(16, 16);
}
