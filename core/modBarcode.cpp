#include "core/modBarcode.h"

#include <QClipboard>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QLabel>
#include <QPainter>
#include <QPixmap>
#include <QtMath>

QString GetManufacturerCode(const QString& barcode) { return barcode.size() >= 12 ? barcode.mid(1, 5) : QString(); }

QString Code39Pattern(int code) {
    static const QString kStartStop = QStringLiteral("1 1221");
    static const char* const kDigits[] = {"11 221", "21 112", "12 112", "22 111", "11 212",
                                          "21 211", "12 211", "11 122", "21 121", "12 121"};
    static const char* const kLetters[] = {"211 12", "121 12", "221 11", "112 12", "212 11", "122 11", "111 22",
                                           "211 21", "121 21", "112 21", "2111 2", "1211 2", "2211 1", "1121 2",
                                           "2121 1", "1221 1", "1112 2", "2112 1", "1212 1", "1122 1", "2 1112",
                                           "1 2112", "2 2111", "1 1212", "2 1211", "1 2211"};
    if (code > 'Z') code = 'Z';
    if (code == 1 || code == 2 || code == '*') return kStartStop;
    if (code >= '0' && code <= '9') return QLatin1String(kDigits[code - '0']);
    if (code >= 'A' && code <= 'Z') return QLatin1String(kLetters[code - 'A']);
    switch (code) {
    case ' ':
        return QStringLiteral("1 2121");
    case '$':
        return QStringLiteral("1 1 1 11");
    case '%':
        return QStringLiteral("11 1 1 1");
    case '+':
        return QStringLiteral("1 11 1 1");
    case '-':
        return QStringLiteral("1 1122");
    case '.':
        return QStringLiteral("2 1121");
    case '/':
        return QStringLiteral("1 1 11 1");
    default:
        return QString();  // "#", "@" and the rest draw nothing
    }
}

QImage DrawBarcode(const QString& text, QLabel* picture) {
    const QString upper = text.toUpper();
    const QSize size = picture->contentsRect().size().expandedTo(QSize(1, 1));
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::white);

    QPainter painter(&image);
    painter.setFont(picture->font());
    const QFontMetrics metrics(picture->font());
    const int textHeight = metrics.height();
    const int unit = qMax(1, qRound(size.height() / 40.0));
    const int bottom = qRound(size.height() - 1.5 * textHeight);
    const int barHeight = qMax(0, bottom);

    int x = 0;
    auto box = [&](int width, const QColor& colour) {
        painter.fillRect(x, 0, width, barHeight, colour);
        x += width;
    };
    const QString symbols = QChar(1) + upper + QChar(2);
    for (const QChar c : symbols) {
        for (const QChar element : Code39Pattern(c.unicode())) {
            if (element == QLatin1Char('1')) {
                box(unit, Qt::white);
                box(unit, Qt::black);
            } else if (element == QLatin1Char('2')) {
                box(unit, Qt::white);
                box(2 * unit, Qt::black);
            } else if (element == QLatin1Char(' ')) {
                box(unit, Qt::white);
            }
        }
    }
    box(unit, Qt::white);

    painter.setPen(Qt::black);
    const int textX = (size.width() - metrics.horizontalAdvance(upper)) / 2;
    const int textTop = qRound(bottom + 0.25 * textHeight);
    painter.drawText(textX, textTop + metrics.ascent(), upper);
    painter.end();

    picture->clear();
    picture->setPixmap(QPixmap::fromImage(image));
    QGuiApplication::clipboard()->setImage(image);
    return image;
}
