#pragma once

#include "publish/clsCommunications.h"
#include "support/TestEnv.h"

#include <QFile>
#include <QStringList>

// A test base for code that hands a mail link to the desktop: the links are
// kept in `links` instead of opening a mail program, and temporary files
// (attachments, calendar files) land in the test's home.
class MailCaptureTest : public LarderTest {
protected:
    void SetUp() override {
        LarderTest::SetUp();
        oldTmp_ = qgetenv("TMPDIR");
        qputenv("TMPDIR", QFile::encodeName(Home()));
        clsCommunications::SetLinkOpener([this](const QString& link) {
            links << link;
            return true;
        });
    }
    void TearDown() override {
        clsCommunications::SetLinkOpener({});
        qputenv("TMPDIR", oldTmp_);
        LarderTest::TearDown();
    }

    QStringList links;

private:
    QByteArray oldTmp_;
};
