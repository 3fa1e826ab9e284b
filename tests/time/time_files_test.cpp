// Time ids from files: what each format holds, what is refused and where, and what awkward files may do.
#include "support/captured_stream.h"
#include "support/conditions.h"
#include "support/csv.h"
#include "support/fault_injection.h"
#include "support/scratch.h"
#include "time/format_cases.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <map>
#include <random>
#include <string>
#include <sys/stat.h>
#include <tuple>
#include <unistd.h>
#include <vector>

namespace {

constexpr double kMjd2000 = 51544.0;
constexpr double kRounding = 2e-14; // s and arcsec: a few units of the last place of 40 s

std::string data_file(const std::string &name)
{
    return "tests/data/" + name;
}

std::string bytes_of(const std::string &path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

struct Window {
    double start, stop;
};

// A time id from files, model 9 by kl_time_id_init.
struct FileId : OwnedTimeId {
    long status, ierr = 0;
    kl_time_file_report report{};

    FileId(long model, const std::vector<std::string> &paths, const Window *window = nullptr)
    {
        std::vector<const char *> names;
        for (const std::string &path : paths)
            names.push_back(path.c_str());
        const long n = static_cast<long>(names.size());
        const long mode = window != nullptr ? KL_TIME_WINDOW_TIME : KL_TIME_WINDOW_FILE;
        const double *start = window != nullptr ? &window->start : nullptr;
        const double *stop = window != nullptr ? &window->stop : nullptr;
        const long hold = 1;
        status = model == KL_TIME_MODEL_MERGED
                     ? kl_time_id_init(&n, names.data(), &hold, &mode, start, stop, &report, &id, &ierr)
                     : kl_time_ref_init_file(&model, &n, names.data(), &mode, start, stop, &report, &id, &ierr);
    }
    kl_time_row_info at(double mjd, long ref = KL_TIME_UTC)
    {
        kl_time_row_info info{};
        const double days = mjd - kMjd2000;
        EXPECT_EQ(kl_time_get_row(&id, &ref, &days, &info), KL_OK) << mjd;
        return info;
    }
};

FileId built_in(const Window *window = nullptr)
{
    return FileId(KL_TIME_MODEL_MERGED, {}, window);
}

// ---- what the files hold ----

TEST(TimeFiles, HoldTheirRows)
{
    for (const auto &[name, model, files, bits, rows, predicted, skipped, first, last_final, last, combination,
                      second] :
         read_rows<std::string, long, std::string, Bits, long, long, long, double, double, double, long, long>(
             "time_files.csv")) {
        SCOPED_TRACE(name);
        std::vector<std::string> paths;
        for (const std::string &file : parts_of(files, ' '))
            paths.push_back(data_file(file));
        FileId id(model, paths);
        EXPECT_EQ(std::tuple(id.ierr, id.status), std::tuple(bits.value, status_with(bits)));
        const kl_time_file_report &r = id.report;
        EXPECT_EQ(std::tuple(r.n_rows, r.n_predicted, r.n_skipped), std::tuple(rows, predicted, skipped));
        const auto day = [](double mjd) { return mjd != 0.0 ? mjd - kMjd2000 : 0.0; };
        EXPECT_EQ(std::tuple(r.first, r.last_final, r.last), std::tuple(day(first), day(last_final), day(last)));
        TimeData data(id);
        EXPECT_EQ(std::tuple(data.model, data.combination, data.second_bulletin_row, data.no_extrapolation),
                  std::tuple(model, combination, second, model == 10 ? 0 : 1));
    }
}

TEST(TimeFiles, GiveWhatIsPrinted)
{
    for (const auto &[file, mjd, tai_utc, ut1_utc, pole, quality, line] :
         read_rows<std::string, double, double, double, std::string, long, long>("time_files_printed.csv")) {
        SCOPED_TRACE(file + " " + std::to_string(mjd));
        FileId id(KL_TIME_MODEL_MERGED, {data_file(file)});
        const kl_time_row_info info = id.at(mjd);
        EXPECT_EQ(info.tai_utc, tai_utc);
        EXPECT_NEAR(info.tai_utc - info.tai_ut1, ut1_utc, kRounding);
        for (std::size_t i = 0; i < 4; ++i)
            EXPECT_NEAR(info.pole[i], cells_as<double>(pole).at(i), kRounding) << i;
        EXPECT_EQ(std::tuple(info.file, info.line, info.quality, info.by_formula), std::tuple(0, line, quality, 0));
    }
}

TEST(TimeFiles, OfOrbitsGiveTheirSpan)
{
    for (const auto &[file, start, stop, tai_utc] : read_rows<std::string, double, double, double>("orbit_spans.csv")) {
        SCOPED_TRACE(file);
        FileId id(KL_TIME_MODEL_ORBIT_FILE, {data_file(file)});
        EXPECT_EQ(id.ierr, warning_bits(KL_TIME_REF_INIT_FILE_NO_UT1_WARN));
        EXPECT_NEAR(id.report.first, start, 1e-11);
        EXPECT_NEAR(id.report.last, stop, 1e-11);
        const kl_time_row_info info = id.at(start + kMjd2000 + 1e-6);
        EXPECT_EQ(std::tuple(info.tai_utc, info.tai_ut1), std::tuple(tai_utc, tai_utc)); // UT1 = UTC
    }
    // Another file brings UT1 of the span.
    FileId both(KL_TIME_MODEL_ORBIT_FILE, {data_file("example-a-1.sp3"), data_file("OEMExample1.txt")});
    EXPECT_EQ(both.report.n_rows, 4); // a leap second lies between them
    FileId none(KL_TIME_MODEL_ORBIT_FILE, {data_file("bulletinb.270")});
    EXPECT_EQ(none.ierr, error_bits(9));
}

// Bulletin A, Vol. XIX No. 001, in digits: the pole 200 days after its table, and UT1.
TEST(TimeFiles, FormulaOfABulletinGoesOnAfterItsTable)
{
    FileId id(KL_TIME_MODEL_BULLETIN_A, {data_file("bulletina-xix-001.txt")});
    const double mjd = 54305.0;
    const kl_time_row_info info = id.at(mjd);
    EXPECT_EQ(std::tuple(info.row, info.by_formula), std::tuple(372, 1));
    for (const auto &[at, by_formula] : {std::tuple(54105.0, 1), std::tuple(54104.99, 0)}) // its last row: 54105
        EXPECT_EQ(std::tuple(id.at(at).row, id.at(at).by_formula), std::tuple(at < 54105.0 ? 370 : 371, by_formula));
    const double a = 2 * M_PI * (mjd - 53740) / 365.25, c = 2 * M_PI * (mjd - 53740) / 435.0;
    EXPECT_NEAR(info.pole[0],
                0.0337 - 0.0743 * std::cos(a) - 0.1283 * std::sin(a) + 0.0956 * std::cos(c) + 0.1453 * std::sin(c),
                1e-8);
    EXPECT_NEAR(info.pole[1],
                0.3559 - 0.1247 * std::cos(a) + 0.0675 * std::sin(a) + 0.1453 * std::cos(c) - 0.0956 * std::sin(c),
                1e-8);
    const double t = 2000.0 + (mjd - 51544.03) / 365.2422; // Besselian year
    const double ut2_ut1 = 0.022 * std::sin(2 * M_PI * t) - 0.012 * std::cos(2 * M_PI * t)
                           - 0.006 * std::sin(4 * M_PI * t) + 0.007 * std::cos(4 * M_PI * t);
    EXPECT_NEAR(info.tai_utc - info.tai_ut1, 0.3324 - 0.00042 * (mjd - 53745) - ut2_ut1, 1e-5);
    // The same bulletin as a table holds its last row.
    FileId table(KL_TIME_MODEL_BULLETIN_A_TABLE, {data_file("bulletina-xix-001.txt")});
    EXPECT_NEAR(table.at(mjd).tai_utc - table.at(mjd).tai_ut1, 0.22895, kRounding);
}

// ---- against an independent reader ----

TEST(BuiltInTimes, AgreeWithAnIndependentReaderOfTheSameSeries)
{
    FileId id = built_in();
    ASSERT_EQ(std::tuple(id.ierr, id.report.n_rows), std::tuple(0, 20322));
    EXPECT_EQ(std::tuple(id.report.first, id.report.last_final, id.report.last, id.report.leap_expiry),
              std::tuple(-10227.0, 9678.0, 10094.0, 10040.0));
    const auto rows = read_table("earth_orientation.csv", 5);
    EXPECT_GT(rows.size(), 190U);
    for (const auto &row : rows) {
        const double mjd = row[0], tai_utc = row[1], ut1_utc = row[2], x = row[3], y = row[4];
        // On the day of a leap second the other reader counts 86400 s.
        const bool leap_day = mjd == 57753.75;
        const kl_time_row_info info = id.at(mjd);
        EXPECT_EQ(info.tai_utc, tai_utc) << mjd;
        EXPECT_NEAR(info.tai_utc - info.tai_ut1, ut1_utc, leap_day ? 1e-7 : 1e-13) << mjd;
        EXPECT_NEAR(info.pole[0], x, leap_day ? 1e-8 : 1e-11) << mjd;
        EXPECT_NEAR(info.pole[1], y, leap_day ? 1e-8 : 1e-11) << mjd;
        EXPECT_EQ(info.file, -1);
    }
}

TEST(BuiltInTimes, EachLeapSecondIsTheLastOfAWindowThatEndsBeforeTheNext)
{
    FileId all = built_in();
    long n = 0;
    double *utc = nullptr, *tai_utc = nullptr, expiry = 0.0;
    ASSERT_EQ(kl_time_get_leap_seconds(all, &n, &utc, &tai_utc, &expiry), KL_OK);
    EXPECT_EQ(std::tuple(n, expiry),
              std::tuple(static_cast<long>(kTaiUtcSteps.size()) - 1, 10040.0)); // the first is no step
    for (long i = 0; i < n; ++i) {
        const TaiUtcStep &step = kTaiUtcSteps.at(static_cast<std::size_t>(i) + 1);
        EXPECT_EQ(std::tuple(utc[i], tai_utc[i]), std::tuple(step.mjd - kMjd2000, step.tai_utc));
        const Window window = {utc[i] - 5.0, utc[i] + 5.0};
        FileId id = built_in(&window);
        EXPECT_EQ(std::tuple(id.ierr, id.report.n_rows), std::tuple(0, 11));
        const double inside = utc[i] + (tai_utc[i] - 1.0 + 0.25) / kDay; // TAI, a quarter into the leap second
        char text[KL_TIME_ASCII_LENGTH] = "";
        LEAVES(kNothing, kl_time_processing_to_ascii(id, at(long{KL_PROC}), at(kTai), &inside, at(long{KL_ASCII_43}),
                                                     at(kUtc), text, e))
        EXPECT_EQ(std::string(text).substr(10), "T23:59:60.250000") << step.mjd;
    }
    void *arrays[] = {utc, tai_utc};
    for (void *&array : arrays)
        kl_free_array(&array);
}

TEST(BuiltInTimes, WarnOfWhatTheyDoNotKnow)
{
    const struct {
        Window window;
        long bits;
    } cases[] = {
        {{9000.0, 10040.0}, 0},
        {{9000.0, 10041.0}, kWarningBit | 1 << 15},
        {{9000.0, 10095.0}, kWarningBit | 1 << 12 | 1 << 15},
        {{-10300.0, 0.0}, kWarningBit | 1 << 12},
        {{10095.0, 10100.0}, error_bits(9)},
        {{-10300.0, -10228.0}, error_bits(9)},
        {{8.25, 8.5}, 0},
    };
    for (const auto &[window, bits] : cases)
        EXPECT_EQ(built_in(&window).ierr, bits) << window.start;
    OwnedTimeId id;
    LEAVES(error_bits(8),
           kl_time_id_init(at(0L), nullptr, at(0L), at(0L), nullptr, nullptr, nullptr, id, e)) // no formula
    const Window day = {8.25, 8.5};
    EXPECT_EQ(built_in(&day).report.n_rows, 2);
}

// ---- data that travel ----

TEST(TimeFiles, DataOfAnIdMakeTheSameIdElsewhere)
{
    for (const char *file : {"finals2000A_2017.excerpt", "bulletina-xix-001.txt"}) {
        FileId first(file[0] == 'b' ? 10 : 4, {data_file(file)});
        TimeData data(first);
        OwnedTimeId second;
        ASSERT_EQ(kl_time_set_id_data(second, &data), KL_OK);
        for (double utc = data.rows[0].utc - 2.0; utc < data.rows[data.n_rows - 1].utc + 9.0; utc += 0.37) {
            kl_time_row_info a{}, b{};
            ASSERT_EQ(kl_time_get_row(first, at(kUtc), &utc, &a), KL_OK);
            ASSERT_EQ(kl_time_get_row(second, at(kUtc), &utc, &b), KL_OK);
            ASSERT_EQ(std::memcmp(&a, &b, sizeof a), 0) << utc;
        }
        data.pole[3][1] = kNaN;
        EXPECT_EQ(kl_time_set_id_data(second, &data), -1);
        data.pole[3][1] = 0.1;
        data.pole_period[0] = 0.5;
        EXPECT_EQ(kl_time_set_id_data(second, &data), -1);
    }
}

// ---- TAI-UTC that texts and lists state ----

TEST(TimeFiles, TaiUtcOfATextIsOnlyChecked)
{
    const Scratch scratch;
    std::string text = bytes_of(data_file("bulletina-xix-001.txt"));
    text.replace(text.find("53741) = 33.0"), 13, "53741) = 32.0");
    FileId id(KL_TIME_MODEL_BULLETIN_A_TABLE, {scratch.holding(text)});
    EXPECT_EQ(std::tuple(id.ierr, id.report.line, id.report.column), std::tuple(warning_bits(13), 97, 1));
    EXPECT_EQ(id.at(53741.0).tai_utc, 33.0);
    // A list that lacks the last leap second loses against the rows.
    std::string list = bytes_of(data_file("Leap_Second.dat"));
    list.erase(list.rfind("    57754.0"));
    FileId rows(KL_TIME_MODEL_MERGED, {data_file("finals2000A_2017.excerpt"), scratch.holding(list)});
    EXPECT_EQ(std::tuple(rows.ierr, rows.report.line), std::tuple(warning_bits(13), 11));
    EXPECT_EQ(rows.at(57755.0).tai_utc, 37.0);
    // Cut before its first row it holds nothing; the list compiled in is not taken for it.
    list.erase(list.find("    41317.0"));
    EXPECT_EQ(FileId(KL_TIME_MODEL_LEAP_SECONDS, {scratch.holding(list)}).ierr, error_bits(9));
}

TEST(OwnTable, HoldsAnySource)
{
    const Scratch scratch;
    const std::string head = "KL_TIME_CORRELATION 1\n# by hand\n";
    FileId one(6, {scratch.holding(head + "2026-01-01T00:00:00 37 0.0712345\n")});
    EXPECT_EQ(std::tuple(one.ierr, one.report.n_rows, one.report.first), std::tuple(0, 1, 9497.0));
    EXPECT_NEAR(one.at(62000.0).tai_ut1, 37.0 - 0.0712345, kRounding);
    const std::string two =
        "2016-12-31T12:00:00.500000 36 -0.4080 0.08 0.263\r\n2017-01-01T12:00:00 37 0.5910 0.09 0.264";
    FileId leap(6, {scratch.holding(head + "\n" + two)});
    EXPECT_EQ(std::tuple(leap.ierr, leap.report.n_rows), std::tuple(0, 3)); // one at the leap second
    EXPECT_EQ(std::tuple(leap.at(57754.0).quality, leap.at(57754.0).tai_utc, leap.at(57753.99).tai_utc),
              std::tuple(long{KL_TIME_QUALITY_INSERTED}, 37.0, 36.0));
    // A last line that is not ended and shorter than the one before is cut.
    for (const char *cut : {"0.5910 0.09 0.26", "0.5910 0.09", "0.5910", "0.59"})
        EXPECT_EQ(FileId(6, {scratch.holding(head + two.substr(0, two.find("0.5910")) + cut)}).ierr, error_bits(6))
            << cut;
    for (const char *bad : {"2026-02-29T00:00:00 37 0.1\n", "2026-01-01T00:00:00 37.5 0.1\n", "2026-01-01 37 0.1\n",
                            "2026-01-01T00:00:00 37 0.1 0.1\n", "2026-01-01T00:00:00 37 1e-3\n", "FORMULA 1 2\n",
                            "2026-01-01T00:00:00 37 -100\n", "2026-01-01T00:00:00 37 0.1 2 0.1\n"})
        EXPECT_EQ(FileId(6, {scratch.holding(head + bad)}).ierr, error_bits(6)) << bad;
    EXPECT_EQ(FileId(6, {scratch.holding(head)}).ierr, error_bits(9));
}

// ---- what is refused ----

TEST(TimeFiles, ArgumentsAndFilesAreCheckedInOrder)
{
    for (const auto &[name, model, n_files, mode, start, stop, file, bits] :
         read_rows<std::string, long, long, long, double, double, std::string, Bits>("time_file_refusals.csv")) {
        OwnedTimeId id;
        const std::string path = data_file(file);
        const char *const names[] = {path.c_str()};
        kl_time_file_report report;
        long ierr = -7;
        EXPECT_EQ(kl_time_ref_init_file(&model, &n_files, names, &mode, &start, &stop, &report, id, &ierr), KL_ERR);
        EXPECT_EQ(std::tuple(ierr, id.id.record), std::tuple(bits.value, nullptr)) << name;
    }
    FileId open(KL_TIME_MODEL_MERGED, {});
    void *const record = open.id.record;
    LEAVES(error_bits(0), kl_time_ref_init_file(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, open, e))
    LEAVES(error_bits(0), kl_time_id_init(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, open, e))
    EXPECT_EQ(open.id.record, record);
    LEAVES(kRefused, kl_time_id_init(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, e))
    // Names and lines are told in verbose mode.
    const std::string line = verbose_text([] { FileId(4, {"tests/data/none"}); });
    EXPECT_EQ(line, "ORBKIT_LIB >>> ERROR in kl_time_ref_init_file: Error reading file: tests/data/none\n");
}

TEST(TimeFiles, DamageIsFoundWhereItIs)
{
    const Scratch scratch;
    for (const auto &[name, file, damaged, by, bits, line, column, field] :
         read_rows<std::string, std::string, std::string, std::string, Bits, long, long, std::string>(
             "time_file_damages.csv")) {
        SCOPED_TRACE(name);
        std::string text = bytes_of(data_file(file));
        const std::size_t at = text.find(damaged);
        ASSERT_NE(at, text.npos);
        text.replace(at, damaged.size(), by);
        FileId id(KL_TIME_MODEL_MERGED, {scratch.holding(text)});
        EXPECT_EQ(std::tuple(id.ierr, id.report.line, id.id.record), std::tuple(bits.value, line, nullptr));
        EXPECT_TRUE(column == 0 || id.report.column == column) << id.report.column << id.report.field;
        EXPECT_TRUE(field.empty() || id.report.field == field) << id.report.field;
    }
}

// ---- awkward files ----

const char *const kSamples[] = {"finals2000A_2017.excerpt",  "finals2000A_2026.excerpt",
                                "eopc04_20_excerpt.15",      "eopc04_14_excerpt.22",
                                "bulletinb-338.txt",         "bulletinb.270",
                                "bulletinb_IAU1980-220.txt", "bulletina-xix-001.txt",
                                "bulletina-xxvi-045.txt",    "leap-seconds.list",
                                "Leap_Second.dat",           "example-a-1.sp3",
                                "example-c-1.sp3",           "example-d-1.sp3",
                                "OEMExample1.txt",           "OEMExample3.xml"};

bool is_orbit(const std::string &sample)
{
    return sample.rfind("example", 0) == 0 || sample.rfind("OEM", 0) == 0;
}

// Rows by the line that they come from, without what the library put in.
std::map<long, std::vector<double>> rows_by_line(kl_time_id *id)
{
    std::map<long, std::vector<double>> rows;
    TimeData data(id);
    for (long i = 0; i < data.n_rows; ++i)
        if (data.row_notes[i][0] % 16 != KL_TIME_QUALITY_INSERTED)
            rows[data.row_notes[i][1]] = {data.rows[i].utc, data.rows[i].tai_utc, data.rows[i].tai_ut1, data.pole[i][0],
                                          data.pole[i][1],  data.pole[i][2],      data.pole[i][3]};
    return rows;
}

TEST(AwkwardFiles, CutAnywhereGiveFewerRowsOrACodeButNoOtherNumber)
{
    const Scratch scratch;
    for (const std::string sample : kSamples) {
        const std::string text = bytes_of(data_file(sample));
        FileId whole(KL_TIME_MODEL_MERGED, {data_file(sample)});
        ASSERT_NE(whole.status, KL_ERR) << sample;
        const auto rows = rows_by_line(whole);
        const std::size_t last_lines = text.rfind('\n', text.rfind('\n', text.size() - 2) - 1);
        for (std::size_t n = 1; n < text.size(); n += n < last_lines ? 97 : 1) {
            FileId id(KL_TIME_MODEL_MERGED, {scratch.holding(text.substr(0, n))});
            if (id.status == KL_ERR) {
                ASSERT_EQ(id.id.record, nullptr);
                continue;
            }
            ASSERT_LE(id.report.last, whole.report.last) << sample << " " << n;
            if (is_orbit(sample))
                continue; // it ends where its last whole epoch is
            if (sample[0] == 'f' && n % 188 >= 134 && n % 188 <= 136)
                continue; // on purpose: before the columns of Bulletin B a line is whole without them
            for (const auto &[line, row] : rows_by_line(id)) {
                ASSERT_TRUE(rows.count(line) == 1 && rows.at(line) == row) << sample << " " << n << " line " << line;
            }
        }
    }
}

TEST(AwkwardFiles, BytesOutOfPlaceGiveRowsOrACode)
{
    const Scratch scratch;
    std::mt19937 random(7);
    int refused = 0;
    for (const std::string sample : kSamples) {
        const std::string text = bytes_of(data_file(sample));
        for (int i = 0; i < 60; ++i) {
            std::string other = text;
            const char bytes[] = {'\0', '\xff', '7', ' ', '\n', '-'};
            other[random() % text.size()] = bytes[i % 6];
            FileId id(KL_TIME_MODEL_MERGED, {scratch.holding(other)});
            EXPECT_EQ(id.status == KL_ERR, id.id.record == nullptr);
            // A zero byte is code 6, or the heading is lost and the format with it.
            if (i % 6 == 0) {
                EXPECT_TRUE(id.ierr == error_bits(6) || id.ierr == error_bits(5) || other.back() == '\0')
                    << sample << i;
            }
            refused += id.status == KL_ERR ? 1 : 0;
        }
    }
    EXPECT_GT(refused, 200);
}

// All columns that are read stand side by side: each belongs to a field, which a letter there makes unreadable. Where
// in its columns a number stands does not matter.
TEST(AwkwardFiles, EveryColumnBelongsToItsField)
{
    struct Fields {
        const char *sample, *line, *number, *to_the_left;
        std::size_t runs[2][2]; // columns
    };
    constexpr Fields kFields[] = {
        {"eopc04_20_excerpt.15", "2015   6  27", "    0.137093", "0.137093    ", {{1, 86}, {123, 158}}},
        {"eopc04_14_excerpt.22", "2022   1   3", "   0.053559", "0.053559   ", {{1, 53}, {66, 120}}},
    };
    const Scratch scratch;
    for (const Fields &f : kFields) {
        const std::string text = bytes_of(data_file(f.sample));
        const std::size_t line = text.find(f.line);
        ASSERT_NE(line, text.npos);
        for (const auto &run : f.runs)
            for (std::size_t column = run[0]; column <= run[1]; ++column) {
                std::string other = text;
                other[line + column - 1] = 'x';
                EXPECT_EQ(FileId(KL_TIME_MODEL_MERGED, {scratch.holding(other)}).status, KL_ERR) << column;
            }
        std::string moved = text;
        const std::size_t number = moved.find(f.number);
        ASSERT_NE(number, text.npos);
        moved.replace(number, std::string(f.number).size(), f.to_the_left);
        FileId whole(KL_TIME_MODEL_MERGED, {scratch.holding(text)}),
            other(KL_TIME_MODEL_MERGED, {scratch.holding(moved)});
        EXPECT_EQ(rows_by_line(other), rows_by_line(whole)) << f.sample;
    }
}

TEST(AwkwardFiles, LinesOutOfOrderAreRefused)
{
    const Scratch scratch;
    for (const std::string sample : {"finals2000A_2017.excerpt", "eopc04_20_excerpt.15", "bulletinb-338.txt"}) {
        std::string text = bytes_of(data_file(sample));
        const std::size_t line = sample[0] == 'b' ? text.find("2016   2   9") : text.rfind('\n', text.size() - 900) + 1;
        const std::size_t end = text.find('\n', line) + 1;
        const std::string twice = text.substr(0, end) + text.substr(line);
        EXPECT_EQ(FileId(KL_TIME_MODEL_MERGED, {scratch.holding(twice)}).ierr, error_bits(7)) << sample;
        const std::size_t next = text.find('\n', end) + 1;
        const std::string swapped =
            text.substr(0, line) + text.substr(end, next - end) + text.substr(line, end - line) + text.substr(next);
        EXPECT_EQ(FileId(KL_TIME_MODEL_MERGED, {scratch.holding(swapped)}).ierr, error_bits(7)) << sample;
    }
}

TEST(AwkwardFiles, EndsOfLinesDoNotMatter)
{
    const Scratch scratch;
    for (const std::string sample : kSamples) {
        const std::string text = bytes_of(data_file(sample));
        FileId whole(KL_TIME_MODEL_MERGED, {data_file(sample)});
        std::string crlf;
        for (const char c : text)
            crlf += c == '\n' ? "\r\n" : std::string(1, c);
        for (const std::string &other : {crlf, text + std::string(3, '\0'), text + "\n" + std::string(1, '\0')}) {
            FileId id(KL_TIME_MODEL_MERGED, {scratch.holding(other)});
            EXPECT_EQ(std::tuple(id.ierr, id.report.n_rows), std::tuple(whole.ierr, whole.report.n_rows)) << sample;
        }
    }
}

TEST(AwkwardFiles, ThatAreNoFilesAreNotWaitedFor)
{
    const Scratch scratch;
    for (const char *path : {"/dev/zero", "/dev/null", "/", "/proc/self/mem"})
        EXPECT_EQ(FileId(KL_TIME_MODEL_MERGED, {path}).ierr, error_bits(4)) << path;
    EXPECT_EQ(FileId(KL_TIME_MODEL_MERGED, {scratch.holding("")}).ierr, error_bits(4)) << "empty";
    const std::string pipe = testing::TempDir() + "kl_pipe_" + std::to_string(getpid());
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(FileId(KL_TIME_MODEL_MERGED, {pipe}).ierr, error_bits(4)) << "a pipe without a writer";
    std::remove(pipe.c_str());
    const std::string huge = bytes_of(data_file("eopc04_20_excerpt.15")) + std::string(10 << 20, '1');
    EXPECT_EQ(FileId(KL_TIME_MODEL_MERGED, {scratch.holding(huge)}).ierr, error_bits(6)) << "10 MB in a line";
    const std::string &large = scratch.holding("C04\n");
    scratch.grow_to(64L << 20);
    EXPECT_EQ(FileId(KL_TIME_MODEL_MERGED, {large}).ierr, error_bits(9)) << "no rows, zero bytes at the end";
    scratch.grow_to((64L << 20) + 1);
    EXPECT_EQ(FileId(KL_TIME_MODEL_MERGED, {large}).ierr, error_bits(4)) << "too large";
}

// Between its opening and its reading another process may write it again.
TEST(AwkwardFiles, ThatShrinkOrGrowWhileTheyAreReadAreRefused)
{
    SKIP_WITHOUT_FAULTS();
    static const Scratch scratch;
    static long new_size;
    for (const std::string sample : {"finals2000A_2017.excerpt", "example-c-1.sp3"}) {
        for (const long copies : {1L, 100L}) { // whole, and by its ends
            std::string text;
            for (long i = 0; i < copies; ++i)
                text += bytes_of(data_file(sample));
            for (const long change : {1L, static_cast<long>(text.size()) - 200, -1L}) {
                const std::string &name = scratch.holding(text);
                new_size = static_cast<long>(text.size()) - change;
                faults::before_read = [] { scratch.grow_to(new_size); };
                FileId id(KL_TIME_MODEL_MERGED, {name});
                faults::before_read = nullptr;
                const bool only_ends = copies > 1 && sample[0] == 'e';
                if (!only_ends || change > 0) {
                    EXPECT_EQ(std::tuple(id.ierr, id.id.record), std::tuple(error_bits(4), nullptr))
                        << sample << change;
                }
            }
        }
    }
}

// Of a long SP3 only the ends are read.
TEST(AwkwardFiles, ALongOrbitIsReadAtItsEnds)
{
    const Scratch scratch;
    const std::string text = bytes_of(data_file("example-c-1.sp3"));
    const std::size_t last = text.rfind("\n*") + 1;
    const std::size_t position = text.find("\nP") + 1;
    const std::string line = text.substr(position, text.find('\n', position) + 1 - position);
    std::string middle;
    while (middle.size() < (65u << 20))
        middle += line;
    FileId id(KL_TIME_MODEL_ORBIT_FILE, {scratch.holding(text.substr(0, last) + middle + text.substr(last))});
    FileId whole(KL_TIME_MODEL_ORBIT_FILE, {data_file("example-c-1.sp3")});
    EXPECT_EQ(std::tuple(id.ierr, id.report.first, id.report.last),
              std::tuple(whole.ierr, whole.report.first, whole.report.last));
    EXPECT_EQ(id.at(id.report.last + kMjd2000).line, 0); // not known: the middle has not been read
}

} // namespace
