#include "ui/main_window.h"

#include "core/currency.h"
#include <QLabel>
#include <QStatusBar>

#include "core/text_utils.h"
#include "ui/window_placement.h"

#include <QAbstractButton>
#include <QActionGroup>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QKeySequence>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QScreen>
#include <QSet>
#include <QTimer>

namespace co::ui {

TfOBRAMENU::TfOBRAMENU(Messenger &mensajes, MenuPrincipal::Derechos derechos,
                       MenuPrincipal::Actividad actividad, QWidget *parent)
    : QMainWindow(parent), mensajes_(mensajes),
      menu_(
          *this, std::move(derechos), [this](const QString &t) { mensajes_.MensajeA(t); },
          actividad),
      mdi_(new QMdiArea(this)), actividad_(std::move(actividad)) {
    setObjectName(QStringLiteral("fOBRAMENU"));
    setWindowTitle(NombrePrograma());
    mdi_->setObjectName(QStringLiteral("AreaMDI"));
    // A maximised window does not make the next one open maximised.
    mdi_->setOption(QMdiArea::DontMaximizeSubWindowOnActivation);
    setCentralWidget(mdi_);
    mdi_->viewport()->installEventFilter(this);
    // At the screen's origin, the whole working area, with or without a window manager.
    if (QScreen *pantalla = QGuiApplication::primaryScreen())
        setGeometry(pantalla->availableGeometry());
    construirMenu();
    connect(mdi_, &QMdiArea::subWindowActivated, this, [this](QMdiSubWindow *w) {
        actualizarAyuda();
        cederLetras(w);
        // Ctrl+F4 belongs to the "Ventana" menu alone: two owners would cancel it out.
        if (w && w->systemMenu())
            for (QAction *a : w->systemMenu()->actions())
                if (a->shortcuts().contains(QKeySequence(Qt::CTRL | Qt::Key_F4)))
                    a->setShortcuts({});
    });
}

TfOBRAMENU::~TfOBRAMENU() {
    // The work windows close after this object is gone: nothing may call back.
    mdi_->disconnect(this);
    // Closed windows waiting for their deletion are no longer listed by the area.
    for (QMdiSubWindow *w : mdi_->findChildren<QMdiSubWindow *>())
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
    if (alCerrar_)
        alCerrar_();
    event->accept();
}

bool TfOBRAMENU::eventFilter(QObject *watched, QEvent *event) {
    if (watched == mdi_->viewport() && event->type() == QEvent::Resize)
        for (QMdiSubWindow *w : mdi_->subWindowList())
            if (!w->isMaximized() && !w->isMinimized())
                ColocarVentana(*mdi_, *w, w->size());
    return QMainWindow::eventFilter(watched, event);
}

bool TfOBRAMENU::VerOtraMoneda() const {
    return accion(QStringLiteral("VerDatosenMonedaNacionalOEuro"))->isChecked();
}

QString TfOBRAMENU::PanelMoneda() const {
    return panelMoneda_ ? panelMoneda_->text() : QString();
}

void TfOBRAMENU::cambiarMoneda() {
    const QString simbolo = SimboloMonedaMostrada(VerOtraMoneda(), monedaBaseEsEuro_);
    if (!panelMoneda_) {
        panelMoneda_ = new QLabel(this);
        panelMoneda_->setObjectName(QStringLiteral("PanelMoneda"));
        statusBar()->addPermanentWidget(panelMoneda_);
    }
    QFont letra = panelMoneda_->font();
    letra.setPointSize(simbolo == u"Pts" ? 18 : 36);
    panelMoneda_->setFont(letra);
    panelMoneda_->setStyleSheet(QStringLiteral("color: navy;"));
    panelMoneda_->setText(simbolo);
    if (cambioMoneda_)
        cambioMoneda_(VerOtraMoneda());
}

void TfOBRAMENU::MostrarEmpresa(const QString &abreviatura) {
    setWindowTitle(NombrePrograma() + QStringLiteral(": ") + abreviatura);
}

void TfOBRAMENU::RegistrarPantalla(const QString &formulario, Fabrica fabrica) {
    fabricas_.insert(formulario, std::move(fabrica));
    actualizarDisponibles();
}

// An entry without its screen is shown disabled, and its tip says why.
void TfOBRAMENU::actualizarDisponibles() {
    for (const EntradaMenu &e : EntradasMenuPrincipal()) {
        QAction *a = acciones_.value(e.componente);
        if (!a)
            continue;
        const bool existe = fabricas_.contains(e.formulario);
        a->setEnabled(existe && !partesApagadas_.contains(e.componente));
        a->setToolTip(existe ? QString()
                             : MenuPrincipal::TextoNoDisponible(SinAmpersand(e.caption)));
    }
}

// The top menus whose Alt letter the active work window also uses give it up
// while that window is active, so the window's buttons and menu answer it.
void TfOBRAMENU::cederLetras(QMdiSubWindow *activa) {
    QSet<QKeySequence> usadas;
    if (activa && activa->widget()) {
        for (const QAbstractButton *b : activa->widget()->findChildren<QAbstractButton *>())
            usadas.insert(QKeySequence::mnemonic(b->text()));
        for (const QMenuBar *barra : activa->widget()->findChildren<QMenuBar *>())
            for (const QAction *a : barra->actions())
                usadas.insert(QKeySequence::mnemonic(a->text()));
    }
    for (QAction *grupo : menuBar()->actions()) {
        const QString propio = titulosGrupo_.value(grupo, grupo->text());
        const QKeySequence letra = QKeySequence::mnemonic(propio);
        if (!letra.isEmpty() && usadas.contains(letra)) {
            titulosGrupo_.insert(grupo, propio);
            grupo->setText(SinAmpersand(propio));
        } else if (titulosGrupo_.contains(grupo)) {
            grupo->setText(titulosGrupo_.take(grupo));
        }
    }
}

QAction *TfOBRAMENU::accion(const QString &componente) const {
    return acciones_.value(componente);
}

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
    connect(add(archivo, QStringLiteral("CambioEmpresa1"), QStringLiteral("Cambio de &Empresa")),
            &QAction::triggered, this, [this] {
                if (cambioEmpresa_)
                    cambioEmpresa_();
            });
    QAction *moneda = add(archivo, QStringLiteral("VerDatosenMonedaNacionalOEuro"),
                          QStringLiteral("Ver Datos en Moneda Nacional o Euro"));
    moneda->setCheckable(true);
    moneda->setChecked(true);
    connect(moneda, &QAction::triggered, this, [this] { cambiarMoneda(); });
    archivo->addSeparator();
    connect(add(archivo, QStringLiteral("Salir1"), QStringLiteral("&Salir")), &QAction::triggered,
            this, &QWidget::close);

    for (const EntradaMenu &e : EntradasMenuPrincipal()) {
        QAction *a = add(grupos.value(e.grupo), e.componente, e.caption);
        const QString componente = e.componente;
        connect(a, &QAction::triggered, this, [this, componente] { menu_.Ejecutar(componente); });
    }
    construirVentana();
    construirAyuda(grupos.value(QStringLiteral("A&yuda")));
    actualizarDisponibles();
}

void TfOBRAMENU::construirVentana() {
    QAction *antes = menuBar()->actions().value(menuBar()->actions().size() - 1);
    ventana_ = new QMenu(QStringLiteral("&Ventana"), this);
    ventana_->setObjectName(QStringLiteral("Ventana1"));
    menuBar()->insertMenu(antes, ventana_);
    auto add = [&](const char *componente, const QString &texto, auto accion) {
        QAction *a = ventana_->addAction(texto);
        a->setObjectName(QString::fromLatin1(componente));
        acciones_.insert(a->objectName(), a);
        connect(a, &QAction::triggered, this, accion);
        return a;
    };
    add("Cascada1", QStringLiteral("&Cascada"), [this] { mdi_->cascadeSubWindows(); });
    add("Mosaico1", QStringLiteral("&Mosaico"), [this] { mdi_->tileSubWindows(); });
    QAction *cerrar =
        add("CerrarVentana1", QStringLiteral("C&errar"), [this] { mdi_->closeActiveSubWindow(); });
    cerrar->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_F4));
    add("CerrarTodas1", QStringLiteral("Cerrar &Todas"), [this] { mdi_->closeAllSubWindows(); });
    ventana_->addSeparator();
    connect(ventana_, &QMenu::aboutToShow, this, [this] { actualizarVentana(); });
    connect(mdi_, &QMdiArea::subWindowActivated, this, [this] { actualizarVentana(); });
    actualizarVentana();
}

// The arranging entries act when there are windows; then one entry per work
// window, the active one checked.
void TfOBRAMENU::actualizarVentana() {
    const QList<QMdiSubWindow *> abiertas = mdi_->subWindowList(QMdiArea::CreationOrder);
    for (const char *c : {"Cascada1", "Mosaico1", "CerrarVentana1", "CerrarTodas1"})
        acciones_.value(QString::fromLatin1(c))->setEnabled(!abiertas.isEmpty());
    // An entry may be the one being triggered: it goes once its signal is done.
    for (QAction *a : std::as_const(listaVentanas_)) {
        ventana_->removeAction(a);
        a->deleteLater();
    }
    listaVentanas_.clear();
    int n = 0;
    for (QMdiSubWindow *w : abiertas) {
        ++n;
        const QString numero =
            n < 10 ? QStringLiteral("&%1 ").arg(n) : QStringLiteral("%1 ").arg(n);
        QAction *a = ventana_->addAction(numero + w->windowTitle());
        a->setObjectName(QStringLiteral("VentanaAbierta%1").arg(n));
        a->setCheckable(true);
        a->setChecked(w == mdi_->activeSubWindow());
        connect(a, &QAction::triggered, this, [this, w] {
            if (w->isMinimized())
                w->showNormal();
            mdi_->setActiveSubWindow(w);
        });
        listaVentanas_ << a;
    }
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
        const QString chm =
            QDir(QCoreApplication::applicationDirPath()).filePath(QStringLiteral("NAROWIN.CHM"));
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
    connect(add(QStringLiteral("AcercadeMenu"), QStringLiteral("A&cerca de ") + programa),
            &QAction::triggered, this, [this, programa] {
                mensajes_.MostrarMensaje(u' ', QStringLiteral("Acerca de ") + programa +
                                                   QStringLiteral("\r\n\r\n") + programa +
                                                   QStringLiteral("\r\nVersión ") +
                                                   QCoreApplication::applicationVersion());
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
    partesApagadas_.clear();
    if (QAction *conjuntos = accion(QStringLiteral("IntroduccindePartesConjuntos1"))) {
        conjuntos->setVisible(multiPartes);
        if (!multiPartes)
            partesApagadas_ << conjuntos->objectName();
    }
    for (const char *c : {"IntroduccindePartesdeTrabajo1", "IntroduccindePartesdeMateriales1",
                          "IntroduccindePartesdeMquina1", "IntroduccindePartesdeSubContratacin1"})
        if (QAction *a = accion(QString::fromLatin1(c))) {
            a->setVisible(partesSeparados);
            if (!partesSeparados)
                partesApagadas_ << a->objectName();
        }
    actualizarDisponibles();
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
    // The last window closed activates none: the main menu takes its letters back.
    connect(w, &QObject::destroyed, this, [this, nombre] {
        if (actividad_)
            actividad_(nombre, QStringLiteral("Free"));
        QTimer::singleShot(0, this, [this] { cederLetras(mdi_->activeSubWindow()); });
    });
    w->setAttribute(Qt::WA_DeleteOnClose);
    ColocarVentana(*mdi_, *w, w->sizeHint());
    w->show();
    ColocarVentana(*mdi_, *w, w->size());
    pantalla->setFocus();
    return true;
}

bool TfOBRAMENU::cerrar(const QString &nombre) {
    for (QMdiSubWindow *w : mdi_->subWindowList())
        if (w->objectName() == nombre) {
            if (!w->close())
                return false;
            delete w;
            return true;
        }
    return true;
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
