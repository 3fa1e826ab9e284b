// The error frame: records, vectors, decoding, and the lines of the machinery.
#include "kl_family.h"
#include "support/captured_stream.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <climits>
#include <cstring>
#include <string>
#include <vector>

namespace {

// Internal ids that these tests speak of.
constexpr long kCarGeo = 9;
constexpr long kLoadSp3 = 43;
constexpr long kAsciiToAscii = 107;
constexpr long kModelInit = 160;
constexpr long kProcessingInputs = 24;
constexpr long kSun = 140;
constexpr long kPlanet = 142;

constexpr long kErrorBit = LONG_MIN; // the sign bit
constexpr long kWarningBit = 1L << 30;

kl_error_record reset_record()
{
    kl_error_record record;
    KL_Reset_Err(&record);
    return record;
}

struct Activated { // a public activation as the functions have it
    explicit Activated(long function_id, long n_words = 1)
    {
        KL_Init_err_data(function_id, &record, ierr, n_words, &context);
    }
    kl_error_record record;
    kl_error_context context;
    long ierr[2] = {-7, -7};
};

std::vector<long> codes_of(long public_id, const long *ierr)
{
    long n = 0;
    long codes[KL_MAX_CODES];
    EXPECT_EQ(kl_get_code(&public_id, ierr, &n, codes), 0);
    return {codes, codes + n};
}

std::vector<std::string> messages_of(long public_id, const long *ierr)
{
    static char msg[KL_MAX_MSG][512];
    long n = 0;
    EXPECT_EQ(kl_get_msg(&public_id, ierr, &n, msg), 0);
    return {msg, msg + n};
}

TEST(ErrorVector, InitClearsOnlyTheWordsOfTheFunction)
{
    Activated one(kSun);
    EXPECT_EQ(one.ierr[0], 0);
    EXPECT_EQ(one.ierr[1], -7);
    Activated two(kAsciiToAscii, 2);
    EXPECT_EQ(two.ierr[1], 0);
}

TEST(ErrorVector, MarksWarningsAndErrorsApart)
{
    Activated planet(kPlanet);
    EXPECT_EQ(KL_Store_function_error(&planet.context, 7, nullptr), KL_WARN);
    EXPECT_EQ(planet.ierr[0], kWarningBit | 1L << 7);
    EXPECT_EQ(KL_Store_function_error(&planet.context, 3, nullptr), KL_ERR);
    EXPECT_EQ(planet.ierr[0], kErrorBit | kWarningBit | 1L << 7 | 1L << 3);
    EXPECT_LT(planet.ierr[0], 0);
    EXPECT_EQ(codes_of(KL_ID_FUNC_PLANET, planet.ierr), (std::vector<long>{3, 7})); // by bit, not by time
    long status = 5;
    EXPECT_EQ(KL_Check_Extended_Error_Code(KL_ID_FUNC_PLANET, planet.ierr, &status), 0);
    EXPECT_EQ(status, KL_ERR);
    const long warned[] = {kWarningBit | 1L << 7};
    EXPECT_EQ(KL_Check_Extended_Error_Code(KL_ID_FUNC_PLANET, warned, &status), 0);
    EXPECT_EQ(status, KL_WARN);
    long found = 0;
    EXPECT_EQ(KL_Check_Error_Code(KL_ID_FUNC_PLANET, 7, warned, &found), 0);
    EXPECT_EQ(found, 1);
    EXPECT_EQ(KL_Check_Error_Code(KL_ID_FUNC_PLANET, 3, warned, &found), 0);
    EXPECT_EQ(found, 0);
}

TEST(ErrorVector, TheSecondWordHoldsCodes27And28)
{
    Activated text(kAsciiToAscii, 2);
    KL_Store_function_error(&text.context, 27, nullptr);
    KL_Store_function_error(&text.context, 28, nullptr);
    KL_Store_function_error(&text.context, 26, nullptr);
    EXPECT_EQ(codes_of(KL_ID_FUNC_TIME_ASCII_TO_ASCII, text.ierr), (std::vector<long>{26, 32, 33}));
    kl_error_record back = reset_record();
    EXPECT_EQ(KL_Vector_Err(KL_ID_FUNC_TIME_ASCII_TO_ASCII, text.ierr, &back), 0);
    ASSERT_EQ(back.count, 3);
    EXPECT_EQ(back.codes[1], 27);
    EXPECT_EQ(back.codes[2], 28);
    EXPECT_EQ(captured_stderr([&] { KL_Put_Err(kAsciiToAscii, 29, nullptr, &text.record); }),
              "ERROR in KL_Put_Err: error code ID does not exist\n");
}

TEST(ErrorVector, ABitThatNoCodeOwnsIsReportedAndSkipped)
{
    const long ierr[] = {1L << 29};
    EXPECT_EQ(codes_of(KL_ID_FUNC_SUN, ierr), std::vector<long>{29});
    EXPECT_EQ(messages_of(KL_ID_FUNC_SUN, ierr), std::vector<std::string>{""});
    long status = 5;
    EXPECT_EQ(KL_Check_Extended_Error_Code(KL_ID_FUNC_SUN, ierr, &status), 0);
    EXPECT_EQ(status, KL_OK);
}

TEST(PublicIds, EveryAssignedIdDecodesAndTheOthersFail)
{
    const long clear[] = {0, 0};
    for (long id = 0; id < 48; ++id) {
        if (id == 40)
            continue;
        EXPECT_TRUE(codes_of(id, clear).empty()) << id;
    }
    for (const long id : {40L, 48L, -1L, LONG_MAX, LONG_MIN}) {
        long n = 11;
        long codes[KL_MAX_CODES];
        char(*msg)[512] = new char[KL_MAX_MSG][512];
        EXPECT_EQ(captured_stderr([&] { EXPECT_EQ(kl_get_code(&id, clear, &n, codes), -1); }),
                  "ERROR in kl_get_code: function id does not have an equivalent KIT function\n");
        // On purpose: the inner line names another function.
        EXPECT_EQ(captured_stderr([&] { EXPECT_EQ(kl_get_msg(&id, clear, &n, msg), -1); }),
                  "ERROR in KL_Err_Vector: function id does not have and equivalent KIT function\n"
                  "ERROR in kl_get_msg: Could not create and err structure\n");
        EXPECT_EQ(n, 11);
        delete[] msg;
    }
}

TEST(PublicIds, TheMatrixPairsPublicAndInternalIds)
{
    struct Pair {
        long public_id, internal_id;
    };
    // Ends of each run of ids, where a shift by one would show.
    const Pair pairs[] = {{0, 101},  {6, 107},  {8, 109},  {9, 124},  {16, 131}, {17, 135}, {22, 140}, {28, 146},
                          {29, 147}, {39, 157}, {41, 159}, {42, 160}, {44, 162}, {45, 163}, {46, 167}, {47, 168}};
    for (const Pair &pair : pairs) {
        const long clear[] = {0, 0};
        kl_error_record record = reset_record();
        ASSERT_EQ(KL_Vector_Err(pair.public_id, clear, &record), 0);
        EXPECT_EQ(record.function_id, pair.internal_id);
        EXPECT_EQ(KL_Check_if_public_function(pair.internal_id), 1);
    }
    EXPECT_EQ(KL_Check_if_public_function(0), 1) << "the unassigned row carries function 0";
    for (const long internal : {-1L, 9L, 100L, 110L, 158L, 174L, 175L, LONG_MAX})
        EXPECT_EQ(KL_Check_if_public_function(internal), 0) << internal;
}

TEST(Recording, RefusesWhatDoesNotFit)
{
    struct Case {
        const char *name;
        long function_id, code;
        const char *line;
    };
    const Case cases[] = {
        {"above the last function", 175, 0, "function ID does not exist"},
        {"below the first function", -1, 0, "function ID does not exist"},
        {"negative code", kSun, -1, "error code ID does not exist"},
        {"code above the last", kSun, 7, "error code ID does not exist"},
        {"a function without codes", 4, 0, "error code ID does not exist"},
    };
    for (const Case &c : cases) {
        kl_error_record record = reset_record();
        long found = 9;
        EXPECT_EQ(captured_stderr([&] { EXPECT_EQ(KL_Put_Err(c.function_id, c.code, nullptr, &record), -1); }),
                  std::string("ERROR in KL_Put_Err: ") + c.line + "\n")
            << c.name;
        EXPECT_EQ(captured_stderr([&] { EXPECT_EQ(KL_Check_Err(c.function_id, c.code, &record, &found), -1); }),
                  std::string("ERROR in KL_Check_Err: ") + c.line + "\n")
            << c.name;
        EXPECT_EQ(record.count, 0) << c.name;
    }
    kl_error_record record = reset_record();
    KL_Put_Err(kSun, 1, nullptr, &record);
    long found = 9;
    EXPECT_EQ(captured_stderr([&] { EXPECT_EQ(KL_Put_Err(kPlanet, 1, nullptr, &record), -1); }),
              "ERROR in KL_Put_Err: error structure and function ID do not match\n");
    EXPECT_EQ(captured_stderr([&] { EXPECT_EQ(KL_Check_Err(kPlanet, 1, &record, &found), -1); }),
              "ERROR in KL_Check_Err: error structure and function ID do not match\n");
    EXPECT_EQ(captured_stderr([&] { EXPECT_EQ(KL_Err_Vector(kPlanet, &record, nullptr), -1); }),
              "ERROR in KL_Err_Vector: err structure does not corrspond with function id\n");
    EXPECT_EQ(KL_Check_Err(kSun, 1, &record, &found), 0);
    EXPECT_EQ(found, 1);
    EXPECT_EQ(KL_Check_Err(kSun, 0, &record, &found), 0);
    EXPECT_EQ(found, 0);
    kl_error_record internal = reset_record();
    KL_Put_Err(kProcessingInputs, 0, nullptr, &internal);
    EXPECT_EQ(captured_stderr([&] { EXPECT_EQ(KL_Err_Vector(kProcessingInputs, &internal, nullptr), -1); }),
              "ERROR in KL_Err_Vector: function id does not have and equivalent KIT function\n");
}

TEST(Recording, AFailureOfTheMachineryGoesToStandardOutputAndTheCallGoesOn)
{
    Activated sun(kSun);
    std::string err;
    const std::string out = captured_stdout(
        [&] { err = captured_stderr([&] { EXPECT_EQ(KL_Store_function_error(&sun.context, 99, nullptr), -1); }); });
    EXPECT_EQ(out, "!!! Error in a error handling function\n!!! Error in a error handling function\n");
    EXPECT_NE(err.find("ERROR in KL_Put_Err: error code ID does not exist\n"), std::string::npos);
}

TEST(Recording, The257thCodeIsDroppedAndSaidOnce)
{
    kl_error_record record = reset_record();
    for (int i = 0; i < 256; ++i)
        ASSERT_EQ(KL_Put_Err(kSun, i % 7, nullptr, &record), 0);
    const std::string said = captured_stderr([&] {
        EXPECT_EQ(KL_Put_Err(kSun, 0, nullptr, &record), 0);
        EXPECT_EQ(KL_Put_Err(kSun, 0, nullptr, &record), 0);
    });
    EXPECT_EQ(said, "ERROR in KL_Put_Err: too many errors/warnings returned\n");
    EXPECT_EQ(record.count, 256);
}

TEST(Messages, CarryTheirArgumentsAndSaturateInTheirSlot)
{
    const long days = -40000;
    const double size = 1e300;
    struct Case {
        const char *name;
        long function_id, code;
        const void *value;
        std::string text;
    };
    const std::string sp3 = "ORBKIT_LIB >>> ERROR in KL_Load_sp3_orbit_file_list: Error reading file: ";
    const std::string path(600, 'x');
    const Case cases[] = {
        {"a long", kProcessingInputs, 2, &days,
         "ORBKIT_LIB >>> ERROR in KL_Time_check_processing_inputs: Number of days out of range (-40000)"},
        {"a long that is missing", kProcessingInputs, 2, nullptr,
         "ORBKIT_LIB >>> ERROR in KL_Time_check_processing_inputs: Number of days out of range (0)"},
        {"a double", kCarGeo, 0, &size,
         "ORBKIT_LIB >>> WARNING in KL_Car_Geo: Internal computation warning # 1 (" + std::to_string(1e300) + ")"},
        {"a text", kLoadSp3, 0, "orbit.sp3", sp3 + "orbit.sp3"},
        {"no text", kLoadSp3, 0, nullptr, sp3},
        // The placeholder counts as two characters of the message.
        {"a text too long", kLoadSp3, 0, path.c_str(), sp3 + std::string(511 - sp3.size() - 2, 'x')},
        // On purpose: this argument is passed and the placeholder printed as it stands.
        {"a placeholder kept", kModelInit, 2, "Moon",
         "ORBKIT_LIB >>> ERROR in kl_model_init: Wrong enumeration value for %s model"},
    };
    static char msg[KL_MAX_MSG][512];
    for (const Case &c : cases) {
        kl_error_record record = reset_record();
        ASSERT_EQ(KL_Put_Err(c.function_id, c.code, c.value, &record), 0) << c.name;
        long n = 0;
        ASSERT_EQ(KL_Err_Msg(&record, &n, msg), 0) << c.name;
        EXPECT_EQ(n, 1) << c.name;
        EXPECT_EQ(std::string(msg[0]), c.text) << c.name;
        EXPECT_STREQ(msg[1], "") << c.name;
    }
    // In verbose mode the whole text is printed, however long, and nothing in silent mode.
    kl_error_record record = reset_record();
    kl_verbose();
    const std::string printed = captured_stderr([&] { KL_Put_Err(kLoadSp3, 0, path.c_str(), &record); });
    kl_silent();
    EXPECT_EQ(printed, sp3 + path + "\n");
    EXPECT_EQ(captured_stderr([&] { KL_Put_Err(kLoadSp3, 0, path.c_str(), &record); }), "");
}

TEST(Messages, PrintingTakesUpTo256)
{
    static char msg[KL_MAX_MSG][512];
    for (int i = 0; i < KL_MAX_MSG; ++i)
        std::strcpy(msg[i], i == 0 ? "first" : "x");
    struct Case {
        long n, status;
        std::size_t lines;
    };
    for (const Case &c : {Case{0, 0, 0}, Case{-3, 0, 0}, Case{1, 0, 1}, Case{256, 0, 256}}) {
        const std::string said = captured_stderr([&] { EXPECT_EQ(kl_print_msg(&c.n, msg), c.status); });
        EXPECT_EQ(static_cast<std::size_t>(std::count(said.begin(), said.end(), '\n')), c.lines);
        EXPECT_EQ(said.substr(0, 6), c.lines > 0 ? "first\n" : "");
    }
    const long too_many = 257;
    EXPECT_EQ(captured_stderr([&] { EXPECT_EQ(kl_print_msg(&too_many, msg), -1); }),
              "ERROR in kl_print_msg: number of messages higher than allowed\n");
}

TEST(Messages, EveryRowOpensWithItsSeverityAndHasAPlaceholderForItsArgument)
{
    // Codes of the functions whose texts the library owns; a wrong count moves every later bit.
    struct Count {
        long function_id;
        int n_codes;
    };
    const Count counts[] = {{9, 1},   {21, 1},  {22, 8},  {36, 3},   {37, 2},  {38, 4},   {50, 12},  {60, 4},
                            {61, 5},  {62, 3},  {63, 7},  {64, 3},   {65, 7},  {106, 11}, {107, 29}, {124, 4},
                            {125, 4}, {126, 8}, {127, 8}, {129, 10}, {131, 1}, {135, 12}, {140, 7},  {141, 7},
                            {142, 8}, {145, 4}, {146, 4}, {147, 7},  {151, 1}, {152, 2},  {157, 1},  {159, 3},
                            {160, 3}, {161, 1}, {162, 4}, {163, 2},  {167, 3}, {168, 4}};
    for (const Count &count : counts) {
        int n = 0;
        captured_stderr([&] {
            kl_error_record record = reset_record();
            while (n < 256 && KL_Put_Err(count.function_id, n, nullptr, &record) == 0)
                ++n;
        });
        EXPECT_EQ(n, count.n_codes) << count.function_id;
    }
    static char msg[KL_MAX_MSG][512];
    for (long id = 0; id < 175; ++id) {
        kl_error_record record = reset_record();
        kl_error_context context;
        KL_Init_err_data(id, &record, nullptr, 1, &context);
        std::vector<long> severities;
        captured_stderr([&] {
            for (long code = 0; KL_Put_Err(id, code, nullptr, &record) == 0; ++code) {
                kl_error_record other = reset_record();
                context.record = &other;
                severities.push_back(KL_Store_function_error(&context, code, nullptr));
            }
        });
        long n = 0;
        ASSERT_EQ(KL_Err_Msg(&record, &n, msg), 0);
        for (long i = 0; i < n; ++i) {
            const std::string opening = severities[static_cast<std::size_t>(i)] > 0 ? "ORBKIT_LIB >>> WARNING in k"
                                                                                    : "ORBKIT_LIB >>> ERROR in k";
            std::string text = msg[i];
            std::size_t name = opening.size() - 1;
            ASSERT_LT(name + 2, text.size()) << id;
            text[name] = static_cast<char>(std::tolower(text[name]));
            EXPECT_EQ(text.substr(0, opening.size()), opening) << id << " " << i;
            const bool kept = id == kModelInit && i == 2;
            EXPECT_EQ(text.find('%') != std::string::npos, kept) << text;
        }
    }
}

TEST(Bits, AreReadAndWrittenModulo64)
{
    long word = 0;
    EXPECT_EQ(KL_Write_Bit(&word, 63, 1), 0);
    EXPECT_EQ(word, LONG_MIN);
    EXPECT_EQ(KL_Write_Bit(&word, 63, 2), 1) << "any value but 1 clears";
    EXPECT_EQ(word, 0);
    EXPECT_EQ(KL_Check_Bit(LONG_MIN, 63), 1);
    EXPECT_EQ(KL_Check_Bit(5, 66), 1);
    EXPECT_EQ(KL_Check_Bit(5, 65), 0);
}

TEST(BadInput, NullNeverCrashesADecoder)
{
    const long id = KL_ID_FUNC_SUN;
    const long clear[] = {0};
    long n = 0;
    long codes[KL_MAX_CODES];
    static char msg[KL_MAX_MSG][512];
    captured_stderr([&] {
        EXPECT_EQ(kl_get_code(nullptr, clear, &n, codes), -1);
        EXPECT_EQ(kl_get_code(&id, nullptr, &n, codes), -1);
        EXPECT_EQ(kl_get_code(&id, clear, nullptr, codes), -1);
        EXPECT_EQ(kl_get_code(&id, clear, &n, nullptr), -1);
        EXPECT_EQ(kl_get_msg(nullptr, clear, &n, msg), -1);
        EXPECT_EQ(kl_get_msg(&id, nullptr, &n, msg), -1);
        EXPECT_EQ(kl_get_msg(&id, clear, nullptr, msg), -1);
        EXPECT_EQ(kl_get_msg(&id, clear, &n, nullptr), -1);
        EXPECT_EQ(kl_print_msg(nullptr, msg), -1);
        n = 1;
        EXPECT_EQ(kl_print_msg(&n, nullptr), -1);
        EXPECT_EQ(KL_Put_Err(kSun, 0, nullptr, nullptr), -1);
    });
    kl_free_array(nullptr);
    void *array = nullptr;
    kl_free_array(&array);
    EXPECT_EQ(array, nullptr);
}

} // namespace
