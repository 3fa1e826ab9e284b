// Turns the published EGM96 figures below data/egm96 into the tables of the geoid, and packs and lists those figures.
//
//   egm96_tables build DIR FILE                          DIR/{potential,correction}.bin -> the tables, one binary file
//   egm96_tables list DIR potential|correction           the figures as text, one "n m C S" a line
//   egm96_tables pack POTENTIAL.txt CORRECTION.txt DIR   the inverse of list
//
// data/egm96/README.md describes the packed form; src/earth/egm96_tables.h the file that `build` writes.
// All arithmetic is in IEEE double or the compiler's long double without contraction: the same bytes each run.
#include <cinttypes>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

#include "earth/egm96_layout.h"

namespace {

constexpr int kFirstPotentialDegree = 2; // the correction starts at degree 0
constexpr int kDigits = 12;              // of a potential coefficient
constexpr std::uint64_t kSignBit = std::uint64_t{1} << 40;

using Bytes = std::vector<unsigned char>;

// The figures of one set in packed order: by degree, then order; C, then S where the order is not zero.
template <class Visit>
void for_each_figure(int first_degree, Visit visit)
{
    for (int n = first_degree; n <= kEgm96Degree; ++n)
        for (int m = 0; m <= n; ++m) {
            visit(n, m, false);
            if (m > 0)
                visit(n, m, true);
        }
}

std::size_t count_figures(int first_degree)
{
    std::size_t count = 0;
    for_each_figure(first_degree, [&](int, int, bool) { ++count; });
    return count;
}

// ---- the packed form: numbers of `width` bytes, stored as planes of equal bytes --------------------------------

Bytes to_planes(const std::vector<std::uint64_t> &numbers, std::size_t width)
{
    Bytes planes(numbers.size() * width);
    for (std::size_t i = 0; i < numbers.size(); ++i)
        for (std::size_t byte = 0; byte < width; ++byte)
            planes[byte * numbers.size() + i] = static_cast<unsigned char>(numbers[i] >> (8 * byte));
    return planes;
}

std::vector<std::uint64_t> from_planes(const Bytes &planes, std::size_t width, std::size_t count)
{
    if (planes.size() != width * count)
        throw std::runtime_error("a packed file has the wrong size");
    std::vector<std::uint64_t> numbers(count);
    for (std::size_t i = 0; i < count; ++i)
        for (std::size_t byte = 0; byte < width; ++byte)
            numbers[i] |= static_cast<std::uint64_t>(planes[byte * count + i]) << (8 * byte);
    return numbers;
}

// A potential coefficient is +-d.ddddddddddd x 10^-e: twelve digits, a sign bit, then e.
std::uint64_t pack_decimal(const std::string &text)
{
    char digits[32];
    std::snprintf(digits, sizeof digits, "%.*e", kDigits - 1, std::strtod(text.c_str(), nullptr));
    if (std::strtod(digits, nullptr) != std::strtod(text.c_str(), nullptr))
        throw std::runtime_error("more than twelve digits: " + text);
    const std::string mantissa(digits);
    std::uint64_t packed = 0;
    for (char c : mantissa.substr(0, mantissa.find('e')))
        if (c >= '0' && c <= '9')
            packed = 10 * packed + static_cast<std::uint64_t>(c - '0');
    const long e = -std::strtol(mantissa.c_str() + mantissa.find('e') + 1, nullptr, 10);
    if (e < 0 || e > 127)
        throw std::runtime_error("out of range: " + text);
    return packed | (mantissa[0] == '-' ? kSignBit : 0) | static_cast<std::uint64_t>(e) << 41;
}

std::string decimal(std::uint64_t packed)
{
    char text[48];
    std::snprintf(text, sizeof text, "%s%" PRIu64 "e-%d", (packed & kSignBit) != 0 ? "-" : "", packed & (kSignBit - 1),
                  static_cast<int>(packed >> 41) + kDigits - 1);
    return text;
}

double double_of(std::uint64_t bits)
{
    double value;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

std::uint64_t bits_of(double value)
{
    std::uint64_t bits;
    std::memcpy(&bits, &value, sizeof bits);
    return bits;
}

// The shortest decimal that gives the same double.
std::string shortest(double value)
{
    char text[32];
    for (int digits = 1; digits <= 17; ++digits) {
        std::snprintf(text, sizeof text, "%.*g", digits, value);
        if (std::strtod(text, nullptr) == value)
            break;
    }
    return text;
}

// ---- files -----------------------------------------------------------------------------------------------------

Bytes read_file(const std::string &name)
{
    std::ifstream file(name, std::ios::binary);
    if (!file)
        throw std::runtime_error("cannot read " + name);
    return Bytes(std::istreambuf_iterator<char>(file), {});
}

void write_file(const std::string &name, const void *data, std::size_t size)
{
    std::ofstream file(name, std::ios::binary);
    file.write(static_cast<const char *>(data), static_cast<std::streamsize>(size));
    if (!file.flush())
        throw std::runtime_error("cannot write " + name);
}

// Coefficients C and S of one set, in triangular order; what a set does not hold is zero.
struct Coefficients {
    std::vector<double> c = std::vector<double>(kEgm96Count), s = std::vector<double>(kEgm96Count);
};

Coefficients read_packed(const std::string &directory, bool potential)
{
    const int first_degree = potential ? kFirstPotentialDegree : 0;
    const std::string name = directory + (potential ? "/potential.bin" : "/correction.bin");
    const auto numbers = from_planes(read_file(name), potential ? 6 : 8, count_figures(first_degree));
    Coefficients set;
    auto next = numbers.begin();
    for_each_figure(first_degree, [&](int n, int m, bool sine) {
        const double value = potential ? std::strtod(decimal(*next).c_str(), nullptr) : double_of(*next);
        (sine ? set.s : set.c)[egm96_index(n, m)] = value;
        ++next;
    });
    return set;
}

// ---- pack and list ---------------------------------------------------------------------------------------------

void pack_set(const std::string &text_file, const std::string &packed_file, bool potential)
{
    std::ifstream file(text_file);
    if (!file)
        throw std::runtime_error("cannot read " + text_file);
    const int first_degree = potential ? kFirstPotentialDegree : 0;
    std::vector<std::uint64_t> numbers;
    int n = 0, m = 0;
    std::string line, c, s;
    for_each_figure(first_degree, [&](int degree, int order, bool sine) {
        if (!sine) {
            while (std::getline(file, line) && line[0] == '#') {
            }
            char text_c[64], text_s[64];
            if (std::sscanf(line.c_str(), "%d %d %63s %63s", &n, &m, text_c, text_s) != 4 || n != degree || m != order)
                throw std::runtime_error("degree and order out of turn: " + line);
            c = text_c;
            s = text_s;
        }
        const std::string &text = sine ? s : c;
        numbers.push_back(potential ? pack_decimal(text) : bits_of(std::strtod(text.c_str(), nullptr)));
    });
    const Bytes planes = to_planes(numbers, potential ? 6 : 8);
    write_file(packed_file, planes.data(), planes.size());
}

void list_set(const std::string &directory, bool potential)
{
    const Coefficients set = read_packed(directory, potential);
    for (int n = potential ? kFirstPotentialDegree : 0; n <= kEgm96Degree; ++n)
        for (int m = 0; m <= n; ++m)
            std::printf("%d %d %s %s\n", n, m, shortest(set.c[egm96_index(n, m)]).c_str(),
                        shortest(set.s[egm96_index(n, m)]).c_str());
}

// ---- the tables ------------------------------------------------------------------------------------------------

// Takes the even zonal terms of the WGS84 normal field off the potential.
void subtract_normal_field(Coefficients &potential)
{
    // Zonal harmonics of the WGS84 ellipsoid (NIMA TR8350.2, 2000).
    constexpr struct {
        int n;
        long double j;
    } kZonals[] = {
        {4, -0.237091120053e-5L}, {6, 0.608346498882e-8L}, {8, -0.142681087920e-10L}, {10, 0.121439275882e-13L}};
    for (const auto &zonal : kZonals) {
        double &c = potential.c[egm96_index(zonal.n, 0)];
        const long double published = std::strtold(shortest(c).c_str(), nullptr);
        c = static_cast<double>(published + zonal.j / std::sqrt(2.0L * zonal.n + 1.0L));
    }
    // Of the two large terms of degree 2 only five digits are left; this is their difference as the published
    // program gets it. Exact arithmetic gives 1.40324752208e-9, 1e-15 m beside it.
    potential.c[egm96_index(2, 0)] = 1.40324752203035e-09;
}

// P(n,m) = factor(n,m) p(n,m), where p(m,m) = sin^m theta and
// p(n,m) = 2 cos theta p(n-1,m) - g(n,m) p(n-2,m), g = 4 ((n-1)^2 - m^2) / (4 (n-1)^2 - 1).
class Factors {
public:
    Factors() : factor_(kEgm96Count)
    {
        long double sectoral = 1.0L;
        for (int m = 0; m <= kEgm96Degree; ++m) {
            if (m == 1)
                sectoral = std::sqrt(3.0L);
            else if (m > 1)
                sectoral *= std::sqrt((2.0L * m + 1.0L) / (2.0L * m));
            long double factor = sectoral;
            factor_[egm96_index(m, m)] = factor;
            for (int n = m + 1; n <= kEgm96Degree; ++n) {
                const long double n2 = static_cast<long double>(n) * n, m2 = static_cast<long double>(m) * m;
                factor *= std::sqrt((n2 - 0.25L) / (n2 - m2));
                factor_[egm96_index(n, m)] = factor;
            }
        }
    }
    double scaled(const std::vector<double> &table, int n, int m) const
    {
        return static_cast<double>(factor_[egm96_index(n, m)] * static_cast<long double>(table[egm96_index(n, m)]));
    }

private:
    std::vector<long double> factor_;
};

void build_tables(const std::string &directory, const std::string &file_name)
{
    Coefficients h = read_packed(directory, true), c = read_packed(directory, false);
    subtract_normal_field(h);
    const std::vector<double> *tables[] = {&h.c, &h.s, &c.c, &c.s};

    std::vector<double> out;
    for (const auto *table : tables)
        out.insert(out.end(), table->begin(), table->end());
    out.resize((out.size() + 7) / 8 * 8); // the packed copy starts on a cache line

    const Factors factors;
    for (int first = 0; first <= kEgm96Degree; first += kEgm96Lanes)
        for (int n = first; n <= kEgm96Degree; ++n)
            for (const auto *table : tables)
                for (int m = first; m < first + kEgm96Lanes; ++m)
                    out.push_back(m <= n ? factors.scaled(*table, n, m) : 0.0);
    if (out.size() * sizeof(double) != kEgm96FileSize)
        throw std::runtime_error("the layout and the tables differ");
    write_file(file_name, out.data(), out.size() * sizeof(double));
}

} // namespace

int main(int argc, char **argv)
{
    const std::vector<std::string> args(argv + 1, argv + argc);
    try {
        if (args.size() == 3 && args[0] == "build") {
            build_tables(args[1], args[2]);
        } else if (args.size() == 3 && args[0] == "list") {
            list_set(args[1], args[2] == "potential");
        } else if (args.size() == 4 && args[0] == "pack") {
            pack_set(args[1], args[3] + "/potential.bin", true);
            pack_set(args[2], args[3] + "/correction.bin", false);
        } else {
            std::cerr << "usage: egm96_tables build DIR FILE | list DIR potential|correction |"
                         " pack POTENTIAL.txt CORRECTION.txt DIR\n";
            return 2;
        }
    } catch (const std::exception &failure) {
        std::cerr << "egm96_tables: " << failure.what() << '\n';
        return 1;
    }
    return 0;
}
