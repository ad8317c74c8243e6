#pragma once

#include <QString>

#include <exception>

namespace tsms {

/// The numbers of the errors that the program itself raises. Numbers of database failures are in
/// store/engine/DatabaseError.h.
enum ErrorNumber : long {
    NoError = 0,
    InvalidProcedureCall = 5,
    Overflow = 6,
    SubscriptOutOfRange = 9,
    TypeMismatch = 13,
    DeviceFault = 57,
    DiskFull = 61,
    PathFileAccess = 75,
    PathNotFound = 76,
    ObjectNotSet = 91,
    InvalidFileFormat = 321,
    InvalidPropertyValue = 380,
    InvalidPropertyArrayIndex = 381,
    AutomationError = 440,
};

/// The one error type of the program: a number that handlers decide by, and words for a person.
class RuntimeError : public std::exception
{
public:
    explicit RuntimeError(long number); ///< with the standard words of that number
    RuntimeError(long number, QString description);

    long Number;
    QString Description;

    const char* what() const noexcept override { return "tsms::RuntimeError"; }
};

/// The current error: the last one that a handler caught. It stays until an operation with a handler of its
/// own is entered (see WithHandler), so a report that follows such an operation finds none.
struct CurrentError
{
    long Number = NoError;
    QString Description;

    void Clear();
};

/// The program's one current error.
CurrentError& Err();

/// Runs an operation that has an error handler of its own. The current error is cleared on entry; an error
/// raised by `body` becomes the current one and `handler` decides the result. An error raised by `handler`
/// goes to the caller.
template <class Body, class Handler> auto WithHandler(Body&& body, Handler&& handler) -> decltype(body())
{
    Err().Clear();
    try {
        return body();
    } catch (const RuntimeError& error) {
        Err().Number = error.Number;
        Err().Description = error.Description;
    }
    return handler();
}

} // namespace tsms
