#include "stars/search.h"

#include "numbers/elementary.h"
#include "numbers/numbers.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>

namespace {

bool inside(double value, double low, double high)
{
    return low <= value && value <= high;
}

void direction_of(double ra, double dec, double out[3])
{
    double s[2], c[2];
    sin_cos_degrees({ra, dec}, s, c);
    out[0] = c[1] * c[0];
    out[1] = c[1] * s[0];
    out[2] = s[1];
}

// Between two unit vectors.
double squared_chord(const double a[3], const double b[3])
{
    const double d[3] = {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
    return dot3(d, d);
}

double squared_chord_of(double angle)
{
    const double half = sine_cosine(0.5 * angle).s;
    return 4.0 * half * half;
}

template <class Record>
bool enlarge(Record **records, std::size_t n, std::size_t room)
{
    auto *larger = static_cast<Record *>(std::malloc(room * sizeof(Record)));
    if (larger == nullptr)
        return false;
    if (n > 0)
        std::memcpy(larger, *records, n * sizeof(Record));
    std::free(*records);
    *records = larger;
    return true;
}

} // namespace

kl_radec radec_of(const double (&place)[3])
{
    kl_radec out = {};
    radec_of_direction(place, out.ra, out.dec);
    out.distance = 1.0;
    return out;
}

bool window_in_range(const kl_star_window &window)
{
    return std::isfinite(window.mag_min) && std::isfinite(window.mag_max) && window.mag_min <= window.mag_max
           && inside(window.ra_min, -360.0, 360.0) && inside(window.ra_max, -360.0, 360.0)
           && inside(window.dec_min, -90.0, 90.0) && inside(window.dec_max, window.dec_min, 90.0)
           && inside(window.radius, 0.0, 180.0)
           && (window.radius == 0.0 || (inside(window.ra, -360.0, 360.0) && inside(window.dec, -90.0, 90.0)));
}

StarSearch::StarSearch(const kl_star_window &window, const Sight &sight, const FrameAxes &axes)
    : sight_(sight), axes_(axes), mag_min_(window.mag_min), mag_max_(window.mag_max), dec_min_(window.dec_min),
      dec_max_(window.dec_max), ra_min_(reduced_to_360(window.ra_min)), ra_max_(reduced_to_360(window.ra_max)),
      all_ra_(window.ra_max - window.ra_min >= 360.0), cone_(window.radius > 0.0 && window.radius < 180.0),
      radius_(window.radius * KL_RAD_PER_DEG), chord_squared_(squared_chord_of(radius_)), centre_{}, catalogue_centre_{}
{
    if (!cone_)
        return;
    direction_of(window.ra, window.dec, centre_);
    for (int j = 0; j < 3; ++j)
        for (int i = 0; i < 3; ++i)
            catalogue_centre_[j] += axes_.m[i][j] * centre_[i];
}

// With room for what moves a star between catalogue and place.
bool StarSearch::may_lie_in_cone(const kl_star &star) const
{
    constexpr double kSlack = 0.02 * KL_RAD_PER_DEG; // aberration, deflection, parallax
    const double years = std::fabs(sight_.tdb - star.epoch) / KL_DAYS_PER_YEAR + 1.0;
    // Twice the proper motion: a star that comes nearer moves faster and faster.
    const double motion = 2.0 * years * KL_RAD_PER_MAS * (std::fabs(star.pm_ra) + std::fabs(star.pm_dec));
    const double approach = 1e-9 * years * std::max(star.parallax, 0.0) * std::fabs(star.radial_velocity) * 1.1;
    const double reach = radius_ + kSlack + motion;
    if (reach >= KL_PI || approach > 0.5)
        return true;
    double p[3];
    direction_of(star.ra, star.dec, p);
    return squared_chord(p, catalogue_centre_) <= squared_chord_of(reach);
}

bool StarSearch::contains(const kl_radec &place, const double turned[3]) const
{
    const bool over_zero = ra_min_ > ra_max_;
    const bool ra =
        all_ra_ || (over_zero ? place.ra >= ra_min_ || place.ra <= ra_max_ : inside(place.ra, ra_min_, ra_max_));
    if (!ra || !inside(place.dec, dec_min_, dec_max_))
        return false;
    constexpr double kEdge = 1.0 + 1e-15; // what lies on it to rounding
    return !cone_ || squared_chord(turned, centre_) <= kEdge * chord_squared_;
}

bool StarSearch::finds(const kl_star &star, kl_radec *place) const
{
    if (!inside(star.magnitude, mag_min_, mag_max_) || (cone_ && !may_lie_in_cone(star)))
        return false;
    double direction[3];
    place_of(sight_, star_of(star), direction);
    double turned[3];
    axes_.turn(direction, turned);
    *place = radec_of(turned);
    return contains(*place, turned);
}

FoundStars::~FoundStars()
{
    std::free(stars_);
    std::free(places_);
}

bool FoundStars::add(const kl_star &star, const kl_radec &place)
{
    if (n_ == room_) {
        const std::size_t room = room_ == 0 ? 256 : 2 * room_;
        if (!enlarge(&stars_, n_, room) || (with_places_ && !enlarge(&places_, n_, room)))
            return false;
        room_ = room;
    }
    stars_[n_] = star;
    if (with_places_)
        places_[n_] = place;
    ++n_;
    return true;
}

void FoundStars::hand_over(long *n, kl_star **stars, kl_radec **places)
{
    *n = static_cast<long>(n_);
    *stars = stars_;
    if (places != nullptr)
        *places = places_;
    stars_ = nullptr;
    places_ = nullptr;
}
