// Catalogues of stars: recognition and the three readers, with whole and damaged contents. The first two bytes choose
// window and frame, the rest is the file.
#include "fuzz_input.h"

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <string>
#include <sys/mman.h>
#include <unistd.h>

namespace {

void require(bool holds)
{
    if (!holds)
        std::abort();
}

// A file in memory, opened by its name.
const char *file_holding(const std::uint8_t *bytes, std::size_t size)
{
    static const int file = memfd_create("fuzz", MFD_CLOEXEC);
    static const std::string name = "/proc/self/fd/" + std::to_string(file);
    require(ftruncate(file, 0) == 0 && pwrite(file, bytes, size, 0) == static_cast<ssize_t>(size));
    return name.c_str();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    FuzzInput in(data, size);
    const std::uint8_t choice = in.byte();
    const double turn = in.byte();
    const long frames[4] = {KL_BM2000, KL_GM2000, KL_MOD, KL_GM2000}; // without a time id
    const long corrections = choice & 7, tai = KL_TIME_TAI;
    const double time = 100.0 * turn;
    kl_star_window window = {-30.0, 30.0,  turn, turn + ((choice & 8) != 0 ? 60.0 : 0.0), -80.0, 80.0,
                             turn,  -20.0, 30.0};
    if ((choice & 16) != 0)
        window = {-1e30, 1e30, 0.0, 360.0, -90.0, 90.0, 0.0, 0.0, 0.0}; // everything
    const char *name = size > 2 ? file_holding(data + 2, size - 2) : file_holding(data, 0);

    const long untouched = 77;
    long n = untouched, ierr[1] = {0};
    kl_star *stars = nullptr;
    kl_radec *places = nullptr;
    const long status = kl_star_catalog(nullptr, nullptr, name, &window, &corrections, &frames[choice >> 6], &tai,
                                        &time, &n, &stars, &places, ierr);
    if (status == KL_ERR) {
        require(n == untouched && stars == nullptr && places == nullptr && ierr[0] < 0);
        return 0;
    }
    require(n >= 0 && (stars == nullptr) == (n == 0) && (places == nullptr) == (n == 0));
    for (long i = 0; i < n; ++i) { // what is found can be asked for alone, and lies there
        kl_radec place;
        require(kl_star_radec(nullptr, nullptr, &corrections, &frames[choice >> 6], &tai, &time, &stars[i], nullptr,
                              nullptr, &place, nullptr)
                == KL_OK);
        require(std::memcmp(&place, &places[i], sizeof place) == 0);
        require(place.ra >= 0.0 && place.ra < 360.0 && std::fabs(place.dec) <= 90.0);
    }
    void *taken[2] = {stars, places};
    kl_free_array(&taken[0]);
    kl_free_array(&taken[1]);
    return 0;
}
