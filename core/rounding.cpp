#include "core/rounding.h"

#include <cmath>
#include <cstdint>
#include <limits>

namespace co {

namespace {
constexpr long double kMargin = 0.5000001L;
// 2^63: the first magnitude a signed 64-bit integer cannot hold.
constexpr long double kInt64Limit = 9223372036854775808.0L;
} // namespace

long double RedondearEntero(long double valor) {
    if (!std::isfinite(valor))
        return valor;
    const bool negative = valor < 0;
    const long double magnitude = std::fabs(valor);
    long double result;
    if (magnitude + kMargin < kInt64Limit) {
        result = static_cast<long double>(static_cast<std::int64_t>(magnitude + kMargin));
    } else {
        long double whole;
        const long double fraction = std::modf(magnitude, &whole);
        result = fraction > 0.5L ? whole + 1 : whole;
    }
    if (result == 0)
        return 0;
    return negative ? -result : result;
}

long double Redondear(int decimales, long double valor) {
    if (!std::isfinite(valor))
        return valor;
    long double factor = 1;
    for (int i = 0; i < decimales && std::isfinite(factor); ++i)
        factor *= 10;
    const long double scaled = valor * factor;
    if (!std::isfinite(scaled) || !std::isfinite(factor))
        return valor;
    const long double result = RedondearEntero(scaled) / factor;
    return std::isfinite(result) ? result : valor;
}

bool EsCero(long double valor) {
    return valor > -0.00001L && valor < 0.00001L;
}

} // namespace co
