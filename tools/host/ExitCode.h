#pragma once

namespace host {

/// The exit codes of the programs; the numbers are those of sysexits.h.
enum class ExitCode {
    Success = 0,
    SomeFailed = 1, ///< some of several inputs failed
    Usage = 64, ///< the command line is wrong
    UnreadableInput = 65, ///< the file is not a picture, or a damaged one
    MissingInput = 66, ///< the file does not exist or must not be opened
    Internal = 70, ///< the system refuses memory or threads, or a fault of the program itself
    CannotCreate = 73, ///< the output cannot be created
    WriteFailed = 74, ///< writing began and failed; nothing is left behind
    Interrupted = 130, ///< a signal asked the program to end
    ClosedPipe = 141, ///< nobody reads standard output any more; a program says nothing of it
};

} // namespace host
