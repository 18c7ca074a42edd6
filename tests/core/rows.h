#pragma once

#include <initializer_list>
#include <tuple>

// The rows of a table-driven test: `for (const auto &[a, b] : Rows<A, B>{...})`.
template <typename... T> using Rows = std::initializer_list<std::tuple<T...>>;
