// The statement layer on both back-ends: result text, failures, table creation
// on the failure path, the cache, and data that try to break statements.
#include "support/layer_fixture.h"

#include <QDateTime>
#include <gtest/gtest.h>

namespace co {
namespace {

using test::LayerTest;

class StatementLayer : public LayerTest {
protected:
    void SetUp() override {
        LayerTest::SetUp();
        ok(QStringLiteral("CREATE TABLE CLIENTE (Codigo INTEGER NOT NULL PRIMARY KEY, Nombre VARCHAR(40), "
                          "Saldo DOUBLE PRECISION, Alta TIMESTAMP, Notas TEXT, Activo VARCHAR(2))"));
    }
};

TEST_P(StatementLayer, ResultTextRowsAndFields) {
    ok(QStringLiteral("INSERT INTO CLIENTE (Codigo, Nombre, Saldo, Alta) VALUES ('1', 'Ana', '1.5', '2026-01-05 00:00:00')"));
    ok(QStringLiteral("INSERT INTO CLIENTE (Codigo, Nombre, Saldo, Alta) VALUES ('2', 'Luis', '-3', '2026-02-07 10:30:00')"));
    EXPECT_EQ(ok(QStringLiteral("SELECT Nombre FROM CLIENTE ORDER BY Codigo")), QStringLiteral("Ana\r\nLuis"));
    EXPECT_EQ(ok(QStringLiteral("SELECT Codigo, Nombre, Saldo, Alta FROM CLIENTE ORDER BY Codigo")),
              QStringLiteral("1|Ana|1,5|05/01/2026\r\n2|Luis|-3|07/02/2026 10:30:00"));
    EXPECT_EQ(ok(QStringLiteral("SELECT Codigo, Nombre FROM CLIENTE WHERE Codigo = 1"), {}, QStringLiteral("FormatoINI")),
              QStringLiteral("Codigo=1·Nombre=Ana"));
    EXPECT_EQ(ok(QStringLiteral("SELECT Nombre FROM CLIENTE ORDER BY Codigo"), {}, QStringLiteral("NoEliminarUltimoCRLF")),
              QStringLiteral("Ana\r\nLuis\r\n"));
    EXPECT_EQ(ok(QStringLiteral("SELECT Nombre FROM CLIENTE WHERE Codigo = 99")), QString());
    EXPECT_EQ(ok(QStringLiteral("UPDATE CLIENTE SET Nombre = 'Ana María' WHERE Codigo = 1")), QString());
    EXPECT_EQ(ok(QStringLiteral("SELECT COUNT(*), SUM(Saldo) FROM CLIENTE")), QStringLiteral("2|-1,5"));
}

TEST_P(StatementLayer, DatesCompareAsStoredOnBothBackEnds) {
    ok(QStringLiteral("INSERT INTO CLIENTE (Codigo, Alta) VALUES ('1', '2026-01-05 00:00:00')"));
    ok(QStringLiteral("INSERT INTO CLIENTE (Codigo, Alta) VALUES ('2', '2026-01-05 09:00:00')"));
    EXPECT_EQ(ok(QStringLiteral("SELECT Codigo FROM CLIENTE WHERE Alta = '2026-01-05 00:00:00'")), QStringLiteral("1"));
    EXPECT_EQ(ok(QStringLiteral("SELECT Codigo FROM CLIENTE WHERE Alta >= '2026-01-05' AND Alta <= '2026-01-05' ")),
              QStringLiteral("1"));
    EXPECT_EQ(ok(QStringLiteral("SELECT MAX(Alta) FROM CLIENTE")), QStringLiteral("05/01/2026 09:00:00"));
}

TEST_P(StatementLayer, RowguidAndMemoLineBreaks) {
    ok(QStringLiteral("CREATE TABLE NOTA (Codigo INTEGER NOT NULL PRIMARY KEY, rowguid VARCHAR(40), Texto TEXT)"));
    ok(QStringLiteral("INSERT INTO NOTA VALUES ('1', 'ABC', 'línea uno\r\nlínea dos')"));
    EXPECT_EQ(ok(QStringLiteral("SELECT Codigo, rowguid, Texto FROM NOTA")), QStringLiteral("1||línea uno línea dos"));
    EXPECT_EQ(ok(QStringLiteral("SELECT Codigo, rowguid FROM NOTA"), {}, QStringLiteral("FormatoINI")),
              QStringLiteral("Codigo=1·rowguid="));
    EXPECT_EQ(ok(QStringLiteral("SELECT Texto FROM NOTA"), {}, QStringLiteral("Silenciosa,DelimitadorCRLFMemo=<br>,X")),
              QStringLiteral("línea uno<br>línea dos"));
    // The second channel gives rowguid no special treatment.
    EXPECT_EQ(datos_->EjecutarSQLADO(QStringLiteral("SELECT Codigo, rowguid FROM NOTA")), QStringLiteral("1|ABC"));
}

TEST_P(StatementLayer, HostileDataNeverBreaksAStatement) {
    const QStringList hostile = {QStringLiteral("O'Brien"), QStringLiteral("a|b"), QStringLiteral("x = NULL"),
                                 QStringLiteral("Ñandú ÁÉÍÓÚ ü"), QStringLiteral("k=v=w"), QStringLiteral("'; DROP TABLE CLIENTE; --"),
                                 QStringLiteral("WITH(NOLOCK) dbo.ParteOB SELECT TOP 1")};
    int code = 1;
    for (const QString &value : hostile) {
        ok(QStringLiteral("INSERT INTO CLIENTE (Codigo, Nombre) VALUES ('%1', %2)").arg(code).arg(Entrecomillar(value)));
        EXPECT_EQ(ok(QStringLiteral("SELECT Nombre FROM CLIENTE WHERE Nombre = %1").arg(Entrecomillar(value))), value);
        ++code;
    }
    EXPECT_EQ(ok(QStringLiteral("SELECT COUNT(*) FROM CLIENTE")), QString::number(hostile.size()));
}

TEST_P(StatementLayer, NullComparisonsAreRewritten) {
    ok(QStringLiteral("INSERT INTO CLIENTE (Codigo, Nombre) VALUES ('1', NULL)"));
    ok(QStringLiteral("INSERT INTO CLIENTE (Codigo, Nombre) VALUES ('2', '')"));
    ok(QStringLiteral("INSERT INTO CLIENTE (Codigo, Nombre) VALUES ('3', 'x')"));
    EXPECT_EQ(ok(QStringLiteral("SELECT Codigo FROM CLIENTE WHERE Nombre = NULL")), QStringLiteral("1"));
    EXPECT_EQ(ok(QStringLiteral("SELECT Codigo FROM CLIENTE WHERE Nombre = '' ORDER BY Codigo")), QStringLiteral("1\r\n2"));
    EXPECT_EQ(ok(QStringLiteral("SELECT Codigo FROM CLIENTE WHERE Nombre <> ''")), QStringLiteral("3"));
    EXPECT_EQ(ok(QStringLiteral("SELECT Codigo FROM CLIENTE WHERE Nombre = ''"), {}, QStringLiteral("ForzarNULL")),
              QStringLiteral("1"));
    // Empty tests on non-text columns are accepted by both back-ends.
    EXPECT_EQ(ok(QStringLiteral("SELECT Codigo FROM CLIENTE WHERE Alta = '' ORDER BY Codigo")), QStringLiteral("1\r\n2\r\n3"));
    ok(QStringLiteral("UPDATE CLIENTE SET Nombre = '' WHERE Codigo = '3'"));
    EXPECT_EQ(ok(QStringLiteral("SELECT Nombre FROM CLIENTE WHERE Codigo = 3")), QString());
}

TEST_P(StatementLayer, MalformedStatementReturnsErrorWithDialogs) {
    const QString bad = QStringLiteral("SELEC Codigo FROM CLIENTE");
    const QString result = datos_->EjecutarSQL(bad);
    EXPECT_TRUE(result.startsWith(QStringLiteral("Error. No es posible ejecutar la sentencia SQL. Motivo: ")));
    ASSERT_EQ(messages_.shown().size(), 2);
    EXPECT_EQ(messages_.shown()[0].kind, u'A');
    EXPECT_EQ(messages_.shown()[0].text, result);
    EXPECT_EQ(messages_.shown()[1].text, QStringLiteral("Hay un error en la siguiente Sentencia SQL: \r\n") + bad);
    messages_.clear();
    EXPECT_TRUE(datos_->EjecutarSQL(bad, {}, QStringLiteral("Silenciosa")).startsWith(QStringLiteral("Error.")));
    EXPECT_TRUE(messages_.shown().isEmpty());
    // Nothing was lost and the connection still works.
    EXPECT_EQ(ok(QStringLiteral("SELECT COUNT(*) FROM CLIENTE")), QStringLiteral("0"));
}

TEST_P(StatementLayer, FailuresAreMappedOntoTheHandlersTexts) {
    ok(QStringLiteral("INSERT INTO CLIENTE (Codigo) VALUES ('1')"));
    const QString dup = datos_->EjecutarSQL(QStringLiteral("INSERT INTO CLIENTE (Codigo) VALUES ('1')"), {},
                                            QStringLiteral("Silenciosa"));
    EXPECT_TRUE(dup.startsWith(QStringLiteral("Error. No es posible ejecutar la sentencia SQL. Motivo: Key violation")))
        << dup.toStdString();
    const QString missing = datos_->EjecutarSQL(QStringLiteral("SELECT * FROM NOEXISTE"), {}, QStringLiteral("Silenciosa"));
    EXPECT_TRUE(missing.contains(QStringLiteral("Table does not exist"))) << missing.toStdString();
}

TEST_P(StatementLayer, UnknownConnectionWordIsAFailureText) {
    const QString r = datos_->EjecutarSQL(QStringLiteral("SELECT 1"), QStringLiteral("?NoHay"), QStringLiteral("Silenciosa"));
    EXPECT_TRUE(r.startsWith(QStringLiteral("Error. No es posible ejecutar la sentencia SQL. Motivo: ")));
}

TEST_P(StatementLayer, GeneralTablesAreReachableFromTheCompany) {
    ok(QStringLiteral("CREATE TABLE EMPRESA (Codigo INTEGER NOT NULL PRIMARY KEY, Nombre VARCHAR(40))"),
       QStringLiteral("DatabaseGeneral"));
    ok(QStringLiteral("INSERT INTO EMPRESA VALUES ('1', 'Construcciones Pérez')"), QStringLiteral("DatabaseGeneral"));
    EXPECT_EQ(ok(QStringLiteral("SELECT Nombre FROM EMPRESA")), QStringLiteral("Construcciones Pérez"));
    EXPECT_EQ(ok(QStringLiteral("SELECT Nombre FROM %1.dbo.EMPRESA").arg(settings_.AliasBaseDatosGeneral)),
              QStringLiteral("Construcciones Pérez"));
    EXPECT_EQ(ok(QStringLiteral("SELECT Nombre FROM EMPRESA"), u'?' + settings_.AliasBaseDatosGeneral),
              QStringLiteral("Construcciones Pérez"));
    // Company data are not visible from the general connection.
    EXPECT_TRUE(datos_->EjecutarSQL(QStringLiteral("SELECT * FROM CLIENTE"), QStringLiteral("DatabaseGeneral"),
                                    QStringLiteral("Silenciosa,No Crear Tabla"))
                    .startsWith(QStringLiteral("Error.")));
}

TEST_P(StatementLayer, CompaniesKeepTheirOwnData) {
    ok(QStringLiteral("INSERT INTO CLIENTE (Codigo, Nombre) VALUES ('1', 'Empresa cero')"));
    ASSERT_TRUE(sesion_->ConectarEmpresa(2));
    EXPECT_EQ(sesion_->CodigoEmpresa, 2);
    ok(QStringLiteral("CREATE TABLE CLIENTE (Codigo INTEGER NOT NULL PRIMARY KEY, Nombre VARCHAR(40))"));
    ok(QStringLiteral("INSERT INTO CLIENTE (Codigo, Nombre) VALUES ('1', 'Empresa dos')"));
    EXPECT_EQ(ok(QStringLiteral("SELECT Nombre FROM CLIENTE")), QStringLiteral("Empresa dos"));
    ASSERT_TRUE(sesion_->ConectarEmpresaAlt(0));
    EXPECT_EQ(ok(QStringLiteral("SELECT Nombre FROM CLIENTE"), QStringLiteral("DatabaseAlt")), QStringLiteral("Empresa cero"));
    sesion_->AliasSustituto = sesion_->NombreAliasEmpresa(0);
    EXPECT_EQ(ok(QStringLiteral("SELECT Nombre FROM CLIENTE")), QStringLiteral("Empresa cero"));
}

// Creates missing tables from plain statements, standing in for the structure files.
class FakeCreator : public TableCreator {
public:
    explicit FakeCreator(TModuloDatos &datos) : datos_(datos) {}
    QString CrearTabla(const QString &tabla, const QString &conexion) override {
        calls << tabla;
        if (!known.contains(tabla))
            return QStringLiteral("sin definición");
        return datos_.EjecutarSQL(known.value(tabla), conexion, QStringLiteral("Silenciosa,No Crear Tabla"));
    }
    QHash<QString, QString> known;
    QStringList calls;

private:
    TModuloDatos &datos_;
};

TEST_P(StatementLayer, MissingTableIsCreatedOnTheFailurePath) {
    FakeCreator creator(*datos_);
    creator.known.insert(QStringLiteral("UNIDADOB"),
                         QStringLiteral("CREATE TABLE UNIDADOB (Codigo VARCHAR(10) NOT NULL PRIMARY KEY, Descripcion VARCHAR(40))"));
    datos_->setTableCreator(&creator);
    EXPECT_EQ(datos_->EjecutarSQL(QStringLiteral("SELECT Codigo FROM UNIDADOB")), QString());
    EXPECT_TRUE(messages_.shown().isEmpty());
    EXPECT_EQ(creator.calls, QStringList{"UNIDADOB"});
    EXPECT_EQ(ok(QStringLiteral("INSERT INTO UNIDADOB VALUES ('m2', 'Metro cuadrado')")), QString());

    // With "No Crear Tabla" the failure comes back as it is.
    creator.known.insert(QStringLiteral("INCIDENC"), QStringLiteral("CREATE TABLE INCIDENC (Codigo INTEGER PRIMARY KEY)"));
    const QString r = datos_->EjecutarSQL(QStringLiteral("SELECT * FROM INCIDENC"), {}, QStringLiteral("Silenciosa,No Crear Tabla"));
    EXPECT_TRUE(r.startsWith(QStringLiteral("Error.")));
    // An EXEC never creates tables.
    creator.calls.clear();
    EXPECT_TRUE(datos_->EjecutarSQL(QStringLiteral("EXEC NoExiste"), {}, QStringLiteral("Silenciosa")).startsWith(QStringLiteral("Error.")));
    EXPECT_TRUE(creator.calls.isEmpty());
    // A table with no definition leaves the failure text.
    EXPECT_TRUE(datos_->EjecutarSQL(QStringLiteral("SELECT * FROM NADA"), {}, QStringLiteral("Silenciosa")).contains(QStringLiteral("Table does not exist")));
}

TEST_P(StatementLayer, CacheKeepsValuesWithEqualsAndEmptyAnswers) {
    SqlCache cache;
    ok(QStringLiteral("INSERT INTO CLIENTE (Codigo, Nombre) VALUES ('1', 'a=b')"));
    const QString sql = QStringLiteral("SELECT Nombre FROM CLIENTE WHERE Codigo = 1");
    EXPECT_EQ(datos_->EjecutarSQLCache(sql, cache), QStringLiteral("a=b"));
    const int before = datos_->SentenciasEjecutadas();
    EXPECT_EQ(datos_->EjecutarSQLCache(sql, cache), QStringLiteral("a=b"));
    const QString empty = QStringLiteral("SELECT Nombre FROM CLIENTE WHERE Codigo = 2");
    EXPECT_EQ(datos_->EjecutarSQLCache(empty, cache), QString());
    const int afterEmpty = datos_->SentenciasEjecutadas();
    EXPECT_EQ(datos_->EjecutarSQLCache(empty, cache), QString());
    EXPECT_EQ(datos_->SentenciasEjecutadas(), afterEmpty);
    EXPECT_EQ(afterEmpty, before + 1);
    ok(QStringLiteral("INSERT INTO CLIENTE (Codigo, Nombre) VALUES ('3', 'x')"));
    EXPECT_EQ(datos_->EjecutarSQLCache(QStringLiteral("SELECT Codigo, Nombre FROM CLIENTE ORDER BY Codigo"), cache),
              QStringLiteral("1|a=b\r\n3|x"));
    EXPECT_EQ(datos_->EjecutarSQLCache(QStringLiteral("SELECT Codigo, Nombre FROM CLIENTE ORDER BY Codigo"), cache),
              QStringLiteral("1|a=b\r\n3|x"));
}

TEST(SqlCacheLimits, ClearedPastTheLimit) {
    SqlCache cache;
    for (int i = 0; i <= SqlCache::kLimite; ++i)
        cache.store(QStringLiteral("SELECT %1").arg(i), QStringLiteral("v"));
    EXPECT_EQ(cache.size(), SqlCache::kLimite + 1);
    cache.store(QStringLiteral("SELECT x"), QStringLiteral("v"));
    EXPECT_EQ(cache.size(), 1);
    EXPECT_EQ(cache.find(QStringLiteral("SELECT x")), QStringLiteral("v"));
}

TEST_P(StatementLayer, QueryObjectsOpenAndExecute) {
    ok(QStringLiteral("INSERT INTO CLIENTE (Codigo, Nombre, Alta) VALUES ('1', 'Ana', '2026-03-04 00:00:00')"));
    Consulta q;
    q.SQL = QStringLiteral("SELECT Codigo, Nombre, Alta FROM CLIENTE");
    ASSERT_TRUE(datos_->AbrirConsulta(q));
    ASSERT_EQ(q.RecordCount(), 1);
    EXPECT_EQ(q.Fields()[1].name, QStringLiteral("Nombre"));
    EXPECT_EQ(q.Value(0, QStringLiteral("Nombre")).toString(), QStringLiteral("Ana"));
    EXPECT_EQ(q.Value(0, QStringLiteral("Alta")).toDateTime(), QDateTime(QDate(2026, 3, 4), QTime(0, 0)));
    q.SQL = QStringLiteral("UPDATE CLIENTE SET Nombre = 'Eva'");
    ASSERT_TRUE(datos_->AbrirConsulta(q));
    EXPECT_EQ(q.RowsAffected(), 1);
    q.SQL = QStringLiteral("SELECT * FROM NOHAY");
    EXPECT_FALSE(datos_->AbrirConsulta(q, QStringLiteral("Silencio")));
    EXPECT_TRUE(messages_.shown().isEmpty());
    EXPECT_FALSE(datos_->AbrirConsulta(q));
    ASSERT_EQ(messages_.shown().size(), 2);
    EXPECT_TRUE(messages_.shown()[0].text.startsWith(QStringLiteral("¡No es posible ejecutar la sentencia SQL. Motivo: ")));
}

CO_ON_BOTH_BACKENDS(StatementLayer);

} // namespace
} // namespace co
