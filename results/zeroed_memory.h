// Memory that the system gives out as zeros and that costs nothing before something else is written there.
#pragma once

#include <cstddef>
#include <cstdlib>
#include <limits>
#include <new>
#include <type_traits>
#include <utility>
#include <vector>

namespace sbd {

/// An allocator. Files of results have holes of zeros, hundreds of megabytes at times, that must not fill the memory.
template <typename T>
class CZeroedMemory {
public:
    using value_type = T;
    using is_always_equal = std::true_type;

    /// What a list begins with when it is made: the zeros of memory that nobody has used.
    struct Fresh {};

    CZeroedMemory() = default;
    explicit CZeroedMemory(Fresh) : isFresh_(true) {}
    template <typename Other>
    CZeroedMemory(const CZeroedMemory<Other>&)
    {
    }

    [[nodiscard]] T* allocate(std::size_t count)
    {
        if (count > std::numeric_limits<std::size_t>::max() / sizeof(T))
            throw std::bad_alloc();
        void* const memory = std::calloc(count, sizeof(T));
        if (memory == nullptr)
            throw std::bad_alloc();
        return static_cast<T*>(memory);
    }
    void deallocate(T* memory, std::size_t) { std::free(memory); }

    template <typename Entry>
    void construct(Entry* place)
    {
        if (!isFresh_)
            ::new (static_cast<void*>(place)) Entry();
    }
    template <typename Entry, typename... Values>
    void construct(Entry* place, Values&&... values)
    {
        ::new (static_cast<void*>(place)) Entry(std::forward<Values>(values)...);
    }

    friend bool operator==(const CZeroedMemory&, const CZeroedMemory&) { return true; }

private:
    bool isFresh_ = false;
};

/// The values of a file of results.
using ResultValues = std::vector<double, CZeroedMemory<double>>;

} // namespace sbd
