#pragma once
// The session's currency values read from the company's data: the codes of
// `PARAGENE` and the rows of `MONEDA`. Missing rows give the neutral values
// (0 decimals, exchange 1), so a new company shows its figures unconverted.

#include "core/currency.h"
#include "core/database.h"

namespace co {

CurrencyValues LeerValoresMoneda(TModuloDatos &datos);

} // namespace co
