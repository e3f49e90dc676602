// The change of company as a clerk makes it, with a record half typed in a
// work window: the menu entry, the company picked in the search window, the
// window's own close query, and both companies' tables read afterwards.
#include "desktop_fixture.h"

#include <QApplication>
#include <QDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QTableView>
#include <QTest>
#include <QTimer>

namespace co::ui {
namespace {

class CompanyChange : public test::DesktopTest {
protected:
    void SetUp() override {
        DesktopTest::SetUp();
        OpcionesArranque o = opciones(QStringLiteral("ADMIN"));
        session_ = std::make_unique<DesktopSession>(o, &port_);
        session_->AbrirAlArrancar(QStringLiteral("Maestro de Unidades"));
        ASSERT_TRUE(session_->Arrancar()) << port_.texts().join(u'\n').toStdString();
        ASSERT_NO_FATAL_FAILURE(sql(QStringLiteral("INSERT INTO EMPRESA (Codigo, Nombre, Abreviatura) "
                                                   "VALUES (2, 'Reformas del Norte', 'NORTE')"),
                                    QStringLiteral("DatabaseGeneral")));
        // Company 7 is granted but has no record.
        ASSERT_NO_FATAL_FAILURE(sql(QStringLiteral("UPDATE USUARIO SET Empresas = '1\r\n2\r\n7' "
                                                   "WHERE Codigo = 'ADMIN'"),
                                    QStringLiteral("DatabaseGeneral")));
        ASSERT_NO_FATAL_FAILURE(sql(QStringLiteral("INSERT INTO UNIDADOB (Codigo, Descripcion) "
                                                   "VALUES ('KG', 'Kilogramo')")));
        port_.clear();
        // Alt letters reach the buttons of the active window only.
        session_->ventana()->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(session_->ventana()));
        unidades_ = ventanaActiva();
        ASSERT_NE(unidades_, nullptr);
    }
    void sql(const QString &sentencia, const QString &conexion = QString()) {
        const QString r = session_->aplicacion().datos().EjecutarSQL(sentencia, conexion);
        ASSERT_FALSE(r.startsWith(QStringLiteral("Error"))) << r.toStdString();
    }
    QString valor(const QString &sentencia) {
        return session_->aplicacion().datos().EjecutarSQL(sentencia);
    }
    FormView *ventanaActiva() const {
        QMdiSubWindow *w = session_->ventana()->mdi()->activeSubWindow();
        return w ? dynamic_cast<FormView *>(w->widget()) : nullptr;
    }
    int empresa() { return session_->aplicacion().sesion().CodigoEmpresa; }
    // "Cambio de Empresa" from the menu; the company is typed and picked in the
    // search window that opens.
    void cambiarA(int codigo) {
        bool buscado = false;
        QTimer::singleShot(0, [&] {
            auto *d = qobject_cast<QDialog *>(QApplication::activeModalWidget());
            ASSERT_NE(d, nullptr);
            auto *dato = d->findChild<QLineEdit *>(QStringLiteral("DatoABuscar"));
            auto *grid = d->findChild<QTableView *>(QStringLiteral("DBGrid1"));
            ASSERT_TRUE(dato && grid);
            buscado = true;
            const QString texto = QString::number(codigo);
            dato->setText(texto);
            Q_EMIT dato->textEdited(texto);
            QTest::keyClick(dato, Qt::Key_Return);
            QTest::keyClick(grid, Qt::Key_Return);
        });
        session_->ventana()->accion(QStringLiteral("CambioEmpresa1"))->trigger();
        EXPECT_TRUE(buscado) << "no search window on EMPRESA";
    }
    // Keys go where the focus is, each one: the first character typed opens
    // the cell's editor, which takes the rest.
    static void teclear(const QString &texto, QWidget *sinFoco) {
        for (const QChar c : texto)
            QTest::keyClicks(QApplication::focusWidget() ? QApplication::focusWidget() : sinFoco, QString(c));
    }
    static void tecla(Qt::Key key, QWidget *sinFoco, Qt::KeyboardModifiers m = Qt::NoModifier) {
        QTest::keyClick(QApplication::focusWidget() ? QApplication::focusWidget() : sinFoco, key, m);
    }
    // A new unit typed into the grid and left pending.
    void teclearUnidad(const QString &codigo, const QString &descripcion) {
        QTableView *grid = unidades_->grid(QStringLiteral("DBGrid1"));
        ASSERT_NE(grid, nullptr);
        tecla(Qt::Key_A, grid, Qt::AltModifier); // &Agregar
        teclear(codigo, grid);
        tecla(Qt::Key_Tab, grid);
        teclear(descripcion, grid);
        tecla(Qt::Key_Tab, grid);
        ASSERT_TRUE(unidades_->form().Datasets().first()->IsPending());
    }
    FormView *unidades_ = nullptr;
};

TEST_P(CompanyChange, APendingRecordIsPostedToItsOwnCompanyBeforeTheChange) {
    ASSERT_NO_FATAL_FAILURE(teclearUnidad(QStringLiteral("M3"), QStringLiteral("Metro cubico")));
    port_.answer(QStringLiteral("NO")); // do not cancel: post it
    cambiarA(2);
    ASSERT_EQ(empresa(), 2) << port_.texts().join(u'\n').toStdString();
    EXPECT_TRUE(port_.texts().value(0).contains(QStringLiteral("cuya grabación no ha sido confirmada")));
    EXPECT_TRUE(session_->ventana()->mdi()->subWindowList().isEmpty());
    EXPECT_EQ(session_->ventana()->windowTitle(), QStringLiteral("Control de Obras: NORTE"));
    // The new company's units: none of the old one's.
    EXPECT_EQ(valor(QStringLiteral("SELECT COUNT(*) FROM UNIDADOB")), QStringLiteral("0"));
    // Back in the first company the typed unit was kept with the other one.
    port_.clear();
    cambiarA(1);
    ASSERT_EQ(empresa(), 1) << port_.texts().join(u'\n').toStdString();
    EXPECT_EQ(valor(QStringLiteral("SELECT Descripcion FROM UNIDADOB WHERE Codigo = 'M3'")),
              QStringLiteral("Metro cubico"));
    EXPECT_EQ(valor(QStringLiteral("SELECT COUNT(*) FROM UNIDADOB")), QStringLiteral("2"));
    // The works module was made again for the company now selected.
    ASSERT_NE(session_->obra(), nullptr);
}

TEST_P(CompanyChange, ARecordThatCannotBePostedStopsTheChange) {
    // Another user saves the same code while this one is still typing.
    const QString larga = QStringLiteral("Tonelada de acero corrugado");
    ASSERT_NO_FATAL_FAILURE(teclearUnidad(QStringLiteral("TN"), larga));
    ASSERT_NO_FATAL_FAILURE(sql(QStringLiteral("INSERT INTO UNIDADOB (Codigo, Descripcion) "
                                               "VALUES ('TN', 'Tonelada')")));
    port_.answer(QStringLiteral("NO"));
    cambiarA(2);
    EXPECT_EQ(empresa(), 1) << port_.texts().join(u'\n').toStdString();
    EXPECT_EQ(session_->ventana()->windowTitle().section(QStringLiteral(": "), 1), session_->aplicacion().Abreviatura);
    ASSERT_EQ(session_->ventana()->mdi()->subWindowList().size(), 1);
    forms::Dataset &tabla = *unidades_->form().Datasets().first();
    EXPECT_TRUE(tabla.IsPending()) << "the typed record is kept for correction";
    EXPECT_EQ(tabla.FieldByName(QStringLiteral("Descripcion")).AsString(), larga);
    EXPECT_TRUE(port_.texts().contains(QStringLiteral("¡ Ya existe el registro !")))
        << port_.texts().join(u'\n').toStdString();
    EXPECT_EQ(valor(QStringLiteral("SELECT Descripcion FROM UNIDADOB WHERE Codigo = 'TN'")),
              QStringLiteral("Tonelada"));
    // Cancelled on the second try, the change goes through.
    port_.answer(QStringLiteral("SI"));
    cambiarA(2);
    EXPECT_EQ(empresa(), 2) << port_.texts().join(u'\n').toStdString();
}

TEST_P(CompanyChange, ACompanyWithoutItsRecordIsRefusedAndNothingIsMadeForIt) {
    ASSERT_NO_FATAL_FAILURE(teclearUnidad(QStringLiteral("H"), QStringLiteral("Hora")));
    EXPECT_FALSE(session_->CambiarEmpresa(7));
    EXPECT_EQ(port_.texts().value(0), QStringLiteral("¡Ud. no tiene acceso a esta empresa!"));
    EXPECT_EQ(empresa(), 1);
    // Refused before anything closed: the window keeps its typed record.
    ASSERT_EQ(session_->ventana()->mdi()->subWindowList().size(), 1);
    EXPECT_TRUE(unidades_->form().Datasets().first()->IsPending());
    const TfGENEINIC &s = session_->aplicacion().sesion();
    if (backend() == Backend::SQLite) {
        EXPECT_FALSE(QFileInfo::exists(s.NombreAliasEmpresa(7)));
    } else {
        EXPECT_EQ(session_->aplicacion().datos().EjecutarSQL(
                      QStringLiteral("SELECT COUNT(*) FROM pg_database WHERE lower(datname) = lower('%1')")
                          .arg(s.NombreAliasEmpresa(7)),
                      QStringLiteral("DatabaseGeneral")),
                  QStringLiteral("0"));
    }
}

TEST_P(CompanyChange, AGeneralWindowOverTheCompanysDataGoesWithIt) {
    // "Globales" is one of the general windows, but it shows this company's parameters.
    ASSERT_TRUE(session_->AbrirPrograma(QStringLiteral("Globales")))
        << port_.texts().join(u'\n').toStdString();
    ASSERT_EQ(session_->ventana()->mdi()->subWindowList().size(), 2);
    cambiarA(2);
    ASSERT_EQ(empresa(), 2) << port_.texts().join(u'\n').toStdString();
    EXPECT_TRUE(session_->ventana()->mdi()->subWindowList().isEmpty());
}

CO_ON_BOTH_BACKENDS(CompanyChange);

} // namespace
} // namespace co::ui
