#include "forms/currency_display.h"

#include "forms/form.h"

namespace co::forms {

void PresentarMonedas(Form &form, const CurrencyValues &monedas,
                      std::function<bool()> verOtraMoneda) {
    for (Dataset *ds : form.Datasets())
        ds->TextoMoneda = [&form, monedas, verOtraMoneda](const Field &f) {
            CurrencyDisplay donde;
            if (const Component *euro = form.FindComponent(QStringLiteral("pbEuro")))
                donde.botonEuroPulsado = euro->Checked;
            else
                donde.verOtraMoneda = verOtraMoneda && verOtraMoneda();
            if (const Field *cambio = f.DataSet().FindField(QStringLiteral("Cambio"));
                cambio && !cambio->IsNull())
                donde.cambioRegistro = cambio->AsFloat();
            return TextoCampoMoneda(f.AsFloat(), f.DisplayFormat, donde, monedas);
        };
}

} // namespace co::forms
