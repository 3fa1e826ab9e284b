// Frame changes, bodies, model ids and the geoid.
#include "fuzz_input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    FuzzInput in(data, size);
    FuzzIds ids(in);
    while (!in.empty()) {
        const long ref = in.below(4);
        const double time = in.real();
        double out[9] = {};
        double *const pos_out = &out[0], *const vel_out = &out[3], *const acc_out = &out[6];
        long ierr[1] = {0};
        long status = 0;
        kl_model_id *model_id = in.maybe(&ids.model);
        kl_time_id *time_id = in.maybe(&ids.time);
        switch (in.byte() % 8) {
        case 0:
            status = kl_sun(model_id, time_id, in.maybe(&ref), in.maybe(&time), in.maybe(pos_out), in.maybe(vel_out),
                            in.maybe(ierr));
            expect_finite(status, out);
            break;
        case 1:
            status = kl_moon(model_id, time_id, in.maybe(&ref), in.maybe(&time), in.maybe(pos_out), in.maybe(vel_out),
                             in.maybe(ierr));
            expect_finite(status, out);
            break;
        case 2: {
            const long planet = in.below(9);
            status = kl_planet(model_id, time_id, in.maybe(&planet), in.maybe(&ref), in.maybe(&time), in.maybe(pos_out),
                               in.maybe(vel_out), in.maybe(ierr));
            expect_finite(status, out);
            break;
        }
        case 3: {
            const long mode = in.below(4), from = in.below(12), to = in.below(12);
            const std::array<double, 3> pos = in.reals<3>(), vel = in.reals<3>(), acc = in.reals<3>();
            status =
                kl_change_cart_cs(model_id, time_id, in.maybe(&mode), in.maybe(&from), in.maybe(&to), in.maybe(&ref),
                                  in.maybe(&time), in.maybe(pos.data()), in.maybe(vel.data()), in.maybe(acc.data()),
                                  in.maybe(pos_out), in.maybe(vel_out), in.maybe(acc_out), in.maybe(ierr));
            break;
        }
        case 4: {
            const kl_geoid_input input = {model_id, in.real(), in.real(), in.real(), in.below(32)};
            status = kl_geoid_calc(in.maybe(&input), in.maybe(pos_out), in.maybe(ierr));
            expect_finite(status, out);
            break;
        }
        case 5: {
            const std::array<double, 3> lat = in.reals<3>(), lon = in.reals<3>();
            const long rows = std::min(in.below(4), 3L), columns = std::min(in.below(4), 3L), degree = in.below(16);
            status = kl_geoid_grid(model_id, in.maybe(&degree), in.maybe(lat.data()), in.maybe(&rows),
                                   in.maybe(lon.data()), in.maybe(&columns), in.maybe(&out[0]), in.maybe(ierr));
            expect_finite(status, out);
            break;
        }
        case 6: {
            kl_model_data model;
            kl_model_init_status(model_id);
            kl_model_get_data(model_id, in.maybe(&model));
            break;
        }
        default:
            ids.change(in);
        }
        expect_status(status, ierr);
    }
    return 0;
}
