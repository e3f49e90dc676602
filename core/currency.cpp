#include "core/currency.h"

#include "core/number_format.h"
#include "core/rounding.h"

namespace co {

const Moneda *CurrencyValues::find(int codigo) const {
    for (const Moneda &m : monedas)
        if (m.Codigo == codigo)
            return &m;
    return nullptr;
}

CurrencyValues ValoresMoneda(int codigoMonedaBase, int codigoMonedaNacional, int codigoMonedaEuro,
                             const QList<Moneda> &monedas) {
    CurrencyValues v;
    v.CodigoMonedaBase = codigoMonedaBase;
    v.CodigoMonedaNacional = codigoMonedaNacional;
    v.CodigoMonedaEuro = codigoMonedaEuro;
    v.MonedaBaseEsEuro = codigoMonedaBase != codigoMonedaNacional;
    v.monedas = monedas;
    if (const Moneda *base = v.find(codigoMonedaBase)) {
        v.DecimalesMoneda = base->Decimales;
        v.CambioMoneda = base->Cambio;
        v.AbreviaturaMoneda = base->Abreviatura;
        v.DescripcionMoneda = base->Descripcion;
    }
    return v;
}

double ConvertirMoneda(const QString &modo, double valor, const CurrencyValues &monedas) {
    const Moneda *otra = monedas.find(monedas.MonedaBaseEsEuro ? monedas.CodigoMonedaNacional
                                                               : monedas.CodigoMonedaEuro);
    if (!otra || otra->Cambio == 0)
        return valor;
    const long double cambio = otra->Cambio;
    if (modo == QStringLiteral("AutoInverso"))
        return static_cast<double>(Redondear(monedas.DecimalesMoneda, valor * cambio));
    if (modo == QStringLiteral("Otra Moneda")) {
        const Moneda *euro = monedas.find(monedas.CodigoMonedaEuro);
        if (!euro)
            return valor;
        return static_cast<double>(Redondear(euro->Decimales, valor / cambio));
    }
    return static_cast<double>(Redondear(otra->Decimales, valor / cambio));
}

QString TextoCampoMoneda(double valor, const QString &formato, const CurrencyDisplay &donde,
                         const CurrencyValues &monedas) {
    if (donde.botonEuroPulsado)
        return FormatFloat(formato, ConvertirMoneda(QString(), valor, monedas));
    if (!donde.verOtraMoneda)
        return FormatFloat(formato, valor);
    double cambio = 1;
    if (donde.cambioRegistro)
        cambio = *donde.cambioRegistro;
    else if (donde.cambioMaestro)
        cambio = *donde.cambioMaestro;
    const long double enBase = static_cast<long double>(valor) * cambio;
    return FormatFloat(formato, ConvertirMoneda(QString(), static_cast<double>(enBase), monedas));
}

QString SimboloMonedaMostrada(bool verOtraMoneda, bool monedaBaseEsEuro) {
    return verOtraMoneda != monedaBaseEsEuro ? QStringLiteral("€") : QStringLiteral("Pts");
}

} // namespace co
