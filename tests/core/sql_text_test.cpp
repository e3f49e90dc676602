#include "core/sql_text.h"

#include "support/layer_fixture.h"

#include <QDateTime>
#include <gtest/gtest.h>

namespace co {
namespace {

TEST(NormalizarVacios, RewritesTestsAfterWhereOnly) {
    EXPECT_EQ(NormalizarVacios(QStringLiteral("UPDATE T SET A = '' WHERE B = ''")),
              QStringLiteral("UPDATE T SET A = '' WHERE (B = '' OR B IS NULL)"));
    EXPECT_EQ(NormalizarVacios(QStringLiteral("SELECT X FROM T WHERE A <> '' AND (B = '')")),
              QStringLiteral("SELECT X FROM T WHERE (A <> '' AND A IS NOT NULL) AND ((B = '' OR B IS NULL))"));
    EXPECT_EQ(NormalizarVacios(QStringLiteral("SELECT X FROM T WHERE T.A = '' AND T.B = ''")),
              QStringLiteral("SELECT X FROM T WHERE (T.A = '' OR T.A IS NULL) AND (T.B = '' OR T.B IS NULL)"));
}

TEST(NormalizarVacios, LeavesOtherTextAlone) {
    const QString plain = QStringLiteral("SELECT A FROM T WHERE A = 'x'");
    EXPECT_EQ(NormalizarVacios(plain), plain);
    // Without WHERE an " = ''" is an assignment: rewriting it would break the statement.
    const QString update = QStringLiteral("UPDATE T SET A = ''");
    EXPECT_EQ(NormalizarVacios(update), update);
    // No name before the mark: the statement is given back as it came.
    const QString odd = QStringLiteral("SELECT A FROM T WHERE  = ''");
    EXPECT_EQ(NormalizarVacios(odd), odd);
}

TEST(ReescribirIgualNull, BothSpellingsOutsideLiterals) {
    EXPECT_EQ(ReescribirIgualNull(QStringLiteral("SELECT * FROM T WHERE A = NULL"), false),
              QStringLiteral("SELECT * FROM T WHERE A  IS NULL "));
    EXPECT_EQ(ReescribirIgualNull(QStringLiteral("SELECT * FROM T WHERE A =NULL AND B = 1"), false),
              QStringLiteral("SELECT * FROM T WHERE A  IS NULL  AND B = 1"));
    // Inside a literal, or as part of a longer word, nothing changes.
    const QString literal = QStringLiteral("SELECT * FROM T WHERE A = 'x = NULL'");
    EXPECT_EQ(ReescribirIgualNull(literal, false), literal);
    const QString nullif = QStringLiteral("SELECT A =NULLIF(B, 0) FROM T");
    EXPECT_EQ(ReescribirIgualNull(nullif, false), nullif);
}

TEST(ReescribirIgualNull, ForzarNullAlsoTakesEmptyLiterals) {
    EXPECT_EQ(ReescribirIgualNull(QStringLiteral("SELECT * FROM T WHERE A = '' AND B = \"\""), true),
              QStringLiteral("SELECT * FROM T WHERE A IS NULL  AND B IS NULL "));
    EXPECT_EQ(ReescribirIgualNull(QStringLiteral("SELECT * FROM T WHERE A = ''"), false),
              QStringLiteral("SELECT * FROM T WHERE A = ''"));
    // "= '''x'" starts a literal holding a quote: not an empty one.
    const QString quoted = QStringLiteral("SELECT * FROM T WHERE A = '''x'");
    EXPECT_EQ(ReescribirIgualNull(quoted, true), quoted);
}

TEST(CondicionCampo, EqualityAndRangesByType) {
    const QString f = QStringLiteral("yyyy-mm-dd");
    EXPECT_EQ(CondicionCampo("C", "5", "5", "ftInteger", f), QStringLiteral("(C = 5)"));
    EXPECT_EQ(CondicionCampo("C", "1", "9", "ftInteger", f), QStringLiteral("(C >= 1 AND C <= 9)"));
    EXPECT_EQ(CondicionCampo("C", "0", "9", "ftSmallint", f), QStringLiteral("((C >= 0 AND C <= 9) OR (C IS NULL))"));
    EXPECT_EQ(CondicionCampo("N", "a", "b", "ftString", f), QStringLiteral("(N >= 'a' AND N <= 'b')"));
    EXPECT_EQ(CondicionCampo("N", "", "", "ftString", f), QStringLiteral("((N = '') OR (N IS NULL))"));
    EXPECT_EQ(CondicionCampo("F", "1/2/24", "31/12/2024", "ftDate", f),
              QStringLiteral("(F >= '2024-02-01' AND F <= '2024-12-31')"));
    EXPECT_EQ(CondicionCampo("F", "", "31/12/2024", "ftDateTime", f),
              QStringLiteral("((F >= '' AND F <= '2024-12-31') OR (F IS NULL))"));
    EXPECT_EQ(CondicionCampo("K", "7", "7", "CAST_AS_INTEGER", f), QStringLiteral("(CAST(K AS INTEGER) = 7)"));
    EXPECT_EQ(CondicionCampo("K", "1", "7", "CAST_AS_INTEGER", f),
              QStringLiteral("(CAST(K AS INTEGER) >= 1 AND  CAST(K AS INTEGER) <= 7)"));
    EXPECT_EQ(CondicionCampo("P", "0", "2,5", "ftFloat", f), QStringLiteral("((P >= 0 AND P <= 2.5) OR (P IS NULL))"));
}

TEST(CondicionCampo, BadInputNeverReachesTheStatement) {
    const QString f = QStringLiteral("yyyy-mm-dd");
    EXPECT_EQ(CondicionCampo("C", "1; DROP TABLE T", "x", "ftInteger", f), QStringLiteral("((C = 0) OR (C IS NULL))"));
    EXPECT_EQ(CondicionCampo("P", "1 OR 1=1", "2", "ftFloat", f), QStringLiteral("((P >= 0 AND P <= 2) OR (P IS NULL))"));
    EXPECT_EQ(CondicionCampo("N", "O'Brien", "O'Brien", "ftString", f), QStringLiteral("(N = 'O''Brien')"));
}

TEST(FormatoLiteralSQL, EveryValueQuoted) {
    const QString f = QStringLiteral("yyyy-mm-dd"), nula = QStringLiteral("1899-12-30 00:00:00");
    EXPECT_EQ(FormatoLiteralSQL(2.5, f, nula), QStringLiteral("'2.500000'"));
    EXPECT_EQ(FormatoLiteralSQL(42, f, nula), QStringLiteral("'42'"));
    EXPECT_EQ(FormatoLiteralSQL(QStringLiteral("D'Artagnan"), f, nula), QStringLiteral("'D''Artagnan'"));
    EXPECT_EQ(FormatoLiteralSQL(QVariant(), f, nula), QStringLiteral("''"));
    EXPECT_EQ(FormatoLiteralSQL(QDateTime(QDate(2026, 3, 4), QTime(5, 6, 7)), f, nula),
              QStringLiteral("'2026-03-04 05:06:07'"));
    EXPECT_EQ(FormatoLiteralSQL(QDateTime(QDate(1899, 12, 30), QTime(0, 0)), f, nula), QStringLiteral("'1899-12-30 00:00:00'"));
    EXPECT_EQ(FormatoLiteralSQL(QDateTime(QDate(2026, 3, 4), QTime(0, 0)), QStringLiteral("mm/dd/yyyy"), nula),
              QStringLiteral("'03/04/2026 00:00:00'"));
}

TEST(TablasDeSentencia, FindsEveryTableOnce) {
    EXPECT_EQ(TablasDeSentencia(QStringLiteral("SELECT * FROM OBRA O JOIN CAPITULO C ON C.CodigoObra = O.Codigo")),
              (QStringList{"OBRA", "CAPITULO"}));
    EXPECT_EQ(TablasDeSentencia(QStringLiteral("DELETE FROM PARTEOB WHERE X IN (SELECT Y FROM\r\nPARMATOB)")),
              (QStringList{"PARTEOB", "PARMATOB"}));
    EXPECT_EQ(TablasDeSentencia(QStringLiteral("INSERT INTO general.TEMP01 SELECT * FROM OBRA, OBRA")),
              (QStringList{"general.TEMP01", "OBRA"}));
    EXPECT_EQ(TablasDeSentencia(QStringLiteral("UPDATE OBRA SET A = 1")), QStringList{"OBRA"});
    EXPECT_TRUE(TablasDeSentencia(QStringLiteral("SELECT 1")).isEmpty());
}

TEST(TablasGenerales, ExactNamesAfterThePrefix) {
    EXPECT_TRUE(EsTablaGeneral(QStringLiteral("EMPRESA")));
    EXPECT_TRUE(EsTablaGeneral(QStringLiteral("general.USUARIO")));
    EXPECT_FALSE(EsTablaGeneral(QStringLiteral("Empresa")));
    EXPECT_FALSE(EsTablaGeneral(QStringLiteral("OBRA")));
    EXPECT_TRUE(EsTablaTemporal(QStringLiteral("general.TEMP0001")));
    EXPECT_TRUE(EsTablaTemporal(QStringLiteral("temp12")));
    EXPECT_FALSE(EsTablaTemporal(QStringLiteral("TEM")));
    EXPECT_EQ(NombreTablaSinEsquema(QStringLiteral("dbo.OBRA")), QStringLiteral("OBRA"));
}

TEST(OptionWords, FoundBySubstringWithValues) {
    EXPECT_TRUE(TieneOpcion(QStringLiteral("Silenciosa,FormatoINI"), QStringLiteral("FormatoINI")));
    EXPECT_FALSE(TieneOpcion(QStringLiteral("Silenciosa"), QStringLiteral("No Crear Tabla")));
    EXPECT_EQ(ValorOpcion(QStringLiteral("Silenciosa,DelimitadorCRLFMemo=<br>,FormatoINI"),
                          QStringLiteral("DelimitadorCRLFMemo")),
              QStringLiteral("<br>"));
    EXPECT_EQ(ValorOpcion(QStringLiteral("DelimitadorCRLFMemo="), QStringLiteral("DelimitadorCRLFMemo")), QString());
    EXPECT_FALSE(ValorOpcion(QStringLiteral("Silenciosa"), QStringLiteral("DelimitadorCRLFMemo")).has_value());
}

} // namespace
} // namespace co

namespace co {
namespace {

TEST(NormalizarVacios, LiteralsHoldingQuotesAreNotEmptyTests) {
    const QString sql = QStringLiteral("SELECT A FROM T WHERE N = '''; DROP TABLE T; --' AND M = ''");
    EXPECT_EQ(NormalizarVacios(sql),
              QStringLiteral("SELECT A FROM T WHERE N = '''; DROP TABLE T; --' AND (M = '' OR M IS NULL)"));
    const QString inside = QStringLiteral("SELECT A FROM T WHERE N = 'x = '''");
    EXPECT_EQ(NormalizarVacios(inside), inside);
}

} // namespace
} // namespace co
