/* Preloaded into a program, it lets the n-th call of one kind fail that concerns a file below a
 * folder. TARVIK_FAULT is "kind:n:errno", TARVIK_FAULT_DIR the folder; the file
 * TARVIK_FAULT_HIT is made when the call came. Kinds: open, write, short (half of a write, then
 * the failure of the next), sync, rename. */
#define _GNU_SOURCE
#include <dlfcn.h>
#include <errno.h>
#include <fcntl.h>
#include <limits.h>
#include <stdarg.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/types.h>
#include <unistd.h>

static long count;

static int below(const char* path)
{
    const char* folder = getenv("TARVIK_FAULT_DIR");
    return folder && path && strncmp(path, folder, strlen(folder)) == 0;
}

static int belowFd(int fd)
{
    char link[64];
    char path[PATH_MAX];
    snprintf(link, sizeof link, "/proc/self/fd/%d", fd);
    const ssize_t length = readlink(link, path, sizeof path - 1);
    if (length <= 0)
        return 0;
    path[length] = '\0';
    return below(path);
}

/* 1 when this is the call that fails; errno is set. 2 for the call after it. */
static int fails(const char* kind)
{
    const char* fault = getenv("TARVIK_FAULT");
    const size_t length = strlen(kind);
    if (!fault || strncmp(fault, kind, length) != 0 || fault[length] != ':')
        return 0;
    char* rest = NULL;
    const long wanted = strtol(fault + length + 1, &rest, 10);
    const long number = ++count;
    if (number == wanted) {
        const char* hit = getenv("TARVIK_FAULT_HIT");
        int (*real)(const char*, int, ...) = dlsym(RTLD_NEXT, "open");
        if (hit)
            close(real(hit, O_CREAT | O_WRONLY, 0600));
        errno = atoi(rest + 1);
        return 1;
    }
    if (number == wanted + 1) {
        errno = atoi(rest + 1);
        return 2;
    }
    return 0;
}

#define OPEN(NAME)                                                                             \
    int NAME(const char* path, int flags, ...)                                                 \
    {                                                                                          \
        int (*real)(const char*, int, ...) = dlsym(RTLD_NEXT, #NAME);                          \
        va_list arguments;                                                                     \
        va_start(arguments, flags);                                                            \
        const int mode = va_arg(arguments, int);                                               \
        va_end(arguments);                                                                     \
        if (below(path) && (flags & O_ACCMODE) != O_RDONLY && fails("open") == 1)              \
            return -1;                                                                         \
        return real(path, flags, mode);                                                        \
    }

OPEN(open)
OPEN(open64)

ssize_t write(int fd, const void* bytes, size_t size)
{
    ssize_t (*real)(int, const void*, size_t) = dlsym(RTLD_NEXT, "write");
    if (!belowFd(fd))
        return real(fd, bytes, size);
    if (fails("write") == 1)
        return -1;
    switch (fails("short")) {
    case 1:
        return real(fd, bytes, size / 2);
    case 2:
        return -1;
    default:
        return real(fd, bytes, size);
    }
}

#define SYNC(NAME)                                                                             \
    int NAME(int fd)                                                                           \
    {                                                                                          \
        int (*real)(int) = dlsym(RTLD_NEXT, #NAME);                                            \
        return belowFd(fd) && fails("sync") == 1 ? -1 : real(fd);                              \
    }

SYNC(fsync)
SYNC(fdatasync)

int rename(const char* from, const char* to)
{
    int (*real)(const char*, const char*) = dlsym(RTLD_NEXT, "rename");
    return below(to) && fails("rename") == 1 ? -1 : real(from, to);
}

int renameat2(int fromDir, const char* from, int toDir, const char* to, unsigned flags)
{
    int (*real)(int, const char*, int, const char*, unsigned) = dlsym(RTLD_NEXT, "renameat2");
    return below(to) && fails("rename") == 1 ? -1 : real(fromDir, from, toDir, to, flags);
}
