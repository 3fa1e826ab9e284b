// Array forms: whatever the elements and selectors are, one call is the loop of its scalar calls, bit for bit.
#include "fuzz_input.h"
#include "support/every_array.h"

#include <cstdlib>
#include <vector>

namespace {

struct Worlds {
    ArrayWorld one, all, trial; // warnings that come once: nothing is tried in the first two
    Worlds()
    {
        if (!one.open(Correlation::rows) || !all.open(Correlation::rows) || !trial.open(Correlation::rows))
            std::abort();
    }
    ~Worlds()
    {
        for (ArrayWorld *world : {&one, &all, &trial})
            world->close();
    }
};

void require(bool held)
{
    if (!held)
        std::abort();
}

bool is_text(const Column &c)
{
    return c.words[0] == 't' || c.words[0] == 'o';
}

// Any bits, the terminators of texts apart.
void overwrite(FuzzInput &in, const ArrayForm &f, const ArrayWorld &w, long n, std::vector<Bytes> *columns)
{
    for (int times = in.byte() % 16; times > 0 && n > 0; --times) {
        const std::size_t k = in.byte() % f.columns.size();
        const Column &c = f.columns[k];
        if (c.role == 'g') // what stands behind the end of a text or of octets is nobody's
            continue;
        const auto width = static_cast<std::size_t>(width_of(w, c));
        const std::size_t element = in.byte() % static_cast<std::size_t>(n) * width;
        unsigned char *to = (*columns)[k].data() + element;
        if (is_text(c))
            to[in.byte() % (width - 1)] = in.byte();
        else if (std::strchr(c.words, 'l') != nullptr && std::strchr(c.words, 'd') == nullptr) {
            const long value = in.number();
            std::memcpy(to + in.byte() % (width / 8) * 8, &value, sizeof value);
        } else {
            const double value = in.real();
            std::memcpy(to + in.byte() % (width / 8) * 8, &value, sizeof value);
        }
    }
}

bool is_nan_in_both(const unsigned char *a, const unsigned char *b)
{
    double x, y;
    std::memcpy(&x, a, sizeof x);
    std::memcpy(&y, b, sizeof y);
    return std::isnan(x) && std::isnan(y);
}

void compare(FuzzInput &in)
{
    Worlds worlds; // each time anew: a warning that came once does not come again
    ArrayWorld &one = worlds.one, &all = worlds.all, &trial = worlds.trial;
    const ArrayForm &f = every_array_form()[in.bits<std::uint16_t>() % every_array_form().size()];
    Random random(in.byte());
    if (in.byte() % 4 != 0)
        choose_valid(f, random, &trial);
    else
        choose(random, &trial);
    one.selectors = all.selectors = trial.selectors;
    one.config = all.config = trial.config;

    // An element of good values, unless even that is refused: then nothing is to be compared but the statuses.
    const long n = in.byte() % 70;
    std::vector<Bytes> left = make_inputs(f, one, n, in.byte() % 2 != 0, static_cast<Instants>(in.byte() % 3), random);
    overwrite(in, f, one, n, &left);
    std::vector<Bytes> right = left;
    for (std::size_t k = 0; k < f.columns.size(); ++k) {
        one.width[k] = all.width[k] = width_of(one, f.columns[k]);
        one.at[k] = left[k].data();
        all.at[k] = right[k].data();
    }
    long expected[70], ierr[2] = {0, 0}, word[2] = {0, 0}, found[70];
    bool failed = true;
    for (long i = 0; i < n; ++i) {
        long own[2] = {0, 0};
        expected[i] = f.one(one, i, own);
        ierr[0] |= own[0];
        ierr[1] |= own[1];
        failed &= expected[i] == KL_ERR;
    }
    f.all(all, &n, found, word);
    if (failed && n > 0) { // a call that is refused as a whole has one bit alone
        for (long i = 0; i < n; ++i)
            require(found[i] == KL_ERR);
        return;
    }
    require(word[0] == ierr[0] && (f.n_vector < 2 || word[1] == ierr[1]));
    for (long i = 0; i < n; ++i) {
        require(found[i] == expected[i]);
        for (std::size_t k = 0; k < f.columns.size() && found[i] != KL_ERR; ++k) {
            const long width = one.width[k];
            for (long at = 0; at < width; at += is_text(f.columns[k]) ? width : 8) {
                const unsigned char *a = left[k].data() + i * width + at, *b = right[k].data() + i * width + at;
                const auto size = static_cast<std::size_t>(is_text(f.columns[k]) ? width : 8);
                require(std::memcmp(a, b, size) == 0 || (!is_text(f.columns[k]) && is_nan_in_both(a, b)));
            }
        }
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    FuzzInput in(data, size);
    while (!in.empty())
        compare(in);
    return 0;
}
