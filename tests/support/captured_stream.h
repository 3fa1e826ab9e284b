// What a piece of code writes to standard output or standard error, through the file descriptor.
#ifndef KL_TESTS_SUPPORT_CAPTURED_STREAM_H
#define KL_TESTS_SUPPORT_CAPTURED_STREAM_H

#include <gtest/gtest.h>

#include <string>

template <typename Action>
std::string captured_stderr(Action action)
{
    testing::internal::CaptureStderr();
    action();
    return testing::internal::GetCapturedStderr();
}

template <typename Action>
std::string captured_stdout(Action action)
{
    testing::internal::CaptureStdout();
    action();
    return testing::internal::GetCapturedStdout();
}

#endif
