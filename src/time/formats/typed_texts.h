// Texts of a time as people write them: any layout, one scale or another, decimals as they come.
#ifndef KL_SRC_TIME_FORMATS_TYPED_TEXTS_H
#define KL_SRC_TIME_FORMATS_TYPED_TEXTS_H

#include "time/correlation.h"
#include "time/formats/reading.h"

#include <cstddef>

// As read_text; `ref` holds where the text does not say its scale, and may be KL_TIME_UNDEF. The grammar stands at
// kl_time_text_to_processing.
Fault read_typed_text(const Correlation *correlation, long ref, const char *text, std::size_t room, Reading *out);

#endif
