// The rate of a position by a central difference of fourth order.
#ifndef KL_TESTS_CELESTIAL_RATE_H
#define KL_TESTS_CELESTIAL_RATE_H

template <typename PositionAt>
void rate_of(PositionAt position_at, double days, double step_days, double rate_per_second[3])
{
    constexpr double kWeights[4] = {1.0, -8.0, 8.0, -1.0}, kOffsets[4] = {-2.0, -1.0, 1.0, 2.0};
    for (int i = 0; i < 3; ++i)
        rate_per_second[i] = 0.0;
    for (int k = 0; k < 4; ++k) {
        double position[6];
        position_at(days + kOffsets[k] * step_days, position);
        for (int i = 0; i < 3; ++i)
            rate_per_second[i] += kWeights[k] * position[i] / (12.0 * step_days * 86400.0);
    }
}

#endif
