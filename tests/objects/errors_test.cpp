// What a failure carries, and when it is thrown.
#include "objects/objects.h"

#include <memory>

using namespace ORBKIT;

namespace {

Codes codes_of(const InternalError &error)
{
    Codes codes = {99}; // what is there stays
    error.getCodes(codes);
    return codes;
}

Texts messages_of(const InternalError &error)
{
    Texts messages = {"before"};
    error.getMsg(messages);
    return messages;
}

TEST(LibError, KeepsItsOwnCopyOfTheVectorAndAppendsWhatItHolds)
{
    const long words[2] = {0, error_bits(1)};
    long ierr[1] = {error_bits(1) | error_bits(2)};
    const LibError sun("Class::method", KL_ERR, KL_ID_FUNC_SUN, ierr);
    ierr[0] = 0;
#include "objects/lib_errors.inc"
}

TEST(LibError, StaysWhatItIsInAnExceptionAndItsCopies)
{
    const long ierr[1] = {error_bits(0)};
    auto thrown = std::make_unique<KitError>(LibError("a::b", KL_ERR, KL_ID_FUNC_SUN, ierr));
    KitError copy(*thrown);
    thrown.reset();
    const auto *lib_error = dynamic_cast<const LibError *>(copy.error()); // the type crosses the library boundary
    ASSERT_NE(lib_error, nullptr);
    EXPECT_EQ(codes_of(*lib_error), (Codes{99, 0}));
    copy.addMsg("while opening");
    EXPECT_EQ(copy.getMsg(), (Texts{"a::b", messages_of(*lib_error).back(), "while opening"}));
}

TEST(LibError, CarriesTheValuesOfTheMessages)
{
    const ModelId models;
    const std::string text = thrown_by([&] { LibFunc::geoid(models, 95.5, 0.0); }).text;
    EXPECT_NE(text.find("95.500000"), std::string::npos) << text;
    const kl_geoid_input too_fine = {nullptr, 5.0, 5.0, 0.0, 361}; // the condition of bit 0
    double undulation = 0.0;
    long vector[1] = {0};
    ASSERT_EQ(kl_geoid_calc(&too_fine, &undulation, vector), KL_ERR);
    EXPECT_NE(messages_of(LibError("a::b", KL_ERR, KL_ID_FUNC_GEOID_CALC, vector)).back().find(": 361"),
              std::string::npos);
    // The vector of some other failure than the last has no values.
    thrown_by([&] { LibFunc::geoid(models, 95.5, 0.0); });
    long ierr[1] = {error_bits(KL_GEOID_CALC_LATITUDE_ERR)};
    EXPECT_NE(messages_of(LibError("a::b", KL_ERR, KL_ID_FUNC_GEOID_CALC, ierr)).back().find("95.5"),
              std::string::npos);
    ierr[0] |= error_bits(KL_GEOID_CALC_LONGITUDE_ERR);
    EXPECT_EQ(messages_of(LibError("a::b", KL_ERR, KL_ID_FUNC_GEOID_CALC, ierr)).at(2).find("95.5"), std::string::npos);
}

TEST(LibError, OnPurposeFailureOfEulerToMatrixDecodesToNothing)
{
    const std::string said =
        captured_stderr([] { FAILS("LibFunc::eulerToMatrix", 40, kNoCode, LibFunc::eulerToMatrix(nullptr, nullptr)) });
    EXPECT_EQ(said, "ERROR in KL_Err_Vector: function id does not have and equivalent KIT function\n"
                    "ERROR in kl_get_msg: Could not create and err structure\n"
                    "ERROR in kl_get_code: function id does not have an equivalent KIT function\n");
}

// An extrapolation is a complete result with a warning.
TEST(Warnings, AreDroppedByDefaultAndThrownWhenTheSwitchIsSet)
{
    QuaternionsInterpolationCfg beyond = {KL_INTERPOL_SLERP, 0.0, {0, 0, 0, 1}, 1.0, {0, 0, 0.6, 0.8}, 2.0};
    QuaternionsInterpolationCfg inside = beyond;
    inside.t = 0.5;
    ASSERT_FALSE(KitClass::throwWarn);
    const Quaternion q = LibFunc::quaternionsInterpol(beyond); // twice the angle whose half has sine 0.6 and cosine 0.8
    EXPECT_NEAR(q[2], 2 * 0.6 * 0.8, 1e-15);
    KitClass::throwWarn = true;
    const Thrown thrown = thrown_by([&] { LibFunc::quaternionsInterpol(beyond); });
    EXPECT_NO_THROW(LibFunc::quaternionsInterpol(inside)) << "what succeeds is not touched by the switch";
    KitClass::throwWarn = false;
    EXPECT_EQ(thrown.status, KL_WARN);
    EXPECT_EQ(thrown.text.find("LibFunc::quaternionsInterpol\nORBKIT_LIB >>> WARNING in kl_quaternions_interpol"), 0U);
}

} // namespace
