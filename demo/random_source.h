#pragma once
// A seeded pseudo-random source (splitmix64) whose sequence is fixed by the
// seed alone, whatever the compiler or standard library: the demo data of a
// seed are the same on every machine and back-end.

#include <QList>
#include <QString>
#include <cstdint>

namespace co::demo {

class FuenteAleatoria {
public:
    explicit FuenteAleatoria(std::uint64_t semilla) : estado_(semilla) {}

    std::uint64_t Siguiente();
    // Whole number in [desde, hasta], both included; `desde` when the range is empty.
    int Entero(int desde, int hasta);
    // Real number in [desde, hasta).
    double Real(double desde, double hasta);
    // True with probability `p` (0 to 1).
    bool Probabilidad(double p);
    // An independent source for one part of the data, so that adding draws to
    // one part does not shift the others.
    FuenteAleatoria Derivada(std::uint64_t etiqueta) const;

    template <class T> const T &Elegir(const QList<T> &lista) {
        return lista.at(Entero(0, static_cast<int>(lista.size()) - 1));
    }

private:
    std::uint64_t estado_;
};

} // namespace co::demo
