// The version report, with siblings of any version: this executable stands in for their version functions.
#include "kit_data_handling.h"
#include "kit_file_handling.h"
#include "kl_family.h"
#include "support/captured_stream.h"

#include <cstring>
#include <string>
#include <tuple>
#include <vector>

namespace {

std::string file_handling_version, data_handling_version;
std::vector<std::string> data_handling_table;

} // namespace

extern "C" char *KF_Get_lib_version(char *text)
{
    return std::strcpy(text, file_handling_version.c_str());
}

extern "C" char *KD_Get_lib_version(char *text)
{
    return std::strcpy(text, data_handling_version.c_str());
}

extern "C" const char *KD_Get_compatibility_table(kd_list *list)
{
    for (const std::string &version : data_handling_table) {
        char row[100] = {};
        std::strncpy(row, version.c_str(), sizeof row - 1);
        kd_list_push_back(list, row);
    }
    return "KD_KD_COMPAT_4.27";
}

namespace {

std::string heading(const std::string &file_handling, const std::string &data_handling)
{
    return "\nCurrent ORBKIT libraries:\n------------------------------------ \norbkit_file_handling version = "
           + file_handling + "\norbkit_data_handling version = " + data_handling + "\norbkit_lib version = 4.27\n";
}

std::string refusal(const std::string &upper, const std::string &lower, const std::string &versions)
{
    return "Current version of orbkit_" + upper + " is not compatible with orbkit_" + lower
           + " (It should be one of the following versions:" + versions + ") \n";
}

TEST(LibraryVersion, IsReportedWithEveryPairThatDoesNotFitAndOnPurposeACommaBeforeTheFirst)
{
    const auto kd_kf = [](const char *versions) { return refusal("data_handling", "file_handling", versions); };
    const std::string lib_kf = refusal("lib", "file_handling", " 4.27");
    // The first row of the table is another library's.
    const std::string lib_kd = refusal("lib", "data_handling", ", 4.27");
    using Table = std::vector<std::string>;
    const std::string kf = "KF_VERS_4.27", kd = "KD_VERS_4.27";
    const Table own = {"KD_KF_COMPAT_4.27"};
    const std::tuple<const char *, std::string, std::string, Table, std::string> cases[] = {
#include "error/versions.inc"
    };
    for (const auto &[name, file_handling, data_handling, table, report] : cases) {
        file_handling_version = file_handling;
        data_handling_version = data_handling;
        data_handling_table = table;
        long result = 7;
        EXPECT_EQ(captured_stdout([&] { result = kl_check_library_version(); }), report) << name;
        EXPECT_EQ(result, report.find("not compatible") == std::string::npos ? 0 : -1) << name;
    }
}

TEST(CompatibilityTable, IsAppendedWithoutItsEndRow)
{
    kd_list *list = kd_list_create(100);
    EXPECT_STREQ(KL_Get_compatibility_table(list), "KL_KL_COMPAT_4.27");
    std::string rows;
    for (kd_list_node *node = kd_list_begin(list); node != nullptr; node = kd_list_next(node))
        rows.append(static_cast<const char *>(kd_list_data(node)), 100);
    const std::string zeros(100 - 17, '\0');
    EXPECT_EQ(rows, "KL_KF_COMPAT_4.27" + zeros + "KL_KD_COMPAT_4.27" + zeros);
    kd_list_delete(list);
    char text[13];
    EXPECT_STREQ(KL_Get_lib_version(text), "KL_VERS_4.27");
}

} // namespace
