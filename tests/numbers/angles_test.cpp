// Angles and complex numbers.
#include "kl_family.h"
#include "support/captured_stream.h"
#include "support/csv.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <map>

namespace {

constexpr double kRounded = 2e-15;

TEST(Angles, HaveTheirValues)
{
    const std::map<std::string, double (*)(double)> functions = {
        {"KL_to_2pi", KL_to_2pi},         {"KL_to_pi", KL_to_pi},
        {"KL_to_360", KL_to_360},         {"KL_to_180", KL_to_180},
        {"KL_to_deg", KL_to_deg},         {"KL_to_rad", KL_to_rad},
        {"KL_Get_Bessel", KL_Get_Bessel}, {"KL_Get_ut2_ut1", KL_Get_ut2_ut1}};
    const Csv rows("tests/data/angles.csv");
    for (std::size_t i = 0; i < rows.size(); ++i)
        EXPECT_NEAR(functions.at(rows.text(i, 0))(rows.number(i, 1)), rows.number(i, 2), rows.number(i, 3))
            << rows.text(i, 0) << " of " << rows.text(i, 1);
    for (const double turns : {-18849.55592153876, 106.81415022205296}) // rounding leaves neither end
        EXPECT_EQ(KL_to_2pi(turns), 0.0);
    for (const double nothing : {KL_to_2pi(-HUGE_VAL), KL_to_2pi(HUGE_VAL)})
        EXPECT_TRUE(std::isnan(nothing));
}

// Of angles within a turn: three units of the last place, and one for the turn into degrees.
TEST(DegreeTrigonometry, IsGoodToUnitsOfTheLastPlace)
{
    const std::map<std::string, double (*)(double, double)> functions = {
        {"KL_degatan2", KL_degatan2},
        {"KL_degasin", [](double x, double) { return KL_degasin(x); }},
        {"KL_degacos", [](double x, double) { return KL_degacos(x); }},
        {"KL_degsin", [](double x, double) { return KL_degsin(x); }},
        {"KL_degcos", [](double x, double) { return KL_degcos(x); }}};
    const Csv rows("tests/data/degree_functions.csv");
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const double found = functions.at(rows.text(i, 0))(rows.number(i, 1), rows.number(i, 2));
        const double value = rows.number(i, 3);
        const double unit = std::fmax(std::fabs(value) * 0x1p-52, std::numeric_limits<double>::denorm_min());
        EXPECT_NEAR(found, value, 4.0 * unit)
            << rows.text(i, 0) << " of " << rows.text(i, 1) << ", " << rows.text(i, 2);
        EXPECT_EQ(std::signbit(found), std::signbit(value)) << rows.text(i, 0) << " of " << rows.text(i, 1);
    }
    for (double nothing : {KL_degatan2(std::nan(""), 1.0), KL_degatan2(1.0, std::nan("")), KL_degsin(HUGE_VAL)})
        EXPECT_TRUE(std::isnan(nothing));
}

TEST(DegreeTrigonometry, ArcsOutOfLimitsAreClampedWithALine)
{
    for (double x : {1.0000001, -2.0}) {
        const double sign = std::copysign(1.0, x);
        EXPECT_EQ(captured_stderr([&] { EXPECT_NEAR(KL_degasin(x), 90.0 * sign, 1e-13); }),
                  "ERROR in KL_degasin: arc-sine out of limits \n");
        EXPECT_EQ(captured_stderr([&] { EXPECT_NEAR(KL_degacos(x), 90.0 - 90.0 * sign, 1e-13); }),
                  "ERROR in KL_degacos: arc-cosine out of limits \n");
    }
}

TEST(DegreeTrigonometry, Degtan2IsTheTangentOfAQuotientOnPurpose)
{
    EXPECT_NEAR(KL_degtan2(90.0, 120.0), 0.931596459944072461, 1e-14); // tan(0.75)
}

// Roots and quotients are scaled before they overflow.
TEST(ComplexNumbers, HaveTheirValues)
{
    const std::map<std::string, kl_complex (*)(kl_complex, kl_complex)> functions = {
        {"KL_Cadd", KL_Cadd},
        {"KL_Csub", KL_Csub},
        {"KL_Cmul", KL_Cmul},
        {"KL_Cdiv", KL_Cdiv},
        {"KL_Conjg", [](kl_complex a, kl_complex) { return KL_Conjg(a); }},
        {"KL_Csqrt", [](kl_complex a, kl_complex) { return KL_Csqrt(a); }},
        {"KL_Cabs", [](kl_complex a, kl_complex) { return KL_Complex(KL_Cabs(a), 0.0); }},
        {"KL_RCmul", [](kl_complex a, kl_complex b) { return KL_RCmul(b.re, a); }}};
    const Csv rows("tests/data/complex.csv");
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const kl_complex a = {rows.number(i, 1), rows.number(i, 2)}, b = {rows.number(i, 3), rows.number(i, 4)};
        const kl_complex z = functions.at(rows.text(i, 0))(a, b);
        EXPECT_NEAR(z.re, rows.number(i, 5), kRounded * std::fabs(rows.number(i, 5))) << rows.text(i, 0) << " " << a.re;
        EXPECT_NEAR(z.im, rows.number(i, 6), kRounded * std::fabs(rows.number(i, 6))) << rows.text(i, 0) << " " << a.re;
    }
}

} // namespace
