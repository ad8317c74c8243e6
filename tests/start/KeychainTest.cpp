// The desk's own key store: run by scripts/with-key-store, once with one and once without.
#include "tsms-start/KeychainPasswords.h"

#include "support/Words.h"

#include <gtest/gtest.h>

namespace tsms::test {

namespace {

using Outcome = PasswordStore::Outcome;

/// Skips what needs a key store where there is none, and the other way round.
class KeyStore : public ::testing::Test
{
protected:
    static bool IsThere() { return qEnvironmentVariableIsSet("TSMS_TEST_KEY_STORE"); }

    KeychainPasswords passwords_;
};

} // namespace

TEST_F(KeyStore, KeepsAPasswordUntilItIsRemoved)
{
    if (!IsThere())
        GTEST_SKIP();
    EXPECT_EQ(passwords_.Read(u"a"_q).outcome, Outcome::Missing);
    EXPECT_EQ(passwords_.Write(u"a"_q, u"p$ss \"word' 비밀"_q), Outcome::Done);
    EXPECT_EQ(passwords_.Write(u"b"_q, u"other"_q), Outcome::Done);
    const PasswordStore::Answer kept = KeychainPasswords().Read(u"a"_q);
    EXPECT_EQ(kept.outcome, Outcome::Done);
    EXPECT_EQ(kept.password, u"p$ss \"word' 비밀"_q);
    EXPECT_EQ(passwords_.Write(u"a"_q, u"newer"_q), Outcome::Done);
    EXPECT_EQ(passwords_.Read(u"a"_q).password, u"newer"_q);
    EXPECT_EQ(passwords_.Remove(u"a"_q), Outcome::Done);
    EXPECT_EQ(passwords_.Read(u"a"_q).outcome, Outcome::Missing);
    EXPECT_EQ(passwords_.Read(u"b"_q).password, u"other"_q);
}

TEST_F(KeyStore, ThatIsNotThereKeepsNothingAndSaysSo)
{
    if (IsThere())
        GTEST_SKIP();
    EXPECT_EQ(passwords_.Write(u"a"_q, u"secret"_q), Outcome::Failed);
    const PasswordStore::Answer answer = passwords_.Read(u"a"_q);
    EXPECT_EQ(answer.outcome, Outcome::Failed);
    EXPECT_EQ(answer.password, QString());
}

} // namespace tsms::test
