// Rows of the page: spreads of differences.
#ifndef KL_TOOLS_ACCURACY_TABLE_H
#define KL_TOOLS_ACCURACY_TABLE_H

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

[[noreturn]] inline void fail(const char *what)
{
    std::fprintf(stderr, "accuracy: %s failed\n", what);
    std::exit(EXIT_FAILURE);
}

inline void heading(const char *title)
{
    std::printf("\n## %s\n\n| quantity | unit | median | 99 %% | maximum | cause of the difference "
                "|\n|---|---|---|---|---|---|\n",
                title);
}

// Median, 99th percentile and maximum of a set of differences.
class Spread {
public:
    void add(double x) { values_.push_back(std::fabs(x)); }

    // The three, each times a scale, as cells of a row or within one cell.
    std::string cells(double scale = 1.0, const char *between = " | ")
    {
        std::sort(values_.begin(), values_.end());
        std::string out;
        for (const double share : {0.5, 0.99, 1.0}) {
            const double at = values_[static_cast<std::size_t>(share * static_cast<double>(values_.size() - 1))];
            char cell[32];
            std::snprintf(cell, sizeof cell, "%.3g", at * scale);
            out += (out.empty() ? "" : between) + std::string(cell);
        }
        return out;
    }

    double median()
    {
        std::sort(values_.begin(), values_.end());
        return values_[(values_.size() - 1) / 2];
    }

    double largest() const { return *std::max_element(values_.begin(), values_.end()); }

    // How far each value is from that of the other set, at most; before the sets are printed.
    double apart(const Spread &other) const
    {
        double most = values_.size() == other.values_.size() ? 0.0 : INFINITY;
        for (std::size_t i = 0; i < values_.size() && i < other.values_.size(); ++i)
            most = std::fmax(most, std::fabs(values_[i] - other.values_[i]));
        return most;
    }

    std::string cell() { return cells(1.0, " / "); }

    void print(const std::string &what, const char *unit, const std::string &cause)
    {
        std::printf("| %s | %s | %s | %s |\n", what.c_str(), unit, cells().c_str(), cause.c_str());
    }

private:
    std::vector<double> values_;
};

// A random point of the sphere, degrees.
struct Place {
    double lat, lon;
};

inline std::vector<Place> random_places(std::size_t count, unsigned long seed)
{
    std::mt19937_64 random(seed);
    std::uniform_real_distribution<double> unit(-1.0, 1.0);
    std::vector<Place> places(count);
    for (Place &place : places)
        place = {std::asin(unit(random)) * 57.29577951308232, 180.0 + 180.0 * unit(random)};
    return places;
}

// Coordinates against other libraries.
void compare_coordinates(long count);
// Geoid against other libraries; against its own formula, one row of the last table. `listings` holds the coefficients
// as text and takes the files made of them.
void compare_geoid(const std::string &listings);
void geoid_fidelity(const std::string &listings);

#endif
