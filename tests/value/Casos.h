#pragma once

// Tables of inputs for the value functions: every row is checked on its own
// and a failure names its row, counted from 0.

#include <gtest/gtest.h>

#include <functional>
#include <initializer_list>
#include <type_traits>
#include <utility>

#include "value/Fault.h"
#include "value/Regional.h"

namespace celdora::test {

const Regional kCommaDecimal{',', '.', DateOrder::DayFirst};
const Regional kMonthFirst{'.', ',', DateOrder::MonthFirst};

// The number of the fault that the call raises, 0 when it raises none.
template <class Call>
long FaultOf(Call&& call) {
    try {
        call();
    } catch (const Fault& fault) {
        return fault.number;
    }
    return 0;
}

// Each input given to f gives its result.
template <class In, class Out, class F>
void Casos(F f, std::initializer_list<std::pair<In, Out>> casos) {
    int fila = 0;
    for (const auto& [entrada, esperado] : casos) {
        if constexpr (std::is_floating_point_v<Out>) {
            EXPECT_DOUBLE_EQ(f(entrada), esperado) << "fila " << fila++;
        } else {
            EXPECT_EQ(f(entrada), esperado) << "fila " << fila++;
        }
    }
}

// Each input makes f raise the fault of that number.
template <class In, class F>
void Fallas(F f, std::initializer_list<std::pair<In, long>> casos) {
    int fila = 0;
    for (const auto& [entrada, numero] : casos) EXPECT_EQ(FaultOf([&] { f(entrada); }), numero) << "fila " << fila++;
}

// Each call raises the fault of that number.
inline void Fallas(std::initializer_list<std::pair<std::function<void()>, long>> casos) {
    int fila = 0;
    for (const auto& [llamada, numero] : casos) EXPECT_EQ(FaultOf(llamada), numero) << "fila " << fila++;
}

}  // namespace celdora::test
