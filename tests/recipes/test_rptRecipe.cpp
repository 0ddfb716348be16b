#include "core/Globals.h"
#include "recipes/clsRecipies.h"
#include "recipes/rptRecipe.h"
#include "support/Rows.h"
#include "support/TestEnv.h"

#include <QDialog>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>

class RecipeReportTest : public LarderTest {
protected:
    void SetUp() override {
        LarderTest::SetUp();
        rows::Recipe("Chili", "Soups,Quick", "General",
                     {{"Course", "Main Course"},
                      {"PrepTime", "45 mins."},
                      {"Servings", "6 Servings"},
                      {"Instructions", "Brown the meat.~Simmer <slowly> & stir."},
                      {"Ingredient1", "      2%%cup%%kidney beans%%drained"},
                      {"Ingredient2", "      1%%lb%%ground beef"},
                      {"ingredient19", "      1%%tsp%%hidden extra"}});
    }
    void TearDown() override {
        for (const QString& f : files_) QFile::remove(f);
        LarderTest::TearDown();
    }
    // Reads a temporary file and has it removed, with its picture, at the end.
    QString Take(const QString& path) {
        files_ << path << QFileInfo(path).absolutePath() + "/" + QFileInfo(path).completeBaseName() + "_picture.png";
        QFile f(path);
        return f.open(QIODevice::ReadOnly) ? QString::fromUtf8(f.readAll()) : QString();
    }
    static void SetImage(const QString& path) {
        rows::Set("SELECT [ImageFile] FROM Recipie WHERE [Title] = 'Chili'", "ImageFile", path);
    }
    QStringList files_;
};

TEST_F(RecipeReportTest, TempFileCarriesTitleDetailsIngredientsAndMethodAsHtmlOrText) {
    clsRecipies r;
    const QString path = r.CreateTempFile("Chili", "");
    ASSERT_FALSE(path.isEmpty());
    EXPECT_TRUE(QFileInfo(path).fileName().startsWith("VBN"));
    EXPECT_EQ(QFileInfo(path).absolutePath(), QFileInfo(QDir::tempPath()).absoluteFilePath());
    const QString html = Take(path);
    for (const char* part : {"<h1>Chili</h1>", "Categories: Soups,Quick", "Prep Time: 45 mins.",
                             "2 cup kidney beans drained", "1 lb ground beef", "Simmer &lt;slowly&gt; &amp; stir."})
        EXPECT_TRUE(html.contains(part)) << part;
    // Slot 19 is never printed; no picture of its own, and none is asked for.
    for (const char* part : {"%%", "hidden extra", "<img"}) EXPECT_FALSE(html.contains(part)) << part;
    // What was printed is not written back.
    EXPECT_EQ(rows::Field("Recipie", "Title", "Chili", "Ingredient1").toString(),
              "      2%%cup%%kidney beans%%drained");

    const QString text = Take(r.CreateTempFile("Chili", "txt"));
    EXPECT_TRUE(text.startsWith("Chili\r\n=====")) << text.left(40).toStdString();
    for (const char* part :
         {"Course: Main Course", "2 cup kidney beans drained", "Brown the meat.\r\nSimmer <slowly> & stir."})
        EXPECT_TRUE(text.contains(part)) << part;
    EXPECT_FALSE(text.contains("<h1>"));
    EXPECT_EQ(ui.count(), 0);
}

TEST_F(RecipeReportTest, TempFileLoadsThePictureWithoutTestingIt) {
    SetImage(HomeFile("Images/gone.jpg"));
    clsRecipies r;
    ui.answer(Answer::OK);
    EXPECT_EQ(r.CreateTempFile("Chili", ""), "");
    ASSERT_EQ(ui.count(), 1);
    EXPECT_EQ(ui.lastBox().prompt, "Error: File not found (Occurred in Recipe.CreateTempFile)");

    // A picture that is there goes into the page.
    QImage picture(32, 24, QImage::Format_RGB32);
    picture.fill(Qt::red);
    picture.save(HomeFile("chili.png"), "PNG");
    r.SetRecipeImage("Chili", HomeFile("chili.png"));
    EXPECT_TRUE(Take(r.CreateTempFile("Chili", "")).contains("<img"));
}

TEST_F(RecipeReportTest, PreviewExportsOnlyWithoutAPathAndFallsBackToTheBackground) {
    SetImage(HomeFile("missing.jpg"));
    clsRecipies r;
    // A given path is ignored: nothing is written and nothing asked.
    r.PrintPreview("Chili", 3, HomeFile("cookbook"));
    EXPECT_EQ(ui.count(), 0);
    EXPECT_TRUE(QDir(Home()).entryList({"*.htm*"}).isEmpty());

    const QString target = HomeFile("Chili.htm");
    ui.answerFile(target);
    r.PrintPreview("Chili", 3, "");
    ASSERT_EQ(ui.count(), 1);
    EXPECT_EQ(ui.lastBox().kind, "SaveFile");
    EXPECT_EQ(r.LastExportFile(), target);
    const QString html = Take(target);
    EXPECT_TRUE(html.contains("2 cup kidney beans drained"));
    EXPECT_TRUE(html.contains("<img"));  // the missing picture is replaced by the background
    EXPECT_TRUE(QFile::exists(HomeFile("Chili_picture.png")));

    bool shown = false;
    ui.answerModal([&](QDialog* d) {
        shown = d->windowTitle() == "Chili";
        return 0;
    });
    r.PrintPreview("Chili", 2, "");
    EXPECT_TRUE(shown);
    // An unknown recipe prints nothing and asks nothing.
    r.PrintPreview("Nothing", 3, "");
    EXPECT_EQ(ui.count(), 2);
}

TEST(rptRecipeLayout, BuildsHeadingsRowsAndMethodFromItsFields) {
    rptRecipe layout;
    layout.Title = "Toast";
    layout.Categories = "Quick";
    layout.Ingredients = {"      2 slice bread", "      1 T butter soft"};
    layout.Instructions = "Toast.~Butter.";
    const Report report = layout.Build();
    EXPECT_EQ(report.Title(), "Toast");
    EXPECT_EQ(report.RowCount(), 2);
    const QString text = report.ToText();
    for (const char* part : {"Categories: Quick", "2 slice bread", "Toast.\r\nButter."})
        EXPECT_TRUE(text.contains(part)) << part;
    EXPECT_FALSE(rptRecipe::Background().isNull());
}
