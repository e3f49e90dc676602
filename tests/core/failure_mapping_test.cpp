// Failures of both back-ends reach the user as the same Spanish messages:
// the layer maps native failures onto the handler's texts.
#include "core/failure_handler.h"

#include "support/layer_fixture.h"

#include <QFile>
#include <gtest/gtest.h>

namespace co {
namespace {

using test::LayerTest;

class FailureMapping : public LayerTest {
protected:
    void SetUp() override {
        LayerTest::SetUp();
        ok(QStringLiteral("CREATE TABLE COBRO (Numero INTEGER NOT NULL PRIMARY KEY, Importe DOUBLE PRECISION)"));
        ok(QStringLiteral("INSERT INTO COBRO VALUES ('1', '10')"));
    }
    // The message a failure text of the layer ends as.
    static QString messageOf(const QString &result) {
        const QString prefix = QStringLiteral("Error. No es posible ejecutar la sentencia SQL. Motivo: ");
        EXPECT_TRUE(result.startsWith(prefix)) << result.toStdString();
        return GestionExcepciones(result.mid(prefix.size())).message;
    }
    // A second user of the same installation.
    std::unique_ptr<TfGENEINIC> otherUser() {
        auto other = std::make_unique<TfGENEINIC>(settings_, &messages_);
        other->EsperaBloqueoMs = 200;
        EXPECT_TRUE(other->Conectar());
        return other;
    }
};

TEST_P(FailureMapping, DuplicateKeyIsAnExistingRecord) {
    const QString r = datos_->EjecutarSQL(QStringLiteral("INSERT INTO COBRO VALUES ('1', '5')"), {}, QStringLiteral("Silenciosa"));
    EXPECT_EQ(messageOf(r), QStringLiteral("¡ Ya existe el registro !"));
}

TEST_P(FailureMapping, MissingTableEndsAsTheTableMessage) {
    const QString r = datos_->EjecutarSQL(QStringLiteral("SELECT * FROM NOHAY"), {}, QStringLiteral("Silenciosa"));
    const FailureDecision d = GestionExcepciones(r.section(QStringLiteral("Motivo: "), 1));
    EXPECT_EQ(d.message, QStringLiteral("¡ La tabla no existe !. Compruebe la Base de Datos por favor."));
    EXPECT_EQ(d.kind, QStringLiteral("Error"));
}

TEST_P(FailureMapping, RowsHeldByAnotherUserAreLocked) {
    auto other = otherUser();
    TModuloDatos otherData(*other);
    ASSERT_TRUE(sesion_->IniciarTransaccion());
    if (backend() == Backend::PostgreSQL) {
        ok(QStringLiteral("SELECT Numero FROM COBRO WHERE Numero = 1 FOR UPDATE"));
        const QString nowait = otherData.EjecutarSQL(QStringLiteral("SELECT Numero FROM COBRO WHERE Numero = 1 FOR UPDATE NOWAIT"),
                                                     {}, QStringLiteral("Silenciosa"));
        EXPECT_EQ(messageOf(nowait), QStringLiteral("¡ El registro esta siendo bloqueado por otro usuario !"));
    } else {
        ok(QStringLiteral("UPDATE COBRO SET Importe = '11' WHERE Numero = 1"));
    }
    const QString update = otherData.EjecutarSQL(QStringLiteral("UPDATE COBRO SET Importe = '99' WHERE Numero = 1"), {},
                                                 QStringLiteral("Silenciosa"));
    EXPECT_EQ(messageOf(update), QStringLiteral("¡ El registro esta siendo bloqueado por otro usuario !"));
    ASSERT_TRUE(sesion_->FinalizarTransaccion());
    // Once released, the other user's write goes through and nothing was lost.
    EXPECT_EQ(otherData.EjecutarSQL(QStringLiteral("UPDATE COBRO SET Importe = Importe + 1 WHERE Numero = 1")), QString());
    EXPECT_EQ(ok(QStringLiteral("SELECT Importe FROM COBRO")),
              backend() == Backend::PostgreSQL ? QStringLiteral("11") : QStringLiteral("12"));
}

TEST_P(FailureMapping, SecondChannelFailuresGoToTheTrace) {
    const QString trace = dir_.filePath(QStringLiteral("traza.txt"));
    sesion_->CodigoUsuario = QStringLiteral("ANA");
    EXPECT_TRUE(datos_->EjecutarSQLADO(QStringLiteral("SELECT * FROM COBRO"), {}, {}).startsWith(QStringLiteral("1|")));
    datos_->EjecutarSQLADO(QStringLiteral("SELECT * FROM NOHAY"), {}, QStringLiteral("Silenciosa"));
    EXPECT_FALSE(QFile::exists(trace));
    sesion_->ArchivoTrazaSQL = trace;
    datos_->EjecutarSQLADO(QStringLiteral("SELECT *\r\nFROM NOHAY"), {}, QStringLiteral("Silenciosa"));
    QFile f(trace);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    const QString line = QString::fromUtf8(f.readAll()).trimmed();
    EXPECT_TRUE(line.startsWith(QStringLiteral("ANA|"))) << line.toStdString();
    EXPECT_TRUE(line.contains(QStringLiteral("Error. No es posible ejecutar la sentencia SQL. Motivo: ")));
    EXPECT_TRUE(line.endsWith(QStringLiteral(" Sentencia SQL: SELECT * FROM NOHAY"))) << line.toStdString();
}

CO_ON_BOTH_BACKENDS(FailureMapping);

} // namespace
} // namespace co
