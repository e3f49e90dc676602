// A query stored in a temporary table and opened again on it, on both back-ends:
// the rows, values and field names survive; the table is made anew each time;
// queries of the general data; columns the back-end gives no type for; and
// queries whose columns cannot make a table, which leave the query as it was.
#include "core/materialised_query.h"
#include "temporary_tables_fixture.h"

#include <gtest/gtest.h>

namespace co {
namespace {

class ConsultaTemporal : public test::TemporaryTablesTest {
protected:
    void SetUp() override {
        TemporaryTablesTest::SetUp();
        if (HasFatalFailure())
            return;
        ok(QStringLiteral("CREATE TABLE PRUEBAOB (Codigo INTEGER NOT NULL PRIMARY KEY, "
                          "Nombre VARCHAR(40), Notas TEXT, Importe DOUBLE PRECISION, "
                          "Fecha TIMESTAMP)"));
        ok(QStringLiteral("INSERT INTO PRUEBAOB VALUES ('1', 'Nave de O''Donnell', "
                          "'línea 1', '1250.75', '2026-03-01 00:00:00')"));
        ok(QStringLiteral("INSERT INTO PRUEBAOB VALUES ('2', 'Muelle', NULL, '-3.5', "
                          "'2026-03-02 10:30:00')"));
        ok(QStringLiteral("INSERT INTO PRUEBAOB VALUES ('3', '', 'x', '0', NULL)"));
    }

    // Every cell as the system shows it, with the field names first.
    static QStringList celdas(const Consulta &c) {
        QStringList out;
        QStringList nombres;
        for (const ResultColumn &f : c.Fields())
            nombres << f.name;
        out << nombres.join(u'|');
        for (int r = 0; r < c.RecordCount(); ++r) {
            QStringList fila;
            for (int i = 0; i < c.Fields().size(); ++i)
                fila << TextoValor(c.Value(r, i), c.Fields()[i].kind);
            out << fila.join(u'|');
        }
        return out;
    }

    QString cualificada(const QString &tabla) const {
        return sesion_->AliasGeneralSQL() + QStringLiteral(".dbo.") + tabla;
    }
};

TEST_P(ConsultaTemporal, RowsValuesAndNamesSurvive) {
    Consulta q;
    q.SQL = QStringLiteral(
        "SELECT Codigo, Nombre, Notas, Importe, Fecha FROM PRUEBAOB ORDER BY Codigo");
    ASSERT_TRUE(datos_->AbrirConsulta(q));
    const QStringList antes = celdas(q);
    QString motivo;
    ASSERT_TRUE(MaterializarConsultaTemporal(*datos_, q, &motivo, QStringLiteral("fOBRALIS")))
        << motivo.toStdString();
    const QString tabla = nombre(QStringLiteral("fOBRALIS"));
    EXPECT_EQ(tabla, QStringLiteral("TEMP000001_fOBRALIS"));
    EXPECT_EQ(q.SQL, QStringLiteral("SELECT * FROM ") + cualificada(tabla));
    EXPECT_TRUE(q.Active());
    EXPECT_EQ(celdas(q), antes);
    EXPECT_EQ(q.Fields()[4].kind, ColumnKind::DateTime);
    EXPECT_EQ(general(QStringLiteral("SELECT COUNT(*) FROM ") + tabla), QStringLiteral("3"));
    EXPECT_TRUE(messages_.shown().isEmpty()) << messages_.texts().join(u'\n').toStdString();
}

TEST_P(ConsultaTemporal, ANotYetOpenQueryIsOpenedFirst) {
    Consulta q;
    q.SQL = QStringLiteral("SELECT Codigo FROM PRUEBAOB WHERE Codigo > 1 ORDER BY Codigo");
    QString motivo;
    ASSERT_TRUE(MaterializarConsultaTemporal(*datos_, q, &motivo)) << motivo.toStdString();
    EXPECT_EQ(celdas(q),
              QStringList({QStringLiteral("Codigo"), QStringLiteral("2"), QStringLiteral("3")}));
    EXPECT_TRUE(q.SQL.endsWith(QStringLiteral(".dbo.TEMP000001_Unknown")));
}

TEST_P(ConsultaTemporal, EachUseReplacesTheRowsOfTheLastOne) {
    Consulta q;
    q.SQL = QStringLiteral("SELECT Codigo, Nombre FROM PRUEBAOB");
    ASSERT_TRUE(MaterializarConsultaTemporal(*datos_, q, nullptr, QStringLiteral("fOBRALIS")));
    Consulta otra;
    otra.SQL = QStringLiteral("SELECT Importe FROM PRUEBAOB WHERE Codigo = 2");
    QString motivo;
    ASSERT_TRUE(MaterializarConsultaTemporal(*datos_, otra, &motivo, QStringLiteral("fOBRALIS")))
        << motivo.toStdString();
    EXPECT_EQ(otra.SQL, q.SQL);
    EXPECT_EQ(celdas(otra), QStringList({QStringLiteral("Importe"), QStringLiteral("-3,5")}));
}

TEST_P(ConsultaTemporal, ExpressionsKeepTheirValues) {
    Consulta q;
    q.SQL = QStringLiteral("SELECT Codigo * 3 AS Triple, SUM(Importe) AS Total, COUNT(*) AS "
                           "Cuantos, MAX(Nombre) AS Ultimo FROM PRUEBAOB GROUP BY Codigo "
                           "ORDER BY Codigo");
    ASSERT_TRUE(datos_->AbrirConsulta(q));
    const QStringList antes = celdas(q);
    QString motivo;
    ASSERT_TRUE(MaterializarConsultaTemporal(*datos_, q, &motivo)) << motivo.toStdString();
    EXPECT_EQ(celdas(q), antes);
    EXPECT_EQ(q.Value(0, QStringLiteral("Triple")).toInt(), 3);
    EXPECT_DOUBLE_EQ(q.Value(0, QStringLiteral("Total")).toDouble(), 1250.75);
}

TEST_P(ConsultaTemporal, AnEmptyAnswerMakesAnEmptyTableWithItsColumns) {
    Consulta q;
    q.SQL = QStringLiteral("SELECT Codigo, Nombre FROM PRUEBAOB WHERE Codigo = 99");
    ASSERT_TRUE(MaterializarConsultaTemporal(*datos_, q, nullptr, QStringLiteral("fVACIA")));
    EXPECT_EQ(celdas(q), QStringList({QStringLiteral("Codigo|Nombre")}));
}

TEST_P(ConsultaTemporal, AQueryOfTheGeneralDataIsStoredToo) {
    general(QStringLiteral("CREATE TABLE GENPRUEB (Clave VARCHAR(10), Valor INTEGER)"));
    general(QStringLiteral("INSERT INTO GENPRUEB VALUES ('a', '1'), ('b', '2')"));
    Consulta q;
    q.DatabaseName = QStringLiteral("DatabaseGeneral");
    q.SQL = QStringLiteral("SELECT Clave, Valor FROM GENPRUEB ORDER BY Clave");
    QString motivo;
    ASSERT_TRUE(MaterializarConsultaTemporal(*datos_, q, &motivo, QStringLiteral("fGENE")))
        << motivo.toStdString();
    EXPECT_EQ(celdas(q), QStringList({QStringLiteral("Clave|Valor"), QStringLiteral("a|1"),
                                      QStringLiteral("b|2")}));
    EXPECT_EQ(general(QStringLiteral("SELECT COUNT(*) FROM TEMP000001_fGENE")),
              QStringLiteral("2"));
}

TEST_P(ConsultaTemporal, RepeatedColumnsAreRefusedAndTheQueryStaysAsItWas) {
    Consulta q;
    q.SQL = QStringLiteral("SELECT Codigo, Nombre, Codigo FROM PRUEBAOB ORDER BY Codigo");
    ASSERT_TRUE(datos_->AbrirConsulta(q));
    const QStringList antes = celdas(q);
    QString motivo;
    EXPECT_FALSE(MaterializarConsultaTemporal(*datos_, q, &motivo, QStringLiteral("fOBRALIS")));
    EXPECT_TRUE(
        motivo.startsWith(QStringLiteral("No es posible guardar la consulta en una tabla "
                                         "temporal. Motivo: El campo Codigo está repetido")))
        << motivo.toStdString();
    EXPECT_EQ(q.SQL, QStringLiteral("SELECT Codigo, Nombre, Codigo FROM PRUEBAOB ORDER BY Codigo"));
    EXPECT_EQ(celdas(q), antes);
}

TEST_P(ConsultaTemporal, AnUnnamedExpressionAsksForAName) {
    Consulta q;
    q.SQL = QStringLiteral("SELECT Codigo, Importe * 2 FROM PRUEBAOB");
    QString motivo;
    EXPECT_FALSE(MaterializarConsultaTemporal(*datos_, q, &motivo));
    // SQLite names the column by its expression, PostgreSQL "?column?".
    const QString columna =
        backend() == Backend::SQLite ? QStringLiteral("Importe * 2") : QStringLiteral("?column?");
    EXPECT_EQ(motivo, QStringLiteral("La columna \"%1\" de la consulta no tiene un nombre válido "
                                     "para una tabla temporal: dé un nombre a la columna con AS.")
                          .arg(columna));
    EXPECT_EQ(q.SQL, QStringLiteral("SELECT Codigo, Importe * 2 FROM PRUEBAOB"));
}

TEST_P(ConsultaTemporal, AFailingStatementIsToldAndMakesNothing) {
    Consulta q;
    q.SQL = QStringLiteral("SELECT NoExiste FROM PRUEBAOB");
    QString motivo;
    EXPECT_FALSE(MaterializarConsultaTemporal(*datos_, q, &motivo));
    EXPECT_EQ(motivo,
              QStringLiteral("No se ha podido abrir la consulta: SELECT NoExiste FROM PRUEBAOB"));
    EXPECT_EQ(general(QStringLiteral("SELECT COUNT(*) FROM NOMBTTEM")), QStringLiteral("0"));
}

CO_ON_BOTH_BACKENDS(ConsultaTemporal);

} // namespace
} // namespace co
