#pragma once
// The two-currency display of a form: float fields with tag 1000 or more show
// through `TextoCampoMoneda`, converted while the form's own `pbEuro` is down
// or, for a form without one, while the main window's entry is checked; with
// the entry, the record's `Cambio` counts when the dataset has that field.

#include "core/currency.h"

#include <functional>

namespace co::forms {

class Form;

// `verOtraMoneda` answers whether the main window's entry is checked now.
void PresentarMonedas(Form &form, const CurrencyValues &monedas,
                      std::function<bool()> verOtraMoneda);

} // namespace co::forms
