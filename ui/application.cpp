#include "ui/application.h"

#include "core/failure.h"
#include "forms/dataset_errors.h"

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
    } catch (const forms::EAbort &) {
        // The silent abort: its raiser has told the user already.
    } catch (const Failure &f) {
        if (gestor_)
            gestor_(receiver, f.text());
    } catch (const std::exception &e) {
        if (gestor_)
            gestor_(receiver, QString::fromUtf8(e.what()));
    }
    return false;
}

} // namespace co::ui
