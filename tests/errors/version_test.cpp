// The version report, with siblings of any version: this executable stands in for their version functions.
#include "errors/said.h"
#include "kit_data_handling.h"
#include "kit_file_handling.h"
#include "kl_family.h"

#include <cstring>
#include <fstream>
#include <string>
#include <utility>
#include <vector>

namespace {

using Table = std::vector<std::string>;

struct Siblings {
    std::string file_handling, data_handling;
    Table data_handling_table;
} siblings;

} // namespace

extern "C" char *KF_Get_lib_version(char *text)
{
    return std::strcpy(text, siblings.file_handling.c_str());
}

extern "C" char *KD_Get_lib_version(char *text)
{
    return std::strcpy(text, siblings.data_handling.c_str());
}

extern "C" const char *KD_Get_compatibility_table(kd_list *list)
{
    for (std::string row : siblings.data_handling_table) {
        row.resize(100);
        kd_list_push_back(list, row.data());
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
    const std::string kf = "KF_VERS_4.27", kd = "KD_VERS_4.27";
    const Table own = {"KD_KF_COMPAT_4.27"};
    const std::pair<Siblings, std::string> cases[] = {
#include "errors/versions.inc"
    };
    for (const auto &[answers, report] : cases) {
        siblings = answers;
        const long expected = report.find("not compatible") == std::string::npos ? 0 : -1;
        SAYS("on standard output: " + report, expected, kl_check_library_version())
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

// The packages' version is that of the headers; the family's number is its first two parts.
TEST(Version, IsTheSameEverywhere)
{
    EXPECT_STREQ(kl_version(), KL_VERSION);
    char family[13];
    const std::string two = std::string(KL_Get_lib_version(family)).substr(8) + ".";
    EXPECT_EQ(std::string(kl_version()).substr(0, two.size()), two);
    std::ifstream changelog("debian/changelog");
    std::string package, version;
    changelog >> package >> version;
    EXPECT_EQ(version, "(" KL_VERSION "-1)");
    for (const auto &[file, line] : {std::pair{"CITATION.cff", "version: " KL_VERSION},
                                     {"python/kitlib/_version.py", "__version__ = \"" KL_VERSION "\""}}) {
        std::ifstream text(file);
        std::string read;
        while (read != line && std::getline(text, read)) {
        }
        EXPECT_EQ(read, line) << file;
    }
}

} // namespace
