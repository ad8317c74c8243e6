#pragma once

#include "support/database/ScratchDatabase.h"

#include <gtest/gtest.h>

namespace tsms::test {

/// The tests of a fixture that hold the exact words or error numbers of Microsoft SQL Server, to a log-in
/// whose language is English. The engines of the tests use these words. A live server that has others skips
/// the tests and says what it is.
template <class Fixture> class InSqlServerWords : public Fixture
{
protected:
    void SetUp() override
    {
        if (!LiveServer().isEmpty()) {
            const QString version = LiveServerVersion();
            if (!SpeaksAsSqlServer(version))
                GTEST_SKIP() << "Words of Microsoft SQL Server in English; this is " << version.toStdString();
        }
        Fixture::SetUp();
    }
};

} // namespace tsms::test
