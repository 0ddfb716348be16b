#pragma once

#include "platform/RuntimeError.h"
#include "platform/ScriptedUi.h"

#include <QString>
#include <QTemporaryDir>
#include <functional>
#include <gtest/gtest.h>
#include <ostream>

// Failures show texts as text rather than as rows of bytes.
inline void PrintTo(const QString& text, std::ostream* os) { *os << '"' << text.toStdString() << '"'; }
inline void PrintTo(const QStringList& list, std::ostream* os) {
    *os << '{';
    for (qsizetype i = 0; i < list.size(); ++i) *os << (i ? ", \"" : "\"") << list[i].toStdString() << '"';
    *os << '}';
}

// The description of the error a call raises, or "(no error)".
inline QString ErrorOf(const std::function<void()>& call) {
    try {
        call();
    } catch (const RuntimeError& e) {
        return e.description();
    }
    return QStringLiteral("(no error)");
}

// Every test gets a program folder of its own with the starting database open as
// the main connection, its own settings file, the clock pinned to a Sunday
// morning, and a scripted message-box service that fails on any box the test
// did not expect.
class LarderTest : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    QString Home() const { return home_; }
    QString HomeFile(const QString& name) const;
    QString SettingsFile() const { return settings_; }

    // The program folder without a database open (for start-up tests).
    void CloseDatabase();

    ScriptedUi ui;
    // The last box as "Title: prompt".
    QString LastBox() const { return ui.lastBox().title + ": " + ui.lastBox().prompt; }

private:
    QTemporaryDir dir_;
    QString home_;
    QString settings_;
};

// The shared folder of real exchange files, read in place.
QString SharedTestData(const QString& relative);
