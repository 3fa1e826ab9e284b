// Default satellites and the file they are filled from.
#include "kit_data_handling.h"
#include "kl_family.h"
#include "support/captured_stream.h"
#include "support/fault_injection.h"

#include <unistd.h>

#include <algorithm>
#include <climits>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iterator>
#include <set>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

namespace {

constexpr char kExample[] = "examples/satellite.cfg"; // the tests run from the top of the tree
constexpr long kErrorBit = LONG_MIN;

double *const kEnvelope[] = {A_MIN, A_NOM, A_MAX, I_MIN, I_NOM, I_MAX, E_NOM, W_NOM};
double *const kLimits[] = {KL_TOLERANCE_AMIN_L, KL_TOLERANCE_AMAX_L, KL_TOLERANCE_EMIN_L, KL_TOLERANCE_EMAX_L,
                           KL_TOLERANCE_IMIN_L, KL_TOLERANCE_IMAX_L, KL_TOLERANCE_AMIN_T, KL_TOLERANCE_AMAX_T,
                           KL_TOLERANCE_EMIN_T, KL_TOLERANCE_EMAX_T, KL_TOLERANCE_IMIN_T, KL_TOLERANCE_IMAX_T};

// Closes all ten slots when it goes, and puts back what a close leaves: limits, catalogue, SP3 identifiers.
class DefaultSatellites : public testing::Test {
protected:
    DefaultSatellites()
    {
        std::memcpy(catalogue_, TLE_SAT_DATA, sizeof catalogue_);
        std::memcpy(sp3_, KL_SP3_PARAMS, sizeof sp3_);
        for (std::size_t i = 0; i < std::size(kLimits); ++i)
            std::memcpy(limits_[i], kLimits[i], sizeof limits_[i]);
    }

    ~DefaultSatellites() override
    {
        for (long slot = 0; slot < 10; ++slot)
            kl_default_sat_close(&slot);
        std::memcpy(TLE_SAT_DATA, catalogue_, sizeof catalogue_);
        std::memcpy(KL_SP3_PARAMS, sp3_, sizeof sp3_);
        for (std::size_t i = 0; i < std::size(kLimits); ++i)
            std::memcpy(kLimits[i], limits_[i], sizeof limits_[i]);
        std::remove(path_.c_str());
    }

    const char *file(const std::string &content)
    {
        path_ = testing::TempDir() + "satellite-" + std::to_string(getpid()) + ".cfg";
        std::ofstream(path_, std::ios::binary) << content;
        return path_.c_str();
    }

    std::string path_;

private:
    kl_tle_sat_data catalogue_[10];
    char sp3_[10][4];
    double limits_[std::size(kLimits)][10];
};

std::string example_text()
{
    std::ifstream in(kExample);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

std::string replaced(std::string text, const std::string &from, const std::string &to)
{
    const std::size_t at = text.find(from);
    EXPECT_NE(at, std::string::npos) << from;
    return at != std::string::npos ? text.replace(at, from.size(), to) : text;
}

long init(const char *file_name, long *ierr = nullptr)
{
    long id = -7;
    long own[1];
    kl_default_sat_init(&id, file_name, ierr != nullptr ? ierr : own);
    return id;
}

TEST_F(DefaultSatellites, TakeTheLowestFreeSlotAndTheEleventhFails)
{
    for (long slot = 0; slot < 10; ++slot) {
        EXPECT_EQ(KL_Check_sat_id(&slot, nullptr), -1);
        EXPECT_EQ(init(""), slot);
        EXPECT_EQ(KL_Check_sat_id(&slot, nullptr), 0);
        EXPECT_EQ(kl_default_sat_array[slot], 1);
    }
    long id = 55;
    long ierr[1] = {123};
    EXPECT_EQ(kl_default_sat_init(&id, "", ierr), KL_ERR);
    EXPECT_EQ(id, 55);
    EXPECT_EQ(ierr[0], kErrorBit | 1L << KL_DEFAULT_SAT_INIT_NO_SLOT_ERR);
    for (const long slot : {6L, 3L})
        EXPECT_EQ(kl_default_sat_close(&slot), slot);
    EXPECT_EQ(init(""), 3);
    EXPECT_EQ(init(""), 6);
    for (const long other : {-1L, 10L, 11L, 200L})
        EXPECT_EQ(kl_default_sat_close(&other), -1);
    EXPECT_EQ(kl_default_sat_close(nullptr), -1);
}

// Name, SP3 identifier, catalogue name and designator, with a bar between.
std::string texts_of(long id)
{
    char name[31] = {}, sp3[5] = {}, catalogue[26] = {}, designator[10] = {};
    long number = 0;
    KL_Get_mission_name(&id, name);
    KL_Get_sp3_data(id, sp3);
    KL_Get_tle_sat_data(&id, &number, catalogue, designator);
    return std::string(name) + "|" + sp3 + "|" + std::to_string(number) + "|" + catalogue + "|" + designator;
}

TEST_F(DefaultSatellites, TakeEveryValueOfTheirFile)
{
    ASSERT_EQ(init(""), 0);
    const long id = init(kExample);
    ASSERT_EQ(id, 1);
    EXPECT_EQ(texts_of(id), "Example satellite|L99|99999|EXAMPLE SAT|00000   ") << "quotes keep the blanks";
    std::vector<double> values;
    for (const double *column : kEnvelope)
        values.push_back(column[id]);
    for (const double *column : kLimits)
        values.push_back(column[id]);
    const std::vector<double> wanted = {7168000, 7168140, 7168280, 98.55, 98.57, 98.59, 1.13e-3, 90,   1e6, 1e7,
                                        0,       0.5,     60,      120,   7e6,   7.3e6, 0,       0.01, 98,  99};
    EXPECT_EQ(values, wanted);
}

TEST_F(DefaultSatellites, ClosingClearsAllButTheLimits)
{
    const long id = init(kExample);
    const long number = 7;
    EXPECT_EQ(kl_set_sp3_sat_data(id, "SP3!"), 0) << "while it is in use";
    EXPECT_EQ(kl_set_tle_sat_data(&id, &number, "x", "y"), -1) << "in use or not";
    EXPECT_EQ(kl_default_sat_close(&id), 0);
    EXPECT_EQ(KL_Check_sat_id(&id, nullptr), -1);
    EXPECT_EQ(std::string(kl_default_sat_names[0], 30), std::string(30, '\0'));
    EXPECT_EQ(std::string(KL_SP3_PARAMS[0], 4), std::string(4, '\0'));
    for (const double *value : kEnvelope)
        EXPECT_EQ(value[0], 0);
    EXPECT_EQ(TLE_SAT_DATA[0].catalogue_number, 0);
    EXPECT_EQ(TLE_SAT_DATA[0].name[0], '\0');
    EXPECT_EQ(TLE_SAT_DATA[0].designator[0], '\0');
    EXPECT_EQ(KL_TOLERANCE_AMIN_T[0], 7e6);
    EXPECT_EQ(KL_TOLERANCE_IMAX_T[0], 99);
}

TEST_F(DefaultSatellites, AnEmptyNameTakesAnEmptySlotAndOnPurposeAFailedFileAnUntouchedOne)
{
    long ierr[1];
    for (const bool empty : {true, false}) {
        A_NOM[0] = 7e6;
        kl_default_sat_names[0][0] = 'x';
        long id = -7;
        captured_stderr([&] { id = init(empty ? "" : file("name = half\n"), ierr); });
        EXPECT_EQ(ierr[0], empty ? 0 : kErrorBit | 1L << KL_DEFAULT_SAT_INIT_FILE_ERR);
        EXPECT_EQ(id, 0);
        EXPECT_EQ(kl_default_sat_array[0], 1);
        EXPECT_EQ(A_NOM[0], empty ? 0 : 7e6);
        EXPECT_EQ(kl_default_sat_names[0][0], empty ? '\0' : 'x');
        kl_default_sat_close(&id);
    }
}

TEST_F(DefaultSatellites, NullIsRefusedBeforeASlotIsTaken)
{
    long id = 55;
    long ierr[1] = {9};
    EXPECT_EQ(kl_default_sat_init(&id, nullptr, ierr), KL_ERR);
    EXPECT_EQ(ierr[0], kErrorBit | 1L << KL_DEFAULT_SAT_INIT_FILE_ERR);
    EXPECT_EQ(id, 55);
    EXPECT_EQ(kl_default_sat_init(nullptr, "", ierr), KL_ERR);
    EXPECT_EQ(ierr[0], 0);
    EXPECT_EQ(init(""), 0);
    EXPECT_EQ(kl_default_sat_init(&id, "", nullptr), KL_OK);
}

TEST_F(DefaultSatellites, TextsMayFillTheirFieldsAndLinesComeInAnyOrder)
{
    const std::string name(30, 'n');
    const std::string catalogue(25, 'c');
    std::string text = replaced(example_text(), "Example satellite", name);
    text = replaced(text, "= L99 ", "= L#99 ");
    text = replaced(text, "EXAMPLE SAT  ", catalogue + " #");
    text = replaced(text, "\"00000   \"", "123456789");
    std::istringstream lines(text);
    std::string reversed;
    for (std::string line; std::getline(lines, line);)
        reversed = "\t " + line + " \r\n" + reversed;
    const long id = init(file(reversed.substr(0, reversed.size() - 2))); // no end of line at the end
    EXPECT_EQ(texts_of(id), name + "|L#99|99999|" + catalogue + "|123456789");
}

// Everything that can be wrong with a file: what replaces what in the example, and the complaints, each with its line
// counted from the replacement.
TEST_F(DefaultSatellites, EveryMistakeInAFileIsReportedWithItsLine)
{
    constexpr long kEnd = -1; // the last line of the file
    struct Complaint {
        long line;
        const char *text;
    };
    struct Case {
        const char *name;
        const char *from, *to;
        std::vector<Complaint> complaints;
    };
    const std::string long_line(600, 'x');
    const std::string open_quote = "text is empty, too long or badly quoted: designator = \"0 #       # international "
                                   "designator, 1 to 9 characters";
    const std::string long_comment = "# " + std::string(600, 'x') + "\na_nom = 7168140";
    // clang-format off
    const Case cases[] = {
        {"unknown key", "w_nom = 90", "w_nom = 90\nomega = 90", {{1, "unknown key omega"}}},
        {"repeated key", "w_nom = 90", "w_nom = 90\na_min = 7", {{1, "repeated key a_min"}}},
        {"missing key", "e_nom = 1.13e-3", "", {{kEnd, "the file ends without e_nom"}}},
        {"no equals sign", "e_nom = 1.13e-3", "e_nom 1.13e-3",
         {{0, "this is not `key = value`: e_nom 1.13e-3"}, {kEnd, "the file ends without e_nom"}}},
        {"letters in a number", "= 7168140", "= 7168140 m", {{0, "value is not a finite number: a_nom = 7168140 m"}}},
        {"a comma in a number", "98.57", "98,57", {{0, "value is not a finite number: i_nom = 98,57"}}},
        {"no number", "a_nom = 7168140", "a_nom =", {{0, "value is not a finite number: a_nom"}}},
        {"infinity", "= 7168140", "= inf", {{0, "value is not a finite number: a_nom = inf"}}},
        {"too large", "= 7168140", "= 1e999", {{0, "value is not a finite number: a_nom = 1e999"}}},
        {"a broken number", "99999", "999.5", {{0, "value is not a whole number: catalogue_number = 999.5"}}},
        {"a text too long", "L99", "L9999", {{0, "text is empty, too long or badly quoted: sp3_id = L9999"}}},
        {"an empty text", "L99", "", {{0, "text is empty, too long or badly quoted: sp3_id"}}},
        {"an open quote", "\"00000   \"  ", "\"0 #", {{0, open_quote.c_str()}}},
        {"no key", "w_nom = 90", "w_nom = 90\n= 5", {{1, "unknown key"}}},
        {"two mistakes", "a_min = 7168000\na_nom = 7168140", "a_min = x\na_nom = y",
         {{0, "value is not a finite number: a_min = x"}, {1, "value is not a finite number: a_nom = y"}}},
        {"a long line", "w_nom = 90", long_line.c_str(),
         {{0, "the line is too long"}, {kEnd, "the file ends without w_nom"}}},
        {"a long comment", "a_nom = 7168140", long_comment.c_str(), {{0, "the line is too long"}}},
    };
    // clang-format on
    const auto lines_before = [](const std::string &text, std::size_t end) {
        return std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(end), '\n');
    };
    const std::string example = example_text();
    for (const Case &c : cases) {
        const long first = 1 + lines_before(example, example.find(c.from));
        const std::string text = replaced(example, c.from, c.to);
        const long last = lines_before(text, text.size());
        const std::string path = file(text);
        long id = -7;
        long ierr[1];
        const std::string err =
            captured_stderr([&] { EXPECT_EQ(kl_default_sat_init(&id, path.c_str(), ierr), KL_ERR) << c.name; });
        std::string wanted;
        for (const Complaint &complaint : c.complaints)
            wanted += "KD_Read_sat_init_file: " + path + ":"
                      + std::to_string(complaint.line == kEnd ? last : first + complaint.line) + ": " + complaint.text
                      + "\n";
        EXPECT_EQ(err, wanted) << c.name;
        EXPECT_EQ(ierr[0], kErrorBit | 1L << KL_DEFAULT_SAT_INIT_FILE_ERR) << c.name;
        EXPECT_EQ(A_MIN[id], 0) << c.name;
        kl_default_sat_close(&id);
        kd_sat_init data, before;
        std::memset(&data, 0x5a, sizeof data);
        std::memset(&before, 0x5a, sizeof before);
        captured_stderr([&] { EXPECT_EQ(KD_Read_sat_init_file(path.c_str(), &data), -1) << c.name; });
        EXPECT_EQ(std::memcmp(&data, &before, sizeof data), 0) << c.name;
    }
    const std::string err = captured_stderr([&] { init("no/such/file.cfg"); });
    EXPECT_EQ(err, "KD_Read_sat_init_file: no/such/file.cfg:0: No such file or directory\n");
    const std::string directory = captured_stderr([&] { init("examples"); });
    EXPECT_EQ(directory, "KD_Read_sat_init_file: examples:0: the file cannot be read\n");
    kd_sat_init data;
    EXPECT_EQ(KD_Read_sat_init_file(nullptr, &data), -1);
    EXPECT_EQ(KD_Read_sat_init_file(kExample, nullptr), -1);
}

TEST_F(DefaultSatellites, ALockThatFailsIsACondition)
{
    SKIP_WITHOUT_FAULTS();
    long id = 55;
    long ierr[1];
    faults::Fail fail(faults::Site::kMutexLock);
    EXPECT_EQ(kl_default_sat_init(&id, "", ierr), KL_ERR);
    EXPECT_TRUE(fail.disarm());
    EXPECT_EQ(ierr[0], kErrorBit | 1L << KL_DEFAULT_SAT_INIT_LOCK_ERR);
    EXPECT_EQ(id, 55);
    EXPECT_EQ(init(""), 0);
}

TEST_F(DefaultSatellites, OnPurposeALockThatIsNotReleasedIsOnlyPrinted)
{
    SKIP_WITHOUT_FAULTS();
    long id = 55;
    long ierr[1];
    for (const long slot : {0L, 55L}) { // the slot stays in use; then there is none
        const std::string out = captured_stdout([&] {
            faults::Fail fail(faults::Site::kMutexUnlock);
            EXPECT_EQ(kl_default_sat_init(&id, "", ierr), KL_ERR);
            EXPECT_TRUE(fail.disarm());
        });
        EXPECT_EQ(out, "!!! Error closing the threads. All threads will be closed\n");
        EXPECT_EQ(ierr[0], 0);
        EXPECT_EQ(id, slot);
        for (long next = 1; next < 10 && slot == 0; ++next)
            EXPECT_EQ(init(""), next);
        id = 55;
    }
}

TEST_F(DefaultSatellites, ThreadsGetDifferentSlots)
{
    std::vector<long> ids(10, -1);
    for (int round = 0; round < 50; ++round) {
        std::vector<std::thread> threads;
        for (std::size_t t = 0; t < ids.size(); ++t)
            threads.emplace_back([&ids, t] { ids[t] = init(t % 2 == 0 ? kExample : ""); });
        for (std::thread &thread : threads)
            thread.join();
        EXPECT_EQ(std::set<long>(ids.begin(), ids.end()).size(), 10U);
        for (const long id : ids)
            kl_default_sat_close(&id);
    }
}

} // namespace
