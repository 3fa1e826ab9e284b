// Versions of the library and of those below it, and whether they fit together.
#include "errors/siblings.h"
#include "kl_family.h"
#include "kl_lib.h"

#include <cstdio>
#include <cstring>
#include <iterator>
#include <memory>
#include <new>

namespace {

// The family's number: releases that differ in the third number alone fit together, so it has two.
constexpr char kVersion[] = "KL_VERS_4.27";
constexpr std::size_t kPrefixLength = 8;  // the number proper follows
constexpr std::size_t kNumberLength = 20; // kept of it
constexpr std::size_t kRowLength = 100;
constexpr std::size_t kPairLength = 13; // "KL_KF_COMPAT_"

// The versions of the lower libraries that this one works with.
constexpr char kCompatible[][kRowLength] = {
    "KL_KF_COMPAT_4.27", "KL_KD_COMPAT_4.27",
    "KL_KL_COMPAT_4.27", // ends the table: the library's own pair
};

// The libraries of the family by level; this one is level 2.
struct Member {
    const char *name, *prefix, *suffix;
};
constexpr Member kFamily[] = {
    {"orbkit_file_handling", "KF_", "KF_COMPAT_"}, {"orbkit_data_handling", "KD_", "KD_COMPAT_"},
    {"orbkit_lib", "KL_", "KL_COMPAT_"},           {"orbkit_orbit", "KO_", "KO_COMPAT_"},
    {"orbkit_pointing", "KP_", "KP_COMPAT_"},      {"orbkit_visibility", "KV_", "KV_COMPAT_"},
};
constexpr int kOwnLevel = 2;

struct VersionNumber {
    char text[kNumberLength + 1];
};

VersionNumber number_of(const char *version)
{
    VersionNumber number = {};
    if (strnlen(version, kRowLength) > kPrefixLength)
        std::strncpy(number.text, version + kPrefixLength, kNumberLength);
    return number;
}

// A compatibility table as a list, deleted on every way out; null without memory.
using Table = std::unique_ptr<kd_list, void (*)(kd_list *)>;

Table table_of(int level)
{
    Table table(kd_list_create(kRowLength), [](kd_list *list) {
        if (list != nullptr)
            kd_list_delete(list);
    });
    if (table != nullptr) {
        if (level == kOwnLevel)
            KL_Get_compatibility_table(table.get());
        else
            KD_Get_compatibility_table(table.get());
    }
    return table;
}

bool contains(kd_list *table, const char *key)
{
    for (kd_list_node *node = kd_list_begin(table); node != nullptr; node = kd_list_next(node))
        if (KF_strcmp(kd_list_data(node), key) != 0)
            return true;
    return false;
}

void print_incompatible(kd_list *table, const Member &upper, const Member &lower, const char *pair)
{
    std::printf("Current version of %s is not compatible with %s (It should be one of the following versions:",
                upper.name, lower.name);
    // On purpose: only the very first row of the table goes without a comma, so a list may begin with one.
    const char *separator = " ";
    for (kd_list_node *node = kd_list_begin(table); node != nullptr; node = kd_list_next(node), separator = ", ") {
        const char *row = static_cast<const char *>(kd_list_data(node));
        if (std::strncmp(row, pair, kPairLength) == 0)
            std::printf("%s%.*s", separator, static_cast<int>(kRowLength - kPairLength), row + kPairLength);
    }
    std::printf(") \n");
}

} // namespace

char *KL_Get_lib_version(char *text)
{
    return text != nullptr ? std::strcpy(text, kVersion) : nullptr;
}

const char *KL_Get_compatibility_table(void *list)
{
    const std::size_t end = std::size(kCompatible) - 1;
    for (std::size_t row = 0; row < end; ++row)
        if (kd_list_push_back(static_cast<kd_list *>(list), kCompatible[row]) != 0)
            break;
    return kCompatible[end];
}

const char *kl_version(void)
{
    return KL_VERSION;
}

long kl_check_library_version(void)
{
    char text[kRowLength];
    const VersionNumber numbers[] = {
        number_of(KF_Get_lib_version(text)),
        number_of(KD_Get_lib_version(text)),
        number_of(kVersion),
    };
    std::printf("\nCurrent ORBKIT libraries:\n------------------------------------ \n");
    for (int level = 0; level <= kOwnLevel; ++level)
        std::printf("%s version = %s\n", kFamily[level].name, numbers[level].text);

    long result = 0;
    for (int upper = 1; upper <= kOwnLevel; ++upper) {
        const Table table = table_of(upper);
        if (table == nullptr)
            return -1;
        for (int lower = 0; lower < upper; ++lower) {
            char key[kRowLength];
            std::snprintf(key, sizeof key, "%s%s%s", kFamily[upper].prefix, kFamily[lower].suffix, numbers[lower].text);
            if (contains(table.get(), key))
                continue;
            print_incompatible(table.get(), kFamily[upper], kFamily[lower], key);
            result = -1;
        }
    }
    return result;
}
