#include "core/sql_dialect.h"

#include "support/layer_fixture.h"

#include <gtest/gtest.h>

namespace co {
namespace {

QString sqlite(const char *sql) { return AdaptarSentencia(QString::fromUtf8(sql), Backend::SQLite); }
QString pg(const char *sql) { return AdaptarSentencia(QString::fromUtf8(sql), Backend::PostgreSQL); }

TEST(Dialect, TopBecomesLimitAtTheEndOfItsLevel) {
    EXPECT_EQ(sqlite("SELECT TOP 10 A FROM T ORDER BY A"), QStringLiteral("SELECT A FROM T ORDER BY A LIMIT 10"));
    EXPECT_EQ(sqlite("SELECT DISTINCT TOP 3 A FROM T;"), QStringLiteral("SELECT DISTINCT A FROM T LIMIT 3;"));
    EXPECT_EQ(sqlite("SELECT A FROM T WHERE B IN (SELECT TOP 1 B FROM U ORDER BY B) ORDER BY A"),
              QStringLiteral("SELECT A FROM T WHERE B IN (SELECT B FROM U ORDER BY B LIMIT 1) ORDER BY A"));
    EXPECT_EQ(sqlite("SELECT TOP 2 A FROM T WHERE N = 'SELECT TOP 5 x'"),
              QStringLiteral("SELECT A FROM T WHERE N = 'SELECT TOP 5 x' LIMIT 2"));
}

TEST(Dialect, ServerFormsGo) {
    EXPECT_EQ(sqlite("SELECT MAX(A) FROM T WITH(NOLOCK) WHERE B = 1"), QStringLiteral("SELECT MAX(A) FROM T WHERE B = 1"));
    EXPECT_EQ(sqlite("SELECT * FROM dbo.OBRA"), QStringLiteral("SELECT * FROM OBRA"));
    EXPECT_EQ(sqlite("INSERT INTO general.dbo.TEMP1 SELECT * FROM OBRA"), QStringLiteral("INSERT INTO general.TEMP1 SELECT * FROM OBRA"));
    EXPECT_EQ(sqlite("SELECT * FROM PartMatOB, PartMaqOB, ParteOB, PartSubOB"),
              QStringLiteral("SELECT * FROM PARMATOB, PARMAQOB, PARTEOB, PARSUBOB"));
    // Data are never rewritten.
    EXPECT_EQ(sqlite("SELECT 'dbo.x WITH(NOLOCK) ParteOB' FROM T"), QStringLiteral("SELECT 'dbo.x WITH(NOLOCK) ParteOB' FROM T"));
}

TEST(Dialect, SQLiteMidnightLiteralsAreStoredDates) {
    const ColumnasFecha fechas = {QStringLiteral("F")};
    auto sqlite = [&](const char *sql) { return AdaptarSentencia(QString::fromUtf8(sql), Backend::SQLite, &fechas); };
    EXPECT_EQ(sqlite("SELECT * FROM T WHERE F = '2026-01-05 00:00:00'"), QStringLiteral("SELECT * FROM T WHERE F = '2026-01-05'"));
    EXPECT_EQ(sqlite("SELECT * FROM T WHERE F = '2026-01-05 10:00:00'"), QStringLiteral("SELECT * FROM T WHERE F = '2026-01-05 10:00:00'"));
}

TEST(Dialect, PostgreSQLEmptyComparisonsAndExec) {
    EXPECT_EQ(pg("UPDATE T SET A = '' WHERE (B = '' OR B IS NULL)"),
              QStringLiteral("UPDATE T SET A = '' WHERE (CAST(B AS TEXT) = '' OR B IS NULL)"));
    EXPECT_EQ(pg("SELECT * FROM T WHERE T.B <> '' AND C = 'x'"),
              QStringLiteral("SELECT * FROM T WHERE CAST(T.B AS TEXT) <> '' AND C = 'x'"));
    EXPECT_EQ(pg("EXEC Recalcular 1, 2"), QStringLiteral("SELECT * FROM Recalcular(1, 2)"));
}

TEST(Dialect, IdentifiersSkipLiterals) {
    EXPECT_EQ(IdentificadoresDeSentencia(QStringLiteral("SELECT CodigoObra, 'Nombre' FROM OBRA")),
              (QStringList{"SELECT", "CodigoObra", "FROM", "OBRA"}));
}

} // namespace
} // namespace co
