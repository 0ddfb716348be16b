#include "stores/StoreMapFile.h"

#include <QFile>
#include <QStringConverter>
#include <QStringDecoder>

QString StoreMapFile::Line(const QString& store, const QString& category, const QString& isle) {
    return store.trimmed() + QLatin1Char(',') + category.trimmed() + QLatin1Char(',') + isle.trimmed() +
           QStringLiteral("\r\n");
}

namespace {

// Reads fields one after another across line ends, so a short line borrows
// from the next one: a record is three fields, wherever the lines break.
class FieldReader {
public:
    explicit FieldReader(const QString& text) : text_(text) {}

    // Past the blank lines and blanks that stand between records.
    bool AtEnd() {
        while (pos_ < text_.size() && (text_[pos_] == QLatin1Char(' ') || text_[pos_] == QLatin1Char('\t') ||
                                       text_[pos_] == QLatin1Char('\r') || text_[pos_] == QLatin1Char('\n')))
            ++pos_;
        return pos_ >= text_.size();
    }

    bool Next(QString& field) {
        while (pos_ < text_.size() && (text_[pos_] == QLatin1Char(' ') || text_[pos_] == QLatin1Char('\t'))) ++pos_;
        if (pos_ >= text_.size()) return false;
        if (text_[pos_] == QLatin1Char('"')) {
            const qsizetype close = text_.indexOf(QLatin1Char('"'), pos_ + 1);
            const qsizetype end = close < 0 ? text_.size() : close;
            field = text_.mid(pos_ + 1, end - pos_ - 1);
            pos_ = close < 0 ? text_.size() : close + 1;
            // Whatever stands between the closing quote and the delimiter is dropped.
            while (pos_ < text_.size() && !IsDelimiter(text_[pos_])) ++pos_;
        } else {
            const qsizetype start = pos_;
            while (pos_ < text_.size() && !IsDelimiter(text_[pos_])) ++pos_;
            field = text_.mid(start, pos_ - start).trimmed();
        }
        SkipDelimiter();
        return true;
    }

private:
    static bool IsDelimiter(QChar c) {
        return c == QLatin1Char(',') || c == QLatin1Char('\r') || c == QLatin1Char('\n');
    }
    void SkipDelimiter() {
        if (pos_ >= text_.size()) return;
        if (text_[pos_] == QLatin1Char('\r') && pos_ + 1 < text_.size() && text_[pos_ + 1] == QLatin1Char('\n')) ++pos_;
        ++pos_;
    }

    const QString& text_;
    qsizetype pos_ = 0;
};

bool HasControlCharacters(const QByteArray& bytes) {
    for (const char c : bytes) {
        const auto u = static_cast<unsigned char>(c);
        if (u < 32 && u != '\t' && u != '\r' && u != '\n') return true;
    }
    return false;
}

}  // namespace

bool StoreMapFile::Read(const QString& path, std::vector<Record>& records) {
    records.clear();
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return false;
    const QByteArray bytes = file.readAll();
    if (HasControlCharacters(bytes)) return false;
    // Files from other programs may not be UTF-8; their bytes are read one to a character.
    QStringDecoder utf8(QStringConverter::Utf8);
    QString text = utf8.decode(bytes);
    if (utf8.hasError()) text = QString::fromLatin1(bytes);

    FieldReader reader(text);
    while (!reader.AtEnd()) {
        Record r;
        if (!reader.Next(r.store) || !reader.Next(r.category) || !reader.Next(r.isle)) return false;
        for (const QString* f : {&r.store, &r.category, &r.isle})
            if (f->size() > kLongestField) return false;
        records.push_back(std::move(r));
    }
    return true;
}
