// Texts of times as people write them: any octets, and written texts with some of them changed.
#include "fuzz_conversions.h"

#include <memory>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    FuzzInput in(data, size);
    FuzzIds ids(in);
    while (!in.empty()) {
        const long format = ascii_format(in), ref = in.below(4), processing = processing_format(in);
        const long ref_default = in.byte() % 4 == 0 ? long{KL_TIME_UNDEF} : in.below(4), ref_out = in.below(4);
        const std::string text = any_ascii(in, format, ref);
        double days = 7.0;
        long ierr[1] = {0};
        const long status =
            kl_time_text_to_processing(in.maybe(&ids.time), in.maybe(text.c_str()), in.maybe(&ref_default),
                                       in.maybe(&processing), in.maybe(&ref_out), in.maybe(&days), in.maybe(ierr));
        expect_status(status, ierr);
        if (status == KL_ERR ? days != 7.0 : !std::isfinite(days))
            __builtin_trap();

        // Cells side by side, with nothing behind the last one.
        const long width = 1 + in.byte() % 48;
        const std::string cells = text.substr(0, text.size() - text.size() % static_cast<std::size_t>(width));
        const long n = static_cast<long>(cells.size()) / width;
        double times[64];
        long statuses[64];
        const std::unique_ptr<char[]> exact(new char[cells.size()]);
        std::copy(cells.begin(), cells.end(), exact.get());
        kl_time_text_to_processing_n(&ids.time, &n, &width, exact.get(), &ref_default, &processing, &ref_out, times,
                                     statuses, ierr);
    }
    return 0;
}
