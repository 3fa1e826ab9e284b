// The sky above the Earth at an instant: time scales and formats, Sun, Moon and planets in the Earth-fixed frame with
// the point of the Earth below each, and a satellite state carried through the frames.
//
// kl_demo [UTC instant, yyyy-mm-ddThh:nn:ss with or without .uuuuuu]
#include "kl_family.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <initializer_list>

namespace {

constexpr double kDegrees = 57.29577951308232;
const long kProcessing = KL_PROC;
const long kTai = KL_TIME_TAI;
constexpr double kFirst = -18261.0; // TAI, 1950-01-02
constexpr double kLast = 36524.0;   // TAI, 2099-12-31

bool outside_table = false;

// Ends the program with the messages of a failed call. The one warning that can come is that of an instant outside the
// time correlation; it is said once, at the end.
void require(long status, long function_id, const long *ierr)
{
    if (status == KL_WARN)
        outside_table = true;
    if (status != KL_ERR)
        return;
    static char messages[KL_MAX_MSG][512];
    long n = 0;
    kl_get_msg(&function_id, ierr, &n, messages);
    kl_print_msg(&n, messages);
    std::exit(EXIT_FAILURE);
}

struct Instant {
    double tai; // MJD2000; days of UTC have no room for a leap second
    char text[KL_TIME_ASCII_LENGTH];
};

Instant read_instant(kl_time_id *time_id, const char *given)
{
    Instant instant{};
    if (given != nullptr)
        std::snprintf(instant.text, sizeof instant.text, "%.31s", given);
    else if (const long format = KL_ASCII_43; KL_Time_current_time(&format, instant.text, nullptr) != 0)
        std::exit(EXIT_FAILURE);
    const bool fraction = std::strchr(instant.text, '.') != nullptr;
    constexpr std::size_t kWithMicroseconds = 26;
    for (std::size_t n = std::strlen(instant.text); fraction && n < kWithMicroseconds; ++n)
        instant.text[n] = '0';
    const long format = fraction ? KL_ASCII_43 : KL_ASCII_41;
    const long utc = KL_TIME_UTC;
    long ierr[1];
    const long status =
        kl_time_ascii_to_processing(time_id, &format, &utc, instant.text, &kProcessing, &kTai, &instant.tai, ierr);
    if (status == KL_ERR)
        std::fprintf(stderr, "%s: expected UTC as yyyy-mm-ddThh:nn:ss or with .uuuuuu, 1950 to 2099\n", instant.text);
    require(status, KL_ID_FUNC_TIME_ASCII_TO_PROCESSING, ierr);
    if (!(instant.tai >= kFirst && instant.tai < kLast)) {
        std::fprintf(stderr,
                     "%s: shown from 1950-01-02T00:00:00 to 2099-12-30T23:59:22, where all scales have a date\n",
                     instant.text);
        std::exit(EXIT_FAILURE);
    }
    return instant;
}

double in_scale(kl_time_id *time_id, long scale, double tai)
{
    double out = 0.0;
    long ierr[1];
    require(kl_time_processing_to_processing(time_id, &kProcessing, &kTai, &tai, &kProcessing, &scale, &out, ierr),
            KL_ID_FUNC_TIME_PROCESSING_TO_PROCESSING, ierr);
    return out;
}

void show_scales(kl_time_id *time_id, double tai)
{
    struct Scale {
        const char *name;
        long id;
    };
    std::puts("Time scales                                  MJD2000, days");
    for (const Scale &scale :
         {Scale{"TAI", KL_TIME_TAI}, {"UTC", KL_TIME_UTC}, {"UT1", KL_TIME_UT1}, {"GPS", KL_TIME_GPS}}) {
        const double time = in_scale(time_id, scale.id, tai);
        const long format = KL_ASCII_43;
        char text[KL_TIME_ASCII_LENGTH];
        long ierr[1];
        require(kl_time_processing_to_ascii(time_id, &kProcessing, &kTai, &tai, &format, &scale.id, text, ierr),
                KL_ID_FUNC_TIME_PROCESSING_TO_ASCII, ierr);
        std::printf("  %s   %-28s %20.11f\n", scale.name, text, time);
    }
    double tdb = 0.0;
    KL_Time_p2p_ref_tai_to_tdb(&tai, &tdb);
    std::printf("  TDB   %-28s %20.11f\n", "", tdb);
}

void show_formats(long run_id, double tai)
{
    const long scale = KL_TIME_UTC;
    const long gps = KL_TIME_GPS;
    std::puts("\nThe instant in every format, through a run id");
    for (long family = 10; family <= 50; family += 10) {
        std::fputs("  ", stdout);
        for (long variant = 1; variant <= 4; ++variant) {
            const long format = family + variant;
            char text[KL_TIME_ASCII_LENGTH];
            long ierr[1];
            require(kl_time_processing_to_ascii_run(&run_id, &kProcessing, &kTai, &tai, &format, &scale, text, ierr),
                    KL_ID_FUNC_TIME_PROCESSING_TO_ASCII, ierr);
            std::printf("%-32s", text);
        }
        std::putchar('\n');
    }
    for (const long format :
         {KL_TRANS_0, KL_TRANS_11, KL_TRANS_21, KL_TRANS_22, KL_TRANS_23, KL_TRANS_31, KL_TRANS_41, KL_TRANS_42}) {
        const long id = format;
        const long *out = format == KL_TRANS_41 || format == KL_TRANS_42 ? &gps : &scale;
        long fields[KL_TRANSPORT_LENGTH];
        long ierr[1];
        require(kl_time_processing_to_transport_run(&run_id, &kProcessing, &kTai, &tai, &id, out, fields, ierr),
                KL_ID_FUNC_TIME_PROCESSING_TO_TRANSPORT, ierr);
        std::printf("  transport %2ld (%s)  %10ld %8ld %6ld %3ld\n", format, out == &gps ? "GPS" : "UTC", fields[0],
                    fields[1], fields[2], fields[3]);
    }
}

struct Point {
    double latitude, longitude; // geodetic, deg; longitude 0 to 360
};

// The point of the ellipsoid whose normal passes through an Earth-fixed position.
Point point_below(const kl_model_data &earth, const double pos[3])
{
    const double e2 = earth.eccentricity * earth.eccentricity;
    const double p = std::hypot(pos[0], pos[1]);
    double latitude = std::atan2(pos[2], p * (1.0 - e2));
    for (int i = 0; i < 10; ++i) {
        const double s = std::sin(latitude);
        latitude = std::atan2(pos[2] + e2 * earth.semi_major_axis / std::sqrt(1.0 - e2 * s * s) * s, p);
    }
    const double longitude = std::atan2(pos[1], pos[0]) * kDegrees;
    return {latitude * kDegrees, longitude < 0.0 ? longitude + 360.0 : longitude};
}

void show_body(const char *name, const kl_model_data &earth, const double pos[3], const double vel[3])
{
    const Point below = point_below(earth, pos);
    kl_geoid_input input = {nullptr, below.latitude, below.longitude, 0.0, 360};
    double geoid = 0.0;
    long ierr[1];
    require(kl_geoid_calc(&input, &geoid, ierr), KL_ID_FUNC_GEOID_CALC, ierr);
    std::printf("  %-8s", name);
    for (int i = 0; i < 3; ++i)
        std::printf(" %17.3f", pos[i] / 1000.0);
    for (int i = 0; i < 3; ++i)
        std::printf(" %13.6f", vel[i] / 1000.0);
    std::printf("   %8.3f %8.3f %7.2f\n", below.latitude, below.longitude, geoid);
}

void show_bodies(long run_id, double tai)
{
    static const char *const kPlanets[] = {"",        "Mercury", "Venus",  "E-M bary", "Mars",
                                           "Jupiter", "Saturn",  "Uranus", "Neptune"};
    double pos[3];
    double vel[3];
    long ierr[1];
    kl_model_id defaults = {nullptr};
    kl_model_data earth;
    if (kl_model_get_data(&defaults, &earth) != 0)
        std::exit(EXIT_FAILURE);

    std::printf("\n%-10s %53s %41s   %s\n", "Earth-fixed", "position, km", "velocity, km/s",
                "below: lat, lon deg; geoid m");
    require(kl_sun_run(&run_id, &kTai, &tai, pos, vel, ierr), KL_ID_FUNC_SUN, ierr);
    show_body("Sun", earth, pos, vel);
    require(kl_moon_run(&run_id, &kTai, &tai, pos, vel, ierr), KL_ID_FUNC_MOON, ierr);
    show_body("Moon", earth, pos, vel);
    for (long planet = KL_MERCURY; planet <= KL_NEPTUNE; ++planet) {
        require(kl_planet_run(&run_id, &planet, &kTai, &tai, pos, vel, ierr), KL_ID_FUNC_PLANET, ierr);
        show_body(kPlanets[planet], earth, pos, vel);
    }
}

void show_satellite(long run_id, double tai)
{
    struct Frame {
        const char *name;
        long id;
    };
    // A sun-synchronous orbit of 7159 km, on its way north.
    const double pos[3] = {7068500.0, 1142000.0, 0.0};
    const double vel[3] = {170.1, -1096.3, 7379.0};
    const double acc[3] = {-7.6790, -1.2406, 0.0};
    const long mode = KL_CALC_POS_VEL_ACC;
    const long from = KL_GM2000;
    std::printf("\n%-8s %41s %41s %32s\n", "Satellite", "position, km", "velocity, km/s", "acceleration, m/s2");
    for (const Frame &frame :
         {Frame{"GM2000", KL_GM2000}, {"TOD", KL_TOD}, {"TEME", KL_TEME}, {"PEF", KL_PEF}, {"EF", KL_EF}}) {
        double out[3][3];
        long ierr[1];
        require(kl_change_cart_cs_run(&run_id, &mode, &from, &frame.id, &kTai, &tai, pos, vel, acc, out[0], out[1],
                                      out[2], ierr),
                KL_ID_FUNC_CHANGE_CART_CS, ierr);
        std::printf("  %-7s", frame.name);
        for (const double x : out[0])
            std::printf(" %13.6f", x / 1000.0);
        for (const double v : out[1])
            std::printf(" %13.9f", v / 1000.0);
        for (const double a : out[2])
            std::printf(" %10.6f", a);
        std::putchar('\n');
    }
}

} // namespace

int main(int argc, char **argv)
{
    if (argc > 2) {
        std::fprintf(stderr, "usage: %s [yyyy-mm-ddThh:nn:ss[.uuuuuu]]\n", argv[0]);
        return EXIT_FAILURE;
    }
    kl_time_id time_id = {nullptr};
    const long no_files = 0; // the correlation compiled into the library
    const long last_row_holds = 1;
    const long all_rows = KL_TIME_WINDOW_FILE;
    long ierr[1];
    require(kl_time_id_init(&no_files, nullptr, &last_row_holds, &all_rows, nullptr, nullptr, nullptr, &time_id, ierr),
            KL_ID_FUNC_TIME_ID_INIT, ierr);
    const Instant instant = read_instant(&time_id, argc == 2 ? argv[1] : nullptr);

    kl_model_id model_id = {nullptr};
    const long default_models = KL_MODEL_DEFAULT;
    const long satellite = 200;
    long run_id = -1;
    require(kl_model_init(&default_models, nullptr, &model_id, ierr), KL_ID_FUNC_MODEL_INIT, ierr);
    require(kl_run_init(&satellite, &time_id, &model_id, &run_id, ierr), KL_ID_FUNC_RUN_INIT, ierr);

    std::printf("The sky above the Earth at %s UTC\n\n", instant.text);
    show_scales(&time_id, instant.tai);
    show_formats(run_id, instant.tai);
    show_bodies(run_id, instant.tai);
    show_satellite(run_id, instant.tai);
    if (outside_table)
        std::puts("\nThe instant lies outside the rows of the time correlation: the nearest row's TAI-UTC and "
                  "UT1-UTC\nwere used.");

    kl_run_close(&run_id);
    require(kl_model_close(&model_id, ierr), KL_ID_FUNC_MODEL_CLOSE, ierr);
    require(kl_time_close(&time_id, ierr), KL_ID_FUNC_TIME_REF_CLOSE, ierr);
    const bool lost = std::ferror(stdout) != 0;
    if (std::fclose(stdout) != 0 || lost) {
        std::fprintf(stderr, "%s: the output cannot be written\n", argv[0]);
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
