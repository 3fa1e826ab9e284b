// Frame changes, bodies, model ids and the geoid.
#include "fuzz_input.h"

#include <cmath>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    FuzzInput in(data, size);
    FuzzIds ids(in);
    while (!in.empty()) {
        const long ref = in.byte() % 8 == 0 ? in.number() : in.byte() % 4;
        const double time = in.real();
        double out[3][3];
        long ierr[1] = {0};
        kl_model_id *model_id = in.maybe(&ids.model);
        kl_time_id *time_id = in.maybe(&ids.time);
        switch (in.byte() % 7) {
        case 0:
            expect_status(kl_sun(model_id, time_id, in.maybe(&ref), in.maybe(&time), in.maybe(&out[0][0]),
                                 in.maybe(&out[1][0]), ierr),
                          ierr);
            break;
        case 1:
            expect_status(kl_moon(model_id, time_id, in.maybe(&ref), in.maybe(&time), in.maybe(&out[0][0]),
                                  in.maybe(&out[1][0]), ierr),
                          ierr);
            break;
        case 2: {
            const long planet = in.number();
            expect_status(kl_planet(model_id, time_id, in.maybe(&planet), in.maybe(&ref), in.maybe(&time),
                                    in.maybe(&out[0][0]), in.maybe(&out[1][0]), ierr),
                          ierr);
            break;
        }
        case 3: {
            const long mode = in.byte() % 5;
            const long from = in.byte() % 8 == 0 ? in.number() : in.byte() % 14;
            const long to = in.byte() % 8 == 0 ? in.number() : in.byte() % 14;
            const std::array<double, 3> pos = in.reals<3>();
            const std::array<double, 3> vel = in.reals<3>();
            const std::array<double, 3> acc = in.reals<3>();
            expect_status(kl_change_cart_cs(model_id, time_id, in.maybe(&mode), in.maybe(&from), in.maybe(&to),
                                            in.maybe(&ref), in.maybe(&time), in.maybe(pos.data()), in.maybe(vel.data()),
                                            in.maybe(acc.data()), in.maybe(&out[0][0]), in.maybe(&out[1][0]),
                                            in.maybe(&out[2][0]), ierr),
                          ierr);
            break;
        }
        case 4: {
            kl_geoid_input input = {model_id, in.real(), in.real(), in.real(),
                                    in.byte() % 8 == 0 ? in.number() : in.byte() % 32};
            double undulation = 0.0;
            const long status = kl_geoid_calc(in.maybe(&input), in.maybe(&undulation), ierr);
            expect_status(status, ierr);
            if (status == KL_OK && !std::isfinite(undulation))
                __builtin_trap();
            break;
        }
        case 5: {
            const std::array<double, 3> lat = in.reals<3>();
            const std::array<double, 3> lon = in.reals<3>();
            const long n_lat = in.byte() % 5 - 1L;
            const long n_lon = in.byte() % 5 - 1L;
            const long rows = std::min(n_lat, 3L);
            const long columns = std::min(n_lon, 3L);
            const long degree = in.byte() % 8 == 0 ? in.number() : in.byte() % 16;
            double values[9];
            expect_status(kl_geoid_grid(model_id, in.maybe(&degree), in.maybe(lat.data()), in.maybe(&rows),
                                        in.maybe(lon.data()), in.maybe(&columns), in.maybe(&values[0]), ierr),
                          ierr);
            break;
        }
        default: {
            kl_model_data model;
            kl_model_get_data(model_id, in.maybe(&model));
            kl_model_init_status(model_id);
            long mode = in.number();
            expect_status(kl_model_init(in.maybe(&mode), nullptr, model_id, ierr), ierr);
        }
        }
    }
    return 0;
}
