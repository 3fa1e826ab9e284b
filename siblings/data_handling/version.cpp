#include "kit_data_handling.h"

#include <cstring>

namespace {

constexpr char kRows[][100] = {
    "KD_KF_COMPAT_4.27",
    "KD_KD_COMPAT_4.27", // ends the table
};

} // namespace

char *KD_Get_lib_version(char *text)
{
    return text != nullptr ? std::strcpy(text, "KD_VERS_4.27") : nullptr;
}

const char *KD_Get_compatibility_table(kd_list *list)
{
    const char(*row)[100] = kRows;
    for (; std::strncmp(*row, "KD_KD_", 6) != 0; ++row)
        if (kd_list_push_back(list, *row) != 0)
            break;
    return kRows[sizeof kRows / sizeof kRows[0] - 1];
}

long KD_Read_time_correlation(const char * /*file_name*/, long * /*n_rows*/, double ** /*rows*/)
{
    return -1;
}
