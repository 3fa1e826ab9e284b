// Numbers from outside the code: tests/data/*.csv. Lines that begin with # say how they were made and what the columns
// are, with their units; where cells are texts, the first other line names the columns.
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
    explicit Csv(const std::string &path, char separator = ',', bool header = true)
    {
        std::ifstream file(path);
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
    std::size_t columns(std::size_t row) const { return rows_.at(row).size(); }
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

#endif
