#include "core/Globals.h"
#include "recipes/RecipeTestRows.h"
#include "recipes/clsRecipies.h"
#include "recipes/rptRecipe.h"
#include "support/TestEnv.h"

#include <QDialog>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>

namespace {

class RecipeReportTest : public LarderTest {
protected:
    void SetUp() override {
        LarderTest::SetUp();
        RecipeRow chili = Recipe("Chili", "Soups,Quick");
        chili.course = "Main Course";
        chili.prep = "45 mins.";
        chili.servings = "6 Servings";
        chili.instructions = "Brown the meat.~Simmer <slowly> & stir.";
        chili.packed[1] = "      2%%cup%%kidney beans%%drained";
        chili.packed[2] = "      1%%lb%%ground beef";
        chili.packed[19] = "      1%%tsp%%hidden extra";
        AddRecipe(chili);
    }

    static QString Read(const QString& path) {
        QFile f(path);
        if (!f.open(QIODevice::ReadOnly)) return QString();
        return QString::fromUtf8(f.readAll());
    }

    QStringList files_;
    void TearDown() override {
        for (const QString& f : files_) QFile::remove(f);
        LarderTest::TearDown();
    }
};

}  // namespace

TEST_F(RecipeReportTest, TempFileAsHtmlCarriesTitleDetailsIngredientsAndMethod) {
    clsRecipies r;
    const QString path = r.CreateTempFile("Chili", "");
    files_ << path << QFileInfo(path).absolutePath() + "/" + QFileInfo(path).completeBaseName() + "_picture.png";
    ASSERT_FALSE(path.isEmpty());
    EXPECT_TRUE(QFileInfo(path).fileName().startsWith("VBN"));
    EXPECT_EQ(QFileInfo(path).absolutePath(), QFileInfo(QDir::tempPath()).absoluteFilePath());
    const QString html = Read(path);
    EXPECT_TRUE(html.contains("<h1>Chili</h1>"));
    EXPECT_TRUE(html.contains("Categories: Soups,Quick"));
    EXPECT_TRUE(html.contains("Prep Time: 45 mins."));
    EXPECT_TRUE(html.contains("2 cup kidney beans drained"));
    EXPECT_TRUE(html.contains("1 lb ground beef"));
    EXPECT_FALSE(html.contains("%%"));
    EXPECT_FALSE(html.contains("hidden extra"));  // slot 19 is never printed
    EXPECT_TRUE(html.contains("Simmer &lt;slowly&gt; &amp; stir."));
    EXPECT_FALSE(html.contains("<img"));  // no picture of its own, and none is asked for
    // What was printed is not written back.
    EXPECT_EQ(RecipeValue("Chili", "Ingredient1").toString(), "      2%%cup%%kidney beans%%drained");
    EXPECT_EQ(ui.count(), 0);
}

TEST_F(RecipeReportTest, TempFileAsTextWhenASelectorIsGiven) {
    clsRecipies r;
    const QString path = r.CreateTempFile("Chili", "txt");
    files_ << path;
    const QString text = Read(path);
    EXPECT_TRUE(text.startsWith("Chili\r\n=====")) << text.left(40).toStdString();
    EXPECT_TRUE(text.contains("Course: Main Course"));
    EXPECT_TRUE(text.contains("2 cup kidney beans drained"));
    EXPECT_TRUE(text.contains("Brown the meat.\r\nSimmer <slowly> & stir."));
    EXPECT_FALSE(text.contains("<h1>"));
}

TEST_F(RecipeReportTest, TempFileLoadsThePictureWithoutTestingIt) {
    Recordset rs;
    rs.Open("SELECT [ImageFile] FROM Recipie WHERE [Title] = 'Chili'", ConnectionMain(), adOpenKeyset,
            adLockOptimistic);
    rs.setField("ImageFile", HomeFile("Images/gone.jpg"));
    rs.Update();
    rs.Close();
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
    const QString path = r.CreateTempFile("Chili", "");
    files_ << path << QFileInfo(path).absolutePath() + "/" + QFileInfo(path).completeBaseName() + "_picture.png";
    EXPECT_TRUE(Read(path).contains("<img"));
}

TEST_F(RecipeReportTest, PreviewExportsOnlyWithoutAPathAndFallsBackToTheBackground) {
    Recordset rs;
    rs.Open("SELECT [ImageFile] FROM Recipie WHERE [Title] = 'Chili'", ConnectionMain(), adOpenKeyset,
            adLockOptimistic);
    rs.setField("ImageFile", HomeFile("missing.jpg"));
    rs.Update();
    rs.Close();

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
    const QString html = Read(target);
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
    EXPECT_TRUE(text.contains("Categories: Quick"));
    EXPECT_TRUE(text.contains("2 slice bread"));
    EXPECT_TRUE(text.contains("Toast.\r\nButter."));
    EXPECT_FALSE(rptRecipe::Background().isNull());
}
