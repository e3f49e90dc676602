#pragma once
// The desktop application object: a failure that no code caught reaches the
// failure handler, which tells it in Spanish and decides whether to go on.

#include "core/messages.h"

#include <QApplication>

namespace co::ui {

class ControlObrasApplication : public QApplication {
public:
    ControlObrasApplication(int &argc, char **argv);
    void setMessenger(Messenger *mensajes) { mensajes_ = mensajes; }
    bool notify(QObject *receiver, QEvent *event) override;

    // What the handler does with an uncaught failure's text.
    void GestionarFallo(const QString &texto);

private:
    Messenger *mensajes_ = nullptr;
};

} // namespace co::ui
