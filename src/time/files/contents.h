// What the files that the services publish hold, and what can be wrong with one: plain values, before any time id.
#ifndef KL_SRC_TIME_FILES_CONTENTS_H
#define KL_SRC_TIME_FILES_CONTENTS_H

#include "time/files/buffer.h"
#include "time/instants.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace time_files {

constexpr double kMjdOfDayZero = 51544.0;
constexpr double kFirstWholeTaiUtc = 41317 - kMjdOfDayZero; // 1972-01-01: before it TAI-UTC was no whole number
constexpr double kLargestUt1Utc = 100.0 - 0x1p-46; // s, next below 100: the bound of 0.9 s may be relaxed one day
constexpr double kLargestPole = 2.0 - 0x1p-52;     // arcsec, next below 2
constexpr std::size_t kRecognisedBytes = 4096;
constexpr std::size_t kFieldLength = 64;

// The formats, in the order in which they are looked for.
enum class Format {
    unknown,
    sp3,
    oem_text,
    oem_xml,
    own_table,
    leap_seconds_list,
    leap_second_dat,
    bulletin_a,
    bulletin_b,
    old_bulletin_b, // up to No. 263
    c04,
    finals,
};
Format recognised(std::string_view bytes);

enum class Fault { none, no_memory, malformed, not_increasing, unsupported };

// What ends the reading of a file, and where: line and column from 1, line 0 is nowhere.
struct Finding {
    Fault fault = Fault::none;
    long line = 0, column = 0;
    char field[kFieldLength] = {}; // the refused characters

    explicit operator bool() const { return fault != Fault::none; }
};

enum Quality : std::int32_t { kFinal = 0, kRapid = 1, kPreliminary = 2, kPredicted = 3, kInserted = 4 };

// UT1 and pole at one instant.
struct EarthRow {
    double utc;           // MJD2000
    double ut1_utc;       // s
    double pole[4];       // x, y, dX, dY of the IAU 2000 series, arcsec
    double tai_utc;       // s, where the row states it; else kUnstated
    std::int32_t quality; // Quality
    std::int32_t file;    // index in the list of files; the readers leave it at 0
    long line;
};
constexpr double kUnstated = -1e9;

// TAI-UTC as a text beside the rows states it, for the rows from `first` to `last`.
struct Statement {
    double first, last; // UTC, MJD2000
    double tai_utc;     // s
    long line;
};

// From `utc` on TAI-UTC is `tai_utc`.
struct LeapStep {
    double utc;     // MJD2000, a midnight
    double tai_utc; // s, whole
    long line;
};

// How a bulletin goes on after its table.
struct Formula {
    bool ut1 = false;
    double a = 0.0, b = 0.0, c = 0.0;      // UT1-UTC = a + b (t - c) - (UT2-UT1), s and MJD2000
    double pole_x[5] = {}, pole_y[5] = {}; // constant, cos A, sin A, cos C, sin C, arcsec
    double pole_reference_date[2] = {};    // MJD2000
    double pole_period[2] = {};            // days
};

// The instants that an orbit file covers, on its own time scale.
enum class Scale { utc, tai };
struct Span {
    bool known = false;
    Scale scale = Scale::utc;
    double start = 0.0, stop = 0.0; // MJD2000
    long start_line = 0, stop_line = 0;
};

struct Contents {
    Format format = Format::unknown;
    Buffer<EarthRow> rows; // in increasing order
    Buffer<Statement> statements;
    Buffer<LeapStep> leap_steps; // of a list of leap seconds
    double leap_expiry = 0.0;    // UTC, MJD2000; 0: not stated
    Formula formula;
    Span span;
    long n_skipped = 0; // data lines read and not used
};

// Reads the bytes of a file of a format. `contents` is to be used only when nothing was found.
Finding read_contents(Format format, std::string_view bytes, Contents *contents);

// The readers, one a format.
Finding read_sp3(std::string_view bytes, Contents *contents);
Finding read_sp3_ends(std::string_view head, std::string_view tail, Contents *contents); // of a long file
Finding read_oem_text(std::string_view bytes, Contents *contents);
Finding read_oem_xml(std::string_view bytes, Contents *contents);
Finding read_own_table(std::string_view bytes, Contents *contents);
Finding read_leap_seconds_list(std::string_view bytes, Contents *contents);
Finding read_leap_second_dat(std::string_view bytes, Contents *contents);
Finding read_bulletin_a(std::string_view bytes, Contents *contents);
Finding read_bulletin_b(std::string_view bytes, Contents *contents);
Finding read_old_bulletin_b(std::string_view bytes, Contents *contents);
Finding read_c04(std::string_view bytes, Contents *contents);
Finding read_finals(std::string_view bytes, Contents *contents);

} // namespace time_files

#endif
