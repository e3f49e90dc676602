// The work windows inside the main window of a real session: their size on
// opening, the "Ventana" menu and Ctrl+F4, which Alt letters the active window
// owns, what the status line and titles say, and the start-up option that
// opens a program by name.
#include "desktop_fixture.h"
#include "ui/window_placement.h"

#include <QApplication>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QTableView>
#include <QTest>

namespace co::ui {
namespace {

class WorkWindows : public test::DesktopTest {
protected:
    void SetUp() override {
        DesktopTest::SetUp();
        if (HasFatalFailure())
            return;
        ASSERT_NO_FATAL_FAILURE(arrancar(opciones(QStringLiteral("ADMIN"))));
        TfOBRAMENU *v = session_->ventana();
        v->showNormal();
        v->setGeometry(0, 0, 1600, 1000);
        v->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(v));
    }
    QMdiSubWindow *abrir(const QString &entrada) {
        session_->ventana()->accion(entrada)->trigger();
        return session_->ventana()->mdi()->activeSubWindow();
    }
    static void tecla(Qt::Key key, Qt::KeyboardModifiers m = Qt::NoModifier) {
        QWidget *w = QApplication::focusWidget() ? QApplication::focusWidget()
                                                 : QApplication::activeWindow();
        ASSERT_NE(w, nullptr) << "nothing has the focus";
        QTest::keyClick(w, key, m);
    }
    // The title of the menu that Alt+`letra` drops down; empty when none.
    static QString menuDeAlt(Qt::Key letra) {
        tecla(letra, Qt::AltModifier);
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        const QString titulo = menu ? menu->title() : QString();
        if (menu)
            menu->close();
        return titulo;
    }
};

TEST_P(WorkWindows, AMasterOpensAtTheSizeOfItsColumnsWithinTheWorkArea) {
    QMdiSubWindow *w = abrir(QStringLiteral("MaestrodeMaquinas1"));
    ASSERT_NE(w, nullptr);
    const QSize area = session_->ventana()->mdi()->viewport()->size();
    EXPECT_GE(w->width(), kVentanaMinima.width());
    EXPECT_GE(w->height(), kVentanaMinima.height());
    EXPECT_LE(w->width(), area.width());
    EXPECT_LE(w->height(), area.height());
    EXPECT_TRUE(QRect(QPoint(0, 0), area).contains(w->geometry())) << "inside the work area";
    QTableView *grid = dynamic_cast<FormView *>(w->widget())->grid(QStringLiteral("DBGrid1"));
    const QHeaderView *cabecera = grid->horizontalHeader();
    EXPECT_LE(cabecera->length(), grid->viewport()->width())
        << "every column shows without scrolling";
    EXPECT_FALSE(w->isMaximized());
}

TEST_P(WorkWindows, AMaximisedWindowLeavesTheNextOneNormal) {
    QMdiSubWindow *unidades = abrir(QStringLiteral("MaestrodeUnidades1"));
    ASSERT_NE(unidades, nullptr);
    unidades->showMaximized();
    QMdiSubWindow *maquinas = abrir(QStringLiteral("MaestrodeMaquinas1"));
    ASSERT_NE(maquinas, nullptr);
    ASSERT_NE(maquinas, unidades);
    EXPECT_FALSE(maquinas->isMaximized());
}

TEST_P(WorkWindows, TheWindowMenuArrangesListsAndCloses) {
    TfOBRAMENU *v = session_->ventana();
    EXPECT_FALSE(v->accion(QStringLiteral("Cascada1"))->isEnabled()) << "no windows yet";
    QMdiSubWindow *unidades = abrir(QStringLiteral("MaestrodeUnidades1"));
    QMdiSubWindow *maquinas = abrir(QStringLiteral("MaestrodeMaquinas1"));
    ASSERT_TRUE(unidades && maquinas);
    EXPECT_TRUE(v->accion(QStringLiteral("Cascada1"))->isEnabled());
    QMenu *menu = v->findChild<QMenu *>(QStringLiteral("Ventana1"));
    ASSERT_NE(menu, nullptr);
    QStringList lista;
    QAction *primera = nullptr;
    for (QAction *a : menu->actions())
        if (a->objectName().startsWith(QStringLiteral("VentanaAbierta"))) {
            lista << a->text();
            if (!primera)
                primera = a;
        }
    EXPECT_EQ(lista, (QStringList{QStringLiteral("&1 Maestro de Unidades"),
                                  QStringLiteral("&2 Maestro de Maquinas")}));
    ASSERT_NE(primera, nullptr);
    primera->trigger();
    EXPECT_EQ(v->mdi()->activeSubWindow(), unidades);
    v->accion(QStringLiteral("Mosaico1"))->trigger();
    EXPECT_FALSE(unidades->geometry().intersects(maquinas->geometry())) << "side by side";
    v->accion(QStringLiteral("Cascada1"))->trigger();
    EXPECT_NE(unidades->pos(), maquinas->pos());

    // Ctrl+F4 closes the active window only; nothing pending, nothing asked.
    unidades->widget()->setFocus();
    tecla(Qt::Key_F4, Qt::ControlModifier);
    QTest::qWait(0);
    ASSERT_EQ(v->mdi()->subWindowList().size(), 1);
    EXPECT_EQ(v->mdi()->subWindowList().first()->windowTitle(),
              QStringLiteral("Maestro de Maquinas"));
    EXPECT_TRUE(port_.texts().isEmpty()) << port_.texts().join(u'\n').toStdString();
}

TEST_P(WorkWindows, TheActiveWindowOwnsItsAltLetters) {
    EXPECT_EQ(menuDeAlt(Qt::Key_F), QStringLiteral("&Facturación")) << "no work window yet";
    QMdiSubWindow *w = abrir(QStringLiteral("MaestrodeUnidades1"));
    ASSERT_NE(w, nullptr);
    w->widget()->findChild<QTableView *>()->setFocus();
    EXPECT_EQ(menuDeAlt(Qt::Key_F), QStringLiteral("&Ficha"));
    // The main menu keeps its other letters.
    EXPECT_EQ(menuDeAlt(Qt::Key_M), QStringLiteral("&Maestros"));
    // The dropped menu took the focus; the clerk is back on the grid.
    w->widget()->findChild<QTableView *>()->setFocus();
    tecla(Qt::Key_A, Qt::AltModifier); // &Agregar, not &Archivo
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    EXPECT_EQ(dynamic_cast<FormView *>(w->widget())->statusText(),
              QStringLiteral("Agregando registro"));
    // Closed, the main menu has its letters back.
    port_.answer(QStringLiteral("NO"));
    w->close();
    QTest::qWait(0);
    // The clerk is back on the main window (offscreen, a closed menu stays "active").
    session_->ventana()->activateWindow();
    QTest::qWait(0);
    EXPECT_EQ(menuDeAlt(Qt::Key_A), QStringLiteral("&Archivo"));
}

TEST_P(WorkWindows, StatusAndTitlesSpeakTheClerksLanguage) {
    QMdiSubWindow *w = abrir(QStringLiteral("MaestrodeMaquinas1"));
    ASSERT_NE(w, nullptr);
    auto *view = dynamic_cast<FormView *>(w->widget());
    EXPECT_EQ(w->windowTitle(), QStringLiteral("Maestro de Maquinas"));
    EXPECT_EQ(view->statusText(), QStringLiteral("Sin registros"));
    for (const QLabel *l : w->findChildren<QLabel *>()) {
        EXPECT_FALSE(l->text().startsWith(QStringLiteral("ds"))) << l->text().toStdString();
        EXPECT_FALSE(l->text().contains(QStringLiteral("MAQUINOB"))) << l->text().toStdString();
    }
}

TEST_P(WorkWindows, EntriesWithoutTheirScreenAreDisabledAndSayWhy) {
    QAction *facturas = session_->ventana()->accion(QStringLiteral("HistoricodeFacturas1"));
    EXPECT_FALSE(facturas->isEnabled());
    EXPECT_EQ(
        facturas->toolTip(),
        QStringLiteral("¡El programa 'Historico de Facturas' no está disponible en esta versión!"));
    EXPECT_TRUE(session_->ventana()->accion(QStringLiteral("MaestrodeUnidades1"))->isEnabled());
}

INSTANTIATE_TEST_SUITE_P(Backends, WorkWindows,
                         ::testing::Values(Backend::SQLite, Backend::PostgreSQL),
                         co::test::backendName);

// `control-obras --abrir "<program>"`: the program opens after the login,
// under the user's rights.
using OpenAtStart = test::DesktopTest;

TEST(OpenAtStartArguments, TheProgramIsTakenOutOfTheArguments) {
    QStringList args{QStringLiteral("control-obras"), QStringLiteral("--abrir"),
                     QStringLiteral("Maestro de Unidades"), QStringLiteral("U=ADMIN")};
    EXPECT_EQ(ExtraerProgramaAbrir(args), QStringLiteral("Maestro de Unidades"));
    EXPECT_EQ(args, (QStringList{QStringLiteral("control-obras"), QStringLiteral("U=ADMIN")}));
    QStringList sin{QStringLiteral("control-obras"), QStringLiteral("ADMIN")};
    EXPECT_TRUE(ExtraerProgramaAbrir(sin).isEmpty());
    EXPECT_EQ(sin.size(), 2);
    QStringList cortado{QStringLiteral("control-obras"), QStringLiteral("--abrir")};
    EXPECT_TRUE(ExtraerProgramaAbrir(cortado).isEmpty());
    EXPECT_EQ(cortado, QStringList{QStringLiteral("control-obras")});
}

TEST_P(OpenAtStart, TheProgramOpensAfterTheLoginOrIsRefusedAsFromTheMenu) {
    DesktopSession abierta(opciones(QStringLiteral("ADMIN")), &port_);
    abierta.AbrirAlArrancar(QStringLiteral("Maestro de Incidencias"));
    ASSERT_TRUE(abierta.Arrancar()) << port_.texts().join(u'\n').toStdString();
    ASSERT_EQ(abierta.ventana()->mdi()->subWindowList().size(), 1);
    EXPECT_EQ(abierta.ventana()->mdi()->subWindowList().first()->objectName(),
              QStringLiteral("fOBRAINCI"));

    // A refused right gives the message the menu gives.
    ASSERT_FALSE(abierta.aplicacion()
                     .datos()
                     .EjecutarSQL(QStringLiteral("UPDATE USUARIO SET ProgramasNoAccesibles = "
                                                 "'Maestro de Unidades' WHERE Codigo = 'ADMIN'"),
                                  QStringLiteral("DatabaseGeneral"))
                     .startsWith(QStringLiteral("Error")));
    port_.clear();
    abierta.ventana()->accion(QStringLiteral("MaestrodeUnidades1"))->trigger();
    const QStringList delMenu = port_.texts();
    ASSERT_FALSE(delMenu.isEmpty());
    port_.clear();
    DesktopSession negada(opciones(QStringLiteral("ADMIN")), &port_);
    negada.AbrirAlArrancar(QStringLiteral("Maestro de Unidades"));
    ASSERT_TRUE(negada.Arrancar());
    EXPECT_TRUE(negada.ventana()->mdi()->subWindowList().isEmpty());
    EXPECT_EQ(port_.texts().mid(port_.texts().size() - delMenu.size()), delMenu);

    // A name no entry has is told.
    port_.clear();
    EXPECT_FALSE(negada.AbrirPrograma(QStringLiteral("Maestro de Nada")));
    EXPECT_EQ(port_.texts().value(0),
              QStringLiteral("¡El programa 'Maestro de Nada' no está disponible en esta versión!"));
}

INSTANTIATE_TEST_SUITE_P(Backends, OpenAtStart,
                         ::testing::Values(Backend::SQLite, Backend::PostgreSQL),
                         co::test::backendName);

} // namespace
} // namespace co::ui
