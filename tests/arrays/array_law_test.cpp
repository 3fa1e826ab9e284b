// The law of array forms: n elements in one call are n scalar calls in order, bit for bit. One table of all of them,
// written from the table of functions; values of columns by name and type.
#include "array_world.h"
#include "support/captured_stream.h"
#include "support/fault_injection.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <fstream>
#include <functional>
#include <limits>
#include <random>
#include <set>
#include <sys/mman.h>
#include <unistd.h>

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr long kProc = KL_PROC;
constexpr long kMostElements = 129;
constexpr long kTextWidth = 34; // wider than any text
constexpr long kOctetWidth = 21;

// ---- memory ----

// Room between two pages that nobody may touch.
class Guarded {
public:
    Guarded()
    {
        const auto page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
        const std::size_t whole = size_ + 2 * page;
        block_ = static_cast<unsigned char *>(
            mmap(nullptr, whole, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
        EXPECT_EQ(mprotect(block_, page, PROT_NONE), 0);
        EXPECT_EQ(mprotect(block_ + page + size_, page, PROT_NONE), 0);
        room_ = block_ + page;
    }
    ~Guarded() { munmap(block_, size_ + 2 * static_cast<std::size_t>(room_ - block_)); }
    Guarded(const Guarded &) = delete;
    Guarded &operator=(const Guarded &) = delete;

    // Against the page behind, or against the one before.
    unsigned char *take(long bytes, bool behind) { return behind ? room_ + size_ - bytes : room_; }

private:
    std::size_t size_ = 32768;
    unsigned char *block_ = nullptr;
    unsigned char *room_ = nullptr;
};

// ---- ids ----

enum class Correlation { explicit_values, rows, built_in };

void open_time(Correlation kind, kl_time_id *id)
{
    long ierr = 0;
    const long none = 0, one = 1;
    if (kind == Correlation::explicit_values) {
        const double tri[4] = {8000.0, 8000.0 - 37.0 / 86400.0, 8000.0 - 36.9 / 86400.0, 8000.0 - 19.0 / 86400.0};
        const double zero = 0.0;
        ASSERT_EQ(kl_time_ref_init(tri, &none, &zero, &zero, id, &ierr), KL_OK);
    } else if (kind == Correlation::built_in) {
        ASSERT_EQ(kl_time_id_init(&none, nullptr, &one, &none, nullptr, nullptr, nullptr, id, &ierr), KL_OK);
    } else {
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
        ASSERT_EQ(kl_time_set_id_data(id, &data), 0);
    }
}

struct OpenWorld : ArrayWorld {
    explicit OpenWorld(Correlation kind)
    {
        open_time(kind, &time);
        long ierr = 0;
        EXPECT_EQ(kl_run_init(&satellite, &time, &model, &run, &ierr), KL_OK);
        EXPECT_EQ(kl_model_init_status(&model), 0); // the default model, in every call
    }
    ~OpenWorld()
    {
        long ierr = 0;
        kl_run_close(&run);
        kl_time_close(&time, &ierr);
    }
    OpenWorld(const OpenWorld &) = delete;
    OpenWorld &operator=(const OpenWorld &) = delete;
    Guarded room[kColumns];
};

// ---- values ----

using Random = std::mt19937_64;

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
double instant(Random &random)
{
    return random() % 16 == 0 ? even(random, -18262.0, 36524.0) : even(random, 6010.0, 9300.0);
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
        ASSERT_NE(maker, kMakers.end()) << "nothing makes a column " << c.name << " of " << c.type;
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

// Elements that a scalar call refuses.
void fill_failed(const Column &c, long width, unsigned char *element)
{
    for (long at = 0; at < width; at += 8) {
        const char word =
            c.words[0] == '*' ? 'd' : c.words[std::min<long>(at / 8, static_cast<long>(std::strlen(c.words)) - 1)];
        if (word == 'd')
            put(element + at, kNaN);
        else if (word != 'k')
            std::memset(element + at, 0, static_cast<std::size_t>(std::min(width - at, 8L)));
    }
}

// ---- selectors ----

struct Choice {
    const char *name;
    std::vector<long> values;
};
const Choice kChoices[] = {
    {"time_ref", {KL_TIME_TAI, KL_TIME_UTC, KL_TIME_UT1, KL_TIME_GPS}},
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

void choose(Random &random, ArrayWorld *a, ArrayWorld *b)
{
    for (const Choice &choice : kChoices)
        a->selectors[choice.name] = choice.values[random() % choice.values.size()];
    a->config.cuc_type = random() % 4 == 0 ? KL_CUC_WITH_P_FIELD : KL_CUC_TIME_FIELD_ONLY;
    b->selectors = a->selectors;
    b->config = a->config;
}

long width_of(const ArrayWorld &w, const Column &c)
{
    return c.words[0] == 't'   ? kTextWidth
           : c.words[0] == 'o' ? kOctetWidth
           : c.words[0] == '*' ? 8 * (w.selectors.at("order") + 1)
                               : 8 * static_cast<long>(std::strlen(c.words));
}

// ---- one comparison ----

struct Case {
    long n = 0;
    int missing = -1;    // column that is NULL
    bool spoilt = false; // awkward words among the others
    bool in_place = false;
    bool with_status = true;
    bool verbose = false;
    int instants = 0; // each its own, in runs, one
};

using Bytes = std::vector<unsigned char>;
constexpr int kOld = 0xA5; // what lies where results will be; behind the ends of texts the array form writes zeros

std::vector<Bytes> make_inputs(const ArrayForm &f, const ArrayWorld &w, const Case &c, Random &random)
{
    std::vector<Bytes> inputs;
    for (const Column &column : f.columns)
        inputs.emplace_back(static_cast<std::size_t>(c.n * width_of(w, column)));
    double days = instant(random);
    for (long i = 0; i < c.n; ++i) {
        if (c.instants == 0 || (c.instants == 1 && random() % 3 == 0))
            days = c.spoilt ? instant(random) : even(random, 6010.0, 9300.0);
        const Axes a(random), b(random);
        for (std::size_t k = 0; k < f.columns.size(); ++k) {
            const Column &column = f.columns[k];
            const long width = width_of(w, column);
            unsigned char *to = inputs[k].data() + i * width;
            if (column.role == 'g')
                continue;
            fill_element(w, column, width, days, a, b, random, to);
            if (c.spoilt && random() % 12 == 0)
                spoil(column, width, random, to);
        }
    }
    return inputs;
}

void lay_out(const ArrayForm &f, const Case &c, const std::vector<Bytes> &inputs, int before_texts, bool behind,
             OpenWorld *w)
{
    for (std::size_t k = 0; k < f.columns.size(); ++k) {
        w->width[k] = width_of(*w, f.columns[k]);
        w->at[k] = w->room[k].take(c.n * w->width[k], behind);
        if (f.columns[k].role == 'g')
            std::memset(w->at[k], std::strchr("to", f.columns[k].words[0]) != nullptr ? before_texts : kOld,
                        static_cast<std::size_t>(c.n * w->width[k]));
        else
            std::copy(inputs[k].begin(), inputs[k].end(), w->at[k]);
        if (static_cast<int>(k) == c.missing)
            w->at[k] = nullptr;
    }
}

// Each output on an input of its shape that none has taken yet.
std::set<std::size_t> put_in_place(const ArrayForm &f, ArrayWorld *w)
{
    std::set<std::size_t> taken;
    for (std::size_t k = 0; k < f.columns.size(); ++k)
        for (std::size_t j = 0; j < f.columns.size() && f.columns[k].role == 'g'; ++j)
            if (f.columns[j].role == 'e' && taken.count(j) == 0 && w->at[j] != nullptr && w->at[k] != nullptr
                && std::strcmp(f.columns[j].words, f.columns[k].words) == 0) {
                taken.insert(j);
                w->at[k] = w->at[j];
                break;
            }
    return taken;
}

bool same(const Column &c, const unsigned char *a, const unsigned char *b, long width)
{
    if (c.words[0] == 't' || c.words[0] == 'o')
        return std::memcmp(a, b, static_cast<std::size_t>(width)) == 0;
    for (long at = 0; at < width; at += 8) {
        double x, y;
        std::memcpy(&x, a + at, 8);
        std::memcpy(&y, b + at, 8);
        if (std::memcmp(a + at, b + at, 8) != 0 && !(std::isnan(x) && std::isnan(y)))
            return false;
    }
    return true;
}

struct Outcome {
    long status = KL_OK;
    long ierr[2] = {0, 0};
    std::vector<long> statuses;
    std::string lines;
};

template <typename Call>
void said(bool verbose, Outcome *out, Call call)
{
    if (verbose)
        out->lines = verbose_text(call);
    else
        call();
}

Outcome loop_of_calls(const ArrayForm &f, const Case &c, OpenWorld *w)
{
    Outcome out;
    said(c.verbose, &out, [&] {
        for (long i = 0; i < c.n; ++i) {
            long ierr[2] = {0, 0};
            const long status = f.one(*w, i, ierr);
            for (std::size_t k = 0; k < f.columns.size(); ++k)
                if (status == KL_ERR && f.columns[k].role != 'e' && w->at[k] != nullptr)
                    fill_failed(f.columns[k], w->width[k], w->at[k] + i * w->width[k]);
            out.statuses.push_back(status);
            out.ierr[0] |= ierr[0];
            out.ierr[1] |= ierr[1];
            if (status == KL_ERR || out.status == KL_OK)
                out.status = status;
        }
    });
    return out;
}

std::string text_of(const ArrayForm &f, const OpenWorld &w, const Case &c)
{
    std::string text =
        std::string(f.name) + ", n " + std::to_string(c.n) + (c.in_place ? ", in place" : "")
        + (c.missing >= 0 ? std::string(", no ") + f.columns[static_cast<std::size_t>(c.missing)].name : "")
        + (c.spoilt ? ", awkward" : "") + (c.verbose ? ", verbose" : "") + ";";
    for (const auto &[name, value] : w.selectors)
        text += " " + name + " " + std::to_string(value);
    return text;
}

void expect_law(const ArrayForm &f, const Case &c, OpenWorld *one, OpenWorld *all, Random &random)
{
    SCOPED_TRACE(text_of(f, *one, c));
    const std::vector<Bytes> inputs = make_inputs(f, *one, c, random);
    const bool behind = random() % 4 != 0;
    lay_out(f, c, inputs, 0, behind, one);
    lay_out(f, c, inputs, kOld, behind, all);
    const std::set<std::size_t> overwritten = c.in_place ? put_in_place(f, all) : std::set<std::size_t>();
    const Outcome expected = loop_of_calls(f, c, one);

    Outcome found;
    static Guarded statuses;
    long *const status = c.with_status ? reinterpret_cast<long *>(statuses.take(8 * c.n, behind)) : nullptr;
    found.ierr[0] = found.ierr[1] = f.n_vector == 2 ? -1 : 0;
    said(c.verbose, &found, [&] { found.status = f.all(*all, &c.n, status, found.ierr); });
    EXPECT_EQ(found.status, expected.status);
    EXPECT_EQ(found.ierr[0], expected.ierr[0]);
    EXPECT_EQ(found.ierr[1], expected.ierr[1]);
    EXPECT_EQ(found.lines, expected.lines);
    for (long i = 0; status != nullptr && i < c.n; ++i)
        ASSERT_EQ(status[i], expected.statuses[static_cast<std::size_t>(i)]) << "element " << i;
    for (std::size_t k = 0; k < f.columns.size(); ++k) {
        if (all->at[k] == nullptr || overwritten.count(k) != 0)
            continue;
        const long width = all->width[k];
        for (long i = 0; i < c.n; ++i)
            ASSERT_TRUE(same(f.columns[k], one->at[k] + i * width, all->at[k] + i * width, width))
                << f.columns[k].name << " of element " << i << ", whose status is "
                << expected.statuses[static_cast<std::size_t>(i)] << "; first words "
                << *reinterpret_cast<double *>(all->at[k] + i * width) << " for "
                << *reinterpret_cast<double *>(one->at[k] + i * width);
    }
}

// Whether an element without fault is refused: then something is that no element decides.
bool refuses_all(const ArrayForm &f, OpenWorld *w, Random &random)
{
    Case c;
    c.n = 1;
    lay_out(f, c, make_inputs(f, *w, c, random), 0, true, w);
    long ierr[2] = {0, 0};
    return f.one(*w, 0, ierr) == KL_ERR;
}

constexpr long kCounts[] = {0, 1, 2, 3, 7, 8, 9, 15, 16, 17, 31, 32, 33, 63, 64, 65, 100, 127, 128, kMostElements};
constexpr Correlation kCorrelations[] = {Correlation::explicit_values, Correlation::rows, Correlation::built_in};

// ---- the table ----

TEST(ArrayForm, IsInTheTableIfTheLibraryExportsIt)
{
    std::ifstream file("src/exported_symbols.txt");
    std::set<std::string> exported, tabled;
    for (std::string name; file >> name;)
        if (name.size() > 2 && name.substr(name.size() - 2) == "_n")
            exported.insert(name);
    for (const ArrayForm &f : every_array_form())
        tabled.insert(f.name);
    EXPECT_GT(exported.size(), 80U);
    EXPECT_EQ(exported, tabled);
}

// Every instruction set: tests/arrays/CMakeLists.txt runs all this once a set.
TEST(ArrayForm, GivesWhatTheScalarCallsInOrderGive)
{
    kl_silent();
    Random random(2026);
    for (const Correlation kind : kCorrelations) {
        // Once-only warnings: the two worlds meet the same instants in the same order. The third is for trying.
        OpenWorld one(kind), all(kind), trial(kind);
        for (const ArrayForm &f : every_array_form()) {
            int liked = 0;
            for (const long n : kCounts)
                for (int again = 0; again < 4; ++again) {
                    bool refused = true;
                    for (int attempt = 0; attempt < 30 && refused; ++attempt) {
                        choose(random, &one, &all);
                        trial.selectors = one.selectors;
                        trial.config = one.config;
                        refused = refuses_all(f, &trial, random);
                    }
                    liked += refused ? 0 : 1;
                    Case c;
                    c.n = n;
                    c.spoilt = !refused && again >= 2;
                    c.in_place = again % 2 == 1;
                    c.with_status = random() % 4 != 0;
                    c.instants = static_cast<int>(random() % 3);
                    c.verbose = !refused && n <= 20 && random() % 6 == 0;
                    expect_law(f, c, &one, &all, random);
                    if (HasFailure())
                        return;
                }
            EXPECT_TRUE(liked > 0 || kind != Correlation::built_in) << f.name << ": no valid call was found";
        }
    }
}

// An array that is missing, a selector that no call takes: refused as every scalar call is.
TEST(ArrayForm, RefusesTheCallForWhatNoElementCanHelp)
{
    kl_silent();
    Random random(7);
    OpenWorld one(Correlation::built_in), all(Correlation::built_in), trial(Correlation::built_in);
    for (const ArrayForm &f : every_array_form())
        for (int missing = -1; missing < static_cast<int>(f.columns.size()); ++missing)
            for (const long n : {1L, 5L, 70L}) {
                for (int attempt = 0; attempt < 60; ++attempt) {
                    choose(random, &one, &all);
                    trial.selectors = one.selectors;
                    trial.config = one.config;
                    if (!refuses_all(f, &trial, random))
                        break;
                }
                for (const Choice &choice : kChoices)
                    if (missing < 0 && random() % 4 == 0)
                        one.selectors[choice.name] = all.selectors[choice.name] = choice.name[0] == 'o' ? 7 : 99;
                Case c;
                c.n = n;
                c.missing = missing;
                expect_law(f, c, &one, &all, random);
                if (HasFailure())
                    return;
            }
}

TEST(ArrayForm, OfNoElementsTouchesTheVectorAlone)
{
    kl_silent();
    Random random(3);
    OpenWorld w(Correlation::built_in);
    choose(random, &w, &w);
    const long below = -1, none = 0;
    for (const ArrayForm &f : every_array_form()) {
        Case c;
        c.n = 2;
        lay_out(f, c, make_inputs(f, w, c, random), kOld, true, &w);
        const auto bytes = [&] {
            Bytes all;
            for (std::size_t k = 0; k < f.columns.size(); ++k)
                all.insert(all.end(), w.at[k], w.at[k] + 2 * w.width[k]);
            return all;
        };
        const Bytes before = bytes();
        for (const long *n : {&none, &below, static_cast<const long *>(nullptr)}) {
            long status[2] = {77, 77}, ierr[2] = {5, 5};
            EXPECT_EQ(f.all(w, n, status, ierr), n == &none ? KL_OK : KL_ERR) << f.name;
            EXPECT_EQ(ierr[0], 0) << f.name;
            EXPECT_EQ(status[0], 77) << f.name;
            EXPECT_EQ(bytes(), before) << f.name;
        }
        for (std::size_t k = 0; k < f.columns.size(); ++k)
            w.at[k] = nullptr;
        EXPECT_EQ(f.all(w, &none, nullptr, nullptr), KL_OK) << f.name;
    }
}

TEST(ArrayForm, AllocatesNothing)
{
    SKIP_WITHOUT_FAULTS();
    kl_silent();
    Random random(11);
    OpenWorld w(Correlation::built_in);
    for (const ArrayForm &f : every_array_form()) {
        for (int attempt = 0; attempt < 60; ++attempt) {
            choose(random, &w, &w);
            if (!refuses_all(f, &w, random))
                break;
        }
        Case c;
        c.n = kMostElements;
        c.spoilt = true;
        lay_out(f, c, make_inputs(f, w, c, random), kOld, true, &w);
        long status[kMostElements], ierr[2] = {0, 0};
        faults::Fail fail(faults::Site::kAllocation);
        f.all(w, &c.n, status, ierr);
        EXPECT_FALSE(fail.disarm()) << f.name;
    }
}

} // namespace
