#include "core/failure_handler.h"
#include "core/messages.h"

#include "support/gtest_qt_printing.h"

#include <gtest/gtest.h>

namespace co {
namespace {

FailureDecision decide(const char *text) {
    return GestionExcepciones(QString::fromUtf8(text));
}

const QString kAdvertencia = QStringLiteral("Advertencia");
const QString kError = QStringLiteral("Error");
const QString kIgnorar = QStringLiteral("IGNORAR");

TEST(GestionExcepciones, KeyViolationAnywhereInTheText) {
    for (const char *t : {"Key violation.", "Key violation.\nTable: OBRA",
                          "General SQL error. Key violation. Index: Primary"}) {
        const FailureDecision d = decide(t);
        EXPECT_EQ(d.kind, kAdvertencia) << t;
        EXPECT_EQ(d.message, QStringLiteral("¡ Ya existe el registro !")) << t;
        EXPECT_FALSE(d.rebuild);
    }
}

TEST(GestionExcepciones, RequiredFieldKeepsTheSpacingOfTheDeletions) {
    EXPECT_EQ(decide("Field 'Codigo' must have a value").message,
              QStringLiteral("¡ Debe introducir un valor en el campo 'Codigo'  !"));
    EXPECT_EQ(decide("Field 'FechaObra' must have a value.").message,
              QStringLiteral("¡ Debe introducir un valor en el campo 'FechaObra' . !"));
    EXPECT_EQ(decide("Field 'Codigo' must have a value").kind, kAdvertencia);
}

TEST(GestionExcepciones, ExactRowsNeedTheWholeText) {
    EXPECT_EQ(decide("Dataset not in edit or insert mode").message,
              QStringLiteral("¡ Debe estar en modo edición !"));
    const FailureDecision d = decide("Dataset not in edit or insert mode.");
    EXPECT_EQ(d.kind, kAdvertencia);
    EXPECT_EQ(d.message, QStringLiteral("Dataset not in edit or insert mode."));
    EXPECT_EQ(decide("Unable to insert a line").message,
              QStringLiteral("¡ La cantidad de información es excesiva !. Seleccione menos datos "
                             "o segrégelos en varios bloques diferentes."));
}

TEST(GestionExcepciones, DeletedRecordMatchesInAnyCase) {
    const QString expected =
        QStringLiteral("¡Este registro ya no está disponible en la vista actual!. Para ver la "
                       "nueva situación vuelva a seleccionar o filtrar los datos que desee.");
    EXPECT_EQ(decide("Record/Key Deleted.").message, expected);
    EXPECT_EQ(decide("record/key deleted").message, expected);
}

TEST(GestionExcepciones, StatementErrorsNameTheWordAndLine) {
    EXPECT_EQ(decide("Invalid use of keyword. Token: FROM. Line Number: 3").message,
              QStringLiteral("¡ La sentencia utilizada es incorrecta ! Palabra: FROM en la línea "
                             "número: 3"));
    EXPECT_EQ(decide("Token not found. Token: ). Line Number: 1").message,
              QStringLiteral("¡ La sentencia utilizada es incorrecta ! Palabra: ) en la línea "
                             "número: 1"));
}

TEST(GestionExcepciones, SecondGroupIsAnErrorThatEndsTheApplication) {
    FailureDecision d = decide("Access violation at address 0040A1B2");
    EXPECT_EQ(d.kind, kError);
    EXPECT_EQ(d.message, QStringLiteral("¡Se ha producido un error indeterminado en el sistema!. "
                                        "En estas condiciones es recomendable reiniciar la "
                                        "computadora."));
    d = decide("Table does not exist. File: OBRA.DB");
    EXPECT_EQ(d.kind, kError);
    EXPECT_EQ(d.message,
              QStringLiteral("¡ La tabla no existe !. Compruebe la Base de Datos por favor."));
}

TEST(GestionExcepciones, LaterRowsOverwriteTheMessageButNotTheKind) {
    const FailureDecision d = decide("Key violation after Access violation");
    EXPECT_EQ(d.kind, kAdvertencia);
    EXPECT_TRUE(d.message.startsWith(QStringLiteral("¡Se ha producido un error indeterminado")));
}

TEST(GestionExcepciones, IndexFailuresAskForARebuild) {
    FailureDecision d = decide("Index is out of date. File: PARTEOB.PX");
    EXPECT_EQ(d.kind, kError);
    EXPECT_TRUE(d.rebuild);
    EXPECT_EQ(d.message, QStringLiteral("TRADUCIR: Index is out of date. File: PARTEOB.PX"));

    d = decide("No index currently active");
    EXPECT_EQ(d.kind, kAdvertencia);
    EXPECT_EQ(d.message, QStringLiteral("No hay un índice activo en la tabla"));
    EXPECT_TRUE(d.rebuild);

    d = decide("No index currently active on OBRA");
    EXPECT_EQ(
        d.message,
        QStringLiteral("¡La tabla no está disponible. Cierre la ventana e inténtelo de nuevo."));
    EXPECT_FALSE(d.rebuild);
}

TEST(GestionExcepciones, ThirdGroupSilences) {
    for (const char *t :
         {"Table is busy", "Table is busy.\nTable: OBRA", "Cursor unknown",
          "Cannot focus a disabled or invisible window", "Error creating cursor handle",
          "'0.0' is not a valid floating point value", "Key violation. Table is busy"}) {
        const FailureDecision d = decide(t);
        EXPECT_EQ(d.kind, kIgnorar) << t;
        EXPECT_EQ(d.message, kIgnorar) << t;
    }
    EXPECT_EQ(decide("Cannot focus a disabled or invisible window.").kind, kAdvertencia);
    EXPECT_EQ(decide("'1.0' is not a valid floating point value").message,
              QStringLiteral("¡ El dato introducido no es válido !. Repita por favor."));
}

TEST(GestionExcepciones, UnknownTextIsAWarningAsItIs) {
    const FailureDecision d = decide("Something odd happened");
    EXPECT_EQ(d.kind, kAdvertencia);
    EXPECT_EQ(d.message, QStringLiteral("Something odd happened"));
    EXPECT_EQ(decide("").kind, kAdvertencia);
    EXPECT_TRUE(decide("").message.isEmpty());
}

TEST(GestionExcepciones, TooManyMemoFieldsIsAPlainDialogThatClosesTheForm) {
    const FailureDecision d = decide("Key violation; Invalid BLOB handle in record buffer");
    EXPECT_EQ(d.kind, QStringLiteral("Plano"));
    EXPECT_EQ(d.message, QStringLiteral("¡El número de campos Memo que se intenta manejar es "
                                        "excesivo!. Acote la consulta."));
}

TEST(TraducirPrefijo, OnlyTextsWithThePrefixAreTranslated) {
    EXPECT_EQ(TraducirPrefijo(QStringLiteral("Field 'X' not found")),
              QStringLiteral("Field 'X' not found"));
    EXPECT_EQ(TraducirPrefijo(QStringLiteral("TRADUCIR: Field 'Codigo' not found")),
              QStringLiteral("El campo 'Codigo' no está definido."));
    EXPECT_EQ(
        TraducirPrefijo(QStringLiteral("TRADUCIR:Field 'Precio' is not of the expected type")),
        QStringLiteral("El campo 'Precio' no es del tipo adecuado."));
    EXPECT_EQ(TraducirPrefijo(QStringLiteral("TRADUCIR: At beginning of table")),
              QStringLiteral("Al principio de la tabla."));
    EXPECT_EQ(TraducirPrefijo(QStringLiteral("TRADUCIR: Index is out of date. File: A.PX")),
              QStringLiteral("El índice no está actualizado.. File: A.PX"));
    EXPECT_EQ(TraducirPrefijo(QStringLiteral("TRADUCIR: Sin cambios")),
              QStringLiteral("Sin cambios"));
}

TEST(TraducirPrefijo, SomePhrasesReplaceTheWholeText) {
    EXPECT_EQ(TraducirPrefijo(QStringLiteral(
                  "TRADUCIR: An error occurred while attempting to initialize the Borland "
                  "Database Engine (error $2501)")),
              QStringLiteral("Se ha producido un error al inicializar el BDE."));
    EXPECT_EQ(TraducirPrefijo(QStringLiteral("TRADUCIR: Some internal limit (see below)")),
              QStringLiteral("¡Se ha producido un error de límite interno!. Cierre alguna "
                             "aplicación e inténtelo de nuevo."));
}

struct Shown {
    ScriptedMessages port;
    Messenger messenger{&port};
    int restored = 0, busy = 0, closed = 0, rebuilt = 0, terminated = 0;
    QStringList incidents;
    FailureHooks hooks;
    Shown() {
        messenger.setTerminator([this] { ++terminated; });
        hooks.restoreCursor = [this] { ++restored; };
        hooks.busyCursor = [this] { ++busy; };
        hooks.closeSender = [this] { ++closed; };
        hooks.rebuild = [this] { ++rebuilt; };
        hooks.registerIncident = [this](const FailureDecision &d) { incidents << d.kind; };
    }
    void show(const char *text) {
        MostrarFallo(GestionExcepciones(QString::fromUtf8(text)), messenger, hooks);
    }
};

TEST(MostrarFallo, BusyTableShowsNothingAndRestoresTheCursor) {
    Shown s;
    s.show("Table is busy");
    EXPECT_TRUE(s.port.shown().isEmpty());
    EXPECT_EQ(s.restored, 1);
    EXPECT_EQ(s.terminated, 0);
}

TEST(MostrarFallo, WarningGoesThroughMensajeA) {
    Shown s;
    s.show("Something odd happened");
    ASSERT_EQ(s.port.shown().size(), 1);
    EXPECT_EQ(s.port.shown().at(0).kind, u'A');
    EXPECT_EQ(s.port.shown().at(0).text, QStringLiteral("Something odd happened"));
    EXPECT_EQ(s.terminated, 0);
    EXPECT_EQ(s.incidents, QStringList{kAdvertencia});
}

TEST(MostrarFallo, AccessViolationTerminatesAfterItsDialog) {
    Shown s;
    s.show("Access violation at address 00000000");
    ASSERT_EQ(s.port.shown().size(), 1);
    EXPECT_EQ(s.port.shown().at(0).kind, u'E');
    EXPECT_EQ(s.busy, 1);
    EXPECT_EQ(s.terminated, 1);
    EXPECT_TRUE(s.incidents.isEmpty());
}

TEST(MostrarFallo, TranslatedIndexFailureIsShownInSpanishAndRebuilt) {
    Shown s;
    s.show("Index is out of date");
    ASSERT_EQ(s.port.shown().size(), 1);
    EXPECT_EQ(s.port.shown().at(0).text, QStringLiteral("El índice no está actualizado."));
    EXPECT_EQ(s.rebuilt, 1);
}

TEST(MostrarFallo, PlainDialogClosesTheSender) {
    Shown s;
    s.show("Invalid BLOB handle in record buffer");
    ASSERT_EQ(s.port.shown().size(), 1);
    EXPECT_EQ(s.port.shown().at(0).kind, u' ');
    EXPECT_EQ(s.closed, 1);
    EXPECT_EQ(s.terminated, 0);
}

TEST(Messenger, EveryMessageFunctionTranslatesThePrefix) {
    ScriptedMessages port;
    Messenger m(&port);
    m.MensajeI(QStringLiteral("TRADUCIR: At beginning of table"));
    m.MensajeA(QStringLiteral("TRADUCIR no es prefijo"));
    m.setAccumulate(true);
    m.MensajeA(QStringLiteral("TRADUCIR: Field 'A' not found"));
    EXPECT_EQ(port.texts(), QStringList({QStringLiteral("Al principio de la tabla."),
                                         QStringLiteral("TRADUCIR no es prefijo")}));
    EXPECT_EQ(m.takeAccumulated(), QStringLiteral("El campo 'A' no está definido.\r\n"));
}

} // namespace
} // namespace co
