// Conversions between all time formats, durations, leap second, time ids.
#include "fuzz_conversions.h"

namespace {

constexpr Conversions<kl_time_id> kConversions = {
    kl_time_processing_to_processing, kl_time_processing_to_ascii, kl_time_processing_to_transport,
    kl_time_ascii_to_processing,      kl_time_ascii_to_ascii,      kl_time_ascii_to_transport,
    kl_time_transport_to_processing,  kl_time_transport_to_ascii,  kl_time_transport_to_transport,
};

void get_and_set_again(FuzzInput &in, FuzzIds &ids)
{
    kl_time_id_data data = {};
    if (kl_time_get_id_data(in.maybe(&ids.time), in.maybe(&data)) == 0) {
        kl_time_id other = {nullptr};
        if (kl_time_set_id_data(&other, &data) != 0)
            __builtin_trap(); // what it returns can be set again
        kl_time_close(&other, nullptr);
    }
    kl_time_free_id_data(in.maybe(&data));
    kl_time_free_id_data(&data);
    if (data.rows != nullptr)
        __builtin_trap();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    FuzzInput in(data, size);
    FuzzIds ids(in);
    while (!in.empty()) {
        long ierr[1] = {0};
        const std::uint8_t what = in.byte() % 12;
        if (what < 2) {
            const long format = processing_format(in);
            const long ref = in.below(4);
            const double a = in.real();
            const double b = in.real();
            double out = 0.0;
            const auto function = what == 0 ? kl_time_add : kl_time_diff;
            expect_status(
                function(in.maybe(&format), in.maybe(&ref), in.maybe(&a), in.maybe(&b), in.maybe(&out), in.maybe(ierr)),
                ierr);
        } else if (what == 2) {
            const long format = ascii_format(in);
            char before[KL_TIME_ASCII_LENGTH];
            char after[KL_TIME_ASCII_LENGTH];
            long sign = 0;
            expect_status(kl_time_get_leap_second_info(in.maybe(&ids.time), in.maybe(&format), in.maybe(&sign),
                                                       in.maybe(&before[0]), in.maybe(&after[0]), in.maybe(ierr)),
                          ierr);
        } else if (what == 3) {
            kl_time_init_status(in.maybe(&ids.time));
            kl_time_get_mode(in.maybe(&ids.time));
            kl_time_get_sat_id(in.maybe(&ids.time));
            get_and_set_again(in, ids);
        } else if (what == 4) {
            ids.change(in);
        } else {
            convert(in, kConversions, &ids.time);
        }
    }
    return 0;
}
