// A question that is asked of one set of values or of every row of a table.
#ifndef KITLIB_ROWS_H
#define KITLIB_ROWS_H

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace kitlib {

struct Quantity {
    std::string name, unit;
};

// A number, or a text where it is not empty.
struct Value {
    double number = 0.0;
    std::string text;
};

// Why a row has no answer: a cell that cannot be read, or a condition of a function.
struct Refusal {
    int cell = -1; // index of the input
    long function_id = -1;
    const char *function = nullptr; // where it has no id
    long ierr[2] = {0, 0};
    long warned_by = -1; // the last function that warned of an answer
    long warnings[2] = {0, 0};
};

struct Question {
    std::vector<Quantity> inputs; // the last `optional` of them may be missing, all together
    std::size_t optional = 0;
    std::vector<Quantity> outputs;
    // False: refused. Called by several threads at once.
    std::function<bool(const std::vector<std::string_view> &cells, std::vector<Value> &answer, Refusal &why)> ask;
};

struct RowOptions {
    std::vector<std::string> columns; // names or numbers from 1; empty: the names of the inputs
    bool json = false;
};

// As exit statuses.
constexpr int kDone = 0, kWrongUsage = 1, kRefused = 2;

bool read_number(std::string_view text, double &number);
std::string shortest(double number); // that reads back as the same number
std::string json_text(std::string_view text);

// "kl_sun:1", or "input:utc" for a cell; and the same in words.
std::string code_of(const Question &question, const Refusal &why);
std::string words_of(const Question &question, const Refusal &why);
int refuse(const Question &question, const Refusal &why); // its line on standard error
void warn(const Refusal &why);                            // its line on standard error, if there is a warning

int ask_once(const Question &question, const std::vector<std::string> &values, bool json);
int ask_rows(const Question &question, const RowOptions &options); // standard input to standard output

} // namespace kitlib

#endif
