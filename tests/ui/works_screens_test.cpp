// Work screens opened from the main menu of a real session, through their
// widgets: the rights a program is opened with, and the works parameters
// screen with the menu entries that follow it.
#include "core/currency.h"
#include "core/keystroke_log.h"
#include "core/users.h"
#include "desktop_fixture.h"
#include "ui/form_view.h"
#include "works/works_parameters.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QFile>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

namespace co::ui {
namespace {

class WorksScreens : public test::DesktopTest {
protected:
    // Opens a program from its menu entry; the view of its form, or nullptr.
    FormView *abrir(DesktopSession &session, const QString &entrada) {
        session.ventana()->accion(entrada)->trigger();
        for (QMdiSubWindow *w : session.ventana()->mdi()->subWindowList())
            if (auto *view = dynamic_cast<FormView *>(w->widget());
                view && w == session.ventana()->mdi()->activeSubWindow())
                return view;
        return nullptr;
    }
    void usuario(DesktopSession &session, const QString &asignacion) {
        const QString r = session.aplicacion().datos().EjecutarSQL(
            QStringLiteral("UPDATE USUARIO SET ") + asignacion +
                QStringLiteral(" WHERE Codigo = 'ADMIN'"),
            QStringLiteral("DatabaseGeneral"));
        ASSERT_FALSE(r.startsWith(QStringLiteral("Error"))) << r.toStdString();
    }
};

TEST_P(WorksScreens, AReadOnlyProgramOpensItsTablesReadOnlyAndRefusesWrites) {
    DesktopSession session(opciones(QStringLiteral("ADMIN")), &port_);
    ASSERT_TRUE(session.Arrancar()) << port_.texts().join(u'\n').toStdString();
    usuario(session, QStringLiteral("ProgramasSoloLectura = 'Maestro de Unidades'"));

    FormView *unidades = abrir(session, QStringLiteral("MaestrodeUnidades1"));
    ASSERT_NE(unidades, nullptr) << port_.texts().join(u'\n').toStdString();
    for (forms::Dataset *d : unidades->form().Datasets())
        EXPECT_TRUE(d->ReadOnly) << d->Name().toStdString();
    auto *agregar = qobject_cast<QPushButton *>(unidades->widgetFor(QStringLiteral("pbAgregar")));
    ASSERT_NE(agregar, nullptr);
    QTest::mouseClick(agregar, Qt::LeftButton);
    EXPECT_EQ(port_.texts().value(port_.texts().size() - 1),
              QStringLiteral("¡Ud. no tiene autorización para realizar modificaciones!"));
    EXPECT_EQ(
        session.aplicacion().datos().EjecutarSQL(QStringLiteral("SELECT COUNT(*) FROM UNIDADOB")),
        QStringLiteral("0"));

    // A program not in the list opens for writing.
    FormView *maquinas = abrir(session, QStringLiteral("MaestrodeMaquinas1"));
    ASSERT_NE(maquinas, nullptr);
    for (forms::Dataset *d : maquinas->form().Datasets())
        EXPECT_FALSE(d->ReadOnly) << d->Name().toStdString();
}

TEST_P(WorksScreens, AForbiddenProgramDoesNotOpen) {
    DesktopSession session(opciones(QStringLiteral("ADMIN")), &port_);
    ASSERT_TRUE(session.Arrancar());
    usuario(session, QStringLiteral("ProgramasNoAccesibles = 'Maestro de Unidades'"));
    EXPECT_EQ(abrir(session, QStringLiteral("MaestrodeUnidades1")), nullptr);
    EXPECT_TRUE(session.ventana()->mdi()->subWindowList().isEmpty());
}

TEST_P(WorksScreens, TheParametersScreenSavesThroughItsWidgetsAndTheMenuFollows) {
    DesktopSession session(opciones(QStringLiteral("ADMIN")), &port_);
    ASSERT_TRUE(session.Arrancar());
    QAction *conjuntos = session.ventana()->accion(QStringLiteral("IntroduccindePartesConjuntos1"));
    EXPECT_TRUE(conjuntos->isVisible());

    FormView *parametros = abrir(session, QStringLiteral("ControldeObras1"));
    ASSERT_NE(parametros, nullptr) << port_.texts().join(u'\n').toStdString();
    EXPECT_EQ(parametros->windowTitle(), QStringLiteral("Parámetros de Control de Obras"));
    EXPECT_EQ(
        session.aplicacion().datos().EjecutarSQL(QStringLiteral("SELECT COUNT(*) FROM PARAOBRA")),
        QStringLiteral("1"));
    auto *multi =
        qobject_cast<QComboBox *>(parametros->widgetFor(QStringLiteral("ComboBoxMultiPartes")));
    ASSERT_NE(multi, nullptr);
    EXPECT_EQ(multi->currentText(), QStringLiteral("SI"));
    multi->setFocus();
    multi->setCurrentText(QStringLiteral("NO"));
    EXPECT_TRUE(conjuntos->isVisible()) << "nothing changes before the row is saved";

    auto *grabar = qobject_cast<QPushButton *>(parametros->widgetFor(QStringLiteral("pbGrabar")));
    ASSERT_NE(grabar, nullptr);
    QTest::mouseClick(grabar, Qt::LeftButton);
    EXPECT_TRUE(QTest::qWaitFor([&] {
        return session.ventana()->mdi()->subWindowList().isEmpty();
    })) << "saving closes the screen";
    EXPECT_EQ(session.aplicacion().datos().EjecutarSQL(
                  QStringLiteral("SELECT MultiPartes FROM PARAOBRA")),
              QStringLiteral("NO"));
    EXPECT_FALSE(conjuntos->isVisible());
    ASSERT_NE(session.obra(), nullptr);
    EXPECT_FALSE(session.obra()->ParametrosMultiPartes());
    EXPECT_TRUE(
        session.ventana()->accion(QStringLiteral("IntroduccindePartesdeTrabajo1"))->isVisible());
}

TEST_P(WorksScreens, TheMenuHidesReportEntriesOnlyForAnExactNo) {
    {
        DesktopSession session(opciones(QStringLiteral("ADMIN")), &port_);
        ASSERT_TRUE(session.Arrancar());
        const QString r = session.aplicacion().datos().EjecutarSQL(
            QStringLiteral("INSERT INTO PARAOBRA (IdRegistro, MultiPartes, PartesSeparados) VALUES "
                           "(1, 'no', 'NO')"));
        ASSERT_FALSE(r.startsWith(QStringLiteral("Error"))) << r.toStdString();
    }
    DesktopSession session(opciones(QStringLiteral("ADMIN")), &port_);
    ASSERT_TRUE(session.Arrancar());
    EXPECT_TRUE(
        session.ventana()->accion(QStringLiteral("IntroduccindePartesConjuntos1"))->isVisible())
        << "\"no\" in lower case is not the flag's NO";
    EXPECT_FALSE(
        session.ventana()->accion(QStringLiteral("IntroduccindePartesdeTrabajo1"))->isVisible());
    EXPECT_FALSE(session.obra()->ParametrosMultiPartes()) << "nor is it a SI";
}

TEST_P(WorksScreens, ControlsPickedByTheAdministratorGoToTheUsersNamedAtTheEnd) {
    QFile ini(dir_.filePath(QStringLiteral("NAROWIN.INI")));
    ASSERT_TRUE(ini.open(QIODevice::WriteOnly));
    ini.write("[Configuración]\nModoAdministradorActivado=SI\n");
    ini.close();
    {
        DesktopSession session(opciones(QStringLiteral("ADMIN")), &port_);
        ASSERT_TRUE(session.Arrancar());
        FormView *unidades = abrir(session, QStringLiteral("MaestrodeUnidades1"));
        ASSERT_NE(unidades, nullptr);
        QTableView *grid = unidades->grid(QStringLiteral("DBGrid1"));
        ASSERT_NE(grid, nullptr);
        grid->setFocus();
        QTest::keyClick(grid, Qt::Key_F8);
        const QStringList elegidos =
            session.aplicacion().sesion().Teclado().ControlesSeleccionados.lista();
        ASSERT_EQ(elegidos.size(), 1);
        EXPECT_TRUE(elegidos.first().startsWith(QStringLiteral("TfOBRAUNID.DBGrid1")))
            << elegidos.first().toStdString();

        port_.answer(QStringLiteral("SI"));
        port_.answer(QStringLiteral("ADMIN"));
        EXPECT_TRUE(session.ventana()->close());
        EXPECT_TRUE(port_.texts().contains(
            QStringLiteral("¿Desea ver la Lista de Controles No Visibles?")));
        QString guardada;
        ValorUsuario(session.aplicacion().datos(), QStringLiteral("ADMIN"),
                     QStringLiteral("ControlesNoVisibles"), guardada);
        EXPECT_TRUE(guardada.contains(elegidos.first())) << guardada.toStdString();
    }
}

TEST_P(WorksScreens, TheCurrencyEntryInvertsShowsItsPanelAndTellsTheOpenScreens) {
    DesktopSession session(opciones(QStringLiteral("ADMIN")), &port_);
    ASSERT_TRUE(session.Arrancar());
    TfOBRAMENU &ventana = *session.ventana();
    const bool euro = session.aplicacion().monedas().MonedaBaseEsEuro;
    EXPECT_FALSE(ventana.VerOtraMoneda()) << "checked at start, then its click applied";
    EXPECT_EQ(ventana.PanelMoneda(), SimboloMonedaMostrada(false, euro));

    FormView *unidades = abrir(session, QStringLiteral("MaestrodeUnidades1"));
    ASSERT_NE(unidades, nullptr);
    int avisos = 0;
    unidades->form().SetHandler(QStringLiteral("VerDatosEnMonedaNacionalOEuroClick"),
                                [&avisos](forms::Component *) { ++avisos; });
    ventana.accion(QStringLiteral("VerDatosenMonedaNacionalOEuro"))->trigger();
    EXPECT_TRUE(ventana.VerOtraMoneda());
    EXPECT_EQ(ventana.PanelMoneda(), SimboloMonedaMostrada(true, euro));
    EXPECT_EQ(avisos, 1);
}

TEST_P(WorksScreens, TheCompanyIsChangedThroughTheSearchWindow) {
    DesktopSession session(opciones(QStringLiteral("ADMIN")), &port_);
    ASSERT_TRUE(session.Arrancar());
    TModuloDatos &datos = session.aplicacion().datos();
    ASSERT_FALSE(
        datos
            .EjecutarSQL(QStringLiteral("INSERT INTO EMPRESA (Codigo, Nombre, Abreviatura) "
                                        "VALUES (2, 'Segunda empresa', 'SEGUNDA')"),
                         QStringLiteral("DatabaseGeneral"))
            .startsWith(QStringLiteral("Error.")));
    usuario(session, QStringLiteral("Empresas = '2'"));
    auto elegir = [](const QString &codigo) {
        QTimer::singleShot(0, [codigo] {
            auto *d = qobject_cast<QDialog *>(QApplication::activeModalWidget());
            ASSERT_NE(d, nullptr);
            EXPECT_EQ(d->windowTitle(), QStringLiteral("Buscar en la tabla EMPRESA"));
            auto *dato = d->findChild<QLineEdit *>(QStringLiteral("DatoABuscar"));
            auto *grid = d->findChild<QTableView *>(QStringLiteral("DBGrid1"));
            ASSERT_TRUE(dato && grid);
            dato->setText(codigo);
            Q_EMIT dato->textEdited(codigo);
            QTest::keyClick(dato, Qt::Key_Return);
            if (codigo.isEmpty())
                QTest::keyClick(dato, Qt::Key_Escape);
            else
                QTest::keyClick(grid, Qt::Key_Return);
        });
    };
    elegir(QStringLiteral("2"));
    session.ventana()->accion(QStringLiteral("CambioEmpresa1"))->trigger();
    EXPECT_EQ(session.aplicacion().sesion().CodigoEmpresa, 2)
        << port_.texts().join(u'\n').toStdString();
    EXPECT_EQ(session.ventana()->windowTitle(), QStringLiteral("Control de Obras: SEGUNDA"));
    // Leaving the window without a row keeps the company.
    elegir(QString());
    session.ventana()->accion(QStringLiteral("CambioEmpresa1"))->trigger();
    EXPECT_EQ(session.aplicacion().sesion().CodigoEmpresa, 2);
}

CO_ON_BOTH_BACKENDS(WorksScreens);

} // namespace
} // namespace co::ui
