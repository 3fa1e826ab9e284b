// Catalogues of stars as texts: the Bright Star Catalogue, the main catalogue of Hipparcos, and a format of our own.
#ifndef KL_SRC_STARS_CATALOGUE_FILES_H
#define KL_SRC_STARS_CATALOGUE_FILES_H

#include "kl/stars.h"

#include <string_view>

enum class CatalogueFormat { unknown, bright_stars, hipparcos, own };

// By the first line.
CatalogueFormat format_of(std::string_view text);

enum class StarRecord { star, nothing, malformed, end };

// Line after line of a text, nothing copied.
class CatalogueReader {
public:
    CatalogueReader(std::string_view text, CatalogueFormat format) : rest_(text), format_(format) {}

    // The next line: a star, one without (a comment, an entry without a position), or a mistake.
    StarRecord next(kl_star *star);
    [[nodiscard]] long line() const { return line_; } // of the last record, from 1

private:
    std::string_view rest_;
    CatalogueFormat format_;
    long line_ = 0;
};

// The first line that is a mistake, from 1; 0 when there is none, or the format is unknown.
long malformed_line(std::string_view text, CatalogueFormat format);

#endif
