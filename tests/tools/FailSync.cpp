// Preloaded into a program, makes every fsync() fail.

#include <cerrno>

extern "C" __attribute__((visibility("default"))) int fsync(int /*descriptor*/)
{
    errno = EIO;
    return -1;
}
