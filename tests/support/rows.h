// Rows of numbers of a table under tests/data.
#ifndef KL_TESTS_SUPPORT_ROWS_H
#define KL_TESTS_SUPPORT_ROWS_H

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>
#include <vector>

using Row = std::vector<double>;

inline std::vector<Row> rows_of(const std::string &name)
{
    std::ifstream file("tests/data/" + name + ".csv");
    std::vector<Row> rows;
    std::string line;
    while (std::getline(file, line)) {
        if (line.empty() || line[0] == '#')
            continue;
        std::istringstream fields(line);
        std::string field;
        rows.emplace_back();
        while (std::getline(fields, field, ','))
            rows.back().push_back(std::stod(field));
    }
    EXPECT_GT(rows.size(), 10u) << name;
    return rows;
}

#endif
