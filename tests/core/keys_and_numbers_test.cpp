// Catalog answers, next numbers, key lookups and record helpers on both back-ends.
#include "support/layer_fixture.h"

#include <QDateTime>
#include <gtest/gtest.h>

namespace co {
namespace {

using test::LayerTest;

class KeysAndNumbers : public LayerTest {
protected:
    void SetUp() override {
        LayerTest::SetUp();
        ok(QStringLiteral("CREATE TABLE PARTIDA (CodigoObra INTEGER NOT NULL, CodigoCapitulo INTEGER NOT NULL, "
                          "Linea INTEGER NOT NULL, Descripcion VARCHAR(40), Cantidad DOUBLE PRECISION, "
                          "Precio DOUBLE PRECISION, Notas TEXT, PRIMARY KEY (CodigoObra, CodigoCapitulo, Linea))"));
        ok(QStringLiteral("CREATE INDEX PARTIDA_Clave2 ON PARTIDA (Descripcion, CodigoObra)"));
        ok(QStringLiteral("CREATE TABLE SERIE (Serie VARCHAR(5) NOT NULL, Numero VARCHAR(10) NOT NULL, "
                          "Fecha TIMESTAMP, PRIMARY KEY (Serie, Numero))"));
    }

    RegistroSimple partida(int obra, int capitulo) {
        RegistroSimple r(QStringLiteral("PARTIDA"));
        r.campo(QStringLiteral("CodigoObra"), ColumnKind::Integer, obra)
            .campo(QStringLiteral("CodigoCapitulo"), ColumnKind::Integer, capitulo)
            .campo(QStringLiteral("Linea"), ColumnKind::Integer)
            .campo(QStringLiteral("Notas"), ColumnKind::Memo);
        return r;
    }
};

TEST_P(KeysAndNumbers, CatalogAnswersInSchemaCase) {
    EXPECT_EQ(datos_->ClavePrimaria(QStringLiteral("PARTIDA")), QStringLiteral("CodigoObra;CodigoCapitulo;Linea"));
    EXPECT_EQ(datos_->ClavePrimaria(QStringLiteral("PARTIDA"), QStringLiteral("Clave1")),
              QStringLiteral("CodigoObra;CodigoCapitulo;Linea"));
    EXPECT_EQ(datos_->ClavePrimaria(QStringLiteral("PARTIDA"), QStringLiteral("Clave2")), QStringLiteral("Descripcion;CodigoObra"));
    EXPECT_EQ(datos_->ColumnasTabla(QStringLiteral("PARTIDA")),
              QStringLiteral("CodigoObra;CodigoCapitulo;Linea;Descripcion;Cantidad;Precio;Notas"));
    EXPECT_EQ(datos_->ColumnasTabla(QStringLiteral("PARTIDA"), QStringLiteral("SinMemos")),
              QStringLiteral("CodigoObra;CodigoCapitulo;Linea;Descripcion;Cantidad;Precio"));
    EXPECT_EQ(datos_->ClavePrimaria(QStringLiteral("NOEXISTE")), QString());
}

TEST_P(KeysAndNumbers, CatalogAnswersComeFromTheCache) {
    datos_->ClavePrimaria(QStringLiteral("PARTIDA"));
    const int before = datos_->SentenciasEjecutadas();
    EXPECT_EQ(datos_->ClavePrimaria(QStringLiteral("PARTIDA")), QStringLiteral("CodigoObra;CodigoCapitulo;Linea"));
    EXPECT_EQ(datos_->SentenciasEjecutadas(), before);
}

TEST_P(KeysAndNumbers, SiguienteNumeroWithinItsMaster) {
    RegistroSimple r = partida(7, 2);
    EXPECT_EQ(datos_->SiguienteNumero(r, 10), 10);
    ok(QStringLiteral("INSERT INTO PARTIDA (CodigoObra, CodigoCapitulo, Linea) VALUES ('7', '2', '10')"));
    ok(QStringLiteral("INSERT INTO PARTIDA (CodigoObra, CodigoCapitulo, Linea) VALUES ('7', '2', '20')"));
    ok(QStringLiteral("INSERT INTO PARTIDA (CodigoObra, CodigoCapitulo, Linea) VALUES ('7', '3', '90')"));
    ok(QStringLiteral("INSERT INTO PARTIDA (CodigoObra, CodigoCapitulo, Linea) VALUES ('8', '2', '500')"));
    EXPECT_EQ(datos_->SiguienteNumero(r, 10), 30);
    EXPECT_EQ(datos_->SiguienteNumero(r, 1, 15), 11);
    EXPECT_EQ(datos_->SiguienteNumero(r, 1, -1, 15), 21);
    EXPECT_EQ(datos_->SiguienteNumero(partida(9, 9), 1), 1);
}

TEST_P(KeysAndNumbers, SiguienteNumeroOnATextNumeratorSkipsNonNumbers) {
    RegistroSimple r(QStringLiteral("SERIE"));
    r.campo(QStringLiteral("Serie"), ColumnKind::Text, QStringLiteral("A"))
        .campo(QStringLiteral("Numero"), ColumnKind::Text);
    EXPECT_EQ(datos_->SiguienteNumero(r), 1);
    for (const char *n : {"9", "10", "X12", "2"})
        ok(QStringLiteral("INSERT INTO SERIE (Serie, Numero) VALUES ('A', '%1')").arg(QLatin1String(n)));
    ok(QStringLiteral("INSERT INTO SERIE (Serie, Numero) VALUES ('B', '99')"));
    EXPECT_EQ(datos_->SiguienteNumero(r), 11);
}

TEST_P(KeysAndNumbers, BuscarValoresByKey) {
    ok(QStringLiteral("INSERT INTO PARTIDA VALUES ('7', '2', '10', 'Excavación', '2.5', '10', NULL)"));
    ok(QStringLiteral("INSERT INTO SERIE VALUES ('A', '1', '2024-02-01 00:00:00')"));
    EXPECT_EQ(datos_->BuscarValores(QStringLiteral("PARTIDA"), QStringLiteral("7;2;10"),
                                    {QStringLiteral("Descripcion"), QStringLiteral("Cantidad")}),
              (QStringList{"Excavación", "2,5"}));
    EXPECT_FALSE(datos_->BuscarValores(QStringLiteral("PARTIDA"), QStringLiteral("7;2;11"), {QStringLiteral("Descripcion")}));
    EXPECT_EQ(datos_->BuscarValores(QStringLiteral("SERIE"), QStringLiteral("A;1"), {QStringLiteral("Fecha")}),
              QStringList{"01/02/2024"});
    // A quote in a key value is data, not syntax.
    EXPECT_FALSE(datos_->BuscarValores(QStringLiteral("SERIE"), QStringLiteral("A';1"), {QStringLiteral("Fecha")}));
    EXPECT_TRUE(messages_.shown().isEmpty());
}

TEST_P(KeysAndNumbers, SumaCampoOverKeyFields) {
    ok(QStringLiteral("INSERT INTO PARTIDA VALUES ('7', '2', '10', 'a', '2.5', '10', NULL)"));
    ok(QStringLiteral("INSERT INTO PARTIDA VALUES ('7', '2', '20', 'b', '1', '0.1', NULL)"));
    ok(QStringLiteral("INSERT INTO PARTIDA VALUES ('7', '3', '10', 'c', '100', '100', NULL)"));
    RegistroSimple r = partida(7, 2);
    EXPECT_DOUBLE_EQ(datos_->SumaCampo(r, {QStringLiteral("CodigoObra"), QStringLiteral("CodigoCapitulo")},
                                       QStringLiteral("Cantidad * Precio"), {QStringLiteral("7"), QStringLiteral("2")}),
                     25.1);
    EXPECT_DOUBLE_EQ(datos_->SumaCampo(r, {QStringLiteral("CodigoObra")}, QStringLiteral("Cantidad"), {QStringLiteral("7")}),
                     103.5);
    EXPECT_DOUBLE_EQ(datos_->SumaCampo(r, {QStringLiteral("CodigoObra")}, QStringLiteral("Cantidad"), {QStringLiteral("8")}), 0.0);
}

TEST_P(KeysAndNumbers, ValorClaveJoinsTheKey) {
    RegistroSimple r(QStringLiteral("PARTEOB"));
    r.campo(QStringLiteral("CodigoOperario"), ColumnKind::Integer, 3)
        .campo(QStringLiteral("Fecha"), ColumnKind::DateTime, QDateTime(QDate(2026, 1, 5), QTime(0, 0)))
        .campo(QStringLiteral("Hora"), ColumnKind::DateTime, QDateTime(QDate(1899, 12, 30), QTime(8, 30)))
        .clave({QStringLiteral("CodigoOperario"), QStringLiteral("Fecha"), QStringLiteral("Hora")});
    EXPECT_EQ(datos_->ValorClave(r), QStringLiteral("3;05/01/2026;08:30:00;"));
}

TEST_P(KeysAndNumbers, InsertarRegistroFromLines) {
    EXPECT_TRUE(datos_->InsertarRegistro(
        QStringLiteral("PARTIDA\r\nCodigoObra=1\r\nCodigoCapitulo=1\r\nLinea=10\r\nDescripcion=Pared d'obra\r\nNotas=\r\n=x")));
    EXPECT_EQ(ok(QStringLiteral("SELECT Descripcion, Notas FROM PARTIDA")), QStringLiteral("Pared dobra|"));
    EXPECT_TRUE(datos_->InsertarRegistro(QStringLiteral("PARTIDA\nCodigoObra=1\nCodigoCapitulo=1\nLinea=20"), {},
                                         QStringLiteral("ADOConnection")));
    EXPECT_FALSE(datos_->InsertarRegistro(QStringLiteral("PARTIDA\nCodigoObra=1\nCodigoCapitulo=1\nLinea=20"), {},
                                          QStringLiteral("Silenciosa")));
    EXPECT_FALSE(datos_->InsertarRegistro(QString()));
    EXPECT_EQ(ok(QStringLiteral("SELECT COUNT(*) FROM PARTIDA")), QStringLiteral("2"));
}

TEST_P(KeysAndNumbers, AnularVaciosStoresEmptyMemosAsNullOnTheServer) {
    ok(QStringLiteral("INSERT INTO PARTIDA (CodigoObra, CodigoCapitulo, Linea, Notas) VALUES ('1', '1', '10', '')"));
    RegistroSimple r = partida(1, 1);
    r.setValue(QStringLiteral("Linea"), 10);
    r.setValue(QStringLiteral("Notas"), QString());
    EXPECT_TRUE(datos_->AnularVacios(r));
    const QString nulls = ok(QStringLiteral("SELECT COUNT(*) FROM PARTIDA WHERE Notas IS NULL"));
    EXPECT_EQ(nulls, backend() == Backend::PostgreSQL ? QStringLiteral("1") : QStringLiteral("0"));
}

TEST_P(KeysAndNumbers, NuevoIdentificadorIsAGuidWithoutBraces) {
    const QString a = TModuloDatos::NuevoIdentificador(), b = TModuloDatos::NuevoIdentificador();
    EXPECT_EQ(a.size(), 36);
    EXPECT_FALSE(a.contains(u'{'));
    EXPECT_NE(a, b);
}

CO_ON_BOTH_BACKENDS(KeysAndNumbers);

} // namespace
} // namespace co
