#include "forms/currency_display.h"

#include "forms/form.h"

namespace co::forms {

void PresentarMonedas(Form &form, const CurrencyValues &monedas,
                      std::function<bool()> verOtraMoneda) {
    for (Dataset *ds : form.Datasets())
        ds->TextoMoneda = [&form, monedas, verOtraMoneda](const Field &f, double valor,
                                                          const QVariantList &registro) {
            CurrencyDisplay donde;
            if (const Component *euro = form.FindComponent(QStringLiteral("pbEuro")))
                donde.botonEuroPulsado = euro->Checked;
            else
                donde.verOtraMoneda = verOtraMoneda && verOtraMoneda();
            if (const Field *cambio = f.DataSet().FindField(QStringLiteral("Cambio"))) {
                const QVariant v = registro.value(cambio->Index());
                if (!v.isNull())
                    donde.cambioRegistro = v.toDouble();
            }
            return TextoCampoMoneda(valor, f.DisplayFormat, donde, monedas);
        };
}

} // namespace co::forms
