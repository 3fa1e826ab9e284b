// The geoid against GeographicLib's model of the same coefficients, against PROJ's EGM96 grid, and against its own
// formula in 33 digits.
#include "kl_lib.h"
#include "table.h"

#include <GeographicLib/GravityModel.hpp>
#include <proj.h>
#include <quadmath.h>

#include <array>
#include <cstdint>
#include <fstream>

namespace {

using Quad = __float128;
constexpr long kDegree = 360;
constexpr std::size_t kPlaces = 100000;

double undulation(const Place &place)
{
    const kl_geoid_input at = {nullptr, place.lat, place.lon, 0.0, kDegree};
    double value = 0.0;
    if (kl_geoid_calc(&at, &value, nullptr) != KL_OK)
        fail("kl_geoid_calc");
    return value;
}

// ---- coefficients -------------------------------------------------------------------------------------------------

struct Coefficients { // index n (n + 1) / 2 + m
    std::vector<Quad> cosine, sine;
};

std::size_t index_of(long n, long m)
{
    return static_cast<std::size_t>(n * (n + 1) / 2 + m);
}

Coefficients read_listing(const std::string &path)
{
    Coefficients out;
    out.cosine.resize(index_of(kDegree, kDegree) + 1);
    out.sine = out.cosine;
    std::ifstream file(path);
    long n = 0;
    long m = 0;
    std::string cosine;
    std::string sine;
    while (file >> n >> m >> cosine >> sine) {
        out.cosine[index_of(n, m)] = strtoflt128(cosine.c_str(), nullptr);
        out.sine[index_of(n, m)] = strtoflt128(sine.c_str(), nullptr);
    }
    return out;
}

// ---- GeographicLib ------------------------------------------------------------------------------------------------

void append(std::string &bytes, const void *data, std::size_t size)
{
    bytes.append(static_cast<const char *>(data), size);
}

// By order, then degree; the sines from order 1 on.
void append_set(std::string &bytes, const Coefficients &set)
{
    const std::int32_t degrees[2] = {kDegree, kDegree};
    append(bytes, degrees, sizeof degrees);
    for (const auto *numbers : {&set.cosine, &set.sine})
        for (long m = numbers == &set.cosine ? 0 : 1; m <= kDegree; ++m)
            for (long n = m; n <= kDegree; ++n) {
                const double value = static_cast<double>((*numbers)[index_of(n, m)]);
                append(bytes, &value, sizeof value);
            }
}

// GeographicLib's model from our listings, GM and normal field of WGS84.
GeographicLib::GravityModel rival(const std::string &listings)
{
    std::ofstream(listings + "/accuracy.egm")
        << "EGMF-1\nName accuracy\nModelRadius 6378137\nModelMass 3986004.418e8\nAngularVelocity 7292115e-11\n"
           "ReferenceRadius 6378137\nReferenceMass 3986004.418e8\nFlattening 1/298.257223563\nHeightOffset -0.53\n"
           "CorrectionMultiplier 0.01\nNormalization full\nID ACCURACY\n";
    std::string bytes = "ACCURACY";
    append_set(bytes, read_listing(listings + "/potential.txt"));
    append_set(bytes, read_listing(listings + "/correction.txt"));
    std::ofstream(listings + "/accuracy.egm.cof", std::ios::binary) << bytes;
    return GeographicLib::GravityModel("accuracy", listings);
}

// ---- PROJ ---------------------------------------------------------------------------------------------------------

class ProjGrid {
public:
    ProjGrid()
    {
        proj_log_level(nullptr, PJ_LOG_NONE);
        grid_ = proj_create(nullptr, "+proj=vgridshift +grids=egm96_15.gtx +multiplier=1");
    }
    ~ProjGrid() { proj_destroy(grid_); }
    ProjGrid(const ProjGrid &) = delete;
    ProjGrid &operator=(const ProjGrid &) = delete;

    bool is_there() const { return grid_ != nullptr; }

    double undulation(const Place &place) const
    {
        const double lon = place.lon >= 180.0 ? place.lon - 360.0 : place.lon;
        const PJ_COORD out =
            proj_trans(grid_, PJ_FWD, proj_coord(proj_torad(lon), proj_torad(place.lat), 0.0, HUGE_VAL));
        if (!std::isfinite(out.xyz.z))
            fail("PROJ's grid");
        return out.xyz.z;
    }

private:
    PJ *grid_;
};

// Our own undulations at the nodes of that grid: 15', from the south pole, from longitude 0.
struct OwnGrid {
    static constexpr long kRows = 721, kColumns = 1440;
    std::vector<double> lat, lon, value;

    OwnGrid() : value(static_cast<std::size_t>(kRows * kColumns))
    {
        for (long i = 0; i < kRows; ++i)
            lat.push_back(-90.0 + 0.25 * static_cast<double>(i));
        for (long j = 0; j < kColumns; ++j)
            lon.push_back(0.25 * static_cast<double>(j));
        const long rows = kRows;
        const long columns = kColumns;
        if (kl_geoid_grid(nullptr, &kDegree, lat.data(), &rows, lon.data(), &columns, value.data(), nullptr) != KL_OK)
            fail("kl_geoid_grid");
    }

    double at(long row, long column) const
    {
        return value[static_cast<std::size_t>(row * kColumns + column % kColumns)];
    }

    double bilinear(const Place &place) const
    {
        const double y = (place.lat + 90.0) * 4.0;
        const double x = place.lon * 4.0;
        const long i = std::min(static_cast<long>(y), kRows - 2);
        const long j = static_cast<long>(x);
        const double v = y - static_cast<double>(i);
        const double u = x - static_cast<double>(j);
        return (1.0 - v) * ((1.0 - u) * at(i, j) + u * at(i, j + 1))
               + v * ((1.0 - u) * at(i + 1, j) + u * at(i + 1, j + 1));
    }
};

void compare_proj(const std::vector<Place> &places, const std::vector<double> &ours)
{
    const ProjGrid proj;
    if (!proj.is_there()) {
        std::printf("\nPROJ's EGM96 grid, egm96_15.gtx, is not on the machine that made this page.\n");
        return;
    }
    const OwnGrid own;
    Spread nodes;
    Spread anywhere;
    Spread interpolated;
    double bias = 0.0;
    for (std::size_t i = 0; i < own.lat.size(); ++i)
        for (std::size_t j = 0; j < own.lon.size(); ++j) {
            const double apart =
                own.at(static_cast<long>(i), static_cast<long>(j)) - proj.undulation({own.lat[i], own.lon[j]});
            nodes.add(apart * 1e6);
            bias += apart * 1e6 / static_cast<double>(own.value.size());
        }
    for (std::size_t k = 0; k < places.size(); ++k) {
        const double theirs = proj.undulation(places[k]);
        anywhere.add(ours[k] - theirs);
        interpolated.add((own.bilinear(places[k]) - theirs) * 1e6);
    }
    anywhere.print("PROJ, egm96_15.gtx", "m", "linear interpolation in cells of 15': the shortest wave has four");
    interpolated.print("PROJ beside our values at the grid's nodes, interpolated alike", "um",
                       "the grid's figures, as in the next row");
    nodes.print("PROJ at the 721 x 1440 nodes", "um", "the grid's figures have 32 bits: steps of up to 8e-6 m");
    std::printf("\nAt the nodes the mean difference from PROJ's grid is %.2g um, so both are of one tide system "
                "(tide-free; another would show as\ncentimetres that change with the latitude) and hold the same term "
                "of degree zero, -0.53 m.\n",
                bias);
}

// ---- the formula in 33 digits -------------------------------------------------------------------------------------

struct Formula {
    Coefficients potential, correction;
    std::vector<Quad> one_up, two_up; // factors of P(n,m+1) and P(n,m+2) in P(n,m)

    explicit Formula(const std::string &listings)
        : potential(read_listing(listings + "/potential.txt")), correction(read_listing(listings + "/correction.txt"))
    {
        const struct {
            long n;
            const char *j;
        } zonals[] = {{4, "-0.237091120053e-5"},
                      {6, "0.608346498882e-8"},
                      {8, "-0.142681087920e-10"},
                      {10, "0.121439275882e-13"}};
        for (const auto &zonal : zonals)
            potential.cosine[index_of(zonal.n, 0)] +=
                strtoflt128(zonal.j, nullptr) / sqrtq(static_cast<Quad>(2 * zonal.n + 1));
        potential.cosine[index_of(2, 0)] = strtoflt128("1.40324752203035e-09", nullptr);
        one_up.resize(potential.cosine.size());
        two_up = one_up;
        for (long n = 1; n <= kDegree; ++n)
            for (long m = 0; m < n; ++m) {
                const Quad d = static_cast<Quad>((n + m + 1) * (n - m));
                one_up[index_of(n, m)] = static_cast<Quad>(2 * (m + 1)) / sqrtq(d);
                two_up[index_of(n, m)] = sqrtq(static_cast<Quad>((n + m + 2) * (n - m - 1)) / d);
            }
    }

    // For each degree the Legendre functions go downward in order from P(n,n); the library goes upward in degree.
    Quad operator()(const Place &place) const
    {
        const auto number = [](const char *decimals) { return strtoflt128(decimals, nullptr); };
        const Quad degree = number("0.017453292519943295");
        const Quad a = 6378137;
        const Quad e2 = number("0.0066943799901378");
        const Quad phi = static_cast<Quad>(place.lat) * degree;
        const Quad lambda = static_cast<Quad>(place.lon) * degree;
        const Quad s2 = sinq(phi) * sinq(phi);
        const Quad root = sqrtq(1 - e2 * s2);
        const Quad rho = a / root * cosq(phi);
        const Quad z = a / root * number("0.9933056200098622") * sinq(phi);
        const Quad r = sqrtq(rho * rho + z * z);
        const Quad gamma = number("9.7803253359") * (1 + number("0.001931852639275089") * s2) / root;
        const Quad st = rho / r; // of the geocentric colatitude
        const Quad ct = z / r;

        std::array<Quad, kDegree + 1> cosine, sine;
        for (long m = 0; m <= kDegree; ++m) {
            cosine[static_cast<std::size_t>(m)] = cosq(static_cast<Quad>(m) * lambda);
            sine[static_cast<std::size_t>(m)] = sinq(static_cast<Quad>(m) * lambda);
        }
        Quad sectoral = 1;
        Quad power = 1;
        Quad sum = 0;
        Quad correction_sum = correction.cosine[0];
        std::array<Quad, kDegree + 2> p{};
        for (long n = 1; n <= kDegree; ++n) {
            sectoral *= st * (n > 1 ? sqrtq(static_cast<Quad>(2 * n + 1) / static_cast<Quad>(2 * n)) : sqrtq(3));
            power *= a / r;
            p[static_cast<std::size_t>(n)] = sectoral;
            p[static_cast<std::size_t>(n) + 1] = 0;
            for (long m = n - 1; m >= 0; --m) {
                const auto k = static_cast<std::size_t>(m);
                p[k] = one_up[index_of(n, m)] * (ct / st) * p[k + 1] - two_up[index_of(n, m)] * p[k + 2];
            }
            p[0] /= sqrtq(2);
            Quad of_degree = 0;
            for (long m = 0; m <= n; ++m) {
                const auto k = static_cast<std::size_t>(m);
                const std::size_t i = index_of(n, m);
                correction_sum += p[k] * (correction.cosine[i] * cosine[k] + correction.sine[i] * sine[k]);
                of_degree += p[k] * (potential.cosine[i] * cosine[k] + potential.sine[i] * sine[k]);
            }
            if (n >= 2)
                sum += power * of_degree;
        }
        return sum * number("3.9860044e14") / (gamma * r) + correction_sum / 100 - number("0.53");
    }
};

} // namespace

void compare_geoid(const std::string &listings)
{
    heading("Geoid to degree 360 at 100000 random points, against GeographicLib's model of the same coefficients and "
            "PROJ's EGM96 grid");
    const std::vector<Place> places = random_places(kPlaces, 19960101);
    std::vector<double> ours;
    for (const Place &place : places)
        ours.push_back(undulation(place));

    // Ours takes GM of the disturbing potential rounded, normal gravity as WGS84 has it: the same in another measure.
    constexpr double kRatio = 3986004.4 / 3986004.418;
    const GeographicLib::GravityModel model = rival(listings);
    Spread theirs;
    Spread same_gm;
    for (std::size_t k = 0; k < places.size(); ++k) {
        const double height = model.GeoidHeight(places[k].lat, places[k].lon);
        theirs.add((height - ours[k]) * 1e6);
        same_gm.add((height * kRatio - ours[k]) * 1e6);
    }
    theirs.print("GeographicLib", "um",
                 "GM of 3986004.4e8 m3/s2 over a normal gravity for 3986004.418e8: 4.5e-9 of the height");
    same_gm.print("GeographicLib times the ratio of the two GM", "um", "rounded constants of the normal field");
    compare_proj(places, ours);
}

void geoid_fidelity(const std::string &listings)
{
    const Formula formula(listings);
    Spread error;
    double largest = 0.0;
    for (const Place &place : random_places(500, 19980701)) {
        const double ours = undulation(place);
        error.add(static_cast<double>(static_cast<Quad>(ours) - formula(place)));
        largest = std::fmax(largest, std::fabs(ours));
    }
    std::printf("| Geoid to degree 360, 500 points | fm | %s | %s | the sum of 65 000 terms |\n",
                error.cells(1e15).c_str(), error.cells(9007199254740992.0 / largest).c_str());
}
