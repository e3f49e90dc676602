// Text written in a statement reaches the back-end as written: the rewrites
// of the statement layer (empty comparisons, the dialect step, "= NULL") touch
// code only, through the real statement layer on both back-ends.

#include "core/sql_dialect.h"
#include "core/sql_lexer.h"
#include "core/sql_text.h"

#include "support/layer_fixture.h"

#include <gtest/gtest.h>
#include <random>

namespace co {
namespace {

using test::TablesOnDemandTest;

class StatementLiterals : public TablesOnDemandTest {
protected:
    void SetUp() override {
        TablesOnDemandTest::SetUp();
        for (int codigo = 1; codigo <= 3; ++codigo)
            ok(QStringLiteral("INSERT INTO OBRA (Codigo, Descripcion, Situacion, Varios) VALUES "
                              "(%1, 'Obra %1', '', 'x')")
                   .arg(codigo));
    }
    QString run(const QString &sql) {
        return datos_->EjecutarSQL(sql, {}, QStringLiteral("Silenciosa"));
    }
    QString count(const QString &where) {
        return ok(QStringLiteral("SELECT COUNT(*) FROM OBRA WHERE ") + where).trimmed();
    }
};

TEST_P(StatementLiterals, QuotedTextAfterAnEmptyComparisonStaysData) {
    // The text begins as the old marker of an empty comparison did.
    run(QStringLiteral("UPDATE OBRA SET Varios = 'marcado' WHERE Situacion = '' AND Descripcion = "
                       "' = $$ OR 1=1 --'"));
    EXPECT_EQ(count(QStringLiteral("Varios = 'marcado'")), u"0");
    EXPECT_EQ(ok(QStringLiteral("SELECT COUNT(*) FROM OBRA WHERE Situacion = '' AND Descripcion = "
                                "' = $$::text OR 1=1 --'"))
                  .trimmed(),
              u"0");
    EXPECT_EQ(count(QStringLiteral("Situacion = '' AND Descripcion <> 'x = '' OR 1=1'")), u"3");

    ok(QStringLiteral(
        "INSERT INTO OBRA (Codigo, Descripcion, Situacion) VALUES (10, 'a = $$ b', 'c = ''''')"));
    EXPECT_EQ(ok(QStringLiteral(
                  "SELECT Descripcion, Situacion FROM OBRA WHERE Codigo = 10 AND Varios = ''")),
              QStringLiteral("a = $$ b|c = ''"));
}

TEST_P(StatementLiterals, CommentsAndQuotedTextHideNoCode) {
    ok(QStringLiteral("UPDATE OBRA SET Descripcion = '-- /* it''s' WHERE Codigo = 1"));
    EXPECT_EQ(count(QStringLiteral("Descripcion = '-- /* it''s' AND Situacion = ''")), u"1");
    // A quote inside a comment opens no text.
    EXPECT_EQ(
        ok(QStringLiteral("SELECT COUNT(*) FROM OBRA -- it's\nWHERE Situacion = ''")).trimmed(),
        u"3");
}

TEST_P(StatementLiterals, MoreThanOneStatementIsRefusedAndNoneRuns) {
    const QString r =
        run(QStringLiteral("UPDATE OBRA SET Varios = 'y' WHERE Codigo = 1; DELETE FROM OBRA"));
    EXPECT_TRUE(
        r.startsWith(QStringLiteral("Error. No es posible ejecutar la sentencia SQL. Motivo: ")))
        << r.toStdString();
    EXPECT_TRUE(r.contains(QStringLiteral("más de una sentencia"))) << r.toStdString();
    EXPECT_EQ(count(QStringLiteral("Varios = 'x'")), u"3");
    // A closing ";" and a ";" inside text are one statement.
    ok(QStringLiteral("UPDATE OBRA SET Varios = 'a; DELETE FROM OBRA' WHERE Codigo = 2;  "));
    EXPECT_EQ(count(QStringLiteral("Varios = 'a; DELETE FROM OBRA'")), u"1");
    Consulta q;
    q.SQL = QStringLiteral("SELECT Codigo FROM OBRA; DROP TABLE OBRA");
    EXPECT_FALSE(datos_->AbrirConsulta(q, QStringLiteral("Silencio")));
    EXPECT_EQ(count(QStringLiteral("Codigo > 0")), u"3");
}

TEST_P(StatementLiterals, MidnightTextReachesTextColumnsAsWritten) {
    ok(QStringLiteral("INSERT INTO OBRA (Codigo, Fecha, Descripcion, Situacion) "
                      "VALUES (20, '2024-01-01 00:00:00', '2024-01-01 00:00:00', 'x')"));
    ok(QStringLiteral("UPDATE OBRA SET Poblacion = '2024-02-03 00:00:00', FechaFinalizacion = "
                      "'2024-02-03 00:00:00' "
                      "WHERE Codigo = 20"));
    EXPECT_EQ(ok(QStringLiteral("SELECT Descripcion, Poblacion FROM OBRA WHERE Codigo = 20")),
              QStringLiteral("2024-01-01 00:00:00|2024-02-03 00:00:00"));
    // Date columns still compare with the midnight form, in every position.
    EXPECT_EQ(count(QStringLiteral("Fecha = '2024-01-01 00:00:00'")), u"1");
    EXPECT_EQ(count(QStringLiteral("'2024-01-01 00:00:00' = OBRA.Fecha")), u"1");
    EXPECT_EQ(
        count(QStringLiteral("Fecha >= '2024-01-01 00:00:00' AND Fecha <= '2024-01-01 00:00:00'")),
        u"1");
    EXPECT_EQ(
        count(QStringLiteral("Fecha BETWEEN '2024-01-01 00:00:00' AND '2024-01-01 00:00:00'")),
        u"1");
    EXPECT_EQ(count(QStringLiteral("FechaFinalizacion = '2024-02-03 00:00:00'")), u"1");
    EXPECT_EQ(count(QStringLiteral("Descripcion = '2024-01-01 00:00:00'")), u"1");
}

CO_ON_BOTH_BACKENDS(StatementLiterals);

// ---- the rewrites as text ---------------------------------------------------

TEST(SqlLexer, PiecesJoinBackAndKnowEachBackEnd) {
    for (Backend b : {Backend::SQLite, Backend::PostgreSQL})
        for (const char *sql : {"SELECT 'a''b', \"c'd\" FROM T -- e'f\n/* g'h */ WHERE X = ''",
                                "'open", "/* open", "X = E'\\'' AND Y = $t$ ' $t$", ""})
            EXPECT_EQ(UnirTrozos(TrocearSentencia(QString::fromUtf8(sql), b)),
                      QString::fromUtf8(sql));
    EXPECT_EQ(
        LiteralesDeSentencia(QStringLiteral("SELECT 'a''b' FROM T -- 'c'\nWHERE \"d'\" = 'e'"),
                             Backend::SQLite),
        (QStringList{"'a''b'", "'e'"}));
    // PostgreSQL's escaped and dollar-quoted texts, and its nested comments.
    EXPECT_EQ(LiteralesDeSentencia(
                  QStringLiteral("SELECT E'x\\' y', $q$ it's $q$ /* /* ' */ ' */ FROM T"),
                  Backend::PostgreSQL),
              (QStringList{"E'x\\' y'", "$q$ it's $q$"}));
    EXPECT_EQ(
        LiteralesDeSentencia(QStringLiteral("SELECT [a'b], `c'd`, 'e' FROM T"), Backend::SQLite),
        (QStringList{"'e'"}));
    EXPECT_TRUE(HayVariasSentencias(QStringLiteral("SELECT 1; SELECT 2"), Backend::SQLite));
    EXPECT_TRUE(HayVariasSentencias(QStringLiteral("SELECT 1;'x'"), Backend::PostgreSQL));
    EXPECT_FALSE(
        HayVariasSentencias(QStringLiteral("SELECT ';' ; -- x; y\n"), Backend::PostgreSQL));
    // A trigger's body holds statements of its own.
    EXPECT_FALSE(HayVariasSentencias(
        QStringLiteral("CREATE TRIGGER P BEFORE DELETE ON T BEGIN SELECT RAISE(ABORT, 'x'); END;"),
        Backend::SQLite));
    EXPECT_TRUE(HayVariasSentencias(
        QStringLiteral("CREATE TRIGGER P BEFORE DELETE ON T BEGIN SELECT 1; END; DROP TABLE T"),
        Backend::SQLite));
}

TEST(Dialect, MidnightGoesOnlyToDateColumns) {
    const ColumnasFecha fechas = {QStringLiteral("FECHA")};
    auto sqlite = [&](const char *sql) {
        return AdaptarSentencia(QString::fromUtf8(sql), Backend::SQLite, &fechas);
    };
    EXPECT_EQ(
        sqlite("INSERT INTO T (Codigo, Fecha, Texto) VALUES (1, '2024-01-01 00:00:00', '2024-01-01 "
               "00:00:00'), "
               "(2, '2024-01-02 00:00:00', 'b')"),
        QStringLiteral(
            "INSERT INTO T (Codigo, Fecha, Texto) VALUES (1, '2024-01-01', '2024-01-01 00:00:00'), "
            "(2, '2024-01-02', 'b')"));
    EXPECT_EQ(
        sqlite("UPDATE T SET Texto = '2024-01-01 00:00:00' WHERE T.Fecha < '2024-01-01 00:00:00'"),
        QStringLiteral("UPDATE T SET Texto = '2024-01-01 00:00:00' WHERE T.Fecha < '2024-01-01'"));
    // Without the structure, nothing is known to be a date: nothing changes.
    const QString plain = QStringLiteral("SELECT * FROM T WHERE Fecha = '2024-01-01 00:00:00'");
    EXPECT_EQ(AdaptarSentencia(plain, Backend::SQLite), plain);
}

// Random statements of the forms the rewrites look for, with random texts
// made of what could fool them: the texts come out exactly as they went in.
class RandomStatements {
public:
    explicit RandomStatements(unsigned seed) : rng_(seed) {}

    QString literal() {
        static const QStringList parts = {
            "'",  "''", "$$",   "=",     " = ",   " <> ", "--",       "/*",
            "*/", "|",  "\n",   "a",     "Z",     " ",    "00:00:00", "E'",
            ";",  "\\", "dbo.", "TOP 5", "WHERE", "ñ",    "\"",       "2024-01-01 00:00:00"};
        QString text;
        const int n = 1 + pick(6);
        for (int i = 0; i < n; ++i)
            text += parts.at(pick(parts.size()));
        return Entrecomillar(text);
    }

    QString statement() {
        static const QStringList heads = {"SELECT TOP 3 A FROM dbo.T WITH(NOLOCK) WHERE ",
                                          "UPDATE ParteOB SET Texto = ", "SELECT A FROM T WHERE ",
                                          "DELETE FROM PartMatOB WHERE "};
        static const QStringList names = {"A", "T.B", "Texto", "Nombre"};
        static const QStringList ops = {" = ", " <> ", " >= ", " < "};
        QString sql = heads.at(pick(heads.size()));
        if (sql.endsWith(u"= "))
            sql += literal() + QStringLiteral(" WHERE ");
        const int n = 1 + pick(5);
        for (int i = 0; i < n; ++i) {
            if (i > 0)
                sql += pick(2) ? QStringLiteral(" AND ") : QStringLiteral(" OR (");
            sql += names.at(pick(names.size())) + ops.at(pick(ops.size())) +
                   (pick(3) == 0 ? QStringLiteral("''") : literal());
            if (sql.count(u'(') > sql.count(u')') && pick(2))
                sql += u')';
        }
        while (sql.count(u'(') > sql.count(u')'))
            sql += u')';
        return sql;
    }

private:
    int pick(qsizetype n) {
        return static_cast<int>(std::uniform_int_distribution<qsizetype>(0, n - 1)(rng_));
    }
    std::mt19937 rng_;
};

QStringList textsOf(const QString &sql, Backend backend) {
    QStringList out;
    for (const QString &l : LiteralesDeSentencia(sql, backend))
        if (l != u"''")
            out << l;
    return out;
}

TEST(StatementRewrites, RandomTextsComeOutByteForByte) {
    const ColumnasFecha fechas = {QStringLiteral("FECHA")};
    RandomStatements gen(20261124);
    for (int i = 0; i < 3000; ++i) {
        const QString sql = gen.statement();
        for (Backend b : {Backend::SQLite, Backend::PostgreSQL}) {
            const QStringList before = textsOf(sql, b);
            const QString normal = NormalizarVacios(sql, b);
            const QString adapted =
                AdaptarSentencia(ReescribirIgualNull(normal, true, b), b, &fechas);
            ASSERT_EQ(textsOf(normal, b), before) << sql.toStdString();
            ASSERT_EQ(textsOf(adapted, b), before)
                << sql.toStdString() << "\n -> " << adapted.toStdString();
            ASSERT_FALSE(adapted.contains(QStringLiteral("$$")) &&
                         !sql.contains(QStringLiteral("$$")));
        }
    }
}

// Random bytes of SQL's own characters through every rewrite: no crash, no
// sanitizer report, and the pieces always join back to the statement.
TEST(StatementRewrites, FuzzedTextNeverBreaksTheRewrites) {
    static const QString alphabet =
        QStringLiteral("'\"`[]$-/*;=<> ()\n\\EeSELCTOPWHRdbo.ANtp0123:_,ñ");
    const ColumnasFecha fechas = {QStringLiteral("FECHA"), QStringLiteral("E")};
    std::mt19937 rng(7);
    for (int i = 0; i < 20000; ++i) {
        QString sql;
        const int n = static_cast<int>(rng() % 80);
        for (int k = 0; k < n; ++k)
            sql += alphabet.at(static_cast<qsizetype>(rng() % alphabet.size()));
        if (i % 3 == 0)
            sql.prepend(i % 2 ? QStringLiteral("SELECT TOP 1 ")
                              : QStringLiteral("INSERT INTO T (Fecha, E) VALUES ("));
        for (Backend b : {Backend::SQLite, Backend::PostgreSQL}) {
            ASSERT_EQ(UnirTrozos(TrocearSentencia(sql, b)), sql);
            const QString r = AdaptarSentencia(
                ReescribirIgualNull(NormalizarVacios(sql, b), i % 2, b), b, &fechas);
            HayVariasSentencias(r, b);
            IdentificadoresDeSentencia(r, b);
        }
    }
}

} // namespace
} // namespace co
