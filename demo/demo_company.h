#pragma once
// The demo company: fills the session's current company with a Spanish
// contractor's masters, works and a year of reports, through the statement
// layer, deterministically for a seed.
//
// A company that already holds data is refused unless `forzar`, which empties
// the demo's tables first. Everything is written in one transaction: a refusal
// or a failure leaves the company as it was. The company's name in `EMPRESA`
// follows once the data are in.

#include "core/database.h"
#include "demo/reports_writer.h"

#include <QString>
#include <QStringList>
#include <cstdint>

namespace co::demo {

inline constexpr double kEscalaMaxima = 1000;

struct OpcionesDemo {
    double escala = 1; // more than 0, at most kEscalaMaxima
    std::uint64_t semilla = 1;
    bool forzar = false;
};

// The tables the demo writes, masters first.
const QStringList &TablasDemo();

// False with `motivo` (a Spanish message) when refused or failed.
bool CrearEmpresaDemo(TModuloDatos &datos, const OpcionesDemo &opciones, RecuentoPartes *recuento,
                      QString *motivo);

} // namespace co::demo
