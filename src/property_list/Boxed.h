#pragma once

#include <memory>
#include <utility>

namespace vexa {

/// Stores a value on the heap, so its owner is no larger than a pointer. Copying and comparing
/// apply to the value. A moved-from box may only be assigned to or destroyed.
template<typename T>
class Boxed {
public:
    explicit Boxed(T value) : m_value(std::make_unique<T>(std::move(value))) {}
    Boxed(const Boxed& other) : Boxed(*other) {}
    Boxed(Boxed&&) noexcept = default;
    Boxed& operator=(const Boxed& other) { return *this = Boxed(other); }
    Boxed& operator=(Boxed&&) noexcept = default;
    ~Boxed() = default;

    T& operator*() { return *m_value; }
    const T& operator*() const { return *m_value; }

    bool operator==(const Boxed& other) const { return **this == *other; }

private:
    std::unique_ptr<T> m_value;
};

} // namespace vexa
