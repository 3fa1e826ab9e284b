// SHA-1 (FIPS 180-4), which the lists of leap seconds carry against damage. No protection against forgery.
#ifndef KL_SRC_TIME_FILES_SHA1_H
#define KL_SRC_TIME_FILES_SHA1_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace time_files {

class Sha1 {
public:
    using Digest = std::array<std::uint32_t, 5>;

    void add(std::string_view text)
    {
        for (const char c : text)
            add_byte(static_cast<std::uint8_t>(c));
    }

    // Of all that was added so far.
    Digest digest() const
    {
        Sha1 end = *this;
        const std::uint64_t bits = 8 * length_;
        end.add_byte(0x80);
        while (end.length_ % kBlock != kBlock - 8)
            end.add_byte(0);
        for (int shift = 56; shift >= 0; shift -= 8)
            end.add_byte(static_cast<std::uint8_t>(bits >> shift));
        return end.state_;
    }

private:
    static constexpr std::size_t kBlock = 64;

    static std::uint32_t rotated(std::uint32_t x, int by) { return (x << by) | (x >> (32 - by)); }

    void add_byte(std::uint8_t byte)
    {
        block_[length_++ % kBlock] = byte;
        if (length_ % kBlock == 0)
            take_block();
    }

    void take_block()
    {
        std::array<std::uint32_t, 80> w{};
        for (std::size_t i = 0; i < 16; ++i)
            for (std::size_t k = 0; k < 4; ++k)
                w[i] = w[i] << 8 | block_[4 * i + k];
        for (std::size_t i = 16; i < w.size(); ++i)
            w[i] = rotated(w[i - 3] ^ w[i - 8] ^ w[i - 14] ^ w[i - 16], 1);
        auto [a, b, c, d, e] = state_;
        for (std::size_t i = 0; i < w.size(); ++i) {
            const std::uint32_t f = i < 20   ? ((b & c) | (~b & d)) + 0x5a827999U
                                    : i < 40 ? (b ^ c ^ d) + 0x6ed9eba1U
                                    : i < 60 ? ((b & c) | (b & d) | (c & d)) + 0x8f1bbcdcU
                                             : (b ^ c ^ d) + 0xca62c1d6U;
            const std::uint32_t next = rotated(a, 5) + f + e + w[i];
            e = d;
            d = c;
            c = rotated(b, 30);
            b = a;
            a = next;
        }
        state_ = {state_[0] + a, state_[1] + b, state_[2] + c, state_[3] + d, state_[4] + e};
    }

    Digest state_ = {0x67452301U, 0xefcdab89U, 0x98badcfeU, 0x10325476U, 0xc3d2e1f0U};
    std::array<std::uint8_t, kBlock> block_{};
    std::uint64_t length_ = 0; // bytes
};

} // namespace time_files

#endif
