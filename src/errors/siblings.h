// What this library calls of its siblings; nothing else includes their headers, but for the objects (exceptions).
#ifndef KL_SRC_ERRORS_SIBLINGS_H
#define KL_SRC_ERRORS_SIBLINGS_H

#include "kit_data_handling.h" // kd_list_*, KD_Read_sat_init_file, KD_Read_time_correlation, KD_Get_lib_version, KD_Get_compatibility_table
#include "kit_file_handling.h" // KF_Get_lib_version, KF_strcmp

#endif
