// Transactions and their guarded forms, on both back-ends.
#include "support/layer_fixture.h"

#include <gtest/gtest.h>

namespace co {
namespace {

using test::LayerTest;

class Transactions : public LayerTest {
protected:
    void SetUp() override {
        LayerTest::SetUp();
        ok(QStringLiteral("CREATE TABLE ASIENTO (Numero INTEGER NOT NULL PRIMARY KEY, Concepto VARCHAR(40))"));
    }
    QString count() { return ok(QStringLiteral("SELECT COUNT(*) FROM ASIENTO")); }
};

TEST_P(Transactions, CommitKeepsAndRollbackUndoes) {
    ASSERT_TRUE(sesion_->IniciarTransaccion());
    EXPECT_TRUE(sesion_->TransaccionActiva());
    ok(QStringLiteral("INSERT INTO ASIENTO VALUES ('1', 'a')"));
    ASSERT_TRUE(sesion_->CancelarTransaccion());
    EXPECT_FALSE(sesion_->TransaccionActiva());
    EXPECT_EQ(count(), QStringLiteral("0"));

    ASSERT_TRUE(sesion_->IniciarTransaccion());
    ok(QStringLiteral("INSERT INTO ASIENTO VALUES ('1', 'a')"));
    ok(QStringLiteral("INSERT INTO ASIENTO VALUES ('2', 'b')"));
    ASSERT_TRUE(sesion_->FinalizarTransaccion());
    EXPECT_EQ(count(), QStringLiteral("2"));
}

TEST_P(Transactions, AFailedStatementCostsOnlyItself) {
    ASSERT_TRUE(sesion_->IniciarTransaccion());
    ok(QStringLiteral("INSERT INTO ASIENTO VALUES ('1', 'a')"));
    EXPECT_TRUE(datos_->EjecutarSQL(QStringLiteral("INSERT INTO ASIENTO VALUES ('1', 'dup')"), {}, QStringLiteral("Silenciosa"))
                    .contains(QStringLiteral("Key violation")));
    ok(QStringLiteral("INSERT INTO ASIENTO VALUES ('2', 'b')"));
    ASSERT_TRUE(sesion_->FinalizarTransaccion());
    EXPECT_EQ(count(), QStringLiteral("2"));
}

TEST_P(Transactions, GuardRollsBackUnlessCommitted) {
    {
        TransaccionGuard guard(*sesion_);
        ASSERT_TRUE(guard.ok());
        ok(QStringLiteral("INSERT INTO ASIENTO VALUES ('1', 'a')"));
    }
    EXPECT_EQ(count(), QStringLiteral("0"));
    {
        TransaccionGuard guard(*sesion_);
        ok(QStringLiteral("INSERT INTO ASIENTO VALUES ('1', 'a')"));
        EXPECT_TRUE(guard.commit());
    }
    EXPECT_EQ(count(), QStringLiteral("1"));
}

TEST_P(Transactions, ControlledFormsWarnInTheSystemsWords) {
    ASSERT_TRUE(sesion_->IniciarTransaccionControlada());
    ok(QStringLiteral("INSERT INTO ASIENTO VALUES ('1', 'a')"));
    EXPECT_TRUE(sesion_->IniciarTransaccionControlada());
    ASSERT_EQ(messages_.texts(),
              QStringList{QStringLiteral("¡ Hay otra transacción activa en curso !. Debe finalizarla previamente.")});
    // The pending work survives the warning.
    EXPECT_EQ(count(), QStringLiteral("1"));
    sesion_->FalloTransaccion = true;
    EXPECT_FALSE(sesion_->FinalizarTransaccionControlada());
    EXPECT_EQ(messages_.texts().last(), QStringLiteral("¡ La transacción no ha sido completada !. Inténtelo de nuevo."));
    EXPECT_FALSE(sesion_->TransaccionActiva());
    EXPECT_EQ(count(), QStringLiteral("0"));

    messages_.clear();
    ASSERT_TRUE(sesion_->IniciarTransaccionControlada());
    ok(QStringLiteral("INSERT INTO ASIENTO VALUES ('5', 'e')"));
    EXPECT_TRUE(sesion_->FinalizarTransaccionControlada());
    EXPECT_TRUE(messages_.shown().isEmpty());
    EXPECT_EQ(count(), QStringLiteral("1"));
}

TEST_P(Transactions, GeneralConnectionHasItsOwn) {
    ok(QStringLiteral("CREATE TABLE USUARIO (Codigo VARCHAR(10) NOT NULL PRIMARY KEY)"), QStringLiteral("DatabaseGeneral"));
    ASSERT_TRUE(sesion_->IniciarTransaccion(QStringLiteral("DatabaseGeneral")));
    ok(QStringLiteral("INSERT INTO USUARIO VALUES ('ANA')"), QStringLiteral("DatabaseGeneral"));
    ASSERT_TRUE(sesion_->CancelarTransaccion(QStringLiteral("DatabaseGeneral")));
    EXPECT_EQ(ok(QStringLiteral("SELECT COUNT(*) FROM USUARIO"), QStringLiteral("DatabaseGeneral")), QStringLiteral("0"));
}

CO_ON_BOTH_BACKENDS(Transactions);

} // namespace
} // namespace co
