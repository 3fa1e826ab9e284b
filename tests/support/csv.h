// Numbers from outside the code: tests/data/*.csv. Lines that begin with # say how they were made and what the columns
// are, with their units; where cells are texts, the first other line names the columns.
#ifndef KL_TESTS_SUPPORT_CSV_H
#define KL_TESTS_SUPPORT_CSV_H

#include "support/conditions.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

// The parts of a line; an empty last one counts.
inline std::vector<std::string> parts_of(const std::string &line, char separator)
{
    std::vector<std::string> parts;
    std::istringstream cut(line + separator);
    for (std::string part; std::getline(cut, part, separator);)
        parts.push_back(part);
    return parts;
}

// ---- what a cell says ----

// A constant of the headers by its name.
inline long constant_named(const std::string &name)
{
    static const std::map<std::string, long> constants = [] {
        std::map<std::string, long> all;
        for (const auto &header : std::filesystem::directory_iterator("include/kl")) {
            std::ifstream file(header.path());
            char word[99];
            long value = 0;
            for (std::string line; std::getline(file, line);)
                for (std::size_t at = 0; (at = line.find("KL_", at)) != std::string::npos; ++at)
                    if (std::sscanf(line.c_str() + at, "%98[A-Z0-9_] = %ld", word, &value) == 2)
                        all[word] = value;
        }
        return all;
    }();
    const auto found = constants.find(name);
    EXPECT_NE(found, constants.end()) << name;
    return found == constants.end() ? -999 : found->second;
}

// Tests say what the cells of their own types mean.
template <typename T>
T cell_as(const std::string &cell);

// A text; its tabs and line ends are written \\t \\r \\n.
template <>
inline std::string cell_as(const std::string &cell)
{
    std::string text;
    for (std::size_t i = 0; i < cell.size(); ++i) {
        const std::size_t sign = cell[i] == '\\' ? std::string("trn").find(cell.substr(i + 1, 1)) : std::string::npos;
        text += sign == std::string::npos ? cell[i] : "\t\r\n"[sign];
        i += sign == std::string::npos ? 0 : 1;
    }
    return text;
}

// A number, or days and seconds of a day: 6209+86399.25s.
template <>
inline double cell_as(const std::string &cell)
{
    char *end = nullptr;
    double value = std::strtod(cell.c_str(), &end);
    if (end != cell.c_str() && *end != 0 && cell.back() == 's') {
        value += std::strtod(end, &end) / 86400.0;
        ++end;
    }
    EXPECT_TRUE(!cell.empty() && *end == 0) << "not a number: " << cell;
    return value;
}

// A number, a constant of the headers, or none.
template <>
inline long cell_as(const std::string &cell)
{
    if (cell.rfind("KL_", 0) == 0)
        return constant_named(cell);
    if (cell == "none")
        return kNone;
    char *end = nullptr;
    const long value = std::strtol(cell.c_str(), &end, 10);
    EXPECT_TRUE(!cell.empty() && *end == 0) << "not a whole number: " << cell;
    return value;
}

// What a call leaves in its vector: names of conditions with a space between, "refused" without one, or nothing.
struct Bits {
    long value = kNothing;
    operator long() const { return value; }
};

template <>
inline Bits cell_as(const std::string &cell)
{
    Bits bits = {cell == "refused" ? kRefused : kNothing};
    for (const std::string &name : parts_of(cell, ' '))
        if (name.rfind("KL_", 0) == 0)
            bits.value |= (name.substr(name.size() - 4) == "WARN" ? warning_bits : error_bits)(constant_named(name));
        else
            EXPECT_TRUE(cell.empty() || cell == "refused") << cell;
    return bits;
}

template <typename T>
std::vector<T> cells_as(const std::string &cell, char separator = ' ')
{
    std::vector<T> all;
    for (const std::string &part : cell.empty() ? std::vector<std::string>() : parts_of(cell, separator))
        all.push_back(cell_as<T>(part));
    return all;
}

// The fields of a record in one cell: each takes the next word as its type asks.
class Fields {
public:
    explicit Fields(const std::string &cell) : words_(parts_of(cell, ' ')) {}

    template <typename T>
    operator T()
    {
        EXPECT_LT(next_, words_.size());
        const std::string word = next_ < words_.size() ? words_[next_++] : "0";
        if constexpr (std::is_floating_point_v<T>)
            return cell_as<double>(word);
        else
            return std::is_signed_v<T> ? static_cast<T>(cell_as<long>(word))
                                       : static_cast<T>(std::strtoull(word.c_str(), nullptr, 10));
    }

private:
    std::vector<std::string> words_;
    std::size_t next_ = 0;
};

template <typename Record, std::size_t... I>
Record record_as(const std::string &cell, std::index_sequence<I...>)
{
    Fields field(cell);
    return Record{(static_cast<void>(I), field)...};
}
template <typename Record, std::size_t kFields>
Record record_as(const std::string &cell)
{
    return record_as<Record>(cell, std::make_index_sequence<kFields>());
}

// The place of a cell among the names of an enumeration.
template <typename Enumeration>
Enumeration one_of(const std::string &cell, std::initializer_list<const char *> names)
{
    const auto found = std::find(names.begin(), names.end(), cell);
    EXPECT_NE(found, names.end()) << cell;
    return static_cast<Enumeration>(found - names.begin());
}

// ---- files ----

class Csv {
public:
    explicit Csv(const std::string &path, char separator = ',', bool header = true)
    {
        std::ifstream file(path);
        for (std::string line; std::getline(file, line);) {
            if (line.empty() || line[0] == '#')
                continue;
            if (!header)
                rows_.push_back(parts_of(line, separator));
            header = false;
        }
        EXPECT_FALSE(rows_.empty()) << path;
    }

    std::size_t size() const { return rows_.size(); }
    std::size_t columns(std::size_t row) const { return rows_.at(row).size(); }
    const std::string &text(std::size_t row, std::size_t column) const { return rows_.at(row).at(column); }
    double number(std::size_t row, std::size_t column) const { return cell_as<double>(text(row, column)); }

private:
    std::vector<std::vector<std::string>> rows_;
};

// All rows of a file of numbers alone; a row of another width than `columns` fails the test.
inline std::vector<std::vector<double>> read_table(const std::string &name, std::size_t columns)
{
    const Csv file("tests/data/" + name, ',', false);
    std::vector<std::vector<double>> rows;
    for (std::size_t i = 0; i < file.size(); ++i) {
        EXPECT_EQ(file.columns(i), columns) << name << ", row " << i;
        std::vector<double> row;
        for (std::size_t k = 0; k < columns && file.columns(i) == columns; ++k)
            row.push_back(file.number(i, k));
        if (!row.empty())
            rows.push_back(row);
    }
    return rows;
}

// All rows of a file whose columns, with a bar between, are of these types.
template <typename... T, std::size_t... I>
std::vector<std::tuple<T...>> read_rows_as(const std::string &name, std::index_sequence<I...>)
{
    const Csv file("tests/data/" + name, '|');
    std::vector<std::tuple<T...>> rows;
    for (std::size_t i = 0; i < file.size(); ++i) {
        EXPECT_EQ(file.columns(i), sizeof...(T)) << name << ", row " << i;
        if (file.columns(i) == sizeof...(T))
            rows.emplace_back(cell_as<T>(file.text(i, I))...);
    }
    return rows;
}
template <typename... T>
std::vector<std::tuple<T...>> read_rows(const std::string &name)
{
    return read_rows_as<T...>(name, std::index_sequence_for<T...>());
}

#endif
