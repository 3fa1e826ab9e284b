// Memory and locks that fail on demand. An executable that lists fault_injection.cpp among its sources takes the place
// of the C library's functions, for itself and for every shared library it loads. Sanitizers do the same, so there the
// functions stay theirs: begin a test with SKIP_WITHOUT_FAULTS().
#ifndef KL_TESTS_SUPPORT_FAULT_INJECTION_H
#define KL_TESTS_SUPPORT_FAULT_INJECTION_H

#include <gtest/gtest.h>

namespace faults {

bool available();

enum class Site { kAllocation, kMutexInit, kMutexLock, kMutexUnlock };

// Makes one call of a site fail: the nth from now on (0 the next) on this thread. A mutex whose unlocking "fails" is
// unlocked all the same, so that nothing hangs. One at a time; disarm before checking anything.
class Fail {
public:
    explicit Fail(Site site, int nth = 0);
    ~Fail();
    Fail(const Fail &) = delete;
    Fail &operator=(const Fail &) = delete;

    // No more failures; true when the failure has happened.
    bool disarm();
};

// Called on this thread before each reading of a file, while it is not null.
extern thread_local void (*before_read)();

// Blocks that this thread has allocated and not freed.
long live_blocks();

} // namespace faults

#define SKIP_WITHOUT_FAULTS()                                                                                          \
    if (!faults::available())                                                                                          \
    GTEST_SKIP() << "no failures on demand under a sanitizer"

#endif
