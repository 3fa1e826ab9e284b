// Time ids from files: recognition and every reader, with whole and damaged contents. The first two bytes choose the
// call. In time_files_fuzz the rest is the file, and a second file stands behind a form feed; the targets of one format
// (KL_FUZZ_SAMPLE) take the rest as changes of a published file, so that they start behind its recognition.
#include "fuzz_input.h"

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <sys/mman.h>
#include <unistd.h>

namespace {

// A file in memory, opened by its name.
class MemoryFile {
public:
    MemoryFile() : file_(memfd_create("fuzz", MFD_CLOEXEC)), name_("/proc/self/fd/" + std::to_string(file_)) {}
    const char *holding(const char *bytes, std::size_t size) const
    {
        if (ftruncate(file_, 0) != 0 || pwrite(file_, bytes, size, 0) != static_cast<ssize_t>(size))
            std::abort();
        return name_.c_str();
    }

private:
    int file_;
    std::string name_;
};

#ifdef KL_FUZZ_SAMPLE
// A few characters after each other taken out and others put in, anywhere in the sample.
std::string changed_sample(FuzzInput in)
{
    static const std::string sample = [] {
        std::ostringstream bytes;
        bytes << std::ifstream(KL_FUZZ_SAMPLE).rdbuf();
        if (bytes.str().empty())
            std::abort();
        return bytes.str();
    }();
    std::string file = sample;
    while (!in.empty() && !file.empty()) {
        const std::size_t at = in.bits<std::uint16_t>() % file.size();
        const std::uint8_t n = in.byte();
        file.replace(at, n == 255 ? file.npos : n % 16, in.text(16));
    }
    return file;
}
#endif

void require(bool holds)
{
    if (!holds)
        std::abort();
}

// What an id from files keeps whatever the files held.
void look_at(kl_time_id *id, const kl_time_file_report &report)
{
    kl_time_id_data data = {};
    require(kl_time_get_id_data(id, &data) == KL_OK && data.n_rows == report.n_rows && data.n_rows >= 1);
    for (long i = 0; i < data.n_rows; ++i) {
        require(std::fabs(data.pole[i][0]) <= 2.0 && std::fabs(data.pole[i][1]) <= 2.0);
        require(i == 0 || data.rows[i].utc > data.rows[i - 1].utc);
    }
    kl_time_id other = {nullptr};
    require(kl_time_set_id_data(&other, &data) == KL_OK); // it can be set again
    kl_time_close(&other, nullptr);
    const long utc = KL_TIME_UTC;
    for (const double days : {data.rows[0].utc - 1.0, data.rows[0].utc, data.rows[data.n_rows - 1].utc + 0.5}) {
        kl_time_row_info info;
        double pole[4];
        if (kl_time_get_row(id, &utc, &days, &info) == KL_OK)
            require(info.row >= -1 && info.row <= data.n_rows && info.quality >= 0 && info.quality <= 4
                    && kl_time_get_pole(id, &utc, &days, pole) == KL_OK);
    }
    kl_time_free_id_data(&data);
    long n = 0;
    double *steps = nullptr, *values = nullptr, expiry = 0.0;
    require(kl_time_get_leap_seconds(id, &n, &steps, &values, &expiry) == KL_OK && n >= 0);
    void *arrays[] = {steps, values};
    for (void *&array : arrays)
        kl_free_array(&array);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const MemoryFile files[2];
    FuzzInput in(data, size);
    const long model = in.byte() % 13; // 0 and 9: any
    const std::uint8_t choice = in.byte();
    const long window = choice & 1;
    const long no_extrapolation = choice >> 1 & 1;
    const double start = static_cast<double>(choice >> 2) * 200.0 - 6000.0;
    const double stop = start + 300.0;
#ifdef KL_FUZZ_SAMPLE
    const std::string file = changed_sample(in);
    const char *text = file.data();
    const std::size_t length = file.size();
#else
    const char *text = size > 2 ? reinterpret_cast<const char *>(data) + 2 : "";
    const std::size_t length = size > 2 ? size - 2 : 0;
#endif
    const void *feed = std::memchr(text, '\f', length);
    const std::size_t first =
        feed != nullptr ? static_cast<std::size_t>(static_cast<const char *>(feed) - text) : length;
    const char *names[2] = {files[0].holding(text, first), nullptr};
    long n = 1;
    if (feed != nullptr)
        names[n++] = files[1].holding(text + first + 1, length - first - 1);

    kl_time_id id = {nullptr};
    kl_time_file_report report;
    long ierr[1] = {0};
    const long status = model == 0 || model == KL_TIME_MODEL_MERGED
                            ? kl_time_id_init(&n, names, &no_extrapolation, &window, &start, &stop, &report, &id, ierr)
                            : kl_time_ref_init_file(&model, &n, names, &window, &start, &stop, &report, &id, ierr);
    require((status == KL_ERR) == (id.record == nullptr));
    require(status != KL_ERR || ierr[0] < 0);
    if (id.record != nullptr) {
        look_at(&id, report);
        kl_time_close(&id, nullptr);
    }
    return 0;
}
