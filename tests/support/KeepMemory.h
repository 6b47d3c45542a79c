#pragma once

#include <climits>

#if defined(__GLIBC__)
#include <malloc.h>
#endif

/// Keeps the memory that the process once had: asking the system for new pages, for a large result each time
/// or in each thread, would look like a cost of the library.
inline void KeepMemory()
{
#if defined(__GLIBC__)
    mallopt(M_MMAP_MAX, 0);
    mallopt(M_TRIM_THRESHOLD, INT_MAX);
    mallopt(M_TOP_PAD, 16 << 20);
#endif
}
