// Prints a digest of all outputs of a fixed set of calls, a line a group: statuses, vectors of errors, numbers and
// texts. Equal lines mean equal bits, whatever the compiler, the optimiser and the width of the instructions; the
// payload of a NaN alone is left out. tools/digest/run.sh compares the builds.
#include "support/every_array.h"
#include "support/every_function.h"

#include <cinttypes>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <limits>
#include <string>

namespace {

constexpr long kProc = KL_PROC;
constexpr long kTexts[] = {11, 12, 13, 14, 21, 22, 23, 24, 31, 32, 33, 34, 41, 42, 43, 44, 51, 52, 53, 54};
constexpr long kTransports[] = {0, 11, 21, 22, 23, 31, 41, 42};

class Digest { // FNV-1a, 64 bits; a line when it goes
public:
    explicit Digest(const char *name) : name_(name) {}
    ~Digest() { std::printf("%-20s %9ld calls  %016" PRIx64 "\n", name_, calls_, hash_); }
    Digest(const Digest &) = delete;
    Digest &operator=(const Digest &) = delete;

    // What a call returns and leaves. The vector is emptied for the next one.
    template <typename... Output>
    void call(long status, const Output &...outputs)
    {
        ++calls_;
        add(status);
        add(ierr);
        (add(outputs), ...);
        ierr[0] = ierr[1] = 0;
    }

    // Elements of an array: words, or octets of texts.
    void columns(const Column &c, const unsigned char *from, long octets)
    {
        if (c.words[0] == 't' || c.words[0] == 'o') {
            for (long i = 0; i < octets; ++i)
                add(from[i]);
            return;
        }
        for (long i = 0; i < octets; i += 8) {
            double value;
            std::memcpy(&value, from + i, sizeof value);
            add(value);
        }
    }

    long ierr[2] = {0, 0};

private:
    template <typename T, std::size_t n>
    void add(const T (&values)[n])
    {
        for (const T &value : values)
            add(value);
    }
    void add(double value) { bytes(std::isnan(value) ? std::numeric_limits<double>::quiet_NaN() : value); }
    void add(long value) { bytes(value); }
    void add(unsigned long value) { bytes(value); }
    void add(char value) { bytes(value); }
    void add(unsigned char value) { bytes(value); }
    void add(const kl_obt_tarvos &clock)
    {
        add(clock.coarse);
        add(clock.fine);
    }
    void add(const kl_obt_kelda &clock) { add(clock.obt); }
    template <typename T>
    void bytes(const T &value)
    {
        unsigned char all[sizeof value];
        std::memcpy(all, &value, sizeof value);
        for (const unsigned char byte : all)
            hash_ = (hash_ ^ byte) * 1099511628211ULL;
    }

    const char *name_;
    long calls_ = 0;
    std::uint64_t hash_ = 14695981039346656037ULL;
};

// An instant of a hundred: over the whole range, and around the leap second of the tables.
double instant(int i, int n = 100)
{
    return i % 2 == 0 ? -18261.0 + 54780.0 * i / n : 6208.9997 + 0.0006 * i / n;
}

kl_time_id table_id(double leap, long model)
{
    kl_time_row rows[4];
    for (int i = 0; i < 4; ++i) {
        const double utc = 6207.0 + i;
        const double tai_utc = i < 2 ? 36.0 : 36.0 + leap;
        const double tai_ut1 = 36.4 + 0.0011 * i;
        const double tai = utc + tai_utc / 86400.0;
        rows[i] = {tai, tai - tai_ut1 / 86400.0, utc, tai_utc, tai_ut1, 19.0};
    }
    kl_time_id_data data = {};
    data.model = model;
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

// A text and a transport time made of an instant, and all that can be made of these.
void texts(Digest &d, kl_time_id *id, long from, long to, double t)
{
    for (const long form : kTexts) {
        char text[KL_TIME_ASCII_LENGTH] = {};
        d.call(kl_time_processing_to_ascii(id, &kProc, &from, &t, &form, &to, text, d.ierr), text);
        double days = 0.0;
        d.call(kl_time_ascii_to_processing(id, &form, &to, text, &kProc, &from, &days, d.ierr), days);
        for (const long other : kTexts) {
            char out[KL_TIME_ASCII_LENGTH] = {};
            d.call(kl_time_ascii_to_ascii(id, &form, &to, text, &other, &from, out, d.ierr), out);
        }
        for (const long other : kTransports) {
            long out[KL_TRANSPORT_LENGTH] = {};
            d.call(kl_time_ascii_to_transport(id, &form, &to, text, &other, &from, out, d.ierr), out);
        }
    }
}

void transports(Digest &d, kl_time_id *id, long from, long to, double t)
{
    for (const long form : kTransports) {
        long fields[KL_TRANSPORT_LENGTH] = {};
        d.call(kl_time_processing_to_transport(id, &kProc, &from, &t, &form, &to, fields, d.ierr), fields);
        double days = 0.0;
        d.call(kl_time_transport_to_processing(id, &form, &to, fields, &kProc, &from, &days, d.ierr), days);
        for (const long other : kTexts) {
            char out[KL_TIME_ASCII_LENGTH] = {};
            d.call(kl_time_transport_to_ascii(id, &form, &to, fields, &other, &from, out, d.ierr), out);
        }
        for (const long other : kTransports) {
            long out[KL_TRANSPORT_LENGTH] = {};
            d.call(kl_time_transport_to_transport(id, &form, &to, fields, &other, &from, out, d.ierr), out);
        }
    }
}

void conversions()
{
    Digest processing("processing times"), of_texts("texts"), of_transports("transport times"), leaps("leap seconds");
    for (const double leap : {1.0, 0.0, -1.0}) {
        kl_time_id id = table_id(leap, leap == 0.0 ? 8 : 10); // with different warnings
        for (long from = 0; from < 4; ++from)
            for (long to = 0; to < 4; ++to) {
                for (int i = 0; i < 2000; ++i) {
                    const double t = instant(i, 2000);
                    double out = 0.0;
                    processing.call(
                        kl_time_processing_to_processing(&id, &kProc, &from, &t, &kProc, &to, &out, processing.ierr),
                        out);
                }
                for (int i = 0; i < 24; ++i) {
                    texts(of_texts, &id, from, to, instant(i, 24));
                    transports(of_transports, &id, from, to, instant(i, 24));
                }
            }
        for (const long form : kTexts) {
            long sign = 0;
            char before[KL_TIME_ASCII_LENGTH] = {}, after[KL_TIME_ASCII_LENGTH] = {};
            leaps.call(kl_time_get_leap_second_info(&id, &form, &sign, before, after, leaps.ierr), sign, before, after);
        }
        kl_time_close(&id, nullptr);
    }
    Digest durations("durations");
    for (int i = 0; i < 2000; ++i) {
        const double t = instant(i, 2000), other = instant(2000 - i, 2000);
        const long ref = i % 4;
        double out = 0.0;
        durations.call(kl_time_add(&kProc, &ref, &t, &other, &out, durations.ierr), out);
        durations.call(kl_time_diff(&kProc, &ref, &t, &other, &out, durations.ierr), out);
    }
}

void unsegmented(kl_time_id *id)
{
    Digest d("unsegmented codes");
    for (long coarse = 1; coarse <= 7; ++coarse)
        for (long fine = 0; fine <= 10; ++fine)
            for (int i = 0; i < 96; ++i) {
                const kl_cuc_config config = {i % 2, i / 2 % 3, i % 4, 5000.123456, coarse, fine};
                const long ref = i / 6 % 4;
                const double t = instant(i, 96);
                unsigned char octets[KL_CUC_LENGTH] = {};
                d.call(kl_time_processing_to_cuc(id, &config, &ref, &t, octets, d.ierr), octets);
                double out = 0.0;
                d.call(kl_time_cuc_to_processing(id, &config, &ref, octets, &out, d.ierr), out);
            }
}

template <typename Parameters, typename Clock>
void clock(Digest &d, const Parameters &parameters, Clock count)
{
    for (int i = 0; i < 2000; ++i) {
        const long ref = i % 4;
        const double t = instant(i, 2000);
        d.call(kl_time_time_to_obt(&parameters.sat_id, &ref, &parameters, &t, &count, d.ierr), count);
        double out = 0.0;
        d.call(kl_time_obt_to_time(&parameters.sat_id, &ref, &parameters, &count, &out, d.ierr), out);
    }
}

void clocks()
{
    Digest d("on-board clocks");
    clock(d, kl_obt_param_tarvos{21, 6000.3, 5, 7, 3906250001UL}, kl_obt_tarvos{21, 0, 0});
    clock(d, kl_obt_param_vardo{51, -3}, kl_obt_vardo{51, 0, 0});
    clock(d, kl_obt_param_kelda{61, 100000, 7, 1000, 9, 1.0000123, 0.7}, kl_obt_kelda{61, 0.0});
    clock(d, kl_obt_param_brisa{71, 2, 11, 13, 1200, 300000, 17}, kl_obt_brisa{71, 0, 0});
}

void sky(kl_time_id *id)
{
    Digest bodies("bodies"), frames("frames");
    constexpr double kPos[3] = {7.0e6, -1.1e6, 2.3e5};
    constexpr double kVel[3] = {-300.0, 7100.0, 900.0};
    constexpr double kAcc[3] = {-7.6, 1.2, -0.3};
    for (int i = 0; i < 2000; ++i) {
        const double t = instant(i, 2000);
        const long ref = i % 4;
        double pos[3] = {}, vel[3] = {}, acc[3] = {};
        bodies.call(kl_sun(nullptr, id, &ref, &t, pos, vel, bodies.ierr), pos, vel);
        bodies.call(kl_moon(nullptr, id, &ref, &t, pos, vel, bodies.ierr), pos, vel);
        for (long planet = 1; planet <= 8; ++planet)
            bodies.call(kl_planet(nullptr, id, &planet, &ref, &t, pos, vel, bodies.ierr), pos, vel);
        const long mode = 1 + i / 4 % 3;
        for (long from = 1; from <= 11; ++from)
            for (long to = 1; to <= 11; ++to)
                frames.call(kl_change_cart_cs(nullptr, id, &mode, &from, &to, &ref, &t, kPos, kVel, kAcc, pos, vel, acc,
                                              frames.ierr),
                            pos, vel, acc);
    }
}

void geoid()
{
    Digest d("geoid");
    for (int i = 0; i <= 200; ++i) {
        const kl_geoid_input input = {nullptr, -90.0 + 0.9 * i, 1.7 * i, 0.0, i % 5 == 0 ? 360L : i};
        double undulation = 0.0;
        d.call(kl_geoid_calc(&input, &undulation, d.ierr), undulation);
    }
    constexpr double kLat[5] = {-90.0, -33.3, 0.0, 61.7, 90.0};
    double lon[73];
    for (int i = 0; i < 73; ++i)
        lon[i] = 5.0 * i;
    static double values[5 * 73];
    const long n_lat = 5, n_lon = 73;
    for (const long degree : {0L, 1L, 2L, 17L, 180L, 360L})
        d.call(kl_geoid_grid(nullptr, &degree, kLat, &n_lat, lon, &n_lon, values, d.ierr), values);
}

void rotations()
{
    Digest d("rotations");
    constexpr double kNoTurn[4] = {0.0, 0.0, 0.0, 1.0};
    constexpr double kStart = 0.0, kEnd = 1.0;
    constexpr long kMode = KL_INTERPOL_SLERP;
    for (int i = 0; i < 4000; ++i) { // the first angle reaches a quarter turn
        const double angles[3] = {-90.0 + 0.045 * i, 0.17 * i, -0.31 * i};
        double matrix[9] = {}, back[3] = {};
        d.call(kl_euler_to_matrix(angles, matrix, d.ierr), matrix);
        d.call(kl_matrix_to_euler(matrix, back, d.ierr), back);
        const double x[3] = {matrix[0], matrix[3], matrix[6]};
        const double y[3] = {matrix[1], matrix[4], matrix[7]};
        const double z[3] = {matrix[2], matrix[5], matrix[8]};
        double q[4] = {}, between[4] = {}, a[3] = {}, b[3] = {}, c[3] = {};
        d.call(kl_vectors_to_quaternions(x, y, z, q, d.ierr), q);
        d.call(kl_quaternions_to_vectors(q, a, b, c, d.ierr), a, b, c);
        d.call(kl_get_rotated_vectors(x, y, z, angles, a, b, c, d.ierr), a, b, c);
        d.call(kl_get_rotation_angles(x, y, z, a, b, c, back, d.ierr), back);
        const double t = 0.0005 * i - 0.5;
        d.call(kl_quaternions_interpol(&kMode, &kStart, kNoTurn, &kEnd, q, &t, between, d.ierr), between, q);
    }
}

// Every public function but those that print, at several instants, and with each argument missing, no number or out of
// range.
void every_function()
{
    Digest d("every function");
    for (const PublicCall *f = every_call(); f != every_call_end(); ++f) {
        const std::string name = f->name;
        if (name == "kl_print_msg" || name == "kl_get_code" || name == "kl_get_msg"
            || name == "kl_check_library_version")
            continue;
        const auto call = [&](double at, BadArgument bad) {
            World world;
            if (!world.open())
                std::puts("no world");
            world.at = at;
            world.bad = bad;
            const Outputs &left = outputs_of(*f, world);
            d.call(left.status, left.ierr, left.a, left.days, left.fields, left.text, left.octets);
            const int n_arguments = world.n_arguments;
            world.close();
            return n_arguments;
        };
        int n_arguments = 0;
        for (int i = 0; i < 100; ++i)
            n_arguments = call(instant(i), {});
        for (int at = 0; at < n_arguments; ++at) {
            if (name == "kl_geoid_grid" && (at == 3 || at == 5)) // how long its arrays are is the caller's word
                continue;
            for (int kind = 0; kind < BadArgument::kKinds; ++kind)
                call(6000.25, {at, kind});
        }
    }
}

// Every array form, with good elements and with refused ones among them, of the sizes around those of blocks.
void every_array()
{
    Digest d("every array");
    for (const ArrayForm &f : every_array_form()) {
        ArrayWorld w;
        if (!w.open(Correlation::rows))
            std::puts("no world");
        Random random(3);
        for (const long n : {1L, 7L, 64L, 100L, 257L})
            for (const bool spoilt : {false, true}) {
                choose_valid(f, random, &w);
                std::vector<Bytes> columns = make_inputs(f, w, n, spoilt, Instants::in_runs, random);
                for (std::size_t k = 0; k < f.columns.size(); ++k) {
                    w.width[k] = width_of(w, f.columns[k]);
                    w.at[k] = columns[k].data();
                }
                long status[257] = {};
                d.call(f.all(w, &n, status, d.ierr), status);
                for (std::size_t k = 0; k < f.columns.size(); ++k)
                    d.columns(f.columns[k], w.at[k], n * w.width[k]);
            }
        w.close();
    }
}

} // namespace

int main()
{
    kl_silent();
    conversions();
    kl_time_id id = table_id(1.0, 1);
    unsegmented(&id);
    clocks();
    sky(&id);
    kl_time_close(&id, nullptr);
    geoid();
    rotations();
    every_function();
    every_array();
    return 0;
}
