#include "ui/application.h"

#include "core/failure.h"
#include "core/failure_handler.h"

#include <QCursor>
#include <QLibraryInfo>

namespace co::ui {

ControlObrasApplication::ControlObrasApplication(int &argc, char **argv)
    : QApplication(argc, argv) {
    traduccionQtCargada_ = traduccionQt_.load(QStringLiteral("qtbase_es"),
                                              QLibraryInfo::path(QLibraryInfo::TranslationsPath)) &&
                           installTranslator(&traduccionQt_);
}

bool ControlObrasApplication::notify(QObject *receiver, QEvent *event) {
    try {
        return QApplication::notify(receiver, event);
    } catch (const Failure &f) {
        GestionarFallo(f.text());
    } catch (const std::exception &e) {
        GestionarFallo(QString::fromUtf8(e.what()));
    }
    return false;
}

void ControlObrasApplication::GestionarFallo(const QString &texto) {
    if (!mensajes_)
        return;
    FailureHooks hooks;
    hooks.restoreCursor = [] { QApplication::restoreOverrideCursor(); };
    hooks.busyCursor = [] { QApplication::setOverrideCursor(Qt::WaitCursor); };
    MostrarFallo(GestionExcepciones(texto), *mensajes_, hooks);
}

} // namespace co::ui
