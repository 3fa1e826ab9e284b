#include "support/fault_injection.h"

#include <dlfcn.h>
#include <pthread.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define KL_SANITIZED 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer) || __has_feature(memory_sanitizer)
#define KL_SANITIZED 1
#endif
#endif
#ifndef KL_SANITIZED
#define KL_SANITIZED 0
#endif

namespace {

constexpr int kNever = -1;

thread_local faults::Site armed_site;
thread_local int calls_left = kNever; // before the one that fails
thread_local bool failed = false;
thread_local long blocks = 0;

} // namespace

namespace faults {

thread_local void (*before_read)() = nullptr;

bool available()
{
    return KL_SANITIZED == 0;
}

Fail::Fail(Site site, int nth)
{
    armed_site = site;
    failed = false;
    calls_left = nth;
}

Fail::~Fail()
{
    disarm();
}

bool Fail::disarm()
{
    calls_left = kNever;
    return failed;
}

long live_blocks()
{
    return blocks;
}

} // namespace faults

#if KL_SANITIZED == 0

namespace {

bool fails_now(faults::Site site)
{
    if (calls_left == kNever || site != armed_site)
        return false;
    if (calls_left-- > 0)
        return false;
    failed = true;
    return true;
}

// The block of an allocation that is not to fail.
template <typename Allocate>
void *allocated(Allocate allocate)
{
    if (fails_now(faults::Site::kAllocation)) {
        errno = ENOMEM;
        return nullptr;
    }
    void *block = allocate();
    blocks += block != nullptr ? 1 : 0;
    return block;
}

template <typename Function>
Function next(const char *name)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

} // namespace

extern "C" {

void *__libc_malloc(std::size_t size);
void *__libc_calloc(std::size_t count, std::size_t size);
void __libc_free(void *block);

void *malloc(std::size_t size) noexcept
{
    return allocated([=] { return __libc_malloc(size); });
}

void *calloc(std::size_t count, std::size_t size) noexcept
{
    return allocated([=] { return __libc_calloc(count, size); });
}

void free(void *block) noexcept
{
    if (block != nullptr)
        --blocks;
    __libc_free(block);
}

ssize_t pread(int file, void *into, std::size_t room, off_t from)
{
    static const auto real = next<ssize_t (*)(int, void *, std::size_t, off_t)>("pread");
    if (faults::before_read != nullptr)
        faults::before_read();
    return real(file, into, room, from);
}

int pthread_mutex_init(pthread_mutex_t *mutex, const pthread_mutexattr_t *attributes) noexcept
{
    static const auto real = next<int (*)(pthread_mutex_t *, const pthread_mutexattr_t *)>("pthread_mutex_init");
    return fails_now(faults::Site::kMutexInit) ? EAGAIN : real(mutex, attributes);
}

int pthread_mutex_lock(pthread_mutex_t *mutex) noexcept
{
    static const auto real = next<int (*)(pthread_mutex_t *)>("pthread_mutex_lock");
    return fails_now(faults::Site::kMutexLock) ? EINVAL : real(mutex);
}

int pthread_mutex_unlock(pthread_mutex_t *mutex) noexcept
{
    static const auto real = next<int (*)(pthread_mutex_t *)>("pthread_mutex_unlock");
    const int result = real(mutex);
    return fails_now(faults::Site::kMutexUnlock) ? EPERM : result;
}

} // extern "C"

#endif
