// Instants as the standards of orbit files write them.
#ifndef KL_SRC_TIME_FILES_WRITTEN_INSTANTS_H
#define KL_SRC_TIME_FILES_WRITTEN_INSTANTS_H

#include <string_view>

namespace time_files {

// yyyy-mm-ddThh:mm:ss[.d..][Z] or yyyy-dddThh:mm:ss[.d..][Z], any number of decimals, second 60 is that after 59;
// MJD2000. False for anything else and outside 1950 to 2099.
bool read_instant(std::string_view text, double *days);

} // namespace time_files

#endif
