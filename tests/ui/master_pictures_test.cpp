// The machines and subcontracts masters drawn with rows in them, as the user
// sees them on opening. With CO_SCREENSHOT_DIR set the windows are saved there
// as pictures for the documentation (run under Xvfb with the xcb platform).
#include "desktop_fixture.h"
#include "form_view_driver.h"

#include <QAction>
#include <QDir>
#include <QMdiArea>
#include <QMdiSubWindow>

namespace co::ui {
namespace {

class MasterPictures : public test::DesktopTest {
protected:
    void SetUp() override {
        DesktopTest::SetUp();
        if (HasFatalFailure())
            return;
        ASSERT_NO_FATAL_FAILURE(arrancar(opciones(QStringLiteral("ADMIN"))));
        session_->ventana()->resize(1100, 560);
        session_->ventana()->show();
    }
    void sql(const QString &s) {
        const QString r = session_->aplicacion().datos().EjecutarSQL(s);
        ASSERT_FALSE(r.startsWith(QStringLiteral("Error."))) << r.toStdString();
    }
    FormView *abrir(const QString &entrada) { return abrirMaximizada(entrada); }
    void guardar(const QString &nombre) { guardarCaptura(nombre); }
};

TEST_P(MasterPictures, MachinesShowTheirRowsAndTheGroupsOfTheFirst) {
    FormView *vacia = abrir(QStringLiteral("MaestrodeMaquinas1"));
    ASSERT_NE(vacia, nullptr); // the tables are made on this first opening
    session_->ventana()->mdi()->closeAllSubWindows();
    sql(QStringLiteral(
        "INSERT INTO MAQUINOB (Codigo, Descripcion, CuotaHoraria1, CuotaHoraria2, "
        "PrecioVenta1) VALUES ('EXC01', 'Excavadora de cadenas 20 t', 42.5, 38, 55)"));
    sql(QStringLiteral("INSERT INTO MAQUINOB (Codigo, Descripcion, CuotaHoraria1, CuotaHoraria2, "
                       "PrecioVenta1) VALUES ('GRU02', 'Grúa autopropulsada 50 t', 85, 80, 110)"));
    sql(QStringLiteral("INSERT INTO MAQUINOB (Codigo, Descripcion, CuotaHoraria1, CuotaHoraria2, "
                       "PrecioVenta1) VALUES ('RET03', 'Retroexcavadora mixta', 31.75, 29, 40)"));
    sql(QStringLiteral("INSERT INTO GRANTAB (NombreTabla, ClaveTabla, GrupoAnalisis) VALUES "
                       "('MAQUINOB', 'EXC01', 'MOVT')"));
    sql(QStringLiteral("INSERT INTO GRANALIS (Codigo, Descripcion, CategoriaGrupo) VALUES "
                       "('MOVT', 'Movimiento de tierras', 'Maquinaria pesada')"));
    FormView *view = abrir(QStringLiteral("MaestrodeMaquinas1"));
    ASSERT_NE(view, nullptr);
    test::FormViewDriver d(*view);
    ASSERT_EQ(d.rows(), 3);
    EXPECT_EQ(d.cell(1, 1), QStringLiteral("Grúa autopropulsada 50 t"));
    EXPECT_EQ(d.rows(QStringLiteral("DBGrid2")), 1) << "the groups of the current machine";
    EXPECT_EQ(d.cell(0, 1, QStringLiteral("DBGrid2")), QStringLiteral("Maquinaria pesada"));
    guardar(QStringLiteral("machines-master.png"));
}

TEST_P(MasterPictures, SubcontractsShowTheirSuppliersName) {
    ASSERT_NE(abrir(QStringLiteral("MaestrodeSubContrataciones1")), nullptr);
    session_->ventana()->mdi()->closeAllSubWindows();
    sql(QStringLiteral(
        "INSERT INTO PROVEEDR (Codigo, Nombre) VALUES (40, 'Grúas del Norte, S.L.')"));
    sql(QStringLiteral("INSERT INTO SUBCONTR (Codigo, Descripcion, Precio1, CodigoProveedor, "
                       "FechaAlta, TipoIVA) VALUES ('ELEV', 'Elevación de cargas', 65, 40, "
                       "'2026-03-02', 1)"));
    sql(QStringLiteral("INSERT INTO SUBCONTR (Codigo, Descripcion, Precio1, CodigoProveedor, "
                       "FechaAlta, TipoIVA) VALUES ('TRANS', 'Transporte de tierras', 38.5, 40, "
                       "'2026-04-15', 1)"));
    FormView *view = abrir(QStringLiteral("MaestrodeSubContrataciones1"));
    ASSERT_NE(view, nullptr);
    test::FormViewDriver d(*view);
    ASSERT_EQ(d.rows(), 2);
    QStringList fila;
    for (int c = 0; c < d.grid().model()->columnCount(); ++c)
        fila << d.cell(0, c);
    EXPECT_TRUE(fila.contains(QStringLiteral("Grúas del Norte, S.L.")))
        << fila.join(u'|').toStdString();
    guardar(QStringLiteral("subcontracts-master.png"));
}

CO_ON_BOTH_BACKENDS(MasterPictures);

} // namespace
} // namespace co::ui
