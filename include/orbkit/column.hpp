/**
 * @file column.hpp
 * Elements of the caller's memory, for the functions of arrays.hpp.
 */
#ifndef ORBKIT_COLUMN_HPP
#define ORBKIT_COLUMN_HPP

#include <array>
#include <cstddef>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace ORBKIT {

/**
 * Elements one after the other that belong to somebody else: of a std::vector, a std::array, a C array, or from a
 * pointer on. Nothing is copied; the elements must stay while the call lasts, so it is for arguments: in a variable it
 * outlives a temporary. Without elements it stands for NULL.
 *
 * @code{.cpp}
 * const double latitude[] = {0.0, 46.5};
 * std::vector<double> longitude = {0.0, 8.0, 99.0}, geoid(2);
 * const ORBKIT::Column<double> two(longitude.data(), 2); // of a longer one
 * ORBKIT::Arrays::geoidCalc(ORBKIT::ModelId(), latitude, two, 360, geoid);
 * std::printf("%.2f %.2f m\n", geoid[0], geoid[1]); // -> 17.16 50.68 m
 * @endcode
 */
template <typename T>
class Column {
public:
    Column() = default;
    Column(T *data, std::size_t size) : data_(data), size_(size) {}
    template <std::size_t N>
    Column(T (&elements)[N]) : data_(elements), size_(N)
    {
    }
    template <typename Container,
              typename = std::enable_if_t<std::is_convertible_v<decltype(std::declval<Container &>().data()), T *>>>
    Column(Container &&elements) : data_(elements.data()), size_(elements.size())
    {
    }

    T *data() const { return data_; }
    std::size_t size() const { return size_; }

private:
    T *data_ = nullptr;
    std::size_t size_ = 0;
};

namespace detail {

template <typename T>
T *elements(const Column<T> &column)
{
    return column.size() != 0 ? column.data() : nullptr;
}
// Arrays of numbers as C has them.
template <typename T, std::size_t N>
auto elements(const Column<std::array<T, N>> &column)
{
    return column.size() != 0 ? reinterpret_cast<T(*)[N]>(column.data()) : nullptr;
}
template <typename T, std::size_t N>
auto elements(const Column<const std::array<T, N>> &column)
{
    return column.size() != 0 ? reinterpret_cast<const T(*)[N]>(column.data()) : nullptr;
}

// Every column has as many elements as the first, or none where C takes NULL.
template <typename... Sizes>
long count(const char *operation, std::size_t n, Sizes... sizes)
{
    if (!((sizes == n || sizes == 0) && ...))
        throw std::invalid_argument(std::string(operation) + ": columns of different lengths");
    return static_cast<long>(n);
}

// A column that C needs and the mode does not: where it was left out, elements of its own take its place.
template <typename T>
class Lent {
public:
    Lent(const Column<T> &given, bool unused, long n)
        : own_(unused && given.size() == 0 ? static_cast<std::size_t>(n) : 0),
          column_(own_.empty() ? given : Column<T>(own_))
    {
    }
    Lent(const Lent &) = delete;
    Lent &operator=(const Lent &) = delete;

    auto elements() const { return detail::elements(column_); }

private:
    std::vector<std::remove_const_t<T>> own_;
    Column<T> column_;
};

inline std::size_t texts(std::size_t octets, long width)
{
    return width > 0 ? octets / static_cast<std::size_t>(width) : 0;
}

// A column that may be left out.
template <typename T>
std::size_t optional(const Column<T> &column, std::size_t n)
{
    return column.size() != 0 ? column.size() : n;
}

} // namespace detail

} // namespace ORBKIT

#endif
