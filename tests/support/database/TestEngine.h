#pragma once

namespace tsms::test {

/// By which engine the program under test reaches a test database.
enum class TestEngine {
    Embedded, ///< on the file itself
    Server,   ///< over the wire, from a server that stands before the same file
};

/// What the environment variable TSMS_TEST_ENGINE says: "server", or without it the embedded engine. Each
/// test program of a layer that works with the database runs once with either.
TestEngine ChosenTestEngine();

} // namespace tsms::test
