// Every condition of every function has its text, its bit and its severity.
#include "errors/said.h"
#include "kl_family.h"
#include "support/csv.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace {

// Recorded alone: its message, and for a public function what the vector then holds and how it decodes.
TEST(EveryCondition, HasItsTextBitAndSeverity)
{
    const Csv rows("tests/data/conditions.csv", ';');
    static char msg[KL_MAX_MSG][512];
    std::map<long, long> n_codes_of; // by internal id
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const auto number = [&](std::size_t column) { return std::stol(rows.text(i, column)); };
        const long internal = number(0), public_id = number(1), words = number(2), code = number(3), bit = number(4),
                   severity = number(5);
        const std::string name = rows.text(i, 6);
        EXPECT_TRUE(name.rfind("kl_", 0) == 0 || name.rfind("KL_", 0) == 0) << name;
        EXPECT_NE(rows.text(i, 7), "");
        EXPECT_EQ(rows.text(i, 7).find('%') != std::string::npos, // one shows its placeholder, on purpose
                  public_id == KL_ID_FUNC_MODEL_INIT && code == KL_MODEL_INIT_SELECTION_ERR)
            << rows.text(i, 7);
        EXPECT_EQ(code, n_codes_of[internal]++);
        const std::string text = std::string("ORBKIT_LIB >>> ") + (severity > 0 ? "WARNING" : "ERROR") + " in " + name
                                 + ": " + rows.text(i, 7);
        long ierr[2] = {0, 0}, n = 0, status = 7;
        kl_error_record record;
        kl_error_context context;
        KL_Init_err_data(internal, &record, public_id < 0 ? nullptr : ierr, words, &context);
        EXPECT_EQ(KL_Store_function_error(&context, code, nullptr), severity) << text;
        EXPECT_EQ(KL_Err_Msg(&record, &n, msg), 0);
        EXPECT_EQ(std::string(msg[0]), text);
        if (public_id < 0)
            continue;
        const long mark = bit < 0 ? 0 : severity > 0 ? 1L << 30 : LONG_MIN;
        for (long word = 0; word < 2; ++word)
            EXPECT_EQ(ierr[word], bit >= 0 && bit / 32 == word ? mark | 1L << bit % 32 : 0) << text;
        long codes[KL_MAX_CODES], n_codes = 0;
        EXPECT_EQ(kl_get_code(&public_id, ierr, &n_codes, codes), 0);
        EXPECT_EQ(n_codes, bit < 0 ? 0 : 1) << text;
        EXPECT_EQ(KL_Check_Extended_Error_Code(public_id, ierr, &status), 0);
        EXPECT_EQ(status, bit < 0 ? 0 : severity) << text;
        if (bit >= 0) {
            EXPECT_EQ(codes[0], bit) << text;
            EXPECT_EQ(kl_get_msg(&public_id, ierr, &n, msg), 0);
            EXPECT_EQ(std::string(msg[0]), text);
        }
    }
    for (long id = 0; id < 175; ++id) {
        kl_error_record record;
        KL_Reset_Err(&record);
        captured_stderr([&] { EXPECT_EQ(KL_Put_Err(id, n_codes_of[id], nullptr, &record), -1) << "behind the last"; });
    }
    const Csv counts("tests/data/code_counts.csv");
    for (std::size_t i = 0; i < counts.size(); ++i)
        EXPECT_EQ(n_codes_of[std::stol(counts.text(i, 0))], std::stol(counts.text(i, 1))) << counts.text(i, 0);
}

} // namespace
