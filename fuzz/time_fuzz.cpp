// Conversions between all time formats, durations, leap second, ids.
#include "fuzz_input.h"

#include <cstdlib>

namespace {

enum Side { kProcessing, kText, kTransport };

// One side of a conversion: its format id and its value.
struct Value {
    long format, ref;
    double days;
    std::string text;
    long fields[KL_TRANSPORT_LENGTH];
};

Value any_value(FuzzInput &in, Side side)
{
    Value value{};
    value.format = in.number();
    if (in.byte() % 4 != 0) { // mostly formats that exist
        constexpr long kTransports[] = {0, 11, 21, 22, 23, 31, 41, 42};
        if (side == kProcessing)
            value.format = KL_PROC;
        else if (side == kText)
            value.format = 10 * (1 + in.byte() % 5) + 1 + in.byte() % 4;
        else
            value.format = kTransports[in.byte() % 8];
    }
    value.ref = in.byte() % 8 == 0 ? in.number() : in.byte() % 4;
    value.days = in.real();
    value.text = in.text(64);
    for (long &field : value.fields)
        field = in.byte() % 2 == 0 ? in.number() : in.bits<std::int32_t>();
    return value;
}

void convert(FuzzInput &in, FuzzIds &ids, Side from, Side to)
{
    const Value a = any_value(in, from);
    const Value b = any_value(in, to);
    kl_time_id *time_id = in.maybe(&ids.time);
    const long *format_in = in.maybe(&a.format);
    const long *ref_in = in.maybe(&a.ref);
    const long *format_out = in.maybe(&b.format);
    const long *ref_out = in.maybe(&b.ref);
    const char *text_in = in.maybe(a.text.c_str());
    const double *days_in = in.maybe(&a.days);
    const long *fields_in = in.maybe(&a.fields[0]);
    char text[KL_TIME_ASCII_LENGTH];
    double days = 0.0;
    long fields[KL_TRANSPORT_LENGTH];
    char *text_out = in.maybe(&text[0]);
    double *days_out = in.maybe(&days);
    long *fields_out = in.maybe(&fields[0]);
    long ierr[2] = {0, 0};
    long status = 0;
    switch (3 * from + to) {
    case 3 * kProcessing + kProcessing:
        status =
            kl_time_processing_to_processing(time_id, format_in, ref_in, days_in, format_out, ref_out, days_out, ierr);
        break;
    case 3 * kProcessing + kText:
        status = kl_time_processing_to_ascii(time_id, format_in, ref_in, days_in, format_out, ref_out, text_out, ierr);
        break;
    case 3 * kProcessing + kTransport:
        status =
            kl_time_processing_to_transport(time_id, format_in, ref_in, days_in, format_out, ref_out, fields_out, ierr);
        break;
    case 3 * kText + kProcessing:
        status = kl_time_ascii_to_processing(time_id, format_in, ref_in, text_in, format_out, ref_out, days_out, ierr);
        break;
    case 3 * kText + kText:
        status = kl_time_ascii_to_ascii(time_id, format_in, ref_in, text_in, format_out, ref_out, text_out, ierr);
        break;
    case 3 * kText + kTransport:
        status = kl_time_ascii_to_transport(time_id, format_in, ref_in, text_in, format_out, ref_out, fields_out, ierr);
        break;
    case 3 * kTransport + kProcessing:
        status =
            kl_time_transport_to_processing(time_id, format_in, ref_in, fields_in, format_out, ref_out, days_out, ierr);
        break;
    case 3 * kTransport + kText:
        status = kl_time_transport_to_ascii(time_id, format_in, ref_in, fields_in, format_out, ref_out, text_out, ierr);
        break;
    default:
        status = kl_time_transport_to_transport(time_id, format_in, ref_in, fields_in, format_out, ref_out, fields_out,
                                                ierr);
        break;
    }
    expect_status(status, ierr[1] < 0 ? &ierr[1] : &ierr[0]);
}

void set_and_get(FuzzInput &in)
{
    kl_time_row rows[3];
    for (kl_time_row &row : rows)
        row = {in.real(), in.real(), in.real(), in.real(), in.real(), in.real()};
    kl_time_id_data data = {};
    data.model = in.number();
    data.combination = in.number();
    data.no_extrapolation = in.number();
    data.second_bulletin_row = in.number();
    data.a = in.real();
    data.b = in.real();
    data.c = in.real();
    data.n_rows = in.byte() % 5 - 1;
    data.n_rows = std::min(data.n_rows, 3L);
    data.rows = in.maybe(&rows[0]);
    kl_time_id id = {nullptr};
    const long status = kl_time_set_id_data(in.maybe(&id), in.maybe(&data));
    if (status != 0 && id.record != nullptr)
        __builtin_trap(); // a refusal builds nothing
    kl_time_id_data out = {};
    if (kl_time_get_id_data(&id, &out) == 0 && kl_time_free_id_data(&out) != 0)
        __builtin_trap();
    kl_time_close(&id, nullptr);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    FuzzInput in(data, size);
    FuzzIds ids(in);
    while (!in.empty()) {
        const std::uint8_t what = in.byte() % 13;
        if (what < 9) {
            convert(in, ids, static_cast<Side>(what / 3), static_cast<Side>(what % 3));
            continue;
        }
        long ierr[1] = {0};
        const long format = in.number();
        const long ref = in.number();
        const double a = in.real();
        const double b = in.real();
        double out = 0.0;
        if (what == 9) {
            expect_status(
                kl_time_add(in.maybe(&format), in.maybe(&ref), in.maybe(&a), in.maybe(&b), in.maybe(&out), ierr), ierr);
        } else if (what == 10) {
            expect_status(
                kl_time_diff(in.maybe(&format), in.maybe(&ref), in.maybe(&a), in.maybe(&b), in.maybe(&out), ierr),
                ierr);
        } else if (what == 11) {
            char before[KL_TIME_ASCII_LENGTH];
            char after[KL_TIME_ASCII_LENGTH];
            long sign = 0;
            expect_status(kl_time_get_leap_second_info(in.maybe(&ids.time), in.maybe(&format), in.maybe(&sign),
                                                       in.maybe(&before[0]), in.maybe(&after[0]), ierr),
                          ierr);
        } else {
            set_and_get(in);
        }
        kl_time_init_status(in.maybe(&ids.time));
        kl_time_get_mode(in.maybe(&ids.time));
        kl_time_get_sat_id(in.maybe(&ids.time));
    }
    return 0;
}
