#pragma once

#include <climits>

#if defined(__GLIBC__)
#include <malloc.h>
#endif

/// Keeps freed memory in the process, and requests it in steps of 16 MiB, where other threads would request
/// single pages: the cost of new pages would look like growth, or like contention between threads.
inline void KeepMemory()
{
#if defined(__GLIBC__)
    mallopt(M_MMAP_MAX, 0);
    mallopt(M_TRIM_THRESHOLD, INT_MAX);
    mallopt(M_TOP_PAD, 16 << 20);
#endif
}
