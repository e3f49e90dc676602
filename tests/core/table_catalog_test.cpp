// The catalog statements of each back-end, kept in its traits, and the reading
// of declared column types: the words on their own, then the statements run on
// both back-ends.
#include "core/backend.h"
#include "core/sql_text.h"
#include "core/table_catalog.h"
#include "support/layer_fixture.h"

#include <gtest/gtest.h>

namespace co {
namespace {

TEST(TipoDeclarado, TypeWordsOfBothBackEnds) {
    struct Caso {
        const char *declarado;
        TipoCampo tipo;
        int tamano;
    };
    const Caso casos[] = {
        {"VARCHAR(40)", TipoCampo::ftString, 40},
        {"character varying(12)", TipoCampo::ftString, 12},
        {"CHAR", TipoCampo::ftString, 0},
        {"smallint", TipoCampo::ftSmallint, 0},
        {"int2", TipoCampo::ftSmallint, 0},
        {"INTEGER", TipoCampo::ftInteger, 0},
        {"bigint", TipoCampo::ftInteger, 0},
        {"double precision", TipoCampo::ftFloat, 0},
        {"numeric(28,8)", TipoCampo::ftFloat, 0},
        {"REAL", TipoCampo::ftFloat, 0},
        {"timestamp without time zone", TipoCampo::ftDateTime, 0},
        {"DATETIME", TipoCampo::ftDateTime, 0},
        {"date", TipoCampo::ftDate, 0},
        {"time", TipoCampo::ftTime, 0},
        {"boolean", TipoCampo::ftBoolean, 0},
        {"BLOB", TipoCampo::ftBlob, 0},
        {"bytea", TipoCampo::ftBlob, 0},
        {"TEXT", TipoCampo::ftMemo, 0},
        {"xml", TipoCampo::ftUnknown, 0},
        {"", TipoCampo::ftUnknown, 0},
    };
    for (const Caso &c : casos) {
        SCOPED_TRACE(c.declarado);
        const DeclaredColumn d = TipoDeclarado(QString::fromLatin1(c.declarado));
        EXPECT_EQ(d.type, c.tipo);
        EXPECT_EQ(d.size, c.tamano);
        EXPECT_FALSE(d.notNull);
    }
}

TEST(BackendTraits, EachBackEndHasEveryCatalogStatement) {
    for (Backend b : {Backend::SQLite, Backend::PostgreSQL}) {
        const BackendTraits &t = traitsOf(b);
        SCOPED_TRACE(t.qtDriver.toStdString());
        for (const QString *sql :
             {&t.primaryKeyQuery, &t.indexColumnsQuery, &t.columnsQuery, &t.columnsWithoutMemoQuery,
              &t.declaredColumnsQuery, &t.tableExistsQuery, &t.tableIndexesQuery})
            EXPECT_TRUE(sql->contains(QStringLiteral("%1"))) << sql->toStdString();
        EXPECT_TRUE(t.temporaryTablesQuery.startsWith(QStringLiteral("SELECT ")));
    }
    EXPECT_FALSE(traitsOf(Backend::SQLite).pessimisticRecords);
    EXPECT_TRUE(traitsOf(Backend::SQLite).recordLockSuffix.isEmpty());
    EXPECT_TRUE(traitsOf(Backend::PostgreSQL).pessimisticRecords);
    EXPECT_EQ(traitsOf(Backend::PostgreSQL).recordLockSuffix, QStringLiteral(" FOR UPDATE NOWAIT"));
}

using test::LayerTest;

class CatalogoTablas : public LayerTest {
protected:
    void SetUp() override {
        LayerTest::SetUp();
        if (HasFatalFailure())
            return;
        ok(QStringLiteral("CREATE TABLE FICHA (Codigo INTEGER NOT NULL, Nombre VARCHAR(40) NOT "
                          "NULL, Orden SMALLINT, Importe DOUBLE PRECISION, Fecha TIMESTAMP, "
                          "Notas TEXT, PRIMARY KEY (Codigo))"));
        ok(QStringLiteral("CREATE INDEX FICHA_Clave2 ON FICHA (Nombre)"));
    }

    QString catalogo(const QString &plantilla, const QString &tabla, const QString &conexion = {}) {
        return ok(plantilla.arg(Entrecomillar(tabla)), conexion);
    }
    const BackendTraits &traits() const { return traitsOf(backend()); }
};

TEST_P(CatalogoTablas, DeclaredColumnsComeInOrderWithTypeSizeAndRequired) {
    const QList<DeclaredColumn> columnas =
        ColumnasDeclaradas(*datos_, QStringLiteral("FICHA"), QStringLiteral("Database"));
    ASSERT_EQ(columnas.size(), 6);
    const QStringList nombres{"Codigo", "Nombre", "Orden", "Importe", "Fecha", "Notas"};
    const TipoCampo tipos[] = {TipoCampo::ftInteger, TipoCampo::ftString,   TipoCampo::ftSmallint,
                               TipoCampo::ftFloat,   TipoCampo::ftDateTime, TipoCampo::ftMemo};
    for (int i = 0; i < 6; ++i) {
        SCOPED_TRACE(nombres[i].toStdString());
        EXPECT_EQ(columnas[i].name.compare(nombres[i], Qt::CaseInsensitive), 0)
            << columnas[i].name.toStdString();
        EXPECT_EQ(columnas[i].type, tipos[i]);
    }
    EXPECT_EQ(columnas[1].size, 40);
    EXPECT_TRUE(columnas[0].notNull);
    EXPECT_TRUE(columnas[1].notNull);
    EXPECT_FALSE(columnas[2].notNull);
    // A qualified or quoted name reaches the same table.
    EXPECT_EQ(ColumnasDeclaradas(*datos_, QStringLiteral("x.FICHA"), {}).size(), 6);
    EXPECT_TRUE(ColumnasDeclaradas(*datos_, QStringLiteral("NOHAY"), {}).isEmpty());
    // A quote in the name cannot end the catalog statement's text.
    EXPECT_EQ(ColumnasDeclaradas(*datos_, QStringLiteral("FI'CHA"), {}).size(), 6);
    EXPECT_TRUE(messages_.shown().isEmpty());
}

TEST_P(CatalogoTablas, ExistenceAndIndexesAnswerWhateverTheCase) {
    EXPECT_EQ(catalogo(traits().tableExistsQuery, QStringLiteral("FICHA")), QStringLiteral("1"));
    EXPECT_EQ(catalogo(traits().tableExistsQuery, QStringLiteral("ficha")), QStringLiteral("1"));
    EXPECT_EQ(catalogo(traits().tableExistsQuery, QStringLiteral("NOHAY")), QStringLiteral("0"));
    const QString indices = catalogo(traits().tableIndexesQuery, QStringLiteral("FICHA"));
    EXPECT_TRUE(indices.contains(QStringLiteral("clave2"), Qt::CaseInsensitive))
        << indices.toStdString();
    EXPECT_TRUE(catalogo(traits().tableIndexesQuery, QStringLiteral("NOHAY")).isEmpty());
}

TEST_P(CatalogoTablas, TemporaryTablesOfTheGeneralDataAreListed) {
    const QString antes = ok(traits().temporaryTablesQuery, QStringLiteral("DatabaseGeneral"));
    EXPECT_FALSE(antes.contains(QStringLiteral("TEMPCATALOGO"), Qt::CaseInsensitive));
    general(QStringLiteral("CREATE TABLE TEMPCATALOGO (Clave INTEGER)"));
    general(QStringLiteral("CREATE TABLE OTRACATALOGO (Clave INTEGER)"));
    const QString despues = ok(traits().temporaryTablesQuery, QStringLiteral("DatabaseGeneral"));
    EXPECT_TRUE(despues.contains(QStringLiteral("TEMPCATALOGO"), Qt::CaseInsensitive))
        << despues.toStdString();
    EXPECT_FALSE(despues.contains(QStringLiteral("OTRACATALOGO"), Qt::CaseInsensitive));
}

TEST_P(CatalogoTablas, TheRecordLockSuffixIsAValidEndOfASelect) {
    ok(QStringLiteral("INSERT INTO FICHA (Codigo, Nombre) VALUES ('1', 'uno')"));
    ASSERT_TRUE(sesion_->IniciarTransaccion());
    EXPECT_EQ(
        ok(QStringLiteral("SELECT Codigo FROM FICHA WHERE Codigo = 1") + traits().recordLockSuffix),
        QStringLiteral("1"));
    EXPECT_TRUE(sesion_->FinalizarTransaccion());
}

CO_ON_BOTH_BACKENDS(CatalogoTablas);

} // namespace
} // namespace co
