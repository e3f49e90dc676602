#include "core/letters.h"
#include "core/memo_list.h"
#include "core/text_utils.h"

#include "support/gtest_qt_printing.h"

#include <gtest/gtest.h>

namespace co {
namespace {

QString S(const char *s) {
    return QString::fromUtf8(s);
}

TEST(ExtraerToken, FieldsCountFromZero) {
    EXPECT_EQ(ExtraerToken(0, S("12|Obra nueva|SI"), S("|")), S("12"));
    EXPECT_EQ(ExtraerToken(1, S("12|Obra nueva|SI"), S("|")), S("Obra nueva"));
    EXPECT_EQ(ExtraerToken(2, S("12|Obra nueva|SI"), S("|")), S("SI"));
}

TEST(ExtraerToken, MissingFieldsAreEmpty) {
    EXPECT_EQ(ExtraerToken(3, S("12|Obra|SI"), S("|")), QString());
    EXPECT_EQ(ExtraerToken(1, S("a||c"), S("|")), QString());
    EXPECT_EQ(ExtraerToken(2, S("a|b|"), S("|")), QString());
    EXPECT_EQ(ExtraerToken(-1, S("a|b"), S("|")), QString());
    EXPECT_EQ(ExtraerToken(0, QString(), S("|")), QString());
    EXPECT_EQ(ExtraerToken(0, S("sin separador"), S("|")), S("sin separador"));
}

TEST(ExtraerToken, DelimiterOfSeveralCharacters) {
    EXPECT_EQ(ExtraerToken(1, S("uno\r\ndos\r\ntres"), S("\r\n")), S("dos"));
    EXPECT_EQ(ExtraerToken(2, S("a<>b<>c"), S("<>")), S("c"));
    EXPECT_EQ(ExtraerToken(1, S("a<b>c"), S("<>")), QString());
    EXPECT_EQ(ExtraerToken(0, S("a|b"), QString()), S("a|b"));
    EXPECT_EQ(ExtraerToken(1, S("a|b"), QString()), QString());
}

TEST(ContarCaracter, CountsEveryOccurrence) {
    EXPECT_EQ(ContarCaracter(u'|', S("a|b||c|")), 4);
    EXPECT_EQ(ContarCaracter(u'ñ', S("añoÑ")), 1);
    EXPECT_EQ(ContarCaracter(u'x', QString()), 0);
}

TEST(ReemplazarTodo, CaseSensitiveAndNonOverlapping) {
    EXPECT_EQ(ReemplazarTodo(S("obra"), S("OBRA"), S("obra Obra obra")), S("OBRA Obra OBRA"));
    EXPECT_EQ(ReemplazarTodo(S("aa"), S("b"), S("aaa")), S("ba"));
    EXPECT_EQ(ReemplazarTodo(S("'"), S("''"), S("O'Brien's")), S("O''Brien''s"));
    EXPECT_EQ(ReemplazarTodo(QString(), S("x"), S("abc")), S("abc"));
    EXPECT_EQ(ReemplazarTodo(S("z"), S("x"), S("abc")), S("abc"));
}

TEST(QuitarUltimoCRLF, RemovesOneTrailingBreakOnly) {
    EXPECT_EQ(QuitarUltimoCRLF(S("a\r\nb\r\n")), S("a\r\nb"));
    EXPECT_EQ(QuitarUltimoCRLF(S("a\r\n\r\n")), S("a\r\n"));
    EXPECT_EQ(QuitarUltimoCRLF(S("a\n")), S("a"));
    EXPECT_EQ(QuitarUltimoCRLF(S("a\r")), S("a"));
    EXPECT_EQ(QuitarUltimoCRLF(S("a")), S("a"));
    EXPECT_EQ(QuitarUltimoCRLF(QString()), QString());
}

TEST(EntreComillas, DoesNotDoubleInnerQuotes) {
    EXPECT_EQ(EntreComillas(S("OBRA")), S("'OBRA'"));
    EXPECT_EQ(EntreComillas(S("O'Brien")), S("'O'Brien'"));
    EXPECT_EQ(EntreComillas(QString()), S("''"));
}

TEST(TablaDeConsulta, WordAfterFrom) {
    EXPECT_EQ(TablaDeConsulta(S("SELECT * FROM OBRA WHERE CodigoObra = '1'")), S("OBRA"));
    EXPECT_EQ(TablaDeConsulta(S("SELECT *\r\nFROM PARTEOB\r\nORDER BY Fecha")), S("PARTEOB"));
    EXPECT_EQ(TablaDeConsulta(S("SELECT *\nFROM\nCLIENTE C")), S("CLIENTE"));
    EXPECT_EQ(TablaDeConsulta(S("SELECT a FROM T1,T2")), S("T1"));
    EXPECT_EQ(TablaDeConsulta(S("SELECT a FROM  OBRA;")), S("OBRA"));
}

TEST(TablaDeConsulta, NoFromGivesNothing) {
    EXPECT_EQ(TablaDeConsulta(S("UPDATE OBRA SET Estado = 'Cerrada'")), QString());
    EXPECT_EQ(TablaDeConsulta(S("SELECT * FROM")), QString());
    EXPECT_EQ(TablaDeConsulta(QString()), QString());
}

TEST(SinAmpersand, CaptionBecomesProgramName) {
    EXPECT_EQ(SinAmpersand(S("&Partes de Obra")), S("Partes de Obra"));
    EXPECT_EQ(SinAmpersand(S("Obras && Tarifas")), S("Obras  Tarifas"));
    EXPECT_EQ(SinAmpersand(S("Sin marca")), S("Sin marca"));
}

TEST(Letters, TablesAreParallel) {
    ASSERT_EQ(LetrasMinusculas.size(), 48);
    ASSERT_EQ(LetrasMayusculas.size(), 48);
    EXPECT_EQ(Mayusculas(LetrasMinusculas.toString()), LetrasMayusculas.toString());
    EXPECT_EQ(Minusculas(LetrasMayusculas.toString()), LetrasMinusculas.toString());
}

TEST(Letters, AlphabeticIsOnlyWhatTheTablesHold) {
    for (QChar c : S("aZñÑçÇáÜ"))
        EXPECT_TRUE(EsLetra(c)) << QString(c).toStdString();
    for (QChar c : S("0 -_ßýøÅ"))
        EXPECT_FALSE(EsLetra(c)) << QString(c).toStdString();
    EXPECT_TRUE(EsDigito(u'0'));
    EXPECT_TRUE(EsDigito(u'9'));
    EXPECT_FALSE(EsDigito(u'a'));
    EXPECT_FALSE(EsDigito(QChar(0x0663))); // an Arabic-Indic three
}

TEST(Letters, CaseMappingKeepsOtherCharacters) {
    EXPECT_EQ(Mayusculas(S("peón ñandú, año 2024!")), S("PEÓN ÑANDÚ, AÑO 2024!"));
    EXPECT_EQ(Minusculas(S("ÇA VA ß")), S("ça va ß"));
}

TEST(MemoALista, SplitsAtAnyLineBreak) {
    EXPECT_EQ(MemoALista(S("1\r\n2\r\n3")), QStringList({S("1"), S("2"), S("3")}));
    EXPECT_EQ(MemoALista(S("a\nb\rc")), QStringList({S("a"), S("b"), S("c")}));
    EXPECT_EQ(MemoALista(S("a\r\n")), QStringList({S("a")}));
    EXPECT_EQ(MemoALista(S("a\r\n\r\nb")), QStringList({S("a"), QString(), S("b")}));
}

TEST(MemoALista, MarkersCloseTheList) {
    EXPECT_EQ(MemoALista(S("1\r\nfinmemo\r\n2")), QStringList({S("1")}));
    EXPECT_EQ(MemoALista(S("(Memo)")), QStringList());
    EXPECT_EQ(MemoALista(S("1\r\n(Memo)\r\n2")), QStringList({S("1")}));
    EXPECT_EQ(MemoALista(S("1\r\nfinmemo más")), QStringList({S("1"), S("finmemo más")}));
}

TEST(MemoALista, EmptyTextGivesNoList) {
    EXPECT_FALSE(MemoALista(QString()).has_value());
    EXPECT_TRUE(MemoALista(S("\r\n")).has_value());
}

} // namespace
} // namespace co
