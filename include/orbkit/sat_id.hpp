/**
 * @file sat_id.hpp
 */
#ifndef ORBKIT_SAT_ID_HPP
#define ORBKIT_SAT_ID_HPP

#include "../kl_lib.h"

#include <string>

namespace ORBKIT {

/**
 * A satellite number. An object made from a satellite configuration file takes one of the ten default satellites.
 *
 * EVERY OBJECT THAT HOLDS A NUMBER FROM 0 TO 9 FREES THAT DEFAULT SATELLITE WHEN IT DIES: copies, temporaries,
 * by-value arguments and objects made from a bare number too. Pass by reference, and keep one object for each default
 * satellite. Moving leaves nothing behind that could free it, so `sat = SatId("file.cfg")` is safe; a copy is not:
 * `SatId copy(sat)` frees the satellite of `sat` when it dies, and so does SatId(sat.getSatellite()). Other numbers
 * free nothing.
 *
 * @code{.cpp}
 * ORBKIT::SatId generic(200);
 * generic.setTleData(99999, "EXAMPLE", "00000A");
 * std::printf("satellite %ld\n", generic.getSatellite()); // -> satellite 200
 * try {
 *     ORBKIT::SatId(13).setSP3Data("L13");
 * } catch (const KitError &error) {
 *     std::printf("%s\n", error.what()); // -> SP3 Id cannot be set.
 * }
 * @endcode
 */
class KL_API SatId {
public:
    /** The number as it is; nothing is checked. */
    explicit SatId(long satellite);
    /**
     * Takes the lowest free default satellite and fills it from the file; an empty name leaves it empty.
     *
     * @throws KitError when kl_default_sat_init fails; a satellite taken for an unreadable file stays taken
     */
    explicit SatId(const std::string &file);
    SatId(const SatId &other);
    SatId(SatId &&other) noexcept;
    /** Copies the number. A default satellite held until now stays taken. */
    SatId &operator=(const SatId &other);
    /** Takes the number and leaves the other without. Another default satellite held until now is freed. */
    SatId &operator=(SatId &&other) noexcept;
    /** Frees the default satellite of a number from 0 to 9. */
    ~SatId();

    /** The number; -1 once moved from. */
    long getSatellite() const;

    /**
     * Catalogue data of the satellite, see kl_set_tle_sat_data.
     *
     * @throws KitError with "TLE Satellite Data cannot be set."
     */
    void setTleData(long catalogue_number, const std::string &name, const std::string &designator);

    /**
     * SP3 identifier of the satellite: the first three characters are taken (kl_set_sp3_sat_data takes four).
     *
     * @throws KitError with "SP3 Id cannot be set."
     */
    void setSP3Data(const std::string &identifier);

private:
    long satellite_;
};

} // namespace ORBKIT

#endif
