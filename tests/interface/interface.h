// What the tables of this program are written with: a line names public operations with their
// documented type, and does not compile, link or run where the library has others.
#pragma once

#include <Orlek/Orlek.h>

#include <cstdio>
#include <type_traits>
#include <utility>

namespace interface {

inline int wrong = 0;  // constants that hold another value than documented

/// Stores the address where the compiler may not drop it, so that the linker has to find it.
template <typename Address>
void keep(Address address) {
    [[maybe_unused]] volatile Address kept = address;
}

/// Free functions or static member functions of one type.
template <typename Function, typename... More>
void function(Function* address, More*... addresses) {
    keep(address);
    (function<Function>(addresses), ...);
}

/// Member functions, or public fields, of one type.
template <typename Member, typename... Classes>
void member(Member Classes::*... addresses) {
    (keep(addresses), ...);
}

template <typename Type>
void constant(const Type* address, std::type_identity_t<Type> value,
              const char* file = __builtin_FILE(), int line = __builtin_LINE()) {
    keep(address);
    if (*address == value)
        return;
    std::fprintf(stderr, "%s:%d: the constant has another value\n", file, line);
    ++wrong;
}

/// A constructor that takes these arguments, and the destructor.
template <typename Type, typename... Arguments>
void made() {
    keep(+[](Arguments... arguments) {
        Type object(std::forward<Arguments>(arguments)...);
        static_cast<void>(object);
    });
}

/// Copy construction and assignment.
template <typename Type>
void copied() {
    static_assert(
        std::is_same_v<decltype(std::declval<Type&>() = std::declval<const Type&>()), Type&>);
    keep(+[](Type& target, const Type& source) {
        Type copy(source);
        target = copy;
        target = std::move(copy);
    });
}

/// Classes of values: made without arguments and copied, without virtual operations.
template <typename... Types>
void value() {
    static_assert((!std::is_polymorphic_v<Types> && ...));
    (made<Types>(), ...);
    (copied<Types>(), ...);
}

/// A class with one instance, that nobody else may make.
template <typename Type>
void singleton() {
    static_assert(!std::is_default_constructible_v<Type>);
    function<Type&()>(&Type::instance);
    keep(+[](Type& object) { object.~Type(); });
}

void math();
void geodetic();
void shared();
void drawing();
void network();
void storage();

}  // namespace interface
