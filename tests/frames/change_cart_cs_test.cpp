// The public frame change: conditions, modes, time scales, once-only warnings, no memory asked for.
#include "support/captured_stream.h"
#include "support/chain_state.h"
#include "support/csv.h"
#include "support/fault_injection.h"
#include "support/owned_model.h"

namespace {

constexpr double kUt1Day = 9000.25;
constexpr long kFull = KL_CALC_POS_VEL_ACC;
constexpr long kVector = 11; // argument

struct Call {
    kl_time_id *time_id;
    long mode = kFull, from = KL_GM2000, to = KL_EF, ref = KL_TIME_UT1;
    double time = kUt1Day;
    kl_model_id *model_id = nullptr;
    const double (*in)[3] = kStart;
    double out[3][3] = {{7, 7, 7}, {7, 7, 7}, {7, 7, 7}};
    long ierr = 99;

    long operator()(long missing = kNone)
    {
        const AllBut arg{missing};
        return kl_change_cart_cs(model_id, time_id, arg(0, &mode), arg(1, &from), arg(2, &to), arg(3, &ref),
                                 arg(4, &time), arg(5, in[0]), arg(6, in[1]), arg(7, in[2]), arg(8, out[0]),
                                 arg(9, out[1]), arg(10, out[2]), arg(kVector, &ierr));
    }
    bool untouched() const
    {
        return std::all_of(out[0], out[0] + 9, [](double x) { return x == 7.0; });
    }
};

TEST(ChangeCartCs, RefusesBadInputWithItsConditions)
{
    OwnedModel refused;
    ASSERT_EQ(refused.select(KL_MODEL_PRECESSION, 99), KL_ERR);
    ChainTimeId known;
    kl_time_id empty{};
    for (const auto &[name, given, mode, from, to, ref, time, missing_argument, bits] :
         read_rows<std::string, std::string, long, long, long, long, double, long, Bits>("frame_change_refusals.csv"))
        for (kl_time_id *missing : {&empty, static_cast<kl_time_id *>(nullptr)}) {
            Call call{given == "none" ? missing : &known.id, mode, from, to, ref, time};
            call.model_id = given == "known, refused model" ? &refused.id : nullptr;
            call.ierr = missing_argument == kVector ? 0 : 77;
            EXPECT_EQ(call(missing_argument), status_with(bits)) << name;
            EXPECT_EQ(call.ierr, bits == kRefused ? 0 : bits.value) << name;
            const bool late = bits == error_bits(KL_CHANGE_CART_CS_TAI_ERR); // the state has been carried
            EXPECT_EQ(call.untouched(), bits != kNothing && !late) << name;
        }
}

// Above the mode the outputs are zero; they may be the inputs. Not even a default model asks for memory.
TEST(ChangeCartCs, IsTheChainInEveryModeFramesAndScaleWithoutMemory)
{
    ChainTimeId id;
    for (long mode = KL_CALC_POS; mode <= kFull; ++mode)
        for (long from : kFrames)
            for (long to : kFrames) {
                SCOPED_TRACE(testing::Message() << from << " to " << to << ", mode " << mode);
                ChainState state(from);
                ASSERT_NE(carry(&id.id, {kUt1, kMjd2000, kUt1Day}, &state, to), KL_ERR);
                for (long above = mode; above < 3; ++above)
                    std::fill_n(state.store[above], 4, 0.0);
                // A whole microsecond of UT1 comes through every scale unharmed.
                const long ref = (mode + from + to) % 4;
                const double time = kUt1Day + (kBehindTai[KL_TIME_UT1] - kBehindTai[ref]) / kDay;
                Call call{&id.id, mode, from, to, ref, time};
                faults::Fail memory(faults::Site::kAllocation);
                expect_outcome(call(), call.ierr, kNone, "apart");
                EXPECT_FALSE(memory.disarm());
                EXPECT_TRUE(state.is(call.out));
                std::copy(kStart[0], kStart[0] + 9, call.out[0]);
                call.in = call.out;
                EXPECT_EQ(call(), KL_OK);
                EXPECT_TRUE(state.is(call.out)) << "in place";
            }
}

// So its warnings come with positions too. They have no public text and show on standard error alone.
TEST(ChangeCartCs, CarriesTheWholeStateInEveryModeOnPurpose)
{
    ChainTimeId id;
    Call call{&id.id, KL_CALC_POS, KL_BM2000};
    EXPECT_EQ(verbose_text([&] { EXPECT_EQ(call(), KL_OK); }),
              "ORBKIT_LIB >>> WARNING in KL_Change_CoordinateSystem: Transformation ToD<->PToD skipped\n"
              "ORBKIT_LIB >>> WARNING in KL_Change_CoordinateSystem: Zero acceleration between baricentric, "
              "heliocentric and geocentric systems considered\n");
}

TEST(ChangeCartCs, WarnsOnceOnLeavingTheTableWhateverConversionsHaveWarnedOf)
{
    const Table table(
        {row_at(0.0, 32.0, 31.0), row_at(10.0, 32.0, 31.5), row_at(20.0, 32.0, 31.5), row_at(30.0, 32.0, 32.0)});
    Table by_formula = table, with_gap = table;
    by_formula.data.no_extrapolation = 0;
    with_gap.data.combination = 2;
    with_gap.data.second_bulletin_row = 2;
    TableId held(table), formula(by_formula), gap(with_gap), converted(ten_days());
    EXPECT_EQ(convert(converted, KL_TIME_TAI, 20.0, KL_TIME_UT1).status, KL_WARN);
    EXPECT_EQ(convert(converted, KL_TIME_TAI, 20.0, KL_TIME_UT1).ierr & 1L << 9, 0);
    const std::map<std::string, kl_time_id *> ids = {
        {"held", held}, {"by formula", formula}, {"with a gap", gap}, {"converted", converted}};
    for (const auto &[name, tai, bits] : read_rows<std::string, double, Bits>("frame_change_warnings.csv")) {
        Call call{ids.at(name), kFull, KL_GM2000, KL_EF, KL_TIME_TAI, tai};
        EXPECT_EQ(call(), status_with(bits)) << name << " at " << tai;
        EXPECT_EQ(call.ierr, bits) << name << " at " << tai;
        EXPECT_FALSE(call.untouched());
    }
}

} // namespace
