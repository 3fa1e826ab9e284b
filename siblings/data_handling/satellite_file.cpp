// The satellite configuration file: `key = value` lines. Nothing is allocated, and the caller's record is written once
// the whole file is found right.
#include "kit_data_handling.h"

#include <cerrno>
#include <charconv>

#include <cmath>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <iterator>
#include <string_view>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr off_t kLargestFile = 65536; // octets; a full file with long comments has some three thousand
constexpr long kMostComplaints = 20;

enum class Kind { kText, kWhole, kNumber };

// A key, and where its value goes in the record.
struct Key {
    std::string_view name;
    Kind kind;
    std::size_t offset;
    std::size_t width; // of a text
};

#define KD_TEXT(field)                                                                                                 \
    {                                                                                                                  \
#field, Kind::kText, offsetof(kd_sat_init, field), sizeof(kd_sat_init::field)                                  \
    }
#define KD_NUMBER(field)                                                                                               \
    {                                                                                                                  \
#field, Kind::kNumber, offsetof(kd_sat_init, field), 0                                                         \
    }
#define KD_LIMIT(set, field)                                                                                           \
    {                                                                                                                  \
        "tolerance_" #set "_" #field, Kind::kNumber,                                                                   \
            offsetof(kd_sat_init, tolerance_##set) + offsetof(kd_sat_tolerance, field), 0                              \
    }

constexpr Key kKeys[] = {
    KD_TEXT(name),
    KD_TEXT(sp3_id),
    {"catalogue_number", Kind::kWhole, offsetof(kd_sat_init, catalogue_number), 0},
    KD_TEXT(catalogue_name),
    KD_TEXT(designator),
    KD_LIMIT(l, a_min),
    KD_LIMIT(l, a_max),
    KD_LIMIT(l, e_min),
    KD_LIMIT(l, e_max),
    KD_LIMIT(l, i_min),
    KD_LIMIT(l, i_max),
    KD_LIMIT(t, a_min),
    KD_LIMIT(t, a_max),
    KD_LIMIT(t, e_min),
    KD_LIMIT(t, e_max),
    KD_LIMIT(t, i_min),
    KD_LIMIT(t, i_max),
    KD_NUMBER(a_min),
    KD_NUMBER(a_nom),
    KD_NUMBER(a_max),
    KD_NUMBER(i_min),
    KD_NUMBER(i_nom),
    KD_NUMBER(i_max),
    KD_NUMBER(e_nom),
    KD_NUMBER(w_nom),
};
constexpr std::size_t kNoKey = std::size(kKeys);

#undef KD_TEXT
#undef KD_NUMBER
#undef KD_LIMIT

// One reading of one file.
class Reading {
public:
    Reading(const char *file_name, kd_sat_init *data) : file_name_(file_name), data_(data) {}

    bool read(std::FILE *file)
    {
        char line[511];
        off_t octets = 0;
        for (int c = std::getc(file); c != EOF; c = std::getc(file)) {
            ++line_;
            std::size_t length = 0;
            if (octets > kLargestFile) { // it may have grown since it was opened
                complain("the file is larger than 65536 octets");
                return false;
            }
            for (; c != EOF && c != '\n'; c = std::getc(file), ++length)
                if (length < sizeof line)
                    line[length] = static_cast<char>(c);
            if (length > sizeof line)
                wrong("the line is too long");
            else if (line_ == 1 && begins_with_mark({line, length}))
                wrong("the file begins with a byte order mark; it must be plain text without one");
            else if (std::memchr(line, '\0', length) != nullptr)
                wrong("the line holds a zero byte");
            else
                take({line, length});
            octets += static_cast<off_t>(length) + 1;
        }
        if (std::ferror(file) != 0) {
            wrong("the file cannot be read");
            return false;
        }
        for (std::size_t key = 0; key < std::size(kKeys); ++key)
            if (seen_[key] == 0)
                wrong("the file ends without", kKeys[key].name);
        return right_;
    }

    // Everything that is wrong is said up to a number of lines; then only that there is more.
    void wrong(const char *what, std::string_view first = "", std::string_view second = "")
    {
        right_ = false;
        ++complaints_;
        if (complaints_ <= kMostComplaints)
            complain(what, first, second);
        else if (complaints_ == kMostComplaints + 1)
            complain("there are more mistakes");
    }

    void complain(const char *what, std::string_view first = "", std::string_view second = "") const
    {
        std::fprintf(stderr, "KD_Read_sat_init_file: %s:%ld: %s%s%.*s%s%.*s\n", file_name_, line_, what,
                     first.empty() ? "" : " ", static_cast<int>(first.size()), first.data(),
                     second.empty() ? "" : " = ", static_cast<int>(second.size()), second.data());
    }

private:
    // Of UTF-8 or UTF-16, as some editors write it.
    static bool begins_with_mark(std::string_view line)
    {
        for (const std::string_view mark : {"\xef\xbb\xbf", "\xff\xfe", "\xfe\xff"})
            if (line.substr(0, mark.size()) == mark)
                return true;
        return false;
    }

    static bool is_blank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

    static std::string_view trimmed(std::string_view text)
    {
        while (!text.empty() && is_blank(text.front()))
            text.remove_prefix(1);
        while (!text.empty() && is_blank(text.back()))
            text.remove_suffix(1);
        return text;
    }

    // A '#' at the start or after a blank, outside quotes.
    static std::string_view without_comment(std::string_view text)
    {
        bool quoted = false;
        for (std::size_t i = 0; i < text.size(); ++i) {
            if (text[i] == '"')
                quoted = !quoted;
            if (text[i] == '#' && !quoted && (i == 0 || is_blank(text[i - 1])))
                return text.substr(0, i);
        }
        return text;
    }

    void take(std::string_view line)
    {
        line = trimmed(without_comment(line));
        if (line.empty())
            return;
        const std::size_t equals = line.find('=');
        if (equals == std::string_view::npos)
            return wrong("this is not `key = value`:", line);
        const std::string_view name = trimmed(line.substr(0, equals));
        std::size_t key = 0;
        while (key < kNoKey && kKeys[key].name != name)
            ++key;
        if (key == kNoKey)
            return wrong("unknown key", name);
        if (seen_[key] != 0)
            return wrong("repeated key", name);
        seen_[key] = 1;
        const std::string_view value = trimmed(line.substr(equals + 1));
        if (!store(kKeys[key], value))
            wrong(complaint(kKeys[key].kind), name, value);
    }

    static const char *complaint(Kind kind)
    {
        switch (kind) {
        case Kind::kText:
            return "text is empty, too long or badly quoted:";
        case Kind::kWhole:
            return "value is not a whole number:";
        default:
            return "value is not a finite number:";
        }
    }

    bool store(const Key &key, std::string_view value)
    {
        char *out = reinterpret_cast<char *>(data_) + key.offset;
        switch (key.kind) {
        case Kind::kText:
            return store_text(value, out, key.width);
        case Kind::kWhole:
            return store_number<long>(value, out);
        default:
            return store_number<double>(value, out);
        }
    }

    static bool store_text(std::string_view value, char *out, std::size_t width)
    {
        if (value.size() >= 2 && value.front() == '"' && value.back() == '"')
            value = value.substr(1, value.size() - 2);
        if (value.empty() || value.size() > width || value.find('"') != std::string_view::npos)
            return false;
        value.copy(out, width);
        return true;
    }

    // Independent of the locale.
    template <typename Number>
    static bool store_number(std::string_view value, char *out)
    {
        Number number = 0;
        if (value.size() > 1 && value[0] == '+' && value[1] != '-')
            value.remove_prefix(1);
        const auto end = value.data() + value.size();
        const auto result = std::from_chars(value.data(), end, number);
        if (result.ec != std::errc() || result.ptr != end || !std::isfinite(static_cast<double>(number)))
            return false;
        std::memcpy(out, &number, sizeof number);
        return true;
    }

    const char *file_name_;
    kd_sat_init *data_;
    long line_ = 0;
    long complaints_ = 0;
    bool right_ = true;
    unsigned char seen_[std::size(kKeys)] = {};
};

// The file, unless it is a directory, a device or a pipe, on which a reader might wait for ever; or null, and a line.
std::FILE *open_plain_file(const char *file_name, const Reading &reading)
{
    const int descriptor = open(file_name, O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
    struct stat status;
    if (descriptor < 0 || fstat(descriptor, &status) != 0)
        reading.complain(std::strerror(errno));
    else if (!S_ISREG(status.st_mode))
        reading.complain("this is not a plain file");
    else if (status.st_size > kLargestFile)
        reading.complain("the file is larger than 65536 octets");
    else if (std::FILE *file = fdopen(descriptor, "r"))
        return file;
    else
        reading.complain(std::strerror(errno));
    if (descriptor >= 0)
        close(descriptor);
    return nullptr;
}

} // namespace

long KD_Read_sat_init_file(const char *file_name, kd_sat_init *data)
{
    if (file_name == nullptr || data == nullptr)
        return -1;
    kd_sat_init read{};
    Reading reading(file_name, &read);
    std::FILE *file = open_plain_file(file_name, reading);
    if (file == nullptr)
        return -1;
    const bool right = reading.read(file);
    std::fclose(file);
    if (!right)
        return -1;
    *data = read;
    return 0;
}
