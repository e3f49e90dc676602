#include "ui/desktop_session.h"
#include "ui/application.h"
#include "ui/form_view.h"
#include "ui/screens.h"

#include "core/rights.h"
#include "core/text_utils.h"
#include "core/users.h"
#include "ui/listing_screens.h"

#include "core/activity_log.h"
#include "core/connection_words.h"
#include "core/keystroke_log.h"
#include "forms/searches.h"

#include <QAction>
#include <QApplication>
#include <QDateTime>
#include <QEvent>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QSysInfo>

namespace co::ui {

DesktopSession::DesktopSession(OpcionesArranque opciones, MessagePort *port)
    : port_(port ? port : &dialogs_),
      aplicacion_(std::make_unique<Aplicacion>(std::move(opciones), port_)) {}

DesktopSession::~DesktopSession() {
    if (auto *app = dynamic_cast<ControlObrasApplication *>(QCoreApplication::instance()))
        app->setGestorFallos({});
    if (qApp)
        qApp->removeEventFilter(this);
    ventana_.reset();
}

bool DesktopSession::Arrancar() {
    if (!aplicacion_->Iniciar())
        return false;
    ManejadorFallos &fallos = aplicacion_->sesion().fallos();
    fallos.cursorEspera = [] { QApplication::setOverrideCursor(Qt::WaitCursor); };
    fallos.cursorNormal = [] { QApplication::restoreOverrideCursor(); };
    if (auto *app = dynamic_cast<ControlObrasApplication *>(QCoreApplication::instance()))
        app->setGestorFallos([this](QObject *receptor, const QString &texto) {
            GestionarFallo(receptor, texto);
        });
    TModuloDatos &datos = aplicacion_->datos();
    Messenger &mensajes = aplicacion_->sesion().mensajes();
    ventana_ = std::make_unique<TfOBRAMENU>(
        mensajes,
        [this, &datos](const QString &programa) {
            return UsuarioAccedePrograma(datos, aplicacion_->sesion().CodigoUsuario, programa);
        },
        [this](const QString &ventana, const QString &accion) {
            registrarActividad(ventana, accion);
        });
    dialogs_.setParent(ventana_.get());
    works::SesionObra obra;
    obra.modulo = [this] { return obra_.get(); };
    obra.parametrosCambiados = [this] {
        if (obra_)
            obra_->RefrescarParametros();
        aplicarParametrosObra();
    };
    forms::Busquedas &busquedas = RegistrarPantallas(*ventana_, *aplicacion_, std::move(obra));
    RegistrarListados(*ventana_, *aplicacion_);
    if (Translator *traductor = aplicacion_->traductor())
        for (QAction *a : ventana_->findChildren<QAction *>())
            if (!a->text().isEmpty())
                a->setText(traductor->TraducirTexto(a->text()));
    // The company is picked in the search window on EMPRESA; its first column is the code.
    ventana_->setCambioEmpresa([this, &busquedas] {
        if (const forms::ResultadoBusqueda elegida =
                busquedas.BuscarEnTabla(QStringLiteral("EMPRESA")))
            CambiarEmpresa(elegida->value(0).toInt());
    });
    ventana_->setAlCerrar([this] { finalizarControlesOcultos(); });
    ventana_->setCambioMoneda([this](bool) {
        for (QMdiSubWindow *w : ventana_->mdi()->subWindowList())
            if (auto *vista = dynamic_cast<FormView *>(w->widget())) {
                vista->form().CallHandler(QStringLiteral("VerDatosEnMonedaNacionalOEuroClick"));
                vista->refresh();
            }
    });
    ventana_->showMaximized();
    if (!aplicacion_->Identificar())
        return false;
    const int empresa = aplicacion_->EmpresaInicial();
    if (empresa == 0 || !aplicacion_->SeleccionarEmpresa(empresa)) {
        mensajes.MensajeA(QStringLiteral("¡Ud.no tiene acceso a ninguna empresa!"));
        return false;
    }
    ventana_->MostrarEmpresa(aplicacion_->Abreviatura);
    crearModulosDatos();
    QString activos;
    ValorUsuario(datos, aplicacion_->sesion().CodigoUsuario, QStringLiteral("ProgramasActivos"),
                 activos, QString());
    ventana_->menu().PrimeraActivacion(ListaValorUsuario(activos));

    const QString minutos = aplicacion_->configuracion().TiempoForzarTerminacionAplicacion;
    if (!minutos.trimmed().isEmpty()) {
        instanteActividad_ = QDateTime::currentSecsSinceEpoch();
        qApp->installEventFilter(this);
        connect(&inactividad_, &QTimer::timeout, this, [this] { comprobarInactividad(); });
        inactividad_.start(15000);
    }
    if (!programaInicial_.isEmpty())
        AbrirPrograma(programaInicial_);
    return true;
}

bool DesktopSession::AbrirPrograma(const QString &programa) {
    for (const EntradaMenu &e : EntradasMenuPrincipal())
        if (SinAmpersand(e.caption).compare(programa.trimmed(), Qt::CaseInsensitive) == 0)
            return ventana_->menu().Ejecutar(e.componente);
    aplicacion_->sesion().mensajes().MensajeA(MenuPrincipal::TextoNoDisponible(programa.trimmed()));
    return false;
}

QString ExtraerProgramaAbrir(QStringList &argumentos) {
    const int i = static_cast<int>(argumentos.indexOf(QStringLiteral("--abrir")));
    if (i < 0)
        return {};
    const QString programa = argumentos.value(i + 1);
    argumentos.remove(i, std::min<qsizetype>(2, argumentos.size() - i));
    return programa;
}

void DesktopSession::registrarActividad(const QString &ventana, const QString &accion) {
    ActivityLogContext contexto;
    contexto.enabled = aplicacion_->configuracion().MonitorizarActividadUsuario;
    // The application folder: each machine keeps its own users' logs.
    contexto.folder = aplicacion_->opciones().carpetaAplicacion;
    contexto.user = NombreUsuarioSistema();
    contexto.machineName = QSysInfo::machineHostName();
    contexto.now = QDateTime::currentDateTime();
    QString titulo;
    if (ventana_)
        for (QMdiSubWindow *w : ventana_->mdi()->subWindowList())
            if (w->objectName() == ventana)
                titulo = w->windowTitle();
    RegistrarActividad(contexto, ventana, titulo, accion);
}

// The administrator's controls picked with F8 go to the users named at the end.
void DesktopSession::finalizarControlesOcultos() {
    if (!aplicacion_->configuracion().ModoAdministradorActivado)
        return;
    aplicacion_->sesion().Teclado().ControlesSeleccionados.Finalizar(
        aplicacion_->datos(), [this](const QString &titulo, const QString &texto) {
            port_->showTitled(QChar(u'I'), titulo, texto, {});
        });
}

void DesktopSession::crearModulosDatos() {
    // The currency entry starts checked and its click is applied once.
    ventana_->setMonedaBaseEsEuro(aplicacion_->monedas().MonedaBaseEsEuro);
    QAction *moneda = ventana_->accion(QStringLiteral("VerDatosenMonedaNacionalOEuro"));
    moneda->setChecked(true);
    moneda->trigger();
    obra_ = std::make_unique<works::TMDObra>(aplicacion_->datos());
    aplicarParametrosObra();
}

void DesktopSession::aplicarParametrosObra() {
    // The entries go only for an exact "NO".
    ventana_->ConfigurarPartes(!obra_->EsNO(QStringLiteral("MultiPartes")),
                               !obra_->EsNO(QStringLiteral("PartesSeparados")));
}

bool DesktopSession::CambiarEmpresa(int codigo) {
    TfGENEINIC &sesion = aplicacion_->sesion();
    const int anterior = sesion.CodigoEmpresa;
    if (codigo == anterior)
        return true;
    if (!aplicacion_->EmpresaAccesible(codigo)) {
        sesion.mensajes().MensajeA(QStringLiteral("¡Ud. no tiene acceso a esta empresa!"));
        return false;
    }
    // Each window goes through its own close query; one keeping a record it
    // cannot post stops the change, and the old company stays connected.
    for (const QString &n : VentanasDeLaEmpresa())
        if (!ventana_->cerrar(n))
            return false;
    obra_.reset();
    if (!aplicacion_->SeleccionarEmpresa(codigo)) {
        sesion.mensajes().MensajeA(QStringLiteral("¡Ud. no tiene acceso a esta empresa!"));
        aplicacion_->SeleccionarEmpresa(anterior);
        crearModulosDatos();
        return false;
    }
    ventana_->MostrarEmpresa(aplicacion_->Abreviatura);
    crearModulosDatos();
    QString activos;
    ValorUsuario(aplicacion_->datos(), sesion.CodigoUsuario, QStringLiteral("ProgramasActivos"),
                 activos, QString());
    ventana_->menu().PrimeraActivacion(ListaValorUsuario(activos));
    return true;
}

QStringList DesktopSession::VentanasDeLaEmpresa() const {
    QStringList nombres;
    for (const AnfitrionVentanas::Ventana &v : ventana_->ventanas())
        nombres << v.nombre;
    QStringList cierran = MenuPrincipal::VentanasQueCierraCambioEmpresa(nombres);
    // A general window over company tables would go on showing, and posting
    // to, rows of the company left behind.
    for (QMdiSubWindow *w : ventana_->mdi()->subWindowList())
        if (auto *vista = dynamic_cast<FormView *>(w->widget()); vista && !cierran.contains(w->objectName()))
            for (const forms::Dataset *ds : vista->form().Datasets())
                if (ds->ConnectionWord() != kConexionGeneral) {
                    cierran << w->objectName();
                    break;
                }
    return cierran;
}

void DesktopSession::GestionarFallo(QObject *receptor, const QString &texto) {
    OrigenFallo origen;
    for (QObject *o = receptor; o; o = o->parent())
        if (auto *vista = dynamic_cast<FormView *>(o)) {
            origen = vista->rutinas().Origen;
            break;
        }
    aplicacion_->sesion().fallos().Gestionar(texto, origen);
}

bool DesktopSession::eventFilter(QObject *watched, QEvent *event) {
    switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::MouseButtonPress:
    case QEvent::MouseMove:
        instanteActividad_ = QDateTime::currentSecsSinceEpoch();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

void DesktopSession::comprobarInactividad() {
    bool ok = false;
    const qint64 limite =
        aplicacion_->configuracion().TiempoForzarTerminacionAplicacion.trimmed().toLongLong(&ok) *
        60;
    if (ok && QDateTime::currentSecsSinceEpoch() - instanteActividad_ > limite) {
        inactividad_.stop();
        qApp->quit();
    }
}

} // namespace co::ui
