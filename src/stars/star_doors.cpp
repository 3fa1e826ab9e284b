// Places of stars and searches of catalogues for callers.
#include "stars/star_doors.h"

#include "ephemerides/ephemerides.h"
#include "errors/activation.h"
#include "models/model_record.h"
#include "stars/bright_stars.h"
#include "stars/catalogue_files.h"
#include "stars/search.h"
#include "time/files/disk.h"

#include <cmath>

namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

bool are_corrections(const long *corrections)
{
    return corrections != nullptr && *corrections >= 0 && *corrections <= kEveryCorrection;
}

bool is_star_frame(const long *cs)
{
    return cs != nullptr && (*cs == KL_BM2000 || (*cs >= KL_GM2000 && *cs <= KL_EF) || *cs == KL_TEME);
}

// Nothing turns with UT1 there.
bool is_free_of_ut1(long cs)
{
    return cs == KL_BM2000 || cs == KL_GM2000 || cs == KL_MOD;
}

// Not given: at the centre of the Earth.
bool add_observer(const double *given, double largest, double to[3])
{
    if (given == nullptr)
        return true;
    if (!(std::sqrt(dot3(given, given)) <= largest))
        return false;
    for (int i = 0; i < 3; ++i)
        to[i] += given[i];
    return true;
}

bool is_observer(const double *given, double largest)
{
    double nowhere[3] = {};
    return add_observer(given, largest, nowhere);
}

constexpr double kFarthestObserver = 1e12; // m from the centre of the Earth
constexpr double kFastestObserver = 3e7;   // m/s

// A place of BM2000 has the motion in space alone; false for an observer at the centre of the Sun.
bool sight_of(const StarSky &sky, long cs, long corrections, const double *observer_pos, const double *observer_vel,
              Sight *sight)
{
    if (cs == KL_BM2000) {
        *sight = space_motion_only(sky.instant.tdb);
        return true;
    }
    Observer observer = sky.earth;
    add_observer(observer_pos, kFarthestObserver, observer.barycentric);
    add_observer(observer_pos, kFarthestObserver, observer.heliocentric);
    add_observer(observer_vel, kFastestObserver, observer.velocity);
    return prepare_sight(observer, sky.instant.tdb, corrections, sight);
}

} // namespace

bool StarSky::prepare(kl_model_id *model_id, kl_time_id *time_id, long ref, double at, long cs, bool *transformation)
{
    *transformation = false;
    if (!instant_of_call(time_id, ref, at, is_free_of_ut1(cs), &instant))
        return false;
    *transformation = true;
    const ModelBlocks &models = model_blocks(model_id);
    OwnedState barycentric, heliocentric;
    const kl_time_record tdb = {KL_REF_TDB, KL_FORMAT_MJD2000, instant.tdb};
    if (models.star.star == nullptr || models.sun.earth == nullptr
        || models.sun.earth(&tdb, &barycentric, &heliocentric, nullptr) == KL_ERR
        || !axes_between(model_id, time_id, instant.date, KL_GM2000, cs == KL_BM2000 ? long{KL_GM2000} : cs, &axes))
        return false;
    // The ephemeris is scaled with its own unit of length; with the true one directions keep their parallax.
    constexpr double kUnit = KL_TRUE_AU / KL_METRES_PER_AU;
    for (int i = 0; i < 3; ++i) {
        earth.barycentric[i] = barycentric.pos[i + 1] * kUnit;
        earth.velocity[i] = barycentric.vel[i + 1] * kUnit;
        earth.heliocentric[i] = heliocentric.pos[i + 1] * kUnit;
    }
    return true;
}

long star_radec_of_one(kl_model_id *model_id, kl_time_id *time_id, const long *corrections, const long *cs_out,
                       const long *time_ref, const double *time, const kl_star *star, const double observer_pos[3],
                       const double observer_vel[3], kl_radec *place, StarSky *sky, long *ierr)
{
    Activation call(KL_FN_STAR_RADEC, ierr);
    constexpr InstantConditions kInstant = {KL_STAR_RADEC_TIME_REF_ERR, KL_STAR_RADEC_DATE_ERR};
    const long ref = value_or(time_ref, KL_TIME_UNDEF);
    const double days = time != nullptr ? *time : kNan;
    if (refuses_instant(call, kInstant, ref, &days))
        return KL_ERR;
    if (!are_corrections(corrections))
        return call.fails(KL_STAR_RADEC_CORRECTIONS_ERR);
    if (!is_star_frame(cs_out))
        return call.fails(KL_STAR_RADEC_CS_OUT_ERR);
    if (star == nullptr || !in_range(star_of(*star)))
        return call.fails(KL_STAR_RADEC_STAR_ERR);
    if (!is_observer(observer_pos, kFarthestObserver) || !is_observer(observer_vel, kFastestObserver))
        return call.fails(KL_STAR_RADEC_OBSERVER_ERR);
    if (place == nullptr)
        return KL_ERR;

    if (!sky->holds(days)) {
        bool transformation = false;
        sky->days = kNan;
        if (!sky->prepare(model_id, time_id, ref, days, *cs_out, &transformation))
            return call.fails(transformation ? KL_STAR_RADEC_TRANSFORMATION_ERR : KL_STAR_RADEC_TIME_ID_ERR);
        sky->days = days;
    }
    Sight sight;
    if (!sight_of(*sky, *cs_out, *corrections, observer_pos, observer_vel, &sight))
        return call.fails(KL_STAR_RADEC_OBSERVER_ERR);
    double direction[3];
    place_of(sight, star_of(*star), direction);
    sky->axes.turn(direction, direction);
    *place = radec_of(direction);
    const long warned = warning_of_call(time_id, sky->instant);
    if (warned != 0)
        call.warns(static_cast<int>(KL_STAR_RADEC_FORMULA_WARN + warned - 1));
    return call.status();
}

bool star_scene(const kl_time_id *time_id, long corrections, long cs, const double *time, long count,
                const StarSky &sky, StarScene *scene)
{
    const TimeIdRecord *id = time_record_of(time_id);
    if (id != nullptr && !all_is_quiet(*id, time[0]))
        return false;
    for (long k = 0; k < count; ++k)
        if (!sky.holds(time[k]))
            return false;
    for (int i = 0; i < 3; ++i)
        copy_three(sky.axes.m[i], scene->axes[i]);
    return sight_of(sky, cs, corrections, nullptr, nullptr, &scene->sight);
}

bool star_radec_refuses_all(Activation &call, const kl_time_id *time_id, const long *corrections, const long *cs_out,
                            const long *time_ref, const double *time, const kl_star *star, const kl_radec *place)
{
    constexpr InstantConditions kInstant = {KL_STAR_RADEC_TIME_REF_ERR, KL_STAR_RADEC_DATE_ERR};
    constexpr double kAnyDate = 0.0;
    const long ref = value_or(time_ref, KL_TIME_UNDEF);
    if (refuses_instant(call, kInstant, ref, time != nullptr ? &kAnyDate : &kNan))
        return true;
    if (!are_corrections(corrections))
        call.fails(KL_STAR_RADEC_CORRECTIONS_ERR);
    else if (!is_star_frame(cs_out))
        call.fails(KL_STAR_RADEC_CS_OUT_ERR);
    else if (star == nullptr)
        call.fails(KL_STAR_RADEC_STAR_ERR);
    else if (place != nullptr) {
        if (time_record_of(time_id) != nullptr || (ref == KL_TIME_TAI && is_free_of_ut1(*cs_out)))
            return false;
        call.fails(KL_STAR_RADEC_TIME_ID_ERR);
    }
    return true;
}

long kl_star_radec(kl_model_id *model_id, kl_time_id *time_id, const long *corrections, const long *cs_out,
                   const long *time_ref, const double *time, const kl_star *star, const double observer_pos[3],
                   const double observer_vel[3], kl_radec *place, long *ierr)
{
    StarSky sky;
    return star_radec_of_one(model_id, time_id, corrections, cs_out, time_ref, time, star, observer_pos, observer_vel,
                             place, &sky, ierr);
}

namespace {

// The catalogue of a call: a file, or the built-in one.
struct Catalogue {
    const char *file;
    time_files::Buffer<char> bytes = {};
    CatalogueFormat format = CatalogueFormat::unknown;

    [[nodiscard]] bool built_in() const { return file == nullptr || *file == '\0'; }
    [[nodiscard]] std::string_view text() const { return {bytes.begin(), bytes.size()}; }
    [[nodiscard]] time_files::DiskFault load()
    {
        constexpr std::size_t kLargest = std::size_t{1} << 30; // no catalogue that is read here comes near it
        if (built_in())
            return time_files::DiskFault::none;
        const time_files::DiskFault fault = time_files::read_plain_file(file, kLargest, &bytes);
        if (fault == time_files::DiskFault::none)
            format = format_of(text());
        return fault;
    }
};

enum class SearchEnd { done, no_memory, malformed };

SearchEnd search_built_in(const StarSearch &search, FoundStars *found)
{
    for (const BrightStar &row : kBrightStar) {
        const kl_star star = star_of(row);
        kl_radec place;
        if (search.finds(star, &place) && !found->add(star, place))
            return SearchEnd::no_memory;
    }
    return SearchEnd::done;
}

SearchEnd search_text(const StarSearch &search, CatalogueReader reader, FoundStars *found, long *line)
{
    for (;;) {
        kl_star star;
        kl_radec place;
        const StarRecord record = reader.next(&star);
        *line = reader.line();
        if (record == StarRecord::end)
            return SearchEnd::done;
        if (record == StarRecord::malformed)
            return SearchEnd::malformed;
        if (record == StarRecord::star && search.finds(star, &place) && !found->add(star, place))
            return SearchEnd::no_memory;
    }
}

// Conditions go by their codes: a malformed line comes before what the search itself needs, and so is looked for before
// that is told.
long fails_after_records(Activation &call, const Catalogue &catalogue, int code)
{
    const long line = malformed_line(catalogue.text(), catalogue.format);
    return line > 0 ? call.fails(KL_STAR_CATALOG_RECORD_ERR, &line) : call.fails(code, catalogue.file);
}

} // namespace

long kl_star_catalog(kl_model_id *model_id, kl_time_id *time_id, const char *file, const kl_star_window *window,
                     const long *corrections, const long *cs_out, const long *time_ref, const double *time,
                     long *n_stars, kl_star **stars, kl_radec **places, long *ierr)
{
    Activation call(KL_FN_STAR_CATALOG, ierr);
    constexpr InstantConditions kInstant = {KL_STAR_CATALOG_TIME_REF_ERR, KL_STAR_CATALOG_DATE_ERR};
    const long ref = value_or(time_ref, KL_TIME_UNDEF);
    const double days = time != nullptr ? *time : kNan;
    if (refuses_instant(call, kInstant, ref, &days))
        return KL_ERR;
    if (!are_corrections(corrections))
        return call.fails(KL_STAR_CATALOG_CORRECTIONS_ERR);
    if (!is_star_frame(cs_out))
        return call.fails(KL_STAR_CATALOG_CS_OUT_ERR);

    Catalogue catalogue = {file};
    const time_files::DiskFault fault = catalogue.load();
    if (fault != time_files::DiskFault::none)
        return call.fails(
            fault == time_files::DiskFault::unreadable ? KL_STAR_CATALOG_FILE_ERR : KL_STAR_CATALOG_MEMORY_ERR, file);
    StarSky sky;
    Sight sight;
    bool transformation = false;
    if (!sky.prepare(model_id, time_id, ref, days, *cs_out, &transformation))
        return fails_after_records(call, catalogue,
                                   transformation ? KL_STAR_CATALOG_TRANSFORMATION_ERR : KL_STAR_CATALOG_TIME_ID_ERR);
    if (!sight_of(sky, *cs_out, *corrections, nullptr, nullptr, &sight))
        return fails_after_records(call, catalogue, KL_STAR_CATALOG_TRANSFORMATION_ERR);
    if (!catalogue.built_in() && catalogue.format == CatalogueFormat::unknown)
        return call.fails(KL_STAR_CATALOG_FORMAT_ERR, file);
    if (window == nullptr || !window_in_range(*window))
        return fails_after_records(call, catalogue, KL_STAR_CATALOG_WINDOW_ERR);
    if (n_stars == nullptr || stars == nullptr)
        return KL_ERR;

    const StarSearch search(*window, sight, sky.axes);
    FoundStars found(places != nullptr);
    long line = 0;
    const SearchEnd end = catalogue.built_in()
                              ? search_built_in(search, &found)
                              : search_text(search, CatalogueReader(catalogue.text(), catalogue.format), &found, &line);
    if (end == SearchEnd::malformed)
        return call.fails(KL_STAR_CATALOG_RECORD_ERR, &line);
    if (end == SearchEnd::no_memory)
        return fails_after_records(call, catalogue, KL_STAR_CATALOG_MEMORY_ERR);
    found.hand_over(n_stars, stars, places);
    const long warned = warning_of_call(time_id, sky.instant);
    if (warned != 0)
        call.warns(static_cast<int>(KL_STAR_CATALOG_FORMULA_WARN + warned - 1));
    return call.status();
}
