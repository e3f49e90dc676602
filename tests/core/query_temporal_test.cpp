// A query opened with "Temporal" is stored in a temporary table of the general
// data and read back from it, on both back-ends.
#include "core/materialised_query.h"
#include "support/layer_fixture.h"

#include <gtest/gtest.h>

namespace co {
namespace {

class QueryTemporal : public test::TablesOnDemandTest {
protected:
    void SetUp() override {
        TablesOnDemandTest::SetUp();
        if (HasFatalFailure())
            return;
        // As the program's start-up does.
        materializador_ = std::make_unique<MaterializadorConsultas>(*datos_);
        datos_->setQueryMaterializer(materializador_.get());
        sesion_->CodigoUsuario = QStringLiteral("ANA");
        ok(QStringLiteral("INSERT INTO OBRA (Codigo, Descripcion, GastosIndirectos) VALUES ('1', "
                          "'Nave', '2.5')"));
        ok(QStringLiteral("INSERT INTO OBRA (Codigo, Descripcion, GastosIndirectos) VALUES ('2', "
                          "'Puente', '4')"));
    }
    void TearDown() override {
        if (datos_)
            datos_->setQueryMaterializer(nullptr);
        materializador_.reset();
        TablesOnDemandTest::TearDown();
    }

    std::unique_ptr<MaterializadorConsultas> materializador_;
};

TEST_P(QueryTemporal, RowsComeBackFromTheTemporaryTable) {
    Consulta q;
    q.SQL =
        QStringLiteral("SELECT Codigo, Descripcion, GastosIndirectos FROM OBRA ORDER BY Codigo");
    ASSERT_TRUE(datos_->AbrirConsulta(q, QStringLiteral("Open,Temporal")))
        << messages_.texts().join(u'\n').toStdString();
    // The general alias as an identifier: "<alias>".dbo.<table>.
    EXPECT_TRUE(q.SQL.startsWith(QStringLiteral("SELECT * FROM \"") +
                                 settings_.AliasBaseDatosGeneral.toLower() +
                                 QStringLiteral("\".dbo.")))
        << q.SQL.toStdString();
    ASSERT_EQ(q.RecordCount(), 2);
    EXPECT_EQ(q.Text(1, QStringLiteral("Descripcion")), QStringLiteral("Puente"));
    EXPECT_EQ(q.Text(0, QStringLiteral("GastosIndirectos")), QStringLiteral("2,5"));
    // The table is there for later statements of the company connection.
    const QString tabla = q.SQL.section(u' ', 3, 3);
    EXPECT_EQ(ok(QStringLiteral("SELECT COUNT(*) FROM ") + tabla), QStringLiteral("2"));
    // Opened again, the same table is made anew.
    Consulta again;
    again.SQL = QStringLiteral("SELECT Codigo FROM OBRA WHERE Codigo = 2");
    ASSERT_TRUE(datos_->AbrirConsulta(again, QStringLiteral("Open,Temporal")));
    EXPECT_EQ(again.RecordCount(), 1);
}

TEST_P(QueryTemporal, FailuresAreToldUnlessSilenced) {
    Consulta q;
    q.SQL = QStringLiteral("SELECT Nada FROM OBRA");
    EXPECT_FALSE(datos_->AbrirConsulta(q, QStringLiteral("Open,Temporal,Silencio")));
    EXPECT_TRUE(messages_.shown().isEmpty());
}

TEST_P(QueryTemporal, WithoutTheTemporaryTablesTheOptionIsRefusedAndTheQueryKept) {
    datos_->setQueryMaterializer(nullptr);
    Consulta q;
    q.SQL = QStringLiteral("SELECT Codigo FROM OBRA ORDER BY Codigo");
    EXPECT_FALSE(datos_->AbrirConsulta(q, QStringLiteral("Open,Temporal,Silencio")));
    EXPECT_EQ(q.SQL, QStringLiteral("SELECT Codigo FROM OBRA ORDER BY Codigo"));
    EXPECT_EQ(q.RecordCount(), 2);
    EXPECT_TRUE(messages_.shown().isEmpty());
    // Told when not silenced.
    EXPECT_FALSE(datos_->AbrirConsulta(q, QStringLiteral("Open,Temporal")));
    EXPECT_TRUE(messages_.texts().join(u'\n').contains(QStringLiteral("tabla temporal")))
        << messages_.texts().join(u'\n').toStdString();
    // Plugged in again, the same query goes through.
    datos_->setQueryMaterializer(materializador_.get());
    ASSERT_TRUE(datos_->AbrirConsulta(q, QStringLiteral("Open,Temporal")));
    EXPECT_EQ(q.RecordCount(), 2);
    EXPECT_FALSE(q.SQL.contains(QStringLiteral("OBRA")));
}

CO_ON_BOTH_BACKENDS(QueryTemporal);

} // namespace
} // namespace co
