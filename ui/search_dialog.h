#pragma once
// The search windows drawn with widgets, modal. The dialogs only mirror the
// windows' logic (forms/search_window.h, forms/approximate_search.h): every
// key, click and edit is handed to it and the widgets are re-read from it.

#include "forms/searches.h"

#include <QObject>

class QWidget;

namespace co::ui {

class EjecutorBusquedaQt : public forms::EjecutorBusqueda {
public:
    explicit EjecutorBusquedaQt(QWidget *parent = nullptr) : parent_(parent) {}
    void Mostrar(forms::TfGENEBUSQ &ventana) override;
    void Mostrar(forms::TfGENEBUSA &ventana) override;
    QString SeleccionarTabla(const QStringList &tablas, const QString &definicion) override;

private:
    QWidget *parent_;
};

// The searches of the desktop session: the windows, their modal run and the
// options of the session's user, read afresh for every search.
class BusquedasEscritorio : public QObject {
public:
    BusquedasEscritorio(TModuloDatos &datos, forms::Busquedas::LectorOpciones opciones,
                        QWidget *parent);
    forms::Busquedas &busquedas() { return busquedas_; }

private:
    EjecutorBusquedaQt ejecutor_;
    forms::Busquedas busquedas_;
};

} // namespace co::ui
