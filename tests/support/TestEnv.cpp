#include "support/TestEnv.h"

#include "core/Globals.h"
#include "core/MainPanes.h"
#include "platform/Clock.h"
#include "platform/Database.h"
#include "platform/FirstStart.h"

#include <QDir>
#include <QFile>

namespace {

// The word list is large; write it once per test program and copy it.
QString CachedDictionary() {
    static QTemporaryDir cache;
    static QString path;
    if (path.isEmpty()) {
        path = cache.filePath(QStringLiteral("dictionary.dic"));
        if (!FirstStart::WriteDictionary(path)) {
            QFile f(path);
            if (f.open(QIODevice::WriteOnly)) f.write("apple\r\nbutter\r\nsugar\r\n");
        }
    }
    return path;
}

}  // namespace

void LarderTest::SetUp() {
    ASSERT_TRUE(dir_.isValid());
    home_ = dir_.filePath(QStringLiteral("Larderkeep"));
    settings_ = dir_.filePath(QStringLiteral("Larderkeep.ini"));
    ASSERT_TRUE(QDir().mkpath(home_));
    qputenv("LARDERKEEP_HOME", QFile::encodeName(home_));
    qputenv("LARDERKEEP_CONFIG", QFile::encodeName(settings_));
    FirstStart::CreateTemplateDatabase(HomeFile(QStringLiteral("Larderkeep.mdb")));
    QFile::copy(CachedDictionary(), HomeFile(QStringLiteral("dictionary.dic")));
    ConnectionMain().Open(HomeFile(QStringLiteral("Larderkeep.mdb")));

    Clock::Pin(QDateTime(QDate(2026, 11, 22), QTime(10, 0, 0)));
    // The panes outlive a test like the program's own objects; each test starts bare.
    MainPanes::Instance().ClearAll();
    ui.onUnexpected = [](const ScriptedUi::Interaction& box) {
        ADD_FAILURE() << "Unexpected " << box.kind.toStdString() << ": \"" << box.prompt.toStdString() << "\" titled \""
                      << box.title.toStdString() << "\"";
    };
    SetUi(&ui);

    CurrentCookbook.clear();
    Response = 0;
    FormClosing = false;
    LastReportFile.clear();
    FoundCouponID = 0;
}

void LarderTest::TearDown() {
    MainPanes::Instance().ClearAll();
    ConnectionMain().Close();
    SetUi(nullptr);
    Clock::Unpin();
}

void LarderTest::CloseDatabase() { ConnectionMain().Close(); }

QString LarderTest::HomeFile(const QString& name) const { return QDir(home_).filePath(name); }

QString SharedTestData(const QString& relative) {
    return QDir(QStringLiteral(LK_SHARED_DIR "/testdata")).filePath(relative);
}
