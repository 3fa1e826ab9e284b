// What a call prints on both streams.
#ifndef KL_TESTS_ERROR_SAID_H
#define KL_TESTS_ERROR_SAID_H

#include "support/captured_stream.h"
#include "support/conditions.h"

// Standard error, then, marked, standard output.
template <typename Action>
std::string said(Action action)
{
    std::string err;
    const std::string out = captured_stdout([&] { err = captured_stderr(action); });
    return out.empty() ? err : err + "on standard output: " + out;
}

// Rows of calls: what is printed, what is returned, the call.
#define SAYS(text, expected, ...) EXPECT_EQ(said([&] { EXPECT_EQ(__VA_ARGS__, expected); }), text) << #__VA_ARGS__;

#endif
