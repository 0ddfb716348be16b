// The program's command line, run as a process: the questions it answers
// without starting, and the options it refuses.
#include "app/Application.h"

#include <QDir>
#include <QIcon>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

struct Outcome {
    int status = -1;
    QString out;
    QString err;
};

class CommandLineTest : public ::testing::Test {
protected:
    QTemporaryDir scratch;
    // Neither may exist after a question: answering one touches no file.
    QString home = scratch.filePath("home");
    QString config = scratch.filePath("config/Larderkeep.ini");

    // `platform` "none-such" makes any attempt to open a window abort, so a
    // clean exit proves none was tried.
    Outcome Start(const QStringList& arguments, const QString& platform = "none-such") {
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert("LARDERKEEP_HOME", home);
        env.insert("LARDERKEEP_CONFIG", config);
        env.insert("QT_QPA_PLATFORM", platform);
        env.remove("DISPLAY");
        env.remove("WAYLAND_DISPLAY");
        QProcess p;
        p.setProcessEnvironment(env);
        p.start(LK_PROGRAM, arguments);
        EXPECT_TRUE(p.waitForFinished(30000)) << "larderkeep " << arguments.join(' ').toStdString();
        Outcome r;
        r.status = p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -1;
        r.out = QString::fromLocal8Bit(p.readAllStandardOutput());
        r.err = QString::fromLocal8Bit(p.readAllStandardError());
        return r;
    }

    void ExpectNothingWritten() {
        EXPECT_FALSE(QDir(home).exists()) << "the data folder was created";
        EXPECT_FALSE(QFile::exists(config)) << "the settings file was written";
    }
};

TEST_F(CommandLineTest, HelpNamesTheSwitchesTheFilesInUseAndTheEnvironment) {
    for (const char* ask : {"--help", "-h"}) {
        const Outcome r = Start({ask});
        EXPECT_EQ(r.status, 0) << ask << r.err.toStdString();
        EXPECT_TRUE(r.err.isEmpty()) << r.err.toStdString();
        EXPECT_TRUE(r.out.startsWith("Usage: larderkeep")) << r.out.toStdString();
        for (const char* word : {"/L", "/C", "/I", "--version", "LARDERKEEP_HOME", "LARDERKEEP_CONFIG",
                                 "QT_QPA_PLATFORM"})
            EXPECT_TRUE(r.out.contains(word)) << word;
        // The folders shown are this start's, as the environment sets them.
        EXPECT_TRUE(r.out.contains("data folder    " + QDir::cleanPath(home) + "\n")) << r.out.toStdString();
        EXPECT_TRUE(r.out.contains("settings file  " + config + "\n")) << r.out.toStdString();
    }
    // A question wins over a report switch on the same line.
    EXPECT_EQ(Start({"/L", "--help"}).status, 0);
    ExpectNothingWritten();
}

TEST_F(CommandLineTest, VersionIsTheBuildsOwn) {
    const Outcome r = Start({"--version"});
    EXPECT_EQ(r.status, 0) << r.err.toStdString();
    EXPECT_EQ(r.out, QString("Larderkeep %1.%2.%3\n").arg(LK_VERSION_MAJOR).arg(LK_VERSION_MINOR).arg(LK_VERSION_PATCH));
    ExpectNothingWritten();
}

TEST_F(CommandLineTest, AnUnknownOptionIsNamedAndEndsWithStatusTwo) {
    for (const QStringList& line : {QStringList{"--frobnicate"}, QStringList{"/C", "-x"}}) {
        const Outcome r = Start(line, "offscreen");
        EXPECT_EQ(r.status, 2) << line.join(' ').toStdString();
        EXPECT_TRUE(r.out.isEmpty()) << r.out.toStdString();
        EXPECT_TRUE(r.err.contains("unknown option '" + line.last() + "'")) << r.err.toStdString();
        EXPECT_TRUE(r.err.contains("--help")) << r.err.toStdString();
    }
    // Qt's own options are Qt's: only what is left over is refused.
    const Outcome r = Start({"-platform", "offscreen", "--frobnicate"}, "none-such");
    EXPECT_EQ(r.status, 2) << r.err.toStdString();
    EXPECT_TRUE(r.err.contains("unknown option '--frobnicate'")) << r.err.toStdString();
    EXPECT_FALSE(r.err.contains("'-platform'")) << r.err.toStdString();
    ExpectNothingWritten();
}

// The window, the launcher and the menu show the same picture, in every size
// the icon theme holds.
TEST(ApplicationIcon, TheWindowIconHasTheInstalledSizes) {
    const QIcon icon = QApplication::windowIcon();
    ASSERT_FALSE(icon.isNull());
    for (int size : {48, 128, 256})
        EXPECT_EQ(icon.pixmap(QSize(size, size)).size(), QSize(size, size)) << size;
    EXPECT_EQ(QGuiApplication::desktopFileName(), QString(Application::AppId));
}

}  // namespace
