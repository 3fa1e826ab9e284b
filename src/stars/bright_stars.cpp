// Rows of data/stars/bright_stars.csv.
#include "stars/bright_stars.h"

const BrightStar kBrightStar[kBrightStars] = {
#include BRIGHT_STARS
};
