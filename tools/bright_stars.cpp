// The built-in star catalogue: from the file of the Bright Star Catalogue to data/stars/bright_stars.csv, and from
// there to the rows that src/stars/bright_stars.cpp takes in.
//
//   bright_stars reduce CATALOGUE STARS.csv   the entries with a position, to V 6.5, in whole units
//   bright_stars build STARS.csv OUTPUT.inc   checks every number and writes the rows; the same bytes each run
#include <climits>
#include <cstddef>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <string>

namespace {

constexpr int kColumns = 8;
constexpr int kStars = 8404;
constexpr struct {
    long low, high;
} kRange[kColumns] = {
    {1, 9110},            // HR
    {0, 863999},          // right ascension, tenths of a second
    {-324000, 324000},    // declination, arcsec
    {-200, 650},          // V, hundredths
    {SHRT_MIN, SHRT_MAX}, // proper motions, mas/yr
    {SHRT_MIN, SHRT_MAX}, //
    {-1000, 1000},        // parallax, mas
    {-1000, 1000},        // radial velocity, km/s
};

void require(bool condition, const std::string &what)
{
    if (!condition)
        throw std::runtime_error(what);
}

// A decimal number of fixed columns (counted from 1) as a whole one of its last place; blanks are 0.
long field(std::string line, std::size_t first, std::size_t last, int decimals)
{
    line.resize(200, ' ');
    const std::string text = line.substr(first - 1, last - first + 1);
    long value = 0;
    int after = -1;
    bool minus = false;
    for (const char c : text) {
        if (c == '-')
            minus = true;
        else if (c == '.')
            after = 0;
        else if (c >= '0' && c <= '9') {
            value = 10 * value + (c - '0');
            after += after >= 0 ? 1 : 0;
        } else
            require(c == ' ' || c == '+', "not a number: '" + text + "'");
    }
    for (int i = after < 0 ? 0 : after; i < decimals; ++i)
        value *= 10;
    return minus ? -value : value;
}

void reduce(std::istream &in, std::ostream &out)
{
    out << "# Bright Star Catalogue, 5th revised edition (D. Hoffleit and W. H. Warren, 1991), to V 6.5.\n"
           "# HR, right ascension J2000 (0.1 s of time), declination J2000 (arcsec), V (0.01 mag), proper motions "
           "(mas/yr, "
           "that in right ascension times cos(dec)), parallax (mas), radial velocity (km/s)\n";
    std::string line;
    while (std::getline(in, line)) {
        if (line.size() < 100 || line.compare(75, 8, "        ") == 0 || field(line, 103, 107, 2) > kRange[3].high)
            continue;
        const long ra = 36000 * field(line, 76, 77, 0) + 600 * field(line, 78, 79, 0) + field(line, 80, 83, 1);
        const long dec = 3600 * field(line, 85, 86, 0) + 60 * field(line, 87, 88, 0) + field(line, 89, 90, 0);
        out << field(line, 1, 4, 0) << ',' << ra << ',' << (line[83] == '-' ? -dec : dec) << ','
            << field(line, 103, 107, 2) << ',' << field(line, 149, 154, 3) << ',' << field(line, 155, 160, 3) << ','
            << field(line, 162, 166, 3) << ',' << field(line, 167, 170, 0) << '\n';
    }
}

void build(std::istream &in, std::ostream &out)
{
    std::string line;
    int stars = 0;
    for (long number = 1; std::getline(in, line); ++number) {
        if (line.empty() || line[0] == '#')
            continue;
        long v[kColumns];
        const char *at = line.c_str();
        for (int i = 0; i < kColumns; ++i) {
            char *end = nullptr;
            v[i] = std::strtol(at, &end, 10);
            const bool ends = i + 1 < kColumns ? *end == ',' : *end == '\0';
            require(end != at && ends && kRange[i].low <= v[i] && v[i] <= kRange[i].high,
                    "line " + std::to_string(number) + ": " + line);
            at = end + 1;
        }
        out << '{' << v[1] << ", " << v[2] << ", " << v[0] << ", " << v[3] << ", " << v[4] << ", " << v[5] << ", "
            << v[6] << ", " << v[7] << "},\n";
        ++stars;
    }
    require(stars == kStars, std::to_string(stars) + " stars");
}

} // namespace

int main(int argc, char **argv)
{
    const std::string verb = argc == 4 ? argv[1] : "";
    try {
        require(verb == "reduce" || verb == "build", "usage: bright_stars reduce CATALOGUE CSV | build CSV OUTPUT");
        std::ifstream in(argv[2]);
        require(in.is_open(), std::string("cannot read ") + argv[2]);
        std::ofstream out(argv[3], std::ios::binary);
        (verb == "reduce" ? reduce : build)(in, out);
        require(!!out.flush(), std::string("cannot write ") + argv[3]);
    } catch (const std::exception &failure) {
        std::cerr << "bright_stars: " << failure.what() << '\n';
        return 1;
    }
    return 0;
}
