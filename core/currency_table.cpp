#include "core/currency_table.h"

namespace co {

CurrencyValues LeerValoresMoneda(TModuloDatos &datos) {
    Consulta parametros;
    parametros.SQL = QStringLiteral("SELECT CodigoMonedaBase, CodigoMonedaNacional, CodigoMonedaEuro FROM PARAGENE "
                                    "WHERE IdRegistro = 1");
    int base = 0, nacional = 0, euro = 0;
    if (datos.AbrirConsulta(parametros, QStringLiteral("Silencio")) && parametros.RecordCount() > 0) {
        base = parametros.Value(0, 0).toInt();
        nacional = parametros.Value(0, 1).toInt();
        euro = parametros.Value(0, 2).toInt();
    }
    Consulta filas;
    filas.SQL = QStringLiteral("SELECT Codigo, Descripcion, Abreviatura, Cambio, Decimales FROM MONEDA ORDER BY Codigo");
    QList<Moneda> monedas;
    if (datos.AbrirConsulta(filas, QStringLiteral("Silencio")))
        for (int r = 0; r < filas.RecordCount(); ++r) {
            Moneda m;
            m.Codigo = filas.Value(r, 0).toInt();
            m.Descripcion = filas.Value(r, 1).toString();
            m.Abreviatura = filas.Value(r, 2).toString();
            m.Cambio = filas.Value(r, 3).isNull() ? 1.0 : filas.Value(r, 3).toDouble();
            m.Decimales = filas.Value(r, 4).toInt();
            monedas.append(m);
        }
    return ValoresMoneda(base, nacional, euro, monedas);
}

} // namespace co
