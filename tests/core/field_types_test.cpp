#include "core/field_types.h"
#include "core/style_names.h"

#include "support/gtest_qt_printing.h"

#include <gtest/gtest.h>

#include <set>

namespace co {
namespace {

TEST(TipoCampo, NamesRoundTrip) {
    for (int i = 0; i <= static_cast<int>(TipoCampo::ftTypedBinary); ++i) {
        const QString name = TipoCampoANombre(i);
        EXPECT_TRUE(name.startsWith(QStringLiteral("ft"))) << i;
        EXPECT_EQ(static_cast<int>(NombreATipoCampo(name)), i) << name.toStdString();
    }
}

TEST(TipoCampo, NumbersFollowTheFrameworkOrder) {
    EXPECT_EQ(TipoCampoANombre(1), QStringLiteral("ftString"));
    EXPECT_EQ(TipoCampoANombre(3), QStringLiteral("ftInteger"));
    EXPECT_EQ(TipoCampoANombre(11), QStringLiteral("ftDateTime"));
    EXPECT_EQ(TipoCampoANombre(16), QStringLiteral("ftMemo"));
    EXPECT_EQ(TipoCampoANombre(TipoCampo::ftTypedBinary), QStringLiteral("ftTypedBinary"));
}

TEST(TipoCampo, UnknownNumbersAndWords) {
    EXPECT_EQ(TipoCampoANombre(-1), QStringLiteral("ftUnknown"));
    EXPECT_EQ(TipoCampoANombre(22), QStringLiteral("ftUnknown"));
    EXPECT_EQ(NombreATipoCampo(QStringLiteral("ftSmallInt")), TipoCampo::ftSmallint);
    EXPECT_EQ(NombreATipoCampo(QStringLiteral("ftsmallint")), TipoCampo::ftUnknown);
    EXPECT_EQ(NombreATipoCampo(QStringLiteral("ftLargeint")), TipoCampo::ftUnknown);
    EXPECT_EQ(NombreATipoCampo(QString()), TipoCampo::ftUnknown);
    EXPECT_EQ(NombreATipoCampo(QStringLiteral("ftString ")), TipoCampo::ftUnknown);
}

TEST(ValorUltimoRegistro, SeekValueByKeyType) {
    EXPECT_EQ(ValorUltimoRegistro(TipoCampo::ftString), QStringLiteral("{"));
    EXPECT_EQ(ValorUltimoRegistro(TipoCampo::ftDateTime), QStringLiteral("31/12/9940 23:59:59"));
    EXPECT_EQ(ValorUltimoRegistro(TipoCampo::ftDate), QStringLiteral("31/12/9940 23:59:59"));
    EXPECT_EQ(ValorUltimoRegistro(TipoCampo::ftInteger), QStringLiteral("100000000"));
    EXPECT_EQ(ValorUltimoRegistro(TipoCampo::ftSmallint), QStringLiteral("10000"));
    EXPECT_TRUE(ValorUltimoRegistro(TipoCampo::ftFloat).isEmpty());
    EXPECT_TRUE(ValorUltimoRegistro(TipoCampo::ftAutoInc).isEmpty());
}

TEST(Colores, EveryNameReadsBackAsItself) {
    const QStringList names = NombresColores();
    ASSERT_EQ(names.size(), 22);
    EXPECT_EQ(names.first(), QStringLiteral("Aguamarina"));
    EXPECT_EQ(names.last(), QStringLiteral("Gris Medio"));
    std::set<std::uint32_t> values;
    for (const QString &name : names) {
        const auto colour = NombreAColor(name);
        ASSERT_TRUE(colour.has_value()) << name.toStdString();
        values.insert(*colour);
        EXPECT_EQ(ColorANombre(*colour), name);
    }
    EXPECT_EQ(values.size(), 22u);
}

TEST(Colores, KnownValuesAndUnknownOnes) {
    EXPECT_EQ(NombreAColor(QStringLiteral("Rojo")), 0xFF0000u);
    EXPECT_EQ(NombreAColor(QStringLiteral("Azul Marino")), 0x000080u);
    EXPECT_EQ(ColorANombre(0xFFFFFF), QStringLiteral("Blanco"));
    EXPECT_FALSE(NombreAColor(QStringLiteral("rojo")).has_value());
    EXPECT_FALSE(NombreAColor(QString()).has_value());
    EXPECT_TRUE(ColorANombre(0x123456).isEmpty());
}

TEST(EstilosFuente, BothWays) {
    const char *pairs[][2] = {{"fsBold", "Negrita"},
                              {"fsItalic", "Italica"},
                              {"fsUnderline", "Subrayado"},
                              {"fsStrikeout", "Tachado"}};
    for (const auto &p : pairs) {
        EXPECT_EQ(EstiloANombre(QString::fromLatin1(p[0])), QString::fromLatin1(p[1]));
        EXPECT_EQ(NombreAEstilo(QString::fromLatin1(p[1])), QString::fromLatin1(p[0]));
    }
    EXPECT_TRUE(EstiloANombre(QStringLiteral("Negrita")).isEmpty());
    EXPECT_TRUE(NombreAEstilo(QStringLiteral("fsBold")).isEmpty());
    EXPECT_TRUE(NombreAEstilo(QStringLiteral("negrita")).isEmpty());
}

} // namespace
} // namespace co
