#pragma once

#include <cstring>

namespace test {

/// What an object that is nothing but one pointer points to: the holder of a sharing array, the
/// matrix of a colour array.
template <class Held, class Object>
Held& held(const Object& object) {
    static_assert(sizeof(Object) == sizeof(Held*), "the object is one pointer");
    Held* pointer;
    std::memcpy(&pointer, &object, sizeof pointer);
    return *pointer;
}

}  // namespace test
