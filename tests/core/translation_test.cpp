// Translation against TXIDIOMA on both back-ends: the exact, approximate and
// word-by-word lookups, the cache, accent-sensitive keys, forms and messages,
// and a session without language that runs no statement at all.
#include "core/translation.h"

#include "support/layer_fixture.h"

#include <gtest/gtest.h>

namespace co {
namespace {

const QString kIngles = QStringLiteral("Ingles");

class Translation : public test::TablesOnDemandTest {
protected:
    void add(const QString &clave, const QString &texto, const QString &idioma = kIngles) {
        general(
            QStringLiteral("INSERT INTO TXIDIOMA (Idioma, ClaveTexto, Texto) VALUES (%1, %2, %3)")
                .arg(Entrecomillar(idioma), Entrecomillar(clave), Entrecomillar(texto)));
    }
    int statements() const { return datos_->SentenciasEjecutadas(); }
};

TEST_P(Translation, WithoutLanguageNothingIsQueried) {
    add(QStringLiteral("Información"), QStringLiteral("Information"));
    add(QStringLiteral("Factura \\X"), QStringLiteral("Invoice \\X"));
    Translator t(*datos_, {});
    ScriptedMessages port;
    Messenger mensajes(&port);
    t.TraducirMensajes(mensajes);
    const int before = statements();
    EXPECT_EQ(t.TraducirTexto(QStringLiteral("Información")), QStringLiteral("Información"));
    EXPECT_EQ(t.TraducirTexto(QStringLiteral("Factura 123")), QStringLiteral("Factura 123"));
    EXPECT_EQ(t.BuscarTraduccion(QStringLiteral("Información")), std::nullopt);
    EXPECT_EQ(t.BuscarTraduccionAproximada(QStringLiteral("Factura 123")), std::nullopt);
    QList<TextoFormulario> form{{{}, QStringLiteral("Caption"), QStringLiteral("Información")}};
    t.TraducirFormulario(form);
    mensajes.MensajeI(QStringLiteral("Información"));
    EXPECT_EQ(statements(), before);
    EXPECT_EQ(form[0].texto, QStringLiteral("Información"));
    EXPECT_EQ(port.shown()[0].title, QStringLiteral("Información"));
    EXPECT_EQ(port.shown()[0].text, QStringLiteral("Información"));
    EXPECT_EQ(t.cache().size(), 0);
    // The same dictionary answers once a language is given.
    EXPECT_EQ(t.TraducirTexto(QStringLiteral("Información"), kIngles),
              QStringLiteral("Information"));
}

TEST_P(Translation, ExactKeysAnswerOnceAndThenFromTheCache) {
    add(QStringLiteral("Maestro de Obras"), QStringLiteral("Works Master"));
    Translator t(*datos_, kIngles);
    EXPECT_EQ(t.TraducirTexto(QStringLiteral("Maestro de &Obras")), QStringLiteral("Works Master"));
    const int after = statements();
    EXPECT_EQ(t.TraducirTexto(QStringLiteral("&Maestro de Obras")), QStringLiteral("Works Master"));
    EXPECT_EQ(statements(), after);
    // A text without translation is settled as itself and not looked up again.
    EXPECT_EQ(t.TraducirTexto(QStringLiteral("&Salir del programa")),
              QStringLiteral("&Salir del programa"));
    const int settled = statements();
    EXPECT_GT(settled, after);
    EXPECT_EQ(t.TraducirTexto(QStringLiteral("&Salir del programa")),
              QStringLiteral("&Salir del programa"));
    EXPECT_EQ(statements(), settled);
    EXPECT_EQ(t.cache().size(), 2);
}

TEST_P(Translation, KeysCompareWithAccentsAndCase) {
    add(QStringLiteral("Información"), QStringLiteral("Information"));
    add(QStringLiteral("Camion"), QStringLiteral("Truck (no accent)"));
    Translator t(*datos_, kIngles);
    EXPECT_EQ(t.TraducirTexto(QStringLiteral("Información")), QStringLiteral("Information"));
    EXPECT_EQ(t.TraducirTexto(QStringLiteral("Informacion")), QStringLiteral("Informacion"));
    EXPECT_EQ(t.TraducirTexto(QStringLiteral("INFORMACIÓN")), QStringLiteral("INFORMACIÓN"));
    EXPECT_EQ(t.TraducirTexto(QStringLiteral("información")), QStringLiteral("información"));
    EXPECT_EQ(t.TraducirTexto(QStringLiteral("Camión")), QStringLiteral("Camión"));
    EXPECT_EQ(t.TraducirTexto(QStringLiteral("Camion")), QStringLiteral("Truck (no accent)"));
    // Nor do the patterns of the approximate lookup ignore them.
    add(QStringLiteral("Envío \\X"), QStringLiteral("Shipment \\X"));
    EXPECT_EQ(t.BuscarTraduccionAproximada(QStringLiteral("Envio 12")), std::nullopt);
    EXPECT_EQ(t.BuscarTraduccionAproximada(QStringLiteral("envío 12")), std::nullopt);
    EXPECT_EQ(t.BuscarTraduccionAproximada(QStringLiteral("Envío 12")),
              QStringLiteral("Shipment 12"));
}

TEST_P(Translation, VariablePartsAreCopiedIntoTheTranslation) {
    // The longer key goes in first, so that a lookup taking rows in stored
    // order would find it for "Factura 123".
    add(QStringLiteral("Factura \\X del cliente \\X"),
        QStringLiteral("Invoice \\X for customer \\ X"));
    add(QStringLiteral("Factura \\X"), QStringLiteral("Invoice \\X"));
    add(QStringLiteral("Albarán \\X."), QStringLiteral("Delivery note \\X."));
    Translator t(*datos_, kIngles);
    EXPECT_EQ(t.TraducirTexto(QStringLiteral("Factura 123")), QStringLiteral("Invoice 123"));
    EXPECT_EQ(t.TraducirTexto(QStringLiteral("Factura 15/03/2026")),
              QStringLiteral("Invoice 15/03/2026"));
    EXPECT_EQ(t.TraducirTexto(QStringLiteral("Factura 12 del cliente Pérez")),
              QStringLiteral("Invoice 12 for customer Pérez"));
    EXPECT_EQ(t.TraducirTexto(QStringLiteral("Albarán 7.")), QStringLiteral("Delivery note 7."));
    // Wildcards of the back-ends in the text are plain characters.
    EXPECT_EQ(t.BuscarTraduccionAproximada(QStringLiteral("F% *_?[ 123")), std::nullopt);
    EXPECT_EQ(t.TraducirTexto(QStringLiteral("Factura 5%")), QStringLiteral("Invoice 5%"));
}

TEST_P(Translation, ApproximateKeysNeverDropWordsOfTheText) {
    add(QStringLiteral("Error"), QStringLiteral("Failure"));
    add(QStringLiteral("Obra \\X terminada"), QStringLiteral("Works \\X finished"));
    Translator t(*datos_, kIngles);
    EXPECT_EQ(t.BuscarTraduccionAproximada(QStringLiteral("Error al grabar la factura")),
              std::nullopt);
    EXPECT_EQ(t.BuscarTraduccionAproximada(QStringLiteral("Obra Casa Juan terminada")),
              std::nullopt);
    EXPECT_EQ(t.BuscarTraduccionAproximada(QStringLiteral("Error")), std::nullopt);
    // Word by word instead: each known word is translated, the rest stays.
    EXPECT_EQ(t.TraducirTexto(QStringLiteral("Error al grabar")),
              QStringLiteral("Failure al grabar"));
}

TEST_P(Translation, WordByWordLeavesParametersAlone) {
    add(QStringLiteral("Obra"), QStringLiteral("Works"));
    add(QStringLiteral("cerrada"), QStringLiteral("closed"));
    Translator t(*datos_, kIngles);
    EXPECT_EQ(t.TraducirTexto(QStringLiteral("Obra $Obra$  cerrada")),
              QStringLiteral("Works $Obra$  closed"));
    EXPECT_EQ(t.TraducirTexto(QStringLiteral("Obra sin cerrar")),
              QStringLiteral("Works sin cerrar"));
}

TEST_P(Translation, TextsWithEqualsSignAlwaysGoToTheTable) {
    add(QStringLiteral("Total=Suma"), QStringLiteral("Total=Sum"));
    add(QStringLiteral("Total"), QStringLiteral("Grand total"));
    Translator t(*datos_, kIngles);
    EXPECT_EQ(t.TraducirTexto(QStringLiteral("Total=Suma")), QStringLiteral("Total=Sum"));
    const int once = statements();
    EXPECT_EQ(t.TraducirTexto(QStringLiteral("Total=Suma")), QStringLiteral("Total=Sum"));
    EXPECT_GT(statements(), once);
    EXPECT_EQ(t.TraducirTexto(QStringLiteral("Total")), QStringLiteral("Grand total"));
    EXPECT_EQ(t.TraducirTexto(QStringLiteral("Neto=Bruto")), QStringLiteral("Neto=Bruto"));
    EXPECT_EQ(t.cache().size(), 1);
}

TEST_P(Translation, NamesOfReportControlsAndTinyTextsAreLeftAlone) {
    add(QStringLiteral("QRLabel1"), QStringLiteral("Label"));
    add(QStringLiteral("LBTitulo"), QStringLiteral("Title"));
    add(QStringLiteral("A"), QStringLiteral("B"));
    Translator t(*datos_, kIngles);
    const int before = statements();
    for (const QString &text : {QStringLiteral("QRLabel1"), QStringLiteral("LBTitulo"),
                                QStringLiteral("&A"), QStringLiteral("A"), QString()})
        EXPECT_EQ(t.TraducirTexto(text), text);
    EXPECT_EQ(statements(), before);
}

TEST_P(Translation, FailedLookupsAreNoTranslationAndShowNothing) {
    datos_->setTableCreator(nullptr);
    Translator t(*datos_, kIngles);
    EXPECT_EQ(t.TraducirTexto(QStringLiteral("Información")), QStringLiteral("Información"));
    EXPECT_EQ(t.TraducirTexto(QStringLiteral("Factura 123")), QStringLiteral("Factura 123"));
    EXPECT_TRUE(messages_.shown().isEmpty());

    datos_->setTableCreator(creador_.get());
    add(QStringLiteral("Información"), QStringLiteral("Information"));
    // A collation the back-end does not have makes every lookup fail.
    Translator missing(*datos_, kIngles, QStringLiteral("Modern_Spanish_CI_AI"));
    EXPECT_EQ(missing.TraducirTexto(QStringLiteral("Información")), QStringLiteral("Información"));
    EXPECT_TRUE(messages_.shown().isEmpty());
}

// Tells a failure through the session's messages, as table creation does.
class NoisyCreator : public TableCreator {
public:
    explicit NoisyCreator(TfGENEINIC &sesion) : sesion_(sesion) {}
    QString CrearTabla(const QString &, const QString &) override {
        sesion_.mensajes().MensajeA(QStringLiteral("¡ La tabla no existe !"));
        return QStringLiteral("no");
    }

private:
    TfGENEINIC &sesion_;
};

TEST_P(Translation, MessagesRaisedByALookupAreNotLookedUpAgain) {
    NoisyCreator creator(*sesion_);
    datos_->setTableCreator(&creator);
    Translator t(*datos_, kIngles);
    t.TraducirMensajes(sesion_->mensajes());
    EXPECT_EQ(t.TraducirTexto(QStringLiteral("Información")), QStringLiteral("Información"));
    // Each failed lookup told its failure once, untranslated.
    ASSERT_FALSE(messages_.shown().isEmpty());
    for (const Message &m : messages_.shown()) {
        EXPECT_EQ(m.text, QStringLiteral("¡ La tabla no existe !"));
        EXPECT_EQ(m.title, QStringLiteral("Advertencia"));
    }
}

TEST_P(Translation, TheCollationIsAddedWithAccentsCounting) {
    add(QStringLiteral("Maestro de Obras"), QStringLiteral("Works Master"));
    if (backend() == Backend::PostgreSQL) {
        // An accent-insensitive name is used by its accent-sensitive sibling.
        general(QStringLiteral("CREATE COLLATION \"Prueba_CI_AS\" FROM \"C\""));
        Translator t(*datos_, kIngles, QStringLiteral("\"Prueba_CI_AI\""));
        EXPECT_EQ(t.TraducirTexto(QStringLiteral("Maestro de Obras")),
                  QStringLiteral("Works Master"));
        EXPECT_EQ(t.TraducirTexto(QStringLiteral("maestro de obras")),
                  QStringLiteral("maestro de obras"));
    } else {
        // SQLite's own collations: NOCASE ignores the case of ASCII letters.
        Translator t(*datos_, kIngles, QStringLiteral("NOCASE"));
        EXPECT_EQ(t.TraducirTexto(QStringLiteral("maestro de obras")),
                  QStringLiteral("Works Master"));
    }
    EXPECT_TRUE(messages_.shown().isEmpty());
}

TEST_P(Translation, OtherLanguagesAreAskedApart) {
    add(QStringLiteral("Obra"), QStringLiteral("Works"));
    add(QStringLiteral("Obra"), QStringLiteral("Chantier"), QStringLiteral("Frances"));
    Translator t(*datos_, kIngles);
    EXPECT_EQ(t.TraducirTexto(QStringLiteral("Obra")), QStringLiteral("Works"));
    EXPECT_EQ(t.TraducirTexto(QStringLiteral("Obra"), QStringLiteral("Frances")),
              QStringLiteral("Chantier"));
    EXPECT_EQ(t.TraducirTexto(QStringLiteral("Obra")), QStringLiteral("Works"));
    EXPECT_EQ(t.TraducirTexto(QStringLiteral("Obra"), QStringLiteral("Italiano")),
              QStringLiteral("Obra"));
}

TEST_P(Translation, FormTextsAreTranslatedInPlace) {
    add(QStringLiteral("Maestro de Obras"), QStringLiteral("Works Master"));
    add(QStringLiteral("Abierta"), QStringLiteral("Open"));
    add(QStringLiteral("Cerrada"), QStringLiteral("Closed"));
    add(QStringLiteral("Código"), QStringLiteral("Code"));
    Translator t(*datos_, kIngles);
    QList<TextoFormulario> form{
        {{}, QStringLiteral("Caption"), QStringLiteral("Maestro de Obras")},
        {QStringLiteral("DBGrid1"), QStringLiteral("Columns[0].Title"), QStringLiteral("Código")},
        {QStringLiteral("RadioGroup1"), QStringLiteral("Items"),
         QStringLiteral("Abierta\r\nCerrada\r\nAnulada")},
        {QStringLiteral("QRLabel1"), QStringLiteral("Caption"), QStringLiteral("QRLabel1")},
        {QStringLiteral("EditCodigo"), QStringLiteral("Hint"), QString()},
    };
    t.TraducirFormulario(form);
    EXPECT_EQ(form[0].texto, QStringLiteral("Works Master"));
    EXPECT_EQ(form[1].texto, QStringLiteral("Code"));
    EXPECT_EQ(form[2].texto, QStringLiteral("Open\r\nClosed\r\nAnulada"));
    EXPECT_EQ(form[3].texto, QStringLiteral("QRLabel1"));
    EXPECT_EQ(form[4].texto, QString());
    EXPECT_EQ(form[2].componente, QStringLiteral("RadioGroup1"));
}

TEST_P(Translation, MessagesAreTranslatedAtShow) {
    add(QStringLiteral("Advertencia"), QStringLiteral("Warning"));
    add(QStringLiteral("Confirmar"), QStringLiteral("Confirm"));
    add(QStringLiteral("¡ Ya existe el registro !"), QStringLiteral("The record already exists!"));
    add(QStringLiteral("El campo 'Codigo' no está definido."),
        QStringLiteral("Field 'Codigo' is not defined."));
    Translator t(*datos_, kIngles);
    ScriptedMessages port;
    Messenger mensajes(&port);
    t.TraducirMensajes(mensajes);
    mensajes.MensajeA(QStringLiteral("¡ Ya existe el registro !"));
    mensajes.MensajeA(QStringLiteral("TRADUCIR: Field 'Codigo' not found"));
    port.answer(QStringLiteral("SI"));
    EXPECT_EQ(mensajes.MensajeC(QStringLiteral("¿Seguro?")), QStringLiteral("SI"));
    mensajes.MensajePlano(QStringLiteral("SELECT 1"));
    ASSERT_EQ(port.shown().size(), 4);
    EXPECT_EQ(port.shown()[0].title, QStringLiteral("Warning"));
    EXPECT_EQ(port.shown()[0].text, QStringLiteral("The record already exists!"));
    EXPECT_EQ(port.shown()[1].text, QStringLiteral("Field 'Codigo' is not defined."));
    EXPECT_EQ(port.shown()[2].title, QStringLiteral("Confirm"));
    EXPECT_EQ(port.shown()[2].text, QStringLiteral("¿Seguro?"));
    EXPECT_EQ(port.shown()[3].title, QString());
}

CO_ON_BOTH_BACKENDS(Translation);

} // namespace
} // namespace co
