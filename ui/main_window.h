#pragma once
// `TfOBRAMENU`: the main multi-document window with the menu of the program.
// Its entries run through the menu logic of the core (rights by caption,
// `AbrirFormulario`); the screens are created by factories registered by name.

#include "core/main_menu.h"
#include "core/messages.h"

#include <QHash>
#include <QMainWindow>
#include <functional>

class QMdiArea;
class QAction;
class QMenu;

namespace co::ui {

class TfOBRAMENU : public QMainWindow, public AnfitrionVentanas {
public:
    using Fabrica = std::function<QWidget *(QWidget *parent)>;

    TfOBRAMENU(Messenger &mensajes, MenuPrincipal::Derechos derechos, MenuPrincipal::Actividad actividad = {},
               QWidget *parent = nullptr);
    ~TfOBRAMENU() override;

    static QString NombrePrograma() { return QStringLiteral("Control de Obras"); }

    // Caption "Control de Obras: " + the company's abbreviation.
    void MostrarEmpresa(const QString &abreviatura);
    void RegistrarPantalla(const QString &formulario, Fabrica fabrica);
    // The report entries follow the works parameters.
    void ConfigurarPartes(bool multiPartes, bool partesSeparados);
    void setCambioEmpresa(std::function<void()> handler) { cambioEmpresa_ = std::move(handler); }

    MenuPrincipal &menu() { return menu_; }
    QMdiArea *mdi() const { return mdi_; }
    QAction *accion(const QString &componente) const;

    // AnfitrionVentanas
    QList<Ventana> ventanas() const override;
    bool crear(const QString &formulario, const QString &nombre) override;
    void cerrar(const QString &nombre) override;
    void restaurar(const QString &nombre) override;
    void mostrar(const QString &nombre) override;

protected:
    // The close of the program: "Close" is logged for the work windows, and each
    // of them closes through its own close query (pending records are asked
    // about there); one that refuses keeps the program open.
    void closeEvent(QCloseEvent *event) override;

private:
    void construirMenu();
    void construirAyuda(QMenu *ayuda);
    void actualizarAyuda();

    Messenger &mensajes_;
    MenuPrincipal menu_;
    QMdiArea *mdi_;
    QHash<QString, Fabrica> fabricas_;
    QHash<QString, QAction *> acciones_;
    std::function<void()> cambioEmpresa_;
    MenuPrincipal::Actividad actividad_;
};

} // namespace co::ui
