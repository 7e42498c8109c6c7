#pragma once

#include <concepts>

namespace KvRefSystem {

/**
 * C may be compared with A through their common Base, at least one of the two being a derived class.
 *
 * A family's virtual `operator==` takes the base; between two derived classes C++20's reversed candidate
 * would make the comparison ambiguous. One free template a family, constrained by this, decides: the first
 * operand's.
 */
template <class C, class A, class Base>
concept ComparableThrough = std::derived_from<A, Base> && std::derived_from<C, Base> &&
    !(std::same_as<A, Base> && std::same_as<C, Base>);

/**
 * @return `other` as an object of `one`'s class; null for another type, or when another class claims the
 *         type.
 */
template <class Class, class Base>
Class const* AsSameClass(Class const& one, Base const& other) {
    return other.Type == one.Type ? dynamic_cast<Class const*>(&other) : nullptr;
}

} // namespace KvRefSystem
