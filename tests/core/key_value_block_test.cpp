// Key=value blocks of memo fields: reading a key and setting one, with values
// that hold "=" and "·", any line-end style, and keys that cannot be written.
#include "core/key_value_block.h"

#include "support/layer_fixture.h"

#include <gtest/gtest.h>

namespace co::memo {
namespace {

const QString kDot = QString(QChar(kSaltoLinea));

TEST(KeyValueBlockRead, FindsKeysWhateverTheirCaseAndTheLineEnds) {
    for (const QString &eol :
         {QStringLiteral("\r\n"), QStringLiteral("\n"), QStringLiteral("\r")}) {
        const QString block = QStringLiteral("ServidorSMTP=smtp.ejemplo.es") + eol +
                              QStringLiteral("PuertoSSL=465") + eol;
        QString value;
        EXPECT_TRUE(ValorClave(block, QStringLiteral("puertossl"), value));
        EXPECT_EQ(value, QStringLiteral("465"));
        EXPECT_TRUE(ValorClave(block, QStringLiteral("ServidorSMTP"), value));
        EXPECT_EQ(value, QStringLiteral("smtp.ejemplo.es"));
    }
}

TEST(KeyValueBlockRead, ValueKeepsEqualsSignsDotsAndBlanks) {
    const QString block = QStringLiteral("Filtro=Campo = 'a=b'\r\nTexto= uno") + kDot +
                          QStringLiteral("dos \r\nClienteSMTP(Masivo)=Indy");
    QString value;
    ValorClave(block, QStringLiteral("Filtro"), value);
    EXPECT_EQ(value, QStringLiteral("Campo = 'a=b'"));
    ValorClave(block, QStringLiteral("Texto"), value);
    EXPECT_EQ(value, QStringLiteral(" uno") + kDot + QStringLiteral("dos "));
    ValorClave(block, QStringLiteral("ClienteSMTP(Masivo)"), value);
    EXPECT_EQ(value, QStringLiteral("Indy"));
    EXPECT_EQ(DecodificarSaltos(QStringLiteral("uno") + kDot + QStringLiteral("dos")),
              QStringLiteral("uno\r\ndos"));
}

TEST(KeyValueBlockRead, MissingOrEmptyKeyGivesTheDefault) {
    const QString block = QStringLiteral("Vacia=\r\nLinea sin igual\r\nA=1");
    QString value = QStringLiteral("sin tocar");
    EXPECT_FALSE(ValorClave(block, QStringLiteral("Vacia"), value, QStringLiteral("def")));
    EXPECT_EQ(value, QStringLiteral("def"));
    EXPECT_FALSE(ValorClave(block, QStringLiteral("Otra"), value, QStringLiteral("x")));
    EXPECT_EQ(value, QStringLiteral("x"));
    EXPECT_FALSE(ValorClave(block, QStringLiteral("Linea sin igual"), value));
    EXPECT_EQ(value, QString());
    EXPECT_EQ(BuscarClave(block, QStringLiteral("Vacia")), QString());
    EXPECT_EQ(BuscarClave(block, QStringLiteral("Otra")), std::nullopt);
    EXPECT_EQ(BuscarClave(QString(), QStringLiteral("A")), std::nullopt);
}

TEST(KeyValueBlockRead, FirstOfTwoEqualKeysWins) {
    const QString block = QStringLiteral("Clave=primero\r\nCLAVE=segundo");
    QString value;
    ValorClave(block, QStringLiteral("Clave"), value);
    EXPECT_EQ(value, QStringLiteral("primero"));
    EXPECT_EQ(Claves(block), QStringList({QStringLiteral("Clave"), QStringLiteral("CLAVE")}));
}

TEST(KeyValueBlockWrite, RewritesTheKeyInPlaceAndLeavesTheRestByteForByte) {
    QString block = QStringLiteral("; nota\r\nA=1\nB=2\r\nb=3\r\nC=x=y");
    ASSERT_TRUE(ModificarClave(QStringLiteral("b"), QStringLiteral("nuevo=valor"), block));
    EXPECT_EQ(block, QStringLiteral("; nota\r\nA=1\nb=nuevo=valor\r\nb=3\r\nC=x=y"));
}

TEST(KeyValueBlockWrite, AddsAMissingKeyWithTheBlocksLineEnd) {
    QString crlf = QStringLiteral("A=1\r\nB=2");
    ASSERT_TRUE(ModificarClave(QStringLiteral("C"), QStringLiteral("3"), crlf));
    EXPECT_EQ(crlf, QStringLiteral("A=1\r\nB=2\r\nC=3"));
    QString lf = QStringLiteral("A=1\n");
    ASSERT_TRUE(ModificarClave(QStringLiteral("C"), QStringLiteral("3"), lf));
    EXPECT_EQ(lf, QStringLiteral("A=1\nC=3"));
    QString empty;
    ASSERT_TRUE(ModificarClave(QStringLiteral("C"), QString(), empty));
    EXPECT_EQ(empty, QStringLiteral("C="));
}

TEST(KeyValueBlockWrite, LineBreaksInAValueBecomeDotsAndReadBack) {
    QString block = QStringLiteral("A=1");
    const QString text = QStringLiteral("línea uno\r\nlínea dos\nfin\r");
    ASSERT_TRUE(ModificarClave(QStringLiteral("Texto"), text, block));
    EXPECT_EQ(Lineas(block).size(), 2);
    QString value;
    ValorClave(block, QStringLiteral("Texto"), value);
    EXPECT_EQ(value, QStringLiteral("línea uno") + kDot + QStringLiteral("línea dos") + kDot +
                         QStringLiteral("fin") + kDot);
    QString a;
    ValorClave(block, QStringLiteral("A"), a);
    EXPECT_EQ(a, QStringLiteral("1"));
}

TEST(KeyValueBlockWrite, RefusesKeysThatCannotBeReadBack) {
    const QString original = QStringLiteral("A=1\r\nB=2");
    for (const QString &key :
         {QString(), QStringLiteral("  "), QStringLiteral("a=b"), QStringLiteral("dos\nlineas")}) {
        QString block = original;
        EXPECT_FALSE(ModificarClave(key, QStringLiteral("v"), block)) << key.toStdString();
        EXPECT_EQ(block, original);
    }
}

} // namespace
} // namespace co::memo
