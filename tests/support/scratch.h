// A file in memory, under a name, while the object lives.
#ifndef KL_TESTS_SUPPORT_SCRATCH_H
#define KL_TESTS_SUPPORT_SCRATCH_H

#include <gtest/gtest.h>

#include <string>
#include <sys/mman.h>
#include <unistd.h>

class Scratch {
public:
    explicit Scratch(const std::string &bytes = "")
        : file_(memfd_create("scratch", MFD_CLOEXEC)), name("/proc/self/fd/" + std::to_string(file_))
    {
        holding(bytes);
    }
    ~Scratch() { close(file_); }
    Scratch(const Scratch &) = delete;
    Scratch &operator=(const Scratch &) = delete;
    const std::string &holding(const std::string &bytes) const
    {
        EXPECT_EQ(ftruncate(file_, 0), 0);
        EXPECT_EQ(pwrite(file_, bytes.data(), bytes.size(), 0), static_cast<ssize_t>(bytes.size()));
        return name;
    }
    void grow_to(long size) const { EXPECT_EQ(ftruncate(file_, size), 0); }

private:
    int file_;

public:
    const std::string name;
};

#endif
