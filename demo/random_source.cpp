#include "demo/random_source.h"

namespace co::demo {

std::uint64_t FuenteAleatoria::Siguiente() {
    std::uint64_t z = (estado_ += 0x9E3779B97F4A7C15ULL);
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ULL;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBULL;
    return z ^ (z >> 31);
}

int FuenteAleatoria::Entero(int desde, int hasta) {
    if (hasta <= desde)
        return desde;
    const std::uint64_t ancho =
        static_cast<std::uint64_t>(static_cast<std::int64_t>(hasta) - desde) + 1;
    return static_cast<int>(desde + static_cast<std::int64_t>(Siguiente() % ancho));
}

double FuenteAleatoria::Real(double desde, double hasta) {
    // 53 random bits make an exact double in [0, 1).
    const double unidad = static_cast<double>(Siguiente() >> 11) * (1.0 / 9007199254740992.0);
    return desde + (hasta - desde) * unidad;
}

bool FuenteAleatoria::Probabilidad(double p) {
    return Real(0.0, 1.0) < p;
}

FuenteAleatoria FuenteAleatoria::Derivada(std::uint64_t etiqueta) const {
    FuenteAleatoria mezcla(estado_ ^ (etiqueta * 0xD6E8FEB86659FD93ULL));
    return FuenteAleatoria(mezcla.Siguiente());
}

} // namespace co::demo
