// The text side of translation: sentence marks, words, variable parts, and the
// session cache with its eviction.
#include "core/translation_cache.h"
#include "core/translation_text.h"

#include "support/gtest_qt_printing.h"

#include <gtest/gtest.h>

namespace co {
namespace {

TEST(ProtegerPuntos, SentenceMarksGoOnLinesOfTheirOwnAndComeBack) {
    const QString frase = QStringLiteral("Hola. Adiós.");
    const QString directo = ProtegerPuntos(frase, ModoPuntos::Directo);
    EXPECT_EQ(directo, QStringLiteral("Hola\n.\n Adiós\n.\n"));
    EXPECT_EQ(ProtegerPuntos(directo, ModoPuntos::Inverso), frase);
}

TEST(ProtegerPuntos, DotsInsideWordsAreNoSentenceMarks) {
    for (const QString &t : {QStringLiteral("Importe 12.5"), QStringLiteral("Espere..x"),
                             QStringLiteral("www.empresa.es"), QString()}) {
        EXPECT_EQ(ProtegerPuntos(t, ModoPuntos::Directo), t);
        EXPECT_EQ(ProtegerPuntos(t, ModoPuntos::Inverso), t);
    }
    EXPECT_EQ(ProtegerPuntos(QStringLiteral("Espere..."), ModoPuntos::Directo),
              QStringLiteral("Espere..\n.\n"));
}

TEST(PalabrasFrase, BlanksLineBreaksAndSentenceMarksSeparateWords) {
    EXPECT_EQ(PalabrasFrase(QStringLiteral("Factura  123.")),
              (QStringList{QStringLiteral("Factura"), QStringLiteral("123"), QStringLiteral(".")}));
    EXPECT_EQ(PalabrasFrase(QStringLiteral("Línea uno\r\nlínea 1.5")),
              (QStringList{QStringLiteral("Línea"), QStringLiteral("uno"), QStringLiteral("línea"),
                           QStringLiteral("1.5")}));
    EXPECT_TRUE(PalabrasFrase(QStringLiteral("   ")).isEmpty());
}

TEST(PartesVariables, WordsLeftOverFillTheMarksInOrder) {
    EXPECT_EQ(PartesVariables(QStringLiteral("Factura 123"), QStringLiteral("Factura \\X")),
              QStringList{QStringLiteral("123")});
    EXPECT_EQ(PartesVariables(QStringLiteral("Factura 12 del cliente Pérez"),
                              QStringLiteral("Factura \\X del cliente \\X")),
              (QStringList{QStringLiteral("12"), QStringLiteral("Pérez")}));
    // A number is a variable part even when the key has the same number.
    EXPECT_EQ(PartesVariables(QStringLiteral("Hoja 2 de 2"), QStringLiteral("Hoja \\X de 2")),
              std::nullopt);
    EXPECT_EQ(
        PartesVariables(QStringLiteral("Entrega 01/02/2026."), QStringLiteral("Entrega \\X.")),
        QStringList{QStringLiteral("01/02/2026")});
}

TEST(PartesVariables, KeysThatWouldDropOrInventWordsDoNotFit) {
    // More words left over than marks: the message would lose words.
    EXPECT_EQ(PartesVariables(QStringLiteral("Obra Casa Juan terminada"),
                              QStringLiteral("Obra \\X terminada")),
              std::nullopt);
    // A fixed word of the key missing from the text.
    EXPECT_EQ(
        PartesVariables(QStringLiteral("Factura 12"), QStringLiteral("Factura rectificativa \\X")),
        std::nullopt);
    // Without marks only the same words fit.
    EXPECT_EQ(
        PartesVariables(QStringLiteral("Error al grabar la factura"), QStringLiteral("Error")),
        std::nullopt);
    EXPECT_EQ(
        PartesVariables(QStringLiteral("Fin de listado."), QStringLiteral("Fin de  listado.")),
        QStringList{});
    // Accents count when words pair.
    EXPECT_EQ(PartesVariables(QStringLiteral("Camion 4"), QStringLiteral("Camión \\X")),
              std::nullopt);
}

TEST(SustituirPartesVariables, MarksTakeThePartsAndBlanksComeBack) {
    EXPECT_EQ(SustituirPartesVariables(QStringLiteral("Invoice \\X"), {QStringLiteral("123")}),
              QStringLiteral("Invoice 123"));
    EXPECT_EQ(SustituirPartesVariables(QStringLiteral("Customer \\ X, invoice \\X."),
                                       {QStringLiteral("7"), QStringLiteral("\\X")}),
              QStringLiteral("Customer 7, invoice \\X."));
    EXPECT_EQ(
        SustituirPartesVariables(QStringLiteral("Line one\r\nline \\X \\X"), {QStringLiteral("2")}),
        QStringLiteral("Line one line 2 \\X"));
}

TEST(TranslationCache, KeepsPairsEvenWhenTheTranslationIsTheText) {
    TranslationCache cache;
    EXPECT_EQ(cache.find(QStringLiteral("Obra")), std::nullopt);
    cache.store(QStringLiteral("Obra"), QStringLiteral("Obra"));
    cache.store(QStringLiteral("Cliente"), QStringLiteral("Customer"));
    cache.store(QStringLiteral("Cliente"), QStringLiteral("Client"));
    EXPECT_EQ(cache.find(QStringLiteral("Obra")), QStringLiteral("Obra"));
    EXPECT_EQ(cache.find(QStringLiteral("Cliente")), QStringLiteral("Client"));
    EXPECT_EQ(cache.find(QStringLiteral("obra")), std::nullopt);
    EXPECT_EQ(cache.size(), 2);
}

TEST(TranslationCache, ReachingTheLimitDropsTheOldestPairs) {
    TranslationCache cache;
    auto text = [](int i) { return QStringLiteral("Texto %1").arg(i); };
    for (int i = 0; i < TranslationCache::kLimite - 1; ++i)
        cache.store(text(i), QString::number(i));
    EXPECT_EQ(cache.size(), 10000);
    // A new translation of an old text keeps its place among the oldest.
    cache.store(text(0), QStringLiteral("nuevo"));
    EXPECT_EQ(cache.find(text(0)), QStringLiteral("nuevo"));
    EXPECT_EQ(cache.size(), 10000);
    cache.store(text(10000), QStringLiteral("10000"));
    EXPECT_EQ(cache.size(), 9000);
    for (int i : {0, 500, 1000})
        EXPECT_FALSE(cache.contains(text(i))) << i;
    for (int i : {1001, 5000, 10000})
        EXPECT_EQ(cache.find(text(i)), QString::number(i)) << i;
    // Dropped texts can come back.
    cache.store(text(0), QStringLiteral("0"));
    EXPECT_EQ(cache.size(), 9001);
}

} // namespace
} // namespace co
