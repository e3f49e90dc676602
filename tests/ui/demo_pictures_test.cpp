// The desktop program on the demo company, as `make run` leaves it: the
// masters show the demo's rows. With CO_SCREENSHOT_DIR set the windows are
// saved there as the pictures of README.md (run under Xvfb with the xcb platform).
#include "desktop_fixture.h"
#include "form_view_driver.h"

#include <QAction>
#include <QDir>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QTabWidget>

namespace co::ui {
namespace {

class DemoPictures : public test::DesktopTest {
protected:
    void SetUp() override {
        DesktopTest::SetUp();
        if (HasFatalFailure())
            return;
        const auto demo =
            cli(QStringLiteral("demo"), {QStringLiteral("--escala"), QStringLiteral("0.02")});
        ASSERT_EQ(demo.status, 0) << demo.err.toStdString();
        ASSERT_NO_FATAL_FAILURE(arrancar(opciones(QStringLiteral("ADMIN"))));
        session_->ventana()->resize(1200, 640);
        session_->ventana()->show();
    }
    QString valor(const QString &s) {
        const QString r = session_->aplicacion().datos().EjecutarSQL(s);
        EXPECT_FALSE(r.startsWith(QStringLiteral("Error."))) << r.toStdString();
        return r;
    }
    FormView *abrir(const QString &entrada) { return abrirMaximizada(entrada); }
    // One picture of the demo company is enough: the SQLite one.
    void guardar(const QString &nombre) {
        if (GetParam() == Backend::SQLite)
            guardarCaptura(nombre);
    }
};

TEST_P(DemoPictures, TheWindowIsTitledWithTheDemoCompany) {
    const QStringList empresa =
        valor(QStringLiteral("SELECT Nombre, Abreviatura FROM EMPRESA WHERE Codigo = 1"))
            .split(u'|');
    ASSERT_EQ(empresa.size(), 2);
    EXPECT_TRUE(empresa.at(0).endsWith(QStringLiteral(", S.L."))) << empresa.at(0).toStdString();
    EXPECT_FALSE(empresa.at(1).isEmpty());
    EXPECT_EQ(session_->ventana()->windowTitle(),
              QStringLiteral("Control de Obras: ") + empresa.at(1));
}

TEST_P(DemoPictures, MachinesMasterShowsTheDemoMachines) {
    FormView *view = abrir(QStringLiteral("MaestrodeMaquinas1"));
    ASSERT_NE(view, nullptr);
    test::FormViewDriver d(*view);
    EXPECT_EQ(QString::number(d.rows()), valor(QStringLiteral("SELECT COUNT(*) FROM MAQUINOB")));
    EXPECT_EQ(d.cell(0, 0), QStringLiteral("MAQ01"));
    EXPECT_EQ(d.cell(0, 1),
              valor(QStringLiteral("SELECT Descripcion FROM MAQUINOB WHERE Codigo = 'MAQ01'")));
    guardar(QStringLiteral("demo-machines-master.png"));
}

TEST_P(DemoPictures, UnitsMasterShowsTheBudgetItems) {
    FormView *view = abrir(QStringLiteral("MaestrodeUnidades1"));
    ASSERT_NE(view, nullptr);
    test::FormViewDriver d(*view);
    const int filas = valor(QStringLiteral("SELECT COUNT(*) FROM UNIDADOB")).toInt();
    EXPECT_GT(filas, 30);
    EXPECT_GE(d.rows(), std::min(filas, 20));
    EXPECT_EQ(d.cell(0, 0), valor(QStringLiteral("SELECT MIN(Codigo) FROM UNIDADOB")));
    guardar(QStringLiteral("demo-units-master.png"));
}

TEST_P(DemoPictures, GlobalesShowsTheDemoCompanysParameters) {
    FormView *view = abrir(QStringLiteral("Globales1"));
    ASSERT_NE(view, nullptr) << port_.texts().join(u'\n').toStdString();
    auto *tabs = view->findChild<QTabWidget *>();
    ASSERT_NE(tabs, nullptr);
    tabs->setCurrentIndex(1);
    EXPECT_EQ(tabs->tabText(1), QStringLiteral("Empresa"));
    auto *razon = qobject_cast<QLineEdit *>(view->widgetFor(QStringLiteral("EditRazonSocial")));
    ASSERT_NE(razon, nullptr);
    EXPECT_TRUE(razon->isVisible());
    EXPECT_EQ(razon->text(), valor(QStringLiteral("SELECT RazonSocial FROM PARAGENE")));
    EXPECT_FALSE(razon->text().isEmpty());
    guardar(QStringLiteral("globales.png"));
}

CO_ON_BOTH_BACKENDS(DemoPictures);

} // namespace
} // namespace co::ui
