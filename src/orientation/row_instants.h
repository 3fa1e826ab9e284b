// Instants between the rows of a correlation, as the kernels take them: the common case, without UT1 and the values.
#ifndef KL_SRC_ORIENTATION_ROW_INSTANTS_H
#define KL_SRC_ORIENTATION_ROW_INSTANTS_H

#include "orientation/row_times.h"
#include "time/row_finder.h"

// Of one scale, one after the other.
class RowInstants {
public:
    RowInstants(const Correlation &correlation, long scale)
        : correlation_(correlation), scale_(scale), serves_(scale != KL_TIME_UT1 && cubic_serves(correlation)),
          notes_(correlation.row_pole != nullptr ? 0 : long{kEopNoPole}), finder_(&correlation, scale)
    {
    }

    // What the correlation lacks, at any instant between rows: EopNotes.
    [[nodiscard]] long notes() const { return notes_; }

    // The four rows of an instant. False where a cubic does not serve: orientation_instant() has the answer.
    bool take_rows(double time_days, OrientationInstant *out)
    {
        const kl_time_row *row = serves_ ? finder_.at(time_days) : kNoRow;
        // GPS of another distance from TAI than ever asks for a search of its own.
        if (row == kNoRow || (scale_ == KL_TIME_GPS && row->tai_gps != kTaiMinusGps))
            return false;
        const long first = first_of_four(correlation_, finder_.number());
        out->rows = correlation_.rows + first;
        out->poles = correlation_.row_pole != nullptr ? correlation_.row_pole + first : nullptr;
        out->eop.notes = notes_;
        return true;
    }
    // The row before that instant, on its scale.
    [[nodiscard]] const kl_time_row *row() const { return finder_.row(); }

    // The instant with its rows. False also where it leaves them in TAI, or TT the table of the pole.
    bool at(double time_days, OrientationInstant *out)
    {
        return take_rows(time_days, out)
               && times_between(time_days, scale_, row()->tai_utc, row()[0].tai, row()[1].tai, &out->times);
    }

private:
    const Correlation &correlation_;
    long scale_;
    bool serves_;
    long notes_;
    RowFinder finder_;
};

#endif
