// Failures nobody caught reach the handler through the application object.
#include "core/failure.h"
#include "ui/application.h"

#include "support/gtest_qt_printing.h"

#include <QEvent>
#include <gtest/gtest.h>

namespace co::ui {
namespace {

class Throwing : public QObject {
public:
    explicit Throwing(QString text) : text_(std::move(text)) {}
    bool event(QEvent *e) override {
        if (e->type() == QEvent::User)
            throw Failure(text_);
        return QObject::event(e);
    }

private:
    QString text_;
};

TEST(UncaughtFailures, AreToldInSpanishAndTheProgramGoesOn) {
    auto *app = static_cast<ControlObrasApplication *>(QCoreApplication::instance());
    ScriptedMessages port;
    Messenger mensajes(&port);
    bool ended = false;
    mensajes.setTerminator([&] { ended = true; });
    app->setMessenger(&mensajes);
    Throwing bad(QStringLiteral("'abc' is not a valid floating point value"));
    QEvent e(QEvent::User);
    QCoreApplication::sendEvent(&bad, &e);
    EXPECT_EQ(port.texts(), QStringList{QStringLiteral("¡ El dato introducido no es válido !. Repita por favor.")});
    EXPECT_FALSE(ended);

    Throwing fatal(QStringLiteral("Access violation at address 0"));
    QCoreApplication::sendEvent(&fatal, &e);
    EXPECT_TRUE(ended);
    EXPECT_EQ(port.shown().last().kind, u'E');

    port.clear();
    Throwing busy(QStringLiteral("Table is busy"));
    QCoreApplication::sendEvent(&busy, &e);
    EXPECT_TRUE(port.shown().isEmpty());
    app->setMessenger(nullptr);
}

} // namespace
} // namespace co::ui
