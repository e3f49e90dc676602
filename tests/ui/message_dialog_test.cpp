// The typed message window as the desktop's prompt: the value proposed is in
// the box, an accept answers what the box holds (empty included) and a cancel
// is told apart from it; the plain prompt keeps answering the value on cancel.
#include "ui/message_dialog.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <gtest/gtest.h>

namespace co::ui {
namespace {

// Runs `guion` on the prompt once it shows, then presses the button with `boton`'s text.
void responder(const QString &boton, const std::function<void(QLineEdit &)> &guion = {}) {
    QTimer::singleShot(0, [=] {
        auto *d = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        ASSERT_NE(d, nullptr);
        auto *edit = d->findChild<QLineEdit *>(QStringLiteral("EditValor"));
        ASSERT_NE(edit, nullptr);
        if (guion)
            guion(*edit);
        for (QPushButton *b : d->findChildren<QPushButton *>())
            if (b->text() == boton) {
                b->click();
                return;
            }
        ADD_FAILURE() << "no button " << boton.toStdString();
        d->reject();
    });
}

TEST(DialogPrompt, AskTellsACancelFromAnAcceptedValue) {
    DialogMessages port;
    const QString aceptar = QStringLiteral("&Aceptar"), cancelar = QStringLiteral("&Cancelar");
    QString propuesto;
    responder(aceptar, [&](QLineEdit &e) { propuesto = e.text(); });
    EXPECT_EQ(
        port.ask({}, QStringLiteral("Introduzca el valor del campo Codigo"), QStringLiteral("42")),
        QStringLiteral("42"));
    EXPECT_EQ(propuesto, QStringLiteral("42")) << "the value is offered in the box";

    responder(aceptar, [](QLineEdit &e) { e.setText(QStringLiteral("7")); });
    EXPECT_EQ(port.ask({}, QStringLiteral("Código:"), QStringLiteral("42")), QStringLiteral("7"));

    responder(aceptar, [](QLineEdit &e) { e.clear(); });
    const std::optional<QString> vacio =
        port.ask({}, QStringLiteral("Código:"), QStringLiteral("42"));
    ASSERT_TRUE(vacio.has_value()) << "an emptied box accepted is an answer";
    EXPECT_TRUE(vacio->isEmpty());

    responder(cancelar, [](QLineEdit &e) { e.setText(QStringLiteral("7")); });
    EXPECT_EQ(port.ask({}, QStringLiteral("Código:"), QStringLiteral("42")), std::nullopt);

    // Through the messenger, and the plain prompt's cancel as it always was.
    Messenger m(&port);
    responder(cancelar);
    EXPECT_EQ(m.InputQuery(QStringLiteral("Código:"), QStringLiteral("42")), std::nullopt);
    responder(cancelar, [](QLineEdit &e) { e.setText(QStringLiteral("7")); });
    EXPECT_EQ(m.MensajeP(QStringLiteral("Código:"), QStringLiteral("42")), QStringLiteral("42"));
}

} // namespace
} // namespace co::ui
