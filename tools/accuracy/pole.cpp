// The Earth-fixed frame with the published pole and UT1, against ERFA's chains with the same pole and UT1, and what it
// was without a pole: the correlation compiled into the library.
#include "sky.h"

namespace {

constexpr double kRadius = 7.0e6; // m

// Two ids with the same rows, the second without their pole.
struct Ids {
    kl_time_id with = {nullptr}, without = {nullptr};

    Ids()
    {
        const long no_files = 0, all = KL_TIME_WINDOW_FILE;
        kl_time_id_data data = {};
        if (kl_time_id_init(&no_files, nullptr, nullptr, &all, nullptr, nullptr, nullptr, &with, nullptr) == KL_ERR
            || kl_time_get_id_data(&with, &data) != KL_OK)
            fail("kl_time_id_init");
        kl_time_id_data bare = data;
        bare.pole = nullptr;
        if (kl_time_set_id_data(&without, &bare) != KL_OK)
            fail("kl_time_set_id_data");
        kl_time_free_id_data(&data);
    }
    ~Ids()
    {
        kl_time_close(&with, nullptr);
        kl_time_close(&without, nullptr);
    }
};

Vector to_earth_fixed(kl_time_id *id, long from, double utc, const Vector &pos)
{
    static kl_model_id defaults = {nullptr};
    const long mode = KL_CALC_POS, to = KL_EF, ref = KL_TIME_UTC;
    const double none[3] = {};
    double vel[3], acc[3];
    Vector out{};
    if (kl_change_cart_cs(&defaults, id, &mode, &from, &to, &ref, &utc, pos.data(), none, none, out.data(), vel, acc,
                          nullptr)
        == KL_ERR)
        fail("kl_change_cart_cs");
    return out;
}

} // namespace

void compare_pole(long count)
{
    Ids ids;
    std::mt19937_64 random(11);
    std::uniform_real_distribution<double> days(-9860.0, 10093.0); // 1973-01-02 to the last predictions, UTC
    std::normal_distribution<double> normal;
    Spread gm_1976, gm_1976_bare, gm_2006, gm_2006_bare, teme, teme_bare, pef;
    for (long i = 0; i < count; ++i) {
        const double utc = days(random);
        const long ref = KL_TIME_UTC;
        kl_time_row_info row;
        if (kl_time_get_row(&ids.with, &ref, &utc, &row) != KL_OK)
            fail("kl_time_get_row");
        const double tt = utc + (row.tai_utc + kTtMinusTai) / kDay, ut1 = utc + (row.tai_utc - row.tai_ut1) / kDay;
        const double x = row.pole[0] / kArcsec, y = row.pole[1] / kArcsec;
        double pole[3][3], pole_2006[3][3], bpn[3][3], rotation[3][3], c2i[3][3], all[3][3];
        eraPom00(x, y, 0.0, pole);
        eraPom00(x, y, eraSp00(kEpoch2000, tt), pole_2006);
        Vector v = {normal(random), normal(random), normal(random)};
        v = scaled(v, kRadius / length(v));

        eraPnm80(kEpoch2000, tt, bpn);
        eraIr(rotation);
        eraRz(eraGst94(kEpoch2000, ut1), rotation);
        const Vector in_1976 = turned(pole, turned(rotation, turned(bpn, v)));
        eraC2i06a(kEpoch2000, tt, c2i);
        eraC2tcio(c2i, eraEra00(kEpoch2000, ut1), pole_2006, all);
        const Vector in_2006 = turned(all, v);
        eraIr(rotation);
        eraRz(eraGmst82(kEpoch2000, ut1), rotation);
        const Vector from_teme = turned(pole, turned(rotation, v));

        gm_1976.add(length(minus(to_earth_fixed(&ids.with, KL_GM2000, utc, v), in_1976)));
        gm_1976_bare.add(length(minus(to_earth_fixed(&ids.without, KL_GM2000, utc, v), in_1976)));
        gm_2006.add(length(minus(to_earth_fixed(&ids.with, KL_GM2000, utc, v), in_2006)));
        gm_2006_bare.add(length(minus(to_earth_fixed(&ids.without, KL_GM2000, utc, v), in_2006)));
        teme.add(length(minus(to_earth_fixed(&ids.with, KL_TEME, utc, v), from_teme)));
        teme_bare.add(length(minus(to_earth_fixed(&ids.without, KL_TEME, utc, v), from_teme)));
        pef.add(length(minus(to_earth_fixed(&ids.with, KL_PEF, utc, v), turned(pole, v))));
    }
    heading("Earth-fixed positions at 7000 km with the published pole, 10000 instants of 1973 to 2027, against ERFA "
            "with the same UT1 "
            "and pole");
    const char *const nutation = "nine terms of nutation";
    const char *const models = "nine terms of nutation; models of 1976 and 1980";
    const char *const pole = "the pole of up to 0.6 arcsec";
    gm_1976_bare.print("GM2000 to EF without a pole, against 1976/1980", "m", pole);
    gm_1976.print("GM2000 to EF with the pole, against 1976/1980", "m", nutation);
    gm_2006_bare.print("GM2000 to EF without a pole, against 2006/2000A", "m", pole);
    gm_2006.print("GM2000 to EF with the pole, against 2006/2000A", "m", models);
    teme_bare.print("TEME to EF without a pole, against GMST of 1982", "m", pole);
    teme.print("TEME to EF with the pole, against GMST of 1982", "m", "UT1 in whole microseconds");
    pef.print("PEF to EF, against POM00", "m", "UT1 in whole microseconds; order of the two turns");
}
