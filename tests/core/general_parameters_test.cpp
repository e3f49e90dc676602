// The company's general parameters: the defaults and pages checked against the
// structure file, the save rules, and the record read and written on both
// back-ends.
#include "core/general_parameters.h"
#include "core/general_parameters_table.h"
#include "core/table_creation.h"

#include "support/layer_fixture.h"

#include <QFile>
#include <QHash>
#include <gtest/gtest.h>

namespace co {
namespace {

struct FieldDefinition {
    QString name;
    QString type;
    int size = 0;
    bool key = false;
};

// The fields of a table as the structure file defines them.
QList<FieldDefinition> structureOf(const QString &table) {
    QFile f(QStringLiteral(CO_SOURCE_DIR "/data/DATABASE.TXT"));
    EXPECT_TRUE(f.open(QIODevice::ReadOnly | QIODevice::Text));
    QList<FieldDefinition> fields;
    const QString prefix = table + QStringLiteral("/C/");
    while (!f.atEnd()) {
        const QString line = QString::fromUtf8(f.readLine()).trimmed().section(u'|', 0, 0);
        if (!line.startsWith(prefix))
            continue;
        const QStringList p = line.split(u'/');
        fields.append({p.value(3), p.value(4), p.value(5).toInt(), p.value(6) == u"*"});
    }
    return fields;
}

TEST(GeneralParametersDefinition, EveryPageFieldAndDefaultIsAFieldOfTheTable) {
    QHash<QString, FieldDefinition> byName;
    for (const FieldDefinition &f : structureOf(QStringLiteral("PARAGENE")))
        byName.insert(f.name, f);
    ASSERT_FALSE(byName.isEmpty());
    int onPages = 0;
    for (const PaginaParametros &page : PaginasPARAGENE()) {
        for (const QString &field : page.campos) {
            EXPECT_TRUE(byName.contains(field)) << field.toStdString();
            ++onPages;
        }
    }
    // Every field but the record number is on some page.
    EXPECT_EQ(onPages, byName.size() - 1);
    for (const auto &[field, value] : ValoresInicialesPARAGENE()) {
        ASSERT_TRUE(byName.contains(field)) << field.toStdString();
        const FieldDefinition &def = byName.value(field);
        QMetaType::Type expected = QMetaType::QString;
        if (def.type == u"ftSmallint" || def.type == u"ftInteger")
            expected = QMetaType::Int;
        else if (def.type == u"ftFloat")
            expected = QMetaType::Double;
        EXPECT_EQ(value.typeId(), expected) << field.toStdString();
        if (def.type == u"ftString") {
            EXPECT_LE(value.toString().size(), def.size) << field.toStdString();
        }
    }
}

TEST(GeneralParametersDefinition, ListedChoicesStartWithTheDefault) {
    QHash<QString, QVariant> defaults;
    for (const auto &[field, value] : ValoresInicialesPARAGENE())
        defaults.insert(field, value);
    for (const char *field :
         {"TipoCombinacionTramas", "FmtVisualizacionPrevia", "PlantillaNumericaStd"}) {
        const QStringList options = OpcionesCampoPARAGENE(QLatin1String(field));
        ASSERT_FALSE(options.isEmpty()) << field;
        EXPECT_EQ(options.first(), defaults.value(QLatin1String(field)).toString()) << field;
    }
    EXPECT_TRUE(OpcionesCampoPARAGENE(QStringLiteral("PlantillaNumericaStd"))
                    .contains(QStringLiteral("Ninguna")));
}

TEST(GeneralParametersSaveRules, EmptyStandardTemplateBecomesTheDefault) {
    for (const QVariant &empty : {QVariant(QString()), QVariant()}) {
        QVariantHash r{{QStringLiteral("PlantillaNumericaStd"), empty}};
        EXPECT_EQ(ComprobarGrabacionPARAGENE(r), QString());
        EXPECT_EQ(r.value(QStringLiteral("PlantillaNumericaStd")).toString(),
                  QStringLiteral("#,###.##"));
    }
    QVariantHash kept{{QStringLiteral("PlantillaNumericaStd"), QStringLiteral("Ninguna")}};
    EXPECT_EQ(ComprobarGrabacionPARAGENE(kept), QString());
    EXPECT_EQ(kept.value(QStringLiteral("PlantillaNumericaStd")).toString(),
              QStringLiteral("Ninguna"));
}

TEST(GeneralParametersSaveRules, SameEuroAndNationalCurrencyIsRefused) {
    QVariantHash same{{QStringLiteral("PlantillaNumericaStd"), QStringLiteral("0.##")},
                      {QStringLiteral("CodigoMonedaEuro"), 2},
                      {QStringLiteral("CodigoMonedaNacional"), QStringLiteral("2")}};
    EXPECT_EQ(ComprobarGrabacionPARAGENE(same),
              QStringLiteral("¡La Moneda Nacional y la Moneda Euro no pueden ser la misma!"));
    QVariantHash different{{QStringLiteral("CodigoMonedaEuro"), 1},
                           {QStringLiteral("CodigoMonedaNacional"), 2}};
    EXPECT_EQ(ComprobarGrabacionPARAGENE(different), QString());
    QVariantHash unset{{QStringLiteral("CodigoMonedaEuro"), QVariant()},
                       {QStringLiteral("CodigoMonedaNacional"), QVariant()}};
    EXPECT_EQ(ComprobarGrabacionPARAGENE(unset), QString());
    // 0 is no currency, as a new record holds it.
    QVariantHash ceros{{QStringLiteral("CodigoMonedaEuro"), 0},
                       {QStringLiteral("CodigoMonedaNacional"), QStringLiteral("0")}};
    EXPECT_EQ(ComprobarGrabacionPARAGENE(ceros), QString());
    QVariantHash uno{{QStringLiteral("CodigoMonedaEuro"), 0},
                     {QStringLiteral("CodigoMonedaNacional"), 1}};
    EXPECT_EQ(ComprobarGrabacionPARAGENE(uno), QString());
}

class GeneralParametersTable : public test::TablesOnDemandTest {
protected:
    void SetUp() override {
        TablesOnDemandTest::SetUp();
        if (HasFatalFailure())
            return;
        QString motivo;
        ASSERT_TRUE(creador_->CrearTabla(QStringLiteral("PARAGENE"), {}, {}, &motivo))
            << motivo.toStdString();
    }
    QVariantHash record() {
        const std::optional<QVariantHash> r = LeerParametrosGenerales(*datos_);
        EXPECT_TRUE(r.has_value());
        return r.value_or(QVariantHash{});
    }
};

TEST_P(GeneralParametersTable, NewRecordHoldsTheDefaultsOnce) {
    EXPECT_EQ(LeerParametrosGenerales(*datos_), std::nullopt);
    ASSERT_TRUE(CrearParametrosGenerales(*datos_));
    ASSERT_TRUE(CrearParametrosGenerales(*datos_));
    EXPECT_EQ(ok(QStringLiteral("SELECT COUNT(*) FROM PARAGENE")), QStringLiteral("1"));
    const QVariantHash r = record();
    for (const auto &[field, value] : ValoresInicialesPARAGENE()) {
        ASSERT_TRUE(r.contains(field)) << field.toStdString();
        if (value.typeId() == QMetaType::QString) {
            EXPECT_EQ(r.value(field).toString(), value.toString()) << field.toStdString();
        } else {
            EXPECT_DOUBLE_EQ(r.value(field).toDouble(), value.toDouble()) << field.toStdString();
        }
    }
    EXPECT_TRUE(r.value(QStringLiteral("RazonSocial")).toString().isEmpty());
    EXPECT_EQ(r.value(QStringLiteral("Idiomas")).toString().count(QStringLiteral("\r\n")), 8);
}

TEST_P(GeneralParametersTable, SaveAppliesTheRulesAndKeepsAwkwardText) {
    ASSERT_TRUE(CrearParametrosGenerales(*datos_));
    const QString name = QStringLiteral("Construcciones O'Brien, S.L. | Año=2026");
    const QString ext = QStringLiteral("PlantillaNumerica1=#,###.## Cantidad\r\nPlantillasExt=SI");
    ASSERT_TRUE(
        GrabarParametrosGenerales(*datos_, {{QStringLiteral("RazonSocial"), name},
                                            {QStringLiteral("plantillanumericastd"), QString()},
                                            {QStringLiteral("PlantillaNumericaExt"), ext},
                                            {QStringLiteral("CodigoMonedaEuro"), 1},
                                            {QStringLiteral("CodigoMonedaNacional"), 2},
                                            {QStringLiteral("Iva1"), 21.0}}));
    const QVariantHash r = record();
    EXPECT_EQ(r.value(QStringLiteral("RazonSocial")).toString(), name);
    EXPECT_EQ(r.value(QStringLiteral("PlantillaNumericaStd")).toString(),
              QStringLiteral("#,###.##"));
    EXPECT_EQ(r.value(QStringLiteral("PlantillaNumericaExt")).toString(), ext);
    EXPECT_EQ(r.value(QStringLiteral("CodigoMonedaNacional")).toInt(), 2);
    EXPECT_DOUBLE_EQ(r.value(QStringLiteral("Iva1")).toDouble(), 21.0);
    // Fields not given keep their values.
    EXPECT_EQ(r.value(QStringLiteral("TipoPortesVenta")).toString(), QStringLiteral("Debidos"));
    EXPECT_TRUE(messages_.texts().isEmpty()) << messages_.texts().join(u'\n').toStdString();
}

TEST_P(GeneralParametersTable, RefusedSaveWritesNothing) {
    ASSERT_TRUE(GrabarParametrosGenerales(
        *datos_, {{QStringLiteral("CodigoMonedaEuro"), 1},
                  {QStringLiteral("CodigoMonedaNacional"), 2},
                  {QStringLiteral("RazonSocial"), QStringLiteral("Antes")}}));
    messages_.clear();
    EXPECT_FALSE(GrabarParametrosGenerales(
        *datos_, {{QStringLiteral("CodigoMonedaEuro"), 3},
                  {QStringLiteral("CodigoMonedaNacional"), 3},
                  {QStringLiteral("RazonSocial"), QStringLiteral("Después")}}));
    EXPECT_EQ(messages_.texts(),
              QStringList({QStringLiteral(
                  "¡La Moneda Nacional y la Moneda Euro no pueden ser la misma!")}));
    EXPECT_EQ(messages_.shown().value(0).kind, u'A');
    messages_.clear();
    EXPECT_FALSE(GrabarParametrosGenerales(
        *datos_, {{QStringLiteral("RazonSocial"), QStringLiteral("Después")},
                  {QStringLiteral("Nombre = 'x' --"), QStringLiteral("1")}}));
    EXPECT_EQ(messages_.texts().size(), 1);
    const QVariantHash r = record();
    EXPECT_EQ(r.value(QStringLiteral("RazonSocial")).toString(), QStringLiteral("Antes"));
    EXPECT_EQ(r.value(QStringLiteral("CodigoMonedaEuro")).toInt(), 1);
}

TEST_P(GeneralParametersTable, FirstSaveCreatesTheRecordWithDefaults) {
    ASSERT_TRUE(
        GrabarParametrosGenerales(*datos_, {{QStringLiteral("CIF"), QStringLiteral("B12345678")}}));
    const QVariantHash r = record();
    EXPECT_EQ(r.value(QStringLiteral("CIF")).toString(), QStringLiteral("B12345678"));
    EXPECT_EQ(r.value(QStringLiteral("IdRegistro")).toInt(), 1);
    EXPECT_EQ(r.value(QStringLiteral("CaracterSeparadorASCII")).toString(), QStringLiteral("@"));
}

CO_ON_BOTH_BACKENDS(GeneralParametersTable);

} // namespace
} // namespace co
