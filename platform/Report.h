#pragma once
#include <QImage>
#include <QList>
#include <QString>
#include <QStringList>

class QPrinter;
class QTextDocument;
class QWidget;

// A printed report: a title, optional heading lines, a table of columns whose rows
// may be grouped under headings (nested, one level per grouping column), free
// paragraphs, and an optional picture. Everything renders through one HTML text, so
// the printout, the preview, the PDF and the HTML copy always agree.
class Report {
public:
    struct Column {
        QString caption;
        Qt::Alignment align = Qt::AlignLeft;
    };

    explicit Report(const QString& title = QString());

    QString Title() const { return title_; }
    void SetTitle(const QString& title) { title_ = title; }
    // A line under the title (a date, a store's name).
    void AddHeading(const QString& line);
    void SetColumns(const QList<Column>& columns) { columns_ = columns; }
    void SetColumns(const QStringList& captions);
    // Starts a group at `level` (0 outermost); rows added after it belong to it.
    void AddGroup(const QString& heading, int level = 0);
    void AddRow(const QStringList& cells);
    // A block of text after the table (a recipe's method, a message's body). Line
    // breaks in the text are kept.
    void AddParagraph(const QString& text, const QString& caption = QString());
    void SetPicture(const QImage& picture) { picture_ = picture; }
    // Shown at the foot of the last page.
    void SetFooter(const QString& text) { footer_ = text; }

    int RowCount() const { return rowCount_; }
    bool IsEmpty() const { return rowCount_ == 0 && paragraphs_.isEmpty(); }

    QString ToHtml() const;
    QString ToText() const;
    // The caller owns the document; the picture is attached as a resource.
    QTextDocument* ToDocument() const;

    // Exports; false when the file could not be written.
    bool SaveHtml(const QString& path) const;
    bool SaveText(const QString& path) const;
    bool SavePdf(const QString& path) const;
    void PrintTo(QPrinter& printer) const;

    // Through the program's dialog service, so tests can answer them.
    // Print: with the print dialog, or straight to the default printer. When the
    // machine has no printer the report is offered as a PDF file instead.
    // Returns true when something was printed or saved.
    bool Print(QWidget* parent, bool showDialog = true) const;
    // The on-screen preview, with its own print button.
    void Preview(QWidget* parent) const;

private:
    struct Line {
        enum Kind { Group, Row } kind;
        int level = 0;
        QStringList cells;
    };
    struct Paragraph {
        QString caption;
        QString text;
    };
    QString title_;
    QStringList headings_;
    QList<Column> columns_;
    QList<Line> lines_;
    QList<Paragraph> paragraphs_;
    QImage picture_;
    QString footer_;
    int rowCount_ = 0;
};
