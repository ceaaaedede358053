#pragma once

namespace host {

/// The exit codes of the programs. Those from 64 to 74 have the numbers of sysexits.h; those above 128 are what a shell
/// shows for SIGINT and SIGPIPE.
enum class ExitCode {
    Success = 0,
    SomeFailed = 1, ///< some of several inputs failed
    Usage = 64, ///< the command line is wrong
    UnreadableInput = 65, ///< the file is not a picture, or is damaged
    MissingInput = 66, ///< the file does not exist or cannot be opened
    Unavailable = 69, ///< the face detector is not installed, or has failed
    Internal = 70, ///< the system refuses memory or threads, or the program has a fault
    CannotCreate = 73, ///< the output cannot be created
    WriteFailed = 74, ///< writing started and failed; no partial file is left
    Interrupted = 130, ///< a signal asked the program to end
    ClosedPipe = 141, ///< nobody reads standard output any more; the program ends without a message
};

} // namespace host
