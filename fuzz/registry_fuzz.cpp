// Satellites, runs with their twins, and the decoding of error vectors.
#include "fuzz_conversions.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sys/mman.h>
#include <unistd.h>

namespace {

constexpr Conversions<const long> kConversions = {
    kl_time_processing_to_processing_run, kl_time_processing_to_ascii_run, kl_time_processing_to_transport_run,
    kl_time_ascii_to_processing_run,      kl_time_ascii_to_ascii_run,      kl_time_ascii_to_transport_run,
    kl_time_transport_to_processing_run,  kl_time_transport_to_ascii_run,  kl_time_transport_to_transport_run,
};

void use_run(FuzzInput &in, const long *run_id)
{
    const long *run = in.maybe(run_id);
    const long ref = in.below(4);
    double time = in.real();
    double pos[3], vel[3], acc[3];
    long ierr[1] = {0};
    long status = 0;
    switch (in.byte() % 8) {
    case 0:
        status = kl_sun_run(run, in.maybe(&ref), in.maybe(&time), in.maybe(pos), in.maybe(vel), in.maybe(ierr));
        break;
    case 1:
        status = kl_moon_run(run, in.maybe(&ref), in.maybe(&time), in.maybe(pos), in.maybe(vel), in.maybe(ierr));
        break;
    case 2: {
        const long planet = in.below(9);
        status = kl_planet_run(run, in.maybe(&planet), in.maybe(&ref), in.maybe(&time), in.maybe(pos), in.maybe(vel),
                               in.maybe(ierr));
        break;
    }
    case 3: {
        const long mode = in.below(4), from = in.below(12), to = in.below(12);
        const std::array<double, 3> p = in.reals<3>(), v = in.reals<3>(), a = in.reals<3>();
        status = kl_change_cart_cs_run(run, in.maybe(&mode), in.maybe(&from), in.maybe(&to), in.maybe(&ref),
                                       in.maybe(&time), in.maybe(p.data()), in.maybe(v.data()), in.maybe(a.data()),
                                       in.maybe(pos), in.maybe(vel), in.maybe(acc), in.maybe(ierr));
        break;
    }
    case 4: {
        const long format = ascii_format(in);
        char before[KL_TIME_ASCII_LENGTH];
        char after[KL_TIME_ASCII_LENGTH];
        long sign = 0;
        status = kl_time_get_leap_second_info_run(run, in.maybe(&format), in.maybe(&sign), in.maybe(before),
                                                  in.maybe(after), in.maybe(ierr));
        break;
    }
    case 5:
    case 6: {
        ClockRecord parameters = clock_record(in), obt = clock_record(in);
        if (in.byte() % 8 != 0)
            parameters.sat_id = obt.sat_id = satellite(in);
        if (in.byte() % 2 == 0)
            status = kl_time_obt_to_time_run(run, in.maybe(&ref), in.maybe(&parameters), in.maybe(&obt),
                                             in.maybe(&time), in.maybe(ierr));
        else
            status = kl_time_time_to_obt_run(run, in.maybe(&ref), in.maybe(&parameters), in.maybe(&time),
                                             in.maybe(&obt), in.maybe(ierr));
        break;
    }
    default:
        convert(in, kConversions, run_id);
    }
    expect_status(status, ierr);
}

// Any bytes, or the example with stretches of it replaced.
std::string satellite_file(FuzzInput &in)
{
    static const std::string example = [] {
        std::ifstream file(KL_FUZZ_SATELLITE_FILE);
        return std::string(std::istreambuf_iterator<char>(file), {});
    }();
    if (example.empty())
        std::abort();
    std::string text = example;
    if (in.byte() % 4 == 0)
        text = in.text(255);
    while (in.byte() % 4 != 0 && !text.empty()) {
        const std::size_t at = in.bits<std::uint16_t>() % text.size();
        const std::size_t n = in.byte();
        text.replace(at, n, in.text(255));
    }
    return text;
}

void init_default_satellite(FuzzInput &in, long *sat_id)
{
    long ierr[1] = {0};
    if (in.byte() % 4 == 0) {
        const std::string name = in.text(20);
        expect_status(kl_default_sat_init(in.maybe(sat_id), in.maybe(name.c_str()), in.maybe(ierr)), ierr);
        return;
    }
    const std::string text = satellite_file(in);
    const int file = memfd_create("satellite", 0);
    if (file < 0 || write(file, text.data(), text.size()) != static_cast<ssize_t>(text.size()))
        std::abort();
    const std::string name = "/proc/self/fd/" + std::to_string(file);
    expect_status(kl_default_sat_init(in.maybe(sat_id), name.c_str(), in.maybe(ierr)), ierr);
    close(file);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    FuzzInput in(data, size);
    FuzzIds ids(in);
    static char messages[KL_MAX_MSG][KL_MSG_LENGTH];
    while (!in.empty()) {
        long id = in.byte() % 2 == 0 ? in.byte() % 24 : in.number();
        switch (in.byte() % 13) {
        case 0: {
            const long sat_id = satellite(in);
            for (int n = in.byte() % 8 == 0 ? 21 : 1; n > 0; --n) { // there are 20 runs
                long ierr[1] = {0};
                expect_status(kl_run_init(in.maybe(&sat_id), in.maybe(&ids.time), in.maybe(&ids.model), in.maybe(&id),
                                          in.maybe(ierr)),
                              ierr);
            }
            break;
        }
        case 1:
            kl_run_close(in.maybe(&id));
            break;
        case 2: {
            const long kind = in.number();
            long sat_id = 0;
            kl_time_id time = {nullptr};
            kl_model_id model = {nullptr};
            kl_run_init_status(in.maybe(&id));
            kl_run_id_status(in.maybe(&id), in.maybe(&kind));
            kl_run_get_ids(in.maybe(&id), in.maybe(&sat_id), in.maybe(&time), in.maybe(&model));
            break;
        }
        case 3:
            use_run(in, &id);
            break;
        case 4:
            for (int n = in.byte() % 8 == 0 ? 11 : 1; n > 0; --n) // there are 10
                init_default_satellite(in, &id);
            break;
        case 5:
            kl_default_sat_close(in.maybe(&id));
            break;
        case 6: {
            const long number = in.bits<long>();
            const std::string name = in.text(40);
            const std::string designator = in.text(20);
            kl_set_tle_sat_data(in.maybe(&id), in.maybe(&number), in.maybe(name.c_str()), in.maybe(designator.c_str()));
            kl_set_sp3_sat_data(id, in.maybe(name.c_str()));
            break;
        }
        case 7: {
            const long vector[2] = {in.bits<long>(), in.bits<long>()};
            long n = 0;
            long codes[KL_MAX_CODES];
            kl_get_code(in.maybe(&id), in.maybe(&vector[0]), in.maybe(&n), in.maybe(&codes[0]));
            break;
        }
        case 8: {
            const long n = in.number();
            std::string text = in.text(255);
            text.resize(KL_MSG_LENGTH, static_cast<char>(in.byte())); // mostly without a terminator
            text.copy(messages[0], KL_MSG_LENGTH);
            kl_print_msg(in.maybe(&n), in.maybe(&messages[0]));
            break;
        }
        case 9: {
            void *array = in.byte() % 2 == 0 ? std::malloc(8) : nullptr;
            kl_free_array(in.maybe(&array));
            kl_free_array(&array);
            break;
        }
        case 10:
            in.byte() % 16 == 0 ? kl_verbose() : kl_silent();
            if (in.byte() % 64 == 0) // it prints a page
                kl_check_library_version();
            break;
        case 11:
            ids.change(in);
            break;
        default: {
            const long vector[2] = {in.bits<long>(), in.bits<long>()};
            long n = 0;
            kl_get_msg(in.maybe(&id), in.maybe(&vector[0]), in.maybe(&n), in.maybe(&messages[0]));
        }
        }
    }
    kl_silent();
    for (long run = 0; run < 20; ++run)
        kl_run_close(&run);
    for (long sat = 0; sat < 10; ++sat)
        kl_default_sat_close(&sat);
    return 0;
}
