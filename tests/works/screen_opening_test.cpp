// The works screens as the program opens them, on both back-ends: found by
// form name in the registry, opened through the shared routine with the
// session's translation (texts translated, stored values of lists kept), and
// handlers added by a screen running after the family's instead of replacing it.
#include "core/sql_text.h"
#include "core/translation.h"
#include "support/screen_test.h"
#include "works/incidents_master.h"
#include "works/screens.h"
#include "works_fixture.h"

#include <gtest/gtest.h>

namespace co::works {
namespace {

using namespace co::forms;

using ScreenOpening = WorksScreenTest;

TEST_P(ScreenOpening, TheRegistryFindsEachWorksScreenByFormName) {
    RegistroPantallas registro;
    RegistrarPantallasObras(registro);
    EXPECT_EQ(registro.Nombres(), (QStringList{"fOBRAUNID", "fOBRAMAQU", "fOBRASUBC", "fOBRAINCI",
                                               "fNOMICATE", "fOBRAPARA"}));
    EXPECT_TRUE(registro.Contiene(QStringLiteral("FOBRAinci")));
    EXPECT_EQ(registro.Crear(QStringLiteral("fOBRAOBRA"), *datos_), nullptr);
    EntornoPantallas entorno{*datos_, *creador_};
    EXPECT_EQ(registro.Abrir(QStringLiteral("fOBRAOBRA"), entorno), nullptr);
    // Every registered screen opens, its tables made when missing.
    for (const QString &nombre : registro.Nombres()) {
        const auto pantalla = registro.Abrir(nombre, entorno);
        ASSERT_NE(pantalla, nullptr) << nombre.toStdString();
        EXPECT_EQ(pantalla->Name, nombre);
        EXPECT_TRUE(pantalla->Table1().Active()) << nombre.toStdString();
    }
}

TEST_P(ScreenOpening, TheSessionsLanguageTranslatesTextsButNotStoredValues) {
    for (const auto &[clave, texto] :
         QList<QPair<QString, QString>>{{"Maestro de Incidencias", "Incidents"},
                                        {"Código", "Code"},
                                        {"Imputable", "Chargeable"},
                                        {"SI", "YES"}})
        general(QStringLiteral("INSERT INTO TXIDIOMA (Idioma, ClaveTexto, Texto) VALUES "
                               "('Ingles', %1, %2)")
                    .arg(Entrecomillar(clave), Entrecomillar(texto)));
    Translator ingles(*datos_, QStringLiteral("Ingles"));
    test::ScreenTest<TfOBRAINCI> s(*datos_);
    s.environment().traductor = &ingles;
    ASSERT_TRUE(s.open());
    EXPECT_EQ(s.form().Caption, QStringLiteral("Incidents"));
    const QList<GridColumn> &columnas = s.form().DBGrid1().Columns;
    EXPECT_EQ(columnas[0].Title, QStringLiteral("Code"));
    EXPECT_EQ(columnas[3].Title, QStringLiteral("Chargeable"));
    EXPECT_EQ(columnas[3].PickList, (QStringList{"SI", "NO"}));

    // Without a language nothing changes.
    Translator ninguno(*datos_, {});
    test::ScreenTest<TfOBRAINCI> e(*datos_);
    e.environment().traductor = &ninguno;
    ASSERT_TRUE(e.open());
    EXPECT_EQ(e.form().Caption, QStringLiteral("Maestro de Incidencias"));
}

TEST_P(ScreenOpening, AddedHandlersRunAfterTheFamilysAndEventsBindAtOnce) {
    test::ScreenTest<TfOBRAINCI> s(*datos_);
    QStringList orden;
    s.form().SetHandler(QStringLiteral("Prueba"), [&](Component *) { orden << "familia"; });
    s.form().AddHandler(QStringLiteral("prueba"), [&](Component *) { orden << "pantalla"; });
    s.form().CallHandler(QStringLiteral("PRUEBA"));
    EXPECT_EQ(orden, (QStringList{"familia", "pantalla"}));

    // A new record still takes the family's defaults, and then the added rule.
    s.form().AlEvento(s.form().Table1(), EventoDatos::NewRecord, [&](Component *) {
        orden << s.form().Table1().FieldByName(QStringLiteral("Tipo")).AsString();
    });
    ASSERT_TRUE(s.open());
    ASSERT_TRUE(s.click(QStringLiteral("Agregar")));
    EXPECT_EQ(orden.value(2), QStringLiteral("Trabajo"));
}

CO_ON_BOTH_BACKENDS(ScreenOpening);

} // namespace
} // namespace co::works
