// What the classes cost over the functions that they wrap: each pair does the same work.
#include "orbkit.hpp"

#include <benchmark/benchmark.h>

#include <string>

using namespace ORBKIT;

namespace {

const Quaternion kAttitude = {0.1, -0.5, 0.7, 0.5};

void quaternions_to_vectors_c(benchmark::State &state)
{
    Quaternion q = kAttitude;
    Axes axes;
    long ierr[1];
    for (auto _ : state) {
        benchmark::DoNotOptimize(q);
        if (kl_quaternions_to_vectors(q.data(), axes.x.data(), axes.y.data(), axes.z.data(), ierr) == KL_ERR)
            state.SkipWithError("refused");
        benchmark::DoNotOptimize(axes);
    }
}
BENCHMARK(quaternions_to_vectors_c)->Name("kl_quaternions_to_vectors");

void quaternions_to_vectors_wrapped(benchmark::State &state)
{
    Quaternion q = kAttitude;
    for (auto _ : state) {
        benchmark::DoNotOptimize(q);
        Axes axes = LibFunc::quaternionsToVectors(q);
        benchmark::DoNotOptimize(axes);
    }
}
BENCHMARK(quaternions_to_vectors_wrapped)->Name("kl_quaternions_to_vectors/rival LibFunc::quaternionsToVectors");

void add_c(benchmark::State &state)
{
    const long processing = KL_PROC, utc = KL_TIME_UTC;
    double time = 100.0, duration = 0.5, sum = 0.0;
    long ierr[1];
    for (auto _ : state) {
        benchmark::DoNotOptimize(time);
        if (kl_time_add(&processing, &utc, &time, &duration, &sum, ierr) == KL_ERR)
            state.SkipWithError("refused");
        benchmark::DoNotOptimize(sum);
    }
}
BENCHMARK(add_c)->Name("kl_time_add");

void add_wrapped(benchmark::State &state)
{
    double time = 100.0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(time);
        double sum = LibFunc::timeAdd(KL_TIME_UTC, time, 0.5);
        benchmark::DoNotOptimize(sum);
    }
}
BENCHMARK(add_wrapped)->Name("kl_time_add/rival LibFunc::timeAdd");

const TimeId &correlation()
{
    static const TimeId time({37.0 / 86400.0, 0.0, 0.0, 18.0 / 86400.0});
    return time;
}

void utc_to_gps_c(benchmark::State &state)
{
    const long processing = KL_PROC, utc = KL_TIME_UTC, gps = KL_TIME_GPS;
    double time = 9668.35, out = 0.0;
    long ierr[1];
    for (auto _ : state) {
        benchmark::DoNotOptimize(time);
        if (kl_time_processing_to_processing(correlation().getId(), &processing, &utc, &time, &processing, &gps, &out,
                                             ierr)
            == KL_ERR)
            state.SkipWithError("refused");
        benchmark::DoNotOptimize(out);
    }
}
BENCHMARK(utc_to_gps_c)->Name("kl_time_processing_to_processing");

void utc_to_gps_wrapped(benchmark::State &state)
{
    double time = 9668.35;
    for (auto _ : state) {
        benchmark::DoNotOptimize(time);
        double out = LibFunc::timeProcessingToProcessing(correlation(), KL_TIME_UTC, time, KL_TIME_GPS);
        benchmark::DoNotOptimize(out);
    }
}
BENCHMARK(utc_to_gps_wrapped)->Name("kl_time_processing_to_processing/rival LibFunc::timeProcessingToProcessing");

void text_c(benchmark::State &state)
{
    const long processing = KL_PROC, utc = KL_TIME_UTC, format = KL_ASCII_43;
    double time = 9668.35;
    TimeText text;
    long ierr[1];
    for (auto _ : state) {
        benchmark::DoNotOptimize(time);
        if (kl_time_processing_to_ascii(correlation().getId(), &processing, &utc, &time, &format, &utc, text.text, ierr)
            == KL_ERR)
            state.SkipWithError("refused");
        benchmark::DoNotOptimize(text);
    }
}
BENCHMARK(text_c)->Name("kl_time_processing_to_ascii");

void text_wrapped(benchmark::State &state)
{
    double time = 9668.35;
    for (auto _ : state) {
        benchmark::DoNotOptimize(time);
        TimeText text = LibFunc::timeProcessingToAscii(correlation(), KL_TIME_UTC, time, KL_ASCII_43, KL_TIME_UTC);
        benchmark::DoNotOptimize(text);
    }
}
BENCHMARK(text_wrapped)->Name("kl_time_processing_to_ascii/rival LibFunc::timeProcessingToAscii");

void sun_c(benchmark::State &state)
{
    const ModelId model;
    const long utc = KL_TIME_UTC;
    double time = 9668.35;
    BodyState sun;
    long ierr[1];
    for (auto _ : state) {
        benchmark::DoNotOptimize(time);
        if (kl_sun(model.getId(), correlation().getId(), &utc, &time, sun.pos.data(), sun.vel.data(), ierr) == KL_ERR)
            state.SkipWithError("refused");
        benchmark::DoNotOptimize(sun);
    }
}
BENCHMARK(sun_c)->Name("kl_sun");

void sun_wrapped(benchmark::State &state)
{
    const ModelId model;
    double time = 9668.35;
    for (auto _ : state) {
        benchmark::DoNotOptimize(time);
        BodyState sun = LibFunc::sun(model, correlation(), KL_TIME_UTC, time);
        benchmark::DoNotOptimize(sun);
    }
}
BENCHMARK(sun_wrapped)->Name("kl_sun/rival LibFunc::sun");

// The value classes: a call of C, and the member that makes it, on the same numbers.
template <class C, class Class>
bool pair(const char *function, const char *member, C c, Class of_class)
{
    const auto measured = [](auto call) {
        return [call](benchmark::State &state) {
            for (auto _ : state) {
                auto out = call();
                benchmark::DoNotOptimize(out);
            }
        };
    };
    const std::string name = function;
    benchmark::RegisterBenchmark(name.c_str(), measured(c));
    benchmark::RegisterBenchmark((name + "/rival " + member).c_str(), measured(of_class));
    return true;
}

struct Values {
    Time time{"2026-06-21T08:24:00"};
    std::string text = "2026-06-21T08:24:00.25Z";
    StateVector tod{{-2466543.0, 6437123.0, 1517234.0}, {-1423.1, 1214.7, -7366.2}, Frame::TOD, time};
    StateVector fixed = tod.in(Frame::EF);
    GroundStation station{48.0, 11.0, 600.0};
    Ray ray{fixed.position(), {0.3, -1.0, -0.2}};
    Cuc codes{{KL_CUC_TIME_FIELD_ONLY, KL_CUC_EPOCH_1958, KL_TIME_TAI, 0.0, 4, 3}};
    CucTime octets = codes.encode(time);
    IersState precise{fixed.pos(), fixed.vel(), IersFrame::ITRS, time};
    StateVectors many = [this] {
        StateVectors out(Frame::TOD);
        for (int i = 0; i < 1000; ++i)
            out.add(tod);
        return out;
    }();
    OnBoardTime<kl_obt_param_vardo> clock{{51, 0}, Scale::TAI};
    Star star{{101.287155, -16.716116, -546.0, -1223.0, 379.2, -5.5, 0.5, -1.46, 2491}};
    kl_kepler mean{7178137.0, 0.001, 98.6, 250.0, 90.0, 0.0};
    MeanMotion motion{mean, time};
    Rotation rotation = Rotation::fromQuaternion(kAttitude);
    // What C asks for.
    kl_time_id *id = time.id();
    kl_model_id *model = default_models().getId();
    Time later = time + std::chrono::minutes(1);
    double days = time.taiDays(), later_days = later.taiDays();
    TransportTime record = time.transport(TransportFormat::days_seconds, Scale::TAI);
    long tai = KL_TIME_TAI, utc = KL_TIME_UTC, proc = KL_PROC, trans = KL_TRANS_0, iso = KL_ASCII_43;
    long mode = KL_CALC_POS_VEL, from = KL_TOD, to = KL_EF, osculating = KL_KEPLER_OSCULATING, all = 7, one = 1;
    long itrs = KL_ITRS, gcrs = KL_GCRS, corrections = KL_EOP_ALL, lvlh = KL_ORBITAL_LVLH;
    double zero = 0.0;
};
const Values &v()
{
    static const Values *const values = new Values; // one for the process
    benchmark::DoNotOptimize(values);
    return *values;
}

const bool kPairs[] = {
    pair(
        "kl_time_text_to_processing", "Time",
        [] {
            double days;
            long ierr[1];
            kl_time_text_to_processing(v().id, v().text.c_str(), &v().utc, &v().proc, &v().tai, &days, ierr);
            return days;
        },
        [] { return Time(v().text); }),
    pair(
        "kl_time_processing_to_transport", "Time::fromProcessing",
        [] {
            TransportTime record;
            long ierr[1];
            kl_time_processing_to_transport(v().id, &v().proc, &v().utc, &v().days, &v().trans, &v().tai, record.data(),
                                            ierr);
            return record;
        },
        [] { return Time::fromProcessing(v().days, Scale::UTC); }),
    pair(
        "kl_time_transport_to_ascii", "Time::text",
        [] {
            TimeText text;
            long ierr[1];
            kl_time_transport_to_ascii(v().id, &v().trans, &v().tai, v().record.data(), &v().iso, &v().utc, text.text,
                                       ierr);
            return text;
        },
        [] { return v().time.text(); }),
    pair(
        "kl_time_transport_to_processing", "Time::processing",
        [] {
            double days;
            long ierr[1];
            kl_time_transport_to_processing(v().id, &v().trans, &v().tai, v().record.data(), &v().proc, &v().utc, &days,
                                            ierr);
            return days;
        },
        [] { return v().time.processing(); }),
    pair(
        "kl_time_processing_to_cuc", "Cuc::encode",
        [] {
            CucTime octets;
            long ierr[1];
            kl_time_processing_to_cuc(v().id, &v().codes.config(), &v().tai, &v().days, octets.data(), ierr);
            return octets;
        },
        [] { return v().codes.encode(v().time); }),
    pair(
        "kl_time_cuc_to_processing", "Cuc::decode",
        [] {
            double days;
            long ierr[1];
            kl_time_cuc_to_processing(v().id, &v().codes.config(), &v().tai, v().octets.data(), &days, ierr);
            return days;
        },
        [] { return v().codes.decode(v().octets); }),
    pair(
        "kl_time_time_to_obt", "OnBoardTime::count",
        [] {
            kl_obt_vardo count{51, 0, 0};
            long ierr[1];
            kl_time_time_to_obt(&v().clock.parameters().sat_id, &v().tai, &v().clock.parameters(), &v().days, &count,
                                ierr);
            return count;
        },
        [] { return v().clock.count(v().time); }),
    pair(
        "kl_change_cart_cs", "StateVector::in",
        [] {
            State out;
            long ierr[1];
            kl_change_cart_cs(v().model, v().id, &v().mode, &v().from, &v().to, &v().tai, &v().days,
                              v().tod.pos().data(), v().tod.vel().data(), v().tod.acc().data(), out.pos.data(),
                              out.vel.data(), out.acc.data(), ierr);
            return out;
        },
        [] { return v().tod.in(Frame::EF); }),
    pair(
        "kl_change_cart_cs_n, 1000 states", "StateVectors::in",
        [] {
            const std::size_t n = v().many.size();
            const long many = static_cast<long>(n);
            std::vector<Vector> pos(n), vel(n), acc(n);
            std::vector<double> days(n, v().days);
            std::vector<long> status(n);
            const auto plain = [](const std::vector<Vector> &x) { return reinterpret_cast<const double(*)[3]>(&x[0]); };
            const auto filled = [](std::vector<Vector> &x) { return reinterpret_cast<double(*)[3]>(&x[0]); };
            long ierr[1];
            kl_change_cart_cs_n(v().model, v().id, &many, &v().mode, &v().from, &v().to, &v().tai, days.data(),
                                plain(v().many.pos()), plain(v().many.vel()), plain(acc), filled(pos), filled(vel),
                                filled(acc), status.data(), ierr);
            return pos;
        },
        [] { return v().many.in(Frame::EF); }),
    pair(
        "kl_iers_change", "IersState::in",
        [] {
            State out;
            long ierr[1];
            kl_iers_change(v().id, &v().corrections, &v().mode, &v().itrs, &v().gcrs, &v().tai, &v().days,
                           v().precise.pos().data(), v().precise.vel().data(), nullptr, out.pos.data(), out.vel.data(),
                           out.acc.data(), ierr);
            return out;
        },
        [] { return v().precise.in(IersFrame::GCRS); }),
    pair(
        "kl_local_orbital_frame", "StateVector::localFrame",
        [] {
            OrbitalAxes out;
            kl_local_orbital_frame(&v().lvlh, v().tod.pos().data(), v().tod.vel().data(), nullptr, out.axes.data(),
                                   out.rates.data(), nullptr);
            return out;
        },
        [] { return v().tod.localFrame(OrbitalFrame::LVLH); }),
    pair(
        "kl_cart_to_geod", "StateVector::geodetic",
        [] {
            kl_geodetic out;
            long ierr[1];
            kl_cart_to_geod(v().model, &v().mode, v().fixed.pos().data(), v().fixed.vel().data(), &out, ierr);
            return out;
        },
        [] { return v().fixed.geodetic(); }),
    pair(
        "kl_cart_to_kepl", "StateVector::kepler",
        [] {
            kl_kepler out;
            long ierr[1];
            kl_cart_to_kepl(v().model, &v().osculating, v().tod.pos().data(), v().tod.vel().data(), &out, ierr);
            return out;
        },
        [] { return v().tod.kepler(); }),
    pair(
        "kl_position_on_orbit", "StateVector::orbitAngle",
        [] {
            kl_orbit_angle out;
            long ierr[1];
            kl_position_on_orbit(v().model, v().id, &v().mode, &v().from, &v().tai, &v().days, v().tod.pos().data(),
                                 v().tod.vel().data(), nullptr, &out, ierr);
            return out;
        },
        [] { return v().tod.orbitAngle(); }),
    pair(
        "kl_ef_to_topocentric", "GroundStation::sees",
        [] {
            kl_topocentric out;
            long ierr[1];
            kl_ef_to_topocentric(v().model, &v().mode, &v().station.geodetic(), v().fixed.pos().data(),
                                 v().fixed.vel().data(), &out, ierr);
            return out;
        },
        [] { return v().fixed.seenFrom(v().station); }),
    pair(
        "kl_ray_ellipsoid", "Ray::ellipsoid",
        [] {
            RayPoints out;
            kl_ray_ellipsoid(v().model, v().fixed.pos().data(), v().ray.direction().data(), &v().zero, out.t.data(),
                             &out.n, nullptr);
            return out;
        },
        [] { return v().ray.ellipsoid(); }),
    pair(
        "kl_sun, TAI", "Sun::at",
        [] {
            BodyState out;
            long ierr[1];
            kl_sun(v().model, v().id, &v().tai, &v().days, out.pos.data(), out.vel.data(), ierr);
            return out;
        },
        [] { return Sun::at(v().time); }),
    pair(
        "kl_eclipse", "Eclipse::at",
        [] {
            EclipseState out;
            long ierr[1];
            kl_eclipse(v().model, v().id, &v().one, &v().from, &v().tai, &v().days, v().tod.pos().data(), &v().zero,
                       &out.state, &out.fraction, &out.depth, ierr);
            return out;
        },
        [] { return Eclipse::at(v().tod); }),
    pair(
        "kl_star_radec", "Star::place",
        [] {
            kl_radec out;
            long ierr[1];
            kl_star_radec(v().model, v().id, &v().all, &v().from, &v().tai, &v().days, &v().star.data(), nullptr,
                          nullptr, &out, ierr);
            return out;
        },
        [] { return v().star.place(v().time, Frame::TOD); }),
    pair(
        "kl_vectors_to_quaternions", "Rotation::quaternion",
        [] {
            const double *const m = v().rotation.matrix().data();
            Quaternion q;
            long ierr[1];
            kl_vectors_to_quaternions(m, m + 3, m + 6, q.data(), ierr);
            return q;
        },
        [] { return v().rotation.quaternion(); }),
    pair(
        "kl_mean_motion and kl_kepl_to_cart", "MeanMotion",
        [] {
            static const long kMean = KL_KEPLER_MEAN;
            const double seconds = (v().later_days - v().days) * 86400.0;
            kl_kepler at;
            State out;
            long ierr[1];
            kl_mean_motion(v().model, &v().mean, &seconds, &at, ierr);
            kl_kepl_to_cart(v().model, &kMean, &at, out.pos.data(), out.vel.data(), ierr);
            return out;
        },
        [] { return v().motion(v().later); }),
};

// For the record: sharing an id, and the dear way out.
void model_copy_and_drop(benchmark::State &state)
{
    const ModelId model(KL_MODEL_DEFAULT, {});
    for (auto _ : state) {
        ModelId copy(model);
        benchmark::DoNotOptimize(copy);
    }
}
BENCHMARK(model_copy_and_drop)->Name("ModelId copied and dropped");

void failure_thrown_and_caught(benchmark::State &state)
{
    for (auto _ : state) {
        try {
            LibFunc::timeAdd(KL_TIME_UTC, 40000.0, 0.0);
        } catch (const KitError &error) {
            benchmark::DoNotOptimize(error.what());
        }
    }
}
BENCHMARK(failure_thrown_and_caught)->Name("LibFunc::timeAdd, failure thrown and caught");

} // namespace
