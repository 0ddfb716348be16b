#include "platform/Report.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QFontMetricsF>
#include <QLocale>
#include <QPageLayout>
#include <QPainter>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QRegularExpression>
#include <QSaveFile>
#include <QTextDocument>
#include <QTextLayout>
#include <QUrl>

#include <algorithm>
#include <memory>
#include <numeric>

#include "platform/Clock.h"
#include "platform/Ui.h"

namespace {

const char* const kPictureName = "report-picture";

QString Escaped(const QString& text) {
    QString html = text.toHtmlEscaped();
    html.replace(QLatin1String("\r\n"), QLatin1String("<br>"));
    html.replace(QLatin1Char('\n'), QLatin1String("<br>"));
    return html;
}

QString AlignAttribute(Qt::Alignment align) {
    if (align & Qt::AlignRight) return QStringLiteral(" align=\"right\"");
    if (align & Qt::AlignHCenter) return QStringLiteral(" align=\"center\"");
    return QString();
}

bool WriteFile(const QString& path, const QByteArray& bytes) {
    const QFileInfo info(path);
    if (!info.absoluteDir().exists()) return false;
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) return false;
    if (file.write(bytes) != bytes.size()) {
        file.cancelWriting();
        return false;
    }
    return file.commit();
}

// Plain-text columns are padded to their widest cell, capped so one long cell
// does not push the rest off a printed line.
QList<int> TextWidths(const QList<Report::Column>& columns, const QList<QStringList>& rows) {
    QList<int> widths;
    for (const auto& column : columns) widths << column.caption.size();
    for (const QStringList& row : rows)
        for (int i = 0; i < row.size() && i < widths.size(); ++i)
            widths[i] = std::max(widths[i], static_cast<int>(row[i].size()));
    for (int& width : widths) width = std::min(width, 40);
    return widths;
}

QString PaddedLine(const QStringList& cells, const QList<Report::Column>& columns, const QList<int>& widths,
                   const QString& indent) {
    QStringList parts;
    for (int i = 0; i < cells.size(); ++i) {
        const int width = i < widths.size() ? widths[i] : 0;
        const bool right = i < columns.size() && (columns[i].align & Qt::AlignRight);
        parts << (right ? cells[i].rightJustified(width) : cells[i].leftJustified(width));
    }
    QString line = indent + parts.join(QLatin1String("  "));
    while (line.endsWith(QLatin1Char(' '))) line.chop(1);
    return line;
}

}  // namespace

// Lays a report out on paged paint devices. Every length is in the device's
// pixels; `u` is one typographic point.
class ReportPainter {
public:
    ReportPainter(const Report& report, QPagedPaintDevice& device) : r_(report), device_(device) {
        u_ = device.logicalDpiY() / 72.0;
        pageWidth_ = device.width();
        pageHeight_ = device.height();
    }

    // Chooses the type size and newspaper columns that take fewest pages
    // (the larger type, then the single column, on a tie) and paints.
    int Run() {
        QList<qreal> sizes{r_.typeSize_};
        if (r_.smallestTypeSize_ > 0)
            for (qreal s = r_.typeSize_ - 0.5; s >= r_.smallestTypeSize_ - 0.01; s -= 0.5) sizes << s;
        const bool flowable = r_.paragraphs_.isEmpty() && r_.picture_.isNull();
        const int flows = flowable ? std::max(1, r_.flowColumns_) : 1;
        QList<QPageLayout::Orientation> turns{device_.pageLayout().orientation()};
        if (r_.mayTurn_ && turns.first() == QPageLayout::Portrait) turns << QPageLayout::Landscape;
        Layout best;
        QPageLayout::Orientation bestTurn = turns.first();
        bool have = false;
        // Fewest pages; on a tie the larger type, then the page upright, then fewer columns.
        for (qreal size : sizes) {
            for (QPageLayout::Orientation turn : turns) {
                Turn(turn);
                for (int n = 1; n <= flows; ++n) {
                    Layout candidate;
                    if (!Plan(size, n, candidate)) continue;
                    if (!have || candidate.pages.size() < best.pages.size()) {
                        best = std::move(candidate);
                        bestTurn = turn;
                        have = true;
                    }
                }
            }
            if (have && best.pages.size() == 1) break;
        }
        Turn(bestTurn);
        if (!have) Plan(r_.typeSize_, 1, best);
        Paint(best);
        return int(best.pages.size());
    }

private:
    struct Fonts {
        QFont body, bold, group0, group1, caption, title, heading, small;
    };
    struct Item {
        enum Kind { Header, Group, Row, Total, Caption, Text, Picture, Footer } kind;
        qreal y = 0;
        qreal height = 0;
        int line = -1;  // index into the report's lines for Group/Row/Total
        int band = 0;   // odd rows are shaded
        QString text;   // groups repeated as continued, paragraph lines
        int level = 0;
    };
    struct Frame {
        qreal x = 0;
        qreal width = 0;
        QList<Item> items;
    };
    struct Page {
        QList<Frame> frames;
        bool first = false;
    };
    struct Layout {
        qreal size = 10;
        int flows = 1;
        Fonts fonts;
        QList<qreal> widths;  // table columns, the tick box not counted
        qreal tick = 0;       // width of the tick-box column
        qreal headerHeight = 0;
        qreal titleHeight = 0;
        QList<qreal> rowHeights;  // per report line
        QList<Page> pages;
    };

    void Turn(QPageLayout::Orientation turn) {
        if (device_.pageLayout().orientation() != turn) device_.setPageOrientation(turn);
        pageWidth_ = device_.width();
        pageHeight_ = device_.height();
    }

    qreal pt(qreal points) const { return points * u_; }
    qreal Pad() const { return pt(5); }
    qreal VPad(const Layout& l) const { return pt(l.size * 0.18); }
    qreal FooterHeight(const Layout& l) const { return QFontMetricsF(l.fonts.small, &device_).height() + pt(10); }
    int ColumnCount() const {
        int n = int(r_.columns_.size());
        for (const auto& line : r_.lines_)
            if (line.kind != Report::Line::Group) n = std::max(n, int(line.cells.size()));
        return n;
    }
    Qt::Alignment AlignOf(int column) const {
        return column < r_.columns_.size() ? r_.columns_[column].align : Qt::AlignLeft;
    }

    Fonts MakeFonts(qreal size) const {
        Fonts f;
        f.body = QFont(QStringLiteral("DejaVu Sans"));
        f.body.setStyleHint(QFont::SansSerif);
        // Plain letters, no ligatures: what is printed can be searched and copied.
        f.body.setStyleStrategy(QFont::PreferNoShaping);
        f.body.setPointSizeF(size);
        f.bold = f.body;
        f.bold.setBold(true);
        f.group0 = f.bold;
        f.group0.setPointSizeF(size + 2);
        f.group1 = f.bold;
        f.group1.setItalic(true);
        f.group1.setPointSizeF(std::max<qreal>(8, size - 1.5));
        f.caption = f.bold;
        f.caption.setPointSizeF(std::max<qreal>(8, size - 1));
        f.title = f.bold;
        f.title.setPointSizeF(std::max<qreal>(16, size + 8));
        f.heading = f.body;
        f.heading.setPointSizeF(std::max<qreal>(9, size));
        f.small = f.body;
        f.small.setPointSizeF(8);
        return f;
    }

    static qreal LongestWord(const QFontMetricsF& fm, const QString& text) {
        qreal longest = 0;
        for (const QString& word : text.split(QRegularExpression(QStringLiteral("\\s+")), Qt::SkipEmptyParts))
            longest = std::max(longest, fm.horizontalAdvance(word));
        return longest;
    }
    static qreal Widest(const QFontMetricsF& fm, const QString& text) {
        if (!text.contains(QLatin1Char('\n'))) return fm.horizontalAdvance(text);
        qreal widest = 0;
        for (const QString& part : text.split(QLatin1Char('\n'))) widest = std::max(widest, fm.horizontalAdvance(part));
        return widest;
    }

    // Natural widths fit when they can; otherwise the short columns keep theirs
    // and the long ones share what is left, wrapping inside it.
    QList<qreal> FitColumns(const QList<qreal>& natural, const QList<qreal>& least, qreal width) const {
        QList<qreal> widths = natural;
        const int n = int(natural.size());
        qreal total = std::accumulate(natural.begin(), natural.end(), qreal(0));
        if (n == 0) return widths;
        if (total <= width) {
            // The room left goes to the widest text column, so the table spans the page.
            int main = -1;
            for (int i = 0; i < n; ++i)
                if (!(AlignOf(i) & Qt::AlignRight) && (main < 0 || natural[i] > natural[main])) main = i;
            widths[main < 0 ? n - 1 : main] += width - total;
            return widths;
        }
        QList<bool> fixed(n, false);
        qreal left = width;
        for (bool changed = true; changed;) {
            changed = false;
            int open = 0;
            for (int i = 0; i < n; ++i) open += fixed[i] ? 0 : 1;
            if (open == 0) break;
            const qreal share = left / open;
            for (int i = 0; i < n; ++i)
                if (!fixed[i] && natural[i] <= share) {
                    fixed[i] = true;
                    left -= natural[i];
                    changed = true;
                }
        }
        qreal openNatural = 0;
        for (int i = 0; i < n; ++i)
            if (!fixed[i]) openNatural += natural[i];
        for (int i = 0; i < n; ++i) {
            if (fixed[i]) continue;
            widths[i] = std::max(least[i], left * natural[i] / openNatural);
        }
        return widths;
    }

    bool Plan(qreal size, int flows, Layout& l) const {
        l.size = size;
        l.flows = flows;
        l.fonts = MakeFonts(size);
        const QFontMetricsF body(l.fonts.body, &device_);
        const QFontMetricsF bold(l.fonts.bold, &device_);
        const QFontMetricsF caption(l.fonts.caption, &device_);
        const qreal pad = Pad();
        const qreal gutter = pt(18);
        const qreal frameWidth = (pageWidth_ - gutter * (flows - 1)) / flows;
        const int columns = ColumnCount();

        l.tick = r_.tickBoxes_ ? body.ascent() + pad * 1.5 : 0;
        QList<qreal> natural(columns, 0), least(columns, 0);
        for (int c = 0; c < columns && c < r_.columns_.size(); ++c) {
            natural[c] = Widest(caption, r_.columns_[c].caption);
            least[c] = LongestWord(caption, r_.columns_[c].caption);
        }
        for (const auto& line : r_.lines_) {
            if (line.kind == Report::Line::Group) continue;
            const QFontMetricsF& fm = line.kind == Report::Line::Total ? bold : body;
            for (int c = 0; c < line.cells.size(); ++c) {
                natural[c] = std::max(natural[c], Widest(fm, line.cells[c]));
                // A word longer than a third of the page may break.
                least[c] = std::max(least[c], std::min(LongestWord(fm, line.cells[c]), frameWidth / 3));
            }
        }
        for (int c = 0; c < columns; ++c) {
            natural[c] += 2 * pad;
            least[c] = std::min(natural[c], least[c] + 2 * pad);
        }
        l.widths = FitColumns(natural, least, frameWidth - l.tick);
        if (flows > 1) {
            // Side by side only when few lines wrap, and none into more than three.
            int rows = 0, wrapped = 0;
            for (const auto& line : r_.lines_) {
                if (line.kind != Report::Line::Row) continue;
                ++rows;
                bool wraps = false;
                for (int c = 0; c < line.cells.size() && c < l.widths.size(); ++c) {
                    const qreal room = l.widths[c] - 2 * pad;
                    const qreal need = Widest(body, line.cells[c]);
                    if (need > room * 2.7) return false;
                    wraps = wraps || need > room;
                }
                wrapped += wraps ? 1 : 0;
            }
            if (wrapped * 10 > rows * 3) return false;
        }

        // Heights of the table's lines.
        const qreal vpad = VPad(l);
        l.headerHeight = columns > 0 && !r_.columns_.isEmpty() ? caption.height() + 2 * vpad + pt(1.5) : 0;
        l.rowHeights.clear();
        for (const auto& line : r_.lines_) {
            if (line.kind == Report::Line::Group) {
                const QFontMetricsF fm(line.level == 0 ? l.fonts.group0 : l.fonts.group1, &device_);
                l.rowHeights << fm.height() + (line.level == 0 ? 3.0 : 1.4) * vpad;
                continue;
            }
            const QFontMetricsF& fm = line.kind == Report::Line::Total ? bold : body;
            qreal h = fm.height();
            for (int c = 0; c < line.cells.size() && c < l.widths.size(); ++c) {
                const qreal room = l.widths[c] - 2 * pad;
                if (Widest(fm, line.cells[c]) <= room && !line.cells[c].contains(QLatin1Char('\n'))) continue;
                h = std::max(h, fm.boundingRect(QRectF(0, 0, room, 1e9), Qt::TextWordWrap, line.cells[c]).height());
            }
            l.rowHeights << h + 2 * vpad;
        }

        // The title block of the first page.
        const QFontMetricsF title(l.fonts.title, &device_);
        const QFontMetricsF heading(l.fonts.heading, &device_);
        // The picture stands at the right of the title and its lines.
        l.titleHeight = title.height() + r_.headings_.size() * heading.lineSpacing() + pt(4);
        if (!r_.picture_.isNull()) l.titleHeight = std::max(l.titleHeight, PictureSize(l).height() + pt(4));
        l.titleHeight += pt(6);

        Paginate(l, frameWidth, gutter);
        return true;
    }

    QSizeF PictureSize(const Layout&) const {
        QSizeF size = r_.picture_.size();
        size.scale(pt(180), pt(120), Qt::KeepAspectRatio);
        if (size.width() > r_.picture_.width() * u_) size = QSizeF(r_.picture_.size()) * u_;
        return size;
    }

    void Paginate(Layout& l, qreal frameWidth, qreal gutter) const {
        l.pages.clear();
        const qreal bottom = pageHeight_ - FooterHeight(l);
        QStringList open;  // the group headings around the current row, by level
        qreal y = 0;
        int band = 0;
        auto newFrame = [&](bool repeatGroups, int upToLevel) {
            if (l.pages.isEmpty() || l.pages.last().frames.size() == l.flows) {
                l.pages << Page{};
                l.pages.last().first = l.pages.size() == 1;
            }
            Page& page = l.pages.last();
            Frame frame;
            frame.x = page.frames.size() * (frameWidth + gutter);
            frame.width = frameWidth;
            page.frames << frame;
            y = page.first ? l.titleHeight : 0;
            if (l.headerHeight > 0) {
                page.frames.last().items << Item{Item::Header, y, l.headerHeight};
                y += l.headerHeight;
            }
            if (!repeatGroups) return;
            for (int level = 0; level < upToLevel && level < open.size(); ++level) {
                Item item{Item::Group, y, 0};
                item.level = level;
                item.text = open[level] + QStringLiteral(" (continued)");
                const QFontMetricsF fm(level == 0 ? l.fonts.group0 : l.fonts.group1, &device_);
                item.height = fm.height() + (level == 0 ? 3.0 : 1.4) * VPad(l);
                page.frames.last().items << item;
                y += item.height;
            }
        };
        auto place = [&](Item item) {
            item.y = y;
            l.pages.last().frames.last().items << item;
            y += item.height;
        };
        newFrame(false, 0);

        const auto& lines = r_.lines_;
        for (int i = 0; i < lines.size(); ++i) {
            const auto& line = lines[i];
            qreal need = l.rowHeights[i];
            // A heading stays with the first row under it.
            for (int j = i; j + 1 < lines.size() && lines[j].kind == Report::Line::Group; ++j)
                need += l.rowHeights[j + 1];
            if (y + need > bottom && y > (l.pages.last().first ? l.titleHeight : 0) + l.headerHeight + 1)
                newFrame(true, line.kind == Report::Line::Group ? line.level : int(open.size()));
            Item item{line.kind == Report::Line::Group   ? Item::Group
                      : line.kind == Report::Line::Total ? Item::Total
                                                         : Item::Row,
                      0, l.rowHeights[i]};
            item.line = i;
            item.level = line.level;
            if (line.kind == Report::Line::Group) {
                while (open.size() > line.level) open.removeLast();
                while (open.size() < line.level) open << QString();
                open << line.cells.value(0);
                band = 0;
            } else {
                item.band = band++;
            }
            place(item);
        }

        // Paragraphs run across the whole width, line by line.
        const qreal width = frameWidth;
        for (const auto& paragraph : r_.paragraphs_) {
            QList<Item> block;
            if (!paragraph.caption.isEmpty()) {
                const QFontMetricsF fm(l.fonts.group0, &device_);
                Item caption{Item::Caption, 0, fm.height() + pt(8)};
                caption.text = paragraph.caption;
                block << caption;
            }
            QString text = paragraph.text;
            text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
            const QFontMetricsF fm(l.fonts.body, &device_);
            for (const QString& part : text.split(QLatin1Char('\n'))) {
                for (const QString& wrapped : WrapLine(part, l.fonts.body, width)) {
                    Item item{Item::Text, 0, fm.lineSpacing()};
                    item.text = wrapped;
                    block << item;
                }
                block.last().height += pt(3);  // a little air between the lines of the text
            }
            for (int k = 0; k < block.size(); ++k) {
                const qreal need = block[k].height +
                                   (block[k].kind == Item::Caption && k + 1 < block.size() ? block[k + 1].height : 0);
                if (y + need > bottom) newFrame(false, 0);
                place(block[k]);
            }
        }
        if (!r_.footer_.isEmpty()) {
            const QFontMetricsF fm(l.fonts.small, &device_);
            Item footer{Item::Footer, 0, fm.lineSpacing() + pt(8)};
            footer.text = r_.footer_;
            if (y + footer.height > bottom) newFrame(false, 0);
            place(footer);
        }
    }

    QStringList WrapLine(const QString& text, const QFont& font, qreal width) const {
        if (text.trimmed().isEmpty()) return {QString()};
        QTextLayout layout(text, font, &device_);
        QTextOption option;
        option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        layout.setTextOption(option);
        QStringList out;
        layout.beginLayout();
        for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
            line.setLineWidth(width);
            out << text.mid(line.textStart(), line.textLength());
        }
        layout.endLayout();
        return out;
    }

    void Paint(const Layout& l) const {
        QPainter p(&device_);
        p.setRenderHint(QPainter::Antialiasing);
        p.setRenderHint(QPainter::TextAntialiasing);
        const QString stamp = QLocale::c().toString(Clock::Today(), QStringLiteral("MMMM d, yyyy"));
        for (int n = 0; n < l.pages.size(); ++n) {
            if (n > 0) device_.newPage();
            const Page& page = l.pages[n];
            if (page.first) PaintTitle(p, l);
            for (const Frame& frame : page.frames)
                for (const Item& item : frame.items) PaintItem(p, l, frame, item);
            // The foot of every page: what it is, when, and which page.
            const qreal footTop = pageHeight_ - FooterHeight(l) + pt(6);
            p.setPen(QPen(QColor(0xaa, 0xaa, 0xaa), pt(0.5)));
            p.drawLine(QPointF(0, footTop), QPointF(pageWidth_, footTop));
            p.setFont(l.fonts.small);
            p.setPen(QColor(0x55, 0x55, 0x55));
            const QRectF foot(0, footTop + pt(3), pageWidth_, pageHeight_ - footTop);
            p.drawText(foot, Qt::AlignLeft | Qt::AlignTop, r_.title_ + QStringLiteral("  \u2022  ") + stamp);
            p.drawText(foot, Qt::AlignRight | Qt::AlignTop,
                       QStringLiteral("Page %1 of %2").arg(n + 1).arg(l.pages.size()));
        }
    }

    void PaintTitle(QPainter& p, const Layout& l) const {
        const QFontMetricsF title(l.fonts.title, &device_);
        const QFontMetricsF heading(l.fonts.heading, &device_);
        p.setPen(Qt::black);
        p.setFont(l.fonts.title);
        p.drawText(QRectF(0, 0, pageWidth_, title.height()), Qt::AlignLeft | Qt::AlignTop, r_.title_);
        qreal y = title.height();
        p.setFont(l.fonts.heading);
        p.setPen(QColor(0x44, 0x44, 0x44));
        for (const QString& line : r_.headings_) {
            p.drawText(QRectF(0, y, pageWidth_, heading.lineSpacing()), Qt::AlignLeft | Qt::AlignTop, line);
            y += heading.lineSpacing();
        }
        y += pt(4);
        if (!r_.picture_.isNull()) {
            const QSizeF size = PictureSize(l);
            p.drawImage(QRectF(QPointF(pageWidth_ - size.width(), 0), size), r_.picture_);
            y = std::max(y, size.height() + pt(4));
        }
        p.setPen(QPen(QColor(0x88, 0x88, 0x88), pt(0.75)));
        p.drawLine(QPointF(0, y), QPointF(pageWidth_, y));
    }

    void PaintCells(QPainter& p, const Layout& l, const Frame& frame, qreal y, qreal height,
                    const QStringList& cells) const {
        const qreal pad = Pad();
        const qreal vpad = VPad(l);
        qreal x = frame.x + l.tick;
        for (int c = 0; c < cells.size() && c < l.widths.size(); ++c) {
            const QRectF box(x + pad, y + vpad, l.widths[c] - 2 * pad, height - 2 * vpad);
            p.drawText(box, int(AlignOf(c) | Qt::AlignTop) | Qt::TextWordWrap, cells[c]);
            x += l.widths[c];
        }
    }

    void PaintItem(QPainter& p, const Layout& l, const Frame& frame, const Item& item) const {
        const qreal pad = Pad();
        const qreal vpad = VPad(l);
        const QRectF band(frame.x, item.y, frame.width, item.height);
        switch (item.kind) {
        case Item::Header: {
            p.setFont(l.fonts.caption);
            p.setPen(QColor(0x33, 0x33, 0x33));
            QStringList captions;
            for (const auto& column : r_.columns_) captions << column.caption;
            PaintCells(p, l, frame, item.y, item.height, captions);
            p.setPen(QPen(Qt::black, pt(1.2)));
            const qreal rule = item.y + item.height - pt(1);
            p.drawLine(QPointF(frame.x, rule), QPointF(frame.x + frame.width, rule));
            break;
        }
        case Item::Group: {
            const QString text = item.text.isEmpty() ? r_.lines_[item.line].cells.value(0) : item.text;
            if (item.level == 0) {
                const QRectF fill = band.adjusted(0, vpad * 0.8, 0, 0);
                p.fillRect(fill, QColor(0xdd, 0xe5, 0xec));
                p.setPen(QPen(QColor(0x3b, 0x5b, 0x78), pt(2)));
                p.drawLine(fill.topLeft(), fill.bottomLeft());
                p.setFont(l.fonts.group0);
                p.setPen(QColor(0x10, 0x2a, 0x43));
                p.drawText(fill.adjusted(pad, 0, -pad, 0), Qt::AlignLeft | Qt::AlignVCenter, text);
            } else {
                p.setFont(l.fonts.group1);
                p.setPen(QColor(0x33, 0x33, 0x33));
                const qreal indent = pad + pt(8) * item.level;
                p.drawText(band.adjusted(indent, vpad, -pad, -vpad * 0.5), Qt::AlignLeft | Qt::AlignBottom, text);
                p.setPen(QPen(QColor(0xbb, 0xbb, 0xbb), pt(0.5)));
                p.drawLine(QPointF(frame.x + indent, band.bottom()), QPointF(band.right(), band.bottom()));
            }
            break;
        }
        case Item::Row:
        case Item::Total: {
            const bool total = item.kind == Item::Total;
            if (!total && item.band % 2 == 1) p.fillRect(band, QColor(0xf3, 0xf3, 0xf3));
            if (total) {
                p.setPen(QPen(Qt::black, pt(0.8)));
                p.drawLine(band.topLeft() + QPointF(l.tick, 0), band.topRight());
            }
            if (r_.tickBoxes_ && !total) {
                const QFontMetricsF fm(l.fonts.body, &device_);
                const qreal side = fm.ascent() * 0.9;
                const QRectF tick(frame.x + pad, item.y + vpad + (fm.height() - side) / 2, side, side);
                p.setPen(QPen(QColor(0x22, 0x22, 0x22), pt(0.9)));
                p.setBrush(Qt::NoBrush);
                p.drawRect(tick);
            }
            p.setFont(total ? l.fonts.bold : l.fonts.body);
            p.setPen(Qt::black);
            PaintCells(p, l, frame, item.y, item.height, r_.lines_[item.line].cells);
            break;
        }
        case Item::Caption:
            p.setFont(l.fonts.group0);
            p.setPen(QColor(0x10, 0x2a, 0x43));
            p.drawText(band.adjusted(0, pt(6), 0, 0), Qt::AlignLeft | Qt::AlignTop, item.text);
            break;
        case Item::Text:
            p.setFont(l.fonts.body);
            p.setPen(Qt::black);
            p.drawText(band, Qt::AlignLeft | Qt::AlignTop, item.text);
            break;
        case Item::Footer:
            p.setFont(l.fonts.small);
            p.setPen(QColor(0x55, 0x55, 0x55));
            p.drawText(band.adjusted(0, pt(8), 0, 0), Qt::AlignLeft | Qt::AlignTop, item.text);
            break;
        case Item::Picture:
            break;
        }
    }

    const Report& r_;
    QPagedPaintDevice& device_;
    qreal u_ = 1;
    qreal pageWidth_ = 0;
    qreal pageHeight_ = 0;
};

Report::Report(const QString& title) : title_(title) {}

void Report::AddHeading(const QString& line) { headings_ << line; }

void Report::SetColumns(const QStringList& captions) {
    columns_.clear();
    for (const QString& caption : captions) columns_ << Column{caption};
}

void Report::AddGroup(const QString& heading, int level) { lines_ << Line{Line::Group, level, {heading}}; }

void Report::AddRow(const QStringList& cells) {
    lines_ << Line{Line::Row, 0, cells};
    ++rowCount_;
}

void Report::AddTotal(const QStringList& cells) { lines_ << Line{Line::Total, 0, cells}; }

void Report::SetTypeSize(qreal points, qreal smallestPoints) {
    typeSize_ = points;
    smallestTypeSize_ = smallestPoints > 0 ? std::min(points, smallestPoints) : 0;
}

void Report::AddParagraph(const QString& text, const QString& caption) { paragraphs_ << Paragraph{caption, text}; }

QString Report::ToHtml() const {
    QString html;
    html += QStringLiteral("<!DOCTYPE html>\n<html><head><meta charset=\"utf-8\"><title>%1</title>\n")
                .arg(title_.toHtmlEscaped());
    html += QStringLiteral(
                "<style>body{font-family:'DejaVu Sans',Verdana,sans-serif;font-size:%1pt;margin:1.5em;}"
                " h1{font-size:%2pt;margin-bottom:2pt;} p.heading{margin:0;color:#444;}"
                " table{border-collapse:collapse;width:100%;margin-top:8pt;}"
                " th{text-align:left;border-bottom:2px solid #000;padding:3pt 8pt;font-size:90%;}"
                " td{padding:3pt 8pt;vertical-align:top;} tr.band td{background:#f3f3f3;}"
                " td.group0{font-weight:bold;font-size:120%;padding-top:10pt;background:#dde5ec;"
                "border-left:3px solid #3b5b78;color:#102a43;}"
                " td.group1{font-weight:bold;font-style:italic;padding-top:6pt;border-bottom:1px solid #bbb;}"
                " td.tick{width:1.2em;font-size:120%;} tr.total td{font-weight:bold;border-top:1px solid #000;}"
                " h2{font-size:%3pt;margin-bottom:2pt;color:#102a43;} p.footer{color:#666;font-size:8pt;}"
                "</style>\n</head><body>\n")
                .arg(typeSize_)
                .arg(std::max<qreal>(16, typeSize_ + 8))
                .arg(typeSize_ + 2);
    html += QStringLiteral("<h1>%1</h1>\n").arg(title_.toHtmlEscaped());
    for (const QString& heading : headings_)
        html += QStringLiteral("<p class=\"heading\">%1</p>\n").arg(Escaped(heading));
    if (!picture_.isNull())
        html += QStringLiteral("<p><img src=\"%1\" width=\"%2\"></p>\n")
                    .arg(QLatin1String(kPictureName))
                    .arg(std::min(picture_.width(), 240));
    if (!columns_.isEmpty() || !lines_.isEmpty()) {
        const int span = std::max(1, static_cast<int>(columns_.size())) + (tickBoxes_ ? 1 : 0);
        html += QStringLiteral("<table cellspacing=\"0\">\n");
        if (!columns_.isEmpty()) {
            html += QStringLiteral("<tr>");
            if (tickBoxes_) html += QStringLiteral("<th></th>");
            for (const Column& column : columns_)
                html += QStringLiteral("<th%1>%2</th>").arg(AlignAttribute(column.align), Escaped(column.caption));
            html += QStringLiteral("</tr>\n");
        }
        int band = 0;
        for (const Line& line : lines_) {
            if (line.kind == Line::Group) {
                band = 0;
                html += QStringLiteral("<tr><td class=\"group%1\" colspan=\"%2\">%3%4</td></tr>\n")
                            .arg(std::min(line.level, 1))
                            .arg(span)
                            .arg(QString(line.level * 4, QChar(0xA0)), Escaped(line.cells.value(0)));
                continue;
            }
            const bool total = line.kind == Line::Total;
            html += total ? QStringLiteral("<tr class=\"total\">")
                          : (band++ % 2 ? QStringLiteral("<tr class=\"band\">") : QStringLiteral("<tr>"));
            if (tickBoxes_)
                html += total ? QStringLiteral("<td></td>") : QStringLiteral("<td class=\"tick\">\u2610</td>");
            for (int i = 0; i < line.cells.size(); ++i) {
                const Qt::Alignment align = i < columns_.size() ? columns_[i].align : Qt::AlignLeft;
                html += QStringLiteral("<td%1>%2</td>").arg(AlignAttribute(align), Escaped(line.cells[i]));
            }
            html += QStringLiteral("</tr>\n");
        }
        html += QStringLiteral("</table>\n");
    }
    for (const Paragraph& paragraph : paragraphs_) {
        if (!paragraph.caption.isEmpty()) html += QStringLiteral("<h2>%1</h2>\n").arg(Escaped(paragraph.caption));
        html += QStringLiteral("<p>%1</p>\n").arg(Escaped(paragraph.text));
    }
    if (!footer_.isEmpty()) html += QStringLiteral("<p class=\"footer\">%1</p>\n").arg(Escaped(footer_));
    html += QStringLiteral("</body></html>\n");
    return html;
}

QString Report::ToText() const {
    QStringList out;
    out << title_ << QString(title_.size(), QLatin1Char('='));
    out << headings_;
    out << QString();
    QList<QStringList> rows;
    for (const Line& line : lines_)
        if (line.kind != Line::Group) rows << line.cells;
    const QList<int> widths = TextWidths(columns_, rows);
    int depth = 0;
    for (const Line& line : lines_)
        if (line.kind == Line::Group) depth = std::max(depth, line.level + 1);
    const QString rowIndent(depth * 2, QLatin1Char(' '));
    if (!columns_.isEmpty()) {
        QStringList captions;
        for (const Column& column : columns_) captions << column.caption;
        out << PaddedLine(captions, columns_, widths, rowIndent);
    }
    for (const Line& line : lines_) {
        if (line.kind == Line::Group)
            out << QString(line.level * 2, QLatin1Char(' ')) + line.cells.value(0);
        else
            out << PaddedLine(line.cells, columns_, widths, rowIndent);
    }
    for (const Paragraph& paragraph : paragraphs_) {
        out << QString();
        if (!paragraph.caption.isEmpty()) out << paragraph.caption;
        QString text = paragraph.text;
        text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
        out << text.split(QLatin1Char('\n'));
    }
    if (!footer_.isEmpty()) out << QString() << footer_;
    return out.join(QLatin1String("\r\n")) + QLatin1String("\r\n");
}

QTextDocument* Report::ToDocument() const {
    auto* document = new QTextDocument;
    if (!picture_.isNull())
        document->addResource(QTextDocument::ImageResource, QUrl(QLatin1String(kPictureName)), picture_);
    document->setHtml(ToHtml());
    return document;
}

bool Report::SaveHtml(const QString& path) const {
    QString html = ToHtml();
    if (!picture_.isNull()) {
        // A copy on its own: the picture goes beside the page.
        const QFileInfo info(path);
        const QString pictureFile = info.completeBaseName() + QStringLiteral("_picture.png");
        if (picture_.save(info.absoluteDir().filePath(pictureFile), "PNG"))
            html.replace(QStringLiteral("src=\"%1\"").arg(QLatin1String(kPictureName)),
                         QStringLiteral("src=\"%1\"").arg(pictureFile.toHtmlEscaped()));
    }
    return WriteFile(path, html.toUtf8());
}

bool Report::SaveText(const QString& path) const { return WriteFile(path, ToText().toUtf8()); }

bool Report::SavePdf(const QString& path) const {
    if (!QFileInfo(path).absoluteDir().exists()) return false;
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(path);
    printer.setPageMargins(QMarginsF(12, 12, 12, 10), QPageLayout::Millimeter);
    PrintTo(printer);
    return QFileInfo(path).size() > 0;
}

void Report::PrintTo(QPrinter& printer) const {
    printer.setDocName(title_);
    Render(printer);
}

int Report::Render(QPagedPaintDevice& device) const { return ReportPainter(*this, device).Run(); }

bool Report::Print(QWidget* parent, bool showDialog) const {
    if (QPrinterInfo::availablePrinters().isEmpty()) {
        // No printer on this machine: a PDF is the printout.
        const QString path = TheUi().SaveFileName(QStringLiteral("Save %1 as PDF").arg(title_),
                                                  QDir::homePath() + QLatin1Char('/') + title_ + QStringLiteral(".pdf"),
                                                  QStringLiteral("PDF files (*.pdf)"));
        if (path.isEmpty()) return false;
        if (SavePdf(path)) return true;
        MsgBox(QStringLiteral("The report could not be written to %1.").arg(path), Box::Exclamation, title_);
        return false;
    }
    QPrinter printer(QPrinter::HighResolution);
    if (showDialog) {
        QPrintDialog dialog(&printer, parent);
        dialog.setPrintRange(QAbstractPrintDialog::AllPages);
        dialog.setWindowTitle(title_);
        if (TheUi().ShowModal(&dialog) != QDialog::Accepted) return false;
    }
    PrintTo(printer);
    return true;
}

void Report::Preview(QWidget* parent) const {
    QPrinter printer(QPrinter::HighResolution);
    QPrintPreviewDialog dialog(&printer, parent);
    dialog.setWindowTitle(title_);
    dialog.resize(900, 1000);
    QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, &dialog,
                     [this](QPrinter* target) { PrintTo(*target); });
    TheUi().ShowModal(&dialog);
}
