#include "support/MailCapture.h"

namespace {

class MailTest : public MailCaptureTest {};

TEST_F(MailTest, TheLinkTakesOnlyThePartsGivenInItsFixedOrder) {
    clsCommunications mail;
    EXPECT_EQ(mail.SendEmail("a@b.com", "Hi", "Body text", ""), "mailto:a@b.com?Subject=Hi&Body=Body text");
    EXPECT_EQ(mail.SendEmail("a@b.com", "", "", ""), "mailto:a@b.com");
    // No subject: the body follows with "&" and no "?".
    EXPECT_EQ(mail.SendEmail("a@b.com", "", "Just the body", ""), "mailto:a@b.com&Body=Just the body");
    EXPECT_EQ(mail.SendEmail("", "Hi", "", "/tmp/My List.slf"),
              "mailto:?Subject=Hi&Attach=\"/tmp/My%20List.slf\"");
    // Nothing is encoded: an ampersand in the subject stays as typed.
    EXPECT_EQ(mail.SendEmail("a@b.com", "Salt & pepper", "It's \"fine\"", ""),
              "mailto:a@b.com?Subject=Salt & pepper&Body=It's \"fine\"");
    EXPECT_EQ(links.size(), 5);
    EXPECT_EQ(links.last(), "mailto:a@b.com?Subject=Salt & pepper&Body=It's \"fine\"");
    EXPECT_EQ(ui.count(), 0);
}

TEST_F(MailTest, AnAddressNeedsAnAtSignAFittingCharacterAndADotAfterIt) {
    EXPECT_TRUE(clsCommunications::IsValidAddress("ann@example.com"));
    EXPECT_TRUE(clsCommunications::IsValidAddress("a@b."));
    EXPECT_TRUE(clsCommunications::IsValidAddress("@9x.y"));
    EXPECT_TRUE(clsCommunications::IsValidAddress("x@,.y"));  // the comma sits inside the character class
    EXPECT_FALSE(clsCommunications::IsValidAddress("ann@example"));
    EXPECT_FALSE(clsCommunications::IsValidAddress("ann.smith@example"));
    EXPECT_FALSE(clsCommunications::IsValidAddress("ann@.com"));
    EXPECT_FALSE(clsCommunications::IsValidAddress("ann@-x.com"));
    EXPECT_FALSE(clsCommunications::IsValidAddress("annexample.com"));
    EXPECT_FALSE(clsCommunications::IsValidAddress(""));
    EXPECT_TRUE(clsCommunications::IsValidAddress("line\nbreak@x.y"));
}

}  // namespace
