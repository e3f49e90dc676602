#pragma once
// The desktop application object: a failure that no code caught in an event
// reaches the session's failure handler with the object that received the
// event, which tells it in Spanish and decides whether to go on.
// Qt's own dialogs (files, printing, standard buttons) speak Spanish too: Qt's
// translation "qtbase_es" is loaded from Qt's translations folder.

#include <QApplication>
#include <QTranslator>
#include <functional>

namespace co::ui {

class ControlObrasApplication : public QApplication {
public:
    ControlObrasApplication(int &argc, char **argv);
    using GestorFallos = std::function<void(QObject *receptor, const QString &texto)>;
    // Without a handler (before the session starts) a failure is dropped.
    void setGestorFallos(GestorFallos gestor) { gestor_ = std::move(gestor); }
    bool notify(QObject *receiver, QEvent *event) override;

    // Whether Qt's Spanish texts were found and are in force.
    bool TraduccionQtCargada() const { return traduccionQtCargada_; }

private:
    QTranslator traduccionQt_;
    bool traduccionQtCargada_ = false;
    GestorFallos gestor_;
};

} // namespace co::ui
