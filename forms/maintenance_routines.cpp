#include "forms/maintenance_routines.h"

#include "core/connection_words.h"
#include "core/date_utils.h"
#include "core/failure_handler.h"
#include "core/sql_text.h"
#include "forms/table.h"

namespace co::forms {

void RutinasFormulario::DespuesGrabarRegistro(Dataset &dataset) {
    // Writes are committed at post on both back-ends: nothing is left to force to disk.
    if (RegistrarActividad)
        RegistrarActividad();
    if (dataset.OwnerName() == u"fFACTFAC3" || EsTablaGeneral(dataset.KeyTableName()))
        return;
    if (SolicitarCamposUsuario == u"SI" && VisorCamposUsuario)
        VisorCamposUsuario(dataset);
    auto *table = dynamic_cast<Table *>(&dataset);
    if (!ResponsabilidadDocumentalActivada || !table)
        return;
    const QString clave = TextoClave(dataset);
    QString corta = clave;
    if (corta.endsWith(u';'))
        corta.chop(1);
    corta.replace(u';', u'|');
    const QString r = datos_.EjecutarSQL(
        QStringLiteral("SELECT NombreTabla FROM RESPDOC WHERE NombreTabla = ") +
            Entrecomillar(table->TableName()) + QStringLiteral(" AND ((ClaveTabla = ") +
            Entrecomillar(clave) + QStringLiteral(") OR (ClaveTabla = ") + Entrecomillar(corta) +
            QStringLiteral("))"),
        kConexionEmpresa, QStringLiteral("Silenciosa"));
    if (r.isEmpty() && ResponsabilidadDocumental)
        ResponsabilidadDocumental(dataset);
}

void RutinasFormulario::AntesEliminarRegistro(Dataset &dataset) {
    if (RegistrarActividad)
        RegistrarActividad();
    auto *table = dynamic_cast<Table *>(&dataset);
    if (!table || datos_.BaseDatosDeTabla(table->TableName()) == kConexionGeneral)
        return;
    if (EliminarDatosAsociados && !EliminarDatosAsociados(*table))
        Abort();
}

void RutinasFormulario::ConfirmarCierreForm(Form &form) {
    QList<Dataset *> pendientes;
    QString nombres;
    for (Dataset *ds : form.Datasets()) {
        if (ds->Active() && ds->IsPending()) {
            pendientes << ds;
            nombres += ds->Name() + QStringLiteral(", ");
        }
    }
    if (pendientes.isEmpty())
        return;
    Messenger &m = datos_.sesion().mensajes();
    const QString respuesta = m.MensajeC(
        QStringLiteral("Hay registros de ") + form.Caption + QStringLiteral(" (") + nombres +
        QStringLiteral(") ") +
        QStringLiteral(" cuya grabación no ha sido confirmada. ¿Desea cancelar la grabación?"));
    for (Dataset *ds : std::as_const(pendientes)) {
        const bool ok = Ejecutar([&] {
            if (respuesta == u"SI" || ds->FieldCount() == 0 ||
                ds->FieldByIndex(0).AsString().isEmpty())
                ds->Cancel();
            else
                ds->Post();
        });
        if (!ok)
            form.CanClose = false;
    }
}

QString RutinasFormulario::TextoClave(Dataset &dataset) {
    QString out;
    for (const QString &campo :
         datos_.ClavePrimaria(dataset.KeyTableName()).split(u';', Qt::SkipEmptyParts)) {
        const Field *f = dataset.FindField(campo);
        out += (f ? f->AsString() : QString()) + u';';
    }
    return out;
}

bool RutinasFormulario::existe(const QString &tabla, const QString &clave) {
    const QStringList campos = datos_.ClavePrimaria(tabla).split(u';', Qt::SkipEmptyParts);
    if (campos.isEmpty())
        return false;
    const QStringList partes = clave.split(u';');
    QString sql = QStringLiteral("SELECT ") + campos.first() + QStringLiteral(" FROM ") +
                  datos_.NombreTablaSQL(tabla) + QStringLiteral("  WHERE 1=1 ");
    for (int i = 0; i < campos.size(); ++i) {
        QString parte = partes.value(i);
        // A date part comes as the screen shows it.
        if (parte.count(u'/') == 2)
            parte = FechaParaSQL(parte, datos_.sesion().FormatoFechaSQL);
        sql += QStringLiteral("  AND ") + campos[i] + QStringLiteral(" = ") + Entrecomillar(parte);
    }
    const QString r =
        datos_.EjecutarSQL(sql, EsTablaGeneral(tabla) ? kConexionGeneral : kConexionEmpresa);
    return !r.isEmpty() && !EsResultadoError(r);
}

bool RutinasFormulario::ExisteClave(Dataset &dataset, const QString &clave) {
    return existe(dataset.KeyTableName(), clave);
}

bool RutinasFormulario::ExisteClaveTabla(const QString &tabla, const QString &clave) {
    return existe(tabla, clave);
}

void RutinasFormulario::ComprobarClave(const ComprobacionClave &c) {
    Messenger &m = datos_.sesion().mensajes();
    auto fallo = [&](const QString &mensaje) {
        m.MensajeA(mensaje);
        if (c.campoClave)
            c.form.SetFocus(c.campoClave);
        Abort();
    };
    if (c.clave.AsString().isEmpty()) {
        c.dataset.Cancel();
        Abort();
    }
    if (c.clave.DataType() == TipoCampo::ftSmallint) {
        const qlonglong v = c.clave.AsInteger();
        if (v < 1 || v > 9999)
            fallo(QStringLiteral("¡ El valor debe estar entre 1 y 9999 !"));
    } else if (c.clave.DataType() == TipoCampo::ftInteger) {
        const qlonglong v = c.clave.AsInteger();
        if (v < 1 || v > 99999999)
            fallo(QStringLiteral("¡ El valor debe estar entre 1 y 99999999 !"));
    }
    if (c.validacion && !c.validacion(c.sender))
        Abort();
    const DatasetState estado = c.dataset.State();
    if (c.familia == FamiliaFormulario::MaestroRejilla) {
        if (estado != DatasetState::Insert)
            return;
        if (c.sender && c.sender->Name().compare(u"pbConforme", Qt::CaseInsensitive) == 0) {
            if (c.grabarDatos)
                c.grabarDatos();
            return;
        }
        if (ExisteClave(c.dataset, TextoClave(c.dataset))) {
            m.MensajeA(QStringLiteral("¡ Ya existe el registro !"));
            Abort();
        }
        return;
    }
    if ((estado == DatasetState::Edit && c.claveCambiada) || estado == DatasetState::Insert) {
        if (ExisteClave(c.dataset, TextoClave(c.dataset))) {
            m.MensajeA(QStringLiteral("¡ Ya existe el registro !"));
            if (estado == DatasetState::Insert && c.campoClave)
                c.form.SetFocus(c.campoClave);
            Abort();
        }
    }
}

bool RutinasFormulario::ComprobarNumero(const QString &texto, const QString &etiqueta) {
    bool ok = false;
    texto.trimmed().toLongLong(&ok);
    if (!ok && !etiqueta.isEmpty())
        datos_.sesion().mensajes().MensajeA(QStringLiteral("¡El valor de ") + etiqueta +
                                            QStringLiteral(" es incorrecto! Repita por favor"));
    return ok;
}

bool RutinasFormulario::ComprobarFecha(const QString &texto, const QString &etiqueta) {
    return FechaValida(texto, etiqueta, &datos_.sesion().mensajes());
}

bool RutinasFormulario::Ejecutar(const std::function<void()> &accion) {
    try {
        accion();
        return true;
    } catch (const EAbort &) {
        return false;
    } catch (const EDatabaseError &e) {
        datos_.sesion().fallos().Gestionar(e.Texto(), Origen);
        return false;
    }
}

} // namespace co::forms
