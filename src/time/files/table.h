// From what the files hold to the rows of a time id: which rows a model uses, their merging, TAI-UTC, leap-second rows
// and the window.
#ifndef KL_SRC_TIME_FILES_TABLE_H
#define KL_SRC_TIME_FILES_TABLE_H

#include "time/correlation.h"
#include "time/files/contents.h"

namespace time_files {

constexpr long kAnyModel = 0; // merged, or leap seconds where there is nothing else
constexpr std::int32_t kBuiltInFile = -1;

struct Window {
    bool given = false;
    double start = 0.0, stop = 0.0; // UTC, MJD2000
};

struct Request {
    long model = kAnyModel;
    bool no_extrapolation = true; // read with kAnyModel
    Window window;
};

// One file and its place in the caller's list.
struct Source {
    Contents contents;
    std::int32_t file = 0;
};

enum class TableFault { none, no_memory, no_formula, no_rows, no_leap_second, not_increasing };

struct Place {
    std::int32_t file = 0;
    long line = 0; // 0: nowhere
};

struct Table {
    Correlation correlation = {}; // its arrays, made by malloc, are the caller's, also after a fault
    long n_predicted = 0, n_skipped = 0;
    double last_final = 0.0;   // UTC, MJD2000
    double leap_expiry = 0.0;  // of the list that was read; 0: none
    Place place;               // of the fault, or of the statement about TAI-UTC that is not that of the rows
    bool uncovered = false;    // part of the window lies outside the rows
    bool disagreement = false; // `place` says of what
    bool no_ut1 = false;       // UT1 = UTC
    bool expired = false;      // the list of leap seconds ends before the window
};

constexpr long kNoteUnit = 16; // of a file in the notes of a row; the rest is the quality

// Room for rows, notes and pole; false without memory, what was made then belongs to the correlation.
[[nodiscard]] bool allocate_rows(std::size_t n, Correlation *correlation);
void put_row(double utc, double tai_utc, double ut1_utc, kl_time_row *row);

// Does a model use files of this format?
bool takes(long model, Format format);

// Builds the table; the rows of the sources are used up.
TableFault build_table(const Request &request, Source *sources, std::size_t n_sources, Table *table);

// The same from the correlation compiled into the library; model and sources do not count.
TableFault build_built_in(const Request &request, Table *table);
// Its leap seconds alone.
[[nodiscard]] bool read_built_in_leap_seconds(Contents *contents);

} // namespace time_files

#endif
