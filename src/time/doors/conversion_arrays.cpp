// The nine conversions for arrays of instants.
#include "time/doors/conversion.h"
#include "time/row_finder.h"
#include "time/staircase_kernels.h"

#include <algorithm>
#include <type_traits>

namespace {

// One call: the ends, the arrays and the correlation.
template <typename In, typename Out>
struct Columns {
    TimeIdRecord *id;
    End from, to;
    typename In::GivenColumn given;
    typename Out::WrittenColumn written;

    const Correlation *correlation() const { return id != nullptr ? &id->correlation : nullptr; }
};

// The rows of instants that come one after the other, as the kernels take them.
class RowCarrier {
public:
    RowCarrier(const Correlation *correlation, long ref) : correlation_(correlation), finder_(correlation, ref) {}

    [[nodiscard]] bool is_table() const { return finder_.is_table(); }

    // The row, where all these days lie in it and no once-only warning can be due; null elsewhere.
    const RowOfBlock *row_of_all(const double *days, long count)
    {
        if (!move_to(days[0]) || (is_table() && !is_quiet_row()))
            return nullptr;
        int all = 1;
        for (long k = 0; k < count; ++k)
            all &= static_cast<int>(finder_.holds(days[k]));
        row_of_block_ = values();
        return all != 0 ? &row_of_block_ : nullptr;
    }

    // False where the leap second may matter, or outside of the table.
    bool move_to(double days) { return finder_.at(days) != kNoRow; }

    void put(RowBlock *block, long k) const
    {
        const RowOfBlock row = values();
        block->from[k] = row.from;
        block->from_end[k] = row.from_end;
        block->tai[k] = row.tai;
        block->tai_end[k] = row.tai_end;
        block->tai_ut1[k] = row.tai_ut1;
        block->tai_ut1_end[k] = row.tai_ut1_end;
        block->tai_utc[k] = row.tai_utc;
        block->tai_gps[k] = row.tai_gps;
    }

private:
    [[nodiscard]] RowOfBlock values() const
    {
        const kl_time_row &here = finder_.row()[0], &next = finder_.row()[1];
        return {finder_.begin(), finder_.end(), here.tai,     next.tai,
                here.tai_ut1,    next.tai_ut1,  here.tai_utc, here.tai_gps};
    }
    [[nodiscard]] bool is_quiet_row() const
    {
        const QuietSpan &span = correlation_->quiet;
        const bool spans_gap = finder_.begin() <= span.gap_first && finder_.end() >= span.gap_last;
        return is_quiet(span, finder_.begin()) && is_quiet(span, finder_.end())
               && (!spans_gap || span.gap_first == span.gap_last);
    }

    const Correlation *correlation_;
    RowFinder finder_;
    RowOfBlock row_of_block_ = {};
};

struct Block {
    Reading readings[kBlock];
    double days[kBlock]; // of processing times, and about those of others
    MomentBlock moments;
    RowBlock rows;
    double good[kBlock];
};

// Reads the elements of a block; those with a fault are left over. False when they are of several scales.
template <typename In, typename Out>
bool read_block(const Columns<In, Out> &columns, long first, long count, long *ref, Block *block, LeftOver *left)
{
    *ref = KL_TIME_UNDEF;
    for (long k = 0; k < count; ++k) {
        const auto given = columns.given.at(first + k);
        Reading &reading = block->readings[k];
        if (In::read(columns.correlation(), columns.from.format, columns.from.ref, given, &reading)) {
            left->add(k);
            reading.moment = {0.0, 0.0, 0.0};
        } else if (*ref == KL_TIME_UNDEF) {
            *ref = reading.ref;
        } else if (reading.ref != *ref) {
            return false;
        }
        block->days[k] = In::about(given, reading);
        block->moments.days[k] = reading.moment.days;
        block->moments.seconds[k] = reading.moment.seconds;
        block->moments.microseconds[k] = reading.moment.microseconds;
    }
    return true;
}

// Processing times go to moments in packs.
template <typename Out>
bool read_block(const Columns<ProcessingSide, Out> &columns, long first, long count, long *ref, Block *block,
                LeftOver *left)
{
    *ref = columns.from.ref;
    for (long k = 0; k < count; ++k) {
        const double days = columns.given.times[first + k];
        const bool inside = inside_processing_range(days);
        if (!inside)
            left->add(k);
        block->days[k] = inside ? days : 0.0;
        block->readings[k].origin = Origin::processing;
    }
    pad(block->days, count);
    moments_of_times_kernel()(block->days, &block->moments, padded(count));
    return true;
}

// The rows of a block. False where a once-only warning may be due.
bool find_rows(const TimeIdRecord *id, RowCarrier *carrier, long count, Block *block, LeftOver *left)
{
    for (long k = 0; k < count; ++k) {
        if (!left->has(k)) {
            if (carrier->is_table() && !is_quiet(id->correlation.quiet, block->days[k]))
                return false;
            if (!carrier->move_to(block->days[k]))
                left->add(k);
        }
        carrier->put(&block->rows, k);
    }
    return true;
}

// The same where the scale stays: no row is needed.
bool stays_quiet(const TimeIdRecord *id, const RowCarrier &carrier, long count, const Block &block,
                 const LeftOver &left)
{
    int quiet = 1;
    for (long k = 0; k < count && id != nullptr && carrier.is_table(); ++k)
        quiet &= static_cast<int>(is_quiet(id->correlation.quiet, block.days[k]) || left.has(k));
    return quiet != 0;
}

void pad_moments(long count, Block *block)
{
    for (double *column : {block->moments.days, block->moments.seconds, block->moments.microseconds})
        pad(column, count);
}
void pad_rows(long count, Block *block)
{
    for (double *column : {block->rows.from, block->rows.from_end, block->rows.tai, block->rows.tai_end,
                           block->rows.tai_ut1, block->rows.tai_ut1_end, block->rows.tai_utc, block->rows.tai_gps})
        pad(column, count);
}

// Changes the moments of a block; those that the kernels cannot are left over. False where a once-only warning may be
// due.
bool change_block(const TimeIdRecord *id, RowCarrier *carrier, long from, long to, long count, Block *block,
                  LeftOver *left)
{
    if (id != nullptr && carrier->is_table() && !all_inside(id->once_only[KL_FLAGS_CONVERSION]))
        return false;
    pad_moments(count, block);
    if (from == to) {
        if (!stays_quiet(id, *carrier, count, *block, *left))
            return false;
        for (long k = 0; k < count; ++k)
            block->good[k] = one_where(block->moments.seconds[k] < 86400.0);
    } else if (const RowOfBlock *row = carrier->row_of_all(block->days, count)) {
        change_moments_in_row_kernel()(row, from, to, &block->moments, block->good, padded(count));
    } else {
        if (!find_rows(id, carrier, count, block, left))
            return false;
        pad_rows(count, block);
        change_moments_kernel()(&block->rows, from, to, &block->moments, block->good, padded(count));
    }
    int all_good = 1;
    for (long k = 0; k < count; ++k)
        all_good &= static_cast<int>(block->good[k] != 0.0);
    for (long k = 0; k < count && all_good == 0; ++k)
        if (block->good[k] == 0.0)
            left->add(k);
    return true;
}

// Writes the elements that are not left over.
template <typename In, typename Out>
void write_block(const Columns<In, Out> &columns, long first, long count, Block *block, LeftOver *left)
{
    for (long k = 0; k < count; ++k) {
        if (left->has(k))
            continue;
        Reading &reading = block->readings[k];
        reading.moment = {block->moments.days[k], block->moments.seconds[k], block->moments.microseconds[k]};
        if (Out::write(columns.to.format, columns.to.ref, reading, columns.written.at(first + k)))
            left->add(k);
    }
}

template <typename In>
void write_block(const Columns<In, ProcessingSide> &columns, long first, long count, Block *block, LeftOver *left)
{
    times_of_moments_kernel()(&block->moments, block->days, padded(count));
    if (!left->any())
        std::copy(block->days, block->days + count, columns.written.times + first);
    else
        for (long k = 0; k < count; ++k)
            if (!left->has(k))
                columns.written.times[first + k] = block->days[k];
}

template <typename In, typename Out>
bool convert_block(const Columns<In, Out> &columns, RowCarrier *carrier, long first, long count, LeftOver *left)
{
    Block block; // 10 kB that stay in the first-level cache
    long ref = KL_TIME_UNDEF;
    if (!read_block(columns, first, count, &ref, &block, left))
        return false;
    if (ref == KL_TIME_UNDEF) // nothing that could be read
        return true;
    if (ref != columns.from.ref) // prefixes, while the carrier has the columns of another scale
        return false;
    if (!change_block(columns.id, carrier, ref, columns.to.ref, count, &block, left))
        return false;
    write_block(columns, first, count, &block, left);
    return true;
}

template <typename In, typename Out>
long convert_all(ArrayCall &array, int function_id, kl_time_id *time_id, const End &from,
                 const typename In::GivenColumn &given, const End &to, const typename Out::WrittenColumn &written,
                 int text_range = kNoTextRange, int n_words = 1)
{
    if (array.nothing())
        return array.result();
    const Columns<In, Out> columns = {time_record_of(time_id), from, to, given, written};
    const auto fail = [&](long i) { written.clear(i); };
    Reading none;
    Fault fault = In::check_in(from.format, from.ref);
    if (!fault && given.is_missing())
        fault = In::read(columns.correlation(), from.format, from.ref, In::kNoneGiven, &none);
    if (fault) {
        refuse(array.call(), In::kCheckIn, fault, In::kIn[fault.code]);
        return array.refuse(fail);
    }
    fault = Out::check_out(to.format, to.ref);
    if (fault) {
        refuse(array.call(), Out::kCheckOut, fault, Out::kOut[fault.code]);
        return array.refuse(fail);
    }
    if (written.is_missing(to.format))
        return array.refuse(fail);
    constexpr bool kOwnScales = std::is_same_v<In, TypedTextSide>; // whatever the caller gives
    const bool no_way = is_time_ref(from.ref) && from.ref != to.ref && is_empty(columns.correlation());
    if (no_way && !kOwnScales) {
        take(array.call(), change_scale(nullptr, nullptr, from.ref, to.ref, 0.0, none.moment).findings);
        return array.refuse(fail);
    }

    const auto one = [&](long i, long *words) {
        Activation call(function_id, words, n_words);
        return convert<In, Out>(call, time_id, from, given.at(i), to, written.at(i), text_range);
    };
    // A prefix may bring its scale when the caller gives none: then the elements are taken one by one.
    if (!is_time_ref(from.ref) || no_way)
        return array.each(one, fail);
    RowCarrier carrier(columns.correlation(), from.ref);
    return array.each(one, fail, [&](long first, long count, LeftOver &left) {
        return convert_block(columns, &carrier, first, count, &left);
    });
}

} // namespace

long kl_time_processing_to_processing_n(kl_time_id *time_id, const long *n, const long *proc_id_in,
                                        const long *time_ref_in, const double *time_in, const long *proc_id_out,
                                        const long *time_ref_out, double *time_out, long *status, long *ierr)
{
    ArrayCall array(KL_FN_TIME_PROCESSING_TO_PROCESSING, n, status, ierr);
    return convert_all<ProcessingSide, ProcessingSide>(array, KL_FN_TIME_PROCESSING_TO_PROCESSING, time_id,
                                                       {proc_id_in, time_ref_in}, {time_in},
                                                       {proc_id_out, time_ref_out}, {time_out});
}

long kl_time_processing_to_ascii_n(kl_time_id *time_id, const long *n, const long *proc_id_in, const long *time_ref_in,
                                   const double *time_in, const long *ascii_id_out, const long *time_ref_out,
                                   const long *width, char *ascii_out, long *status, long *ierr)
{
    ArrayCall array(KL_FN_TIME_PROCESSING_TO_ASCII, n, status, ierr);
    return convert_all<ProcessingSide, TextSide>(array, KL_FN_TIME_PROCESSING_TO_ASCII, time_id,
                                                 {proc_id_in, time_ref_in}, {time_in}, {ascii_id_out, time_ref_out},
                                                 {ascii_out, value_or(width, 0)}, kProcessingTextRange);
}

long kl_time_processing_to_transport_n(kl_time_id *time_id, const long *n, const long *proc_id_in,
                                       const long *time_ref_in, const double *time_in, const long *trans_id_out,
                                       const long *time_ref_out, long transport_out[][4], long *status, long *ierr)
{
    ArrayCall array(KL_FN_TIME_PROCESSING_TO_TRANSPORT, n, status, ierr);
    return convert_all<ProcessingSide, TransportSide>(array, KL_FN_TIME_PROCESSING_TO_TRANSPORT, time_id,
                                                      {proc_id_in, time_ref_in}, {time_in},
                                                      {trans_id_out, time_ref_out}, {transport_out});
}

long kl_time_ascii_to_processing_n(kl_time_id *time_id, const long *n, const long *ascii_id_in, const long *time_ref_in,
                                   const long *width, const char *ascii_in, const long *proc_id_out,
                                   const long *time_ref_out, double *time_out, long *status, long *ierr)
{
    ArrayCall array(KL_FN_TIME_ASCII_TO_PROCESSING, n, status, ierr);
    return convert_all<TextSide, ProcessingSide>(array, KL_FN_TIME_ASCII_TO_PROCESSING, time_id,
                                                 {ascii_id_in, time_ref_in}, {ascii_in, value_or(width, 0)},
                                                 {proc_id_out, time_ref_out}, {time_out});
}

long kl_time_text_to_processing_n(kl_time_id *time_id, const long *n, const long *width, const char *text,
                                  const long *time_ref_default, const long *proc_id_out, const long *time_ref_out,
                                  double *time_out, long *status, long *ierr)
{
    ArrayCall array(KL_FN_TIME_ASCII_TO_PROCESSING, n, status, ierr);
    return convert_all<TypedTextSide, ProcessingSide>(array, KL_FN_TIME_ASCII_TO_PROCESSING, time_id,
                                                      {kOwnLayout, time_ref_default}, {text, value_or(width, 0)},
                                                      {proc_id_out, time_ref_out}, {time_out});
}

long kl_time_ascii_to_ascii_n(kl_time_id *time_id, const long *n, const long *ascii_id_in, const long *time_ref_in,
                              const long *ascii_in_width, const char *ascii_in, const long *ascii_id_out,
                              const long *time_ref_out, const long *ascii_out_width, char *ascii_out, long *status,
                              long ierr[2])
{
    ArrayCall array(KL_FN_TIME_ASCII_TO_ASCII, n, status, ierr, 2);
    return convert_all<TextSide, TextSide>(array, KL_FN_TIME_ASCII_TO_ASCII, time_id, {ascii_id_in, time_ref_in},
                                           {ascii_in, value_or(ascii_in_width, 0)}, {ascii_id_out, time_ref_out},
                                           {ascii_out, value_or(ascii_out_width, 0)}, kAsciiTextRange, 2);
}

long kl_time_ascii_to_transport_n(kl_time_id *time_id, const long *n, const long *ascii_id_in, const long *time_ref_in,
                                  const long *width, const char *ascii_in, const long *trans_id_out,
                                  const long *time_ref_out, long transport_out[][4], long *status, long *ierr)
{
    ArrayCall array(KL_FN_TIME_ASCII_TO_TRANSPORT, n, status, ierr);
    return convert_all<TextSide, TransportSide>(array, KL_FN_TIME_ASCII_TO_TRANSPORT, time_id,
                                                {ascii_id_in, time_ref_in}, {ascii_in, value_or(width, 0)},
                                                {trans_id_out, time_ref_out}, {transport_out});
}

long kl_time_transport_to_processing_n(kl_time_id *time_id, const long *n, const long *trans_id_in,
                                       const long *time_ref_in, const long transport_in[][4], const long *proc_id_out,
                                       const long *time_ref_out, double *time_out, long *status, long *ierr)
{
    ArrayCall array(KL_FN_TIME_TRANSPORT_TO_PROCESSING, n, status, ierr);
    return convert_all<TransportSide, ProcessingSide>(array, KL_FN_TIME_TRANSPORT_TO_PROCESSING, time_id,
                                                      {trans_id_in, time_ref_in}, {transport_in},
                                                      {proc_id_out, time_ref_out}, {time_out});
}

long kl_time_transport_to_ascii_n(kl_time_id *time_id, const long *n, const long *trans_id_in, const long *time_ref_in,
                                  const long transport_in[][4], const long *ascii_id_out, const long *time_ref_out,
                                  const long *width, char *ascii_out, long *status, long *ierr)
{
    ArrayCall array(KL_FN_TIME_TRANSPORT_TO_ASCII, n, status, ierr);
    return convert_all<TransportSide, TextSide>(
        array, KL_FN_TIME_TRANSPORT_TO_ASCII, time_id, {trans_id_in, time_ref_in}, {transport_in},
        {ascii_id_out, time_ref_out}, {ascii_out, value_or(width, 0)}, kTransportTextRange);
}

long kl_time_transport_to_transport_n(kl_time_id *time_id, const long *n, const long *trans_id_in,
                                      const long *time_ref_in, const long transport_in[][4], const long *trans_id_out,
                                      const long *time_ref_out, long transport_out[][4], long *status, long *ierr)
{
    ArrayCall array(KL_FN_TIME_TRANSPORT_TO_TRANSPORT, n, status, ierr);
    return convert_all<TransportSide, TransportSide>(array, KL_FN_TIME_TRANSPORT_TO_TRANSPORT, time_id,
                                                     {trans_id_in, time_ref_in}, {transport_in},
                                                     {trans_id_out, time_ref_out}, {transport_out});
}
