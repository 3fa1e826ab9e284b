// The error frame: records, vectors, decoding, and the lines of the machinery.
#include "errors/said.h"
#include "kl_family.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <clocale>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <string>
#include <tuple>
#include <vector>

namespace {

// Internal ids that these tests speak of.
constexpr long kCarGeo = 9, kLoadSp3 = 43, kAsciiToAscii = 107, kProcessingInputs = 24, kSun = 140, kPlanet = 142;

constexpr long clear[] = {0, 0};
constexpr kl_error_record kEmpty = {-1, 0, {}, {}, 0};
char msg[KL_MAX_MSG][512];

using Codes = std::vector<long>;
using Texts = std::vector<std::string>;

Codes codes_of(long public_id, const long *ierr)
{
    long n = 0, codes[KL_MAX_CODES];
    EXPECT_EQ(kl_get_code(&public_id, ierr, &n, codes), 0);
    return {codes, codes + n};
}

TEST(ErrorVector, HoldsEachCodeAndWhetherItIsAnErrorOrAWarning)
{
    const std::tuple<long, long, Codes, Codes, Codes, long> cases[] = {
#include "errors/error_vectors.inc"
    };
    for (const auto &[function, public_id, recorded, words, decoded, expected_status] : cases) {
        SCOPED_TRACE(testing::PrintToString(recorded));
        long ierr[2] = {-7, -7}, status = 5;
        kl_error_record record, back;
        kl_error_context context;
        KL_Init_err_data(function, &record, ierr, function == kAsciiToAscii ? 2 : 1, &context);
        for (const long code : recorded)
            EXPECT_EQ(KL_Store_function_error(&context, code, nullptr),
                      function == kPlanet && code == 7 ? KL_WARN : KL_ERR);
        EXPECT_EQ(Codes(ierr, ierr + 2), words);
        EXPECT_EQ(codes_of(public_id, ierr), decoded);
        EXPECT_EQ(KL_Check_Extended_Error_Code(public_id, ierr, &status), 0);
        EXPECT_EQ(status, expected_status);
        EXPECT_EQ(KL_Vector_Err(public_id, ierr, &back), 0);
        Codes sorted = recorded; // by bit, not by time
        std::sort(sorted.begin(), sorted.end());
        EXPECT_EQ(Codes(back.codes, back.codes + back.count), sorted);
        for (long code = 0; code < 7; ++code) {
            long in_vector = 9, in_record = 9;
            EXPECT_EQ(KL_Check_Error_Code(public_id, code, ierr, &in_vector), 0);
            EXPECT_EQ(KL_Check_Err(function, code, &record, &in_record), 0);
            EXPECT_EQ(in_vector, std::count(recorded.begin(), recorded.end(), code)) << code;
            EXPECT_EQ(in_record, in_vector) << code;
        }
    }
}

TEST(ErrorVector, ABitThatNoCodeOwnsIsReportedAndSkipped)
{
    const long ierr[] = {1L << 29}, id = KL_ID_FUNC_SUN;
    long n = 0, status = 5;
    EXPECT_EQ(codes_of(id, ierr), Codes{29});
    EXPECT_EQ(kl_get_msg(&id, ierr, &n, msg), 0);
    EXPECT_EQ(Texts(msg, msg + n), Texts{""});
    EXPECT_EQ(KL_Check_Extended_Error_Code(id, ierr, &status), 0);
    EXPECT_EQ(status, KL_OK);
    long back[] = {0};
    kl_error_record record = kEmpty;
    record.function_id = kSun;
    record.count = 1;
    record.codes[0] = 7; // behind the last
    EXPECT_EQ(KL_Err_Vector(kSun, &record, back), 0);
    EXPECT_EQ(back[0], 0);
}

// A caller whose numbers have a comma reads messages with a point. The locale is written here: none may be installed.
TEST(Messages, HaveAPointWhateverTheLocale)
{
    struct {
        std::uint32_t magic = 0x20031115U ^ LC_NUMERIC, n = 6, at[6] = {32, 34, 35, 40, 44, 48};
        char point_and_separators[8] = ",";
        std::uint32_t wide_point = ',', wide_separator = 0;
        char codeset[8] = "UTF-8";
    } file;
    const std::string dir = testing::TempDir() + "locale-" + std::to_string(getpid()), of_numbers = dir + "/comma";
    ASSERT_EQ(mkdir(dir.c_str(), 0700) + mkdir(of_numbers.c_str(), 0700), 0);
    std::ofstream(of_numbers + "/LC_NUMERIC", std::ios::binary)
        .write(reinterpret_cast<const char *>(&file), sizeof file);
    setenv("LOCPATH", dir.c_str(), 1);
    const bool set = std::setlocale(LC_NUMERIC, "comma") != nullptr;
    unsetenv("LOCPATH");
    for (const char *name : {"/comma/LC_NUMERIC", "/comma", ""})
        std::remove((dir + name).c_str());
    if (!set)
        GTEST_SKIP() << "this C library takes no locale of a test";
    char comma[16];
    std::snprintf(comma, sizeof comma, "%.1f", 95.5);
    kl_error_record record = kEmpty;
    const double value = 95.5;
    EXPECT_EQ(KL_Put_Err(kCarGeo, 0, &value, &record), 0);
    long n = 0;
    KL_Err_Msg(&record, &n, msg);
    std::setlocale(LC_NUMERIC, "C");
    EXPECT_STREQ(comma, "95,5");
    EXPECT_STREQ(msg[0], "ORBKIT_LIB >>> WARNING in KL_Car_Geo: Internal computation warning # 1 (95.500000)");
}

TEST(PublicIds, AreThoseOfTheMatrixAndOnPurposeTheLineOfTheOthersNamesAnotherFunction)
{
    const std::tuple<long, long, long> runs[] = {
#include "errors/public_ids.inc"
    };
    for (const auto &[public_id, internal_id, n_ids] : runs)
        for (long i = 0; i < n_ids; ++i) {
            kl_error_record record;
            ASSERT_EQ(KL_Vector_Err(public_id + i, clear, &record), 0);
            EXPECT_EQ(record.function_id, internal_id + i);
            EXPECT_EQ(codes_of(public_id + i, clear), Codes{});
            EXPECT_EQ(KL_Check_if_public_function(internal_id + i), 1);
        }
    EXPECT_EQ(KL_Check_if_public_function(0), 1) << "the unassigned row carries function 0";
    for (const long internal : {-1L, 9L, 100L, 110L, 158L, 174L, 175L, LONG_MAX})
        EXPECT_EQ(KL_Check_if_public_function(internal), 0) << internal;
    for (const long id : {40L, 48L, -1L, LONG_MAX, LONG_MIN}) {
        long n = 11, codes[KL_MAX_CODES];
        SAYS("ERROR in kl_get_code: function id does not have an equivalent KIT function\n", -1,
             kl_get_code(&id, clear, &n, codes))
        SAYS("ERROR in KL_Err_Vector: function id does not have and equivalent KIT function\n"
             "ERROR in kl_get_msg: Could not create and err structure\n",
             -1, kl_get_msg(&id, clear, &n, msg))
        EXPECT_EQ(n, 11);
    }
    const long known = KL_ID_FUNC_SUN;
    long n = 11, codes[KL_MAX_CODES];
    for (const long status : {kl_get_code(&known, nullptr, &n, codes), kl_get_code(&known, clear, nullptr, codes),
                              kl_get_code(&known, clear, &n, nullptr)})
        EXPECT_EQ(std::tuple(status, n), std::tuple(-1, 11));
}

TEST(Recording, RefusesWhatDoesNotFitAndDropsThe257thCode)
{
    kl_error_record empty = kEmpty, sun = empty, internal = empty, full = empty;
    kl_error_context context = {kSun, &sun, nullptr}, unknown = {175, &empty, nullptr};
    KL_Put_Err(kSun, 1, nullptr, &sun);
    KL_Put_Err(kProcessingInputs, 0, nullptr, &internal);
    for (int i = 0; i < 256; ++i)
        ASSERT_EQ(KL_Put_Err(kSun, i % 7, nullptr, &full), 0);
    const long too_many = 257;
    long found = 9;
#include "errors/refusals.inc"
    EXPECT_EQ(empty.count, 0);
    EXPECT_EQ(empty.function_id, 4) << "the function of the code refused last";
    EXPECT_EQ(sun.count, 1);
    EXPECT_EQ(full.count, 256);
}

TEST(Messages, CarryTheirArgumentsAndSaturateInTheirSlot)
{
    const long days = -40000;
    const double size = 1e300;
    const std::string sp3 = "ORBKIT_LIB >>> ERROR in KL_Load_sp3_orbit_file_list: Error reading file: ";
    const std::string path(600, 'x');
    const std::tuple<long, long, const void *, std::string> cases[] = {
#include "errors/message_texts.inc"
    };
    for (const auto &[function, code, value, text] : cases) {
        kl_error_record record = kEmpty;
        long n = 0;
        ASSERT_EQ(KL_Put_Err(function, code, value, &record), 0) << text;
        ASSERT_EQ(KL_Err_Msg(&record, &n, msg), 0) << text;
        EXPECT_EQ(Texts(msg, msg + n), Texts{text});
        EXPECT_STREQ(msg[1], "") << text;
    }
    // In verbose mode the whole text is printed, however long.
    kl_error_record record = kEmpty;
    EXPECT_EQ(verbose_text([&] { KL_Put_Err(kLoadSp3, 0, path.c_str(), &record); }), sp3 + path + "\n");
}

TEST(Messages, PrintingTakesUpTo256)
{
    std::string lines[KL_MAX_MSG + 1]; // after each number of messages
    for (long i = 0; i < KL_MAX_MSG; ++i) {
        const std::string text = i == 1 ? std::string(sizeof *msg, 'x') : std::to_string(i); // one fills its slot
        std::strncpy(msg[i], text.c_str(), sizeof *msg);
        lines[i + 1] = lines[i] + text + "\n";
    }
    for (const long n : {0L, -3L, 1L, 256L})
        SAYS(lines[std::max(n, 0L)], 0, kl_print_msg(&n, msg))
}

TEST(Bits, AreReadAndWrittenModulo64)
{
    long word = 0;
#include "errors/bits.inc"
}

} // namespace
