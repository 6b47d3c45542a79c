#pragma once

#include <climits>

#if defined(__GLIBC__)
#include <malloc.h>
#endif

/// Keeps the memory that the process once had, and asks for it by 16 MiB, which other threads would do page
/// by page: what the system takes to give new pages would look like growth, or like threads that hold each
/// other up.
inline void KeepMemory()
{
#if defined(__GLIBC__)
    mallopt(M_MMAP_MAX, 0);
    mallopt(M_TRIM_THRESHOLD, INT_MAX);
    mallopt(M_TOP_PAD, 16 << 20);
#endif
}
