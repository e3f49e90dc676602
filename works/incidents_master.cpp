#include "works/incidents_master.h"

namespace co::works {

namespace {
forms::GridColumn lista(const char *campo, const char *titulo, QStringList valores) {
    forms::GridColumn c{QString::fromLatin1(campo), QString::fromUtf8(titulo)};
    c.PickList = std::move(valores);
    return c;
}
} // namespace

TfOBRAINCI::TfOBRAINCI(TModuloDatos &datos)
    : MaestroRejilla(
          datos,
          {QStringLiteral("fOBRAINCI"),
           QStringLiteral("Maestro de Incidencias"),
           QStringLiteral("INCIDENC"),
           QStringLiteral("Codigo"),
           {{QStringLiteral("Codigo"), QStringLiteral("Código"), {}},
            {QStringLiteral("Descripcion"), QStringLiteral("Descripción"), {}},
            lista("Tipo", "Tipo", {QStringLiteral("Trabajo"), QStringLiteral("Maquina")}),
            lista("Imputable", "Imputable", {QStringLiteral("SI"), QStringLiteral("NO")})}}) {}

void TfOBRAINCI::ValoresIniciales() {
    Table1().FieldByName(QStringLiteral("Tipo")).SetAsString(QStringLiteral("Trabajo"));
    Table1().FieldByName(QStringLiteral("Imputable")).SetAsString(QStringLiteral("SI"));
}

bool IncidenciaImputable(const QVariant &imputable) {
    return imputable.toString() == QStringLiteral("SI");
}

} // namespace co::works
