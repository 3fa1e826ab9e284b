// On-board clocks and CUC.
#include "fuzz_input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    FuzzInput in(data, size);
    FuzzIds ids(in);
    while (!in.empty()) {
        const long ref = in.below(4);
        double time = in.real();
        long ierr[1] = {0};
        const std::uint8_t what = in.byte() % 5;
        if (what < 2) {
            const long sat_id = satellite(in);
            ClockRecord parameters = clock_record(in), obt = clock_record(in);
            if (in.byte() % 8 != 0)
                parameters.sat_id = obt.sat_id = sat_id;
            if (what == 0)
                expect_status(kl_time_obt_to_time(in.maybe(&sat_id), in.maybe(&ref), in.maybe(&parameters),
                                                  in.maybe(&obt), in.maybe(&time), in.maybe(ierr)),
                              ierr);
            else
                expect_status(kl_time_time_to_obt(in.maybe(&sat_id), in.maybe(&ref), in.maybe(&parameters),
                                                  in.maybe(&time), in.maybe(&obt), in.maybe(ierr)),
                              ierr);
        } else if (what < 4) {
            kl_cuc_config config = {in.below(2), in.below(3), in.below(4), in.real(), in.below(9), in.below(12)};
            unsigned char cuc[KL_CUC_LENGTH];
            for (unsigned char &octet : cuc)
                octet = in.byte();
            if (what == 2)
                expect_status(kl_time_cuc_to_processing(in.maybe(&ids.time), in.maybe(&config), in.maybe(&ref),
                                                        in.maybe(&cuc[0]), in.maybe(&time), in.maybe(ierr)),
                              ierr);
            else
                expect_status(kl_time_processing_to_cuc(in.maybe(&ids.time), in.maybe(&config), in.maybe(&ref),
                                                        in.maybe(&time), in.maybe(&cuc[0]), in.maybe(ierr)),
                              ierr);
        } else {
            ids.change(in);
        }
    }
    return 0;
}
