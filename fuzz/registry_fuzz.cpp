// Satellites, runs with their twins, and the decoding of error vectors.
#include "fuzz_input.h"

namespace {

void use_run(FuzzInput &in, const long *run)
{
    const long ref = in.byte() % 4;
    const long format = in.byte() % 2 == 0 ? KL_PROC : in.number();
    const double time = in.real();
    double days = 0.0;
    double pos[3];
    double vel[3];
    double acc[3] = {0.0, 0.0, 0.0};
    char text[KL_TIME_ASCII_LENGTH];
    long fields[KL_TRANSPORT_LENGTH] = {in.number(), in.number(), in.number(), in.number()};
    long ierr[2] = {0, 0};
    const long other = in.number();
    switch (in.byte() % 10) {
    case 0:
        kl_sun_run(run, &ref, &time, pos, vel, ierr);
        break;
    case 1:
        kl_moon_run(run, &ref, &time, pos, vel, ierr);
        break;
    case 2:
        kl_planet_run(run, &other, &ref, &time, pos, vel, ierr);
        break;
    case 3: {
        const long mode = 3;
        const long from = KL_GM2000;
        const double state[3] = {7.0e6, 0.0, 0.0};
        kl_change_cart_cs_run(run, &mode, &from, &other, &ref, &time, state, state, state, pos, vel, acc, ierr);
        break;
    }
    case 4:
        kl_time_processing_to_processing_run(run, &format, &ref, &time, &format, &other, &days, ierr);
        break;
    case 5:
        kl_time_processing_to_ascii_run(run, &format, &ref, &time, &other, &ref, text, ierr);
        break;
    case 6:
        kl_time_transport_to_processing_run(run, &other, &ref, fields, &format, &ref, &days, ierr);
        break;
    case 7: {
        char after[KL_TIME_ASCII_LENGTH];
        long sign = 0;
        kl_time_get_leap_second_info_run(run, &other, &sign, text, after, ierr);
        break;
    }
    case 8: {
        const kl_obt_param_vardo parameters = {in.number(), in.number()};
        const kl_obt_vardo obt = {parameters.sat_id, in.bits<unsigned long>(), in.bits<unsigned long>()};
        kl_time_obt_to_time_run(run, &ref, &parameters, &obt, &days, ierr);
        break;
    }
    default: {
        const kl_obt_param_vardo parameters = {in.number(), in.number()};
        kl_obt_vardo obt = {parameters.sat_id, 0, 0};
        kl_time_time_to_obt_run(run, &ref, &parameters, &time, &obt, ierr);
    }
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    FuzzInput in(data, size);
    FuzzIds ids(in);
    static char messages[KL_MAX_MSG][512];
    while (!in.empty()) {
        long id = in.byte() % 2 == 0 ? in.byte() % 24 : in.number();
        long ierr[2] = {in.bits<long>(), in.bits<long>()};
        switch (in.byte() % 9) {
        case 0: {
            const long sat_id = in.byte() % 2 == 0 ? 200 : in.number();
            expect_status(
                kl_run_init(in.maybe(&sat_id), in.maybe(&ids.time), in.maybe(&ids.model), in.maybe(&id), ierr), ierr);
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
            expect_status(kl_default_sat_init(in.maybe(&id), in.byte() % 2 == 0 ? "" : "no such file", ierr), ierr);
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
            long n = 0;
            long codes[KL_MAX_CODES];
            kl_get_code(in.maybe(&id), in.maybe(&ierr[0]), in.maybe(&n), in.maybe(&codes[0]));
            break;
        }
        default: {
            long n = 0;
            kl_get_msg(in.maybe(&id), in.maybe(&ierr[0]), in.maybe(&n), messages);
        }
        }
    }
    for (long run = 0; run < 20; ++run)
        kl_run_close(&run);
    for (long sat = 0; sat < 10; ++sat)
        kl_default_sat_close(&sat);
    return 0;
}
