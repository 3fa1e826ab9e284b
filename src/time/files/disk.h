// Files of the disk, whole; of a long SP3 only its ends. Directories, devices and pipes, on which a reader might wait
// for ever, are refused.
#ifndef KL_SRC_TIME_FILES_DISK_H
#define KL_SRC_TIME_FILES_DISK_H

#include "time/files/buffer.h"
#include "time/files/contents.h"

namespace time_files {

enum class DiskFault { none, unreadable, no_memory };

struct FileBytes {
    Buffer<char> bytes;
    std::size_t cut = 0;  // where the first part of a shortened file ends, after a line; 0: the file is whole
    std::size_t tail = 0; // where its last part begins, at the start of a line

    std::string_view head() const { return {bytes.begin(), tail != 0 ? cut : bytes.size()}; }
    std::string_view end() const
    {
        return tail != 0 ? std::string_view(bytes.begin() + tail, bytes.size() - tail) : std::string_view();
    }
};

// Plain files of 1 byte to 64 MiB, that keep their size while they are read.
DiskFault read_file(const char *name, FileBytes *file);

// All of such a file of at most `largest` bytes, which may be empty.
DiskFault read_plain_file(const char *name, std::size_t largest, Buffer<char> *bytes);

} // namespace time_files

#endif
