#pragma once
#include <QImage>
#include <QList>
#include <QString>
#include <QStringList>

class QPagedPaintDevice;
class QPrinter;
class QTextDocument;
class QWidget;

// A printed report: a title, optional heading lines, a table of columns whose rows
// may be grouped under headings (nested, one level per grouping column), free
// paragraphs, and an optional picture. The page is laid out here: columns sized
// from their content and padded, numbers right-aligned, long texts wrapped inside
// their own column, the column header and the open group headings repeated on
// every page, the date and "Page n of m" at the foot. The HTML copy carries the
// same content for a browser to lay out.
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
    // A closing line in bold under a rule (a total).
    void AddTotal(const QStringList& cells);
    // A block of text after the table (a recipe's method, a message's body). Line
    // breaks in the text are kept.
    void AddParagraph(const QString& text, const QString& caption = QString());
    void SetPicture(const QImage& picture) { picture_ = picture; }
    // Shown at the foot of the last page.
    void SetFooter(const QString& text) { footer_ = text; }

    // The page's type size for rows (10 points unless set). With a smallest size
    // given, the page may step down towards it when that saves a page.
    void SetTypeSize(qreal points, qreal smallestPoints = 0);
    // A box to tick in front of every row.
    void SetTickBoxes(bool on) { tickBoxes_ = on; }
    // Up to `columns` newspaper columns side by side on a page, used only when
    // the table reads well at that width and it saves paper.
    void SetFlowColumns(int columns) { flowColumns_ = columns; }
    // The page may be turned sideways when that saves paper.
    void SetMayTurn(bool on) { mayTurn_ = on; }

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
    // Lays the report out on `device` and paints it; gives the number of pages.
    int Render(QPagedPaintDevice& device) const;

    // Through the program's dialog service, so tests can answer them.
    // Print: with the print dialog, or straight to the default printer. When the
    // machine has no printer the report is offered as a PDF file instead.
    // Returns true when something was printed or saved.
    bool Print(QWidget* parent, bool showDialog = true) const;
    // The on-screen preview, with its own print button.
    void Preview(QWidget* parent) const;

    struct Line {
        enum Kind { Group, Row, Total } kind;
        int level = 0;
        QStringList cells;
    };
    struct Paragraph {
        QString caption;
        QString text;
    };

private:
    friend class ReportPainter;
    QString title_;
    QStringList headings_;
    QList<Column> columns_;
    QList<Line> lines_;
    QList<Paragraph> paragraphs_;
    QImage picture_;
    QString footer_;
    int rowCount_ = 0;
    qreal typeSize_ = 10;
    qreal smallestTypeSize_ = 0;
    bool tickBoxes_ = false;
    int flowColumns_ = 1;
    bool mayTurn_ = false;
};
