#pragma once
// A fresh installation on each back-end with the table creator wired in, the
// user "ADMIN" logged in and `NOMBTTEM` made, for the temporary-table tests.

#include "core/table_creation.h"
#include "core/temporary_tables.h"
#include "support/layer_fixture.h"

#include <memory>

namespace co::test {

inline const QString kCarpetaDatos = QStringLiteral(CO_SOURCE_DIR "/data");

class TemporaryTablesTest : public LayerTest {
protected:
    void SetUp() override {
        LayerTest::SetUp();
        if (HasFatalFailure())
            return;
        sesion_->CodigoUsuario = QStringLiteral("ADMIN");
        creador_ = std::make_unique<CreadorTablas>(*datos_, kCarpetaDatos);
        datos_->setTableCreator(creador_.get());
        ok(QStringLiteral("SELECT COUNT(*) FROM NOMBTTEM"), QStringLiteral("DatabaseGeneral"));
    }

    void TearDown() override {
        FijarNumeroPrograma(kProgramaControlObras);
        creador_.reset();
        LayerTest::TearDown();
    }

    QString nombre(const QString &propietario, int numero = 0) {
        QString n, motivo;
        EXPECT_TRUE(NombreTablaTemporal(*datos_, propietario, numero, &n, &motivo))
            << motivo.toStdString();
        return n;
    }

    QString general(const QString &sql) { return ok(sql, QStringLiteral("DatabaseGeneral")); }

    bool existe(const QString &tabla) {
        return !datos_
                    ->EjecutarSQL(QStringLiteral("SELECT COUNT(*) FROM ") + tabla,
                                  QStringLiteral("DatabaseGeneral"),
                                  QStringLiteral("Silenciosa,No Crear Tabla"))
                    .startsWith(QStringLiteral("Error."));
    }

    std::unique_ptr<CreadorTablas> creador_;
};

} // namespace co::test
