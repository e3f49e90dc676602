#pragma once
// A fresh installation on each back-end with two small tables for the record
// screens' datasets: PRUOBRA (one-field key, a secondary index on Nombre) and
// PRULINEA (two-field key).

#include "forms/table.h"
#include "support/layer_fixture.h"

#include <memory>

namespace co::forms::test {

class FormsTest : public co::test::LayerTest {
protected:
    void SetUp() override {
        LayerTest::SetUp();
        ok(QStringLiteral(
            "CREATE TABLE PRUOBRA (CodigoObra INTEGER NOT NULL, Nombre VARCHAR(40) DEFAULT '', "
            "Importe DOUBLE PRECISION DEFAULT 0, FechaInicio TIMESTAMP, HoraInicio TIMESTAMP, "
            "Bloque SMALLINT DEFAULT 0, CONSTRAINT PRUOBRA_Clave1 PRIMARY KEY (CodigoObra))"));
        ok(QStringLiteral("CREATE INDEX PRUOBRA_Nombre ON PRUOBRA (Nombre)"));
        ok(QStringLiteral(
            "CREATE TABLE PRULINEA (CodigoObra INTEGER NOT NULL, Linea INTEGER NOT NULL, "
            "Texto VARCHAR(40) DEFAULT '', CONSTRAINT PRULINEA_Clave1 PRIMARY KEY (CodigoObra, "
            "Linea))"));
    }

    // Works `from`, `from + step`, ... up to `to`, named "Obra <n>".
    void obras(int from, int to, int step = 1) {
        sesion_->IniciarTransaccion();
        for (int i = from; i <= to; i += step)
            ok(QStringLiteral(
                   "INSERT INTO PRUOBRA (CodigoObra, Nombre, Importe, FechaInicio) VALUES "
                   "('%1', 'Obra %1', '%2', '2026-01-%3 00:00:00')")
                   .arg(i)
                   .arg(i * 1.5)
                   .arg(1 + i % 28, 2, 10, QLatin1Char('0')));
        sesion_->FinalizarTransaccion();
    }

    void lineas(int obra, int count) {
        for (int l = 1; l <= count; ++l)
            ok(QStringLiteral(
                   "INSERT INTO PRULINEA (CodigoObra, Linea, Texto) VALUES ('%1', '%2', 'L%1.%2')")
                   .arg(obra)
                   .arg(l));
    }

    std::unique_ptr<Table> abrir(const QString &tabla = QStringLiteral("PRUOBRA"),
                                 int pagina = 10) {
        auto t = std::make_unique<Table>(*datos_, QStringLiteral("Table1"), tabla);
        t->PageSize = pagina;
        t->Open();
        return t;
    }

    static int codigo(Dataset &t) {
        return static_cast<int>(t.FieldByName(QStringLiteral("CodigoObra")).AsInteger());
    }

    // The codes from the current record to the end.
    static QList<int> recorrer(Dataset &t) {
        QList<int> out;
        for (; !t.Eof(); t.Next())
            out << codigo(t);
        return out;
    }
};

} // namespace co::forms::test
