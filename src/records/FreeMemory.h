#pragma once

#include <QtGlobal>
#ifdef __GLIBC__
#include <malloc.h>
#endif

/// Gives the system back what large work has left free. Without it the allocator keeps the room of texts that
/// came and went in many forms. Takes some milliseconds; any thread.
inline void giveBackFreeMemory() {
#ifdef __GLIBC__
    malloc_trim(0);
#endif
}
