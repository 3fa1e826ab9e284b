// CCSDS OEM as XML: a scanner for elements. No declarations (<!), no entities in what is read.
#include "time/files/oem.h"

namespace time_files {

namespace {

constexpr std::size_t kDeepest = 16;

// The line of a place in the bytes.
Line line_at(std::string_view bytes, std::size_t offset)
{
    Lines lines(bytes);
    Line line;
    while (lines.next(&line))
        if (static_cast<std::size_t>(line.text.data() - bytes.data()) + line.text.size() >= offset)
            break;
    return line;
}

class Scanner {
public:
    Scanner(std::string_view bytes, Contents *contents) : bytes_(bytes), contents_(contents), segments_(&contents->span)
    {
    }

    Finding read()
    {
        for (std::size_t open = bytes_.find('<'); open != bytes_.npos; open = bytes_.find('<', at_)) {
            const std::size_t close = end_of_tag(open);
            if (close == bytes_.npos)
                return refuse(open, bytes_.size());
            const std::string_view tag = bytes_.substr(open + 1, close - open - 1);
            const std::size_t text = at_; // where the text before this tag began
            at_ = close + 1;
            if (const Finding finding = take(tag, open, text))
                return finding;
        }
        if (depth_ != 0 || !contents_->span.known)
            return refuse(bytes_.size(), bytes_.size());
        return {};
    }

private:
    // The > that ends a tag, outside quotes.
    std::size_t end_of_tag(std::size_t open) const
    {
        char quote = '\0';
        for (std::size_t i = open + 1; i < bytes_.size(); ++i) {
            const char c = bytes_[i];
            if (quote != '\0')
                quote = c == quote ? '\0' : quote;
            else if (c == '"' || c == '\'')
                quote = c;
            else if (c == '<')
                return bytes_.npos;
            else if (c == '>')
                return i;
        }
        return bytes_.npos;
    }

    Finding refuse(std::size_t from, std::size_t to) const
    {
        const Line line = line_at(bytes_, from);
        const std::size_t start = static_cast<std::size_t>(line.text.data() - bytes_.data());
        const std::size_t column = std::min(from - std::min(from, start), line.text.size());
        return malformed(line, line.text.substr(column, to - from));
    }

    Finding take(std::string_view tag, std::size_t open, std::size_t text)
    {
        if (tag.empty() || tag.front() == '!')
            return refuse(open, at_);
        if (tag.front() == '?')
            return {};
        if (tag.front() == '/')
            return end(trimmed(tag.substr(1)), open, text);
        if (tag.back() == '/')
            return {};
        if (depth_ == kDeepest)
            return refuse(open, at_);
        names_[depth_++] = tag.substr(0, tag.find_first_of(" \t\r\n"));
        if (names_[depth_ - 1] == "metadata")
            segments_.begin();
        return {};
    }

    Finding end(std::string_view name, std::size_t open, std::size_t text)
    {
        if (depth_ == 0 || names_[depth_ - 1] != name)
            return refuse(open, at_);
        --depth_;
        const bool entry = depth_ > 0 && names_[depth_ - 1] == "metadata";
        if (!entry && name != "metadata")
            return {};
        const Line line = line_at(bytes_, open);
        if (name == "metadata")
            return segments_.end(line);
        std::string_view value = bytes_.substr(text, open - text);
        while (!value.empty() && (is_blank(value.front()) || value.front() == '\n'))
            value.remove_prefix(1);
        while (!value.empty() && (is_blank(value.back()) || value.back() == '\n'))
            value.remove_suffix(1);
        Finding finding = segments_.take(line, name, value);
        if (finding && value.data() < line.text.data()) // it began on a line before
            finding.column = 1;
        return finding;
    }

    std::string_view bytes_;
    Contents *contents_;
    OemSegments segments_;
    std::size_t at_ = 0;
    std::size_t depth_ = 0;
    std::string_view names_[kDeepest];
};

} // namespace

Finding read_oem_xml(std::string_view bytes, Contents *contents)
{
    return Scanner(bytes, contents).read();
}

} // namespace time_files
