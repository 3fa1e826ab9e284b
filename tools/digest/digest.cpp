// Prints a digest of the bits of a fixed set of calls, a line a function: equal lines mean equal numbers, whatever the
// compiler, the optimiser and the width of the instructions. tools/digest/run.sh compares the builds.
#include "kl_lib.h"

#include <cinttypes>
#include <cstdint>
#include <cstdio>
#include <cstring>

namespace {

class Digest { // FNV-1a, 64 bits
public:
    template <typename T>
    void add(const T &value)
    {
        unsigned char bytes[sizeof value];
        std::memcpy(bytes, &value, sizeof value);
        for (const unsigned char byte : bytes)
            hash_ = (hash_ ^ byte) * 1099511628211ULL;
    }
    std::uint64_t value() const { return hash_; }

private:
    std::uint64_t hash_ = 14695981039346656037ULL;
};

void print(const char *name, const Digest &digest)
{
    std::printf("%-24s %016" PRIx64 "\n", name, digest.value());
}

const long kFormat = KL_PROC;
constexpr double kFirst = -18261.0;
constexpr double kStep = 27.3829137; // days: 2000 instants over the whole range
constexpr int kSteps = 2000;

double instant(int i)
{
    return kFirst + i * kStep;
}

kl_time_id table_id()
{
    kl_time_row rows[4];
    for (int i = 0; i < 4; ++i) {
        const double utc = 6207.0 + i;
        const double tai_utc = i < 2 ? 36.0 : 37.0;
        const double tai_ut1 = 36.4 + 0.0011 * i;
        const double tai = utc + tai_utc / 86400.0;
        rows[i] = {tai, tai - tai_ut1 / 86400.0, utc, tai_utc, tai_ut1, 19.0};
    }
    kl_time_id_data data = {};
    data.model = 1;
    data.combination = -1;
    data.c = 6210.0;
    data.a = -0.4;
    data.b = 1e-4;
    data.n_rows = 4;
    data.rows = rows;
    kl_time_id id = {nullptr};
    if (kl_time_set_id_data(&id, &data) != 0)
        std::puts("no time id");
    return id;
}

void times(kl_time_id *id)
{
    Digest processing;
    Digest texts;
    Digest transport;
    for (int i = 0; i < kSteps; ++i)
        for (long from = 0; from < 4; ++from)
            for (long to = 0; to < 4; ++to) {
                const double t = i % 2 == 0 ? instant(i) : 6207.5 + 0.001 * i;
                double out = 0.0;
                processing.add(kl_time_processing_to_processing(id, &kFormat, &from, &t, &kFormat, &to, &out, nullptr));
                processing.add(out);
                char text[KL_TIME_ASCII_LENGTH] = {};
                const long ascii = KL_ASCII_14;
                kl_time_processing_to_ascii(id, &kFormat, &from, &t, &ascii, &to, text, nullptr);
                texts.add(text);
                long fields[KL_TRANSPORT_LENGTH] = {};
                const long form = KL_TRANS_23;
                kl_time_processing_to_transport(id, &kFormat, &from, &t, &form, &to, fields, nullptr);
                transport.add(fields);
            }
    print("processing", processing);
    print("texts", texts);
    print("transport", transport);
}

void sky(kl_time_id *id)
{
    Digest bodies;
    Digest frames;
    const long ref = KL_TIME_TAI;
    for (int i = 0; i < kSteps; ++i) {
        const double t = instant(i);
        double pos[3];
        double vel[3];
        double acc[3];
        kl_sun(nullptr, id, &ref, &t, pos, vel, nullptr);
        bodies.add(pos);
        bodies.add(vel);
        kl_moon(nullptr, id, &ref, &t, pos, vel, nullptr);
        bodies.add(pos);
        bodies.add(vel);
        const long planet = 1 + i % 8;
        kl_planet(nullptr, id, &planet, &ref, &t, pos, vel, nullptr);
        bodies.add(pos);
        bodies.add(vel);
        const long mode = KL_CALC_POS_VEL_ACC;
        for (long from = 1; from <= 11; ++from)
            for (long to = 1; to <= 11; ++to) {
                if (from == KL_LIF || to == KL_LIF)
                    continue;
                const double p[3] = {7.0e6, -1.1e6, 2.3e5};
                const double v[3] = {-300.0, 7100.0, 900.0};
                const double a[3] = {-7.6, 1.2, -0.3};
                kl_change_cart_cs(nullptr, id, &mode, &from, &to, &ref, &t, p, v, a, pos, vel, acc, nullptr);
                frames.add(pos);
                frames.add(vel);
                frames.add(acc);
            }
    }
    print("bodies", bodies);
    print("frames", frames);
}

void geoid()
{
    Digest points;
    for (int i = 0; i < 200; ++i) {
        const kl_geoid_input input = {nullptr, -90.0 + 0.9 * i, 1.7 * i, 0.0, i % 5 == 0 ? 360L : i};
        double undulation = 0.0;
        points.add(kl_geoid_calc(&input, &undulation, nullptr));
        points.add(undulation);
    }
    Digest grid;
    double lat[5] = {-90.0, -33.3, 0.0, 61.7, 90.0};
    double lon[73];
    for (int i = 0; i < 73; ++i)
        lon[i] = 5.0 * i;
    static double values[5 * 73];
    const long n_lat = 5;
    const long n_lon = 73;
    const long degree = 360;
    grid.add(kl_geoid_grid(nullptr, &degree, lat, &n_lat, lon, &n_lon, values, nullptr));
    grid.add(values);
    print("geoid points", points);
    print("geoid grid", grid);
}

void rotations()
{
    Digest digest;
    for (int i = 0; i < kSteps; ++i) {
        const double angles[3] = {-89.0 + 0.089 * i, 0.17 * i, -0.31 * i};
        double matrix[9];
        double back[3];
        kl_euler_to_matrix(angles, matrix, nullptr);
        digest.add(matrix);
        kl_matrix_to_euler(matrix, back, nullptr);
        digest.add(back);
        const double x[3] = {matrix[0], matrix[3], matrix[6]};
        const double y[3] = {matrix[1], matrix[4], matrix[7]};
        const double z[3] = {matrix[2], matrix[5], matrix[8]};
        double q[4];
        double between[4];
        kl_vectors_to_quaternions(x, y, z, q, nullptr);
        digest.add(q);
        const double one[4] = {0.0, 0.0, 0.0, 1.0};
        const double t1 = 0.0;
        const double t2 = 1.0;
        const double t = 0.001 * i - 0.5;
        const long mode = KL_INTERPOL_SLERP;
        kl_quaternions_interpol(&mode, &t1, one, &t2, q, &t, between, nullptr);
        digest.add(between);
    }
    print("rotations", digest);
}

} // namespace

int main()
{
    kl_time_id id = table_id();
    times(&id);
    sky(&id);
    geoid();
    rotations();
    return kl_time_close(&id, nullptr) == KL_OK ? 0 : 1;
}
