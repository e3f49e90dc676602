#include "core/hidden_controls.h"

#include "core/users.h"

namespace co {
namespace {

const QString kClave = QStringLiteral("ControlesNoVisibles");

} // namespace

QString NombreControl(const QString &claseForm, const QString &componente) {
    return claseForm + u'.' + componente;
}

QString NombreColumna(const QString &claseForm, const QString &grid, const QString &dataset,
                      const QString &campo) {
    return claseForm + u'.' + grid + u'.' + dataset + u'.' + campo;
}

ControlesNoVisibles ControlesNoVisibles::Leer(TModuloDatos &datos, const QString &usuario,
                                              bool modoAdministrador,
                                              bool modoControlesNoVisibles) {
    ControlesNoVisibles out;
    if (modoAdministrador || !modoControlesNoVisibles)
        return out;
    QString value;
    ValorUsuario(datos, usuario, kClave, value);
    out.lista_ = ListaValorUsuario(value);
    return out;
}

bool ControlesNoVisibles::ControlOculto(const QString &claseForm, const QString &componente) const {
    return lista_.contains(NombreControl(claseForm, componente));
}

bool ControlesNoVisibles::ColumnaOculta(const QString &claseForm, const QString &grid,
                                        const QString &dataset, const QString &campo) const {
    return lista_.contains(NombreColumna(claseForm, grid, dataset, campo));
}

void ListaControlesSesion::Registrar(const QString &nombre) {
    if (!nombre.isEmpty() && !lista_.contains(nombre))
        lista_ << nombre;
}

int ListaControlesSesion::Finalizar(TModuloDatos &datos, const Visor &visor) const {
    if (lista_.isEmpty())
        return 0;
    Messenger &mensajes = datos.sesion().mensajes();
    const QString texto = lista_.join(QStringLiteral("\r\n"));
    if (mensajes.MensajeC(QStringLiteral("¿Desea ver la Lista de Controles No Visibles?")) ==
            u"SI" &&
        visor)
        visor(QStringLiteral("Controles No Visibles"), texto);
    const QString codigos = mensajes.MensajeP(
        QStringLiteral("Introduzca los Códigos de Usuario (separados por coma) a los que desea "
                       "asignar la lista de Controles No Visibles: "));
    int saved = 0;
    for (const QString &raw : codigos.split(u',')) {
        const QString codigo = raw.trimmed();
        if (codigo.isEmpty())
            continue;
        QString value;
        ValorUsuario(datos, codigo, kClave, value);
        QStringList items = ListaValorUsuario(value);
        for (const QString &name : lista_) {
            if (!items.contains(name))
                items << name;
        }
        if (GuardarValorUsuario(datos, codigo, kClave, items.join(QStringLiteral("\r\n"))))
            ++saved;
    }
    return saved;
}

} // namespace co
