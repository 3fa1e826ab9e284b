// Expected values from outside: tests/data/*.csv, rows of numbers below lines that begin with '#'.
#ifndef KL_TESTS_SUPPORT_TABLE_FILE_H
#define KL_TESTS_SUPPORT_TABLE_FILE_H

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

// All rows; a row of another width than `columns` fails the test.
inline std::vector<std::vector<double>> read_table(const std::string &name, std::size_t columns)
{
    std::vector<std::vector<double>> rows;
    std::ifstream file("tests/data/" + name);
    std::string line;
    while (std::getline(file, line)) {
        if (line.empty() || line[0] == '#')
            continue;
        std::vector<double> row;
        for (const char *at = line.c_str(); *at != '\0';) {
            char *end = nullptr;
            row.push_back(std::strtod(at, &end));
            if (end == at)
                break;
            at = *end == ',' ? end + 1 : end;
        }
        EXPECT_EQ(row.size(), columns) << name << ": " << line;
        if (row.size() == columns)
            rows.push_back(row);
    }
    EXPECT_FALSE(rows.empty()) << name;
    return rows;
}

#endif
