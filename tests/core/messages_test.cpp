#include "core/messages.h"

#include <gtest/gtest.h>

namespace co {
namespace {

TEST(Messenger, ConfirmationAnswersOnlySiOrNo) {
    ScriptedMessages port;
    Messenger m(&port);
    port.answer(QStringLiteral("SI"));
    port.answer(QStringLiteral("maybe"));
    EXPECT_EQ(m.MensajeC(QStringLiteral("¿Seguro?")), QStringLiteral("SI"));
    EXPECT_EQ(m.MensajeC(QStringLiteral("¿Seguro?")), QStringLiteral("NO"));
    EXPECT_EQ(m.MensajeC(QStringLiteral("¿Seguro?")), QStringLiteral("NO"));
    EXPECT_EQ(port.shown().size(), 3);
}

TEST(Messenger, PromptCancelledKeepsTheValue) {
    ScriptedMessages port;
    Messenger m(&port);
    EXPECT_EQ(m.MensajeP(QStringLiteral("Código:"), QStringLiteral("12")), QStringLiteral("12"));
    port.answer(QStringLiteral("34"));
    EXPECT_EQ(m.MensajeP(QStringLiteral("Código:"), QStringLiteral("12")), QStringLiteral("34"));
}

TEST(Messenger, InputQueryTellsACancelFromAnAcceptedValue) {
    ScriptedMessages port;
    Messenger m(&port);
    EXPECT_EQ(m.InputQuery(QStringLiteral("Código:"), QStringLiteral("12")), QStringLiteral("12"))
        << "nothing scripted accepts the proposed value";
    port.answer(QStringLiteral("34"));
    port.cancel();
    port.answer(QString());
    EXPECT_EQ(m.InputQuery(QStringLiteral("Código:"), QStringLiteral("12")), QStringLiteral("34"));
    EXPECT_EQ(m.InputQuery(QStringLiteral("Código:"), QStringLiteral("12")), std::nullopt);
    const std::optional<QString> vacio =
        m.InputQuery(QStringLiteral("Código:"), QStringLiteral("12"));
    ASSERT_TRUE(vacio.has_value()) << "an emptied box accepted is not a cancel";
    EXPECT_TRUE(vacio->isEmpty());
    ASSERT_EQ(port.shown().size(), 4);
    EXPECT_EQ(port.shown()[0].kind, u'P');
    EXPECT_EQ(port.shown()[0].title, QStringLiteral("Pregunta"));

    // The plain prompt still reads a cancel as the value unchanged, and a
    // cancel in a confirmation's place is "NO".
    port.cancel();
    EXPECT_EQ(m.MensajeP(QStringLiteral("Código:"), QStringLiteral("12")), QStringLiteral("12"));
    port.cancel();
    EXPECT_EQ(m.MensajeC(QStringLiteral("¿Seguro?")), QStringLiteral("NO"));

    m.setTranslator([](const QString &t) { return QStringLiteral("<%1>").arg(t); });
    port.answer(QStringLiteral("7"));
    EXPECT_EQ(m.InputQuery(QStringLiteral("Código:")), QStringLiteral("7"));
    EXPECT_EQ(port.shown().last().title, QStringLiteral("<Pregunta>"));
    EXPECT_EQ(port.shown().last().text, QStringLiteral("<Código:>"));

    Messenger sinPuerto;
    EXPECT_EQ(sinPuerto.InputQuery(QStringLiteral("Código:"), QStringLiteral("12")), std::nullopt)
        << "no one to answer is no answer";
}

TEST(Messenger, AccumulatedModeBuffersAndNeverTerminates) {
    ScriptedMessages port;
    Messenger m(&port);
    bool terminated = false;
    m.setTerminator([&] { terminated = true; });
    m.setAccumulate(true);
    m.MensajeA(QStringLiteral("uno"));
    m.MensajeE(QStringLiteral("dos"));
    EXPECT_TRUE(port.shown().isEmpty());
    EXPECT_FALSE(terminated);
    EXPECT_EQ(m.takeAccumulated(), QStringLiteral("uno\r\ndos\r\n"));
    EXPECT_TRUE(m.takeAccumulated().isEmpty());
    m.setAccumulate(false);
    m.MensajeE(QStringLiteral("tres"));
    EXPECT_TRUE(terminated);
}

TEST(Messenger, TitleAndTextAreTranslatedWhenShownOnly) {
    ScriptedMessages port;
    Messenger m(&port);
    m.MensajeI(QStringLiteral("uno"));
    m.setTranslator([](const QString &t) { return QStringLiteral("<%1>").arg(t); });
    m.MensajeE(QStringLiteral("TRADUCIR: At beginning of table"));
    port.answer(QStringLiteral("SI"));
    EXPECT_EQ(m.MensajeC(QStringLiteral("¿Seguro?")), QStringLiteral("SI"));
    m.setAccumulate(true);
    m.MensajeA(QStringLiteral("tres"));
    EXPECT_EQ(m.takeAccumulated(), QStringLiteral("tres\r\n"));
    ASSERT_EQ(port.shown().size(), 3);
    EXPECT_EQ(port.shown()[0].title, QStringLiteral("Información"));
    EXPECT_EQ(port.shown()[0].text, QStringLiteral("uno"));
    EXPECT_EQ(port.shown()[1].title, QStringLiteral("<Error>"));
    EXPECT_EQ(port.shown()[1].text, QStringLiteral("<Al principio de la tabla.>"));
    EXPECT_EQ(port.shown()[2].title, QStringLiteral("<Confirmar>"));
}

} // namespace
} // namespace co
