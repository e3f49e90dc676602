#include "forms/approximate_search.h"

#include "core/connection_words.h"
#include "core/sql_text.h"

namespace co::forms {

QString CondicionAproximada(const QString &campo, const QString &valor) {
    const QString expresion = PatronComoExpresion(u'%' + PatronAproximado(valor) + u'%');
    return QStringLiteral("(COINCIDEPATRON(") + campo + QStringLiteral(", ") +
           Entrecomillar(expresion) + QStringLiteral(") = 1)");
}

TfGENEBUSA::TfGENEBUSA(TModuloDatos &datos, Messenger &mensajes)
    : Form(QStringLiteral("fGENEBUSA"), QStringLiteral("Búsqueda por Aproximación en la tabla")),
      datos_(datos), mensajes_(mensajes) {
    AddControl(ComponentKind::StringGrid, QStringLiteral("ValueListEditor"));
    filas_ = &Add<Query>(datos_, QStringLiteral("Query1"));
    filas_->ReadOnly = true;
    grid_ = &Add<DBGrid>(QStringLiteral("DBGrid1"),
                         &Add<DataSource>(QStringLiteral("DataSource1"), filas_));
    AddControl(ComponentKind::Button, QStringLiteral("pbBuscar"), QStringLiteral("&Buscar"));
    AddControl(ComponentKind::Button, QStringLiteral("pbConforme"), QStringLiteral("&Conforme"));
    AddControl(ComponentKind::Button, QStringLiteral("pbCancelar"), QStringLiteral("C&ancelar"));
    SetHandler(QStringLiteral("pbBuscarClick"), [this](Component *) { Buscar(); });
    SetHandler(QStringLiteral("pbConformeClick"), [this](Component *) { Conforme(); });
    SetHandler(QStringLiteral("DBGrid1DblClick"), [this](Component *) { Conforme(); });
    SetHandler(QStringLiteral("pbCancelarClick"), [this](Component *) { Cancelar(); });
}

TfGENEBUSA::~TfGENEBUSA() {
    filas_->Close();
}

void TfGENEBUSA::Abrir(const QString &tabla, const OpcionesBusqueda &opciones) {
    tabla_ = tabla;
    opciones_ = opciones;
    resultado_.reset();
    ultimaSentencia_.clear();
    filas_->Close();
    filas_->DatabaseName = EsTablaGeneral(tabla) ? kConexionGeneral : kConexionEmpresa;
    Caption = QStringLiteral("Búsqueda por Aproximación en la tabla") + u' ' + tabla;
    ValueListEditor.clear();
    const QString clase = QStringLiteral("T") + Name;
    for (const QString &c :
         datos_.ColumnasTabla(tabla, QStringLiteral("SinMemos")).split(u';', Qt::SkipEmptyParts))
        if (!opciones_.ocultos.ColumnaOculta(clase, grid_->Name(), filas_->Name(), c))
            ValueListEditor << FilaValor{c, {}};
    SetFocus(FindComponent(QStringLiteral("ValueListEditor")));
}

void TfGENEBUSA::PonerValor(const QString &campo, const QString &valor) {
    for (FilaValor &f : ValueListEditor)
        if (f.campo.compare(campo, Qt::CaseInsensitive) == 0)
            f.valor = valor;
}

void TfGENEBUSA::Buscar() {
    QString where;
    for (const FilaValor &f : ValueListEditor)
        if (!f.valor.isEmpty())
            where += (where.isEmpty() ? QStringLiteral(" WHERE ") : QStringLiteral(" AND ")) +
                     CondicionAproximada(f.campo, f.valor);
    if (where.isEmpty()) {
        mensajes_.MensajeA(
            QStringLiteral("¡Debe introducir alguna restricción para realizar la búsqueda!"));
        return;
    }
    ultimaSentencia_ = QStringLiteral("SELECT * FROM ") + tabla_ + where;
    filas_->Close();
    if (AbrirResultadosBusqueda(*filas_, ultimaSentencia_, *grid_, QStringLiteral("T") + Name, opciones_) &&
        !filas_->IsEmpty())
        SetFocus(grid_);
}

void TfGENEBUSA::Conforme() {
    if (!filas_->Active() || filas_->IsEmpty()) {
        cerrar(std::nullopt);
        return;
    }
    const QStringList clave = datos_.ClavePrimaria(tabla_).split(u';', Qt::SkipEmptyParts);
    QString texto = TextoClaveFila(*filas_, clave, false);
    if (texto.isEmpty() && filas_->FieldCount() > 0)
        texto = filas_->FieldByIndex(0).AsString();
    cerrar(texto.isEmpty() ? std::nullopt : std::optional<QString>(texto));
}

void TfGENEBUSA::Cancelar() {
    cerrar(std::nullopt);
}

void TfGENEBUSA::cerrar(std::optional<QString> resultado) {
    resultado_ = std::move(resultado);
    filas_->Close();
}

bool TfGENEBUSA::ProcesarTecla(const Tecla &t) {
    if (t.key == Qt::Key_Escape) {
        Cancelar();
        return true;
    }
    if (t.key != Qt::Key_Return && t.key != Qt::Key_Enter)
        return false;
    // Enter accepts in the grid rather than moving on.
    if (ActiveControl() == grid_)
        Conforme();
    else
        Buscar();
    return true;
}

} // namespace co::forms
