// Sums the series of the celestial pole for every day from 1949-12-20 to 2100-01-12:
//
//   pole_table DIR FILE    DIR/{cip_x,cip_y,cio_s}.txt -> FILE, laid out as src/orientation/pole_layout.h says
//
// Sines and cosines are the library's own, so that the same bytes come out on every machine.
#include "numbers/sin_cos.h"
#include "orientation/fundamental_arguments.h"
#include "orientation/pole_layout.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <limits>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

constexpr int kArguments = 14;
constexpr int kDaysAtOnce = 16; // days at once

struct Term {
    int power;
    double sine, cosine; // microarcseconds
    std::vector<std::pair<int, double>> multiples;
};

std::vector<Term> read_series(const std::string &name, const double (&polynomial)[6])
{
    std::ifstream file(name);
    std::string line;
    std::vector<Term> terms;
    bool first = true;
    while (std::getline(file, line)) {
        if (line.empty() || line[0] == '#')
            continue;
        std::istringstream words(line);
        if (first) { // the library has the polynomial as constants: they must be those of the file
            for (const double expected : polynomial)
                if (double c = 0.0; !(words >> c) || c != expected)
                    throw std::runtime_error("another polynomial in " + name);
            first = false;
            continue;
        }
        Term term{};
        words >> term.power >> term.sine >> term.cosine;
        if (!words || term.power < 0 || term.power > 4)
            throw std::runtime_error("malformed line in " + name + ": " + line);
        int multiple = 0;
        for (int k = 0; words >> multiple; ++k) {
            if (k >= kArguments)
                throw std::runtime_error("too many arguments in " + name + ": " + line);
            if (multiple != 0)
                term.multiples.emplace_back(k, multiple);
        }
        terms.push_back(term);
    }
    if (terms.empty())
        throw std::runtime_error("no series in " + name);
    return terms;
}

using Days = std::array<double, kDaysAtOnce>;

Days sum(const std::vector<Term> &terms, const std::array<Days, kArguments> &arguments, const Days &t)
{
    std::array<Days, 5> by_power{};
    for (const Term &term : terms) {
        double angle[kDaysAtOnce] = {};
        for (const auto &[k, multiple] : term.multiples)
            for (int i = 0; i < kDaysAtOnce; ++i)
                angle[i] += multiple * arguments[static_cast<std::size_t>(k)][static_cast<std::size_t>(i)];
        double s[kDaysAtOnce];
        double c[kDaysAtOnce];
        sin_cos(angle, s, c);
        Days &out = by_power[static_cast<std::size_t>(term.power)];
        for (std::size_t i = 0; i < kDaysAtOnce; ++i)
            out[i] += term.sine * s[i] + term.cosine * c[i];
    }
    Days total{};
    for (std::size_t i = 0; i < kDaysAtOnce; ++i)
        for (std::size_t power = 5; power-- > 0;)
            total[i] = total[i] * t[i] + by_power[power][i];
    return total;
}

template <class Integer>
std::vector<Integer> table(const std::vector<Term> &terms)
{
    std::vector<Integer> counts(static_cast<std::size_t>(kPoleNodes));
    for (long first = 0; first < kPoleNodes; first += kDaysAtOnce) {
        std::array<Days, kArguments> arguments{};
        Days t{};
        for (std::size_t i = 0; i < kDaysAtOnce; ++i) {
            const double day = static_cast<double>(kPoleFirstDay + first) + static_cast<double>(i);
            t[i] = (day - 0.5) / 36525.0;
            double all[kArguments];
            fundamental_arguments(t[i], all);
            for (std::size_t k = 0; k < kArguments; ++k)
                arguments[k][i] = all[k];
        }
        const Days values = sum(terms, arguments, t);
        for (std::size_t i = 0; i < kDaysAtOnce && first + static_cast<long>(i) < kPoleNodes; ++i) {
            const double count = std::round(values[i] / kPoleUnit);
            if (count < std::numeric_limits<Integer>::min() || count > std::numeric_limits<Integer>::max())
                throw std::runtime_error("a value does not fit the table");
            counts[static_cast<std::size_t>(first) + i] = static_cast<Integer>(count);
        }
    }
    return counts;
}

template <class Integer>
void write(std::ofstream &file, const std::vector<Integer> &counts) // as the machine has them
{
    file.write(reinterpret_cast<const char *>(counts.data()),
               static_cast<std::streamsize>(counts.size() * sizeof(Integer)));
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 3) {
        std::cerr << "usage: pole_table DIR FILE\n";
        return 2;
    }
    try {
        const std::string dir = argv[1];
        std::ofstream file(argv[2], std::ios::binary);
        const auto x = table<std::int32_t>(read_series(dir + "/cip_x.txt", kPoleXPolynomial));
        const auto y = table<std::int32_t>(read_series(dir + "/cip_y.txt", kPoleYPolynomial));
        std::vector<std::int32_t> both;
        for (std::size_t i = 0; i < x.size(); ++i)
            both.insert(both.end(), {x[i], y[i]});
        write(file, both);
        write(file, table<std::int16_t>(read_series(dir + "/cio_s.txt", kPoleSPolynomial)));
        if (!file.flush() || file.tellp() != kPoleFileSize)
            throw std::runtime_error(std::string("cannot write ") + argv[2]);
    } catch (const std::exception &failure) {
        std::remove(argv[2]);
        std::cerr << "pole_table: " << failure.what() << '\n';
        return 1;
    }
    return 0;
}
