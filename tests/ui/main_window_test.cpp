// The main window offscreen: the whole menu, rights by caption, the switches of
// the report entries, and a session started against a real installation.
#include "ui/main_window.h"

#include "desktop_fixture.h"

#include <QAction>
#include <QCloseEvent>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>

namespace co::ui {
namespace {

struct MainWindowFixture : ::testing::Test {
    ScriptedMessages port;
    Messenger mensajes{&port};
    QStringList forbidden;
    TfOBRAMENU window{mensajes, [this](const QString &p) { return !forbidden.contains(p); }};
};

TEST_F(MainWindowFixture, WholeMenuWithCaptions) {
    int entries = 0;
    for (const EntradaMenu &e : EntradasMenuPrincipal()) {
        QAction *a = window.accion(e.componente);
        ASSERT_NE(a, nullptr) << e.componente.toStdString();
        EXPECT_EQ(a->text(), e.caption);
        ++entries;
    }
    EXPECT_EQ(entries, 45);
    QStringList tops;
    for (QAction *a : window.menuBar()->actions())
        tops << a->text();
    QStringList esperados = GruposMenuPrincipal();
    esperados.insert(esperados.size() - 1, QStringLiteral("&Ventana"));
    EXPECT_EQ(tops, esperados);
    EXPECT_EQ(window.windowTitle(), QStringLiteral("Control de Obras"));
    window.MostrarEmpresa(QStringLiteral("DEMO"));
    EXPECT_EQ(window.windowTitle(), QStringLiteral("Control de Obras: DEMO"));
}

TEST_F(MainWindowFixture, ProgramsOpenByRightsAndSayWhenMissing) {
    window.RegistrarPantalla(QStringLiteral("fOBRAUNID"), [](QWidget *) {
        auto *w = new QLabel(QStringLiteral("Unidades"));
        w->setWindowTitle(QStringLiteral("Maestro de Unidades"));
        return w;
    });
    forbidden << QStringLiteral("Maestro de Unidades");
    window.accion(QStringLiteral("MaestrodeUnidades1"))->trigger();
    EXPECT_TRUE(window.mdi()->subWindowList().isEmpty());
    forbidden.clear();
    window.accion(QStringLiteral("MaestrodeUnidades1"))->trigger();
    ASSERT_EQ(window.mdi()->subWindowList().size(), 1);
    EXPECT_EQ(window.mdi()->subWindowList().first()->objectName(), QStringLiteral("fOBRAUNID"));
    window.accion(QStringLiteral("MaestrodeUnidades1"))->trigger();
    EXPECT_EQ(window.mdi()->subWindowList().size(), 1);
    // A screen this build does not have: its entry is disabled and its tip says so.
    QAction *historico = window.accion(QStringLiteral("HistoricodeFacturas1"));
    EXPECT_FALSE(historico->isEnabled());
    EXPECT_EQ(historico->toolTip(), MenuPrincipal::TextoNoDisponible(QStringLiteral("Historico de Facturas")));
    EXPECT_TRUE(window.accion(QStringLiteral("MaestrodeUnidades1"))->isEnabled());
    EXPECT_NE(window.accion(QStringLiteral("MaestrodeUnidades1"))->toolTip(),
              MenuPrincipal::TextoNoDisponible(QStringLiteral("Maestro de Unidades")));
    // Asked for all the same (a program opened by name): told, nothing opens.
    EXPECT_FALSE(window.menu().Ejecutar(QStringLiteral("HistoricodeFacturas1")));
    EXPECT_EQ(port.texts().last(), MenuPrincipal::TextoNoDisponible(QStringLiteral("Historico de Facturas")));
    EXPECT_EQ(window.mdi()->subWindowList().size(), 1);
}

TEST_F(MainWindowFixture, ReportEntriesFollowTheWorksParameters) {
    window.ConfigurarPartes(false, true);
    EXPECT_FALSE(window.accion(QStringLiteral("IntroduccindePartesConjuntos1"))->isVisible());
    EXPECT_TRUE(window.accion(QStringLiteral("IntroduccindePartesdeTrabajo1"))->isVisible());
    window.ConfigurarPartes(true, false);
    EXPECT_TRUE(window.accion(QStringLiteral("IntroduccindePartesConjuntos1"))->isVisible());
    EXPECT_FALSE(window.accion(QStringLiteral("IntroduccindePartesdeMquina1"))->isEnabled());
    // With its screen there, a visible entry acts; a hidden one does not.
    for (const char *f : {"fOBRAMULT", "fOBRAPMAQ"})
        window.RegistrarPantalla(QString::fromLatin1(f), [](QWidget *) { return new QLabel; });
    EXPECT_TRUE(window.accion(QStringLiteral("IntroduccindePartesConjuntos1"))->isEnabled());
    EXPECT_FALSE(window.accion(QStringLiteral("IntroduccindePartesdeMquina1"))->isEnabled());
    window.ConfigurarPartes(false, true);
    EXPECT_FALSE(window.accion(QStringLiteral("IntroduccindePartesConjuntos1"))->isEnabled());
    EXPECT_TRUE(window.accion(QStringLiteral("IntroduccindePartesdeMquina1"))->isEnabled());
}

using DesktopStart = test::DesktopTest;

TEST_P(DesktopStart, FirstUserLogsInToTheFirstCompany) {
    DesktopSession session(opciones(QStringLiteral("ADMIN")), &port_);
    ASSERT_TRUE(session.Arrancar()) << port_.texts().join(u'\n').toStdString();
    EXPECT_TRUE(session.ventana()->windowTitle().startsWith(QStringLiteral("Control de Obras: ")));
    EXPECT_EQ(session.aplicacion().sesion().CodigoEmpresa, 1);
    // A change to the same company does nothing; to one the user may not enter is refused.
    EXPECT_TRUE(session.CambiarEmpresa(1));
    EXPECT_FALSE(session.CambiarEmpresa(9));
    EXPECT_EQ(session.aplicacion().sesion().CodigoEmpresa, 1);
    EXPECT_EQ(port_.texts().last(), QStringLiteral("¡Ud. no tiene acceso a esta empresa!"));
}

TEST_P(DesktopStart, AWindowOpenedAtStartStaysInsideTheWorkArea) {
    // Two grids ask for more height than the area has; the status line shows
    // only after the window is placed.
    DesktopSession session(opciones(QStringLiteral("ADMIN")), &port_);
    session.AbrirAlArrancar(QStringLiteral("Maestro de Maquinas"));
    ASSERT_TRUE(session.Arrancar()) << port_.texts().join(u'\n').toStdString();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(session.ventana()));
    QMdiSubWindow *w = session.ventana()->mdi()->activeSubWindow();
    ASSERT_NE(w, nullptr);
    const QRect area = session.ventana()->mdi()->viewport()->rect();
    EXPECT_TRUE(QTest::qWaitFor([&] { return area.contains(w->geometry()); }, 2000))
        << w->geometry().height() << " high in an area " << area.height() << " high";
    // The buttons at the foot are on show.
    auto *vista = dynamic_cast<FormView *>(w->widget());
    ASSERT_NE(vista, nullptr);
    QWidget *salir = vista->widgetFor(QStringLiteral("pbSalir"));
    ASSERT_NE(salir, nullptr);
    EXPECT_TRUE(area.contains(
        QRect(salir->mapTo(session.ventana()->mdi()->viewport(), QPoint()), salir->size())));
}

TEST_P(DesktopStart, UnknownUserEndsTheStart) {
    DesktopSession session(opciones(QStringLiteral("NADIE")), &port_);
    EXPECT_FALSE(session.Arrancar());
    EXPECT_TRUE(port_.texts().contains(QStringLiteral("¡El usuario no está definido!")))
        << port_.texts().join(u'\n').toStdString();
}

CO_ON_BOTH_BACKENDS(DesktopStart);

} // namespace
} // namespace co::ui

namespace co::ui {
namespace {

TEST_P(DesktopStart, LanguageOfTheCommandLineTranslatesTheMenu) {
    ASSERT_EQ(cli(QStringLiteral("diccionario")).status, 0);
    OpcionesArranque o = opciones(QStringLiteral("ADMIN"));
    o.linea.ParametroIdioma = QStringLiteral("Ingles");
    DesktopSession session(o, &port_);
    ASSERT_TRUE(session.Arrancar());
    EXPECT_EQ(session.ventana()->accion(QStringLiteral("MaestrodeObras1"))->text(),
              QStringLiteral("Works Master"));
    // Without a language nothing is translated.
    DesktopSession spanish(opciones(QStringLiteral("ADMIN")), &port_);
    ASSERT_TRUE(spanish.Arrancar());
    EXPECT_EQ(spanish.ventana()->accion(QStringLiteral("MaestrodeObras1"))->text(),
              QStringLiteral("Maestro de Obras"));
}

} // namespace
} // namespace co::ui

namespace co::ui {
namespace {

TEST_P(DesktopStart, ActivityIsLoggedInTheApplicationFolderWhenTheIniFileAsksForIt) {
    // The program's own folder, apart from the installation and its data.
    QTemporaryDir programa;
    QFile ini(QDir(programa.path()).filePath(QStringLiteral("NAROWIN.INI")));
    ASSERT_TRUE(ini.open(QIODevice::WriteOnly));
    ini.write("[Configuración]\nMonitorizarActividadUsuario=SI\n");
    ini.close();
    OpcionesArranque o = opciones(QStringLiteral("ADMIN"));
    o.carpetaAplicacion = programa.path();
    DesktopSession session(o, &port_);
    ASSERT_TRUE(session.Arrancar()) << port_.texts().join(u'\n').toStdString();
    session.ventana()->accion(QStringLiteral("MaestrodeUnidades1"))->trigger();
    ASSERT_TRUE(session.ventana()->cerrar(QStringLiteral("fOBRAUNID")));
    const QString nombre = NombreUsuarioSistema() + QStringLiteral(".log");
    EXPECT_FALSE(QFileInfo::exists(dir_.filePath(nombre)));
    QFile log(QDir(programa.path()).filePath(nombre));
    ASSERT_TRUE(log.open(QIODevice::ReadOnly)) << log.fileName().toStdString();
    const QStringList lineas = QString::fromUtf8(log.readAll()).split(u'\n', Qt::SkipEmptyParts);
    ASSERT_EQ(lineas.size(), 2) << lineas.join(u'\n').toStdString();
    EXPECT_TRUE(lineas[0].contains(QStringLiteral(", Create, fOBRAUNID, Maestro de Unidades, ")))
        << lineas[0].toStdString();
    EXPECT_TRUE(lineas[1].contains(QStringLiteral(", Free, fOBRAUNID, "))) << lineas[1].toStdString();
}

} // namespace
} // namespace co::ui

namespace co::ui {
namespace {

// A work window that refuses to close while it holds a pending record.
class PendingScreen : public QLabel {
public:
    explicit PendingScreen(bool *pendiente)
        : QLabel(QStringLiteral("Pendiente")), pendiente_(pendiente) {}
    void closeEvent(QCloseEvent *e) override {
        if (*pendiente_)
            e->ignore();
        else
            e->accept();
    }

private:
    bool *pendiente_;
};

TEST(MainWindowClose, WorkWindowsCloseFirstAndAreLogged) {
    ScriptedMessages port;
    Messenger mensajes(&port);
    QStringList actividad;
    bool pendiente = true;
    TfOBRAMENU window(
        mensajes, [](const QString &) { return true; },
        [&](const QString &v, const QString &a) { actividad << a + u' ' + v; });
    window.RegistrarPantalla(QStringLiteral("fOBRAUNID"),
                             [&](QWidget *) { return new PendingScreen(&pendiente); });
    window.RegistrarPantalla(QStringLiteral("fGENEPARA"),
                             [](QWidget *) { return new QLabel(QStringLiteral("Globales")); });
    window.show();
    window.accion(QStringLiteral("MaestrodeUnidades1"))->trigger();
    window.accion(QStringLiteral("Globales1"))->trigger();
    ASSERT_EQ(window.mdi()->subWindowList().size(), 2);
    // The pending screen refuses: the program stays open with it.
    EXPECT_FALSE(window.close());
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(window.mdi()->subWindowList().size(), 1);
    EXPECT_TRUE(actividad.contains(QStringLiteral("Close fOBRAUNID")));
    EXPECT_FALSE(actividad.contains(QStringLiteral("Close fGENEPARA")));
    pendiente = false;
    EXPECT_TRUE(window.close());
    EXPECT_TRUE(window.mdi()->subWindowList().isEmpty());
}

} // namespace
} // namespace co::ui
