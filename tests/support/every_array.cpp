#include "support/every_array.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <iterator>
#include <limits>

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr long kProc = KL_PROC;
constexpr long kTai = KL_TIME_TAI;
constexpr long kTextWidth = 34; // wider than any text
constexpr long kOctetWidth = 21;

// ---- ids ----

bool open_time(Correlation kind, kl_time_id *id)
{
    long ierr = 0;
    const long none = 0, one = 1;
    if (kind == Correlation::explicit_values) {
        const double tri[4] = {8000.0, 8000.0 - 37.0 / 86400.0, 8000.0 - 36.9 / 86400.0, 8000.0 - 19.0 / 86400.0};
        const double zero = 0.0;
        return kl_time_ref_init(tri, &none, &zero, &zero, id, &ierr) == KL_OK;
    }
    if (kind == Correlation::built_in)
        return kl_time_id_init(&none, nullptr, &one, &none, nullptr, nullptr, nullptr, id, &ierr) == KL_OK;
    std::vector<kl_time_row> rows;
    for (int i = 0; i < 400; ++i) {
        kl_time_row row = {};
        row.tai = 6000.0 + 10.0 * i;
        row.tai_utc = i < 200 ? 35.0 : 36.0;
        row.tai_ut1 = row.tai_utc - 0.3 + 0.0007 * i + (i < 200 ? 0.0 : -0.5);
        row.tai_gps = 19.0;
        row.utc = row.tai - row.tai_utc / 86400.0;
        row.ut1 = row.tai - row.tai_ut1 / 86400.0;
        rows.push_back(row);
    }
    kl_time_id_data data = {};
    data.model = 5;
    data.n_rows = static_cast<long>(rows.size());
    data.rows = rows.data();
    return kl_time_set_id_data(id, &data) == 0;
}

// ---- values ----

double even(Random &random, double from, double to)
{
    return std::uniform_real_distribution<double>(from, to)(random);
}

// What belongs together in an element: two sets of axes.
struct Axes {
    double q[4], rows[9];

    explicit Axes(Random &random)
    {
        double length = 0.0;
        const bool tidy = random() % 4 == 0; // quarter and third turns: gimbal locks, equal axes
        for (double &x : q) {
            x = tidy ? (random() % 2 == 0 ? 0.5 : -0.5) : even(random, -1.0, 1.0);
            length += x * x;
        }
        for (double &x : q)
            x /= std::sqrt(length);
        const double x = q[0], y = q[1], z = q[2], w = q[3];
        const double m[9] = {1 - 2 * (y * y + z * z), 2 * (x * y + w * z),     2 * (x * z - w * y),
                             2 * (x * y - w * z),     1 - 2 * (x * x + z * z), 2 * (y * z + w * x),
                             2 * (x * z + w * y),     2 * (y * z - w * x),     1 - 2 * (x * x + y * y)};
        std::copy(std::begin(m), std::end(m), rows);
    }
};

using Words = std::vector<double>;
using Maker = std::function<Words(Random &, const Axes &, const Axes &)>;

Words between(Random &random, double from, double to, int n = 1)
{
    Words out;
    for (int i = 0; i < n; ++i)
        out.push_back(even(random, from, to));
    return out;
}

Words along(Random &random, double from, double to)
{
    double v[3], length = 0.0;
    for (double &x : v) {
        x = even(random, -1.0, 1.0);
        length += x * x;
    }
    const double size = even(random, from, to) / std::sqrt(length);
    return {v[0] * size, v[1] * size, v[2] * size};
}

Maker range(double from, double to)
{
    return [=](Random &random, const Axes &, const Axes &) { return between(random, from, to); };
}
Maker row_of(int first, int n, bool second = false)
{
    return [=](Random &, const Axes &a, const Axes &b) {
        const double *rows = (second ? b : a).rows + first;
        return Words(rows, rows + n);
    };
}

// By "name", or by "type" of records: an element that every function likes.
const std::map<std::string, Maker> kMakers = {
    {"pos", [](Random &r, const Axes &, const Axes &) { return along(r, 6.5e6, 4.0e7); }},
    {"observer_pos", [](Random &r, const Axes &, const Axes &) { return along(r, 6.5e6, 4.0e7); }},
    {"vel", [](Random &r, const Axes &, const Axes &) { return along(r, 100.0, 9000.0); }},
    {"observer_vel", [](Random &r, const Axes &, const Axes &) { return along(r, 100.0, 9000.0); }},
    {"acc", [](Random &r, const Axes &, const Axes &) { return along(r, 0.1, 9.0); }},
    {"dir", [](Random &r, const Axes &, const Axes &) { return along(r, 1.0, 1.0); }},
    {"margin", range(-1e3, 1e5)},
    {"height", range(-1e3, 1e5)},
    {"lat", range(-90.0, 90.0)},
    {"lat1", range(-90.0, 90.0)},
    {"lat2", range(-90.0, 90.0)},
    {"latitude", range(-90.0, 90.0)},
    {"lon", range(-360.0, 360.0)},
    {"lon1", range(-360.0, 360.0)},
    {"lon2", range(-360.0, 360.0)},
    {"longitude", range(0.0, 360.0)},
    {"azimuth", range(-360.0, 360.0)},
    {"distance", range(-1e7, 1e7)},
    {"easting", range(2e5, 8e5)},
    {"northing", range(1e6, 8e6)},
    {"duration", range(-100.0, 100.0)},
    {"t1", range(0.0, 0.0)},
    {"t2", range(1.0, 1.0)},
    {"t", range(-0.5, 1.5)},
    {"c", [](Random &r, const Axes &, const Axes &) { return between(r, -3.0, 3.0, 5); }},
    {"angles", [](Random &r, const Axes &, const Axes &) { return between(r, -400.0, 400.0, 3); }},
    {"matrix", row_of(0, 9)},
    {"x", row_of(0, 3)},
    {"y", row_of(3, 3)},
    {"z", row_of(6, 3)},
    {"x1", row_of(0, 3)},
    {"y1", row_of(3, 3)},
    {"z1", row_of(6, 3)},
    {"x2", row_of(0, 3, true)},
    {"y2", row_of(3, 3, true)},
    {"z2", row_of(6, 3, true)},
    {"q", [](Random &, const Axes &a, const Axes &) { return Words(a.q, a.q + 4); }},
    {"q1", [](Random &, const Axes &a, const Axes &) { return Words(a.q, a.q + 4); }},
    {"q2", [](Random &, const Axes &, const Axes &b) { return Words(b.q, b.q + 4); }},
    {"kl_geodetic",
     [](Random &r, const Axes &, const Axes &) {
         return Words{even(r, -90.0, 90.0), even(r, -360.0, 360.0), even(r, -1e3, 1e6),
                      even(r, -0.1, 0.1),   even(r, -0.1, 0.1),     even(r, -90.0, 90.0)};
     }},
    {"kl_radec",
     [](Random &r, const Axes &, const Axes &) {
         return Words{even(r, -360.0, 360.0), even(r, -90.0, 90.0), even(r, 1e6, 1e8),
                      even(r, -0.1, 0.1),     even(r, -0.1, 0.1),   even(r, -90.0, 90.0)};
     }},
    {"kl_topocentric",
     [](Random &r, const Axes &, const Axes &) {
         return Words{even(r, -360.0, 360.0), even(r, -90.0, 90.0), even(r, 0.0, 1e7),
                      even(r, -0.1, 0.1),     even(r, -0.1, 0.1),   even(r, -90.0, 90.0)};
     }},
    {"kl_kepler",
     [](Random &r, const Axes &, const Axes &) {
         const bool hyperbola = r() % 6 == 0;
         return Words{hyperbola ? even(r, -1e8, -1e6) : even(r, 7e6, 5e7),
                      hyperbola ? even(r, 1.01, 5.0) : even(r, 0.0, r() % 3 == 0 ? 0.99 : 0.05),
                      even(r, 0.0, 180.0),
                      even(r, 0.0, 360.0),
                      even(r, 0.0, 360.0),
                      even(r, -720.0, 720.0)};
     }},
    {"kl_star",
     [](Random &r, const Axes &, const Axes &) {
         return Words{even(r, 0.0, 360.0),
                      even(r, -90.0, 90.0),
                      even(r, -3e3, 3e3),
                      even(r, -3e3, 3e3),
                      even(r, -1.0, 700.0),
                      even(r, -100.0, 100.0),
                      0.5,
                      even(r, -1.0, 7.0),
                      0.0};
     }},
};

bool is_time(const Column &c)
{
    return std::strncmp(c.name, "time", 4) == 0 && std::strcmp(c.type, "double") == 0;
}

// In the table of every world, now and then anywhere.
double instant(const ArrayWorld &w, bool odd, Random &random)
{
    if (!w.odd_instants.empty())
        return odd && random() % 4 == 0 ? w.odd_instants[random() % w.odd_instants.size()]
                                        : even(random, 6191.0, 6228.0);
    return !odd                 ? even(random, 6010.0, 9300.0)
           : random() % 16 == 0 ? even(random, -18262.0, 36524.0)
                                : even(random, 6010.0, 9300.0);
}

constexpr double kAwkward[] = {0.0,      -0.0,    1e300,   -1e300, 5e-324, kNaN,  HUGE_VAL, -HUGE_VAL,
                               -18262.0, 36524.0, 36524.1, 1.0,    90.0,   -90.0, 1e-160,   360.0};
constexpr long kAwkwardLong[] = {0, -1, 99, std::numeric_limits<long>::max(), std::numeric_limits<long>::min()};

template <typename T>
void put(unsigned char *to, T value)
{
    std::memcpy(to, &value, sizeof value);
}

// One element that every function likes. Texts and transport times are written by the library, in the selected layout.
void fill_element(const ArrayWorld &w, const Column &c, long width, double days, const Axes &a, const Axes &b,
                  Random &random, unsigned char *to)
{
    const std::string name = c.name;
    if (is_time(c)) {
        put(to, days);
    } else if (name == "text") { // as people write it: any layout, its scale said or not
        constexpr long kLayouts[] = {KL_ASCII_13, KL_ASCII_24, KL_ASCII_33, KL_ASCII_52};
        const long *format = &kLayouts[random() % std::size(kLayouts)];
        char text[KL_TIME_ASCII_LENGTH] = "?";
        kl_time_processing_to_ascii(nullptr, &kProc, &kTai, &days, format, &kTai, text, nullptr);
        std::memcpy(to, text, sizeof text);
    } else if (name == "ascii_in" || name == "transport_in") {
        const bool text = name == "ascii_in";
        const long *format = w.selected(text ? "ascii_id_in" : "trans_id_in"), *ref = w.selected("time_ref_in");
        char ascii[KL_TIME_ASCII_LENGTH] = {};
        long fields[4] = {};
        const long status =
            text ? kl_time_processing_to_ascii(nullptr, &kProc, ref, &days, format, ref, ascii, nullptr)
                 : kl_time_processing_to_transport(nullptr, &kProc, ref, &days, format, ref, fields, nullptr);
        if (text)
            std::memcpy(to, status == KL_ERR ? "?" : ascii, status == KL_ERR ? 2 : sizeof ascii);
        else
            std::memcpy(to, fields, sizeof fields);
    } else if (name == "cuc") {
        for (int i = 0; i < 6; ++i)
            to[i] = static_cast<unsigned char>(i == 0 ? 0x50 + random() % 0x20 : random());
    } else if (name == "obt") {
        const kl_obt_vardo count = {51, random() % 1000000000, random() % 256};
        put(to, count);
    } else if (name == "zone" || name == "north") {
        put(to, static_cast<long>(name == "zone" ? 1 + random() % 60 : random() % 2));
    } else {
        const auto maker = kMakers.find(kMakers.count(c.type) != 0 ? c.type : c.name);
        if (maker == kMakers.end()) {
            std::fprintf(stderr, "nothing makes a column %s of %s\n", c.name, c.type);
            std::abort();
        }
        const Words words = maker->second(random, a, b);
        std::memcpy(to, words.data(), std::min(words.size() * sizeof(double), static_cast<std::size_t>(width)));
    }
}

// What no function likes, in one word of an element.
void spoil(const Column &c, long width, Random &random, unsigned char *to)
{
    const char kind = c.words[0] == '*' ? 'd' : c.words[random() % std::strlen(c.words)];
    const auto word = random() % (static_cast<unsigned long>(width) / 8);
    if (kind == 't')
        std::strcpy(reinterpret_cast<char *>(to), random() % 2 != 0 ? "2017-01-01_00:00:61.000000" : "nonsense");
    else if (kind == 'o')
        std::memset(to, 0xFF, static_cast<std::size_t>(width));
    else if (std::strchr(c.words, 'd') != nullptr || std::strncmp(c.type, "double", 6) == 0)
        put(to + 8 * word, kAwkward[random() % std::size(kAwkward)]);
    else
        put(to + 8 * word, kAwkwardLong[random() % std::size(kAwkwardLong)]);
}

// ---- selectors ----

struct Choice {
    const char *name;
    std::vector<long> values;
};
const Choice kChoices[] = {
    {"time_ref", {KL_TIME_TAI, KL_TIME_UTC, KL_TIME_UT1, KL_TIME_GPS}},
    {"time_ref_default", {KL_TIME_TAI, KL_TIME_UTC, KL_TIME_UT1, KL_TIME_GPS}},
    {"time_ref_in", {KL_TIME_TAI, KL_TIME_UTC, KL_TIME_UT1, KL_TIME_GPS}},
    {"time_ref_out", {KL_TIME_TAI, KL_TIME_UTC, KL_TIME_UT1, KL_TIME_GPS}},
    {"proc_id", {KL_PROC}},
    {"proc_id_in", {KL_PROC}},
    {"proc_id_out", {KL_PROC}},
    {"ascii_id_in", {KL_ASCII_11, KL_ASCII_13, KL_ASCII_24, KL_ASCII_33, KL_ASCII_52}},
    {"ascii_id_out", {KL_ASCII_12, KL_ASCII_13, KL_ASCII_23, KL_ASCII_34, KL_ASCII_51}},
    {"trans_id_in", {KL_TRANS_0, KL_TRANS_22, KL_TRANS_23, KL_TRANS_31, KL_TRANS_41, KL_TRANS_42}},
    {"trans_id_out", {KL_TRANS_0, KL_TRANS_22, KL_TRANS_23, KL_TRANS_31, KL_TRANS_41, KL_TRANS_42}},
    {"calc_mode", {1, 2, 3}},
    {"cs", {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11}},
    {"cs_in", {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11}},
    {"cs_out", {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11}},
    {"planet_id", {1, 2, 3, 4, 5, 6, 7, 8}},
    {"corrections", {0, 1, 2, 3, 4, 5, 6, 7}},
    {"kind", {0, 1, 2, 3, 4, 5}},
    {"mode", {0, 1}},
    {"order", {1, 2, 3, 4}},
    {"light_time", {0, 1}},
    {"max_degree", {0, 1, 2, 9, 24, 40}},
};

} // namespace

bool ArrayWorld::open(Correlation kind)
{
    return open([kind](kl_time_id *id) { return open_time(kind, id); });
}

bool ArrayWorld::open(const std::function<bool(kl_time_id *)> &make)
{
    long ierr = 0;
    return make(&time) && kl_run_init(&satellite, &time, &model, &run, &ierr) == KL_OK;
}

void ArrayWorld::close()
{
    long ierr = 0;
    kl_run_close(&run);
    kl_time_close(&time, &ierr);
}

void choose(Random &random, ArrayWorld *w)
{
    for (const Choice &choice : kChoices)
        w->selectors[choice.name] = choice.values[random() % choice.values.size()];
    w->config.cuc_type = random() % 4 == 0 ? KL_CUC_WITH_P_FIELD : KL_CUC_TIME_FIELD_ONLY;
}
long width_of(const ArrayWorld &w, const Column &c)
{
    return c.words[0] == 't'   ? kTextWidth
           : c.words[0] == 'o' ? kOctetWidth
           : c.words[0] == '*' ? 8 * (w.selectors.at("order") + 1)
                               : 8 * static_cast<long>(std::strlen(c.words));
}

std::vector<Bytes> make_inputs(const ArrayForm &f, const ArrayWorld &w, long n, bool spoilt, Instants instants,
                               Random &random)
{
    std::vector<Bytes> inputs;
    for (const Column &column : f.columns)
        inputs.emplace_back(static_cast<std::size_t>(n * width_of(w, column)));
    double days = instant(w, true, random);
    for (long i = 0; i < n; ++i) {
        if (instants == Instants::each_its_own || (instants == Instants::in_runs && random() % 3 == 0))
            days = instant(w, spoilt, random);
        const Axes a(random), b(random);
        for (std::size_t k = 0; k < f.columns.size(); ++k) {
            const Column &column = f.columns[k];
            const long width = width_of(w, column);
            unsigned char *to = inputs[k].data() + i * width;
            if (column.role == 'g')
                continue;
            fill_element(w, column, width, days, a, b, random, to);
            if (spoilt && random() % 12 == 0)
                spoil(column, width, random, to);
        }
    }
    return inputs;
}

bool choose_valid(const ArrayForm &f, Random &random, ArrayWorld *w)
{
    bool valid = false;
    for (int attempt = 0; attempt < 60 && !valid; ++attempt) {
        choose(random, w);
        std::vector<Bytes> element = make_inputs(f, *w, 1, false, Instants::one, random);
        for (std::size_t k = 0; k < f.columns.size(); ++k) {
            w->width[k] = width_of(*w, f.columns[k]);
            w->at[k] = element[k].data();
        }
        long ierr[2] = {0, 0};
        valid = f.one(*w, 0, ierr) != KL_ERR;
    }
    return valid;
}

const std::vector<ArrayForm> &every_array_form()
{
    static const std::vector<ArrayForm> forms = {
#include "support/every_array.inc"
        {"kl_geoid_calc_n",
         1,
         {{'e', "latitude", "double", "d"}, {'e', "longitude", "double", "d"}, {'g', "undulation", "double", "d"}},
         [](ArrayWorld &w, long i, long *ierr) {
             const double *lat = w.element<double>(0, i), *lon = w.element<double>(1, i);
             const double nowhere = 1e9;
             const kl_geoid_input point = {&w.model, lat != nullptr ? *lat : nowhere, lon != nullptr ? *lon : nowhere,
                                           0.0, *w.selected("max_degree")};
             return kl_geoid_calc(&point, w.element<double>(2, i), ierr);
         },
         [](ArrayWorld &w, const long *n, long *status, long *ierr) {
             return kl_geoid_calc_n(&w.model, n, w.column<double>(0), w.column<double>(1), w.selected("max_degree"),
                                    w.column<double>(2), status, ierr);
         }},
    };
    return forms;
}
