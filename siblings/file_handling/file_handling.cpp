#include "kit_file_handling.h"

#include <cstring>

char *KF_Get_lib_version(char *text)
{
    return text != nullptr ? std::strcpy(text, "KF_VERS_4.27") : nullptr;
}

long KF_strcmp(const void *a, const void *b)
{
    if (a == nullptr || b == nullptr)
        return 0;
    return std::strcmp(static_cast<const char *>(a), static_cast<const char *>(b)) == 0 ? 1 : 0;
}
