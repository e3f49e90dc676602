#pragma once
// Amounts in words for printed documents, in upper-case Spanish.

#include <QString>

namespace co {

struct CurrencyValues;

// The number in words, feminine throughout except for the millions ("UN
// MILLON", "DOSCIENTOS MILLONES"), each word followed by a blank: 1234 is
// "MIL DOSCIENTAS TREINTA Y CUATRO ". Zero is "CER0 " (digit zero, kept as
// the system has always printed it). A negative whole part starts with
// "MENOS ". A fraction adds "CON " and its two decimals in words.
// Only the first nine digits of the whole part are grouped: amounts are
// expected below one thousand million. NaN and infinities read as zero.
QString NumeroEnLetra(double importe);

// The amount in words with its currency. The euro (`CodigoMonedaEuro`) is
// masculine and takes "EUROS" and "CENTS"; the national currency is feminine
// and takes "PESETAS" and "CENTIMOS"; any other is written masculine and
// followed by its `Descripcion` in upper case. A whole part of 1 makes
// "EURO" and "PESETA", a fraction below 0.015 "CENT" and "CENTIMO".
// Code 0 means the base currency.
QString ImporteEnLetra(int codigoMoneda, double importe, const CurrencyValues &monedas);

} // namespace co
