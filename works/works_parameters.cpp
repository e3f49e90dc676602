#include "works/works_parameters.h"

#include "forms/dataset_errors.h"
#include "works/works_data.h"

namespace co::works {

using forms::ComponentKind;

namespace {

const QStringList kSiNo{QStringLiteral("SI"), QStringLiteral("NO")};
const QStringList kDescripciones{QStringLiteral("Descripcion"),
                                 QStringLiteral("DescripcionAmpliada"),
                                 QStringLiteral("Descripcion+DescripcionAmpliada")};

struct Control {
    const char *campo;
    const char *etiqueta;
    const QStringList *lista; // nullptr for a plain data edit
};

// In screen order; the flags without a label of their own are named by their field.
const Control kControles[] = {
    {"PorGastosIndirectos", "% Gastos Indirectos", nullptr},
    {"PorGastosGenerales", "% Gastos Generales y B.I.", nullptr},
    {"PorSoloGastosGenerales", "% Solo Gastos Generales", nullptr},
    {"PorSoloBenefIndustrial", "% Solo Beneficio Industrial", nullptr},
    {"CoeficienteRevision", "Coeficiente Revision Precios", nullptr},
    {"DtoRetencionVto", "Descontar Retencion Vto.", &kSiNo},
    {"DiasVtoRetencion", "Dias Retención", nullptr},
    {"DtoRetencionFactura", "Descontar Retención Factura", &kSiNo},
    {"CfgDescripcionPresupuesto", "Descripción Impreso Presupuesto", &kDescripciones},
    {"CfgDescripcionFactura", "Descripción Impreso Factura", &kDescripciones},
    {"PlantillaPresupuesto", "Plantilla Presupuesto", nullptr},
    {"PlantillaFactura", "Plantilla Factura", nullptr},
    {"MultiPartes", "MultiPartes", &kSiNo},
    {"PartesSeparados", "P.Separados", &kSiNo},
    {"ModificarPartes", "Modificar Partes", &kSiNo},
    {"AdmPorPorcentajes", "Administración por Porcentajes", &kSiNo},
    {"ContadorMultiMarcajes", "Contador MultiMarcajes", &kSiNo},
};

} // namespace

TfOBRAPARA::TfOBRAPARA(TModuloDatos &datos)
    : Form(QStringLiteral("fOBRAPARA"), QStringLiteral("Parámetros de Control de Obras")),
      rutinas_(datos) {
    declarar();
}

TfOBRAPARA::~TfOBRAPARA() {
    if (table1_->Active())
        table1_->Close();
}

void TfOBRAPARA::declarar() {
    table1_ =
        &Add<forms::Table>(rutinas_.Datos(), QStringLiteral("Table1"), QStringLiteral("PARAOBRA"));
    source1_ = &Add<forms::DataSource>(QStringLiteral("DataSource1"), table1_);
    for (const Control &c : kControles) {
        const QString campo = QString::fromLatin1(c.campo);
        auto &control = Add<forms::DataControl>(
            c.lista ? ComponentKind::DBComboBox : ComponentKind::DBEdit,
            (c.lista ? QStringLiteral("DBComboBox") : QStringLiteral("DBEdit")) + campo, source1_,
            campo);
        control.Caption = QString::fromUtf8(c.etiqueta);
        if (c.lista)
            control.Items = *c.lista;
    }
    AddControl(ComponentKind::Button, QStringLiteral("pbGrabar"), QStringLiteral("&Grabar"));
    AddControl(ComponentKind::Button, QStringLiteral("pbCancelar"), QStringLiteral("&Cancelar"));

    SetHandler(QStringLiteral("pbGrabarClick"), [this](forms::Component *) {
        if (table1_->IsPending())
            table1_->Post();
        Close();
    });
    SetHandler(QStringLiteral("pbCancelarClick"), [this](forms::Component *) {
        if (table1_->IsPending())
            table1_->Cancel();
        Close();
    });
    // One row only: appending is refused once it exists, deleting always.
    SetHandler(QStringLiteral("Table1BeforeInsert"), [this](forms::Component *) {
        if (!table1_->IsEmpty())
            forms::Abort();
    });
    SetHandler(QStringLiteral("Table1BeforeDelete"), [](forms::Component *) { forms::Abort(); });
    SetHandler(QStringLiteral("FormClose"), [this](forms::Component *) {
        if (AlCerrar)
            AlCerrar();
    });
    ConectarEventos();
}

bool TfOBRAPARA::Abrir(AperturaTablas &apertura) {
    FormularioTablas tablas = Tablas();
    if (!apertura.AbrirTablasForm(tablas))
        return false;
    if (!table1_->IsEmpty())
        return true;
    return rutinas_.Ejecutar([this] {
        table1_->Append();
        for (const auto &[campo, valor] : ValoresPorDefectoParametrosObra())
            table1_->FieldByName(campo).SetValue(valor);
        table1_->Post();
    });
}

} // namespace co::works
