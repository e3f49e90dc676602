// Number templates: the load from the general parameters, the format a field
// gets, and the prompts of `ConfigurarPlantilla`.
#include "core/number_templates.h"

#include "core/key_value_block.h"
#include "support/layer_fixture.h"

#include <gtest/gtest.h>

namespace co {
namespace {

const QString kExt = QStringLiteral("PlantillaNumerica1=#,##0.000 Cantidad,Peso\r\n"
                                    "PlantillaNumerica2=#,###.#### Precio,Tarifa\r\n"
                                    "PlantillaNumerica5=0.# Dias");

TEST(NumberTemplatesLoad, EachTemplateHasItsMaskAndFragments) {
    const PlantillasNumericas p =
        CargarPlantillasNumericas(QStringLiteral("#.##"), kExt, QStringLiteral("0.00"));
    EXPECT_EQ(p.mascaraGlobal, QStringLiteral("#.##"));
    EXPECT_EQ(p.plantillas[0].mascara, QStringLiteral("#,##0.000"));
    EXPECT_EQ(p.plantillas[0].fragmentos,
              QStringList({QStringLiteral("Cantidad"), QStringLiteral("Peso")}));
    EXPECT_EQ(p.plantillas[1].fragmentos,
              QStringList({QStringLiteral("Precio"), QStringLiteral("Tarifa")}));
    EXPECT_EQ(p.plantillas[4].mascara, QStringLiteral("0.#"));
}

TEST(NumberTemplatesLoad, MissingTemplateTakesTheGlobalMaskAndNoFragments) {
    const PlantillasNumericas p = CargarPlantillasNumericas(QStringLiteral("#.##"), kExt);
    for (int i : {2, 3}) {
        EXPECT_EQ(p.plantillas[static_cast<std::size_t>(i)].mascara, QStringLiteral("#.##"));
        EXPECT_TRUE(p.plantillas[static_cast<std::size_t>(i)].fragmentos.isEmpty());
    }
}

TEST(NumberTemplatesLoad, EmptyOrNingunaKeepTheMaskInForce) {
    for (const QString &std : {QString(), QStringLiteral("Ninguna")}) {
        const PlantillasNumericas p =
            CargarPlantillasNumericas(std, QString(), QStringLiteral("0.00"));
        EXPECT_EQ(p.mascaraGlobal, QStringLiteral("0.00"));
        EXPECT_EQ(p.plantillas[2].mascara, QStringLiteral("0.00"));
    }
}

TEST(NumberTemplatesLoad, SwitchIsOnOnlyForExactSi) {
    EXPECT_TRUE(
        CargarPlantillasNumericas({}, kExt + QStringLiteral("\r\nPlantillasExt=SI")).PlantillasExt);
    EXPECT_FALSE(
        CargarPlantillasNumericas({}, kExt + QStringLiteral("\r\nPlantillasExt=si")).PlantillasExt);
    EXPECT_FALSE(CargarPlantillasNumericas({}, kExt).PlantillasExt);
}

TEST(NumberTemplatesFormat, FirstTemplateWithAFragmentOfTheNameWins) {
    const PlantillasNumericas p = CargarPlantillasNumericas(QStringLiteral("#.##"), kExt);
    EXPECT_EQ(p.FormatoCampo(QStringLiteral("PrecioCoste")), QStringLiteral("#,###.####"));
    EXPECT_EQ(p.FormatoCampo(QStringLiteral("CantidadServida")), QStringLiteral("#,##0.000"));
    // Holds fragments of templates 1 and 2: the first one wins.
    EXPECT_EQ(p.FormatoCampo(QStringLiteral("PrecioPorCantidad")), QStringLiteral("#,##0.000"));
    EXPECT_EQ(p.FormatoCampo(QStringLiteral("DiasVencimiento")), QStringLiteral("0.#"));
    EXPECT_EQ(p.FormatoCampo(QStringLiteral("Importe")), QStringLiteral("#.##"));
}

TEST(NumberTemplatesFormat, DefaultBlockCoversQuantitiesAndPrices) {
    const PlantillasNumericas p =
        CargarPlantillasNumericas(QStringLiteral("0.##"), PlantillasPorDefecto());
    EXPECT_EQ(p.plantillas[0].fragmentos.size(), 15);
    EXPECT_EQ(p.FormatoCampo(QStringLiteral("LoteOptimo")), QStringLiteral("#,###.##"));
    EXPECT_EQ(p.FormatoCampo(QStringLiteral("TarifaVenta")), QStringLiteral("#,###.##"));
    EXPECT_EQ(p.FormatoCampo(QStringLiteral("Importe")), QStringLiteral("0.##"));
}

class ConfigureTemplate : public ::testing::Test {
protected:
    ScriptedMessages port_;
    Messenger mensajes_{&port_};
};

TEST_F(ConfigureTemplate, PromptsAndWritesTheTemplateKeepingTheRest) {
    QString block = kExt;
    port_.answer(QStringLiteral(" #,##0.00 "));
    port_.answer(QStringLiteral("Horas, Kilos ,Metros"));
    ASSERT_TRUE(ConfigurarPlantilla(3, block, mensajes_));
    EXPECT_EQ(port_.texts(),
              QStringList(
                  {QStringLiteral("Introduzca el formato de la plantilla número 3"),
                   QStringLiteral("Introduzca los nombres de los campos para la plantilla número 3 "
                                  "separados por comas")}));
    EXPECT_EQ(port_.shown().value(0).kind, u'P');
    QString value;
    memo::ValorClave(block, QStringLiteral("PlantillaNumerica3"), value);
    EXPECT_EQ(value, QStringLiteral("#,##0.00 Horas,Kilos,Metros"));
    EXPECT_TRUE(block.startsWith(kExt));
    const PlantillasNumericas p = CargarPlantillasNumericas(QStringLiteral("#.##"), block);
    EXPECT_EQ(p.FormatoCampo(QStringLiteral("MetrosCubicos")), QStringLiteral("#,##0.00"));
}

TEST_F(ConfigureTemplate, UnansweredPromptsKeepTheCurrentTemplate) {
    QString block = kExt;
    ASSERT_TRUE(ConfigurarPlantilla(2, block, mensajes_));
    EXPECT_EQ(block, kExt);
}

TEST_F(ConfigureTemplate, BadNumberOrFormatLeavesTheBlock) {
    QString block = kExt;
    EXPECT_FALSE(ConfigurarPlantilla(0, block, mensajes_));
    EXPECT_FALSE(ConfigurarPlantilla(6, block, mensajes_));
    EXPECT_TRUE(port_.shown().isEmpty());
    port_.answer(QStringLiteral("#,##0 .00"));
    EXPECT_FALSE(ConfigurarPlantilla(4, block, mensajes_));
    port_.answer(QString());
    EXPECT_FALSE(ConfigurarPlantilla(4, block, mensajes_));
    EXPECT_EQ(block, kExt);
}

} // namespace
} // namespace co
