// Instants between the rows of a correlation, as the kernels take them: the common case, without UT1 and the values.
#ifndef KL_SRC_ORIENTATION_ROW_INSTANTS_H
#define KL_SRC_ORIENTATION_ROW_INSTANTS_H

#include "orientation/celestial_pole.h"
#include "orientation/orientation.h"
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

    // False where a cubic through four rows does not serve, or TT leaves the table of the pole: orientation_instant()
    // has the answer.
    bool at(double time_days, OrientationInstant *out)
    {
        const kl_time_row *row = serves_ ? finder_.at(time_days) : kNoRow;
        if (row == kNoRow)
            return false;
        const double day = static_cast<double>(whole_days(time_days));
        const double fraction = (time_days - day) + to_tai(*row) / kSecondsPerDay;
        const double tai = day + fraction;
        const double tt = fraction + kTtMinusTai / kSecondsPerDay;
        const double carry = static_cast<double>(whole_days(tt));
        out->tai_day = day;
        out->tai_fraction = fraction;
        out->tt_day = day + carry;
        out->tt_fraction = tt - carry;
        const long first = first_of_four(correlation_, finder_.number());
        out->rows = correlation_.rows + first;
        out->poles = correlation_.row_pole != nullptr ? correlation_.row_pole + first : nullptr;
        out->eop.notes = notes_;
        // GPS of another distance than ever asks for a search of its own.
        return tai >= row[0].tai && tai < row[1].tai && inside_pole_table(out->tt_day)
               && (scale_ != KL_TIME_GPS || row->tai_gps == kTaiMinusGps);
    }

private:
    [[nodiscard]] double to_tai(const kl_time_row &row) const // s
    {
        return scale_ == KL_TIME_UTC ? row.tai_utc : scale_ == KL_TIME_GPS ? row.tai_gps : 0.0;
    }

    const Correlation &correlation_;
    long scale_;
    bool serves_;
    long notes_;
    RowFinder finder_;
};

#endif
