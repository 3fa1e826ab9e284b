// The pole of the Earth that a correlation holds.
#ifndef KL_SRC_TIME_POLE_H
#define KL_SRC_TIME_POLE_H

#include "time/correlation.h"

struct Pole {
    double x, y;           // rad
    double x_rate, y_rate; // rad/s
};

// Inside the table on the straight line between two rows; after it by the formula of the bulletin, if there is one,
// else that of the last row; before it that of the first. Rows without a pole: the formula at every instant.
Pole pole_at(const Correlation &correlation, double ut1_days);

// The same as published: x, y, dX, dY, arcsec. dX, dY of the first or last row outside the table.
void pole_in_arcsec(const Correlation &correlation, double ut1_days, double pole[4]);

// Does the formula serve this instant?
bool pole_by_formula(const Correlation &correlation, double ut1_days);

#endif
