// Default satellites and the file they are filled from.
#include "kit_data_handling.h"
#include "sat/satellite_tables.h"
#include "support/captured_stream.h"
#include "support/conditions.h"
#include "support/fault_injection.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <set>
#include <sstream>
#include <thread>
#include <utility>
#include <vector>

namespace {

constexpr char kExample[] = "examples/satellite.cfg"; // the tests run from the top of the tree

class DefaultSatellites : public testing::Test {
protected:
    ~DefaultSatellites() override { std::remove(path_.c_str()); }

    const std::string &file(const std::string &content)
    {
        std::ofstream(path_, std::ios::binary) << content;
        return path_;
    }

    const std::string path_ = testing::TempDir() + "satellite-" + std::to_string(getpid()) + ".cfg";
    const TablesKept kept_;
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

long init(const std::string &file_name, long bits = kNothing)
{
    long id = 55;
    expect_bits(file_name.c_str(), bits, [&](long *e) { return kl_default_sat_init(&id, file_name.c_str(), e); });
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
    const long ids[] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, -1, 10, 11, 200};
#include "sat/slots.inc"
}

// Name, SP3 identifier, catalogue number, catalogue name and designator, with a bar between.
std::string texts_of(long id)
{
    const Catalogue catalogue(id);
    return name_of(id) + "|" + catalogue.sp3 + "|" + std::to_string(catalogue.number) + "|" + catalogue.name + "|"
           + catalogue.designator;
}

TEST_F(DefaultSatellites, TakeEveryValueOfTheirFileAndCloseClearsAllButTheLimits)
{
    EXPECT_EQ(init(""), 0);
    const long id = init(kExample);
    ASSERT_EQ(id, 1);
    EXPECT_EQ(texts_of(id), "Example satellite|L99|99999|EXAMPLE SAT|00000   ") << "quotes keep the blanks";
    const auto values = [id] {
        std::vector<double> row;
        for (const double *column : kColumns)
            row.push_back(column[id]);
        return row;
    };
    std::vector<double> wanted = {7168000, 7168140, 7168280, 98.55, 98.57, 98.59, 1.13e-3, 90, 1e6, 1e7,
                                  60,      120,     0,       0.5,   7e6,   7.3e6, 98,      99, 0,   0.01};
    EXPECT_EQ(values(), wanted);

#include "sat/closed_slot.inc"
    std::fill_n(wanted.begin(), 8, 0.0); // the envelope goes, the limits stay
    EXPECT_EQ(values(), wanted);
}

TEST_F(DefaultSatellites, AnEmptyNameTakesAnEmptySlotAndOnPurposeAFailedFileAnUntouchedOne)
{
    for (const bool empty : {true, false}) {
        A_NOM[0] = 7e6;
        kl_default_sat_names[0][0] = 'x';
        long id = -7;
        captured_stderr(
            [&] { id = empty ? init("") : init(file("name = half\n"), error_bits(KL_DEFAULT_SAT_INIT_FILE_ERR)); });
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
#include "sat/null_satellites.inc"
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

TEST_F(DefaultSatellites, EveryMistakeInAFileIsReportedWithItsLine)
{
    constexpr long kEnd = -1; // the last line of the file
    struct Case {
        const char *name, *from;
        std::string to;
        std::vector<std::pair<long, const char *>> complaints;
    };
    const Case cases[] = {
#include "sat/file_mistakes.inc"
    };
    const auto lines_before = [](const std::string &text, std::size_t end) {
        return std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(end), '\n');
    };
    const auto expect_complaints = [](const std::string &path, const std::string &complaints) {
        long id = -7;
        EXPECT_EQ(captured_stderr([&] { id = init(path, error_bits(KL_DEFAULT_SAT_INIT_FILE_ERR)); }), complaints);
        EXPECT_EQ(A_MIN[id], 0) << path;
        kl_default_sat_close(&id);
        kd_sat_init data, before;
        std::memset(&data, 0x5a, sizeof data);
        std::memset(&before, 0x5a, sizeof before);
        captured_stderr([&] { EXPECT_EQ(KD_Read_sat_init_file(path.c_str(), &data), -1); });
        EXPECT_EQ(std::memcmp(&data, &before, sizeof data), 0) << path;
    };
    const std::string opening = "KD_Read_sat_init_file: ";
    const std::string example = example_text();
    for (const auto &[name, from, to, complaints] : cases) {
        SCOPED_TRACE(name);
        const long first = 1 + lines_before(example, example.find(from));
        const std::string text = replaced(example, from, to);
        const long last = lines_before(text, text.size());
        std::string wanted;
        for (const auto &[line, complaint] : complaints)
            wanted +=
                opening + path_ + ":" + std::to_string(line == kEnd ? last : first + line) + ": " + complaint + "\n";
        expect_complaints(file(text), wanted);
    }
    expect_complaints("no/such/file.cfg", opening + "no/such/file.cfg:0: No such file or directory\n");
    expect_complaints("examples", opening + "examples:0: the file cannot be read\n");
    kd_sat_init data;
    EXPECT_EQ(KD_Read_sat_init_file(nullptr, &data), -1);
    EXPECT_EQ(KD_Read_sat_init_file(kExample, nullptr), -1);
}

TEST_F(DefaultSatellites, ALockThatFailsIsACondition)
{
    SKIP_WITHOUT_FAULTS();
    faults::Fail fail(faults::Site::kMutexLock);
    EXPECT_EQ(init("", error_bits(KL_DEFAULT_SAT_INIT_LOCK_ERR)), 55);
    EXPECT_TRUE(fail.disarm());
    EXPECT_EQ(init(""), 0);
}

TEST_F(DefaultSatellites, OnPurposeALockThatIsNotReleasedIsOnlyPrinted)
{
    SKIP_WITHOUT_FAULTS();
    for (const long slot : {0L, 55L}) { // the slot stays in use; then there is none
        const std::string out = captured_stdout([&] {
            faults::Fail fail(faults::Site::kMutexUnlock);
            EXPECT_EQ(init("", kRefused), slot);
            EXPECT_TRUE(fail.disarm());
        });
        EXPECT_EQ(out, "!!! Error closing the threads. All threads will be closed\n");
        for (long next = 1; next < 10 && slot == 0; ++next)
            EXPECT_EQ(init(""), next);
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
