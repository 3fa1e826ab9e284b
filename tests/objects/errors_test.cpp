// What a failure carries, and when it is thrown.
#include "orbkit.hpp"
#include "support/captured_stream.h"

#include <gtest/gtest.h>

#include <climits>
#include <memory>
#include <type_traits>

using namespace ORBKIT;

namespace {

std::vector<long> codes_of(const LibError &error)
{
    std::vector<long> codes;
    error.getCodes(codes);
    return codes;
}

std::vector<std::string> messages_of(const LibError &error)
{
    std::vector<std::string> messages;
    error.getMsg(messages);
    return messages;
}

TEST(LibError, KeepsItsOwnCopyOfTheVector)
{
    long ierr[1] = {LONG_MIN | 1L << 1 | 1L << 2};
    const LibError error("Class::method", KL_ERR, KL_ID_FUNC_SUN, ierr);
    ierr[0] = 0;
    EXPECT_EQ(codes_of(error), (std::vector<long>{1, 2}));
    EXPECT_EQ(messages_of(error),
              (std::vector<std::string>{"Class::method", "ORBKIT_LIB >>> ERROR in kl_sun: Input date is out of range",
                                        "ORBKIT_LIB >>> ERROR in kl_sun: Time Reference not initialised"}));
    EXPECT_EQ(error.status(), KL_ERR);
    EXPECT_EQ(error.functionId(), KL_ID_FUNC_SUN);
    EXPECT_EQ(error.library(), 2);
    EXPECT_EQ(error.kind(), 2);
}

TEST(LibError, AppendsToWhatIsThere)
{
    const long ierr[1] = {LONG_MIN | 1L};
    const LibError error("Class::method", KL_ERR, KL_ID_FUNC_MOON, ierr);
    std::vector<long> codes = {99};
    error.getCodes(codes);
    EXPECT_EQ(codes, (std::vector<long>{99, 0}));
    std::vector<std::string> messages = {"before"};
    error.getMsg(messages);
    ASSERT_EQ(messages.size(), 3u);
    EXPECT_EQ(messages[0], "before");
}

TEST(LibError, ReadsBothWordsOfTheOneFunctionThatHasTwo)
{
    const long ierr[2] = {0, LONG_MIN | 1L << 1};
    EXPECT_EQ(codes_of(LibError("a::b", KL_ERR, KL_ID_FUNC_TIME_ASCII_TO_ASCII, ierr)), std::vector<long>{33});
    EXPECT_TRUE(codes_of(LibError("a::b", KL_ERR, KL_ID_FUNC_TIME_ASCII_TO_ASCII, nullptr)).empty());
}

TEST(LibError, ClonesAsWhatItIs)
{
    static_assert(std::is_base_of_v<InternalError, LibError>);
    const long ierr[1] = {LONG_MIN | 1L};
    auto error = std::make_unique<LibError>("a::b", KL_ERR, KL_ID_FUNC_SUN, ierr);
    const std::unique_ptr<InternalError> clone(static_cast<const InternalError &>(*error).clone());
    error.reset();
    const auto *lib_error = dynamic_cast<const LibError *>(clone.get()); // the type crosses the library boundary
    ASSERT_NE(lib_error, nullptr);
    EXPECT_EQ(codes_of(*lib_error), std::vector<long>{0});
    LibError assigned("c::d", KL_WARN, KL_ID_FUNC_MOON, nullptr);
    assigned = *lib_error;
    EXPECT_EQ(messages_of(assigned), messages_of(*lib_error));
}

TEST(LibError, OnPurposeFailureOfEulerToMatrixDecodesToNothing)
{
    constexpr const char *kNoMessages =
        "ERROR in KL_Err_Vector: function id does not have and equivalent KIT function\n"
        "ERROR in kl_get_msg: Could not create and err structure\n";
    EXPECT_EQ(captured_stderr([] {
                  try {
                      LibFunc::eulerToMatrix(nullptr, nullptr);
                      ADD_FAILURE() << "no exception";
                  } catch (const KitError &error) {
                      EXPECT_EQ(error.error()->functionId(), 40);
                      EXPECT_EQ(error.getMsg(), std::vector<std::string>{"LibFunc::eulerToMatrix"});
                  }
              }),
              kNoMessages);
    const long ierr[1] = {LONG_MIN | 1L};
    EXPECT_EQ(captured_stderr([&] { EXPECT_TRUE(codes_of(LibError("a::b", KL_ERR, 40, ierr)).empty()); }),
              "ERROR in kl_get_code: function id does not have an equivalent KIT function\n");
}

TEST(KitError, CarriesTheFailureAndItsText)
{
    try {
        ModelId(KL_MODEL_USER, {5, 0, 0, 0, 0, 0, 0, 0, 0});
        FAIL() << "no exception";
    } catch (const std::exception &caught) { // as any exception of the language
        const auto *error = dynamic_cast<const KitError *>(&caught);
        ASSERT_NE(error, nullptr);
        EXPECT_NE(dynamic_cast<const LibError *>(error->error()), nullptr);
        EXPECT_EQ(error->status(), KL_ERR);
        EXPECT_STREQ(error->what(), "ModelId::init\n"
                                    "ORBKIT_LIB >>> ERROR in kl_model_init: Wrong enumeration value for %s model");
        KitError copy(*error);
        copy.addMsg("while opening");
        EXPECT_EQ(copy.getMsg().back(), "while opening");
        EXPECT_EQ(error->getMsg().size(), 2u);
    }
}

// An extrapolation is a complete result with a warning.
class Warnings : public testing::Test {
protected:
    ~Warnings() override { KitClass::throwWarn = false; }

    static Quaternion extrapolate()
    {
        QuaternionsInterpolationCfg cfg = {KL_INTERPOL_SLERP, 0.0, {0, 0, 0, 1}, 1.0, {0, 0, 0.6, 0.8}, 2.0};
        return LibFunc::quaternionsInterpol(cfg);
    }
};

TEST_F(Warnings, AreDroppedByDefault)
{
    ASSERT_FALSE(KitClass::throwWarn);
    const Quaternion q = extrapolate(); // twice the angle whose half has sine 0.6 and cosine 0.8
    EXPECT_NEAR(q[2], 2 * 0.6 * 0.8, 1e-15);
    EXPECT_NEAR(q[3], 0.8 * 0.8 - 0.6 * 0.6, 1e-15);
}

TEST_F(Warnings, AreThrownWhenTheSwitchIsSet)
{
    KitClass::throwWarn = true;
    try {
        extrapolate();
        FAIL() << "no exception";
    } catch (const KitError &error) {
        EXPECT_EQ(error.status(), KL_WARN);
        EXPECT_EQ(error.getMsg().at(1),
                  "ORBKIT_LIB >>> WARNING in kl_quaternions_interpol: Time interpolation parameter "
                  "out of quaternions range. Extrapolation will be used.");
    }
    QuaternionsInterpolationCfg inside = {KL_INTERPOL_SLERP, 0.0, {0, 0, 0, 1}, 1.0, {0, 0, 0.6, 0.8}, 0.5};
    EXPECT_NO_THROW(LibFunc::quaternionsInterpol(inside)) << "what succeeds is not touched by the switch";
}

} // namespace
