// Coefficients of the low-precision ephemeris of the Earth, P. Stumpff, Astron. Astrophys. Suppl. Ser. 41, 1-8 (1980).
// T: Julian centuries from 1900 January 0.5 (MJD 15019.5).
#ifndef KL_SRC_EPHEMERIDES_EARTH_TABLES_H
#define KL_SRC_EPHEMERIDES_EARTH_TABLES_H

#include <iterator>

struct QuadraticElement {
    double c1, c2, c3; // c1 + c2 T + c3 T^2
};
struct LinearArgument {
    double phase, rate; // rad, rad/century
};

// Fast elements: rad.
constexpr QuadraticElement kDcfel[] = {
    {1.7400353, 6.2833195099091e2, 5.2796e-6},     // L, heliocentric mean longitude of the Earth-Moon barycentre
    {6.2565836, 6.2830194572674e2, -2.6180e-6},    // g, mean anomaly of the Earth-Moon barycentre
    {4.7199666, 8.3997091449254e3, -1.9780e-5},    // mean longitude of the Moon
    {1.9636505e-1, 8.4334662911720e3, -5.6044e-5}, // F, mean argument of latitude of the Moon
    {4.1547339, 5.2993466764997e1, 5.8845e-6},     // mean longitude of Jupiter
    {4.6524223, 2.1354275911213e1, 5.6797e-6},     // of Saturn
    {4.2620486, 7.5025342197656, 5.5317e-6},       // of Uranus
    {1.4740694, 3.8377331909193, 5.6093e-6},       // of Neptune
};
static_assert(std::size(kDcfel) == 8);

// Mean obliquity of the ecliptic: rad.
constexpr QuadraticElement kDceps = {4.093198e-1, -2.271110e-4, -2.860401e-8};

// Slow elements: eccentricities are numbers, the others rad.
constexpr QuadraticElement kCcsel[] = {
    {1.675104e-2, -4.179579e-5, -1.260516e-7}, // eccentricity of the Earth-Moon barycentre
    {2.220221e-1, 2.809917e-2, 1.852532e-5},   // longitude of perihelion of Jupiter
    {1.589963, 3.418075e-2, 1.430200e-5},      // of Saturn
    {2.994089, 2.590824e-2, 4.155840e-6},      // of Uranus
    {8.155457e-1, 2.486352e-2, 6.836840e-6},   // of Neptune
    {1.735614, 1.763719e-2, 6.370440e-6},      // longitude of the ascending node of Jupiter
    {1.968564, 1.524020e-2, -2.517152e-6},     // of Saturn
    {1.282417, 8.703393e-3, 2.289292e-5},      // of Uranus
    {2.280820, 1.918010e-2, 4.484520e-6},      // of Neptune
    {4.833473e-2, 1.641773e-4, -4.654200e-7},  // eccentricity of Jupiter
    {5.589232e-2, -3.455092e-4, -7.388560e-7}, // of Saturn
    {4.634443e-2, -2.658234e-5, 7.757000e-8},  // of Uranus
    {8.997041e-3, 6.329728e-6, -1.939256e-9},  // of Neptune
    {2.284178e-2, -9.941590e-5, 6.787400e-8},  // inclination of Jupiter
    {4.350267e-2, -6.839749e-5, -2.714956e-7}, // of Saturn
    {1.348204e-2, 1.091504e-5, 6.903760e-7},   // of Uranus
    {3.106570e-2, -1.665665e-4, -1.590188e-7}, // of Neptune
};
static_assert(std::size(kCcsel) == 17);

// Arguments of the short-period perturbations by the planets.
constexpr LinearArgument kDcargs[] = {
    {5.0974222, -7.8604195454652e2}, {3.9584962, -5.7533848094674e2}, {1.6338070, -1.1506769618935e3},
    {2.5487111, -3.9302097727326e2}, {4.9255514, -5.8849265665348e2}, {1.3363463, -5.5076098609303e2},
    {1.6072053, -5.2237501616674e2}, {1.3629480, -1.1790629318198e3}, {5.5657014, -1.0977134971135e3},
    {5.0708205, -1.5774000881978e2}, {3.9318944, 5.2963464780000e1},  {4.8989497, 3.9809289073258e1},
    {1.3097446, 7.7540959633708e1},  {3.5147141, 7.9618578146517e1},  {3.5413158, -5.4868336758022e2},
};
static_assert(std::size(kDcargs) == 15);

// Their amplitudes, row by row: cosine and sine of the longitude (rad), cosine and sine of the radius factor, and the
// rate of the argument (rad/s; zero where the velocity neglects the term).
struct ShortPeriodAmplitude {
    double cos_longitude, sin_longitude, cos_radius, sin_radius, rate;
};
constexpr ShortPeriodAmplitude kCcamps[] = {
    {-2.279594e-5, 1.407414e-5, 8.273188e-6, 1.340565e-5, -2.490817e-7},
    {-3.494537e-5, 2.860401e-7, 1.289448e-7, 1.627237e-5, -1.823138e-7},
    {6.593466e-7, 1.322572e-5, 9.258695e-6, -4.674248e-7, -3.646275e-7},
    {1.140767e-5, -2.049792e-5, -4.747930e-6, -2.638763e-6, -1.245408e-7},
    {9.516893e-6, -2.748894e-6, -1.319381e-6, -4.549908e-6, -1.864821e-7},
    {7.310990e-6, -1.924710e-6, -8.772849e-7, -3.334143e-6, -1.745256e-7},
    {-2.603449e-6, 7.359472e-6, 3.168357e-6, 1.119056e-6, -1.655307e-7},
    {-3.228859e-6, 1.308997e-7, 1.013137e-7, 2.403899e-6, -3.736225e-7},
    {3.442177e-7, 2.671323e-6, 1.832858e-6, -2.394688e-7, -3.478444e-7},
    {8.702406e-6, -8.421214e-6, -1.372341e-6, -1.455234e-6, -4.998479e-8},
    {-1.488378e-6, -1.251789e-5, 5.226868e-7, -2.049301e-7, 0.0},
    {-8.043059e-6, -2.991300e-6, 1.473654e-7, -3.154542e-7, 0.0},
    {3.699128e-6, -3.316126e-6, 2.901257e-7, 3.407826e-7, 0.0},
    {2.550120e-6, -1.241123e-6, 9.901116e-8, 2.210482e-7, 0.0},
    {-6.351059e-7, 2.341650e-6, 1.061492e-6, 2.878231e-7, 0.0},
};
static_assert(std::size(kCcamps) == std::size(kDcargs));

// Long-period perturbations of the longitude.
struct LongPeriodTerm {
    double amplitude;   // rad
    double phase, rate; // rad, rad/century
};
constexpr LongPeriodTerm kCcsec[] = {
    {1.289600e-6, 5.550147e-1, 2.076942},
    {3.102810e-5, 4.035027, 3.525565e-1},
    {9.124190e-6, 9.990265e-1, 2.622706},
    {9.793240e-7, 5.508259, 1.559103e1},
};
static_assert(std::size(kCcsec) == 4);
constexpr double kCcsec3 = -7.757020e-8; // rate of the amplitude of the third row, rad/century

// Arguments of the perturbations of the Moon: elliptic, evection, variation.
constexpr LinearArgument kDcargm[] = {
    {5.1679830, 8.3286911095275e3},
    {5.4913150, -7.2140632838100e3},
    {5.9598530, 1.5542754389685e4},
};
static_assert(std::size(kDcargm) == 3);

// Their amplitudes: longitude (rad, sine) and its rate (rad/s, cosine), parallax factor (cosine) and its rate (1/s,
// minus sine).
struct LunarAmplitude {
    double longitude, longitude_rate, parallax, parallax_rate;
};
constexpr LunarAmplitude kCcampm[] = {
    {1.097594e-1, 2.896773e-7, 5.450474e-2, 1.438491e-7},
    {-2.223581e-2, 5.083103e-8, 1.002548e-2, -2.291823e-8},
    {1.148966e-2, 5.658888e-8, 8.249439e-3, 4.063015e-8},
};
static_assert(std::size(kCcampm) == std::size(kDcargm));

// Jupiter, Saturn, Uranus, Neptune: mass ratio times mean orbital speed (AU/s), and times semi-major axis (AU).
constexpr double kCcpamv[] = {8.326827e-11, 1.843484e-11, 1.988712e-12, 1.881276e-12};
constexpr double kCcpam[] = {4.960906e-3, 2.727436e-3, 8.392311e-4, 1.556861e-3};

constexpr double kDcsld = 1.990987e-7; // sidereal rate of the mean longitude of the Earth-Moon barycentre, rad/s
constexpr double kCcsgd = 1.990969e-7; // sidereal rate of its mean anomaly, rad/s
constexpr double kCckm = 3.122140e-5;  // mean distance of the Earth from the Earth-Moon barycentre, AU
constexpr double kCcmld = 2.661699e-6; // sidereal rate of the mean longitude of the Moon, rad/s
constexpr double kCcfdi = 2.399485e-7; // rate of its argument of latitude times its inclination, rad/s
constexpr double kCcim = 8.978749e-2;  // inclination of the lunar orbit, rad
constexpr double kDc1mme = 0.99999696; // one minus the mass of Earth and Moon in solar masses

#endif
