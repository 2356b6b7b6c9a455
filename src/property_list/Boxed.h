#pragma once

#include <memory>
#include <utility>

namespace vexa {

/// A value kept apart from its owner, so that the owner is no larger than a pointer. Copies and
/// comparisons are those of the value. A box moved from may only be assigned to or destroyed.
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
