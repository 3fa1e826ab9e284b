// The law of array forms: n elements in one call are n scalar calls in order, bit for bit. One table of all of them,
// written from the table of functions; values of columns by name and type.
#include "support/captured_stream.h"
#include "support/every_array.h"
#include "support/fault_injection.h"
#include "time/time_table.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
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

constexpr long kMostElements = 129;

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

struct OpenWorld : ArrayWorld {
    template <typename Opening>
    explicit OpenWorld(const Opening &opening)
    {
        EXPECT_TRUE(open(opening));
    }
    ~OpenWorld() { close(); }
    OpenWorld(const OpenWorld &) = delete;
    OpenWorld &operator=(const OpenWorld &) = delete;
    Guarded room[kColumns];
};

// Elements that a scalar call refuses.
void fill_failed(const Column &c, long width, unsigned char *element)
{
    for (long at = 0; at < width; at += 8) {
        const char word =
            c.words[0] == '*' ? 'd' : c.words[std::min<long>(at / 8, static_cast<long>(std::strlen(c.words)) - 1)];
        if (word == 'd')
            std::memcpy(element + at, &kNaN, sizeof kNaN);
        else if (word != 'k')
            std::memset(element + at, 0, static_cast<std::size_t>(std::min(width - at, 8L)));
    }
}

// ---- one comparison ----

struct Case {
    long n = 0;
    int missing = -1;    // column that is NULL
    bool spoilt = false; // awkward words among the others
    bool in_place = false;
    bool with_status = true;
    bool verbose = false;
    bool clears_vector = true; // a run that is not initialised leaves it as it was
    Instants instants = Instants::each_its_own;
};

constexpr int kOld = 0xA5; // what lies where results will be; behind the ends of texts the array form writes zeros

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
    const std::vector<Bytes> inputs = make_inputs(f, *one, c.n, c.spoilt, c.instants, random);
    const bool behind = random() % 4 != 0;
    lay_out(f, c, inputs, 0, behind, one);
    lay_out(f, c, inputs, kOld, behind, all);
    const std::set<std::size_t> overwritten = c.in_place ? put_in_place(f, all) : std::set<std::size_t>();
    const Outcome expected = loop_of_calls(f, c, one);

    Outcome found;
    static Guarded statuses;
    long *const status = c.with_status ? reinterpret_cast<long *>(statuses.take(8 * c.n, behind)) : nullptr;
    found.ierr[0] = found.ierr[1] = f.n_vector == 2 && c.clears_vector ? -1 : 0;
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

constexpr long kCounts[] = {0,  1,  2,  3,  7,  8,  9,  15, 16,  17,  31,  32,
                            33, 47, 48, 49, 63, 64, 65, 97, 100, 127, 128, kMostElements};
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

// Once-only warnings: two worlds meet the same instants in the same order. The third is for trying.
struct Worlds {
    OpenWorld one, all, trial;
    template <typename Opening>
    explicit Worlds(const Opening &opening) : one(opening), all(opening), trial(opening)
    {
    }

    // How many of the calls that are tried are valid.
    int expect_law_of(const ArrayForm &f, Random &random)
    {
        int liked = 0;
        for (const long n : kCounts)
            for (int again = 0; again < 4 && !testing::Test::HasFailure(); ++again) {
                const bool valid = choose_valid(f, random, &trial);
                one.selectors = all.selectors = trial.selectors;
                one.config = all.config = trial.config;
                liked += valid ? 1 : 0;
                Case c;
                c.n = n;
                c.spoilt = valid && again >= 2;
                c.in_place = again % 2 == 1;
                c.with_status = random() % 4 != 0;
                c.instants = static_cast<Instants>(random() % 3);
                c.verbose = valid && n <= 20 && random() % 6 == 0;
                expect_law(f, c, &one, &all, random);
            }
        return liked;
    }
};

// Every instruction set: tests/arrays/CMakeLists.txt runs all this once a set.
TEST(ArrayForm, GivesWhatTheScalarCallsInOrderGive)
{
    kl_silent();
    Random random(2026);
    for (const Correlation kind : kCorrelations) {
        Worlds worlds(kind);
        for (const ArrayForm &f : every_array_form())
            EXPECT_TRUE(worlds.expect_law_of(f, random) > 0 || kind != Correlation::built_in)
                << f.name << ": no valid call was found";
    }
}

// Daily rows about a leap second, with a gap between two bulletins.
Table daily(long model, long no_extrapolation, long combination)
{
    std::vector<kl_time_row> rows;
    for (int i = 0; i < 40; ++i)
        if (i < 15 || i > 18)
            rows.push_back(row_at(k2017 - 20.0 + i, i < 20 ? 36.0 : 37.0, 36.4 + 0.0013 * i));
    Table table(rows);
    table.data.model = model;
    table.data.no_extrapolation = no_extrapolation;
    table.data.combination = combination;
    table.data.second_bulletin_row = combination == 2 ? 15 : 0;
    table.data.a = -0.3;
    table.data.b = -0.0011;
    table.data.c = 6200.0;
    return table;
}

// Correlations that end, jump or warn, and the instants where they do.
TEST(ArrayForm, OfTimesGivesTheSameInOddCorrelationsAndAtOddInstants)
{
    kl_silent();
    const std::vector<double> odd = {kNaN,
                                     kInfinity,
                                     -18262.0,
                                     36524.0,
                                     36524.5,
                                     -20000.0,
                                     k2017,
                                     k2017 - 1e-12,
                                     k2017 + 0.5 / kDay,
                                     k2017 - 0.5 / kDay,
                                     k2017 + 37.0 / kDay,
                                     k2017 + 36.2 / kDay,
                                     k2017 - 20.0,
                                     k2017 - 20.0 - 2e-11,
                                     k2017 + 19.0,
                                     k2017 + 19.5,
                                     k2017 + 400.0,
                                     k2017 - 4.0,
                                     k2017 - 3.5,
                                     0.0,
                                     -0.25,
                                     5e-324,
                                     k2017 - 10.0 + 1e-12,
                                     k2017 - 10.0};
    const Table days_apart({row_at(0.0, 200000.0, 31.0), row_at(9000.0, 200000.0, 31.5)});
    Random random(2017);
    for (Table table :
         {daily(1, 1, 0), daily(1, 0, 0), daily(10, 0, 2), leap_table(k2017, 37.0, -1, 0.3), days_apart}) {
        Worlds worlds([&](kl_time_id *id) { return table.set(id) == 0; });
        worlds.one.odd_instants = worlds.all.odd_instants = worlds.trial.odd_instants = odd;
        for (const ArrayForm &f : every_array_form())
            if (std::strncmp(f.name, "kl_time", 7) == 0)
                worlds.expect_law_of(f, random);
    }
}

// A missing input is printed once, not for every element.
void expect_said_once(const ArrayForm &f, const Case &c, OpenWorld *one, OpenWorld *all, Random &random)
{
    SCOPED_TRACE(text_of(f, *one, c));
    const std::vector<Bytes> inputs = make_inputs(f, *one, c.n, c.spoilt, c.instants, random);
    lay_out(f, c, inputs, 0, true, one);
    lay_out(f, c, inputs, 0, true, all);
    long ierr[2], status = KL_OK;
    const std::string once = verbose_text([&] { status = f.one(*one, 0, ierr); });
    const std::string found = verbose_text([&] { f.all(*all, &c.n, nullptr, ierr); });
    const bool value_differs = std::strcmp(f.name, "kl_geoid_calc_n") == 0; // a point that is missing has no number
    if (status == KL_ERR && !value_differs) {
        EXPECT_NE(once.find(found), std::string::npos) << "once:\n" << once << "found:\n" << found;
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
            for (long n = 1; n < 70; n += missing < 0 ? 2 : 33) {
                choose_valid(f, random, &trial);
                one.selectors = all.selectors = trial.selectors;
                one.config = all.config = trial.config;
                for (auto &[name, value] : one.selectors)
                    if (missing < 0 && random() % 4 == 0)
                        value = all.selectors[name] = name == "order" ? 7 : random() % 2 != 0 ? 99 : 0; // some take 0
                Case c;
                c.n = n;
                c.missing = missing;
                expect_law(f, c, &one, &all, random);
                if (missing >= 0 && f.columns[static_cast<std::size_t>(missing)].role == 'e')
                    expect_said_once(f, c, &one, &all, random);
                if (HasFailure())
                    return;
            }
}

bool takes_a_run(const ArrayForm &f)
{
    const std::string name = f.name;
    return name.size() > 6 && name.substr(name.size() - 6) == "_run_n";
}

// Without a satellite nobody knows how large on-board times are: none is touched.
bool is_of_clocks(const ArrayForm &f)
{
    return std::strstr(f.name, "_obt_") != nullptr;
}

constexpr long kNoRuns[] = {-1, 20, 19}; // the last one is a slot that nobody took

// Every element fails; what the scalar twin leaves alone in the vector, the array form does too.
TEST(ArrayForm, OfARunThatIsNotInitialisedFailsInEveryElement)
{
    kl_silent();
    Random random(19);
    OpenWorld one(Correlation::built_in), all(Correlation::built_in);
    int twins = 0;
    for (const ArrayForm &f : every_array_form()) {
        if (!takes_a_run(f) || is_of_clocks(f))
            continue;
        ++twins;
        choose_valid(f, random, &one);
        all.selectors = one.selectors;
        all.config = one.config;
        const long opened[2] = {one.run, all.run};
        for (const long run : kNoRuns)
            for (int missing = -1; missing < static_cast<int>(f.columns.size()); ++missing) {
                one.run = all.run = run;
                Case c;
                c.n = std::array{1L, 5L, 70L}[random() % 3];
                c.missing = missing;
                c.with_status = random() % 4 != 0;
                c.verbose = random() % 2 == 0;
                c.clears_vector = false;
                expect_law(f, c, &one, &all, random);
                long of_one[2] = {5, 5}, of_all[2] = {5, 5};
                EXPECT_EQ(f.one(one, 0, of_one), KL_ERR) << f.name;
                EXPECT_EQ(f.all(all, &c.n, nullptr, of_all), KL_ERR) << f.name;
                EXPECT_EQ(of_all[0], of_one[0]) << f.name;
                EXPECT_EQ(of_all[1], of_one[1]) << f.name;
            }
        one.run = opened[0];
        all.run = opened[1];
        if (HasFailure())
            return;
    }
    EXPECT_GT(twins, 30);
}

TEST(ArrayForm, OfNoElementsTouchesTheVectorAlone)
{
    kl_silent();
    Random random(3);
    OpenWorld w(Correlation::built_in);
    choose(random, &w);
    const long below = -1, none = 0;
    for (const ArrayForm &f : every_array_form()) {
        Case c;
        c.n = 2;
        lay_out(f, c, make_inputs(f, w, c.n, c.spoilt, c.instants, random), kOld, true, &w);
        const auto bytes = [&] {
            Bytes all;
            for (std::size_t k = 0; k < f.columns.size(); ++k)
                all.insert(all.end(), w.at[k], w.at[k] + 2 * w.width[k]);
            return all;
        };
        const Bytes before = bytes();
        const long opened = w.run;
        for (const long run : {opened, kNoRuns[0], kNoRuns[1]})
            for (const long *n : {&none, &below, static_cast<const long *>(nullptr)}) {
                w.run = run;
                long status[2] = {77, 77}, ierr[2] = {5, 5};
                EXPECT_EQ(f.all(w, n, status, ierr), n == &none ? KL_OK : KL_ERR) << f.name;
                EXPECT_EQ(ierr[0], 0) << f.name;
                EXPECT_EQ(status[0], 77) << f.name;
                EXPECT_EQ(bytes(), before) << f.name;
            }
        w.run = opened;
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
        choose_valid(f, random, &w);
        Case c;
        c.n = kMostElements;
        c.spoilt = true;
        lay_out(f, c, make_inputs(f, w, c.n, c.spoilt, c.instants, random), kOld, true, &w);
        long status[kMostElements], ierr[2] = {0, 0};
        faults::Fail fail(faults::Site::kAllocation);
        f.all(w, &c.n, status, ierr);
        EXPECT_FALSE(fail.disarm()) << f.name;
    }
}

} // namespace
