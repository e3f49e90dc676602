#pragma once
// The currency values of a company session and the two-currency display.
//
// The session reads `PARAGENE` and `MONEDA` and keeps a CurrencyValues; the
// routines here are pure functions over it, so the rules can be checked
// without a database.

#include <QList>
#include <QString>
#include <optional>

namespace co {

// One row of `MONEDA`.
struct Moneda {
    int Codigo = 0;
    QString Descripcion;
    QString Abreviatura;
    double Cambio = 1;
    int Decimales = 0;
};

struct CurrencyValues {
    // From `PARAGENE`.
    int CodigoMonedaBase = 0;
    int CodigoMonedaNacional = 0;
    int CodigoMonedaEuro = 0;
    // Of the base currency.
    int DecimalesMoneda = 0;
    double CambioMoneda = 1;
    QString AbreviaturaMoneda;
    QString DescripcionMoneda;
    bool MonedaBaseEsEuro = false;
    // The rows of `MONEDA` the conversions may need.
    QList<Moneda> monedas;

    const Moneda *find(int codigo) const;
};

// Derives the session values from the codes of `PARAGENE` and the rows of
// `MONEDA`: a base currency that isn't found gives 0 decimals and exchange 1.
CurrencyValues ValoresMoneda(int codigoMonedaBase, int codigoMonedaNacional, int codigoMonedaEuro,
                             const QList<Moneda> &monedas);

// A value in the other currency (euro when the base is the national one, the
// national one when the base is the euro). Modes: "AutoInverso" multiplies by
// its `Cambio` and rounds by `DecimalesMoneda`; "Otra Moneda" divides and
// rounds by the euro's `Decimales`; any other mode divides and rounds by the
// other currency's `Decimales`. A currency that isn't found, or an exchange
// of 0, leaves the value as it is.
double ConvertirMoneda(const QString &modo, double valor, const CurrencyValues &monedas);

// Where a float field is being shown.
struct CurrencyDisplay {
    // The active form has a `pbEuro` button and it is down.
    bool botonEuroPulsado = false;
    // The main window's entry `VerDatosenMonedaNacionalOEuro` is checked.
    bool verOtraMoneda = false;
    // `Cambio` of the record, else of its master table, when they have one.
    std::optional<double> cambioRegistro;
    std::optional<double> cambioMaestro;
};

// The display text of a float field under its number template `formato`.
// The form's button wins over the global entry. With the entry checked the
// value is first taken through the record's (or master's) `Cambio`.
QString TextoCampoMoneda(double valor, const QString &formato, const CurrencyDisplay &donde,
                         const CurrencyValues &monedas);

// The symbol the main window's currency panel shows: the currency not in use
// while the entry is checked, the one in use while it is not ("Pts" or "€").
QString SimboloMonedaMostrada(bool verOtraMoneda, bool monedaBaseEsEuro);

} // namespace co
