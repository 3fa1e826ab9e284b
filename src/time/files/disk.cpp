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

class PlainFile {
public:
    // A pipe without a writer would block an open that waits.
    explicit PlainFile(const char *name) : number_(name != nullptr ? open(name, O_RDONLY | O_NONBLOCK | O_CLOEXEC) : -1)
    {
        struct stat status = {};
        is_plain_ = number_ >= 0 && fstat(number_, &status) == 0 && S_ISREG(status.st_mode) && status.st_size >= 0;
        size_ = is_plain_ ? static_cast<std::size_t>(status.st_size) : 0;
    }
    ~PlainFile()
    {
        if (number_ >= 0)
            close(number_);
    }
    PlainFile(const PlainFile &) = delete;
    PlainFile &operator=(const PlainFile &) = delete;

    bool is_plain() const { return is_plain_; }
    std::size_t size() const { return size_; } // when it was opened

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

private:
    int number_;
    bool is_plain_;
    std::size_t size_;
};

// Exactly these bytes.
bool take(const PlainFile &file, std::size_t from, std::size_t length, Buffer<char> *bytes)
{
    const std::size_t had = bytes->size();
    std::size_t count = 0;
    bytes->lengthen(length);
    return file.read(static_cast<off_t>(from), bytes->begin() + had, length, &count) && count == length;
}

// All bytes behind those that were taken already.
DiskFault take_rest(const PlainFile &file, std::size_t largest, Buffer<char> *bytes)
{
    if (file.size() > largest)
        return DiskFault::unreadable;
    if (!bytes->reserve(file.size() + 1))
        return DiskFault::no_memory;
    char beyond = 0;
    std::size_t grown = 0;
    const std::size_t had = bytes->size();
    if (!take(file, had, file.size() - had, bytes) || !file.read(static_cast<off_t>(file.size()), &beyond, 1, &grown)
        || grown != 0)
        return DiskFault::unreadable;
    return DiskFault::none;
}

} // namespace

DiskFault read_plain_file(const char *name, std::size_t largest, Buffer<char> *bytes)
{
    const PlainFile file(name);
    return file.is_plain() ? take_rest(file, largest, bytes) : DiskFault::unreadable;
}

DiskFault read_file(const char *name, FileBytes *file)
{
    const PlainFile plain(name);
    if (!plain.is_plain() || plain.size() == 0)
        return DiskFault::unreadable;
    Buffer<char> &bytes = file->bytes;
    if (plain.size() > 2 * kEnds) { // long enough to be shortened, if it is an SP3
        if (!bytes.reserve(2 * kEnds))
            return DiskFault::no_memory;
        if (!take(plain, 0, kEnds, &bytes))
            return DiskFault::unreadable;
        if (recognised({bytes.begin(), bytes.size()}) == Format::sp3) {
            if (!take(plain, plain.size() - kEnds, kEnds, &bytes))
                return DiskFault::unreadable;
            const std::string_view all(bytes.begin(), bytes.size());
            const std::size_t last_lf = all.substr(0, kEnds).rfind('\n');
            const std::size_t lf = all.find('\n', kEnds);
            file->cut = last_lf != all.npos ? last_lf + 1 : kEnds;
            file->tail = lf != all.npos ? lf + 1 : bytes.size();
            return DiskFault::none;
        }
    }
    return take_rest(plain, kLargest, &bytes);
}

} // namespace time_files
