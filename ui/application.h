#pragma once
// The desktop application object: a failure that no code caught reaches the
// failure handler, which tells it in Spanish and decides whether to go on.
// Qt's own dialogs (files, printing, standard buttons) speak Spanish too: Qt's
// translation "qtbase_es" is loaded from Qt's translations folder.

#include "core/messages.h"

#include <QApplication>
#include <QTranslator>

namespace co::ui {

class ControlObrasApplication : public QApplication {
public:
    ControlObrasApplication(int &argc, char **argv);
    void setMessenger(Messenger *mensajes) { mensajes_ = mensajes; }
    bool notify(QObject *receiver, QEvent *event) override;

    // What the handler does with an uncaught failure's text.
    void GestionarFallo(const QString &texto);

    // Whether Qt's Spanish texts were found and are in force.
    bool TraduccionQtCargada() const { return traduccionQtCargada_; }

private:
    QTranslator traduccionQt_;
    bool traduccionQtCargada_ = false;
    Messenger *mensajes_ = nullptr;
};

} // namespace co::ui
