// Turns data/missions.csv into the rows that src/satellites/satellite_tables.cpp takes in.
//
//   mission_rows MISSIONS.csv OUTPUT.inc
//
// The table must hold the fifty fixed missions, each once, in ascending order. Anything else fails with the line
// number.
#include <cctype>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

constexpr std::size_t kColumns = 26;
constexpr std::size_t kTextColumns[][2] = {{1, 30}, {3, 25}, {4, 9}, {5, 4}}; // column, characters
constexpr std::size_t kFirstNumber = 6;
constexpr std::size_t kFirstLimits = 14; // two sets of six, each a record of its own

std::vector<long> mission_ids()
{
    std::vector<long> ids = {11, 12, 21, 31, 32, 33, 41, 51, 61, 71, 81, 91, 101, 102, 103, 110, 111, 112, 113, 120};
    for (long id = 125; id <= 154; ++id)
        ids.push_back(id);
    return ids;
}

std::vector<std::string> columns_of(const std::string &line)
{
    std::vector<std::string> columns(1);
    for (const char c : line) {
        if (c == ',')
            columns.emplace_back();
        else
            columns.back() += c;
    }
    return columns;
}

void require(bool condition, const std::string &what)
{
    if (!condition)
        throw std::runtime_error(what);
}

// The number as C++ reads it: zeros in front would make it octal.
std::string number_of(const std::string &text, bool whole)
{
    char *end = nullptr;
    const double value = std::strtod(text.c_str(), &end);
    require(!text.empty() && *end == '\0' && std::isfinite(value), "not a number: '" + text + "'");
    const char *allowed = whole ? "-0123456789" : "+-.0123456789eE";
    require(text.find_first_not_of(allowed) == std::string::npos, "not a decimal number: '" + text + "'");
    const std::size_t digits = text[0] == '-' || text[0] == '+' ? 1 : 0;
    std::size_t first = digits;
    while (text[first] == '0' && first + 1 < text.size() && std::isdigit(static_cast<unsigned char>(text[first + 1])))
        ++first;
    return text.substr(0, digits) + text.substr(first);
}

// One line of the table as `mission(id, "name", number, "catalogue name", "designator", "sp3", {orbit, {limits},
// {limits}}),`.
std::string row_of(const std::string &line, long id)
{
    const std::vector<std::string> columns = columns_of(line);
    require(columns.size() == kColumns, "there must be 26 columns");
    require(columns[0] == std::to_string(id), "the next mission must be " + std::to_string(id));
    for (const auto &[column, width] : kTextColumns) {
        require(!columns[column].empty() && columns[column].size() <= width, "too long or empty: " + columns[column]);
        require(columns[column].find_first_of("\"\\") == std::string::npos, "unfit character: " + columns[column]);
    }
    std::string row = "mission(" + columns[0] + ", \"" + columns[1] + "\", " + number_of(columns[2], true) + ", \""
                      + columns[3] + "\", \"" + columns[4] + "\", \"" + columns[5] + "\", {";
    for (std::size_t i = kFirstNumber; i < kColumns; ++i) {
        const bool opens = i == kFirstLimits || i == kFirstLimits + 6;
        const bool closes = i == kFirstLimits + 5 || i == kFirstLimits + 11;
        row += (i > kFirstNumber ? ", " : "") + std::string(opens ? "{" : "") + number_of(columns[i], false)
               + (closes ? "}" : "");
    }
    return row + "}),\n";
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 3) {
        std::cerr << "usage: mission_rows MISSIONS.csv OUTPUT.inc\n";
        return 2;
    }
    long line_number = 0;
    try {
        std::ifstream in(argv[1]);
        require(in.is_open(), "cannot be read");
        const std::vector<long> ids = mission_ids();
        std::string rows;
        std::size_t n_rows = 0;
        bool headed = false;
        for (std::string line; std::getline(in, line);) {
            ++line_number;
            if (line.empty() || line[0] == '#')
                continue;
            if (!headed) {
                require(columns_of(line).size() == kColumns && line.rfind("sat_id,", 0) == 0, "not the heading");
                headed = true;
                continue;
            }
            require(n_rows < ids.size(), "there are more rows than missions");
            rows += row_of(line, ids[n_rows++]);
        }
        require(n_rows == ids.size(), "missions are missing");
        std::ofstream out(argv[2]);
        out << "// Generated from data/missions.csv.\n" << rows;
        require(out.flush().good(), "the output cannot be written");
    } catch (const std::exception &failure) {
        std::cerr << argv[1] << ':' << line_number << ": " << failure.what() << '\n';
        return 1;
    }
    return 0;
}
