// On-board clocks of the four missions, to processing time and back.
#include "time/time_table.h"

#include <climits>
#include <cmath>
#include <functional>
#include <limits>
#include <random>

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr long kTarvos = 21, kVardo = 51, kKelda = 61, kBrisa = 71;
constexpr unsigned long kHalfTurn = 1UL << 31;       // counts of the Tarvos counter
constexpr unsigned long kHalfCount = 1UL << 31;      // fine
constexpr unsigned long kSecondStep = 1000000000000; // picoseconds
constexpr unsigned long kDayStep = 86400 * kSecondStep;
constexpr unsigned long kTick = 864000000; // of a day
constexpr double kFine = 1.0 / 4294967296.0;
constexpr long kTai = KL_TIME_TAI;

struct Outcome {
    long status, ierr;
};

template <typename Parameters, typename Obt>
Outcome to_time(long sat_id, const Parameters &parameters, const Obt &obt, double *time, long ref = KL_TIME_TAI)
{
    Outcome out{KL_OK, -1};
    out.status = kl_time_obt_to_time(&sat_id, &ref, &parameters, &obt, time, &out.ierr);
    return out;
}

template <typename Parameters, typename Obt>
Outcome to_obt(long sat_id, const Parameters &parameters, double time, Obt *obt, long ref = KL_TIME_TAI)
{
    Outcome out{KL_OK, -1};
    out.status = kl_time_time_to_obt(&sat_id, &ref, &parameters, &time, obt, &out.ierr);
    return out;
}

// ---- Tarvos ----

TEST(Tarvos, CountsFromTheReferenceAndWrapsAfterHalfATurn)
{
    struct Case {
        const char *name;
        kl_obt_param_tarvos ref;
        unsigned long coarse, fine;
        double time;
    };
    constexpr Case kCases[] = {
        {"a day of seconds", {kTarvos, 1000.0, 0, 0, kSecondStep}, 86400, 0, 1001.0},
        {"the last count before", {kTarvos, 1000.0, 0, 0, kSecondStep}, 0xffffffff, 0, 1000.0 - 1.0 / kDay},
        {"half a count before", {kTarvos, 1000.0, 0, 0, kDayStep}, 0xffffffff, kHalfCount, 999.5},
        {"the least fine difference", {kTarvos, 1000.0, 0, 1, kDayStep}, 0, 0, 1000.0 - kFine},
        {"the same a turn on", {kTarvos, 1000.0, 0, 1, kDayStep}, 1UL << 32, 0, 1000.0 - kFine},
        {"the least fine difference far on", {kTarvos, 10.0, 7, 0, kDayStep}, 0xffffffff, 1, 10.0 - 8.0 + kFine},
        {"half a turn stays", {kTarvos, 1000.0, 0, 0, kTick}, kHalfTurn, 0, 1021.47483648},
        {"half a turn back stays", {kTarvos, 1000.0, kHalfTurn, 0, kTick}, 0, 0, 978.52516352},
        {"more than half a turn goes back", {kTarvos, 1000.0, 0, 0, kTick}, kHalfTurn + 1, 0, 978.52516353},
        {"more than half a turn back", {kTarvos, 1000.0, kHalfTurn + 1, 0, kTick}, 0, 0, 1021.47483647},
        {"a turn and a half", {kTarvos, 1000.0, 0, 0, kTick}, 3 * kHalfTurn, 0, 1021.47483648},
        {"a turn and a half back", {kTarvos, 1000.0, 3 * kHalfTurn, 0, kTick}, 0, 0, 978.52516352},
        {"a thousand turns", {kTarvos, 1000.0, 0, 0, kSecondStep}, (1000UL << 32) + 86400, 0, 1001.0},
        {"as many turns as a field holds", {kTarvos, 1000.0, 0, 0, kSecondStep}, ULONG_MAX - 0xffffffff, 0, 1000.0},
    };
    for (const Case &c : kCases) {
        const kl_obt_tarvos obt = {kTarvos, c.coarse, c.fine};
        double time = kNaN;
        const Outcome out = to_time(kTarvos, c.ref, obt, &time);
        EXPECT_EQ(out.status, KL_OK) << c.name;
        EXPECT_EQ(out.ierr, 0) << c.name;
        EXPECT_NEAR(time, c.time, 1.2e-13) << c.name; // spacing of doubles there
    }
}

TEST(Tarvos, AgreesWithTheCounterAsAWrappingInteger)
{
    // Coarse and fine together are a 64-bit counter of 2^-32 counts.
    std::mt19937_64 random(5);
    for (int i = 0; i < 100000; ++i) {
        const std::uint64_t now = random();
        const std::uint64_t reference = i % 2 == 0 ? random() : now - (random() >> (8 + i % 50));
        const kl_obt_param_tarvos ref = {kTarvos, 1000.0, reference >> 32, reference & 0xffffffff, kTick};
        const kl_obt_tarvos obt = {kTarvos, now >> 32, now & 0xffffffff};
        double time = kNaN;
        ASSERT_EQ(to_time(kTarvos, ref, obt, &time).status, KL_OK);
        const auto difference = static_cast<std::int64_t>(now - reference);
        const double want = 1000.0 + static_cast<double>(difference) * kFine * 1e-8;
        ASSERT_NEAR(time, want, 2.4e-13) << now << " " << reference;
    }
}

TEST(Tarvos, TimeGivesTheCountsBack)
{
    struct Case {
        const char *name;
        kl_obt_param_tarvos ref;
        double time;
        unsigned long coarse, fine;
    };
    constexpr Case kCases[] = {
        {"a day of seconds", {kTarvos, 1000.0, 5, 0, kSecondStep}, 1001.0, 86405, 0},
        {"half a count", {kTarvos, 1000.0, 5, 0, kDayStep}, 1000.5, 5, kHalfCount},
        {"fine counts carry", {kTarvos, 1000.0, 5, kHalfCount, kDayStep}, 1000.5, 6, 0},
        {"fine counts borrow", {kTarvos, 1000.0, 5, 1, kDayStep}, 1000.0 - 2 * kFine, 4, 0xffffffff},
        {"before count 0", {kTarvos, 1000.0, 0, 0, kDayStep}, 999.0, 0xffffffff, 0},
        {"after the last count", {kTarvos, 1000.0, 0xffffffff, 0, kDayStep}, 1002.0, 1, 0},
        {"a reference beyond the counter", {kTarvos, 1000.0, (7UL << 32) + 3, 0, kDayStep}, 1001.0, 4, 0},
        {"fine counts are cut", {kTarvos, 1000.0, 0, 0, 3 * kDayStep}, 1002.0, 0, 0xaaaaaaaa},
    };
    for (const Case &c : kCases) {
        kl_obt_tarvos obt = {kTarvos, 77, 77};
        EXPECT_EQ(to_obt(kTarvos, c.ref, c.time, &obt).status, KL_OK) << c.name;
        EXPECT_EQ(obt.coarse, c.coarse) << c.name;
        EXPECT_EQ(obt.fine, c.fine) << c.name;
    }
}

TEST(Tarvos, EveryClockStepIsTakenWithoutALoop)
{
    // 10^21 counts from the reference: whole turns are taken off at once.
    const kl_obt_param_tarvos ref = {kTarvos, -18262.0, 0, 0, 1};
    kl_obt_tarvos obt = {kTarvos, 0, 0};
    EXPECT_EQ(to_obt(kTarvos, ref, 36524.0, &obt).status, KL_OK);
    EXPECT_LE(obt.coarse, 0xffffffffUL);
    EXPECT_LE(obt.fine, 0xffffffffUL);
}

// ---- Kelda, Brisa, Vardo ----

TEST(Kelda, HasGainAndOffset)
{
    const kl_obt_param_kelda ref = {kKelda, 100, 32768, 10, 16384, 2.0, -1.0};
    const kl_obt_kelda obt = {kKelda, 20.25}; // 10 s on: 20 s less 1 s after 100.5 s
    double time = kNaN;
    EXPECT_EQ(to_time(kKelda, ref, obt, &time).status, KL_OK);
    EXPECT_DOUBLE_EQ(time, 119.5 / kDay);
    kl_obt_kelda back = {kKelda, 0.0};
    EXPECT_EQ(to_obt(kKelda, ref, 119.5 / kDay, &back).status, KL_OK);
    EXPECT_NEAR(back.obt, 20.25, 1e-12);
    const kl_obt_param_kelda fractions = {kKelda, 4000000000, 0xffffffff, 4000000000, 0xffffffff, 1.0, 0.0};
    const kl_obt_kelda later = {kKelda, 4000000000.0 - 3000000000.0 + 65535.99998474121};
    EXPECT_EQ(to_time(kKelda, fractions, later, &time).status, KL_OK); // unsigned 32-bit fractions of 2^-16 s
    EXPECT_NEAR(time * kDay, 1000065535.99998474121, 1e-6);
}

TEST(Brisa, CountsFromASecondOfAGpsWeek)
{
    struct Case {
        const char *name;
        kl_obt_param_brisa ref;
        unsigned long coarse, fine;
        double time;
    };
    // Week 1042 begins 6 days before 2000-01-01.
    constexpr Case kCases[] = {
        {"2000-01-01", {kBrisa, 0, 1000, 0, 1042, 518400, 0}, 1000, 0, 0.0},
        {"a day later", {kBrisa, 0, 1000, 0, 1042, 518400, 0}, 87400, 0, 1.0},
        {"the offset is taken away", {kBrisa, 43200, 1000, 0, 1042, 518400, 0}, 87400, 0, 0.5},
        {"a negative offset", {kBrisa, -43200, 1000, 0, 1042, 518400, 0}, 87400, 0, 1.5},
        {"fractions of the week and of the counts",
         {kBrisa, 0, 0, 16384, 1042, 518337, 32768},
         62,
         49152,
         0.0}, // 518337.5 + 62.75 - 0.25
        {"before the reference", {kBrisa, 0, 86400, 0, 1042, 518400, 0}, 0, 0, -1.0},
        {"fine counts below the reference's", {kBrisa, 0, 10, 65535, 1043, 0, 1}, 10, 65534, 1.0},
    };
    for (const Case &c : kCases) {
        double time = kNaN;
        EXPECT_EQ(to_time(kBrisa, c.ref, kl_obt_brisa{kBrisa, c.coarse, c.fine}, &time).status, KL_OK) << c.name;
        EXPECT_NEAR(time, c.time, 1e-15) << c.name;
        kl_obt_brisa back = {kBrisa, 77, 77};
        EXPECT_EQ(to_obt(kBrisa, c.ref, c.time, &back).status, KL_OK) << c.name;
        EXPECT_EQ(back.coarse, c.coarse) << c.name;
        EXPECT_EQ(back.fine, c.fine) << c.name;
    }
}

TEST(Vardo, CountsGpsSecondsAndAnOffset)
{
    struct Case {
        const char *name;
        long offset;
        unsigned long coarse, fine;
        double time;
    };
    constexpr Case kCases[] = {
        {"2000-01-01", 0, 630720000, 0, 0.0},
        {"1980-01-06", 0, 0, 0, -7300.0},
        {"half a day", 0, 43200, 0, -7299.5},
        {"the offset is taken away", 3600, 3600, 0, -7300.0},
        {"a negative offset", -86400, 0, 0, -7299.0},
        {"fine counts", 0, 630720337, 32768, 0.00390625}, // 337.5 s = 2^-8 day
    };
    for (const Case &c : kCases) {
        const kl_obt_param_vardo ref = {kVardo, c.offset};
        double time = kNaN;
        EXPECT_EQ(to_time(kVardo, ref, kl_obt_vardo{kVardo, c.coarse, c.fine}, &time).status, KL_OK) << c.name;
        EXPECT_NEAR(time, c.time, 1e-12) << c.name;
        kl_obt_vardo back = {kVardo, 77, 77};
        EXPECT_EQ(to_obt(kVardo, ref, c.time, &back).status, KL_OK) << c.name;
        EXPECT_EQ(back.coarse, c.coarse) << c.name;
        EXPECT_EQ(back.fine, c.fine) << c.name;
    }
}

TEST(OnBoardTime, ComesBackWithinOneCount)
{
    // Fine counts are cut: one less than before at most, as far as days hold the instant.
    std::mt19937_64 random(17);
    for (int i = 0; i < 20000; ++i) {
        const kl_obt_param_brisa brisa = {kBrisa,
                                          static_cast<long>(random() % 100),
                                          random() % 1000000,
                                          random() % 65536,
                                          1042 + random() % 1000,
                                          random() % 604800,
                                          random() % 65536};
        const kl_obt_brisa obt = {kBrisa, brisa.ref_coarse + random() % 100000000, random() % 65536};
        kl_obt_brisa back = {kBrisa, 0, 0};
        double time = kNaN;
        ASSERT_EQ(to_time(kBrisa, brisa, obt, &time).status, KL_OK);
        ASSERT_EQ(to_obt(kBrisa, brisa, time, &back).status, KL_OK);
        const auto counts = [](const kl_obt_brisa &c) { return static_cast<long>(c.coarse << 16 | c.fine); };
        ASSERT_LE(counts(obt) - counts(back), 1) << i;
        ASSERT_GE(counts(obt), counts(back)) << i;
    }
}

// ---- conditions ----

struct Any { // a good call of every format
    kl_obt_param_tarvos tarvos = {kTarvos, 1000.0, 0, 0, kSecondStep};
    kl_obt_param_kelda kelda = {kKelda, 0, 0, 0, 0, 1.0, 0.0};
    kl_obt_param_brisa brisa = {kBrisa, 0, 0, 0, 1042, 518400, 0};
    kl_obt_param_vardo vardo = {kVardo, 0};
    kl_obt_tarvos counts = {0, 77, 77};
    kl_obt_kelda seconds = {0, 77.0};
    long sat_id = kTarvos, ref = KL_TIME_TAI;
    double time = 1000.0;

    void *parameters()
    {
        return sat_id == kKelda   ? static_cast<void *>(&kelda)
               : sat_id == kBrisa ? &brisa
               : sat_id == kVardo ? static_cast<void *>(&vardo)
                                  : &tarvos;
    }
    void *obt() { return sat_id == kKelda ? static_cast<void *>(&seconds) : &counts; }
    void tag_obt() { counts.sat_id = seconds.sat_id = sat_id; }
};

struct ConditionCase {
    const char *name;
    std::function<void(Any &)> spoil;
    long to_time, to_obt; // conditions, -1 for none
};

TEST(OnBoardTime, TellsWhatIsWrong)
{
    // clang-format off
    const ConditionCase cases[] = {
        {"nothing, Tarvos", [](Any &) {}, -1, -1},
        {"nothing, Kelda", [](Any &a) { a.sat_id = kKelda; }, -1, -1},
        {"nothing, Brisa", [](Any &a) { a.sat_id = kBrisa; }, -1, -1},
        {"nothing, Vardo", [](Any &a) { a.sat_id = kVardo; }, -1, -1},
        {"no such satellite", [](Any &a) { a.sat_id = 155; }, 0, 0},
        {"a free default satellite", [](Any &a) { a.sat_id = 3; }, 0, 0},
        {"parameters of another satellite", [](Any &a) { a.tarvos.sat_id = kBrisa; }, 2, 2},
        {"no format, tagged otherwise", [](Any &a) { a.sat_id = 200; }, 2, 2},
        {"no format and a bad scale", [](Any &a) { a.sat_id = a.tarvos.sat_id = 200; a.ref = 9; }, 4, 5},
        {"scale, Tarvos", [](Any &a) { a.ref = 4; }, 1, 1},
        {"scale, Kelda", [](Any &a) { a.sat_id = kKelda; a.ref = -1; }, 1, 1},
        {"scale, Brisa", [](Any &a) { a.sat_id = kBrisa; a.ref = 4; }, 1, 1},
        {"scale, Vardo", [](Any &a) { a.sat_id = kVardo; a.ref = 4; }, 1, 1},
        {"scale before times", [](Any &a) { a.tarvos.ref_time = a.time = kNaN; a.ref = 4; }, 1, 1},
        {"reference time", [](Any &a) { a.tarvos.ref_time = 36524.5; }, 3, 4},
        {"reference time before clock step", [](Any &a) { a.tarvos = {kTarvos, kNaN, 0, 0, 0}; }, 3, 4},
        {"clock step", [](Any &a) { a.tarvos.clock_step = 0; }, 6, 7},
        {"time too late", [](Any &a) { a.time = 36524.001; }, -1, 3},
        {"time before reference time", [](Any &a) { a.time = a.tarvos.ref_time = kNaN; }, 3, 3},
        {"result too late", [](Any &a) { a.sat_id = kVardo; a.counts.coarse = 1UL << 40; }, 7, -1},
        {"result too early", [](Any &a) { a.sat_id = kVardo; a.vardo.offset = LONG_MAX; }, 7, -1},
        {"reading no number", [](Any &a) { a.sat_id = kKelda; a.seconds.obt = kNaN; }, 7, -1},
        {"count below 0, Vardo", [](Any &a) { a.sat_id = kVardo; a.time = -7300.001; }, -1, 6},
        {"count below 0, Brisa", [](Any &a) { a.sat_id = kBrisa; a.time = -0.5; }, -1, 6},
        {"count beyond 64 bits", [](Any &a) { a.sat_id = kBrisa; a.brisa.ref_coarse = ULONG_MAX; }, 7, 6},
        {"gain 0", [](Any &a) { a.sat_id = kKelda; a.kelda.gain = 0.0; }, -1, 6},
        {"gain no number", [](Any &a) { a.sat_id = kKelda; a.kelda.gain = kNaN; }, 7, 6},
        {"offset infinite", [](Any &a) { a.sat_id = kKelda; a.kelda.offset = kInfinity; }, 7, 6},
    };
    // clang-format on
    for (const ConditionCase &c : cases) {
        Any any;
        c.spoil(any);
        any.tag_obt();
        double time = 77.0;
        long ierr = -1;
        EXPECT_EQ(kl_time_obt_to_time(&any.sat_id, &any.ref, any.parameters(), any.obt(), &time, &ierr),
                  c.to_time < 0 ? KL_OK : KL_ERR)
            << c.name;
        EXPECT_EQ(ierr, c.to_time < 0 ? 0 : error_bit(c.to_time)) << c.name;
        EXPECT_TRUE(c.to_time < 0 || time == 77.0) << c.name;

        const Any before = any;
        EXPECT_EQ(kl_time_time_to_obt(&any.sat_id, &any.ref, any.parameters(), &any.time, any.obt(), &ierr),
                  c.to_obt < 0 ? KL_OK : KL_ERR)
            << c.name;
        EXPECT_EQ(ierr, c.to_obt < 0 ? 0 : error_bit(c.to_obt)) << c.name;
        if (c.to_obt >= 0) {
            EXPECT_EQ(any.counts.coarse, before.counts.coarse) << c.name;
            EXPECT_EQ(any.counts.fine, before.counts.fine) << c.name;
        }
    }
}

TEST(OnBoardTime, TheOutputRecordMustBeTaggedBeforeTheCall)
{
    const kl_obt_param_vardo ref = {kVardo, 0};
    kl_obt_vardo obt = {0, 77, 77};
    EXPECT_EQ(to_obt(kVardo, ref, 0.0, &obt).ierr, error_bit(KL_TIME_TIME_TO_OBT_TAG_ERR));
    EXPECT_EQ(obt.coarse, 77u);
    obt.sat_id = kVardo;
    EXPECT_EQ(to_obt(kVardo, ref, 0.0, &obt).ierr, 0);
    EXPECT_EQ(obt.coarse, 630720000u);
}

TEST(OnBoardTime, MissingArgumentsAreTheConditionsOfTheirInputs)
{
    const kl_obt_param_vardo ref = {kVardo, 0};
    kl_obt_vardo obt = {kVardo, 0, 0};
    double time = 0.0;
    const long *none = nullptr;
    // clang-format off
    expect_refused({
        {0, [&](long *e) { return kl_time_obt_to_time(none, &kTai, &ref, &obt, &time, e); }},
        {1, [&](long *e) { return kl_time_obt_to_time(&kVardo, none, &ref, &obt, &time, e); }},
        {2, [&](long *e) { return kl_time_obt_to_time(&kVardo, &kTai, nullptr, &obt, &time, e); }},
        {2, [&](long *e) { return kl_time_obt_to_time(&kVardo, &kTai, &ref, nullptr, &time, e); }},
        {-1, [&](long *e) { return kl_time_obt_to_time(&kVardo, &kTai, &ref, &obt, nullptr, e); }},
        {0, [&](long *e) { return kl_time_time_to_obt(none, &kTai, &ref, &time, &obt, e); }},
        {1, [&](long *e) { return kl_time_time_to_obt(&kVardo, none, &ref, &time, &obt, e); }},
        {2, [&](long *e) { return kl_time_time_to_obt(&kVardo, &kTai, nullptr, &time, &obt, e); }},
        {3, [&](long *e) { return kl_time_time_to_obt(&kVardo, &kTai, &ref, nullptr, &obt, e); }},
        {2, [&](long *e) { return kl_time_time_to_obt(&kVardo, &kTai, &ref, &time, nullptr, e); }},
    });
    // clang-format on
}

} // namespace
