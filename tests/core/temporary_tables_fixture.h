#pragma once
// A fresh installation on each back-end with the table creator wired in, the
// user "ADMIN" logged in and `NOMBTTEM` made, for the temporary-table tests.

#include "core/temporary_tables.h"
#include "support/layer_fixture.h"

namespace co::test {

class TemporaryTablesTest : public TablesOnDemandTest {
protected:
    void SetUp() override {
        TablesOnDemandTest::SetUp();
        if (HasFatalFailure())
            return;
        sesion_->CodigoUsuario = QStringLiteral("ADMIN");
        general(QStringLiteral("SELECT COUNT(*) FROM NOMBTTEM"));
    }

    void TearDown() override {
        FijarNumeroPrograma(kProgramaControlObras);
        TablesOnDemandTest::TearDown();
    }

    QString nombre(const QString &propietario, int numero = 0) {
        QString n, motivo;
        EXPECT_TRUE(NombreTablaTemporal(*datos_, propietario, numero, &n, &motivo))
            << motivo.toStdString();
        return n;
    }

    bool existe(const QString &tabla) {
        return !datos_
                    ->EjecutarSQL(QStringLiteral("SELECT COUNT(*) FROM ") + tabla,
                                  QStringLiteral("DatabaseGeneral"),
                                  QStringLiteral("Silenciosa,No Crear Tabla"))
                    .startsWith(QStringLiteral("Error."));
    }
};

} // namespace co::test
