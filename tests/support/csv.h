// Numbers from outside the code: tests/data/*.csv. Lines that begin with # say how they were made; the first other line
// names the columns with their units.
#ifndef KL_TESTS_SUPPORT_CSV_H
#define KL_TESTS_SUPPORT_CSV_H

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

class Csv {
public:
    explicit Csv(const std::string &path, char separator = ',')
    {
        std::ifstream file(path);
        bool header = true;
        for (std::string line; std::getline(file, line);) {
            if (line.empty() || line[0] == '#')
                continue;
            if (header) {
                header = false;
                continue;
            }
            std::vector<std::string> cells;
            std::istringstream cut(line);
            for (std::string cell; std::getline(cut, cell, separator);)
                cells.push_back(cell);
            rows_.push_back(cells);
        }
        EXPECT_FALSE(rows_.empty()) << path;
    }

    std::size_t size() const { return rows_.size(); }
    const std::string &text(std::size_t row, std::size_t column) const { return rows_.at(row).at(column); }
    double number(std::size_t row, std::size_t column) const
    {
        const std::string &cell = text(row, column);
        char *end = nullptr;
        const double value = std::strtod(cell.c_str(), &end);
        EXPECT_TRUE(!cell.empty() && *end == 0) << "not a number: " << cell;
        return value;
    }

private:
    std::vector<std::vector<std::string>> rows_;
};

#endif
