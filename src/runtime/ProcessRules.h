#pragma once

namespace tsms {

/// Has what a thread keeps (thread_local) destroyed at its end before its memory is given back, in all
/// libraries of the process. The compiler's own libraries for Windows do the two in the order in which they
/// were first needed, and would first need the memory. Call it before anything else.
void EndThreadsInOrder();

/// Keeps the memory of the process to itself: the system keeps no core of it, and no other program of the
/// same user may look into it. Under Windows it is only left out of what the system reports of a crash.
/// Programs that it starts are not concerned. Call it before any secret is read.
void KeepMemoryPrivate();

/// Opens the standard streams that the caller has closed, on nothing. Otherwise the next file or connection
/// would take the place of one, and get what is written to it.
void FillStandardStreams();

/// A write to a pipe without a reader, and one beyond the size that a file may have, come back as errors and
/// do not end the process. Programs that it starts are not concerned.
void TakeWriteFaultsAsErrors();

/// Leaves on view a window of the program that waits for a server: after some seconds Windows would lay one
/// of its own over it, whose closing ends the program in the middle of its work. Nothing elsewhere.
void KeepWaitingWindows();

/// Has Qt read and write words in UTF-8, as it does anyway, without a warning at each start where the locale
/// says otherwise, and has a console of Windows show them. Call it before Qt's application is made.
void TakeWordsAsUtf8();

} // namespace tsms
