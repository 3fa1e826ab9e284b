// On-board clocks and CUC.
#include "fuzz_input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    FuzzInput in(data, size);
    FuzzIds ids(in);
    constexpr long kClocks[] = {21, 51, 61, 71};
    while (!in.empty()) {
        const long sat_id = in.byte() % 4 == 0 ? in.number() : kClocks[in.byte() % 4];
        const long ref = in.byte() % 8 == 0 ? in.number() : in.byte() % 4;
        ClockRecord parameters = clock_record(in), obt = clock_record(in);
        if (in.byte() % 8 != 0)
            parameters.sat_id = obt.sat_id = sat_id;
        double time = in.real();
        long ierr[1] = {0};
        switch (in.byte() % 4) {
        case 0:
            expect_status(kl_time_obt_to_time(in.maybe(&sat_id), in.maybe(&ref), in.maybe(&parameters), in.maybe(&obt),
                                              in.maybe(&time), ierr),
                          ierr);
            break;
        case 1:
            expect_status(kl_time_time_to_obt(in.maybe(&sat_id), in.maybe(&ref), in.maybe(&parameters), in.maybe(&time),
                                              in.maybe(&obt), ierr),
                          ierr);
            break;
        default: {
            kl_cuc_config config = {in.byte() % 3, in.byte() % 4, in.number(),
                                    in.real(),     in.byte() % 9, in.byte() % 12};
            if (in.byte() % 8 == 0)
                config.n_coarse = in.number();
            unsigned char cuc[KL_CUC_LENGTH];
            for (unsigned char &octet : cuc)
                octet = in.byte();
            if (in.byte() % 2 == 0)
                expect_status(kl_time_cuc_to_processing(in.maybe(&ids.time), in.maybe(&config), in.maybe(&ref),
                                                        in.maybe(&cuc[0]), in.maybe(&time), ierr),
                              ierr);
            else
                expect_status(kl_time_processing_to_cuc(in.maybe(&ids.time), in.maybe(&config), in.maybe(&ref),
                                                        in.maybe(&time), in.maybe(&cuc[0]), ierr),
                              ierr);
        }
        }
    }
    return 0;
}
