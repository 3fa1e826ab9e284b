// What the two writings of an OEM (CCSDS 502.0-B) say about time: the system and the span of each segment.
#ifndef KL_SRC_TIME_FILES_OEM_H
#define KL_SRC_TIME_FILES_OEM_H

#include "time/files/lines.h"

namespace time_files {

class OemSegments {
public:
    explicit OemSegments(Span *span) : span_(span) {}

    bool open() const { return open_; }
    void begin()
    {
        open_ = true;
        named_ = started_ = stopped_ = false;
    }
    // One entry of the metadata; other keys say nothing about time.
    Finding take(const Line &line, std::string_view key, std::string_view value);
    // The end of the metadata.
    Finding end(const Line &line);

private:
    Finding system(const Line &line, std::string_view value);

    Span *span_;
    bool open_ = false, named_ = false, started_ = false, stopped_ = false;
    double behind_tai_ = 0.0; // s
    Scale scale_ = Scale::utc;
    double start_ = 0.0, stop_ = 0.0;
    long start_line_ = 0, stop_line_ = 0;
    std::string_view first_system_;
};

} // namespace time_files

#endif
