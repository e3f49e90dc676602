// The works tables read and written through the statement layer: a works with
// chapters and budget lines, labour and material reports, invoice marks and the
// chapter-0 convention, on both back-ends.
#include "support/layer_fixture.h"

#include <QDateTime>
#include <gtest/gtest.h>

namespace co {
namespace {

using test::LayerTest;

class WorksTables : public LayerTest {
protected:
    void SetUp() override {
        LayerTest::SetUp();
        for (const char *ddl : {
                 "CREATE TABLE OBRA (Codigo INTEGER NOT NULL PRIMARY KEY, Descripcion VARCHAR(40), "
                 "DescripcionAmpliada TEXT, Fecha TIMESTAMP, Situacion VARCHAR(10), CodigoCliente INTEGER, "
                 "NumeroTarifa INTEGER, TipoFacturacion VARCHAR(20), GastosIndirectos DOUBLE PRECISION)",
                 "CREATE TABLE CAPITULO (CodigoObra INTEGER NOT NULL, CodigoCapitulo INTEGER NOT NULL, "
                 "Descripcion VARCHAR(40), Situacion VARCHAR(10), PRIMARY KEY (CodigoObra, CodigoCapitulo))",
                 "CREATE TABLE PARTIDA (CodigoObra INTEGER NOT NULL, CodigoCapitulo INTEGER NOT NULL, "
                 "Linea INTEGER NOT NULL, CodigoPartida VARCHAR(20), Descripcion VARCHAR(40), "
                 "CantidadPresupuesto DOUBLE PRECISION, PrecioUCosto DOUBLE PRECISION, "
                 "PrecioUVenta DOUBLE PRECISION, PRIMARY KEY (CodigoObra, CodigoCapitulo, Linea))",
                 "CREATE TABLE PARTEOB (CodigoOperario SMALLINT NOT NULL, Fecha TIMESTAMP NOT NULL, "
                 "Hora TIMESTAMP NOT NULL, Tipo VARCHAR(15), CodigoObra INTEGER, CodigoCapitulo INTEGER, "
                 "Horas DOUBLE PRECISION, TipoHoras VARCHAR(15), CuotaHoraria DOUBLE PRECISION, "
                 "Importe DOUBLE PRECISION, Observaciones VARCHAR(40), NumeroFactura VARCHAR(20), "
                 "PRIMARY KEY (CodigoOperario, Fecha, Hora))",
                 "CREATE INDEX PARTEOB_Clave2 ON PARTEOB (CodigoObra, CodigoCapitulo, Fecha)",
                 "CREATE TABLE PARMATOB (Numero INTEGER NOT NULL PRIMARY KEY, Fecha TIMESTAMP, "
                 "CodigoMaterial VARCHAR(30), CodigoObra INTEGER, CodigoCapitulo INTEGER, "
                 "Cantidad DOUBLE PRECISION, Precio DOUBLE PRECISION, Importe DOUBLE PRECISION, "
                 "NumeroFactura VARCHAR(20))"})
            ok(QString::fromUtf8(ddl));

        ASSERT_TRUE(datos_->InsertarRegistro(QStringLiteral(
            "OBRA\nCodigo=1\nDescripcion=Reforma nave Ñ\nFecha=2026-01-10 00:00:00\nSituacion=Abierta\nNumeroTarifa=1")));
        for (int c : {1, 2})
            ASSERT_TRUE(datos_->InsertarRegistro(
                QStringLiteral("CAPITULO\nCodigoObra=1\nCodigoCapitulo=%1\nDescripcion=Capítulo %1\nSituacion=Abierto").arg(c)));
    }

    void parte(int operario, const char *fecha, const char *hora, int capitulo, double horas, double cuota) {
        ok(QStringLiteral("INSERT INTO ParteOB (CodigoOperario, Fecha, Hora, Tipo, CodigoObra, CodigoCapitulo, Horas, "
                          "TipoHoras, CuotaHoraria, Importe) VALUES (%1, %2, %3, 'Normal', '1', %4, %5, 'Normal', %6, %7)")
               .arg(datos_->FormatoLiteralSQL(operario), QLatin1String(fecha), QLatin1String(hora),
                    datos_->FormatoLiteralSQL(capitulo), datos_->FormatoLiteralSQL(horas),
                    datos_->FormatoLiteralSQL(cuota), datos_->FormatoLiteralSQL(horas * cuota)));
    }
};

TEST_P(WorksTables, BudgetLinesNumberedByTens) {
    RegistroSimple linea(QStringLiteral("PARTIDA"));
    linea.campo(QStringLiteral("CodigoObra"), ColumnKind::Integer, 1)
        .campo(QStringLiteral("CodigoCapitulo"), ColumnKind::Integer, 2)
        .campo(QStringLiteral("Linea"), ColumnKind::Integer);
    for (int i = 0; i < 3; ++i) {
        const qlonglong next = datos_->SiguienteNumero(linea, 10);
        EXPECT_EQ(next, 10 * (i + 1));
        ASSERT_TRUE(datos_->InsertarRegistro(
            QStringLiteral("PARTIDA\nCodigoObra=1\nCodigoCapitulo=2\nLinea=%1\nDescripcion=Línea\nCantidadPresupuesto=2.5\n"
                           "PrecioUCosto=10\nPrecioUVenta=12.4")
                .arg(next)));
    }
    EXPECT_EQ(ok(QStringLiteral("SELECT SUM(CantidadPresupuesto * PrecioUVenta) FROM PARTIDA WHERE CodigoObra = 1")),
              QStringLiteral("93"));
}

TEST_P(WorksTables, LabourReportsRollUpByChapter) {
    parte(3, "'2026-02-02 00:00:00'", "'1899-12-30 08:00:00'", 1, 8, 21.5);
    parte(3, "'2026-02-03 00:00:00'", "'1899-12-30 08:00:00'", 2, 4, 21.5);
    parte(4, "'2026-02-03 00:00:00'", "'1899-12-30 08:00:00'", 0, 2, 30);
    EXPECT_EQ(ok(QStringLiteral("SELECT CodigoCapitulo, SUM(Horas), SUM(Importe) FROM PartEOB WITH(NOLOCK) "
                                "WHERE CodigoObra = 1 GROUP BY CodigoCapitulo ORDER BY CodigoCapitulo")
                     .replace(QStringLiteral("PartEOB"), QStringLiteral("ParteOB"))),
              QStringLiteral("0|2|60\r\n1|8|172\r\n2|4|86"));
    // Chapter 0 with the flag on: exactly the data bound to no chapter.
    EXPECT_EQ(ok(QStringLiteral("SELECT SUM(Importe) FROM PARTEOB WHERE CodigoObra = 1 AND CodigoCapitulo = 0")),
              QStringLiteral("60"));
    EXPECT_EQ(ok(QStringLiteral("SELECT COUNT(*) FROM PARTEOB WHERE %1")
                     .arg(datos_->CondicionCampo(QStringLiteral("Fecha"), QStringLiteral("03/02/2026"),
                                                 QStringLiteral("03/02/2026"), QStringLiteral("ftDate")))),
              QStringLiteral("2"));
    EXPECT_EQ(ok(QStringLiteral("SELECT CodigoOperario, Fecha, Hora FROM PARTEOB WHERE CodigoCapitulo = 2")),
              QStringLiteral("3|03/02/2026|08:00:00"));
}

TEST_P(WorksTables, InvoiceMarksOnReports) {
    parte(3, "'2026-02-02 00:00:00'", "'1899-12-30 08:00:00'", 1, 8, 21.5);
    ok(QStringLiteral("INSERT INTO PartMatOB (Numero, Fecha, CodigoMaterial, CodigoObra, CodigoCapitulo, Cantidad, Precio, "
                      "Importe) VALUES ('1', '2026-02-02 00:00:00', 'CEM-42', '1', '1', '3', '7.25', '21.75')"));
    // Open reports: no invoice mark yet.
    EXPECT_EQ(ok(QStringLiteral("SELECT COUNT(*) FROM PARMATOB WHERE NumeroFactura = ''")), QStringLiteral("1"));
    ok(QStringLiteral("UPDATE PARTEOB SET NumeroFactura = '15/10' WHERE CodigoOperario = 3"));
    ok(QStringLiteral("UPDATE PartMatOB SET NumeroFactura = '15/20' WHERE Numero = 1"));
    EXPECT_EQ(ok(QStringLiteral("SELECT NumeroFactura FROM PARTEOB UNION ALL SELECT NumeroFactura FROM PARMATOB")),
              QStringLiteral("15/10\r\n15/20"));
    EXPECT_EQ(ok(QStringLiteral("SELECT COUNT(*) FROM PARMATOB WHERE NumeroFactura = ''")), QStringLiteral("0"));
    // Undoing the invoice clears the marks again.
    ok(QStringLiteral("UPDATE PARTEOB SET NumeroFactura = '' WHERE NumeroFactura LIKE '15/%'"));
    EXPECT_EQ(ok(QStringLiteral("SELECT COUNT(*) FROM PARTEOB WHERE NumeroFactura = ''")), QStringLiteral("1"));
}

TEST_P(WorksTables, WorksReadBackWithTheirTypes) {
    EXPECT_EQ(ok(QStringLiteral("SELECT Codigo, Descripcion, Fecha, Situacion FROM OBRA"), {}, QStringLiteral("FormatoINI")),
              QStringLiteral("Codigo=1·Descripcion=Reforma nave Ñ·Fecha=10/01/2026·Situacion=Abierta"));
    EXPECT_EQ(ok(QStringLiteral("SELECT TOP 1 Descripcion FROM CAPITULO WHERE CodigoObra = 1 ORDER BY CodigoCapitulo DESC")),
              QStringLiteral("Capítulo 2"));
    EXPECT_EQ(datos_->BuscarValores(QStringLiteral("CAPITULO"), QStringLiteral("1;2"), {QStringLiteral("Situacion")}),
              QStringList{"Abierto"});
    // The null date of the session is what an empty date becomes.
    ok(QStringLiteral("UPDATE OBRA SET Fecha = %1").arg(datos_->FormatoLiteralSQL(QDateTime())));
    EXPECT_EQ(ok(QStringLiteral("SELECT Fecha FROM OBRA")), QStringLiteral("30/12/1899"));
}

CO_ON_BOTH_BACKENDS(WorksTables);

} // namespace
} // namespace co
