#pragma once

#include <QLibrary>

namespace tsms {

/// Looks up a routine of a library that is loaded while the program runs. False when it is not there.
template <class Routine> bool Resolve(QLibrary& library, const char* name, Routine& into)
{
    into = reinterpret_cast<Routine>(library.resolve(name));
    return into != nullptr;
}

} // namespace tsms
