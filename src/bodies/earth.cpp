// The Earth: barycentric and heliocentric state, P. Stumpff, Astron. Astrophys. Suppl. Ser. 41, 1-8 (1980).
#include "bodies/bodies.h"
#include "bodies/earth_tables.h"
#include "errors/activation.h"
#include "numbers/sin_cos.h"
#include "time/scales.h"

namespace {

// The four planets that move the Sun: Jupiter, Saturn, Uranus, Neptune.
constexpr int kGiants = 4;

// Rows of the fast and of the slow elements.
enum { kL, kG, kMoonL, kF, kGiantL };
enum { kE, kPerihelion, kNode = kPerihelion + kGiants, kGiantE = kNode + kGiants, kInclination = kGiantE + kGiants };

// Places in the array of all angles that depend on the date alone.
enum {
    kShortAngle = 0,
    kLongAngle = kShortAngle + 15,
    kLunarAngle = kLongAngle + 4,
    kPerihelionAngle = kLunarAngle + 3,
    kFromPerihelion = kPerihelionAngle + kGiants, // mean longitude from the perihelion
    kFromNode = kFromPerihelion + kGiants,        // mean longitude from the node
    kLatitudeArgument = kFromNode + kGiants,
    kAnomaly,
    kObliquity,
    kNAngles
};

// The angles that need the first ones.
enum {
    kTrueAnomaly,
    kLongitude,
    kMoonLongitude,
    kMoonLatitude,
    kGiantLongitude,
    kGiantLatitude = kGiantLongitude + 4,
    kNLate = kGiantLatitude + 4
};

double at(const QuadraticElement &element, double t)
{
    return element.c1 + t * (element.c2 + t * element.c3);
}

// Ecliptic of date to mean equator of date, then to the FK5 equinox (to first order, q small).
void to_equator(double v[3], double sin_eps, double cos_eps, double q)
{
    const double y = v[1] * cos_eps - v[2] * sin_eps;
    const double z = v[1] * sin_eps + v[2] * cos_eps;
    const double x = v[0];
    v[0] = x - q * y;
    v[1] = y + q * x;
    v[2] = z;
}

void turn(const double matrix[3][3], double v[3])
{
    const double x = v[0], y = v[1], z = v[2];
    for (int i = 0; i < 3; ++i)
        v[i] = matrix[i][0] * x + matrix[i][1] * y + matrix[i][2] * z;
}

} // namespace

void KL_SlaEvp(double dvb[3], double dpb[3], double dvh[3], double dph[3], double date, double deqx)
{
    const double t = (date - kMjd1900) / kDaysPerCentury;

    double fast[std::size(kDcfel)];
    for (std::size_t k = 0; k < std::size(kDcfel); ++k)
        fast[k] = reduced(at(kDcfel[k], t));
    double slow[std::size(kCcsel)];
    for (std::size_t k = 0; k < std::size(kCcsel); ++k)
        slow[k] = at(kCcsel[k], t);

    double angle[kNAngles], s[kNAngles], c[kNAngles];
    for (int k = 0; k < 15; ++k)
        angle[kShortAngle + k] = kDcargs[k].phase + t * kDcargs[k].rate;
    for (int k = 0; k < 4; ++k)
        angle[kLongAngle + k] = kCcsec[k].phase + t * kCcsec[k].rate;
    for (int k = 0; k < 3; ++k)
        angle[kLunarAngle + k] = kDcargm[k].phase + t * kDcargm[k].rate;
    for (int k = 0; k < kGiants; ++k) {
        angle[kPerihelionAngle + k] = slow[kPerihelion + k];
        angle[kFromPerihelion + k] = fast[kGiantL + k] - slow[kPerihelion + k];
        angle[kFromNode + k] = fast[kGiantL + k] - slow[kNode + k];
    }
    angle[kLatitudeArgument] = fast[kF];
    angle[kAnomaly] = fast[kG];
    angle[kObliquity] = at(kDceps, t);
    sin_cos(angle, s, c);

    // Perturbations of the longitude (rad, rad/s) and of the radius (factor, 1/s).
    double dlon = kCcsec[0].amplitude * s[kLongAngle] + kCcsec[1].amplitude * s[kLongAngle + 1]
                  + (kCcsec[2].amplitude + t * kCcsec3) * s[kLongAngle + 2] + kCcsec[3].amplitude * s[kLongAngle + 3];
    double drad = 0.0, dlon_rate = 0.0, drad_rate = 0.0;
    for (int k = 0; k < 15; ++k) {
        const ShortPeriodAmplitude &a = kCcamps[k];
        const double sine = s[kShortAngle + k], cosine = c[kShortAngle + k];
        dlon += a.cos_longitude * cosine + a.sin_longitude * sine;
        drad += a.cos_radius * cosine + a.sin_radius * sine;
        dlon_rate += (a.sin_longitude * cosine - a.cos_longitude * sine) * a.rate;
        drad_rate += (a.sin_radius * cosine - a.cos_radius * sine) * a.rate;
    }

    // Equation of the centre, from the multiples of the mean anomaly.
    const double e = slow[kE];
    const double sin_g = s[kAnomaly];
    const double sin_2g = 2.0 * sin_g * c[kAnomaly];
    const double sin_3g = sin_g * (3.0 - 4.0 * sin_g * sin_g);
    const double phi = 2.0 * e * ((1.0 - e * e / 8.0) * sin_g + 5.0 * e * sin_2g / 8.0 + 13.0 * e * e * sin_3g / 24.0);

    // Motion of the Moon.
    double moon_lon = 0.0, moon_lon_rate = 0.0, parallax = 0.0, parallax_rate = 0.0;
    for (int k = 0; k < 3; ++k) {
        const LunarAmplitude &a = kCcampm[k];
        moon_lon += a.longitude * s[kLunarAngle + k];
        moon_lon_rate += a.longitude_rate * c[kLunarAngle + k];
        parallax += a.parallax * c[kLunarAngle + k];
        parallax_rate -= a.parallax_rate * s[kLunarAngle + k];
    }

    double late[kNLate], s2[kNLate], c2[kNLate];
    late[kTrueAnomaly] = fast[kG] + phi;
    late[kLongitude] = fast[kL] + phi + dlon;
    late[kMoonLongitude] = fast[kMoonL] + moon_lon;
    late[kMoonLatitude] = kCcim * s[kLatitudeArgument];
    for (int k = 0; k < kGiants; ++k) {
        late[kGiantLongitude + k] = fast[kGiantL + k] + 2.0 * slow[kGiantE + k] * s[kFromPerihelion + k];
        late[kGiantLatitude + k] = slow[kInclination + k] * s[kFromNode + k];
    }
    sin_cos(late, s2, c2);

    // Elliptic motion, then the perturbed motion of the barycentre of Earth and Moon.
    const double sin_f = s2[kTrueAnomaly], cos_f = c2[kTrueAnomaly];
    const double p = 1.0 - e * e;
    const double chi = p / (1.0 + e * cos_f);
    const double phi_rate = 2.0 * e * kCcsgd * ((1.0 + 1.5 * e * e) * cos_f + e * (1.25 - 0.5 * sin_f * sin_f));
    const double chi_rate = kCcsgd * e * sin_f / std::sqrt(p);
    const double rho = 1.0 + drad;
    const double radial = rho * (chi_rate + chi * drad_rate);
    const double across = rho * chi * (kDcsld + phi_rate + dlon_rate);
    const double sin_lon = s2[kLongitude], cos_lon = c2[kLongitude];

    // From the barycentre to the Earth.
    const double sin_moon = s2[kMoonLongitude], cos_moon = c2[kMoonLongitude];
    const double sigma = kCckm / (1.0 + parallax);
    const double moon_across = sigma * (kCcmld + moon_lon_rate);
    const double moon_radial = sigma * parallax_rate;
    const double radius = chi * rho;
    const double moon_flat = sigma * c2[kMoonLatitude];
    double vh[3] = {radial * cos_lon - across * sin_lon + moon_across * sin_moon + moon_radial * cos_moon,
                    radial * sin_lon + across * cos_lon - moon_across * cos_moon + moon_radial * sin_moon,
                    -sigma * kCcfdi * c[kLatitudeArgument]};
    double ph[3] = {radius * cos_lon - moon_flat * cos_moon, radius * sin_lon - moon_flat * sin_moon,
                    -sigma * s2[kMoonLatitude]};

    // From the Sun to the barycentre of the solar system.
    double vb[3], pb[3];
    for (int i = 0; i < 3; ++i) {
        vb[i] = kDc1mme * vh[i];
        pb[i] = kDc1mme * ph[i];
    }
    for (int k = 0; k < kGiants; ++k) {
        const double ek = slow[kGiantE + k];
        const double sin_theta = s2[kGiantLongitude + k], cos_theta = c2[kGiantLongitude + k];
        vb[0] += kCcpamv[k] * (sin_theta + ek * s[kPerihelionAngle + k]);
        vb[1] -= kCcpamv[k] * (cos_theta + ek * c[kPerihelionAngle + k]);
        vb[2] -= kCcpamv[k] * slow[kInclination + k] * c[kFromNode + k];
        const double distance = kCcpam[k] * (1.0 - ek * c[kFromPerihelion + k]);
        const double flat = distance * c2[kGiantLatitude + k];
        pb[0] -= flat * cos_theta;
        pb[1] -= flat * sin_theta;
        pb[2] -= distance * s2[kGiantLatitude + k];
    }

    // Ecliptic of date to the mean equator of date, then from the date to the wanted equinox.
    const double epoch = julian_epoch(date);
    const double q = equinox_correction(epoch);
    double precession[3][3];
    if (deqx > 0.0)
        KL_SlaPrec(epoch, deqx, precession);
    double *const from[] = {vb, pb, vh, ph};
    double *const to[] = {dvb, dpb, dvh, dph};
    for (int n = 0; n < 4; ++n) {
        to_equator(from[n], s[kObliquity], c[kObliquity], q);
        if (deqx > 0.0)
            turn(precession, from[n]);
        for (int i = 0; i < 3; ++i)
            to[n][i] = from[n][i];
    }
}

long KL_Earth(const kl_time_record *tdb, Cord *barycentric, Cord *heliocentric, kl_error_record *error)
{
    Activation call(KL_FN_EARTH, error);
    if (tdb->reference != KL_REF_TDB)
        return call.fails(KL_EARTH_REFERENCE);
    if (tdb->format != KL_FORMAT_MJD2000)
        return call.fails(KL_EARTH_FORMAT);
    constexpr double kEquinox = 2000.0;
    double vb[3], pb[3], vh[3], ph[3];
    KL_SlaEvp(vb, pb, vh, ph, mjd_of(*tdb), kEquinox);
    set_state(barycentric, KL_BM2000, pb, vb);
    set_state(heliocentric, KL_HM2000, ph, vh);
    return call.status();
}
