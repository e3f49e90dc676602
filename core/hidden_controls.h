#pragma once
// Controls and grid columns hidden per user, and the collecting of control
// names in administrator mode. Forms apply the answers; nothing here draws.
//
// Contract:
// - A control is named form class + "." + component name; a grid column form
//   class + "." + grid + "." + dataset + "." + field. Names compare exactly.
// - The user's list is `ControlesNoVisibles` (profile rules of `ValorUsuario`),
//   its items split at line breaks, "·" and commas. It applies only with
//   `ModoControlesNoVisiblesActivado` on and `ModoAdministradorActivado` off.
// - In administrator mode F8 adds a control's name to the session's list;
//   at the end that list may be shown and appended to the lists of the users
//   named at a prompt (codes separated by commas).

#include "core/database.h"

#include <QString>
#include <QStringList>
#include <functional>

namespace co {

// Form class + "." + component, the hint a control gets in administrator mode.
QString NombreControl(const QString &claseForm, const QString &componente);
QString NombreColumna(const QString &claseForm, const QString &grid, const QString &dataset,
                      const QString &campo);

class ControlesNoVisibles {
public:
    // The list of `usuario` when the modes call for hiding; empty otherwise.
    static ControlesNoVisibles Leer(TModuloDatos &datos, const QString &usuario,
                                    bool modoAdministrador, bool modoControlesNoVisibles);

    bool ControlOculto(const QString &claseForm, const QString &componente) const;
    bool ColumnaOculta(const QString &claseForm, const QString &grid, const QString &dataset,
                       const QString &campo) const;
    const QStringList &lista() const { return lista_; }

private:
    QStringList lista_;
};

// The session's list of control names picked with F8.
class ListaControlesSesion {
public:
    // Adds a name once.
    void Registrar(const QString &nombre);
    const QStringList &lista() const { return lista_; }

    // The closing dialogue: with a non-empty list, asks whether to see it (and
    // shows it through `visor` with the title "Controles No Visibles"), then asks
    // for user codes and appends the list to each one's `ControlesNoVisibles`.
    // Returns the number of users whose list was saved.
    using Visor = std::function<void(const QString &titulo, const QString &texto)>;
    int Finalizar(TModuloDatos &datos, const Visor &visor) const;

private:
    QStringList lista_;
};

} // namespace co
