// For the thread sanitizer alone: QProcess clones a child that shares this program's memory until it becomes another
// program, and what the child does there the sanitizer takes for this thread's; it loses its locks, then. Here a child
// gets memory of its own.
#include <sched.h>

#include <cstdarg>

#include <dlfcn.h>

extern "C" int clone(int (*work)(void*), void* stack, int flags, void* argument, ...)
{
    using Clone = int (*)(int (*)(void*), void*, int, void*, ...);
    static const auto real = reinterpret_cast<Clone>(dlsym(RTLD_NEXT, "clone"));
    va_list rest;
    va_start(rest, argument);
    void* const parentId = va_arg(rest, void*);
    void* const storage = va_arg(rest, void*);
    void* const childId = va_arg(rest, void*);
    va_end(rest);
    return real(work, stack, flags & ~(CLONE_VM | CLONE_VFORK), argument, parentId, storage, childId);
}
