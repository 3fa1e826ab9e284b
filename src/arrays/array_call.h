// Array forms: one call for n elements, the same as n scalar calls in order.
//
//     long kl_f_n(ids, selectors, const long *n, elements, long *status, long *ierr)
//     {
//         ArrayCall array(KL_FN_F, n, status, ierr);
//         const auto one = [&](long i, long *word) { return f(ids, selectors, element i, word); }; // the scalar call
//         const auto fail = fails_in(results);                     // NaN, 0 and empty texts for element i
//         if (array.nothing())
//             return array.result();
//         if (selectors_are_bad(array.call()))                     // what does not depend on an element
//             return array.refuse(fail);
//         return array.each(one, fail, [&](long first, long count, LeftOver &left) { ... return true; });
//     }
//
// The last argument computes a block by kernels. It reads all inputs of the block before it writes, since outputs may
// lie on inputs, and writes elements that come out well; those with a warning that has no bit and no line it reports by
// left.warns(i - first). The others it leaves to the scalar call, by left.add(i - first), by left.bits() of a kernel
// or, all of them, by returning false: for blocks in which a once-only warning may be due, which the elements have to
// take in order. Verbose calls go through the scalar call element by element.
#ifndef KL_SRC_ARRAYS_ARRAY_CALL_H
#define KL_SRC_ARRAYS_ARRAY_CALL_H

#include "arrays/failed_elements.h"
#include "errors/activation.h"
#include "numbers/kernels.h"
#include "numbers/pack.h"

inline namespace KL_SET {

// Elements of a block that the kernels leave to the scalar call.
class LeftOver {
public:
    std::uint64_t *bits() { return &bits_; } // a bit a place, for kernels to set
    void add(long place) { bits_ |= std::uint64_t{1} << place; }
    bool has(long place) const { return (bits_ >> place & 1) != 0; }
    bool any() const { return bits_ != 0; }

    // An element that the kernels computed, with a warning.
    void warns(long place) { warned_ |= std::uint64_t{1} << place; }
    bool warned(long place) const { return (warned_ >> place & 1) != 0; }
    bool any_warned() const { return warned_ != 0; }

private:
    static_assert(kBlock <= 64);
    std::uint64_t bits_ = 0;
    std::uint64_t warned_ = 0;
};

// Element i of an array that may be missing.
template <class T>
T *element(T *array, long i)
{
    return array != nullptr ? array + i : nullptr;
}
template <class T, std::size_t M>
T *element(T (*array)[M], long i)
{
    return array != nullptr ? array[i] : nullptr;
}

// The padding of a block for kernels: from `count` up to whole packs its last element again.
inline void pad(double *elements, long count)
{
    for (long i = count; i % kMostLanes != 0; ++i)
        elements[i] = elements[count - 1];
}
inline long padded(long count)
{
    return (count + kMostLanes - 1) / kMostLanes * kMostLanes;
}

class ArrayCall {
public:
    ArrayCall(int function_id, const long *n, long *status, long *ierr, int n_words = 1)
        : call_(function_id, ierr, n_words), n_(n != nullptr ? *n : -1), n_words_(n_words), status_(status), ierr_(ierr)
    {
    }

    // True without elements, and for a count that is none.
    bool nothing() const { return n_ <= 0; }
    long result() const { return n_ == 0 ? long{KL_OK} : long{KL_ERR}; }

    long n() const { return n_; }

    // For conditions of the whole call.
    Activation &call() { return call_; }

    // Every element fails, with the conditions recorded so far alone.
    template <class Fail>
    long refuse(Fail fail)
    {
        for (long i = 0; i < n_; ++i) {
            fail(i);
            if (status_ != nullptr)
                status_[i] = KL_ERR;
        }
        return KL_ERR;
    }

    // Is an array missing that every element reads? That is said here, once; the call is to be refused.
    bool lacks(const void *column, int condition)
    {
        if (column == nullptr)
            call_.fails(condition);
        return column == nullptr;
    }

    template <long Length = kBlock, class One, class Fail, class Block>
    long each(One one, Fail fail, Block block)
    {
        static_assert(Length <= kBlock);
        for (long first = 0; first < n_; first += Length) {
            const long count = n_ - first < Length ? n_ - first : Length;
            LeftOver left;
            const bool by_kernels = !is_verbose() && block(first, count, left);
            if (by_kernels && status_ != nullptr)
                for (long k = 0; k < count; ++k)
                    status_[first + k] = left.warned(k) ? KL_WARN : KL_OK;
            warned_ |= by_kernels && left.any_warned();
            if (!by_kernels || left.any())
                for (long k = 0; k < count; ++k)
                    if (!by_kernels || left.has(k))
                        alone(first + k, one, fail);
        }
        return failed_ ? KL_ERR : warned_ ? KL_WARN : KL_OK;
    }

    // Without kernels.
    template <class One, class Fail>
    long each(One one, Fail fail)
    {
        return each(one, fail, [](long, long, LeftOver &) { return false; });
    }

private:
    template <class One, class Fail>
    void alone(long i, One &one, Fail &fail)
    {
        long words[kMostWords] = {};
        const long status = one(i, words);
        for (int w = 0; w < n_words_ && ierr_ != nullptr; ++w)
            ierr_[w] |= words[w];
        if (status == KL_ERR) {
            failed_ = true;
            fail(i);
        }
        warned_ |= status == KL_WARN;
        if (status_ != nullptr)
            status_[i] = status;
    }

    static constexpr int kMostWords = 2;
    Activation call_;
    long n_;
    int n_words_;
    long *status_;
    long *ierr_;
    bool failed_ = false;
    bool warned_ = false;
};

} // namespace KL_SET

#endif
