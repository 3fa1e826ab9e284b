// Reading of files.
#include "time/files/disk.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace time_files {

namespace {

constexpr std::size_t kLargest = std::size_t{64} << 20;
constexpr std::size_t kEnds = std::size_t{64} << 10; // of a long SP3

class Descriptor {
public:
    explicit Descriptor(int number) : number_(number) {}
    ~Descriptor()
    {
        if (number_ >= 0)
            close(number_);
    }
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;

    // Up to `room` bytes from a place on, fewer at the end of the file; false when they cannot be read.
    bool read(off_t from, char *into, std::size_t room, std::size_t *count) const
    {
        *count = 0;
        while (*count < room) {
            const ssize_t n = pread(number_, into + *count, room - *count, from + static_cast<off_t>(*count));
            if (n < 0 && errno == EINTR)
                continue;
            if (n < 0)
                return false;
            if (n == 0)
                break;
            *count += static_cast<std::size_t>(n);
        }
        return true;
    }
    int number() const { return number_; }

private:
    int number_;
};

// Exactly these bytes.
bool take(const Descriptor &file, std::size_t from, std::size_t length, Buffer<char> *bytes)
{
    const std::size_t had = bytes->size();
    std::size_t count = 0;
    bytes->lengthen(length);
    return file.read(static_cast<off_t>(from), bytes->begin() + had, length, &count) && count == length;
}

} // namespace

DiskFault read_file(const char *name, FileBytes *file)
{
    // A pipe without a writer would block an open that waits.
    const Descriptor descriptor(name != nullptr ? open(name, O_RDONLY | O_NONBLOCK | O_CLOEXEC) : -1);
    struct stat status = {};
    if (descriptor.number() < 0 || fstat(descriptor.number(), &status) != 0 || !S_ISREG(status.st_mode)
        || status.st_size <= 0)
        return DiskFault::unreadable;
    const auto size = static_cast<std::size_t>(status.st_size);
    Buffer<char> &bytes = file->bytes;

    if (size > 2 * kEnds) { // long enough to be shortened, if it is an SP3
        if (!bytes.reserve(2 * kEnds))
            return DiskFault::no_memory;
        if (!take(descriptor, 0, kEnds, &bytes))
            return DiskFault::unreadable;
        if (recognised({bytes.begin(), bytes.size()}) == Format::sp3) {
            if (!take(descriptor, size - kEnds, kEnds, &bytes))
                return DiskFault::unreadable;
            const std::string_view all(bytes.begin(), bytes.size());
            const std::size_t last_lf = all.substr(0, kEnds).rfind('\n');
            const std::size_t lf = all.find('\n', kEnds);
            file->cut = last_lf != all.npos ? last_lf + 1 : kEnds;
            file->tail = lf != all.npos ? lf + 1 : bytes.size();
            return DiskFault::none;
        }
    }
    if (size > kLargest)
        return DiskFault::unreadable;
    if (!bytes.reserve(size + 1))
        return DiskFault::no_memory;
    char beyond = 0;
    std::size_t grown = 0;
    const std::size_t had = bytes.size();
    if (!take(descriptor, had, size - had, &bytes) || !descriptor.read(static_cast<off_t>(size), &beyond, 1, &grown)
        || grown != 0)
        return DiskFault::unreadable;
    return DiskFault::none;
}

} // namespace time_files
