// To be loaded before a program: no file that it writes can be brought to the disk.

#include <cerrno>

extern "C" __attribute__((visibility("default"))) int fsync(int /*descriptor*/)
{
    errno = EIO;
    return -1;
}
