// What a piece of code writes to standard output or standard error, through the file descriptor.
#ifndef KL_TESTS_SUPPORT_CAPTURED_STREAM_H
#define KL_TESTS_SUPPORT_CAPTURED_STREAM_H

#include "kl_lib.h"

#include <gtest/gtest.h>

#include <string>

template <typename Action>
std::string captured_stderr(Action action)
{
    testing::internal::CaptureStderr();
    action();
    return testing::internal::GetCapturedStderr();
}

// With verbose messages.
template <typename Action>
std::string verbose_text(Action action)
{
    kl_verbose();
    const std::string text = captured_stderr(action);
    kl_silent();
    return text;
}

template <typename Action>
std::string captured_stdout(Action action)
{
    testing::internal::CaptureStdout();
    action();
    return testing::internal::GetCapturedStdout();
}

#endif
