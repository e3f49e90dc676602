#include "ui/grid_value_menu.h"

#include "forms/dataset.h"
#include "forms/form.h"
#include "forms/value_filters.h"
#include "ui/dataset_model.h"

#include <QMenu>
#include <QTableView>

namespace co::ui {

void MenuFiltrosValor(QTableView &vista, DatasetModel &modelo, forms::DBGrid &rejilla,
                      Messenger &mensajes, const std::function<bool(const std::function<void()> &)> &ejecutar,
                      QPoint posicion) {
    forms::Dataset *ds = rejilla.DataSet();
    if (!ds || !ds->Active())
        return;
    QModelIndex celda = vista.indexAt(posicion);
    if (!celda.isValid())
        celda = vista.currentIndex(); // the menu key: the current cell
    // The column comes from the mouse; the value proposed is the current
    // record's, and the current record stays (a pending one is not left).
    forms::Field *campo = celda.isValid() ? modelo.field(celda.column()) : nullptr;
    const bool ofrecer = campo && !campo->Calculated && !ds->IsPending();

    QMenu menu(&vista);
    menu.setObjectName(QStringLiteral("MenuFiltrosValor"));
    const std::pair<const char *, forms::FiltroValor> entradas[] = {
        {"Filtrar Registros por Valor &Igual a...", forms::FiltroValor::IgualA},
        {"Filtrar Registros por Valor &Desde...", forms::FiltroValor::Desde},
        {"Filtrar Registros por Valor &Hasta...", forms::FiltroValor::Hasta}};
    for (const auto &[texto, tipo] : entradas) {
        QAction *a = menu.addAction(QString::fromUtf8(texto));
        a->setEnabled(ofrecer);
        QObject::connect(a, &QAction::triggered, &vista, [&, tipo = tipo] {
            ejecutar([&] { forms::FiltrarPorValor(*ds, *campo, tipo, mensajes); });
        });
    }
    menu.addSeparator();
    QAction *cancelar = menu.addAction(QStringLiteral("&Cancelar Filtros"));
    cancelar->setEnabled(!ds->IsPending());
    QObject::connect(cancelar, &QAction::triggered, &vista,
                     [&] { ejecutar([&] { forms::CancelarFiltros(*ds); }); });
    menu.exec(vista.viewport()->mapToGlobal(posicion));
}

} // namespace co::ui
