// Verbs that print more than the answer to one question.
#ifndef KITLIB_REPORTS_H
#define KITLIB_REPORTS_H

#include "questions.h"

namespace kitlib {

// Each prints, and gives an exit status.

// All scales, the Sun, the Moon and the planets at an instant.
int show_sky(const Context &context, const std::string &time, long scale, long frame, bool json);

// Of what files the correlation is, to which date, and its leap seconds.
int show_time_files(const Context &context, bool json);

// Conditions that an error vector holds: "2" or "2,1", its words; ":1", the condition of that code.
int show_vector(const std::string &function, const std::string &vector, bool json);

// Functions of a name or a subject; all where nothing is wanted.
int show_functions(const std::string &wanted, bool json);

} // namespace kitlib

#endif
