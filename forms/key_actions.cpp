#include "forms/key_actions.h"

#include "core/access_history.h"
#include "core/connection_words.h"
#include "core/hidden_controls.h"
#include "core/keystroke_log.h"
#include "core/result_text.h"
#include "core/rights.h"
#include "core/session.h"
#include "core/sql_text.h"
#include "forms/field_search.h"
#include "forms/focus_moves.h"
#include "forms/form.h"
#include "forms/form_preparation.h"
#include "forms/maintenance_routines.h"
#include "forms/table.h"

namespace co::forms {
namespace {

void ponerEnEdicion(Dataset &ds) {
    if (!ds.IsPending())
        ds.Edit();
}

QString primerValor(const QString &resultado) {
    if (resultado.isEmpty() || EsResultadoError(resultado))
        return {};
    return resultado.split(u'\n').first().split(u'|').first();
}

} // namespace

void FuncionNoDisponible(RutinasFormulario &rutinas) {
    rutinas.Datos().sesion().mensajes().MensajeI(
        QStringLiteral("Esta función aún no está disponible en esta versión."));
}

bool VaciarCampo(Form &form) {
    Field *f = CampoEnfocado(form);
    if (!f)
        return false;
    ponerEnEdicion(f->DataSet());
    if (f->IsNumeric())
        f->SetValue(0);
    else
        f->Clear();
    return true;
}

bool ExpandirTextoCodificado(Form &form, RutinasFormulario &rutinas) {
    Component *c = form.ActiveControl();
    if (!c)
        return false;
    const ComponentKind k = c->Kind();
    const bool rejilla = k == ComponentKind::DBGrid;
    const bool datos = k == ComponentKind::DBEdit || k == ComponentKind::DBMemo;
    if (!rejilla && !datos && k != ComponentKind::Edit && k != ComponentKind::Memo)
        return false;
    Field *campo = CampoEnfocado(form);
    if ((rejilla || datos) && !campo)
        return false;
    QString codigo = rejilla ? rutinas.Datos().sesion().Teclado().UltimaPalabra()
                             : (datos ? campo->AsString() : c->Text);
    TModuloDatos &db = rutinas.Datos();
    auto leer = [&](const QString &columna) {
        return db.EjecutarSQL(QStringLiteral("SELECT ") + columna +
                                  QStringLiteral(" FROM TEXTO WHERE Codigo = ") +
                                  Entrecomillar(codigo),
                              kConexionEmpresa, QStringLiteral("Silenciosa"));
    };
    QString texto = primerValor(leer(QStringLiteral("Texto")));
    if (texto.isEmpty()) {
        if (!rutinas.Ventanas.BuscarEnTabla)
            return true;
        const ResultadoBusqueda elegido =
            rutinas.Ventanas.BuscarEnTabla(QStringLiteral("TEXTO"), {});
        codigo = elegido ? elegido->value(0) : QString();
        if (codigo.isEmpty())
            return true;
        texto = primerValor(leer(QStringLiteral("Texto")));
        if (texto.isEmpty())
            return true;
    }
    if (primerValor(leer(QStringLiteral("Tipo"))) == u"Plantilla" && rutinas.Ventanas.Plantilla)
        texto = rutinas.Ventanas.Plantilla(codigo, texto);
    if (campo) {
        ponerEnEdicion(campo->DataSet());
        campo->SetAsString(texto);
    } else {
        c->Text = texto;
    }
    return true;
}

bool BuscarF2(Form &form, RutinasFormulario &rutinas) {
    Component *c = form.ActiveControl();
    auto calculadora = [&](Field &f) {
        if (!rutinas.Ventanas.Calculadora) {
            FuncionNoDisponible(rutinas);
            return true;
        }
        ponerEnEdicion(f.DataSet());
        if (const auto valor = rutinas.Ventanas.Calculadora(f.AsFloat()))
            f.SetAsFloat(*valor);
        return true;
    };
    if (auto *grid = dynamic_cast<DBGrid *>(c)) {
        Field *f = grid->SelectedField();
        if (f && f->IsFloat())
            return calculadora(*f);
        DobleClic(form, rutinas, *grid);
        return true;
    }
    if (c && c->Kind() == ComponentKind::DBEdit) {
        Field *f = CampoEnfocado(form);
        if (f && f->IsFloat())
            return calculadora(*f);
        if (!form.CallHandler(QStringLiteral("BuscarDatosDBEdit"), c) && f)
            BuscarDatosCampo(form, rutinas, *f);
        return true;
    }
    if (form.CallHandler(QStringLiteral("BuscarDatosDBEdit"), c))
        return true;
    if (c && c->Kind() == ComponentKind::Edit && rutinas.Ventanas.BusquedaAsociacion)
        rutinas.Ventanas.BusquedaAsociacion(*c);
    return true;
}

bool OcultarControl(Form &form, RutinasFormulario &rutinas) {
    if (!rutinas.ModoAdministrador)
        return false;
    Component *c = rutinas.Ventanas.ControlBajoRaton ? rutinas.Ventanas.ControlBajoRaton()
                                                     : form.ActiveControl();
    if (!c)
        return true;
    ListaControlesSesion &lista = rutinas.Datos().sesion().Teclado().ControlesSeleccionados;
    auto *grid = dynamic_cast<DBGrid *>(c);
    if (!grid) {
        lista.Registrar(NombreControl(ClaseFormulario(form), c->Name()));
        return true;
    }
    Messenger &m = rutinas.Datos().sesion().mensajes();
    if (m.MensajeC(QStringLiteral("¿Desea agregar la rejilla completa a la lista de controles?")) ==
        u"SI") {
        lista.Registrar(NombreControl(ClaseFormulario(form), grid->Name()));
        return true;
    }
    Dataset *ds = grid->DataSet();
    Field *f = grid->SelectedField();
    if (!ds || !f) {
        m.MensajeA(QStringLiteral("¡No ha sido agregada la columna a la lista de controles!. "
                                  "Intente activar los datos asociados a la rejilla."));
        return true;
    }
    lista.Registrar(NombreControl(ClaseFormulario(form), grid->Name() + u'.' + f->FieldName()));
    return true;
}

bool HistorialRegistro(Form &form, RutinasFormulario &rutinas) {
    Dataset *ds = DatasetEnfocado(form);
    // Cursors of the data modules belong to no form and keep no history.
    if (!ds || !ds->Owner() || !ds->Active() || ds->IsEmpty() || !rutinas.RegistroAccesosActivado)
        return false;
    const QString clave = rutinas.TextoClave(*ds);
    const auto historial = HistorialAccesosRegistro(rutinas.Datos(), ds->KeyTableName(), clave);
    if (!rutinas.Ventanas.VisorHistorial)
        FuncionNoDisponible(rutinas);
    else if (historial)
        rutinas.Ventanas.VisorHistorial(*historial);
    return true;
}

bool ConfigurarImpreso(Form &form, RutinasFormulario &rutinas) {
    Component *c = form.ActiveControl();
    if (!c || c->Name().compare(u"EditFormatoImpreso", Qt::CaseInsensitive) != 0)
        return false;
    TModuloDatos &db = rutinas.Datos();
    if (rutinas.DerechosUsuarioActivos &&
        !UsuarioAccedePrograma(db, db.sesion().CodigoUsuario,
                               QStringLiteral("Configuración de Impresos")))
        return true;
    if (rutinas.Ventanas.ConfiguracionImpresos)
        rutinas.Ventanas.ConfiguracionImpresos(c->Text);
    else
        FuncionNoDisponible(rutinas);
    return true;
}

} // namespace co::forms
