// What a form of an instant was read to, and what may be wrong with it.
#ifndef KL_SRC_TIME_FORMATS_READING_H
#define KL_SRC_TIME_FORMATS_READING_H

#include "errors/conditions.h"
#include "time/instants.h"

// A condition of the check that a form has, with the argument that its message shows.
struct Fault {
    int code = -1; // none
    long shown = 0;

    Fault() = default;
    Fault(int condition, long argument = 0) : code(condition), shown(argument) {} // NOLINT: a code is a fault
    explicit operator bool() const { return code >= 0; }
};

// Beginning- and end-of-mission texts: three writings of the two limits of the processing range.
enum class MissionLimit {
    none,
    beginning,  // 0000-00-00_00:00:00
    end,        // 9999-99-99_99:99:99
    end_of_9999 // 9999-12-31_23:59:59
};

enum class Origin { processing, text, transport };

// A moment of a scale, with what the writing has to know of where it comes from.
struct Reading {
    Origin origin = Origin::processing;
    MissionLimit limit = MissionLimit::none; // of a text
    long ref = KL_TIME_UNDEF;
    Moment<double> moment = {0.0, 0.0, 0.0};
};

#endif
