#include "ui/main_window.h"

#include "core/text_utils.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QCloseEvent>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QScreen>
#include <QGuiApplication>

namespace co::ui {

TfOBRAMENU::TfOBRAMENU(Messenger &mensajes, MenuPrincipal::Derechos derechos, MenuPrincipal::Actividad actividad,
                       QWidget *parent)
    : QMainWindow(parent), mensajes_(mensajes),
      menu_(*this, std::move(derechos), [this](const QString &t) { mensajes_.MensajeA(t); }, actividad),
      mdi_(new QMdiArea(this)), actividad_(std::move(actividad)) {
    setObjectName(QStringLiteral("fOBRAMENU"));
    setWindowTitle(NombrePrograma());
    mdi_->setObjectName(QStringLiteral("AreaMDI"));
    setCentralWidget(mdi_);
    // At the screen's origin, the whole working area, with or without a window manager.
    if (QScreen *pantalla = QGuiApplication::primaryScreen())
        setGeometry(pantalla->availableGeometry());
    construirMenu();
    connect(mdi_, &QMdiArea::subWindowActivated, this, [this] { actualizarAyuda(); });
}

TfOBRAMENU::~TfOBRAMENU() {
    // The work windows close after this object is gone: nothing may call back.
    mdi_->disconnect(this);
    for (QMdiSubWindow *w : mdi_->subWindowList())
        w->disconnect(this);
}

void TfOBRAMENU::closeEvent(QCloseEvent *event) {
    for (QMdiSubWindow *w : mdi_->subWindowList(QMdiArea::CreationOrder)) {
        const QString nombre = w->objectName();
        if (actividad_ && (!nombre.startsWith(QStringLiteral("fGE")) || nombre == u"fGENEGANA"))
            actividad_(nombre, QStringLiteral("Close"));
    }
    mdi_->closeAllSubWindows();
    if (!mdi_->subWindowList().isEmpty()) {
        event->ignore();
        return;
    }
    event->accept();
}

void TfOBRAMENU::MostrarEmpresa(const QString &abreviatura) {
    setWindowTitle(NombrePrograma() + QStringLiteral(": ") + abreviatura);
}

void TfOBRAMENU::RegistrarPantalla(const QString &formulario, Fabrica fabrica) {
    fabricas_.insert(formulario, std::move(fabrica));
}

QAction *TfOBRAMENU::accion(const QString &componente) const { return acciones_.value(componente); }

void TfOBRAMENU::construirMenu() {
    QHash<QString, QMenu *> grupos;
    for (const QString &g : GruposMenuPrincipal())
        grupos.insert(g, menuBar()->addMenu(g));
    auto add = [this](QMenu *menu, const QString &componente, const QString &texto) {
        QAction *a = menu->addAction(texto);
        a->setObjectName(componente);
        acciones_.insert(componente, a);
        return a;
    };
    QMenu *archivo = grupos.value(QStringLiteral("&Archivo"));
    connect(add(archivo, QStringLiteral("CambioEmpresa1"), QStringLiteral("Cambio de &Empresa")), &QAction::triggered,
            this, [this] {
                if (cambioEmpresa_)
                    cambioEmpresa_();
            });
    QAction *moneda = add(archivo, QStringLiteral("VerDatosenMonedaNacionalOEuro"),
                          QStringLiteral("Ver Datos en Moneda Nacional o Euro"));
    moneda->setCheckable(true);
    moneda->setChecked(true);
    archivo->addSeparator();
    connect(add(archivo, QStringLiteral("Salir1"), QStringLiteral("&Salir")), &QAction::triggered, this, &QWidget::close);

    for (const EntradaMenu &e : EntradasMenuPrincipal()) {
        QAction *a = add(grupos.value(e.grupo), e.componente, e.caption);
        const QString componente = e.componente;
        connect(a, &QAction::triggered, this, [this, componente] { menu_.Ejecutar(componente); });
    }
    construirAyuda(grupos.value(QStringLiteral("A&yuda")));
}

void TfOBRAMENU::construirAyuda(QMenu *ayuda) {
    const QString programa = NombrePrograma();
    auto add = [&](const QString &componente, const QString &texto) {
        QAction *a = ayuda->addAction(texto);
        a->setObjectName(componente);
        acciones_.insert(componente, a);
        return a;
    };
    auto abrirAyuda = [this] {
        const QString chm = QDir(QCoreApplication::applicationDirPath()).filePath(QStringLiteral("NAROWIN.CHM"));
        if (!QFileInfo::exists(chm))
            mensajes_.MensajeA(QStringLiteral("¡No existe el archivo de ayuda!"));
        else
            mensajes_.MensajeA(QStringLiteral("¡La Ayuda HTML no está instalada en esta máquina!"));
    };
    QAction *deMenu = add(QStringLiteral("AyudadeMenu"), QStringLiteral("&Ayuda de ") + programa);
    deMenu->setShortcut(Qt::Key_F1);
    connect(deMenu, &QAction::triggered, this, abrirAyuda);
    QAction *deVentana = add(QStringLiteral("Ayudade"), QStringLiteral("A&yuda de"));
    deVentana->setVisible(false);
    connect(deVentana, &QAction::triggered, this, abrirAyuda);
    ayuda->addSeparator();
    add(QStringLiteral("LoNuevode"), QStringLiteral("Lo &Nuevo de ") + programa);
    connect(add(QStringLiteral("AcercadeMenu"), QStringLiteral("A&cerca de ") + programa), &QAction::triggered, this,
            [this, programa] {
                mensajes_.MostrarMensaje(u' ', QStringLiteral("Acerca de ") + programa + QStringLiteral("\r\n\r\n") + programa +
                                                   QStringLiteral("\r\nVersión ") + QCoreApplication::applicationVersion());
            });
}

void TfOBRAMENU::actualizarAyuda() {
    QAction *deMenu = acciones_.value(QStringLiteral("AyudadeMenu"));
    QAction *deVentana = acciones_.value(QStringLiteral("Ayudade"));
    QMdiSubWindow *activa = mdi_->activeSubWindow();
    deVentana->setVisible(activa != nullptr);
    if (activa) {
        deVentana->setText(QStringLiteral("A&yuda de ") + activa->windowTitle());
        deMenu->setShortcut(QKeySequence());
        deVentana->setShortcut(Qt::Key_F1);
    } else {
        deVentana->setShortcut(QKeySequence());
        deMenu->setShortcut(Qt::Key_F1);
    }
}

void TfOBRAMENU::ConfigurarPartes(bool multiPartes, bool partesSeparados) {
    if (QAction *conjuntos = accion(QStringLiteral("IntroduccindePartesConjuntos1"))) {
        conjuntos->setEnabled(multiPartes);
        conjuntos->setVisible(multiPartes);
    }
    for (const char *c : {"IntroduccindePartesdeTrabajo1", "IntroduccindePartesdeMateriales1",
                          "IntroduccindePartesdeMquina1", "IntroduccindePartesdeSubContratacin1"})
        if (QAction *a = accion(QString::fromLatin1(c))) {
            a->setEnabled(partesSeparados);
            a->setVisible(partesSeparados);
        }
}

QList<AnfitrionVentanas::Ventana> TfOBRAMENU::ventanas() const {
    QList<Ventana> out;
    for (QMdiSubWindow *w : mdi_->subWindowList(QMdiArea::CreationOrder))
        out.append({w->objectName(), w->isMinimized()});
    return out;
}

bool TfOBRAMENU::crear(const QString &formulario, const QString &nombre) {
    const auto it = fabricas_.constFind(formulario);
    if (it == fabricas_.cend())
        return false;
    QWidget *pantalla = (*it)(nullptr);
    if (!pantalla)
        return false;
    QMdiSubWindow *w = mdi_->addSubWindow(pantalla);
    w->setObjectName(nombre);
    w->setAttribute(Qt::WA_DeleteOnClose);
    w->show();
    return true;
}

void TfOBRAMENU::cerrar(const QString &nombre) {
    for (QMdiSubWindow *w : mdi_->subWindowList())
        if (w->objectName() == nombre) {
            w->close();
            return;
        }
}

void TfOBRAMENU::restaurar(const QString &nombre) {
    for (QMdiSubWindow *w : mdi_->subWindowList())
        if (w->objectName() == nombre) {
            w->showNormal();
            mdi_->setActiveSubWindow(w);
            return;
        }
}

void TfOBRAMENU::mostrar(const QString &nombre) {
    for (QMdiSubWindow *w : mdi_->subWindowList())
        if (w->objectName() == nombre) {
            w->show();
            mdi_->setActiveSubWindow(w);
            return;
        }
}

} // namespace co::ui
