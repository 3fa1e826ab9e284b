// Which stars of a catalogue lie in a window of the sky, and where.
#ifndef KL_SRC_STARS_SEARCH_H
#define KL_SRC_STARS_SEARCH_H

#include "frames/axes.h"
#include "kl/coordinates.h"
#include "stars/place.h"

#include <cstddef>

// Right ascension and declination of a direction, deg: distance 1, no rates.
kl_radec radec_of(const double (&place)[3]);

bool window_in_range(const kl_star_window &window);

class StarSearch {
public:
    StarSearch(const kl_star_window &window, const Sight &sight, const FrameAxes &axes);

    // Is the star in the window? Then its place.
    bool finds(const kl_star &star, kl_radec *place) const;

private:
    [[nodiscard]] bool may_lie_in_cone(const kl_star &star) const;
    [[nodiscard]] bool contains(const kl_radec &place, const double turned[3]) const;

    const Sight &sight_;
    const FrameAxes &axes_;
    double mag_min_, mag_max_, dec_min_, dec_max_;
    double ra_min_, ra_max_; // 0 to 360; over 0 where the minimum is the larger one
    bool all_ra_, cone_;
    double radius_;              // rad
    double chord_squared_;       // of the cone
    double centre_[3];           // of the cone in the frame
    double catalogue_centre_[3]; // and on the mean equator of J2000
};

// Two arrays that grow side by side, for the caller to free.
class FoundStars {
public:
    explicit FoundStars(bool with_places) : with_places_(with_places) {}
    ~FoundStars();
    FoundStars(const FoundStars &) = delete;
    FoundStars &operator=(const FoundStars &) = delete;

    bool add(const kl_star &star, const kl_radec &place); // false: no memory
    // The arrays are the caller's from now on; no stars, no arrays.
    void hand_over(long *n, kl_star **stars, kl_radec **places);

private:
    bool with_places_;
    std::size_t n_ = 0;
    std::size_t room_ = 0;
    kl_star *stars_ = nullptr;
    kl_radec *places_ = nullptr;
};

#endif
