#pragma once
// The main menu as data, and what its entries do, without windows.
//
// A menu entry is a program: its caption without the ampersand is the name the
// rights are tested by. Opening a program goes through `AbrirFormulario`, which
// looks for an open child window of that form (its name cut at the first "_")
// from the last to the first, and creates, restores or shows it.

#include <QList>
#include <QString>
#include <QStringList>
#include <functional>

namespace co {

struct EntradaMenu {
    QString componente; // e.g. "MaestrodeObras1"
    QString caption;    // e.g. "Maestro de Obras"
    QString formulario; // e.g. "fOBRAOBRA"
    QString grupo;      // the top-level menu it stands in
    bool pruebaDerechos = true;
};

// Every program entry of the main menu, in component order.
const QList<EntradaMenu> &EntradasMenuPrincipal();
// The top-level menus, in order.
QStringList GruposMenuPrincipal();

// The child windows of the main window, as the opening logic needs them; the
// desktop implements it over its MDI area, tests over a list.
class AnfitrionVentanas {
public:
    struct Ventana {
        QString nombre; // component name, e.g. "fOBRAOBRA" or "fOBRAOBRA_2"
        bool minimizada = false;
    };
    virtual ~AnfitrionVentanas() = default;
    virtual QList<Ventana> ventanas() const = 0;
    // Creates the window of a form; false when this build has no such screen.
    virtual bool crear(const QString &formulario, const QString &nombre) = 0;
    // Closes a window through its close query; false when it refused.
    virtual bool cerrar(const QString &nombre) = 0;
    virtual void restaurar(const QString &nombre) = 0;
    virtual void mostrar(const QString &nombre) = 0;
};

class MenuPrincipal {
public:
    using Derechos = std::function<bool(const QString &programa)>;
    using Actividad = std::function<void(const QString &ventana, const QString &accion)>;
    using Aviso = std::function<void(const QString &texto)>;

    MenuPrincipal(AnfitrionVentanas &anfitrion, Derechos derechos, Aviso aviso, Actividad actividad = {});

    // The click of an entry. False when refused or when the screen is missing.
    bool Ejecutar(const QString &componente);
    // Opens or brings forward a work window; `opciones` "Create" makes a new one.
    bool AbrirFormulario(const QString &formulario, const QString &opciones, const QString &nombre);
    // After a login or a change of company: opens the user's automatic programs.
    void PrimeraActivacion(const QStringList &programasActivos);

    // Windows that a change of company closes: all but the main window and the
    // general ones ("fGE..."), save four of those.
    static QStringList VentanasQueCierraCambioEmpresa(const QStringList &ventanas);
    // The text shown for an entry whose screen this build does not have.
    static QString TextoNoDisponible(const QString &programa);

private:
    AnfitrionVentanas &anfitrion_;
    Derechos derechos_;
    Aviso aviso_;
    Actividad actividad_;
};

} // namespace co
