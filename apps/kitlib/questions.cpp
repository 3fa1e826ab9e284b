#include "questions.h"

#include <cstdio>
#include <cstring>

namespace kitlib {

const std::map<std::string, long> kScales = {
    {"TAI", KL_TIME_TAI}, {"UTC", KL_TIME_UTC}, {"UT1", KL_TIME_UT1}, {"GPS", KL_TIME_GPS}};
const std::map<std::string, long> kFrames = {
    {"BM2000", KL_BM2000}, {"HM2000", KL_HM2000}, {"GM2000", KL_GM2000}, {"MOD", KL_MOD},           {"TOD", KL_TOD},
    {"PEF", KL_PEF},       {"EF", KL_EF},         {"BM1950", KL_BM1950}, {"GALACTIC", KL_GALACTIC}, {"TEME", KL_TEME}};
const std::map<std::string, long> kPlanets = {
    {"mercury", KL_MERCURY}, {"venus", KL_VENUS},     {"earth-moon", KL_EARTH_MOON_BARYCENTRE},
    {"mars", KL_MARS},       {"jupiter", KL_JUPITER}, {"saturn", KL_SATURN},
    {"uranus", KL_URANUS},   {"neptune", KL_NEPTUNE}};
const std::map<std::string, long> kFormats = {{"iso", KL_ASCII_43},    {"compact", KL_ASCII_53},
                                              {"named", KL_ASCII_33},  {"underscore", KL_ASCII_13},
                                              {"digits", KL_ASCII_23}, {"mjd2000", kDays}};

namespace {

const long kProcessing = KL_PROC;
const long kTai = KL_TIME_TAI;

bool refused(long status, long function_id, Refusal &why)
{
    why.function_id = function_id;
    if (status == KL_WARN) {
        why.warned_by = function_id;
        std::memcpy(why.warnings, why.ierr, sizeof why.warnings);
    }
    return status == KL_ERR;
}

// A date alone is its first instant here, which the library does not guess.
std::string with_clock(std::string_view cell)
{
    const bool date_alone = cell.size() == std::strlen("yyyy-mm-dd");
    return std::string(cell) + (date_alone ? "T00:00:00" : "");
}

bool numbers(const std::vector<std::string_view> &cells, std::size_t first, double *to, Refusal &why)
{
    for (std::size_t i = first; i < cells.size(); ++i) {
        if (!read_number(cells[i], to[i - first])) {
            why.cell = static_cast<int>(i);
            return false;
        }
    }
    return true;
}

void put(std::vector<Value> &answer, std::size_t first, const double values[3])
{
    for (std::size_t i = 0; i < 3; ++i)
        answer[first + i].number = values[i];
}

const std::vector<Quantity> kState = {{"x", "m"}, {"y", "m"}, {"z", "m"}, {"vx", "m/s"}, {"vy", "m/s"}, {"vz", "m/s"}};

std::vector<Quantity> named_in(const std::vector<Quantity> &state, long frame, std::size_t n)
{
    std::vector<Quantity> out(state.begin(), state.begin() + static_cast<std::ptrdiff_t>(n));
    for (const auto &[name, id] : kFrames)
        for (Quantity &quantity : out)
            if (id == frame)
                quantity.name += "_" + name;
    return out;
}

} // namespace

Context::~Context()
{
    long ierr[1];
    if (time.record != nullptr)
        kl_time_close(&time, ierr);
    if (models.record != nullptr)
        kl_model_close(&models, ierr);
}

bool Context::open(const std::vector<std::string> &files)
{
    std::vector<const char *> names;
    for (const std::string &file : files)
        names.push_back(file.c_str());
    const long n = static_cast<long>(names.size());
    const long last_row_holds = 1, all_rows = KL_TIME_WINDOW_FILE, defaults = KL_MODEL_DEFAULT;
    long ierr[1];
    const bool failed =
        kl_time_id_init(&n, names.data(), &last_row_holds, &all_rows, nullptr, nullptr, &report, &time, ierr) == KL_ERR
        || kl_model_init(&defaults, nullptr, &models, ierr) == KL_ERR;
    if (failed) {
        static char messages[KL_MAX_MSG][KL_MSG_LENGTH];
        long n_messages = 0;
        kl_get_last_msg(&n_messages, messages);
        kl_print_msg(&n_messages, messages);
    }
    return !failed;
}

bool tai_of(const Context &context, long scale, std::string_view cell, double &tai, Refusal &why)
{
    double days;
    if (read_number(cell, days))
        return !refused(kl_time_processing_to_processing(&context.time, &kProcessing, &scale, &days, &kProcessing,
                                                         &kTai, &tai, why.ierr),
                        KL_ID_FUNC_TIME_PROCESSING_TO_PROCESSING, why);
    return !refused(kl_time_text_to_processing(&context.time, with_clock(cell).c_str(), &scale, &kProcessing, &kTai,
                                               &tai, why.ierr),
                    KL_ID_FUNC_TIME_ASCII_TO_PROCESSING, why);
}

bool text_of(const Context &context, double tai, long scale, std::string &text, Refusal &why)
{
    char written[KL_TIME_ASCII_LENGTH] = "";
    const long format = KL_ASCII_43;
    const long status =
        kl_time_processing_to_ascii(&context.time, &kProcessing, &kTai, &tai, &format, &scale, written, why.ierr);
    text = written;
    return !refused(status, KL_ID_FUNC_TIME_PROCESSING_TO_ASCII, why);
}

// By way of TAI, which has room for a leap second.
Question time_question(const Context &context, long from, long to, long format)
{
    const auto ask = [=, &context](const std::vector<std::string_view> &cells, std::vector<Value> &answer,
                                   Refusal &why) {
        char out[KL_TIME_ASCII_LENGTH] = "";
        double tai;
        if (!tai_of(context, from, cells[0], tai, why))
            return false;
        if (format == kDays)
            return !refused(kl_time_processing_to_processing(&context.time, &kProcessing, &kTai, &tai, &kProcessing,
                                                             &to, &answer[0].number, why.ierr),
                            KL_ID_FUNC_TIME_PROCESSING_TO_PROCESSING, why);
        const long status =
            kl_time_processing_to_ascii(&context.time, &kProcessing, &kTai, &tai, &format, &to, out, why.ierr);
        answer[0].text = out;
        return !refused(status, KL_ID_FUNC_TIME_PROCESSING_TO_ASCII, why);
    };
    std::string name = "time";
    for (const auto &[scale, id] : kScales)
        if (id == to)
            name = scale;
    return {{{"time", ""}}, 0, {{name, format == kDays ? "days" : ""}}, ask};
}

Question body_question(const Context &context, Body body, long planet, long scale, long frame)
{
    const auto ask = [=, &context](const std::vector<std::string_view> &cells, std::vector<Value> &answer,
                                   Refusal &why) {
        double tai, pos[3], vel[3];
        if (!tai_of(context, scale, cells[0], tai, why))
            return false;
        if (body == Body::kSun
                ? refused(kl_sun(&context.models, &context.time, &kTai, &tai, pos, vel, why.ierr), KL_ID_FUNC_SUN, why)
            : body == Body::kMoon
                ? refused(kl_moon(&context.models, &context.time, &kTai, &tai, pos, vel, why.ierr), KL_ID_FUNC_MOON,
                          why)
                : refused(kl_planet(&context.models, &context.time, &planet, &kTai, &tai, pos, vel, why.ierr),
                          KL_ID_FUNC_PLANET, why))
            return false;
        const long fixed = KL_EF, mode = KL_CALC_POS_VEL;
        double acc[3] = {0.0, 0.0, 0.0};
        if (frame != KL_EF
            && refused(kl_change_cart_cs(&context.models, &context.time, &mode, &fixed, &frame, &kTai, &tai, pos, vel,
                                         acc, pos, vel, acc, why.ierr),
                       KL_ID_FUNC_CHANGE_CART_CS, why))
            return false;
        put(answer, 0, pos);
        put(answer, 3, vel);
        return true;
    };
    return {{{"time", ""}}, 0, named_in(kState, frame, kState.size()), ask};
}

Question frame_question(const Context &context, long scale, long from, long to, bool with_velocity)
{
    const auto ask = [=, &context](const std::vector<std::string_view> &cells, std::vector<Value> &answer,
                                   Refusal &why) {
        double tai, state[6] = {}, acc[3] = {0.0, 0.0, 0.0};
        if (!tai_of(context, scale, cells[0], tai, why) || !numbers(cells, 1, state, why))
            return false;
        const long mode = with_velocity ? KL_CALC_POS_VEL : KL_CALC_POS;
        if (refused(kl_change_cart_cs(&context.models, &context.time, &mode, &from, &to, &kTai, &tai, state, state + 3,
                                      acc, state, state + 3, acc, why.ierr),
                    KL_ID_FUNC_CHANGE_CART_CS, why))
            return false;
        put(answer, 0, state);
        if (with_velocity)
            put(answer, 3, state + 3);
        return true;
    };
    Question question{{{"time", ""}}, 0, named_in(kState, to, with_velocity ? 6 : 3), ask};
    question.inputs.insert(question.inputs.end(), kState.begin(), kState.begin() + (with_velocity ? 6 : 3));
    return question;
}

Question geodetic_question(const Context &context, bool to_cartesian)
{
    const auto ask = [=, &context](const std::vector<std::string_view> &cells, std::vector<Value> &answer,
                                   Refusal &why) {
        const long mode = KL_CALC_POS;
        const double still[3] = {0.0, 0.0, 0.0};
        double in[3], out[3], vel[3];
        kl_geodetic place = {};
        if (!numbers(cells, 0, in, why))
            return false;
        if (to_cartesian) {
            place.latitude = in[0], place.longitude = in[1], place.height = in[2];
            if (refused(kl_geod_to_cart(&context.models, &mode, &place, out, vel, why.ierr), KL_ID_FUNC_GEOD_TO_CART,
                        why))
                return false;
        } else {
            if (refused(kl_cart_to_geod(&context.models, &mode, in, still, &place, why.ierr), KL_ID_FUNC_CART_TO_GEOD,
                        why))
                return false;
            out[0] = place.latitude, out[1] = place.longitude, out[2] = place.height;
        }
        put(answer, 0, out);
        return true;
    };
    const std::vector<Quantity> places = {{"latitude", "deg"}, {"longitude", "deg"}, {"height", "m"}};
    const std::vector<Quantity> positions(kState.begin(), kState.begin() + 3);
    return {to_cartesian ? places : positions, 0, to_cartesian ? positions : places, ask};
}

Question kepler_question(const Context &context, long kind, bool to_elements)
{
    const auto ask = [=, &context](const std::vector<std::string_view> &cells, std::vector<Value> &answer,
                                   Refusal &why) {
        double in[6], out[6];
        if (!numbers(cells, 0, in, why))
            return false;
        if (to_elements) {
            kl_kepler orbit = {};
            if (refused(kl_cart_to_kepl(&context.models, &kind, in, in + 3, &orbit, why.ierr), KL_ID_FUNC_CART_TO_KEPL,
                        why))
                return false;
            const double elements[6] = {orbit.semi_major_axis, orbit.eccentricity, orbit.inclination, orbit.raan,
                                        orbit.arg_perigee,     orbit.mean_anomaly};
            std::memcpy(out, elements, sizeof out);
        } else {
            const kl_kepler orbit = {in[0], in[1], in[2], in[3], in[4], in[5]};
            if (refused(kl_kepl_to_cart(&context.models, &kind, &orbit, out, out + 3, why.ierr),
                        KL_ID_FUNC_KEPL_TO_CART, why))
                return false;
        }
        put(answer, 0, out);
        put(answer, 3, out + 3);
        return true;
    };
    const std::vector<Quantity> elements = {{"a", "m"},      {"e", ""},          {"inclination", "deg"},
                                            {"raan", "deg"}, {"perigee", "deg"}, {"anomaly", "deg"}};
    return {to_elements ? kState : elements, 0, to_elements ? elements : kState, ask};
}

Question topocentric_question(const Context &context)
{
    const auto ask = [&context](const std::vector<std::string_view> &cells, std::vector<Value> &answer, Refusal &why) {
        const long mode = KL_CALC_POS;
        const double still[3] = {0.0, 0.0, 0.0};
        double in[6];
        if (!numbers(cells, 0, in, why))
            return false;
        const kl_geodetic origin = {in[0], in[1], in[2], 0.0, 0.0, 0.0};
        kl_topocentric seen = {};
        const long status = kl_ef_to_topocentric(&context.models, &mode, &origin, in + 3, still, &seen, why.ierr);
        if (status == KL_ERR) {
            why.function = "kl_ef_to_topocentric";
            return false;
        }
        const double out[3] = {seen.azimuth, seen.elevation, seen.range};
        put(answer, 0, out);
        return true;
    };
    return {{{"latitude", "deg"}, {"longitude", "deg"}, {"height", "m"}, {"x", "m"}, {"y", "m"}, {"z", "m"}},
            0,
            {{"azimuth", "deg"}, {"elevation", "deg"}, {"range", "m"}},
            ask};
}

Question distance_question(const Context &context)
{
    const auto ask = [&context](const std::vector<std::string_view> &cells, std::vector<Value> &answer, Refusal &why) {
        double in[4], out[3];
        if (!numbers(cells, 0, in, why)
            || refused(
                kl_geod_distance(&context.models, &in[0], &in[1], &in[2], &in[3], &out[0], &out[1], &out[2], why.ierr),
                KL_ID_FUNC_GEOD_DISTANCE, why))
            return false;
        put(answer, 0, out);
        return true;
    };
    return {{{"latitude1", "deg"}, {"longitude1", "deg"}, {"latitude2", "deg"}, {"longitude2", "deg"}},
            0,
            {{"distance", "m"}, {"azimuth1", "deg"}, {"azimuth2", "deg"}},
            ask};
}

Question eclipse_question(const Context &context, long scale, long frame, double margin_m)
{
    const auto ask = [=, &context](const std::vector<std::string_view> &cells, std::vector<Value> &answer,
                                   Refusal &why) {
        static const char *const kStates[] = {"sunlight", "penumbra", "umbra", "annular"};
        const long light_time = 1;
        double tai, pos[3];
        long state;
        if (!tai_of(context, scale, cells[0], tai, why) || !numbers(cells, 1, pos, why)
            || refused(kl_eclipse(&context.models, &context.time, &light_time, &frame, &kTai, &tai, pos, &margin_m,
                                  &state, &answer[1].number, &answer[2].number, why.ierr),
                       KL_ID_FUNC_ECLIPSE, why))
            return false;
        answer[0].text = kStates[state];
        return true;
    };
    return {
        {{"time", ""}, {"x", "m"}, {"y", "m"}, {"z", "m"}}, 0, {{"state", ""}, {"fraction", ""}, {"depth", ""}}, ask};
}

Question star_question(const Context &context, long scale, long frame, double epoch_tdb_days)
{
    const auto ask = [=, &context](const std::vector<std::string_view> &cells, std::vector<Value> &answer,
                                   Refusal &why) {
        const long corrections = KL_STAR_PARALLAX | KL_STAR_ABERRATION | KL_STAR_DEFLECTION;
        double tai, in[6] = {};
        kl_radec place;
        if (!tai_of(context, scale, cells[0], tai, why) || !numbers(cells, 1, in, why))
            return false;
        const kl_star star = {in[0], in[1], in[2], in[3], in[4], in[5], epoch_tdb_days, 0.0, 0};
        if (refused(kl_star_radec(&context.models, &context.time, &corrections, &frame, &kTai, &tai, &star, nullptr,
                                  nullptr, &place, why.ierr),
                    KL_ID_FUNC_STAR_RADEC, why))
            return false;
        answer[0].number = place.ra;
        answer[1].number = place.dec;
        return true;
    };
    return {{{"time", ""},
             {"ra", "deg"},
             {"dec", "deg"},
             {"pm_ra", "mas/yr"},
             {"pm_dec", "mas/yr"},
             {"parallax", "mas"},
             {"radial_velocity", "km/s"}},
            4,
            named_in({{"ra", "deg"}, {"dec", "deg"}}, frame, 2),
            ask};
}

Question geoid_question(const Context &context, long degree)
{
    const auto ask = [=, &context](const std::vector<std::string_view> &cells, std::vector<Value> &answer,
                                   Refusal &why) {
        double place[2];
        if (!numbers(cells, 0, place, why))
            return false;
        const kl_geoid_input input = {&context.models, place[0], place[1], 0.0, degree};
        return !refused(kl_geoid_calc(&input, &answer[0].number, why.ierr), KL_ID_FUNC_GEOID_CALC, why);
    };
    return {{{"latitude", "deg"}, {"longitude", "deg"}}, 0, {{"undulation", "m"}}, ask};
}

} // namespace kitlib
