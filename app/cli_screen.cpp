#include "cli_screen.h"

#include "core/main_menu.h"
#include "core/rights.h"
#include "core/session.h"
#include "core/text_utils.h"
#include "forms/general_screens.h"
#include "works/screens.h"

namespace co::cli {

namespace {

// The entry named by its program (caption without "&", any case) or its form.
const EntradaMenu *entrada(const QString &programa) {
    for (const EntradaMenu &e : EntradasMenuPrincipal())
        if (SinAmpersand(e.caption).compare(programa, Qt::CaseInsensitive) == 0 ||
            e.formulario.compare(programa, Qt::CaseInsensitive) == 0)
            return &e;
    return nullptr;
}

QString filas(const forms::DBGrid &grid) {
    QList<const forms::GridColumn *> columnas;
    QStringList titulos;
    for (const forms::GridColumn &c : grid.Columns)
        if (c.Visible) {
            columnas << &c;
            titulos << c.Title;
        }
    QString out = titulos.join(u'|') + u'\n';
    forms::Dataset *datos = grid.DataSet();
    if (!datos || datos->IsEmpty())
        return out;
    for (datos->First(); !datos->Eof(); datos->Next()) {
        QStringList valores;
        for (const forms::GridColumn *c : columnas) {
            const forms::Field *f = datos->FindField(c->FieldName);
            valores << (f ? f->DisplayText() : QString());
        }
        out += valores.join(u'|') + u'\n';
    }
    return out;
}

QString controles(const forms::Form &pantalla) {
    QString out;
    for (forms::Component *c : pantalla.Components()) {
        auto *control = dynamic_cast<forms::DataControl *>(c);
        if (!control || !control->Visible)
            continue;
        const forms::Field *f = control->BoundField();
        // A memo's lines stay on the control's one line, its breaks written "·".
        QString valor = f ? f->DisplayText() : QString();
        valor.replace(QStringLiteral("\r\n"), QStringLiteral("·")).replace(u'\n', u'·');
        out += (control->Caption.isEmpty() ? control->DataField : control->Caption) + u'|' + valor +
               u'\n';
    }
    return out;
}

} // namespace

std::optional<QString> TextoPantalla(Aplicacion &aplicacion, const QString &programa) {
    Messenger &mensajes = aplicacion.sesion().mensajes();
    const EntradaMenu *e = entrada(programa);
    forms::RegistroPantallas registro;
    forms::RegistrarPantallasGenerales(registro, forms::SesionGeneralDe(aplicacion));
    works::RegistrarPantallasObras(registro);
    if (!e || !registro.Contiene(e->formulario)) {
        mensajes.MensajeA(
            e ? MenuPrincipal::TextoNoDisponible(SinAmpersand(e->caption))
              : QStringLiteral("¡No existe el programa %1 en el menú!").arg(programa));
        return std::nullopt;
    }
    if (e->pruebaDerechos &&
        !UsuarioAccedePrograma(aplicacion.datos(), aplicacion.sesion().CodigoUsuario,
                               SinAmpersand(e->caption)))
        return std::nullopt;
    const auto pantalla = registro.Abrir(e->formulario, forms::EntornoDeSesion(aplicacion));
    if (!pantalla)
        return std::nullopt;
    QString out = pantalla->Caption + u'\n';
    if (auto *grid = pantalla->Find<forms::DBGrid>(QStringLiteral("DBGrid1")))
        out += filas(*grid);
    else
        out += controles(*pantalla);
    return out;
}

} // namespace co::cli
