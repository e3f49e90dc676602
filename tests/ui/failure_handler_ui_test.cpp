// Failures nobody caught, raised in an event of a work window of the running
// program, reach the session's handler with that window's table and window.
#include "desktop_fixture.h"

#include "core/failure.h"
#include "core/ini_configuration.h"
#include "core/ini_file.h"

#include <QEvent>
#include <QTableView>
#include <QTest>

namespace co::ui {
namespace {

// Raises its failure on the event a test sends it, from inside a window.
class Throwing : public QObject {
public:
    Throwing(QString text, QObject *parent) : QObject(parent), text_(std::move(text)) {}
    bool event(QEvent *e) override {
        if (e->type() == QEvent::User)
            throw Failure(text_);
        return QObject::event(e);
    }

private:
    QString text_;
};

class UncaughtFailures : public test::DesktopTest {
protected:
    void SetUp() override {
        DesktopTest::SetUp();
        ASSERT_NO_FATAL_FAILURE(arrancar(opciones(QStringLiteral("ADMIN"))));
        session_->ventana()->accion(QStringLiteral("MaestrodeUnidades1"))->trigger();
        QMdiSubWindow *w = session_->ventana()->mdi()->activeSubWindow();
        ASSERT_NE(w, nullptr) << port_.texts().join(u'\n').toStdString();
        unidades_ = dynamic_cast<FormView *>(w->widget());
        ASSERT_NE(unidades_, nullptr);
        port_.clear();
    }
    // The failure raised in an event sent to the units grid.
    void fallo(const QString &texto) {
        Throwing t(texto, unidades_->grid(QStringLiteral("DBGrid1")));
        QEvent e(QEvent::User);
        QCoreApplication::sendEvent(&t, &e);
    }
    int ventanas() const { return static_cast<int>(session_->ventana()->mdi()->subWindowList().size()); }
    QString tablasAReconstruir() {
        return IniFile::load(session_->aplicacion().sesion().ArchivoINI)
            .value(kSeccionReconstruccion, QStringLiteral("Tablas"))
            .value_or(QString());
    }
    FormView *unidades_ = nullptr;
};

TEST_P(UncaughtFailures, AreToldInSpanishAndTheProgramGoesOn) {
    bool terminada = false;
    session_->aplicacion().sesion().mensajes().setTerminator([&] { terminada = true; });
    fallo(QStringLiteral("'abc' is not a valid floating point value"));
    EXPECT_EQ(port_.texts(), QStringList{QStringLiteral("¡ El dato introducido no es válido !. Repita por favor.")});
    EXPECT_FALSE(terminada);
    port_.clear();
    fallo(QStringLiteral("Table is busy"));
    EXPECT_TRUE(port_.shown().isEmpty());
    fallo(QStringLiteral("Access violation at address 0"));
    EXPECT_TRUE(terminada);
    EXPECT_EQ(port_.shown().last().kind, u'E');
}

TEST_P(UncaughtFailures, TheMemoFailureClosesTheWindowThatRaisedIt) {
    fallo(QStringLiteral("Invalid BLOB handle in record buffer"));
    EXPECT_EQ(port_.texts().value(0),
              QStringLiteral("¡El número de campos Memo que se intenta manejar es excesivo!. Acote la consulta."));
    QTest::qWait(0);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(ventanas(), 0);
}

TEST_P(UncaughtFailures, AnIndexFailureNotesTheScreensTableForRebuildOnEmbeddedData) {
    fallo(QStringLiteral("Index is out of date"));
    EXPECT_EQ(ventanas(), 1);
    const TfGENEINIC &s = session_->aplicacion().sesion();
    if (backend() == Backend::SQLite) {
        EXPECT_EQ(tablasAReconstruir(), s.PathBaseDatos + QStringLiteral("\\UNIDADOB"));
    } else {
        EXPECT_EQ(tablasAReconstruir(), QString()) << "a server rebuilds nothing";
    }
    // Twice is noted once.
    fallo(QStringLiteral("No index currently active"));
    if (backend() == Backend::SQLite) {
        EXPECT_EQ(tablasAReconstruir(), s.PathBaseDatos + QStringLiteral("\\UNIDADOB"));
    }
}

TEST_P(UncaughtFailures, AFailureInsideATransactionKeepsItFromBeingCommitted) {
    TfGENEINIC &s = session_->aplicacion().sesion();
    ASSERT_TRUE(s.IniciarTransaccion());
    fallo(QStringLiteral("Record locked by another user"));
    port_.clear();
    EXPECT_FALSE(s.FinalizarTransaccionControlada());
    EXPECT_EQ(port_.texts().value(0),
              QStringLiteral("¡ La transacción no ha sido completada !. Inténtelo de nuevo."));
    EXPECT_FALSE(s.TransaccionActiva());
}

CO_ON_BOTH_BACKENDS(UncaughtFailures);

} // namespace
} // namespace co::ui
