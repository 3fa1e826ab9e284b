#include "orbkit.hpp"
#include <iostream>

int main()
{
    const ORBKIT::Time now("2026-06-21T08:24:00"); // or Time::now()
    const ORBKIT::MeanMotion satellite({7178137.0, 0.001, 98.6, 250.0, 90.0, 0.0}, now);
    const ORBKIT::GroundStation kiruna(67.857, 20.964, 390.0);
    const auto pass = ORBKIT::events::passes(satellite, kiruna, {now, now + std::chrono::hours(12)}, 5.0).at(0);
    std::cout << pass.visible.start << " to " << pass.visible.stop << ", " << pass.elevation << " deg high\n";
}
