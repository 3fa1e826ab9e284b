// Geoid undulation: the published routines of the EGM96 program, and the calls that use them or the kernels.
#include "earth/geoid.h"

#include "arrays/array_call.h"
#include "earth/egm96_tables.h"
#include "earth/geoid_kernel.h"
#include "earth/geoid_points.h"
#include "earth/legendre.h"
#include "errors/activation.h"
#include "models/model_record.h"
#include "numbers/elementary.h"
#include "numbers/numbers.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <iterator>

namespace {

// WGS84 (NIMA TR8350.2, 2000) as the published undulation program has it.
constexpr double kE2 = 0.0066943799901378; // first eccentricity squared
constexpr double kOneMinusE2 = 0.9933056200098622;
constexpr double kEquatorialGravity = 9.7803253359; // m/s2
constexpr double kSomigliana = 0.001931852639275089;
constexpr double kZeroDegree = -0.53;  // m, added to every undulation
constexpr double kCentimetres = 100.0; // in a metre: CC and CS are in centimetres

// On purpose: this latitude (deg) is no place but a marker; the Legendre step is skipped and all functions stay zero.
constexpr double kNoLegendreLatitude = 91.0;

// The correction has terms of degrees 0 and 1 whatever the maximum degree.
long legendre_degree(long max_degree)
{
    return std::max(max_degree, 1L);
}

double longitude_radians(double lon_deg)
{
    return lon_deg == 360.0 ? 0.0 : lon_deg * KL_RAD_PER_DEG; // the full turn gives the bits of 0
}

bool built_in(const EarthModel &earth)
{
    return earth.HC == HC_EGM96 && earth.HS == HS_EGM96 && earth.CC == CC_EGM96 && earth.CS == CS_EGM96;
}

// A refused Earth model leaves the pointers null.
bool usable(const EarthModel &earth, long max_degree)
{
    const long degree = legendre_degree(max_degree);
    return earth.HC != nullptr && earth.HS != nullptr && earth.CC != nullptr && earth.CS != nullptr
           && earth.n_geoid_coefficients >= (degree + 1) * (degree + 2) / 2;
}

// What the expansion needs of a parallel: weight of degree 1 and its ratio from degree to degree.
struct Parallel {
    SineCosine<double> theta; // colatitude
    double weight, ratio;
};

Parallel parallel_at(double lat_deg)
{
    double psi, gravity, radius;
    KL_Radgra(&psi, &gravity, &radius, lat_deg, 0.0, 0.0); // the same on all of the parallel
    const double ratio = KL_EARTH_EQUATOR / radius;
    return {sine_cosine(KL_PI / 2.0 - psi), kCentimetres * KL_EARTH_GM / (gravity * radius) * ratio, ratio};
}

// Points side by side, each on its own parallel. Nothing on the heap.
void scattered(long max_degree, const double *lat_deg, const double *lon_deg, const long *place, long count,
               double *undulation)
{
    GeoidPoints points;
    const long padded = (count + 2 * kMostLanes - 1) / (2 * kMostLanes) * (2 * kMostLanes);
    for (long i = 0; i < padded; ++i) {
        const long at = place[i < count ? i : count - 1];
        const Parallel x = parallel_at(lat_deg[at]);
        const double lambda = longitude_radians(lon_deg[at]);
        const SineCosine<double> one = sine_cosine(lambda), eight = sine_cosine(kEgm96Lanes * lambda);
        points.cos_theta[i] = x.theta.c;
        points.sin_theta[i] = x.theta.s;
        points.weight[i] = x.weight;
        points.ratio[i] = x.ratio;
        points.c1[i] = one.c;
        points.s1[i] = one.s;
        points.c8[i] = eight.c;
        points.s8[i] = eight.s;
    }
    geoid_points_kernel()(egm96_packed, static_cast<int>(legendre_degree(max_degree)), &points, padded);
    for (long i = 0; i < count; ++i)
        undulation[place[i]] = points.sum[i] / kCentimetres + kZeroDegree;
}

// A parallel computed from the packed tables. Nothing on the heap.
class PackedParallel {
public:
    PackedParallel(GeoidKernel kernel, long max_degree) : kernel_(kernel), degree_(static_cast<int>(max_degree)) {}

    // The correction alone leaves the potential out.
    void go_to(double lat_deg, bool correction_alone = false)
    {
        const Parallel x = parallel_at(lat_deg);
        double weights[kEgm96Degree + 1] = {};
        double weight = correction_alone ? 0.0 : x.weight;
        const long degree = legendre_degree(degree_);
        for (long n = 2; n <= degree; ++n)
            weights[n] = weight *= x.ratio;
        kernel_(egm96_packed, static_cast<int>(degree), x.theta.c, x.theta.s, weights, &sums_);
    }

    // Metres, without the term of degree zero.
    double at(double lambda) const
    {
        // cos m lambda and sin m lambda of the eight orders of a block, turned by 8 lambda from block to block
        double c[kEgm96Lanes], s[kEgm96Lanes], total[kEgm96Lanes] = {};
        const auto [s1, c1] = sine_cosine(lambda);
        c[0] = 1.0;
        s[0] = 0.0;
        for (int lane = 1; lane < kEgm96Lanes; ++lane) {
            c[lane] = c[lane - 1] * c1 - s[lane - 1] * s1;
            s[lane] = s[lane - 1] * c1 + c[lane - 1] * s1;
        }
        const auto [s8, c8] = sine_cosine(kEgm96Lanes * lambda);
        for (long block = 0; block < sums_.n_blocks; ++block) {
            const double *cosine = sums_.cosine + block * kEgm96Lanes, *sine = sums_.sine + block * kEgm96Lanes;
            for (int lane = 0; lane < kEgm96Lanes; ++lane) {
                total[lane] += cosine[lane] * c[lane] + sine[lane] * s[lane];
                const double turned = c[lane] * c8 - s[lane] * s8;
                s[lane] = s[lane] * c8 + c[lane] * s8;
                c[lane] = turned;
            }
        }
        const double sum =
            ((total[0] + total[1]) + (total[2] + total[3])) + ((total[4] + total[5]) + (total[6] + total[7]));
        return sum / kCentimetres;
    }

private:
    GeoidKernel kernel_;
    int degree_;
    GeoidSums sums_;
};

// A parallel computed by the published routines from tables in triangular order. Half a megabyte on the heap.
class PlainParallel {
public:
    PlainParallel(const EarthModel &earth, long max_degree) : earth_(earth), max_degree_(max_degree)
    {
        const auto degree = static_cast<std::size_t>(legendre_degree(max_degree));
        const std::size_t triangle = (degree + 1) * (degree + 2) / 2;
        scratch_ = static_cast<double *>(std::calloc(triangle + 3 * (degree + 1), sizeof(double)));
        p_ = scratch_;
        if (scratch_ != nullptr) {
            column_ = p_ + triangle;
            sin_ml_ = column_ + degree + 1;
            cos_ml_ = sin_ml_ + degree + 1;
        }
    }
    ~PlainParallel() { std::free(scratch_); }
    PlainParallel(const PlainParallel &) = delete;
    PlainParallel &operator=(const PlainParallel &) = delete;

    bool has_memory() const { return scratch_ != nullptr; }

    void go_to(double lat_deg)
    {
        double psi;
        KL_Radgra(&psi, &gravity_, &radius_, lat_deg, 0.0, 0.0);
        if (lat_deg == kNoLegendreLatitude)
            return;
        const SineCosine<double> theta = sine_cosine(KL_PI / 2.0 - psi);
        const long degree = legendre_degree(max_degree_);
        for (long m = 0; m <= degree; ++m) {
            legendre_functions(m, theta, column_, degree);
            for (long n = m; n <= degree; ++n)
                p_[egm96_index(n, m)] = column_[n];
        }
    }

    void at(double lambda, double *correction, double *undulation)
    {
        KL_Dscml(legendre_degree(max_degree_), sin_ml_, cos_ml_, lambda);
        KL_Hundu(max_degree_, p_, earth_.HC, earth_.HS, sin_ml_, cos_ml_, earth_.CC, earth_.CS, correction, undulation,
                 gravity_, radius_);
    }

private:
    const EarthModel &earth_;
    long max_degree_;
    double gravity_ = 0.0, radius_ = 0.0;
    double *scratch_, *p_, *column_ = nullptr, *sin_ml_ = nullptr, *cos_ml_ = nullptr;
};

// `kernel` null: by the published routines, step by step.
long undulation_at(const kl_geoid_input &point, GeoidKernel kernel, double *correction, double *undulation,
                   kl_error_record *record)
{
    Activation call(KL_FN_GEOID_UNDU, record);
    const EarthModel &earth = model_blocks(point.model_id).earth;
    if (point.max_degree < 0 || point.max_degree > kEgm96Degree || !usable(earth, point.max_degree))
        return KL_ERR;
    const double lambda = longitude_radians(point.longitude);

    if (kernel != nullptr && built_in(earth) && point.latitude != kNoLegendreLatitude) {
        PackedParallel parallel(kernel, point.max_degree);
        if (undulation != nullptr) {
            parallel.go_to(point.latitude);
            *undulation = parallel.at(lambda) + kZeroDegree;
        }
        if (correction != nullptr) {
            parallel.go_to(point.latitude, true);
            *correction = parallel.at(lambda);
        }
        return KL_OK;
    }

    PlainParallel parallel(earth, point.max_degree);
    if (!parallel.has_memory())
        return KL_ERR;
    parallel.go_to(point.latitude);
    double own_correction, own_undulation;
    parallel.at(lambda, correction != nullptr ? correction : &own_correction,
                undulation != nullptr ? undulation : &own_undulation);
    return KL_OK;
}

// The checks of a point, NaN being outside every interval.
bool wrong_degree(long max_degree)
{
    return static_cast<unsigned long>(max_degree) > kEgm96Degree;
}
bool wrong_latitude(double lat_deg)
{
    return !(-90.0 <= lat_deg && lat_deg <= 90.0);
}
// On purpose: 360 itself is accepted although the message says "[0.,360.)"; it is the same meridian as 0.
bool wrong_longitude(double lon_deg)
{
    return !(0.0 <= lon_deg && lon_deg <= 360.0);
}

// A missing or negative count, or no array for it, is the fault of that coordinate.
bool is_array(const double *values, const long *count)
{
    return count != nullptr && (*count == 0 || (*count > 0 && values != nullptr));
}

// Points of an array from the packed tables, at most kGeoidPoints at a time: side by side where most of them lie on
// parallels of their own, else one by one.
class PackedPoints {
public:
    PackedPoints(long max_degree, const double *lat_deg, const double *lon_deg, double *undulation)
        : max_degree_(max_degree), lat_deg_(lat_deg), lon_deg_(lon_deg), undulation_(undulation),
          parallel_(widest_geoid_kernel(), max_degree)
    {
    }

    // Those from `first` on; refused ones are left over.
    void compute(long first, long count, LeftOver *left)
    {
        long places[kGeoidPoints];
        long n = 0, n_parallels = 0;
        double before = ready_deg_;
        for (long k = 0; k < count; ++k) {
            const double lat = lat_deg_[first + k];
            if (wrong_latitude(lat) || wrong_longitude(lon_deg_[first + k])) {
                left->add(k);
                continue;
            }
            places[n++] = first + k;
            n_parallels += same_number(lat, before) ? 0 : 1;
            before = lat;
        }
        constexpr long kTooFew = kMostLanes; // half of what go side by side: one by one costs no more
        if (2 * n_parallels > n && n > kTooFew)
            scattered(max_degree_, lat_deg_, lon_deg_, places, n, undulation_);
        else
            for (long k = 0; k < n; ++k)
                undulation_[places[k]] = one(lat_deg_[places[k]], lon_deg_[places[k]]);
    }

private:
    double one(double lat_deg, double lon_deg)
    {
        if (!same_number(lat_deg, ready_deg_))
            parallel_.go_to(lat_deg);
        ready_deg_ = lat_deg;
        return parallel_.at(longitude_radians(lon_deg)) + kZeroDegree;
    }

    long max_degree_;
    const double *lat_deg_, *lon_deg_;
    double *undulation_;
    PackedParallel parallel_;
    double ready_deg_ = NAN; // the latitude of parallel_
};

void packed_grid(long max_degree, const double *lat, long n_lat, const double *lon, long n_lon, double *undulation)
{
    PackedParallel parallel(widest_geoid_kernel(), max_degree);
    for (long row = 0; row < n_lat; ++row) {
        parallel.go_to(lat[row]);
        for (long column = 0; column < n_lon; ++column)
            *undulation++ = parallel.at(longitude_radians(lon[column])) + kZeroDegree;
    }
}

long plain_grid(const EarthModel &earth, long max_degree, const double *lat, long n_lat, const double *lon, long n_lon,
                double *undulation)
{
    PlainParallel parallel(earth, max_degree);
    if (!parallel.has_memory())
        return KL_ERR;
    for (long row = 0; row < n_lat; ++row) {
        parallel.go_to(lat[row]);
        double correction;
        for (long column = 0; column < n_lon; ++column)
            parallel.at(longitude_radians(lon[column]), &correction, undulation++);
    }
    return KL_OK;
}

} // namespace

void KL_Radgra(double *geocentric_latitude_rad, double *normal_gravity, double *radius, double lat_deg, double lon_deg,
               double height)
{
    const double phi = lat_deg * KL_RAD_PER_DEG, lambda = lon_deg * KL_RAD_PER_DEG;
    const SineCosine latitude = sine_cosine(phi), longitude = sine_cosine(lambda);
    const double sin_phi_2 = latitude.s * latitude.s;
    const double root = std::sqrt(1.0 - kE2 * sin_phi_2);
    const double n = KL_EARTH_EQUATOR / root; // radius of curvature in the prime vertical
    const double x = (n + height) * latitude.c * longitude.c;
    const double y = (n + height) * latitude.c * longitude.s;
    const double z = (n * kOneMinusE2 + height) * latitude.s;
    const double axis_distance = std::sqrt(x * x + y * y);
    if (radius != nullptr)
        *radius = std::sqrt(x * x + y * y + z * z);
    if (geocentric_latitude_rad != nullptr)
        *geocentric_latitude_rad = arc_tangent(z, axis_distance);
    if (normal_gravity != nullptr) // on the ellipsoid: Somigliana
        *normal_gravity = kEquatorialGravity * (1.0 + kSomigliana * sin_phi_2) / root;
}

void KL_Hundu(long nmax, const double P[], const double HC[], const double HS[], const double sin_ml[],
              const double cos_ml[], const double CC[], const double CS[], double *correction, double *undulation,
              double normal_gravity, double radius)
{
    const double ratio = KL_EARTH_EQUATOR / radius;
    double ratio_n = ratio, a = 0.0, ac = 0.0;
    for (long n = 2; n <= nmax; ++n) {
        ratio_n *= ratio;
        std::size_t k = egm96_index(n, 0);
        double sum = P[k] * HC[k], sum_c = P[k] * CC[k];
        for (long m = 1; m <= n; ++m) {
            ++k;
            sum += P[k] * (HC[k] * cos_ml[m] + HS[k] * sin_ml[m]);
            sum_c += P[k] * (CC[k] * cos_ml[m] + CS[k] * sin_ml[m]);
        }
        a += sum * ratio_n;
        ac += sum_c;
    }
    ac += CC[0] + P[1] * CC[1] + P[2] * (CC[2] * cos_ml[1] + CS[2] * sin_ml[1]); // degrees 0 and 1
    *correction = ac / kCentimetres;
    *undulation = a * KL_EARTH_GM / (normal_gravity * radius) + *correction + kZeroDegree;
}

long KL_Geoid_undu(const kl_geoid_input *inputs, double *height_anomaly_correction, double *undulation,
                   kl_error_record *record)
{
    if (inputs == nullptr)
        return KL_ERR;
    return undulation_at(*inputs, widest_geoid_kernel(), height_anomaly_correction, undulation, record);
}

long geoid_undulation_by(long way, const kl_geoid_input *inputs, double *height_anomaly_correction, double *undulation)
{
    const GeoidKernel kernel = geoid_kernel(way);
    if (inputs == nullptr || (way >= 0 && kernel == nullptr))
        return KL_ERR;
    return undulation_at(*inputs, kernel, height_anomaly_correction, undulation, nullptr);
}

void KL_Free_dhc(double **rows, long count)
{
    if (rows == nullptr)
        return;
    for (long row = 0; row < count; ++row)
        std::free(rows[row]);
    std::free(rows);
}

namespace {

long geoid_at(const kl_geoid_input *inputs, double *undulation, long *ierr)
{
    Activation call(KL_FN_GEOID_CALC, ierr);
    if (inputs == nullptr || undulation == nullptr)
        return KL_ERR;
    if (wrong_degree(inputs->max_degree))
        return call.fails(KL_GEOID_CALC_DEGREE_ERR, &inputs->max_degree);
    if (wrong_latitude(inputs->latitude))
        return call.fails(KL_GEOID_CALC_LATITUDE_ERR, &inputs->latitude);
    if (wrong_longitude(inputs->longitude))
        return call.fails(KL_GEOID_CALC_LONGITUDE_ERR, &inputs->longitude);

    ErrorRecord undu;
    if (undulation_at(*inputs, widest_geoid_kernel(), nullptr, undulation, &undu) != KL_OK)
        return call.fails(KL_GEOID_CALC_COMPUTATION_ERR);
    return call.status();
}

} // namespace

long kl_geoid_calc(const kl_geoid_input *inputs, double *undulation, long *ierr)
{
    return geoid_at(inputs, undulation, ierr);
}

long kl_geoid_grid(kl_model_id *model_id, const long *max_degree, const double *lat, const long *n_lat,
                   const double *lon, const long *n_lon, double *undulation, long *ierr)
{
    Activation call(KL_FN_GEOID_CALC, ierr);
    if (max_degree == nullptr || wrong_degree(*max_degree))
        return call.fails(KL_GEOID_CALC_DEGREE_ERR, max_degree);
    if (!is_array(lat, n_lat))
        return call.fails(KL_GEOID_CALC_LATITUDE_ERR);
    if (!is_array(lon, n_lon))
        return call.fails(KL_GEOID_CALC_LONGITUDE_ERR);
    const double *bad_lat = std::find_if(lat, lat + *n_lat, wrong_latitude);
    if (bad_lat != lat + *n_lat)
        return call.fails(KL_GEOID_CALC_LATITUDE_ERR, bad_lat);
    const double *bad_lon = std::find_if(lon, lon + *n_lon, wrong_longitude);
    if (bad_lon != lon + *n_lon)
        return call.fails(KL_GEOID_CALC_LONGITUDE_ERR, bad_lon);
    if (*n_lat == 0 || *n_lon == 0)
        return KL_OK;
    if (undulation == nullptr)
        return KL_ERR;

    const EarthModel &earth = model_blocks(model_id).earth;
    if (!usable(earth, *max_degree))
        return call.fails(KL_GEOID_CALC_COMPUTATION_ERR);
    if (built_in(earth))
        packed_grid(*max_degree, lat, *n_lat, lon, *n_lon, undulation);
    else if (plain_grid(earth, *max_degree, lat, *n_lat, lon, *n_lon, undulation) != KL_OK)
        return call.fails(KL_GEOID_CALC_COMPUTATION_ERR);
    return call.status();
}

long kl_geoid_calc_n(kl_model_id *model_id, const long *n, const double *latitude, const double *longitude,
                     const long *max_degree, double *undulation, long *status, long *ierr)
{
    ArrayCall array(KL_FN_GEOID_CALC, n, status, ierr);
    if (array.nothing())
        return array.result();
    const auto fail = fails_in(undulation);
    const EarthModel &earth = model_blocks(model_id).earth;
    const bool degree = max_degree != nullptr && !wrong_degree(*max_degree);
    if (!degree)
        array.call().fails(KL_GEOID_CALC_DEGREE_ERR, max_degree);
    else if (latitude == nullptr)
        array.call().fails(KL_GEOID_CALC_LATITUDE_ERR);
    else if (longitude == nullptr)
        array.call().fails(KL_GEOID_CALC_LONGITUDE_ERR);
    else if (undulation != nullptr && !usable(earth, *max_degree))
        array.call().fails(KL_GEOID_CALC_COMPUTATION_ERR);
    if (!degree || latitude == nullptr || longitude == nullptr || undulation == nullptr || !usable(earth, *max_degree))
        return array.refuse(fail);

    const auto one = [&](long i, long *word) {
        const kl_geoid_input point = {model_id, latitude[i], longitude[i], 0.0, *max_degree};
        return geoid_at(&point, undulation + i, word);
    };
    PackedPoints points(*max_degree, latitude, longitude, undulation);
    return array.each<kGeoidPoints>(one, fail, [&](long first, long count, LeftOver &left) {
        if (!built_in(earth))
            return false;
        points.compute(first, count, &left);
        return true;
    });
}
