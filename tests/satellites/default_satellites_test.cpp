// Default satellites and the file they are filled from.
#include "kit_data_handling.h"
#include "satellites/satellite_tables.h"
#include "support/captured_stream.h"
#include "support/csv.h"
#include "support/fault_injection.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <cstring>
#include <fstream>
#include <set>
#include <sstream>
#include <thread>

namespace {

constexpr char kExample[] = "examples/satellite.cfg"; // the tests run from the top of the tree

class DefaultSatellites : public KeptTables {
protected:
    ~DefaultSatellites() override { std::remove(path_.c_str()); }

    void write(const std::string &content) { std::ofstream(path_, std::ios::binary) << content; }

    const std::string path_ = testing::TempDir() + "satellite-" + std::to_string(getpid()) + ".cfg";
};

std::string example_text()
{
    std::ifstream in(kExample);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

std::string replaced(std::string text, const std::string &from, const std::string &to)
{
    return text.replace(text.find(from), from.size(), to);
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
    long id = 55;
#include "satellites/slots.inc"
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
    EXPECT_EQ(texts_of(id), "Example satellite|L99|99999|EXAMPLE SAT|00000   ") << "quotes keep the blanks";
    const double wanted[] = {7168000, 7168140, 7168280, 98.55, 98.57, 98.59, 1.13e-3, 90, 1e6, 1e7,
                             60,      120,     0,       0.5,   7e6,   7.3e6, 98,      99, 0,   0.01};
    for (std::size_t i = 0; i < std::size(wanted); ++i)
        EXPECT_EQ(kColumns[i][id], wanted[i]) << i;

#include "satellites/closed_slot.inc"
    for (std::size_t i = 0; i < std::size(wanted); ++i)
        EXPECT_EQ(kColumns[i][id], i < 8 ? 0 : wanted[i]) << i << ": the envelope goes, the limits stay";
}

TEST_F(DefaultSatellites, OnPurposeAFailedFileTakesAnUntouchedSlotAndAnEmptyNameAnEmptyOne)
{
    for (const long slot : {0L, 1L}) {
        A_NOM[slot] = 7e6;
        kl_default_sat_names[slot][0] = 'x';
    }
    captured_stderr([] { EXPECT_EQ(init("no/file.cfg", error_bits(KL_DEFAULT_SAT_INIT_FILE_ERR)), 0); });
    EXPECT_EQ(kl_default_sat_array[0], 1);
    EXPECT_EQ(A_NOM[0], 7e6);
    EXPECT_EQ(name_of(0), "x");
    EXPECT_EQ(init(""), 1);
    EXPECT_EQ(A_NOM[1], 0);
    EXPECT_EQ(name_of(1), "");
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
    write(reversed.substr(0, reversed.size() - 2)); // no end of line at the end
    EXPECT_EQ(texts_of(init(path_)), name + "|L#99|99999|" + catalogue + "|123456789");
}

void expect_complaints(const std::string &path, const std::vector<std::string> &complaints)
{
    std::string wanted;
    for (const std::string &complaint : complaints)
        wanted.append("KD_Read_sat_init_file: ").append(path).append(":").append(complaint).append("\n");
    kd_sat_init data = {}, untouched = {};
    const std::string said =
        captured_stderr([&] { EXPECT_EQ(KD_Read_sat_init_file(path.c_str(), &data), -1) << path; });
    EXPECT_EQ(said, wanted);
    EXPECT_EQ(std::memcmp(&data, &untouched, sizeof data), 0) << path;
}

TEST_F(DefaultSatellites, EveryMistakeInAFileIsReportedWithItsLine)
{
    using Case = std::tuple<std::string, std::string, std::string, std::vector<std::string>>;
    std::vector<Case> cases = {
#include "satellites/file_mistakes.inc"
    };
    for (const auto &[name, from, to, complaints] :
         read_rows<std::string, std::string, std::string, std::string>("satellite_file_mistakes.csv"))
        cases.emplace_back(name, from, to, parts_of(complaints, ';'));
    for (const auto &[name, from, to, complaints] : cases) {
        SCOPED_TRACE(name);
        write(replaced(example_text(), from, to));
        expect_complaints(path_, complaints);
    }
    expect_complaints("no/such/file.cfg", {"0: No such file or directory"});
    expect_complaints("examples", {"0: this is not a plain file"});
    expect_complaints("/dev/zero", {"0: this is not a plain file"});
    const std::string pipe = path_ + ".pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    expect_complaints(pipe, {"0: this is not a plain file"}); // nobody writes to it: a reader would wait for ever
    std::remove(pipe.c_str());
    write(example_text() + "#" + std::string(65536, ' '));
    expect_complaints(path_, {"0: the file is larger than 65536 octets"});
    std::vector<std::string> many;
    for (int line = 1; line <= 20; ++line)
        many.push_back(std::to_string(line) + ": unknown key x");
    many.push_back("21: there are more mistakes");
    std::string wrong_lines;
    for (int line = 1; line <= 2000; ++line)
        wrong_lines += "x=1\n";
    write(wrong_lines);
    expect_complaints(path_, many);
    kd_sat_init data;
    EXPECT_EQ(KD_Read_sat_init_file(nullptr, &data), -1);
    EXPECT_EQ(KD_Read_sat_init_file(kExample, nullptr), -1);
}

TEST_F(DefaultSatellites, NumbersMayHaveAPlusSign)
{
    write(replaced(replaced(example_text(), "= 99999", "= +012"), "= 7168140", "= +7168140.5"));
    const long id = init(path_);
    EXPECT_EQ(TLE_SAT_DATA[id].catalogue_number, 12);
    EXPECT_EQ(A_NOM[id], 7168140.5);
}

TEST_F(DefaultSatellites, OnPurposeALockThatIsNotReleasedIsOnlyPrinted)
{
    SKIP_WITHOUT_FAULTS();
    const std::string out = captured_stdout([] {
        faults::Fail unlock(faults::Site::kMutexUnlock);
        EXPECT_EQ(init("", kRefused), 0) << "the slot is taken";
        EXPECT_TRUE(unlock.disarm());
    });
    EXPECT_EQ(out, "!!! Error closing the threads. All threads will be closed\n");
    EXPECT_EQ(init(""), 1);
}

TEST_F(DefaultSatellites, ThreadsGetDifferentSlots)
{
    for (int round = 0; round < 50; ++round) {
        long ids[10];
        std::vector<std::thread> threads;
        for (long &id : ids)
            threads.emplace_back([&id] { id = init(""); });
        for (std::thread &thread : threads)
            thread.join();
        EXPECT_EQ(std::set<long>(std::begin(ids), std::end(ids)).size(), 10U);
        for (const long id : ids)
            kl_default_sat_close(&id);
    }
}

// A slot is given back once it is clear: whoever takes it next keeps what he writes.
TEST_F(DefaultSatellites, ASlotIsClearBeforeItIsFree)
{
    for (long slot = 1; slot < 10; ++slot)
        kl_default_sat_array[slot] = 1;
    const long slot = 0;
    for (int round = 0; round < 300; ++round) {
        ASSERT_EQ(init(""), slot);
        std::thread other([] {
            long id = -1, ierr[1];
            while (kl_default_sat_init(&id, "", ierr) != KL_OK)
                std::this_thread::yield();
            EXPECT_EQ(kl_set_sp3_sat_data(id, "L99"), 0);
        });
        kl_default_sat_close(&slot);
        other.join();
        ASSERT_STREQ(Catalogue(slot).sp3, "L99");
        kl_default_sat_close(&slot);
    }
}

// The largest axis of all rows is looked for while a row is filled: meant for the thread sanitizer.
TEST_F(DefaultSatellites, PeriodsAreFoundWhileAnotherThreadFillsARow)
{
    const long id = init("");
    double wanted = 0.0, period = 0.0;
    ASSERT_EQ(KL_Get_max_period(&id, &wanted, nullptr), KL_WARN); // an empty row: the largest axis of all is taken
    std::thread other([] {
        for (int round = 0; round < 50; ++round) {
            const long own = init(kExample);
            kl_default_sat_close(&own);
        }
    });
    for (int round = 0; round < 2000; ++round) {
        EXPECT_EQ(KL_Get_max_period(&id, &period, nullptr), KL_WARN);
        EXPECT_EQ(period, wanted); // geostationary, whatever the other row holds
    }
    other.join();
}

} // namespace
