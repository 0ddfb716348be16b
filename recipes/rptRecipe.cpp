#include "recipes/rptRecipe.h"

#include "core/Values.h"
#include "platform/Recordset.h"
#include "recipes/PackedIngredient.h"

#include <QFile>
#include <QLinearGradient>
#include <QPainter>

namespace {

QString Column(const Recordset& row, const char* name) { return TextOf(row.Field(QString::fromLatin1(name))); }

}  // namespace

void rptRecipe::Bind(const Recordset& row) {
    Title = Column(row, "Title");
    Categories = Column(row, "Style");
    Course = Column(row, "Course");
    PrepTime = Column(row, "PrepTime");
    Servings = Column(row, "Servings");
    CookbookName = Column(row, "CookbookName");
    Ingredients.clear();
    for (int i = 1; i <= PackedIngredient::LastShownSlot; ++i) {
        const QString packed = TextOf(row.Field(PackedIngredient::ColumnName(i)));
        if (!packed.isEmpty()) Ingredients << PackedIngredient::PrintLine(packed);
    }
    Instructions = Column(row, "Instructions");
}

Report rptRecipe::Build() const {
    Report report(Title);
    report.AddHeading(QStringLiteral("Categories: ") + Categories);
    report.AddHeading(QStringLiteral("Course: ") + Course);
    report.AddHeading(QStringLiteral("Prep Time: ") + PrepTime);
    report.AddHeading(QStringLiteral("Servings: ") + Servings);
    if (!CookbookName.isEmpty()) report.AddHeading(QStringLiteral("Cookbook: ") + CookbookName);
    report.SetColumns(QStringList{QStringLiteral("Ingredients")});
    // The quantity was stored right-justified; on paper the padding only
    // pushes the line away from the margin.
    for (const QString& line : Ingredients) report.AddRow({line.trimmed()});
    QString method = Instructions;
    method.replace(QLatin1Char('~'), QStringLiteral("\n"));
    report.AddParagraph(method, QStringLiteral("Directions"));
    if (!Picture.isNull()) report.SetPicture(Picture);
    return report;
}

QImage rptRecipe::Background() {
    // A packaged picture wins; otherwise a quiet card is painted.
    QImage packaged(QStringLiteral(":/images/recipebackground.png"));
    if (!packaged.isNull()) return packaged;
    QImage image(240, 180, QImage::Format_RGB32);
    QPainter p(&image);
    QLinearGradient g(0, 0, 0, image.height());
    g.setColorAt(0, QColor(0xfb, 0xf6, 0xe9));
    g.setColorAt(1, QColor(0xee, 0xe2, 0xc4));
    p.fillRect(image.rect(), g);
    p.setPen(QPen(QColor(0xc8, 0xb8, 0x90), 1));
    for (int y = 30; y < image.height(); y += 22) p.drawLine(12, y, image.width() - 12, y);
    p.setPen(QPen(QColor(0xd9, 0x8c, 0x8c), 1));
    p.drawLine(34, 8, 34, image.height() - 8);
    p.end();
    return image;
}
