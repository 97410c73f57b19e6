// Sleeping takes no time: the pages wait for a controller of iron. The program's own bodies go
// before those of the C library.

#include <ctime>

extern "C" {

[[gnu::visibility("default")]] int nanosleep(const timespec*, timespec*)
{
    return 0;
}

[[gnu::visibility("default")]] int clock_nanosleep(clockid_t, int, const timespec*, timespec*)
{
    return 0;
}

} // extern "C"
