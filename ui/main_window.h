#pragma once
// `TfOBRAMENU`: the main multi-document window with the menu of the program.
// Its entries run through the menu logic of the core (rights by caption,
// `AbrirFormulario`); the screens are created by factories registered by name.
// An entry whose screen is not registered stays disabled, its tip saying so.
// The "Ventana" menu arranges the work windows and lists them; Ctrl+F4 closes
// the active one. A work window opens normal, sized to its content within the
// work area. The Alt letters of the active work window win over the main
// menu's: a top menu whose letter it uses loses its letter meanwhile.

#include "core/main_menu.h"
#include "core/messages.h"

#include <QHash>
#include <QMainWindow>
#include <functional>

class QMdiSubWindow;
class QMdiArea;
class QAction;
class QMenu;
class QLabel;

namespace co::ui {

class TfOBRAMENU : public QMainWindow, public AnfitrionVentanas {
public:
    using Fabrica = std::function<QWidget *(QWidget *parent)>;

    TfOBRAMENU(Messenger &mensajes, MenuPrincipal::Derechos derechos,
               MenuPrincipal::Actividad actividad = {}, QWidget *parent = nullptr);
    ~TfOBRAMENU() override;

    static QString NombrePrograma() { return QStringLiteral("Control de Obras"); }

    // Caption "Control de Obras: " + the company's abbreviation.
    void MostrarEmpresa(const QString &abreviatura);
    void RegistrarPantalla(const QString &formulario, Fabrica fabrica);
    // The report entries follow the works parameters.
    void ConfigurarPartes(bool multiPartes, bool partesSeparados);
    void setCambioEmpresa(std::function<void()> handler) { cambioEmpresa_ = std::move(handler); }
    // `VerDatosenMonedaNacionalOEuro`: each click inverts the entry, shows the
    // panel with the symbol of the shown currency and runs the handler.
    void setCambioMoneda(std::function<void(bool verOtraMoneda)> handler) {
        cambioMoneda_ = std::move(handler);
    }
    void setMonedaBaseEsEuro(bool euro) { monedaBaseEsEuro_ = euro; }
    bool VerOtraMoneda() const;
    QString PanelMoneda() const;
    // Runs once the work windows have closed and the program is about to end.
    void setAlCerrar(std::function<void()> handler) { alCerrar_ = std::move(handler); }

    MenuPrincipal &menu() { return menu_; }
    QMdiArea *mdi() const { return mdi_; }
    QAction *accion(const QString &componente) const;

    // AnfitrionVentanas
    QList<Ventana> ventanas() const override;
    bool crear(const QString &formulario, const QString &nombre) override;
    // A window that accepts is destroyed at once, so nothing of it outlives
    // the call (a change of company reconnects right after).
    bool cerrar(const QString &nombre) override;
    void restaurar(const QString &nombre) override;
    void mostrar(const QString &nombre) override;

protected:
    // The close of the program: "Close" is logged for the work windows, and each
    // of them closes through its own close query (pending records are asked
    // about there); one that refuses keeps the program open.
    void closeEvent(QCloseEvent *event) override;
    // A work area that shrinks (the status line shown after a window opened at
    // start, the main window made smaller) keeps its windows inside it.
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void construirMenu();
    void construirAyuda(QMenu *ayuda);
    void construirVentana();
    void actualizarVentana();
    void actualizarDisponibles();
    void cederLetras(QMdiSubWindow *activa);
    void actualizarAyuda();
    void cambiarMoneda();

    Messenger &mensajes_;
    MenuPrincipal menu_;
    QMdiArea *mdi_;
    QHash<QString, Fabrica> fabricas_;
    QHash<QString, QAction *> acciones_;
    QHash<QAction *, QString> titulosGrupo_; // top menus with their own letters
    QMenu *ventana_ = nullptr;
    QList<QAction *> listaVentanas_;
    QStringList partesApagadas_;
    std::function<void()> cambioEmpresa_;
    std::function<void()> alCerrar_;
    std::function<void(bool)> cambioMoneda_;
    bool monedaBaseEsEuro_ = false;
    QLabel *panelMoneda_ = nullptr;
    MenuPrincipal::Actividad actividad_;
};

} // namespace co::ui
