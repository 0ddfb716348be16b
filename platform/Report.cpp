#include "platform/Report.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QPageLayout>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QSaveFile>
#include <QTextDocument>
#include <QUrl>

#include <algorithm>
#include <memory>

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

void Report::AddParagraph(const QString& text, const QString& caption) { paragraphs_ << Paragraph{caption, text}; }

QString Report::ToHtml() const {
    QString html;
    html += QStringLiteral("<!DOCTYPE html>\n<html><head><meta charset=\"utf-8\"><title>%1</title>\n")
                .arg(title_.toHtmlEscaped());
    html += QStringLiteral(
        "<style>body{font-family:sans-serif;font-size:10pt;} h1{font-size:16pt;margin-bottom:2pt;}"
        " p.heading{margin:0;color:#444;} table{border-collapse:collapse;width:100%;}"
        " th{text-align:left;border-bottom:1px solid #888;padding:2pt 6pt;}"
        " td{padding:1pt 6pt;} td.group0{font-weight:bold;padding-top:8pt;border-bottom:1px solid #ccc;}"
        " td.group1{font-style:italic;padding-top:4pt;} h2{font-size:12pt;margin-bottom:2pt;}"
        " p.footer{color:#666;font-size:8pt;}</style>\n</head><body>\n");
    html += QStringLiteral("<h1>%1</h1>\n").arg(title_.toHtmlEscaped());
    for (const QString& heading : headings_)
        html += QStringLiteral("<p class=\"heading\">%1</p>\n").arg(Escaped(heading));
    if (!picture_.isNull())
        html += QStringLiteral("<p><img src=\"%1\" width=\"%2\"></p>\n")
                    .arg(QLatin1String(kPictureName))
                    .arg(std::min(picture_.width(), 240));
    if (!columns_.isEmpty() || !lines_.isEmpty()) {
        const int span = std::max(1, static_cast<int>(columns_.size()));
        html += QStringLiteral("<table cellspacing=\"0\">\n");
        if (!columns_.isEmpty()) {
            html += QStringLiteral("<tr>");
            for (const Column& column : columns_)
                html += QStringLiteral("<th%1>%2</th>").arg(AlignAttribute(column.align), Escaped(column.caption));
            html += QStringLiteral("</tr>\n");
        }
        for (const Line& line : lines_) {
            if (line.kind == Line::Group) {
                html += QStringLiteral("<tr><td class=\"group%1\" colspan=\"%2\">%3%4</td></tr>\n")
                            .arg(std::min(line.level, 1))
                            .arg(span)
                            .arg(QString(line.level * 4, QChar(0xA0)), Escaped(line.cells.value(0)));
                continue;
            }
            html += QStringLiteral("<tr>");
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
        if (line.kind == Line::Row) rows << line.cells;
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
    printer.setDocName(title_);
    PrintTo(printer);
    return QFileInfo(path).size() > 0;
}

void Report::PrintTo(QPrinter& printer) const {
    std::unique_ptr<QTextDocument> document(ToDocument());
    printer.setDocName(title_);
    document->print(&printer);
}

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
