#include "forms/searches.h"

#include "core/structure_files.h"
#include "core/users.h"
#include "forms/pick_list_check.h"
#include "forms/search_associations.h"

#include <utility>

namespace co::forms {

namespace {
const QString kPorDefecto = QStringLiteral("PorDefecto=");

ResultadoBusqueda valores(const std::optional<QString> &texto) {
    if (!texto)
        return std::nullopt;
    QStringList v = texto->split(QStringLiteral("\r\n"));
    for (QString &s : v)
        if (s == u"NULL")
            s.clear();
    return v;
}
} // namespace

QString EtiquetaControl(const QString &nombre) {
    QString resto = nombre;
    if (resto.startsWith(QStringLiteral("Edit")))
        resto = resto.mid(4);
    else
        while (!resto.isEmpty() && resto.front().isLower())
            resto.remove(0, 1);
    return EtiquetaCampo(resto.isEmpty() ? nombre : resto);
}

Busquedas::Busquedas(TModuloDatos &datos, Messenger &mensajes, EjecutorBusqueda &ejecutor,
                     LectorOpciones opciones)
    : datos_(datos), mensajes_(mensajes), ejecutor_(ejecutor), opciones_(std::move(opciones)),
      busq_(std::make_unique<TfGENEBUSQ>(datos, mensajes)),
      busa_(std::make_unique<TfGENEBUSA>(datos, mensajes)) {}

Busquedas::~Busquedas() = default;

ResultadoBusqueda Busquedas::buscar(const QString &tabla, int indice, const QString &restriccion,
                                    const QString &texto) {
    const OpcionesBusqueda o = opciones_();
    if (o.busquedaAproximadaActivada) {
        estado_ = {};
        campoSiguiente_.clear();
        return valores(BuscarPorAproximacion(tabla));
    }
    estado_.tabla = tabla;
    estado_.indice = indice;
    estado_.restriccion = restriccion;
    estado_.textoInicial = texto.startsWith(kPorDefecto) ? texto.mid(kPorDefecto.size()) : texto;
    estado_.campo = std::exchange(campoSiguiente_, QString());
    if (!estado_.campo.isEmpty())
        estado_.textoInicial.clear(); // the key is no value of that field
    if (!o.desactivarIndicesPorUsuario && o.opcionesPorUsuario) {
        QString almacenado;
        ValorUsuario(datos_, o.usuario, QStringLiteral("IndicesBusqueda"), almacenado);
        bool ok = false;
        const int n = EntradaOpciones(almacenado, tabla).value_or(QString()).toInt(&ok);
        if (ok && n >= 0)
            estado_.indice = n;
    }
    busq_->Abrir(estado_, o);
    if (busq_->Abierta())
        ejecutor_.Mostrar(*busq_);
    busq_->DatoABuscar().Text.clear();
    estado_.restriccion.clear();
    estado_.columnas.clear();
    return valores(busq_->Resultado());
}

ResultadoBusqueda Busquedas::BuscarEnTabla(const QString &tabla, int indice) {
    return buscar(tabla, indice, {}, {});
}

ResultadoBusqueda Busquedas::BuscarEnTablaFiltrada(const QString &tabla, int indice,
                                                   const QString &restriccion) {
    return buscar(tabla, indice, restriccion, {});
}

ResultadoBusqueda Busquedas::BuscarEnTablaPorDefecto(const QString &tabla, int indice,
                                                     const QString &restriccion,
                                                     const QString &porDefecto) {
    return buscar(tabla, indice, restriccion, porDefecto);
}

ResultadoBusqueda Busquedas::BuscarRegistro(Table &tabla, int indice) {
    return BuscarRegistroFiltrado(tabla, indice, {});
}

ResultadoBusqueda Busquedas::BuscarRegistroPorCampo(Table &tabla, const QString &campo) {
    campoSiguiente_ = campo;
    return BuscarRegistroFiltrado(tabla, 0, {});
}

ResultadoBusqueda Busquedas::BuscarRegistroFiltrado(Table &tabla, int indice,
                                                    const QString &restriccion) {
    QString clave = tabla.Active() && !tabla.IsEmpty() ? datos_.ValorClave(tabla) : QString();
    if (clave.endsWith(u';'))
        clave.chop(1);
    const ResultadoBusqueda r = buscar(tabla.TableName(), indice, restriccion, clave);
    if (!r)
        return r;
    QStringList campos = tabla.PrimaryKey();
    QVariantList buscados;
    for (int i = 0; i < std::min(campos.size(), r->size()); ++i)
        buscados << r->at(i);
    campos = campos.mid(0, buscados.size());
    // An hour in the key is not found by its text.
    if (!campos.isEmpty() && tabla.FieldByName(campos.last()).IsHourField()) {
        campos.removeLast();
        buscados.removeLast();
    }
    bool encontrado = false;
    try {
        encontrado = !campos.isEmpty() && tabla.Locate(campos.join(u';'), buscados);
    } catch (const EDatabaseError &) {
    }
    if (!encontrado)
        mensajes_.MensajeA(QStringLiteral("¡No ha sido posible encontrar el dato solicitado!"));
    return r;
}

std::optional<QString> Busquedas::BuscarPorAproximacion(const QString &tabla) {
    busa_->Abrir(tabla, opciones_());
    ejecutor_.Mostrar(*busa_);
    return busa_->Resultado();
}

void Busquedas::BuscarPorAsociacion(Component &edit) {
    const OpcionesBusqueda o = opciones_();
    QString tabla = TablaAsociada(o.carpetaPrograma, edit.Name());
    if (tabla.isEmpty()) {
        const QString etiqueta = EtiquetaControl(edit.Name());
        if (mensajes_.MensajeC(
                QStringLiteral("No existe una Tabla de Búsqueda asociada al control \"") +
                etiqueta + QStringLiteral("\". ") +
                QStringLiteral("¿Desea localizar una tabla adecuada ahora?")) != u"SI")
            return;
        tabla = ejecutor_.SeleccionarTabla(
            ListaTablasBD(o.rutaEstructuras, QStringLiteral("ExcluirTablasBDGeneral")),
            QStringLiteral("Titulo=Selección de Tabla\r\nFormato=0,0,300,0\r\nOpciones=Ordenada"));
        if (tabla.isEmpty())
            return;
        if (mensajes_.MensajeC(QStringLiteral("¿Desea asociar el control ") + etiqueta +
                               QStringLiteral(" con la tabla ") + tabla +
                               QStringLiteral(" de forma permanente?")) == u"SI") {
            const QString motivo = AsociarControl(o.carpetaPrograma, edit.Name(), tabla);
            if (!motivo.isEmpty())
                mensajes_.MensajeA(
                    QStringLiteral(
                        "No ha sido posible grabar los datos en la tabla de búsquedas. Motivo: ") +
                    motivo);
        }
    }
    const ResultadoBusqueda r = BuscarEnTabla(tabla, 0);
    if (r && !r->isEmpty())
        edit.Text = r->first();
}

void Busquedas::Conectar(VentanasFormulario &v) {
    v.BuscarEnTabla = [this](const QString &tabla, const QString &restriccion) {
        return BuscarEnTablaFiltrada(tabla, 0, restriccion);
    };
    v.BuscarRegistro = [this](Table &tabla) { BuscarRegistro(tabla); };
    v.BuscarRegistroPorCampo = [this](Table &tabla, const QString &campo) {
        BuscarRegistroPorCampo(tabla, campo);
    };
    v.BusquedaAsociacion = [this](Component &edit) { BuscarPorAsociacion(edit); };
}

} // namespace co::forms
