// The messages of the last failure of a thread, with their values.
#include "kl_family.h"
#include "support/captured_stream.h"
#include "support/conditions.h"

#include <string>
#include <thread>
#include <vector>

namespace {

using Texts = std::vector<std::string>;

constexpr long kLoadSp3 = 43, kSun = 140;

Texts last_messages()
{
    static thread_local char msg[KL_MAX_MSG][KL_MSG_LENGTH];
    long n = -7;
    EXPECT_EQ(kl_get_last_msg(&n, msg), 0);
    return Texts(msg, msg + n);
}

std::string lines_of(const Texts &texts)
{
    std::string lines;
    for (const std::string &text : texts)
        lines += text + "\n";
    return lines;
}

long geoid(double latitude, long degree, long *ierr)
{
    kl_model_id model = {};
    const kl_geoid_input input = {&model, latitude, 0.0, 0.0, degree};
    double undulation = 0.0;
    return kl_geoid_calc(&input, &undulation, ierr);
}

long sun(long time_ref, double time, long *ierr)
{
    double pos[3], vel[3];
    return kl_sun(nullptr, nullptr, &time_ref, &time, pos, vel, ierr);
}

struct Case {
    const char *name;
    long (*call)(long *ierr);
    const char *part; // of the last message
};
constexpr Case kCases[] = {
    {"a double", [](long *e) { return geoid(95.5, 36, e); }, "95.500000"},
    {"a long", [](long *e) { return geoid(10.0, -3, e); }, "-3"},
    {"an internal check first", [](long *e) { return sun(7, 0.0, e); }, "kl_sun: "},
    {"another condition of it", [](long *e) { return sun(KL_TIME_TAI, 1e9, e); }, "kl_sun: "},
};

// In silent mode, with or without a vector, the messages are the lines that verbose mode prints.
TEST(LastMessages, AreWhatVerboseModeWouldHavePrinted)
{
    for (const Case &c : kCases) {
        long ierr[1];
        const std::string printed = verbose_text([&] { EXPECT_EQ(c.call(ierr), KL_ERR) << c.name; });
        EXPECT_EQ(geoid(-91.0, 36, nullptr), KL_ERR); // something else between
        for (long *vector : {ierr, static_cast<long *>(nullptr)}) {
            EXPECT_EQ(c.call(vector), KL_ERR) << c.name;
            const Texts texts = last_messages();
            EXPECT_EQ(lines_of(texts), printed) << c.name;
            EXPECT_NE(texts.back().find(c.part), std::string::npos) << texts.back();
        }
    }
}

TEST(LastMessages, StayUntilTheNextFailureOfTheSameThread)
{
    ASSERT_EQ(geoid(95.5, 36, nullptr), KL_ERR);
    const Texts before = last_messages();
    ASSERT_EQ(geoid(10.0, 36, nullptr), KL_OK);
    std::thread([] {
        EXPECT_EQ(last_messages(), Texts{}) << "nothing has failed here";
        EXPECT_EQ(sun(7, 0.0, nullptr), KL_ERR);
    }).join();
    EXPECT_EQ(last_messages(), before);
    ASSERT_EQ(sun(7, 0.0, nullptr), KL_ERR);
    EXPECT_NE(last_messages(), before);
    long n = 5;
    char msg[1][512];
    EXPECT_EQ(kl_get_last_msg(nullptr, msg), -1);
    EXPECT_EQ(kl_get_last_msg(&n, nullptr), -1);
    EXPECT_EQ(n, 5);
}

// A condition of an internal function that its caller passed over does not show in the next failure.
TEST(LastMessages, AreOfOneCall)
{
    const long invalid = 13;
    EXPECT_EQ(kl_set_sp3_sat_data(invalid, "L99"), -1); // records in an internal function alone
    EXPECT_EQ(geoid(95.5, 36, nullptr), KL_ERR);
    EXPECT_EQ(last_messages().size(), 1U);
}

TEST(LastMessages, KeepCopiesOfTextsAndTheFirstAndLastOfMany)
{
    kl_error_context context;
    kl_error_record record;
    KL_Init_err_data(kLoadSp3, &record, nullptr, 0, &context);
    std::string file = "first.sp3";
    KL_Put_Err(kLoadSp3, 0, file.c_str(), &record);
    file.assign(600, 'x');
    KL_Put_Err(kLoadSp3, 0, file.c_str(), &record);
    KL_Put_Err(kLoadSp3, 0, "behind what has room", &record);
    KL_Put_Err(kLoadSp3, 0, nullptr, &record);
    file.assign(600, '?');
    const std::string opening = "ORBKIT_LIB >>> ERROR in KL_Load_sp3_orbit_file_list: Error reading file: ";
    Texts texts = last_messages();
    ASSERT_EQ(texts.size(), 4U);
    EXPECT_EQ(texts[0], opening + "first.sp3");
    EXPECT_EQ(texts[1].substr(0, opening.size() + 400), opening + std::string(400, 'x'));
    EXPECT_LT(texts[1].size(), 512U);
    EXPECT_EQ(texts[2], opening);
    EXPECT_EQ(texts[3], opening);

    KL_Init_err_data(kSun, &record, nullptr, 0, &context);
    for (int i = 0; i < 100; ++i)
        KL_Put_Err(kSun, i < 99 ? 0 : 1, nullptr, &record);
    texts = last_messages();
    ASSERT_EQ(texts.size(), 64U);
    EXPECT_EQ(texts[0], "ORBKIT_LIB >>> ERROR in kl_sun: Input time reference ID is not correct");
    EXPECT_EQ(texts[62], texts[0]);
    EXPECT_EQ(texts[63], "ORBKIT_LIB >>> ERROR in kl_sun: Input date is out of range");
}

} // namespace
