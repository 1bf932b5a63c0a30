#pragma once

#include <csignal>
#include <sys/resource.h>

/// Stands in for a full disk: a program may be forbidden files beyond a size. Linux only.
class tcSizeLimit
{
public:
    explicit tcSizeLimit(rlim_t anBytes)
    {
        signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &mBefore);
        const rlimit tight{anBytes, mBefore.rlim_max};
        setrlimit(RLIMIT_FSIZE, &tight);
    }
    ~tcSizeLimit() { setrlimit(RLIMIT_FSIZE, &mBefore); }

private:
    rlimit mBefore{};
};
