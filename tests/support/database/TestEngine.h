#pragma once

namespace tsms::test {

/// By which engine the program under test reaches a test database.
enum class TestEngine {
    Embedded, ///< on the file itself
    Server,   ///< over the wire, from a server that stands before the same file
    Live,     ///< a scratch database on a real server, which TSMS_TEST_SERVER names
};

/// What the environment variable TSMS_TEST_ENGINE says: "server" or "live", or without it the embedded
/// engine. Each test program of a layer that works with the database runs once with either of the first two.
TestEngine ChosenTestEngine();

} // namespace tsms::test
