#include "support/MailCapture.h"

using MailTest = MailCaptureTest;

TEST_F(MailTest, TheLinkTakesOnlyThePartsGivenInItsFixedOrderAndEncodesNothing) {
    clsCommunications mail;
    // No subject: the body follows with "&" and no "?"; an ampersand in the subject stays as typed.
    const QStringList expected = {
        "mailto:a@b.com?Subject=Hi&Body=Body text", "mailto:a@b.com", "mailto:a@b.com&Body=Just the body",
        "mailto:?Subject=Hi&Attach=\"/tmp/My%20List.slf\"", "mailto:a@b.com?Subject=Salt & pepper&Body=It's \"fine\""};
    const QStringList made = {mail.SendEmail("a@b.com", "Hi", "Body text", ""), mail.SendEmail("a@b.com", "", "", ""),
                              mail.SendEmail("a@b.com", "", "Just the body", ""),
                              mail.SendEmail("", "Hi", "", "/tmp/My List.slf"),
                              mail.SendEmail("a@b.com", "Salt & pepper", "It's \"fine\"", "")};
    EXPECT_EQ(made, expected);
    EXPECT_EQ(links, expected);
    EXPECT_EQ(ui.count(), 0);
}

TEST_F(MailTest, AnAddressNeedsAnAtSignAFittingCharacterAndADotAfterIt) {
    // The comma sits inside the character class.
    for (const char* good : {"ann@example.com", "a@b.", "@9x.y", "x@,.y", "line\nbreak@x.y"})
        EXPECT_TRUE(clsCommunications::IsValidAddress(good)) << good;
    for (const char* bad : {"ann@example", "ann.smith@example", "ann@.com", "ann@-x.com", "annexample.com", ""})
        EXPECT_FALSE(clsCommunications::IsValidAddress(bad)) << bad;
}
